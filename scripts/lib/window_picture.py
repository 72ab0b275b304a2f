#!/usr/bin/python3
"""A picture of the phone in its window while a finger pulls the toolbar up: window_picture.py SIMULATOR FILE.png.
The display is one that nobody sees; Xvfb keeps its pixels in a file."""

import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import time
import zlib

FINGER = 85, 833  # at the bottom edge, pixels of the window
UP, STEP = 300, 10


def pixels(file, width, height):
    """The upper left part of an X window dump of 32 bits a pixel, as rows of red, green and blue."""
    data = file.read_bytes()
    header = struct.unpack(">25I", data[:100])
    start, line = header[0] + header[19] * 12, header[12]
    rows = []
    for y in range(height):
        row = data[start + y * line : start + y * line + width * 4]
        rgb = bytearray(width * 3)
        rgb[0::3], rgb[1::3], rgb[2::3] = row[2::4], row[1::4], row[0::4]
        rows.append(bytes(rgb))
    return rows


def png(rows):
    """Each row as its difference from the one above, which packs well."""
    above = bytes(len(rows[0]))
    packed = bytearray()
    for row in rows:
        packed += b"\x02" + bytes((a - b) & 255 for a, b in zip(row, above))
        above = row

    def chunk(name, body):
        return struct.pack(">I", len(body)) + name + body + struct.pack(">I", zlib.crc32(name + body))

    head = struct.pack(">IIBBBBB", len(rows[0]) // 3, len(rows), 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(packed, 9)) + chunk(b"IEND", b"")


def xdotool(*words):
    return subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, text=True).stdout


def window():
    return xdotool("search", "--sync", "--class", "vantori-simulator").split()[-1]


def started(phone):
    while "these keys" not in phone.stdout.readline():
        pass


def at_rest(screen, width, height):
    """The picture, once it stays as it is for a quarter of a second."""
    before = None
    while (now := pixels(screen, width, height)) != before:
        before = now
        time.sleep(0.25)
    return now


def main(simulator, target):
    with tempfile.TemporaryDirectory() as folder:
        heard, told = os.pipe()
        with subprocess.Popen(
            ["Xvfb", "-displayfd", str(told), "-screen", "0", "1600x1000x24", "-nolisten", "tcp", "-fbdir", folder],
            pass_fds=[told], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        ) as server:  # fmt: skip
            os.close(told)
            with os.fdopen(heard) as pipe:
                os.environ.update(DISPLAY=":" + pipe.readline().strip(), SDL_VIDEODRIVER="x11")
            with subprocess.Popen([simulator, "window"], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True) as phone:
                started(phone)
                xdotool("windowfocus", "--sync", window(), "key", "x")  # past the welcome
                started(phone)
                xdotool("windowmove", "--sync", window(), 0, 0)
                width, height = map(int, xdotool("getwindowgeometry", window()).split()[-1].split("x"))
                screen = pathlib.Path(folder) / "Xvfb_screen0"
                at_rest(screen, width, height)
                xdotool("mousemove", *FINGER, "mousedown", 1)
                for distance in range(STEP, UP + STEP, STEP):
                    xdotool("mousemove", FINGER[0], FINGER[1] - distance)
                pathlib.Path(target).write_bytes(png(at_rest(screen, width, height)))
                phone.terminate()
            server.terminate()


if __name__ == "__main__":
    main(*sys.argv[1:])

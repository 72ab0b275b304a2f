"""Makes small dylibs as ld64.lld leaves them for arm64e: pointers in plain lists, how each is signed in
the pointer itself or in the addend of its bind. Nothing of device/signing is used here.
"""

import hashlib
import struct
from dataclasses import dataclass

PAGE = 0x4000
DATA = PAGE  # where __DATA starts, in memory and in the file
SIGNED = 1 << 63


@dataclass(frozen=True)
class Place:
    """A pointer of __DATA and what it is to become."""

    offset: int
    target: int | None = None  # in the image itself
    bind: tuple | None = None  # library, symbol, addend
    lazy: bool = False
    signing: tuple | None = None  # key (0 to 3), number, whether by place

    def signing_bits(self):
        if not self.signing:
            return 0
        key, number, by_place = self.signing
        return SIGNED | key << 49 | by_place << 48 | number << 32


def uleb(value):
    out = bytearray()
    while value >= 0x80:
        out.append(value & 0x7F | 0x80)
        value >>= 7
    return bytes(out + bytes([value]))


def sleb(value):
    out = bytearray()
    while value < -0x40 or value >= 0x40:
        out.append(value & 0x7F | 0x80)
        value >>= 7
    return bytes(out + bytes([value & 0x7F]))


def rebase_list(places, random):
    """Each place by one of the ways that a list has; also backwards, as linkers do."""
    out = bytearray(b"\x11\x21\0")
    at = 0
    for place in places:
        step = (place.offset - at) % (1 << 64)
        way = random.randrange(4)
        if way == 0:
            out += b"\x21" + uleb(place.offset) + b"\x51"
        elif way == 1:
            out += b"\x30" + uleb(step) + b"\x60\x01"
        elif way == 2 and step < 15 * 8 and step % 8 == 0:
            out += bytes([0x40 | step // 8, 0x51])
        else:
            out += b"\x30" + uleb(step) + b"\x80\x01" + uleb(16)
            at = place.offset + 24
            continue
        at = place.offset + 8
    return bytes(out) + b"\0"


def bind_list(places, random, lazy):
    out = bytearray()
    for place in places:
        library, symbol, addend = place.bind
        # The linker takes all eight bytes of the object for the addend.
        told = place.signing_bits() - (1 << 64) if place.signing else addend
        out += bytes([0x10 | library]) if 0 < library < 16 else b""
        out += bytes([0x30 | library & 15]) if library <= 0 else b""
        out += b"\x20" + uleb(library) if library >= 16 else b""
        out += b"\x40" + symbol.encode() + b"\0\x51\x60" + sleb(told) + b"\x71" + uleb(place.offset)
        out += b"\x90" if random.randrange(2) else b"\xb1"
        out += b"\0" if lazy else b""
    return bytes(out) + (b"" if lazy else b"\0")


def segment(name, address, memory_size, offset, size, protection, sections=()):
    body = struct.pack("<16s4Q4I", name, address, memory_size, offset, size, protection, protection, len(sections), 0)
    for section, start, length, kind in sections:
        body += struct.pack(
            "<16s16s2Q8I", section, name, address + start, length, offset + start, 3, 0, 0, kind, 0, 0, 0
        )
    return struct.pack("<2I", 0x19, len(body) + 8) + body


def signature(data):
    """An ad-hoc one, as short as it can be, of pages of 4 KiB."""
    slots = -(-len(data) // 4096)
    hashes = b"".join(hashlib.sha256(data[at : at + 4096]).digest() for at in range(0, len(data), 4096))
    directory = struct.pack(
        ">9I4BI", 0xFADE0C02, 44 + len(hashes), 0x20100, 2, 44, 44, 0, slots, len(data), 32, 2, 0, 12, 0
    )
    return struct.pack(">5I", 0xFADE0CC0, 20 + len(directory) + len(hashes), 1, 0, 20) + directory + hashes


def linked(places, random, pages=2, memory=1 << 22, initialisers=0, slack=64):
    """The file. The first places may be initialisers; the slack is room behind the lists."""
    data = bytearray(pages * PAGE)
    for place in places:
        value = place.signing_bits() | (place.target or 0) if place.bind is None else 0
        struct.pack_into("<Q", data, place.offset, value)
    moved = [one for one in places if one.bind is None or one.lazy]  # lazy ones lead to a helper first
    lists = [
        rebase_list(moved, random),
        bind_list([one for one in places if one.bind and not one.lazy], random, lazy=False),
        b"",
        bind_list([one for one in places if one.lazy], random, lazy=True) + bytes(slack),
    ]
    link_at = PAGE + len(data)
    spans, link = [], bytearray()
    for one in lists:
        spans += [link_at + len(link) if one else 0, len(one)]
        link += one
    link += b"exports!"
    link += bytes(-len(link) % 16)
    info = struct.pack("<12I", 0x80000022, 48, *spans, link_at + len(link) - 16, 8)
    end = link_at + len(link)
    sign_command = struct.pack("<4I", 0x1D, 16, end, len(signature(bytes(end))))
    sections = [(b"__mod_init_func", 0, 8 * initialisers, 9)] if initialisers else []
    commands = [
        segment(b"__TEXT", 0, PAGE, 0, PAGE, 5),
        segment(b"__DATA", DATA, memory, DATA, len(data), 3, sections),
        segment(b"__LINKEDIT", DATA + memory, PAGE, link_at, len(link), 1),
        info,
        sign_command,
    ]
    header = struct.pack(
        "<8I", 0xFEEDFACF, 0x0100000C, 0, 6, len(commands), sum(map(len, commands)), 0, 0
    )
    text = (header + b"".join(commands)).ljust(PAGE, b"\xc0")
    whole = bytes(text + data + link)
    return whole + signature(whole)

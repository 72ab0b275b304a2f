#!/usr/bin/env python3
"""The phone in a window: window_test.py PATH-OF-THE-SIMULATOR. A display that nobody sees, a mouse and keys;
the console in the terminal beside the window tells what came of them."""

import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "live"))
sys.dont_write_bytecode = True

from terminal_test import DEADLINE, Terminal  # noqa: E402  pylint: disable=wrong-import-position

SCREEN = 375, 812  # points of an iPhone10,3
ROOM = 25.7, 25.7  # points of the phone around it: glass, metal, a button and air


class Window(unittest.TestCase):
    simulator = ""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name) / "home"
        self.phones = pathlib.Path(folder.name) / "phones"
        self.home.mkdir()
        self.phones.mkdir()
        heard, told = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(told), "-screen", "0", "1600x1000x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=[told], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )  # fmt: skip
        self.addCleanup(server.wait)
        self.addCleanup(server.terminate)
        os.close(told)
        with os.fdopen(heard) as pipe:
            number = pipe.readline().strip()
        changes = {"DISPLAY": f":{number}", "SDL_VIDEODRIVER": "x11", "TMPDIR": str(self.phones)}
        before = {name: os.environ.get(name) for name in changes}
        os.environ.update(changes)
        self.addCleanup(lambda: [os.environ.pop(name) if value is None else os.environ.update({name: value})
                                 for name, value in before.items()])  # fmt: skip

    def opened(self, *options):
        terminal = Terminal(self.simulator, "window", *options, home=self.home)
        self.addCleanup(lambda: terminal.process.poll() is None and terminal.process.kill())
        terminal.hears("The phone's files are in ")
        terminal.hears("  ?  these keys")
        terminal.hears("> ")
        return terminal

    @staticmethod
    def xdotool(*words):
        ended = subprocess.run(["xdotool", *map(str, words)], capture_output=True, text=True, check=True, timeout=DEADLINE)
        return ended.stdout

    def window(self):
        return self.xdotool("search", "--sync", "--class", "vantori-simulator").split()[-1]

    def geometry(self):
        lines = self.xdotool("getwindowgeometry", "--shell", self.window()).splitlines()
        values = dict(line.split("=") for line in lines)
        return [int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")]

    def press(self, *keys):
        self.xdotool("windowfocus", "--sync", self.window(), "key", *keys)

    def comes(self, terminal, expression, value):
        """What a person would look for on the screen; the mouse's way to it has no end that can be waited for."""
        end = time.monotonic() + DEADLINE
        said = ""
        while value not in said:
            self.assertLess(time.monotonic(), end, f"{expression} did not become {value}")
            terminal.type(f"print {expression}\n")
            terminal.hears(f"print {expression}")
            said = terminal.hears("> ")

    def test_the_phone_is_used_and_started_anew(self):
        terminal = Terminal(self.simulator, "window", home=self.home)
        terminal.hears("The phone's files are in ")
        files = terminal.hears("\n")
        terminal.hears("swipe to its last page and tap Back")
        terminal.hears("> ")
        left, top, width, height = self.geometry()
        self.assertEqual([width, height], [round(side + 2 * room) for side, room in zip(SCREEN, ROOM)])

        self.press("x")
        terminal.hears("The phone's files are in ")
        self.assertEqual(terminal.hears("\n"), files)
        self.assertNotIn("welcome", terminal.hears("> "))
        self.assertEqual(self.geometry()[:2], [left, top])

        x, y = left + ROOM[0] + 60, top + ROOM[1]
        self.xdotool("mousemove", round(x), round(y + 808), "mousedown", 1)
        for distance in range(20, 320, 20):
            self.xdotool("mousemove", round(x), round(y + 808 - distance))
        self.xdotool("mouseup", 1)
        self.comes(terminal, "[[VNTSBToolBarController sharedInstance] isEnabled]", "YES")
        self.press("h", "r")
        self.comes(terminal, "[[UIApplication sharedApplication] activeInterfaceOrientation]", "3")

        self.press("q")
        self.assertEqual(terminal.process.wait(timeout=DEADLINE), 0)
        self.assertEqual(list(self.phones.iterdir()), [])

    def test_bare_it_is_the_screen_alone(self):
        terminal = self.opened("--bare")
        self.assertEqual(self.geometry()[2:], list(SCREEN))
        terminal.process.terminate()
        self.assertEqual(terminal.process.wait(timeout=DEADLINE), 0)
        self.assertEqual(list(self.phones.iterdir()), [])


if __name__ == "__main__":
    Window.simulator = sys.argv.pop()
    unittest.main()

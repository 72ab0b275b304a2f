#!/usr/bin/env python3
"""The console at a terminal: terminal_test.py PATH-OF-THE-SIMULATOR. Keys are typed at a pseudo-terminal: lines
are edited, completed and remembered, and what happens by itself is told while someone types."""

import os
import pathlib
import pty
import re
import select
import subprocess
import sys
import tempfile
import unittest

DEADLINE = 60  # seconds of silence, after which something is wrong
CONTROL = re.compile(rb"\x1b\[[0-9;?]*[a-zA-Z]|\x1b[=>]|\x07|\r|\x08")


class Terminal:
    def __init__(self, *command, home):
        self.master, slave = pty.openpty()
        environment = {**os.environ, "HOME": str(home), "TERM": "xterm", "INPUTRC": "/dev/null"}
        environment.pop("XDG_STATE_HOME", None)
        self.process = subprocess.Popen(
            command, stdin=slave, stdout=slave, stderr=slave, env=environment, start_new_session=True
        )
        os.close(slave)
        self.heard = b""

    def type(self, keys):
        os.write(self.master, keys.encode())

    def hears(self, text):
        """What came up to that text; fails when nothing more comes."""
        wanted = text.encode()
        while wanted not in self.heard:
            ready, _, _ = select.select([self.master], [], [], DEADLINE)
            if not ready:
                raise AssertionError(f"{text!r} did not come, but {self.heard!r}")
            try:
                more = os.read(self.master, 4096)
            except OSError:
                more = b""
            if not more:
                raise AssertionError(f"ended before {text!r} came: {self.heard!r}")
            self.heard += CONTROL.sub(b"", more)
        before, _, self.heard = self.heard.partition(wanted)
        return before.decode()

    def end(self):
        self.type("quit\n")
        status = self.process.wait(timeout=DEADLINE)
        os.close(self.master)
        return status


class Console(unittest.TestCase):
    simulator = ""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)

    def console(self):
        terminal = Terminal(self.simulator, "console", home=self.home)
        terminal.hears("> ")
        return terminal

    def test_lines_are_edited_and_completed(self):
        terminal = self.console()
        terminal.type("print 1 + 3\x02\x7f2\n")  # back over the 3; a 2 takes the blank's place
        terminal.hears("24")
        terminal.hears("> ")
        terminal.type("dev\t")
        terminal.hears("device ")
        terminal.type("iPhone8,4\t\n")
        terminal.hears("iPhone8,4 ")  # one of a kind, so a blank ends it
        terminal.hears("> ")
        terminal.type("with\text\t\n")
        terminal.hears("without extension")
        terminal.hears("> ")
        terminal.type("boot\n")
        terminal.hears("> ")
        terminal.type("print [SpringB\t")
        terminal.hears("SpringBoard ")
        terminal.type("sharedAppl\t]\n")
        terminal.hears("<SpringBoard>")
        self.assertEqual(terminal.end(), 0)

    def test_history_outlives_the_console(self):
        terminal = self.console()
        terminal.type("print 17\n")
        terminal.hears("17")
        terminal.hears("> ")
        self.assertEqual(terminal.end(), 0)
        terminal = self.console()
        terminal.type("\x1b[A\x1b[A\n")  # above quit
        terminal.hears("print 17")
        terminal.hears("17")
        self.assertEqual(terminal.end(), 0)

    def test_what_is_watched_is_told(self):
        terminal = self.console()
        for line in ("without extension", "boot", "watch notifications", 'post "some.name"'):
            terminal.type(line + "\n")
            terminal.hears(line)
            if not line.startswith("post"):
                terminal.hears("> ")
        terminal.hears("posted some.name")
        terminal.hears("> ")
        self.assertEqual(terminal.end(), 0)


if __name__ == "__main__":
    Console.simulator = sys.argv.pop(1)
    unittest.main()

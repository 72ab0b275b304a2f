#!/usr/bin/env python3
"""What a phone leaves behind and who may reach it: privacy_test.py PATH-OF-THE-SIMULATOR. The system calls of
the program are traced: it changes files below the folders that it was given and nowhere else, these are its
owner's alone, and nothing listens but what was asked for."""

import os
import pathlib
import re
import socket
import stat
import subprocess
import sys
import tempfile
import unittest
import urllib.error
import urllib.request

DEADLINE = 60  # seconds
CHANGES = (
    "open,openat,creat,mkdir,mkdirat,rmdir,unlink,unlinkat,rename,renameat,renameat2,link,linkat,symlink,symlinkat,"
    "mknod,mknodat,truncate,chmod,fchmodat,chown,fchownat,lchown,bind"
)
WRITING = ("O_WRONLY", "O_RDWR", "O_CREAT", "O_TRUNC")
# What is no file; what fontconfig, which finds the fonts, remembers of the machine's; and what a build that
# looks for leaks writes and removes at its start.
NO_TRACES = re.compile(
    r"/dev/(null|tty|pts/\d+)|/proc/self/.*|(/var/cache|.*/\.cache)/fontconfig(/.*)?|.*/\.cache|.*/vantori-first-use-\w+"
)
USE = """
plist /var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist ["1.2.1"]
boot
setting layoutDirection 1
pull 60 320 over 0.3
wait 1
open com.apple.Preferences
wait 1
lock
print [[NSUserDefaults standardUserDefaults] objectForKey: "a"]
shot "screen.png"
"""


class Trace:
    """What strace wrote of a program that ran in a folder."""

    def __init__(self, file, folder):
        self.lines = [line for line in file.read_text(encoding="utf-8", errors="replace").splitlines()
                      if not re.search(r"= -1 E", line)]  # fmt: skip
        self.folder = folder

    def changed(self):
        """The paths of files that were opened for writing, made, moved or removed."""
        for line in self.lines:
            call = re.match(r"(?:\d+ +)?(\w+)\(", line)
            if not call or call[1] in ("bind", "listen"):
                continue
            if call[1] in ("open", "openat") and not any(word in line for word in WRITING):
                continue
            # A path may go from a folder that is open: 5</tmp/phone>, "var"
            for start, path in re.findall(r'(?:\w+<([^>]*)>, )?"((?:[^"\\]|\\.)*)"', line):
                yield pathlib.Path(os.path.normpath(self.folder / start / path))

    def bound(self):
        return [line for line in self.lines if re.search(r"\bbind\(", line) and "AF_NETLINK" not in line]


class Privacy(unittest.TestCase):
    simulator = ""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()
        for name in ("home", "phones", "work"):
            (self.folder / name).mkdir()
        self.root = self.folder / "root"
        self.work = self.folder / "work"
        self.environment = {**os.environ, "HOME": str(self.folder / "home"), "TMPDIR": str(self.folder / "phones")}
        self.environment.pop("XDG_STATE_HOME", None)
        # Leaks cannot be looked for in a process that is traced.
        self.environment["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
        self.before = os.umask(0o022)
        self.addCleanup(lambda: os.umask(self.before))

    def started(self, *words, **options):
        self.file = self.folder / "trace"
        return subprocess.Popen(
            ["strace", "-f", "-y", "-o", self.file, "-e", f"trace={CHANGES}", self.simulator, *map(str, words)],
            cwd=self.work, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, **options,
        )  # fmt: skip

    def ended(self, process, said=None):
        heard = process.communicate(said, timeout=DEADLINE)
        self.assertEqual(process.returncode, 0, heard)
        return Trace(self.file, self.work)

    def assert_stays_in(self, trace, *places):
        strange = [path for path in trace.changed()
                   if not NO_TRACES.fullmatch(str(path)) and not any(path.is_relative_to(place) for place in places)]  # fmt: skip
        self.assertEqual(strange, [])

    def assert_is_its_owners(self, *places):
        for place in places:
            for path in (place, *place.rglob("*")):
                mode = stat.S_IMODE(path.lstat().st_mode)
                self.assertEqual(oct(mode), oct(0o700 if path.is_dir() else 0o600), path)

    def test_a_run_writes_below_its_folders_only(self):
        scenario = self.work / "a.scenario"
        scenario.write_text(USE, encoding="utf-8")
        trace = self.ended(self.started("run", scenario, "--root", self.root, "--out", self.folder / "out"))
        self.assertIn(self.folder / "out/screen.png", list(trace.changed()))
        self.assert_stays_in(trace, self.root, self.folder / "out")
        self.assert_is_its_owners(self.root, self.folder / "out")
        self.assertEqual(trace.bound(), [])

    def test_a_temporary_phone_goes_without_a_trace(self):
        scenario = self.work / "a.scenario"
        scenario.write_text(USE.replace("shot", "# shot"), encoding="utf-8")
        self.assert_stays_in(self.ended(self.started("run", scenario)), self.folder / "phones")
        self.assertEqual(list((self.folder / "phones").iterdir()), [])
        self.assertLessEqual({path.name for path in (self.folder / "home").iterdir()}, {".cache"})

    def test_a_console_listens_in_its_root_only(self):
        console = self.started("console", "--root", self.root, stdin=subprocess.PIPE)
        console.stdin.write('boot\nprint "on"\n')
        console.stdin.flush()
        while '"on"' not in console.stdout.readline():
            self.assertIsNone(console.poll())
        self.assert_is_its_owners(self.root)
        subprocess.run([self.simulator, "settings", "set", "layoutDirection", "1", "--root", self.root],
                       check=True, env=self.environment, stdout=subprocess.DEVNULL)  # fmt: skip
        trace = self.ended(console, "quit\n")
        self.assert_stays_in(trace, self.root)
        self.assert_is_its_owners(self.root)
        self.assertEqual(len(trace.bound()), 1, trace.bound())
        self.assertIn("AF_UNIX", trace.bound()[0])

    def test_a_served_phone_listens_where_it_says(self):
        served = self.started("serve", "--root", self.root)
        address = re.search(r"http://127\.0\.0\.1:(\d+)/\?key=\w+", served.stdout.readline())
        for path, status in ((address[0], 200), (address[0].split("?")[0], 403), (address[0][:-1], 403)):
            try:
                with urllib.request.urlopen(path, timeout=DEADLINE) as answer:
                    self.assertEqual(answer.status, status)
            except urllib.error.HTTPError as error:
                self.assertEqual(error.code, status)
        # The address of this machine that others reach is not one where it listens.
        with self.assertRaises(OSError):
            socket.create_connection(("127.0.0.2", int(address[1])), timeout=DEADLINE).close()
        os.kill(int(subprocess.run(["pgrep", "-P", str(served.pid)], capture_output=True, text=True, check=True).stdout),
                15)  # fmt: skip
        trace = self.ended(served)
        self.assert_stays_in(trace, self.root, self.folder / "phones")
        self.assert_is_its_owners(self.root)
        self.assertEqual(list((self.folder / "phones").iterdir()), [])
        families = sorted(re.search(r"AF_\w+", line)[0] for line in trace.bound())
        self.assertEqual(families, ["AF_INET", "AF_UNIX"])


if __name__ == "__main__":
    Privacy.simulator = os.path.abspath(sys.argv.pop())
    unittest.main()

#!/usr/bin/env python3
"""The simulator as it is called: command_line_test.py PATH-OF-THE-SIMULATOR. Mistakes in options, what a run of
several files tells, phones that die, and what is left of them."""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

PLAIN = "without extension\nboot\n"
# Ends the phone's process from inside a system operation.
DEADLY = "do [[UIApplication sharedApplication] sendAction: @selector(exit) to: NSThread from: nil forEvent: nil]"


class CommandLine(unittest.TestCase):
    simulator = ""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.phones = self.folder / "phones"  # where phones keep their files while they live
        self.phones.mkdir()
        self.environment = {**os.environ, "TMPDIR": str(self.phones)}

    def called(self, *words, status):
        ended = subprocess.run(
            [self.simulator, *map(str, words)], capture_output=True, text=True, check=False, env=self.environment
        )
        self.assertEqual(ended.returncode, status, ended.stdout + ended.stderr)
        self.assertEqual(list(self.phones.iterdir()), [])
        return ended.stdout + ended.stderr

    def scenario(self, name, text):
        file = self.folder / f"{name}.scenario"
        file.write_text(text, encoding="utf-8")
        return file

    def test_mistakes_in_options(self):
        file = self.scenario("a", "")
        for option, value, told in (
            ("--device", "iPhone99,9", "there is no device 'iPhone99,9'"),
            ("--system", "99.0", "there is no system 99.0: they are 11.0 to 14.8"),
            ("--setting", "tapToOpen", "a setting is KEY=JSON, not tapToOpen"),
            ("--setting", "tapToOpen=yes", "tapToOpen has no JSON value"),
        ):
            for command in (["run", file], ["console"], ["window"]):
                self.assertIn(told, self.called(*command, option, value, status=2))

    def test_names_are_listed(self):
        devices = self.called("devices", status=0)
        for row in ("  iPhone10,3  375 x 812 at 3\n", "  iPhone6,1   320 x 568 at 2, home button\n", " 14.7 14.8\n"):
            self.assertIn(row, devices)
        self.assertIn("layoutDirection         3 ", self.called("settings", "--help", status=0))

    def test_the_command_speaks_for_files_that_do_not(self):
        said = "print [[UIDevice currentDevice] systemVersion]\nprint W\n"
        silent, speaking = self.scenario("silent", PLAIN + said), self.scenario("speaking", "system 12.4\n" + PLAIN + said)
        words = ("run", silent, speaking, "--system", "14.2", "--device", "iPhone8,1", "--jobs", "1")
        self.assertEqual(
            self.called(*words, status=0),
            f'[1/2] {silent}\n"14.2"\n375\n0 held, 0 failed\n[2/2] {speaking}\n"12.4"\n375\n0 held, 0 failed\n'
            "2 files: 2 held, 0 failed; 0 expectations held, 0 failed\n",
        )

    def test_a_matrix_is_of_every_system(self):
        once = "expect [[UIDevice currentDevice] systemVersion] == "
        silent = self.scenario("silent", PLAIN + once + '"12.0"\n')
        speaking = self.scenario("speaking", "system 12.4\n" + PLAIN + once + '"12.4"\n')
        told = self.called("run", silent, speaking, "--matrix", status=1)
        self.assertIn(f"{silent}: held on 12.0; failed on 11.0 11.1 11.2 11.3 11.4 12.1 12.2", told)
        self.assertIn(f"{speaking}: held on its own\n", told)
        self.assertIn(f"  {silent} on 14.8 (0 held, 1 failed)\n", told)
        self.assertTrue(told.endswith("29 runs: 2 held, 27 failed; 2 expectations held, 27 failed\n"), told)

    def test_a_phone_that_dies(self):
        file = self.scenario("a", PLAIN + f"expect YES\npost \"last\"\n{DEADLY}\nexpect YES\n")
        told = self.called("run", file, status=1)
        self.assertIn(f"{file}:5: {DEADLY}: the phone died: something ended its process with status 0\n", told)
        flight, _, journal = told.partition("  the last lines of the journal:\n")
        self.assertIn("in flight, the outermost first:\n    -[SpringBoard sendAction:to:from:forEvent:]\n", flight)
        self.assertIn(" posted last\n", journal)
        self.assertTrue(told.endswith("1 held, 1 failed\n"), told)

    def test_a_run_that_is_ended_clears_up(self):
        file = self.scenario("a", PLAIN + "print 1\nwait 100000000\n")
        with subprocess.Popen(
            [self.simulator, "run", file], stdout=subprocess.PIPE, text=True, env=self.environment
        ) as run:
            self.assertEqual(run.stdout.readline(), "1\n")
            run.send_signal(signal.SIGTERM)
            told, _ = run.communicate()
        # What was printed is heard before the next statement has begun.
        self.assertRegex(told, r"a\.scenario:(3: print 1|4: wait 100000000): the phone died: Terminated\n")
        self.assertEqual(run.returncode, -signal.SIGTERM)
        self.assertEqual(list(self.phones.iterdir()), [])

    def test_a_report_shows_what_failed(self):
        good = self.scenario("good", PLAIN + "expect YES\n")
        bad = self.scenario("bad", PLAIN + "wait 1\nexpect [[UIDevice currentDevice] model] == \"<none>\"\n")
        dead = self.scenario("dead", PLAIN + DEADLY)
        report = self.folder / "report"
        self.called("run", good, bad, dead, "--report", report, status=1)
        page = (report / "index.html").read_text(encoding="utf-8")
        self.assertIn("2 failures", page)
        self.assertIn("&quot;&lt;none&gt;&quot;", page)
        names = sorted(file.name for file in report.iterdir())
        self.assertEqual(names, ["2-1-film.png", "2-1.png", "index.html", "junit.xml"])
        for picture in names[:2]:
            self.assertTrue((report / picture).read_bytes().startswith(b"\x89PNG"))
            self.assertIn(f'src="{picture}"', page)
        suite = xml.etree.ElementTree.parse(report / "junit.xml").getroot()[0]
        self.assertEqual((suite.get("tests"), suite.get("failures"), suite.get("errors")), ("3", "1", "1"))


if __name__ == "__main__":
    CommandLine.simulator = sys.argv.pop(1)
    unittest.main()

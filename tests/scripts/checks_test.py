"""Tests of scripts/check-floors and scripts/check-words, on small trees made for each case."""

import pathlib
import subprocess
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"


class TreeTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, name, *lines):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("\n".join(lines) + "\n", encoding="utf-8")

    def include(self, name, *targets):
        self.write(name, *(f'#include "{target}"' for target in targets))

    def findings(self, check):
        done = subprocess.run(
            [SCRIPTS / check, "--root", self.root], capture_output=True, text=True, check=False
        )
        self.assertEqual(done.stderr, "")
        self.assertEqual(done.returncode, 1 if done.stdout else 0)
        return done.stdout.splitlines()


class FloorsTest(TreeTest):
    def test_downward_and_level_includes_pass(self):
        self.include("platform/object.hpp")
        self.include("core/settings.hpp", "platform/object.hpp")
        self.include("toggles/toggle.hpp", "core/settings.hpp")
        self.include("pages/music.hpp", "toggles/toggle.hpp")
        self.include("toolbar/toolbar.hpp", "pages/music.hpp", "core/settings.hpp")
        self.include("core/hooks.cpp", "toolbar/toolbar.hpp")
        self.include("simulator/phone.hpp", "platform/object.hpp")
        self.include("tests/core/hooks_test.cpp", "core/settings.hpp", "simulator/phone.hpp")
        self.assertEqual(self.findings("check-floors"), [])

    def test_upward_include(self):
        self.include("toolbar/toolbar.hpp")
        self.include("pages/music.cpp", "toolbar/toolbar.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            ["pages/music.cpp includes toolbar/toolbar.hpp, from floor 3 up to floor 4"],
        )

    def test_lower_core_may_not_see_the_upper(self):
        self.include("core/hooks.hpp")
        self.include("core/settings.cpp", "core/hooks.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            ["core/settings.cpp includes core/hooks.hpp, from floor 1 up to floor 5"],
        )

    def test_library_and_simulator_do_not_see_each_other(self):
        self.include("core/settings.hpp", "simulator/phone.hpp")
        self.include("simulator/phone.hpp")
        self.include("simulator/main.cpp", "core/settings.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            [
                "core/settings.hpp includes simulator/phone.hpp, but core/ may not see simulator/",
                "simulator/main.cpp includes core/settings.hpp, but simulator/ may not see core/",
            ],
        )

    def test_include_that_does_not_start_at_the_root(self):
        self.include("core/settings.hpp")
        self.include("core/settings.cpp", "settings.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            [
                "core/settings.cpp includes settings.hpp, "
                "which is no file of the repository, named from its root"
            ],
        )

    def test_circle_through_three_headers_is_told_once(self):
        self.include("simulator/a.hpp", "simulator/b.hpp")
        self.include("simulator/b.hpp", "simulator/c.hpp")
        self.include("simulator/c.hpp", "simulator/a.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            ["a circle: simulator/a.hpp -> simulator/b.hpp -> simulator/c.hpp -> simulator/a.hpp"],
        )


class WordsTest(TreeTest):
    def test_plain_comments_pass(self):
        self.write("core/a.cpp", "// A specific reason, in points; part 2 of the path is unspecified.")
        self.assertEqual(self.findings("check-words"), [])

    def test_each_rule_finds_its_words(self):
        for words in (
            "as the sp" + "ec says",
            "see Pa" + "rt 2.1",
            "because of is" + "sue 12",
            "in /ho" + "me/someone/x",
            "TO" + "DO later",
            "not yet imple" + "mented",
        ):
            with self.subTest(words):
                self.write("core/a.cpp", "int a;", f"// {words}")
                found = self.findings("check-words")
                self.assertEqual(len(found), 1)
                self.assertTrue(found[0].startswith("core/a.cpp:2: '"), found[0])

    def test_build_folder_and_pictures_are_left_alone(self):
        self.write("build/x.cpp", "// TO" + "DO")
        (self.root / "picture.png").write_bytes(b"\x89PNG TO" + b"DO \xff")
        self.assertEqual(self.findings("check-words"), [])


if __name__ == "__main__":
    unittest.main()

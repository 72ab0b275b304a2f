"""Tests of the checks and writers in scripts/, on small trees made for each case."""

import pathlib
import subprocess
import tempfile
import unittest
from xml.etree import ElementTree

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
        self.include("settings/file.hpp", "platform/object.hpp")
        self.include("toggles/toggle.hpp", "settings/file.hpp")
        self.include("pages/music.hpp", "toggles/toggle.hpp")
        self.include("pages/apps.hpp", "pages/music.hpp")
        self.include("toolbar/toolbar.hpp", "pages/music.hpp", "settings/file.hpp")
        self.include("hooks/start.hpp", "toolbar/toolbar.hpp")
        self.include("entry.cpp", "hooks/start.hpp")
        self.include("simulator/uikit/view/view.hpp", "platform/object.hpp")
        self.include("simulator/springboard/home.hpp", "simulator/uikit/view/view.hpp")
        self.include("simulator/main.cpp", "simulator/springboard/home.hpp")
        self.include("tests/hooks/hooks_test.cpp", "settings/file.hpp", "simulator/springboard/home.hpp")
        self.assertEqual(self.findings("check-floors"), [])

    def test_upward_include(self):
        self.include("toolbar/toolbar.hpp")
        self.include("pages/music.cpp", "toolbar/toolbar.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            ["pages/music.cpp includes toolbar/toolbar.hpp, which stands above it"],
        )

    def test_upward_include_in_the_simulator(self):
        self.include("simulator/springboard/home.hpp")
        self.include("simulator/services/radios.cpp", "simulator/springboard/home.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            ["simulator/services/radios.cpp includes simulator/springboard/home.hpp, which stands above it"],
        )

    def test_what_stands_outside_the_folders_stands_above_them(self):
        self.include("simulator/program.hpp")
        self.include("simulator/phone/phone.cpp", "simulator/program.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            ["simulator/phone/phone.cpp includes simulator/program.hpp, which stands above it"],
        )

    def test_library_and_simulator_do_not_see_each_other(self):
        self.include("settings/file.hpp", "simulator/phone.hpp")
        self.include("simulator/phone.hpp")
        self.include("simulator/main.cpp", "settings/file.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            [
                "settings/file.hpp includes simulator/phone.hpp, but settings/ may not see simulator/",
                "simulator/main.cpp includes settings/file.hpp, but simulator/ may not see settings/",
            ],
        )

    def test_include_that_does_not_start_at_the_root(self):
        self.include("settings/file.hpp")
        self.include("settings/file.cpp", "file.hpp")
        self.assertEqual(
            self.findings("check-floors"),
            [
                "settings/file.cpp includes file.hpp, "
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


class FloorMapTest(TreeTest):
    def setUp(self):
        super().setUp()
        self.include("platform/object.hpp")
        self.include("settings/file.hpp", "platform/object.hpp")
        self.include("simulator/uikit/view.hpp", "platform/object.hpp")

    def run_script(self, *options):
        command = [SCRIPTS / "floor-map", "--root", self.root, *options]
        return subprocess.run(command, capture_output=True, text=True, check=False)

    def arrows(self):
        self.assertEqual(self.run_script().returncode, 0)
        picture = ElementTree.parse(self.root / "docs/pictures/floors.svg")
        arrows = picture.iterfind("./{*}path")
        return sorted((arrow.get("class"), arrow.findtext("./{*}title")) for arrow in arrows)

    def test_an_arrow_for_each_pair_of_folders(self):
        self.include("settings/other.cpp", "platform/object.hpp", "settings/file.hpp")
        wanted = [("bridge", "simulator/uikit includes platform"), ("down", "settings includes platform")]
        self.assertEqual(self.arrows(), wanted)

    def test_what_runs_up_is_of_a_kind_of_its_own(self):
        self.include("platform/wrong.cpp", "settings/file.hpp")
        self.include("settings/wrong.cpp", "simulator/uikit/view.hpp")
        self.assertEqual(
            [title for kind, title in self.arrows() if kind == "up"],
            ["platform includes settings", "settings includes simulator/uikit"],
        )

    def test_check_tells_when_the_floors_changed(self):
        self.assertEqual(self.run_script("--check").returncode, 1)
        self.assertEqual(self.run_script().returncode, 0)
        self.include("settings/other.cpp", "platform/object.hpp")
        self.assertEqual(self.run_script("--check").returncode, 0)
        self.include("hooks/start.cpp", "platform/object.hpp")
        done = self.run_script("--check")
        self.assertEqual(done.returncode, 1)
        self.assertIn("docs/pictures/floors.svg is not what the includes say", done.stdout)


class LinksTest(TreeTest):
    def test_what_is_there(self):
        self.write("hooks/pull.cpp", "void beginPull() {}")
        self.write("CONTRIBUTING.md", "[the map](docs/map.md#floors) and [elsewhere](https://example.com)")
        self.write("docs/map.md", "[`beginPull`](../hooks/pull.cpp), [the pull](../hooks/pull.cpp), [above](#floors)")
        self.assertEqual(self.findings("check-links"), [])

    def test_what_is_not(self):
        self.write("hooks/pull.cpp", "void beginPullAgain() {}")
        self.write("docs/map.md", "[`beginPull`](../hooks/pull.cpp)", "[`endPull`](../hooks/gone.cpp) ![](none.png)")
        self.assertEqual(
            self.findings("check-links"),
            [
                "docs/map.md:1: links to ../hooks/pull.cpp, which has no beginPull",
                "docs/map.md:2: links to ../hooks/gone.cpp, which is not there",
                "docs/map.md:2: links to none.png, which is not there",
            ],
        )

    def test_pictures_that_no_document_shows(self):
        self.write("docs/pictures/shown.png", "")
        self.write("docs/pictures/old.png", "")
        self.write("README.md", "![](docs/pictures/shown.png)")
        self.assertEqual(
            self.findings("check-links"), ["docs/pictures/old.png: no document shows it"]
        )


class WordsTest(TreeTest):
    def test_plain_comments_pass(self):
        self.write("pages/a.cpp", "// A specific reason, in points; part 2 of the path is unspecified.")
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
                self.write("pages/a.cpp", "int a;", f"// {words}")
                found = self.findings("check-words")
                self.assertEqual(len(found), 1)
                self.assertTrue(found[0].startswith("pages/a.cpp:2: '"), found[0])

    def test_build_folder_and_pictures_are_left_alone(self):
        self.write("build/x.cpp", "// TO" + "DO")
        (self.root / "picture.png").write_bytes(b"\x89PNG TO" + b"DO \xff")
        self.assertEqual(self.findings("check-words"), [])


class DeviceTablesTest(TreeTest):
    def setUp(self):
        super().setUp()
        self.write("hooks/hook_table.cpp", 'hook<"SBOne", "old:", &a>(),', 'hook<"SBOne", "kept", &b>(),',
                   'otherForm<"SBOne", "old:", "SBOne", "old:new:", &a>(),')  # fmt: skip
        self.methods("SBOne - kept v@: . 11.1,12.0 13.2.2 .")
        self.document("")

    def methods(self, *more):
        rows = (
            "class kind selector encoding own inherited absent note",
            "SBOne - old: v@:@ 11.1,12.2 . 13.5.1,14.2 .",
            "SBOne - old:new: v@:@@ 13.5.1,14.2 . 11.1 .",
            "SBTwo + shared @@: 12.0 . 14.2 gone",
            *more,
        )
        lines = (row.replace(" ", "\t").replace(",", " ") for row in rows)
        self.write("device/platform/private_methods.tsv", *lines)

    def document(self, before):
        marks = [f"<!-- {name}: x -->\n<!-- end of {name} -->" for name in ("hooks", "lacking")]
        self.write("docs/device.md", before, *marks, "after")

    def run_script(self, *options):
        command = [SCRIPTS / "device-tables", "--root", self.root, *options]
        return subprocess.run(command, capture_output=True, text=True, check=False)

    def test_rows_by_system(self):
        self.assertEqual(self.run_script().returncode, 0)
        text = (self.root / "docs/device.md").read_text()
        self.assertIn("| 1 | `SBOne` `old:` | own | own | ? | none | none |\n", text)
        self.assertIn("| 2 | `SBOne` `kept` | inherited | inherited | none | ? | ? |\n", text)
        self.assertIn("| other 1 | `SBOne` `old:new:` | none | ? | ? | own | own |\n", text)
        self.assertIn("| + `SBTwo` `shared` | ? | own | ? | ? | none | gone |\n", text)
        self.assertTrue(text.endswith("after\n"))

    def test_check_tells_what_is_not_current(self):
        done = self.run_script("--check")
        self.assertEqual(done.returncode, 1)
        self.assertIn("+| 1 | `SBOne` `old:` |", done.stdout)
        self.assertEqual(self.run_script().returncode, 0)
        done = self.run_script("--check")
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_hook_that_no_table_knows(self):
        self.methods()
        done = self.run_script()
        self.assertEqual(done.returncode, 1)
        self.assertIn("SBOne kept is not in device/platform/private_methods.tsv", done.stderr)

    def test_document_without_a_place(self):
        self.write("docs/device.md", "nothing")
        self.assertIn("has no place for the table 'hooks'", self.run_script().stderr)


if __name__ == "__main__":
    unittest.main()

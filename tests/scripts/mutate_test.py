"""Tests of scripts/mutate on a small library planted for it, some of whose changes its tests miss."""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
from types import SimpleNamespace

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(REPOSITORY / "scripts/lib"))

from mutation import running, scoring  # noqa: E402 (found by the path above)

LIBRARY = """\
#include "settings/small.hpp"

namespace {
constexpr int limit = 100;
constexpr int places[] = {7, 8};
int steps[limit];
}  // namespace

bool isWide(int width) { return width > 90 + limit; }

int placeOf(int index) { return places[index]; }

int lastSteps() { return steps[0] * 10 + steps[1]; }

void walk() {
    record(1);
    record(2);
}

void record(int step) {
    steps[0] = steps[1];
    steps[1] = step;
}

int endless(int count) {
    while (count > 0) count -= 1;
    return count;
}

void nobodyCalls() { record(0); }
"""
HEADER = """\
#pragma once
bool isWide(int width);
int placeOf(int index);
int lastSteps();
void walk();
void record(int step);
int endless(int count);
void nobodyCalls();
struct Step {
    bool isLast() const { return number == 9; }
    int number;
};
"""
TESTS = """\
#include <sys/wait.h>
#include <unistd.h>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include "settings/small.hpp"

bool holds(const std::string& test) {
    if (test == "Small.Width") return isWide(191) && !isWide(1);
    if (test == "Small.Place") return placeOf(0) == 7;
    if (test == "Small.Walk") return walk(), lastSteps() == 12;
    return endless(3) == 0;
}

int main(int, char** arguments) {
    if (!std::strcmp(arguments[1], "--gtest_list_tests")) {
        std::cout << "Small.\\n  Width\\n  Place\\n  Walk\\n  Endless\\n";
        return 0;
    }
    std::ifstream names(arguments[2]);
    for (std::string name; std::getline(names, name);) {
        const pid_t child = fork();
        if (child == 0) {
            setenv("UNIT_TEST", name.c_str(), 1);
            std::exit(!holds(name));
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (status == 0) continue;
        std::cout << "[  FAILED  ] " << name << ": failed\\n";
        return 1;
    }
    return 0;
}
"""
NINJA = """\
rule compile
  command = c++ -std=c++20 -O0 -I{root} -c $in -o $out
rule link
  command = : && c++ -O0 $in -o $out && :
build CMakeFiles/library_settings.dir/settings/small.cpp.o: compile {root}/settings/small.cpp
build tests.o: compile {root}/tests.cpp
build bin/unit-tests: link tests.o CMakeFiles/library_settings.dir/settings/small.cpp.o
"""


def change(file="a/b.cpp", function="f", kind="constant", before="1", after="2"):
    key = f"{file} | {function} | {kind} | {before} | {after}"
    return SimpleNamespace(
        file=file, function=function, kind=kind, before=before, after=after, key=key, line=3, isBroken=False, atLoad=False
    )


class PlantedLibraryTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.root = pathlib.Path(folder.name).resolve()
        release = cls.root / "build/release"
        for name, text in {
            "settings/small.cpp": LIBRARY, "settings/small.hpp": HEADER, "tests.cpp": TESTS,
            "precompiled.hpp": '#include "settings/small.hpp"\n',
            "scripts/lib/mutation/equal.tsv": "settings/small.cpp\tendless\tcomparison\t* -> count >= 0\tNot so, but planted.\n",
            "build/release/build.ninja": NINJA.format(root=cls.root),
            "build/release/compile_commands.json": json.dumps([{
                "file": str(cls.root / "settings/small.cpp"),
                "command": f"c++ -std=c++20 -O0 -I{cls.root} -include {cls.root}/precompiled.hpp -o CMakeFiles/library_settings.dir/settings/small.cpp.o"
                           f" -c {cls.root}/settings/small.cpp",
            }]),
        }.items():  # fmt: skip
            path = cls.root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        subprocess.run(["ninja", "-C", str(release)], check=True, capture_output=True)
        cls.first = cls.mutate("--seed", "3")

    @classmethod
    def mutate(cls, *arguments):
        command = [str(REPOSITORY / "scripts/mutate"), "--root", str(cls.root), "--jobs", "2", "--seconds", "1", *arguments]
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        return done.returncode, done.stdout + done.stderr

    def results(self):
        rows = map(json.loads, (self.root / "build/mutate/results.jsonl").read_text(encoding="utf-8").splitlines())
        return {" | ".join(row["key"].split(" | ")[1:]): row for row in rows}

    def outcome(self, *parts):
        found = [row for key, row in self.results().items() if key.startswith(" | ".join(parts))]
        self.assertEqual(len(found), 1, (parts, sorted(self.results())))
        return found[0]

    def test_what_a_test_notices_is_caught_by_it(self):
        self.assertEqual(self.first[0], 0, self.first[1])
        self.assertEqual(self.outcome("isWide", "comparison", "width > 90 + limit", "width <= 90 + limit")["by"], "Small.Width: failed")
        self.assertEqual(self.outcome("walk", "call left out", "record(1)")["by"], "Small.Walk: failed")
        self.assertEqual(self.outcome("walk", "order", "record(1); record(2);")["by"], "Small.Walk: failed")
        self.assertEqual(self.outcome("record", "assignment left out", "steps[1] = step")["outcome"], "caught")

    def test_what_no_test_notices_survives(self):
        self.assertEqual(self.outcome("isWide", "comparison", "width > 90 + limit", "width >= 90 + limit")["outcome"], "survived")
        self.assertIn("settings/small.cpp:9: isWide: comparison: width > 90 + limit -> width >= 90 + limit  [1 tests ran]", self.first[1])

    def test_only_tests_that_come_by_run(self):
        self.assertEqual(self.outcome("isWide", "comparison", "width > 90 + limit", "width >= 90 + limit")["tests"], 1)
        self.assertEqual(self.outcome("nobodyCalls", "call left out")["outcome"], "unseen")
        self.assertIn("nobodyCalls: call left out: record(0) -> (nothing)  [no test comes by]", self.first[1])

    def test_a_constant_of_the_file_is_tried_on_those_who_use_it(self):
        self.assertEqual(self.outcome("places", "constant", "7 in")["by"], "Small.Place: failed")
        self.assertEqual(self.outcome("places", "constant", "8 in")["tests"], 1)

    def test_an_endless_loop_is_caught(self):
        self.assertEqual(self.outcome("endless", "arithmetic", "count -= 1")["by"], "Small.Endless: failed")

    def test_what_the_compiler_needs_to_know_is_counted_apart(self):
        self.assertFalse(any(key.startswith("limit |") for key in self.results()))
        self.assertIn("1 more cannot be switched while the program runs", self.first[1])

    def test_equal_ones_do_not_count(self):
        self.assertNotIn("count > 0 -> count >= 0", self.first[1])

    def test_survivors_are_tried_again_and_equal_ones_are_not(self):
        self.mutate("--survivors")
        tried = (self.root / "build/mutate/results.jsonl").read_text(encoding="utf-8")
        self.assertEqual(tried.count("| width > 90 + limit | width >= 90 + limit"), 2)
        self.assertEqual(tried.count("| count > 0 | count >= 0"), 1)

    def test_a_second_run_tries_nothing_again(self):
        before = (self.root / "build/mutate/results.jsonl").read_text(encoding="utf-8")
        status, _ = self.mutate("--seed", "3")
        self.assertEqual(status, 0)
        self.assertEqual((self.root / "build/mutate/results.jsonl").read_text(encoding="utf-8"), before)

    def test_the_seed_says_which_are_tried(self):
        samples = [self.mutate("--list", "--sample", "4", "--seed", seed)[1] for seed in ("5", "5", "6")]
        self.assertEqual(samples[0], samples[1])
        self.assertNotEqual(samples[0], samples[2])
        self.assertEqual(len(samples[0].splitlines()), 4)

    def test_a_score_that_is_too_low_fails(self):
        status, said = self.mutate("--show", "--least", "99")
        self.assertEqual(status, 1)
        self.assertRegex(said, r"mutate: \d+\.\d of 100 are caught, at least 99 were asked for")


class HuntTest(unittest.TestCase):
    # Three tests come by, of which nobody notices anything; two of them are tried.
    def test_no_more_than_the_most_telling_tests_run(self):
        one = change()
        ran = []
        tests = SimpleNamespace(seconds=1, subjects=dict, run=lambda workplace, part, **_: ran.extend(part))
        recording = SimpleNamespace(by_number={0: {"a", "b", "c"}}, tests={name: (1, 1) for name in "abc"})
        build = SimpleNamespace(changes=[one], numbers={id(one): 0})
        self.assertEqual(running.Hunt(tests, recording, build, most=2, found={}).run(one, False, 24), ("survived", "", 2))
        self.assertEqual(ran, ["a", "b"])

    def test_one_test_with_many_parameters_is_not_many_tests(self):
        order = ["All/Dock.Fits/0", "All/Dock.Fits/1", "All/Dock.Fits/2", "Dock.Shows", "All/Row.Fits/0"]
        expected = ["All/Dock.Fits/0", "All/Dock.Fits/1", "Dock.Shows", "All/Row.Fits/0", "All/Dock.Fits/2"]
        self.assertEqual(running.dealt(order), expected)

    # All three are of the toolbar, and one of them of its dock too, which is what the file is about.
    def test_a_rare_word_says_more(self):
        subjects = {"a": {"toolbar", "page"}, "b": {"toolbar", "page"}, "c": {"toolbar", "dock"}}
        tests = SimpleNamespace(subjects=lambda: subjects)
        recording = SimpleNamespace(by_number={}, tests={"a": (1, 1), "b": (1, 1), "c": (9, 9)})
        hunt = running.Hunt(tests, recording, SimpleNamespace(changes=[], numbers={}), most=2, found={})
        order = hunt.order(change(file="toolbar/dock_page.cpp"), {"a", "b", "c"})
        self.assertEqual(order, ["c", "a", "b"])

    # The row of a table is looked for in all tests of the table; what boots a phone, in one of each.
    def test_a_test_that_comes_by_little_else_is_tried_first(self):
        names = ["Page.Fits/0", "Page.Fits/1", "Page.Fits/2", "Toolbar.Opens", "Width.IsHalf"]
        tests = SimpleNamespace(subjects=lambda: {name: running.words(name) for name in names})
        recording = SimpleNamespace(by_number={}, tests={name: (1, 10 if name == "Width.IsHalf" else 900) for name in names})
        hunt = running.Hunt(tests, recording, SimpleNamespace(changes=[], numbers={}), most=9, found={})
        one = change(file="pages/page.cpp", before="true")
        self.assertEqual(hunt.order(one, set(names)), ["Width.IsHalf", "Page.Fits/0", "Page.Fits/1", "Toolbar.Opens", "Page.Fits/2"])
        one.atLoad = True
        self.assertEqual(hunt.order(one, set(names)), ["Width.IsHalf", "Page.Fits/0", "Page.Fits/1", "Page.Fits/2", "Toolbar.Opens"])

    # The first caught another change of the function, the second two of the file; the third was never heard of.
    def test_what_caught_others_is_tried_first_in_a_later_run_too(self):
        others = [change(before="3"), *(change(function="g", before=before) for before in "45")]
        for other in others:
            other.atLoad = True
        found = {other.key: {"outcome": "caught", "by": f"{by}: failed"} for other, by in zip(others, ("c", "b", "b"))}
        recording = SimpleNamespace(by_number={}, tests={name: (1, 1) for name in "abc"})
        build = SimpleNamespace(changes=others, numbers={})
        hunt = running.Hunt(SimpleNamespace(subjects=dict), recording, build, most=2, found=found)
        self.assertEqual(hunt.order(change(), {"a", "b", "c"}), ["c", "b", "a"])


class ScoreTest(unittest.TestCase):
    def test_rows_of_the_table(self):
        changes = [change(function=name) for name in ("one", "two", "three", "four", "five")]
        outcomes = ("caught", "caught", "survived", "unseen", "open")
        results = {each.key: {"outcome": outcome, "tests": 2} for each, outcome in zip(changes, outcomes)}
        equal = [scoring.Equal("a/*", "four", "*", "1 -> 2", "as planted")]
        folders, _, survivors = scoring.rows_of(changes, results, equal)
        self.assertEqual(scoring.table(folders, "Folder")[2], "| `a` | 5 | 2 | 1 | 1 | 1 | 50.0 to 75.0 |")
        self.assertEqual([each.function for each in survivors], ["three", "five"])
        self.assertEqual(equal[0].used, 1)

    def test_a_row_without_a_reason_is_refused(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "equal.tsv")
            path.write_text("# why\n\na\tb\tc\td\n", encoding="utf-8")
            with self.assertRaisesRegex(ValueError, re.escape("equal.tsv:3: five cells parted by tabs are expected, got 4")):
                scoring.read_equal(path)

    def test_the_table_stands_between_its_marks(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "testing.md")
            path.write_text(f"before\n{scoring.BEGIN}\nold\n{scoring.END}\nafter\n", encoding="utf-8")
            scoring.into_document(path, ["new"])
            self.assertEqual(path.read_text(encoding="utf-8"), f"before\n{scoring.BEGIN}\n\nnew\n\n{scoring.END}\nafter\n")


if __name__ == "__main__":
    unittest.main()

"""Runs the tests that can see a change with it switched on, until one of them fails."""

import collections
import concurrent.futures
import json
import math
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import tempfile
import threading
from dataclasses import dataclass, field

FAILED = re.compile(r"^\[  FAILED  \] (\S+): (.*)$", re.MULTILINE)
MEMORY = 6 << 30
PARAMETERS = re.compile(r"^[^/.]+/(?=[^/]+\.)|/[^/.]+$")  # of All/Suite.Test/3
FEW = 150  # changes, beside those of the constants that every process asks: a test that boots a phone comes by many more
PATIENCE = 120  # seconds of waiting for tests that wait for each other


WORD = re.compile(r"[A-Z]?[a-z]+|[A-Z]+(?![a-z])|\d+")
COMMON = {"test", "cpp", "hpp", "vantori", "the", "a", "is", "of", "in", "and", "to", "for", "on"}


def words(text):
    """Of toolbar/setUpPages: toolbar, set, up, page."""
    return {word.lower().rstrip("s") for word in WORD.findall(text)} - COMMON


def limited(seconds):
    os.setsid()
    resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def dealt(tests):
    """The first two that differ in a parameter only, then the next two: one test with many parameters is not many tests."""
    met = collections.Counter()
    turn = {}
    for test in tests:
        same = PARAMETERS.sub("", test)
        turn[test] = met[same] // 2
        met[same] += 1
    return sorted(tests, key=turn.get)


@dataclass
class Recording:
    """What each test asked: {test: (milliseconds, numbers of changes and probes)}."""

    tests: dict = field(default_factory=dict)
    by_number: dict = field(default_factory=lambda: collections.defaultdict(set))

    def add(self, test, cost, numbers):
        self.tests[test] = (cost, len(numbers))
        for number in numbers:
            self.by_number[number].add(test)


class Workplace:
    """A folder of its own for what a run leaves behind; paths of sockets in it must be short."""

    def __init__(self, seconds):
        self.seconds = seconds  # of processor time, beyond which a test hangs

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="mutate-"))
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder, ignore_errors=True)

    def run(self, command, patience=None, **variables):
        """Status and output; None: it had to be ended."""
        env = {**os.environ, "TMPDIR": str(self.folder), **variables}
        process = subprocess.Popen(command, cwd=self.folder, env=env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, text=True, errors="replace", preexec_fn=lambda: limited(self.seconds))  # fmt: skip
        try:
            said, _ = process.communicate(timeout=patience)
            return process.returncode, said
        except subprocess.TimeoutExpired:
            return None, ""
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)  # the group that it leads, and what is left in it
            except ProcessLookupError:
                pass
            process.wait()


class UnitTests:
    name = "unit tests"

    def __init__(self, program, seconds):
        self.seconds = seconds
        self.program = program

    def all(self):
        said = subprocess.run([self.program, "--gtest_list_tests"], capture_output=True, text=True, errors="replace", check=True).stdout
        names, suite = [], ""
        for line in said.splitlines():
            word = line.split("#")[0].strip()
            if line.startswith("  "):
                names.append(suite + word)
            elif word.endswith("."):
                suite = word
        return names

    def subjects(self):
        """The words that say what each test is about: those of its file and its name."""
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "list.json")
            subprocess.run([self.program, "--gtest_list_tests", f"--gtest_output=json:{path}"], capture_output=True, check=True)
            suites = json.loads(path.read_text(encoding="utf-8", errors="replace"))["testsuites"] if path.exists() else []
        found = {}
        for suite in suites:
            for test in suite["testsuite"]:
                file = re.sub(r".*?/tests/", "", test.get("file", ""))
                found[f"{suite['name']}.{test['name']}"] = words(f"{file} {suite['name']} {test['name']}")
        return found

    def run(self, workplace, tests, **variables):
        """The test that failed first, with how; None: all held."""
        names = workplace.folder / "tests.txt"
        names.write_text("".join(f"{test}\n" for test in tests), encoding="utf-8")
        status, said = workplace.run([self.program, "--tests", str(names)], PATIENCE + len(tests), **variables)
        if status == 0:
            return None
        found = FAILED.search(said)
        if found:
            return found.groups()
        return (tests[0], "hangs" if status is None else f"the program ends with {status} before any test")


class Scenarios:
    name = "scenarios"

    def __init__(self, program, library, files, seconds):
        self.seconds = seconds
        self.program = program
        self.library = library
        self.files = files

    def all(self):
        return [str(path) for path in self.files]

    def subjects(self):
        return {str(path): words(path.stem) for path in self.files}

    def run(self, workplace, tests, **variables):
        for test in tests:
            command = [self.program, "run", test, "--library", str(self.library), "--out", str(workplace.folder)]
            status, _ = workplace.run(command, PATIENCE, UNIT_TEST=test, **variables)
            if status != 0:
                return (test, "hangs" if status is None else f"status {status}")
        return None


def record(tests, jobs, stamp, kept, tell):
    """What each test asks of the library, from a run with nothing switched on; kept for the same program."""
    found = Recording()
    if kept.exists():
        saved = json.loads(kept.read_text(encoding="utf-8"))
        if saved["stamp"] == stamp:
            for test, (cost, numbers) in saved["tests"].items():
                found.add(test, cost, numbers)
            return found
    names = tests.all()
    lists = [names[start : start + 24] for start in range(0, len(names), 24)]
    saved, done = {}, 0

    def one(part):
        nonlocal done
        left = list(part)
        with Workplace(tests.seconds) as workplace:
            asked = workplace.folder / "asked"
            asked.mkdir()
            while left:
                failed = tests.run(workplace, left, MUTANTS_ASKED=str(asked))
                if failed is None:
                    break
                tell(f"  {failed[0]} fails with nothing changed ({failed[1]}): it is left out")
                at = next((i for i, name in enumerate(left) if name.endswith(failed[0])), 0)
                unusable.add(left[at])
                left = left[at + 1 :]
            for file in asked.iterdir():
                lines = file.read_text(encoding="utf-8").split("\n")
                saved.setdefault(lines[0], (int(lines[1]), [int(line) for line in lines[2:] if line]))
        done += len(part)
        tell(f"  {tests.name}: {done} of {len(names)} recorded", passing=True)

    unusable = set()
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        list(pool.map(one, lists))
    saved = {name: value for name, value in saved.items() if name not in unusable}
    kept.write_text(json.dumps({"stamp": stamp, "tests": saved}), encoding="utf-8")
    for test, (cost, numbers) in saved.items():
        found.add(test, cost, numbers)
    return found


class Hunt:
    """Which tests to run for a change: those that see it, the most telling first."""

    def __init__(self, tests, recording, build, most, found):
        self.most = most  # of the tests that see a change: the others are not run
        self.tests = tests
        self.recording = recording
        self.build = build
        self.killers = collections.defaultdict(collections.Counter)  # of each file, and of each function
        self.tried = collections.defaultdict(set)
        self.subjects = tests.subjects()
        # A word that few tests have in common says more of what they are about.
        shared = collections.Counter(word for subject in self.subjects.values() for word in subject)
        self.weight = {word: math.log(1 + len(self.subjects) / count) for word, count in shared.items()}
        self.lock = threading.Lock()
        by_file = collections.defaultdict(set)
        for change in build.changes:
            if not change.atLoad:
                by_file[change.file] |= recording.by_number[build.numbers[id(change)]]
        self.by_file = by_file
        self.least = min((count for _, count in recording.tests.values()), default=0)
        for change in build.changes:
            result = found.get(change.key)
            if result and result["outcome"] == "caught":
                self.note_killer(change, result["by"].partition(": ")[0])

    def note_killer(self, change, test):
        if test in self.recording.tests:
            self.killers[change.file][test] += 1
            self.killers[change.file, change.function][test] += 1

    def seeing(self, change):
        asked = self.recording.by_number[self.build.numbers[id(change)]]
        if not change.atLoad:
            return asked
        if change.users:
            users = set()
            for probe in change.users:
                users |= self.recording.by_number[self.build.numbers["probe", probe]]
            return (users | self.reading(change)) & asked
        return self.by_file[change.file] & asked if change.file.endswith(".cpp") else asked

    def reading(self, change):
        """Tests that boot no phone and are about the file: they may look at a variable without any function of it."""
        about = words(change.file)
        return {test for test in self.recording.tests if self.is_small(test) and self.subjects.get(test, set()) & about}

    def is_small(self, test):
        return self.recording.tests[test][1] - self.least <= FEW

    def order(self, change, seeing):
        """Those that caught others in the function or the file, those that come by little else, then by the words that
        they share with the change."""
        with self.lock:
            best = {test: -count for test, count in self.killers[change.file].most_common(6)}
            near = self.killers[change.file, change.function].most_common(8)
            best |= {test: -count - 1000 for test, count in near}
        cost = self.recording.tests
        about = words(change.file)
        closer = words(f"{change.function} {change.before}")

        def rank(test):
            subject = self.subjects.get(test, set())
            shared = sum(self.weight[word] * (2 * (word in about) + (word in closer)) for word in subject & (about | closer))
            return best.get(test, 0), not self.is_small(test), -shared, cost[test][1], cost[test][0], test

        order = sorted(seeing, key=rank)
        return order if change.atLoad else dealt(order)  # a row of a table may have the test of its own

    def run(self, change, first, count):
        """Runs so many of the tests that see it, from the first on: what came of it, by which, how many ran."""
        seeing = self.seeing(change)
        if not seeing:
            return "unseen", "", 0
        order = self.order(change, seeing)[: self.most]
        if first:  # what ran before stays known, so that none runs twice
            order = [test for test in order if test not in self.tried[change.key]]
        part = order[:count]
        self.tried[change.key] |= set(part)
        with Workplace(self.tests.seconds) as workplace:
            failed = self.tests.run(workplace, part, MUTANT=str(self.build.numbers[id(change)])) if part else None
        if failed is None:
            return "open" if len(part) < len(order) else "survived", "", len(self.tried[change.key])
        with self.lock:
            self.note_killer(change, failed[0])
        return "caught", f"{failed[0]}: {failed[1]}", len(self.tried[change.key])

"""Builds the unit tests, and the library that scenarios load, with every change compiled in.

Only the library's own files are compiled again, each with all its changes; the rest is linked from the release
build as it is there.
"""

import concurrent.futures
import json
import pathlib
import re
import shlex
import subprocess

from mutation import rendering

HERE = pathlib.Path(__file__).resolve().parent
LOCATION = re.compile(r"^(\S+?):(\d+):(\d+): +(?:fatal )?(error|note|required from)?", re.MULTILINE)


class BuildError(Exception):
    """What is wrong, for whoever started the script."""


def run(command, cwd, **options):
    return subprocess.run(command, cwd=cwd, capture_output=True, text=True, check=False, **options)


class Build:
    def __init__(self, root, release, folder, jobs, tell):
        self.root = root
        self.release = release
        self.folder = folder
        self.jobs = jobs
        self.tell = tell
        self.source = folder / "source"
        self.objects = folder / "objects"
        self.written = {}
        self.compiled = {}

    def commands(self):
        """How the release build compiles the library's files: {file: command}."""
        found = {}
        for entry in json.loads((self.release / "compile_commands.json").read_text(encoding="utf-8")):
            name = str(pathlib.Path(entry["file"]).relative_to(self.root))
            if re.search(r"CMakeFiles/(library_\w+|vantori)\.dir/", entry["command"]) and "cmake_pch" not in name:
                found[name] = shlex.split(entry["command"])
        return found

    def number(self, changes, probes):
        self.changes = changes
        self.numbers = {id(change): i for i, change in enumerate(changes)}
        self.numbers.update({("probe", i): len(changes) + i for i in range(probes)})
        self.total = len(changes) + probes

    def write(self, name, source):
        text = rendering.Written(source, self.numbers)
        self.written[name] = text
        path = self.source / name
        path.parent.mkdir(parents=True, exist_ok=True)
        if not path.exists() or path.read_text(encoding="utf-8") != text.text:
            path.write_text(text.text, encoding="utf-8")

    def compile(self, name, command):
        target = self.objects / (name + ".o")
        target.parent.mkdir(parents=True, exist_ok=True)
        words, skip = [], False
        for word in command:
            if skip:
                skip = False
            # A precompiled header has the library's headers as they are without changes.
            elif word in ("-o", "-c", "-include"):
                skip = True
            elif not word.startswith(("-W", "-I")):
                words.append(word)
        words += ["-w", "-I", str(self.source), "-I", str(self.root), "-I", str(HERE), "-include", str(HERE / "switch.hpp"),
                  "-fno-diagnostics-color", "-fdiagnostics-column-unit=byte", "-MMD", "-MF", str(target) + ".d",
                  "-c", str(self.source / name), "-o", str(target)]  # fmt: skip
        return run(words, self.release)

    # What the compiler read last time is as it was then.
    def is_current(self, name):
        target = self.objects / (name + ".o")
        list_of = self.objects / (name + ".o.d")
        if not target.exists() or not list_of.exists():
            return False
        made = target.stat().st_mtime
        read = list_of.read_text(encoding="utf-8").replace("\\\n", " ").split(":", 1)[1].split()
        return all(pathlib.Path(p).exists() and pathlib.Path(p).stat().st_mtime <= made for p in read
                   if p.startswith(str(self.root)))  # fmt: skip

    def compile_all(self, sources, commands):
        """Compiles; what cannot be switched at run time is taken out until the rest can be compiled."""
        for name, source in sources.items():
            self.write(name, source)
        waiting = [name for name in commands if not self.is_current(name)]
        rounds = 0
        while waiting:
            rounds += 1
            if rounds > 40:
                raise BuildError("the mutated sources do not compile; see " + str(self.folder / "errors.txt"))
            # Headers are in most files: the first file tells what is wrong in them.
            now = waiting[:1] if rounds <= 6 and len(waiting) > 8 else waiting
            failed = {}
            with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
                for name, done in zip(now, pool.map(lambda n: self.compile(n, commands[n]), now)):
                    if done.returncode != 0:
                        failed[name] = done.stderr
            broken = set()
            touched = set()
            for place_file, place in [found for text in failed.values() for found in self.blame(text)]:
                for change in place.changes:
                    if not change.isBroken:
                        change.isBroken = True
                        broken.add(change.key)
                        touched.add(place_file)
            self.tell(f"  {len(now)} files compiled, {len(failed)} again without {len(broken)} changes that cannot be switched")
            if failed and not broken:
                (self.folder / "errors.txt").write_text("\n".join(failed.values()), encoding="utf-8")
                raise BuildError(f"the mutated sources do not compile; see {self.folder / 'errors.txt'}")
            for name in touched:
                self.write(name, sources[name])
            # What failed first: a header that is written again makes the others wait once, not each time.
            waiting = list(failed) or [name for name in commands if not self.is_current(name)]

    # The places that the compiler's errors are about.
    def blame(self, text):
        found = []
        group, blamed = [], False
        candidates = []
        for location in LOCATION.finditer(text):
            path, line, column, kind = location.groups()
            if path.startswith(str(self.source) + "/"):
                name = path[len(str(self.source)) + 1 :]
                here = (name, int(line), int(column))
            else:
                here = None
            if kind == "error":
                if candidates:
                    found += self.first(candidates)
                candidates = [here] + [c for c in group if c]
                group = []
            elif kind == "note":
                if candidates:
                    candidates.append(here)
            else:
                group.append(here)
        if candidates:
            found += self.first(candidates)
        return found

    def first(self, candidates):
        for here in candidates:
            if here and here[0] in self.written:
                for place in self.written[here[0]].at(here[1], here[2]):
                    if any(not c.isBroken for c in place.changes):
                        return [(here[0], place)]
        for here in candidates:
            if here and here[0] in self.written:
                places_there = [p for p in self.written[here[0]].on_line(here[1]) if any(not c.isBroken for c in p.changes)]
                if places_there:
                    narrow = min(places_there, key=lambda p: p.end - p.start)
                    return [(here[0], narrow)]
        # A constant that is named there is needed while compiling.
        for here in candidates:
            if here and here[0] in self.written:
                names = set(re.findall(r"\w+", self.written[here[0]].line(here[1])))
                for name, text in self.written.items():
                    for place in text.places:
                        if place.name in names and any(not c.isBroken for c in place.changes):
                            return [(name, place)]
        return []

    def link(self, target, output, commands):
        """Links what the release build links, with the mutated files in the place of the library's."""
        said = run(["ninja", "-t", "commands", target], self.release)
        if said.returncode != 0:
            raise BuildError(f"the release build has no {target}: run scripts/build first")
        line = said.stdout.strip().split("\n")[-1]
        line = re.sub(r"^: && ", "", line)
        line = re.sub(r" && (:|cd .*)$", "", line)
        own, rest = [], []
        words = shlex.split(line)
        for i, word in enumerate(words):
            found = re.search(r"CMakeFiles/(?:library_\w+|vantori)\.dir/(.*)\.o$", word)
            if found and found.group(1) in commands:
                own.append(str(self.objects / (found.group(1) + ".o")))
            elif words[i - 1] == "-o":
                rest.append(str(output))
            else:
                rest.append(word)
        at = next(i for i, word in enumerate(rest) if word.startswith("-O")) + 1
        switch = self.objects / "switch.o"
        done = run(["c++", "-std=c++20", "-O2", "-fPIC", "-fvisibility=hidden", f"-DMUTANTS={self.total}", "-c",
                    str(HERE / "switch.cpp"), "-o", str(switch)], self.release)  # fmt: skip
        if done.returncode == 0:
            # The mutated files come first, so that what headers define is theirs.
            done = run(rest[:at] + [str(switch)] + own + rest[at:], self.release)
        if done.returncode != 0:
            raise BuildError(f"{target} cannot be linked:\n{done.stderr[-2000:]}")


def system_headers():
    """Where the compiler has headers of its own, among them those of the object runtime."""
    return ["-idirafter", run(["c++", "-print-file-name=include"], None).stdout.strip()]

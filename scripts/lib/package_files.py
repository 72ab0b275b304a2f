"""Which packages a list brings, worked out by apt, and which installed package a file belongs to."""

import collections
import pathlib
import re
import subprocess
import tempfile

INFO = pathlib.Path("/var/lib/dpkg/info")
ALTERNATIVES = pathlib.Path("/var/lib/dpkg/alternatives")
# A minimal Debian has these and what they need before anything is asked for.
MINIMAL = ("?essential", "?priority(required)", "apt")
# A file that apt would fetch; asking for these is quicker than a simulated installation.
FETCHED = re.compile(r"^'[^']*' ([^_ ]+)_", re.MULTILINE)
# The folders that are links into /usr on every Debian 12, and are not in older packages' lists.
MERGED = re.compile(r"^/(bin|sbin|lib|lib32|lib64|libx32)(?=/)")


def closure(listed):
    """The names of all packages that apt would install on a machine without any.

    apt has the machine's own lists and an empty state; nothing is fetched or installed.
    """
    with tempfile.TemporaryDirectory() as folder:
        status = pathlib.Path(folder, "status")
        status.touch()
        command = [
            "apt-get", "--print-uris", "-qq", f"-oDir::State::status={status}", "-oDebug::NoLocking=true",
            f"-oDir::State::extended_states={folder}/extended", "-oAPT::Install-Recommends=false",
            f"-oDir::Cache::archives={folder}",
            "install", *listed, *MINIMAL,
        ]  # fmt: skip
        done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode:
        faults = [line for line in done.stderr.splitlines() if line.startswith("E:")]
        raise SystemExit("check-packages: apt cannot work out the list: " + " ".join(faults or [done.stderr]))
    return set(FETCHED.findall(done.stdout))


def merged(path):
    return MERGED.sub(r"/usr/\1", path)


def chain(path):
    """The file and each link on the way to it, with folders that are no links."""
    steps = []
    while path not in steps and len(steps) < 20:
        place = pathlib.Path(path)
        path = str(place.parent.resolve() / place.name)
        steps.append(path)
        if not pathlib.Path(path).is_symlink():
            break
        path = str(pathlib.Path(path).parent / pathlib.Path(path).readlink())
    return steps


def choices(link):
    """What else a link of /etc/alternatives may point to, when all is installed that is."""
    record = ALTERNATIVES / pathlib.Path(link).name
    if not link.startswith("/etc/alternatives/") or not record.exists():
        return []
    return [line for line in record.read_text().splitlines()[2:] if line.startswith("/") and "/etc/" not in line]


class Owners:
    """The packages of many files, from one reading of what dpkg has noted."""

    def __init__(self, paths, info=INFO):
        self.chains = {path: chain(path) for path in set(paths)}
        wanted = {merged(step) for steps in self.chains.values() for step in steps}
        for steps in list(self.chains.values()):
            for step in steps:
                for choice in choices(step):
                    wanted |= {merged(link) for link in chain(choice)}
        self.owners = collections.defaultdict(set)
        for contents in info.glob("*.list"):
            package = contents.name[: -len(".list")].split(":")[0]
            for line in contents.read_text(encoding="utf-8").splitlines():
                line = merged(line)
                if line in wanted:
                    self.owners[line].add(package)

    def packages(self, steps):
        """Those of each link that has any; several may share a file's name, as a folder."""
        return [self.owners[merged(step)] for step in steps if self.owners[merged(step)]]

    def judge(self, path, brought):
        """The packages of a file, and the one that is not brought, or nothing."""
        steps = self.chains[path]
        found = self.packages(steps)
        used = set().union(*found)
        if not found:
            return used, "no package"
        absent = [min(packages) for packages in found if not packages & brought]
        if not absent:
            return used, None
        for step in steps:
            for choice in choices(step):
                other = self.packages(chain(choice))
                if other and all(packages & brought for packages in other):
                    return set().union(*other), None
        return used, absent[0]

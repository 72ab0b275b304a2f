"""What the linker's map tells of a dylib: which hooks, methods and classes are in it, and what takes the
room.

Hooks and methods are templates whose arguments are names and encodings (platform/hook.hpp,
definition.hpp), so the mangled names spell them out: what the compiler hands to the runtime is the very
argument. Everything else is read from the dylib itself, at the addresses that the map gives.
"""

import bisect
import re
from dataclasses import dataclass

from auditing.forms import read_feature
from auditing.macho import Malformed

LINE = re.compile(r"^0x([0-9A-F]+)\s+0x([0-9A-F]+)\s+\[\s*\d+\]\s(.*)$")
SECTION_LINE = re.compile(r"^0x([0-9A-F]+)\s+0x([0-9A-F]+)\s+(\S+)\s+(\S+)$")
TEXT = re.compile(r"(?:Lc\d+E)+")  # the characters of a string that is a template argument

HOOK = "__ZN8platform6detail9HookThunkI"
METHOD = "__ZN8platform6detail5ThunkI"
FEATURE, FORM_TABLE = "__ZN8platform7FeatureI", "9formTableE"
# What the runtime calls: the last part of the name before the types of the arguments.
IMPLEMENTATION = re.compile(r"^(.*)E(?:3run|(10runOnClass))EP11objc_object")
LONGEST = 10000  # bytes of a text whose size the map does not know (it says 0 of local symbols)
# The static descriptor of a block (platform/block.hpp): its last two pointers are functions.
BLOCK_DESCRIPTOR = re.compile(r"^__ZN8platform5BlockI.*10descriptorE(?:\.\d+)?$")
LABEL = re.compile(r"^ltmp\d+$")  # the compiler's own, beside the name that counts
# Of two local symbols of one name the second ends with a number.
NAME = re.compile(r"^__ZN(?:8platform|7vantori)(?:12_GLOBAL__N_1)?\d+\w+4nameE(?:\.\d+)?$")


@dataclass
class Symbol:
    """One line of the map."""

    address: int
    size: int
    name: str


@dataclass
class Hook:
    """A row of the hook table, as the dylib holds it."""

    class_name: str
    selector: str
    encoding: str


@dataclass
class Method(Hook):
    """A method that the library defines, or adds to a class of the system (then without a class name)."""

    kind: str  # - +


def texts(mangled):
    """The strings among the template arguments of a name."""
    return [
        "".join(chr(int(code)) for code in re.findall(r"\d+", run)) for run in TEXT.findall(mangled)
    ]


def first_type(mangled):
    """The last part of the class name that an argument list starts with: N7vantori9VNTSliderE."""
    rest, part = mangled[1:], ""
    while True:
        known = re.match(r"S\w*?_|St", rest)
        if known:
            rest = rest[known.end() :]
            continue
        length = re.match(r"\d+", rest)
        if not length:
            return part
        start = length.end()
        part = rest[start : start + int(length.group())]
        rest = rest[start + int(length.group()) :]


def plain_name(mangled):
    """The name without types and template arguments: vantori::registerPages, platform::detail::Thunk."""
    rest, parts = re.sub(r"^__Z[A-Z]*N?K?", "", mangled), []
    while length := re.match(r"\d+", rest):
        end = length.end() + int(length.group())
        parts.append(rest[length.end() : end])
        rest = rest[end:].removeprefix("L")
    own = (part for part in parts if part != "_GLOBAL__N_1")
    return "::".join(own) or re.sub(r"[\d.]*$", "", mangled.split(":")[0])


def text_of(symbol, dylib):
    return dylib.text_at(symbol.address, symbol.size or LONGEST)


class LinkMap:
    """A map that ld64.lld wrote with -map."""

    def __init__(self, path):
        self.sections, self.symbols = [], []
        heading = ""
        for line in path.read_text(encoding="utf-8", errors="replace").splitlines():
            if line.startswith("# "):
                heading = line if line.endswith(":") else heading
            elif heading == "# Sections:" and (found := SECTION_LINE.match(line)):
                self.sections.append((f"{found[3]},{found[4]}", int(found[1], 16), int(found[2], 16)))
            elif heading == "# Symbols:" and (found := LINE.match(line)):
                self.symbols.append(Symbol(int(found[1], 16), int(found[2], 16), found[3]))
        if not self.sections or not self.symbols:
            raise Malformed(f"{path} is no map of the linker")
        named = (symbol for symbol in self.symbols if not LABEL.match(symbol.name))
        self.places = sorted(named, key=lambda symbol: symbol.address)

    def fits(self, dylib):
        """Whether this is the map of that dylib."""
        return self.sections == [(one.name, one.address, one.size) for one in dylib.sections]

    def symbol_at(self, address):
        """The name of the last symbol that begins at or before an address, in its section."""
        at = bisect.bisect_right(self.places, address, key=lambda symbol: symbol.address)
        if not at:
            return ""
        found = self.places[at - 1]
        same = any(start <= found.address <= address < start + size for _, start, size in self.sections)
        return found.name if same else ""

    def starting(self, start):
        return (symbol for symbol in self.symbols if symbol.name.startswith(start))

    def implementations(self, start):
        """The arguments of each template of that name, and the kind of method."""
        for symbol in self.starting(start):
            if found := IMPLEMENTATION.match(symbol.name):
                yield found[1].removeprefix(start), "+" if found[2] else "-"

    def hooks(self):
        for arguments, _ in self.implementations(HOOK):
            yield Hook(*texts(arguments)[:3])

    def methods(self):
        for arguments, kind in self.implementations(METHOD):
            owner = first_type(arguments)
            yield Method("" if owner == "Object" else owner, *texts(arguments)[:2], kind)

    def features(self, dylib):
        """The tables of forms."""
        for symbol in self.starting(FEATURE):
            if symbol.name.endswith(FORM_TABLE):
                yield read_feature(text_of(symbol, dylib) or "")

    def classes(self, dylib):
        """Every class that the code looks up by the name of a handle."""
        names = (symbol for symbol in self.symbols if NAME.match(symbol.name))
        return sorted({text_of(symbol, dylib) or symbol.name for symbol in names})

    def room_by_name(self):
        """Bytes that functions and variables take, the largest first. Those of a template count together,
        and so does what has no bytes in the file."""
        room = {}
        for symbol in self.symbols:
            name = plain_name(symbol.name)
            room[name] = room.get(name, 0) + symbol.size
        return sorted(room.items(), key=lambda item: (-item[1], item[0]))

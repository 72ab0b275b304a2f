"""What the sources say of handles: which messages each sends, and which handle it derives from.

The dylib tells which selectors the library sends, but not to what: a selector that some class has would
pass for any other. A handle is a structure with a name, and what is written between its braces is sent to
that class (platform/object.hpp), "-" by send and "+" by sendClass of itself.
"""

import re
from dataclasses import dataclass, field

STRUCTURE = re.compile(r"\bstruct (\w+)(?: final)?(?: : (?:public )?([\w:]+))? \{")
NAME = re.compile(r"static constexpr FixedString name\{\"(\w+)\"\};")
SENT = re.compile(r"(?<![\w.>)])(?:this->)?(send|sendClass)<\s*(?:(\w+),\s*)?\"([\w:]+)\"")
COMMENT = re.compile(r"//[^\n]*")
PARTED = re.compile(r"\"\s+\"")  # a string in two parts
FLOORS = ("platform", "settings", "toggles", "pages", "toolbar", "hooks")


@dataclass
class HandleType:
    """One handle: the class of the system that it stands for."""

    class_name: str
    base: str  # another handle's type, or none
    sent: set = field(default_factory=set)  # (kind, selector)


def body_at(text, start):
    """What stands between the brace before `start` and the one that closes it."""
    depth = 1
    for place in range(start, len(text)):
        depth += {"{": 1, "}": -1}.get(text[place], 0)
        if depth == 0:
            return text[start:place]
    return text[start:]


def handles_in(text):
    """The handles of one source, by the name of their type."""
    text = PARTED.sub("", COMMENT.sub("", text))
    for found in STRUCTURE.finditer(text):
        body = body_at(text, found.end())
        name = NAME.search(body)
        if not name:
            continue
        handle = HandleType(name[1], (found[2] or "").rsplit("::", maxsplit=1)[-1])
        for how, receiver, selector in SENT.findall(body):
            if how == "send":
                handle.sent.add(("-", selector))
            elif receiver == found[1]:
                handle.sent.add(("+", selector))
        yield found[1], handle


def read_handles(repository):
    """The handles of all sources of the library."""
    handles = {}
    for floor in FLOORS:
        for path in sorted((repository / floor).glob("*.?pp")):
            handles.update(handles_in(path.read_text(encoding="utf-8")))
    return handles


def lineage(name, handles):
    """The classes that a handle stands for: its own, then those of the handles it derives from."""
    while name in handles:
        yield handles[name].class_name
        name = handles[name].base
    yield "NSObject"

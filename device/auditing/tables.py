"""What is known of the platform: the text stubs of device/stubs and the tables of device/platform.

A table is a text file of columns parted by tabs; "#" starts a comment line, the first other line names
the columns, and "." stands for nothing.
"""

import re
from dataclasses import dataclass, field

from auditing.macho import Malformed

PRIVATE, PUBLIC, OWN, SYMBOLS, LOOKED_UP = (
    "private_methods.tsv",
    "public_methods.tsv",
    "own_methods.tsv",
    "symbols.tsv",
    "looked_up_symbols.tsv",
)


@dataclass
class Stub:
    """One text stub: what a library of the system is called and which symbols may be used."""

    install_name: str
    symbols: set


@dataclass
class MethodRow:
    """A method that the system has, or asks its clients to have."""

    class_name: str
    kind: str  # - + ivar class
    selector: str
    encoding: str
    own: list = field(default_factory=list)  # systems whose class declares it
    inherited: list = field(default_factory=list)
    absent: list = field(default_factory=list)
    note: str = ""
    private: bool = False
    since: str = ""  # the iOS that brought it, where that is later than the oldest


def read_stub(path):
    text = re.sub(r"#.*", "", path.read_text(encoding="utf-8"))
    name = re.search(r"^install-name:\s*(\S+)", text, re.MULTILINE)
    if not name:
        raise Malformed(f"{path}: no install-name")
    return Stub(name.group(1), set(re.findall(r"^\s+- ([\w.$]+)\s*$", text, re.MULTILINE)))


def release(system):
    """A system's version as a number: 13.4.1 is 1304. 11.x, which has no exact version, counts as 11.1."""
    found = re.match(r"(\d+)\.(\d+|x)", system)
    if not found:
        raise Malformed(f"{system} is no version of a system")
    return int(found[1]) * 100 + (1 if found[2] == "x" else int(found[2]))


def read_table(path):
    """The rows, each a dictionary by column."""
    columns = None
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        cells = ["" if cell == "." else cell for cell in line.split("\t")]
        if columns is None:
            columns = cells
        elif len(cells) != len(columns):
            raise Malformed(f"{path}:{number}: {len(cells)} columns, not the {len(columns)} of the first line")
        else:
            yield dict(zip(columns, cells))


class Platform:
    """The tables of one folder."""

    def __init__(self, folder):
        self.methods = [self.private(row) for row in read_table(folder / PRIVATE)]
        self.methods += [
            MethodRow(
                row["class"], row["kind"], row["selector"], row["encoding"], since=row["since"]
            )
            for row in read_table(folder / PUBLIC)
        ]
        self.ours = {
            (row["class"], row["selector"], row["encoding"]) for row in read_table(folder / OWN)
        }
        self.symbols = {row["symbol"]: row for row in read_table(folder / SYMBOLS)}
        # As rows whose class is the library.
        self.looked_up = {
            row["symbol"]: MethodRow(
                row["library"], "symbol", row["symbol"], row["signature"],
                row["own"].split(), absent=row["absent"].split(), note=row["note"],
            )
            for row in read_table(folder / LOOKED_UP)
        }  # fmt: skip
        self.classes = {row.class_name for row in self.methods}

    @staticmethod
    def private(row):
        return MethodRow(
            row["class"], row["kind"], row["selector"], row["encoding"],
            row["own"].split(), row["inherited"].split(), row["absent"].split(), row["note"], True,
        )  # fmt: skip

    def of_name(self, class_name, kind, name):
        return [
            row
            for row in self.methods
            if (row.class_name, row.kind, row.selector) == (class_name, kind, name)
        ]

    def of_selector(self, selector):
        return [row for row in self.methods if row.selector == selector and row.kind in "+-"]

#!/usr/bin/env python3
"""Plants one mistake in the pointers of an arm64e dylib: damage.py KIND FROM TO.

The pages are hashed anew, so that nothing but the mistake is wrong with the file. The kinds stand in
KINDS; each is a mistake that a compiler, a linker or the step behind it can make.
"""

import pathlib
import struct
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "device"))

from auditing import macho, threads  # noqa: E402 (found by the path above)
from signing.image import Image  # noqa: E402

NUMBER, PLACE, KEY, SIGNED = 1 << 32, 1 << 48, 2 << 49, 1 << 63
HOW_IT_IS_SIGNED = 0x8007FFFF << 32
INIT_FINI = 0xD9D4 << 32  # the number that the compiler's own -fptrauth-init-fini gives
DYLD_INFO_OF_REBASES = 8


class Dylib:
    """The file, with its pointers by what they are."""

    def __init__(self, data):
        self.read = macho.read_dylib(bytes(data))
        self.image = Image(data)
        initialisers = [one for one in self.read.sections if one.kind == macho.INITIALISERS]
        signed = [one for one in threads.read_threads(self.read) if one.signing]
        self.initialisers = [
            one.address for one in signed if any(section.holds(one.address) for section in initialisers)
        ]
        self.block_functions = [one.address for one in signed if one.signing.by_place]
        others = {*self.initialisers, *self.block_functions}
        self.functions = [one.address for one in signed if one.address not in others]

    def change(self, addresses, change):
        if not addresses:
            sys.exit("damage: there is no such pointer in it")
        for address in addresses:
            segment = next(
                one for one in self.read.segments if 0 <= address - one.address < one.file_size
            )
            at = segment.offset + address - segment.address
            self.image.put(at, "<Q", change(self.image.numbers(at, "<Q", "a pointer")[0]))

    def subtype(self, number):
        self.image.put(8, "<I", number)

    def rebase_one(self):
        """An ordinary list of rebases beside the threads, in bytes that those leave over."""
        info = self.image.command(0x80000022)
        place, size = struct.unpack_from("<2I", self.image.data, info + 16)
        if any(self.image.data[place + size - 8 : place + size]):
            sys.exit("damage: its threads leave no room")
        segment = next(
            index for index, one in enumerate(self.read.segments)
            if 0 <= self.functions[0] - one.address < one.file_size
        )  # fmt: skip
        self.image.put(place + size - 8, "<4B", 0x11, 0x20 | segment, 0, 0x51)
        self.image.put(info + DYLD_INFO_OF_REBASES, "<4I", place + size - 8, 8, place, size - 8)


KINDS = {
    "number": lambda one: one.change(one.block_functions, lambda held: held ^ NUMBER),
    "place": lambda one: one.change(one.block_functions, lambda held: held ^ PLACE),
    "key": lambda one: one.change(one.block_functions, lambda held: held ^ KEY),
    "table": lambda one: one.change(one.functions, lambda held: held ^ NUMBER),
    "unsigned_table": lambda one: one.change(one.functions, lambda held: held & ~HOW_IT_IS_SIGNED),
    "initialiser": lambda one: one.change(one.initialisers, lambda held: held | INIT_FINI),
    "unsigned_initialiser": lambda one: one.change(one.initialisers, lambda held: held & ~SIGNED),
    "version": lambda one: one.subtype(0x80000002),
    "plain_arm64": lambda one: one.subtype(0),
    "rebases": Dylib.rebase_one,
}


def damaged(data, kind):
    dylib = Dylib(data)
    KINDS[kind](dylib)
    dylib.image.hash_pages()
    return bytes(dylib.image.data)


if __name__ == "__main__":
    if len(sys.argv) != 4 or sys.argv[1] not in KINDS:
        sys.exit(f"{__doc__}\nKinds: {', '.join(KINDS)}")
    pathlib.Path(sys.argv[3]).write_bytes(damaged(pathlib.Path(sys.argv[2]).read_bytes(), sys.argv[1]))

"""Threads: the pointers of a page as a list through themselves, as dyld of iOS 12 to 14 reads an arm64e
image. Each pointer holds what it shall become, how it is signed, and the distance to the next one in
steps of eight bytes; opcodes name the symbols once, and then the first pointer of each thread.

From the low bits up. Plain: target (43 bits), its top byte (8). Signed: target as an offset from the
header (32), number (16), place counts (1), key (2). A bind has the number of its symbol (16) in place of
the target. All: distance (11), bind (1), signed (1). From Apple's dyld, MachOLoaded.h.
"""

from signing.image import (
    LC_DYLD_CHAINED_FIXUPS,
    LC_DYLD_INFO_ONLY,
    SUBTYPE_ALL,
    SUBTYPE_ARM64E,
    TYPE_DYLIB,
    Image,
    Refused,
)
from signing.opcodes import POINTER, binds, rebases

SIGNED, BIND, DISTANCE_SHIFT, DISTANCE_BITS = 1 << 63, 1 << 62, 51, 0x7FF
BITS_OF_THREADS = BIND | DISTANCE_BITS << DISTANCE_SHIFT
LOW_HALF = 0xFFFFFFFF
PLAIN_TARGET = (1 << 43) - 1
MOST_SYMBOLS = 1 << 16
PAGE = 4096
INITIALISERS, INITIALISER_OFFSETS = 0x09, 0x16
SUBTYPE_AT = 8

SET_LIBRARY, SET_LONG_LIBRARY, SET_SPECIAL_LIBRARY, SET_SYMBOL = 0x10, 0x20, 0x30, 0x40
SET_POINTER_TYPE, SET_ADDEND, SET_PLACE, ADD_SYMBOL = 0x51, 0x60, 0x70, 0x90
START_SYMBOLS, FOLLOW_THREAD = 0xD0, 0xD1


def uleb(value):
    out = bytearray()
    while value >= 0x80:
        out.append(value & 0x7F | 0x80)
        value >>= 7
    return bytes(out + bytes([value]))


def sleb(value):
    out = bytearray()
    while not -0x40 <= value < 0x40:
        out.append(value & 0x7F | 0x80)
        value >>= 7
    return bytes(out + bytes([value & 0x7F]))


class Symbols:
    """The table of symbols that the threads number."""

    def __init__(self):
        self.numbers = {}

    def number(self, bind):
        number = self.numbers.setdefault(bind, len(self.numbers))
        if number >= MOST_SYMBOLS:
            raise Refused(f"it binds to more than {MOST_SYMBOLS} symbols")
        return number

    def opcodes(self):
        out = bytearray([START_SYMBOLS]) + uleb(len(self.numbers))
        last = None
        for bind in self.numbers:
            if last is None or bind.library != last.library:
                out += self.library(bind.library)
            if last is None or (bind.flags, bind.name) != (last.flags, last.name):
                out += bytes([SET_SYMBOL | bind.flags]) + bind.name + b"\0"
            if last is None:
                out += bytes([SET_POINTER_TYPE])
            if bind.addend != (last.addend if last else 0):
                out += bytes([SET_ADDEND]) + sleb(bind.addend)
            out.append(ADD_SYMBOL)
            last = bind
        return bytes(out)

    @staticmethod
    def library(number):
        if number <= 0:
            return bytes([SET_SPECIAL_LIBRARY | number & 0x0F])
        return bytes([SET_LIBRARY | number]) if number < 16 else bytes([SET_LONG_LIBRARY]) + uleb(number)


class Lists:
    """The linker's lists of pointers: where they are in the file, and their bytes."""

    def __init__(self, image, info):
        self.image, self.info = image, info
        numbers = image.numbers(info + 8, "<10I", "the dyld command")
        names = ("rebase", "bind", "weak", "lazy", "export")
        self.spans = {name: numbers[2 * at : 2 * at + 2] for at, name in enumerate(names)}
        if self.spans["weak"][1]:
            raise Refused("it has weak binds, which threads do not tell")
        # lld writes the three one behind the other; what replaces them may take their room.
        taken = sorted(self.spans[name] for name in ("rebase", "bind", "lazy") if self.spans[name][1])
        if any(at + size != after for (at, size), (after, _) in zip(taken, taken[1:])):
            raise Refused("something lies between its lists of pointers")
        self.start = taken[0][0] if taken else 0
        self.room = sum(size for _, size in taken)

    def bytes(self, name):
        return self.image.span(*self.spans[name], f"the {name} opcodes")

    def replace(self, opcodes):
        if len(opcodes) > self.room:
            raise Refused(f"its threads take {len(opcodes)} bytes of {self.room}")
        self.image.data[self.start : self.start + self.room] = opcodes.ljust(self.room, b"\0")
        self.image.put(self.info + 8, "<8I", 0, 0, self.start, self.room, 0, 0, 0, 0)


class Weaver:
    """Takes the linker's pointers and writes them as threads."""

    def __init__(self, image):
        self.image, self.symbols = image, Symbols()
        if not image.segments or image.segments[0].address != 0 or image.segments[0].offset != 0:
            raise Refused("its header is not linked at address zero, from where signed pointers count")
        self.end = max(one.address + one.memory_size for one in image.segments)
        self.initialisers = []
        for section in (one for segment in image.segments for one in segment.sections):
            if section.kind == INITIALISER_OFFSETS:
                raise Refused("its initialisers are offsets, which iOS before 13.4 calls unsigned")
            if section.kind == INITIALISERS:
                self.initialisers.append(range(section.offset, section.offset + section.size))

    def pointers(self, places):
        """What each place holds but for the distance, in order."""
        found = {}
        for (segment, offset), bind in sorted(places.items(), key=lambda item: item[0]):
            if offset % POINTER:
                raise Refused("a pointer is not aligned to eight bytes")
            at = self.image.segments[segment].offset + offset
            found[segment, offset] = self.bound(bind) if bind else self.moved(at)
        return found

    def moved(self, at):
        """A pointer into the image itself."""
        value = self.image.numbers(at, "<Q", "a pointer")[0]
        target = value & LOW_HALF if value & SIGNED else value
        if value & SIGNED and value & BITS_OF_THREADS or target > min(self.end, PLAIN_TARGET):
            raise Refused(f"a pointer holds {value:#x}, which is no place of the image")
        if any(at in places for places in self.initialisers):
            # dyld calls it as any function of C, key IA and number 0; the compiler can sign it
            # otherwise, as later systems want it (-fptrauth-init-fini).
            if value & SIGNED and value >> 32 != SIGNED >> 32:
                raise Refused("an initialiser is signed, but not as a function of C")
            return target | SIGNED
        return value

    def bound(self, bind):
        """A pointer to a symbol. How it is signed came through the linker as its addend."""
        addend = bind.addend & ((1 << 64) - 1)
        if addend & SIGNED and not addend & BITS_OF_THREADS:
            if addend & LOW_HALF:
                raise Refused(f"a signed pointer leads beside {bind.name.decode('ascii', 'replace')}")
            return addend | BIND | self.symbols.number(bind._replace(addend=0))
        return BIND | self.symbols.number(bind)

    def threads(self, pointers):
        """Writes the pointers with their distances; the opcodes that lead to each thread."""
        out = bytearray()
        page = None
        places = list(pointers)
        for here, after in zip(places, places[1:] + [None]):
            segment, offset = here
            if (segment, offset // PAGE) != page:
                page = segment, offset // PAGE
                out += bytes([SET_PLACE | segment]) + uleb(offset) + bytes([FOLLOW_THREAD])
            together = after and (after[0], after[1] // PAGE) == page
            distance = (after[1] - offset) // POINTER if together else 0
            at = self.image.segments[segment].offset + offset
            self.image.put(at, "<Q", pointers[here] | distance << DISTANCE_SHIFT)
        return bytes(out)


def with_threads(data):
    """The dylib's bytes with threads in place of its lists, and one line about them."""
    image = Image(data)
    if image.type != TYPE_DYLIB:
        raise Refused("it is no dynamic library")
    if image.subtype != SUBTYPE_ALL:
        raise Refused(f"its CPU subtype is {image.subtype:#x} and not yet to be set")
    info = image.command(LC_DYLD_INFO_ONLY)
    if info is None or image.command(LC_DYLD_CHAINED_FIXUPS) is not None:
        raise Refused("its pointers are not told by opcodes (link with -no_fixup_chains)")
    if len(image.segments) > 16:
        raise Refused("it has more segments than an opcode can name")
    lists, weaver = Lists(image, info), Weaver(image)
    places = dict.fromkeys(rebases(image, lists.bytes("rebase")))
    # A lazy pointer leads to its helper first, so it is a rebase as well: what is bound counts.
    places.update(binds(image, lists.bytes("bind"), lazy=False))
    places.update(binds(image, lists.bytes("lazy"), lazy=True))
    pointers = weaver.pointers(places)
    threads = weaver.threads(pointers)
    lists.replace(weaver.symbols.opcodes() + threads if pointers else b"")
    image.put(SUBTYPE_AT, "<I", SUBTYPE_ARM64E)
    image.hash_pages()
    told = (
        f"{sum(not bind for bind in places.values())} pointers into itself, "
        f"{sum(bool(bind) for bind in places.values())} to {len(weaver.symbols.numbers)} symbols, "
        f"{sum(value >> 63 for value in pointers.values())} signed"
    )
    return bytes(image.data), told

"""The pointers of an arm64e image: threads that opcodes lead to, read as dyld of iOS 12 to 14 reads them.
Knows nothing of the tool that writes them. Addresses are those that the file was linked at.

The numbers are from Apple's <mach-o/loader.h> and dyld's MachOLoaded.h.
"""

import struct
from dataclasses import dataclass

from auditing.macho import Malformed

KEYS = ("IA", "IB", "DA", "DB")
PAGE = 4096


@dataclass(frozen=True)
class Signing:
    """How a pointer is signed."""

    key: str
    number: int
    by_place: bool

    def __str__(self):
        return f"{self.key}, {self.number:#x}{', by place' if self.by_place else ''}"


@dataclass(frozen=True)
class Pointer:
    """A pointer into the image (a target) or to a symbol of a library."""

    address: int
    target: int | None
    symbol: str | None
    library: int | None
    addend: int
    signing: Signing | None


class Opcodes:
    """The bytes of the list."""

    def __init__(self, data):
        self.data, self.at = data, 0

    def next(self):
        self.at += 1
        return self.data[self.at - 1]

    def number(self, signed=False):
        value = shift = 0
        while True:
            byte = self.next()
            value |= (byte & 0x7F) << shift
            shift += 7
            if not byte & 0x80:
                return value - (1 << shift) if signed and byte & 0x40 else value

    def text(self):
        end = self.data.index(b"\0", self.at)
        found = self.data[self.at : end].decode("ascii", "replace")
        self.at = end + 1
        return found


def signing_of(value):
    if not value >> 63:
        return None
    return Signing(KEYS[value >> 49 & 3], value >> 32 & 0xFFFF, bool(value >> 48 & 1))


def follow(dylib, segment, offset, symbols):
    """The pointers of one thread."""
    end = (offset // PAGE + 1) * PAGE
    while True:
        if offset % 8 or offset + 8 > segment.file_size:
            raise Malformed(f"a thread leads to {segment.address + offset:#x}, which is no place for a pointer")
        value = struct.unpack_from("<Q", dylib.data, segment.offset + offset)[0]
        address, signing = segment.address + offset, signing_of(value)
        if value >> 62 & 1:
            library, symbol, addend = symbols[value & 0xFFFF]
            yield Pointer(address, None, symbol, library, addend, signing)
        elif signing:
            yield Pointer(address, value & 0xFFFFFFFF, None, None, 0, signing)
        else:
            target = (value >> 43 & 0xFF) << 56 | value & (1 << 43) - 1
            yield Pointer(address, target, None, None, 0, None)
        distance = value >> 51 & 0x7FF
        if not distance:
            return
        offset += 8 * distance
        if offset >= end:
            raise Malformed("a thread leaves its page of 4 KiB")


def read_threads(dylib):
    """All pointers. Raises Malformed, or what reading behind the end raises, for other lists."""
    rebase, bind, weak, lazy = (dylib.dyld_info[2 * at : 2 * at + 2] for at in range(4))
    if rebase[1] or weak[1] or lazy[1]:
        raise Malformed("its pointers are not threads alone: from iOS 13 on the other lists are not read")
    opcodes = Opcodes(dylib.data[bind[0] : sum(bind)])
    symbols, announced = [], None
    library, symbol, addend, place = 0, "", 0, None
    while opcodes.at < len(opcodes.data):
        byte = opcodes.next()
        action, small = byte & 0xF0, byte & 0x0F
        if byte == 0x00:
            break
        if byte == 0xD0:
            announced = opcodes.number()
        elif byte == 0xD1:
            if announced != len(symbols) or place is None:
                raise Malformed(f"{announced} symbols are announced for its threads, and {len(symbols)} there")
            yield from follow(dylib, dylib.segments[place[0]], place[1], symbols)
        elif action == 0x10:
            library = small
        elif action == 0x20:
            library = opcodes.number()
        elif action == 0x30:
            library = small - 16 if small else 0
        elif action == 0x40:
            symbol = opcodes.text()
        elif byte == 0x51:
            pass  # pointers: there is no other type
        elif action == 0x60:
            addend = opcodes.number(signed=True)
        elif action == 0x70:
            place = small, opcodes.number()
        elif byte == 0x90:
            symbols.append((library, symbol, addend))
        else:
            raise Malformed(f"opcode {byte:#x} is none of threads")

"""Reads a Mach-O dylib by itself, so that a fault of the linker shows too. Offsets and sizes are bytes.

The numbers are from Apple's <mach-o/loader.h> and <mach-o/nlist.h>.
"""

import struct
from dataclasses import dataclass, field

MAGIC_64 = 0xFEEDFACF
CPU_ARM64 = 0x0100000C
# The whole number counts: iOS 12 and 13 take 2 for arm64e, and not 2 with a version above it.
SLICES = {0: "arm64", 2: "arm64e"}
TYPE_DYLIB = 6
LC_SYMTAB, LC_LOAD_DYLIB, LC_ID_DYLIB, LC_SEGMENT_64, LC_CODE_SIGNATURE = 0x02, 0x0C, 0x0D, 0x19, 0x1D
LC_DYLD_INFO_ONLY = 0x80000022
LC_VERSION_MIN_IPHONEOS, LC_BUILD_VERSION, PLATFORM_IOS = 0x25, 0x32, 2
OTHER_LOADS = (0x80000018, 0x8000001F, 0x80000023)  # weak, re-exported, upward
SECTION_TYPE, INITIALISERS, ZERO_FILL = 0xFF, 0x09, 0x01
CODE = ("__TEXT,__text", "__TEXT,__stubs", "__TEXT,__stub_helper")
N_STAB, N_TYPE, N_EXT = 0xE0, 0x0E, 0x01


class Malformed(Exception):
    """The file is not what it is taken for."""


@dataclass
class Section:
    """One section: where it is at run time and in the file."""

    name: str  # __TEXT,__text
    address: int
    size: int
    offset: int
    kind: int

    def holds(self, address):
        return self.address <= address < self.address + self.size


@dataclass
class Segment:
    """One segment: where it is at run time and in the file."""

    address: int
    offset: int
    file_size: int


@dataclass
class Dylib:
    """What the checks need of the file, or of one architecture in it."""

    data: bytes
    slice: str  # arm64, arm64e
    install_name: str = ""
    minimum: tuple = ()
    commands: list = field(default_factory=list)  # kinds, in order
    libraries: list = field(default_factory=list)
    segments: list = field(default_factory=list)
    sections: list = field(default_factory=list)
    dyld_info: tuple = ()  # offset and size of: rebases, binds, weak ones, lazy ones, exports
    undefined: dict = field(default_factory=dict)  # symbol -> index into libraries
    exported: list = field(default_factory=list)
    debugging: int = 0
    signature: tuple = ()  # offset, size

    def is_code(self, address):
        return any(one.name in CODE and one.holds(address) for one in self.sections)

    def text_at(self, address, size):
        """The bytes up to the first zero, of at most that size, as text; None where there are none."""
        section = next((one for one in self.sections if one.holds(address)), None)
        if not section or section.kind == ZERO_FILL:
            return None
        start = section.offset + address - section.address
        return self.data[start : start + size].split(b"\0")[0].decode("ascii", "replace")


def terminated(data, start):
    return data[start : data.index(b"\0", start)].decode()


def version(packed):
    return (packed >> 16, packed >> 8 & 0xFF)


def read_symbols(dylib, table, count, strings):
    for index in range(count):
        name_at, kind, _, description, _ = struct.unpack_from("<IBBHQ", dylib.data, table + 16 * index)
        name = terminated(dylib.data, strings + name_at)
        if kind & N_STAB:
            dylib.debugging += 1
        elif not kind & N_EXT:
            continue
        elif kind & N_TYPE == 0:
            dylib.undefined[name] = (description >> 8) - 1
        elif name != "__mh_dylib_header":
            dylib.exported.append(name)


def read_segment(dylib, at):
    address, _, offset, file_size = struct.unpack_from("<4Q", dylib.data, at + 24)
    dylib.segments.append(Segment(address, offset, file_size))
    count = struct.unpack_from("<I", dylib.data, at + 64)[0]
    for index in range(count):
        fields = struct.unpack_from("<16s16s2Q8I", dylib.data, at + 72 + 80 * index)
        section, segment = (part.rstrip(b"\0").decode() for part in fields[:2])
        address, size, offset, flags = fields[2], fields[3], fields[4], fields[8]
        dylib.sections.append(
            Section(f"{segment},{section}", address, size, offset, flags & SECTION_TYPE)
        )


def read_command(dylib, command, size, at):
    """Takes what is wanted of one load command; where the symbols are, when it says so."""
    data = dylib.data
    fields = struct.unpack_from("<4I", data, at + 8) if size >= 24 else ()
    if command == LC_ID_DYLIB:
        dylib.install_name = terminated(data, at + fields[0])
    elif command == LC_LOAD_DYLIB or command in OTHER_LOADS:
        dylib.libraries.append(terminated(data, at + fields[0]))
    elif command == LC_SEGMENT_64:
        read_segment(dylib, at)
    elif command == LC_DYLD_INFO_ONLY:
        dylib.dyld_info = struct.unpack_from("<10I", data, at + 8)
    elif command == LC_VERSION_MIN_IPHONEOS:
        dylib.minimum = version(struct.unpack_from("<I", data, at + 8)[0])
    elif command == LC_BUILD_VERSION and fields[0] == PLATFORM_IOS:
        dylib.minimum = version(fields[1])
    elif command == LC_CODE_SIGNATURE:
        dylib.signature = struct.unpack_from("<2I", data, at + 8)
    elif command == LC_SYMTAB:
        return fields[:3]
    return None


def read_dylib(data):
    magic, cpu, subtype, kind, commands = struct.unpack_from("<5I", data)
    if magic != MAGIC_64:
        raise Malformed("not a 64-bit Mach-O file")
    if cpu != CPU_ARM64 or subtype not in SLICES:
        raise Malformed(f"neither arm64 nor arm64e: CPU {cpu:#x}, subtype {subtype:#x}")
    if kind != TYPE_DYLIB:
        raise Malformed(f"not a dylib: file type {kind}")
    dylib = Dylib(data, SLICES[subtype])
    at, symbols = 32, None
    for _ in range(commands):
        command, size = struct.unpack_from("<2I", data, at)
        if size < 8:
            raise Malformed(f"a load command of {size} bytes")
        dylib.commands.append(command)
        symbols = read_command(dylib, command, size, at) or symbols
        at += size
    if symbols:
        read_symbols(dylib, *symbols)
    return dylib

#!/usr/bin/env python3
"""Checks a built Vantori.dylib: that a phone can load it, and that it holds nothing unexpected.

Reads the Mach-O file itself, so that a fault of the linker shows too. Every finding is one line;
the exit status is 1 when there is an error. A symbol that a stub lists and the library does not
use is a warning only. Sizes are bytes.
"""

import argparse
import hashlib
import pathlib
import re
import struct
import sys
from dataclasses import dataclass, field

INSTALL_NAME = "/Library/MobileSubstrate/DynamicLibraries/Vantori.dylib"
MINIMUM_IOS = (11, 0)

# From Apple's <mach-o/loader.h>, <mach-o/nlist.h> and <kern/cs_blobs.h>.
MAGIC_64 = 0xFEEDFACF
CPU_ARM64, SUBTYPE_ALL = 0x0100000C, 0
TYPE_DYLIB = 6
LC_SYMTAB = 0x02
LC_LOAD_DYLIB, LC_ID_DYLIB = 0x0C, 0x0D
OTHER_LOADS = (0x80000018, 0x8000001F, 0x80000023)  # weak, re-exported, upward
LC_CODE_SIGNATURE = 0x1D
LC_VERSION_MIN_IPHONEOS, LC_BUILD_VERSION, PLATFORM_IOS = 0x25, 0x32, 2
N_STAB, N_TYPE, N_EXT = 0xE0, 0x0E, 0x01
CS_SUPERBLOB, CS_DIRECTORY, CS_ADHOC, CS_SHA256 = 0xFADE0CC0, 0xFADE0C02, 0x2, 2


@dataclass
class Stub:
    """One text stub: what a library of the system is called and which symbols may be used."""

    install_name: str
    symbols: set


@dataclass
class Dylib:
    """What the checks need of a Mach-O file."""

    data: bytes
    install_name: str = ""
    minimum: tuple = ()
    libraries: list = field(default_factory=list)
    undefined: dict = field(default_factory=dict)  # symbol -> index into libraries
    exported: list = field(default_factory=list)
    debugging: int = 0
    signature: tuple = ()  # offset, size


class Malformed(Exception):
    """The file is not an arm64 dylib at all."""


def read_stub(path):
    text = re.sub(r"#.*", "", path.read_text(encoding="utf-8"))
    name = re.search(r"^install-name:\s*(\S+)", text, re.MULTILINE)
    if not name:
        raise Malformed(f"{path}: no install-name")
    return Stub(name.group(1), set(re.findall(r"^\s+- ([\w.$]+)\s*$", text, re.MULTILINE)))


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


def read_dylib(data):
    magic, cpu, subtype, kind, commands = struct.unpack_from("<5I", data)
    if magic != MAGIC_64:
        raise Malformed("not a 64-bit Mach-O file")
    if (cpu, subtype & 0xFFFFFF) != (CPU_ARM64, SUBTYPE_ALL):
        raise Malformed(f"not arm64: CPU {cpu:#x}, subtype {subtype:#x}")
    if kind != TYPE_DYLIB:
        raise Malformed(f"not a dylib: file type {kind}")
    dylib = Dylib(data)
    at = 32
    symbols = None
    for _ in range(commands):
        command, size = struct.unpack_from("<2I", data, at)
        fields = struct.unpack_from("<4I", data, at + 8) if size >= 24 else ()
        if command == LC_ID_DYLIB:
            dylib.install_name = terminated(data, at + fields[0])
        elif command == LC_LOAD_DYLIB or command in OTHER_LOADS:
            dylib.libraries.append(terminated(data, at + fields[0]))
        elif command == LC_VERSION_MIN_IPHONEOS:
            dylib.minimum = version(struct.unpack_from("<I", data, at + 8)[0])
        elif command == LC_BUILD_VERSION and fields[0] == PLATFORM_IOS:
            dylib.minimum = version(fields[1])
        elif command == LC_SYMTAB:
            symbols = fields[:3]
        elif command == LC_CODE_SIGNATURE:
            dylib.signature = struct.unpack_from("<2I", data, at + 8)
        at += size
    if symbols:
        read_symbols(dylib, *symbols)
    return dylib


def signature_fault(dylib):
    """What is wrong with the code signature, or None. Every page's hash is worked out anew."""
    if not dylib.signature:
        return "no code signature"
    data, start = dylib.data, dylib.signature[0]
    magic, _, blobs = struct.unpack_from(">3I", data, start)
    if magic != CS_SUPERBLOB:
        return "the code signature has no super blob"
    for blob in range(blobs):
        offset = struct.unpack_from(">2I", data, start + 12 + 8 * blob)[1]
        directory = start + offset
        head = struct.unpack_from(">9I4B", data, directory)
        if head[0] != CS_DIRECTORY:
            continue
        flags, hashes, slots, limit = head[3], head[4], head[7], head[8]
        hash_size, hash_type, page_bits = head[9], head[10], head[12]
        if not flags & CS_ADHOC or hash_type != CS_SHA256:
            return f"the code signature is not an ad-hoc one with SHA-256 (flags {flags:#x})"
        for slot in range(slots):
            page = data[slot << page_bits : min((slot + 1) << page_bits, limit)]
            at = directory + hashes + slot * hash_size
            if hashlib.sha256(page).digest() != data[at : at + hash_size]:
                return f"page {slot} was changed after signing"
        return None if limit == start else "the code signature does not cover the file"
    return "the code signature has no code directory"


def check(dylib, stubs, forbidden):
    """Yields the errors."""
    if dylib.install_name != INSTALL_NAME:
        yield f"install name is {dylib.install_name or 'missing'}, not {INSTALL_NAME}"
    if dylib.minimum != MINIMUM_IOS:
        yield f"lowest iOS is {dylib.minimum or 'missing'}, not {MINIMUM_IOS}"
    by_name = {stub.install_name: stub for stub in stubs}
    for library in dylib.libraries:
        if library not in by_name:
            yield f"links {library}, which no stub describes"
    for symbol, index in sorted(dylib.undefined.items()):
        if not 0 <= index < len(dylib.libraries):
            yield f"{symbol} is not bound to a library"
            continue
        library = dylib.libraries[index]
        if library in by_name and symbol not in by_name[library].symbols:
            yield f"{symbol} is not in the stub of {library}"
    for symbol in dylib.exported:
        yield f"exports {symbol}: the library shows nothing to others"
    if dylib.debugging:
        yield f"{dylib.debugging} debugging symbols are left"
    for path in forbidden:
        if path.encode() in dylib.data:
            yield f"holds the build path {path}"
    fault = signature_fault(dylib)
    if fault:
        yield fault


def main():
    here = pathlib.Path(__file__).resolve().parent
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("dylib", type=pathlib.Path)
    parser.add_argument("--stubs", type=pathlib.Path, default=here / "stubs", metavar="FOLDER")
    parser.add_argument(
        "--forbid",
        action="append",
        default=[],
        metavar="PATH",
        help="a path that must not occur in the file; the repository always is one",
    )
    arguments = parser.parse_args()
    try:
        stubs = [read_stub(path) for path in sorted(arguments.stubs.glob("*.tbd"))]
        dylib = read_dylib(arguments.dylib.read_bytes())
    except (OSError, Malformed) as problem:
        sys.exit(f"audit: {problem}")
    except (struct.error, ValueError) as problem:
        sys.exit(f"audit: {arguments.dylib} is cut short or damaged: {problem}")

    used = set(dylib.undefined)
    for stub in stubs:
        unused = sorted(stub.symbols - used)
        if unused:
            print(f"warning: of {stub.install_name} not used: {' '.join(unused)}")
    errors = list(check(dylib, stubs, {str(here.parent), *arguments.forbid}))
    for error in errors:
        print(f"error: {error}")
    print(
        f"{arguments.dylib.name}: {len(dylib.data)} bytes, {len(used)} system symbols "
        f"from {len(dylib.libraries)} libraries, {len(errors)} errors"
    )
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())

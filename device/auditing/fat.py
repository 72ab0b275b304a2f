"""A file that holds one library for several processors. Its numbers are big-endian, other than all others.

The numbers are from Apple's <mach-o/fat.h>.
"""

import struct

from auditing.macho import Malformed, read_dylib

MAGIC = 0xCAFEBABE
PAGE = 0x4000


def parts_of(data):
    """The bytes of each architecture; all of a file that is not fat."""
    magic, count = struct.unpack_from(">2I", data)
    if magic != MAGIC:
        return [data]
    parts = []
    end = 8 + 20 * count
    for index in range(count):
        cpu, subtype, offset, size, _ = struct.unpack_from(">5I", data, 8 + 20 * index)
        if offset % PAGE:
            raise Malformed(f"an architecture starts at {offset:#x}, which is no page of 16 KiB")
        if offset < end or offset + size > len(data):
            raise Malformed("an architecture lies outside the file or in another")
        part = data[offset : offset + size]
        if struct.unpack_from("<2I", part, 4) != (cpu, subtype):
            raise Malformed("the list of architectures names another than the part itself")
        parts.append(part)
        end = offset + size
    return parts


def read_slices(data):
    """A dylib for each architecture, none twice."""
    slices = [read_dylib(part) for part in parts_of(data)]
    names = [one.slice for one in slices]
    if len(set(names)) != len(names) or not names:
        raise Malformed(f"it holds {' and '.join(names) or 'nothing'}")
    return slices

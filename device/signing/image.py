"""A Mach-O file as the post-link step reads and changes it: bytes with checked bounds, the load commands
that it needs, and the hashes of its pages. Offsets and sizes are bytes.

The numbers are from Apple's <mach-o/loader.h> and <kern/cs_blobs.h>.
"""

import hashlib
import struct
from dataclasses import dataclass

MAGIC_64, CPU_ARM64 = 0xFEEDFACF, 0x0100000C
SUBTYPE_ALL, SUBTYPE_ARM64E, SUBTYPE_FEATURES = 0, 2, 0xFF000000
TYPE_OBJECT, TYPE_DYLIB = 1, 6
LC_SEGMENT_64, LC_CODE_SIGNATURE, LC_DYLD_INFO_ONLY = 0x19, 0x1D, 0x80000022
LC_DYLD_CHAINED_FIXUPS = 0x80000034
HEADER, SEGMENT, SECTION = 32, 72, 80
CAN_WRITE = 2
CS_SUPERBLOB, CS_DIRECTORY, CS_SHA256, SHA256_SIZE = 0xFADE0CC0, 0xFADE0C02, 2, 32


class Refused(Exception):
    """The file is not what the step understands; the text is one sentence that says why."""


@dataclass
class Segment:
    """A segment: where it is in memory and in the file, and the sections that it has."""

    name: str
    address: int
    memory_size: int
    offset: int
    file_size: int
    protection: int
    sections: list


@dataclass
class Section:
    """A section: where it is in the file, what it holds, and where its relocations are."""

    offset: int
    size: int
    kind: int
    relocations: int
    relocation_count: int


class Image:
    """The bytes of a file, and what its load commands say."""

    def __init__(self, data):
        self.data = bytearray(data)
        magic, cpu, self.subtype, self.type, count = self.numbers(0, "<5I", "the header")
        if magic != MAGIC_64 or cpu != CPU_ARM64:
            raise Refused("it is no 64-bit Mach-O file for arm64")
        self.commands = []
        self.segments = []
        at = HEADER
        for _ in range(count):
            kind, size = self.numbers(at, "<2I", "the load commands")
            if size < 8:
                raise Refused(f"it has a load command of {size} bytes")
            self.commands.append((kind, at))
            if kind == LC_SEGMENT_64:
                self.segments.append(self.segment(at))
            at += size

    def numbers(self, at, layout, what):
        size = struct.calcsize(layout)
        if at < 0 or at + size > len(self.data):
            raise Refused(f"the file ends inside {what}")
        return struct.unpack_from(layout, self.data, at)

    def put(self, at, layout, *values):
        """Writes where numbers() may read."""
        self.numbers(at, layout, "what is written")
        struct.pack_into(layout, self.data, at, *values)

    def span(self, at, size, what):
        if size < 0 or at < 0 or at + size > len(self.data):
            raise Refused(f"the file ends inside {what}")
        return bytes(self.data[at : at + size])

    def segment(self, at):
        name, address, memory_size, offset, file_size, _, protection, count = self.numbers(
            at + 8, "<16s4Q3I", "a segment command"
        )
        self.span(offset, file_size, "a segment")
        sections = []
        for index in range(count):
            start = at + SEGMENT + SECTION * index
            size, file_offset, _, relocations, relocation_count, flags = self.numbers(
                start + 40, "<Q5I", "a section"
            )
            sections.append(Section(file_offset, size, flags & 0xFF, relocations, relocation_count))
        text = name.rstrip(b"\0").decode("ascii", "replace")
        return Segment(text, address, memory_size, offset, file_size, protection, sections)

    def command(self, wanted):
        """Where the one load command of a kind is; None when there is none."""
        found = [at for kind, at in self.commands if kind == wanted]
        if len(found) > 1:
            raise Refused(f"it has {len(found)} load commands {wanted:#x}")
        return found[0] if found else None

    def hash_pages(self):
        """Works out the hashes of the code signature anew."""
        command = self.command(LC_CODE_SIGNATURE)
        if command is None:
            raise Refused("it has no code signature to bring up to date")
        start, _ = self.numbers(command + 8, "<2I", "the signature command")
        magic, _, blobs, _, offset = self.numbers(start, ">5I", "the code signature")
        directory = start + offset
        head = self.numbers(directory, ">9I4B", "the code directory")
        if magic != CS_SUPERBLOB or blobs < 1 or head[0] != CS_DIRECTORY:
            raise Refused("its code signature does not begin with a code directory")
        hashes, slots, limit, size, kind, bits = head[4], head[7], head[8], head[9], head[10], head[12]
        if (kind, size) != (CS_SHA256, SHA256_SIZE):
            raise Refused("its code signature has other hashes than SHA-256")
        # A hash may not be of itself, nor may there be more slots than pages.
        if limit > start or bits > 31 or slots != -(-limit >> bits):
            raise Refused("its code signature does not cover the file page by page")
        self.span(directory + hashes, size * slots, "the code directory")
        for slot in range(slots):
            page = self.data[slot << bits : min((slot + 1) << bits, limit)]
            place = directory + hashes + size * slot
            self.data[place : place + size] = hashlib.sha256(page).digest()

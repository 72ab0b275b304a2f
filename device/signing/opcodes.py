"""The linker's lists of pointers, read: what the loader must move with the image (rebases) and what it
must look up (binds). The low half of an opcode's byte is a small number for it.

The numbers are from Apple's <mach-o/loader.h>.
"""

from typing import NamedTuple

from signing.image import CAN_WRITE, Refused

POINTER = 8
ALL_BITS = (1 << 64) - 1


class Bind(NamedTuple):
    """What a pointer is bound to."""

    library: int  # by its number, from 1; special ones are negative, 0 is the image itself
    flags: int
    name: bytes
    addend: int


class Cursor:
    """Reads forward through one list."""

    def __init__(self, data, what):
        self.data, self.what, self.at = data, what, 0

    def byte(self):
        if self.at >= len(self.data):
            raise Refused(f"{self.what} end inside an opcode")
        self.at += 1
        return self.data[self.at - 1]

    def opcode(self):
        byte = self.byte()
        return byte & 0xF0, byte & 0x0F

    def more(self):
        return self.at < len(self.data)

    def uleb(self, signed=False):
        value = shift = 0
        while True:
            byte = self.byte()
            value |= (byte & 0x7F) << shift
            shift += 7
            if byte < 0x80:
                break
        if signed and byte & 0x40:
            value -= 1 << shift
        if value.bit_length() > 64:
            raise Refused(f"a number in {self.what} has more than 64 bits")
        return value

    def text(self):
        end = self.data.find(b"\0", self.at)
        if end < 0:
            raise Refused(f"{self.what} end inside a name")
        text = bytes(self.data[self.at : end])
        self.at = end + 1
        return text


class Walk:
    """Where a list stands, as it goes through the segments. Offsets wrap: linkers step backwards so."""

    def __init__(self, image):
        self.image, self.segment, self.offset = image, None, 0
        self.left = 2 * len(image.data) // POINTER  # a bind may be a rebase too; no file has more

    def advance(self, step):
        self.offset = self.offset + step & ALL_BITS

    def set(self, segment, offset):
        self.segment, self.offset = segment, offset & ALL_BITS

    def places(self, count, skip):
        """The places of a run of pointers, each as the number of its segment and the offset in it."""
        for _ in range(count):
            if self.segment is None or self.segment >= len(self.image.segments):
                raise Refused("a pointer lies in no segment")
            segment = self.image.segments[self.segment]
            if self.offset + POINTER > segment.file_size or not segment.protection & CAN_WRITE:
                raise Refused(f"a pointer lies where {segment.name} is not written")
            if self.left == 0:
                raise Refused("its lists name more pointers than it has room for")
            self.left -= 1
            yield self.segment, self.offset
            self.advance(POINTER + skip)


def check_type(kind):
    if kind != 1:
        raise Refused("a place that is listed holds no pointer")


def rebases(image, data):
    """The places of the pointers into the image itself."""
    cursor, walk = Cursor(data, "the rebase opcodes"), Walk(image)
    while cursor.more():
        opcode, small = cursor.opcode()
        if opcode == 0x00:
            return
        if opcode == 0x10:
            check_type(small)
        elif opcode == 0x20:
            walk.set(small, cursor.uleb())
        elif opcode == 0x30:
            walk.advance(cursor.uleb())
        elif opcode == 0x40:
            walk.advance(POINTER * small)
        elif opcode == 0x50:
            yield from walk.places(small, 0)
        elif opcode == 0x60:
            yield from walk.places(cursor.uleb(), 0)
        elif opcode == 0x70:
            yield from walk.places(1, cursor.uleb())
        elif opcode == 0x80:
            count = cursor.uleb()
            yield from walk.places(count, cursor.uleb())
        else:
            raise Refused(f"{cursor.what} have the unknown {opcode:#x}")


class BindReader:
    """The state of a list of binds."""

    def __init__(self, image, data, lazy):
        self.cursor = Cursor(data, "the lazy bind opcodes" if lazy else "the bind opcodes")
        self.walk, self.lazy = Walk(image), lazy
        self.bind = Bind(0, 0, b"", 0)

    def read(self):
        """Each place with what it is bound to."""
        while self.cursor.more():
            opcode, small = self.cursor.opcode()
            # Each lazy bind ends with this, since a phone reads one alone; the list goes on.
            if opcode == 0x00 and not self.lazy:
                return
            if opcode in (0x90, 0xA0, 0xB0, 0xC0):
                count, skip = self.run(opcode, small)
                if not self.bind.name:
                    raise Refused("a bind comes before any symbol is named")
                for place in self.walk.places(count, skip):
                    yield place, self.bind
            elif opcode != 0x00:
                self.take(opcode, small)

    def run(self, opcode, small):
        """How many pointers follow, and the bytes between two."""
        if opcode == 0x90:
            return 1, 0
        if opcode == 0xA0:
            return 1, self.cursor.uleb()
        if opcode == 0xB0:
            return 1, POINTER * small
        count = self.cursor.uleb()
        return count, self.cursor.uleb()

    def take(self, opcode, small):
        cursor = self.cursor
        if opcode == 0x10:
            self.bind = self.bind._replace(library=small)
        elif opcode == 0x20:
            self.bind = self.bind._replace(library=cursor.uleb())
        elif opcode == 0x30:
            self.bind = self.bind._replace(library=small - 16 if small else 0)
        elif opcode == 0x40:
            self.bind = self.bind._replace(flags=small, name=cursor.text())
        elif opcode == 0x50:
            check_type(small)
        elif opcode == 0x60:
            self.bind = self.bind._replace(addend=cursor.uleb(signed=True))
        elif opcode == 0x70:
            self.walk.set(small, cursor.uleb())
        elif opcode == 0x80:
            self.walk.advance(cursor.uleb())
        else:
            raise Refused(f"{cursor.what} have the unknown {opcode:#x}")


def binds(image, data, lazy):
    return BindReader(image, data, lazy).read()

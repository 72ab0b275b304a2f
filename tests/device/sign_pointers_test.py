#!/usr/bin/env python3
"""Tests of device/sign_pointers.py: sign_pointers_test.py.

Random pointers go in as a linker leaves them, and the same come out by a reader that knows nothing of the
tool (device/auditing). The same numbers are drawn in every run. What is malformed is refused by name, and
damaged files end in a refusal or in a file, never in anything else.
"""

import pathlib
import random
import struct
import subprocess
import sys
import tempfile
import unittest

import linked_dylib
from linked_dylib import DATA, Place

DEVICE = pathlib.Path(__file__).resolve().parents[2] / "device"
sys.path.insert(0, str(DEVICE))

from auditing import macho, signature, threads  # noqa: E402 (found by the path above)
from signing.image import Refused  # noqa: E402
from signing.objects import with_plain_relocations  # noqa: E402
from signing.threads import with_threads  # noqa: E402

SEED, ROUNDS, MUTATIONS = 20260101, 300, 3000
FUNCTION = (0, 0, False)


def random_signing(source):
    return (source.randrange(4), source.randrange(1 << 16), bool(source.randrange(2)))


def random_bind(source):
    library = source.choice([-2, -1, 0, 1, 7, 15, 16, 300])
    addend = source.choice([0, 0, 8, -8, 1 << 40, -(1 << 40)])
    return (library, f"_s{source.randrange(40)}", addend)


def random_places(source, pages):
    places = []
    for index in sorted(source.sample(range(pages * 2048), source.randrange(1, 200))):
        signing = random_signing(source) if source.randrange(2) else None
        if source.randrange(2):
            library, symbol, addend = random_bind(source)
            bind = (library, symbol, 0 if signing else addend)
            places.append(Place(8 * index, bind=bind, lazy=bool(source.randrange(2)), signing=signing))
        else:
            places.append(Place(8 * index, target=source.randrange(1 << 22), signing=signing))
    return places


def expected(place):
    signing = place.signing and threads.Signing(threads.KEYS[place.signing[0]], *place.signing[1:])
    library, symbol, addend = place.bind or (None, None, 0)
    return threads.Pointer(DATA + place.offset, place.target, symbol, library, addend, signing)


def read(data):
    return list(threads.read_threads(macho.read_dylib(data)))


class ThreadsTest(unittest.TestCase):
    def test_pointers_come_out_as_they_went_in(self):
        source = random.Random(SEED)
        for _ in range(ROUNDS):
            pages = source.randrange(1, 4)
            places = random_places(source, pages)
            out, _ = with_threads(linked_dylib.linked(places, source, pages, slack=2000))
            self.assertEqual(read(out), [expected(place) for place in places])
            dylib = macho.read_dylib(out)
            self.assertEqual(dylib.slice, "arm64e")
            self.assertIsNone(signature.signature_fault(dylib))

    def test_nothing_else_changes(self):
        """Text, what lies between the pointers, and what stands behind the lists."""
        source = random.Random(SEED + 1)
        places = random_places(source, 1)
        before = linked_dylib.linked(places, source, 1, slack=2000)
        after, _ = with_threads(before)
        self.assertEqual(len(before), len(after))
        kept = {DATA + place.offset for place in places}
        for at in range(DATA, 2 * DATA, 8):
            if at not in kept:
                self.assertEqual(before[at : at + 8], after[at : at + 8])
        at = before.index(b"exports!")
        self.assertEqual(after[at : at + 8], b"exports!")
        self.assertEqual(before[400:DATA], after[400:DATA])

    def test_same_bytes_each_time(self):
        places = random_places(random.Random(SEED), 2)
        files = [with_threads(linked_dylib.linked(places, random.Random(1), 2, slack=2000)) for _ in range(2)]
        self.assertEqual(*files)

    def test_each_page_has_a_thread_of_its_own(self):
        places = [Place(offset, target=16) for offset in (0, 4088, 4096, 8184, 12288)]
        out, _ = with_threads(linked_dylib.linked(places, random.Random(0)))
        start, size = macho.read_dylib(out).dyld_info[2:4]
        self.assertEqual(out[start : start + size].count(b"\xd1"), 3)  # of four pages one is empty
        self.assertEqual([one.address - DATA for one in read(out)], [0, 4088, 4096, 8184, 12288])

    def test_an_initialiser_is_signed_as_a_function(self):
        places = [Place(0, target=0x100), Place(8, target=0x200, signing=FUNCTION), Place(16, target=0x300)]
        out, told = with_threads(linked_dylib.linked(places, random.Random(0), initialisers=2))
        function = threads.Signing("IA", 0, False)
        self.assertEqual([one.signing for one in read(out)], [function, function, None])
        self.assertEqual(told, "3 pointers into itself, 0 to 0 symbols, 2 signed")

    def test_no_pointers_at_all(self):
        out, told = with_threads(linked_dylib.linked([], random.Random(0)))
        self.assertEqual(read(out), [])
        self.assertEqual(told, "0 pointers into itself, 0 to 0 symbols, 0 signed")


class RefusedDylibTest(unittest.TestCase):
    def refused(self, expected_text, places=(Place(0, target=16),), spoil=None, **options):
        data = bytearray(linked_dylib.linked(list(places), random.Random(0), **options))
        if spoil:
            spoil(data)
        with self.assertRaises(Refused) as caught:
            with_threads(data)
        self.assertIn(expected_text, str(caught.exception))

    def at(self, at, layout, *values):
        return lambda data: struct.pack_into(layout, data, at, *values)

    def info(self, at, *values):
        """Numbers in the dyld command."""

        def spoil(data):
            struct.pack_into(f"<{len(values)}I", data, data.index(struct.pack("<2I", 0x80000022, 48)) + at, *values)

        return spoil

    def opcode(self, old, new):
        def spoil(data):
            at = data.index(old, 3 * DATA)
            data[at : at + len(new)] = new

        return spoil

    def test_other_files(self):
        self.refused("no 64-bit Mach-O file for arm64", spoil=self.at(0, "<I", 0xFEEDFACE))
        self.refused("no 64-bit Mach-O file for arm64", spoil=self.at(4, "<I", 7))
        self.refused("no dynamic library", spoil=self.at(12, "<I", 1))

    def test_a_file_that_is_done(self):
        self.refused("its CPU subtype is 0x2", spoil=self.at(8, "<I", 2))

    def test_initialiser_signed_otherwise(self):
        place = Place(0, target=0x100, signing=(0, 0xD9D4, False))
        self.refused("signed, but not as a function of C", [place], initialisers=1)

    def test_initialisers_as_offsets(self):
        self.refused(
            "before 13.4 calls unsigned",
            initialisers=1,
            spoil=lambda data: data.__setitem__(data.index(b"__mod_init_func") + 64, 0x16),
        )

    def test_signed_pointer_beside_a_symbol(self):
        place = Place(0, bind=(1, "_f", 0), signing=FUNCTION)
        # The addend that the signing makes has a low half of zero; here it is 1.
        plain = linked_dylib.sleb(place.signing_bits() - (1 << 64))
        beside = linked_dylib.sleb((place.signing_bits() | 1) - (1 << 64))
        self.refused("leads beside _f", [place], spoil=self.opcode(plain, beside))

    def test_target_outside_the_image(self):
        self.refused("no place of the image", [Place(0, target=1 << 42)])
        self.refused("no place of the image", [Place(0, target=0xFFFFFFFF, signing=FUNCTION)])

    def test_pointer_that_is_not_aligned(self):
        self.refused("not aligned", [Place(4, target=16)])

    def test_weak_binds(self):
        self.refused("weak binds", spoil=self.info(8 + 20, 8))

    def test_something_between_the_lists(self):
        def spoil(data):
            at = data.index(struct.pack("<2I", 0x80000022, 48)) + 8
            start, size = struct.unpack_from("<2I", data, at)
            struct.pack_into("<2I", data, at, start, size - 1)

        self.refused("something lies between its lists", spoil=spoil)

    def test_no_room_for_the_threads(self):
        # One rebase opcode for each of many pages, and a thread for each as well, with its symbol table.
        places = [Place(4096 * page, target=16) for page in range(40)]
        data = linked_dylib.linked(places, random.Random(0), pages=10, slack=0)
        at = data.index(struct.pack("<2I", 0x80000022, 48)) + 8
        short = bytearray(data)
        start = struct.unpack_from("<I", data, at)[0]
        run = b"\x11\x21\0\x80\x28" + linked_dylib.uleb(4088) + b"\0"
        short[start : start + len(run)] = run
        struct.pack_into("<8I", short, at, start, len(run), 0, 0, 0, 0, 0, 0)
        with self.assertRaises(Refused) as caught:
            with_threads(short)
        self.assertRegex(str(caught.exception), r"its threads take \d+ bytes of 8")

    def test_lists_that_are_malformed(self):
        self.refused("have the unknown 0xf0", spoil=self.opcode(b"\x11\x21\0", b"\xf0"))
        self.refused("holds no pointer", spoil=self.opcode(b"\x11\x21\0", b"\x12"))
        self.refused("a pointer lies where __TEXT is not written", spoil=self.opcode(b"\x11\x21\0", b"\x20\0\x51"))
        self.refused("a pointer lies in no segment", spoil=self.opcode(b"\x11\x21\0", b"\x29\0\x51"))
        endless = b"\x80" + linked_dylib.uleb(1 << 60) + linked_dylib.uleb((1 << 64) - 8)
        self.refused(
            "more pointers than it has room for",
            [Place(8 * index, target=16) for index in range(20)],
            spoil=self.opcode(b"\x11\x21\0", b"\x11\x21\0" + endless),
        )

    def test_no_signature(self):
        def spoil(data):
            at = data.index(struct.pack("<2I", 0x1D, 16))
            struct.pack_into("<I", data, at, 0x2B)

        self.refused("no code signature", spoil=spoil)

    def test_other_hashes(self):
        def spoil(data):
            data[data.index(struct.pack(">I", 0xFADE0C02)) + 37] = 1

        self.refused("other hashes than SHA-256", spoil=spoil)

    def test_every_truncation(self):
        data = linked_dylib.linked([Place(0, target=16)], random.Random(0), pages=1)
        for length in [*range(0, 700), *range(700, len(data), 97)]:
            with self.assertRaises(Refused):
                with_threads(data[:length])


class DamagedDylibTest(unittest.TestCase):
    def test_a_refusal_or_a_file(self):
        source = random.Random(SEED)
        places = random_places(source, 1)[:40]
        sound = linked_dylib.linked(places, source, 1, initialisers=1)
        interesting = [*range(420), *range(2 * DATA, len(sound)), *(DATA + place.offset for place in places)]
        refusals = 0
        for _ in range(MUTATIONS):
            data = bytearray(sound)
            for _ in range(source.randrange(1, 5)):
                data[source.choice(interesting)] = source.randrange(256)
            try:
                out, _ = with_threads(data)
                self.assertEqual(len(out), len(sound))
            except Refused as problem:
                self.assertNotIn("\n", str(problem))
                refusals += 1
        self.assertGreater(refusals, 0)
        self.assertLess(refusals, MUTATIONS)


HELD_AT, RELOCATIONS_AT = 0x100, 0x180


def object_file(held, flags, subtype=0x80000002, kind=1, at=0, section_kind=0):
    """An object with one section of 64 bytes, and one relocation for each pair of the lists."""
    section = struct.pack(
        "<16s16s2Q8I", b"__const", b"__DATA", 0, 64, HELD_AT, 3, RELOCATIONS_AT, len(held), section_kind, 0, 0, 0
    )
    command = struct.pack("<2I16s4Q4I", 0x19, 152, b"", 0, 64, HELD_AT, 64, 7, 7, 1, 0) + section
    data = struct.pack("<8I", 0xFEEDFACF, 0x0100000C, subtype, kind, 1, len(command), 0, 0) + command
    data = bytearray(data.ljust(RELOCATIONS_AT + 8 * len(held), b"\xaa"))
    for index, (value, flag) in enumerate(zip(held, flags)):
        struct.pack_into("<Q", data, HELD_AT + 8 * index, value)
        struct.pack_into("<2I", data, RELOCATIONS_AT + 8 * index, at or 8 * index, flag)
    return bytes(data)


POINTER = 3 << 25 | 1 << 27  # eight bytes, of a symbol
SIGNED_POINTER = 11 << 28 | POINTER
HELD = 1 << 63


class ObjectsTest(unittest.TestCase):
    def refused(self, expected_text, *arguments, **options):
        with self.assertRaises(Refused) as caught:
            with_plain_relocations(object_file(*arguments, **options))
        self.assertIn(expected_text, str(caught.exception))

    def test_only_the_kind_of_signed_relocations_changes(self):
        source = random.Random(SEED)
        for _ in range(ROUNDS):
            kinds = [source.choice([0, 1, 11]) for _ in range(source.randrange(1, 9))]
            held = [HELD | source.randrange(1 << 51) & ~(1 << 31) for _ in kinds]
            symbols = [source.randrange(1 << 24) for _ in kinds]
            flags = [kind << 28 | POINTER | symbol for kind, symbol in zip(kinds, symbols)]
            wanted = [(0 if kind == 11 else kind) << 28 | POINTER | one for kind, one in zip(kinds, symbols)]
            out, changed = with_plain_relocations(object_file(held, flags))
            self.assertEqual(changed, kinds.count(11))
            self.assertEqual(out, object_file(held, wanted))

    def test_what_no_linker_could_add_to(self):
        self.refused("does not say how it is signed", [0x1234], [SIGNED_POINTER])
        self.refused("does not say how it is signed", [HELD | 1 << 62], [SIGNED_POINTER])
        self.refused("points before its symbol", [HELD | 0xFFFFFFF8], [SIGNED_POINTER])
        self.refused("otherwise than by the address of a symbol", [HELD], [SIGNED_POINTER ^ 1 << 25])
        self.refused("otherwise than by the address of a symbol", [HELD], [SIGNED_POINTER ^ 1 << 24])
        self.refused("otherwise than by the address of a symbol", [HELD], [SIGNED_POINTER ^ 1 << 27])
        self.refused("outside its section", [HELD], [SIGNED_POINTER], at=60)
        self.refused("outside its section", [HELD], [SIGNED_POINTER], section_kind=1)

    def test_other_files(self):
        self.refused("no object for arm64e", [HELD], [SIGNED_POINTER], subtype=0)
        self.refused("no object for arm64e", [HELD], [SIGNED_POINTER], kind=6)

    def test_damaged_objects_are_refused_or_read(self):
        source = random.Random(SEED)
        sound = object_file([HELD] * 4, [SIGNED_POINTER] * 4)
        for _ in range(MUTATIONS):
            data = bytearray(sound)
            for _ in range(source.randrange(1, 5)):
                data[source.randrange(len(data))] = source.randrange(256)
            try:
                with_plain_relocations(data[: source.randrange(len(data)) if source.randrange(4) == 0 else None])
            except Refused:
                pass


class CommandTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_tool(self, *words):
        return subprocess.run(
            [sys.executable, "-B", DEVICE / "sign_pointers.py", *words],
            capture_output=True, text=True, check=False,
        )  # fmt: skip

    def test_dylib_in_place(self):
        path = self.folder / "x.dylib"
        path.write_bytes(linked_dylib.linked([Place(0, bind=(1, "_f", 0))], random.Random(0)))
        done = self.run_tool("dylib", path)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(done.stdout, "x.dylib: 0 pointers into itself, 1 to 1 symbols, 0 signed\n")
        self.assertEqual(read(path.read_bytes())[0].symbol, "_f")

    def test_what_is_refused_stays_as_it_was(self):
        path = self.folder / "x.dylib"
        path.write_bytes(b"no dylib at all" * 10)
        done = self.run_tool("dylib", path)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, f"sign_pointers: {path}: it is no 64-bit Mach-O file for arm64\n")
        self.assertEqual(path.read_bytes(), b"no dylib at all" * 10)

    def test_objects_below_another_folder(self):
        start = self.folder / "from"
        (start / "a").mkdir(parents=True)
        (start / "a/x.obj").write_bytes(object_file([HELD], [SIGNED_POINTER]))
        into = self.folder / "into"
        done = self.run_tool("objects", "--from", start, "--into", into, start / "a/x.obj")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual((into / "a/x.obj").read_bytes(), object_file([HELD], [POINTER]))
        self.assertEqual((into / "objects.txt").read_text(), f"{into}/a/x.obj\n")

    def test_missing_file(self):
        done = self.run_tool("dylib", self.folder / "none")
        self.assertEqual(done.returncode, 1)
        self.assertNotIn("Traceback", done.stderr)


if __name__ == "__main__":
    unittest.main()

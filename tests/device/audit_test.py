#!/usr/bin/env python3
"""Tests of device/audit.py: audit_test.py PATH-OF-A-GOOD-DYLIB.

The dylib has both slices; the linker's maps stand beside it, as Vantori.arm64.map and
Vantori.arm64e.map. Each case spoils a copy of one slice, of its map, of the stubs or of the tables in one
way that a phone or a reader of the package would mind, and expects the one line that says so.
"""

import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

DEVICE = pathlib.Path(__file__).resolve().parents[2] / "device"
sys.path[:0] = [str(DEVICE), str(pathlib.Path(__file__).resolve().parent)]

import damage  # noqa: E402 (found by the path above)
from auditing import fat, link_map, macho, selectors  # noqa: E402

LC_VERSION_MIN_IPHONEOS, LC_CODE_SIGNATURE, LC_UUID = 0x25, 0x1D, 0x1B
LC_BUILD_VERSION = 0x32
LC_DYLD_CHAINED_FIXUPS = 0x80000034


class Auditing(unittest.TestCase):
    good: pathlib.Path
    slice = "arm64"

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.stubs = self.folder / "stubs"
        shutil.copytree(DEVICE / "stubs", self.stubs)
        self.platform = self.folder / "platform"
        shutil.copytree(DEVICE / "platform", self.platform)
        self.maps = {}
        for name in ("arm64", "arm64e"):
            self.maps[name] = self.folder / f"Vantori.{name}.map"
            shutil.copy(self.good.with_suffix(f".{name}.map"), self.maps[name])
        self.map = self.maps[self.slice]
        self.parts = {macho.read_dylib(one).slice: one for one in fat.parts_of(self.good.read_bytes())}
        self.data = bytearray(self.parts[self.slice])

    def audit(self, *options):
        dylib = self.folder / "Vantori.dylib"
        dylib.write_bytes(self.data)
        return subprocess.run(
            [
                sys.executable, "-B", DEVICE / "audit.py", dylib,
                *(word for one in self.maps.values() for word in ("--map", one)), "--stubs", self.stubs, "--platform", self.platform, *options,
            ],  # fmt: skip
            capture_output=True,
            text=True,
            check=False,
        )

    def refused(self, expected, *options):
        done = self.audit(*options)
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertIn(expected, done.stdout + done.stderr)
        self.assertNotIn("Traceback", done.stderr)

    def command(self, wanted):
        """Where the load command of this kind starts."""
        at = 32
        for _ in range(struct.unpack_from("<I", self.data, 16)[0]):
            kind, size = struct.unpack_from("<2I", self.data, at)
            if kind == wanted:
                return at
            at += size
        self.fail(f"no load command {wanted:#x}")

    def edit(self, path, old, new):
        text = path.read_text()
        self.assertIn(old, text)
        path.write_text(text.replace(old, new))

    def edit_stub(self, name, old, new):
        self.edit(self.stubs / f"{name}.tbd", old, new)

    def edit_table(self, name, old, new):
        self.edit(self.platform / f"{name}.tsv", old, new)

    def drop_row(self, name, start):
        path = self.platform / f"{name}.tsv"
        kept = [line for line in path.read_text().splitlines(True) if not line.startswith(start)]
        self.assertLess(len(kept), len(path.read_text().splitlines()))
        path.write_text("".join(kept))

    def plant(self, kind, class_name, selector, old, new):
        """Gives a hook or a method another encoding, as the compiler would spell it."""
        start = {"hook": link_map.HOOK, "method": link_map.METHOD}[kind]
        mangled = {text: "".join(f"Lc{ord(one)}E" for one in text) for text in (class_name, selector, old, new)}
        owner = mangled[class_name] if kind == "hook" else f"{len(class_name)}{class_name}E"
        lines = self.map.read_text().splitlines(True)
        wanted = [
            index for index, line in enumerate(lines)
            if start in line and line.index(start) < line.find(owner) < line.find(f"{mangled[selector]}E")
        ]  # fmt: skip
        self.assertEqual(len(wanted), 1, f"{kind} {class_name} {selector}")
        line = lines[wanted[0]]
        self.assertEqual(line.count(f"_c{mangled[old]}E"), 1)
        lines[wanted[0]] = line.replace(f"_c{mangled[old]}E", f"_c{mangled[new]}E")
        self.map.write_text("".join(lines))


class AuditTest(Auditing):
    def test_good_file_passes(self):
        done = self.audit()
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn(f"arm64: {len(self.data)} bytes", done.stdout)

    def test_symbol_that_no_stub_lists(self):
        self.edit_stub("CydiaSubstrate", "- _MSHookMessageEx\n", "")
        self.refused("error: _MSHookMessageEx is not in the stub of /Library/Frameworks/CydiaSubstrate")

    def test_symbol_that_nothing_uses(self):
        self.edit_stub("CydiaSubstrate", "- _MSHookMessageEx\n", "- _MSHookMessageEx\n      - _MSUnused\n")
        self.refused("CydiaSubstrate lists _MSUnused, which nothing uses: take it out")

    def test_symbol_of_which_nobody_knows_that_the_system_has_it(self):
        self.drop_row("symbols", "_MSHookMessageEx\t")
        self.refused("error: nothing says that the system has _MSHookMessageEx: add to device/platform/symbols.tsv")

    def test_symbol_of_another_library(self):
        self.edit_table("symbols", "_NSLog\t/System/Library/Frameworks/Foundation", "_NSLog\t/usr/lib/Other")
        self.refused("error: _NSLog is in /usr/lib/Other.framework/Foundation, not in /System/Library/Frameworks/")

    def test_symbol_of_a_later_system(self):
        self.edit_table("symbols", "CydiaSubstrate\t2.0\t", "CydiaSubstrate\t12.2\t")
        self.refused("error: _MSHookMessageEx is there from iOS 12.2 only")

    def test_encoding_of_a_hook(self):
        self.plant("hook", "SBLockScreenManager", "lockUIFromSource:withOptions:", "v@:i@", "v@:q@")
        self.refused(
            "error: hook -[SBLockScreenManager lockUIFromSource:withOptions:] expects v@:q@, but the system has v@:i@"
        )

    def test_encoding_of_a_later_form(self):
        selector = "grabberTongueBeganPulling:withDistance:andVelocity:andGesture:"
        self.plant("hook", "SBControlCenterController", selector, "v@:@dd@", "v@:@df@")
        self.refused(f"error: hook -[SBControlCenterController {selector}] expects v@:@df@, but")

    def test_encoding_of_a_method(self):
        selector = "gestureRecognizer:shouldReceiveTouch:"
        self.plant("method", "VNTToolBarController", selector, "B@:@@", "v@:@@")
        self.refused(f"-[VNTToolBarController {selector}] has the encoding v@:@@, but not as in UIGestureRecognizerDelegate (B@:@@)")

    def test_method_that_only_shares_a_name(self):
        selector = "gestureRecognizer:shouldReceiveTouch:"
        self.plant("method", "VNTToolBarController", selector, "B@:@@", "v@:@@")
        with (self.platform / "own_methods.tsv").open("a") as table:
            table.write(f"VNTToolBarController\t{selector}\tv@:@@\ta test\n")
        done = self.audit()
        self.assertNotIn("has the encoding", done.stdout)

    def test_hook_that_no_table_knows(self):
        self.drop_row("private_methods", "SBLockScreenManager\t")
        self.refused("private_methods.tsv the row 'SBLockScreenManager - lockUIFromSource:withOptions: v@:i@'")

    def test_message_that_no_table_knows(self):
        self.drop_row("private_methods", "BSPlatform\t-\thomeButtonType\t")
        self.refused("error: the message homeButtonType is not known: add a row for it")

    def test_message_that_only_other_classes_have(self):
        self.drop_row("private_methods", "FBProcessManager\t+\tsharedInstance\t")
        self.refused(
            "error: nothing says that the system has +[FBProcessManager sharedInstance], which FBProcessManager sends"
        )

    def place_in(self, name):
        """Where a section starts in the file."""
        return selectors.section_of(macho.read_dylib(bytes(self.data)), name).offset

    def test_selector_without_a_name(self):
        at = self.place_in(selectors.REFERENCES)
        first = struct.unpack_from("<Q", self.data, at)[0]
        struct.pack_into("<Q", self.data, at, first + 1)
        self.refused("leads to no name of a selector")

    def test_selectors_that_the_runtime_would_pass_over(self):
        at = self.data.index(b"__objc_imageinfo")
        self.data[at : at + 16] = b"__other_imageinf"
        self.edit(self.map, "__objc_imageinfo", "__other_imageinf")
        self.refused("error: __DATA,__objc_imageinfo is not eight zero bytes")

    def test_library_without_selectors(self):
        at = self.data.index(b"__objc_selrefs\0")
        self.data[at : at + 14] = b"__other_select"
        self.edit(self.map, "__objc_selrefs", "__other_select")
        self.refused("error: it has no references to selectors")

    def test_class_that_no_table_knows(self):
        self.drop_row("public_methods", "UIImpactFeedbackGenerator\t")
        self.refused("error: the class UIImpactFeedbackGenerator is not known")

    def test_need_of_a_form_that_no_table_knows(self):
        self.drop_row("private_methods", "SBUIFlashlightController\t-\tturnFlashlightOn\t")
        self.refused(
            "error: the form 'without a reason' of flashlight needs -[SBUIFlashlightController turnFlashlightOn], "
            "which is not known: add a row for it to device/platform/private_methods.tsv"
        )

    def test_encoding_of_a_form(self):
        self.edit_table("private_methods", "takeModeAssertionWithDetails:error:\t@@:@^@", "takeModeAssertionWithDetails:error:\tB@:@^@")
        self.refused(
            "error: the form 'DoNotDisturb services' of do not disturb sends "
            "-[DNDModeAssertionService takeModeAssertionWithDetails:error:] as @@:@^@, but the system has B@:@^@"
        )

    def test_symbol_that_is_looked_up_and_that_no_table_knows(self):
        self.drop_row("looked_up_symbols", "BKSDisplayBrightnessSet\t")
        self.refused(
            "error: the form 'BackBoardServices' of brightness needs BKSDisplayBrightnessSet of /System/Library/"
        )

    def test_symbol_that_is_looked_up_in_another_library(self):
        self.edit_table("looked_up_symbols", "Frameworks/MediaRemote.framework", "Frameworks/Other.framework")
        self.refused("of now playing needs MRMediaRemoteGetNowPlayingInfo of /System/Library/PrivateFrameworks/")

    def test_form_that_no_system_takes(self):
        path = self.platform / "private_methods.tsv"
        kept = [
            line for line in path.read_text().splitlines(True)
            if not line.startswith(("SBBrightnessController\tclass", "SBBrightnessController\t+"))
        ]  # fmt: skip
        kept.append("SBBrightnessController\t+\tsharedBrightnessController\t@@:\t11.1 14.6\t.\t.\t.\n")
        kept = [line.replace("13.6s 13.7s 14.0 14.2 14.3 14.6\tfrom 13.6", ".\tfrom 13.6") for line in kept]
        path.write_text("".join(kept))
        self.refused("error: the form 'SBDisplayBrightnessController' of brightness is taken on no system")

    def test_which_system_takes_which_form(self):
        said = self.audit("--forms").stdout
        self.assertIn("player commands:\n  with an event source: 12.0-14.8\n  without an event source: 11.0-11.4\n", said)
        self.assertIn("flashlight:\n  with a reason: 12.0-14.8\n  without a reason: 11.0-11.4\n", said)
        self.assertIn(
            "brightness:\n  SBBrightnessController: 11.0-13.5\n  SBDisplayBrightnessController: 14.0-14.8\n"
            "  BackBoardServices: 13.6-13.7\n",
            said,
        )
        self.assertIn("now playing:\n  MPUNowPlayingController: 11.0-13.7\n  MediaRemote: 14.0-14.8\n", said)
        self.assertIn("  BKSDisplayBrightnessSet of /System/Library/PrivateFrameworks/BackBoardServices", said)

    def test_table_with_a_column_too_few(self):
        with (self.platform / "private_methods.tsv").open("a") as table:
            table.write("SBLonely\t-\n")
        self.refused("2 columns, not the 8 of the first line")

    def test_map_of_another_file(self):
        self.edit(self.map, "__TEXT\t__cstring", "__TEXT\t__other")
        self.refused("is the map of another file")

    def test_no_map(self):
        self.map.write_text("nothing\n")
        self.refused("is no map of the linker")

    def test_load_command_of_later_systems(self):
        struct.pack_into("<I", self.data, self.command(LC_UUID), LC_DYLD_CHAINED_FIXUPS)
        self.refused("error: load command 0x80000034 is none that iOS 11 knows")

    def test_second_function_that_runs_at_load(self):
        name = self.data.index(b"__cstring\0")
        size, kind = name + 40, name + 64  # of a section header: its size and its type
        struct.pack_into("<I", self.data, kind, macho.INITIALISERS)
        more = struct.unpack_from("<Q", self.data, size)[0] // 8 + 1
        self.refused(f"error: {more} functions run when the library is loaded")

    def test_what_takes_the_room(self):
        done = self.audit("--room", "--messages")
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertRegex(done.stdout, r"\n +\d+ __TEXT,__text\n")
        self.assertRegex(done.stdout, r"\n +\d+ vantori::registerToolBarController\n")
        self.assertRegex(done.stdout, r"\n +\d+ platform::detail::Thunk\n")
        self.assertRegex(
            done.stdout,
            r"-\[SBReachabilityManager _toggleReachabilityMode\] v@:: in 12\.2 13\.2\.2 .*; not in [\w. ]*11\.1\n",
        )

    def test_library_without_a_stub(self):
        (self.stubs / "CydiaSubstrate.tbd").unlink()
        self.refused("CydiaSubstrate, which no stub describes")

    def test_later_lowest_version(self):
        struct.pack_into("<I", self.data, self.command(LC_VERSION_MIN_IPHONEOS) + 8, 12 << 16)
        self.refused("error: lowest iOS is (12, 0), not (11, 0)")

    def test_other_processor(self):
        struct.pack_into("<I", self.data, 4, 0x01000007)
        self.refused("neither arm64 nor arm64e: CPU 0x1000007, subtype 0x0")

    def test_other_kind_of_arm64(self):
        struct.pack_into("<I", self.data, 8, 0x80000002)
        self.refused("neither arm64 nor arm64e: CPU 0x100000c, subtype 0x80000002")

    def test_lists_of_arm64_in_an_arm64e_file(self):
        struct.pack_into("<I", self.data, 8, 2)
        self.refused("its pointers are not threads alone")

    def test_byte_changed_after_signing(self):
        self.data[len(self.data) // 2] ^= 0xFF
        self.refused("was changed after signing")

    def test_no_signature(self):
        struct.pack_into("<I", self.data, self.command(LC_CODE_SIGNATURE), 0x2B)
        self.refused("error: no code signature")

    def test_other_install_name(self):
        at = self.data.index(b"/Library/MobileSubstrate/DynamicLibraries/Vantori.dylib")
        self.data[at + 1] = ord("l")
        self.refused("error: install name is /library/")

    def test_path_of_the_build(self):
        self.refused("error: holds the build path /usr/lib/libobjc", "--forbid", "/usr/lib/libobjc")

    def test_path_of_anybodys_machine(self):
        place = "/" + "home/mobile"  # in two pieces: this file may not hold one either
        at = self.data.index(b"/var/mobile/Library/Preferences/")
        self.data[at : at + len(place)] = place.encode()
        self.refused(f"error: holds a path of the build, {place}")

    def test_file_cut_short(self):
        del self.data[100:]
        self.refused("is cut short or damaged")

    def test_not_a_library_at_all(self):
        self.data[:] = b"hello " * 20
        self.refused("not a 64-bit Mach-O file")


class SignedPointersTest(Auditing):
    """What only arm64e has: each mistake in how the file's pointers are signed."""

    slice = "arm64e"

    def spoil(self, kind):
        self.data = bytearray(damage.damaged(self.data, kind))

    def test_good_file_passes(self):
        done = self.audit()
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertRegex(done.stdout, r"\barm64e: \d+ bytes, .* pointers in threads, [1-9]\d* signed")

    def test_number_of_a_block_function(self):
        self.spoil("number")
        self.refused("10descriptorE) is signed with IA, 0x1, by place in place of IA, 0x0, by place")

    def test_place_of_a_block_function(self):
        self.spoil("place")
        self.refused("10descriptorE) is signed with IA, 0x0 in place of IA, 0x0, by place")

    def test_key_of_a_block_function(self):
        self.spoil("key")
        self.refused("10descriptorE) is signed with DA, 0x0, by place in place of IA, 0x0, by place")

    def test_number_in_a_table(self):
        self.spoil("table")
        self.refused("is signed with IA, 0x1 in place of IA, 0x0")

    def test_functions_that_are_not_signed(self):
        self.spoil("unsigned_table")
        self.refused("leads to a function and is not signed")

    def test_initialiser_signed_the_compilers_way(self):
        self.spoil("initialiser")
        self.refused("is signed with IA, 0xd9d4 in place of IA, 0x0")

    def test_initialiser_that_is_not_signed(self):
        self.spoil("unsigned_initialiser")
        self.refused("leads to a function and is not signed")

    def test_ordinary_rebases(self):
        self.spoil("rebases")
        self.refused("its pointers are not threads alone")

    def test_subtype_with_a_version(self):
        self.spoil("version")
        self.refused("neither arm64 nor arm64e: CPU 0x100000c, subtype 0x80000002")

    def test_selector_that_is_in_no_thread(self):
        dylib = macho.read_dylib(bytes(self.data))
        section = selectors.section_of(dylib, selectors.REFERENCES)
        pointers = [one for one in damage.threads.read_threads(dylib) if one.address != section.address]
        read = selectors.read_references(dylib, pointers)
        self.assertEqual([one.address for one in read if one.name is None], [section.address])

    def test_lowest_version(self):
        at = self.command(LC_BUILD_VERSION) + 12
        struct.pack_into("<I", self.data, at, 11 << 16)
        self.refused("error: lowest iOS is (11, 0), not (12, 0)")

    def test_data_that_is_signed(self):
        dylib = damage.Dylib(bytes(self.data))
        plain = next(one for one in damage.threads.read_threads(dylib.read) if one.target and not one.signing)
        dylib.change([plain.address], lambda held: held | damage.SIGNED)
        self.data = dylib.image.data
        self.refused("is signed (IA, 0x0) and leads to no function")


class BothSlicesTest(Auditing):
    """The file as it goes onto phones, and files that are put together otherwise."""

    def setUp(self):
        super().setUp()
        self.data = bytearray(self.good.read_bytes())

    def joined(self, *parts):
        names = []
        for index, part in enumerate(parts):
            names.append(self.folder / f"part{index}")
            names[-1].write_bytes(part)
        both = self.folder / "both"
        subprocess.run(["llvm-lipo-19", "-create", *names, "-output", both], check=True)
        return bytearray(both.read_bytes())

    def test_good_file_passes(self):
        done = self.audit()
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        for name, part in self.parts.items():
            self.assertIn(f"\n{name}: {len(part)} bytes", "\n" + done.stdout)
        self.assertIn(f"Vantori.dylib: {len(self.data)} bytes, 0 errors", done.stdout)
        self.assertRegex(done.stdout, r"\n  __TEXT,__text: arm64 \d+, arm64e \d+\n")

    def test_put_together_it_is_the_same_file(self):
        self.assertEqual(self.joined(*self.parts.values()), self.data)

    def test_mistake_in_one_slice(self):
        spoilt = damage.damaged(self.parts["arm64e"], "table")
        self.data = self.joined(self.parts["arm64"], spoilt)
        self.refused("error: arm64e: the pointer at")

    def test_slices_that_differ(self):
        """A class that is in one slice under another name of the same length."""
        name = b"VNTSBHostWindow\0"
        other = bytes(self.parts["arm64e"]).replace(name, b"VNTSBHostWindom\0")
        self.data = self.joined(self.parts["arm64"], other)
        self.refused("error: both: the class VNTSBHostWindo")

    def test_list_that_names_another_processor(self):
        self.data[15] ^= 2
        self.refused("the list of architectures names another than the part itself")

    def test_part_outside_the_file(self):
        del self.data[len(self.data) // 2 :]
        self.refused("an architecture lies outside the file or in another")

    def test_map_is_missing(self):
        del self.maps["arm64e"]
        self.refused("no map fits its arm64e slice")


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    Auditing.good = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()

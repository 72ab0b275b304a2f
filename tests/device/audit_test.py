#!/usr/bin/env python3
"""Tests of device/audit.py: audit_test.py PATH-OF-A-GOOD-DYLIB.

The linker's map stands beside the dylib, as Vantori.map. Each case spoils a copy of the dylib, of its
map, of the stubs or of the tables in one way that a phone or a reader of the package would mind, and
expects the one line that says so.
"""

import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

DEVICE = pathlib.Path(__file__).resolve().parents[2] / "device"
sys.path.insert(0, str(DEVICE))

from auditing import link_map, macho  # noqa: E402 (found by the path above)

LC_VERSION_MIN_IPHONEOS, LC_CODE_SIGNATURE, LC_UUID = 0x25, 0x1D, 0x1B
LC_DYLD_CHAINED_FIXUPS = 0x80000034


class AuditTest(unittest.TestCase):
    good: pathlib.Path

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.stubs = self.folder / "stubs"
        shutil.copytree(DEVICE / "stubs", self.stubs)
        self.platform = self.folder / "platform"
        shutil.copytree(DEVICE / "platform", self.platform)
        self.map = self.folder / "Vantori.map"
        shutil.copy(self.good.with_suffix(".map"), self.map)
        self.data = bytearray(self.good.read_bytes())

    def audit(self, *options):
        dylib = self.folder / "Vantori.dylib"
        dylib.write_bytes(self.data)
        return subprocess.run(
            [
                sys.executable, "-B", DEVICE / "audit.py", dylib, "--map", self.map,
                "--stubs", self.stubs, "--platform", self.platform, *options,
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
        """Writes another encoding where the dylib holds that of a hook or of a method."""
        start = {"hook": link_map.HOOK, "method": link_map.METHOD}[kind]
        dylib = macho.read_dylib(bytes(self.data))
        for symbol, encoding in link_map.LinkMap(self.map).encodings(start, dylib):
            stem = symbol.name.removesuffix(link_map.ENCODING)
            names = link_map.texts(stem)
            owner = names.pop(0) if kind == "hook" else link_map.first_type(stem.removeprefix(start))
            if (owner, names[0]) == (class_name, selector):
                self.assertEqual((encoding, len(old)), (old, len(new)))
                section = next(one for one in dylib.sections if one.holds(symbol.address))
                at = section.offset + symbol.address - section.address
                self.data[at : at + len(new)] = new.encode()
                return
        self.fail(f"no {kind} {class_name} {selector}")

    def test_good_file_passes(self):
        done = self.audit()
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn(f"{len(self.data)} bytes", done.stdout)

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
        self.assertRegex(done.stdout, r"\n +\d+ toolbar/toolbar_controller\.cpp\n")
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
        self.refused("not arm64")

    def test_other_kind_of_arm64(self):
        struct.pack_into("<I", self.data, 8, 2)
        self.refused("not arm64: CPU 0x100000c, subtype 0x2")

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


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    AuditTest.good = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()

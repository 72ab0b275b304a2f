#!/usr/bin/env python3
"""Tests of device/audit.py: audit_test.py PATH-OF-A-GOOD-DYLIB.

Each case spoils a copy of the dylib, or of the stubs, in one way that a phone's loader or a
reader of the package would mind, and expects the one line that says so.
"""

import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

DEVICE = pathlib.Path(__file__).resolve().parents[2] / "device"
LC_VERSION_MIN_IPHONEOS, LC_CODE_SIGNATURE = 0x25, 0x1D


class AuditTest(unittest.TestCase):
    good: pathlib.Path

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.stubs = self.folder / "stubs"
        shutil.copytree(DEVICE / "stubs", self.stubs)
        self.data = bytearray(self.good.read_bytes())

    def audit(self, *options):
        dylib = self.folder / "Vantori.dylib"
        dylib.write_bytes(self.data)
        return subprocess.run(
            [sys.executable, "-B", DEVICE / "audit.py", dylib, "--stubs", self.stubs, *options],
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

    def edit_stub(self, name, old, new):
        path = self.stubs / f"{name}.tbd"
        text = path.read_text()
        self.assertIn(old, text)
        path.write_text(text.replace(old, new))

    def test_good_file_passes(self):
        done = self.audit()
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn(f"{len(self.data)} bytes", done.stdout)

    def test_symbol_that_no_stub_lists(self):
        self.edit_stub("CydiaSubstrate", "- _MSHookMessageEx\n", "")
        self.refused("error: _MSHookMessageEx is not in the stub of /Library/Frameworks/CydiaSubstrate")

    def test_unused_symbol_is_only_a_warning(self):
        self.edit_stub("CydiaSubstrate", "- _MSHookMessageEx\n", "- _MSHookMessageEx\n      - _MSUnused\n")
        done = self.audit()
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertRegex(done.stdout, "warning: of /Library/Frameworks/CydiaSubstrate.*: _MSUnused\n")

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

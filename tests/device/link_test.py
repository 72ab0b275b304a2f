#!/usr/bin/env python3
"""Tests that the link of the device build refuses what no library of the system has: link_test.py.

The stubs of device/stubs are all that the linker sees of the system, so a misspelt symbol is found
here and not on somebody's phone, where the library would just not load.
"""

import pathlib
import subprocess
import tempfile
import unittest

STUBS = pathlib.Path(__file__).resolve().parents[2] / "device/stubs"


class LinkTest(unittest.TestCase):
    def link(self, symbol):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            source = f".globl _asks\n_asks: b {symbol}\n.subsections_via_symbols\n"
            (folder / "asks.s").write_text(source)
            subprocess.run(
                ["clang-19", "-target", "arm64-apple-ios11.0", "-c", "asks.s", "-o", "asks.o"],
                cwd=folder,
                check=True,
            )
            return subprocess.run(
                ["ld64.lld-19", "-dylib", "-arch", "arm64", "-platform_version", "ios", "11.0", "14.5"]
                + ["-o", "asks.dylib", "asks.o", *sorted(STUBS.glob("*.tbd"))],
                cwd=folder,
                capture_output=True,
                text=True,
                check=False,
            )

    def test_symbol_of_a_stub_links(self):
        done = self.link("_MSHookMessageEx")
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_misspelt_symbol_does_not(self):
        done = self.link("_MSHookMesageEx")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("undefined symbol: _MSHookMesageEx", done.stderr)

    def test_symbol_of_linux_does_not(self):
        done = self.link("_objc_msg_lookup")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("undefined symbol: _objc_msg_lookup", done.stderr)


if __name__ == "__main__":
    unittest.main()

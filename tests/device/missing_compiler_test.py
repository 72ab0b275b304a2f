#!/usr/bin/env python3
"""Tests what the scripts say where clang-22 is missing: missing_compiler_test.py.

They run with a search path of their own that has no such compiler, and in which what they would build
with does nothing.
"""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
REAL = ("bash", "env", "dirname", "realpath", "sed")
IDLE = ("cmake", "cp", "mkdir", "llvm-lipo-19", "python3", "dpkg-deb", "rsvg-convert")


class MissingCompilerTest(unittest.TestCase):
    def run_script(self, *words, compilers=()):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            for tool in REAL:
                (folder / tool).symlink_to(shutil.which(tool))
            for tool in (*IDLE, *compilers):
                (folder / tool).write_text('#!/bin/sh\necho "$0" "$@"\n')
                (folder / tool).chmod(0o755)
            return subprocess.run(
                words, cwd=REPOSITORY, env={"PATH": name}, capture_output=True, text=True, check=False
            )

    def test_the_library_is_built_for_arm64_alone_and_that_is_said(self):
        done = self.run_script("scripts/build", "device")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("clang-22 is missing, so the library is built for arm64 alone", done.stderr)
        self.assertIn("iPhone XS, XR", done.stderr)
        self.assertIn("scripts/packages --device", done.stderr)
        self.assertIn("--preset device-arm64\n", done.stdout)
        self.assertNotIn("device-arm64e", done.stdout)

    def test_with_it_both_slices_are_built_in_silence(self):
        done = self.run_script("scripts/build", "device", compilers=["clang++-22"])
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("--preset device-arm64\n", done.stdout)
        self.assertIn("--preset device-arm64e\n", done.stdout)

    def test_no_package_is_made(self):
        done = self.run_script("scripts/package")
        self.assertEqual(done.returncode, 1)
        self.assertIn("clang-22 is missing, and without it the library is not for the iPhone XS", done.stderr)
        self.assertEqual(done.stdout, "")


if __name__ == "__main__":
    unittest.main()

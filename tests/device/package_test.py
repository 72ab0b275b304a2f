#!/usr/bin/env python3
"""Tests of the package that scripts/package builds: package_test.py PATH-OF-THE-PACKAGE.

It is unpacked by Debian's own tools elsewhere, and its property lists are read by two readers that
have nothing to do with this project. The last case builds the package anew in another folder, under
another user mask and time zone, and wants the same bytes.
"""

import hashlib
import os
import pathlib
import plistlib
import re
import subprocess
import sys
import tarfile
import tempfile
import unittest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
LIBRARIES = "Library/MobileSubstrate/DynamicLibraries"
SUPPORT = "Library/Application Support/Vantori"
PREFERENCES = "Library/PreferenceLoader/Preferences"
DOCUMENTS = "usr/share/doc/com.ferolin.vantori"
DOMAIN, RELOAD = "com.ferolin.vantoripb", "VantoriPB/reloadSettings"

# Every key of the settings file that changes anything, with what holds while it is absent.
SETTINGS = {
    "enabled": True,
    "replaceCC": False,
    "reachability": False,
    "layoutDirection": 3,
    "noCornerRadius": False,
    "alwaysSpringBoardStyle": True,
    "leftGestureEnabled": True,
    "middleGestureEnabled": False,
    "rightGestureEnabled": False,
    "hideGrabber": False,
}

# Read and kept, and nothing depends on them.
WITHOUT_EFFECT = {"tapToOpen": True}


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, **options).stdout


class PackageTest(unittest.TestCase):
    package: pathlib.Path

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.root = pathlib.Path(folder.name)
        run("dpkg-deb", "--extract", cls.package, cls.root)
        contents = cls.root.parent / f"{cls.root.name}.tar"
        contents.write_bytes(run("dpkg-deb", "--fsys-tarfile", cls.package))
        cls.addClassCleanup(contents.unlink)
        with tarfile.open(contents) as archive:
            cls.members = archive.getmembers()
        cls.pane = plistlib.loads((cls.root / PREFERENCES / "Vantori.plist").read_bytes())

    def field(self, name):
        return run("dpkg-deb", "--field", self.package, name, text=True).strip()

    def files(self):
        return sorted(member.name.removeprefix("./") for member in self.members if member.isfile())

    def items(self):
        return [item for item in self.pane["items"] if "key" in item]

    def test_archive_members_in_order(self):
        names = run("ar", "t", self.package, text=True).split()
        self.assertEqual(names, ["debian-binary", "control.tar.gz", "data.tar.gz"])
        self.assertEqual(run("ar", "p", self.package, "debian-binary"), b"2.0\n")

    def test_named_after_what_it_holds(self):
        parts = (self.field("Package"), self.field("Version"), self.field("Architecture"))
        self.assertEqual(self.package.name, "_".join(parts) + ".deb")
        self.assertEqual(parts[0::2], ("com.ferolin.vantori", "iphoneos-arm"))
        project = (REPOSITORY / "CMakeLists.txt").read_text()
        self.assertIn(f"project(Vantori VERSION {parts[1]} ", project)

    def test_control_fields_that_package_managers_show(self):
        for name in ("Name", "Description", "Author", "Maintainer", "Section", "Installed-Size"):
            self.assertTrue(self.field(name), name)
        self.assertEqual(self.field("Section"), "Tweaks")
        depends = re.split(r",\s*", self.field("Depends"))
        for wanted in ("preferenceloader", "firmware (>= 11.0)", "firmware (<< 15.0)"):
            self.assertIn(wanted, depends)
        self.assertTrue(any(one.startswith("mobilesubstrate") for one in depends), depends)

    def test_no_scripts_run_at_installation(self):
        control = pathlib.Path(tempfile.mkdtemp(dir=self.root))
        run("dpkg-deb", "--control", self.package, control)
        self.assertEqual([path.name for path in control.iterdir()], ["control"])

    def test_nothing_but_what_belongs_on_a_phone(self):
        assets = REPOSITORY / "assets"
        pictures = [
            path.relative_to(assets).as_posix()
            for path in assets.rglob("*.png")
            if not path.is_relative_to(assets / "sources")
        ]
        wanted = [
            f"{LIBRARIES}/Vantori.dylib",
            f"{LIBRARIES}/Vantori.plist",
            f"{PREFERENCES}/Vantori.plist",
            f"{PREFERENCES}/Vantori@2x.png",
            f"{PREFERENCES}/Vantori@3x.png",
            f"{DOCUMENTS}/changelog",
            f"{DOCUMENTS}/copyright",
            *(f"{SUPPORT}/{name}" for name in pictures),
        ]
        self.assertEqual(self.files(), sorted(wanted))
        for name in pictures:
            self.assertEqual((self.root / SUPPORT / name).read_bytes(), (assets / name).read_bytes())

    def test_owners_modes_and_kinds(self):
        for member in self.members:
            with self.subTest(member.name):
                self.assertEqual((member.uid, member.gid), (0, 0))
                self.assertTrue(member.isfile() or member.isdir())
                self.assertEqual(member.mode, 0o755 if member.isdir() else 0o644)
                self.assertEqual(member.mtime, self.members[0].mtime)

    def test_library_is_the_one_that_was_audited(self):
        built = REPOSITORY / "build/device/lib/Vantori.dylib"
        packed = self.root / LIBRARIES / "Vantori.dylib"
        self.assertEqual(packed.read_bytes(), built.read_bytes())
        audit = REPOSITORY / "device/audit.py"
        maps = [word for name in ("arm64", "arm64e") for word in ("--map", built.with_suffix(f".{name}.map"))]
        run(sys.executable, "-B", audit, packed, *maps)

    def test_library_is_for_every_phone(self):
        """Debian's own reader of such files says which processors it is for."""
        packed = self.root / LIBRARIES / "Vantori.dylib"
        self.assertEqual(run("llvm-lipo-19", "-archs", packed, text=True).split(), ["arm64", "arm64e"])

    def test_loaded_into_springboard_alone(self):
        library, list_of_it = "Vantori.dylib", self.root / LIBRARIES / "Vantori.plist"
        self.assertEqual(pathlib.Path(library).stem, list_of_it.stem)
        filter_list = plistlib.loads(list_of_it.read_bytes())
        self.assertEqual(filter_list, {"Filter": {"Bundles": ["com.apple.springboard"]}})

    def test_property_lists_are_read_by_others(self):
        for path in sorted(self.root.rglob("*.plist")):
            with self.subTest(path.name):
                binary = self.root / "copy.plist"
                run("plistutil", "-i", path, "-o", binary)
                self.assertEqual(plistlib.loads(binary.read_bytes()), plistlib.loads(path.read_bytes()))
                binary.unlink()

    def test_pictures_are_pictures(self):
        for path in self.root.rglob("*.png"):
            self.assertEqual(path.read_bytes()[:8], b"\x89PNG\r\n\x1a\n", path.name)

    def test_pane_entry(self):
        entry = self.pane["entry"]
        self.assertEqual((entry["cell"], entry["label"]), ("PSLinkCell", "Vantori"))
        # The loader of entries finds a pane of this simple form by the label of its entry.
        self.assertTrue((self.root / PREFERENCES / f"{entry['label']}.plist").exists())
        self.assertNotIn("bundle", entry)

    def test_pane_holds_each_setting_once(self):
        self.assertEqual(sorted(item["key"] for item in self.items()), sorted(SETTINGS))

    def test_pane_stores_and_announces(self):
        for item in self.items():
            with self.subTest(item["key"]):
                self.assertEqual((item["defaults"], item["PostNotification"]), (DOMAIN, RELOAD))
                self.assertTrue(item["label"])
                self.assertIs(type(item["default"]), type(SETTINGS[item["key"]]))
                self.assertEqual(item["default"], SETTINGS[item["key"]])

    def test_pane_cells_fit_the_values(self):
        for item in self.items():
            with self.subTest(item["key"]):
                if isinstance(item["default"], bool):
                    self.assertEqual(item["cell"], "PSSwitchCell")
                    continue
                self.assertEqual(item["cell"], "PSSegmentCell")
                self.assertEqual(len(item["validValues"]), len(item["validTitles"]))
                self.assertIn(item["default"], item["validValues"])
                self.assertTrue(all(type(value) is int for value in item["validValues"]))

    def test_defaults_are_those_of_the_library(self):
        sources = "".join(
            path.read_text()
            for room in ("settings", "toggles", "pages", "toolbar", "hooks")
            for path in (REPOSITORY / room).glob("*.cpp")
        )
        read = re.findall(r'(?<!\(void\))\bboolSetting\("(\w+)"_ns, (true|false)\)', sources)
        self.assertTrue(read)
        known = SETTINGS | WITHOUT_EFFECT
        for key, default in read:
            with self.subTest(key):
                self.assertEqual(known.get(key), default == "true")
        booleans = {key for key, value in known.items() if isinstance(value, bool)}
        self.assertEqual({key for key, _ in read}, booleans)

    def test_same_bytes_when_built_elsewhere(self):
        with tempfile.TemporaryDirectory() as folder:
            names = run("git", "-C", REPOSITORY, "ls-files", "-zco", "--exclude-standard").split(b"\0")
            copied = b"\0".join(name for name in names if name and (REPOSITORY / os.fsdecode(name)).exists())
            archive = run("tar", "-C", REPOSITORY, "-c", "--null", "-T", "-", input=copied)
            run("tar", "-C", folder, "-x", input=archive)
            environment = {**os.environ, "TZ": "Asia/Tokyo", "CCACHE_DISABLE": "1"}
            script = f"umask 077; cd '{folder}' && scripts/package"
            run("bash", "-c", script, env=environment)
            again = pathlib.Path(folder) / "build/package" / self.package.name
            digests = [hashlib.sha256(path.read_bytes()).hexdigest() for path in (self.package, again)]
            self.assertEqual(*digests)


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    PackageTest.package = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()

"""Tests of what decides whether the list of packages is complete, and of its installer."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(REPOSITORY / "scripts/lib"))

import called_programs
import package_files


class ShellTest(unittest.TestCase):
    def called(self, *lines):
        return called_programs.of_shell("\n".join(lines) + "\n")

    def test_command_words(self):
        self.assertEqual(self.called("one a b; two | three && four || five & six"), set("one two three four five six".split()))
        self.assertEqual(self.called("if ! one; then two; else three; fi", "while four; do five; done"), set("one two three four five".split()))  # fmt: skip

    def test_arguments_comments_and_strings_are_none(self):
        self.assertEqual(self.called("one two 'three; four' \"five; six\" # seven", "# eight; nine"), {"one"})

    def test_substitutions(self):
        self.assertEqual(self.called('x=$(one "$(two | three)") y="a $(four) b" five', "six <(seven)"), set("one two three four five six seven".split()))  # fmt: skip
        self.assertEqual(self.called("x=$((one + 2))", "((two < 3))", "[[ three -lt 4 ]] && four"), {"four"})

    def test_case_patterns_arrays_and_here_documents_are_none(self):
        self.assertEqual(self.called('case "$x" in', "    one | two) three ;;", "    *)", "        four", "        ;;", "esac", "five"), {"three", "four", "five"})  # fmt: skip
        self.assertEqual(self.called("list=(", "    # one", "    two three)", "four <<END", "five", "END", "six"), {"four", "six"})

    def test_what_runs_another_command(self):
        self.assertEqual(self.called("exec env A=1 one", "two | xargs -r -n 40 three", "command -v four", '"${root[@]}" five'), {"env", "one", "two", "xargs", "three", "four", "five"})  # fmt: skip

    def test_own_functions_builtins_and_files_are_none(self):
        self.assertEqual(self.called("one() {", "    echo x", "}", "one", "scripts/two", "three >four 2>&1"), {"three"})


class OtherSourcesTest(unittest.TestCase):
    def test_python(self):
        text = "import subprocess\nsubprocess.run(['one', 'x'] + y)\nrun('two', 3)\nsubprocess.run([sys.executable])\n"
        self.assertEqual(called_programs.of_python(text), {"one", "two"})

    def test_cmake(self):
        text = "find_program(A one)\nset(CMAKE_CXX_COMPILER two)\nset(X -fuse-ld=lld-3)\nset(CMAKE_CROSSCOMPILING_EMULATOR four -L x)\n"
        self.assertEqual(called_programs.of_cmake(text), {"one", "two", "ld.lld-3", "four"})


class OwnersTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()
        self.info = self.root / "info"
        self.info.mkdir()
        (self.root / "libone.so.1").touch()
        (self.root / "libone.so").symlink_to("libone.so.1")
        self.note("one-dev:amd64", "libone.so")
        self.note("one1", "libone.so.1")

    def note(self, package, *names):
        (self.info / f"{package}.list").write_text("".join(f"{self.root}/{name}\n" for name in names))

    def judge(self, name, *brought):
        path = str(self.root / name)
        return package_files.Owners([path], self.info).judge(path, set(brought))

    def test_a_link_and_what_it_points_to_must_both_be_brought(self):
        self.assertEqual(self.judge("libone.so", "one-dev", "one1"), ({"one-dev", "one1"}, None))
        self.assertEqual(self.judge("libone.so", "one1"), ({"one-dev", "one1"}, "one-dev"))
        self.assertEqual(self.judge("libone.so", "one-dev"), ({"one-dev", "one1"}, "one1"))

    def test_what_no_package_has(self):
        (self.root / "own.h").touch()
        self.assertEqual(self.judge("own.h", "one-dev"), (set(), "no package"))


class InstallerTest(unittest.TestCase):
    """scripts/packages beside programs that stand in for Debian's."""

    SYSTEM = 'PRETTY_NAME="Debian GNU/Linux 12 (bookworm)"\nVERSION_CODENAME=bookworm\n'

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.programs = self.root / "bin"
        self.programs.mkdir()
        for name in ("bash", "realpath", "dirname", "sed", "tr", "grep", "mktemp", "rm", "tail", "awk", "sort", "cat", "mkdir", "cp", "env"):  # fmt: skip
            (self.programs / name).symlink_to(f"/usr/bin/{name}")
        self.system(self.SYSTEM)
        self.program("dpkg-query", "exit 1")
        self.program("id", "echo 0")
        self.program("apt-get", f'echo "$*" >>{self.root}/asked', "exit 0")

    def system(self, text):
        (self.root / "os-release").write_text(text)

    def program(self, name, *lines):
        path = self.programs / name
        path.unlink(missing_ok=True)
        path.write_text("\n".join(("#!/usr/bin/bash", *lines)) + "\n")
        path.chmod(0o755)

    def asked(self):
        path = self.root / "asked"
        return path.read_text() if path.exists() else ""

    def install(self):
        environment = {"PATH": str(self.programs), "OS_RELEASE": str(self.root / "os-release")}
        command = ["/usr/bin/bash", REPOSITORY / "scripts/packages"]
        return subprocess.run(command, env=environment, capture_output=True, text=True, check=False)

    def refused(self, done):
        """The one sentence of a refusal."""
        self.assertEqual(done.returncode, 1, done.stderr)
        return done.stderr.splitlines()[-1]

    def test_another_debian_and_ubuntu_are_told_what_to_do_and_asked_nothing(self):
        for name, code in (("Debian GNU/Linux 13 (trixie)", "trixie"), ("Ubuntu 24.04.1 LTS", "noble")):
            with self.subTest(name):
                self.system(f'PRETTY_NAME="{name}"\nVERSION_CODENAME={code}\n')
                said = self.refused(self.install())
                self.assertIn(f"this is {name} and the packages are those of Debian 12: run it in", said)
        self.assertEqual(self.asked(), "")

    def test_without_dpkg(self):
        (self.programs / "dpkg-query").unlink()
        self.system('PRETTY_NAME="Another Linux"\n')
        self.assertIn("this is Another Linux and", self.refused(self.install()))

    def test_without_root_and_sudo(self):
        self.program("id", "echo 1000")
        said = self.refused(self.install())
        self.assertRegex(said, "packages are missing and there is no sudo: run this as root first: .*scripts/packages$")
        self.assertEqual(self.asked(), "")

    def test_sudo_that_refuses(self):
        self.program("id", "echo 1000")
        self.program("sudo", "exit 1")
        said = self.refused(self.install())
        self.assertRegex(said, "packages are missing and sudo refuses: run this as root first: .*scripts/packages$")
        self.assertEqual(self.asked(), "")

    def test_without_lists_and_network_nothing_is_installed(self):
        self.program("apt-get", f'echo "$*" >>{self.root}/asked', 'echo "E: Unable to locate package cmake"', "exit 100")
        self.assertIn("connect to the network", self.refused(self.install()))
        self.assertEqual(self.asked().count("Use-Pty=0 install"), 0)

    def test_lists_without_network(self):
        self.program("apt-get", f'echo "$*" >>{self.root}/asked', '[[ $* != *--download-only* ]]')
        said = self.refused(self.install())
        self.assertIn("could not be fetched: connect to the network and run it again; nothing was installed", said)
        self.assertEqual(self.asked().count("Use-Pty=0 install"), 0)

    def test_everything_is_fetched_before_anything_is_installed(self):
        self.program("apt-get", f'echo "$*" >>{self.root}/asked',
                     "[[ $* != *--print-uris* ]] || echo \"'u://a' a_1_all.deb 1400000 x\"$'\\n'\"'u://b' b_1_all.deb 1300000 x\"")  # fmt: skip
        done = self.install()
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("Fetching 2 packages, 3 MB\n", done.stdout)
        steps = [line.split("Use-Pty=0 ")[1].split()[0] for line in self.asked().splitlines()]
        self.assertEqual(steps, ["update", "--print-uris", "--download-only", "install"])


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Holds the scripts to what they do on machines that are not like the one on which they were written.

Usage: elsewhere_test.py TREE [TEST...]
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

from stub_tree import StubTreeTest

StubTreeTest.TREE = pathlib.Path(sys.argv.pop(1)).resolve() if len(sys.argv) > 1 else pathlib.Path.cwd()
# No machine has this language, and each bash says so.
STRANGE_LANGUAGE = {"LANG": "xx_XX.UTF-8", "LC_ALL": "xx_XX.UTF-8", "LANGUAGE": "xx"}
SHOW_LANGUAGE = 'echo "language: $LC_ALL ${LANGUAGE-none}"'
KNOWN_LANGUAGE = "language: C.UTF-8 none"
SETARCH_ALLOWED = 'shift; exec "$@"'
SETARCH_FORBIDDEN = "echo 'setarch: failed to set personality: Operation not permitted' >&2; exit 1"


class Tests(StubTreeTest):
    """script/test."""

    def setUp(self):
        super().setUp()
        self.copy("script/test", "tests/support/with-fixed-addresses")
        for script in ("script/bootstrap", "script/build"):
            self.stub(script)
        self.program("ctest", SHOW_LANGUAGE)
        self.program("setarch", SETARCH_ALLOWED)

    def test_ALanguageThatIsNotInstalledIsOfNoMatter(self):
        answer = self.run_script("script/test", **STRANGE_LANGUAGE)
        self.assertEqual(answer.returncode, 0, answer.stderr)
        self.assertIn(KNOWN_LANGUAGE, answer.stdout.splitlines())

    def test_SanitizersGetAddressesThatTheyKnow(self):
        for option in ("--asan", "--tsan"):
            with self.subTest(option):
                self.log.unlink(missing_ok=True)
                self.assertEqual(self.run_script("script/test", option).returncode, 0)
                run = [call for call in self.calls() if call.startswith("setarch --addr-no-randomize ctest")]
                self.assertEqual(len(run), 1, self.calls())

    def test_SanitizersRunWhereAddressesCannotBeFixed(self):
        self.program("setarch", SETARCH_FORBIDDEN)
        for option in ("--asan", "--tsan"):
            with self.subTest(option):
                self.log.unlink(missing_ok=True)
                answer = self.run_script("script/test", option)
                self.assertEqual((answer.returncode, answer.stderr), (0, ""))
                self.assertEqual(len([call for call in self.calls() if call.startswith("ctest ")]), 1, self.calls())


class Stages(StubTreeTest):
    """script/ci."""

    def test_ALanguageThatIsNotInstalledIsOfNoMatter(self):
        self.copy("script/ci")
        self.write(".ci/stages", f"one | always | bash -c {SHOW_LANGUAGE!r} | o\n")
        answer = self.run_script("script/ci", **STRANGE_LANGUAGE)
        self.assertEqual(answer.returncode, 0, answer.stderr)
        self.assertIn(KNOWN_LANGUAGE, answer.stdout.splitlines())


class Benchmarks(StubTreeTest):
    """script/bench."""

    def test_WhatTheyNeedIsInstalledFirst(self):
        self.copy("script/bench")
        for script in ("script/bootstrap", "script/build", "script/sandbox"):
            self.stub(script)
        self.assertEqual(self.run_script("script/bench", "--instructions").returncode, 0)
        self.assertEqual([call.split()[0] for call in self.calls()],
                         ["script/bootstrap", "script/build", "script/sandbox"])
        self.assertLessEqual({"build", "tools", "bench"}, set(self.calls()[0].split()))


class Fuzzing(StubTreeTest):
    """tests/fuzz/run."""

    def setUp(self):
        super().setUp()
        self.copy("tests/fuzz/run", "tests/support/with-fixed-addresses")
        for script in ("script/bootstrap", "script/build", "script/sandbox"):
            self.stub(script)
        (self.tree / "build/fuzz").mkdir(parents=True)

    def test_WhatItNeedsIsInstalledFirst(self):
        self.assertEqual(self.run_script("tests/fuzz/run", "lines").returncode, 0)
        self.assertEqual([call.split()[0] for call in self.calls()][:2], ["script/bootstrap", "script/build"])
        self.assertLessEqual({"build", "fuzz"}, set(self.calls()[0].split()))

    def test_TheSanitizersGetAddressesThatTheyKnow(self):
        self.program("setarch", SETARCH_ALLOWED)
        self.assertEqual(self.run_script("tests/fuzz/run", "lines").returncode, 0)
        self.assertTrue(any(re.match(r"setarch --addr-no-randomize \S*/script/sandbox .*bt_fuzz_lines ", call)
                            for call in self.calls()), self.calls())

    def test_ItRunsWhereAddressesCannotBeFixed(self):
        self.program("setarch", SETARCH_FORBIDDEN)
        answer = self.run_script("tests/fuzz/run", "lines")
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        self.assertEqual(len([call for call in self.calls() if call.startswith("script/sandbox ")]), 1)

    def test_NoInputOfTheCorpusIsCutOff(self):
        self.assertEqual(self.run_script("tests/fuzz/run", "lines").returncode, 0)
        longest = int(re.search(r" -max_len=(\d+) ", self.calls()[-1])[1])
        inputs = [path for path in (self.TREE / "tests/fuzz/corpus").rglob("*") if path.is_file()]
        self.assertTrue(inputs)
        self.assertEqual([path.name for path in inputs if path.stat().st_size > longest], [])


class Checkouts(StubTreeTest):
    """What knows the sources from git. GIT_TEST_ASSUME_DIFFERENT_OWNER is git's own way to test its distrust."""
    FOREIGN = {"GIT_TEST_ASSUME_DIFFERENT_OWNER": "1"}

    def setUp(self):
        super().setUp()
        self.stub("script/bootstrap")
        self.stub("script/build")
        self.program("clang-format")
        self.copy("script/lint", "script/package", "script/mutate", "tests/abi/prove.py", ".gitignore")
        self.write("ipc/main.cpp", "int main(int argc, char**) {\n  return argc == 1;\n}\n")
        self.git("init", "--quiet")
        self.git("add", ".")
        self.git("-c", "user.name=test", "-c", "user.email=test@localhost", "commit", "--quiet", "--message=first")

    def git(self, *arguments):
        subprocess.run(["git", *arguments], cwd=self.tree, check=True)

    def formatted(self):
        return [call for call in self.calls() if call.startswith("clang-format ")]

    def test_LintReadsThatOfAnotherOwner(self):
        for arguments in ([], ["--changed"]):
            with self.subTest(arguments):
                self.write("ipc/main.cpp", "int main() {}\n")
                self.log.unlink(missing_ok=True)
                answer = self.run_script("script/lint", "--format", *arguments, **self.FOREIGN)
                self.assertEqual((answer.returncode, answer.stderr), (0, ""))
                self.assertEqual(self.formatted(), ["clang-format --dry-run -Werror ipc/main.cpp"])

    def test_LintFailsIfGitDoes(self):
        self.program("git", "[[ $* != *ls-files* && $* != *diff* ]] || { echo 'fatal: broken' >&2; exit 128; }")
        for arguments in ([], ["--changed"]):
            with self.subTest(arguments):
                answer = self.run_script("script/lint", "--format", *arguments)
                self.assertNotEqual(answer.returncode, 0)
                self.assertEqual((answer.stdout, answer.stderr), ("", "fatal: broken\n"))

    def test_LintSaysThatNothingHasChangedButNotThatThereIsNothing(self):
        answer = self.run_script("script/lint", "--format", "--changed")
        self.assertEqual((answer.returncode, answer.stdout), (0, "lint: nothing to check\n"))
        self.git("rm", "--quiet", "ipc/main.cpp")
        answer = self.run_script("script/lint", "--format")
        self.assertEqual((answer.returncode, answer.stdout), (1, ""))
        self.assertRegex(answer.stderr, r"\Alint: [^\n]*\n\Z")
        self.assertEqual(self.formatted(), [])

    def test_OneLineSaysThatThereIsNone(self):
        shutil.rmtree(self.tree / ".git")
        for script, *arguments in (["script/lint", "--format"], ["script/lint", "--format", "--changed"],
                                   ["script/package"]):
            with self.subTest(script):
                answer = self.run_script(script, *arguments)
                self.assertEqual((answer.returncode, answer.stdout), (1, ""))
                self.assertRegex(answer.stderr, rf"\A{script.split('/')[1]}: [^\n]*{self.tree}[^\n]*\n\Z")

    def test_PackagesAreMadeOfThatOfAnotherOwnerAndWithoutBytecode(self):
        self.write("CMakeLists.txt", "project(libbt VERSION 1.2.3 LANGUAGES CXX)\n")
        self.write("tests/abi/__pycache__/prove.cpython-311.pyc", "made by a test that was run")
        self.write("new.cpp")
        self.program("dpkg-parsechangelog", "echo 1.2.3")
        self.program("dpkg-buildpackage", "find . -type f >&2; touch ../libbt.deb")
        self.program("lintian")
        answer = self.run_script("script/package", **self.FOREIGN)
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        sources = (self.tree / "build/packages/build.log").read_text().split()
        self.assertLessEqual({"./new.cpp", "./ipc/main.cpp", "./script/lint"}, set(sources))
        self.assertEqual([name for name in sources if "pyc" in name or ".git/" in name], [])

    def test_FaultsArePlantedInThatOfAnotherOwner(self):
        answer = self.run_script("script/mutate", "--list", **self.FOREIGN)
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        self.assertIn("ipc/main.cpp:2: '==' is '!='", answer.stdout)

    def test_TheGateIsProvenWithThatOfAnotherOwner(self):
        code = "import pathlib, prove, sys; prove.copy_tree(pathlib.Path(sys.argv[1]))"
        answer = subprocess.run([sys.executable, "-B", "-c", code, self.folder / "copy"], cwd=self.tree / "tests/abi",
                                capture_output=True, text=True, env={**os.environ, **self.FOREIGN})
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        self.assertEqual((self.folder / "copy/ipc/main.cpp").read_text(), (self.tree / "ipc/main.cpp").read_text())


class Arm(StubTreeTest):
    """What is built for 32-bit ARM, where its sysroot is missing."""
    COMMANDS = (["script/test", "--arm"], ["script/test", "--arm", "--service", "amd64"], ["script/abi", "--arch", "armhf"])

    def setUp(self):
        super().setUp()
        self.copy("script/test", "script/abi", "cmake/toolchains/armhf-sysroot")
        for script in ("script/bootstrap", "script/build", "packaging/debian_mirror", "tests/abi/gate.py",
                       "cmake/toolchains/with-qemu-arm"):
            self.stub(script)
        self.program("mmdebstrap", 'mkdir -p "${@: -2:1}"/{lib,etc,usr/include,usr/lib,usr/share/cmake}')
        self.program("id", "echo 0")
        self.sysroot = self.folder / "sysroot"

    def run_afresh(self, command):
        self.log.unlink(missing_ok=True)
        shutil.rmtree(self.sysroot, ignore_errors=True)
        return self.run_script(*command, BT_ARMHF_SYSROOT=str(self.sysroot))

    def has_built(self):
        return any(call.startswith("script/build ") for call in self.calls())

    def test_RootMakesTheSysroot(self):
        for command in self.COMMANDS:
            with self.subTest(command):
                answer = self.run_afresh(command)
                self.assertEqual((answer.returncode, answer.stderr), (0, ""))
                self.assertTrue((self.sysroot / "usr/include").is_dir())
                self.assertFalse((self.sysroot / "etc").exists())
                self.assertTrue(self.has_built())

    def test_OthersSkipIt(self):
        self.program("id", "echo 1000")
        for command in self.COMMANDS:
            with self.subTest(command):
                answer = self.run_afresh(command)
                self.assertEqual(answer.returncode, 77)
                self.assertRegex(answer.stderr, rf"\A[^\n]*{self.sysroot}[^\n]*\n\Z")
                self.assertFalse(self.has_built())

    def test_OneThatIsThereStays(self):
        self.program("id", "echo 1000")
        self.sysroot.mkdir()
        answer = self.run_script("script/test", "--arm", BT_ARMHF_SYSROOT=str(self.sysroot))
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        self.assertEqual([call for call in self.calls() if call.startswith("mmdebstrap")], [])


class BuiltInTheTree(StubTreeTest):
    """tests/scripts/owned_test.py, where dpkg-buildpackage has built in the tree."""

    def test_WhatIsGeneratedThereIsNobodysToOwn(self):
        for folder in ("obj-x86_64-linux-gnu/ipc", "build/dev/ipc", "ipc"):
            self.write(f"{folder}/bt_dbus.cpp", "void Free(void* what) {\n  g_free(what);\n}\n")
        answer = subprocess.run([sys.executable, "-B", self.TREE / "tests/scripts/owned_test.py", self.tree],
                                capture_output=True, text=True)
        found = [line for line in answer.stdout.splitlines() if "bt_dbus" in line]
        self.assertEqual(len(found), 1, found)
        self.assertTrue(found[0].startswith("ipc/bt_dbus.cpp:2: g_free"), found)


class LivingUnits(StubTreeTest):
    """packaging/systemd/test_living_units, where a machine does not allow what it does before systemd is there."""

    def setUp(self):
        super().setUp()
        self.copy("packaging/systemd/test_living_units")
        self.group = self.folder / "group"
        self.group.mkdir()
        self.program("mktemp", f"echo {self.group}")
        self.program("rmdir")
        self.program("unshare", 'while [[ $1 == --* ]]; do shift; done; exec "$@"')
        self.program("mount", "echo 'mount: permission denied.' >&2; exit 32")
        self.program("systemd", "exit 1")

    def assert_skipped(self, reason, *arguments):
        answer = self.run_script("packaging/systemd/test_living_units", *arguments, "folder", "file",
                                 SYSTEMD=str(self.programs / "systemd"))
        self.assertEqual(answer.returncode, 77, answer.stderr)
        self.assertIn(reason, answer.stdout)

    def test_AreSkippedWithoutNamespaces(self):
        self.program("unshare", "echo 'unshare: unshare failed: Operation not permitted' >&2; exit 1")
        self.assert_skipped("no namespaces")

    def test_AreSkippedIfAControlGroupTakesNoProcess(self):
        (self.group / "cgroup.procs").mkdir()
        self.assert_skipped("no process can be moved")

    def test_AreSkippedIfNothingCanBeMounted(self):
        self.assert_skipped("a control group cannot be mounted")
        self.assert_skipped("on /run", "--inside", "0")


if __name__ == "__main__":
    unittest.main(verbosity=2)

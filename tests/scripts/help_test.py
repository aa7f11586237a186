#!/usr/bin/env python3
"""Holds the scripts to their help texts, and the documents to both: each option that a help text names is accepted,
each group of script/bootstrap is known, and what a document calls is there.

Nothing is built or installed: --help comes last, and what stands before it has to have been accepted by then.
Usage: help_test.py TREE [TEST...]
"""
import os
import pathlib
import re
import signal
import subprocess
import sys
import unittest

TREE = pathlib.Path(sys.argv.pop(1)) if len(sys.argv) > 1 else pathlib.Path.cwd()
SCRIPTS = sorted(path.relative_to(TREE).as_posix() for path in
                 [*(TREE / "script").iterdir(), TREE / "tests/fuzz/run", TREE / "cmake/toolchains/armhf-sysroot",
                  TREE / "cmake/toolchains/with-qemu-arm"])
# These hand on what they do not know, as their help says.
HAND_ON = {"script/test": "CTEST-OPTION", "tests/fuzz/run": "LIBFUZZER-OPTION",
           "cmake/toolchains/with-qemu-arm": "COMMAND"}
# What is given to an option whose value has this name in the help.
VALUES = {"N": "1", "SECONDS": "1", "NAME": "ci", "NAME|FILE": "empty", "FILE": "empty", "NAME=VALUE": "A=B",
          "DIRECTORY": ".", "ARCH": "amd64"}


def run(script, *arguments):
    """Runs a script, which must not take long. It is ended with all that it has started if it does."""
    process = subprocess.Popen([TREE / script, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                               start_new_session=True)
    try:
        stdout, stderr = process.communicate(timeout=30)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        raise
    return subprocess.CompletedProcess(process.args, process.returncode, stdout, stderr)


def help_of(script):
    return run(script, "--help").stdout


def options_of(text):
    """The options of a help text, each with the name of its value or None: of the usage, and of the list below it."""
    usage = text.split("\n\n")[0]
    listed = re.findall(r"^  (--?[A-Za-z][\w-]*)(?: ([A-Z][A-Z=|]*))?(?:  |$)", text, re.MULTILINE)
    named = re.findall(r"[\[|] ?(--?[A-Za-z][\w-]*)(?: ([A-Z][A-Z=|]*))?", usage)
    found = {option: None for option, _ in listed + named}
    found.update((option, value) for option, value in listed + named if value)
    return found


def groups_of_bootstrap():
    return re.findall(r"^  ([a-z]+)  ", help_of("script/bootstrap"), re.MULTILINE)


def packages_of(group):
    answer = run("script/bootstrap", "--list", group)
    return answer.returncode, answer.stdout.split()


class TheHelp(unittest.TestCase):
    def test_Help(self):
        for script in SCRIPTS:
            with self.subTest(script):
                answer = run(script, "--help")
                self.assertEqual((answer.returncode, answer.stderr), (0, ""))
                self.assertRegex(answer.stdout, f"^Usage: {script}")
                self.assertEqual(run(script, "-h").stdout, answer.stdout)

    def test_Options(self):
        for script in SCRIPTS:
            text = help_of(script)
            for option, value in options_of(text).items():
                with self.subTest(script, option=option):
                    if value is not None:
                        self.assertIn(value, VALUES, "a kind of value that this test does not know")
                    answer = run(script, option, *([VALUES[value]] if value else []), "--help")
                    self.assertEqual((answer.returncode, answer.stdout), (0, text), answer.stderr)

    def test_UnknownOptions(self):
        for script in SCRIPTS:
            with self.subTest(script):
                if script in HAND_ON:
                    self.assertIn(HAND_ON[script], help_of(script))
                    continue
                answer = run(script, "--no-such-option", "--help")
                self.assertNotEqual(answer.returncode, 0)
                self.assertEqual(answer.stdout, "")
                self.assertIn("--no-such-option", answer.stderr)
                self.assertIn("--help", answer.stderr)

    def test_PackagesTakesNoOptionOfCtest(self):
        answer = run("script/test", "--packages", "-R", "demo")
        self.assertEqual((answer.returncode, answer.stdout), (2, ""))
        self.assertIn("-R", answer.stderr)

    def test_Groups(self):
        groups = groups_of_bootstrap()
        self.assertLessEqual({"build", "test", "all", "armhf"}, set(groups))
        everything = set()
        for group in groups:
            with self.subTest(group):
                status, packages = packages_of(group)
                self.assertEqual(status, 0)
                self.assertTrue(packages)
                for package in packages:
                    self.assertRegex(package, r"^[a-z0-9][a-z0-9+.-]+$")
                if group not in ("all", "armhf"):
                    everything.update(packages)
        self.assertEqual(set(packages_of("all")[1]), everything, "all is all that stands above it")
        self.assertEqual(run("script/bootstrap", "--list").stdout.split(), packages_of("all")[1])
        in_script = re.findall(r"^  \[([a-z]+)\]=", (TREE / "script/bootstrap").read_text(), re.MULTILINE)
        self.assertEqual(set(in_script) | {"all"}, set(groups), "each group is in the help")
        self.assertNotEqual(packages_of("no-such-group")[0], 0)

    def test_Dependencies(self):
        """README.md says what each package is for that script/bootstrap installs, and names no other."""
        table = re.search(r"^\| What \| Why \| Debian package \|\n\|[-|]+\n((?:\|.*\n)+)",
                          (TREE / "README.md").read_text(), re.MULTILINE)
        self.assertIsNotNone(table)
        named = []
        for row in table[1].splitlines():
            with self.subTest(row):
                what, why, packages = [cell.strip() for cell in row.strip("|").split("|")]
                self.assertTrue(what and why)
                named += packages.split(", ") if packages else []
        installed = packages_of("all")[1] + packages_of("armhf")[1]
        self.assertEqual(sorted(named), sorted(set(installed)))

    def test_Sections(self):
        """script/bench names the sections that its program has."""
        source = (TREE / "bench/bt_bench.cpp").read_text()
        tables = {table: re.findall(r'\{"([a-z]+)", ', rows)
                  for table, rows in re.findall(r"> k(Timed|Counted)Sections = \{(.*?)\n\};", source, re.DOTALL)}
        text = " ".join(help_of("script/bench").split())
        listed = re.search(r" SECTION (.*?); with --instructions: (.*?) \(default: all\)", text)
        self.assertIsNotNone(listed)
        self.assertEqual({"Timed": re.split(", | or ", listed[1]), "Counted": re.split(", | or ", listed[2])}, tables)

    def test_Documents(self):
        calls = 0
        for document in [TREE / "README.md", *TREE.glob("docs/*.md"), *TREE.glob("docs/screens/*.md"),
                         *TREE.glob("*/README.md")]:
            for script, rest in re.findall(r"\b((?:script|tests/fuzz|cmake/toolchains)/[\w-]+)((?: [^\s`]+)*)",
                                           document.read_text()):
                with self.subTest(document.name, call=script + rest):
                    self.assertIn(script, SCRIPTS if not script.endswith(".cmake") else [script])
                    self.check_call(script, rest.split())
                    calls += 1
        self.assertGreater(calls, 20)

    def check_call(self, script, words):
        """Checks the options with which a document calls a script, up to the first word that is none."""
        text = help_of(script)
        options = options_of(text)
        while words and re.match(r"--?[A-Za-z]", words[0]):
            option = words.pop(0)
            if option not in options and script in HAND_ON:
                return
            self.assertIn(option, options)
            if options[option]:
                words.pop(0)
        if script == "script/bootstrap":
            for group in words[:words.index("#")] if "#" in words else words:
                self.assertIn(group, groups_of_bootstrap())


if __name__ == "__main__":
    unittest.main(verbosity=2)

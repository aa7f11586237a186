#!/usr/bin/env python3
"""Holds script/ci to its help text, with tables of stages of its own, and its own table to the scripts it names.

Usage: ci_test.py TREE [TEST...]
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

TREE = pathlib.Path(sys.argv.pop(1)) if len(sys.argv) > 1 else pathlib.Path.cwd()
CLOSING = ["100% tests passed, 0 tests failed out of 7", "", "Total Test time (real) =   0.70 sec"]
TESTS = "printf '1/7 passed\\n100%% tests passed, 0 tests failed out of 7\\n\\nTotal Test time (real) =   0.70 sec\\n'"
LEFT_OUT = "printf '1 of 7 tests were left out:\\n  1: no display\\n'"


class Stages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_ci(self, rows, *arguments):
        table = self.folder / "stages"
        table.write_text("".join(" | ".join(row) + "\n" for row in rows))
        answer = subprocess.run([TREE / "script/ci", "--stages", table, "--logs", self.folder / "logs", *arguments],
                                capture_output=True, text=True, timeout=60)
        self.lines = answer.stdout.splitlines()
        self.results = {}
        if "== stages" in self.lines:
            for line in self.lines[self.lines.index("== stages") + 1:]:
                if line.startswith("together"):
                    break
                self.results[line[:13].strip()] = line[14:26].strip()
        return answer

    def test_TheClosingLinesOfTheTestsComeLast(self):
        answer = self.run_ci([("tests", "always", f"{TESTS}; {LEFT_OUT}", "t"),
                              ("after", "always", "echo afterwards", "a")])
        self.assertEqual(answer.returncode, 0)
        self.assertEqual(self.results, {"tests": "passed", "after": "passed"})
        self.assertEqual(self.lines[-3:], CLOSING)
        self.assertLess(self.lines.index("afterwards"), len(self.lines) - 3)
        self.assertIn("afterwards", (self.folder / "logs/after.log").read_text())

    def test_ItStopsAtTheFirstThatFails(self):
        answer = self.run_ci([("bad", "always", "exit 3", "b"), ("next", "always", "echo reached", "n")])
        self.assertEqual(answer.returncode, 1)
        self.assertEqual(self.results, {"bad": "FAILED (3)", "next": "not run"})
        self.assertNotIn("reached", self.lines)

    def test_AStageThatFailsBeforeThePipeIsSeen(self):
        answer = self.run_ci([("bad", "always", "false && echo never", "b")])
        self.assertEqual((answer.returncode, self.results), (1, {"bad": "FAILED (1)"}))

    def test_ASkippedStageIsRedInTheFullRunOnly(self):
        rows = [("absent", "always", "exit 77", "a"), ("next", "always", "true", "n")]
        self.assertEqual(self.run_ci(rows).returncode, 0)
        self.assertEqual(self.results, {"absent": "skipped", "next": "passed"})
        self.assertEqual(self.run_ci(rows, "--full").returncode, 1)
        self.assertEqual(self.results, {"absent": "skipped", "next": "passed"})

    def test_TheFullRunHasAllStagesAndGoesOn(self):
        rows = [("bad", "always", "false", "b"), ("long", "full", "true", "l")]
        self.assertEqual(self.run_ci(rows[1:]).returncode, 0)
        self.assertEqual(self.results, {})
        self.assertEqual(self.run_ci(rows, "--full").returncode, 1)
        self.assertEqual(self.results, {"bad": "FAILED (1)", "long": "passed"})

    def test_NamedStagesAreRunAlone(self):
        rows = [("one", "always", "false", "o"), ("two", "full", "true", "t")]
        self.assertEqual(self.run_ci(rows, "two").returncode, 0)
        self.assertEqual(self.results, {"two": "passed"})
        answer = self.run_ci(rows, "three")
        self.assertEqual((answer.returncode, answer.stdout), (2, ""))
        self.assertIn("three", answer.stderr)

    def test_ATableThatIsWrongIsRefused(self):
        answer = self.run_ci([("one", "sometimes", "true", "o")])
        self.assertEqual((answer.returncode, answer.stdout), (2, ""))
        self.assertIn("sometimes", answer.stderr)


class ItsOwnTable(unittest.TestCase):
    def test_EachStageIsAScriptWithTheOptionsThatItIsGiven(self):
        listed = subprocess.run([TREE / "script/ci", "--list"], capture_output=True, text=True, check=True).stdout
        stages = [(line[:13].strip(), line[14:21].strip(), line[22:].split("  ")[0].split()) for line in
                  listed.splitlines()]
        self.assertTrue({"format", "tests", "docs", "abi", "packages", "fuzz", "instructions", "tsan", "asan"} <=
                        {name for name, when, _ in stages if when == "always"}, "what each change has to pass")
        self.assertEqual(stages[-1][1], "full")
        names = [name for name, _, _ in stages]
        self.assertEqual(names[:4], ["bootstrap", "format", "docs", "tests"], "the short ones first, which build nothing")
        for name, _, command in stages:
            with self.subTest(name):
                # Without its arguments: a script that hands on what it does not know would begin with its work.
                answer = subprocess.run([TREE / command[0], "--help"], capture_output=True, text=True, timeout=60)
                self.assertEqual((answer.returncode, answer.stderr), (0, ""))
                self.assertTrue(answer.stdout.startswith(f"Usage: {command[0]}"))
                for option in [word for word in command[1:] if word.startswith("-")]:
                    self.assertIn(option, re.findall(r"--?[a-z][\w-]*", answer.stdout))

    def test_WhatAChangeHasToPassIsTheStagesThatAreAlwaysRun(self):
        with tempfile.TemporaryDirectory() as folder:
            tree = pathlib.Path(folder)
            for name in (".ci/run", "script/ci"):
                (tree / name).parent.mkdir()
                shutil.copy(TREE / name, tree / name)
            (tree / "script/ci").write_text("#!/bin/bash\necho \"$#: $*\"\nexit 3\n")
            answer = subprocess.run([tree / ".ci/run"], capture_output=True, text=True, timeout=60)
            self.assertEqual((answer.returncode, answer.stdout, answer.stderr), (3, "0: \n", ""))


if __name__ == "__main__":
    unittest.main(verbosity=2)

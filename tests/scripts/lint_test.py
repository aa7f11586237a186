#!/usr/bin/env python3
"""Holds script/lint to looking at all sources, and to saying so of those at which it does not.

Usage: lint_test.py TREE [TEST...]
"""
import json
import pathlib
import re
import sys
import unittest

from stub_tree import StubTreeTest

StubTreeTest.TREE = pathlib.Path(sys.argv.pop(1)).resolve() if len(sys.argv) > 1 else pathlib.Path.cwd()


class Mistakes(StubTreeTest):
    """script/lint with clang-tidy: what it looks at, and what it says of the rest."""

    def setUp(self):
        super().setUp()
        self.stub("script/bootstrap")
        self.program("clang-format")
        self.program("clang-tidy")
        self.program("cmake")
        self.copy("script/lint")
        for name in ("ipc/one.cpp", "ipc/two.cpp", "ipc/one.h"):
            self.write(name)
        self.build("ipc/one.cpp", "ipc/two.cpp", "ipc/two.cpp", "build/lint/made.cpp")

    def build(self, *names):
        """script/build, which finds that these are compiled."""
        commands = json.dumps([{"directory": "/", "file": str(self.tree / name), "command": "c++"} for name in names])
        self.stub("script/build", f"mkdir -p build/lint && echo '{commands}' >build/lint/compile_commands.json")

    def lint(self, *files):
        self.log.unlink(missing_ok=True)
        return self.run_script("script/lint", *files)

    def looked_at(self):
        calls = [call.split() for call in self.calls() if call.startswith("clang-tidy ")]
        return sorted(str(pathlib.Path(word).relative_to(self.tree)) for call in calls for word in call if word.endswith(".cpp"))

    def test_EachSourceIsLookedAtOnceHoweverOftenItIsCompiled(self):
        answer = self.lint("ipc/one.cpp", "ipc/two.cpp", "ipc/one.h")
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        self.assertEqual(self.looked_at(), ["ipc/one.cpp", "ipc/two.cpp"])
        commands = json.loads((self.tree / "build/lint/once/compile_commands.json").read_text())
        self.assertEqual(len([entry for entry in commands if entry["file"].endswith("two.cpp")]), 1)
        self.assertEqual(answer.stdout.splitlines()[-1], "lint: clang-tidy finds nothing in 2 sources")

    def test_ASourceThatIsLeftOutIsNamedWithItsReason(self):
        self.write("packaging/consumer/consumer.cpp")
        answer = self.lint("ipc/one.cpp", "packaging/consumer/consumer.cpp")
        self.assertEqual(answer.returncode, 0)
        self.assertIn("lint: 1 sources are not compiled here:", answer.stdout)
        self.assertRegex(answer.stdout, r"\n  packaging/consumer/consumer\.cpp: \w+")

    def test_ASourceThatNothingCompilesIsRefused(self):
        self.write("ipc/forgotten.cpp")
        answer = self.lint("ipc/one.cpp", "ipc/forgotten.cpp")
        self.assertEqual(answer.returncode, 1)
        self.assertRegex(answer.stderr, r"\Alint: .*: ipc/forgotten\.cpp\n\Z")
        self.assertEqual(self.looked_at(), [])

    def test_NoSourceAtAllIsRefused(self):
        self.build()
        self.write("packaging/consumer/consumer.cpp")
        for files in (["ipc/one.h"], ["packaging/consumer/consumer.cpp"]):
            with self.subTest(files):
                answer = self.lint(*files)
                self.assertEqual(answer.returncode, 1)
                self.assertRegex(answer.stderr, r"\Alint: [^\n]*\n\Z")

    def test_AFindingFailsIt(self):
        self.program("clang-tidy", "exit 1")
        self.assertNotEqual(self.lint("ipc/one.cpp").returncode, 0)

    def test_WhatIsLeftOutIsThereAndHeadersOfAllFoldersAreLookedAt(self):
        names = re.findall(r"^  \[(\S+\.cpp)\]=", (self.TREE / "script/lint").read_text(), re.MULTILINE)
        self.assertTrue(names)
        self.assertEqual([name for name in names if not (self.TREE / name).is_file()], [])
        looked_at = re.search(r"^HeaderFilterRegex: '(.*)'$", (self.TREE / ".clang-tidy").read_text(), re.MULTILINE)[1]
        for folder in self.TREE.iterdir():
            if folder.is_dir() and folder.name != "build" and not folder.name.startswith((".", "obj-")):
                for header in folder.rglob("*.h"):
                    self.assertRegex(f"/{header.relative_to(self.TREE)}", looked_at)


if __name__ == "__main__":
    unittest.main(verbosity=2)

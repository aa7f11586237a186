#!/usr/bin/env python3
"""Holds script/coverage to one reason for each line that does not run, and its list of reasons to the sources.

Usage: coverage_test.py TREE [TEST...]
"""
import importlib.machinery
import importlib.util
import pathlib
import sys
import unittest

TREE = pathlib.Path(sys.argv.pop(1)).resolve() if len(sys.argv) > 1 else pathlib.Path.cwd()


def load():
    loader = importlib.machinery.SourceFileLoader("coverage", str(TREE / "script/coverage"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("coverage", loader))
    sys.modules["coverage"] = module
    sys.dont_write_bytecode = True
    loader.exec_module(module)
    return module


COVERAGE = load()
SOURCE = """\
bool First() {
  if (IsShort()) {
    return false;
  }
  return true;
}
bool Second() {
  if (IsLong()) {
    return false;
  }
  return true;
}
""".splitlines()
FIRST, SECOND = 3, 9  # return false


class Missed(unittest.TestCase):
    def judge(self, missed, *reasons):
        """What script/coverage says if these lines of SOURCE did not run: its report and its faults."""
        files = [{"file": "ipc/a.cpp", "lines": [{"line_number": number, "count": 0 if number in missed else 7}
                                                  for number in range(1, len(SOURCE) + 1)]}]
        known = [COVERAGE.Reason("ipc/a.cpp", text, why) for text, why in reasons]
        return COVERAGE.judge_missed(files, known, lambda file: SOURCE)

    def test_ALineThatDidNotRunNeedsAReason(self):
        report, faults = self.judge({FIRST})
        self.assertEqual(report, [])
        self.assertEqual(faults, ["ipc/a.cpp:3: return false;\n    NO REASON IS KNOWN"])

    def test_AReasonExcusesTheOneLineThatItMeans(self):
        for line, other, anchor in ((FIRST, SECOND, "IsShort"), (SECOND, FIRST, "bool Second")):
            with self.subTest(anchor):
                reason = (f"{anchor} ... return false;", "never so")
                report, faults = self.judge({line}, reason)
                self.assertEqual((report, faults), ([f"ipc/a.cpp:{line}: return false;\n    never so"], []))
                _, faults = self.judge({line, other}, reason)
                self.assertEqual(faults, [f"ipc/a.cpp:{other}: return false;\n    NO REASON IS KNOWN"])

    def test_AReasonThatMeansSeveralLinesOrNoneExcusesNothing(self):
        for text in ("return false;", "return null;", "bool ... return false;", "bool Third ... return false;",
                     "bool Second ... IsShort"):
            with self.subTest(text):
                report, faults = self.judge({FIRST}, (text, "never so"))
                self.assertEqual(report, [])
                self.assertEqual(len(faults), 2, faults)
                self.assertIn("not one", faults[0])
        _, faults = self.judge({FIRST}, ("IsShort ... return false;", "never so"), ("First ... return false;", "never so"))
        self.assertIn("has a reason already", faults[0])

    def test_AReasonForALineThatRunsIsRefusedUnlessItSaysThatItMay(self):
        _, faults = self.judge(set(), ("IsLong", "never so"))
        self.assertEqual(len(faults), 1)
        self.assertIn("'IsLong' of ipc/a.cpp has run", faults[0])
        self.assertEqual(self.judge(set(), ("IsLong", "not always: only if it is late")), ([], []))
        report, faults = self.judge({8}, ("IsLong", "not always: only if it is late"))
        self.assertEqual((len(report), faults), (1, []))


class TheList(unittest.TestCase):
    def test_EachReasonMeansOneLineOfTheSources(self):
        known = COVERAGE.known_reasons()
        self.assertTrue(known)
        reasons, faults = COVERAGE.reasons_by_line(known)
        self.assertEqual(faults, [])
        self.assertEqual(len(reasons), len(known))


if __name__ == "__main__":
    unittest.main(verbosity=2)

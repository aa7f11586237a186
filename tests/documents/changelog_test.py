#!/usr/bin/env python3
"""CHANGELOG.md has the form of Keep a Changelog, and its newest release is the version that is built.

Usage: changelog_test.py TREE
"""
import pathlib
import re
import sys
import unittest

TREE = pathlib.Path(sys.argv.pop(1))
KINDS = ("Added", "Changed", "Deprecated", "Removed", "Fixed", "Security")


class TheChangelog(unittest.TestCase):
    def setUp(self):
        self.text = (TREE / "CHANGELOG.md").read_text()
        self.releases = re.findall(r"^## \[(\d+)\.(\d+)\.(\d+)\] - (\d{4}-\d\d-\d\d)$", self.text, re.MULTILINE)

    def test_HasTheNewestReleaseFirst(self):
        headings = re.findall(r"^## (.*)$", self.text, re.MULTILINE)
        self.assertEqual(headings[0], "[Unreleased]")
        self.assertEqual(len(headings), 1 + len(self.releases), "a heading has another form")
        versions = [tuple(map(int, release[:3])) for release in self.releases]
        dates = [release[3] for release in self.releases]
        self.assertEqual(versions, sorted(versions, reverse=True))
        self.assertEqual(dates, sorted(dates, reverse=True))

    def test_GroupsChangesByTheirKind(self):
        for section in re.split(r"^## .*$", self.text, flags=re.MULTILINE)[1:]:
            kinds = re.findall(r"^### (.*)$", section, re.MULTILINE)
            self.assertEqual(len(kinds), len(set(kinds)))
            self.assertLessEqual(set(kinds), set(KINDS))
            self.assertNotRegex(re.split(r"^### ", section, flags=re.MULTILINE)[0], r"\S", "a change of no kind")

    def test_EndsWithTheVersionThatIsBuilt(self):
        version = re.search(r"^project\(libbt VERSION (\S+)", (TREE / "CMakeLists.txt").read_text(), re.MULTILINE)[1]
        self.assertEqual(".".join(self.releases[0][:3]), version)


if __name__ == "__main__":
    unittest.main(verbosity=2)

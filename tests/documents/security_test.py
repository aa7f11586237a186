#!/usr/bin/env python3
"""Each test that SECURITY.md names is there, and so is each fuzz target. Usage: security_test.py TREE"""
import pathlib
import re
import sys

from cases import cases_by_suite, sources

TREE = pathlib.Path(sys.argv[1])


def faults():
    text = (TREE / "SECURITY.md").read_text()
    cells = "\n".join(line for line in text.splitlines() if line.startswith("|")) + text.split("## What is not trusted")[0]
    suites = cases_by_suite(TREE)
    tests = set(re.findall(r"NAME (\w+/\w+)", sources(TREE, "*/*.cmake")))
    targets = set(re.findall(r"^ *bt_add_fuzzer\((\w+)", (TREE / "tests/fuzz/CMakeLists.txt").read_text(), re.MULTILINE))
    named = re.findall(r"`([A-Z]\w+)\.([A-Z]\w+)`", text)
    for suite, case in named:
        if case not in suites.get(suite, ()):
            yield f"there is no test {suite}.{case}"
    for row in cells.splitlines():
        for suite in re.findall(r"`([A-Z][A-Za-z]+)`(?=[,;) ]|$)", row.rpartition("| ")[2]):
            if suite not in suites:
                yield f"there are no tests {suite}"
    for test in re.findall(r"`([a-z]+/[A-Z]\w+)`", text):
        if test not in tests:
            yield f"there is no test {test}"
    named_targets = {target for names in re.findall(r"fuzz targets? ((?:`\w+`(?:, )?)+)", text)
                     for target in re.findall(r"\w+", names)}
    for target in sorted(named_targets ^ targets):
        yield f"the fuzz target {target} is only named, or only there"
    if len(named) < 30:
        yield "most of the names have gone"


found = list(faults())
print("\n".join(found) or "all of them are there")
sys.exit(1 if found else 0)

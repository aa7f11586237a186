#!/usr/bin/env python3
"""Each failure that docs/failures.md describes is held by a test. Usage: failures_test.py TREE"""
import pathlib
import re
import sys

from cases import cases_by_suite

TREE = pathlib.Path(sys.argv[1])
NEEDED = ("off", "Refused", "Busy", "failed later", "no event", "error", "hangs", "ends", "not there", "comes back", "bus is lost",
          "wrong address", "bad text", "torn")


def rows(text, heading):
    """The cells of the table below a heading, without its head."""
    table = re.search(rf"^## {heading}\n\n((?:\|.*\n)+)", text, re.MULTILINE)[1].splitlines()[2:]
    return [[cell.strip() for cell in row.strip("|").split("|")] for row in table]


def faults():
    text = (TREE / "docs/failures.md").read_text()
    suites = cases_by_suite(TREE)
    described, held = rows(text, "What a caller gets"), rows(text, "Which tests hold that")
    if [row[0] for row in described] != [row[0] for row in held]:
        yield "the two tables do not have the same rows"
    for word in NEEDED:
        if not any(word in row[0] for row in described):
            yield f"no row is about '{word}'"
    for row in described:
        if len(row) != 3 or not all(row):
            yield f"'{row[0]}' does not say what becomes of it in both libraries"
    for what, tests in held:
        named = re.findall(r"`(\w+)\.(\w+)`", tests)
        if not named:
            yield f"no test holds '{what}'"
        for suite, case in named:
            if case not in suites.get(suite, ()):
                yield f"there is no test {suite}.{case}"


found = list(faults())
print("\n".join(found) or "each of them is held")
sys.exit(1 if found else 0)

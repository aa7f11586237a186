#!/usr/bin/env python3
"""Checks that every value of every public enumeration travels in one byte, and that all start at 0.

Usage: enumerations_test.py INCLUDE_DIR
"""

import pathlib
import re
import sys


def main():
    text = pathlib.Path(sys.argv[1], "bluetooth", "MWPBtType.h").read_text()
    text = re.sub(r"//[^\n]*", "", text)
    enumerations = re.findall(r"enum (\w+) : int \{(.*?)\}", text, re.S)
    wrong = []
    for name, body in enumerations:
        values = [int(value) for value in re.findall(r"\w+ = (-?\d+)", body)]
        names = re.findall(r"(\w+)(?: = -?\d+)?\s*(?:,|$)", body.strip())
        if len(values) != len([n for n in names if n]) or values[0] != 0 or values != sorted(set(values)):
            wrong.append(f"{name}: values are missing, repeated, out of order or do not start at 0: {values}")
        if any(not 0 <= value <= 255 for value in values):
            wrong.append(f"{name}: a value does not fit in a byte: {values}")
    print("\n".join(wrong) or f"{len(enumerations)} enumerations")
    return 1 if wrong or len(enumerations) < 30 else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""The requests, events, values and headers that these documents name are in the headers. Usage: names_test.py TREE"""
import pathlib
import re
import sys

TREE = pathlib.Path(sys.argv[1])
DOCUMENTS = ("docs/odd-corners.md", "docs/failures.md", "docs/screens/*.md")
HEADERS = [*(TREE / "include").rglob("*.h"), *(TREE / "docs/screens").glob("*.h"), *(TREE / "platform/include").rglob("*.h")]
# What begins like a name of the libraries, and where the first word of a piece of code ends.
NAME = re.compile(r"[A-Z]\w*[a-z]|BT_|PART_|SH_")
FIRST_WORD = re.compile(r"^[\w:.]+")


def names_in(text):
    outside = re.sub(r"^```.*?^```", "", text, flags=re.MULTILINE | re.DOTALL)
    # A test has the form Suite.Case.
    words = [FIRST_WORD.match(code) for code in re.findall(r"`([^`\n]+)`", outside) if not re.match(r"[A-Z]\w+\.[A-Z]", code)]
    return {name for word in words if word for name in re.split(r"::|\.(?!h$)", word[0]) if NAME.match(name)}


def main():
    known = {path.name for path in HEADERS}
    for header in HEADERS:
        known.update(re.findall(r"\w+", header.read_text()))
    faults, count = [], 0
    for path in sorted(path for pattern in DOCUMENTS for path in TREE.glob(pattern)):
        names = names_in(path.read_text())
        count += len(names)
        faults += [f"{path.relative_to(TREE)}: the headers do not have {name}" for name in sorted(names - known)]
    if count < 300:
        faults.append(f"only {count} names were found")
    print("\n".join(faults) or f"all {count} names are there")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

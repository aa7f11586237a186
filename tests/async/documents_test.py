#!/usr/bin/env python3
"""Compares the tables of docs/second-door.md with the sources, and compiles the examples of that page and of the README.

Usage: documents_test.py COMPILER SOURCE_DIR
"""

import pathlib
import re
import subprocess
import sys

import sources


def table(page, header):
    """The rows below a header, without their quotes."""
    rows = page.split(header + "\n", 1)[1].split("\n\n", 1)[0].splitlines()[1:]
    return [[cell.strip().replace("`", "") for cell in row.strip("|").split("|")] for row in rows]


def check_requests(page, source_dir):
    methods = sources.methods(source_dir)
    expected = {}
    for member, in_brackets in sources.requests(source_dir).items():
        first = (sources.LISTS[member] or [None])[0] if member in sources.LISTS else sources.documented_method(
            member, in_brackets, methods)
        if first is not None and first != member:
            expected[first] = member
    written = dict(table(page, "| With libbt | `Service::` |"))
    for name in sorted(set(expected.items()) ^ set(written.items())):
        yield f"the table of requests and Service.h differ in {name}"
    headers = "".join(path.read_text() for path in pathlib.Path(source_dir, "include/bluetooth").glob("MWPBt*.h"))
    only_here = set(re.findall(r"`(\w+)`", page.split("libbt does not offer ")[1].split(".\n")[0]))
    for name in methods:
        if (f" {name}(" in headers) == (name in only_here):
            yield f"{name}: libbt's headers and the page differ in whether libbt offers it"


def check_reasons(page, source_dir):
    text = sources.read(source_dir, "include/btasync/Answer.h")
    expected = re.findall(r"^  (\w+),", text.split("enum class Reason {")[1].split("}")[0], re.M)
    if [row[0] for row in table(page, "| Reason | Meaning | Was it done? |")] != expected:
        yield "the table of reasons and Answer.h differ"


def check_examples(compiler, source_dir):
    for name, fence in (("docs/second-door.md", "cpp"), ("README.md", "c++")):
        count = 0
        for code in re.findall(rf"^```{re.escape(fence)}\n(.*?)^```", sources.read(source_dir, name), re.M | re.S):
            count += 1
            result = subprocess.run([compiler, "-std=c++17", "-Wall", "-Wextra", "-Werror", "-fsyntax-only", "-I",
                                     str(pathlib.Path(source_dir, "include")), "-x", "c++", "-"],
                                    input=code, text=True, capture_output=True)
            if result.returncode != 0:
                yield f"an example of {name} does not compile:\n{result.stderr}"
        if count == 0:
            yield f"{name} has no example that begins with ```{fence}"


def main():
    compiler, source_dir = sys.argv[1:]
    page = sources.read(source_dir, "docs/second-door.md")
    faults = [*check_requests(page, source_dir), *check_reasons(page, source_dir),
              *check_examples(compiler, source_dir)]
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

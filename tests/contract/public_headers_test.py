#!/usr/bin/env python3
"""Compiles every public header of a library on its own, without an include path of any other library's, and looks for
names that applications must not need.

Usage: public_headers_test.py COMPILER INCLUDE_DIR FOLDER STANDARD [HEADER=STANDARD...]

FOLDER is that of the library below INCLUDE_DIR, STANDARD such as c++11; a single header may have one of its own.
"""

import pathlib
import re
import subprocess
import sys

FOREIGN = re.compile(r"\b(g[A-Z]\w*|G[A-Z]\w+\*|GVariant|GError|gio|glib|BtClientIpcAdapter|com_zelk\w*|com\.zelk)\b|zlog")


def main():
    compiler, include_dir, folder, standard, *others = sys.argv[1:]
    standards = dict(other.split("=") for other in others)
    failed = False
    headers = sorted(pathlib.Path(include_dir, folder).rglob("*.h"))
    for header in headers:
        name = header.relative_to(include_dir)
        command = [compiler, f"-std={standards.get(header.name, standard)}", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-fsyntax-only",
                   "-I", include_dir, "-x", "c++", "-"]
        source = f"#include <{name}>\n" * 2
        result = subprocess.run(command, input=source, text=True, capture_output=True)
        if result.returncode != 0:
            failed = True
            print(f"{name} does not compile on its own:\n{result.stderr}")
        for number, line in enumerate(header.read_text().splitlines(), 1):
            if FOREIGN.search(line.split("//")[0]):
                failed = True
                print(f"{name}:{number}: {line.strip()}")
    print(f"{len(headers)} headers")
    return 1 if failed or len(headers) < 10 else 0


if __name__ == "__main__":
    sys.exit(main())

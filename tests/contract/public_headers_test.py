#!/usr/bin/env python3
"""Compiles every public header on its own as C++11, and looks for names that applications must not need.

Usage: public_headers_test.py COMPILER INCLUDE_DIR
"""

import pathlib
import re
import subprocess
import sys

FOREIGN = re.compile(r"\b(g[A-Z]\w*|G[A-Z]\w+\*|GVariant|GError|gio|glib|BtClientIpcAdapter|com_zelk\w*|com\.zelk)\b|zlog")


def main():
    compiler, include_dir = sys.argv[1:]
    failed = False
    headers = sorted(pathlib.Path(include_dir, "bluetooth").glob("*.h"))
    for header in headers:
        command = [compiler, "-std=c++11", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-fsyntax-only",
                   "-I", include_dir, "-x", "c++", "-"]
        source = f"#include <bluetooth/{header.name}>\n" * 2
        result = subprocess.run(command, input=source, text=True, capture_output=True)
        if result.returncode != 0:
            failed = True
            print(f"{header.name} does not compile on its own:\n{result.stderr}")
        for number, line in enumerate(header.read_text().splitlines(), 1):
            if FOREIGN.search(line.split("//")[0]):
                failed = True
                print(f"{header.name}:{number}: {line.strip()}")
    print(f"{len(headers)} headers")
    return 1 if failed or len(headers) < 15 else 0


if __name__ == "__main__":
    sys.exit(main())

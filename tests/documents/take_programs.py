#!/usr/bin/env python3
"""Takes the programs of documents out of them, into a file each, and prints their names.

Usage: take_programs.py FOLDER DOCUMENT...
"""
import pathlib
import sys

import blocks


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for document in map(pathlib.Path, sys.argv[2:]):
        for name, program in blocks.programs_of(document.name, document.read_text()).items():
            path = folder / f"{name}.cpp"
            if not path.exists() or path.read_text() != program:  # else it would be compiled again
                path.write_text(program)
            print(name)


if __name__ == "__main__":
    main()

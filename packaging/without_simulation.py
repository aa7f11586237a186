#!/usr/bin/env python3
"""Shows that a tree which is configured without the simulation compiles and links a service, without compiling it once
more: each command that this takes is one of the build, which has been carried out there, and nothing that it read
belongs to the simulation.

Usage: without_simulation.py SOURCE BUILD BUILD_WITHOUT TARGET
  BUILD          a build folder of Ninja's, in which TARGET is built
  BUILD_WITHOUT  one that is configured without the simulation, and otherwise like BUILD
"""

import pathlib
import re
import subprocess
import sys


def ninja(build, *arguments):
    return subprocess.run(["ninja", "-C", build, *arguments], check=True, capture_output=True, text=True).stdout


def commands(build, target):
    """How a target is made, step by step, whatever the folder is called."""
    return [line.replace(build, "BUILD") for line in ninja(build, "-t", "commands", target).splitlines()
            if "--regenerate-during-build" not in line]


def objects(steps):
    return [match.group(1) for step in steps if (match := re.search(r" -o (\S+\.o) -c ", step))]


def headers(build):
    """What the compiler read for each object: object -> paths."""
    read = {}
    for line in ninja(build, "-t", "deps").splitlines():
        if line.startswith("    "):
            read[made].append(line.strip())
        elif line:
            made = line.split(":")[0]
            read[made] = []
    return read


def faults(source, build, without, target):
    made = set(commands(build, target))
    wanted = commands(without, target)
    for step in wanted:
        if step not in made:
            yield f"without the simulation {target} takes another step than with it: {step}"
    if not (pathlib.Path(build) / "bin" / target).exists():
        yield f"{target} is not built in {build}"
    read = headers(build)
    simulation = str(pathlib.Path(source, "service/simulation"))
    generated = str(pathlib.Path(build, "service/simulation"))
    for compiled in objects(wanted):
        if compiled not in read:
            yield f"{build} does not know what {compiled} was compiled from"
        for path in read.get(compiled, []):
            absolute = str(pathlib.Path(build, path).resolve())
            if absolute.startswith((simulation, generated)):
                yield f"{compiled} includes {path}, which a tree without the simulation has not made"
    if not objects(wanted):
        yield f"no step compiles anything for {target}"


def main():
    source, build, without, target = sys.argv[1:]
    found = list(faults(source, build, without, target))
    print("\n".join(found) or f"{target} is the same without the simulation")
    return 1 if found else 0


sys.exit(main())

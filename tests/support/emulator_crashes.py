#!/usr/bin/env python3
"""Tells crashes of qemu-arm from failures of tests.

Usage: emulator_crashes.py OUTCOME

OUTCOME is what ctest --output-junit has written. Names the tests of both kinds. The exit status is 4 if no test failed but
by a crash of the emulator, and 1 otherwise.
"""

import re
import sys
import xml.etree.ElementTree

# What qemu prints when it cannot go on itself. "uncaught target signal" is none of that: the program has crashed.
CRASH = re.compile(r"""
    QEMU\ internal\ SIG\w+
    | ^qemu(?:-arm(?:-static)?)?:\ fatal:
    | ^qemu(?:-arm(?:-static)?)?:\ [^\n]*:\ Assertion\ `
    | ^(?:Bail\ out!\ )?ERROR:[^\n]*(?:accel/tcg|tcg|linux-user|target/arm)[^\n]*:\ (?:assertion\ failed|code\ should\ not\ be\ reached)
    | ^[^\n]*tcg\ fatal\ error
    | ^qemu(?:-arm(?:-static)?)?:\ Unable\ to\ (?:reserve|allocate)\ 
    """, re.M | re.X)
ONLY_CRASHES = 4


def judge(outcome):
    """The names of the tests that failed, and of those in which the emulator crashed."""
    failed, crashed = [], []
    for case in xml.etree.ElementTree.parse(outcome).iter("testcase"):
        if case.get("status") == "fail":
            output = case.findtext("system-out") or ""
            (crashed if CRASH.search(output) else failed).append(case.get("name"))
    return failed, crashed


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    failed, crashed = judge(sys.argv[1])
    print(f"\n{len(failed)} tests failed, and in {len(crashed)} others the emulator crashed, which says nothing of them")
    for name in failed:
        print(f"    failed:           {name}")
    for name in crashed:
        print(f"    emulator crashed: {name}")
    return ONLY_CRASHES if crashed and not failed else 1


if __name__ == "__main__":
    sys.exit(main())

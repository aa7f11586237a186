#!/usr/bin/env python3
"""Says how many of the tests that ctest has run were left out, and why.

Usage: left_out.py JUNIT.xml, which ctest --output-junit has written
"""

import collections
import re
import sys
import xml.etree.ElementTree as ElementTree


def reason_of(output):
    """What a skipped test has given as its reason: GoogleTest's message, or else the last thing that it printed."""
    messages = re.findall(r": Skipped\n(.+)", output)
    return (messages or output.strip().splitlines() or ["it does not say why"])[-1]


def main():
    tests = ElementTree.parse(sys.argv[1]).getroot().findall("testcase")
    left_out = [test for test in tests if test.find("skipped") is not None]
    reasons = collections.Counter(reason_of(test.findtext("system-out") or "") for test in left_out)
    print(f"{len(left_out)} of {len(tests)} tests were left out{':' if left_out else ''}")
    for reason, count in sorted(reasons.items(), key=lambda item: (-item[1], item[0])):
        print(f"  {count}: {reason}")


main()

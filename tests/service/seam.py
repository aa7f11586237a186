#!/usr/bin/env python3
"""What the seam below the service asks of a stack, from its headers. Printed for the C++ tests, as lines
BT_SEAM_REQUEST(Subject, Request) for each request of SubjectControl.

Usage: seam.py SERVICE_FOLDER > seam_requests.inc
"""

import pathlib
import re
import sys

REQUEST = re.compile(r"^  virtual [^~;{]*?\b(\w+)\(", re.MULTILINE)


def requests(service):
    """The requests by subject. Ends the program if a header has none."""
    found = {}
    for header in sorted((service / "stack").glob("*Control.h")):
        found[header.name.replace("Control.h", "")] = REQUEST.findall(header.read_text())
        if not found[header.name.replace("Control.h", "")]:
            sys.exit(f"{header} has no request: does seam.py still know one when it sees it?")
    return found


if __name__ == "__main__":
    for subject, names in requests(pathlib.Path(sys.argv[1])).items():
        print("\n".join(f"BT_SEAM_REQUEST({subject}, {name})" for name in names))

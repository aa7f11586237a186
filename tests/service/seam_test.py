#!/usr/bin/env python3
"""Checks that the simulated stack answers every request of the seam by itself: one that it does not override is
refused, which nothing else would notice.

Usage: seam_test.py SERVICE_FOLDER
"""

import pathlib
import re
import sys

REQUEST = re.compile(r"^  virtual [^~;{]*?\b(\w+)\(", re.MULTILINE)
OVERRIDE = re.compile(r"\b(\w+)\([^;{]*\)(?: const)? override\b")


def main():
    service = pathlib.Path(sys.argv[1])
    faults = []
    for interface in sorted((service / "stack").glob("*Control.h")):
        subject = interface.name.replace("Control.h", "")
        simulated = {"Device": "Devices", "Call": "Calls"}.get(subject, subject)
        requests = REQUEST.findall(interface.read_text())
        if not requests:
            faults.append(f"{interface} has no request: is this test still right?")
        answered = OVERRIDE.findall((service / "model" / f"Simulated{simulated}.h").read_text())
        faults += [f"{subject}Control::{name} is not overridden in Simulated{simulated}.h: the simulation refuses it"
                   for name in requests if name not in answered]
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


main()

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
        requests = REQUEST.findall(interface.read_text())
        if not requests:
            faults.append(f"{interface} has no request: is this test still right?")
        simulated = {"Device": "SimulatedDevices.h", "Call": "SimulatedCalls.h"}.get(subject, f"Simulated{subject}.h")
        answered = OVERRIDE.findall(next((service / "simulation").glob(f"*/{simulated}")).read_text())
        faults += [f"{subject}Control::{name} is not overridden in {simulated}: the simulation refuses it"
                   for name in requests if name not in answered]
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


main()

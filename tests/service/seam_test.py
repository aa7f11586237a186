#!/usr/bin/env python3
"""Checks that the simulated stack answers every request of the seam by itself: one that it does not override is
refused, which nothing else would notice.

Usage: seam_test.py SERVICE_FOLDER
"""

import pathlib
import re
import sys

import seam

OVERRIDE = re.compile(r"\b(\w+)\([^;{]*\)(?: const)? override\b")
SIMULATED = {"Device": "SimulatedDevices", "Call": "SimulatedCalls"}


def main():
    service = pathlib.Path(sys.argv[1])
    faults = []
    for subject, names in seam.requests(service).items():
        simulated = SIMULATED.get(subject, f"Simulated{subject}")
        answered = OVERRIDE.findall("".join(
            source.read_text() for source in (service / "simulation").glob(f"*/{simulated}.*")))
        faults += [f"{subject}Control::{name} is not overridden in {simulated}: the simulation refuses it"
                   for name in names if name not in answered]
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


main()

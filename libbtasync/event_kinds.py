#!/usr/bin/env python3
"""Prints which signal each structure of Events.h comes from, as lines BT_EVENT(Structure, Signal) for EventKinds.cpp.
The header has the signal's name behind the beginning of the structure.

Usage: event_kinds.py INTERFACE.xml Events.h > EventKinds.inc
"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree


def signals_of_structures(text):
    """Pairs of a structure of Events.h and its signal, in their order; None for a structure that names none."""
    for match in re.finditer(r"^struct (\w+) \{(?:\};)?(?:  +// (\w+)$)?", text, re.M):
        yield match.groups()


def main():
    interface, header = sys.argv[1:]
    signals = {signal.get("name") for signal in ElementTree.parse(interface).getroot().iter("signal")}
    for structure, signal in signals_of_structures(pathlib.Path(header).read_text()):
        if signal is None:
            sys.exit(f"{header}: the signal that {structure} comes from is missing: struct {structure} {{  // OnX")
        if signal not in signals:
            sys.exit(f"{header}: {structure} comes from {signal}, which is no signal of {interface}")
        print(f"BT_EVENT({structure}, {signal})")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Prints a C++ header with the names and signatures of an interface, for code that is checked against them when it is
compiled. Usage: wire.py INTERFACE.xml > WireNames.h"""

import sys
import xml.etree.ElementTree as ElementTree

HEADER = """// Generated from the interface description. Do not edit.
#ifndef WIRENAMES_H
#define WIRENAMES_H

#include <array>
#include <string_view>

namespace btasync::wire {
"""

FOOTER = """
}  // namespace btasync::wire

#endif"""


def types(member, direction, default):
    return [argument.get("type") for argument in member.findall("arg")
            if argument.get("direction", default) == direction]


def listed(name, signatures):
    values = ", ".join(f'"{signature}"' for signature in signatures)
    return f"  static constexpr std::array<std::string_view, {len(signatures)}> {name}{{{values}}};"


def main():
    interface = ElementTree.parse(sys.argv[1]).getroot().find("interface")
    print(HEADER)
    for member in list(interface.findall("method")) + list(interface.findall("signal")):
        default = "in" if member.tag == "method" else "out"
        name = member.get("name")
        taken, given = types(member, "in", default), types(member, "out", default)
        print(f"struct {name} {{")
        print(f'  static constexpr char name[] = "{name}";')
        print(f'  static constexpr char outType[] = "({"".join(given)})";')
        print(listed("in", taken))
        print(listed("out", given))
        print("};")
    print(FOOTER)


main()

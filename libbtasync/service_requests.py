#!/usr/bin/env python3
"""Prints the definitions of the members of Service that pass their arguments on to one service call, as lines for
ServiceRequests.cpp. The header has all that they need: the arguments, the answer, and the name of the call, which stands
in brackets in the comment where it is not the member's own. A member that is defined in one of the sources is left out.

Usage: service_requests.py INTERFACE.xml Service.h SOURCE... > ServiceRequests.inc
"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree


def comments(header):
    """The members of Service that make a request: name -> the comment, in one line."""
    return {name: re.sub(r"\s*\n\s*///\s*", " ", comment) for comment, name in
            re.findall(r"((?:^  ///.*\n)*)^  Request<(?:[^;(]*)> (\w+)\(", header, re.M)}


def in_brackets(header):
    """The members of Service that make a request: name -> the words that stand in brackets in the comment."""
    return {name: re.findall(r"\((\w+)\)", comment) for name, comment in comments(header).items()}


def documented_method(name, words, methods):
    """The service call that a member makes by the header: of its own name, unless the comment names another one."""
    named = [word for word in words if word in methods]
    return named[0] if named else name if name in methods else None


def defined(source):
    """The members that a source defines."""
    return re.findall(r"^Request<[^;{]*?> Service::(\w+)\(", source, re.M)


def definitions(interface, header, sources):
    """The definitions, in the order of the header. Ends the program if there is a member that has none."""
    values_out = {method.get("name"): len(method.findall("arg[@direction='out']"))
                  for method in interface.iter("method")}
    by_hand = [name for source in sources for name in defined(source)]
    brackets = in_brackets(header)
    for answer, name, declared in re.findall(r"^  Request<([^;(]*)> (\w+)\(([^;]*)\);", header, re.M):
        if name in by_hand:
            continue
        method = documented_method(name, brackets[name], values_out)
        if method is None:
            sys.exit(f"Service.h: the comment of Service::{name} names no service call in brackets, and no "
                     "libbtasync/Service*.cpp defines it")
        if values_out[method] > 1:
            sys.exit(f"Service.h: {method} answers more than one value: Service::{name} has to be defined in a "
                     "libbtasync/Service*.cpp")
        parameters = re.sub(r" = [^,]*", "", " ".join(declared.split()))
        ask = f"AskFor<{answer}, wire::{method}>" if answer else f"Ask<wire::{method}>"
        arguments = ", ".join(["*this", *re.findall(r"(\w+)(?:,|$)", parameters)])
        yield f"Request<{answer}> Service::{name}({parameters}) {{ return wire::{ask}({arguments}); }}"


def main():
    interface, header, *sources = sys.argv[1:]
    print("\n".join(definitions(ElementTree.parse(interface).getroot(), pathlib.Path(header).read_text(),
                                [pathlib.Path(source).read_text() for source in sources])))


if __name__ == "__main__":
    main()

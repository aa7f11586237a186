#!/usr/bin/env python3
"""Writes down, for the C++ tests, what the interface description and the public headers declare.

Usage: derive.py XML INCLUDE_DIR WITNESS OUTPUT_DIR

Whoever includes one of the lists defines the macro that is called for each entry. A request or an event that is
declared and not carried out somewhere then does not compile, and the compiler names what is missing.

  methods.inc     BT_METHOD(Method)                    each method of the interface but those that the witness calls
                                                       uncalled
  requests.inc    BT_REQUEST(Facade, Method, "first")  each method of a facade that is a method of the interface, with
                                                       the name of its first parameter
  offers.inc      BT_OFFER(Facade, Method)             each method of a facade, overloads once
  events.inc      BT_EVENT(Kind, Event)                each event of a listener interface, in the order of declaration
  listeners.inc   the classes Recording<Kind>Listener, which override every event and pass its values to Note()
"""

import pathlib
import re
import sys
import xml.etree.ElementTree

FACADES = ["Com", "Phone", "Media", "Pbap", "Message", "Spp", "Ble"]


def without_comments(text):
    return re.sub(r"//[^\n]*", "", text)


def parameters(text):
    """The types and names of a list of parameters."""
    found = []
    for parameter in filter(None, (part.strip() for part in text.split(","))):
        type_name, name = re.fullmatch(r"(.*?)(\w+)", " ".join(parameter.split())).groups()
        found.append((type_name.strip(), name))
    return found


def methods_of(header, before_name):
    """Name and parameters of each member function that follows the expression."""
    text = without_comments(header.read_text())
    found = [(name, parameters(list_)) for name, list_ in re.findall(before_name + r"(\w+)\(([^)]*)\);", text)]
    if not found:
        sys.exit(f"derive.py: no method is found in {header}")
    return found


def noted(params):
    """The values that a listener notes of its parameters: a pointer to bytes and their number are one text."""
    values, i = [], 0
    while i < len(params):
        type_name, name = params[i]
        if type_name.endswith("*"):
            values.append(f"std::string({name}, {name} + {params[i + 1][1]})")
            i += 1
        else:
            values.append(name)
        i += 1
    return "".join(", " + value for value in values)


def listener_class(kind, events):
    lines = [f"class Recording{kind}Listener : public RecordingListener<IMWPBt{kind}Listener> {{",
             " public:",
             "  using RecordingListener::RecordingListener;"]
    for name, params in events:
        declared = ", ".join(f"{type_name} {parameter}" for type_name, parameter in params)
        lines.append(f"  void {name}({declared}) override {{ Note(__func__{noted(params)}); }}")
    return lines + ["};", ""]


def main():
    xml_file, include_dir, witness, output_dir = map(pathlib.Path, sys.argv[1:])
    uncalled = re.findall(r"^uncalled (\w+)", witness.read_text(), re.M)
    interface = xml.etree.ElementTree.parse(xml_file).getroot().find("interface")
    methods = [method.get("name") for method in interface.findall("method")]
    offers, requests, events, listeners = [], [], [], []
    for kind in FACADES:
        facade = f"MWPBt{kind}"
        result = r"\n  (?:int|void|std::string|MWPType\w+) "
        offered = methods_of(include_dir / "bluetooth" / f"{facade}.h", result)
        offers += dict.fromkeys(f"BT_OFFER({facade}, {name})" for name, _ in offered)
        requests += [f'BT_REQUEST({facade}, {name}, "{params[0][1] if params else ""}")'
                     for name, params in offered if name in methods]
        told = methods_of(include_dir / "bluetooth" / f"IMWPBt{kind}Listener.h", r"virtual void ")
        events += [f"BT_EVENT({kind}, {name})" for name, _ in told]
        listeners += listener_class(kind, told)
    output_dir.mkdir(parents=True, exist_ok=True)
    called = [f"BT_METHOD({name})" for name in methods if name not in uncalled]
    lists = {"methods": called, "requests": requests, "offers": offers, "events": events, "listeners": listeners}
    for name, lines in lists.items():
        (output_dir / f"{name}.inc").write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()

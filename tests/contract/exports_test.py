#!/usr/bin/env python3
"""Compares what libbt.so exports with the sources, in both directions.

Usage: exports_test.py LIBRARY SOURCE_DIR

Expected are the members of every class that a header marks with MWP_BT_API, the functions and variables that
are marked with it, the client's templates, and the bindings that the interface description gives rise to.
"""

import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree

HEADERS = ["include/bluetooth/*.h", "libbluetooth/*.h", "ipc/*.h", "ipc/ShareMemory/*.h", "ipc/D-Bus/*.h"]

# Templates of the client and of its registry, which are instantiated in the library.
TEMPLATES = {
    "MWPSingleton<MWPBtClient>": ["GetInstance", "ms_pSingleton", "ms_cs"],
    "IMWPListener<IMWPBtListenerBase>": [
        "~IMWPListener", "AddListener", "RemoveListener", "GetListeners", "GetListenerCount", "LockListener",
        "UnlockListener", "OnListenerAdded", "OnListenerRemoved"],
    "IMWPService<IMWPBtListenerBase>": [
        "~IMWPService", "InitListener", "ExitListener", "OnListenerAdded", "OnListenerRemoved"],
}
# What the compiler adds: tables, type information, and inline members of the platform's own classes.
NOT_IN_SOURCES = re.compile(r"^(vtable|typeinfo|typeinfo name|VTT|guard variable|non-virtual thunk) |"
                            r"^IMWPAppListener::|^IMWPListener<IMWPAppListener>::")
# Type functions and constructors of the bindings that do not come from a method or signal.
BINDING_FUNCTIONS = [
    "get_type", "interface_info", "override_properties", "proxy_get_type", "proxy_new", "proxy_new_finish",
    "proxy_new_sync", "proxy_new_for_bus", "proxy_new_for_bus_finish", "proxy_new_for_bus_sync",
    "skeleton_get_type", "skeleton_new"]


def without_comments(text):
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.S)


def members(name, body):
    """The functions and static variables declared in the body of a class."""
    found = {f"{name}::{name}"} if re.search(r"\b%s\(\w*\)\s*[;:]" % name, body) else set()
    # Members that are defined in the header are no exports to rely on.
    declared_only = re.sub(r"[^;{}]*\{[^{}]*\}", ";", body)
    for declaration in declared_only.split(";"):
        declaration = re.sub(r"\b(public|private|protected):", "", declaration).strip()
        if not declaration or declaration.startswith(("enum", "using", "typedef", "friend")):
            continue
        function = re.search(r"(~?\w+)\s*\(", declaration)
        if function:
            found.add(f"{name}::{function.group(1)}")
        elif declaration.startswith("static "):
            found.add(f"{name}::" + re.search(r"(\w+)$", declaration).group(1))
    return found


def expected_of_headers(source_dir):
    expected = set()
    for pattern in HEADERS:
        for header in sorted(pathlib.Path(source_dir).glob(pattern)):
            text = without_comments(header.read_text())
            for match in re.finditer(r"class MWP_BT_API (\w+)[^;{]*\{(.*?)\n\};", text, re.S):
                expected |= members(match.group(1), match.group(2))
            for match in re.finditer(r"^(?:extern )?MWP_BT_API [^;(]*?(\w+)\s*\(", text, re.M):
                expected.add(match.group(1))
            for match in re.finditer(r"^extern MWP_BT_API [^;(]*?(\w+);", text, re.M):
                expected.add(match.group(1))
    for template, names in TEMPLATES.items():
        expected |= {f"{template}::{name}" for name in names}
    return expected


def stem(name):
    return re.sub(r"(?<![A-Z])(?<!^)([A-Z])", r"_\1", name).lower()


def expected_of_bindings(source_dir):
    interface = xml.etree.ElementTree.parse(
        pathlib.Path(source_dir) / "ipc/D-Bus/com.zelk.linux.bluetooth.xml").getroot().find("interface")
    names = list(BINDING_FUNCTIONS)
    for method in interface.findall("method"):
        s = stem(method.get("name"))
        names += [f"call_{s}", f"call_{s}_finish", f"call_{s}_sync", f"complete_{s}"]
    for signal in interface.findall("signal"):
        names.append(f"emit_{stem(signal.get('name'))}")
    return {f"com_zelk_linux_bluetooth_{name}" for name in names}


def exported(library):
    output = subprocess.run(["nm", "--dynamic", "--defined-only", "--demangle", library], check=True,
                            capture_output=True, text=True).stdout
    names = set()
    for line in output.splitlines():
        name = line.split(" ", 2)[2]
        if NOT_IN_SOURCES.match(name) or name.startswith("__"):
            continue
        name = name.replace("(anonymous namespace)", "ANONYMOUS")
        name = name.split("(")[0].replace("[abi:cxx11]", "")
        name = re.sub(r"^(bool|int|void) ", "", name)
        name = re.sub(r"(::UnPackDataFromShareMemory)<.*", r"\1", name)
        names.add(name)
    return names


def main():
    library, source_dir = sys.argv[1:]
    expected = expected_of_headers(source_dir) | expected_of_bindings(source_dir)
    actual = exported(library)
    missing = sorted(expected - actual)
    unexpected = sorted(actual - expected)
    for name in missing:
        print(f"not exported: {name}")
    for name in unexpected:
        print(f"exported, but not in the sources as such: {name}")
    print(f"{len(actual)} names exported, {len(expected)} expected")
    return 1 if missing or unexpected or len(expected) < 800 else 0


if __name__ == "__main__":
    sys.exit(main())

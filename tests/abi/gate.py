#!/usr/bin/env python3
"""Compares the binary interfaces of the libraries with what is recorded of them, or records them.

Usage: gate.py [--record] BUILD ARCHITECTURE [INTERFACE...]

BUILD is a build directory of the preset abi or abi-armhf. The records are those of ARCHITECTURE (amd64 or armhf) beside
this script. Applications rely on what a library exports, and on the types of its public headers, for which its witness
stands: both are an INTERFACE. Default: all.

The exit status is 0 if applications that were built against what is recorded run with what was built, 1 if they do not,
and 2 if that could not be found out. With --record, a break is refused as well, and nothing is written.
"""

import argparse
import lzma
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
TREE = HERE.parent.parent
sys.path.insert(0, str(TREE / "libbtasync"))
sys.dont_write_bytecode = True  # nothing is written beside the sources
import event_kinds  # pylint: disable=wrong-import-position

# What the records were made with: others describe the same library in other words.
MADE_WITH = {"amd64": "g++-12", "armhf": "arm-linux-gnueabihf-g++"}
COMPILER_VERSION = "12"
ABIDW_VERSION = "2.2"
# Neither places nor names of parameters: they change, and nothing breaks.
ABIDW = ["abidw", "--no-show-locs", "--no-corpus-path", "--no-comp-dir-path", "--no-parameter-names",
         "--type-id-style", "hash", "--no-assume-odr-for-cplusplus"]
INTERFACES = ["libbt", "libbt-witness", "libbtasync", "libbtasync-witness"]
LARGEST_RECORD = 1_300_000  # bytes
# Bits of abidiff's exit status.
FAILED, WRONG_USAGE, CHANGED = 1, 2, 4

BREAKS = """\
{name}: applications that were built against the recorded interface would not run with this library ({architecture}).
If that is meant, {soname} cannot keep its name: see "The binary interface" in CONTRIBUTING.md."""


class CannotTell(Exception):
    """The comparison could not be made."""


def run(command, allowed=(0,)):
    result = subprocess.run(command, capture_output=True, text=True, check=False)
    if result.returncode not in allowed:
        raise CannotTell(f"{' '.join(map(str, command))} failed:\n{result.stdout}{result.stderr}")
    return result


def check_tools(build, architecture):
    """The compiler of the build and abidw are those that the records were made with."""
    cache = (build / "CMakeCache.txt").read_text()
    compiler = re.search(r"^CMAKE_CXX_COMPILER:\w+=(.*)$", cache, re.M)
    compiler = pathlib.Path(compiler[1]).name if compiler else MADE_WITH[architecture]
    version = run([compiler, "-dumpversion"]).stdout.strip()
    if compiler != MADE_WITH[architecture] or version.split(".")[0] != COMPILER_VERSION:
        raise CannotTell(f"the records were made with {MADE_WITH[architecture]} {COMPILER_VERSION}, "
                         f"and this build with {compiler} {version}")
    version = run(["abidw", "--version"]).stdout.split()[-1]
    if not version.startswith(ABIDW_VERSION + "."):
        raise CannotTell(f"the records were made with abidw {ABIDW_VERSION}, and this is {version}")


def text_of(record):
    return lzma.decompress(record.read_bytes()).decode()


def symbols_of(text):
    """What an interface exports: the name of each symbol, and for a variable its size."""
    found = {}
    for line in re.findall(r"<elf-symbol [^>]*is-defined='yes'[^>]*>", text):
        attributes = dict(re.findall(r"([\w-]+)='([^']*)'", line))
        size = f" of {attributes['size']} bytes" if "size" in attributes else ""
        found[attributes["name"]] = attributes["type"].removesuffix("-type").replace("func", "function") + size
    return found


def readable(names):
    """The names as they are in the sources."""
    if not names:
        return []
    return run(["c++filt", *names]).stdout.splitlines()


def defined_types(text):
    """The names of the records and enumerations that a record has with all their members."""
    found = re.findall(r"<(?:class|enum)-decl name='([^']*)'(?![^>]* is-declaration-only)", text)
    return {re.sub(r"&lt;.*", "", name) for name in found}


def without_scope(name):
    """The name of a type without namespaces and arguments of templates."""
    return re.sub(r"<.*", "", name).split("::")[-1]


def witnessed(source):
    """The types that a witness names, those of events included, which it takes from their header."""
    text = source.read_text()
    names = {without_scope(name) for name in re.findall(r"^WITNESS\((.*)\)$", text, re.M)}
    if re.search(r'^#include "EventKinds.inc"$', text, re.M):
        events = (TREE / "include/btasync/Events.h").read_text()
        names |= {structure for structure, _ in event_kinds.signals_of_structures(events)}
    return names


def recorded_by_witness(text):
    """The types that a witness named when this record of it was made."""
    return {without_scope(name) for name in
            re.findall(r"^Witness\((.*)\*\)$", "\n".join(readable(symbols_of(text))), re.M)}


class Interface:
    """What is built of a library, or its witness, and what is recorded of it."""

    def __init__(self, build, records, interface):
        library = interface.removesuffix("-witness")
        is_witness = library != interface
        self.soname = self._soname(build / "lib" / f"{library}.so")
        self.name = interface if is_witness else self.soname
        self.file = build / "lib" / f"{interface}.so"
        self.record = records / f"{self.name}.abi.xz"
        self.fresh = build / "abi" / f"{self.name}.abi"
        self.recorded = build / "abi" / f"{self.name}.recorded.abi"
        self.witness = HERE / f"witness_{library}.cpp" if is_witness else None

    @staticmethod
    def _soname(file):
        return re.search(r"Library soname: \[(.*)\]", run(["readelf", "-d", file]).stdout)[1]

    def take(self):
        """Takes the interface from what is built."""
        self.fresh.parent.mkdir(exist_ok=True)
        run([*ABIDW, "--out-file", self.fresh, self.file])
        text = self.fresh.read_text()
        if places := re.findall(r"['\"]/[^'\"/>]+/[^'\"]*", text):
            raise CannotTell(f"{self.name}: the record would have absolute paths: {places[:3]}")
        if self.witness and (missing := witnessed(self.witness) - defined_types(text)):
            raise CannotTell(f"{self.name}: the record would lack {', '.join(sorted(missing))}")

    def breaks(self):
        """Compares both, prints what has changed, and says whether an application would notice."""
        before = text_of(self.record)
        self.recorded.write_text(before)
        old, new = symbols_of(before), symbols_of(self.fresh.read_text())
        added = readable(sorted(new.keys() - old.keys()))
        for name in added:
            print(f"{self.name}: added: {name}")
        compared = run(["abidiff", "--no-added-syms", "--show-bytes", "--no-show-locs", "--no-linkage-name",
                        "--suppressions", HERE / "exceptions.abignore", self.recorded, self.fresh],
                       allowed=range(16))
        if compared.returncode & (FAILED | WRONG_USAGE):
            raise CannotTell(f"abidiff failed:\n{compared.stdout}{compared.stderr}")
        # The size of a table of virtual functions is that of its symbol.
        changed = sorted(name for name in old.keys() & new.keys() if old[name] != new[name])
        removed = readable(sorted(old.keys() - new.keys()))
        if not (compared.returncode & CHANGED or changed or removed):
            return False
        for name in removed:
            print(f"{self.name}: removed: {name}")
        for name, text in zip(changed, readable(changed)):
            print(f"{self.name}: changed: {text}: {old[name]}, now {new[name]}")
        print(compared.stdout, end="")
        return True

    def write(self):
        packed = lzma.compress(self.fresh.read_bytes(), preset=9 | lzma.PRESET_EXTREME)
        if len(packed) > LARGEST_RECORD:
            raise CannotTell(f"{self.name}: the packed record would have {len(packed)} bytes, "
                             f"more than {LARGEST_RECORD}")
        self.record.parent.mkdir(parents=True, exist_ok=True)
        if not self.record.exists() or text_of(self.record).encode() != self.fresh.read_bytes():
            self.record.write_bytes(packed)
            print(f"{self.name}: recorded in {self.record}, {len(packed)} bytes")
        else:
            print(f"{self.name}: the record is current")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--record", action="store_true")
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("architecture", choices=MADE_WITH)
    parser.add_argument("interfaces", metavar="INTERFACE", nargs="*", default=INTERFACES)
    options = parser.parse_args()
    records = HERE / "records" / options.architecture
    broken = False
    try:
        check_tools(options.build, options.architecture)
        interfaces = [Interface(options.build, records, interface) for interface in options.interfaces]
        for interface in interfaces:
            interface.take()
            if interface.record.exists():
                if interface.breaks():
                    broken = True
                    print(BREAKS.format(name=interface.name, soname=interface.soname,
                                        architecture=options.architecture))
                elif not options.record:
                    print(f"{interface.name}: as recorded ({options.architecture})")
            elif not options.record:
                raise CannotTell(f"nothing is recorded of {interface.name}: script/abi --record does that")
        if options.record and not broken:
            for interface in interfaces:
                interface.write()
    except CannotTell as reason:
        print(f"abi: {reason}", file=sys.stderr)
        return 2
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Compares the layout of what libbtasync's headers declare with a list. Templates and inline functions of these headers
are compiled into applications: a member that moves breaks each of them, without any error at link time.

Usage: layout.py [--update] COMPILER SOURCE_DIR

The list is layout-64.txt beside this script, or layout-32.txt, by the size of the compiler's pointers. --update writes it.

A class that is not in the list is new: no application has been compiled with it, and it may change until the version of
the library does. The first line of the list is the version that it was written for.
"""

import argparse
import pathlib
import re
import subprocess
import sys

# The instances that stand for a template.
INSTANCES = {
    "Answer": ["Answer<Accepted>", "Answer<bool>", "Answer<std::string>", "Answer<MWPTypeMediaInfo>"],
    "Request": ["Request<Accepted>", "Request<std::string>"],
    "Completion": ["detail::Completion<Accepted, void (*)(Answer<Accepted>)>"],
    "EventSubscription": ["detail::EventSubscription<PowerChanged, void (*)(const PowerChanged&)>"],
    "AvailabilitySubscription": ["detail::AvailabilitySubscription<void (*)(Availability)>"],
}
# The records of the first library's headers that are passed by value here.
RECORDS = ["MWPTypeDevice", "MWPTypeContact", "MWPTypeContactNumber", "MWPTypeCallLog", "MWPTypeCallSlot",
           "MWPTypeCallInfo", "MWPTypeMediaInfo", "MWPTypePlayMode"]
# How a declaration begins that is none of a member.
NO_MEMBER = re.compile(r"(using|friend|typedef|static|enum|struct|class|template)\b")
BROKEN = """
The layout of libbtasync's headers has changed. Applications are compiled against the old one and would go wrong without
an error: once a version with that layout has been released, this needs a new SONAME and inline namespace (SOVERSION in
libbtasync/CMakeLists.txt; `inline namespace v0` in include/btasync and libbtasync). Then write the new list:
    tests/async/layout.py --update COMPILER SOURCE_DIR
with the compiler of the build, and with one for 32-bit ARM (arm-linux-gnueabihf-g++)."""
OTHER_VERSION = """
The list is that of another version: what was new then has been released. Write the new list:
    tests/async/layout.py --update COMPILER SOURCE_DIR
with the compiler of the build, and with one for 32-bit ARM (arm-linux-gnueabihf-g++)."""


def without_nested(body):
    """The declarations of a class body: bodies of functions, initialisers and template arguments removed."""
    while re.search(r"\{[^{}]*\}", body):
        body = re.sub(r"\{[^{}]*\}", ";", body)
    return body


def without_pure_virtuals(body):
    return re.sub(r"\bvirtual [^;{]*= 0;", "", body)


def members(body):
    for declaration in without_nested(body).split(";"):
        declaration = re.sub(r"\b(public|protected|private):", "", declaration)
        while re.search(r"<[^<>]*>", declaration):
            declaration = re.sub(r"<[^<>]*>", "", declaration)
        declaration = " ".join(declaration.split("=")[0].split())
        if "(" in declaration or "operator" in declaration or NO_MEMBER.match(declaration):
            continue
        if match := re.fullmatch(r"[\w:&* ]+[ *&](\w+)", declaration):
            yield match.group(1)


def virtuals(body):
    """Its virtual functions, in the order of declaration, which is that of the table's slots."""
    text = without_nested(body)
    found = re.findall(r"virtual [^;(]*?(~?\w+)\(|(~?\w+)\([^;()]*\)(?: const)? (?:override|final)", text)
    return [one or other for one, other in found]


def end_of_block(text, begin):
    """Where the block ends that begins behind a bracket."""
    depth, end = 1, begin
    while depth:
        depth += {"{": 1, "}": -1}.get(text[end], 0)
        end += 1
    return end


def classes(text):
    """(name, with its namespace, body, place) of each class that is defined."""
    details = [(match.end(), end_of_block(text, match.end())) for match in re.finditer(r"\bnamespace detail \{", text)]
    for match in re.finditer(r"^ *(?:class|struct) (?:BTASYNC_API )?(?:\[\[nodiscard\]\] )?(\w+)[^;{]*\{", text, re.M):
        name = match.group(1)
        inside = any(begin < match.start() < end for begin, end in details)
        body = text[match.end():end_of_block(text, match.end()) - 1]
        yield name, ("detail::" if inside else "") + name, body, match.start()


def headers(source_dir):
    return sorted(pathlib.Path(source_dir, "include/btasync").glob("*.h"))


def entries(source_dir):
    """(text of the entry, C++ expression)."""
    found = [(f"sizeof {record}", f"sizeof({record})") for record in RECORDS]
    for header in headers(source_dir):
        if header.name == "Coroutine.h":
            continue  # compiled into applications alone: nothing of it goes to the library but its bases
        text = re.sub(r"//[^\n]*", "", header.read_text())
        for name, full_name, body, place in classes(text):
            if re.search(r"template <[^;{}]*>\s*$", text[:place]) and name not in INSTANCES:
                sys.exit(f"layout.py: {header.name} has a new template {name}: add what stands for it to INSTANCES")
            for instance in INSTANCES.get(name, [full_name]):
                found.append((f"sizeof {instance}", f"sizeof(L<{instance}>)"))
                found.append((f"alignof {instance}", f"alignof(L<{instance}>)"))
                for member in members(body):
                    found.append((f"offsetof {instance} {member}", f"__builtin_offsetof(L<{instance}>, {member})"))
            if virtuals(body):
                found.append((f"virtual {name}: {' '.join(virtuals(body))}", "0"))
    return found


def measured(compiler, source_dir):
    """The bits of a pointer, and the lines of the list."""
    listed = entries(source_dir)
    include = "\n".join(f"#include <btasync/{header.name}>" for header in headers(source_dir))
    # One more than each value: the compiler writes a zero in another way.
    values = ",\n".join(f"1 + {expression}" for _, expression in listed)
    source = f"""#include <coroutine>
{include}
using namespace btasync;
template <typename T> using L = T;
extern const long kLayout[] = {{sizeof(void*),
{values}}};
"""
    command = [*compiler.split(), "-std=c++20", "-S", "-O0", "-g0", "-o", "-", "-fno-access-control",
               "-Wno-invalid-offsetof", "-I", str(pathlib.Path(source_dir, "include")), "-x", "c++", "-"]
    result = subprocess.run(command, input=source, text=True, capture_output=True)
    if result.returncode != 0:
        sys.exit(f"layout.py: {result.stderr}")
    table = result.stdout[result.stdout.index("\nkLayout:"):]
    numbers = []
    for line in table.splitlines()[2:]:
        match = re.match(r"\s+\.(?:quad|xword|long|word|4byte|8byte)\s+(\d+)\s*$", line)
        if match is None:
            break
        numbers.append(int(match.group(1)))
    if len(numbers) != len(listed) + 1:
        sys.exit(f"layout.py: {len(numbers)} numbers for {len(listed) + 1} in the compiler's output")
    lines = [text if text.startswith("virtual ") else f"{text} {number - 1}"
             for (text, _), number in zip(listed, numbers[1:])]
    return numbers[0] * 8, lines


def version(source_dir):
    text = pathlib.Path(source_dir, "libbtasync/CMakeLists.txt").read_text()
    return "version " + re.search(r"^ +VERSION ([\d.]+)$", text, re.M).group(1)


def name_of(line):
    """The class that a line of the list is about, or its template."""
    return re.match(r"\w+ (?:detail::)?(\w+)", line).group(1)


def differences(listed, lines):
    """What is not as it was: a line that is not there any more, or a further one about a class that was there."""
    known = {name_of(line) for line in listed}
    yield from (f"was: {line}" for line in listed if line not in lines)
    yield from (f"is:  {line}" for line in lines if line not in listed and name_of(line) in known)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--update", action="store_true")
    parser.add_argument("compiler")
    parser.add_argument("source_dir")
    options = parser.parse_args()
    bits, lines = measured(options.compiler, options.source_dir)
    file = pathlib.Path(__file__).with_name(f"layout-{bits}.txt")
    if options.update:
        file.write_text("\n".join([version(options.source_dir), *lines]) + "\n")
        return 0
    listed_version, *listed = file.read_text().splitlines()
    faults = list(differences(listed, lines))
    for fault in faults:
        print(fault)
    for name in dict.fromkeys(map(name_of, lines)):
        if name not in map(name_of, listed):
            print(f"new: {name}")
    print(f"{len(lines)} entries, {bits} bits")
    if faults:
        print(BROKEN)
        return 1
    if listed_version != version(options.source_dir):
        print(OTHER_VERSION)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())

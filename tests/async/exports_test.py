#!/usr/bin/env python3
"""Compares what libbtasync.so exports with its headers, in both directions, and with what libbt.so exports: no name may
be in both, since both live in one process. And it may use nothing that waits.

Usage: exports_test.py LIBBTASYNC LIBBT SOURCE_DIR
"""

import pathlib
import re
import subprocess
import sys

import layout
import sources

# What the compiler adds.
NOT_IN_SOURCES = re.compile(r"^(vtable|typeinfo|typeinfo name|VTT|non-virtual thunk) (for|to) ")
# GLib's functions that wait, or that run a loop inside a call.
WAITING = re.compile(r"_sync$|^g_main_context_(iteration|wait)$|^g_main_loop_|^g_bus_get$|^(g_thread|pthread)_join$"
                     r"|^(g_poll|g_usleep|p?poll|p?select|epoll_p?wait|(u|nano|clock_nano)?sleep)$")


def symbols(library, *options):
    output = subprocess.run(["nm", "--dynamic", *options, library], check=True, capture_output=True, text=True).stdout
    return {re.sub(r"@.*", "", line[19:] if line[0] != " " else line.split(maxsplit=1)[1]) for line in output.splitlines()}


def declared(body):
    """(name, declaration) of each function that is declared and defined elsewhere."""
    while re.search(r"\{[^{}]*\}", body):
        body = re.sub(r"\{[^{}]*\}", "@", body)
    for declaration in re.split(r";|(?<=@)", body):
        if re.search(r"@|= *(default|delete|0)\s*$|\b(using|typedef)\b", declaration):
            continue
        while re.search(r"<[^<>]*>", declaration):
            declaration = re.sub(r"<[^<>]*>", "", declaration)
        if function := re.search(r"(operator==|~?\w+)\s*\(", declaration.split(" = ")[0]):
            yield function.group(1), declaration


def expected(source_dir):
    names = {f"KindOf<{name}>" for name in [*sources.structures(source_dir), "Availability"]}
    headers = layout.headers(source_dir) + [pathlib.Path(source_dir, "libbtasync/Backend.h")]
    for header in headers:
        text = re.sub(r"//[^\n]*|^#.*", "", header.read_text(), flags=re.M)
        outside = text
        for name, _, body, place in layout.classes(text):
            is_marked = "BTASYNC_API" in text[place:text.index("{", place)]
            for function, declaration in declared(body):
                is_friend = "friend" in declaration
                if "BTASYNC_API" in declaration or is_marked and not is_friend:
                    names.add(function if is_friend else f"{name}::{function}")
            outside = outside.replace(body, "")
        names |= set(re.findall(r"^BTASYNC_API [\w:*&<> ]+?\b(\w+)\(", outside, re.M)) - {"KindOf"}
    return names


def actual(library):
    names = set()
    for name in symbols(library, "--defined-only", "--demangle"):
        if NOT_IN_SOURCES.match(name):
            continue
        name = re.sub(r"\(.*", "", name.replace("[abi:cxx11]", ""))
        name = re.sub(r"btasync::v0::(detail::)?", "", name)
        names.add(re.sub(r"^.* (?=KindOf)", "", name))
    return names


def check(library, first, source_dir):
    for name in symbols(library, "--defined-only", "--demangle"):
        if "btasync::v0::" not in re.sub(r"\(.*", "", name):
            yield f"exported, and not in the namespace btasync::v0: {name}"
    for name in symbols(library, "--defined-only") & symbols(first, "--defined-only"):
        yield f"exported by both libraries: {name}"
    for name in symbols(library, "--undefined-only"):
        if WAITING.search(name):
            yield f"it uses what waits: {name}"
    wanted, found = expected(source_dir), actual(library)
    for name in sorted(wanted - found):
        yield f"not exported: {name}"
    for name in sorted(found - wanted):
        if name.count("::") < 2:  # a class in a class that is marked is exported with it
            yield f"exported, but not in the headers as such: {name}"
    for member in sources.requests(source_dir):
        if f"Service::{member}" not in wanted:
            yield f"Service::{member} was not found in the headers: this test does not read them as it should"


def main():
    faults = list(check(*sys.argv[1:]))
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

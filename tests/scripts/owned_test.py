#!/usr/bin/env python3
"""Checks that what GLib makes has its owners in glib/ alone: Owned.h, OwnedId.h, OwnedBus.h. Elsewhere nothing is
released by hand, no other class knows how to, and no other variable receives a GError.

Usage: owned_test.py TREE
"""

import pathlib
import re
import sys

# What only an owner does: how a source shows that it does, and what is to be used instead.
OWNING = {
    r"\bg_\w*(?:unref|free|strfreev|iconv_close)\b|\bg_(?:clear|steal)_(?:error|object|pointer|list|slist)\b":
        "the owner of its kind in glib/Owned.h",
    r"\bg_auto\w*\b": "the owner of its kind in glib/Owned.h",
    r"\b(?:unique_ptr|shared_ptr)<\s*(?:const\s+)?(?:_?G[A-Z]\w*|gchar|guchar|gpointer)\b": "an alias in glib/Owned.h",
    r"\bGError\s*\*\s*\w+\s*(?:=|\{|;)": "OwnedError and its Out()",
    r"\bg_variant_(?:ref_sink|take_ref|ref)\b|\bg_object_ref(?:_sink)?\b": "OwnedVariant or NewRef()",
    r"\bg_source_remove\b": "OwnedSourceId",
    r"\bg_signal_handler_disconnect\b": "OwnedHandler",
    r"\bg_bus_un(?:own|watch)_name\b|\bg_dbus_connection_(?:signal_unsubscribe|remove_filter)\b":
        "the owner of its kind in glib/OwnedBus.h",
}
# Beginnings of paths.
EXCEPTIONS = {
    "glib/": "the owners themselves",
    "tests/unit/owned_test.cpp": "tests them",
    "examples/": "what an application needs to know, without anything of this tree but the library's headers",
    "docs/screens/": "as the examples",
    "bench/harness/MeasuredRequests.h": "the yardstick by hand, which must not change with this tree",
    "bench/harness/MeasuredEvents.cpp": "disconnects handlers that are the library's, and never end otherwise",
}


def without_comments(source):
    return re.sub(r"//[^\n]*", "", source)


def uses(source):
    """The lines that own something by themselves: line number, what shows it, what is to be used instead."""
    for number, line in enumerate(without_comments(source).split("\n"), 1):
        for pattern, instead in OWNING.items():
            for found in re.findall(pattern, line):
                yield number, found, instead


def main():
    tree = pathlib.Path(sys.argv[1])
    # Not what is built in the tree: script/build does so in build/, dpkg-buildpackage in obj-ARCHITECTURE/.
    folders = [path for path in sorted(tree.iterdir())
               if path.is_dir() and path.name != "build" and not path.name.startswith((".", "obj-"))]
    sources = {
        path.relative_to(tree).as_posix(): path.read_text()
        for folder in folders for path in sorted(folder.rglob("*")) if path.suffix in (".h", ".cpp")
    }
    faults = []
    needed = set()
    for path, source in sources.items():
        exceptions = [beginning for beginning in EXCEPTIONS if path.startswith(beginning)]
        for number, found, instead in uses(source):
            needed.update(exceptions)
            if not exceptions:
                faults.append(f"{path}:{number}: {found}: use {instead}")
    faults += [f"{path} owns nothing by itself: may its exception go?" for path in EXCEPTIONS.keys() - needed]
    print("\n".join(faults) or f"{len(sources)} sources own nothing of GLib's in a way of their own")
    return 1 if faults else 0


sys.exit(main())

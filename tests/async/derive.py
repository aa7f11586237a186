#!/usr/bin/env python3
"""Writes down, for the C++ tests, what libbtasync's headers declare.

Usage: derive.py SOURCE_DIR OUTPUT_DIR

  async_requests.inc   BT_ASYNC_REQUEST(Member, "Method")    each member of Service that makes one service call, with
                                                             the one that its comment names
  async_events.inc     BT_ASYNC_EVENT(Structure, "Signal")   each structure of Events.h
  async_fields.inc     Fields FieldsOf(const Structure&)     the values of a structure, in the order of declaration
"""

import pathlib
import sys

import sources


def requests(source_dir):
    methods = sources.methods(source_dir)
    for member, in_brackets in sources.requests(source_dir).items():
        if member in sources.LISTS:
            continue
        method = sources.documented_method(member, in_brackets, methods)
        if method is None:
            sys.exit(f"derive.py: the comment of Service::{member} in Service.h names no service call in brackets")
        yield f'BT_ASYNC_REQUEST({member}, "{method}")'


def events(source_dir):
    structures = sources.structures(source_dir)
    signals = dict(sources.wired_signals(source_dir))
    for name in structures:
        if signals.get(name) is None:
            sys.exit(f"derive.py: Events.h names no signal behind 'struct {name} {{'")
        yield f'BT_ASYNC_EVENT({name}, "{signals[name]}")'


def fields(source_dir):
    for name, members in sources.structures(source_dir).items():
        values = ", ".join(f"Noted(event.{member})" for member in members)
        yield (f"inline Fields FieldsOf([[maybe_unused]] const btasync::{name}& event) {{\n"
               f"  return {{{values}}};\n}}")


def main():
    source_dir, output_dir = sys.argv[1], pathlib.Path(sys.argv[2])
    output_dir.mkdir(parents=True, exist_ok=True)
    for name, lines in {"requests": requests, "events": events, "fields": fields}.items():
        (output_dir / f"async_{name}.inc").write_text("\n".join(lines(source_dir)) + "\n")


if __name__ == "__main__":
    main()

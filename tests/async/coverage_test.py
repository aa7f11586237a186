#!/usr/bin/env python3
"""Compares the interface description with libbtasync: each method is called by exactly one member of Service, the one
that the header names, and each signal becomes exactly one structure of Events.h. No two requests have the same name.
Each request after which an event comes has an outcome.

Usage: coverage_test.py SOURCE_DIR
"""

import collections
import pathlib
import re
import sys

import sources

# What the library leaves out: name -> the reason. Nothing.
EXCEPTIONS = {}
# Requests that have no outcome although an event comes after them: name -> the reason.
WITHOUT_OUTCOME = {
    "Play": "a player that plays already reports nothing",
    "Pause": "likewise",
    "BrowseScope": "items that are there already are not reported again",
}


def check_methods(source_dir):
    methods = sources.methods(source_dir)
    declared = sources.requests(source_dir)
    wired = sources.wired_methods(source_dir)
    users = collections.defaultdict(list)
    for member in declared:
        if member not in wired:
            yield f"Service::{member} is declared in Service.h and defined in no libbtasync/Service*.cpp"
    for member, names in wired.items():
        if member not in declared:
            yield f"Service::{member} is defined and not declared"
            continue
        called = [name for name in methods if name in names]
        for name in called:
            users[name].append(member)
        documented = sources.documented_method(member, declared[member], methods)
        expected = sources.LISTS.get(member, [documented])
        if called != expected:
            yield (f"Service::{member} calls {', '.join(called) or 'nothing'}, but its comment in Service.h says "
                   f"{', '.join(map(str, expected)) or 'nothing'}")
    for name in methods:
        if name in EXCEPTIONS:
            if users[name]:
                yield f"{name} is an exception and called by Service::{users[name][0]}"
        elif not users[name]:
            yield f"no member of Service calls {name}: declare one in Service.h, define it in a libbtasync/Service*.cpp"
        elif len(users[name]) > 1:
            yield f"{name} is called by more than one member: {', '.join(users[name])}"


def check_names(source_dir):
    """FakeService tells requests apart by their names: those of service calls, and of lists the members'."""
    names = sources.methods(source_dir)
    for file in sorted(pathlib.Path(source_dir, "libbtasync").glob("Service*.cpp")):
        plans = re.findall(r"^constexpr \w+PlanOf<[^;]*?>\s+k(\w+)\(\s*\"(\w+)\"", file.read_text(), re.M)
        yield from (f"{file.name}: the plan k{plan} is named {name}" for plan, name in plans if name != plan)
        names += [name for _, name in plans]
    missing = sorted(set(sources.LISTS) - set(names))
    yield from (f"no plan is named {name}" for name in missing)
    yield from (f"{count} requests are named {name}" for name, count in collections.Counter(names).items() if count > 1)


def check_outcomes(source_dir):
    methods = sources.methods(source_dir)
    brackets = sources.requests(source_dir)
    with_outcome = set(re.findall(r'^ +\{"(\w+)", ', sources.read(source_dir, "protocol/Outcomes.h"), re.M))
    for member, comment in sources.comments(source_dir).items():
        method = sources.documented_method(member, brackets[member], methods)
        has_event = re.search(r"\bThen [A-Z]\w+", comment) is not None
        if has_event != (method in with_outcome or member in WITHOUT_OUTCOME):
            yield (f"Service::{member}: its comment names {'an' if has_event else 'no'} event that comes after it, and "
                   f"protocol/Outcomes.h has {'none' if has_event else 'one'}")
        if member in WITHOUT_OUTCOME and method in with_outcome:
            yield f"{member} is an exception and has an outcome"
    yield from (f"{name} is no request" for name in sorted(WITHOUT_OUTCOME.keys() - brackets.keys()))


def check_signals(source_dir):
    signals = sources.signals(source_dir)
    structures = sources.structures(source_dir).keys()
    wired = sources.wired_signals(source_dir)
    for signal in signals:
        names = [structure for structure, name in wired if name == signal]
        if signal in EXCEPTIONS:
            if names:
                yield f"{signal} is an exception and becomes {names[0]}"
        elif not names:
            yield f"no event comes from {signal}: add a structure to Events.h, with its name behind it"
        elif len(names) > 1:
            yield f"{signal} becomes more than one event: {', '.join(names)}"
    for structure in structures - dict(wired).keys():
        yield f"{structure} of Events.h comes from no signal"
    for structure, signal in wired:
        if signal not in signals:
            yield f"{structure} of Events.h comes from {signal}, and the interface does not have it"


def main():
    source_dir = sys.argv[1]
    faults = [*check_methods(source_dir), *check_names(source_dir), *check_outcomes(source_dir),
              *check_signals(source_dir)]
    for fault in faults:
        print(fault)
    methods, signals = sources.methods(source_dir), sources.signals(source_dir)
    print(f"{len(methods)} methods, {len(signals)} signals, {len(EXCEPTIONS)} exceptions, "
          f"{len(WITHOUT_OUTCOME)} requests without an outcome")
    return 0 if methods and signals and not faults else 1


if __name__ == "__main__":
    sys.exit(main())

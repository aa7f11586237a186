#!/usr/bin/env python3
"""Calls the methods of a living service with odd and hostile arguments, in random order, and judges it from outside: it
answers each call with a result or a D-Bus error, takes no more memory than it may, and ends at SIGTERM in time.

Runs in script/sandbox, on a bus. Usage: calls_test.py [--count N] [--seed N] [--requests] CONTROLS_XML SERVICE_XML WORLD...
--requests: calls the methods of the service itself in place of the controls of the simulation.
"""
import argparse
import collections
import pathlib
import random
import sys
import tempfile
import time
import xml.etree.ElementTree as ElementTree

import messages
import odd_calls
from bus import Bus, CallError
from service import FAULTS, OUTSIDE, SERVICE, Service

# Not what the service says, but what it must not say: the libraries' own words, or that it knows no better.
OWN_ERRORS = ("org.freedesktop.DBus.Error.InvalidArgs", "org.freedesktop.DBus.Error.LimitsExceeded")
NO_REPLY = "org.freedesktop.DBus.Error.NoReply"
CALLS_BETWEEN_CHECKS = 50


def memory_of(process):
    """KiB that are in memory now."""
    for line in pathlib.Path(f"/proc/{process.pid}/status").read_text().splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1])
    return 0


class Run:
    """One service, and the calls that it gets."""

    def __init__(self, options, source, folder):
        self.options, self.random = options, source
        self.bus = Bus(options.bound)
        self.counts = collections.Counter()
        self.most_memory = 0
        self.targets = {target[2]: target for target in (SERVICE, OUTSIDE, FAULTS)}
        interface = ElementTree.parse(options.service)
        self.service_names = [node.get("name") for kind in ("method", "signal") for node in interface.iter(kind)]
        world = source.choice(options.worlds)
        self.service = Service(["--world", str(world), "--speed", source.choice(["1", "20", "1000"]), "--state",
                                str(folder / "state.json")], folder / "errors", options.bound)
        assert self.service.wait_until_settled(self.bus), self.service.said()
        # It goes on answering there while it has given up its name.
        self.name = self.service.unique_name(self.bus)

    def call(self, target, member, signature="", arguments=()):
        return self.bus.call((self.name, *target[1:]), member, signature, arguments)

    def call_oddly(self, method):
        arguments = odd_calls.arguments(method, self.random, self.service_names)
        try:
            self.call(self.targets[method.interface], method.name, method.signature, arguments)
            self.counts["answered"] += 1
        except CallError as problem:
            if problem.name == NO_REPLY:
                self.find_again()
                return
            assert problem.name in OWN_ERRORS, f"{problem.name}: {problem.text[:300]}"
            messages.check(problem.text.encode())
            assert problem.text.count("\n") == 0, problem.text[:300]
            self.counts["refused"] += 1
        except Exception:
            shown = ", ".join(repr(argument)[:80] for argument in arguments)
            print(f"the call was {method.name}({shown})", file=sys.stderr)
            raise

    def find_again(self):
        """GLib has closed the service's connection because of a message that it cannot decode."""
        end = time.monotonic() + self.options.bound
        abandoned, self.name = self.name, None
        while self.name in (None, abandoned) or not self.has_objects():
            assert not self.service.has_ended(), f"it has ended with status {self.service.status}"
            assert time.monotonic() < end, "it is not on the bus again"
            time.sleep(0.002)
            self.name = self.service.connection(self.bus)
        self.counts["taken as noise"] += 1

    def has_objects(self):
        try:
            return bool(self.call(FAULTS, "GetTime"))
        except CallError:
            return False

    def check_that_it_lives(self):
        """It does what it is there for, once the faults that were ordered are taken back."""
        self.call(FAULTS, "AnswerAgain")
        self.call(SERVICE, "GetPowerStatus")
        before = self.call(FAULTS, "GetTime")[0]
        end = time.monotonic() + self.options.bound
        while self.call(FAULTS, "GetTime")[0] == before:
            assert time.monotonic() < end, "its time stands still"
            time.sleep(0.002)
        memory = memory_of(self.service.process) >> 10
        self.most_memory = max(self.most_memory, memory)
        assert not self.options.memory or memory <= self.options.memory, f"it has {memory} MiB in memory"

    def run(self, methods):
        for number in range(self.options.count):
            if number % len(methods) == 0:
                self.random.shuffle(methods)
            self.call_oddly(methods[number % len(methods)])
            if number % CALLS_BETWEEN_CHECKS == 0:
                self.check_that_it_lives()
        self.check_that_it_lives()
        self.service.stop()
        assert self.service.status == 0, f"exit status {self.service.status}"
        messages.check(self.service.said())


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--count", type=int, default=400)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--requests", action="store_true", help="call the service itself, not the controls")
    parser.add_argument("--bound", type=float, default=30, help="seconds in which an answer, a start and an end must come")
    parser.add_argument("--memory", type=int, default=1024, help="MiB that the service may have; 0: any")
    parser.add_argument("controls", type=pathlib.Path, help="the description of the controls")
    parser.add_argument("service", type=pathlib.Path, help="that of the service")
    parser.add_argument("worlds", nargs="+", type=pathlib.Path)
    options = parser.parse_args()

    # Die does what it is asked for.
    methods = [method for method in odd_calls.methods_of(options.service if options.requests else options.controls)
               if method.name != "Die"]
    with tempfile.TemporaryDirectory() as folder:
        run = Run(options, random.Random(options.seed), pathlib.Path(folder))
        try:
            run.run(methods)
        finally:
            run.service.kill()
            sys.stderr.write(run.service.said()[:3000].decode(errors="backslashreplace"))
    print(f"seed {options.seed}: {options.count} calls of {len(methods)} methods:", dict(sorted(run.counts.items())),
          f"at most {run.most_memory} MiB")


if __name__ == "__main__":
    sys.exit(main())

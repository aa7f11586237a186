#!/usr/bin/env python3
"""Starts the service with worlds, vCards and state files that are bent in every way, and judges it from outside: it ends
in time with the documented exit code, or serves; it says on one line what is wrong; it never spoils a state file.

Runs in script/sandbox, on a bus. Usage: files_test.py [--count N] [--seed N] [--only INDEX] [--keep DIRECTORY] ...
"""
import argparse
import collections
import os
import pathlib
import random
import shutil
import sys
import tempfile
import traceback

import cases
from bus import Bus
from service import Service

NOT_ROOT_OVER_FILES = ("setpriv", "--bounding-set=-dac_override,-dac_read_search",
                       "--inh-caps=-dac_override,-dac_read_search")


def run(case, bus, folder, options):
    """Runs the service once with a case. Raises AssertionError or TimeoutError if it does wrong."""
    wrapper = NOT_ROOT_OVER_FILES if os.getuid() == 0 else ()
    service = Service(case.arguments, folder / "errors", options.bound, wrapper)
    try:
        serves = service.wait_until_settled(bus)
        if serves:
            case.use(bus)
            service.stop()
        case.judge(serves, service.status, service.said())
    finally:
        service.kill()
    limit = options.memory << 10
    assert not limit or service.most_memory <= limit, f"it took {service.most_memory} KiB of memory"
    return serves


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", type=int, help="only the case with this number")
    parser.add_argument("--bound", type=float, default=20, help="seconds in which a start and an end must happen")
    parser.add_argument("--memory", type=int, default=1024, help="MiB that the service may take; 0: any")
    parser.add_argument("--keep", type=pathlib.Path, help="where the files of cases that failed are put")
    parser.add_argument("worlds", nargs="+", type=pathlib.Path, help="worlds that are in order")
    options = parser.parse_args()

    bus = Bus(options.bound)
    counts, failed = collections.Counter(), 0
    for index in range(options.count) if options.only is None else [options.only]:
        folder = pathlib.Path(tempfile.mkdtemp())
        case = cases.make(index, folder, [world.resolve() for world in options.worlds], random.Random(f"{options.seed}/{index}"))
        try:
            serves = run(case, bus, folder, options)
            counts[f"{case.kind}: {'served' if serves else 'refused'}"] += 1
        except Exception:
            failed += 1
            print(f"--seed {options.seed} --only {index}: {case.kind}, {case.name}", file=sys.stderr)
            traceback.print_exc(limit=-2)
            said = folder / "errors"
            sys.stderr.write(said.read_bytes()[:2000].decode(errors="backslashreplace") if said.exists() else "")
            if options.keep:
                shutil.copytree(folder, options.keep / f"{options.seed}-{index}", symlinks=True)
        os.system(f"chmod -R u+rwx '{folder}' 2>/dev/null")
        shutil.rmtree(folder, ignore_errors=True)
    print(f"seed {options.seed}: {sum(counts.values()) + failed} files, {failed} failed;", dict(sorted(counts.items())))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

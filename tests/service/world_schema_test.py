#!/usr/bin/env python3
"""Checks the published schema of worlds with a validator that is not ours: it is a schema, worlds that the service
takes are valid, and each of these with something wrong in it is not.

Usage: world_schema_test.py SCHEMA WORLD...
"""

import copy
import json
import pathlib
import sys

try:
    import jsonschema
except ImportError:
    print("there is no validator: install python3-jsonschema")
    sys.exit(77)  # CTest knows that this means skipped

WRONGS = {
    "no format": lambda world: world.pop("format"),
    "another format": lambda world: world.update(format=2),
    "a stranger among the members": lambda world: world.update(weather="rain"),
    "a number for a text": lambda world: world.update(description=1),
    "no list of devices": lambda world: world.update(devices={}),
    "a device without address": lambda world: world.update(devices=[{"name": "x"}]),
    "an address that is none": lambda world: world.update(devices=[{"address": "00:11", "name": "x"}]),
    "a profile that is none": lambda world: world.update(
        devices=[{"address": "00:1A:7D:DA:71:13", "name": "x", "profiles": ["fax"]}]),
    "a delay below zero": lambda world: world.update(delays={"pageMs": -1}),
    "a happening that is none": lambda world: world.update(timeline=[{"atMs": 0, "do": "explode"}]),
}


def problems(validator, path):
    world = json.loads(path.read_text())
    found = [f"{path.name}: {error.json_path}: {error.message}" for error in validator.iter_errors(world)]
    for name, damage in WRONGS.items():
        damaged = copy.deepcopy(world)
        damage(damaged)
        if validator.is_valid(damaged):
            found.append(f"{path.name}: valid in spite of {name}")
    return found


def main():
    schema = json.loads(pathlib.Path(sys.argv[1]).read_text())
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    worlds = [path for path in map(pathlib.Path, sys.argv[2:]) if path != pathlib.Path(sys.argv[1])]
    found = [problem for path in worlds for problem in problems(validator, path)]
    print("\n".join(found) or f"{len(worlds)} worlds")
    return 1 if found or len(worlds) < 5 else 0


if __name__ == "__main__":
    sys.exit(main())

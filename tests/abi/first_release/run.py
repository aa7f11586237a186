#!/usr/bin/env python3
"""Builds application.cpp as it was built when the first release was new, and runs it with today's library and service.

It is compiled with the headers of the first release, which are kept here with their checksums, and linked against a library
that has the recorded symbols of libbt and no code. So it can neither use nor need anything that came later.

Usage: run.py ARCHITECTURE COMPILER LIBRARY_DIRECTORY SERVICE [FLAG...]

ARCHITECTURE is amd64 or armhf, FLAG what the compiler needs for it and for GLib.
"""

import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
TREE = HERE.parent.parent.parent
WORLDS = TREE / "service/simulation/worlds"
sys.path.insert(0, str(HERE.parent))
import gate  # pylint: disable=wrong-import-position

SECONDS = 300  # an emulator may run it


def fail(*words):
    sys.exit("first_release: " + " ".join(words))


def check_headers():
    """The headers are those of the first release, all of them, and no others."""
    listed = {name: digest for digest, name in
              (line.split("  ") for line in (HERE / "SHA256SUMS").read_text().splitlines())}
    there = {path.relative_to(HERE).as_posix(): hashlib.sha256(path.read_bytes()).hexdigest()
             for path in (HERE / "include").rglob("*") if path.is_file()}
    if changed := sorted(name for name in listed.keys() | there.keys() if listed.get(name) != there.get(name)):
        fail("these are not the headers of the first release any more:", *changed)


def stub_of(record):
    """The assembler's text of a library that exports what is recorded. It is linked against, and never run."""
    lines = []
    for line in re.findall(r"<elf-symbol [^>]*is-defined='yes'[^>]*>", gate.text_of(record)):
        symbol = dict(re.findall(r"([\w-]+)='([^']*)'", line))
        is_function = symbol["type"] == "func-type"
        size = int(symbol.get("size", 0)) or 1
        lines += [".text" if is_function else ".data", ".balign 8",
                  f".{'weak' if symbol['binding'] == 'weak-binding' else 'globl'} {symbol['name']}",
                  f".type {symbol['name']}, %{'function' if is_function else 'object'}",
                  f".size {symbol['name']}, {size}",
                  f"{symbol['name']}:", f".zero {size}"]
    if len(lines) < 1000:
        fail(f"{record} has hardly any symbol")
    return "\n".join(lines) + '\n.section .note.GNU-stack,"",%progbits\n'


def build(work, architecture, compiler, flags):
    """Builds the application in a directory; the library that it is linked against is removed again."""
    stub, source, application = work / "stub/libbt.so", work / "stub.s", work / "application"
    stub.parent.mkdir()
    source.write_text(stub_of(HERE.parent / "records" / architecture / "libbt.so.1.abi.xz"))
    subprocess.run([compiler, "-shared", "-nostdlib", "-Wl,-soname,libbt.so.1", source, "-o", stub], check=True)
    subprocess.run([compiler, "-std=c++11", "-O2", "-Wall", "-Wextra", "-Werror", "-Wno-psabi", "-I", HERE / "include",
                    HERE / "application.cpp", "-o", application, "-L", stub.parent, "-lbt", *flags], check=True)
    shutil.rmtree(stub.parent)
    return application


def world(work):
    """A world with one phone, in which nothing happens by itself."""
    shutil.copy(WORLDS / "one-phone.vcf", work)
    content = json.loads((WORLDS / "one-phone.json").read_text())
    content["timeline"] = []
    file = work / "world.json"
    file.write_text(json.dumps(content))
    return file


def run(work, application, library_directory, service):
    script = '/app/bin/btservice --no-state --world "$1" & "$2"; status=$?; kill $!; wait $!; exit $status'
    environment = {**os.environ, "LD_LIBRARY_PATH": library_directory, "LD_BIND_NOW": "1", "LC_ALL": "C.UTF-8"}
    return subprocess.run([TREE / "script/sandbox", "--service", service, "dbus-run-session", "--",
                           "bash", "-c", script, "bash", world(work), application],
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, env=environment, timeout=SECONDS,
                          check=False)


def main():
    if len(sys.argv) < 5:
        sys.exit(__doc__)
    architecture, compiler, library_directory, service, *flags = sys.argv[1:]
    check_headers()
    with tempfile.TemporaryDirectory() as name:
        work = pathlib.Path(name)
        application = build(work, architecture, compiler, flags)
        result = run(work, application, library_directory, service)
    # What the loader says when a variable or a table has another size than it had.
    if result.returncode != 0 or "re-linking" in result.stderr:
        fail(f"it ends with {result.returncode}:\n{result.stdout}{result.stderr}")
    if result.stdout != (HERE / "expected.txt").read_text():
        fail(f"it prints something else than expected.txt has:\n{result.stdout}")
    print(result.stdout, end="")


if __name__ == "__main__":
    main()

"""btctl's rooms: each includes from itself and from those below it, and one source speaks D-Bus.

Usage: rooms_test.py TOOLS_BTCTL_FOLDER
"""

import pathlib
import re
import sys

BUS = "bus/SessionBus.cpp"


def rooms_from_below(main):
    """The rooms in the order in which main.cpp lists them."""
    return re.findall(r"^//   (\w+)/ ", main, re.MULTILINE)


def faults(folder):
    sources = {
        path.relative_to(folder): path.read_text() for path in sorted(folder.rglob("*")) if path.suffix in (".h", ".cpp")
    }
    order = rooms_from_below(sources[pathlib.Path("main.cpp")])
    found = {path.parts[0] for path in sources if len(path.parts) > 1}
    for room in sorted(found.symmetric_difference(order)):
        yield f"main.cpp lists other rooms than there are: {room}"
    for path, text in sources.items():
        if len(path.parts) > 1 and path.parts[0] in order:
            allowed = order[: order.index(path.parts[0]) + 1]
            for room in re.findall(r'^#include "btctl/(\w+)/', text, re.MULTILINE):
                if room not in allowed:
                    yield f"{path} includes from {room}/, which is above {path.parts[0]}/"
        speaks = re.search(r"<gio/|\bg_d?bus_\w+", text)
        if speaks and path.as_posix() != BUS:
            yield f"{path} speaks D-Bus ({speaks.group()}), which only {BUS} is to do"
        if not speaks and path.as_posix() == BUS:
            yield f"{BUS} does not speak D-Bus: is this test looking at the right place?"


def main():
    folder = pathlib.Path(sys.argv[1])
    found = list(faults(folder))
    print("\n".join(found) or "the rooms of btctl are in order")
    return 1 if found else 0


sys.exit(main())

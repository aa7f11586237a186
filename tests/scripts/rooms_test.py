#!/usr/bin/env python3
"""Checks who knows whom: which room (a folder) includes headers of which other, and who may use D-Bus, shared memory
and zlog; and that README's picture of the rooms shows that.

Usage: rooms_test.py TREE
"""

import pathlib
import re
import sys

# A room, and those that it may include from, beside itself. Names are beginnings of paths: a file is in the room with
# the longest name that its path begins with. The rooms of btctl are added to these: its main.cpp lists them.
ROOMS = {
    "include/bluetooth": "",
    "glib": "",
    "protocol": "include/bluetooth",
    "platform": "glib",
    "ipc": "include/bluetooth glib protocol platform",
    "ipc/BtClientIpcAdapterSignals": "include/bluetooth glib protocol platform ipc libbluetooth",  # events go up
    "libbluetooth": "include/bluetooth protocol platform ipc",
    "include/btasync": "include/bluetooth",
    "libbtasync": "include/bluetooth include/btasync glib protocol ipc/ShareMemory/Segment",
    "qt": "include/btasync",
    "service/time": "",
    "service/stack": "include/bluetooth protocol",
    "service/files": "protocol service/time",
    "service/phonebook": "glib service/files service/stack",
    "service/reports": "service/stack service/time",
    "service/state": "glib platform service/files service/stack",
    "service/frontend": "glib protocol platform ipc/D-Bus ipc/ShareMemory service/stack",
    "service/app": "glib protocol platform ipc/ShareMemory service/files service/frontend service/stack service/state "
                   "service/time",
    "service/simulation/world": "protocol platform service/files service/phonebook service/simulation service/stack "
                                "service/time",
    # Its objects on the bus are bound to functions as those of the frontend are, and stand between it and its answers.
    "service/simulation/controls": "glib ipc/ShareMemory service/files service/frontend/AnswerGate "
                                   "service/frontend/MethodBinder service/frontend/WireLimits service/phonebook "
                                   "service/simulation service/time",
    # A stack is plugged into a service by what StackProvider.h says.
    "service/bluez": "glib protocol platform service/app/StackProvider service/files service/frontend/segments/TextCut "
                     "service/phonebook/Charset service/stack service/time",
    "service/bluez/bus": "glib platform service/files service/time",  # daemons and their objects, of whatever kind
    "service/simulation": "glib protocol platform service/app/StackProvider service/app/ExitCodes service/app/Exported "
                          "service/phonebook service/reports service/stack service/time",
    # The one place that knows which stacks there are.
    "service/BuiltStacks": "service/app/StackChoice service/bluez/BluezProvider service/simulation/SimulationProvider",
    "tools/btctl": "include/bluetooth glib protocol",
    "tools/btctl/composed/Devices": "include/bluetooth include/btasync tools/btctl",  # what libbt does not have
    "examples": "include/bluetooth include/btasync",
    "examples/platform": "platform",  # no application, but what lies below the library
    "examples/power_only_service": "include/bluetooth service/app",  # no application, but a stack
    "bench": "include/bluetooth include/btasync glib protocol ipc service/frontend/segments service/phonebook",
}
# Folders of the tree without rules: they may include everything.
FREE = ("packaging", "tests")
# Something from outside that only some may use: how a source shows that it does, and who may.
OUTSIDE = {
    "D-Bus": (
        r"^#include <gio/|\bg_d?bus_\w+",
        "glib/OwnedBus.h ipc libbtasync service/app service/bluez/bus service/frontend service/simulation/controls "
        "tools/btctl/bus/SessionBus.cpp bench examples/found_devices",
    ),
    "the bindings that are generated": (
        r"^#include <bt_(?:dbus|sim)\.h>",
        "ipc service/app service/frontend service/simulation/controls service/simulation/SimulationProvider bench",
    ),
    "shared memory": (r"^#include <sys/shm\.h>|\bshm(?:get|at|dt|ctl)\(", "ipc/ShareMemory libbtasync/SharedMemory"),
    "zlog": (r"^#include <zlog\.h>", "platform"),
}
# Where the compiler finds headers of this tree, beside the folder of the source.
INCLUDE_FOLDERS = ("", "include", "platform/include", "tools")
INCLUDE = re.compile(r'^#include [<"]([^">]+)[">]', re.MULTILINE)


def begins_with_one_of(path, names):
    return any(path.startswith(name) for name in names.split())


class Tree:
    """The sources in the rooms, and the rooms in which they are."""

    def __init__(self, root):
        self.root = root
        built = set(re.findall(r"add_subdirectory\((\w+)\)", (root / "CMakeLists.txt").read_text()))
        tops = sorted(built.union(room.split("/")[0] for room in ROOMS).difference(FREE))
        self.sources = {
            str(path.relative_to(root)): path.read_text()
            for top in tops for path in sorted((root / top).rglob("*")) if path.suffix in (".h", ".cpp")
        }
        below = ["tools/btctl/" + room for room in self.rooms_that_btctl_lists()]
        self.rooms = {**ROOMS, **{
            room: " ".join([ROOMS["tools/btctl"], *below[:place]]) for place, room in enumerate(below)
        }}

    def rooms_that_btctl_lists(self):
        """Each may include from itself and from those before it."""
        return re.findall(r"^//   (\w+/) ", self.sources["tools/btctl/main.cpp"], re.MULTILINE)

    def room_of(self, path):
        return max((room for room in self.rooms if path.startswith(room)), key=len, default=None)

    def included(self, path):
        """The headers of this tree that a source includes: their paths."""
        for name in INCLUDE.findall(self.sources[path]):
            for folder in (pathlib.Path(path).parent, *INCLUDE_FOLDERS):
                header = str(folder / pathlib.Path(name))
                if header in self.sources:
                    yield header
                    break


def faults_of_rooms(tree):
    seen = set()
    for path in tree.sources:
        room = tree.room_of(path)
        seen.add(room)
        if room is None:
            yield f"{path} is in no room: give its folder a line in ROOMS"
            continue
        for header in tree.included(path):
            if not begins_with_one_of(header, f"{room} {tree.rooms[room]}"):
                yield f"{path} includes {header}, but {room} may include only from: {tree.rooms[room] or 'itself'}"
    for room in sorted(tree.rooms.keys() - seen):
        yield f"there is no source in {room}: is its line still right?"
    listed = {"tools/btctl/" + room for room in tree.rooms_that_btctl_lists()}
    found = {re.match(r"tools/btctl/\w+/", path).group() for path in tree.sources if re.match(r"tools/btctl/\w+/", path)}
    for room in sorted(found - listed):
        yield f"tools/btctl/main.cpp does not list {room}"


def faults_of_outside(tree):
    for what, (pattern, users) in OUTSIDE.items():
        uses = {path: re.search(pattern, source, re.MULTILINE) for path, source in tree.sources.items()}
        users_seen = [path for path, use in uses.items() if use]
        for path in users_seen:
            if not begins_with_one_of(path, users):
                yield f"{path} uses {what} ({uses[path].group()}), which only these may: {users}"
        for user in users.split():
            if not any(path.startswith(user) for path in users_seen):
                yield f"nothing in {user} uses {what}: may it be left out of those who may?"


def faults_of_picture(tree):
    """README's picture shows the application's process above the bus: a room there may know those that come after it, and
    all know the types of include/bluetooth. Only the arrow "events" leads up. Below the bus is the service's chain."""
    readme = (tree.root / "README.md").read_text()
    section = re.search(r"^## Architecture\n(.*?)^## ", readme, re.MULTILINE | re.DOTALL)[1]
    process, service = re.search(r"```\n(.*?)^ *session bus(.*?)```", section, re.MULTILINE | re.DOTALL).groups()
    room = re.compile(r"\b(include/bluetooth|tools/btctl|[\w-]+/(?:[\w-]+/)?)(?=[\s,])")
    drawn = [name.rstrip("/") for name in room.findall(process)]
    for name in [*drawn, *(name.rstrip("/") for name in room.findall(service))]:
        if not (tree.root / name).is_dir():
            yield f"README's picture has the room {name}, which is not there"
    for top in sorted({path.split("/")[0] for path in tree.sources} | set(FREE)):
        if not re.search(rf"\b{top}/", section):
            yield f"README does not say under Architecture what {top}/ is"

    def drawn_room_of(path):
        return max((name for name in drawn if path.startswith(name + "/")), key=len, default=None)

    if not re.search(r"\^\n.*\| events\n", process):
        yield "README's picture no longer shows that events go up: is this test still right?"
    for path in tree.sources:
        above = drawn_room_of(path)
        for below in {drawn_room_of(header) for header in tree.included(path)} - {above, None, "include/bluetooth"}:
            is_event = (above, below) == ("ipc", "libbluetooth") and tree.room_of(path) != "ipc"
            if above and not is_event and drawn.index(below) < drawn.index(above):
                yield f"{path} includes from {below}, which README's picture shows above {above}"

    known = {(one, other) for one in ("app", "frontend", "stack", "simulation", "bluez") for path in tree.sources
             if path.startswith(f"service/{one}/") for other in re.findall(
                 r"\bservice/(\w+)/", " ".join(tree.included(path)))}
    chain = re.findall(r"[\w, ]*\w|->|<-", re.search(r"\w+(?: (?:->|<-) \w+(?:, \w+)*)+", service)[0])
    links = [(left.strip(), arrow, right) for left, arrow, rights in zip(chain[::2], chain[1::2], chain[2::2])
             for right in rights.strip().split(", ")]
    if ("stack", "<-", "bluez") not in links:
        yield "README's picture does not show both stacks: is this test still right?"
    for left, arrow, right in links:
        knows = (left, right) if arrow == "->" else (right, left)
        if knows not in known or knows[::-1] in known:
            yield f"README's picture has {left} {arrow} {right} in service/, but not only {knows[0]} knows the other"


def main():
    tree = Tree(pathlib.Path(sys.argv[1]))
    faults = [*faults_of_rooms(tree), *faults_of_outside(tree), *faults_of_picture(tree)]
    print("\n".join(faults) or f"{len(tree.rooms)} rooms are in order")
    return 1 if faults else 0


sys.exit(main())

#!/usr/bin/env python3
"""Checks who knows whom: which folder includes headers of which other, and who may use D-Bus, shared memory and zlog.

Usage: rooms_test.py TREE
"""

import pathlib
import re
import sys

# A room and those that it may include from, beside itself and the public headers. A file is in the room with the longest
# name that its path begins with.
ROOMS = {
    "glib": "",
    "include": "",
    "protocol": "",
    "platform": "glib",
    "ipc": "glib protocol platform",
    "ipc/BtClientIpcAdapterSignals": "ipc glib protocol platform libbluetooth",  # events go up
    "libbluetooth": "ipc protocol platform",
    "service/time": "",
    "service/stack": "",
    "service/files": "protocol service/time",
    "service/phonebook": "service/files service/stack",
    "service/reports": "service/stack service/time",
    "service/state": "protocol platform service/files service/stack",
    "service/frontend": "protocol platform ipc/D-Bus ipc/ShareMemory service/stack",
    "service/app": "protocol platform ipc/ShareMemory service/frontend service/stack service/state service/time service/files",
    "service/simulation/world": "protocol platform service/files service/phonebook service/stack service/time "
                                "service/simulation",
    "service/simulation/controls": "protocol ipc/ShareMemory service/files service/frontend service/phonebook "
                                   "service/simulation service/time",
    "service/simulation": "protocol platform service/app service/files service/phonebook service/reports service/stack "
                          "service/time",
    "tools/btctl": "protocol",
    "examples": "service/app",  # the stack that is an example; an application includes public headers alone
    "bench": "ipc protocol service/frontend/segments service/phonebook",
}
# Who may include a header from outside.
OUTSIDE = {
    r"gio/|bt_dbus\.h|bt_sim\.h": "ipc service/frontend service/app service/simulation/controls "
                                                 "service/simulation/SimulationProvider service/simulation/Stage "
                                                 "tools/btctl/bus bench examples/found_devices",
    r"sys/shm\.h": "ipc/ShareMemory",
    r"zlog\.h": "platform",
}
INCLUDE = re.compile(r'^#include (?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def room_of(path):
    fitting = [room for room in ROOMS if path.startswith(room)]
    return max(fitting, key=len, default=None)


def main():
    tree = pathlib.Path(sys.argv[1])
    faults = []
    seen = set()
    files = [file for top in sorted({room.split("/")[0] for room in ROOMS}) for file in sorted((tree / top).rglob("*"))
             if file.suffix in (".h", ".cpp")]
    for file in files:
        path = str(file.relative_to(tree))
        room = room_of(path)
        if room is None:
            continue
        seen.add(room)
        may = [room, *ROOMS[room].split()]
        for own, outside in INCLUDE.findall(file.read_text()):
            own_room = room_of("tools/" + own if own.startswith("btctl/") else own)
            if own_room is not None and not any(own.startswith(one) or own_room.startswith(one) for one in may):
                faults.append(f"{path} includes {own}: {room} may know {ROOMS[room] or 'nobody'}")
            for pattern, users in OUTSIDE.items():
                if re.match(pattern, outside) and not any(path.startswith(user) for user in users.split()):
                    faults.append(f"{path} includes <{outside}>, which only these may: {users}")
    faults += [f"there is no file in {room}: is its line still right?" for room in ROOMS.keys() - seen]
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


main()

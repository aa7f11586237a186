#!/usr/bin/env python3
"""Checks that nothing in the stack over BlueZ waits for a daemon: no function of GLib's that does is used in its objects.

Usage: no_waiting_test.py ARCHIVE
"""

import re
import subprocess
import sys

WAITS = re.compile(r"_sync$|^g_(?:usleep|main_loop_run|main_context_iteration|socket_condition_wait)$|^(?:u|nano)?sleep$")


def main():
    names = subprocess.run(["nm", "--undefined-only", "--format=just-symbols", sys.argv[1]], check=True,
                           capture_output=True, text=True).stdout.split()
    if "g_dbus_connection_call" not in names or "g_dbus_connection_new_for_address" not in names:
        sys.exit(f"{sys.argv[1]} calls no daemon: does this test still look at the right objects?")
    faults = sorted({name for name in names if WAITS.search(name)})
    print("\n".join(f"{name} waits, and with it the main loop" for name in faults))
    sys.exit(1 if faults else 0)


main()

"""Reads what libbtasync declares and how it is wired, out of its sources, for derive.py and coverage_test.py."""

import pathlib
import re
import sys
import xml.etree.ElementTree

sys.path.append(str(pathlib.Path(__file__).parents[2] / "libbtasync"))
import event_kinds
import service_requests

XML = "ipc/D-Bus/com.zelk.linux.bluetooth.xml"

# Members of Service that are more than one call: they read shared memory. What calls they make, in which order.
LISTS = {
    "PairedDevices": [],
    "CurrentCalls": [],
    "Contacts": ["GetContactList"],
    "FavoriteContacts": ["GetFavContactList"],
    "GetContact": ["GetContactByIndex"],
    "CallLogs": ["GetCallLogList"],
    "GetCallLog": ["GetCallLogById"],
}


def interface(source_dir):
    return xml.etree.ElementTree.parse(pathlib.Path(source_dir, XML)).getroot().find("interface")


def methods(source_dir):
    return [method.get("name") for method in interface(source_dir).findall("method")]


def signals(source_dir):
    return [signal.get("name") for signal in interface(source_dir).findall("signal")]


def read(source_dir, name):
    return pathlib.Path(source_dir, name).read_text()


def comments(source_dir):
    """The members of Service that make a request: name -> the comment, in one line."""
    return service_requests.comments(read(source_dir, "include/btasync/Service.h"))


def requests(source_dir):
    """The members of Service that make a request: name -> the words in the brackets of its comment."""
    return service_requests.in_brackets(read(source_dir, "include/btasync/Service.h"))


documented_method = service_requests.documented_method


def wired_methods(source_dir):
    """The members that are defined, in a source or derived from the header: name -> the service calls that stand in their
    bodies. Of a list, that is the call that its plan begins with."""
    found = {}
    by_hand = [re.sub(r"//[^\n]*", "", file.read_text())
               for file in sorted(pathlib.Path(source_dir, "libbtasync").glob("Service*.cpp"))]
    derived = service_requests.definitions(interface(source_dir), read(source_dir, "include/btasync/Service.h"), by_hand)
    for text in [*by_hand, "\n".join(derived)]:
        plans = dict(re.findall(r"^constexpr \w+<wire::(\w+)[^;]*?>\s+(k\w+)\(", text, re.M))
        first_calls = {plan: method for method, plan in plans.items()}
        parts = re.split(r"^Request<[^;{]*?> Service::(\w+)\(", text, flags=re.M)
        for name, body in zip(parts[1::2], parts[2::2]):
            calls = found.setdefault(name, set())
            calls.update(re.findall(r"\bwire::(\w+)", body))
            calls.update(first_calls[plan] for plan in re.findall(r"\bk\w+", body) if plan in first_calls)
    return found


def structures(source_dir):
    """The structures of Events.h: name -> the names of their fields, in order."""
    text = re.sub(r"//[^\n]*", "", read(source_dir, "include/btasync/Events.h"))
    return {name: re.findall(r"(\w+);", body) for name, body in re.findall(r"\bstruct (\w+) \{([^}]*)\}", text)}


def wired_signals(source_dir):
    """Pairs of a structure and the signal that it comes from, as Events.h has them and EventKinds.cpp gets them."""
    return list(event_kinds.signals_of_structures(read(source_dir, "include/btasync/Events.h")))

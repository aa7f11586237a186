"""Calls of an interface, with arguments that are made from the signatures in the description of the interface."""
import xml.etree.ElementTree as ElementTree

import odd_values
from bus import Variant

KNOWN = ["00:1A:7D:DA:71:13", "00:1A:7D:DA:71:14", "00:1a:7d:da:71:13", "00:02:EE:5A:10:4C"]
WORDS = {
    "profile": ["hfp", "a2dp", "avrcp", "pbap", "map", "spp", "hid", "pan", "HFP", "fax", ""],
    "behaviour": ["answers", "busy", "no-answer", "shy"],
    "status": ["new", "sent", "delivered", "deleted", "shifted", "memory-full", "lost"],
    "handle": ["1", "20", "FFFFFFFFFFFFFFFF", "G", "1" * 17],
    "number": ["112", "+49170000001", "anonymous", "1" * 5000],
    "errorName": ["org.example.Tired", "tired", "a." + "b" * 300, ".", "org..x", "org.example.\u00e4"],
}
DEVICES = [
    '{"address": "%s", "name": "New"}', '{"address": "%s", "name": "P", "profiles": ["hfp", "pbap", "map", "spp"], '
    '"paired": true, "phoneBook": {"generate": %d}}', '{"address": "%s"}', "[", "{}", "null", "1e999", '"%s"', "//", "",
    '{"address": "%s", "name": "N", "phoneBook": {"vcard": "/dev/zero"}}',
    '{"address": "%s", "name": "N", "phoneBook": {"vcard": "/dev/tty"}}',
    '{"address": "%s", "name": "N", "phoneBook": {"vcard": "\\u001b[31m\\u0000"}}',
    '{"address": "%s", "name": "N", "serial": {"script": {"\\u0000": "\\u0000"}}}',
]
TEXTS = {
    "vcards": ["", "BEGIN:VCARD\nVERSION:3.0\nFN:New\nTEL:112\nEND:VCARD\n" * 3, "BEGIN:VCARD\nFN:x\n", "END:VCARD", "\x1b[31m",
               "BEGIN:VCARD\nVERSION:3.0\nFN:" + "x" * 100000 + "\nEND:VCARD\n"],
    "entry": ['{"type": "missed", "number": "112", "date": "2026-05-29", "time": "18:05:10"}', '{"type": "missed"}', "{}", "[]",
              '{"type": "lost", "number": 1}', '{"type": "missed", "number": "112", "date": "x"}', "null", ""],
    "tracks": ['[{"uid": "n1", "title": "New", "lengthMs": 1000}]', '[{"uid": "n1", "title": "New", "lengthMs": 0}]', "[]", "{}",
               '[{"uid": "n1", "title": "\\u001b", "lengthMs": 1}, {"uid": "n1", "title": "", "lengthMs": 2147483647}]', "[1]",
               "null", ""],
}
UNSIGNED = [0, 1, 2, 3, 7, 8, 39, 40, 41, 255, 65536, 2**31, 2**32 - 1]
HUGE = 16 << 20


class Method:
    def __init__(self, interface, node):
        self.interface = interface.get("name")
        self.name = node.get("name")
        self.arguments = [(arg.get("name"), arg.get("type")) for arg in node.findall("arg") if arg.get("direction") == "in"]
        self.signature = "".join(kind for _, kind in self.arguments)


def methods_of(description):
    return [Method(interface, node) for interface in ElementTree.parse(description).iter("interface")
            for node in interface.iter("method")]


def device(random):
    text = random.choice(DEVICES)
    address = random.choice(KNOWN + [f"02:00:00:00:00:{random.randrange(256):02X}"] * 5 + odd_values.ADDRESSES)
    fields = (address.replace("\0", ""), random.choice([0, 3, 100000, 100001]))[:text.count("%")]
    return random.choice([text % fields] * 4 + ["[" * 1000000, '{"a":' * 1000000, " " * HUGE, '"' + "x" * HUGE + '"'])


def text(name, random):
    """Without NUL, since the bus lets none pass."""
    if name == "device":
        return device(random)
    if name in TEXTS:
        return random.choice(TEXTS[name] + ["[" * 1000000, " " * HUGE])
    if "addr" in name.lower() and random.random() < 0.8:
        return random.choice(KNOWN)
    if name in WORDS and random.random() < 0.8:
        return random.choice(WORDS[name])
    if random.random() < 0.02:
        return "z" * random.choice([65000, 66000, HUGE])
    return odd_values.any_text(random).replace("\0", "")


def method_or_signal(random, names):
    return random.choice(["*", "", "no name", "a" * 256, "\u00e4"] + names)


def variant(random, depth=0):
    if depth < 40 and random.random() < (0.9 if depth else 0.2):
        return Variant("v", variant(random, depth + 1))
    return random.choice([
        Variant("y", 255), Variant("b", 1), Variant("i", -1), Variant("u", 2**32 - 1), Variant("x", -2**63),
        Variant("d", float("nan")), Variant("s", "\x1b[31m\u202e"), Variant("o", "/"), Variant("g", ""),
        Variant("ay", bytes(random.choice([0, 1, 100000]))), Variant("as", ["a"] * random.choice([0, 1, 2000])),
        Variant("(isv)", (1, "", Variant("y", 0))), Variant("a{sv}", []), Variant("a" * 31 + "y", []),
        Variant("h", 0), Variant("a(ssy)", [("a", "b", 1)] * 3),
    ])


def integer(name, random):
    if name == "bars":
        return random.choice([-1, 0, 5, 6, 2**31 - 1, -2**31])
    return random.choice([value for value in odd_values.INTEGERS if -2**31 <= value < 2**31])


def argument(name, kind, random, service_names):
    if kind == "s":
        is_name = name == "method" or name == "name" and random.random() < 0.5
        return method_or_signal(random, service_names) if is_name else text(name, random)
    if kind == "b":
        return random.choice([0, 1])
    if kind == "i":
        return integer(name, random)
    if kind == "u":
        return random.choice(UNSIGNED)
    if kind == "y":
        return random.choice([0, 1, 2, 3, 6, 7, 127, 128, 255])
    if kind == "(yy)":
        return random.choice([(0, 0), (1, 2), (255, 255)])
    if kind == "v":
        return variant(random)
    if kind == "ay":
        return random.randbytes(random.choice([0, 1, 4, 1000])) if random.random() < 0.95 else bytes(HUGE)
    if kind == "av":
        return [variant(random) for _ in range(random.choice([0, 1, 2, 3, 300]))]
    raise ValueError(f"arguments of type {kind} are new to this test")


def arguments(method, random, service_names):
    return [argument(name, kind, random, service_names) for name, kind in method.arguments]

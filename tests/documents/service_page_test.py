#!/usr/bin/env python3
"""docs/writing-a-service.md says what the headers of protocol/ and the segments of the simulated service say.

Usage: service_page_test.py TREE BUILD TEST...
"""
import pathlib
import re
import sys
import unittest

from checkout import Checkout, phone_has_come

TREE, BUILD = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(2))
TEXT = (TREE / "docs/writing-a-service.md").read_text()

# Prints the beginning of a segment in hexadecimal digits: its key is made as ftok() does.
PRINT_SEGMENT = """
import ctypes, os, sys
number, size = map(int, sys.argv[1:])
libc = ctypes.CDLL(None, use_errno=True)
libc.shmat.restype = ctypes.c_void_p
libc.shmat.argtypes = [ctypes.c_int, ctypes.c_void_p, ctypes.c_int]
libc.ftok.argtypes = [ctypes.c_char_p, ctypes.c_int]
SHM_RDONLY = 0o10000
memory = libc.shmat(libc.shmget(libc.ftok(b"/app/bin/btservice", number), 0, 0), None, SHM_RDONLY)
print(ctypes.string_at(memory, size).hex(" "))
"""


def header(name):
    return (TREE / "protocol" / name).read_text()


def table(first_cell):
    """The rows of the table whose head begins with this cell, without quotes."""
    rows = TEXT.split(f"| {first_cell} |", 1)[1].split("\n\n", 1)[0].splitlines()[2:]
    return [[cell.strip().replace("`", "") for cell in row[1:-1].split("|")] for row in rows]


def names(text):
    return re.findall(r"\w+", text)


class ThePage(unittest.TestCase):
    def test_NamesThePlaceOnTheBus(self):
        for name in re.findall(r'constexpr const char\* kService\w+ = "([^"]+)"', header("BusNames.h")):
            self.assertIn(f"`{name}`", TEXT)

    def test_HasEachSegmentWithItsIdAndSize(self):
        sizes = {name: int(size, 0) for name, size in re.findall(r'"(SH_\w+)", (\w+)\}', header("Segments.h"))}
        numbers = dict(re.findall(r"(SH_\w+) = (\d)", (TREE / "include/bluetooth/ShareMemID.h").read_text()))
        self.assertEqual({row[0]: (row[1], int(row[2])) for row in table("Segment")},
                         {name: (numbers[name], size) for name, size in sizes.items()})
        methods = set(re.findall(r'<method name="(\w+)"', (TREE / "ipc/D-Bus/com.zelk.linux.bluetooth.xml").read_text()))
        for row in table("Segment"):
            by, method = re.fullmatch(r"(by|when) (.+)", row[4]).groups()
            self.assertTrue(by == "when" or method in methods, row)

    def test_HasTheItemsOfEachRecord(self):
        records = re.findall(r"struct RecordItems<(\w+)> \{(.*?)\n\};", header("Records.h"), re.DOTALL)
        expected = {}
        for record, body in records:
            items = [re.findall(rf"&{record}::(\w+)", body.split(kind)[1].split(";")[0]) for kind in ("kIntegers", "kTexts")]
            expected[record] = items
        self.assertEqual({row[0]: [names(row[1]), names(row[2])] for row in table("Record")}, expected)
        self.assertEqual(len(records), header("Records.h").count("struct RecordItems<"))

    def test_HasEachSettingWithItsKeyPlaceAndDefault(self):
        offsets = dict(re.findall(r"(PARAMETER_\w+) = (\d+)", header("Segments.h")))
        settings = re.findall(r'\{"[\w ]+", (\d+), (PARAMETER_\w+), (?:"([^"]+)"|nullptr)', header("Settings.h"))
        self.assertGreater(len(settings), 5)
        expected = {key: (offsets[place], default or "0") for key, place, default in settings}
        rows = {row[1]: (row[2], row[3]) for row in table("Setting")}
        self.assertEqual(rows.pop("-"), (offsets["PARAMETER_LOADED"], "-"))
        self.assertEqual(rows, expected)


class TheSegments(unittest.TestCase):
    def setUp(self):
        self.checkout = Checkout(TREE, BUILD)
        self.addCleanup(self.checkout.close)

    @unittest.skipIf(sys.byteorder == "big", "the page shows the bytes of another machine")
    def test_HoldTheBytesThatThePageShows(self):
        shown = "".join(re.findall(r"^((?:[0-9a-f]{2} )+)", TEXT.split("```text\n")[1].split("```")[0], re.MULTILINE))
        self.assertGreater(len(shown), 200)
        (self.checkout.root / "print_segment.py").write_text(PRINT_SEGMENT)
        contacts = next(row for row in table("Segment") if row[0] == "SH_CONTACT_LIST")
        status, output = self.checkout.run_in_sandbox(f"""
trap 'kill $(jobs -p) 2>/dev/null' EXIT
btservice --no-state --world docs/screens/desk.json >/dev/null 2>&1 &
{phone_has_come(calls=2)}
btctl contacts list >/dev/null
python3 print_segment.py {contacts[1]} {len(shown.split())}
""")
        self.assertEqual((status, output.split()), (0, shown.split()))


if __name__ == "__main__":
    unittest.main(verbosity=2)

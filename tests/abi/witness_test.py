#!/usr/bin/env python3
"""Compares the witnesses of the binary interfaces with the public headers, in both directions: each record, enumeration
and class that a header defines is named, and each record of an interface has all of them.

Usage: witness_test.py SOURCE_DIR
"""

import pathlib
import re
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))
import gate  # pylint: disable=wrong-import-position

INCLUDE = pathlib.Path(sys.argv.pop(1)) / "include"
LIBRARIES = {"libbt": "bluetooth", "libbtasync": "btasync"}
# Compiled into applications alone: nothing of it goes to the library but its bases.
LEFT_OUT = ("Coroutine.h",)
DEFINITION = re.compile(r"^ *(?:enum class|enum|struct|class) (?:\[\[nodiscard\]\] )?(?:[A-Z_]+_API )?(\w+)[^;{()]*\{", re.M)


def without_comments(text):
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.S)


def headers(folder):
    return [header for header in sorted((INCLUDE / folder).glob("*.h")) if header.name not in LEFT_OUT]


def defined_in(folder):
    return {name for header in headers(folder) for name in DEFINITION.findall(without_comments(header.read_text()))}


def records():
    """(library, whether it is a witness, the record's text) of each architecture."""
    for library in LIBRARIES:
        for record in sorted(HERE.glob(f"records/*/{library}*.abi.xz")):
            name = record.name.removesuffix(".abi.xz")
            if name == f"{library}-witness" or name.startswith(f"{library}.so."):
                yield library, name.endswith("-witness"), record


def witness_of(library, record):
    return record.with_name(f"{library}-witness.abi.xz")


class TheWitness(unittest.TestCase):
    def test_NamesWhatTheHeadersDefine(self):
        for library, folder in LIBRARIES.items():
            with self.subTest(library):
                self.assertGreater(len(defined_in(folder)), 50)
                self.assertEqual(gate.witnessed(HERE / f"witness_{library}.cpp"), defined_in(folder))

    def test_HasAllTypesInItsRecords(self):
        self.assertEqual(len(list(records())), 8)  # of two libraries and their witnesses, for two architectures
        for library, is_witness, record in records():
            with self.subTest(record):
                # A type that is new is in no record yet: script/abi --record takes it into them.
                witness = gate.recorded_by_witness(gate.text_of(witness_of(library, record)))
                self.assertGreater(len(witness), 50)
                missing = gate.witnessed(HERE / f"witness_{library}.cpp") & witness
                missing -= gate.defined_types(gate.text_of(record))
                # Without its witness, a record would not have these.
                unused = {"MWPBtListenerType", "MWPTypeScanDevice", "MWPTypeBleDevice", "MWPTypeGattService",
                          "ProfileVersion"}
                if is_witness:
                    self.assertEqual(missing, set())
                elif library == "libbt":
                    self.assertEqual(missing, unused)

    def test_RecordsAreSmallAndNameNoPlace(self):
        for _, _, record in records():
            with self.subTest(record):
                self.assertLess(record.stat().st_size, gate.LARGEST_RECORD)
                text = gate.text_of(record)
                self.assertNotRegex(text, r"['\"]/\w")
                self.assertNotIn(" line='", text)

    def test_ExceptionsAreOnlyDeclaredInTheHeaders(self):
        names = re.search(r"detail::\(([\w|]+)\)\$", (HERE / "exceptions.abignore").read_text())[1].split("|")
        text = "\n".join(without_comments(header.read_text()) for header in headers("btasync"))
        for name in names:
            with self.subTest(name):
                self.assertNotIn(name, defined_in("btasync"))
                self.assertRegex(text, rf"\b(class|struct) {name};")


if __name__ == "__main__":
    unittest.main(verbosity=2)

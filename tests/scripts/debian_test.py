#!/usr/bin/env python3
"""Holds debian/ to the rest of the tree. Usage: debian_test.py TREE [TEST...]"""
import lzma
import pathlib
import re
import subprocess
import sys
import unittest
from xml.etree import ElementTree

TREE = pathlib.Path(sys.argv.pop(1))
DEBIAN = TREE / "debian"


def words_of_field(field):
    text = (DEBIAN / "control").read_text()
    match = re.search(rf"^{field}:((?:.*\n)(?: .*\n)*)", text, re.MULTILINE)
    return [re.match(r"[\w.+-]+", entry.strip())[0] for entry in match[1].split(",") if entry.strip()]


def needed_symbols(package, bits):
    """The symbols that a package has on an architecture of so many bits, without those that only a compiler makes."""
    entries = re.findall(r"^ (?:\((.*?)\))?(\w+)@", (DEBIAN / f"{package}.symbols").read_text(), re.MULTILINE)
    return {symbol for tags, symbol in entries
            if "optional" not in tags and re.search(r"arch-bits=(\d+)|$", tags)[1] in (None, bits)}


class Debian(unittest.TestCase):
    def test_TheVersionIsThatOfTheLibrary(self):
        packaged = re.match(r"libbt \(([\d.]+)[^)]*\)", (DEBIAN / "changelog").read_text())[1]
        self.assertEqual(packaged, re.search(r"project\(libbt VERSION ([\d.]+)", (TREE / "CMakeLists.txt").read_text())[1])

    def test_TheLinesOfTheChangelogFitIntoMail(self):
        """lintian finds longer ones only when the packages have been built."""
        entries = re.findall(r"^  .*", (DEBIAN / "changelog").read_text(), re.MULTILINE)
        self.assertTrue(entries)
        self.assertEqual([line for line in entries if len(line) > 80], [])

    def test_WhatTheBuildNeedsIsInstalledByBootstrap(self):
        installed = subprocess.run([TREE / "script/bootstrap", "--list", "build", "tools", "qt", "docs", "packages"],
                                   check=True, capture_output=True, text=True).stdout.split()
        needed = set(words_of_field("Build-Depends") + words_of_field("Build-Depends-Indep"))
        self.assertEqual(needed - set(installed) - {"debhelper-compat"}, set())

    def test_NothingIsTakenBecauseItIsFound(self):
        """Each option of what is built, and each that would be chosen by what is installed, is set by debian/rules."""
        options = set()
        for path in [TREE / "CMakeLists.txt", *TREE.glob("*/CMakeLists.txt"), *TREE.glob("*/*/CMakeLists.txt")]:
            if path.relative_to(TREE).parts[0] in ("build", "packaging", "examples"):
                continue
            text = path.read_text()
            options.update(re.findall(r"option\((BT_BUILD_\w+)", text) + re.findall(r"set\((\w+) AUTO CACHE", text))
        self.assertIn("MWP_ZLOG", options)
        self.assertIn("BT_BUILD_QT", options)
        self.assertEqual(options - set(re.findall(r"-D(\w+)=(?:ON|OFF)", (DEBIAN / "rules").read_text())), set())

    def test_TheSymbolsThatPackagesMayNeedAreRecordedForEachArchitecture(self):
        """Those that are not optional, as debian/*.symbols has them and as tests/abi/records has them."""
        for package, library in (("libbt1", "libbt.so.1"), ("libbtasync0", "libbtasync.so.0")):
            for architecture, bits in (("amd64", "64"), ("armhf", "32")):
                with self.subTest(package, architecture=architecture):
                    needed = needed_symbols(package, bits)
                    self.assertGreater(len(needed), 100)
                    record = TREE / f"tests/abi/records/{architecture}/{library}.abi.xz"
                    recorded = {symbol.get("name") for symbol in
                                ElementTree.fromstring(lzma.open(record).read()).iter("elf-symbol")}
                    self.assertEqual(needed - recorded, set())

    def test_EveryPackageIsInstalledInTheFreshRootAndEachDevelopmentPackageIsBuiltAgainst(self):
        packages = set(re.findall(r"^Package: (\S+)$", (DEBIAN / "control").read_text(), re.MULTILINE))
        installed = re.search(r"^installed=\((.*?)\)$", (TREE / "packaging/test_packages").read_text(),
                              re.MULTILINE | re.DOTALL)[1].split()
        self.assertEqual(packages - set(installed), set())
        control = (DEBIAN / "tests/control").read_text()
        needed = set(re.findall(r"[\w.+-]+", " ".join(re.findall(r"^Depends: (.*)$", control, re.MULTILINE))))
        self.assertEqual({name for name in packages if name.endswith("-dev")} - needed, set())
        for test in re.findall(r"^Tests: (\S+)$", control, re.MULTILINE):
            self.assertTrue((DEBIAN / "tests" / test).stat().st_mode & 0o100, test)

    def test_EachOverrideHasItsReason(self):
        files = list(DEBIAN.glob("*lintian-overrides"))
        self.assertTrue(files)
        for path in files:
            for block in path.read_text().strip().split("\n\n"):
                with self.subTest(path.name, block=block):
                    self.assertTrue(block.startswith("# "), "each block begins with the reason")


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Checks the manual pages with the two programs that show them, and that everything is in them.

Usage: manual_test.py TREE BUILD [TEST...]
"""
import functools
import json
import os
import pathlib
import re
import subprocess
import sys
import unittest

TREE, BUILD = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(2))
PAGES = {path.name: path for path in sorted((BUILD / "manual").glob("man?/*"))}
# Headers without anything that an application calls.
WITHOUT_PAGE = {"IMWPBtListenerBase", "MWPBtExport", "ShareMemID"}
FACADES = ("MWPBtCom", "MWPBtPhone", "MWPBtMedia", "MWPBtPbap", "MWPBtMessage", "MWPBtSpp", "MWPBtBle")


def run(*command, **environment):
    return subprocess.run(command, capture_output=True, text=True, timeout=60,
                          env={**os.environ, "LC_ALL": "C.UTF-8", **environment})


@functools.lru_cache(maxsize=None)
def shown(page, columns=80):
    """A page as a reader sees it, its lines joined."""
    answer = run("mandoc", "-T", "utf8", "-O", f"width={columns}", PAGES[page])
    text = re.sub(r".\x08", "", answer.stdout)
    return " ".join(text.split())


class ThePages(unittest.TestCase):
    def test_EachHeaderFunctionAndProgramHasOne(self):
        headers = {header.stem for header in (TREE / "include/bluetooth").glob("*.h")} - WITHOUT_PAGE
        functions = re.findall(r"^MWP_BT_API \w+ (\w+)\(", (TREE / "include/bluetooth/MWPBluetooth.h").read_text(), re.M)
        self.assertTrue(functions)
        self.assertEqual(set(PAGES), {f"{name}.3" for name in headers.union(functions)} |
                         {"btctl.1", "libbt.7", "btservice.8"})

    def test_MandocHasNothingToSay(self):
        complaints = [line for line in run("mandoc", "-T", "lint", *PAGES.values()).stdout.splitlines()
                      if not self.is_about_a_page_of_ours(line)]
        self.assertEqual(complaints, [])

    @staticmethod
    def is_about_a_page_of_ours(complaint):
        """It looks for the pages to which one refers where those of the machine are."""
        found = re.search(r"referenced manual not found: Xr (\S+) (\d)", complaint)
        return found is not None and f"{found[1]}.{found[2]}" in PAGES

    def test_ManHasNothingToSay(self):
        for page in PAGES.values():
            for columns in ("80", "120"):
                answer = run("man", "--warnings", "-E", "UTF-8", "-l", page, MANWIDTH=columns, MANPAGER="cat")
                self.assertEqual((answer.returncode, answer.stderr), (0, ""), page.name)
                self.assertIn("NAME", answer.stdout)

    def test_EveryCommandAndOptionIsExplained(self):
        page = shown("btctl.1", 200)
        commands = [json.loads(line) for line in run(BUILD / "bin/btctl", "commands", "--json").stdout.splitlines()]
        self.assertGreater(len(commands), 100)
        for command in commands:
            self.assertRegex(page, re.escape(f" {command['command']} ") + r"[^:]{0,80}?" + re.escape(command["help"]))
            for argument in command["arguments"]:
                self.assertIn(argument.strip("[]"), page)
        events = [json.loads(line)["event"] for line in run(BUILD / "bin/btctl", "events", "--json").stdout.splitlines()]
        self.assertIn(f"Values of EVENT {', '.join(sorted(events))}.", page)
        self.assertRegex(page, r"Values of CONTROL [\w, -]*\blose-link\b")
        for option, text in re.findall(r"^  (?:-h,)?(--[\w-]+)(?: [A-Z]+)? +([^.,(\n]+)",
                                       run(BUILD / "bin/btctl", "--help").stdout, re.MULTILINE):
            self.assertRegex(page, f"{option} .*?{re.escape(' '.join(text.split()))}")
        for code in re.findall(r"^  (\d+) +(.+)$", run(BUILD / "bin/btctl", "--help").stdout, re.MULTILINE):
            self.assertIn(f"{code[0]} {code[1][0].upper()}{code[1][1:]}.", page)

    def test_EveryRequestAndEventIsExplained(self):
        for name in FACADES:
            self.assertEqual(PAGES[f"I{name}Listener.3"].resolve(), PAGES[f"{name}.3"])
            page = shown(f"{name}.3")
            for header in (f"{name}.h", f"I{name}Listener.h"):
                text = (TREE / "include/bluetooth" / header).read_text()
                comments = re.findall(r"((?:^ *///.*\n)+)^  (?:virtual )?\w[\w:<>&, ]*[ &](\w+)\(.*\);", text, re.MULTILINE)
                self.assertTrue(comments)
                for comment, function in comments:
                    first = " ".join(re.sub(r"^ *///", "", comment, flags=re.MULTILINE).split()).split(". ")[0]
                    self.assertRegex(page, rf"{function}\([\w, ]*\) {re.escape(first.split(' - ')[0])}")

    def test_EveryDeclarationOfTheHeadersIsDocumented(self):
        """With its parameters and its result, as Doxygen sees it."""
        self.assertEqual((BUILD / "manual/warnings").read_text(), "")

    def test_EveryParameterIsExplained(self):
        explained = 0
        for name in FACADES:
            for header in (f"{name}.h", f"I{name}Listener.h"):
                for parameter, text in re.findall(r"/// @param (\w+) (.+)", (TREE / "include/bluetooth" / header).read_text()):
                    self.assertIn(f"{parameter} {text}", shown(f"{name}.3", 200))
                    explained += 1
        self.assertGreater(explained, 150)

    def test_EveryValueAndMemberIsNamed(self):
        for header, page, pattern in (("MWPBtType.h", "MWPBtType.3", r"^  (\w+) = (\d+),"),
                                      ("MWPBtRecords.h", "MWPBtRecords.3", r"^  [\w:<>]+ (\w+)(?: =|;)")):
            found = re.findall(pattern, (TREE / "include/bluetooth" / header).read_text(), re.MULTILINE)
            self.assertGreater(len(found), 30)
            text = shown(page)
            for each in found:
                self.assertIn(f"{each[0]} ({each[1]})" if isinstance(each, tuple) else f"{each} (", text)

    def test_TheHelpOfTheServiceIsThere(self):
        page = shown("btservice.8")
        text = run(BUILD / "bin/btservice", "--help", BTSERVICE_WORLDS=TREE / "service/simulation/worlds").stdout
        options = re.findall(r"(--[\w-]+)(?:=\S+)? {2,}(.+)", text)
        self.assertGreater(len(options), 8)
        for option, explanation in options:
            self.assertRegex(page, f"{option}.*?{re.escape(explanation)}")
        for block in text.split("\n\n"):
            if not re.search(r"^(Usage|Help Options|Application Options|Exit codes):", block):
                self.assertIn(" ".join(block.split()), page)
        codes = re.findall(r"(\d) ([^;.]+)", text.split("Exit codes:")[1])
        self.assertEqual(len(codes), 5)
        for code, meaning in codes:
            meaning = " ".join(meaning.split())
            self.assertIn(f"{code} {meaning[0].upper()}{meaning[1:]}.", page)

    def test_EachReferenceIsThere(self):
        references = {f"{name}.{section}" for path in PAGES.values()
                      for name, section in re.findall(r"^(?:\.|\.It )Xr (\S+) (\d)", path.read_text(), re.MULTILINE)}
        self.assertGreater(len(references), 10)
        self.assertEqual(references - PAGES.keys(), set())
        self.assertEqual({f"{name}.3" for name in FACADES} - references, set())

    def test_WhatIsNamedIsInTheSources(self):
        sources = "".join(path.read_text() for folder in ("tools", "service", "platform", "ipc", "glib")
                          for path in (TREE / folder).rglob("*") if path.suffix in (".cpp", ".h"))
        # GLib reads these, through the functions that are looked for instead.
        read_by = {"XDG_STATE_HOME": "g_get_user_state_dir"}
        variables = {name for path in PAGES.values() for name in re.findall(r"^\.It Ev (\w+)", path.read_text(), re.MULTILINE)}
        self.assertGreater(len(variables), 5)
        for variable in variables:
            self.assertIn(read_by.get(variable, f'"{variable}"'), sources)
        files = {name for path in PAGES.values() for name in re.findall(r"^\.It Pa (\S+)", path.read_text(), re.MULTILINE)}
        self.assertGreater(len(files), 5)
        for name in files:
            self.assertIn(pathlib.Path(name).name, sources + (TREE / "platform/CMakeLists.txt").read_text())

    def test_TheExampleIsThatOfTheReadme(self):
        code = re.search(r"^```cpp\n(.*?)^```", (TREE / "README.md").read_text(), re.MULTILINE | re.DOTALL)[1]
        self.assertIn(" ".join(code.split()), shown("libbt.7", 200))


if __name__ == "__main__":
    unittest.main(verbosity=2)

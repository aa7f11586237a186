#!/usr/bin/env python3
"""Runs each session of the guides in docs/screens with the programs of those guides and the simulated service, and compares
what appears on the terminal.

Usage: screens_test.py TREE BUILD PROGRAMS GUIDE|README (PROGRAMS: the folder in which the programs of the guides are built)
"""
import pathlib
import re
import shlex
import shutil
import sys
import unittest

import blocks
from checkout import Checkout, phone_has_come

TREE, BUILD, PROGRAMS = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(3))
GUIDE = f"docs/screens/{sys.argv.pop(1)}.md"
TEXT = (TREE / GUIDE).read_text()
STARTED = "./phone <>buttons &"
STARTS = re.compile(r"\./(\w+) <>buttons &")
MARK = "@next@"
CONTROLS = TREE / "service/simulation/com.zelk.linux.bluetooth.sim.xml"

# As the README of the guides has it: the service, then wait until the phone has come.
PREPARATION = """
trap 'kill $(jobs -p) 2>/dev/null' EXIT  # a program outlives its bus
btservice --no-state --world docs/screens/desk.json >/dev/null 2>&1 &
""" + phone_has_come(calls=2) + """
rm -f buttons terminal
mkfifo buttons
touch terminal
# Runs a command, and waits until the terminal has so many lines; it may get more, which the comparison finds.
step() {
  eval "$2" >>terminal 2>&1
  for try in {1..300}; do (( $(wc -l <terminal) >= $1 )) && break; sleep 0.1; done
  echo MARK$(wc -l <terminal)
}
""".replace("MARK", MARK)


def sessions():
    return [blocks.commands_of(block) for block in blocks.blocks_of(GUIDE, TEXT) if block.language == "console"]


class InACheckout(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.checkout = Checkout(TREE, BUILD)
        self.addCleanup(self.checkout.close)


class TheGuide(InACheckout):
    def test_ShowsWhatItsProgramsDo(self):
        programs = blocks.programs_of(GUIDE, TEXT)
        started = [STARTS.match(session[0].text)[1] for session in sessions()]
        self.assertEqual(started, list(programs), "each program has a session, in their order")
        for name, session in zip(started, sessions()):
            with self.subTest(name):
                shutil.copy(PROGRAMS / name, self.checkout.root)
                shown = [(command.text, sorted(command.output)) for command in session]
                self.assertEqual(self.run_session(session), shown)

    def run_session(self, session):
        """What appears for each command. Which of a command and of the program writes first is up to chance."""
        script, lines = PREPARATION, 0
        for command in session:
            lines += len(command.output)
            script += f"step {lines} {shlex.quote(command.text)}\n"
        _, output = self.checkout.run_in_sandbox(script + "cat terminal\n")
        begins = [0, *(int(count) for count in re.findall(rf"{MARK}(\d+)\n", output))]
        self.assertEqual(len(begins), len(session) + 1, output)
        appeared = output.rpartition(MARK)[2].splitlines()[1:]
        return [(command.text, sorted(appeared[begin:end]))
                for command, begin, end in zip(session, begins, begins[1:])]

    def test_NamesOnlyControlsThatThereAre(self):
        methods = re.findall(r'<method name="(\w+)"', CONTROLS.read_text())
        controls = {re.sub(r"(?<=\w)([A-Z])", r"-\1", method).lower() for method in methods}
        named = set(re.findall(r"\bbtctl sim ([\w-]+)", TEXT))
        self.assertGreater(len(named), 2)
        self.assertEqual(sorted(named - controls), [])


class TheReadme(InACheckout):
    def test_LeadsToAProgramThatRuns(self):
        """All its commands, those after the one that starts a shell in that shell."""
        commands = [command.text for block in blocks.blocks_of(GUIDE, TEXT) for command in blocks.commands_of(block)]
        shell = next(index for index, text in enumerate(commands) if text.startswith("script/sandbox "))
        for text in commands[:shell]:
            self.assertEqual(self.checkout.run(text), (0, ""), text)
        program = blocks.programs_of("", (TREE / "docs/screens/phone.md").read_text())["phone"]
        (self.checkout.root / "phone.cpp").write_text(program)
        script = "set -e\ntrap 'kill $(jobs -p)' EXIT\ncp phone.cpp $HOME\n" + "\n".join(commands[shell + 1:]) + """
for try in {1..600}; do grep --quiet Nordnetz shown && break; sleep 0.1; done
"""
        script = script.replace(STARTED, f"{STARTED.rstrip('& ')} >shown 2>&1 &") + "cat shown\n"
        status, output = self.checkout.run(commands[shell], stdin=script)
        self.assertEqual(status, 0, output)
        self.assertIn("Nordnetz\n", output)

    def test_NamesEachGuide(self):
        guides = sorted(path.name for path in (TREE / "docs/screens").glob("*.md") if path.name != "README.md")
        self.assertEqual(sorted(set(re.findall(r"\]\((\w+\.md)\)", TEXT))), guides)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "TheReadme" if GUIDE.endswith("README.md") else "TheGuide"], verbosity=2)

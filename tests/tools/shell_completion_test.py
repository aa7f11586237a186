#!/usr/bin/env python3
"""Completes lines of btctl in real shells, with the scripts that are installed: bash and zsh.

What has to be offered is taken from what btctl itself prints of its commands, words and events.
Usage: shell_completion_test.py TREE BUILD [TEST...]
"""
import copy
import fcntl
import json
import os
import pathlib
import pty
import re
import select
import shlex
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest

TREE, BUILD = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(2))
BTCTL = BUILD / "bin/btctl"
MAKE = TREE / "tools/completion/make_completion"
SCRIPTS = {"bash": BUILD / "tools/completion/btctl", "zsh": BUILD / "tools/completion/_btctl"}
BOUND = 30  # seconds, for what takes some milliseconds
ADDRESS = "00:1A:7D:DA:71:13"


def listed(*command):
    """What btctl lists, without bus or service."""
    lines = subprocess.run([BTCTL, *command, "--json"], capture_output=True, text=True, check=True, timeout=BOUND).stdout
    return [json.loads(line) for line in lines.splitlines()]


def description():
    return json.loads(subprocess.run([BUILD / "bin/btctl_description"], capture_output=True, text=True, check=True,
                                     timeout=BOUND).stdout)


def made(shell, from_description):
    with tempfile.NamedTemporaryFile("w", suffix=".json") as file:
        json.dump(from_description, file)
        file.flush()
        return subprocess.run([MAKE, shell, file.name], capture_output=True, text=True, check=True, timeout=BOUND).stdout


def pieces(line):
    """The words of a line as bash's readline takes them apart."""
    return [piece for word in line.split(" ") for piece in (re.findall(r"[:=]+|[^:=]+", word) or [""])]


def completed_in_bash(script, lines):
    """What bash offers for each of the lines, whose last word is the one to complete."""
    program = [f". {shlex.quote(str(script))}", "completion=$(complete -p btctl)", "function=${completion#*-F }",
               "function=${function%% *}"]
    for line in lines:
        words = pieces("btctl " + line)
        program += [f"COMP_WORDS=({' '.join(map(shlex.quote, words))}) COMP_CWORD={len(words) - 1}", "COMPREPLY=()",
                    f'"$function" btctl {shlex.quote(words[-1])} {shlex.quote(words[-2])}',
                    'printf "%s " "${COMPREPLY[@]}"', "echo"]
    answer = subprocess.run(["bash", "--norc", "-u", "-c", "\n".join(program)], capture_output=True, text=True,
                            timeout=BOUND)
    assert answer.stderr == "", answer.stderr
    return dict(zip(lines, map(str.split, answer.stdout.splitlines()), strict=True))


class Terminal:
    """A shell that a person types into. Its btctl prints what it is called with."""

    START = {"bash": (["bash", "--norc", "--noprofile", "-i"], ". {script}; bind 'set enable-bracketed-paste off'"),
             "zsh": (["zsh", "-f", "-i"], "fpath=({folder} $fpath); autoload -U compinit; compinit -u -D; LISTMAX=9999; "
                     "bindkey -e; bindkey '^G' list-choices; unset zle_bracketed_paste; unsetopt PROMPT_SP")}

    def __init__(self, shell, script):
        self.screen, self.marks = "", 0
        command, setup = self.START[shell]
        self.home = tempfile.TemporaryDirectory()
        folder = pathlib.Path(self.home.name)
        (folder / "_btctl").write_text(pathlib.Path(script).read_text())
        self.pid, self.file = pty.fork()
        if self.pid == 0:
            os.environ.update(TERM="dumb", HOME=self.home.name, LC_ALL="C.UTF-8", PS1="> ")
            os.chdir(folder)
            os.execvp(command[0], command)
        fcntl.ioctl(self.file, termios.TIOCSWINSZ, struct.pack("HHHH", 400, 200, 0, 0))
        self.type(setup.format(script=folder / "_btctl", folder=folder) + "; btctl() { echo \"ran: $*;\"; }\r")
        self.wait_for_mark()

    def close(self):
        os.close(self.file)
        os.kill(self.pid, signal.SIGKILL)
        os.waitpid(self.pid, 0)
        self.home.cleanup()

    def type(self, keys):
        os.write(self.file, keys.encode())

    def wait_for(self, text):
        """Reads until the screen shows a text; returns what came up to it."""
        end = time.monotonic() + BOUND
        while text not in self.screen:
            assert select.select([self.file], [], [], max(0, end - time.monotonic()))[0], f"no {text!r} in {self.screen!r}"
            self.screen += os.read(self.file, 65536).decode(errors="replace")
        before, _, self.screen = self.screen.partition(text)
        return before

    def wait_for_mark(self):
        """The shell has dealt with all that was typed when it runs the next line. The line itself is not taken for it."""
        self.marks += 1
        self.type(f"\x15echo mark-$(({self.marks - 1} + 1));\r")
        return self.wait_for_line_and_prompt(f"mark-{self.marks}")

    def wait_for_line_and_prompt(self, text):
        """What is typed before the prompt is there is echoed by the terminal, not by the shell."""
        before = self.wait_for(text)
        self.wait_for("> ")
        return before

    def run(self, keys):
        """Types a line, which may have tabs in it, and returns the arguments that btctl then has."""
        self.type("\x15btctl " + keys + "\r")
        self.wait_for("ran: ")
        return self.wait_for_line_and_prompt(";")

    def choices(self, line):
        """What zsh lists, in columns or with descriptions behind."""
        self.type("\x15btctl " + line + "\x07")
        shown = self.wait_for_mark().split("btctl " + line, 1)[1].split("> ")[0]  # up to the next prompt
        rows = [re.sub(r"\x1b\[[0-9;?]*[A-Za-z]", "", row).strip() for row in shown.replace("\r", "\n").split("\n")]
        return {word for row in rows for word in re.split(r"\s+-- ", row)[0].split()}


class WithTheScripts(unittest.TestCase):
    def open(self, shell, script=None):
        terminal = Terminal(shell, script or SCRIPTS[shell])
        self.addCleanup(terminal.close)
        return terminal


class TheCompletion(WithTheScripts):
    def test_IsMadeFromTheCommandsOfThisBuild(self):
        for shell, script in SCRIPTS.items():
            self.assertEqual(script.read_text(), made(shell, description()), f"{script} is out of date")

    def test_IsAScriptOfItsShell(self):
        for shell, script in SCRIPTS.items():
            answer = subprocess.run([shell, "-n", script], capture_output=True, text=True, timeout=BOUND)
            self.assertEqual((answer.returncode, answer.stderr), (0, ""))

    def test_OfBashOffersEveryCommandAndOption(self):
        expected = {}
        for command in listed("commands"):
            words = command["command"].split()
            for count in range(len(words)):
                expected.setdefault(" ".join([*words[:count], ""]), set()).add(words[count])
            for argument in command["arguments"]:
                if argument.strip("[]").startswith("--"):
                    expected.setdefault(f"{command['command']} --", set()).add(argument.strip("[]"))
        self.assertGreater(len(expected), 50)
        for line, offered in completed_in_bash(SCRIPTS["bash"], list(expected)).items():
            self.assertLessEqual(expected[line], set(offered), f"btctl {line}")

    def test_OfBashOffersTheWordsOfValues(self):
        profiles = [row["word"] for row in listed("words", "ProfileId")]
        events = [row["event"] for row in listed("events")]
        switches = ["off", "on"]
        expected = {
            f"connect {ADDRESS} --profile ": profiles,
            "connect --profile=": profiles,
            "connect --profile h": [word for word in profiles if word.startswith("h")],
            "--timeout 5 connect --profile=h": [word for word in profiles if word.startswith("h")],
            "wait ": events,
            "monitor OnScanStatusChanged ": events,
            "wait OnScanStatusChanged ": [],
            "wait OnScanStatusChanged --match status=idle --c": ["--count"],
            "capability set auto-answer ": switches,
            "capability set auto-answer on ": [],
            f"projection allow {ADDRESS} ": switches,
            "connect 00:1A:7": [],
            "--timeout ": [],
            "fly ": [],
            "sim lose": ["lose-link"],
            "--v": ["--verbose", "--version"],
        }
        for line, offered in completed_in_bash(SCRIPTS["bash"], list(expected)).items():
            self.assertEqual(sorted(offered), sorted(expected[line]), f"btctl {line}")

    def test_OfZshOffersTheSameAsThatOfBash(self):
        lines = ["", "call ", "call audio ", "scan ", "sim ", "wait ", "connect --", f"connect {ADDRESS} --profile ",
                 "capability set ", "capability set auto-answer ", "music ", "--timeout 5 browse ", "monitor OnScan"]
        zsh = self.open("zsh")
        for line, offered in completed_in_bash(SCRIPTS["bash"], lines).items():
            self.assertTrue(offered)
            self.assertEqual(zsh.choices(line), set(offered), f"btctl {line}")

    def test_OfZshSaysWhatAnArgumentIs(self):
        zsh = self.open("zsh")
        zsh.type("zstyle ':completion:*' format '<%d>'\r\x15btctl connect \t")
        zsh.wait_for("<ADDRESS: of the device, such as 00:1A:7D:DA:71:13>")

    def test_WorksWhileSomebodyTypes(self):
        for shell in SCRIPTS:
            with self.subTest(shell):
                terminal = self.open(shell)
                self.assertEqual(terminal.run("capa\tset auto-an\tof\t").split(), ["capability", "set", "auto-answer", "off"])
                self.assertEqual(terminal.run(f"disc\t{ADDRESS} --prof\ta2\t").split(),
                                 ["disconnect", ADDRESS, "--profile", "a2dp"])
                self.assertEqual(terminal.run(f"connect {ADDRESS} --profile=a2\t").split(),
                                 ["connect", ADDRESS, "--profile=a2dp"])

    def test_KnowsANewCommandAndANewWordByItself(self):
        extended = copy.deepcopy(description())
        new = copy.deepcopy(next(command for command in extended["commands"] if command["path"] == "connect"))
        new.update(path="call whistle loudly", help="Whistle")
        next(argument for argument in new["arguments"] if argument["name"] == "--profile")["values"].append("zigzag")
        extended["commands"].append(new)
        extended["groups"].append({"path": "call whistle", "help": "Whistling"})
        with tempfile.TemporaryDirectory() as folder:
            for shell in SCRIPTS:
                script = pathlib.Path(folder) / shell
                script.write_text(made(shell, extended))
                terminal = self.open(shell, script)
                self.assertEqual(terminal.run("call whis\tlou\t--profile zig\t").split(),
                                 ["call", "whistle", "loudly", "--profile", "zigzag"])


if __name__ == "__main__":
    unittest.main(verbosity=2)

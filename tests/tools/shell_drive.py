"""Handles btctl's shell roughly, in a pseudo-terminal beside the simulated service.

Usage: shell_drive.py BTCTL BTSERVICE [--count N] [--seed SEED]

To be run in script/sandbox, with a session bus. Makes N random interactions (keys, lines, pastes, completions,
signals, changes of the terminal's size, events with escapes in them, a service that goes and comes back). After
every few of them the shell must still answer a line. Prints how many of each kind there were, and exits with 1
if the shell ended, hung, let an escape through, or left the terminal other than it was.
"""

import argparse
import collections
import fcntl
import os
import pty
import random
import select
import signal
import struct
import subprocess
import sys
import termios
import time

PHONES = ["00:1A:7D:DA:71:13", "00:1A:7D:DA:71:14"]
ESCAPES = "\x1b]0;planted\x07\x1b[31m"
PLANTED = ESCAPES + "\u009b2J\u202e"  # the line editor shows these two as they are typed
ANSWERS_WITHIN = 15  # seconds

LINES = [
    "power status", "status", "call dial 110", "call hangup", "call accept", "call list", "contacts count",
    "contacts list --json", "contacts list", "call dial 'ada arndt'", "devices list", "devices list --scan 0.1", "sim list-devices",
    "sim get-time --json", "words Call", "help", "? call", "help watch", "watch off", "watch on", "watch", "clear",
    "--version", "monitor --seconds 0.02", "capability list", "attribute list --json", "music info", "music next",
    "call redial --verbose", "wait OnScanStatusChanged --timeout 0.05", "scan --seconds 0.02", "scan stop",
    f"connect {PHONES[0]} --no-wait", f"disconnect {PHONES[0]} --timeout 1", f"pair {PHONES[1]} --timeout 0.1",
    "btctl power status", "log all", "log delete 4711", "message send 110 x", "  call   hangup  ", "# nothing",
    "power on --timeout 3", "sim call 00:1A:7D:DA:71:13 +49170", "report --seconds 0 --json", "events", "commands",
]
WRONG = [
    "xylophone", "call", "call xylophone", "call dial", "'", '"unfinished', "call dial \\", "--timeout", "--json --json",
    "call dial --timeout ''", "wait OnCallStatusChanged --match callId=abc", "sim set-battery x y", "connect nowhere",
    "monitor --seconds ''", "\u00e4\u00f6\u00fc\u65e5\u672c\U0001f527", "x" * 3000, "help help help", "watch maybe",
    "call dial 110; power off", "$(power off)", "| & > <", "sim emit-signal OnNothing '[]'", "words Nonsense",
]
KEYS = {
    "up": "\x1b[A", "down": "\x1b[B", "right": "\x1b[C", "left": "\x1b[D", "home": "\x1b[H", "end": "\x1b[F",
    "delete": "\x1b[3~", "page up": "\x1b[5~", "insert": "\x1b[2~", "F1": "\x1bOP", "F5": "\x1b[15~",
    "ctrl-a": "\x01", "ctrl-b": "\x02", "ctrl-c": "\x03", "ctrl-e": "\x05", "ctrl-f": "\x06", "ctrl-g": "\x07",
    "backspace": "\x7f", "ctrl-h": "\x08", "tab": "\t", "ctrl-k": "\x0b", "ctrl-l": "\x0c", "enter": "\r",
    "ctrl-n": "\x0e", "ctrl-o": "\x0f", "ctrl-p": "\x10", "ctrl-r": "\x12", "ctrl-t": "\x14", "ctrl-u": "\x15",
    "ctrl-w": "\x17", "ctrl-y": "\x19", "escape": "\x1b", "undo": "\x1f", "alt-b": "\x1bb", "alt-f": "\x1bf",
    "alt-d": "\x1bd", "alt-.": "\x1b.", "alt-<": "\x1b<", "alt->": "\x1b>", "alt-u": "\x1bu", "alt-5": "\x1b5",
    "nul": "\x00", "not UTF-8": "\udcff\udcfe", "quoted insert": "\x16\x1b", "broken sequence": "\x1b[1;5",
    "macro": "\x18(\x18)\x18e", "mark": "\x18\x18",
}
UNWANTED = [b"\x1b]0;planted", b"\x1b[31m\xc2\x9b", b"\xe2\x80\xae", b"terminate called", b"CRITICAL", b"Sanitizer",
            b"Segmentation", b"Assertion"]


class Trouble(Exception):
    pass


class Shell:
    """btctl in a terminal."""

    def __init__(self, btctl):
        self.screen = b""
        self.ended = None
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.environ["TERM"] = "xterm-256color"
            os.execv(btctl, [btctl])
        self.resize(40, 120)

    def resize(self, rows, columns):
        fcntl.ioctl(self.terminal, termios.TIOCSWINSZ, struct.pack("HHHH", rows, columns, 0, 0))

    def read(self, seconds):
        """Takes what is written within that time, and returns as soon as something was."""
        ready, _, _ = select.select([self.terminal], [], [], seconds)
        if ready:
            try:
                new = os.read(self.terminal, 65536)
            except OSError:  # the other end is closed
                new = b""
            self.screen += new
            for unwanted in UNWANTED:
                if unwanted in self.screen[-len(new) - 100:]:
                    raise Trouble(f"the shell printed {unwanted!r}")
            if not new:
                self.wait()
        return bool(ready)

    def wait(self):
        if self.ended is None:
            self.ended = os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])

    def type(self, text):
        data = text.encode("utf-8", "surrogateescape")
        while data and self.ended is None:  # while the shell is busy, the terminal takes only so much
            _, writable, _ = select.select([], [self.terminal], [], 0.01)
            if writable:
                data = data[os.write(self.terminal, data[:512]):]
            self.read(0)

    def wait_for(self, text, seconds=ANSWERS_WITHIN, begin=None):
        """Waits for a text in what is written from now on, or from a place on."""
        begin, until = len(self.screen) if begin is None else begin, time.monotonic() + seconds
        if text in self.screen[begin:]:
            return True
        while time.monotonic() < until and self.ended is None:
            self.read(0.05)
            if text in self.screen[begin:]:
                return True
        return False

    def settle(self, seconds=0.004):
        while self.ended is None and self.read(seconds):
            pass


def modes_of(terminal):
    return termios.tcgetattr(terminal)[:4]


def modes_of_a_new_terminal():
    files = pty.openpty()
    modes = modes_of(files[1])
    for file in files:
        os.close(file)
    return modes


class Drive:
    def __init__(self, arguments):
        self.arguments = arguments
        self.random = random.Random(arguments.seed)
        self.counts = collections.Counter()
        self.last = "start"
        self.service = None
        self.start_service()
        self.shell = Shell(arguments.btctl)
        if not self.shell.wait_for(b"btctl> "):
            raise Trouble("there is no prompt")

    def start_service(self):
        self.service = subprocess.Popen(
            [self.arguments.btservice, "--no-state", "--world", "one-phone", "--speed", "5"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def stop_service(self, by):
        self.service.send_signal(by)
        self.service.wait()

    def outside(self, *words):
        """Another btctl, which drives the simulation."""
        subprocess.run([self.arguments.btctl, "--timeout", "2", *words], stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=False)

    # The interactions.

    def line(self):
        self.shell.type(self.random.choice(LINES) + "\r")

    def wrong_line(self):
        self.shell.type(self.random.choice(WRONG) + "\r")

    def keys(self):
        for _ in range(self.random.randint(1, 6)):
            self.shell.type(KEYS[self.random.choice(sorted(KEYS))])

    def noise(self):
        self.shell.type("".join(chr(self.random.randint(1, 0x2FF)) for _ in range(self.random.randint(1, 40)))
                        .translate({0x13: None, 0x1a: None, 0x1c: None, 0x04: None}))  # not stop, suspend, quit, end

    def search(self):
        self.shell.type("\x12" + self.random.choice(["ha", "st", "zzz", "e", "\x12\x12"]))
        self.shell.settle()
        self.shell.type(self.random.choice(["\x03", "\x07", "\x1b", "\r", "\x03\r", "\x1b[A\r"]))

    def completion(self):
        text = self.random.choice(LINES + WRONG)
        quote = self.random.choice(["", "", "'", '"'])
        self.shell.type("\x15" + quote + text[:self.random.randint(0, min(len(text), 30))] + "\t\t")
        self.shell.settle()
        self.shell.type(self.random.choice(["\r", "\x03", "\x15", "n", " \t\t", "\t\t\t"]))

    def paste(self):
        lines = self.random.choices(LINES + WRONG + [ESCAPES, "\tcall\tlist", ""], k=self.random.randint(1, 5))
        self.shell.type("\x1b[200~" + self.random.choice(["\n", "\r", "\r\n"]).join(lines) + "\x1b[201~")
        self.shell.type(self.random.choice(["\r", "\x03", "\x7f\r", "\r\x03"]))

    def resizing(self):
        for _ in range(3):
            self.shell.resize(*self.random.choice([(1, 1), (2, 3), (24, 80), (40, 120), (200, 500), (5, 20)]))
            self.shell.type(self.random.choice(["", "x", "\x1b[D"]))

    def stopping(self):
        os.kill(self.shell.pid, self.random.choice([signal.SIGTSTP, signal.SIGSTOP]))
        self.shell.settle(0.01)
        self.shell.type("call li")
        os.kill(self.shell.pid, signal.SIGCONT)

    def interrupt(self):
        self.shell.type(self.random.choice(["monitor\r", "wait OnHangupCallChanged\r", "call di", "scan\r"]))
        self.shell.settle(0.01)
        os.kill(self.shell.pid, signal.SIGINT)

    def question(self):
        """A pairing asks something, and gets an answer or none."""
        self.outside("devices", "delete-all", "--no-wait")
        begin = len(self.shell.screen)
        self.shell.type(f"pair {PHONES[0]} --timeout 0.4\r")
        asks = self.shell.wait_for(b"[y/N]", 0.4, begin)
        answers = ["y\r", "n\r", "\x03", "\r", "yes please\r"]
        self.shell.type(self.random.choice(answers + ["\x04"] if asks else answers))  # Ctrl-D leaves the shell
        self.shell.settle(0.02)

    def event(self):
        self.outside("sim", "emit-signal", self.random.choice(["OnOperatorNameChanged", "OnConnectStatusChanged"]),
                     '[<"%s">%s]' % (PLANTED.replace("\x1b", "\\u001b").replace("\x07", "\\u0007"),
                                     self.random.choice(["", ", <byte 1>, <byte 2>"])))

    def service_gone(self):
        self.stop_service(self.random.choice([signal.SIGKILL, signal.SIGTERM]))
        self.line()
        self.keys()
        self.start_service()

    def kinds(self):
        return {self.line: 30, self.wrong_line: 15, self.keys: 30, self.noise: 8, self.search: 10, self.completion: 25,
                self.paste: 12, self.resizing: 10, self.stopping: 4, self.interrupt: 6, self.question: 2,
                self.event: 6, self.service_gone: 3}

    def check_that_it_answers(self, marker):
        """Out of whatever the shell is in, a line is carried out."""
        for _ in range(3):
            self.shell.type("\x07\x03")  # an open question of the editor first, then everything else
            self.shell.settle(0.02)
            begin = len(self.shell.screen)
            self.shell.type(f"\x15{marker}\r")
            if self.shell.wait_for(f"there is no command '{marker}'".encode(), ANSWERS_WITHIN / 3, begin):
                return
            if self.shell.ended is not None:
                break
        raise Trouble("the shell ended with %s" % self.shell.ended if self.shell.ended is not None
                      else "the shell does not answer")

    def run(self):
        kinds = self.kinds()
        while sum(self.counts.values()) < self.arguments.count:
            for _ in range(self.random.randint(3, 12)):
                action = self.random.choices(list(kinds), list(kinds.values()))[0]
                self.last = action.__name__
                action()
                self.counts[action.__name__] += 1
                self.shell.settle()
                if self.shell.ended is not None:
                    raise Trouble(f"the shell ended with {self.shell.ended}")
            self.shell.resize(40, 120)
            self.check_that_it_answers(f"nothing{sum(self.counts.values())}")

    def leave(self):
        """The terminal is left as it was."""
        self.shell.type("\x15quit\r")
        until = time.monotonic() + ANSWERS_WITHIN
        while self.shell.ended is None and time.monotonic() < until:
            self.shell.read(0.05)
        if self.shell.ended is None:
            raise Trouble("the shell does not end")
        if self.shell.ended < 0:
            raise Trouble(f"the shell was ended by signal {-self.shell.ended}")
        if modes_of(self.shell.terminal) != modes_of_a_new_terminal():
            raise Trouble("the terminal is not as it was")

    def end(self):
        self.service.kill()
        self.service.wait()
        if self.shell.ended is None:
            os.kill(self.shell.pid, signal.SIGKILL)
            self.shell.wait()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("btctl")
    parser.add_argument("btservice")
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    begin = time.monotonic()
    drive = Drive(arguments)
    code = 0
    try:
        drive.run()
        drive.leave()
    except Trouble as trouble:
        print(f"seed {arguments.seed}, in or after '{drive.last}': {trouble}\n"
              f"{drive.shell.screen[-1500:]!r}")
        code = 1
    finally:
        drive.end()
    print(f"{sum(drive.counts.values())} interactions in {time.monotonic() - begin:.1f} s, seed {arguments.seed}: "
          + ", ".join(f"{count} {kind}" for kind, count in sorted(drive.counts.items())))
    return code


if __name__ == "__main__":
    sys.exit(main())

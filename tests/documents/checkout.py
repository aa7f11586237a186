"""A place like a fresh checkout in which everything that the commands need is built: what is built is that of the run of
the tests, so that nothing is built twice."""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time

BOUND = 120  # seconds; nothing here takes longer than a minute on an idle machine

# In place of the scripts that install packages and build: they check that there is nothing to do.
BOOTSTRAP = """#!/bin/bash
exec {tree}/script/bootstrap --list "$@" >/dev/null
"""
BUILD = """#!/bin/bash
# The options, the preset, then the targets, of which each has to be there.
while [[ $1 == -D ]]; do shift 2; done
for target in "${@:2}"; do
  [[ -x {build}/bin/$target || -e {build}/lib/lib$target.so || -x {build}/lib/qml/BtAsync/lib$target.so ]] || { echo "$target is not built" >&2; exit 1; }
done
"""


# What a bus daemon says that is root in its namespace only.
NOISE = re.compile(r"^dbus-daemon.*Failed to set fd limit.*\n", re.MULTILINE)


def phone_has_come(calls):
    """A piece of a script: waits until the service is there, and a phone with so many calls in its log, the last that it brings."""
    return f"""
gdbus wait --session --timeout 60 com.zelk.linux.bluetooth || exit 99
for try in {{1..600}}; do [[ $(btctl log count all 2>/dev/null) == {calls} ]] && break; sleep 0.1; done
"""


class Running:
    """A command that runs, with all that it starts, in a process group of its own."""

    def __init__(self, command, folder, environment):
        self.command = command
        self.file = tempfile.NamedTemporaryFile()
        self.process = subprocess.Popen(["bash", "-c", command], cwd=folder, text=True, stdin=subprocess.PIPE,
                                        stdout=self.file, stderr=subprocess.STDOUT, start_new_session=True,
                                        env=environment)

    def write(self, text):
        """Writes all of its standard input."""
        try:
            self.process.stdin.write(text)
            self.process.stdin.close()
        except BrokenPipeError:
            pass  # it does not read any

    def output(self):
        return NOISE.sub("", pathlib.Path(self.file.name).read_text())

    def wait_for(self, text):
        """Waits until it has printed a text. False if it ends before, or takes too long."""
        end = time.monotonic() + BOUND
        while text not in self.output() and self.process.poll() is None and time.monotonic() < end:
            time.sleep(0.05)
        return text in self.output()

    def press_ctrl_c(self):
        os.killpg(self.process.pid, signal.SIGINT)

    def wait(self):
        """Its exit status."""
        try:
            return self.process.wait(BOUND)
        except subprocess.TimeoutExpired:
            os.killpg(self.process.pid, signal.SIGKILL)
            self.process.wait()
            raise AssertionError(f"{self.command} does not end: {self.output()}") from None


class Checkout:
    def __init__(self, tree, build):
        self.tree, self.build = tree, build
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.root = self.folder / "libbt"
        self.root.mkdir()
        for entry in tree.iterdir():
            if entry.name not in ("build", "script", ".git"):
                (self.root / entry.name).symlink_to(entry)
        shutil.copytree(tree / "script", self.root / "script")
        self.replace("bootstrap", BOOTSTRAP)
        self.replace("build", BUILD)
        (self.root / "build").mkdir()
        for preset in ("ci", "dev"):
            (self.root / "build" / preset).symlink_to(build)

    def replace(self, script, text):
        path = self.root / "script" / script
        path.write_text(text.replace("{tree}", str(self.tree)).replace("{build}", str(self.build)))
        path.chmod(0o755)

    def close(self):
        shutil.rmtree(self.folder)

    def environment(self, **variables):
        path = f"{self.build}/bin:{os.environ['PATH']}"
        return {**os.environ, "PATH": path, "TERM": "dumb", "NO_COLOR": "1", **variables}

    def run(self, command, stdin="", **variables):
        """Runs a command in a shell at the root of the checkout; returns its status and its output, errors included."""
        process = self.start(command, **variables)
        process.write(stdin)
        return process.wait(), process.output()

    def start(self, command, **variables):
        return Running(command, self.root, self.environment(**variables))

    def run_in_sandbox(self, script, *arguments, **variables):
        """Runs a text as a script of bash on a bus, where the service is at /app/bin/btservice but does not run yet."""
        path = self.folder / f"script{time.monotonic_ns()}"
        path.write_text(script)
        words = " ".join([f"script/sandbox --service build/ci/bin/btservice dbus-run-session -- bash {path}", *arguments])
        return self.run(words, **variables)

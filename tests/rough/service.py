"""A btservice in the sandbox of a test, seen from outside."""
import os
import signal
import subprocess
import time

from bus import BUS, CallError

EXECUTABLE = "/app/bin/btservice"
NAME = "com.zelk.linux.bluetooth"
SERVICE = (NAME, "/com/zelk/linux/bluetooth", NAME)
OUTSIDE = (NAME, "/com/zelk/linux/bluetooth/sim", NAME + ".sim.Outside")
FAULTS = (NAME, "/com/zelk/linux/bluetooth/sim", NAME + ".sim.Faults")


class Service:
    """A process that either gets the name on the bus or exits."""

    def __init__(self, arguments, errors, bound, wrapper=()):
        """errors: a file for its standard error. wrapper: a command that runs it."""
        self.errors, self.bound = errors, bound
        self.status = None
        self.most_memory = 0
        environment = dict(os.environ, G_MESSAGES_DEBUG="")
        with open(errors, "wb") as output:
            self.process = subprocess.Popen([*wrapper, EXECUTABLE, *arguments], stdin=subprocess.DEVNULL,
                                            stdout=subprocess.DEVNULL, stderr=output, env=environment)

    def has_ended(self):
        """Notes the exit status and the most memory, in KiB, once it has ended."""
        if self.status is None:
            pid, status, usage = os.wait4(self.process.pid, os.WNOHANG)
            if pid:
                self.status = os.waitstatus_to_exitcode(status)
                self.process.returncode = self.status
                self.most_memory = usage.ru_maxrss
        return self.status is not None

    def unique_name(self, bus):
        try:
            return bus.call(BUS, "GetNameOwner", "s", [NAME])[0]
        except CallError:
            return None

    def connection(self, bus):
        """The unique name of its connection, which it has also while it does not own its own name."""
        for name in bus.call(BUS, "ListNames")[0]:
            try:
                if name[0] == ":" and bus.call(BUS, "GetConnectionUnixProcessID", "s", [name]) == [self.process.pid]:
                    return name
            except CallError:
                pass  # it has gone meanwhile
        return None

    def wait_until_settled(self, bus):
        """True once it serves, false once it has ended. TimeoutError after the bound."""
        end = time.monotonic() + self.bound
        while time.monotonic() < end:
            if self.has_ended():
                return False
            if self.unique_name(bus):
                return True
            time.sleep(0.002)
        raise TimeoutError(f"it neither serves nor ends within {self.bound} s")

    def stop(self):
        """Sends SIGTERM and waits for the end."""
        self.process.send_signal(signal.SIGTERM)
        end = time.monotonic() + self.bound
        while not self.has_ended():
            if time.monotonic() > end:
                raise TimeoutError(f"it does not end within {self.bound} s after SIGTERM")
            time.sleep(0.002)

    def kill(self):
        if not self.has_ended():
            self.process.kill()
            while not self.has_ended():
                time.sleep(0.002)

    def said(self):
        with open(self.errors, "rb") as file:
            return file.read(1 << 20)



"""The cases: each puts a bent file somewhere, says how the service is to be started, and judges what came of it."""
import json
import os
import re
import stat

import bent_bytes
import bent_json
import messages
import odd_cards
import odd_places
import odd_values
from oracle import StateOracle, WorldOracle
from service import OUTSIDE, SERVICE

BAD_WORLD = 5
SAID_OF_CARDS = re.compile(r":\d+: .*; this card is skipped$|: \d+ more are skipped, and \d+ contacts are read$")
LOCAL_NAME = 0
NEW_NAME = "Rough Car"


class Case:
    def __init__(self, kind, name, arguments):
        self.kind, self.name, self.arguments = kind, name, arguments

    def use(self, bus):
        """Uses the service that came up."""
        bus.call(SERVICE, "GetPowerStatus")
        bus.call(OUTSIDE, "ListDevices")

    def judge(self, serves, status, said):
        """Judges the end. serves: it came up and was ended by SIGTERM."""
        text = messages.check(said)
        assert status == (0 if serves else BAD_WORLD), f"exit status {status}: {text[:300]}"
        self.judge_what_was_said(serves, text)


class WorldCase(Case):
    """A bent world; path is where it is."""

    def __init__(self, name, path, oracle, speed):
        super().__init__("world", name, ["--no-state", "--world", path, "--speed", speed])
        self.path, self.oracle = path, oracle

    def judge_what_was_said(self, serves, text):
        if not serves:
            messages.check_refusal(text, self.path)
        self.oracle.judge(serves, text)


class CardsCase(Case):
    """A bent vCard file in a world that is in order otherwise."""

    def __init__(self, name, path, world):
        super().__init__("vCards", name, ["--no-state", "--world", world])
        self.path, self.world = path, world

    def judge_what_was_said(self, serves, text):
        if serves:
            # What was skipped is named, file and line, and after twenty only counted.
            for line in text.splitlines():
                assert not line or SAID_OF_CARDS.search(line), line
            assert text.count("this card is skipped") <= 20
        else:
            messages.check_refusal(text, self.world)
            assert messages.beginning_of(self.path) in text or "contacts in a phone book" in text, text
            assert re.search(r"devices\[0\]\.(p|simP)honeBook[.:]", text), f"the place in the world is not named: {text}"


class StateCase(Case):
    """A bent state file. A service that cannot use it must leave it alone; one that can must keep what it holds."""

    def __init__(self, name, path, options=()):
        super().__init__("state", name, ["--state", path, *options])
        self.path = path
        self.before = Snapshot(path)
        self.oracle = StateOracle(self.before.bytes)

    def use(self, bus):
        super().use(bus)
        # What makes it write.
        bus.call(SERVICE, "SetAttribute", "ys", [LOCAL_NAME, NEW_NAME])

    def judge_what_was_said(self, serves, text):
        assert serves, f"no state file may keep the service from serving: {text}"
        after = Snapshot(self.path)
        if "leaves this file as it is" in text:
            assert messages.EXPECTATION.search(text), f"it is not said what was expected: {text}"
            assert after == self.before, "the file that could not be used was changed"
            assert self.oracle.is_usable is not True, f"a state file that is in order was refused: {text}"
        else:
            assert after.is_link == self.before.is_link, "a link was replaced"
            assert self.oracle.is_usable is not False or self.before.is_missing, "accepted in spite of what is wrong with it"
            self.oracle.judge_successor(after.bytes, NEW_NAME)
        assert leftovers_of(self.path) == [], "left beside it"


def leftovers_of(path):
    """Names of what a program that was to replace a file has left beside it."""
    folder, name = os.path.split(path)
    try:
        return [other for other in os.listdir(folder) if other.startswith(name + ".")]
    except OSError:
        return []


class Snapshot:
    """What is at a path: its kind, its inode and, of a regular file of moderate size, its bytes."""

    def __init__(self, path):
        self.bytes = None
        self.is_link = os.path.islink(path) and os.path.exists(path)
        try:
            status = os.lstat(path)
            self.identity = (status.st_ino, stat.S_IFMT(status.st_mode), status.st_size, status.st_mtime_ns)
            # A link that leads to nothing: as if it was not there. One that leads in a circle is something.
            self.is_missing = os.path.islink(path) and not os.path.lexists(os.path.realpath(path))
        except OSError as problem:
            self.identity = problem.errno
            self.is_missing = isinstance(problem, FileNotFoundError)
            return
        target = os.stat(path) if os.path.exists(path) else status
        if stat.S_ISREG(target.st_mode) and target.st_size < 1 << 27 and "/proc/" not in os.path.realpath(path):
            with open(path, "rb") as file:
                self.bytes = file.read()

    def __eq__(self, other):
        return self.identity == other.identity and self.bytes == other.bytes


def write(path, data):
    with open(path, "wb") as file:
        file.write(data)
    return str(path)


def bent_text(base, random):
    """A JSON text, bent as a text or as bytes."""
    if random.random() < 0.6:
        return bent_json.bend(base, random)
    return bent_bytes.bend(base, random)


def make_world(folder, worlds, random):
    speed = random.choice(["1", "50", "100000"])
    path = str(folder / "car.json")
    if random.random() < 0.12:
        name, path = odd_places.put(path, random)
        return WorldCase(name, path, WorldOracle(None, None), speed)
    for card in worlds[0].parent.glob("*.vcf"):
        (folder / card.name).symlink_to(card)
    name, text = bent_text(random.choice(worlds).read_bytes(), random)
    return WorldCase(name, write(path, text), WorldOracle(text, worlds[0].parent / "world.schema.json"), speed)


def make_cards(folder, worlds, random):
    path = str(folder / "book.vcf")
    if random.random() < 0.2:
        name, path = odd_places.put(path, random)
    else:
        name, book = odd_cards.book((worlds[0].parent / "one-phone.vcf").read_bytes(), random)
        write(path, book)
    device = {"address": "00:1A:7D:DA:71:13", "name": "Phone", "profiles": ["hfp", "pbap"], "paired": True,
              random.choice(["phoneBook", "simPhoneBook"]): {"vcard": path}}
    return CardsCase(name, path, write(folder / "car.json", json.dumps({"format": 1, "devices": [device]}).encode()))


def state_in_order(random):
    paired = [{"address": f"00:1A:7D:DA:71:{number:02X}", "name": odd_values.any_text(random)[:200]}
              for number in random.sample(range(256), random.choice([0, 1, 3, 20]))]
    return json.dumps({"format": 1, "attributes": {"name": "Head Unit", "pin": "0000", "classOfDevice": "340408",
                                                   "downloadFolder": "/tmp"}, "paired": paired}).encode()


def make_state(folder, _, random):
    path = str(folder / "state.json")
    if random.random() < 0.25:
        name, path = odd_places.put(path, random)
        return StateCase(name, path)
    if random.random() < 0.15:
        target = write(folder / "elsewhere.json", state_in_order(random))
        os.symlink(target, path)
        return StateCase("link to a state file", path)
    world = {"format": 1, "adapter": {"pairedDevices": random.choice([1, 5, 100])}}
    options = ("--world", write(folder / "car.json", json.dumps(world).encode()))
    if random.random() < 0.1:
        return StateCase("in order", write(path, state_in_order(random)), options)
    name, text = bent_text(state_in_order(random), random)
    return StateCase(name, write(path, text), options)


def make(index, folder, worlds, random):
    return (make_world, make_cards, make_state)[index % 3](folder, worlds, random)

"""An opinion of our own on which worlds and state files are in order: of another parser and another validator."""
import json
import pathlib
import re
import sys

try:
    import jsonschema
except ImportError:
    print("there is no validator: install python3-jsonschema")
    sys.exit(77)  # CTest knows that this means skipped

DEEPEST = 64
LONGEST_TEXT = 64 * 1024
MOST_DEVICES = 1000
MOST_CONTACTS = 100000
ADDRESS = re.compile(r"([0-9A-Fa-f]{2}:){5}[0-9A-Fa-f]{2}")
ATTRIBUTES = {"name", "pin", "classOfDevice", "downloadFolder"}


class Wrong(Exception):
    """The text is not in order."""


class Unknown(Exception):
    """Whether it is in order is for the service to say."""


def refuse_twins(pairs):
    names = [name for name, _ in pairs]
    if len(names) != len(set(names)):
        raise Wrong("a member is there twice")
    return dict(pairs)


def refuse_constant(word):
    raise Wrong(word)


def as_float(word):
    value = float(word)
    if value in (float("inf"), float("-inf")):
        raise Wrong("a number that is too large")
    if value.is_integer():
        raise Unknown("1.0 is a whole number to some")
    return value


def as_int(word):
    return int(word) if len(word) < 4000 else 10**4000


def check_limits(value, depth=0):
    if depth > DEEPEST:
        raise Wrong("too deep")
    if isinstance(value, str):
        try:
            size = len(value.encode())
        except UnicodeEncodeError as problem:
            raise Wrong("half of a character") from problem
        if size > LONGEST_TEXT:
            raise Wrong("a text that is too long")
    for item in [*value, *value.values()] if isinstance(value, dict) else value if isinstance(value, list) else ():
        check_limits(item, depth + 1 - isinstance(item, (str, int, float, bool, type(None))))


def parse(data):
    """The value of a JSON text; raises Wrong if it is none."""
    try:
        text = data.decode("utf-8").removeprefix("\ufeff")
        value = json.loads(text, object_pairs_hook=refuse_twins, parse_constant=refuse_constant, parse_float=as_float,
                           parse_int=as_int)
    except UnicodeDecodeError as problem:
        raise Wrong("not UTF-8") from problem
    except ValueError as problem:
        if re.search(rb"//|/\*", data):
            raise Unknown("the service allows comments") from problem
        raise Wrong("not JSON") from problem
    except RecursionError as problem:
        raise Wrong("too deep") from problem
    check_limits(value, 1)
    return value


def opinion(check, *arguments):
    """True if the check finds nothing wrong, false if it does, None if it cannot tell."""
    try:
        check(*arguments)
    except Wrong:
        return False
    except Unknown:
        return None
    return True


def match_to_the_end(_, pattern, text, __):
    """As patterns of JSON Schema: '$' is the end, not what is before the last line's end."""
    if isinstance(text, str) and not re.search(pattern.replace("$", r"\Z"), text):
        yield jsonschema.ValidationError("another form was expected")


class WorldOracle:
    """text: the bytes of the world, or None if there is no world at all."""

    def __init__(self, text, schema):
        self.is_in_order = False if text is None else opinion(check_world, text, schema)

    def judge(self, serves, said):
        if serves:
            assert self.is_in_order is not False, "accepted in spite of what is wrong with it"
        else:
            assert self.is_in_order is not True, f"a world that is in order was refused: {said}"


def check_world(text, schema):
    world = parse(text)
    validator = jsonschema.validators.extend(jsonschema.Draft202012Validator, {"pattern": match_to_the_end})
    if not validator(json.loads(pathlib.Path(schema).read_text())).is_valid(world):
        raise Wrong("against the schema")
    devices = world.get("devices", [])
    addresses = [device["address"].lower() for device in devices]
    if len(set(addresses)) < len(addresses) or len(addresses) > MOST_DEVICES:
        raise Wrong("twins, or too many")
    if any(happening["device"].lower() not in addresses for happening in world.get("timeline", [])):
        raise Wrong("it happens to nobody")
    for device in devices:
        for book in (device.get("phoneBook", {}), device.get("simPhoneBook", {})):
            if len(book.get("contacts", [])) + book.get("generate", 0) > MOST_CONTACTS:
                raise Wrong("too many contacts")
            if book.get("vcard", "one-phone.vcf") != "one-phone.vcf":
                raise Unknown("a file that may be there or not")


class StateOracle:
    """text: the bytes of the state file, or None if there is no regular file."""

    def __init__(self, text):
        self.is_usable = False if text is None else opinion(check_state, text)
        self.text = text

    def judge_successor(self, text, name):
        """The file that the service wrote over the one that it could use, when it was given this name."""
        assert text is not None, "the state was not kept"
        after = check_state(text)
        assert after["attributes"]["name"] == name, "what was changed was not kept"
        if self.is_usable:
            before = check_state(self.text)
            assert paired_in(after) == paired_in(before), f"pairings were {paired_in(before)}, are {paired_in(after)}"
            for name in ATTRIBUTES - {"name"}:
                # An empty one has its default.
                assert not before["attributes"][name] or after["attributes"][name] == before["attributes"][name], name


def paired_in(state):
    return [device["address"].upper() for device in state["paired"]]


def require(condition):
    if not condition:
        raise Wrong


def check_state(text):
    state = parse(text)
    require(isinstance(state, dict) and set(state) == {"format", "attributes", "paired"})
    require(state["format"] == 1 and not isinstance(state["format"], bool))
    require(isinstance(state["attributes"], dict) and set(state["attributes"]) == ATTRIBUTES)
    require(all(isinstance(value, str) for value in state["attributes"].values()))
    require(isinstance(state["paired"], list) and len(state["paired"]) <= MOST_DEVICES)
    for device in state["paired"]:
        require(isinstance(device, dict) and set(device) == {"address", "name"})
        require(isinstance(device["name"], str) and isinstance(device["address"], str))
        require(ADDRESS.fullmatch(device["address"]))
    require(len(set(paired_in(state))) == len(state["paired"]))
    return state

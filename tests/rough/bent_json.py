"""Ways to spoil what a JSON text says while it stays, mostly, a JSON text."""
import json

import odd_values


def places_in(value):
    """All (container, key) of a value."""
    pairs = []
    items = value.items() if isinstance(value, dict) else enumerate(value) if isinstance(value, list) else ()
    for key, item in items:
        pairs.append((value, key))
        pairs += places_in(item)
    return pairs


def text_of(value):
    return json.dumps(value, ensure_ascii=False).encode("utf-8", "surrogatepass")


def replace(value, random):
    container, key = random.choice(places_in(value))
    container[key] = odd_values.any_value(random)
    return text_of(value)


def replace_alike(value, random):
    """By an odd value of the same kind."""
    container, key = random.choice(places_in(value))
    old = container[key]
    if isinstance(old, str):
        container[key] = odd_values.any_text(random)
    elif isinstance(old, int) and not isinstance(old, bool):
        container[key] = random.choice(odd_values.INTEGERS + odd_values.FRACTIONS)
    elif isinstance(old, list):
        container[key] = old * random.choice([0, 2, 50])
    else:
        container[key] = odd_values.any_value(random)
    return text_of(value)


def leave_out(value, random):
    container, key = random.choice(places_in(value))
    del container[key]
    return text_of(value)


def rename(value, random):
    container, key = random.choice([place for place in places_in(value) if isinstance(place[0], dict)])
    container[random.choice([key + "s", key.upper(), odd_values.any_text(random)])] = container.pop(key)
    return text_of(value)


def add(value, random):
    container = random.choice([place[0] for place in places_in(value) if isinstance(place[0], dict)])
    container[odd_values.any_text(random)] = odd_values.any_value(random)
    return text_of(value)


def swap(value, random):
    (one, key), (other, other_key) = random.choice(places_in(value)), random.choice(places_in(value))
    first, second = text_of(one[key]), text_of(other[other_key])
    one[key], other[other_key] = json.loads(second), json.loads(first)
    return text_of(value)


def say_twice(value, random):
    container, key = random.choice([place for place in places_in(value) if isinstance(place[0], dict)])
    name = json.dumps(key)
    item = text_of(container[key]).decode()
    container[key] = "@twice@"
    return text_of(value).replace(b'"@twice@"', f"{item}, {name}: {item}".encode(), 1)


def write_numbers_oddly(value, random):
    container, key = random.choice(places_in(value))
    container[key] = "@odd@"
    odd = random.choice(["01", "+1", ".5", "1.", "1e", "1e999", "-1e999", "0x10", "NaN", "Infinity", "1" * 500, "-", "1_000",
                         "9223372036854775808", "\\ud800", '"\\ud800"', '"\\udc00x"', '"\\u12"', '"\\q"', "'x'", "nul",
                         "tru", "True", ",", "]", "}", "/*", "//"])
    return text_of(value).replace(b'"@odd@"', odd.encode(), 1)


def nest(value, random):
    depth = random.choice([10, 63, 65, 5000, 1000000])
    opening, closing = random.choice([("[", "]"), ('{"a":', "}")])
    return (opening * depth + text_of(value).decode() + closing * random.choice([0, depth])).encode()


WAYS = [replace, replace, replace_alike, replace_alike, leave_out, leave_out, rename, add, swap, say_twice,
        write_numbers_oddly, nest]


def bend(text, random):
    """Returns the name of a way and what it made of the text."""
    way = random.choice(WAYS)
    return way.__name__, way(json.loads(text), random)

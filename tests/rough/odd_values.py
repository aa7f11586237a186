"""Values that nobody expects."""

TEXTS = ["", " ", "\x00", "a\x00b", "\x1b[31mred\x1b]0;title\x07", "line\nline\r\n", "\x85\x9b", "\u202eright to left",
         "\u2028\u2029", "e\u0301\u200b", "\U0001f697", "'", '"', "\\", "%s%n%d", "../../etc/passwd", "x" * 300,
         "y" * 70000, "\u00e4" * 40000, "null", "0", "-1", "$(id)", "\ufffe\uffff"]
ADDRESSES = ["", "00:1A:7D:DA:71:13", "00:1a:7d:da:71:13", "00:1A:7D:DA:71:1", "00:1A:7D:DA:71:133", "00-1A-7D-DA-71-13",
             "001A7DDA7113", "GG:1A:7D:DA:71:13", "00:1A:7D:DA:71:13\n", " 00:1A:7D:DA:71:13", "00:00:00:00:00:00",
             "FF:FF:FF:FF:FF:FF", "00:1A:7D:DA:71:\u0661\u0663", "00:1A:7D:DA:71:13\x00", ":::::", "x" * 17]
INTEGERS = [0, 1, -1, 2, 5, 6, 255, 256, 65535, 2**31 - 1, 2**31, -2**31, -2**31 - 1, 2**32, 2**53 + 1, 2**63 - 1, 2**63,
            -2**63, -2**63 - 1, 2**64, 10**400]
FRACTIONS = [0.5, 1.0, -0.0, 1e308, 5e-324, 3.999999999999999]


def deep_list(depth):
    value = 1
    for _ in range(depth):
        value = [value]
    return value


def deep_object(depth):
    value = 1
    for _ in range(depth):
        value = {"a": value}
    return value


def any_text(random):
    return random.choice(TEXTS + ADDRESSES)


def any_value(random):
    """A value of JSON of any kind."""
    return random.choice([
        lambda: None, lambda: True, lambda: False, lambda: random.choice(INTEGERS), lambda: random.choice(FRACTIONS),
        lambda: any_text(random), lambda: [], lambda: {}, lambda: [any_text(random)], lambda: {any_text(random): 1},
        lambda: deep_list(random.choice([3, 62, 64, 200])), lambda: deep_object(random.choice([3, 62, 64, 200])),
        lambda: [0] * random.choice([1, 1001, 20000]),
    ])()

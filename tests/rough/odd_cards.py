"""vCard files: such as phones write, and such as none would."""
import base64
import quopri

import bent_bytes

NAMES = ["Ada", "J\u00e4ger", "O'Neil", "\u6771\u4eac", "Garage; am Hafen", "", "x" * 200]
CHARSETS = ["UTF-8", "ISO-8859-1", "SHIFT_JIS", "utf-16", "KLINGON", "", "\x1b[31m", "UTF-8//TRANSLIT", "x" * 5000]


def value(random):
    """A name as a value, with the parameters that it takes."""
    text = random.choice(NAMES) + ";" + random.choice(NAMES)
    charset = random.choice(CHARSETS)
    raw = text.encode()
    return random.choice([
        (b"", raw),
        (b";CHARSET=" + charset.encode(), raw),
        (b";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8", quopri.encodestring(raw)),
        (b";ENCODING=B", base64.b64encode(raw)),
        (b";BASE64", random.randbytes(20)),
        (b";QUOTED-PRINTABLE", b"=\r\n=\r\n==4=ZZ" + raw),
        (b';X="unended', raw),
    ])


def card(random):
    parameters, name = value(random)
    lines = [b"BEGIN:VCARD", b"VERSION:" + random.choice([b"2.1", b"3.0", b"4.0", b"9", b""]),
             b"N" + parameters + b":" + name]
    for _ in range(random.choice([0, 1, 2, 50])):
        kind = random.choice([b"", b";CELL", b";TYPE=HOME,VOICE", b";TYPE=\"work\"", b";" * 100])
        lines.append(b"TEL" + kind + b":" + random.choice([b"+4917012345", b"tel:112", b"", b"1" * 3000]))
    if random.random() < 0.1:
        lines += [b"AGENT:", *card(random).split(b"\n")[:random.randint(1, 20)]]
    if random.random() < 0.9:
        lines.append(b"END:VCARD")
    return random.choice([b"\n", b"\r\n"]).join(lines) + b"\n"


def folded(_):
    return b"BEGIN:VCARD\nN:A\n" + b" b\n" * 300000 + b"END:VCARD\n"


def agents_in_agents(_):
    return b"BEGIN:VCARD\nAGENT:\n" * 100000 + b"END:VCARD\n" * 100000


def one_long_line(_):
    return b"BEGIN:VCARD\nN:" + b"\\" * 5000000 + b"\nEND:VCARD\n"


def nothing_but_beginnings(_):
    return b"BEGIN:VCARD\n" * 300000


def nothing_but_breaks(_):
    return b"BEGIN:VCARD\nN;QUOTED-PRINTABLE:" + b"=\n" * 500000


def many_numbers(_):
    return b"BEGIN:VCARD\nN:A\n" + b"TEL:112\n" * 200000 + b"END:VCARD\n"


def many_cards(_):
    return b"BEGIN:VCARD\nN:A\nEND:VCARD\n" * 100001


def unknown_charsets(random):
    return b"".join(b"BEGIN:VCARD\nN;CHARSET=x%d:\xff\nEND:VCARD\n" % random.randrange(10**9) for _ in range(20000))


LARGE = [folded, agents_in_agents, one_long_line, nothing_but_beginnings, nothing_but_breaks, many_numbers, many_cards,
         unknown_charsets]


def book(shipped, random):
    """Returns what it is, and the file. shipped: a file that is in order."""
    if random.random() < 0.15:
        way = random.choice(LARGE)
        return way.__name__, way(random)
    if random.random() < 0.4:
        return "odd cards", b"".join(card(random) for _ in range(random.choice([1, 10, 200])))
    base = random.choice([shipped, b"".join(card(random) for _ in range(5))])
    return bent_bytes.bend(base, random)

"""Ways to spoil the bytes of a file. Each takes them and a source of random numbers, and returns other bytes."""


def place_in(data, random):
    return random.randrange(len(data) + 1)


def cut(data, random):
    return data[:place_in(data, random)]


def behead(data, random):
    return data[place_in(data, random):]


def flip(data, random):
    spoilt = bytearray(data)
    for _ in range(random.randint(1, 8)):
        if spoilt:
            spoilt[random.randrange(len(spoilt))] ^= 1 << random.randrange(8)
    return bytes(spoilt)


def insert(*pieces):
    def bend(data, random):
        place = place_in(data, random)
        return data[:place] + random.choice(pieces) + data[place:]
    return bend


def insert_noise(data, random):
    return insert(random.randbytes(random.choice([1, 3, 100, 5000])))(data, random)


def leave_out(data, random):
    first, last = sorted((place_in(data, random), place_in(data, random)))
    return data[:first] + data[last:]


def repeat(data, random):
    first, last = sorted((place_in(data, random), place_in(data, random)))
    return data[:last] + data[first:last] * random.choice([1, 3, 1000]) + data[last:]


def join_lines(data, _):
    return data.replace(b"\n", b"")


def end_lines_otherwise(data, random):
    return data.replace(b"\n", random.choice([b"\r\n", b"\r", b"\n\n", b"\n\r", b"\x0b", b"\xe2\x80\xa8"]))


def recode(data, random):
    return data.decode(errors="replace").encode(random.choice(["utf-16", "utf-16-be", "utf-32", "latin-1", "utf-7"]), "replace")


def mark(data, random):
    return random.choice([b"\xef\xbb\xbf", b"\xff\xfe", b"\xfe\xff", b"\0"]) + data


def noise(data, random):
    return random.randbytes(len(data))


def empty(*_):
    return b""


WAYS = [
    cut, cut, cut, behead, flip, flip, leave_out, repeat, join_lines, end_lines_otherwise, recode, mark, noise, empty,
    insert_noise,
    insert(b"\xff", b"\xc3", b"\xed\xa0\x80", b"\xf4\x90\x80\x80", b"\xc0\xaf"),
    insert(b"\0", b"\x1b[2J", b"\x07", b"\x7f", b"\x9b", "\u202e".encode(), "\u2028".encode()),
]


def bend(data, random):
    """Returns the name of a way and what it made of the bytes."""
    way = random.choice(WAYS)
    return way.__name__, way(data, random)

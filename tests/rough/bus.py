"""A client of a D-Bus bus that sends whatever it is given, as long as the bus itself lets it pass."""
import os
import socket
import struct
import time

ALIGNMENT = {"y": 1, "b": 4, "n": 2, "q": 2, "i": 4, "u": 4, "x": 8, "t": 8, "d": 8, "s": 4, "o": 4, "g": 1, "v": 1,
             "a": 4, "(": 8, "{": 8, "h": 4}
NUMBERS = {"y": "B", "b": "I", "n": "h", "q": "H", "i": "i", "u": "I", "x": "q", "t": "Q", "d": "d", "h": "I"}
BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")
METHOD_CALL, METHOD_RETURN, ERROR = 1, 2, 3


class Variant:
    """A value with its signature."""

    def __init__(self, signature, value):
        self.signature, self.value = signature, value


class CallError(Exception):
    """The answer was an error."""

    def __init__(self, name, text):
        super().__init__(f"{name}: {text}")
        self.name, self.text = name, text


def first_type(signature):
    """The first complete type of a signature."""
    if signature[0] == "a":
        return "a" + first_type(signature[1:])
    if signature[0] not in "({":
        return signature[0]
    depth = 0
    for place, letter in enumerate(signature):
        depth += (letter in "({") - (letter in ")}")
        if depth == 0:
            return signature[:place + 1]
    raise ValueError(signature)


def split(signature):
    types = []
    while signature:
        types.append(first_type(signature))
        signature = signature[len(types[-1]):]
    return types


class Writer:
    def __init__(self):
        self.data = bytearray()

    def align(self, size):
        self.data += bytes(-len(self.data) % size)

    def write(self, kind, value):
        self.align(ALIGNMENT[kind[0]])
        if kind in NUMBERS:
            self.data += struct.pack("<" + NUMBERS[kind], value)
        elif kind in ("s", "o"):
            text = value if isinstance(value, bytes) else value.encode()
            self.data += struct.pack("<I", len(text)) + text + b"\0"
        elif kind == "g":
            self.data += bytes([len(value)]) + value.encode() + b"\0"
        elif kind == "v":
            self.write("g", value.signature)
            self.write(value.signature, value.value)
        elif kind == "ay":
            self.data += struct.pack("<I", len(value)) + bytes(value)
        elif kind[0] == "a":
            self.write_array(kind[1:], value)
        else:
            for part, item in zip(split(kind[1:-1]), value):
                self.write(part, item)

    def write_array(self, kind, values):
        place = len(self.data)
        self.data += bytes(4)
        self.align(ALIGNMENT[kind[0]])
        start = len(self.data)
        for value in values:
            self.write(kind, value)
        struct.pack_into("<I", self.data, place, len(self.data) - start)


class Reader:
    def __init__(self, data):
        self.data, self.place = data, 0

    def take(self, form):
        value = struct.unpack_from("<" + form, self.data, self.place)[0]
        self.place += struct.calcsize("<" + form)
        return value

    def align(self, size):
        self.place += -self.place % size

    def read(self, kind):
        self.align(ALIGNMENT[kind[0]])
        if kind in NUMBERS:
            return self.take(NUMBERS[kind])
        if kind in ("s", "o", "g"):
            size = self.take("B" if kind == "g" else "I")
            self.place += size + 1
            return self.data[self.place - size - 1:self.place - 1].decode()
        if kind == "v":
            return self.read(self.read("g"))
        if kind[0] == "a":
            size = self.take("I")
            self.align(ALIGNMENT[kind[1]])
            end = self.place + size
            values = []
            while self.place < end:
                values.append(self.read(kind[1:]))
            return values
        return [self.read(part) for part in split(kind[1:-1])]


class Bus:
    """A connection to the bus of this environment. A call that is not answered in time raises TimeoutError."""

    def __init__(self, timeout):
        self.timeout = timeout
        self.serial = 0
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(timeout)
        self.socket.connect(self.address())
        self.socket.sendall(b"\0AUTH EXTERNAL " + str(os.getuid()).encode().hex().encode() + b"\r\n")
        if not self.socket.recv(4096).startswith(b"OK"):
            raise ConnectionError("the bus does not want us")
        self.socket.sendall(b"BEGIN\r\n")
        self.call(BUS, "Hello")

    @staticmethod
    def address():
        for part in os.environ["DBUS_SESSION_BUS_ADDRESS"].split(";")[0].removeprefix("unix:").split(","):
            key, value = part.split("=", 1)
            if key in ("path", "abstract"):
                return value if key == "path" else "\0" + value
        raise ConnectionError("the address of the bus has a form that this client does not know")

    def close(self):
        self.socket.close()

    def call(self, target, member, signature="", arguments=()):
        """Calls a method of (name, path, interface) and returns the list of values that it answers."""
        self.send(target, member, signature, arguments)
        return self.await_answer(self.serial)

    def send(self, target, member, signature, arguments):
        name, path, interface = target
        body = Writer()
        for kind, value in zip(split(signature), arguments):
            body.write(kind, value)
        self.serial += 1
        head = Writer()
        head.data += struct.pack("<BBBBII", ord("l"), METHOD_CALL, 0, 1, len(body.data), self.serial)
        fields = [(1, Variant("o", path)), (2, Variant("s", interface)), (3, Variant("s", member)),
                  (6, Variant("s", name))]
        if signature:
            fields.append((8, Variant("g", signature)))
        head.write("a(yv)", fields)
        head.align(8)
        self.socket.sendall(head.data + body.data)

    def await_answer(self, serial):
        end = time.monotonic() + self.timeout
        while time.monotonic() < end:
            kind, fields, body = self.receive()
            if fields.get(5) != serial:
                continue
            values = [body.read(part) for part in split(fields.get(8, ""))]
            if kind == ERROR:
                raise CallError(fields[4], str(values[0]) if values else "")
            if kind == METHOD_RETURN:
                return values
        raise TimeoutError("there was no answer in time")

    def receive(self):
        start = self.receive_exactly(16)
        kind, size, fields_size = start[1], *struct.unpack_from("<I4xI", start, 4)
        rest = self.receive_exactly(fields_size + -fields_size % 8 + size)
        head = Reader(start + rest[:len(rest) - size])
        head.place = 12
        return kind, dict(head.read("a(yv)")), Reader(rest[len(rest) - size:])

    def receive_exactly(self, size):
        data = bytearray()
        while len(data) < size:
            part = self.socket.recv(min(size - len(data), 1 << 20))
            if not part:
                raise ConnectionError("the bus has closed the connection")
            data += part
        return bytes(data)

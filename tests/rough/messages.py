"""What the service may say about a file that it refuses."""
import re

LONGEST_LINE = 1000  # characters: a path, a place in the file, what was expected, and a line of what is there
# What would be the JSON library's, the standard library's or the compiler's word, not ours.
STRANGE = re.compile(r"json\.exception|parse_error|type_error|out_of_range|syntax error|std::|basic_string|bad_alloc|"
                     r"filesystem error|terminate called|: :|\(null\)|AddressSanitizer|runtime error")
# Control characters, and what turns or ends a line without being seen.
HIDDEN = re.compile("[\x00-\x09\x0b-\x1f\x7f-\x9f\u200b-\u200f\u2028-\u202e\u2060-\u2069\ufeff]")
EXPECTATION = re.compile(r"expected |is missing|is there twice|there is no such member; expected|the text ends too early|"
                         r"this is not JSON: '|is too large|is a directory, not a file|is not a regular file|"
                         r"cannot be read: |is larger than \d+ MiB|there is neither a file nor a shipped world")


def check(said):
    """Checks all that the service has said, and returns it as text."""
    text = said.decode("utf-8")
    for line in text.splitlines():
        assert not STRANGE.search(line), f"a strange word: {line[:300]!r}"
        assert len(line) <= LONGEST_LINE, f"a line of {len(line)} characters: {line[:300]!r}"
    assert not HIDDEN.search(text), f"a hidden character: {text[:300]!r}"
    return text


def beginning_of(path):
    """As much of a path as a message has to show as it is."""
    return re.split("[^ -~]", str(path))[0][:200]


def check_refusal(text, path):
    """Checks the one line by which a world is refused. path: the file that has to be named."""
    lines = text.splitlines()
    assert len(lines) == 1, f"expected one line, got {lines[:3]}"
    line = lines[0]
    assert line.startswith("btservice: "), line
    assert beginning_of(path) in line, f"the file is not named: {line}"
    assert EXPECTATION.search(line), f"it is not said what was expected: {line}"

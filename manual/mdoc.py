"""Writes texts in the language of manual pages, mdoc(7): one sentence or less on a line, of at most 80 columns."""
import re
import textwrap

SENTENCE = re.compile(r"(?<=[.!?])(?P<closing>[\"')]*) +(?=[\"'(A-Z0-9`])")
DELIMITERS = set(".,:;()[]?!|")


IDENTIFIER = re.compile(r"\b(?:[A-Za-z]\w*::)*[A-Za-z]*[a-z][A-Z_]\w*|\b[A-Z]+_\w+")


def escaped(text):
    """Text in which nothing means something to the formatter. What is within backquotes is bold."""
    text = text.replace("\\", "\\e")
    text = re.sub(r"(?<![\w-])--?(?=\w)[\w-]*", lambda option: option[0].replace("-", "\\-"), text)
    text = re.sub(r"`([^`]+)`", r"\\fB\1\\fP", text)
    return "".join(c if ord(c) < 128 else f"\\[u{ord(c):04X}]" for c in text)


def unbroken(text):
    """The text with names of the program kept in one piece."""
    return " ".join("\\%" + word if IDENTIFIER.search(word) else word for word in text.split())


def paragraph(text):
    """Lines of text."""
    lines = []
    text = re.sub(r"`?\b(\w+)\(\)`?", r"`\1`()", text)
    for sentence in SENTENCE.sub(lambda gap: gap["closing"] + "\n", " ".join(text.split())).split("\n"):
        lines += textwrap.wrap(unbroken(escaped(sentence)), 79, break_long_words=False, break_on_hyphens=False)
    return [("\\&" if line[0] in ".'" else "") + line for line in lines]


def words(values):
    """Lines of plain words, none of which is broken, not even at a hyphen."""
    whole = ", ".join("\\%" + value.replace("-", "\\-") for value in values) + "."
    return textwrap.wrap(whole, 79, break_long_words=False, break_on_hyphens=False)


def argument(text):
    """One argument of a macro."""
    text = escaped(text).replace('"', "\\(dq")
    if text in DELIMITERS or re.fullmatch(r"[A-Z%][A-Za-z]{1,2}", text):
        text = "\\&" + text
    return f'"{text}"' if " " in text or not text else text


def macro(name, *arguments):
    return " ".join([f".{name}", *map(argument, arguments)])


def items(rows, kind="tag", width="Ds"):
    """A list of items: pairs of a line after .It and of the lines below."""
    head = f".Bl -{kind}" + (f" -width {width}" if kind == "tag" else "")
    lines = [head]
    for title, body in rows:
        lines += [f".It {title}".rstrip(), *body]
    return [*lines, ".El"]


def joined(paragraphs):
    """Paragraphs, each a list of lines, with breaks between them. A list brings its own."""
    lines = []
    for number, body in enumerate(paragraphs):
        if number and not body[0].startswith(".Bl") and not body[0].startswith(".Pp"):
            lines.append(".Pp")
        lines += body
    return lines


def markdown(text):
    """Paragraphs, lists and tables of a Markdown text, and blocks of code."""
    parts = []
    for block in re.split(r"\n{2,}(?!    )|\n(?=\|)(?<!\|\n)", text.strip("\n")):
        if re.match(r"    ", block):
            parts.append(code(textwrap.dedent(block).splitlines()))
        elif block.startswith("|"):
            rows = [[plain(cell) for cell in re.split(r"(?<!\\)\|", row.strip().strip("|"))]
                    for row in block.splitlines()]
            parts.append(items([(term(row[0]), paragraph(row[-1])) for row in rows[2:]]))
        elif re.match(r"- ", block):
            points = re.split(r"\n- ", block[2:])
            parts.append(items([("", paragraph(plain(point))) for point in points], "bullet"))
        else:
            parts.append(paragraph(plain(block)))
    return joined(parts)


def term(cell):
    """The first cell of a row, as the title of an item: a variable of the environment, or words."""
    variable = re.fullmatch(r"`([A-Z_]+)`", cell)
    return f"Ev {variable[1]}" if variable else macro("Sy", cell.replace("`", ""))[1:]


def plain(text):
    """Markdown without its links and stars."""
    text = re.sub(r"\[([^\]]+)\]\([^)]+\)", r"\1", " ".join(text.split()))
    return re.sub(r"\*+([^*]+)\*+", r"\1", text).replace("\\|", "|")


def code(lines):
    return [".Bd -literal -offset indent",
            *[("\\&" if line[:1] in (".", "'") else "") + escaped(line) for line in lines], ".Ed"]

"""Finds the blocks of a Markdown document, and the commands and the programs in them."""
import dataclasses
import re

SHELL = ("sh", "bash", "console", "")  # the languages of blocks that may hold commands; "" for an indented block, too


@dataclasses.dataclass(frozen=True)
class Block:
    document: str
    language: str
    lines: tuple


@dataclasses.dataclass(frozen=True)
class Command:
    document: str
    text: str
    output: tuple = None  # the lines below it, where the document shows them
    block: Block = None


def blocks_of(document, text):
    """The blocks that may hold commands, fenced or indented."""
    return [block for block in all_blocks_of(document, text) if block.language in SHELL]


def programs_of(document, text):
    """The programs in C++ by the name of their file, which is their first line."""
    programs = {}
    for block in all_blocks_of(document, text):
        if block.language == "cpp":
            name = re.fullmatch(r"// (\w+)\.cpp", block.lines[0])
            assert name and name[1] not in programs, f"{document}: the first line of a program names its file: {block.lines[0]}"
            programs[name[1]] = "\n".join(block.lines) + "\n"
    return programs


def all_blocks_of(document, text):
    """The fenced and the indented blocks."""
    blocks, lines, language = [], None, None
    before = ""
    for line in text.splitlines() + [""]:
        fence = re.match(r"\s*```(\S*)", line)
        if language is not None and fence:
            blocks.append(Block(document, language, tuple(lines)))
            lines = language = None
        elif language is not None:
            lines.append(line)
        elif fence:
            lines, language = [], fence[1]
        elif line.startswith("    ") and (lines is not None or not before.strip()):
            lines = (lines or []) + [line[4:]]
        elif lines is not None and line.strip():
            blocks.append(Block(document, "", tuple(lines)))
            lines = None
        elif lines is not None:
            lines.append("")
        before = line
    if lines:
        blocks.append(Block(document, "", tuple(lines)))
    return [Block(block.document, block.language, strip(block.lines)) for block in blocks]


def strip(lines):
    while lines and not lines[-1]:
        lines = lines[:-1]
    return lines


def without_remark(line):
    """A command without the description that follows it in the block."""
    return re.split(r"(?<=\S)(?:\s+# |   +)", line.rstrip(), maxsplit=1)[0]


def is_complete(text):
    """Whether a shell would run it rather than wait for more."""
    words = re.sub(r"'[^']*'|\"[^\"]*\"", "Q", text)
    if "'" in words or '"' in words or text.endswith("\\"):
        return False
    return len(re.findall(r"\b(do|then)\b", words)) <= len(re.findall(r"\b(done|fi)\b", words))


def commands_of(block):
    if block.language == "console":
        return session_of(block)
    commands, text = [], ""
    for line in block.lines:
        if not line.strip():
            continue
        text = f"{text}\n{without_remark(line)}" if text else without_remark(line)
        if is_complete(text):
            commands.append(Command(block.document, text, None, block))
            text = ""
    assert not text, f"{block.document}: this has no end: {text}"
    return commands


def session_of(block):
    commands = []
    for line in block.lines:
        if line.startswith("$ "):
            commands.append(Command(block.document, line[2:], (), block))
        else:
            last = commands.pop()
            commands.append(dataclasses.replace(last, output=(*last.output, line)))
    return commands

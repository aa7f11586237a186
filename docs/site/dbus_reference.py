"""Writes the reference of an interface of D-Bus as Markdown, from its description in XML and the comments in that, or from
what the headers say.

GLib's generator writes such a page as well, but without the comments.
"""
import re
import xml.etree.ElementTree as ElementTree

HEADING = re.compile(r"^=+ (.*?) =+$")


def read(path):
    """The root of a description; comments are kept in their places."""
    parser = ElementTree.XMLParser(target=ElementTree.TreeBuilder(insert_comments=True))
    return ElementTree.parse(path, parser).getroot()


def is_comment(element):
    return element.tag is ElementTree.Comment


def text_of(comment):
    return "\n".join(line.strip() for line in comment.text.strip().splitlines())


def as_markdown(text):
    """A comment as it is read: what Markdown would take for a mark is kept from it."""
    return re.sub(r"([*_<>\[\]`|\\])", r"\\\1", text)


def arguments_of(member, direction):
    return [argument for argument in member.findall("arg") if argument.get("direction", "in") == direction]


def list_of(arguments):
    return ", ".join(f"{argument.get('name')}: {argument.get('type')}" for argument in arguments)


def declaration_of(member):
    if member.tag == "signal":
        return f"{member.get('name')}({list_of(member.findall('arg'))})"
    answer = list_of(arguments_of(member, "out"))
    return f"{member.get('name')}({list_of(arguments_of(member, 'in'))})" + (f" -> ({answer})" if answer else "")


def lines_of_meaning(member, meanings):
    """What the headers say of a method or signal, and of its arguments, which have the order of the header's parameters."""
    if member.get("name") not in meanings:
        return
    name, paragraphs, parameters = meanings[member.get("name")]
    for text in paragraphs:
        yield as_markdown(text)
    arguments = member.findall("arg") if member.tag == "signal" else arguments_of(member, "in")
    described = [f"- {as_markdown(argument.get('name'))}: {as_markdown(text)}"
                 for argument, text in zip(arguments, parameters) if text] if len(arguments) == len(parameters) else []
    if described:
        yield "\n".join(described)
    yield f"In libbt: `{name}::{member.get('name')}`."


def lines_of_interface(interface, before, level, meanings):
    yield f"{'#' * level} Interface {interface.get('name')}"
    if before:
        yield as_markdown(before)
    pending, kind = "", None
    for element in interface:
        if is_comment(element):
            heading = HEADING.match(text_of(element))
            if heading:
                kind = None
                yield f"{'#' * (level + 1)} {as_markdown(heading[1])}"
            else:
                pending = text_of(element)
            continue
        if element.tag not in ("method", "signal"):
            raise ValueError(f"{interface.get('name')} has a <{element.tag}>, which this reference cannot show")
        if kind != element.tag and not any(HEADING.match(text_of(other)) for other in interface if is_comment(other)):
            yield f"{'#' * (level + 1)} {element.tag.capitalize()}s"
        kind = element.tag
        yield f"{'#' * (level + 2)} {element.get('name')}"
        yield f"```text\n{declaration_of(element)}\n```"
        if pending:
            yield as_markdown(pending)
            pending = ""
        else:
            yield from lines_of_meaning(element, meanings)


def page(title, introduction, path, meanings):
    """The page of all interfaces in a description. meanings: as meanings.read() finds them."""
    parts = [f"# {title}", introduction]
    before = ""
    for element in read(path):
        if is_comment(element):
            before = text_of(element)
        elif element.tag == "interface":
            parts += lines_of_interface(element, before, 2, meanings)
            before = ""
    return "\n\n".join(parts) + "\n"

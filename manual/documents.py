"""Texts of the documents that manual pages show as well."""
import re


def section(document, heading):
    """What is below a heading, up to the next one."""
    text = document.read_text()
    found = re.search(rf"^#+ {re.escape(heading)}\n(.*?)(?=^#+ |\Z)", text, re.MULTILINE | re.DOTALL)
    if not found:
        raise SystemExit(f"{document} has no section '{heading}'")
    return found[1].strip("\n")


def fenced(document, heading, language):
    """The lines of the first block of code below a heading."""
    found = re.search(rf"^```{re.escape(language)}\n(.*?)^```$", section_with_code(document, heading),
                      re.MULTILINE | re.DOTALL)
    if not found:
        raise SystemExit(f"{document} has no block of {language} below '{heading}'")
    return found[1].splitlines()


def section_with_code(document, heading):
    return document.read_text().split(f" {heading}\n", 1)[1]


def paragraphs(document, *beginnings):
    """The paragraphs that begin so."""
    text = document.read_text()
    found = []
    for beginning in beginnings:
        match = re.search(rf"^{re.escape(beginning)}.*?(?=\n\n)", text, re.MULTILINE | re.DOTALL)
        if not match:
            raise SystemExit(f"{document} has no paragraph that begins with '{beginning}'")
        found.append(match[0])
    return "\n\n".join(found)

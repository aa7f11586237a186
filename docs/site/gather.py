#!/usr/bin/env python3
"""Makes the sources of the site: the texts of the tree at the places that they have there, so that their links hold, the
files that they link to, and the pages of the reference.

Usage: gather.py TREE XML OUTPUT (XML: a folder with Doxygen's output for each folder of include/)
"""
import pathlib
import re
import shutil
import sys

import dbus_reference
import headers_reference
import meanings

SITE = "docs/site"
TEXTS = ("*.md", "docs/*.md", "docs/screens/*.md", "*/README.md")
NOT_TEXTS = ("build/",)
LINK = re.compile(r"\]\(\s*([^)\s]+)\s*\)")
# Without these, what a text shows as code could pass for a link.
CODE = re.compile(r"^```.*?^```|^(?: {4}|\t)[^\n]*$|`[^`\n]*`", re.MULTILINE | re.DOTALL)

LIBRARIES = {
    "bluetooth": ("libbt", "The headers in `include/bluetooth`, one section for each. `MWPBluetooth.h` starts the library; the "
                           "`MWPBt…` are what an application asks, the `IMWPBt…Listener` what it hears."),
    "btasync": ("libbtasync", "The headers in `include/btasync`, one section for each. Begin with `Service.h`."),
}
DESCRIPTIONS = {
    "dbus-service": (
        "The service on the bus", "ipc/D-Bus/com.zelk.linux.bluetooth.xml",
        "What is between the library and the service. The types are those of D-Bus: `y` a byte, `i` and `u` 32 bits, `b` yes "
        "or no, `s` a text, `v` a variant. [Writing a service](../docs/writing-a-service.md) says what a service has to do. "
        "The meanings are those of libbt's headers, which are written for applications: with 0 and 1 for no and yes."),
    "dbus-simulation": (
        "The controls of the simulation", "service/simulation/com.zelk.linux.bluetooth.sim.xml",
        "How a person or a test controls `btservice`. [Its own page](../service/README.md#controlling-it-and-injecting-faults) "
        "has examples."),
}


def copy(tree, output, name):
    target = output / name
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(tree / name, target)


def texts_of(tree):
    names = {path.relative_to(tree).as_posix() for pattern in TEXTS for path in tree.glob(pattern)}
    return sorted(name for name in names if not name.startswith(NOT_TEXTS))


def linked_files(tree, name):
    """The files of the tree that a text links to. What is not there is for Sphinx to complain of."""
    text = CODE.sub("", (tree / name).read_text())
    for link in LINK.findall(text):
        if re.match(r"[a-z]+:|#", link):
            continue
        path = ((tree / name).parent / link.partition("#")[0]).resolve()
        if path.is_file() and path.is_relative_to(tree):
            yield path.relative_to(tree).as_posix()


def gather(tree, xml, output):
    for name in texts_of(tree):
        copy(tree, output, name)
        for file in linked_files(tree, name):
            copy(tree, output, file)
    copy(tree, output, "ipc/D-Bus/com.zelk.linux.bluetooth.xml")
    for name in ("conf.py", "index.md"):
        shutil.copyfile(tree / SITE / name, output / name)
    reference = output / "reference"
    reference.mkdir()
    for library, (title, introduction) in LIBRARIES.items():
        (reference / f"{library}.md").write_text(headers_reference.page(title, introduction, title, xml / library / "xml"))
    known = meanings.read(xml / "bluetooth" / "xml")
    for name, (title, path, introduction) in DESCRIPTIONS.items():
        (reference / f"{name}.md").write_text(dbus_reference.page(title, introduction, tree / path, known))


if __name__ == "__main__":
    gather(*(pathlib.Path(argument).resolve() for argument in sys.argv[1:4]))

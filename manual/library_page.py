"""libbt(7): the library as a whole, from the headers and the documents."""
import documents
from mdoc import code, items, markdown, paragraph
from pages import FACADES, START, comment, description_of, functions_explained, head, prototypes, see_also


def library(headers, tree, date):
    readme = tree / "README.md"
    start = [headers.functions[name] for name in START]
    facades = [(f"Xr {name} 3", paragraph(description_of(headers.classes[name].comment))) for name in FACADES]
    return [
        *head("libbt", 7, date, "Bluetooth client library of a vehicle head unit"),
        ".Sh SYNOPSIS", ".In bluetooth/MWPBluetooth.h", *prototypes(start),
        ".Pp", "The compiler and the linker get their options from", ".Ql pkg-config --cflags --libs libbt .",
        ".Sh DESCRIPTION",
        *markdown(documents.paragraphs(readme, "The Bluetooth client library of a vehicle head unit.")),
        ".Ss Start and stop", *functions_explained(start),
        ".Ss Requests", "A facade has the requests of one subject:", *items(facades),
        ".Ss Events", *comment(headers.classes["IMWPBtListenerBase"].comment),
        ".Ss Threads and the main loop", *markdown(documents.section(readme, "Threads and the main loop")),
        ".Ss When things go wrong", *markdown(documents.section(tree / "docs/failures.md", "What a caller gets")),
        ".Sh ENVIRONMENT", *markdown(documents.section(tree / "platform/README.md", "Environment")),
        ".Sh FILES", *items([
            ("Pa etc/libbt/defaults.ini", paragraph("The configured defaults, in the tree in which the library lies.")),
            ("Pa $XDG_CONFIG_HOME/libbt/defaults.ini", paragraph("A user's own ones in place of these. Without the "
                                                                 "variable, they are in ~/.config.")),
            ("Pa $XDG_STATE_HOME/libbt/persist.ini", paragraph("The settings. Without the variable, they are in "
                                                               "~/.local/state.")),
            ("Pa /app/bin/btservice", paragraph("The service. The keys of the eight shared segments are made from this "
                                                "file.")),
        ]),
        ".Sh EXAMPLES", *paragraph("An application that switches Bluetooth on, and shows the power status until it is "
                                   "stopped:"),
        *code(documents.fenced(readme, "An application", "cpp")),
        *see_also([*[(name, 3) for name in (*FACADES, "MWPBluetooth", "MWPBtType", "MWPBtRecords")]]),
    ]

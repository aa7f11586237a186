"""The pages about the library, from its headers."""
import re

from mdoc import argument, escaped, items, joined, macro, paragraph

FACADES = ("MWPBtCom", "MWPBtPhone", "MWPBtMedia", "MWPBtPbap", "MWPBtMessage", "MWPBtSpp", "MWPBtBle")
START = ("MWP_CreateBlueTooth", "MWP_DestroyBlueTooth")


def comment(blocks):
    """The lines of a comment."""
    parts = []
    for kind, content in blocks:
        if kind == "text":
            parts.append(paragraph(content))
        elif kind == "list":
            parts.append(items([("", paragraph(text)) for text in content], "bullet"))
        else:
            parts.append(items([(macro("Ar", name)[1:], paragraph(text)) for name, text in content]))
    return joined(parts)


def first_sentence(blocks):
    return re.split(r"\.(?: |$)", " ".join(blocks[0][1].split()))[0]


def description_of(blocks):
    """What a page is about, as its first line says it: no sentence."""
    text = first_sentence(blocks)
    return text if text.startswith("Bluetooth") else text[0].lower() + text[1:]


def head(name, section, date, about, aliases=()):
    names = [name, *aliases]
    return [f".Dd {date}", f".Dt {name.upper()} {section}", ".Os", ".Sh NAME",
            *[f".Nm {each}" + (" ," if each != names[-1] else "") for each in names], f".Nd {escaped(about)}"]


def see_also(references):
    ordered = sorted(set(references), key=lambda reference: (reference[1], reference[0].lower()))
    return [".Sh SEE ALSO", *[f".Xr {name} {section}" + (" ," if (name, section) != ordered[-1] else "")
                              for name, section in ordered]]


def prototypes(functions):
    lines = []
    for function in functions:
        lines += [macro("Ft", function.result), macro("Fn", function.name, *function.parameters)]
    return lines


def functions_explained(functions):
    return items([(macro("Fn", function.name, *[name_of(parameter) for parameter in function.parameters])[1:],
                   comment(function.comment)) for function in functions])


def name_of(parameter):
    return re.search(r"\w+$", parameter)[0]


def facade(headers, name, date):
    """The page of a facade and of the events that belong to it."""
    requests, events = headers.classes[name], headers.classes[f"I{name}Listener"]
    others = [(other, 3) for other in FACADES if other != name]
    return [
        *head(name, 3, date, description_of(requests.comment), [events.name]),
        ".Sh SYNOPSIS", f".In bluetooth/{requests.header}", *prototypes(requests.functions),
        ".Pp", f".In bluetooth/{events.header}", *prototypes(events.functions),
        ".Sh DESCRIPTION", *comment(requests.comment),
        ".Ss Requests", "The methods of", f".Vt {name}", "are:", *functions_explained(requests.functions),
        ".Ss Events", *comment(events.comment), *functions_explained(events.functions),
        *see_also([("libbt", 7), ("MWPBtType", 3), ("MWPBtRecords", 3), *others]),
    ]


def start_and_stop(headers, date):
    functions = [headers.functions[name] for name in START]
    return [
        *head("MWPBluetooth", 3, date, "start and stop of the Bluetooth client library", START),
        ".Sh SYNOPSIS", ".In bluetooth/MWPBluetooth.h", *prototypes(functions),
        ".Sh DESCRIPTION", *functions_explained(functions),
        *see_also([("libbt", 7), *[(name, 3) for name in FACADES]]),
    ]


def values(rows):
    return items([(f"Dv {argument(value.name)} Pq {escaped(value.text.lstrip('= '))}", comment(value.comment))
                  for value in rows])


def enumerations(headers, date):
    ours = headers.enumerations.values()
    explained = []
    for enumeration in ours:
        explained += [f".Ss enum {enumeration.name}", *comment(enumeration.comment), *values(enumeration.values)]
    return [
        *head("MWPBtType", 3, date, "enumerations of the Bluetooth client library"),
        ".Sh SYNOPSIS", *[f".In bluetooth/{header}" for header in sorted({each.header for each in ours})],
        ".Sh DESCRIPTION",
        *paragraph("Every value travels to and from the Bluetooth service as one byte. A value that is not listed here "
                   "is passed on as it came: be prepared for it in a switch."),
        *explained, *see_also([("libbt", 7), ("MWPBtRecords", 3), *[(name, 3) for name in FACADES]]),
    ]


def records(headers, date):
    explained = []
    for record in headers.records.values():
        fields = [(f"Va {argument(value.name)} Pq {escaped(value.text)}", comment(value.comment))
                  for value in record.values]
        explained += [f".Ss struct {record.name}", *comment(record.comment), *items(fields)]
    return [
        *head("MWPBtRecords", 3, date, "records of the Bluetooth client library"),
        ".Sh SYNOPSIS", ".In bluetooth/MWPBtRecords.h",
        ".Sh DESCRIPTION",
        *paragraph("Plain values that own their strings and containers. All text is UTF-8."),
        *explained, *see_also([("libbt", 7), ("MWPBtType", 3), *[(name, 3) for name in FACADES]]),
    ]

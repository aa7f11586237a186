"""The pages of the programs, from their own help."""
import collections
import re

import documents
from mdoc import argument, code, items, joined, macro, markdown, paragraph, words
from pages import head, see_also


def sentence(text):
    """A help text, which is no sentence, as one."""
    return paragraph(text[0].upper() + text[1:] + ("" if text.endswith((".", "...")) else "."))


def usage_of(entry):
    """An option or argument on a line: the rest of a macro line."""
    if entry.get("isOption", True):
        value = f" Ar {argument(entry['value'])}" if entry["value"] else ""
        many = " ..." if entry.get("isMany") else ""
        return f"Oo Fl {argument(entry['name'][1:])}{value} Oc{many}"
    many = " ..." if entry["isMany"] else ""
    name = f"Ar {argument(entry['name'])}{many}"
    return f"Oo {name} Oc" if entry["isOptional"] else name


def explained(entry):
    name = f"Fl {argument(entry['name'][1:])}" + (f" Ar {argument(entry['value'])}" if entry["value"] else "") \
        if entry.get("isOption", True) else f"Ar {argument(entry['name'])}"
    one_of = "one of " if entry.get("values") and names_values(entry) else ""
    preset = f" (default {entry['preset']})" if entry.get("preset") else ""
    return name, paragraph(one_of + entry["help"] + preset)


def names_values(entry):
    """Whether its help is the list of the values that it may have."""
    return set(entry["help"].split(", ")) == set(entry["values"])


class Btctl:
    def __init__(self, description):
        self.description = description
        self.help_of = {group["path"]: group["help"] for group in description["groups"]}
        uses = collections.Counter((entry["name"], entry["help"]) for command in description["commands"]
                                   for entry in command["arguments"] if not entry["isOption"])
        names = collections.Counter(name for name, _ in uses)
        self.common = {use for use, count in uses.items() if count > 2 and names[use[0]] == 1}

    def options(self):
        return items([explained(option) for option in self.description["options"]])

    def arguments(self):
        """Those that many commands have, each once."""
        entries = {(entry["name"], entry["help"]): entry for command in self.description["commands"]
                   for entry in command["arguments"]}
        return items([explained(entry) for use, entry in entries.items() if use in self.common])

    def values(self):
        """The values that the help does not list: the names of events and of controls."""
        values = {entry["name"]: entry["values"] for command in self.description["commands"]
                  for entry in command["arguments"] if entry["values"] and not names_values(entry)}
        return [line for name, known in values.items()
                for line in [macro("Ss", "Values", "of", name), *words(known)]]

    def groups(self):
        """The commands under headings: those of one word first, then each group."""
        commands = self.description["commands"]
        firsts = list(dict.fromkeys(command["path"].split()[0] for command in commands))
        grouped = {first: [command for command in commands if command["path"].split()[0] == first] for first in firsts}
        single = [group[0] for group in grouped.values() if len(group) == 1]
        yield "General commands", single
        for first, group in grouped.items():
            if len(group) > 1:
                yield self.help_of.get(first) or group[0]["help"].split(",")[0], group

    def commands(self):
        lines = []
        for heading, commands in self.groups():
            lines += [macro("Ss", *heading.removesuffix(", ...").split(" ")),
                      *items([self.command(command) for command in commands])]
        return lines

    def command(self, command):
        path = " ".join(argument(word) for word in command["path"].split())
        own = [explained(entry) for entry in command["arguments"] if (entry["name"], entry["help"]) not in self.common]
        title = " ".join([f"Cm {path}", *[usage_of(entry) for entry in command["arguments"]]])
        return title, joined([sentence(command["help"]), *([items(own)] if own else [])])


def btctl(description, tree, date):
    page, document = Btctl(description), tree / "docs/btctl.md"
    first, *rest = description["description"].split("\n")
    written = [option for option in description["options"] if option["name"] not in ("--help", "--version")]
    return [
        *head("btctl", 1, date, "Bluetooth from the command line"),
        ".Sh SYNOPSIS", ".Nm", *[f".{usage_of(option)}" for option in written], ".Op Ar COMMAND ...",
        ".Nm", ".Op Ar COMMAND ...", ".Fl -help | Fl -version",
        ".Sh DESCRIPTION", *joined([paragraph(" ".join([first, *rest])), markdown(documents.paragraphs(
            document, "Standard output contains only the answer", "A phone's texts cannot control your terminal"))]),
        ".Ss Options", *page.options(),
        ".Ss Arguments of many commands", *page.arguments(),
        *page.commands(),
        *page.values(),
        ".Ss Requests and their results", *markdown(documents.section(document, "Requests and their results")),
        ".Ss The shell", *markdown(documents.section(document, "The shell")),
        ".Ss JSON", *paragraph("With `--json`, every line on standard output and on standard error is one JSON object. "
                               "Its member `kind` identifies it. Members may be added, but none will be removed."),
        ".Sh ENVIRONMENT", *items([
            ("Ev DBUS_SESSION_BUS_ADDRESS", paragraph("The session bus on which the Bluetooth service is looked for.")),
            ("Ev NO_COLOR", paragraph("If it is set and not empty, nothing is coloured.")),
            ("Ev XDG_STATE_HOME", paragraph("The folder of the history; ~/.local/state if it is not set.")),
            ("Ev MWP_LOG_LEVEL", paragraph("With `debug`, `--verbose` prints more.")),
        ]),
        ".Sh FILES", *items([("Pa $XDG_STATE_HOME/btctl/history", paragraph("The history of the shell."))]),
        ".Sh EXIT STATUS", *items([(str(code_["code"]), sentence(code_["meaning"]))
                                   for code_ in description["exitCodes"]]),
        ".Sh EXAMPLES", *code(documents.fenced(document, "Scripts", "sh")),
        *see_also([("libbt", 7), ("btservice", 8)]),
    ]


class OptionHelp:
    """The help of a program that GLib prints."""

    def __init__(self, text):
        before, _, after = text.partition("\nHelp Options:\n")
        self.summary = before.split("\n\n", 1)[1].strip()
        options, self.paragraphs = [], []
        for block in after.split("\n\n"):
            found = re.findall(r"^  (?:-(\w), )?(--[\w-]+)(?:=(\S+))? {2,}(.+)$", block, re.MULTILINE)
            if found:
                options += [dict(zip(("short", "name", "value", "help"), option)) for option in found]
            else:
                self.paragraphs.append(block.strip())
        self.options = options
        *self.paragraphs, exits = self.paragraphs
        self.exit_codes = re.findall(r"(\d+) ([^;]+?)(?:;|\.$)", " ".join(exits.removeprefix("Exit codes:").split()))


def alternatives(value):
    return " | ".join(f"Ar {argument(each)}" for each in value.split("|"))


def long_option_of(option):
    value = f" Ns = Ns {alternatives(option['value'])}" if option["value"] else ""
    return f"Fl {argument(option['name'][1:])}{value}"


def option_of(option):
    return (f"Fl {option['short']} , " if option["short"] else "") + long_option_of(option)


def btservice(text, tree, date):
    help_ = OptionHelp(text)
    document = tree / "service/README.md"
    return [
        *head("btservice", 8, date, ("simulated " if is_simulation_alone(help_) else "") + "Bluetooth service of a head unit"),
        ".Sh SYNOPSIS", ".Nm",
        *[f".Op {long_option_of(option)}" for option in help_.options if option["name"] not in ("--help", "--version")],
        ".Nm", ".Fl -help | Fl -version",
        ".Sh DESCRIPTION", *joined([paragraph(help_.summary), *[paragraph(each) for each in help_.paragraphs],
                                    markdown(documents.paragraphs(document, "It acquires its bus name"))]),
        ".Ss Options", *items([(option_of(option), sentence(option["help"])) for option in help_.options]),
        ".Sh ENVIRONMENT", *items([
            ("Ev BTSERVICE_WORLDS", paragraph("The folder of the shipped worlds.")),
            ("Ev DBUS_SESSION_BUS_ADDRESS", paragraph("The bus on which the service takes its name.")),
            ("Ev XDG_STATE_HOME", paragraph("The folder of the state; ~/.local/state if it is not set.")),
        ]),
        ".Pp", *paragraph("Those of the library concern the service as well: see"), ".Xr libbt 7 .",
        ".Sh FILES", *items([
            ("Pa ../share/libbt/worlds", paragraph("The shipped worlds, and their schema, from the folder of the "
                                                   "program.")),
            ("Pa $XDG_STATE_HOME/libbt/btservice.json", paragraph("The state: paired devices and attributes.")),
            ("Pa $XDG_STATE_HOME/libbt/persist.ini", paragraph("The settings, which the library keeps here, too.")),
        ]),
        ".Sh EXIT STATUS", *items([(number, sentence(meaning)) for number, meaning in help_.exit_codes]),
        ".Sh EXAMPLES", *markdown(first_code(document)),
        *see_also([("btctl", 1), ("libbt", 7)]),
    ]


def is_simulation_alone(help_):
    return any(option["name"] == "--stack" and option["help"].endswith(": simulation, the only one here")
               for option in help_.options)


def first_code(document):
    """The first commands of a document, indented as they are there."""
    return re.search(r"(?:^    .*\n)+", document.read_text(), re.MULTILINE)[0]

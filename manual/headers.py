"""What the public headers declare, with their comments, as Doxygen understands them."""
import dataclasses
import xml.etree.ElementTree as ElementTree


@dataclasses.dataclass
class Function:
    name: str
    result: str
    parameters: list  # texts such as "int on"
    comment: list


@dataclasses.dataclass
class Value:
    """An enumerator or a member."""
    name: str
    text: str  # "= 3", or the type
    comment: list


@dataclasses.dataclass
class Compound:
    """A class, a record or an enumeration."""
    name: str
    header: str
    line: int  # of the header, where it is declared
    comment: list
    functions: list = dataclasses.field(default_factory=list)
    values: list = dataclasses.field(default_factory=list)


def text_of(element):
    return " ".join("".join(element.itertext()).split()) if element is not None else ""


def line_of(element):
    return int(element.find("location").get("line"))


class Headers:
    def __init__(self, folder):
        self.classes, self.records, self.enumerations, self.functions = {}, {}, {}, {}
        index = ElementTree.parse(folder / "index.xml").getroot()
        for compound in index.findall("compound"):
            definition = ElementTree.parse(folder / f"{compound.get('refid')}.xml").getroot().find("compounddef")
            if definition.get("kind") in ("class", "struct"):
                self.add_class(definition)
            self.add_enumerations(definition)
            if definition.get("kind") == "file":
                for function in definition.iterfind("sectiondef/memberdef[@kind='function']"):
                    self.functions[text_of(function.find("name"))] = function_of(function)
        self.records = dict(sorted(self.records.items(), key=lambda record: record[1].line))

    def add_class(self, definition):
        name = text_of(definition.find("compoundname"))
        compound = Compound(name, text_of(definition.find("includes")), line_of(definition), comment_of(definition))
        for member in definition.iterfind("sectiondef/memberdef[@prot='public']"):
            if member.get("kind") == "function" and text_of(member.find("type")):
                compound.functions.append(function_of(member))
            elif member.get("kind") == "variable":
                compound.values.append(
                    Value(text_of(member.find("name")), text_of(member.find("type")), comment_of(member)))
        (self.classes if definition.get("kind") == "class" else self.records)[name] = compound

    def add_enumerations(self, definition):
        for member in definition.iterfind("sectiondef/memberdef[@kind='enum']"):
            name = text_of(member.find("qualifiedname")) or text_of(member.find("name"))
            header = member.find("location").get("file").rpartition("/")[2]
            self.enumerations[name] = Compound(name, header, line_of(member), comment_of(member), values=[
                Value(text_of(value.find("name")), text_of(value.find("initializer")), comment_of(value))
                for value in member.findall("enumvalue")])


def function_of(member):
    parameters = []
    for parameter in member.findall("param"):
        kind, name = text_of(parameter.find("type")), text_of(parameter.find("declname"))
        kind = kind.replace("< ", "<").replace(" >", ">").replace(" &", "&").replace(" *", "*")
        parameters.append(f"{kind} {name}".strip())
    return Function(text_of(member.find("name")), text_of(member.find("type")), parameters, comment_of(member))


def comment_of(element):
    """The comment as blocks: ("text", text), ("list", texts), or ("terms", pairs of name and text)."""
    blocks = []
    for part in ("briefdescription", "detaileddescription"):
        for para in element.findall(f"{part}/para"):
            blocks += blocks_of(para)
    return blocks


def blocks_of(para):
    blocks, text = [], para.text or ""
    for child in para:
        if child.tag in ("itemizedlist", "parameterlist", "simplesect"):
            blocks += [("text", text)] if text.strip() else []
            blocks.append(special_block_of(child))
            text = child.tail or ""
        else:
            text += "".join(child.itertext()) + (child.tail or "")
    return blocks + ([("text", text)] if text.strip() else [])


def special_block_of(element):
    if element.tag == "itemizedlist":
        return "list", [text_of(item) for item in element.findall("listitem")]
    if element.tag == "simplesect":
        return "text", f"Returns {text_of(element)}."
    return "terms", [(text_of(item.find("parameternamelist")), text_of(item.find("parameterdescription")))
                     for item in element.findall("parameteritem")]

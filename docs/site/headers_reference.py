"""Writes the reference of a library's headers as Markdown: for each header a section with what it declares, in its order.
What is declared comes from Doxygen's XML, and Breathe fills in each declaration with its comment."""
import collections
import xml.etree.ElementTree as ElementTree

# What Breathe calls the kinds of Doxygen.
CLASSES = {"class": "doxygenclass", "struct": "doxygenstruct", "union": "doxygenunion"}
MEMBERS = {"define": "doxygendefine", "enum": "doxygenenum", "function": "doxygenfunction", "typedef": "doxygentypedef",
           "variable": "doxygenvariable"}
OF_CLASSES = ":members:\n:undoc-members:\n"


def place_of(element):
    location = element.find("location")
    return location.get("file"), int(location.get("line"))


def argument_of(member, scope):
    """What Breathe finds a member of a namespace by: a function by its parameters, too, since there may be others."""
    name = scope + member.findtext("name")
    if member.get("kind") != "function":
        return name
    return name + member.findtext("argsstring").rpartition(")")[0] + ")"


def declarations(xml):
    """The declarations of each header, as pairs of a line and a directive."""
    found = collections.defaultdict(set)
    compounds = [ElementTree.parse(path).getroot().find("compounddef") for path in sorted(xml.glob("*.xml"))
                 if path.name not in ("index.xml", "Doxyfile.xml")]
    inner = {element.get("refid") for compound in compounds if compound.get("kind") in CLASSES
             for element in compound.findall("innerclass")}
    for compound in compounds:
        kind = compound.get("kind")
        if kind in CLASSES and compound.get("id") not in inner:
            header, line = place_of(compound)
            found[header].add((line, CLASSES[kind], compound.findtext("compoundname"), OF_CLASSES))
        elif kind in ("namespace", "file"):
            scope = compound.findtext("compoundname") + "::" if kind == "namespace" else ""
            for member in compound.iterfind("sectiondef/memberdef"):
                if member.get("kind") in MEMBERS:
                    header, line = place_of(member)
                    found[header].add((line, MEMBERS[member.get("kind")], argument_of(member, scope), ""))
    return found


def page(title, introduction, project, xml):
    parts = [f"# {title}", introduction]
    for header, declared in sorted(declarations(xml).items()):
        parts.append(f"## {header}")
        for _, directive, argument, options in sorted(declared):
            parts.append(f"```{{{directive}}} {argument}\n:project: {project}\n{options}```")
    return "\n\n".join(parts) + "\n"

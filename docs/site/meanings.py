"""What the methods and signals of the service mean, from the comments of libbt's headers as Doxygen has read them: a facade's
method has the name of the method that it calls, and a listener's that of the signal that it hears."""
import re
import xml.etree.ElementTree as ElementTree

# What has a place of its own: the parameters, and what is returned.
APART = ("simplesect", "parameterlist")


def text_of(element):
    """The words of a paragraph, and the points of a list in it."""
    words = [element.text or ""]
    for child in element:
        if child.tag == "itemizedlist":
            words += [f"\n- {text_of(item)}" for item in child.iterfind("listitem/para")] + ["\n\n"]
        elif child.tag not in APART:
            words.append(text_of(child))
        words.append(child.tail or "")
    return re.sub(r"[ \t]+", " ", "".join(words)).strip()


def paragraphs_of(member):
    found = [text_of(para) for part in ("briefdescription", "detaileddescription") for para in member.iterfind(f"{part}/para")]
    return [text for text in found if text]


def parameters_of(member):
    """The description of each parameter, in their order."""
    described = {item.findtext("parameternamelist/parametername"): text_of(item.find("parameterdescription/para"))
                 for item in member.iterfind("detaileddescription/para/parameterlist/parameteritem")
                 if item.find("parameterdescription/para") is not None}
    return [described.get(parameter.findtext("declname")) for parameter in member.iterfind("param")]


def read(xml):
    """name -> (class, paragraphs, descriptions of the parameters)."""
    found = {}
    for path in sorted([*xml.glob("classMWPBt*.xml"), *xml.glob("classIMWPBt*Listener.xml")]):
        compound = ElementTree.parse(path).getroot().find("compounddef")
        name = compound.findtext("compoundname")
        for member in compound.iterfind("sectiondef/memberdef[@kind='function']"):
            paragraphs = paragraphs_of(member)
            if paragraphs:
                found.setdefault(member.findtext("name"), (name, paragraphs, parameters_of(member)))
    return found

# Run inside gdb on a program with the library's types: every member that the natvis names must exist.
import re
import xml.etree.ElementTree as tree

import gdb

SPACE = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"
NAMES = re.compile(r"[A-Za-z_]\w*")


def fields(kind):
    found = {}
    for field in kind.strip_typedefs().fields():
        if field.is_base_class:
            found.update(fields(field.type))
        elif field.name:
            found[field.name] = field.type
    return found


def reachable(kind):
    """Members of the type and of what its pointers lead to, one step further."""
    names = dict(fields(kind))
    for member in list(names.values()):
        target = member.strip_typedefs()
        while target.code == gdb.TYPE_CODE_PTR:
            target = target.target().strip_typedefs()
        if target.code == gdb.TYPE_CODE_STRUCT:
            names.update(fields(target))
    return names


def expressions(element):
    for node in element.iter():
        tag = node.tag.replace(SPACE, "")
        if "Condition" in node.attrib:
            yield node.attrib["Condition"]
        if tag == "DisplayString":
            yield from re.findall(r"\{([^{}]+)\}", (node.text or "").replace("{{", "").replace("}}", ""))
        elif tag in ("Item", "Size", "ValuePointer", "HeadPointer", "NextPointer", "ValueNode"):
            yield node.text or ""


def check(path):
    passed = failed = 0
    for element in tree.parse(path).getroot().iter(SPACE + "Type"):
        names = [element.attrib["Name"]] + [a.attrib["Name"] for a in element.iter(SPACE + "AlternativeType")]
        variables = {v.attrib["Name"] for v in element.iter(SPACE + "Variable")}
        for name in names:
            kind = gdb.lookup_type(name.replace("<*>", "<double>"))
            known = set(reachable(kind)) | variables
            used = {word for text in expressions(element) for word in NAMES.findall(text)}
            lost = used - known
            passed, failed = (passed, failed + 1) if lost else (passed + 1, failed)
            if lost:
                print(f"{name}: no member {', '.join(sorted(lost))}")
    print(f"{passed} passed, {failed} failed")


check("tools/debugger/ZEPHDataStructureEngine.natvis")

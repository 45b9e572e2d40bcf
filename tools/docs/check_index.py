#!/usr/bin/env python3
"""Compares the documentation's index with the manifest of exported names.

usage: check_index.py INDEX.tag MANIFEST

Every exported function is in the index, with as many overloads as are exported. What a class has
without a declaration of its own (destructors, assignments, constructors that the compiler makes) need not.
Doxygen warns of a declaration without a comment, not of one that it did not understand and left out.
"""
import re
import sys
import xml.etree.ElementTree as tree
from collections import Counter

UNDECLARED = re.compile(r"~|::operator=$")


# Exported because inline members call them, private all the same; and the counters of live objects.
PRIVATE = {"CObList::AddBlock", "CObList::NewNode", "CString::Release", "CString::ReplaceFrom",
           "CString::TakeFrom", "CZEPHMatrix4::m_nObject", "CZEPHVector3::m_nObject"}


def plain(name):
    """The name without blanks and template arguments; of a conversion, `const` in front as the headers write it."""
    return re.sub(r"operator (\w+) const", r"operator const \1", name.replace("<double>", "")).replace(" ", "")


def documented(index):
    counts = Counter()
    for compound in tree.parse(index).getroot().iter("compound"):
        scope = compound.findtext("name") + "::" if compound.get("kind") in ("class", "struct") else ""
        for member in compound.findall("member"):
            if member.get("kind") in ("function", "variable", "friend"):
                counts[plain(scope + member.findtext("name"))] += 1
    return counts


def exported(manifest):
    counts = Counter()
    for line in open(manifest, encoding="utf-8"):
        name = line.strip().split("[abi:")[0]
        if not name or name.startswith("#") or re.match(r"(vtable|typeinfo( name)?|VTT) for ", name):
            continue
        counts[plain(re.match(r".*?operator\(\)|[^(]*", name).group())] += 1
    return counts


def main():
    have, want = documented(sys.argv[1]), exported(sys.argv[2])
    missing = []
    for name, count in sorted(want.items()):
        words = name.split("::")
        made_by_compiler = UNDECLARED.search(name) or (len(words) == 2 and words[0] == words[1])
        if have[name] < count and not made_by_compiler and name not in PRIVATE:
            missing.append(f"{name}: {have[name]} of {count} overloads in the documentation's index")
    print("\n".join(missing + [f"{len(want) - len(missing)} passed, {len(missing)} failed"]))
    return 1 if missing or not want else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""The names under which programs compiled by Visual C++ link the documented functions and fields.

usage: msvc_names.py TARGET   (x86_64 or i686)

clang++ writes them, speaking that dialect over tests/msvc/standard. Inline members and additions, which a
program brings itself, are left out, as is what the compiler makes without a declaration.
"""
import json
import re
import subprocess
import sys

COMMAND = ["clang++", "-fms-compatibility", "-fms-extensions", "-fms-compatibility-version=19.29", "-nostdinc",
           "-std=c++17", "-w", "-fsyntax-only", "-I", "tests/msvc/standard", "-I", "tests/msvc", "-I", "include"]
KINDS = {"FunctionDecl", "CXXMethodDecl", "CXXConstructorDecl", "CXXDestructorDecl", "CXXConversionDecl"}


class Reader:
    """Walks the tree in the order of its text: a place names its file only where that changes."""

    def __init__(self):
        self.file = ""
        self.names = set()

    def follow(self, place):
        for part in (place, place.get("spellingLoc", {}), place.get("expansionLoc", {})):
            self.file = part.get("file", self.file)

    def read(self, node, implicit=False):
        self.follow(node.get("loc", {}))
        ours = self.file.startswith("include/")
        self.follow(node.get("range", {}).get("begin", {}))
        self.follow(node.get("range", {}).get("end", {}))
        implicit = implicit or node.get("isImplicit", False) or node.get("explicitlyDeleted", False)
        parts = node.get("inner", [])
        defined = any(part.get("kind") == "CompoundStmt" for part in parts)
        field = node.get("kind") == "VarDecl" and node.get("storageClass") == "static"
        if ours and not implicit and (field or node.get("kind") in KINDS and not defined):
            virtual = node.get("virtual", False) or any(part.get("kind") == "OverrideAttr" for part in parts)
            self.names.add(linked(node.get("mangledName", "").lstrip("\1"), virtual))
        for part in parts:
            self.read(part, implicit)


def linked(name, virtual):
    """A destructor by the name that is called: clang++ names the one that also destroys virtual bases."""
    match = re.fullmatch(r"\?\?_D(.*@@)Q([A-Z]+)XXZ", name)
    return "??1%s%s%s@XZ" % (match.group(1), "U" if virtual else "Q", match.group(2)) if match else name


def main():
    command = COMMAND + [f"--target={sys.argv[1]}-pc-windows-msvc", "-Xclang", "-ast-dump=json",
                         "tests/msvc/all_headers.cpp"]
    # Its status is that of templates, which have no name of their own; the headers are compiled elsewhere.
    tree = json.loads(subprocess.run(command, capture_output=True, check=False).stdout)
    reader = Reader()
    reader.read(tree)
    print("\n".join(sorted(name for name in reader.names if name.startswith("?"))))


if __name__ == "__main__":
    main()

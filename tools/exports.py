#!/usr/bin/env python3
"""Compares what a built library exports with the checked-in manifest and with the headers.

usage: exports.py LIBRARY MANIFEST [--update] [--headers]

LIBRARY is the .so or the .dll. The manifest lists the demangled names, one a line, grouped by header.
--headers also derives every documented name from the public headers (by clang's syntax tree) and
demands that the library exports it; --update rewrites the manifest.
"""
import json
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
HEADERS = ["platform", "frame", "containers", "double_array", "raw_buffers", "linalg", "graphics",
           "algorithms"]


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout


def exported_symbols(library):
    """Mangled names of the dynamic symbols that the library defines."""
    if library.endswith(".dll"):
        table = run("x86_64-w64-mingw32-objdump", "-p", library).split("[Ordinal/Name Pointer] Table")[1]
        return {m.group(1) for m in re.finditer(r"^\s*\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+)?(?:[0-9a-f]+\s+)?(\S+)$",
                                                table, re.M)}
    lines = run("nm", "-D", "--defined-only", library).splitlines()
    return {line.split()[-1] for line in lines if line.split()[-2] != "A"}


def demangle(symbols):
    names = run("c++filt", input="\n".join(sorted(symbols)) + "\n").splitlines()
    return sorted(set(names))


def headers_of_names():
    """Which header declares a class or a free function, by a look at the header's own text."""
    places = {}
    for header in HEADERS:
        text = open(f"{ROOT}/include/{header}.h", encoding="utf-8").read()
        for match in re.finditer(r"\b(?:class|struct)\s+(?:ZEPH_API\s+)?(\w+)", text):
            places.setdefault(match.group(1), header)
        for match in re.finditer(r"\b(ZEPH_\w+|Bisect)\s*\(", text):
            places.setdefault(match.group(1), header)
    return places


def group_of(name, places):
    plain = re.sub(r"^(?:vtable|typeinfo name|typeinfo) for ", "", name)
    own = re.match(r"(\w+)", plain)
    if own and own.group(1) in places:
        return places[own.group(1)]
    for word in re.findall(r"\w+", plain):  # a free operator belongs to its first class
        if word in places:
            return places[word]
    return "other"


def manifest_text(names):
    places = headers_of_names()
    groups = {}
    for name in names:
        groups.setdefault(group_of(name, places), []).append(name)
    parts = []
    for header in HEADERS + ["other"]:
        if header in groups:
            parts.append(f"# {header}.h\n" + "\n".join(groups[header]) + "\n")
    return "\n".join(parts)


def documented_symbols():
    """Mangled names of every function that the public headers declare, our additions left out."""
    tree = json.loads(run("clang++", "-std=c++17", "-x", "c++", "-fsyntax-only", "-Xclang",
                          "-ast-dump=json", '-DZEPH_ADDED=__attribute__((annotate("added")))', "-I", f"{ROOT}/include",
                          f"{ROOT}/include/ZEPHDataStructureEngine.h"))
    symbols = set()
    state = {"file": ""}

    def visit(node, access):
        location = node.get("loc", {})
        location = location.get("expansionLoc", location)
        if "file" in location:
            state["file"] = location["file"]
        kind = node.get("kind", "")
        if kind == "FunctionTemplateDecl" or node.get("name") == "ZEPH_Long":
            return  # the caller's own instantiations, and a value type that lives in its header
        here = state["file"].startswith(f"{ROOT}/include/")
        added = any(child.get("kind") == "AnnotateAttr" for child in node.get("inner", []))
        if kind in ("FunctionDecl", "CXXMethodDecl", "CXXConstructorDecl", "CXXDestructorDecl",
                    "CXXConversionDecl"):
            if (here and "mangledName" in node and not node.get("isImplicit") and not added
                    and not node.get("explicitlyDeleted") and not node.get("explicitlyDefaulted")
                    and access != "private"):
                symbols.add(node["mangledName"])
            return
        inner_access = "private" if node.get("tagUsed") == "class" else "public"
        for child in node.get("inner", []):
            if child.get("kind") == "AccessSpecDecl":
                inner_access = child.get("access", inner_access)
            visit(child, inner_access if kind == "CXXRecordDecl" else access)

    visit(tree, "public")
    return symbols


def main():
    arguments = [a for a in sys.argv[1:] if not a.startswith("--")]
    library, manifest = arguments
    symbols = exported_symbols(library)
    names = demangle(symbols)
    text = manifest_text(names)
    if "--update" in sys.argv:
        open(manifest, "w", encoding="utf-8").write(text)
        print(f"{manifest}: {len(names)} names")
        return 0
    listed = {line for line in open(manifest, encoding="utf-8").read().splitlines()
              if line and not line.startswith("#")}
    problems = [f"missing: {n}" for n in sorted(listed - set(names))]
    problems += [f"extra: {n}" for n in sorted(set(names) - listed)]
    documented = set()
    if "--headers" in sys.argv:
        documented = documented_symbols()
        lost = documented - symbols
        problems += [f"declared but not exported: {n}" for n in (demangle(lost) if lost else [])]
    print("\n".join(problems + [f"{library}: {len(names)} names exported, {len(listed)} listed, "
                                f"{len(documented)} declared in the headers"]))
    print(f"{1 if not problems else 0} passed, {1 if problems else 0} failed")
    return 1 if problems else 0


sys.exit(main())

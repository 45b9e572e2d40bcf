#!/usr/bin/env python3
"""Compares what a built library exports with the checked-in manifest and with the headers.

usage: exports.py LIBRARY MANIFEST [--update]

LIBRARY is the .so or the .dll. The manifest lists the demangled names, one a line, grouped by header;
it and the exports must be the same set. The headers, read for the library's system by clang's syntax
tree, decide too: every documented function is exported in every variant that callers may need,
none of our additions is, and nothing is that the headers do not declare. Additions that must be exported carry a version
of their own. --update rewrites the manifest.

abidiff compares two builds, and no linker's map or symbols file knows what the headers promise.
"""
import glob
import json
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
HEADERS = ["platform", "frame", "containers", "double_array", "raw_buffers", "linalg", "graphics",
           "algorithms"]
ADDITIONS = ["batch", "parallel"]  # exported, but ours: under a version of their own where the system has versions
HEADERS += ADDITIONS


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout


def exported_symbols(library):
    """Mangled names of the dynamic symbols that the library defines."""
    if library.endswith(".dll"):
        table = run("x86_64-w64-mingw32-objdump", "-p", library).split("[Ordinal/Name Pointer] Table")[1]
        return {m.group(1) for m in re.finditer(r"^\s*\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+)?(?:[0-9a-f]+\s+)?(\S+)$",
                                                table, re.M)}
    return set(versions_of_symbols(library))


def versions_of_symbols(library):
    """The symbols of a shared object, each with the version it carries: "" for none."""
    lines = [line.split() for line in run("nm", "-D", "--defined-only", library).splitlines()]
    parts = [words[-1].replace("@@", "@").partition("@") for words in lines if words[-2] != "A"]
    return {name: version for name, _, version in parts}


def version_problems(library):
    """Additions carry the version of the additions, documented names none."""
    if library.endswith(".dll"):
        return []
    places = headers_of_names()
    wrong = [(name, version) for name, version in versions_of_symbols(library).items()
             if version != ("ZEPH_ADDITIONS_1" if group_of(demangle([name])[0], places) in ADDITIONS else "")]
    return [f"version {version or 'missing'}: {demangle([name])[0]}" for name, version in wrong]


def demangle(symbols):
    names = run("c++filt", input="\n".join(sorted(symbols)) + "\n").splitlines()
    return sorted(set(names))


def headers_of_names():
    """Which header declares a class or a free function, by the text of the header and its parts."""
    places = {}
    for header in HEADERS:
        parts = [f"{ROOT}/include/{header}.h"] + sorted(glob.glob(f"{ROOT}/include/{header}/*.h"))
        text = "".join(open(part, encoding="utf-8").read() for part in parts)
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


def windows_arguments():
    """The options that make clang read the headers as MinGW's compiler does."""
    search = subprocess.run(["x86_64-w64-mingw32-g++-posix", "-x", "c++", "-E", "-v", os.devnull],
                            check=True, capture_output=True, text=True).stderr
    folders = re.findall(r"^ (/\S*/(?:c\+\+\S*|x86_64-w64-mingw32/include))$", search, re.M)
    return ["--target=x86_64-w64-mingw32"] + [part for folder in folders for part in ("-isystem", folder)]


class Declared:
    """Mangled names of the functions and counters that the public headers declare, as clang sees them."""

    def __init__(self, target):
        self.documented = set()  # public and protected
        self.silent = set()  # private, and what the compiler makes by itself: may be exported
        self.added = set()  # must not be
        tree = json.loads(run("clang++", "-std=c++17", "-x", "c++", "-fsyntax-only", *target, "-Xclang",
                              "-ast-dump=json", '-DZEPH_ADDED=__attribute__((annotate("added")))',
                              "-I", f"{ROOT}/include", f"{ROOT}/include/ZEPHDataStructureEngine.h"))
        self.file = ""
        self.visit(tree, "public")

    def visit(self, node, access):
        location = node.get("loc", {})
        location = location.get("expansionLoc", location)
        self.file = location.get("file", self.file)
        kind = node.get("kind", "")
        if kind == "FunctionTemplateDecl" or node.get("name") == "ZEPH_Long":
            return  # the caller's own instantiations, and a value type that lives in its header
        if kind in ("FunctionDecl", "CXXMethodDecl", "CXXConstructorDecl", "CXXDestructorDecl",
                    "CXXConversionDecl", "VarDecl"):  # variables: the counters, class-wide
            if self.file.startswith(f"{ROOT}/include/") and "mangledName" in node:
                self.file_function(node, access)
            return
        inner_access = "private" if node.get("tagUsed") == "class" else "public"
        for child in node.get("inner", []):
            if child.get("kind") == "AccessSpecDecl":
                inner_access = child.get("access", inner_access)
            self.visit(child, inner_access if kind == "CXXRecordDecl" else access)

    def file_function(self, node, access):
        name = node["mangledName"]
        if any(child.get("kind") == "AnnotateAttr" for child in node.get("inner", [])):
            self.added |= variants(name)
        elif node.get("isImplicit") or node.get("explicitlyDefaulted") or access == "private":
            self.silent |= variants(name)
        elif not node.get("explicitlyDeleted"):
            self.documented |= variants(name)


def variants(name):
    """A constructor and a destructor exist for whole objects and for the base part of another."""
    return {name, re.sub(r"C1(?=E)", "C2", name, count=1), re.sub(r"D1(?=Ev$)", "D2", name)}


def header_problems(symbols, declared):
    """Where the exports and the headers disagree."""
    type_information = {s for s in symbols if re.match(r"_ZT[ISV]", s)}
    deleting = {s for s in symbols if re.search(r"D0Ev$", s)}
    undeclared = symbols - declared.documented - declared.silent - declared.added - type_information - deleting
    problems = []
    for what, names in (("documented but not exported", declared.documented - symbols),
                        ("an addition, exported", declared.added & symbols),
                        ("exported but not declared", undeclared)):
        problems += [f"{what}: {n}" for n in (demangle(names) if names else [])]
    return problems


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
    declared = Declared(windows_arguments() if library.endswith(".dll") else [])
    problems += header_problems(symbols, declared)
    problems += version_problems(library)
    print("\n".join(problems + [f"{library}: {len(symbols)} symbols of {len(names)} names exported, "
                                f"{len(listed)} listed; the headers document {len(declared.documented)} "
                                f"symbols and add {len(declared.added)}"]))
    print(f"{1 if not problems else 0} passed, {1 if problems else 0} failed")
    return 1 if problems else 0


sys.exit(main())

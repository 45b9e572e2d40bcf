"""Writes the mutated tree: every form of every site is in it, and a number chooses one at run time."""
import os
from pathlib import Path

TOOL = Path(__file__).parent
COPIED = ["CMakeLists.txt", "cmake", "include", "src", "tests", "fuzz", "tools/instructions",
          "tools/portable_math"]
MUTATED = ["include", "src"]


def put(path, data):
    """Does not touch an unchanged file, so that it is not rebuilt."""
    path.parent.mkdir(parents=True, exist_ok=True)
    if not path.exists() or path.read_bytes() != data:
        path.write_bytes(data)


def copy_tree(tree):
    for name in COPIED:
        source = Path(name)
        for file in [source] if source.is_file() else sorted(source.rglob("*")):
            if file.is_file() and file.parts[0] not in MUTATED:
                put(tree / file, file.read_bytes())
    main = Path("tests/support/main.cpp").read_text() + knowing(tree) + (TOOL / "reach_listener.cpp").read_text()
    put(tree / "tests/support/main.cpp", main.encode())
    put(tree / "src/platform/mutants_runtime.cpp", (TOOL / "runtime.cpp").read_bytes())
    put(tree / "chosen.h", (TOOL / "chosen.h").read_bytes())
    for file in [p for name in COPIED for p in (tree / name).rglob("*") if p.is_file()]:
        if not file.relative_to(tree).exists() and file.name != "mutants_runtime.cpp":
            os.remove(file)  # gone from the sources since the last run


def number(sites):
    """Numbers all forms; a site's follow one another. Returns how many there are."""
    count = 1
    for site in sites:
        site.first = count
        count += len(site.forms)
    return count


def wrap(site, inner):
    at = f"::zeph_mutants::At{'RunTime' if site.constant else ''}({site.first}, {len(site.forms)})"
    if site.kind == "statement":
        return f"({at} ? (void)0 : (void)({inner}))"
    if site.kind == "condition":
        inner = f"static_cast<bool>({inner})"
    forms = f"({site.forms[-1][1]})"
    for i, (_, text) in reversed(list(enumerate(site.forms[:-1]))):
        forms = f"(::zeph_mutants::chosen == {site.first + i} ? ({text}) : {forms})"
    return f"({at} ? {forms} : ({inner}))"


def nest(sites):
    """The sites of one file as a forest by containment."""
    roots, open_sites = [], []
    for site in sorted(sites, key=lambda s: (s.start, -s.end, s.rank)):
        site.inner = []
        while open_sites and open_sites[-1].end <= site.start:
            open_sites.pop()
        if open_sites and open_sites[-1].end < site.end:
            continue  # crosses another: leave it out
        (open_sites[-1].inner if open_sites else roots).append(site)
        open_sites.append(site)
    return roots


def render(text, start, end, sites):
    out, at = [], start
    for site in sites:
        out.append(text[at:site.start].decode())
        out.append(wrap(site, render(text, site.start, site.end, site.inner)))
        at = site.end
    out.append(text[at:end].decode())
    return "".join(out)


def knowing(tree):
    """Before a mutated text."""
    return f'#include "{tree.absolute()}/chosen.h"\n'


def write_sources(tree, texts, sites):
    by_path = {}
    for site in sites:
        by_path.setdefault(site.path, []).append(site)
    for kernel in Path("src/kernels").glob("*.cpp"):  # .inc files stand inside their namespaces
        by_path.setdefault(str(kernel), [])
    for file in [f for name in MUTATED for f in sorted(Path(name).rglob("*"))]:
        if file.is_file():
            data = file.read_bytes()
            if str(file) in by_path:
                data = render(data, 0, len(data), nest(by_path[str(file)])).encode()
                if file.suffix != ".inc":
                    data = f"{knowing(tree)}#line 1\n".encode() + data
            put(tree / file, data)

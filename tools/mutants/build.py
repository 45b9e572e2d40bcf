"""Builds the mutated tree; what does not compile is dropped."""
import os
import re
import subprocess
from pathlib import Path

import rewrite

WORK = Path("build/mutants")
TREE = WORK / "tree"
BUILD = TREE / "build/static"


def say(text):
    print(text, flush=True)


def configure():
    run(["cmake", "-S", str(TREE), "-B", str(BUILD), "-G", "Ninja", "-DCMAKE_CXX_COMPILER=g++",
         "-DCMAKE_BUILD_TYPE=Release", "-DZEPH_SHARED=OFF", "-DZEPH_BUILD_EXAMPLES=OFF",
         "-DCMAKE_CXX_FLAGS=-w", "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG", "-DZEPH_BUILD_SELFTEST=OFF",
         "-DZEPH_INSTALL=OFF"])


def run(command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode:
        raise SystemExit(f"{' '.join(command)} failed:\n{done.stdout[-3000:]}")


def source_of(path):
    """What the compiler names, as it is called in the tree. Headers are met by the links that show them to a
    folder of src/ and to the tests."""
    path = os.path.relpath(os.path.normpath(os.path.join(BUILD.absolute(), path)), TREE.absolute())
    shown = re.fullmatch(r"build/static/(?:src/)?include/\w+/(.*)", path)
    places = [path] if not shown else [f"{'src' if '_inside/' in path else 'include'}/{shown[1]}", f"src/{shown[1]}"]
    return next((p for p in places if p.startswith(("src/", "include/")) and Path(p).is_file()), None)


def programs(pattern):
    """The test programs, as targets, whose folder of tests/ matches."""
    folders = sorted(p.parent.name for p in Path("tests").glob("*/*_test.cpp") if p.parent.name != "prove")
    return sorted({f"zeph_{f}_tests" for f in folders if re.search(pattern, f)})


def compile_targets(targets, jobs):
    """Places ("src/...", line) that the compiler refused."""
    done = subprocess.run(["cmake", "--build", str(BUILD), f"-j{jobs}", "--target", *targets, "--", "-k0"],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode == 0:
        return set()
    places = refused(done.stdout)
    if not places:
        raise SystemExit("the mutated tree does not build:\n" + done.stdout[-3000:])
    return places


def refused(output):
    """Where an error is, else the call that an intrinsic was inlined from, else the first note's place."""
    places, waiting, caller = set(), False, None
    pattern = r"(?:inlined from .* at )?(\S+?):(\d+):\d+(?:: (error|note|fatal error):|[:,]$)"
    for path, line, kind in re.findall(pattern, output, re.MULTILINE):
        here = (source_of(path), int(line)) if source_of(path) else None
        if not kind:
            caller = caller or here
            continue
        if kind != "note":
            here, waiting, caller = here or caller, True, None
        if waiting and here:
            places.add(here)
            waiting = False
    return places


def build(texts, sites, tests, jobs, memory):
    """The sites that are left; `memory` is a file that names those refused before in the same sources."""
    memory.touch()
    before = set(memory.read_text().splitlines())
    sites = [s for s in sites if s.name() not in before]
    rewrite.copy_tree(TREE)
    configured = False
    tried = set()
    rewrite.number(sites)  # once: a dropped site changes no other file
    while True:
        rewrite.write_sources(TREE, texts, sites)
        if not configured:
            configure()
            configured = True
        places = compile_targets(["ZEPHDataStructureEngine"], jobs) or compile_targets(programs(tests), jobs)
        if not places:
            break
        # First what may stand where only a constant or what can be assigned to may; then whatever is on the line.
        there = [s for s in sites if any(s.path == p and s.line <= n <= s.line + s.lines for p, n in places)]
        bad = [s for s in there if s.kind in ("constant", "name", "argument") or id(s) in tried]
        if not bad and all(id(s) in tried for s in there):
            raise SystemExit(f"the mutated tree does not build: {sorted(places)}")
        tried |= {id(s) for s in there}
        gone = {id(s) for s in bad}
        with open(memory, "a") as known:
            known.writelines(s.name() + "\n" for s in bad)
        say(f"  {len(places)} lines refused, {sum(len(s.forms) for s in bad)} mutants dropped")
        sites = [s for s in sites if id(s) not in gone]
    return sites

"""Builds the mutated tree; what does not compile is dropped."""
import re
import subprocess
from pathlib import Path

import rewrite

BUILD = Path("build/mutants/build")
TREE = Path("build/mutants/tree")


def say(text):
    print(text, flush=True)


def configure():
    flags = f"-O1 -w -include {TREE.absolute()}/chosen.h"
    run(["cmake", "-S", str(TREE), "-B", str(BUILD), "-G", "Ninja", "-DCMAKE_CXX_COMPILER=clang++",
         "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={flags}", "-DZEPH_SHARED=OFF",
         "-DZEPH_BUILD_EXAMPLES=OFF", "-DZEPH_BUILD_SELFTEST=OFF", "-DZEPH_INSTALL=OFF"])


def run(command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode:
        raise SystemExit(f"{' '.join(command)} failed:\n{done.stdout[-3000:]}")


def compile_library(jobs):
    """Places ("src/...", line) that the compiler refused."""
    done = subprocess.run(["cmake", "--build", str(BUILD), f"-j{jobs}", "--target", "ZEPHDataStructureEngine",
                           "--", "-k0"], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode == 0:
        return set()
    places, waiting = set(), False
    for path, line, kind in re.findall(r"(\S+?):(\d+):\d+: (error|note|fatal error):", done.stdout):
        waiting = waiting or kind != "note"
        # Headers are met by the links that show them to a folder of src/.
        here = re.search(r"mutants/(?:tree/src|build/src/include/[^/]*_inside)/(.*)", path)
        if waiting and here:
            places.add(("src/" + here[1], int(line)))
            waiting = False
    if not places:
        raise SystemExit("the mutated library does not build:\n" + done.stdout[-3000:])
    return places


def build(texts, sites, jobs):
    """The sites that are left."""
    rewrite.copy_tree(TREE)
    configured = False
    tried = set()
    rewrite.number(sites)  # once: a dropped site changes no other file
    while True:
        rewrite.write_sources(TREE, texts, sites)
        if not configured:
            configure()
            configured = True
        refused = compile_library(jobs)
        if not refused:
            break
        # First the constants, which stand where only a constant may; then whatever is on the line.
        there = [s for s in sites if any(s.path == p and s.line <= n <= s.line + s.lines for p, n in refused)]
        bad = [s for s in there if s.kind == "constant" or id(s) in tried]
        if not bad and all(id(s) in tried for s in there):
            raise SystemExit(f"the mutated library does not build: {sorted(refused)}")
        tried |= {id(s) for s in there}
        gone = {id(s) for s in bad}
        say(f"  {len(refused)} lines refused, {sum(len(s.forms) for s in bad)} mutants dropped")
        sites = [s for s in sites if id(s) not in gone]
    say("mutants: building the tests")
    run(["cmake", "--build", str(BUILD), f"-j{jobs}"])
    return sites

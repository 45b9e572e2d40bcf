#!/usr/bin/env python3
"""Compiles the uses of tests/headers/uses.txt against the documented declarations and against the headers.

usage: compare_uses.py --compiler CXX [--flag=FLAG ...] --library LIB --documented documented.h --work FOLDER

Each use must compile against both and write the same. They are compiled in a few large
sources; only where one of those fails is each of its uses compiled separately.
"""
import argparse
import concurrent.futures
import os
import re
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
BATCH = 130
STANDARD = ["cstdint", "cstdio", "functional", "iostream", "map", "sstream", "string", "vector"]


def expand(line):
    match = re.search(r"\{\{(.*?)\}\}(?!\})", line)
    if not match:
        return [line]
    return [text for choice in match.group(1).split("|")
            for text in expand(line[:match.start()] + choice + line[match.end():])]


def read_uses():
    uses = []
    with open(os.path.join(HERE, "uses.txt"), encoding="utf-8") as file:
        for line in file:
            if line.strip() and not line.startswith("#"):
                uses += expand(line.rstrip("\n"))
    return list(enumerate(uses))


def source(header, uses):
    text = [f'#include "{header}"\n'] + [f"#include <{name}>\n" for name in STANDARD]
    calls = []
    for number, use in uses:
        outside, _, body = use.rpartition("==>")
        glob = outside.startswith("global:")
        outside = outside.removeprefix("global:")
        space = f"use_{number}"
        if glob:
            text.append(outside + "\n")
        text.append(f"namespace {space} {{ {'' if glob else outside}\n"
                    f"void Run(std::ostream& out) {{ {body} }} }}\n")
        calls.append(f"  {{ std::ostringstream out; {space}::Run(out); "
                     f'std::cout << "{number}: " << out.str() << "\\n@\\n"; }}\n')
    return "".join(text) + "int main() {\n" + "".join(calls) + "}\n"


class Checker:
    def __init__(self, options):
        self.options = options
        folder = os.path.dirname(os.path.abspath(options.library))
        self.link = [options.library, f"-Wl,-rpath,{folder}"]
        os.makedirs(options.work, exist_ok=True)

    def run(self, side, uses):
        """What the uses write, by number; None where they do not compile, and why."""
        header = self.options.documented if side == "documented" else "ZEPHDataStructureEngine.h"
        name = os.path.join(self.options.work, f"{side}_{uses[0][0]}_{len(uses)}")
        with open(name + ".cpp", "w", encoding="utf-8") as file:
            file.write(source(os.path.abspath(header) if side == "documented" else header, uses))
        built = subprocess.run([*self.options.compiler.split(), "-std=c++17", "-w", "-O0", *self.options.flags,
                                "-I", self.options.include, name + ".cpp", "-o", name, *self.link],
                               capture_output=True, text=True, check=False)
        if built.returncode:
            return None, built.stderr
        ran = subprocess.run([name], capture_output=True, text=True, check=False, timeout=60)
        if ran.returncode:
            return None, f"ended with {ran.returncode}"
        return dict(re.findall(r"^(\d+): (.*?)\n@$", ran.stdout, re.M | re.S)), ""

    @staticmethod
    def suspects(uses, wanted, found, errors):
        """The uses that the compiler names, or that differ; all where nothing tells."""
        named = {int(number) for number in re.findall(r"use_(\d+)", errors)}
        if wanted is not None and found is not None:
            named |= {number for number, _ in uses if wanted.get(str(number)) != found.get(str(number))}
        return [use for use in uses if use[0] in named] or list(uses)

    def problems(self, uses):
        wanted, why = self.run("documented", uses)
        found, why_not = self.run("headers", uses)
        if wanted is not None and wanted == found:
            return []
        if len(uses) > 1:
            alone = self.suspects(uses, wanted, found, why + why_not)
            rest = [use for use in uses if use not in alone]
            parts = [[use] for use in alone] + ([rest] if rest else [])
            return [problem for part in parts for problem in self.problems(part)]
        number, use = uses[0]
        if wanted is None:
            return [f"no use of the documented interface: {use}\n{why[:1500]}"]
        if found is None:
            return [f"does not compile or run with the headers: {use}\n{why_not[:1500]}"]
        return [f"means something else: {use}\n  documented: {wanted[str(number)]!r}\n  headers: {found[str(number)]!r}"]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--flag", dest="flags", action="append", default=[])
    parser.add_argument("--library", required=True)
    parser.add_argument("--documented", required=True)
    parser.add_argument("--include", default="include")
    parser.add_argument("--work", required=True)
    checker = Checker(parser.parse_args())
    uses = read_uses()
    outside = [use for use in uses if use[1].startswith("global:")]
    inside = [use for use in uses if not use[1].startswith("global:")]
    batches = [inside[i:i + BATCH] for i in range(0, len(inside), BATCH)] + [[use] for use in outside]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        problems = [problem for part in pool.map(checker.problems, batches) for problem in part]
    for problem in problems:
        print(problem)
    print(f"{len(uses) - len(problems)} passed, {len(problems)} failed")
    return 1 if problems or len(uses) < 300 else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Builds and runs the programs in Markdown pages and compares what they print.

A ```cpp block with a `main` is a program. A ```text block right behind it (one line of prose may
stand between) is its whole output; a comment `// prints "..."` does for a single line. A program
without stated output must end with status 0. Other ```cpp blocks must compile: at the top of a file,
or in a function.

In docs/behaviours.md and docs/additions.md the code in a line is compiled in a function too; where it
ends in an expression and "is NUMBER" or "gives NUMBER" follows, the number is compared. The names
that the lines take for granted are declared in tools/docs/line_names.txt, a heading at a time. What cannot be run (it ends
the process, or shows a form only) stands in tools/docs/line_exceptions.txt with the reason. Every line of
docs/behaviours.md names a test, and the tests that it names exist.

Tools that run the snippets of Markdown pages are for languages that are interpreted; none takes what prose
states behind an expression.
"""
import argparse
import concurrent.futures
import os
import re
import subprocess
import sys
import zlib

BLOCK = re.compile(r"^```(\w*)\n(.*?)^```\n", re.S | re.M)
HEADER = "ZEPHDataStructureEngine.h"


class Builder:
    def __init__(self, options):
        self.options = options
        os.makedirs(options.work, exist_ok=True)
        # Pages name the headers as they are installed.
        installed = os.path.join(options.work, "ZEPHDataStructureEngine")
        if not os.path.islink(installed):
            os.symlink(os.path.abspath(options.include), installed)

    def compile(self, name, code, extra=()):
        """The program's path, or None and what the compiler says."""
        source = os.path.join(self.options.work, name + ".cpp")
        program = os.path.join(self.options.work, name)
        with open(source, "w", encoding="utf-8") as file:
            file.write(code)
        command = ["g++", "-std=c++17", "-I", self.options.work, "-I", self.options.include, "-I", "tools/docs",
                   *extra, source]
        if "-fsyntax-only" not in extra:
            command += ["-o", program, "-L", self.options.library, "-lZEPHDataStructureEngine",
                        "-Wl,-rpath," + os.path.abspath(self.options.library)]
        result = subprocess.run(command, capture_output=True, text=True, check=False)
        return (program, "") if result.returncode == 0 else (None, result.stderr[:1500])


def run(program):
    result = subprocess.run([os.path.abspath(program)], capture_output=True, text=True, check=False, timeout=60,
                            stdin=subprocess.DEVNULL)
    return result.returncode, result.stdout


def blocks(page):
    """(line, kind, code, stated output or None) of each block of C++."""
    with open(page, encoding="utf-8") as file:
        text = file.read()
    found = list(BLOCK.finditer(text))
    for number, match in enumerate(found):
        if match.group(1) != "cpp":
            continue
        stated = None
        if number + 1 < len(found) and found[number + 1].group(1) == "text":
            between = text[match.end():found[number + 1].start()].strip()
            if len(between.splitlines()) <= 1 and not between.startswith("#"):
                stated = found[number + 1].group(2)
        code = match.group(2)
        promised = re.search(r'// prints "(.*?)"$', code, re.M)
        if stated is None and promised:
            stated = promised.group(1).replace("\\n", "\n")
        yield text.count("\n", 0, match.start()) + 1, "main(" in code, code, stated


def check_block(builder, page, line, program, code, stated):
    name = re.sub(r"\W", "_", page) + "_%d" % line
    where = "%s:%d" % (page, line)
    if not program:
        prelude = '#include "%s"\n#include <iostream>\n#include <sstream>\n' % HEADER
        _, error = builder.compile(name, prelude + code, ["-fsyntax-only"])
        if error:
            body = prelude + "void Shown() {\n" + code + "\n}\n"
            _, error = builder.compile(name, body, ["-fsyntax-only", "-w"])
        return ["%s: does not compile\n%s" % (where, error)] if error else []
    path, error = builder.compile(name, code, ["-Wall", "-Wextra", "-Werror"])
    if error:
        return ["%s: does not compile\n%s" % (where, error)]
    status, output = run(path)
    if stated is None:
        return [] if status == 0 else ["%s: status %d" % (where, status)]
    if output != stated:
        return ["%s: prints\n%r\nbut the page says\n%r" % (where, output, stated)]
    return []


LINE = re.compile(r"^- .*$", re.M)
SPAN = re.compile(r"`([^`]+)`")
RESULT = re.compile(r"^\.? ?(?:is|gives) (-?[0-9]+(?:\.[0-9]+)?(?:e[0-9]+)?)(?!\.?[0-9]|\.\.|,? ?x |, [0-9])")


def spans(page):
    """(line, heading, code, stated number or None) of what looks like code to run in the lines of a page."""
    heading = ""
    with open(page, encoding="utf-8") as file:
        for number, text in enumerate(file, 1):
            if text.startswith("## "):
                heading = text[3:].strip()
            if not text.startswith("- "):
                continue
            for match in SPAN.finditer(text):
                code = match.group(1)
                if re.fullmatch(r"[\w/]+\.\w+", code) or not re.search(r"[;(]", code):
                    continue  # a test's name, or a name
                stated = RESULT.match(text[match.end():])
                yield number, heading, code, stated.group(1) if stated else None


TEST = re.compile(r"\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)|\bTYPED_TEST(?:_P)?\(\s*(\w+),\s*(\w+)\)")
NAMED = re.compile(r"`([\w/]+)\.([A-Z]\w+)`")


def missing_tests(page):
    """Lines without a test, and the tests named that are in no source."""
    known = set()
    for folder, _, files in os.walk("tests"):
        for name in files:
            if name.endswith(".cpp"):
                with open(os.path.join(folder, name), encoding="utf-8") as file:
                    known |= {tuple(filter(None, test)) for test in TEST.findall(file.read())}
    with open(page, encoding="utf-8") as file:
        for number, text in enumerate(file, 1):
            named = NAMED.findall(text)
            if text.startswith("- ") and not named:
                yield "%s:%d: names no test" % (page, number)
            for suite, test in named:  # a suite of many types or instances is named with one of these
                if not any((part, test) in known for part in suite.split("/")):
                    yield "%s:%d: there is no test %s.%s" % (page, number, suite, test)


def exceptions():
    """Code that is not run, by its text; the reason stands above it."""
    with open("tools/docs/line_exceptions.txt", encoding="utf-8") as file:
        return {text.rstrip("\n") for text in file if text.strip() and not text.startswith("#")}


def names():
    """Declarations by heading."""
    declared, heading = {}, ""
    with open("tools/docs/line_names.txt", encoding="utf-8") as file:
        for text in file:
            if text.startswith("## "):
                heading = text[3:].strip()
            elif not text.startswith("#"):
                declared[heading] = declared.get(heading, "") + text
    return declared


def split_result(code):
    """The statements, and the expression they end in."""
    code = re.sub(r"//.*", "", code).strip().rstrip(";")
    depth, cut = 0, 0
    for at, c in enumerate(code):
        depth += c in "({[" 
        depth -= c in ")}]"
        if c == ";" and depth == 0:
            cut = at + 1
    return code[:cut], code[cut:]


def line_program(declared, code, stated):
    if stated is None:
        body = re.sub(r"//.*", "", code).rstrip().rstrip(";") + ";"
        return '#include "line_setup.h"\nvoid Shown() {\n%s{\n%s\n}\n}\n' % (declared, body)
    before, value = split_result(code)
    return ('#include "line_setup.h"\nint main() {\n%s{\n%s\n'
            "return Same(%s, %s);\n}\n}\n" % (declared, before, value, stated))


def check_line(builder, page, line, declared, code, stated):
    name = re.sub(r"\W", "_", page) + "_%d_%x" % (line, zlib.crc32(code.encode()))
    flags = ["-w"] if stated else ["-w", "-fsyntax-only"]
    path, error = builder.compile(name, line_program(declared, code, stated), flags)
    if error:
        return ["%s:%d: `%s` does not compile\n%s" % (page, line, code, error[:700])]
    if stated and run(path)[0] != 0:
        return ["%s:%d: `%s` is not %s" % (page, line, code, stated)]
    return []


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--include", required=True)
    parser.add_argument("--library", required=True)
    parser.add_argument("--work", required=True)
    parser.add_argument("pages", nargs="+")
    options = parser.parse_args()
    builder = Builder(options)
    left_out, declared = exceptions(), names()
    used, jobs = set(), []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for page in options.pages:
            for block in blocks(page):
                jobs.append(pool.submit(check_block, builder, page, *block))
            if os.path.basename(page) in ("behaviours.md", "additions.md"):
                for line, heading, code, stated in spans(page):
                    if code in left_out:
                        used.add(code)
                    else:
                        jobs.append(pool.submit(check_line, builder, page, line,
                                                declared.get(heading, ""), code, stated))
        problems = [problem for job in jobs for problem in job.result()]
    if any(os.path.basename(page) == "behaviours.md" for page in options.pages):
        problems += ["line_exceptions.txt: not in a page: " + code for code in sorted(left_out - used)]
    for page in options.pages:
        if os.path.basename(page) == "behaviours.md":
            problems += missing_tests(page)
    for problem in problems:
        print(problem)
    print("%d passed, %d failed" % (max(len(jobs) - len(problems), 0), len(problems)))
    return 1 if problems or not jobs else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Compiles the examples in the comments of the public headers, and runs those that state a result.

usage: run_header_examples.py --include FOLDER --library FOLDER --work FOLDER

An example is a run of comment lines set in by five blanks. `EXPRESSION;  // 3` and
`EXPRESSION;  // (1, 2)` state a number or components; behind a declaration they are those of the object
declared, behind a call without a result those of the object called. Other comments are prose. The names
that examples take for granted are declared in line_names.txt, a heading for each header. What a report
prints, which begins with "(empty line)", is no example.
"""
import argparse
import concurrent.futures
import os
import re
import sys

from run_examples import Builder, names, run

SHOWN = re.compile(r"^\s*/// {5}(.*)$")
NUMBER = r"-?[0-9]+(?:\.[0-9]+)?f?"
RESULT = re.compile(r"^(.*;)\s*// *(?:\w+ is )?(%s|\(%s(?:, %s)+\))(?=$|[:,] [a-z]|, rounded)" % ((NUMBER,) * 3))
DECLARED = re.compile(r"^(?:const )?[A-Z_a-z]\w*[*&]? (\w+)(?: = .*|\(.*\));$")


def examples(path):
    """(line, lines of code) of each example."""
    block = []
    with open(path, encoding="utf-8") as file:
        for number, text in enumerate(file, 1):
            match = SHOWN.match(text)
            if match:
                block.append((number, match.group(1)))
            elif block:
                yield block[0][0], [code for _, code in block]
                block = []


def program(declared, lines):
    """The example as a program that ends in the number of the line that is wrong; whether it states anything."""
    body, states = [], False
    for number, line in enumerate(lines, 1):
        match = RESULT.match(line)
        if not match:
            body.append(line)
            continue
        code, stated = match.group(1), match.group(2).strip("()")
        states = True
        before, _, last = code[:-1].rpartition("; ")
        variable = DECLARED.match(last + ";")
        if variable:
            body += [code, "if (!Shows(%s, {%s})) return %d;" % (variable.group(1), stated, number)]
            continue
        body.append(before + ";")
        named = re.search(r"// *(\w+) is ", line)
        called = named.group(1) if named else re.match(r"\w*", last).group(0) or "0"
        # Of a call without a result, or of a name that the comment gives, the object called.
        if named or re.match(r"\w+\.(Normalize|Rotate\w+)\(", last):
            body += [last + ";", "if (!Shows(%s, {%s})) return %d;" % (called, stated, number)]
        else:
            body.append("if (!Shows(%s, {%s})) return %d;" % (last, stated, number))
    return ('#include "line_setup.h"\n#include "header_setup.h"\n%s\nint main() {\n%s\nreturn 0;\n}\n'
            % (declared, "\n".join(body))), states


def check(builder, path, line, declared, lines):
    where = "%s:%d" % (path, line)
    if re.match(r"\w+ \w+\(.*\) \{$", lines[0]):  # a function of the program's, up to its brace
        end = lines.index("}") + 1
        declared, lines = declared + "\n" + "\n".join(lines[:end]), lines[end:]
    code, states = program(declared, lines)
    built, error = builder.compile(re.sub(r"\W", "_", where), code, ["-w"] if states else ["-w", "-fsyntax-only"])
    if error:
        return ["%s: does not compile\n%s" % (where, error)]
    status = run(built)[0] if states else 0
    return ["%s: not so: %s" % (where, lines[status - 1])] if status else []


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--include", required=True)
    parser.add_argument("--library", required=True)
    parser.add_argument("--work", required=True)
    options = parser.parse_args()
    builder = Builder(options)
    declared = names()
    jobs = []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for folder, _, files in os.walk(options.include):
            for name in sorted(files):
                path = os.path.join(folder, name)
                for line, lines in examples(path):
                    if not lines[0].startswith("("):
                        jobs.append(pool.submit(check, builder, path, line, declared.get(name, ""), lines))
        problems = [problem for job in jobs for problem in job.result()]
    for problem in problems:
        print(problem)
    print("%d passed, %d failed" % (len(jobs) - len(problems), len(problems)))
    return 1 if problems or not jobs else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Builds and runs the examples in the comments of the public headers, and compares what they state.

usage: run_header_examples.py --include FOLDER --library FOLDER --work FOLDER --manifest FILE

An example is a run of comment lines set in by five blanks; each header's become one program, an example a
function of it. `EXPRESSION;  // 3`, `// "text"` and `// (1, 2)` state a number, a text or components, row by
row of a matrix; behind a declaration they are those of the object declared, and `// a is 3` names the
object. `// prints "text"` states what goes to the standard output; a text may end in "..." where it goes on.
Other comments are prose. The names that examples take for granted are declared in line_names.txt, a heading
for each header. What a report prints, which begins with "(empty line)", is no example.

Every exported name must be used by an example: of a function or member one overload, of a free operator each.
The programs' own symbols tell, so a name that stands in a comment only does not count.

Doxygen takes examples into its pages, but compiles none; doctest's and Catch's macros would have to stand in the
headers.
"""
import argparse
import concurrent.futures
import os
import re
import subprocess
import sys

from check_index import PRIVATE
from run_examples import Builder, names

SHOWN = re.compile(r"^\s*/// {5}(.*)$")
NUMBER = r"-?(?:[0-9]+(?:\.[0-9]+)?(?:e-?[0-9]+)?f?|inf|nan)"
TEXT = r'"(?:[^"\\]|\\.)*"'
RESULT = re.compile(r"^(.*;)\s*// *(?:(\w+) is )?(%s|%s|\(%s(?:, %s)+\))(?=$|[:,;] [a-z0-9])"
                    % (NUMBER, TEXT, NUMBER, NUMBER))
PRINTS = re.compile(r"^(.*;)\s*// prints (%s)" % TEXT)
DECLARED = re.compile(r"^(?:const )?[A-Z_a-z][\w<>:]*[*&]? (\w+)(?: = .*|\(.*\)|\{.*\});$")
CHANGED = re.compile(r"\w+\.(Normalize|Rotate\w+|PackTo01)\(")  # calls whose object is meant
MARK = "\x01"


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


def compared(number, code, named, stated):
    """The statements of a line, and the comparison with what it states."""
    compare = "ShowsText" if stated.startswith('"') else "Shows"
    if compare == "Shows":
        stated = "{%s}" % stated.strip("()").replace("inf", "INFINITY").replace("nan", "NAN")
    before, _, last = code[:-1].rpartition("; ")
    variable = DECLARED.match(last + ";")
    name = named or (variable and variable.group(1)) or (CHANGED.match(last) and re.match(r"\w+", last).group())
    if name:
        return "%s if (!%s(%s, %s)) return %d;" % (code, compare, name, stated, number)
    return "%s; if (!%s(%s, %s)) return %d;" % (before, compare, last, stated, number)


def function(path, line, declared, lines):
    """An example as a function that returns the number of the line that is wrong, and the texts to be printed."""
    body, prints, head = [], [], []
    # Functions and types of the example's own, up to their brace.
    while lines and re.match(r"(?:\w+ [*&]?\w+\(.*\)|struct \w+.*) \{$", lines[0]):
        end = next(at for at, text in enumerate(lines) if re.match(r"\};?$", text)) + 1
        head, lines = head + lines[:end], lines[end:]
    for number, text in enumerate(lines, line + len(head)):
        stated = PRINTS.match(text)
        if stated:
            prints.append((number, stated.group(2)))
            body.append("Mark(%d); %s Mark(0);" % (number, stated.group(1)))
            continue
        stated = RESULT.match(text)
        body.append(compared(number, *stated.groups()) if stated else text)
    return ('namespace example_%d {\n%s\n#line %d "%s"\n%s\nint Run() {\n#line %d "%s"\n%s\nreturn 0;\n}\n}\n'
            % (line, declared, line, path, "\n".join(head), line + len(head), path, "\n".join(body))), prints


def unquoted(text):
    return text[1:-1].encode().decode("unicode_escape")


def outputs(output):
    """What was printed between the marks, by line."""
    found = {}
    for part in output.split(MARK)[1:]:
        line, _, text = part.partition("\n")
        if line != "0":
            found[int(line)] = text
    return found


def check(builder, path, declared):
    """Problems, the number of examples, and the object file of a header."""
    found = [(line, lines) for line, lines in examples(path) if not lines[0].startswith("(")]
    if not found:
        return [], 0, None
    code, prints = ["#include \"line_setup.h\"\n#include \"header_setup.h\"\n"], []
    for line, lines in found:
        text, stated = function(path, line, declared, lines)
        code.append(text)
        prints += stated
    code.append("int main() {\nint wrong = 0;\n%s\nreturn wrong;\n}\n" % "\n".join(
        "if (const int line = example_%d::Run()) wrong = 1, std::fprintf(stderr, \"%%d\\n\", line);" % line
        for line, _ in found))
    name = "header_" + re.sub(r"\W", "_", path)
    # Symbols that are called stay in the program: nothing is inlined.
    built, error = builder.compile(name, "\n".join(code), ["-w", "-O0", "-fno-inline"])
    if error:
        return ["%s: does not compile\n%s" % (path, error)], len(found), None
    ran = subprocess.run([os.path.abspath(built)], capture_output=True, text=True, check=False, timeout=60,
                         stdin=subprocess.DEVNULL)
    if ran.returncode not in (0, 1):
        return ["%s: status %d\n%s" % (path, ran.returncode, ran.stderr)], len(found), None
    wrong = {int(line) for line in ran.stderr.split()}
    printed = outputs(ran.stdout)
    for number, stated in prints:
        want, have = unquoted(stated), printed.get(number, "(not reached)")
        if have != want and not (want.endswith("...") and have.startswith(want[:-3])):
            wrong.add(number)
            print("%s:%d: prints %r" % (path, number, have))
    with open(path, encoding="utf-8") as file:
        text = file.read().splitlines()
    return ["%s:%d: not so: %s" % (path, line, text[line - 1].strip()) for line in sorted(wrong)], len(found), built


def needed(symbol):
    """What an example must use for a symbol: a free operator by its operands, anything else by its name."""
    symbol = re.sub(r"std::basic_([io]stream)<char, std::char_traits<char> >", r"std::\1", symbol.split("[abi:")[0])
    return symbol if symbol.startswith("operator") else re.match(r".*?operator\(\)|[^(]*", symbol).group().strip()


def without_example(programs, manifest):
    used = set()
    for program in programs:
        listed = subprocess.run(["nm", "-C", "--dynamic", program], capture_output=True, text=True, check=True).stdout
        listed += subprocess.run(["nm", "-C", program], capture_output=True, text=True, check=True).stdout
        used |= {needed(re.sub(r"@.*", "", line[19:])) for line in listed.splitlines() if line[17] in "UWVBu"}
    with open(manifest, encoding="utf-8") as file:
        for line in file:
            symbol = line.strip()
            if not symbol or symbol.startswith("#") or "~" in symbol or re.match(r"(vtable|typeinfo( name)?|VTT) for ", symbol):
                continue
            name = needed(symbol)
            if name not in used and name not in PRIVATE:
                used.add(name)
                yield "%s: no example in the headers uses it" % name


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for option in ("--include", "--library", "--work", "--manifest"):
        parser.add_argument(option, required=True)
    options = parser.parse_args()
    builder = Builder(options)
    declared = names()
    jobs = []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for folder, _, files in os.walk(options.include):
            for name in sorted(files):
                jobs.append(pool.submit(check, builder, os.path.join(folder, name), declared.get(name, "")))
        results = [job.result() for job in jobs]
    problems = [problem for found, _, _ in results for problem in found]
    problems += without_example([program for _, _, program in results if program], options.manifest)
    for problem in problems:
        print(problem)
    count = sum(number for _, number, _ in results)
    print("%d passed, %d failed" % (max(count - len(problems), 0), len(problems)))
    return 1 if problems or not count else 0


if __name__ == "__main__":
    sys.exit(main())

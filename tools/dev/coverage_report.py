"""What the tests reach, from llvm-cov: prints what they miss and the totals; the exit status is 1 below the bounds.

usage: coverage_report.py EXPORT.lcov EXPORT.json EXCEPTIONS MINIMUM_LINES MINIMUM_BRANCHES

A line's count is llvm-cov's own. A branch is one way of a condition at its place in a file: llvm-cov counts each
instantiation of a template apart, and a condition on the template's constants goes one way in each; here a way
counts as taken if any of them took it. Of a kernel form that this processor lacks nothing is counted.
"""
import json
import re
import sys
from collections import defaultdict
from pathlib import Path

FLAGS = {"avx2": "avx2", "avx512": "avx512f"}


def source(name):
    """`name` within the tree (headers are met by way of links), or None: not the library's."""
    path = Path(name).resolve()
    if not path.is_relative_to(Path.cwd()):
        return None
    path = path.relative_to(Path.cwd())
    return path if path.parts[0] in ("src", "include") else None


def lacking(path):
    form = re.search(r"_(avx2|avx512)\.", path.name)
    return form and not re.search(rf"\b{FLAGS[form.group(1)]}\b", Path("/proc/cpuinfo").read_text())


def read_lines(report):
    reached, path = defaultdict(dict), None
    for record in Path(report).read_text().splitlines():
        kind, _, value = record.partition(":")
        if kind == "SF":
            path = source(value)
        elif kind == "DA" and path:
            line, count = map(int, value.split(",")[:2])
            reached[path][line] = reached[path].get(line, 0) + count
    return reached


def read_functions(report):
    """Of each file the branches, [times true, times false] by place, and the last line of what begins on a line."""
    taken, ends = defaultdict(lambda: defaultdict(lambda: [0, 0])), defaultdict(dict)
    for function in json.loads(Path(report).read_text())["data"][0]["functions"]:
        paths = [source(name) for name in function["filenames"]]
        if paths[0]:
            first, _, last, *_ = function["regions"][0]
            ends[paths[0]][first] = max(last, ends[paths[0]].get(first, 0))
        for line, column, end, end_column, yes, no, file, *_ in function["branches"]:
            if path := paths[file]:
                way = taken[path][line, column, end_column if end == line else None]
                way[0] += yes
                way[1] += no
    return taken, ends


class Exceptions:
    """Lines `FILE [+N] | TEXT | WHY`: of the lines of FILE that read TEXT, N behind each, and a function that
    begins there, nothing is counted."""

    def __init__(self, path):
        self.entries = [re.fullmatch(r"(\S+)(?: \+(\d+))? \| (.+?) \| (.+)", line).groups()
                        for line in Path(path).read_text().splitlines() if not line.startswith("#")]
        self.used = set()

    def lines(self, path, text, ends):
        """The numbers of all excepted lines of the file, whose lines are `text`."""
        found = set()
        for entry in self.entries:
            file, more, wanted, _ = entry
            if file != str(path):
                continue
            for number, line in enumerate(text, 1):
                if line.strip() == wanted:
                    found.update(range(number, max(number + int(more or 0), ends.get(number, 0)) + 1))
                    self.used.add(entry)
        return found

    def unused(self, measured):
        return [entry for entry in self.entries if entry not in self.used and Path(entry[0]) in measured]


def main():
    lines = read_lines(sys.argv[1])
    branches, ends = read_functions(sys.argv[2])
    if not lines or not branches:
        raise SystemExit("nothing of src or include was counted")
    exceptions = Exceptions(sys.argv[3])
    least = [float(bound) for bound in sys.argv[4:6]]
    counts = {"lines": [0, 0], "branches": [0, 0]}
    measured = set()
    for path in sorted(lines):
        if lacking(path):
            print(f"unmeasured: {path} (this processor lacks it)")
            continue
        measured.add(path)
        text = path.read_text().splitlines()
        excepted = exceptions.lines(path, text, ends[path])
        for number, count in sorted(lines[path].items()):
            if number not in excepted:
                counts["lines"][0] += count > 0
                counts["lines"][1] += 1
                if count == 0:
                    print(f"{path}:{number}: not reached: {text[number - 1].strip()}")
        for (number, column, end), ways in sorted(branches[path].items(), key=lambda item: item[0][:2]):
            if number not in excepted:
                counts["branches"][0] += sum(way > 0 for way in ways)
                counts["branches"][1] += 2
                for way, value in zip(ways, ("true", "false")):
                    if way == 0 and lines[path].get(number):
                        condition = text[number - 1][column - 1:end and end - 1]
                        print(f"{path}:{number}: never {value}: {condition}")
    good = True
    for (what, (met, all_)), bound in zip(counts.items(), least):
        print(f"{what:8} {met} of {all_}: {100 * met / all_:.2f}% (at least {bound:g}%)")
        good = good and 100 * met >= bound * all_
    for file, _, wanted, _ in exceptions.unused(measured):
        print(f"an exception that stands for nothing: {file}: {wanted}")
        good = False
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())

"""What the tests reach, from gcovr's JSON: prints what is missed and the totals; the exit status is 1
below the thresholds.

usage: coverage_report.py COVERAGE.json MINIMUM_LINES MINIMUM_BRANCHES

A branch counts where the source branches: on a line with a condition. The compiler also draws an edge
for leaving each call by an exception, on lines that decide nothing; those say nothing about the tests.
Of a kernel form that this processor lacks nothing is counted: it is listed as unmeasured.
"""
import json
import re
import sys
from pathlib import Path

CONDITION = re.compile(r"\b(if|for|while|switch|case|default)\b|\?|&&|\|\|")
SPECIAL = re.compile(r"\bif\s+constexpr\b|^\s*//|^\s*template\s*<|&&\s*\w+[,)]|\w&&"
                     r"|_mm\d*_\w+\([^?]*\?")  # an immediate operand is a constant


def processor_has(form):
    flags = {"avx2": "avx2", "avx512": "avx512f"}[form]
    info = Path("/proc/cpuinfo")
    return info.is_file() and re.search(rf"\b{flags}\b", info.read_text()) is not None


def decides(line):
    return CONDITION.search(line) is not None and SPECIAL.search(line) is None


def ranges(numbers):
    return ", ".join(map(str, numbers))


def main():
    data = json.loads(Path(sys.argv[1]).read_text())
    least_lines, least_branches = float(sys.argv[2]), float(sys.argv[3])
    lines = met_lines = branches = met_branches = 0
    for entry in sorted(data["files"], key=lambda f: f["file"]):
        name = entry["file"]
        form = re.search(r"_(avx2|avx512)\.", name)
        if form and not processor_has(form.group(1)):
            print(f"unmeasured: {name} (this processor lacks it)")
            continue
        source = Path(name).read_text().splitlines()
        missed, partial = [], []
        for line in entry["lines"]:
            if line.get("gcovr/noncode") or line.get("gcovr/excluded"):
                continue
            number = line["line_number"]
            lines += 1
            met_lines += line["count"] > 0
            if line["count"] == 0:
                missed.append(number)
            if line["count"] == 0 or not decides(source[number - 1]):
                continue
            counted = [b for b in line["branches"] if not b["throw"]]
            hit = sum(b["count"] > 0 for b in counted)
            branches += len(counted)
            met_branches += hit
            if hit < len(counted):
                partial.append(f"{number} ({hit} of {len(counted)})")
        if missed:
            print(f"{name}: lines not reached: {ranges(missed)}")
        if partial:
            print(f"{name}: branches not taken: {ranges(partial)}")
    line_rate, branch_rate = 100 * met_lines / lines, 100 * met_branches / branches
    print(f"lines    {met_lines} of {lines}: {line_rate:.2f}% (at least {least_lines:g}%)")
    print(f"branches {met_branches} of {branches}: {branch_rate:.2f}% (at least {least_branches:g}%)")
    return 0 if line_rate >= least_lines and branch_rate >= least_branches else 1


if __name__ == "__main__":
    sys.exit(main())

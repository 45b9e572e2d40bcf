#!/usr/bin/env python3
"""Compares the speed of two builds of tools/system_speed that run in turns, and writes the section on Windows.

usage: bench_windows.py PAGE LINUX_PROGRAM WINE_COMMAND WINDOWS_PROGRAM
"""
import datetime
import re
import subprocess
import sys
import textwrap

BEGIN, END = "<!-- windows: written by ./dev bench windows -->\n", "<!-- end of windows -->\n"
ROUNDS = 3


def times(command):
    lines = subprocess.run(command, capture_output=True, text=True, check=True, stdin=subprocess.DEVNULL).stdout
    return {what: int(taken) for what, taken in (line.split("\t") for line in lines.splitlines() if "\t" in line)}


def best_of(commands):
    """The least times of each command's rounds, which take turns."""
    best = [{} for _ in commands]
    for _ in range(ROUNDS):
        for times_so_far, command in zip(best, commands):
            for what, taken in times(command).items():
                times_so_far[what] = min(taken, times_so_far.get(what, taken))
    return best


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as lines:
        text = lines.read()
    name = re.search(r"model name\s*: (.*)", text)
    flags = text.split()
    form = "avx512" if "avx512vl" in flags else "avx2" if "avx2" in flags else "portable"
    return f"{name.group(1) if name else 'an unnamed processor'}, kernels {form} on both sides"


def version(compiler):
    return subprocess.run([compiler, "-dumpfullversion"], capture_output=True, text=True, check=True).stdout.strip().removesuffix("-posix")


def section(linux, windows):
    said = (f"`./dev bench windows` wrote this. It runs one program, built for Linux and for 64-bit Windows, in turns. Wine "
            f"runs the machine code as it is, so this compares the code of the kernels. Where objects are small the rows "
            f"are the heap's, and that is Wine's; what Windows itself adds or saves is not measured. The best of {ROUNDS} "
            f"runs on {datetime.date.today()}: {processor()}; g++ {version('g++')}, for Windows MinGW g++ "
            f"{version('x86_64-w64-mingw32-g++-posix')}.")
    yield from textwrap.wrap(said, 118)
    yield ""
    yield "| case | Linux | Windows program under Wine | Windows / Linux |"
    yield "|---|---|---|---|"
    for what, taken in linux.items():
        yield f"| {what} | {taken / 1e6:.3g} ms | {windows[what] / 1e6:.3g} ms | {windows[what] / taken:.2f} |"


def main():
    text = "\n".join(section(*best_of([sys.argv[2:3], sys.argv[3:5]]))) + "\n"
    print(text, end="")
    with open(sys.argv[1], encoding="utf-8") as page:
        whole = page.read()
    before, _, rest = whole.partition(BEGIN)
    _, end, behind = rest.partition(END)
    if not end:
        sys.exit(f"{sys.argv[1]} has no section for this")
    with open(sys.argv[1], "w", encoding="utf-8") as page:
        page.write(before + BEGIN + text + END + behind)


if __name__ == "__main__":
    main()

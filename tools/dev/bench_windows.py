#!/usr/bin/env python3
"""Compares the speed of two builds of tools/system_speed that run in turns, and prints a table.

usage: bench_windows.py LINUX_PROGRAM WINE_COMMAND WINDOWS_PROGRAM
"""
import subprocess
import sys


def times(command):
    lines = subprocess.run(command, capture_output=True, text=True, check=True, stdin=subprocess.DEVNULL).stdout
    return {what: int(taken) for what, taken in (line.split("\t") for line in lines.splitlines() if "\t" in line)}


def main():
    commands = [sys.argv[1:2], sys.argv[2:4]]
    best = [{}, {}]
    for _ in range(3):
        for side, command in enumerate(commands):
            for what, taken in times(command).items():
                best[side][what] = min(taken, best[side].get(what, taken))
    print("| case | Linux | Windows program under Wine | Windows / Linux |\n|---|---|---|---|")
    for what, taken in best[0].items():
        print(f"| {what} | {taken / 1e6:.3g} ms | {best[1][what] / 1e6:.3g} ms | {best[1][what] / taken:.2f} |")


if __name__ == "__main__":
    main()

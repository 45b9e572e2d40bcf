"""count.py PROGRAM [--update]: the instructions of workload.cpp, a run of valgrind per family and kernel form, compared
with tools/instructions.txt, or written there. The table belongs to one compiler: with another nothing is compared."""
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

TABLE = Path("tools/instructions.txt")
TOLERANCE = 3  # per cent


def said(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    return done.stdout.strip()


def count(program, form, family):
    text = said("valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", "--toggle-collect=ZephWorkload",
                program, form, family)
    found = re.search(r"Collected : (\d+)", text)  # nothing where the form cannot run here
    return int(found[1]) if found else 0


def judge(family, wanted, found):
    if found == 0:
        print(f"{family}: not on this machine, not counted")
        return None
    change = 100 * (found - wanted) / wanted if wanted else 100
    if abs(change) > TOLERANCE:
        print(f"{family}: {found} instructions, {wanted} in the table ({change:+.1f} %)")
    return abs(change) <= TOLERANCE


def main():
    program = sys.argv[1]
    families = [(form, family) for form in ("portable", "avx2") for family in said(program, "--list", form).split()]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        counts = dict(zip(families, pool.map(lambda family: count(program, *family), families)))
    compiler = (f"# g++ {said('g++', '-dumpfullversion')}, {os.uname().machine}, "
                f"{said('valgrind', '--version').replace('-', ' ')}, {said('getconf', 'GNU_LIBC_VERSION')}")
    text = "# Instructions of tools/instructions/workload.cpp, by ./dev instructions --update.\n" + compiler + "\n"
    text += "".join(f"{form:<9} {family:<18} {number:12}\n" for (form, family), number in counts.items())
    old = TABLE.read_text()
    if "--update" in sys.argv:
        TABLE.write_text(text)
    elif old.splitlines()[1] != compiler:
        print(f"{text}another compiler than the table's ({old.splitlines()[1][2:]}): not compared")
    else:
        wanted = {tuple(line.split()[:2]): int(line.split()[2]) for line in old.splitlines()[2:]}
        verdicts = [judge(" ".join(of), wanted.get(of), number) for of, number in counts.items()]
        gone = sorted(wanted.keys() - counts.keys())
        for of in gone:
            print(" ".join(of) + ": in the table, not counted")
        bad = verdicts.count(False) + len(gone)
        if bad:
            print("If the change is meant: ./dev instructions --update, and say why in the commit.")
        print(f"{verdicts.count(True)} passed, {bad} failed")
        sys.exit(bad > 0)


if __name__ == "__main__":
    main()

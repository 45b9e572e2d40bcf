#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Cycles of the kernels on 64-bit ARM processors, by LLVM's models of them.

QEMU runs one call of a kernel instruction by instruction; what it ran, in that order, goes through llvm-mca, which
knows each instruction's latency and pipes, how wide the processor decodes, and which result waits for which. It
assumes that every branch is predicted and every line cached, so its tables are a model and no measurement.

    model.py PROGRAM [--kernel NAME]... [--page FILE | --check]
"""
import argparse
import datetime
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

QEMU = ["qemu-aarch64", "-cpu", "neoverse-n1"]
TRACED = ["-singlestep", "-d", "exec,nochain"]
OBJDUMP = "aarch64-linux-gnu-objdump"
# The processor's pipes by LLVM; four instructions decoded a cycle, as its maker states. LLVM has the Cortex-A76,
# of which the Neoverse N1 is the server's version, by the pipes of the Cortex-A57.
MODELS = {
    "N1": ["-mcpu=neoverse-n1", "-micro-op-queue-size=32", "-decoder-throughput=4"],
    "A57": ["-mcpu=cortex-a76"],
}
FORMS = ["textbook", "portable", "neon"]
SORTS = {"sort of doubles", "sort of ints"}
LEAD = 1.8
PRODUCT = "dense product"
PRODUCTS = 40**3
PRODUCT_LIMIT = 1.1 * PRODUCTS / 2  # two lanes, two pipes, a multiplication and an addition


def disassemble(program):
    """Each address's instruction, such that llvm-mca reads it, and the addresses of the two marks."""
    code, marks = {}, {}
    listing = subprocess.run([OBJDUMP, "-d", "--no-show-raw-insn", program], check=True, text=True,
                             stdout=subprocess.PIPE).stdout
    for line in listing.splitlines():
        function = re.match(r"([0-9a-f]+) <(\w+)>:", line)
        if function:
            marks[function[2]] = int(function[1], 16)
        instruction = re.match(r" *([0-9a-f]+):\t(.*)", line)
        if instruction:
            code[int(instruction[1], 16)] = readable(instruction[2])
    return code, marks["ZephBegin"], marks["ZephEnd"]


def readable(text):
    """Without comments and places in the program; calls and returns as the branches they are to the pipes."""
    text = re.sub(r"\s*//.*", "", text)
    text = re.sub(r"\s*<[^>]*>", "", text)
    name, _, operands = text.partition("\t")
    if name == "ret":
        return "br x30"
    if name == "blr":
        return "br " + operands
    if name in ("b", "bl"):
        return "b #8"
    if name.startswith("b."):
        return name + " #8"
    if name in ("cbz", "cbnz", "tbz", "tbnz"):
        return name + " " + operands.rpartition(",")[0] + ", #8"
    if name in ("adr", "adrp") or (name == "ldr" and re.search(r", [0-9a-f]+$", operands)):
        return name + " " + operands.rpartition(",")[0] + ", #0"
    return name + " " + operands


def trace(program, disassembly, form, kernel):
    """The instructions from one mark to the other, in the order in which they ran."""
    code, begin, end = disassembly
    process = subprocess.Popen([*QEMU, *TRACED, program, form, kernel], text=True, stderr=subprocess.PIPE)
    ran, inside = [], False
    for line in process.stderr:
        at = re.match(r"Trace \d+: \S+ \[[0-9a-f]+/([0-9a-f]+)/", line)
        if not at:
            continue
        address = int(at[1], 16)
        if address == begin:
            inside = True
        elif address == end:
            inside = False
        elif inside:
            ran.append(code[address])
    if process.wait() != 0 or not ran:
        sys.exit(f"{kernel} ({form}): {program} has failed")
    return ran


def cycles(model, instructions):
    """How long the model takes for them, once."""
    command = ["llvm-mca-19", "-mtriple=aarch64-linux-gnu", *MODELS[model], "-iterations=1",
               "-instruction-info=0", "-resource-pressure=0"]
    result = subprocess.run(command, input="\n".join(instructions), text=True, stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE)
    found = re.search(r"Total Cycles: +(\d+)", result.stdout)
    if not found:
        sys.exit(" ".join(command) + ":\n" + result.stderr[:2000])
    return int(found[1])


def measure(program, disassembly, kernel, form, models):
    """Instructions, then cycles by each of the models."""
    ran = trace(program, disassembly, form, kernel)
    return [len(ran), *(cycles(model, ran) for model in models)]


def check(kernel, results):
    """What is wrong with the NEON form of a kernel, by the N1's cycles."""
    portable, neon = results["portable"][1], results["neon"][1]
    if neon > 1.01 * portable:  # where both do the same, a cycle more or less at the ends
        yield f"{kernel}: {neon} cycles, the portable form {portable}"
    if kernel in SORTS and portable < LEAD * neon:
        yield f"{kernel}: {neon} cycles, less than {LEAD} times faster than the portable form's {portable}"
    if kernel == PRODUCT and results["textbook"][1] < LEAD * neon:
        yield f"{kernel}: {neon} cycles, less than {LEAD} times faster than the textbook's {results['textbook'][1]}"
    if kernel == PRODUCT and neon > PRODUCT_LIMIT:
        yield f"{kernel}: {neon} cycles, not within 10 % of what two pipes allow"


def page(table, versions):
    """The table as a page of the documentation."""
    yield "# On 64-bit ARM"
    yield ""
    yield "Written by `./dev arm`. **A model, and no measurement**: no such processor was at hand. What QEMU ran,"
    yield "instruction by instruction, went through llvm-mca, which knows each instruction's latency and pipes, and"
    yield "which result waits for which. It assumes every branch predicted, which flatters the textbook's and the"
    yield "portable sort, and every line cached."
    yield ""
    yield "N1 is Arm's Neoverse N1, with the four instructions a cycle that its maker states; the Cortex-A76 has the"
    yield "same core. LLVM has no pipes of its own for the A76 and takes those of the Cortex-A57, an older and narrower"
    yield "core that computes a vector of 128 bits in two halves: the last column."
    yield ""
    yield "The textbook's loops are by clang++ -O3, the two forms by g++, none with fused arithmetic, which gives"
    yield "other results. 1000 elements, matrices of 40 x 40, 200 objects."
    yield ""
    yield f"On {datetime.date.today()}: {versions}."
    yield ""
    yield ("| | instructions, portable | NEON | N1 cycles, textbook | portable | NEON | textbook / NEON |"
           " portable / NEON | the same, A57 |")
    yield "|---|---|---|---|---|---|---|---|---|"
    for kernel, results in table.items():
        textbook, portable, neon = (results[form] for form in FORMS)
        yield (f"| {kernel} | {portable[0]} | {neon[0]} | {textbook[1]} | {portable[1]} | {neon[1]} |"
               f" {textbook[1] / neon[1]:.1f} | {portable[1] / neon[1]:.2f} | {portable[2] / neon[2]:.2f} |")
    yield ""
    yield "What it says:"
    yield ""
    product = table[PRODUCT]["neon"][1] / PRODUCTS
    yield (f"- The dense product takes {product:.2f} cycles for a multiplication and an addition. Rounded separately, as")
    yield "  they have to be, two lanes on two pipes allow 0.50: no code can be a tenth faster. The portable form, of"
    yield "  which g++ makes vectors, is not far behind."
    yield "- The textbook's partition and sort would need every branch guessed right, of which random data has about one"
    yield "  in four guessed wrong; the forms of ours hardly branch on the data."
    yield "- A column of doubles holds two in a register: what loads, stores or divides gains little."
    yield "- On the N1 no kernel takes longer than in the portable form. On the A57's halved pipes some do."


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("program")
    arguments.add_argument("--kernel", action="append", help="this one only; may be given several times")
    arguments.add_argument("--page", help="write the page of the documentation, which has every kernel")
    arguments.add_argument("--check", action="store_true", help="judge, by what that takes")
    given = arguments.parse_args()
    disassembly = disassemble(given.program)
    kernels = given.kernel or subprocess.run(
        [*QEMU, given.program, "--list"], check=True, text=True, stdout=subprocess.PIPE).stdout.splitlines()
    models = ["N1"] if given.check else list(MODELS)
    jobs = [(kernel, form) for kernel in kernels for form in FORMS
            if not given.check or form != "textbook" or kernel == PRODUCT]
    table = {}
    with ThreadPoolExecutor(2) as pool:
        results = pool.map(lambda job: measure(given.program, disassembly, *job, models), jobs)
        for (kernel, form), result in zip(jobs, results):
            table.setdefault(kernel, {})[form] = result
            print(f"{kernel:34} {form:9}", *(f"{x:9}" for x in result), flush=True)
    if given.page:
        tools = ["g++ " + first_line("aarch64-linux-gnu-g++", "-dumpfullversion"), first_line("clang++", "--version"),
                 first_line("qemu-aarch64", "--version"), "LLVM 19's models"]
        with open(given.page, "w", encoding="utf-8") as file:
            file.write("\n".join(page(table, ", ".join(tools))) + "\n")
    if given.check:
        wrong = [(kernel, list(check(kernel, table[kernel]))) for kernel in kernels]
        for _, lines in wrong:
            print(*("failed: " + line for line in lines), sep="\n", end="\n" if lines else "")
        bad = sum(bool(lines) for _, lines in wrong)
        print(f"{len(kernels) - bad} passed, {bad} failed")
        sys.exit(bad > 0)


def first_line(*command):
    """What a tool says of its version."""
    text = subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE).stdout
    return text.splitlines()[0].partition(" (")[0].replace("version ", "")


if __name__ == "__main__":
    main()

"""Finds aligned 32- and 64-byte moves to or from the stack in a disassembly on the standard input.

A stack that is aligned to 16 bytes only (64-bit Windows) makes such a move stop the program half of the
time. Prints the functions and moves; status 1 where there are any, 2 where no wide register is seen at all.
"""
import re
import sys

# vmovaps, vmovapd, vmovdqa, vmovdqa32, vmovdqa64, vmovntps ...: those that insist on alignment.
ALIGNED = re.compile(r"\bv?mov(ap[sd]|dqa(32|64)?|nt(p[sd]|dqa?))\b")
WIDE = re.compile(r"%[yz]mm")
STACK = re.compile(r"\((%rsp|%rbp|%esp|%ebp)")


def main():
    function, wide, found = "?", 0, 0
    for line in sys.stdin:
        head = re.match(r"[0-9a-f]+ <(.*)>:", line)
        if head:
            function = head.group(1)
        if not WIDE.search(line):
            continue
        wide += 1
        if ALIGNED.search(line) and STACK.search(line):
            found += 1
            print(f"{function}: {line.strip()}")
    print(f"{wide} instructions on wide registers, {found} aligned moves on the stack")
    return 1 if found else 0 if wide else 2


sys.exit(main())

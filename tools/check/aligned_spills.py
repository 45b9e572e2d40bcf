"""Finds aligned 32- and 64-byte moves to or from the stack in a disassembly on the standard input.

A stack that is aligned to 16 bytes only (64-bit Windows) makes such a move stop the program half of the
time, unless the function has aligned the stack pointer itself, as clang++'s do. Prints the functions and moves;
status 1 where there are any, 2 where no wide register is seen at all.
"""
import re
import sys

# vmovaps, vmovapd, vmovdqa, vmovdqa32, vmovdqa64, vmovntps ...: those that require alignment.
ALIGNED = re.compile(r"\bv?mov(ap[sd]|dqa(32|64)?|nt(p[sd]|dqa?))\b")
WIDE = re.compile(r"%([yz])mm")
STACK = re.compile(r"\(%([re])(sp|bp)")
REALIGNMENT = re.compile(r"\band[lq]? +\$0x([0-9a-f]+),%[re]sp")
FRAME = re.compile(r"\b(mov +%[re]sp|lea +[-x0-9a-f]*\(%[re]sp\)),%[re]bp")


def functions(lines):
    """Each function's name and lines."""
    name, body = "?", []
    for line in lines:
        head = re.match(r"[0-9a-f]+ <(.*)>:", line)
        if head:
            yield name, body
            name, body = head.group(1), []
        body.append(line)
    yield name, body


def alignment(body):
    """The alignment of the function's stack pointer; 16 if it does not align it itself."""
    masks = [int(match.group(1), 16) for match in map(REALIGNMENT.search, body) if match]
    return max((mask & -mask for mask in masks), default=16)


def main():
    wide, found = 0, 0
    for name, body in functions(sys.stdin):
        aligned_to = alignment(body)
        has_frame = any(map(FRAME.search, body))  # else the frame pointer is one register more
        for line in body:
            register = WIDE.search(line)
            if not register:
                continue
            wide += 1
            place = STACK.search(line)
            if not place or not ALIGNED.search(line):
                continue
            width = 32 if register.group(1) == "y" else 64
            if place.group(2) == "sp" and aligned_to < width or place.group(2) == "bp" and has_frame:
                found += 1
                print(f"{name}: {line.strip()}")
    print(f"{wide} instructions on wide registers, {found} aligned moves on the stack")
    return 1 if found else 0 if wide else 2


sys.exit(main())

# Run inside gdb on a program that has stopped: each line of views.txt is what gdb shows of that variable.
import re

import gdb

bad = 0
for line in open("tests/debugger/views.txt", encoding="utf-8").read().splitlines():
    name, _, wanted = line.partition(" =")
    shown = re.sub("0x[0-9a-f]+", "ADDRESS", gdb.execute("output " + name, to_string=True))
    if shown != wanted:
        bad += 1
        print(f"{name}: wanted {wanted}\n{' ' * len(name)}  shown  {shown}")
gdb.execute(f"quit {bad}")

#!/usr/bin/env python3
"""Puts a summary of its own tables on top of docs/performance.md, with the words that they use.

usage: summary.py docs/performance.md   (./dev bench runs it)
"""
import re
import statistics
import subprocess
import sys

BEGIN, END = "<!-- summary: written by tools/bench/summary.py -->\n", "<!-- end of the summary -->\n"
# Yardsticks of our own, which are measured besides the libraries and are no alternatives for users.
YARDSTICKS = {
    "the walk": "the documented steps one by one, as the interface describes them",
    "the loop": "the plain loop that a program would write, -O3",
    "literal loop": "the documented loop, operation by operation, -O3",
    "textbook loop": "the same, as a textbook has it, -O3 (or -O2 where it says so)",
    "fprintf per item": "a call of `fprintf` for each number",
    "copy, add, copy": "the operator's documented copies, each made",
    "scalar library": "the same classes as scalar code in a shared library",
    "plain library": "the same source, vectorised as the compiler likes",
    "with every check": "our own call in a build with `ZEPH_HARDENED`",
    "ours, random order": "our own call on random numbers of the same count: what other data may cost twice of",
    "moves alone": "the same objects read and written with nothing computed",
    "one thread": "our own call on the caller's thread alone",
    "latency limit": "the chain of additions that the result demands: no code can be faster",
    "limit": "the least that the documented behaviour demands of any library: objects made and destroyed by calls, "
             "sizes compared and copies returned where documented",
}
PACKAGES = {"Boost": "libboost-dev", "Highway": "libhwy-dev", "Eigen": "libeigen3-dev", "OpenBLAS": "libopenblas-dev",
            "GLM": "libglm-dev", "g++ and its standard library": "g++-12", "glibc": "libc6"}


CALL = "a call into another module, the result through memory"
BLOCK = "constructor, operator and destructor are calls; the block comes from the operators `new[]` and `delete[]`, " \
        "which a program may replace"
# For each case on small objects, the cost that the documented behaviour demands and that a template in the caller's
# code avoids.
PRESCRIBED = {
    "array made": BLOCK,
    "array c = a + b": BLOCK + "; sizes are compared",
    "array a += b": "a call; sizes are compared; operands that overlap with an offset are added in order",
    "vector c = a + b": BLOCK + "; sizes are compared",
    "vector a = b": "assignment returns a copy: a block and its release each time",
    "MaxNorm": "a call; a NaN in front stays, any other is skipped",
    "OneNorm": "a call; the elements are added in order",
    "dot product": "a call; the products are added in order",
    "matrix c = a * b": "a block for each row and one for the table; each element is summed in order",
    "matrix r = a * b": "the blocks of the product, and those of the copy that assignment returns",
    "matrix r = a": "assignment returns a copy: a block for each row and one for the table, and their release",
    "double 4x4 c = a * b": CALL + "; objects are counted when they are made and destroyed",
    "double 4x4 copied": "a call; objects are counted when they are made and destroyed",
    "double 3-vector c = a + b * s": "two operators that are calls, each with a result; three objects are counted",
    "float 4x4 c = a * b": CALL + " with a pointer to a virtual table; the bottom rows choose the path",
    "float 4x4 times vector": CALL + "; the vector is passed by value, with its virtual table; the bottom row chooses "
                              "the path",
    "float 3-vector cross": CALL + ", with a pointer to a virtual table",
    "float 3-vector dot": "a call",
    "float 3-vector normalised": CALL + ", with a pointer to a virtual table; lengths of 0 and 1 are left alone",
    "stack push and pop": "two calls; a node is made and released for each pair, where `std::stack` keeps a block",
}


def is_yardstick(peer):
    return peer in YARDSTICKS or peer.startswith("textbook loop")


def read(page):
    """(family, case, n) -> [(peer, ratio)] of the page's tables."""
    rows, family = {}, None
    for line in page.splitlines():
        if line.startswith("## "):
            family = line[3:]
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if line.startswith("|") and len(cells) == 8:
            ratio = re.fullmatch(r"\*\*([\d.]+)\*\*|_([\d.]+)_", cells[6])
            if ratio:
                rows.setdefault((family, cells[0], cells[1]), []).append((cells[4], float(ratio[1] or ratio[2])))
    return rows


def shown(ratio):
    return f"{ratio:.2f}" if ratio < 10 else f"{ratio:.0f}"


def table(rows):
    families = {}
    for (family, case, n), peers in rows.items():
        named = [(ratio, peer) for peer, ratio in peers if not is_yardstick(peer)]
        if named:
            families.setdefault(family, []).append((*min(named), case, n))
    yield "| family | rows | behind a library in | median | worst row |"
    yield "|---|---|---|---|---|"
    total = behind = 0
    for family, found in families.items():
        lost = [row for row in found if row[0] < 1]
        ratio, peer, case, n = min(found)
        total, behind = total + len(found), behind + len(lost)
        yield (f"| {family} | {len(found)} | {len(lost) or 'none'} | "
               f"{shown(statistics.median(row[0] for row in found))} | {shown(ratio)}: {case}, {n} ({peer}) |")
    yield ""
    yield (f"Of {total} rows that a library competes in, {total - behind} are ours and {behind} go to the fastest of "
           "the libraries. The other rows have yardsticks only.")


def model(rows):
    """What more cores would give, from the rows of the family "two cores"."""
    pairs = [(case, n, dict(peers)["one thread"]) for (family, case, n), peers in rows.items()
             if family == "two cores" and "one thread" in dict(peers)]
    if not pairs:
        return
    yield "## More cores: a model"
    yield ""
    yield ("More than two cores were not at hand. Amdahl's law, with the share of the work that two cores show not to be "
           "shared, gives this; it is no measurement. The memory that cores have in common may set lower limits; rows "
           "that two cores do in less than half the time gain by the second core's cache.")
    yield ""
    yield "| case | n | two cores, measured | not shared | 8 cores, modelled | 64 cores, modelled |"
    yield "|---|---|---|---|---|---|"
    for case, n, gain in pairs:
        alone = min(1.0, max(0.0, 2 / gain - 1))
        cores = [1 / (alone + (1 - alone) / count) for count in (8, 64)]
        yield f"| {case} | {n} | {gain:.2f} | {100 * alone:.0f} % | {cores[0]:.1f} | {cores[1]:.1f} |"
    yield ""


def span(values):
    low, high = shown(min(values)), shown(max(values))
    return low if low == high else f"{low} to {high}"


def prescribed(rows):
    """Where a library is faster with small objects: how it compares with the limit, and what it does without."""
    behind = {}
    for (family, case, n), peers in rows.items():
        found = dict(peers)
        library, ratio = next(((peer, ratio) for peer, ratio in peers if not is_yardstick(peer)), ("", 1))
        if family == "small objects" and ratio < 1:
            behind.setdefault((case, library), []).append((n, ratio, ratio / found["limit"], found["limit"]))
    if not behind:
        return
    yield "## Small objects: what is prescribed"
    yield ""
    yield ("The rows in which a library that the compiler inlines is faster. Its time over ours, its time over the limit's "
           "(below 1 no library behind this interface could keep up), and the limit's time over ours, which is to be at "
           "least 0.77. The last column names what the documented behaviour demands beside the arithmetic.")
    yield ""
    yield "| case | n | peer | peer / ours | peer / limit | limit / ours | prescribed |"
    yield "|---|---|---|---|---|---|---|"
    for (case, library), found in behind.items():
        sizes, ours, limits, own = zip(*found)
        yield (f"| {case} | {', '.join(sizes)} | {library} | {span(ours)} | {span(limits)} | {span(own)} | "
               f"{PRESCRIBED[case]} |")
    yield ""


def versions():
    for name, package in PACKAGES.items():
        asked = subprocess.run(["dpkg-query", "-W", "-f=${Version}", package], capture_output=True, text=True)
        if asked.returncode == 0 and asked.stdout:
            yield f"{name} {asked.stdout}"


def summary(page):
    yield "## Summary"
    yield ""
    yield "The fastest library of each row, its time over ours: above 1 we are faster."
    yield ""
    yield from table(read(page))
    yield ""
    yield from prescribed(read(page))
    yield from model(read(page))
    yield "## Words"
    yield ""
    yield ("A row is one piece of work on `n` elements (matrices: `n` by `n`; small objects: an array of `n` of them; "
           "searches: all keys of one round), and its time is that of the whole piece; the column beside it has the time "
           "of one item. `target` is "
           "the ratio that we want at least; a row below it is marked as missed. Peers that are libraries are compiled "
           "into the program with its flags, `-O3` for the compiler's default processor; \"native\" ones with "
           "`-march=native` and fused instructions, OpenBLAS as Debian builds it, on one thread. Versions: "
           + "; ".join(versions()) + ".")
    yield ""
    yield "The other peers are yardsticks:"
    yield ""
    for name, meaning in YARDSTICKS.items():
        yield f"- **{name}**: {meaning}."


def main(path):
    with open(path, encoding="utf-8") as file:
        page = file.read()
    if BEGIN in page:
        page = page[:page.index(BEGIN)] + page[page.index(END) + len(END) + 1:]
    head, rest = page.split("<!-- by hand", 1)
    text = "\n".join(summary(page)) + "\n"
    with open(path, "w", encoding="utf-8") as file:
        file.write(head + BEGIN + text + END + "\n<!-- by hand" + rest)


if __name__ == "__main__":
    if len(sys.argv) != 2 or sys.argv[1].startswith("-"):
        sys.exit(__doc__)
    main(sys.argv[1])

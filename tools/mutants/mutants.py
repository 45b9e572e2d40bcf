"""Mutation testing of include/ and src/: see README.md beside this file. Run from the top of the tree, by
./dev mutants."""
import argparse
import glob
import hashlib
import json
import os
import pickle
import random
import re
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import build
import run
import sites
import survivors
from build import say

DATA = Path("docs/data/mutants.json")  # figures of the last run that was recorded
READ = build.WORK / "sites"  # what was found in the same sources before, and what the compiler refused
SPARE = 1.25
RESULTS = build.WORK / "results.tsv"

# The first pattern that a path matches names its topic.
TOPICS = [
    ("inline code of public headers", r"^include/"),
    ("kernels for AVX2 and AVX-512", r"kernels/.*(avx|\.inc$)"),
    ("partitions and the fast sort", r"double_array/partition|kernels/sort"),
    ("sorts", r"sort|algorithms/permutation|containers/linked_list"),
    ("searches and merges", r"search|merg|least_finder"),
    ("inverses", r"inverse"),
    ("products", r"product|rotation|matrix_transforms|transpose|fixed_geometry|matrix4"),
    ("norms and arithmetic", r"norm|arithmetic|elementwise|row_sums|largest|hypotenuse|measures|overlap|columns"),
    ("allocation", r"alloc|storage|resize|row_table|kept_results|thread_data|array_realloc|offset|refusal|"
                   r"platform/(arrays|coblist)|pointer_stack|growth_arrays|rows\.h"),
    ("text", r"text|format|display|report|notation|block_writer|cell_writer|cstring|power_of_ten"),
    ("vectors and builders", r"graphics|vector3"),
    ("the rest", r""),
]


def topic(path):
    return next(name for name, pattern in TOPICS if re.search(pattern, path))


def find_sites():
    """Headers, and sources of this system and processor."""
    wanted = sorted(f for folder in build.rewrite.MUTATED for f in glob.glob(f"{folder}/**/*", recursive=True)
                    if f.endswith((".cpp", ".h", ".inc")) and not re.search(r"neon|windows|_other\.", f))
    key = hashlib.sha256(b"".join(Path(f).read_bytes() for f in [*wanted, sites.__file__, sites.intrinsics.__file__]))
    kept = READ.parent / f"{READ.name}.{key.hexdigest()[:16]}"
    if not kept.exists():
        finder = sites.Finder(wanted)
        for path in wanted:
            if path.endswith(".cpp"):
                finder.add_unit(path)
        found = sorted(finder.sites.values(), key=lambda s: (s.path, s.start, -s.end, s.rank))
        for old in build.WORK.glob(READ.name + ".*"):
            old.unlink()
        kept.write_bytes(pickle.dumps((finder.texts, found)))
    return *pickle.loads(kept.read_bytes()), kept.with_suffix(kept.suffix + ".refused")


def choose(found, count, seed):
    """(site, form): about `count`, of each topic at least a share; in a random order."""
    by_topic = {}
    for site in found:
        by_topic.setdefault(topic(site.path), []).extend((site, k) for k in range(len(site.forms)))
    total = sum(map(len, by_topic.values()))
    source = random.Random(seed)
    chosen = []
    for name in sorted(by_topic):
        every = by_topic[name]
        least = int(count / (2 * len(by_topic)))
        share = round(count * len(every) / total)
        chosen += source.sample(every, min(len(every), max(share, least)))
    source.shuffle(chosen)
    return chosen


def describe(texts, site, form):
    """File, line, column, the line's text, what is mutated, how."""
    text = texts[site.path]
    column = site.start - (text.rfind(b"\n", 0, site.start) + 1)
    old = re.sub(r"\s+", " ", text[site.start:site.end].decode())
    return (site.path, str(site.line), str(column), text.decode().splitlines()[site.line - 1].strip(), old,
            site.forms[form][0])


def identity(row):
    """Identifies a mutant of the last run, even if lines have moved."""
    return (row[3], *row[5:])


def alive(row):
    return row[0] in ("survived", "unreached")


def is_explained(row, known):
    return alive(row) and (row[3], *row[6:]) in known


def last_rows():
    return [tuple(line.split("\t")) for line in RESULTS.read_text().splitlines()]


def what_tests_reach(found, tests, quick):
    """The programs with their tests, and the sites without those that run only while compiling."""
    say("mutants: running the tests without a mutant, recording what each reaches")
    forms = [] if quick else {form for site in found for form in run.forms_of(site.path)}
    programs = run.record_reach(forms, tests)
    running = [s for s in found if not s.constant or run.is_reached(programs, s)]
    say(f"mutants: {sum(len(p.tests) for p in programs)} tests; of constexpr functions that run only while compiling "
        f"{sum(len(s.forms) for s in found) - sum(len(s.forms) for s in running)} mutants are left out")
    return programs, running


def run_all(texts, programs, chosen, workers, minutes, trusted):
    """`trusted` are taken for survivors without a run."""
    say(f"mutants: {len(chosen)} mutants")
    start, rows = time.time(), []

    def one(mutant):
        if minutes and time.time() - start > 60 * minutes:
            return None
        site, form = mutant
        said = (topic(site.path), *describe(texts, site, form))
        trust = is_explained(("survived", "", *said), trusted)
        row = (*(("survived", "") if trust else run.judge(programs, site, form)), *said)
        rows.append(row)
        if alive(row) and not trust:
            say(f"  {row[0]}: {site.path}:{site.line}: {row[7]}  ({row[8]})")
        if len(rows) % 50 == 0:
            dead = sum(not alive(r) for r in rows)
            say(f"  {len(rows)} of {len(chosen)}, {dead} killed, {time.time() - start:.0f} s")
        return row

    with ThreadPoolExecutor(workers) as pool:
        done = [row for row in pool.map(one, chosen) if row]
    say(f"mutants: {len(done)} in {time.time() - start:.0f} s; all of them: {RESULTS}")
    return done


def folder(path):
    """src/kernels of src/kernels/x.cpp, include of include/x.h."""
    parts = Path(path).parts
    return "/".join(parts[:2]) if parts[0] == "src" else parts[0]


def figures_of(name, rows, known):
    return {"topic": name, "mutants": len(rows), "killed": sum(not alive(r) for r in rows),
            "by time": sum(r[0] == "timeout" for r in rows),
            "explained": sum(is_explained(r, known) for r in rows)}


def figures(rows, known):
    """A dictionary for each topic, and one for all."""
    of = {name: [r for r in rows if r[2] == name] for name, _ in TOPICS}
    return [figures_of(name, of[name], known) for name in of if of[name]] + [figures_of("all", rows, known)]


def figures_by_folder(rows, known):
    return [figures_of(name, [r for r in rows if folder(r[3]) == name], known)
            for name in sorted({folder(r[3]) for r in rows})]


def report(rows):
    """The figures, and the survivors without a reason in the form that takes one."""
    reasons = survivors.read()
    known = {survivor[:4] for survivor in reasons}
    made = figures(rows, known)
    by_folder = figures_by_folder(rows, known)
    for of in by_folder + made:
        say(f"{of['topic']}: {of['mutants']} mutants, {of['killed']} killed, {of['by time']} of them by time, "
            f"{of['mutants'] - of['killed']} survive, {of['explained']} of them explained")
    for row in rows:
        if alive(row) and not is_explained(row, known):
            say(f"\n{row[0]}, not explained in {survivors.FILE}; {row[3]}:{row[4]}\n" +
                survivors.entry(row[3], *row[6:], "?").rstrip())
    for row in rows:
        if not alive(row) and (row[3], *row[6:]) in known:
            say(f"{survivors.FILE} explains what a test of {row[1]} notices; {row[3]}:{row[4]}: {row[7]} ({row[8]})")
    for old in survivors.out_of_date(reasons):
        say(f"{survivors.FILE} explains a line that stands in {old.path} no more: {old.line}")
    return made, by_folder


def record(made, by_folder, seconds, again):
    """Into DATA, for the table of docs/mutants.md; survivors that ran again belong to the run before."""
    def said(*command):
        return subprocess.run(command, stdout=subprocess.PIPE, text=True).stdout.strip()

    model = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text())
    command = " ".join(["./dev mutants", *sys.argv[1:]])
    if again:
        before = json.loads(DATA.read_text())
        command = f"{before['command']}`, then `{command}"
        seconds += before["seconds"]
    DATA.write_text(json.dumps({
        "date": time.strftime("%Y-%m-%d", time.gmtime()),
        "commit": said("git", "describe", "--always", "--dirty=+", "--exclude=*"),
        "machine": f"{os.cpu_count()} processors, {model[1] if model else 'model unknown'}, " +
                   said("g++", "--version").split("\n")[0],
        "command": command, "seconds": round(seconds), "topics": made,
        "folders": by_folder}, indent=1, ensure_ascii=False) + "\n")


def main():
    parse = argparse.ArgumentParser(prog="./dev mutants")
    parse.add_argument("--sample", type=int, default=1000, help="how many mutants; 0: every one")
    parse.add_argument("--seed", type=int, default=1)
    parse.add_argument("--jobs", type=int, default=1)
    parse.add_argument("--minutes", type=float, default=0, help="stop after so many; 0: never")
    parse.add_argument("--files", default="", help="only paths that match this pattern")
    parse.add_argument("--kinds", default="", help="only mistakes of the kinds that match this pattern")
    parse.add_argument("--quick", action="store_true",
                       help="only tests/kernels, which does it by itself, runs wide kernels: for a first pass")
    parse.add_argument("--tests", default="", help="only tests of folders that match this pattern")
    parse.add_argument("--survivors", action="store_true", help="only those that survived the last run")
    parse.add_argument("--more", action="store_true", help="adds what it finds to what the last run found")
    parse.add_argument("--trust", action="store_true",
                       help=f"takes what {survivors.FILE} explains for survivors, without a run")
    parse.add_argument("--least", type=float, default=90, help="fails where fewer percent are killed of those not explained")
    given = parse.parse_args()

    build.WORK.mkdir(parents=True, exist_ok=True)
    say("mutants: reading include/ and src/")
    texts, everything, memory = find_sites()
    found = [s for s in everything if re.search(given.files, s.path) and re.search(given.kinds, s.kind)]
    count = sum(len(s.forms) for s in found)
    if given.survivors:
        again = {identity(r) for r in last_rows() if alive(r)}
        chosen = [(s, k) for s in found for k in range(len(s.forms))
                  if identity(("", "", "", *describe(texts, s, k))) in again]
    else:  # more than wanted: some do not compile
        chosen = choose(found, min(SPARE * given.sample, count) if given.sample else count, given.seed)
    wanted = {id(s) for s, _ in chosen}
    say(f"mutants: {count} found, {len(chosen)} drawn; building the library and the tests with them")
    programs, running = what_tests_reach(
        build.build(texts, [s for s in found if id(s) in wanted], given.tests, os.cpu_count(), memory),
        given.tests, given.quick)
    left = {id(s) for s in running}
    chosen = [(s, k) for s, k in chosen if id(s) in left]
    if given.sample and not given.survivors:
        chosen = chosen[:given.sample]
    start = time.time()
    trusted = {survivor[:4] for survivor in survivors.read()} if given.trust else set()
    rows = run_all(texts, programs, chosen, given.jobs, given.minutes, trusted)
    if given.survivors or given.more:
        still = {identity(("", "", "", *describe(texts, s, k))) for s in everything for k in range(len(s.forms))}
        still -= {identity(r) for r in rows}
        rows = [r for r in last_rows() if identity(r) in still] + rows
    RESULTS.write_text("".join("\t".join(row) + "\n" for row in rows))
    made, by_folder = report(rows)
    if os.environ.get("ZEPH_RECORD"):
        record(made, by_folder, time.time() - start, given.survivors or given.more)
    every = made[-1]
    rate = 100 * every["killed"] / max(every["mutants"] - every["explained"], 1)
    say(f"{len(rows)} mutants, {rate:.1f} % killed of those that {survivors.FILE} does not explain")
    sys.exit(0 if rate >= given.least else 1)


if __name__ == "__main__":
    main()

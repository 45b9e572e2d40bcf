"""Puts the tables between the marks of the pages, from docs/data. --check: says whether they are those already.

Our own: a generator of sites would want the pages in a language of its own, and they are read as they are."""
import json
import re
import sys
from itertools import groupby
from pathlib import Path

sys.path.insert(0, "tools/mutants")
import survivors  # noqa: E402: it stands beside what writes it


def read(name):
    path = Path("docs/data") / (name + ".json")
    return json.loads(path.read_text()) if path.exists() else {}


def cell(value):
    return f"{value:,}" if isinstance(value, int) else str(value)


def table(head, align, rows):
    if not rows:
        return "Not recorded since the tables are made from data: `ZEPH_RECORD=1`, then `tools/docs/figures.py`."
    lines = ["| " + " | ".join(head) + " |", "|" + "|".join(align) + "|"]
    return "\n".join(lines + ["| " + " | ".join(map(cell, row)) + " |" for row in rows])


def steps():
    order = [line.split()[0] for line in Path("tools/check/steps.txt").read_text().splitlines()
             if line and not line.startswith("#")]
    said = read("check")
    rows = [(f"`{s}`", said[s]["outcome"], said[s].get("passed", ""), said[s].get("failed", ""), said[s]["seconds"],
             said[s]["date"], said[s]["commit"]) for s in order + sorted(set(said) - set(order)) if s in said]
    return table(["step", "outcome", "passed", "failed", "seconds", "date", "commit"],
                 ["---", "---", "---:", "---:", "---:", "---", "---"], rows)


def fuzz():
    found = sorted(read("fuzz").items())
    if not found:
        return table([], [], [])
    rows = [(name, int(f["executions"]), int(f["seconds"]), f["coverage"], f["outcome"], f["since"], f["date"], f["commit"])
            for name, f in found]
    rows.append(("all", *(sum(row[k] for row in rows) for k in (1, 2)), "", "", "", "", ""))
    return table(["target", "executions", "seconds of a core", "coverage (libFuzzer's `cov`)", "last outcome", "since",
                  "last", "commit"], ["---", "---:", "---:", "---:"] + ["---"] * 4, rows)


def coverage():
    """What of the source each of two runs reaches."""
    found = read("coverage")
    rows = []
    for name, title in (("suite", "the sampled suite"), ("fuzz", "the saved inputs of the fuzz targets alone")):
        if of := {key: int(found[name][key]) for key in ("lines", "lines_of", "branches", "branches_of")
                  if name in found}:
            rows.append((title, of["lines"], of["lines_of"], rate(of["lines"], of["lines_of"]), of["branches"],
                         of["branches_of"], rate(of["branches"], of["branches_of"]), found[name]["date"],
                         found[name]["commit"]))
    return table(["what runs", "lines reached", "of", "%", "branches taken", "of", "%", "date", "commit"],
                 ["---"] + ["---:"] * 6 + ["---"] * 2, rows)


def by_hand():
    found = read("by_hand")
    if not found:
        return ""
    mistakes = found["mistakes"]
    rows = []
    for folder in sorted({m["folder"] for m in mistakes}) + ["all"]:
        of = [m for m in mistakes if folder in (m["folder"], "all")]
        dead = sum(bool(m["noticed by"]) for m in of)
        same = sum(not m["noticed by"] and bool(m["equivalent"]) for m in of)
        rows.append((folder, len(of), dead, same, len(of) - dead - same, sum(bool(m["missed"]) for m in of)))
    left = [m for m in mistakes if not m["noticed by"]]
    why = table(["mistake", "where", "why nothing shows"], ["---", "---", "---"],
                [(m["name"], f"`{m['file']}`", m["equivalent"] or "**unnoticed**") for m in left])
    older = sum(m["commit"] != found["commit"] for m in mistakes)
    note = f" {older} of the findings are of earlier runs." if older else ""
    if found["made"] > len(mistakes):
        note += f" {found['made'] - len(mistakes)} more have not been put to their tests yet."
    return (f"On {found['date']}, at commit {found['commit']}.{note} \"Missed at first\" counts those that a test was\n"
            "written for because none had noticed.\n\n" +
            table(["mistakes in", "made", "noticed", "equivalent", "unnoticed", "missed at first"], ["---"] + ["---:"] * 5,
                  rows) + "\n\n" + why)


def rate(killed, made):
    return f"{100 * killed / made:.1f}" if made else ""


def mutants():
    found = read("mutants")
    if not found:
        return table([], [], [])
    every = found["topics"][-1]
    note = f" {found['note']}" if "note" in found else ""
    return (f"`{found['command']}` on {found['date']}, at commit {found['commit']}; {found['machine']}; "
            f"{round(found['seconds'] / 60)} minutes: {every['mutants']} mutants, {every['killed']} killed, "
            f"{every['by time']} of these by running out of time: {rate(every['killed'], every['mutants'])} % of all, "
            f"{rate(every['killed'], every['mutants'] - every['explained'])} % of those that are not explained below as "
            f"mistakes that nothing can show.{note}\n\n" + mutants_of("topic", found["topics"]) + "\n\n" +
            mutants_of("folder", found.get("folders", [])))


def mutants_of(what, parts):
    rows = [(t["topic"], t["mutants"], t["killed"], t["by time"], t["mutants"] - t["killed"], t["explained"],
             rate(t["killed"], t["mutants"]), rate(t["killed"], t["mutants"] - t["explained"])) for t in parts]
    return table([what, "mutants", "killed", "of these by time", "survivors", "of these explained", "killed %",
                  "of those not explained %"], ["---"] + ["---:"] * 7, rows)


def explained():
    def code(text):
        return "`" + text.replace("|", "\\|") + "`"

    def path(survivor):
        return survivor.path

    parts = []
    for file, of in groupby(sorted(survivors.read(), key=path), path):
        rows = [(code(s.line), code(s.what), s.how.replace("|", "\\|"), s.why.replace("|", "\\|")) for s in of]
        parts.append(f"### {file}\n" + table(["line", "what", "mistake", "why nothing shows"], ["---"] * 4, rows))
    return "\n\n".join(parts)


def proofs():
    rows = [(p["what"], p["cases"], p["comparisons"], p["differences"], p["date"], p["commit"])
            for p in read("proofs")["oracle"]]
    rows.append(("all", *(sum(row[k] for row in rows) for k in (1, 2, 3)), "", ""))
    return table(["proof", "cases", "comparisons", "differences", "date", "commit"], ["---"] + ["---:"] * 3 + ["---"] * 2,
                 rows)


def functions():
    rows = [(p["what"], p["results"], p["misrounded"], p["date"], p["commit"]) for p in read("proofs")["functions"]]
    return table(["arguments", "results compared", "misrounded", "date", "commit"],
                 ["---", "---:", "---:", "---", "---"], rows)


def expected(portable):
    """The built-in digests: of the lines that are the same everywhere, or of those that ZEPH_PORTABLE_MATH decides."""
    text = Path("tools/selftest/expected.h").read_text()
    results = read("selftest")["results"]
    rows = [(line.replace("_", " "), results.get(line, ""), f"`{own}`")
            for line, own in re.findall(r'\{"([^"]+)", 0x\w+u, 0x(\w+)u\}', text)
            if line != "large" and (":" in line) == portable]
    return table(["line" if portable else "subsystem", "results", "digest"], ["---", "---:", "---"], rows)


def digests():
    return expected(False)


def portable_digests():
    return expected(True)


def agreed():
    rows = [(a["what"], a["builds"], a["date"], a["commit"]) for a in read("selftest")["agreed"]]
    return table(["digests", "builds", "date", "commit"], ["---"] * 4, rows)


def thresholds():
    found = read("thresholds")
    rows = [(row["work"], ", ".join(f"{size}: {ratio:.2f}" for size, ratio in row["sizes"].items()))
            for row in found["rows"]]
    return (f"Measured on {found['date']}, at commit {found['commit']}, on {found['machine']}:\n\n" +
            table(["work", "size: time of one thread / time of two"], ["---", "---"], rows))


def forms(name):
    def make():
        found = read("forms")
        of = found["tables"][name]
        return (f"{of['caption']} Measured on {found['date']} on {found['machine']}.\n\n" +
                table(of["head"], ["---"] * len(of["head"]), of["rows"]))
    return make


def developer():
    found = read("developer")
    rows = [(row["what"], row.get("before", ""), row.get("now", "not measured yet"), row.get("aim", ""),
             row.get("date", ""), row.get("commit", "")) for row in found["rows"]]
    return (f"On {found['machine']}; \"before\" is {found['before']}. `tools/docs/developer.py --time` measures it anew.\n\n" +
            table(["", "before", "now", "aim", "date", "commit"], ["---"] + ["---:"] * 3 + ["---"] * 2, rows))


PAGES = {"docs/reliability.md": {"steps": steps, "proofs": proofs, "digests": digests,
                                 "portable-digests": portable_digests, "agreed": agreed, "fuzz": fuzz,
                                 "by-hand": by_hand, "coverage": coverage},
         "docs/mutants.md": {"figures": mutants, "survivors": explained},
         "docs/numerics.md": {"functions": functions},
         "docs/threads.md": {"thresholds": thresholds},
         "src/kernels/README.md": {f"forms-{of}": forms(f"forms-{of}") for of in ("sort", "product", "elementwise")},
         "CONTRIBUTING.md": {"developer": developer}}


def main():
    old = []
    for path, tables in PAGES.items():
        before = text = Path(path).read_text()
        for name, make in tables.items():
            begin, end = f"<!-- made from data: {name} -->", "<!-- end -->"
            at = text.index(begin) + len(begin)
            text = text[:at] + "\n\n" + make() + "\n\n" + text[text.index(end, at):]
        if text != before:
            old.append(path)
            if "--check" not in sys.argv:
                Path(path).write_text(text)
    if old and "--check" in sys.argv:
        sys.exit(f"{', '.join(old)}: not what docs/data says: python3 tools/docs/figures.py")


if __name__ == "__main__":
    main()

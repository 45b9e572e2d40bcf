"""Puts the tables between the marks of docs/reliability.md and docs/mutants.md, from docs/data. --check: says whether
they are those already."""
import json
import sys
from itertools import groupby
from pathlib import Path

sys.path.insert(0, "tools/mutants")
import survivors  # noqa: E402: it stands beside what writes it


def read(name):
    path = Path("docs/data") / (name + ".json")
    return json.loads(path.read_text()) if path.exists() else {}


def table(head, align, rows):
    if not rows:
        return "Not recorded since the tables are made from data: `ZEPH_RECORD=1`, then `tools/docs/figures.py`."
    lines = ["| " + " | ".join(head) + " |", "|" + "|".join(align) + "|"]
    return "\n".join(lines + ["| " + " | ".join(str(c) for c in row) + " |" for row in rows])


def steps():
    order = [line.split()[0] for line in Path("tools/check/steps.txt").read_text().splitlines()
             if line and not line.startswith("#")]
    said = read("check")
    rows = [(f"`{s}`", said[s]["outcome"], said[s].get("passed", ""), said[s].get("failed", ""), said[s]["seconds"],
             said[s]["date"], said[s]["commit"]) for s in order + sorted(set(said) - set(order)) if s in said]
    return table(["step", "outcome", "passed", "failed", "seconds", "date", "commit"],
                 ["---", "---", "---:", "---:", "---:", "---", "---"], rows)


def fuzz():
    rows = [(name, f["executions"], f["seconds"], f["coverage"], f["outcome"], f["date"], f["commit"])
            for name, f in sorted(read("fuzz").items())]
    return table(["target", "executions", "seconds", "coverage (libFuzzer's `cov`)", "outcome", "date", "commit"],
                 ["---", "---:", "---:", "---:", "---", "---", "---"], rows)


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
    return f"{100 * killed / made:.1f}"


def mutants():
    found = read("mutants")
    if not found:
        return table([], [], [])
    every = found["topics"][-1]
    rows = [(t["topic"], t["mutants"], t["killed"], t["by time"], t["mutants"] - t["killed"], t["explained"],
             rate(t["killed"], t["mutants"])) for t in found["topics"]]
    note = f" {found['note']}" if "note" in found else ""
    return (f"`{found['command']}` on {found['date']}, at commit {found['commit']}; {found['machine']}; "
            f"{round(found['seconds'] / 60)} minutes: {every['mutants']} mutants, {every['killed']} killed "
            f"({rate(every['killed'], every['mutants'])} %), {every['by time']} of these by running out of time.{note}\n\n" +
            table(["topic", "mutants", "killed", "of these by time", "survivors", "of these explained", "killed %"],
                  ["---"] + ["---:"] * 6, rows))


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


PAGES = {"docs/reliability.md": {"steps": steps, "fuzz": fuzz, "by-hand": by_hand},
         "docs/mutants.md": {"figures": mutants, "survivors": explained}}


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

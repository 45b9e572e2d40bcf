"""Puts the tables between the marks of docs/reliability.md, from docs/data/*.json. --check: says whether they are
those already."""
import json
import sys
from pathlib import Path

PAGE = Path("docs/reliability.md")


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
    for page in sorted({m["page"] for m in mistakes}) + ["all"]:
        of = [m for m in mistakes if page in (m["page"], "all")]
        dead = sum(bool(m["noticed by"]) for m in of)
        same = sum(not m["noticed by"] and bool(m["equivalent"]) for m in of)
        rows.append((page, len(of), dead, same, len(of) - dead - same))
    left = [m for m in mistakes if not m["noticed by"]]
    why = table(["mistake", "where", "why nothing shows"], ["---", "---", "---"],
                [(m["name"], f"`{m['file']}`", m["equivalent"] or "**unnoticed**") for m in left])
    note = f" {found['note']}" if "note" in found else ""
    return (f"On {found['date']}, at commit {found['commit']}.{note}\n\n" +
            table(["mistakes in", "made", "noticed", "equivalent", "unnoticed"], ["---"] + ["---:"] * 4, rows) +
            "\n\n" + why)


def main():
    before = text = PAGE.read_text()
    for name, make in (("steps", steps), ("fuzz", fuzz), ("by-hand", by_hand)):
        begin, end = f"<!-- made from data: {name} -->", "<!-- end -->"
        at = text.index(begin) + len(begin)
        text = text[:at] + "\n\n" + make() + "\n\n" + text[text.index(end, at):]
    if "--check" in sys.argv:
        if text != before:
            sys.exit("docs/reliability.md is not what docs/data says: python3 tools/docs/figures.py")
        return
    PAGE.write_text(text)


if __name__ == "__main__":
    main()

"""record.py FILE ENTRY KEY=VALUE...: what a step found, with the date and the commit, into docs/data/FILE.json.

KEY+=VALUE adds to the number that stands there, and keeps the date of the first as "since".

Called by ./dev check and ./dev fuzz where ZEPH_RECORD=1; figures.py makes the tables of the pages from there. Our own,
as it is all that the tree needs of a data base."""
import json
import subprocess
import sys
import time
from pathlib import Path


def git(*words):
    return subprocess.run(["git", *words], stdout=subprocess.PIPE, text=True).stdout.strip()


file, entry, *pairs = sys.argv[1:]
path = Path("docs/data") / (file + ".json")
data = json.loads(path.read_text()) if path.exists() else {}
# A + where something was changed since; the pages that this very run writes do not count.
changed = git("status", "--porcelain", "--untracked-files=no", "--", ".", ":!docs")
commit = git("describe", "--always", "--exclude=*") + ("+" if changed else "")
before = data.get(entry, {})
data[entry] = {"date": time.strftime("%Y-%m-%d", time.gmtime()), "commit": commit}
for key, value in (pair.split("=", 1) for pair in pairs):
    if key.endswith("+"):
        key = key[:-1]
        value = str(int(before.get(key, 0)) + int(value))
        data[entry]["since"] = before.get("since", data[entry]["date"])
    data[entry][key] = value
path.parent.mkdir(parents=True, exist_ok=True)
path.write_text(json.dumps(data, indent=1, ensure_ascii=False, sort_keys=True) + "\n")

"""record.py FILE ENTRY KEY=VALUE...: what a step found, with the date and the commit, into docs/data/FILE.json.

Called by ./dev check and ./dev fuzz where ZEPH_RECORD=1; figures.py makes the tables of the pages from there."""
import json
import subprocess
import sys
import time
from pathlib import Path

file, entry, *pairs = sys.argv[1:]
path = Path("docs/data") / (file + ".json")
data = json.loads(path.read_text()) if path.exists() else {}
commit = subprocess.run(["git", "describe", "--always", "--dirty=+", "--exclude=*"], stdout=subprocess.PIPE, text=True)
data[entry] = {"date": time.strftime("%Y-%m-%d", time.gmtime()), "commit": commit.stdout.strip()}
data[entry].update(pair.split("=", 1) for pair in pairs)
path.parent.mkdir(parents=True, exist_ok=True)
path.write_text(json.dumps(data, indent=1, ensure_ascii=False, sort_keys=True) + "\n")

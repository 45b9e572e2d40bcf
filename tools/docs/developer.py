"""developer.py [--time]: what a developer's day takes, into docs/data/developer.json, for the table of CONTRIBUTING.md.

Counts lines; with --time also measures, which builds in a fresh clone of HEAD: ./dev test twice, the second time with
one source file changed, and ./dev check."""
import json
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PATH = Path("docs/data/developer.json")
TOUCHED = "src/double_array/searching.cpp"


def said(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout.strip()


def lines(*patterns):
    files = said("git", "ls-files", "--", *patterns).splitlines()
    return sum(Path(f).read_bytes().count(b"\n") for f in files)


def counts():
    return {"lines of shell": lines("dev", ".ci/run", "*.sh"), "lines of Python": lines("*.py"),
            "lines of C++ in tests": lines("tests/*.cpp", "tests/*.h"),
            "lines of C++ in include and src": lines("include/*.h", "src/*.cpp", "src/*.h", "src/*.inc")}


def seconds(folder, *command):
    begin = time.monotonic()
    done = subprocess.run(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    took = time.monotonic() - begin
    return f"{took:.0f} s" if took < 600 else f"{took / 60:.0f} min", done.returncode


def times():
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["git", "clone", "-q", ".", folder], check=True)
        for what, command in (("clean `./dev test`", "test"), ("the second, after touching one source file", "test"),
                              ("`./dev check`", "check")):
            took, status = seconds(folder, "./dev", command)
            yield what, took if status == 0 else took + ", failed"
            with open(Path(folder, TOUCHED), "a") as source:
                source.write("\n// Touched.\n")


def main():
    data = json.loads(PATH.read_text())
    now = dict(date=time.strftime("%Y-%m-%d", time.gmtime()), commit=said("git", "rev-parse", "--short", "HEAD"))
    found = dict(counts(), **(dict(times()) if "--time" in sys.argv else {}))
    for row in data["rows"]:
        if row["what"] in found:
            row.update(now, now=found[row["what"]])
    PATH.write_text(json.dumps(data, indent=1, ensure_ascii=False) + "\n")


if __name__ == "__main__":
    main()

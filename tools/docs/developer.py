"""developer.py [--time]: what a developer's day takes, into docs/data/developer.json, for the table of CONTRIBUTING.md.

Counts lines, and adds up the seconds of the check's steps (docs/data/check.json); with --time also measures ./dev test in
a fresh clone of HEAD, twice, the second time with one source file changed. Our own, as no tool counts these."""
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
            "lines of CMake and its presets": lines("*CMakeLists.txt", "*.cmake", "CMakePresets.json"),
            "lines of C++ in tests": lines("tests/*.cpp", "tests/*.h"),
            "lines of C++ in include and src": lines("include/*.h", "src/*.cpp", "src/*.h", "src/*.inc")}


def check():
    """Each step ran alone, with the builds of those before it."""
    steps = [line.split()[0] for line in Path("tools/check/steps.txt").read_text().splitlines() if line[0] != "#"]
    ran = [int(found["seconds"]) for step, found in json.loads(Path("docs/data/check.json").read_text()).items()
           if step in steps]
    return {"`./dev check`": f"{sum(ran) / 60:.0f} min, the sum of {len(ran)} of its {len(steps)} steps, some beside other work"}


def seconds(folder, *command):
    begin = time.monotonic()
    done = subprocess.run(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    took = time.monotonic() - begin
    return f"{took:.0f} s" if took < 600 else f"{took / 60:.0f} min", done.returncode


def times():
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["git", "clone", "-q", ".", folder], check=True)
        for what in ("clean `./dev test`", "the second, after touching one source file"):
            took, status = seconds(folder, "./dev", "test")
            yield what, took if status == 0 else took + ", failed"
            with open(Path(folder, TOUCHED), "a") as source:
                source.write("\n// Touched.\n")


def main():
    data = json.loads(PATH.read_text())
    now = dict(date=time.strftime("%Y-%m-%d", time.gmtime()), commit=said("git", "rev-parse", "--short", "HEAD"))
    found = dict(counts(), **check(), **(dict(times()) if "--time" in sys.argv else {}))
    for row in data["rows"]:
        if row["what"] in found:
            row.update(now, now=found[row["what"]])
    PATH.write_text(json.dumps(data, indent=1, ensure_ascii=False) + "\n")


if __name__ == "__main__":
    main()

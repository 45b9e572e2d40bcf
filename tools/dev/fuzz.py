"""fuzz.py SECONDS|merge TARGET...: runs the built fuzz targets, for ./dev fuzz, which says what for."""
import os
import re
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from threading import Lock

WHERE = Path("build/fuzz")
SAVED = Path("fuzz/corpus")
# Leaks show when a search ends: a look for them after every input that keeps a result takes a hundred times as long.
# Without the entropic schedule, whose bookkeeping takes longer than most inputs once there are a thousand of them.
OPTIONS = ["-timeout=60", "-rss_limit_mb=2000", "-max_len=1024", "-entropic=0", "-detect_leaks=0"]
# Short stacks of allocations and a small quarantine: half of the time went there. An input that fails can be run
# again without.
ENVIRONMENT = {**os.environ, "UBSAN_OPTIONS": "print_stacktrace=1",
               "ASAN_OPTIONS": "detect_leaks=1:allocator_may_return_null=1:malloc_context_size=2:quarantine_size_mb=8"}
recording = Lock()
SHOWN = re.compile(r"broken promise|ERROR: |runtime error|SUMMARY|Test unit written")


def folders(target):
    found = WHERE / "found" / target
    for folder in (found, SAVED / target, WHERE / "broken"):
        folder.mkdir(parents=True, exist_ok=True)
    return found, SAVED / target


def run(target, *options):
    """The status of one run and what it printed, which is also kept in a log."""
    done = subprocess.run([WHERE / "fuzz" / f"zeph_fuzz_{target}", *OPTIONS, *map(str, options)], env=ENVIRONMENT,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    log = done.stdout.decode(errors="replace")
    (WHERE / f"{target}.log").write_text(log)
    return done.returncode, log


def last(pattern, log, default="?"):
    return ([default] + re.findall(pattern, log, re.M))[-1]


def search(target, seconds):
    """Whether nothing was found."""
    status, log = run(target, f"-max_total_time={seconds}", f"-seed={os.environ.get('ZEPH_FUZZ_SEED', 0)}",
                      "-reload=0", "-print_final_stats=1",
                      f"-artifact_prefix={WHERE}/broken/{target}-", *folders(target))
    runs = last(r"^stat::number_of_executed_units: *(\d+)", log, last(r"^#(\d+)", log, "0"))
    took = last(r"^Done \d+ runs in (\d+) second", log, seconds)
    reached = last(r"^#.* cov: (\d+)", log)
    if os.environ.get("ZEPH_RECORD"):
        outcome = "a promise broken" if status else "nothing found"
        with recording:
            subprocess.run([sys.executable, "-B", "tools/docs/record.py", "fuzz", target, f"executions+={runs}",
                            f"seconds+={took}", f"coverage={reached}", f"outcome={outcome}"], check=True)
    print(f"{target:14} {runs:>11} executions  coverage {last(r'INITED cov: ([0-9]+)', log):>5} -> {reached:>5}  "
          f"{last(r'^stat::new_units_added: *([0-9]+)', log):>5} new inputs  {'BROKEN' if status else 'no findings'}",
          flush=True)
    if status:
        lines = log.splitlines()
        first = next((i for i, line in enumerate(lines) if SHOWN.search(line)), len(lines) - 40)
        print("\n".join("    " + line for line in lines[first:first + 40]))
    return status == 0


def merge(target):
    """Inputs that somebody gave a name stay; of the others as many as reach every place, however often."""
    found, saved = folders(target)
    least = WHERE / "least" / target
    shutil.rmtree(least, ignore_errors=True)
    least.mkdir(parents=True)
    status, _ = run(target, "-merge=1", "-use_counters=0", least, saved, found)
    if status:
        return False
    for file in saved.iterdir():
        if re.fullmatch("[0-9a-f]{40}", file.name):
            file.unlink()
    for file in least.iterdir():
        if file.stat().st_size:
            shutil.copy(file, saved)
    inputs = list(saved.iterdir())
    print(f"{target:14} {len(inputs):>5} inputs, {sum(f.stat().st_size for f in inputs):>8} bytes", flush=True)
    return True


def main():
    seconds, *targets = sys.argv[1:]
    jobs = int(os.environ.get("ZEPH_JOBS", 1))
    print(f"dev: {len(targets)} targets, {jobs} at a time", file=sys.stderr)
    with ThreadPoolExecutor(jobs) as pool:
        good = list(pool.map(merge if seconds == "merge" else lambda target: search(target, seconds), targets))
    print(f"{good.count(True)} passed, {good.count(False)} failed")
    if not all(good):
        sys.exit(f"the inputs stand in {WHERE}/broken; run a target on one to see it again")


main()

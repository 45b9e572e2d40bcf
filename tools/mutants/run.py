"""Runs the tests against mutants: only tests that reach the mutated site, the quick ones first."""
import glob
import os
import resource
import signal
import subprocess
from dataclasses import dataclass
from pathlib import Path

from build import BUILD

TABLE = 1 << 16
MEMORY = 3 << 30
QUICK = 300  # milliseconds of tests in the first batch of a program


@dataclass
class Program:
    path: str
    tests: dict  # name: (milliseconds, sites)
    milliseconds: int


def environment(**more):
    return dict(os.environ, ZEPH_TEST_KERNELS="portable", TERM="dumb", **more)


def limits(cpu):
    resource.setrlimit(resource.RLIMIT_CPU, (cpu, cpu))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (64 << 20, 64 << 20))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def execute(program, tests, mutant, seconds):
    """0 passed, 1 failed, 2 out of time. A mutant gets processor time, not time of the clock."""
    command = [program, "--gtest_brief=1", "--gtest_fail_fast"]
    if tests:
        command.append("--gtest_filter=" + ":".join(tests))
    child = subprocess.Popen(command, env=environment(ZEPH_MUTANT=str(mutant)), stdin=subprocess.DEVNULL,
                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                             preexec_fn=lambda: limits(seconds))
    try:
        status = child.wait(6 * seconds)
    except subprocess.TimeoutExpired:
        status = -signal.SIGXCPU
    try:
        os.killpg(child.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    child.wait()
    return 0 if status == 0 else 2 if status in (-signal.SIGXCPU, -signal.SIGKILL) else 1


def record_reach():
    """Runs every test program once without a mutant; they must pass."""
    work = BUILD.parent
    programs = []
    for path in sorted(glob.glob(str(BUILD / "tests/zeph_*_tests"))):
        (work / "reached").write_bytes(bytes(TABLE))
        (work / "tests.txt").unlink(missing_ok=True)
        log = work / (Path(path).name + ".log")
        with open(log, "wb") as out:
            status = subprocess.call([path], stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT,
                                     env=environment(ZEPH_MUTANT_REACHED=str(work.absolute() / "reached"),
                                                     ZEPH_MUTANT_TESTS=str(work.absolute() / "tests.txt")))
        if status:
            raise SystemExit(f"{path} fails without a mutant: see {log}")
        tests = {}
        for line in (work / "tests.txt").read_text().splitlines():
            name, milliseconds, *sites = line.split()
            tests[name] = (int(milliseconds), set(map(int, sites)))
        programs.append(Program(path, tests, sum(m for m, _ in tests.values())))
    return programs


def batches(programs, site, folder):
    """(program, tests, milliseconds): first the folder's own program, each program's quick tests first."""
    reaching = []
    for program in programs:
        tests = sorted((m, name) for name, (m, sites) in program.tests.items() if site.first in sites)
        if tests:
            own = f"zeph_{folder}_tests" in program.path
            reaching.append((not own, sum(m for m, _ in tests), program, tests))
    first, later = [], []
    for _, _, program, tests in sorted(reaching, key=lambda r: r[:2]):
        spent, quick, slow = 0, [], []
        for milliseconds, name in tests:
            spent += milliseconds
            (quick if spent <= QUICK or not quick else slow).append((milliseconds, name))
        for part, out in ((quick, first), (slow, later)):
            if part:
                out.append((program.path, [n for _, n in part], sum(m for m, _ in part)))
    return first + later


def judge(programs, site, form):
    """killed, timeout, survived or unreached; and the program that killed it."""
    todo = batches(programs, site, site.path.split("/")[1])
    for path, tests, milliseconds in todo:
        seconds = 5 + 10 * milliseconds // 1000
        status = execute(path, tests, site.first + form, seconds)
        if status:
            return ("killed", "timeout")[status - 1], Path(path).name
    return ("survived" if todo else "unreached"), ""

"""Runs the tests against mutants: only tests that reach the mutated site, the quick ones first."""
import os
import re
import resource
import signal
import subprocess
from dataclasses import dataclass
from pathlib import Path

from build import BUILD, WORK, programs as wanted

TABLE = 1 << 16
MEMORY = 3 << 30
QUICK = 300  # milliseconds of tests in the first batch of a program


@dataclass
class Program:
    name: str
    kernels: str  # the form that it runs with
    tests: dict  # name: (milliseconds, sites)


def environment(kernels, **more):
    locales = str((BUILD / "locales").absolute())  # as ctest does
    return dict(os.environ, ZEPH_TEST_KERNELS=kernels, TERM="dumb", LOCPATH=locales, **more)


def forms_of(path):
    """Which kernels the tests run with to find a mistake in `path`: the form's own; what several forms share is
    judged with the plainest of them first. The rest is the same with any."""
    if "avx2" in path:
        return ["avx2"]
    if "avx512" in path:
        return ["avx512"]
    if path.startswith("src/kernels/"):
        return ["portable", "avx2", "avx512"] if path.endswith((".inc", ".h")) else ["portable"]
    return ["portable"]


def limits(cpu):
    resource.setrlimit(resource.RLIMIT_CPU, (cpu, cpu))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (64 << 20, 64 << 20))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def ticks_of(group):
    """What the processes of a group have taken of the processor."""
    ticks = 0
    for stat in Path("/proc").glob("[0-9]*/stat"):
        try:
            words = stat.read_text().rpartition(")")[2].split()
        except OSError:
            continue
        if int(words[2]) == group:
            ticks += sum(map(int, words[11:15]))
    return ticks


def wait_while_it_works(child, seconds):
    """Its status; out of time where it takes more of the clock, or threads that wait for each other take nothing."""
    idle, before = 20, -1
    for _ in range(0, seconds, idle):
        try:
            return child.wait(idle)
        except subprocess.TimeoutExpired:
            ticks = ticks_of(child.pid)
            if ticks == before:
                break
            before = ticks
    return -signal.SIGXCPU


def status_of(child, seconds):
    """Of the leader of a group, of which nothing is left then."""
    status = wait_while_it_works(child, seconds)
    try:
        os.killpg(child.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    child.wait()
    return status


def execute(program, tests, mutant, seconds):
    """0 passed, 1 failed, 2 out of time. A mutant gets processor time, not time of the clock."""
    command = [BUILD / "tests" / program.name, "--gtest_brief=1", "--gtest_fail_fast"]
    if tests:
        command.append("--gtest_filter=" + ":".join(tests))
    child = subprocess.Popen(command, env=environment(program.kernels, ZEPH_MUTANT=str(mutant)), stdin=subprocess.DEVNULL,
                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                             preexec_fn=lambda: limits(seconds))
    status = status_of(child, 6 * seconds)
    return 0 if status == 0 else 2 if status in (-signal.SIGXCPU, -signal.SIGKILL) else 1


OWN = "zeph_kernels_tests"  # whose tests run every form by themselves


def record_reach(forms, tests):
    """Runs every test program once with each of the forms, without a mutant; they must pass."""
    return [Program(name, kernels, reach_of(str(BUILD / "tests" / name), kernels, WORK))
            for kernels in ["portable", *sorted(set(forms) - {"portable"})]
            for name in wanted(tests) if name != OWN or kernels == "portable"]


def reach_of(path, kernels, work):
    (work / "reached").write_bytes(bytes(TABLE))
    (work / "tests.txt").unlink(missing_ok=True)
    log = work / (Path(path).name + ".log")
    with open(log, "wb") as out:
        status = subprocess.call([path], stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT,
                                 env=environment(kernels, ZEPH_MUTANT_REACHED=str(work.absolute() / "reached"),
                                                 ZEPH_MUTANT_TESTS=str(work.absolute() / "tests.txt")))
    if status:
        raise SystemExit(f"{path} fails without a mutant, on the {kernels} kernels: see {log}")
    tests = {}
    for line in (work / "tests.txt").read_text().splitlines():
        name, milliseconds, *sites = line.split()
        tests[name] = (int(milliseconds), set(map(int, sites)))
    return tests


def is_reached(programs, site):
    return any(site.first in sites for program in programs for _, sites in program.tests.values())


def batches(programs, site, folder):
    """(program, tests, milliseconds): first the folder's own program, each program's quick tests first."""
    forms = forms_of(site.path)
    reaching = []
    for program in programs:
        tests = sorted((m, name) for name, (m, sites) in program.tests.items() if site.first in sites)
        if tests and (program.kernels in forms or program.name == OWN):
            other = program.name != f"zeph_{folder}_tests"
            reaching.append((other, program.kernels != forms[0], sum(m for m, _ in tests), program, tests))
    first, later = [], []
    for *_, program, tests in sorted(reaching, key=lambda r: r[:3]):
        spent, quick, slow = 0, [], []
        for milliseconds, name in tests:
            spent += milliseconds
            (quick if spent <= QUICK or not quick else slow).append((milliseconds, name))
        for part, out in ((quick, first), (slow, later)):
            if part:
                out.append((program, [n for _, n in part], sum(m for m, _ in part)))
    return first + later


def judge(programs, site, form):
    """killed, timeout, survived or unreached; and the program that killed it."""
    todo = batches(programs, site, re.split(r"[/.]", site.path)[1])
    for program, tests, milliseconds in todo:
        seconds = 5 + 10 * milliseconds // 1000
        status = execute(program, tests, site.first + form, seconds)
        if status:
            return ("killed", "timeout")[status - 1], program.name
    return ("survived" if todo else "unreached"), ""

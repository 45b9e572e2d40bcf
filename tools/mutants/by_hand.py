"""Mistakes made by hand (by_hand/*.txt): see README.md beside this file. Run from the top of the tree, by
./dev mutants --by-hand."""
import argparse
import glob
import json
import os
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field
from pathlib import Path

from rewrite import put
from run import status_of

HERE = Path(__file__).parent
WORK = Path("build/by_hand").absolute()
TREE = WORK / "tree"
BUILD = TREE / "build/static"  # where the compiler's cache knows the tests from
HARDENED = TREE / "build/hardened"
RESULTS = Path("build/results/by_hand.json")
DATA = Path("docs/data/by_hand.json")  # what was found last about each
COPIED = ["CMakeLists.txt", "cmake", "include", "src", "tests", "fuzz", "tools/instructions",
          "tools/portable_math"]
CPU, MEMORY = 120, 3 << 30


@dataclass
class Mistake:
    name: str
    page: str
    number: int
    file: str = ""
    tests: list = field(default_factory=list)
    old: str = ""
    new: str = ""
    alone: bool = False  # has a build of its own
    many: bool = False   # every such place, not the one
    hardened: bool = False
    equivalent: str = ""
    missed: str = ""     # the test that was written because none noticed

    @property
    def build(self):
        return HARDENED if self.hardened else BUILD

    def programs(self):
        return [program(self.build, folder) for folder in self.tests]

    @property
    def folder(self):
        parts = Path(self.file).parts
        return parts[1] if parts[0] == "src" else parts[0]


def read():
    mistakes = []
    for path in sorted(glob.glob(str(HERE / "by_hand" / "*.txt"))):
        for line in Path(path).read_text().splitlines():
            word, _, rest = line.partition(" ")
            if word == "=":
                mistakes.append(Mistake(rest, Path(path).stem, len(mistakes) + 1))
            elif word in ("file", "equivalent", "missed"):
                setattr(mistakes[-1], word, rest)
            elif word == "tests":
                mistakes[-1].tests = rest.split()
            elif word in ("alone", "many", "hardened"):
                setattr(mistakes[-1], word, True)
            elif word in ("-", "+"):
                name = "old" if word == "-" else "new"
                setattr(mistakes[-1], name, (getattr(mistakes[-1], name) + "\n" + rest).strip("\n"))
    names = set(re.findall(r"\w+", "".join(p.read_text() for p in Path("tests").rglob("*_test.cpp"))))
    for mistake in mistakes:
        test = re.sub(r"/\d+$", "", mistake.missed).rpartition(".")[2]
        if test and test not in names:
            raise SystemExit(f"by_hand/{mistake.page}.txt: \"{mistake.name}\": no test is called {mistake.missed}")
    return mistakes


def place(text, mistake):
    """Where the wrong piece goes: the whole of `old`, or what stands between its marks."""
    before, mark, rest = mistake.old.partition("§")
    inner, _, after = rest.partition("§") if mark else ("", "", "")
    whole = before + inner + after
    if text.count(whole) != 1 and not mistake.many:
        raise SystemExit(f"by_hand/{mistake.page}.txt: \"{mistake.name}\": {text.count(whole)} such places in {mistake.file}")
    at = text.index(whole) + (len(before) if mark else 0)
    return at, at + len(inner if mark else whole)


def either(mistake, old):
    """Right and wrong in one program; a number chooses when it starts."""
    wrong = f"::zeph_mutants::chosen == {mistake.number}"
    if old.endswith(";") or old.startswith("if (::zeph_mutants"):
        return f"if ({wrong}) {{ {mistake.new} }} else {{ {old} }}"
    return f"({wrong} ? ({mistake.new}) : ({old}))"


def write_tree(mistakes):
    kept = set()
    mutated = {}
    for mistake in mistakes:
        if not mistake.alone:
            mutated.setdefault(mistake.file, []).append(mistake)
    for kernel in glob.glob("src/kernels/*.cpp"):  # .inc files stand inside their namespaces
        mutated.setdefault(kernel, [])
    for name in COPIED:
        for file in [Path(name)] if Path(name).is_file() else sorted(Path(name).rglob("*")):
            if not file.is_file():
                continue
            kept.add(TREE / file)
            if str(file) not in mutated:
                put(TREE / file, file.read_bytes())
                continue
            text = file.read_text()
            places = {}
            for mistake in mutated[str(file)]:
                places.setdefault(place(text, mistake), []).append(mistake)
            grown = {}  # by how much text what begins at a place is longer by now
            for begin, end in sorted(places, key=lambda span: (-span[0], span[1])):  # inner places first
                last = end + sum(more for at, more in grown.items() if begin <= at < end)
                piece = text[begin:last]
                for mistake in places[begin, end]:
                    piece = either(mistake, piece)
                text = text[:begin] + piece + text[last:]
                grown[begin] = grown.get(begin, 0) + len(piece) - (last - begin)
            known = "" if file.suffix == ".inc" else "namespace zeph_mutants { extern int chosen; }  "
            put(TREE / file, (known + text).encode())
    runtime = b'#include <cstdlib>\nnamespace zeph_mutants {\nint chosen = 0;\n' \
              b'[[gnu::constructor(101)]] static void Start() {\n' \
              b'  if (const char* number = std::getenv("ZEPH_MUTANT")) chosen = std::atoi(number);\n}\n}\n'
    put(TREE / "src/platform/mutants_runtime.cpp", runtime)
    kept.add(TREE / "src/platform/mutants_runtime.cpp")
    sources = [m for m in mutated if m.endswith(".cpp")]
    if sources:  # what is mutated is compiled quickly
        names = " ".join(str(Path(s).relative_to("src")) for s in sorted(sources))
        file = TREE / "src/CMakeLists.txt"
        more = f"\nset_source_files_properties({names} PROPERTIES COMPILE_OPTIONS \"-O1;-w\")\n"
        put(file, (Path("src/CMakeLists.txt").read_text() + more).encode())
    for name in COPIED:
        for file in [p for p in (TREE / name).rglob("*") if p.is_file() and p not in kept]:
            os.remove(file)


def run(command, what):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode:
        errors = [line for line in done.stdout.splitlines() if "error" in line]
        raise SystemExit(f"{what} failed:\n" + "\n".join(errors[:20] or done.stdout.splitlines()[-20:]))


def configure(where):
    run(["cmake", "-S", str(TREE), "-B", str(where), "-G", "Ninja", "-DCMAKE_CXX_COMPILER=g++",
         f"-DZEPH_HARDENED={'ON' if where == HARDENED else 'OFF'}",
         "-DCMAKE_BUILD_TYPE=Release", "-DZEPH_SHARED=OFF", "-DZEPH_BUILD_EXAMPLES=OFF",
         "-DZEPH_WARNINGS_AS_ERRORS=ON", "-DZEPH_BUILD_SELFTEST=OFF", "-DZEPH_INSTALL=OFF",
         "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON"], "configuring")


def program(where, folder):
    """Tests; of the build that checks every precondition those of its stops alone, since the others are the same."""
    return where / "tests" / f"zeph_{folder}{'_hardened' if where == HARDENED else ''}_tests"


def build(where, folders, jobs):
    tests = [f"zeph_{folder}_tests" for folder in sorted(folders)]
    stops = [f"tests/CMakeFiles/{test}.dir/{folder}/hardened_test.cpp.o" for test, folder in zip(tests, sorted(folders))]
    targets = [*stops, "zeph_test_support"] if where == HARDENED else tests
    run(["cmake", "--build", str(where), f"-j{jobs}", "--target", *targets, "--", "-k0"], "the build")
    for folder, stop in zip(sorted(folders), stops) if where == HARDENED else []:
        link(where, folder, where / stop, program(where, folder))


def link(where, folder, test, out):
    """A folder's test program with one of its objects alone."""
    commands = subprocess.run(["ninja", "-C", str(where), "-t", "commands", f"tests/zeph_{folder}_tests"],
                              stdout=subprocess.PIPE, text=True).stdout.splitlines()
    words = [w for w in shlex.split(commands[-1].split("&&")[1]) if f"zeph_{folder}_tests.dir" not in w]
    words[words.index("-o") + 1] = str(out)
    words.insert(words.index("-o"), str(test))
    subprocess.run(words, cwd=where, check=True)


def prepare(where, mistakes, jobs):
    """The tests that these mistakes ask, which must pass without any."""
    folders = sorted({t.split("/")[0] for m in mistakes for t in m.tests})
    if not folders:
        return
    print(f"by hand: {len(mistakes)} mistakes; building the tests of {', '.join(folders)} in {where.name}", flush=True)
    configure(where)
    build(where, folders, jobs)
    for folder in folders:
        failed = verdict(program(where, folder), 0)
        if failed:
            raise SystemExit(f"zeph_{folder}_tests fails without a mistake: {failed}")


def limits():
    resource.setrlimit(resource.RLIMIT_CPU, (CPU, CPU))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (64 << 20, 64 << 20))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def verdict(tests, number):
    """Who killed it: a test, a signal, the time; or nobody."""
    environment = dict(os.environ, ZEPH_MUTANT=str(number), ZEPH_TEST_SAMPLE="1", TERM="dumb", LOCPATH=str(BUILD / "locales"))
    with tempfile.TemporaryFile() as said:
        child = subprocess.Popen([tests, "--gtest_brief=1", "--gtest_fail_fast"], stdout=said, stderr=said,
                                 stdin=subprocess.DEVNULL, env=environment, start_new_session=True,
                                 preexec_fn=limits, cwd=WORK)
        status = status_of(child, 10 * CPU)
        said.seek(0)
        text = said.read().decode(errors="replace")
    if status == 0:
        return ""
    failed = re.search(r"\[  FAILED  \] (\S+?)(?:,| \()", text)
    if failed:
        return failed[1]
    return "time" if status in (-signal.SIGXCPU, -signal.SIGKILL) else f"ended with {status}"


def judge_one(mistake):
    for tests in mistake.programs():
        killer = verdict(tests, mistake.number)
        if killer:
            return killer
    return ""


def judge_alone(mistake, jobs):
    """A build of its own, which is put right again."""
    file = TREE / mistake.file
    right = file.read_text()
    wrong = change(right, mistake)
    try:
        file.write_text(wrong)
        build(mistake.build, mistake.tests, jobs)
        return judge_one(mistake)
    finally:
        file.write_text(right)


def change(text, mistake):
    if mistake.many:
        return text.replace(mistake.old, mistake.new)
    begin, end = place(text, mistake)
    return text[:begin] + mistake.new + text[end:]


def judge_header(mistake):
    """Public inline code: one test source, compiled with the changed header, before the library as it is."""
    headers = WORK / "include"
    shutil.rmtree(headers, ignore_errors=True)
    shutil.copytree(TREE / "include", headers)
    header = headers / Path(mistake.file).relative_to("include")
    header.write_text(change(header.read_text(), mistake))
    commands = json.loads((BUILD / "compile_commands.json").read_text())
    for test in mistake.tests:
        command = next(c for c in commands if c["file"].endswith("tests/" + test))
        words = shlex.split(command["command"])
        if "-include" in words:  # a precompiled header
            at = words.index("-include")
            del words[at:at + 2]
        words.insert(next(i for i, w in enumerate(words) if w.startswith("-I")), f"-I{headers}")
        out = WORK / "header_test"
        words[words.index("-o") + 1] = str(out) + ".o"
        run(words, test)
        link(BUILD, test.split("/")[0], str(out) + ".o", out)
        killer = verdict(out, 0)
        if killer:
            return killer
    return ""


def judge_and_say(mistake, jobs=1):
    if mistake.file.startswith("include/"):
        killer = judge_header(mistake)
    else:
        killer = judge_alone(mistake, jobs) if mistake.alone else judge_one(mistake)
    note = killer or ("equivalent: " + mistake.equivalent if mistake.equivalent else "UNNOTICED")
    print(f"  {mistake.page}: {mistake.name}: {note}", flush=True)
    if killer and mistake.equivalent:
        print("    was held to be equivalent", flush=True)
    return mistake, killer


def commit():
    """With a mark where the sources are not those of it."""
    said = subprocess.run(["git", "describe", "--always", "--dirty=+", "--exclude=*"], stdout=subprocess.PIPE, text=True)
    return said.stdout.strip()


def report(rows):
    folders = sorted({m.folder for m, _ in rows})
    print("\n| mistakes in | made | noticed | equivalent | unnoticed |\n|---|---:|---:|---:|---:|")
    for folder in [*folders, "all"]:
        of = [(m, k) for m, k in rows if folder in (m.folder, "all")]
        dead = sum(bool(k) for _, k in of)
        same = sum(not k and bool(m.equivalent) for m, k in of)
        print(f"| {folder} | {len(of)} | {dead} | {same} | {len(of) - dead - same} |")
    return [m for m, k in rows if not k and not m.equivalent]


def write(rows, seconds, mistakes, whole):
    """What this run found; beside it, with the other mistakes' last findings, what the documentation shows."""
    now = {"date": time.strftime("%Y-%m-%d", time.gmtime()), "commit": commit(), "seconds": seconds}
    fresh = {(m.file, m.name): {"folder": m.folder, "name": m.name, "file": m.file, "noticed by": k,
                                "equivalent": m.equivalent, "missed": m.missed, "commit": now["commit"]} for m, k in rows}
    RESULTS.parent.mkdir(parents=True, exist_ok=True)
    RESULTS.write_text(json.dumps({**now, "mistakes": list(fresh.values())}, indent=1, ensure_ascii=False) + "\n")
    if not whole:
        return
    known = {(m["file"], m["name"]): m for m in json.loads(DATA.read_text())["mistakes"]} if DATA.exists() else {}
    known.update(fresh)
    kept = [known[m.file, m.name] for m in mistakes if (m.file, m.name) in known]
    now["made"] = len(mistakes)
    DATA.write_text(json.dumps({**now, "mistakes": kept}, indent=1, ensure_ascii=False) + "\n")


def main():
    parse = argparse.ArgumentParser(prog="./dev mutants --by-hand")
    parse.add_argument("--jobs", type=int, default=1)
    parse.add_argument("--files", default="", help="only those in files that match this pattern")
    parse.add_argument("--names", default="", help="only those whose name matches this pattern")
    parse.add_argument("--tests", default="", help="ask only the tests of folders that match this pattern")
    parse.add_argument("--check", action="store_true", help="write nothing into the documentation's data")
    given = parse.parse_args()
    mistakes = read()
    start = time.time()
    write_tree(mistakes)
    for mistake in mistakes:
        mistake.tests = [t for t in mistake.tests if re.search(given.tests, t.split("/")[0])]
    chosen = [m for m in mistakes if m.tests and re.search(given.files, m.file) and re.search(given.names, m.name)]
    for where in (BUILD, HARDENED):
        prepare(where, [m for m in chosen if m.build == where], given.jobs)
    with ThreadPoolExecutor(given.jobs) as pool:  # one program for all of them
        rows = list(pool.map(judge_and_say, [m for m in chosen if not m.alone]))
    for mistake in [m for m in chosen if m.alone]:  # then builds of their own, one after the other
        rows.append(judge_and_say(mistake, given.jobs))
    left = report(rows)
    write(rows, round(time.time() - start), mistakes, not (given.tests or given.check))
    print(f"\n{len(rows)} mistakes in {time.time() - start:.0f} s, {len(left)} unnoticed")
    print(f"{len(rows) - len(left)} passed, {len(left)} failed")
    sys.exit(1 if left else 0)


if __name__ == "__main__":
    main()

"""The survivors that have a reason: docs/data/survivors.txt, whose head tells its form."""
from pathlib import Path
from typing import NamedTuple

FILE = Path("docs/data/survivors.txt")


class Survivor(NamedTuple):
    path: str
    line: str  # its text
    what: str  # the piece that is mutated
    how: str
    why: str


def read():
    found, path, line, why = [], "", "", ""
    for number, text in enumerate(FILE.read_text().splitlines(), 1):
        word, _, rest = text.partition(" ")
        if word == "file":
            path, line, why = rest, "", ""
        elif word == "line":
            line, why = rest, ""
        elif word == "why":
            why = rest
        elif word == "-":
            what, arrow, how = rest.partition(" ==> ")
            if not (path and line and why and arrow):
                raise SystemExit(f"{FILE}:{number}: a file, a line and a reason come before \"- WHAT ==> HOW\"")
            found.append(Survivor(path, line, what, how, why))
        elif text and word != "#":
            raise SystemExit(f"{FILE}:{number}: begins with none of # file line why -")
    return found


def entry(path, line, what, how, why):
    """As `read` takes it."""
    return f"file {path}\nline {line}\nwhy {why}\n- {what} ==> {how}\n"


def out_of_date(found):
    """Those whose line is no longer in its file."""
    lines = {path: {text.strip() for text in Path(path).read_text().splitlines()} if Path(path).exists() else set()
             for path in {s.path for s in found}}
    return [s for s in found if s.line not in lines[s.path]]

#!/usr/bin/env python3
"""Doxygen's input filter: a comment above several declarations in a row belongs to each of them.

The headers write one comment above a group such as AddHead and AddTail; Doxygen would give it to the
first only. A group ends at a blank line, another comment or an access specifier. Constructors,
destructors and assignments share a comment only with their own kind.

Doxygen's own means, a member group between ///@{ and ///@}, would put two lines of marks around each of
some hundred groups, between the reader of a header and what it declares.
"""
import re
import sys


TYPE = re.compile(r"(class|struct|enum|union|namespace|extern)\b")


def kind(text):
    """What a declaration declares, as far as sharing a comment goes."""
    if re.search(r"~\w+\(|operator=\(", text):
        return "special"
    head = re.split(r"[:{]", text.split("(")[0])[0].split()
    words = [w for w in head if w not in ("explicit", "virtual", "constexpr", "ZEPH_ADDED", "ZEPH_API",
                                          "ZEPH_EMIT", "inline", "template", "typename")]
    if "(" in text and len(words) == 1:
        return "constructor"
    return "member"


def stripped(line):
    return re.sub(r"//.*", "", line)


def transform(lines):
    out, comment, pending, depth, last = [], [], [], 0, None
    for number, line in enumerate(lines):
        text = line.strip()
        following = lines[number + 1].strip() if number + 1 < len(lines) else ""
        if pending:  # inside a declaration
            pending.append(line)
            depth += stripped(line).count("{") - stripped(line).count("}")
            depth_done = depth <= 0 and re.search(r"[;}]\s*$", stripped(line).rstrip())
            if not depth_done:
                continue
            out, last = close(out, comment, pending, last)
            pending, depth = [], 0
            continue
        if text.startswith("///"):
            if last is not None:
                comment, last = [], None
            comment.append(line)
            continue
        if not text or text.startswith(("//", "#", "}", "public:", "private:", "protected:")):
            out += comment if last is None else []
            comment, last = [], None
            out.append(line)
            continue
        if TYPE.match(text) or (text.startswith("template") and TYPE.match(following)):
            out += comment if last is None else []
            comment, last = [], None
            out.append(line)
            continue
        pending = [line]
        depth = stripped(line).count("{") - stripped(line).count("}")
        if depth <= 0 and re.search(r"[;}]\s*$", stripped(line).rstrip()):
            out, last = close(out, comment, pending, last)
            pending, depth = [], 0
    return out + (comment if last is None else []) + pending


def close(out, comment, pending, last):
    """Writes a declaration, with its own comment or the shared one."""
    text = "".join(pending)
    mine = kind(text)
    if "///<" in text or (last is not None and last != mine):
        return out + pending, last
    return out + comment + pending, mine if comment else None


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as source:
        lines = source.readlines()
    sys.stdout.write("".join(transform(lines) if sys.argv[1].endswith(".h") else lines))

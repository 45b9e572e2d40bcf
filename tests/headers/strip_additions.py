#!/usr/bin/env python3
"""The public headers without our additions: one header of exactly the documented declarations.

usage: strip_additions.py INCLUDE-FOLDER >documented.h

What carries ZEPH_ADDED goes, comments go, and the literal labels at the foot of raw_buffers.h.
"""
import re
import sys

PARTS = ["platform/macros", "platform/preconditions", "platform/long", "platform/time_of_day",
         "platform/object", "platform/cstring", "platform/arrays", "platform/list", "frame",
         "containers/linked_list", "containers/stack", "containers/sortable", "containers/growth_arrays",
         "double_array", "raw_buffers", "linalg/double_matrix", "linalg/matrix", "linalg/matrix4",
         "linalg/vector3", "graphics/vector2d", "graphics/vector3d", "graphics/vector4d", "graphics/vector3s",
         "graphics/matrix4x4", "algorithms/mathematics", "algorithms/random_numbers", "algorithms/permutation",
         "algorithms/integral_search", "algorithms/selection_sort", "algorithms/stopwatch"]


def closing(text, at, pair):
    """The place behind the bracket that closes the one at `at`."""
    depth = 0
    for place in range(at, len(text)):
        depth += text[place] == pair[0]
        depth -= text[place] == pair[1]
        if depth == 0:
            return place + 1
    raise ValueError("unbalanced: " + text[at:at + 80])


def declaration_end(text, at):
    """(the end of the declaration at `at`, where its class body begins or None)."""
    place, seen_parenthesis = at, False
    while text[place] != ";":
        if text[place] == "(":
            seen_parenthesis = True
            place = closing(text, place, "()")
        elif text[place] == "{":
            head = text[at:place]
            body = place
            place = closing(text, place, "{}")
            if seen_parenthesis and not re.match(r"\s*(template\s*<[^{]*>\s*)?(class|struct|using)\b", head):
                rest = re.match(r"\s*,", text[place:])  # the next member of an initialiser list
                if rest is None and not re.match(r"\s*\{", text[place:]):
                    return place, None
            elif re.match(r"\s*(template\s*<[^{]*>\s*)?(class|struct)\b", head):
                return text.index(";", place) + 1, body
        else:
            place += 1
    return place + 1, None


def stripped(text):
    out, at = [], 0
    while at < len(text):
        blank = re.match(r"\s+|#[^\n]*\n|(?:public|private|protected):", text[at:])
        if blank:
            out.append(blank.group())
            at += blank.end()
            continue
        end, body = declaration_end(text, at)
        if body is not None:
            close = closing(text, body, "{}") - 1
            out += [text[at:body + 1], stripped(text[body + 1:close]), text[close:end]]
        elif "ZEPH_ADDED" not in text[at:end]:
            out.append(text[at:end])
        at = end
    return "".join(out)


def without_comments(text):
    return re.sub(r"//[^\n]*", "", text)


def part(folder, name):
    with open(f"{folder}/{name}.h", encoding="utf-8") as file:
        text = without_comments(file.read().split("// ---- 9  Literal labels")[0])
    text = re.sub(r'#include "[^"]*"\n', "", text)
    guard = re.search(r"#ifndef (ZEPH_\w+_H)\n#define \1\n", text)
    body = text[guard.end():]
    if name != "raw_buffers":
        body = body[:body.rindex("#endif")]
    return body if name.startswith(("platform/macros", "platform/preconditions")) else stripped(body)


def main():
    text = "".join(part(sys.argv[1], name) for name in PARTS)
    text = re.sub(r"[ \t]+\n", "\n", text)
    text = re.sub(r"\n{3,}", "\n\n", text)
    print("// The documented declarations alone, as strip_additions.py extracts them from the headers: what a program\n"
          "// may have been written against. Not for use: our additions must not change what such a program means.\n"
          "#ifndef ZEPH_TESTS_HEADERS_DOCUMENTED_H\n#define ZEPH_TESTS_HEADERS_DOCUMENTED_H\n" + text +
          "\n#endif  // ZEPH_TESTS_HEADERS_DOCUMENTED_H")


if __name__ == "__main__":
    main()

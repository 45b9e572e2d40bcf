"""Mistakes in a call of one of the processor's intrinsics: another operation, another immediate, a mask left out."""
import re

# A piece of the name and what it becomes; the first that is found.
NAMES = [
    ("_add_", "_sub_"), ("_sub_", "_add_"), ("_mul_p", "_add_p"), ("_div_p", "_mul_p"), ("_min_", "_max_"),
    ("_max_", "_min_"), ("_andnot_", "_and_"), ("_and_", "_or_"), ("_or_", "_and_"), ("_xor_", "_or_"),
    ("unpacklo", "unpackhi"), ("unpackhi", "unpacklo"), ("_cmpgt_", "_cmpeq_"), ("_cmplt_", "_cmpeq_"),
    ("_cmpeq_", "_cmpgt_"), ("_cmpneq_", "_cmpeq_"),
]
PREDICATES = {"LT": "LE", "LE": "LT", "GT": "GE", "GE": "GT", "NLE": "NLT", "NLT": "NLE", "NGE": "NGT", "NGT": "NGE"}
OTHER_PREDICATES = {"_CMP_EQ_OQ": "_CMP_NEQ_UQ", "_CMP_NEQ_UQ": "_CMP_EQ_OQ", "_CMP_UNORD_Q": "_CMP_ORD_Q",
                    "_CMP_ORD_Q": "_CMP_UNORD_Q"}


def arguments(text):
    """Of a call that `text` is."""
    found, depth, start = [], 0, text.index("(") + 1
    for at, letter in enumerate(text):
        if letter in "([{":
            depth += 1
        elif letter in ")]}":
            depth -= 1
        if (letter == "," and depth == 1) or (letter == ")" and depth == 0):
            found.append(text[start:at].strip())
            start = at + 1
    return found


def forms(text):
    """(what is done, the new text), for each mistake that can be made in this call."""
    match = re.match(r"(_mm\d*_\w+)\(", text)
    if not match or not text.endswith(")"):
        return []
    name, given = match[1], arguments(text)
    made = []
    for old, new in NAMES:
        if old in name:
            made.append((f"{name} to {name.replace(old, new, 1)}", name.replace(old, new, 1) + text[len(name):]))
            break
    made += unmasked(name, given) + blended(name, given) + predicate(text)
    immediate = re.search(r",\s*(0x[0-9A-Fa-f]+|\d+)\)$", text)
    if immediate and re.search(r"permute|shuffle|blend|extract|insert|broadcast", name):
        new = int(immediate[1], 0) + 1
        made.append((f"{immediate[1]} to {new}", text[:immediate.start(1)] + f"{new})"))
    return made


def unmasked(name, given):
    """The whole vector instead of some lanes."""
    whole = None
    if "_maskload_" in name:
        whole = name.replace("_maskload_p", "_loadu_p") + f"({given[0]})"
    elif "_maskz_load" in name:
        whole = name.replace("_maskz_", "_") + f"({given[1]})"
    elif "_mask_loadu_" in name:
        whole = name.replace("_mask_", "_") + f"({given[2]})"
    elif "_mask_storeu_" in name:
        whole = name.replace("_mask_", "_") + f"({given[0]}, {given[2]})"
    elif "_mask_cmp" in name:
        whole = name.replace("_mask_", "_", 1) + "(" + ", ".join(given[1:]) + ")"
    return [("leave out the mask", whole)] if whole and "maskload_epi" not in name else []


def blended(name, given):
    if "_mask_blend_" in name:
        return [("the first", given[1]), ("the second", given[2])]
    if "_blendv_" in name:
        return [("the first", given[0]), ("the second", given[1])]
    return []


def predicate(text):
    """Of a comparison."""
    match = re.search(r"_CMP_([A-Z]+)(_\w+)?\)$", text)
    if not match:
        return []
    old = match[0][:-1]
    new = OTHER_PREDICATES.get(old) or (f"_CMP_{PREDICATES[match[1]]}{match[2]}" if match[1] in PREDICATES else None)
    return [(f"{old} to {new}", text.replace(old, new))] if new else []

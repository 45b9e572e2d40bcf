"""Finds the places of a source where a small mistake can be made, and the mistakes: operators,
constants, conditions, returned values, statements, names, arguments and intrinsics in the bodies of functions."""
import os
import re
import zlib
from dataclasses import dataclass, field

from clang import cindex
from clang.cindex import CursorKind as K, TypeKind as T

import intrinsics

FLAGS = ["-std=c++17", "-Iinclude", "-Isrc", "-DZEPH_BUILDING", "-DZEPH_STATIC"]

# What each operator becomes; one mutant each.
OPERATORS = {
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["/"], "&&": ["||"], "||": ["&&"],
    "&": ["|"], "|": ["&"], "<<": [">>"], ">>": ["<<"],
}
ASSIGNMENTS = {"+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "%=": "/=", "|=": "&=", "&=": "|="}
COMPARISONS = {"<", "<=", ">", ">=", "==", "!="}

if not any(kind.value == 280 for kind in K.get_all_kinds()):
    K.BUILTIN_BIT_CAST_EXPR = K(280)  # which these bindings do not know

FUNCTIONS = {K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.DESTRUCTOR, K.CONVERSION_FUNCTION,
             K.FUNCTION_TEMPLATE}
INTEGERS = {T.CHAR_U, T.UCHAR, T.USHORT, T.UINT, T.ULONG, T.ULONGLONG, T.CHAR_S, T.SCHAR, T.SHORT, T.INT,
            T.LONG, T.LONGLONG}
ARITHMETIC = INTEGERS | {T.BOOL, T.FLOAT, T.DOUBLE, T.LONGDOUBLE}
# What depends on a template's parameter is tried; where it does not compile it is dropped.
DEPENDENT = {T.DEPENDENT, T.UNEXPOSED}
STATEMENTS = {K.COMPOUND_STMT, K.IF_STMT, K.FOR_STMT, K.WHILE_STMT, K.DO_STMT, K.CXX_FOR_RANGE_STMT,
              K.CASE_STMT, K.DEFAULT_STMT}
CONSTANT = {K.STATIC_ASSERT, K.CXX_UNARY_EXPR, K.PACK_EXPANSION_EXPR, K.SIZE_OF_PACK_EXPR}


@dataclass
class Site:
    """A stretch of a file that may be replaced; `forms` are (what is done, the new text)."""
    path: str
    start: int
    end: int
    line: int
    lines: int  # more than the first one
    rank: int  # of several sites on one stretch the lowest is outermost
    kind: str
    forms: list
    constant: bool = False  # in a constexpr function
    first: int = 0  # the number of its first form
    inner: list = field(default_factory=list)

    def name(self):
        return f"{self.path} {self.start} {self.end} {self.rank}"


def name_of(file):
    """As glob gives it: headers are found by way of "../" too."""
    return os.path.normpath(file.name) if file else None


def type_of(cursor):
    """Without a reference and an outer const."""
    kind = cursor.type.get_canonical()
    if kind.kind in {T.LVALUEREFERENCE, T.RVALUEREFERENCE}:
        kind = kind.get_pointee()
    return re.sub(r"^const (?=[^*]*$)|(?<=\*)const$", "", kind.spelling)


def parse(path):
    record = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD  # to know where macros stand
    unit = cindex.Index.create().parse(path, args=FLAGS, options=record)
    errors = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
    if errors:
        raise SystemExit(f"{path} does not parse:\n" + "\n".join(errors[:5]))
    return unit


class Finder:
    """Collects the sites of the wanted files, each once, over all the units that include them."""

    def __init__(self, wanted):
        self.wanted = set(wanted)
        self.texts = {}
        self.sites = {}
        self.macros = {}
        self.seen = set()

    def add_unit(self, path):
        unit = parse(path)
        self.macros = {}
        tops = []
        for cursor in unit.cursor.get_children():
            if cursor.kind in {K.MACRO_DEFINITION, K.INCLUSION_DIRECTIVE} or not self.file_of(cursor):
                continue
            if cursor.kind == K.MACRO_INSTANTIATION:
                extent = cursor.extent
                self.macros.setdefault(self.file_of(cursor), []).append((extent.start.offset, extent.end.offset))
            else:
                tops.append(cursor)
        for cursor in tops:
            self.find_functions(cursor)
        self.seen |= {name_of(i.include) for i in unit.get_includes()} | {path}

    def file_of(self, cursor):
        name = name_of(cursor.location.file)
        return name if name in self.wanted else None

    def find_functions(self, cursor):
        if cursor.kind in FUNCTIONS and cursor.is_definition():
            path = self.file_of(cursor)
            if not path or path in self.seen:
                return
            self.path = path
            if path not in self.texts:
                with open(path, "rb") as f:
                    self.texts[path] = f.read()
            for body in cursor.get_children():
                if body.kind == K.COMPOUND_STMT:
                    head = self.text_between(cursor.extent.start.offset, body.extent.start.offset)
                    self.constant = "constexpr" in head
                    self.returns = cursor.result_type.get_canonical().kind
                    self.variables = [c for c in cursor.get_children() if c.kind == K.PARM_DECL]
                    self.visit(body, cursor)
                    self.macros_in(body)
        elif cursor.kind in {K.NAMESPACE, K.CLASS_DECL, K.STRUCT_DECL, K.CLASS_TEMPLATE,
                             K.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION, K.UNEXPOSED_DECL, K.LINKAGE_SPEC}:
            for child in cursor.get_children():
                self.find_functions(child)

    # The text of a stretch.
    def text_between(self, start, end):
        return self.texts[self.path][start:end].decode()

    def text(self, cursor):
        return self.text_between(cursor.extent.start.offset, cursor.extent.end.offset)

    def in_macro(self, start, end):
        return any(s <= start and end <= e or s < start < e or s < end < e
                   for s, e in self.macros.get(self.path, ()))

    def add(self, cursor, rank, kind, forms):
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        if not self.in_macro(start, end):
            self.add_stretch(start, end, rank, kind, forms)

    def add_stretch(self, start, end, rank, kind, forms):
        text = self.text_between(start, end)
        if not text or not forms or "//" in text or "/*" in text or "#" in text:
            return
        key = (self.path, start, end, rank)
        forms = [(what, re.sub(r"\s*\n\s*", " ", new)) for what, new in forms]
        line = self.texts[self.path].count(b"\n", 0, start) + 1
        self.sites.setdefault(key, Site(
            self.path, start, end, line, text.count("\n"), rank, kind, forms, self.constant))

    def macros_in(self, body):
        """Intrinsics with an immediate are macros: each is one place."""
        for start, end in self.macros.get(self.path, ()):
            inside = body.extent.start.offset <= start and end <= body.extent.end.offset
            if inside and not any(s <= start and end < e or s < start and end <= e for s, e in self.macros[self.path]):
                self.add_stretch(start, end, 3, "intrinsic", intrinsics.forms(self.text_between(start, end)))

    def visit(self, cursor, parent):
        kind = cursor.kind
        if kind in CONSTANT or name_of(cursor.location.file) != self.path:
            return
        children = list(cursor.get_children())
        if self.is_hardened_check(cursor):
            return
        if kind == K.DECL_STMT and re.match(r"(static\s+)?constexpr\b|static\b|using\b|typedef\b", self.text(cursor)):
            return
        if kind == K.VAR_DECL and cursor.type.kind == T.CONSTANTARRAY:
            children = [c for c in children if c.kind == K.INIT_LIST_EXPR]
        if kind == K.IF_STMT and re.match(r"if\s+constexpr\b", self.text(cursor)):
            children = children[1:]
        if kind == K.CASE_STMT:
            children = children[1:]
        self.sites_at(cursor, parent, children)
        outside = len(self.variables)
        for child in children:
            self.visit(child, cursor)
        if kind in STATEMENTS or kind == K.LAMBDA_EXPR:
            del self.variables[outside:]
        elif kind in {K.VAR_DECL, K.PARM_DECL}:
            self.variables.append(cursor)

    def is_hardened_check(self, cursor):
        """What is no code but in hardened builds: calls of Require... and conditions of such macros."""
        if cursor.kind == K.CALL_EXPR:
            return re.match(r"(\w+::)*Require\w*\(", self.text(cursor)) is not None
        return cursor.kind == K.IF_STMT and re.search(r"\)\s*\{?\s*ZEPH_REQUIRE\w*\(", self.text(cursor)) is not None

    def sites_at(self, cursor, parent, children):
        kind = cursor.kind
        if parent.kind in STATEMENTS and self.is_statement(cursor):
            self.add(cursor, 0, "statement", [("leave out", "")])
        if kind in {K.IF_STMT, K.WHILE_STMT, K.FOR_STMT}:
            self.condition(cursor, children)
        elif kind == K.RETURN_STMT and children:
            self.returned(children[0])
        elif kind == K.CALL_EXPR and self.text(cursor).startswith("_mm"):
            self.add(cursor, 3, "intrinsic", intrinsics.forms(self.text(cursor)))
        elif kind in {K.BINARY_OPERATOR, K.CALL_EXPR, K.COMPOUND_ASSIGNMENT_OPERATOR}:
            self.binary(cursor, children)
        elif kind == K.UNARY_OPERATOR and children:
            self.unary(cursor, children[0])
        elif kind in {K.INTEGER_LITERAL, K.FLOATING_LITERAL}:
            self.literal(cursor)
        elif kind == K.DECL_REF_EXPR:
            self.names(cursor, self.variables)
        elif kind == K.MEMBER_REF_EXPR and cursor.referenced and cursor.referenced.kind == K.FIELD_DECL:
            self.names(cursor, [f for f in cursor.referenced.semantic_parent.get_children() if f.kind == K.FIELD_DECL])
        if kind == K.CALL_EXPR and not self.text(cursor).startswith("_mm"):
            self.arguments(cursor)

    def is_statement(self, cursor):
        """An assignment, a call or a delete that stands by itself."""
        extent = cursor.extent
        follows = self.texts[self.path][extent.end.offset:extent.end.offset + 80].decode("utf-8", "ignore").lstrip()
        if not follows.startswith(";"):
            return False
        if cursor.kind == K.BINARY_OPERATOR:
            return self.operator(list(cursor.get_children())) == "="
        return cursor.kind in {K.COMPOUND_ASSIGNMENT_OPERATOR, K.CALL_EXPR, K.CXX_DELETE_EXPR}

    def condition(self, cursor, children):
        """`if`: forced both ways. Loops: never entered; for ever would only cost time."""
        if re.match(r"if\s+constexpr\b", self.text(cursor)):
            return
        if cursor.kind == K.FOR_STMT:
            chosen = self.for_condition(cursor, children)
        else:
            chosen = children[0] if children else None
        if chosen is None or chosen.kind.is_declaration() or chosen.kind in {K.DECL_STMT, K.NULL_STMT}:
            return
        if len(children) > 1 and children[0].kind == K.VAR_DECL:
            return
        if chosen.kind in {K.CXX_BOOL_LITERAL_EXPR}:
            return
        forms = [("never", "false")] if cursor.kind != K.IF_STMT else [("always", "true"), ("never", "false")]
        self.add(chosen, 1, "condition", forms)

    def for_condition(self, cursor, children):
        head = self.texts[self.path]
        first = head.find(b";", cursor.extent.start.offset)
        for child in children[:-1]:
            end = child.extent.end.offset
            if child.extent.start.offset > first and head[end:end + 40].lstrip().startswith(b";"):
                return child
        return None

    def returned(self, value):
        if value.kind in {K.INTEGER_LITERAL, K.FLOATING_LITERAL, K.CXX_BOOL_LITERAL_EXPR}:
            if value.kind == K.CXX_BOOL_LITERAL_EXPR:
                self.add(value, 2, "return", [("negate", "!" + self.text(value))])
            return
        inner = value
        while inner.kind == K.UNEXPOSED_EXPR and len(list(inner.get_children())) == 1:
            inner = next(inner.get_children())
        if inner.kind in {K.INTEGER_LITERAL, K.FLOATING_LITERAL} or self.text(inner).startswith("!"):
            return
        if inner.kind == K.BINARY_OPERATOR and self.operator(list(inner.get_children())) in COMPARISONS:
            return  # the operator's own mutants say the same
        kind = value.type.get_canonical().kind
        if self.returns == T.BOOL or kind == T.BOOL:
            if self.returns == T.BOOL:
                self.add(value, 2, "return", [("negate", f"!({self.text(value)})")])
        elif kind in ARITHMETIC and self.returns in ARITHMETIC:
            self.add(value, 2, "return", [("add 1", f"({self.text(value)}) + 1")])

    def operator(self, children):
        if len(children) < 2:
            return None
        return self.text_between(children[0].extent.end.offset, children[-1].extent.start.offset).strip()

    def binary(self, cursor, children):
        if cursor.kind == K.CALL_EXPR:
            if cursor.type.kind not in DEPENDENT or len(children) not in (2, 3):
                return
        name = self.operator(children)
        if name not in OPERATORS and name not in ASSIGNMENTS:
            return
        left, right = children[0], children[-1]
        kinds = [c.type.get_canonical().kind for c in (left, right)]
        plain = all(k in ARITHMETIC | DEPENDENT | {T.VECTOR} for k in kinds)
        pointers = all(k == T.POINTER for k in kinds)
        if not (plain or pointers and name in COMPARISONS or name in {"&&", "||"}):
            return
        a, b = self.text(left), self.text(right)
        if name in ASSIGNMENTS:
            forms = [(f"{name} to {ASSIGNMENTS[name]}", f"{a} {ASSIGNMENTS[name]} {b}")]
        else:
            forms = [(f"{name} to {new}", f"{a} {new} {b}") for new in OPERATORS[name]]
        self.add(cursor, 3, "operator", forms)

    def unary(self, cursor, operand):
        whole, inner = self.text(cursor), self.text(operand)
        kind = operand.type.get_canonical().kind
        if whole.startswith(("++", "--")) or whole.endswith(("++", "--")):
            if kind in ARITHMETIC | DEPENDENT | {T.POINTER}:
                old = whole[:2] if whole.startswith(("++", "--")) else whole[-2:]
                new = "--" if old == "++" else "++"
                changed = new + inner if whole.startswith(old) else inner + new
                self.add(cursor, 3, "operator", [(f"{old} to {new}", changed)])
        elif whole.startswith("-") and kind in ARITHMETIC | DEPENDENT:
            self.add(cursor, 3, "operator", [("leave out -", f"{inner}")])
        elif whole.startswith("!"):
            self.add(cursor, 3, "operator", [("leave out !", f"static_cast<bool>({inner})")])

    def names(self, cursor, others):
        """Two of the others that have its type, where it is one of them; which ones, its place decides."""
        meant = cursor.referenced
        if meant is None or meant not in others:
            return
        kin = [o for o in others if o != meant and o.spelling and type_of(o) == type_of(meant)]
        text, name = self.text(cursor), cursor.spelling
        if kin and text.endswith(name):
            turn = zlib.crc32(f"{self.path} {cursor.extent.start.offset}".encode()) % len(kin)
            new = [o.spelling for o in (kin[turn:] + kin[:turn])[:2]]
            self.add(cursor, 5, "name", [(f"{name} to {n}", text[:len(text) - len(name)] + n) for n in new])

    def arguments(self, call):
        """Each two neighbours of one type change places; whole numbers are one less and one more."""
        given = [a for a in call.get_arguments() if a is not None and self.text(a)]
        start, end = call.extent.start.offset, call.extent.end.offset
        forms = []
        for a, b in zip(given, given[1:]):
            between = self.text_between(a.extent.end.offset, b.extent.start.offset)
            if between.strip() == "," and type_of(a) == type_of(b) and self.text(a) != self.text(b):
                forms.append((f"swap {self.text(a)} and {self.text(b)}",
                              self.text_between(start, a.extent.start.offset) + self.text(b) + between + self.text(a) +
                              self.text_between(b.extent.end.offset, end)))
        if not re.match(r"std::(swap|min|max)\b", self.text(call)):  # which turn out the same
            self.add(call, 3, "argument", forms)
        for a in given:
            if a.type.get_canonical().kind in INTEGERS and not re.fullmatch(r"[0-9a-fxXuUlL']+", self.text(a)):
                self.add(a, 4, "argument", [(f"{sign} 1", f"({self.text(a)}) {sign} 1") for sign in "-+"])

    def literal(self, cursor):
        text = self.text(cursor)
        match = re.fullmatch(r"([0-9'.]+(?:e[-+]?\d+)?|0x[0-9a-fA-F']+)([uUlLfF]*)", text)
        if not match:
            return
        digits, suffix = match[1].replace("'", ""), match[2]
        if cursor.kind == K.INTEGER_LITERAL:
            value = int(digits, 0)
            new = f"{0 if value == 1 else value + 1}{suffix}"
        else:
            value = float(digits)
            new = f"{0.0 if value == 1.0 else value + 1.0!r}{suffix}"
        self.add(cursor, 4, "constant", [(f"{text} to {new}", new)])

# Readable views of the library's types in gdb. Installed where gdb loads it together with the library;
# by hand: (gdb) source zeph_printers.py
import gdb
import gdb.printing

MOST_NODES = 1000  # a damaged list must not hang the debugger

# Compilers describe a class with virtual functions only in the file that holds its virtual table.
# Those files are the library's, and a release has no debug information: in the program's the
# classes are then incomplete. So their fields are listed here, in the order in which they follow
# the pointer to the virtual table.
ARRAY_FIELDS = {"m_nSize": "count", "m_nMaxSize": "count", "m_nGrowBy": "count"}
LIST_FIELDS = {"m_pNodeHead": "void *", "m_pNodeTail": "void *", "m_nCount": "count"}
LAYOUT = {
    "CZEPHDoubleArray": {"sorted": "int", "size": "int", "data": "double *"},
    "CObArray": {"m_pData": "void **", **ARRAY_FIELDS},
    "CZEPHSortableObArray": {"m_pData": "void **", **ARRAY_FIELDS},
    "CUIntArray": {"m_pData": "unsigned int *", **ARRAY_FIELDS},
    "CZEPHUIntArray": {"m_pData": "unsigned int *", **ARRAY_FIELDS},
    "CWordArray": {"m_pData": "unsigned short *", **ARRAY_FIELDS},
    "CZEPHWordArray": {"m_pData": "unsigned short *", **ARRAY_FIELDS},
    "CObList": LIST_FIELDS,
    "CZEPHSortableObList": LIST_FIELDS,
    "CZEPHVector2D": {"x": "float", "y": "float"},
    "CZEPHVector3D": {"x": "float", "y": "float", "z": "float"},
    "CZEPHVector4D": {"x": "float", "y": "float", "z": "float", "w": "float"},
}


def plain_type(text):
    words = text.rstrip("* ")
    if words == "count":  # std::ptrdiff_t
        words = "long long" if gdb.lookup_type("void").pointer().sizeof == 8 else "int"
    kind = gdb.lookup_type(words)
    for _ in range(text.count("*")):
        kind = kind.pointer()
    return kind


def layout(name):
    """Field by field of a class in LAYOUT: its place in bytes and its type."""
    place = gdb.lookup_type("void").pointer().sizeof
    for field, text in LAYOUT[name].items():
        kind = plain_type(text)
        place += -place % kind.sizeof
        yield field, place, kind
        place += kind.sizeof


def is_complete(kind):
    return len(kind.fields()) > 0


def member(value, name):
    """value[name], by its place in memory where the program does not describe the class."""
    kind = value.type.strip_typedefs()
    if is_complete(kind):
        return value[name]
    for field, place, field_type in layout(kind.unqualified().name):
        if field == name:
            start = value.address.cast(gdb.lookup_type("char").pointer())
            return (start + place).cast(field_type.pointer()).dereference()
    raise gdb.error(f"{kind.name} is incomplete and its {name} is not known")


def places(kind, base=0):
    """The offsets of the fields of a complete class, including those of its bases."""
    for field in kind.fields():
        if not hasattr(field, "bitpos"):
            continue
        at = base + field.bitpos // 8
        if field.is_base_class:
            yield from places(field.type.strip_typedefs(), at)
        elif field.name:
            yield field.name, (at, field.type.sizeof)


def check_layout():
    """How many fields stand where LAYOUT has them, of the classes that are described; the others are named."""
    fitting = 0
    for name in LAYOUT:
        try:
            kind = gdb.lookup_type(name)
        except gdb.error:
            continue
        described = dict(places(kind)) if is_complete(kind) else {}
        for field, place, field_type in layout(name) if described else ():
            if described.get(field) == (place, field_type.sizeof):
                fitting += 1
            else:
                gdb.write(f"zeph_printers.py is of another version: {name}::{field} is elsewhere\n", gdb.STDERR)
    return fitting


def no_storage(pointer):
    return int(pointer) == 0


class Sequence:
    """A counted block: `pointer[0 .. count - 1]`."""

    def __init__(self, value, kind, pointer, count):
        self.kind = kind
        self.pointer = member(value, pointer)
        self.count = int(member(value, count))

    def to_string(self):
        if no_storage(self.pointer):
            return f"{self.kind} without storage (count {self.count})"
        return f"{self.kind} of {self.count}"

    def children(self):
        if not no_storage(self.pointer):
            for i in range(max(self.count, 0)):
                yield f"[{i}]", (self.pointer + i).dereference()

    def display_hint(self):
        return "array"


class DoubleArray(Sequence):
    def __init__(self, value):
        super().__init__(value, "CZEPHDoubleArray", "data", "size")
        self.sorted = int(member(value, "sorted"))

    def to_string(self):
        return super().to_string() + (", sorted" if self.sorted else "")


class RowTable:
    """A dense matrix: one block per row."""

    def __init__(self, value):
        self.kind = value.type.strip_typedefs().name
        self.rows, self.columns = int(value["m_nRows"]), int(value["m_nColumns"])
        self.table = value["m_ppData"]

    def to_string(self):
        if no_storage(self.table):
            return f"{self.kind} without storage ({self.rows} x {self.columns})"
        return f"{self.kind} {self.rows} x {self.columns}"

    def children(self):
        if no_storage(self.table):
            return
        for i in range(max(self.rows, 0)):
            row = (self.table + i).dereference()
            if no_storage(row) or self.columns < 1:
                yield f"[{i}]", "no row"
            else:
                whole = row.type.target().array(self.columns - 1).pointer()
                yield f"[{i}]", row.cast(whole).dereference()

    def display_hint(self):
        return "array"


class ColumnMajor:
    """A 4x4 matrix kept by columns, shown by rows."""

    def __init__(self, value, field):
        self.kind = value.type.strip_typedefs().name
        self.entries = value[field]

    def to_string(self):
        rows = []
        for i in range(4):
            rows.append("{" + ", ".join(str(self.entries[i + 4 * j]) for j in range(4)) + "}")
        return f"{self.kind} by rows {{{', '.join(rows)}}}"


class Components:
    """A small vector."""

    def __init__(self, value, fields):
        self.kind = value.type.strip_typedefs().name
        self.values = [member(value, field) for field in fields]

    def to_string(self):
        return f"{self.kind} ({', '.join(str(v) for v in self.values)})"


class Chain:
    """A singly linked list or stack, from its head."""

    def __init__(self, value, head, following, shown):
        self.kind = value.type.strip_typedefs().name
        self.head, self.following, self.shown = member(value, head), following, shown

    def nodes(self):
        node = self.head
        for _ in range(MOST_NODES):
            if no_storage(node):
                return
            yield node
            node = self.next(node)

    def next(self, node):
        return node[self.following]

    def to_string(self):
        count = sum(1 for _ in self.nodes())
        return f"{self.kind} of {count}{' or more' if count == MOST_NODES else ''}"

    def children(self):
        for i, node in enumerate(self.nodes()):
            yield f"[{i}]", node[self.shown]

    def display_hint(self):
        return "array"


class ObjectList(Chain):
    """Nodes of three pointers: the next node, the one before, the element."""

    def __init__(self, value):
        super().__init__(value, "m_pNodeHead", 0, 2)
        self.head = self.head.cast(plain_type("void **"))

    def next(self, node):
        return node[self.following].cast(node.type)


class Text:
    def __init__(self, value):
        self.characters, self.length = value["m_pchData"], int(value["m_nLength"])

    def to_string(self):
        return self.characters.lazy_string(length=self.length)

    def display_hint(self):
        return "string"


def view(make, *fields):
    return lambda value: make(value, *fields)


def printers():
    collection = gdb.printing.RegexpCollectionPrettyPrinter("ZEPHDataStructureEngine")

    def add(name, make):
        collection.add_printer(name, f"^{name}$", make)

    add("CZEPHDoubleArray", DoubleArray)
    add("CZEPHDoubleMatrix", RowTable)
    add("CZEPHMatrix", RowTable)
    add("CZEPHVector", lambda value: Sequence(value, "CZEPHVector", "m_pData", "m_nSize"))
    add("CZEPHMatrix4", view(ColumnMajor, "m_data"))
    add("CZEPHMatrix4x4", view(ColumnMajor, "entries"))
    add("CZEPHVector3", view(Components, ("m_x", "m_y", "m_z")))
    add("CZEPHVector2D", view(Components, ("x", "y")))
    add("CZEPHVector3D", view(Components, ("x", "y", "z")))
    add("CZEPHVector3S", view(Components, ("x", "y", "z")))
    add("CZEPHVector4D", view(Components, ("x", "y", "z", "w")))
    collection.add_printer("CZEPHLinkList", r"^CZEPHLinkList<.*>$", view(Chain, "m_pHead", "m_pNext", "m_value"))
    add("CZEPHSortedLinkList", view(Chain, "m_pHead", "m_pNext", "m_nKey"))
    add("CZEPHStack", view(Chain, "m_pTop", "m_pNextNode", "m_pData"))
    add("CZEPHPointerStack", view(Chain, "m_pTop", "m_pNextNode", "m_pData"))
    for name in ("CObArray", "CUIntArray", "CWordArray", "CZEPHSortableObArray", "CZEPHUIntArray",
                 "CZEPHWordArray"):
        add(name, lambda value, kind=name: Sequence(value, kind, "m_pData", "m_nSize"))
    add("CObList", ObjectList)
    add("CZEPHSortableObList", ObjectList)
    add("CString", Text)
    add("ZEPH_Long", lambda value: Plain(value["m_nValue"]))
    return collection


class Plain:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        return str(self.value)


gdb.printing.register_pretty_printer(gdb.current_objfile(), printers(), replace=True)
check_layout()

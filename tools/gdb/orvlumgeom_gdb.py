"""Shows values of OrvLumGeom in gdb: strings, lists, maps, points, vectors, matrices, tensors, scripting values.

    (gdb) source tools/gdb/orvlumgeom_gdb.py

Needs the types' debug information: of a library built with -g, or of a program built with -g -femit-class-debug-always
(Clang: -fstandalone-debug).
"""

import gdb
import gdb.printing

KINDS = {6: "quaternion 2D", 7: "quaternion 3D", 9: "3D full", 10: "3D planar", 11: "3D surface", 12: "2D planar",
         13: "2D surface"}
NUMBERS = ["SCHAR", "SHORT", "INT", "FLOAT", "DOUBLE", "UINT"]


def member(value, *names):
    """The first member that there is, of a base class too."""
    for name in names:
        try:
            return value[name]
        except gdb.error:
            pass
    raise gdb.error(f"no member {names}")


def pointee(pointer):
    """What a cow_Shared or a std::shared_ptr holds; None for nothing."""
    address = member(pointer, "_data", "_M_ptr")
    address = address if address.type.strip_typedefs().code == gdb.TYPE_CODE_PTR else address["_M_ptr"]
    return address.dereference() if address else None


def text_of(string):
    """The bytes of a cow_String, in quotes."""
    held = pointee(string["_text"])
    text = held["_M_dataplus"]["_M_p"].string("utf-8", "replace", int(held["_M_string_length"])) if held else ""
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def number(value):
    """With the digits that tell it from its neighbours."""
    return f"{float(value):.9g}" if value.type.strip_typedefs().sizeof == 4 else repr(float(value))


def tuple_of(values):
    return "(" + ", ".join(number(value) for value in values) + ")"


class Printer:
    def __init__(self, value):
        self.value = value
        self.name = str(value.type.strip_typedefs().unqualified())


class Text(Printer):
    """A text, and values that are one inside."""

    def to_string(self):
        text = member(self.value, "_expr", "_typeString", "_stringValue", "_path", "_name", "_text")
        return text_of(self.value if text.type.strip_typedefs().name != "cow_String" else text)


class List(Printer):
    """A list, and what is one inside: arrays of objects, sequences of scripting values."""

    def elements(self):
        own = self.value if self.name.startswith("cow_List<") else member(self.value, "_primVector", "_data")
        vector = pointee(own["_elements"])
        if vector is None:
            return None, 0
        start = vector["_M_impl"]["_M_start"]
        return start, int(vector["_M_impl"]["_M_finish"] - start)

    def to_string(self):
        return f"{self.name} of {self.elements()[1]}"

    def children(self):
        start, length = self.elements()
        return ((f"[{i}]", start[i]) for i in range(length))

    def display_hint(self):
        return "array"


class Map(Printer):
    def entries(self):
        held = member(self.value, "_dict", "_map")
        return held if self.name.startswith("omu_") else pointee(held)

    def to_string(self):
        entries = self.entries()
        return f"{self.name} of {int(entries['_M_t']['_M_impl']['_M_node_count']) if entries is not None else 0}"

    def children(self):
        """Keys and values by turns. Walks the tree of std::map: its nodes' type cannot always be found by name."""
        entries = self.entries()
        if entries is None:
            return
        key, mapped = (entries.type.strip_typedefs().template_argument(i) for i in (0, 1))
        header = entries["_M_t"]["_M_impl"]["_M_header"]
        base = header.type.sizeof
        behind = -(-key.sizeof // mapped.alignof) * mapped.alignof
        pending, node = [], header["_M_parent"]
        while node or pending:
            if node:
                pending.append(node)
                node = node["_M_left"]
                continue
            node = pending.pop()
            place = int(node) + base
            yield "key", gdb.Value(place).cast(key.pointer()).dereference()
            yield "value", gdb.Value(place + behind).cast(mapped.pointer()).dereference()
            node = node["_M_right"]

    def display_hint(self):
        return "map"


class Coordinates(Printer):
    """Points and vectors of both modules."""

    def to_string(self):
        try:
            elements = self.value["_xyz"]["_M_elems"]
            return tuple_of(elements[i] for i in range(3))
        except gdb.error:
            names = ["_x", "_y", "_z"] + (["_w"] if self.name == "g3d_Point" else [])
            return tuple_of(self.value[name] for name in names)


class Matrix(Printer):
    """Row by row."""

    def to_string(self):
        elements = self.value["_m"]
        flat = elements[0].type.strip_typedefs().code != gdb.TYPE_CODE_ARRAY
        rows = ([elements[4 * i + j] if flat else elements[i][j] for j in range(4)] for i in range(4))
        return "(" + ", ".join(tuple_of(row) for row in rows) + ")"


class Components(Printer):
    """Tensors, quaternions, vectors and scalars of results."""

    def to_string(self):
        kind, count = int(self.value["_kind"]), int(self.value["_count"])
        flags = "" if self.value["_ownsComponents"] else ", wraps"
        flags += ", engineering shears" if self.value["_engineeringShear"] else ""
        numbers = tuple_of(self.value["_components"][i] for i in range(count))
        return f"{KINDS.get(kind, f'kind {kind}')}{flags} {numbers}"


class Handle(Printer):
    """What it holds, as the class that it really is."""

    def to_string(self):
        held = pointee(self.value["_object"])
        return "null" if held is None else held.cast(held.dynamic_type).format_string()


class Number(Printer):
    def to_string(self):
        kind = int(self.value["_dataType"])
        name = NUMBERS[kind] if 0 <= kind < len(NUMBERS) else f"kind {kind}"
        if name == "UINT":
            return f"UINT {int(self.value['_uvalue'])}"
        value = float(self.value["_value"])
        return f"{name} {value!r}" if name in ("FLOAT", "DOUBLE") else f"{name} {value:.0f}"


class Flag(Printer):
    """Truth values and None."""

    def to_string(self):
        if self.name == "omu_PrimNone":
            return "None (set)" if self.value["_isSet"] else "None"
        return "True" if self.value["_value"] else "False"


TABLE = [
    (Text, r"^(cow_String|atr_String|OrvBasUtlFilePath|omu_VelmorName)$"),
    (Text, r"^omu_Prim(String|TranslatedString|Expr|Type|EnumBase|Enum<.*>|Bool<.*>)$"),
    (List, r"^(cow_List<.*>|omu_xoObjVarray<.*>|omu_Prim(Tuple|List)|omu_Arguments)$"),
    (Map, r"^(cow_Map|omu_PrimDictionary)<.*>$"),
    (Coordinates, r"^(gsl_(Persistent)?(Point|Vector)|g3d_(Point|Vector|Storage))$"),
    (Matrix, r"^(gsl_(Persistent)?Matrix|g3d_XForm)$"),
    (Components, r"^utf_(Tensor|Quaternion|Vector|Scalar|EngineeringData)<.*>$"),
    (Handle, r"^cow_CountedHld<.*>$"),
    (Number, r"^omu_PrimNumber$"),
    (Flag, r"^omu_Prim(Boolean|None)$"),
]

printers = gdb.printing.RegexpCollectionPrettyPrinter("OrvLumGeom")
for number_of_row, (printer, pattern) in enumerate(TABLE):
    printers.add_printer(f"{printer.__name__}{number_of_row}", pattern, printer)
gdb.printing.register_pretty_printer(None, printers, replace=True)

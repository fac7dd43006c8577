#!/usr/bin/python3
# SPDX-License-Identifier: LicenseRef-ORVALD
"""Makes a folder of DXF files with one fault each out of a good one, for tests of the audit.

    damage_dxf.py GOOD.dxf FOLDER    one line per file: its name and the kind of problem that an audit must find;
                                     kind "-" for changes that are no fault

GOOD.dxf is a file as make_dxf.py's "sample" gives it. A fault is a change of its groups, written below as a function of
the list of [code, value] pairs; one that finds nothing to change ends the run with an error.
"""
import os
import sys


class Drawing:
    """The groups of a file with the searches that the faults need."""

    def __init__(self, path):
        with open(path, encoding="utf-8", errors="surrogateescape", newline="") as file:
            lines = file.read().replace("\r\n", "\n").split("\n")
        self.groups = [[int(code), value] for code, value in zip(lines[0::2], lines[1::2])]

    def bytes(self):
        return "".join(f"{code:3}\n{value}\n" for code, value in self.groups).encode("utf-8", "surrogateescape")

    def find(self, code, value=None, start=0):
        for i in range(start, len(self.groups)):
            if self.groups[i][0] == code and value in (None, self.groups[i][1]):
                return i
        raise LookupError(f"no group {code} {value} from {start} on")

    def section(self, name):
        """First group behind the section's name, and its ENDSEC."""
        i = next(i for i in range(1, len(self.groups))
                 if self.groups[i] == [2, name] and self.groups[i - 1] == [0, "SECTION"])
        return i + 1, self.find(0, "ENDSEC", i)

    def record(self, kind, section="ENTITIES", number=0):
        """Groups of a record: first and one behind its last."""
        i, stop = self.section(section)
        for _ in range(number + 1):
            i = self.find(0, kind, i) + 1
        if i > stop:
            raise LookupError(f"no {kind} in {section}")
        return i - 1, self.find(0, None, i)

    def table(self, name):
        """Its TABLE group and its ENDTAB."""
        i = next(i for i in range(1, len(self.groups))
                 if self.groups[i] == [2, name] and self.groups[i - 1] == [0, "TABLE"])
        return i - 1, self.find(0, "ENDTAB", i)

    def layer(self, name):
        i = self.find(2, name, self.table("LAYER")[0])
        while self.groups[i][0] != 0:
            i -= 1
        return i, self.find(0, None, i + 1)

    def inside(self, span, code, value=None):
        i = self.find(code, value, span[0])
        if i >= span[1]:
            raise LookupError(f"no group {code} in {self.groups[span[0]]}")
        return i

    def set(self, span, code, new, value=None):
        self.groups[self.inside(span, code, value)][1] = new

    def drop(self, span, code, value=None):
        del self.groups[self.inside(span, code, value)]

    def insert(self, at, text):
        """Groups written "code value|code value"."""
        new = [group.partition(" ") for group in text.split("|")]
        self.groups[at:at] = [[int(code), value] for code, _, value in new]

    def handle(self, span):
        return self.groups[self.inside(span, 5)][1]


def line(d):
    return d.record("LINE")


def append(d, section, text):
    d.insert(d.section(section)[1], text)


NEW_LINE = "0 LINE|5 FFFA01|330 {0}|100 AcDbEntity|8 0|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 1.0|21 1.0|31 0.0"
POLYLINE = "0 POLYLINE|5 FFFA02|330 {0}|100 AcDbEntity|8 0|100 AcDb2dPolyline|66 1|10 0.0|20 0.0|30 0.0"
VERTEX = "0 VERTEX|5 FFFA03|330 FFFA02|100 AcDbEntity|8 0|100 AcDbVertex|100 AcDb2dVertex|10 1.0|20 1.0|30 0.0"


def model(d):
    return d.groups[d.inside(line(d), 330)][1]


def add(d, text):
    append(d, "ENTITIES", text.format(model(d)))


def seed(d, value):
    d.groups[d.find(9, "$HANDSEED") + 1][1] = value


def root(d):
    return d.record("DICTIONARY", "OBJECTS")


def space_block(d):
    return d.inside((d.find(2, "*Model_Space", d.section("BLOCKS")[0]), len(d.groups)), 0, "ENDBLK")


def add_xdata(d, text):
    d.insert(line(d)[1], text)


def cut(d):
    del d.groups[len(d.groups) // 2:]


def shift_section(d):
    first, stop = d.section("TABLES")
    moved = d.groups[first - 2:stop + 1]
    del d.groups[first - 2:stop + 1]
    d.groups[d.section("OBJECTS")[0] - 2:d.section("OBJECTS")[0] - 2] = moved


def drop_section(d, name):
    first, stop = d.section(name)
    del d.groups[first - 2:stop + 1]


def drop_table(d, name):
    first, stop = d.table(name)
    del d.groups[first:stop + 1]


def cycle(d):
    bolt = d.find(2, "BOLT", d.section("BLOCKS")[0])
    owner = d.groups[d.inside((bolt - 6, bolt), 330)][1]
    d.insert(d.find(0, "ENDBLK", bolt), f"0 INSERT|5 FFFA04|330 {owner}|100 AcDbEntity|8 0|100 AcDbBlockReference|"
             "2 PLATE|10 0.0|20 0.0|30 0.0")


def extension_of(d):
    at = d.find(102, "{ACAD_XDICTIONARY")
    return d.groups[at + 1]


def hatch(d, code, new):
    d.set(d.record("HATCH"), code, new)


# Name of the file, the kind of problem, the change.
FAULTS = [
    ("good", "-", lambda d: None),
    ("comment", "-", lambda d: d.insert(line(d)[0] + 1, "999 a comment")),
    ("plus_sign", "-", lambda d: d.set(line(d), 10, " +1.5 ")),
    ("big_seed", "-", lambda d: seed(d, "FFFFFFF")),
    ("new_line", "-", lambda d: (add(d, NEW_LINE), seed(d, "FFFB00"))),
    ("undefined_layer", "-", lambda d: d.set(line(d), 8, "NOWHERE")),
    ("dangling_reactor", "-", lambda d: d.insert(line(d)[0] + 2, "102 {ACAD_REACTORS|330 DEAD|102 }")),
    ("long_text", "-", lambda d: d.set(d.record("TEXT"), 1, "x" * 3000)),
    ("cut", "structure", cut),
    ("no_end", "structure", lambda d: d.groups.pop()),
    ("no_endsec", "structure", lambda d: d.groups.pop(d.section("BLOCKS")[1])),
    ("no_endtab", "structure", lambda d: d.groups.pop(d.table("LAYER")[1])),
    ("section_order", "structure", shift_section),
    ("section_twice", "structure", lambda d: d.insert(d.section("OBJECTS")[1] + 1, "0 SECTION|2 CLASSES|0 ENDSEC")),
    ("no_objects", "structure", lambda d: drop_section(d, "OBJECTS")),
    ("no_classes", "structure", lambda d: drop_section(d, "CLASSES")),
    ("no_table", "structure", lambda d: drop_table(d, "DIMSTYLE")),
    ("record_outside", "structure", lambda d: d.insert(len(d.groups) - 1, NEW_LINE.format("1F"))),
    ("foreign_record", "structure", lambda d: d.set(d.layer("LAYER_1"), 0, "STYLE", "LAYER")),
    ("text_as_code", "unreadable", lambda d: d.groups.insert(line(d)[0], [9999, "one"])),
    ("byte_order_mark", "byte-order-mark", lambda d: d.groups[0].__setitem__(0, "\ufeff  0")),
    ("unknown_group", "unknown-group", lambda d: d.insert(line(d)[1], "150 1")),
    ("not_whole", "not-whole", lambda d: d.insert(d.inside(line(d), 8), "62 red")),
    ("out_of_range", "out-of-range", lambda d: d.insert(d.inside(line(d), 8), "62 70000")),
    ("comma", "not-a-number", lambda d: d.set(line(d), 10, "1,5")),
    ("nan", "not-finite", lambda d: d.set(line(d), 10, "nan")),
    ("infinite", "not-finite", lambda d: d.set(line(d), 20, "1e999")),
    ("not_a_handle", "not-a-handle", lambda d: d.set(line(d), 330, "XYZ")),
    ("not_hexadecimal", "not-hexadecimal", lambda d: d.set(d.record("XRECORD", "OBJECTS"), 310, "0G")),
    ("control_character", "control-character", lambda d: d.set(d.record("TEXT"), 1, "a\x01b")),
    ("not_utf8", "not-utf8", lambda d: d.set(d.record("TEXT"), 1, "W\udce4nde")),
    ("no_version", "header", lambda d: d.groups.__delitem__(slice(d.find(9, "$ACADVER"), d.find(9, "$ACADVER") + 2))),
    ("low_seed", "header", lambda d: seed(d, "20")),
    ("maintenance_group", "header", lambda d: d.groups[d.find(9, "$ACADMAINTVER") + 1].__setitem__(0, 90)),
    ("class_groups", "class", lambda d: d.drop(d.record("CLASS", "CLASSES"), 280)),
    ("handle_in_use", "handle-in-use", lambda d: d.set(d.record("LINE", number=1), 5, d.handle(line(d)))),
    ("no_handle", "no-handle", lambda d: d.drop(line(d), 5)),
    ("owner_missing", "owner", lambda d: d.set(line(d), 330, "DEAD")),
    ("no_owner", "owner", lambda d: d.drop(line(d), 330)),
    ("owner_zero", "owner", lambda d: d.set(line(d), 330, "0")),
    ("owner_kind", "owner", lambda d: d.set(line(d), 330, d.handle(d.layer("0")))),
    ("not_its_table", "owner", lambda d: d.set(d.layer("LAYER_1"), 330, model(d))),
    ("entry_missing", "dangling-reference", lambda d: d.insert(root(d)[1], "3 NOTHING|350 DEAD")),
    ("plot_style_missing", "dangling-reference", lambda d: d.set(d.layer("LAYER_1"), 390, "DEAD")),
    ("xrecord_reference", "dangling-reference", lambda d: d.insert(d.record("XRECORD", "OBJECTS")[1], "340 DEAD")),
    ("extension_missing", "extension-dictionary", lambda d: extension_of(d).__setitem__(1, "DEAD")),
    ("extension_no_dictionary", "extension-dictionary",
     lambda d: extension_of(d).__setitem__(1, d.handle(d.layer("0")))),
    ("key_without_entry", "dictionary-entry", lambda d: d.insert(root(d)[1], "3 ALONE")),
    ("key_twice", "dictionary-entry", lambda d: d.insert(root(d)[1], f"3 acad_group|350 {d.handle(root(d))}")),
    ("entry_itself", "dictionary-entry", lambda d: d.insert(root(d)[1], f"3 ME|350 {d.handle(root(d))}")),
    ("entry_entity", "dictionary-entry", lambda d: d.insert(root(d)[1], f"3 LINE|350 {d.handle(line(d))}")),
    ("entry_nothing", "dictionary-entry", lambda d: d.insert(root(d)[1], "3 NOTHING|350 0")),
    ("no_default", "dictionary-entry", lambda d: d.drop(d.record("ACDBDICTIONARYWDFLT", "OBJECTS"), 340)),
    ("entry_of_another", "dictionary-entry",
     lambda d: d.set(d.record("XRECORD", "OBJECTS"), 330, d.handle(root(d)))),
    ("root_owner", "root-dictionary", lambda d: d.set(root(d), 330, model(d))),
    ("no_layouts", "root-dictionary", lambda d: d.set(root(d), 3, "OTHER", "ACAD_LAYOUT")),
    ("layout_block", "layout", lambda d: layout_block(d)),
    ("missing_style", "missing-record", lambda d: d.set(d.table("STYLE"), 2, "OTHER", "Standard")),
    ("second_layer", "second-record", lambda d: d.set(d.table("LAYER"), 2, "layer_1", "LAYER_2")),
    ("bad_name", "name", lambda d: d.set(d.table("LAYER"), 2, "a|b*c", "LAYER_2")),
    ("layer_groups", "layer", lambda d: d.drop(d.layer("LAYER_1"), 370)),
    ("layer_colour", "layer", lambda d: d.set(d.layer("LAYER_1"), 62, "0")),
    ("table_marker", "no-marker", lambda d: d.drop(d.layer("LAYER_1"), 100, "AcDbSymbolTableRecord")),
    ("entity_marker", "no-marker", lambda d: d.drop(line(d), 100, "AcDbEntity")),
    ("dictionary_marker", "no-marker", lambda d: d.drop(d.record("DICTIONARY", "OBJECTS", 1), 100)),
    ("dimstyle_head", "no-marker", lambda d: d.drop(d.table("DIMSTYLE"), 100, "AcDbDimStyleTable")),
    ("marker_twice", "second-marker", lambda d: d.insert(d.inside(line(d), 100, "AcDbLine"), "100 AcDbLine")),
    ("open_braces", "braces", lambda d: d.insert(line(d)[0] + 2, "102 {ACAD_REACTORS|330 1F")),
    ("stray_brace", "braces", lambda d: d.insert(line(d)[0] + 2, "102 }")),
    ("dimstyle_font", "wrong-kind",
     lambda d: d.insert(d.record("DIMSTYLE", "TABLES")[1], "340 " + d.handle(d.layer("0")))),
    ("plot_style_kind", "wrong-kind", lambda d: d.set(d.layer("LAYER_1"), 390, d.handle(root(d)))),
    ("no_endblk", "block", lambda d: d.groups.__delitem__(slice(*d.record("ENDBLK", "BLOCKS", 2)))),
    ("no_block_record", "block", lambda d: d.set((d.section("BLOCKS")[0], len(d.groups)), 2, "UNKNOWN", "BOLT")),
    ("block_cycle", "block-cycle", cycle),
    ("in_space_block", "misplaced-entity", lambda d: d.insert(space_block(d), NEW_LINE.format(model(d)))),
    ("no_layer", "undefined-name", lambda d: d.drop(line(d), 8)),
    ("linetype", "undefined-name", lambda d: d.insert(d.inside(line(d), 8), "6 NOWHERE")),
    ("layer_linetype", "undefined-name", lambda d: d.set(d.layer("LAYER_1"), 6, "NOWHERE")),
    ("text_style", "undefined-name", lambda d: d.set(d.record("TEXT"), 7, "NOWHERE")),
    ("no_block_name", "undefined-name", lambda d: d.drop(d.record("INSERT"), 2)),
    ("unknown_block", "undefined-name", lambda d: d.set(d.record("INSERT"), 2, "NOWHERE")),
    ("dimension_block", "undefined-name", lambda d: d.set(d.record("DIMENSION"), 2, "*D99")),
    ("attribute_style", "undefined-name", lambda d: d.insert(d.record("ATTRIB")[1], "7 NOWHERE")),
    ("colour", "colour", lambda d: d.insert(d.inside(line(d), 8), "62 300")),
    ("line_weight", "line-weight", lambda d: d.insert(d.inside(line(d), 8), "370 7")),
    ("vertex_alone", "sequence", lambda d: (add(d, VERTEX), seed(d, "FFFB00"))),
    ("no_seqend", "sequence", lambda d: (add(d, POLYLINE + "|" + VERTEX + "|" + NEW_LINE), seed(d, "FFFB00"))),
    ("vertex_count", "vertex-count", lambda d: d.set(d.record("LWPOLYLINE"), 90, "7")),
    ("spline_knots", "counts", lambda d: d.set(d.record("SPLINE"), 72, "9")),
    ("spline_many", "counts", lambda d: d.set(d.record("SPLINE"), 74, "2147")),
    ("leader_vertices", "counts", lambda d: d.set(d.record("LEADER"), 76, "-1")),
    ("mline_vertices", "counts", lambda d: d.set(d.record("MLINE"), 72, "32767")),
    ("clip_points", "counts", lambda d: d.set(d.record("WIPEOUT"), 91, "2147483647")),
    ("normal", "normal", lambda d: d.insert(line(d)[1], "210 0.0|220 0.0|230 0.0")),
    ("path_count", "hatch-counts", lambda d: hatch(d, 91, "5")),
    ("edge_count", "hatch-counts", lambda d: hatch(d, 93, "9")),
    ("hatch_pixel", "hatch-pixel-size", lambda d: d.insert(d.inside(d.record("HATCH"), 98), "47 1.0")),
    ("xrecord_group", "xrecord", lambda d: d.insert(d.record("XRECORD", "OBJECTS")[1], "5 FF")),
    ("lone_coordinate", "lone-coordinate", lambda d: d.insert(d.record("XRECORD", "OBJECTS")[1], "10 1.0")),
    ("lone_in_entity", "lone-coordinate", lambda d: d.drop(line(d), 21)),
    ("half_normal", "lone-coordinate", lambda d: d.insert(line(d)[1], "210 0.0|220 1.0")),
    ("variable_alone", "header", lambda d: d.insert(d.find(9, "$HANDSEED"), "9 $LUNITS")),
    ("half_variable", "header", lambda d: d.insert(d.find(9, "$HANDSEED"), "9 $LIMMIN|10 0.0")),
    ("not_registered", "undefined-name", lambda d: add_xdata(d, "1001 NOWHERE|1000 x")),
    ("xdata_twice", "xdata-twice", lambda d: add_xdata(d, "1001 ACAD|1000 x|1001 ACAD|1000 y")),
    ("xdata_braces", "xdata-braces", lambda d: add_xdata(d, "1001 ACAD|1002 {|1000 x")),
    ("xdata_group", "xdata-group", lambda d: add_xdata(d, "1001 ACAD|1000 x|40 1.0")),
    ("xdata_text", "xdata-text", lambda d: add_xdata(d, "1001 ACAD|1000 " + "x" * 300)),
    ("xdata_size", "xdata-size", lambda d: add_xdata(d, "1001 ACAD" + ("|1000 " + "x" * 200) * 100)),
]


def layout_block(d):
    """The model's layout names another block record."""
    at = d.find(100, "AcDbLayout", d.section("OBJECTS")[0])
    d.groups[d.find(330, None, at)][1] = d.handle(d.layer("0"))


def main():
    good, folder = sys.argv[1:3]
    os.makedirs(folder, exist_ok=True)
    for name, kind, change in FAULTS:
        d = Drawing(good)
        change(d)
        with open(os.path.join(folder, name + ".dxf"), "wb") as file:
            file.write(d.bytes())
        print(name, kind)
    return 0


if __name__ == "__main__":
    sys.exit(main())

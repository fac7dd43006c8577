#!/usr/bin/python3
# SPDX-License-Identifier: LicenseRef-ORVALD
"""Makes DXF files with another program's library (python3-ezdxf), for tests and benchmarks.

    make_dxf.py sample VERSION OUT    one of each kind of entity and object; VERSION R2000 ... R2018
    make_dxf.py mixed COUNT OUT       COUNT mixed entities
    make_dxf.py data COUNT OUT        the same, each with xdata, extension dictionary, two xrecords
    make_dxf.py foreign VERSION OUT   what other applications keep in a drawing, in every form
    make_dxf.py kinds VERSION OUT     entities that hold more than geometry: solids, images, leaders ...
    make_dxf.py old R12 OUT           all that R12 can hold; a further word "bin" makes a binary file

Equal arguments give equal geometry: numbers come from a fixed seed.
"""
import math
import random
import sys

import ezdxf
from ezdxf.math import Vec2, Vec3


def add_resources(doc):
    for i in range(12):
        doc.layers.add(f"LAYER_{i}", color=i + 1)
    doc.layers.add("Wände_Ost", color=3)
    doc.linetypes.add("DASHED_X", [1.2, 0.8, -0.4], description="Dashed __ __")
    doc.styles.add("SIMPLEX", font="simplex.shx")
    doc.appids.add("ORV_TEST")
    block = doc.blocks.new("BOLT", base_point=(0, 0))
    block.add_circle((0, 0), 5)
    block.add_line((-7, 0), (7, 0))
    block.add_attdef("NAME", (0, 8), dxfattribs={"height": 2.5, "prompt": "Name?"})
    nested = doc.blocks.new("PLATE")
    outline = nested.add_polyline2d if doc.dxfversion == "AC1009" else nested.add_lwpolyline
    outline([(0, 0), (100, 0), (100, 50), (0, 50)], close=True)
    nested.add_blockref("BOLT", (20, 25))
    nested.add_blockref("BOLT", (80, 25))


def add_sample(doc):
    add_resources(doc)
    msp = doc.modelspace()
    msp.add_line((0, 0), (100, 50, 3), dxfattribs={"layer": "LAYER_1", "color": 3})
    msp.add_line((0.1, 0.2), (1 / 3, 1e-7), dxfattribs={"linetype": "DASHED_X", "ltscale": 0.5})
    msp.add_point((5, 5))
    msp.add_circle((50, 50), 12.5, dxfattribs={"layer": "Wände_Ost"})
    msp.add_circle((5, 5), 2, dxfattribs={"extrusion": (0, 0, -1)})
    msp.add_arc((0, 0), 30, 15, 200)
    msp.add_ellipse((10, 10), major_axis=(20, 5), ratio=0.4, start_param=0.5, end_param=4)
    msp.add_lwpolyline([(0, 0, 0, 0, 0.5), (10, 0, 1, 2, 0), (10, 10, 0, 0, -1)], close=True)
    pline = msp.add_polyline2d([(0, 0), (5, 0), (5, 5)], dxfattribs={"layer": "LAYER_2"})
    pline.vertices[1].dxf.bulge = 0.25
    msp.add_polyline3d([(0, 0, 0), (1, 2, 3), (4, 5, 6)])
    mesh = msp.add_polymesh((3, 3))
    for i in range(3):
        for j in range(3):
            mesh.set_mesh_vertex((i, j), (i, j, i * j))
    msp.add_text("Prüfung 20° ^ Maß", dxfattribs={"height": 3.5, "style": "SIMPLEX", "rotation": 30})
    msp.add_mtext("First\\Psecond {\\H2x;big} " + "long text " * 60, dxfattribs={"char_height": 2.5})
    ref = msp.add_blockref("BOLT", (30, 40), dxfattribs={"rotation": 45, "xscale": 2, "yscale": 2})
    ref.add_attrib("NAME", "M12", (32, 42))
    msp.add_blockref("PLATE", (200, 0), dxfattribs={"row_count": 2, "column_count": 3,
                                                    "row_spacing": 60, "column_spacing": 110})
    msp.add_solid([(0, 0), (10, 0), (0, 10), (10, 10)])
    msp.add_trace([(0, 0), (10, 0), (0, 1), (10, 1)])
    msp.add_3dface([(0, 0, 0), (1, 0, 0), (1, 1, 1), (0, 1, 1)])
    hatch = msp.add_hatch(color=2)
    hatch.paths.add_polyline_path([(0, 0), (30, 0), (30, 20, 0.5), (0, 20)], is_closed=True)
    edge = hatch.paths.add_edge_path()
    edge.add_line((5, 5), (10, 5))
    edge.add_arc((10, 10), 5, 270, 90)
    edge.add_line((10, 15), (5, 5))
    pattern = msp.add_hatch()
    pattern.set_pattern_fill("ANSI31", scale=2.0)
    pattern.paths.add_polyline_path([(50, 0), (80, 0), (80, 20), (50, 20)], is_closed=True)
    msp.add_spline([(0, 0), (10, 20), (30, 10), (40, 40)])
    msp.add_ray((0, 0), (1, 1))
    msp.add_xline((0, 0), (1, 2))
    msp.add_leader([(0, 0), (10, 10), (20, 10)])
    msp.add_linear_dim(base=(0, 30), p1=(0, 0), p2=(40, 0)).render()
    msp.add_mline([(0, 0), (50, 0), (50, 30)])
    msp.add_wipeout([(0, 0), (5, 5)])
    line = msp.add_line((1, 2), (3, 4))
    line.set_xdata("ORV_TEST", [(1000, "text\twith tab"), (1002, "{"), (1040, 0.1), (1071, 70000),
                                (1010, Vec3(1, 2, 3)), (1005, line.dxf.handle), (1004, b"\x00\x7f\xff"),
                                (1002, "}")])
    line.set_reactors([msp.block_record_handle])
    xdict = line.new_extension_dict()
    record = xdict.add_xrecord("KEEP")
    record.reset([(1, "eins"), (40, 1e-300), (10, (1.5, 2.5, 3.5)), (90, -5), (70, 12),
                  (330, line.dxf.handle), (290, 1), (160, 2 ** 40), (310, bytes(range(100)))])
    table = doc.rootdict.add_new_dict("ORV_TABLE", hard_owned=True)
    for i in range(20):
        table.add_xrecord(f"Row{i}").reset([(1, f"row {i}"), (40, i * 0.1)])
    psp = doc.layout("Layout1")
    psp.add_text("sheet", dxfattribs={"height": 5})
    doc.layouts.new("Second").add_line((0, 0), (10, 10))
    doc.groups.new("PAIR").extend([line])


def add_mixed(doc, count, with_data):
    rnd = random.Random(4711)
    add_resources(doc)
    msp = doc.modelspace()

    def point():
        return rnd.uniform(0, 10000), rnd.uniform(0, 10000)

    for i in range(count):
        attribs = {"layer": f"LAYER_{i % 12}"}
        kind = i % 10
        if kind < 4:
            entity = msp.add_line(point(), point(), dxfattribs=attribs)
        elif kind == 4:
            entity = msp.add_circle(point(), rnd.uniform(1, 50), dxfattribs=attribs)
        elif kind == 5:
            entity = msp.add_arc(point(), rnd.uniform(1, 50), rnd.uniform(0, 360), rnd.uniform(0, 360),
                                 dxfattribs=attribs)
        elif kind < 8:
            entity = msp.add_lwpolyline([(*point(), 0, 0, rnd.choice((0, 0, 0.5))) for _ in range(6)],
                                        close=True, dxfattribs=attribs)
        elif kind == 8:
            entity = msp.add_text(f"Position {i}", dxfattribs={**attribs, "height": 2.5})
            entity.set_placement(point())
        else:
            entity = msp.add_blockref("BOLT", point(), dxfattribs={**attribs, "rotation": rnd.uniform(0, 360)})
        if with_data:
            entity.set_xdata("ORV_TEST", [(1000, f"item {i}"), (1040, rnd.random())])
            xdict = entity.new_extension_dict()
            for key in ("DATA", "MORE"):
                xdict.add_xrecord(key).reset([(1, f"{key} {i}"), (40, rnd.random()), (90, i)])


TEXTS = ["", " ", "  leading and trailing  ", "Prüfung ß 20° ∅", "caret ^ here", "^J^I", "%%c %%%",
         "\\U+00B0 \\P{\\H2x;}", "tab\there", "\U0001F600 beyond", "EOF", "  0", "x" * 250, "long " * 5000]
REALS = [0.0, -0.0, 0.1, 1 / 3, 5e-324, -2.2250738585072014e-308, 1.7976931348623157e308, 1e16, 123456789.123456789,
         9007199254740993.0, 1e-5, 9.999999999999999e22]


def all_groups(handles):
    """One group or more of each kind that stands in xrecords, those of AutoCAD alone included."""
    tags = [(code, TEXTS[i % len(TEXTS)]) for i, code in enumerate((1, 2, 3, 4, 6, 7, 8, 9, 300, 301, 309, 410))]
    tags += [(1, text) for text in TEXTS] + [(102, "{ANY"), (102, "text at all"), (102, "}")]
    tags += [(40 + i % 20, value) for i, value in enumerate(REALS)] + [(140, 1e-300), (149, -1e300), (460, 0.7)]
    tags += [(code, Vec3(0.1, -1e-17, 1e300)) for code in (10, 11, 17, 110, 111, 112, 210)]
    tags += [(60, -32768), (79, 32767), (170, 1), (270, -1), (280, 5), (290, 0), (299, 1), (370, -3), (90, -2 ** 31),
             (99, 2 ** 31 - 1), (420, 255), (440, -1), (160, 2 ** 62), (169, -2 ** 62), (1070, 7), (1071, 70000)]
    tags += [(310, bytes(range(127))), (319, b""), (1004, b"\x00\xff"), (310, bytes(200))]
    tags += [(code, handles[i % len(handles)])
             for i, code in enumerate((320, 330, 340, 350, 360, 390, 331, 341, 329))]
    return tags + [(330, "0"), (340, "0")]


def add_foreign(doc):
    add_resources(doc)
    doc.appids.add("FREMD-Ä")
    msp = doc.modelspace()
    lines = [msp.add_line((i, 0), (i, 1 / (i + 1))) for i in range(8)]
    handles = [line.dxf.handle for line in lines]
    root = doc.rootdict.add_new_dict("Fremde_App", hard_owned=True)
    soft = doc.rootdict.add_new_dict("another app", hard_owned=False)
    for number, key in enumerate(("zulu", "Alpha", "ÖSE", "alpha2", "*A7", "*A3", "_x", "9", "10", "b c", "Ähre", "Z")):
        root.add_xrecord(key).reset([(1, f"entry {number}"), (90, number)])
        soft.add_xrecord(key).reset([(40, number * 0.1)])
    deep = root
    for level in range(40):
        deep = deep.add_new_dict(f"Level {level}", hard_owned=level % 2 == 0)
    deep.add_xrecord("bottom").reset(all_groups(handles))
    root.add_xrecord("all").reset(all_groups(handles))
    root.add_xrecord("empty").reset([])
    root.add_xrecord("huge").reset([(1, "0123456789" * 10000)] + [(310, bytes([i % 256] * 127)) for i in range(500)])
    root.add_dict_var("VARIABLE", "of text")
    # Data on everything: entities, table records, blocks, dictionaries, an xrecord, twice as deep.
    owners = lines + [doc.layers.get("LAYER_1"), doc.styles.get("SIMPLEX"), doc.blocks.get("BOLT").block_record,
                      msp.block_record, root, root["all"]]
    for number, owner in enumerate(owners):
        xdict = owner.new_extension_dict()
        record = xdict.add_xrecord("ÄUSSERES" if number % 2 else "outer")
        record.reset(all_groups(handles))
        record.new_extension_dict().add_xrecord("inner").reset([(330, owner.dxf.handle)])
        owner.set_xdata("ORV_TEST", [(1000, text) for text in TEXTS if len(text) < 255] + [
            (1002, "{"), (1010, Vec3(1, 2, 3)), (1011, Vec3(0.1, 0, 0)), (1040, 5e-324), (1041, -0.0), (1042, 1e300),
            (1070, -32768), (1071, 2 ** 31 - 1), (1003, "LAYER_2"), (1005, handles[0]), (1004, bytes(range(127))),
            (1002, "}")])
        owner.set_xdata("FREMD-Ä", [(1000, f"second {number}")])
        # In an order of their own, one more than once removed, one that leads nowhere.
        owner.set_reactors([handles[number % 8], root.dxf.handle, "DEAD", soft.dxf.handle])
    doc.groups.new("PAIR").extend(lines[:2])
    doc.groups.new("*A5").extend(lines[2:5])


# A cube as the text of its boundary: what the kinds of solids carry, whatever it says.
SOLID_TEXT = ["400 0 1 0", "16 Test file 15 ASM 7.0", "25.4 1e-06 1e-10", "body $-1 -1 $-1 $1 $-1 $-1 #"]


def add_kinds(doc):
    add_resources(doc)
    msp = doc.modelspace()
    for add in (msp.add_3dsolid, msp.add_region, msp.add_body):
        if doc.dxfversion < "AC1027":  # later the boundary is binary, in another section
            add().sat = SOLID_TEXT
    image = doc.add_image_def("picture.png", (640, 400))
    msp.add_image(image, (0, 0), (64, 40), rotation=30)
    underlay = doc.add_underlay_def("plan.pdf", fmt="pdf", name="1")
    msp.add_underlay(underlay, (10, 10))
    msp.add_wipeout([(0, 0), (5, 0), (5, 5)])
    msp.add_mline([(0, 0), (50, 0), (50, 30)])
    msp.add_mesh().vertices = [(0, 0, 0), (1, 0, 0), (1, 1, 0)]
    msp.add_helix(10, 5, 3)
    msp.new_entity("TOLERANCE", {"content": "{\\Fgdt;j}%%v0.1", "dimstyle": "Standard"})
    msp.add_shape("SHAPE", (1, 1), 2.0)
    leader = msp.add_multileader_mtext("Standard")
    leader.set_content("two\nlines")
    leader.add_leader_line(ezdxf.render.mleader.ConnectionSide.left, [(-20, 15)])
    leader.build(Vec2(5, 5))
    for number, dim in enumerate((
            msp.add_linear_dim(base=(0, 30), p1=(0, 0), p2=(40, 0), angle=15),
            msp.add_aligned_dim(p1=(0, 0), p2=(40, 10), distance=5),
            msp.add_radius_dim(center=(0, 0), radius=5, angle=45),
            msp.add_diameter_dim(center=(0, 0), radius=5, angle=45),
            msp.add_angular_dim_3p(base=(0, 7), center=(0, 0), p1=(5, 0), p2=(0, 5)),
            msp.add_ordinate_dim((3, 4), (1, 1), 0))):
        dim.render()
    sheet = doc.layout("Layout1")
    sheet.add_viewport((100, 100), (150, 100), (0, 0), 300)


def add_old(doc):
    add_resources(doc)
    msp = doc.modelspace()
    msp.add_line((0, 0), (1, 1), dxfattribs={"linetype": "DASHED_X", "color": 3, "thickness": 2, "extrusion": (0, 0, -1)})
    msp.add_text("Grün %%c10 ^", dxfattribs={"height": 2, "rotation": 30}).set_placement((5, 5), align=ezdxf.enums.TextEntityAlignment.TOP_RIGHT)
    msp.add_polyline2d([(0, 0), (5, 0), (5, 5)]).vertices[1].dxf.bulge = 0.5
    msp.add_polyline3d([(0, 0, 0), (5, 0, 1), (5, 5, 2)])
    mesh = msp.add_polymesh((2, 2))
    for i in range(2):
        for j in range(2):
            mesh.set_mesh_vertex((i, j), (i, j, i * j))
    msp.add_polyface().append_face([(0, 0, 0), (1, 0, 0), (1, 1, 0)])
    msp.add_arc((0, 0), 30, 15, 200)
    msp.add_circle((0, 0), 3)
    msp.add_point((1, 2, 3))
    msp.add_solid([(0, 0), (10, 0), (0, 10), (10, 10)])
    msp.add_trace([(0, 0), (10, 0), (0, 1), (10, 1)])
    msp.add_3dface([(0, 0, 0), (1, 0, 0), (1, 1, 1), (0, 1, 1)])
    msp.add_shape("SHAPE", (1, 1), 2.0)
    ref = msp.add_blockref("BOLT", (30, 40), dxfattribs={"rotation": 45})
    ref.add_attrib("NAME", "M12", (32, 42))
    msp.add_linear_dim(base=(0, 30), p1=(0, 0), p2=(40, 0)).render()
    msp.add_radius_dim(center=(0, 0), radius=5, angle=45).render()
    line = msp.add_line((1, 2), (3, 4))
    line.set_xdata("ORV_TEST", [(1000, "kept"), (1040, 0.5), (1004, b"\x00\xff")])
    sheet = doc.layout("Layout1")
    sheet.add_text("sheet", dxfattribs={"height": 5})
    sheet.add_viewport((100, 100), (150, 100), (0, 0), 300)


def main():
    kind, parameter, path = sys.argv[1:4]
    version = parameter if kind in ("sample", "foreign", "kinds", "old") else "R2013"
    doc = ezdxf.new(version, setup=False)
    doc.header["$INSUNITS"] = 4
    if kind == "sample":
        add_sample(doc)
    elif kind == "foreign":
        add_foreign(doc)
    elif kind == "kinds":
        add_kinds(doc)
    elif kind == "old":
        add_old(doc)
    else:
        add_mixed(doc, int(parameter), kind == "data")
    doc.saveas(path, fmt=sys.argv[4] if len(sys.argv) > 4 else "asc")


if __name__ == "__main__":
    main()

#!/usr/bin/python3
# SPDX-License-Identifier: LicenseRef-ORVALD
"""Makes DXF files with another program's library (python3-ezdxf), for tests and benchmarks.

    make_dxf.py sample VERSION OUT    one of each kind of entity and object; VERSION R2000 ... R2018
    make_dxf.py mixed COUNT OUT       COUNT mixed entities
    make_dxf.py data COUNT OUT        the same, each with xdata, extension dictionary, two xrecords
    make_dxf.py foreign VERSION OUT   what other applications keep in a drawing, in every form
    make_dxf.py kinds VERSION OUT     every kind of entity and object besides: solids, images, leaders, proxies ...
    make_dxf.py old R12 OUT           all that R12 can hold

A further word "bin" makes a binary file. Equal arguments give equal geometry: numbers come from a fixed seed.
Exit 77 when ezdxf is missing.
"""
import math
import random
import sys

try:
    import ezdxf
    from ezdxf.math import Vec2, Vec3
except ImportError:
    sys.exit(77)


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


# Records as their text: what the library keeps without knowing it. {0} to {2}: handles of the record, its owner,
# a line; the class of the proxies is the first of the file.
RAW_ENTITIES = [
    "0 ACAD_PROXY_ENTITY|5 {0}|330 {1}|100 AcDbEntity|8 LAYER_3|100 AcDbProxyEntity|90 498|91 500|95 33|70 0|"
    "160 12|310 0C00000001000000FFFFFFFF|162 2|311 4141|161 16|310 F00F|340 {2}|330 DEAD|94 0",
    "0 FOREIGN_PROFILE|5 {0}|330 {1}|100 AcDbEntity|8 0|62 3|160 4|310 00FF00FF|100 FremdProfile|90 3|10 1.0|20 2.0|"
    "30 3.0|10 4.0|20 5.0|30 6.0|40 0.1|290 1|1 Profil|340 {2}|101 Embedded Object|70 1|5 FFEE",
    "0 OLE2FRAME|5 {0}|330 {1}|100 AcDbEntity|8 0|100 AcDbOle2Frame|70 2|3 Sheet|10 0.0|20 9.0|30 0.0|11 9.0|21 0.0|"
    "31 0.0|71 2|72 0|90 4|310 D0CF11E0|1 OLE",
]
RAW_OBJECTS = [
    "0 ACAD_PROXY_OBJECT|5 {0}|330 {1}|100 AcDbProxyObject|90 499|91 501|95 33|70 0|161 16|310 F00F|360 0|94 0",
    "0 FOREIGN_NORM|5 {0}|102 {{ACAD_REACTORS|330 {1}|102 }}|330 {1}|100 FremdNorm|90 1|330 {2}|331 {2}|300 {{|"
    "302 list|90 2|301 }}|160 -4|3 no key|350 {2}",
]


def add_raw(doc, line):
    from ezdxf.entities import factory
    from ezdxf.lldxf.extendedtags import ExtendedTags

    def load(text, owner):
        groups = [group.partition(" ")[::2] for group in text.format(doc.entitydb.next_handle(), owner, line).split("|")]
        entity = factory.load(ExtendedTags.from_text("".join(f"{code}\n{value}\n" for code, value in groups)), doc)
        doc.entitydb.add(entity)
        return entity

    for name, cpp, is_entity in (("FOREIGN_PROFILE", "FremdProfile", 1), ("FOREIGN_NORM", "FremdNorm", 0)):
        doc.classes.add_class(name)  # ignored when unknown
        doc.classes.register(ezdxf.entities.DXFClass.new(dxfattribs={
            "name": name, "cpp_class_name": cpp, "app_name": "Fremd|mit Text", "flags": 1, "was_a_proxy": 0,
            "is_an_entity": is_entity}))
    for text in RAW_ENTITIES:
        doc.modelspace().add_entity(load(text, doc.modelspace().layout_key))
    owner = doc.rootdict.add_new_dict("FOREIGN_NORMS", hard_owned=True)
    for number, text in enumerate(RAW_OBJECTS):
        norm = load(text, owner.dxf.handle)
        doc.objects.add_object(norm)
        owner[f"Norm {number}"] = norm


def add_more_kinds(doc):
    msp = doc.modelspace()
    line = msp.add_line((0, 0), (9, 9))
    profile = msp.add_lwpolyline([(0, 0), (5, 0), (5, 5)])
    if doc.dxfversion >= "AC1021":
        for add in (msp.add_surface, msp.add_extruded_surface, msp.add_lofted_surface, msp.add_revolved_surface,
                    msp.add_swept_surface):
            surface = add()
            surface.dxf.uid = "{00000000-0000-0000-0000-000000000000}"
            if doc.dxfversion < "AC1027":
                surface.sat = SOLID_TEXT
    msp.add_rational_spline([(0, 0), (10, 20), (30, 10), (40, 40)], weights=[1, 2, 1, 1])
    faces = msp.add_polyface()
    faces.append_face([(0, 0, 0), (1, 0, 0), (1, 1, 0)])
    for part in (*faces.vertices, faces.seqend):
        part.dxf.owner = faces.dxf.handle  # the library leaves them with the block
    for kind in ("pdf", "dwf", "dgn"):
        msp.add_underlay(doc.add_underlay_def(f"plan2.{kind}", fmt=kind, name="1"), (10, 10)).set_boundary_path(
            [(0, 0), (3, 0), (3, 3)])
    msp.add_image(doc.add_image_def("clip.png", (64, 40)), (0, 0), (64, 40)).set_boundary_path([(0, 0), (6, 0), (6, 6)])
    msp.add_leader([(0, 0), (5, 5), (9, 5)], override={"dimscale": 2.0, "dimtad": 1})
    if doc.dxfversion < "AC1032":  # there the columns stand in an embedded object, which older versions lose
        msp.add_mtext_static_columns(["one\nline", "two", "three"], width=10, gutter_width=1, height=20)
    msp.add_mtext("masked ^ text").set_bg_color(2)
    gradient = msp.add_hatch(color=3)
    if doc.dxfversion >= "AC1018":
        gradient.set_gradient((10, 10, 10), (250, 250, 250), rotation=15, name="CYLINDER")
    edges = gradient.paths.add_edge_path()
    edges.add_ellipse((0, 0), (5, 0), 0.5, 0, 180)
    edges.add_spline(control_points=[(-5, 0), (-2, 3), (2, 3), (5, 0)], degree=3, knot_values=[0, 0, 0, 0, 1, 1, 1, 1])
    mpolygon = msp.add_mpolygon(color=1, fill_color=5)
    mpolygon.paths.add_polyline_path([(0, 0), (9, 0), (9, 9, 0.3)], is_closed=True)
    for dim in (msp.add_angular_dim_2l((0, 9), ((0, 0), (9, 0)), ((0, 0), (9, 9))),
                msp.add_ordinate_y_dim((3, 4), (1, 1))):
        dim.render()
    if doc.dxfversion >= "AC1018":
        msp.add_arc_dim_3p(base=(0, 7), center=(0, 0), p1=(5, 0), p2=(0, 5)).render()
    leader = msp.add_multileader_block("Standard")
    leader.set_content("BOLT")
    leader.add_leader_line(ezdxf.render.mleader.ConnectionSide.right, [(20, 15)])
    leader.build(Vec2(5, 5))
    block = doc.blocks.new("CLIPPED")
    block.add_attdef("FIXED", (0, 0), "constant", dxfattribs={"height": 1, "flags": 2})
    block.add_text("x", dxfattribs={"height": 1, "rotation": 30, "oblique": 10, "width": 0.8})
    msp.add_blockref("CLIPPED", (1, 2), dxfattribs={"extrusion": (0, 0, -1), "zscale": -1})
    if doc.dxfversion >= "AC1024":
        geo = msp.new_geodata()
        geo.coordinate_system_definition = "<Dictionary/>"
        geo.source_vertices, geo.target_vertices = [Vec2(0, 0), Vec2(1, 0)], [Vec2(9, 45), Vec2(10, 45)]
    objects = ["IDBUFFER", "LAYER_FILTER"]
    if doc.dxfversion >= "AC1021":
        msp.new_entity("LIGHT", {"name": "lamp", "location": (1, 2, 3)})
        objects.append("SUN")
    for kind in objects:
        doc.rootdict[f"A_{kind}"] = doc.objects.new_entity(kind, {"owner": doc.rootdict.dxf.handle})
    doc.set_raster_variables(frame=1)
    doc.set_wipeout_variables(frame=1)
    msp.set_redraw_order([(line.dxf.handle, profile.dxf.handle), (profile.dxf.handle, line.dxf.handle)])
    doc.groups.new("SOME").extend([line, profile])
    doc.layers.get("LAYER_4").description = "a description"
    doc.layers.get("LAYER_4").transparency = 0.5
    line.rgb = (1, 2, 3)
    line.transparency = 0.25
    doc.ucs.new("BASE", {"origin": (1, 2, 3)})
    doc.views.new("FRONT", {"height": 9})
    doc.viewports.new("LEFT")
    doc.materials.new("STEEL")
    doc.mline_styles.new("WALL").elements.append(0.5, 1)
    doc.mleader_styles.new("TALL")
    doc.dimstyles.new("TINY", dxfattribs={"dimtxt": 0.5, "dimtxsty": "SIMPLEX"})
    doc.linetypes.add("WITH_TEXT", 'A,.5,-.2,["GAS",STANDARD,S=.1,U=0.0,X=-0.1,Y=-.05],-.25', length=1.0)
    doc.styles.add_shx("symbols.shx")
    doc.layouts.new("Third").page_setup(size=(420, 297), margins=(5, 5, 5, 5))
    add_raw(doc, line.dxf.handle)


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
    ezdxf.options.write_fixed_meta_data_for_testing = True
    doc = ezdxf.new(version, setup=False)
    doc.header["$INSUNITS"] = 4
    if kind == "sample":
        add_sample(doc)
    elif kind == "foreign":
        add_foreign(doc)
    elif kind == "kinds":
        add_kinds(doc)
        add_more_kinds(doc)
    elif kind == "old":
        add_old(doc)
    else:
        add_mixed(doc, int(parameter), kind == "data")
    doc.saveas(path, fmt=sys.argv[4] if len(sys.argv) > 4 else "asc")


if __name__ == "__main__":
    main()

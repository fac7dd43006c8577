#!/usr/bin/python3
# SPDX-License-Identifier: LicenseRef-ORVALD
"""Writes a facade panel as another program would: python3-ezdxf, DXF R2010, millimetres.

    make_panel.py OUT.dxf

A cassette facade of 12 by 5 fields: in each field the flat blank of the cassette with notched
corners, rounded windows, round and slotted holes, bend lines, a name and a position block; the frame
of the whole, dimensions of the grid as lines and texts. Equal input, equal file: nothing is random.
"""
import math
import sys

import ezdxf
from ezdxf.enums import TextEntityAlignment

CENTRE = TextEntityAlignment.MIDDLE_CENTER
COLUMNS, ROWS = 12, 5
WIDTH, HEIGHT, GAP = 1180.0, 880.0, 20.0
FLANGE = 35.0
QUARTER = math.tan(math.pi / 8)  # bulge of a quarter circle


def blank(x, y, w, h):
    """Outline with a square notch of the flange's size at each corner."""
    f = FLANGE
    steps = [(f, 0), (w - f, 0), (w - f, f), (w, f), (w, h - f), (w - f, h - f), (w - f, h), (f, h),
             (f, h - f), (0, h - f), (0, f), (f, f)]
    return [(x + px, y + py) for px, py in steps]


def rounded(x, y, w, h, r):
    """Rectangle with corner radius r, counter-clockwise: x, y, bulge."""
    return [(x + r, y, 0), (x + w - r, y, QUARTER), (x + w, y + r, 0), (x + w, y + h - r, QUARTER),
            (x + w - r, y + h, 0), (x + r, y + h, QUARTER), (x, y + h - r, 0), (x, y + r, QUARTER)]


def slot(x, y, length, r):
    """Slotted hole along X about its middle."""
    a = length / 2 - r
    return [(x - a, y - r, 0), (x + a, y - r, 1), (x + a, y + r, 0), (x - a, y + r, 1)]


def layers(doc):
    for name, colour, lineweight in [("BLECH_AUSSEN", 7, 50), ("BLECH_INNEN", 5, 35),
                                     ("BOHRUNG", 1, 25), ("BIEGELINIE", 3, 18),
                                     ("TEXT", 34, 18), ("RAHMEN", 8, 70), ("POSITION", 4, 25)]:
        doc.layers.add(name, color=colour, lineweight=lineweight)
    doc.layers.get("BIEGELINIE").dxf.linetype = "DASHED"


def position_block(doc):
    block = doc.blocks.new("POS")
    block.add_circle((0, 0), 45, dxfattribs={"layer": "POSITION"})
    block.add_attdef("NR", (0, 0), dxfattribs={"height": 40, "layer": "POSITION"}).set_placement(
        (0, 0), align=CENTRE)


def field(msp, column, row):
    x, y = column * (WIDTH + GAP), row * (HEIGHT + GAP)
    w = WIDTH - 60.0 * (column % 3)
    h = HEIGHT - 40.0 * (row % 2)
    name = f"K{row + 1}{column + 1:02d}"
    msp.add_lwpolyline(blank(x, y, w, h), close=True, dxfattribs={"layer": "BLECH_AUSSEN"})
    for a, b in [((x + FLANGE, y + FLANGE), (x + w - FLANGE, y + FLANGE)),
                 ((x + w - FLANGE, y + FLANGE), (x + w - FLANGE, y + h - FLANGE)),
                 ((x + w - FLANGE, y + h - FLANGE), (x + FLANGE, y + h - FLANGE)),
                 ((x + FLANGE, y + h - FLANGE), (x + FLANGE, y + FLANGE))]:
        msp.add_line(a, b, dxfattribs={"layer": "BIEGELINIE"})
    if (column + row) % 2 == 0:
        msp.add_lwpolyline(rounded(x + 260, y + 190, w - 520, h - 460, 60), format="xyb", close=True,
                           dxfattribs={"layer": "BLECH_INNEN"})
    elif column % 4 == 1:
        # An old-style polyline: the window with one round end.
        points = [(x + 300, y + 250, 0), (x + w - 300, y + 250, 1),
                  (x + w - 300, y + h - 250, 0), (x + 300, y + h - 250, 0)]
        old = msp.add_polyline2d([p[:2] for p in points], close=True,
                                 dxfattribs={"layer": "BLECH_INNEN"})
        for vertex, point in zip(old.vertices, points):
            vertex.dxf.bulge = point[2]
    for k in range(6):
        cx = x + 2 * FLANGE + 20 + k * (w - 4 * FLANGE - 40) / 5
        msp.add_lwpolyline(slot(cx, y + FLANGE / 2, 18, 4.5), format="xyb", close=True,
                           dxfattribs={"layer": "BOHRUNG"})
        msp.add_circle((cx, y + h - FLANGE / 2), 4.5, dxfattribs={"layer": "BOHRUNG"})
    msp.add_text(name, dxfattribs={"layer": "TEXT", "height": 60}).set_placement(
        (x + w / 2, y + h - 150), align=CENTRE)
    msp.add_text("Blech 3 mm AlMg3", dxfattribs={"layer": "TEXT", "height": 30}).set_placement(
        (x + w / 2, y + h - 205), align=CENTRE)
    position = msp.add_blockref("POS", (x + 130, y + h - 150), dxfattribs={"layer": "POSITION"})
    position.add_auto_attribs({"NR": str(row * COLUMNS + column + 1)})


def frame(msp):
    w, h = COLUMNS * (WIDTH + GAP) - GAP, ROWS * (HEIGHT + GAP) - GAP
    msp.add_lwpolyline([(-100, -100), (w + 100, -100), (w + 100, h + 100), (-100, h + 100)],
                       close=True, dxfattribs={"layer": "RAHMEN"})
    # The arch above the facade: an open polyline of arcs.
    msp.add_lwpolyline([(0, h + 100, -0.15), (w / 2, h + 700, -0.15), (w, h + 100, 0)], format="xyb",
                       dxfattribs={"layer": "RAHMEN"})
    for column in range(COLUMNS):
        msp.add_text(f"Achse {column + 1}", dxfattribs={"layer": "TEXT", "height": 90}).set_placement(
            (column * (WIDTH + GAP) + WIDTH / 2, -260), align=CENTRE)
    for row in range(ROWS):
        msp.add_text(f"Ebene {row + 1}", dxfattribs={"layer": "TEXT", "height": 90, "rotation": 90}
                     ).set_placement((-260, row * (HEIGHT + GAP) + HEIGHT / 2), align=CENTRE)
    msp.add_mtext("Fassade Süd, Kassetten\\PMaßstab 1:50, alle Maße in mm",
                  dxfattribs={"layer": "TEXT", "char_height": 150, "insert": (0, h + 1500)})


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    ezdxf.options.write_fixed_meta_data_for_testing = True  # equal input, equal file
    doc = ezdxf.new("R2010", setup=["linetypes"])
    doc.header["$INSUNITS"] = 4
    doc.header["$LTSCALE"] = 20.0
    layers(doc)
    position_block(doc)
    msp = doc.modelspace()
    for row in range(ROWS):
        for column in range(COLUMNS):
            field(msp, column, row)
    frame(msp)
    doc.saveas(sys.argv[1])


if __name__ == "__main__":
    main()

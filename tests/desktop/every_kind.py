"""Makes a drawing of every kind of entity, alone and in blocks that are mirrored, stretched and nested, and works out
independently where its lines must be. Run by Debian's Python: writes the drawing and, as JSON, one list of points for
each curve and one list of outline points for each filled area."""
import json
import math
import sys

import ezdxf
from ezdxf.math import Matrix44, Vec3
from ezdxf.path import make_path

KINDS_WITH_PATHS = ("LINE", "LWPOLYLINE", "POLYLINE", "ARC", "CIRCLE", "ELLIPSE", "SPLINE", "SOLID", "TRACE", "3DFACE")


def fill(layout, dx):
    """One entity of each kind, side by side, `dx` to the right."""
    layout.add_line((dx, 0), (dx + 8, 5, 3))
    layout.add_lwpolyline([(dx, 10), (dx + 4, 12, 0.5), (dx + 8, 10, -0.3), (dx + 9, 15)], format="xyb", close=True)
    layout.add_polyline2d([(dx, 20), (dx + 5, 22), (dx + 8, 20)]).close()
    layout.add_polyline3d([(dx, 25, 1), (dx + 5, 27, 2), (dx + 8, 25, 3)])
    layout.add_arc((dx + 4, 35), 4, 200, 70)
    layout.add_arc((-dx - 4, 35, 2), 3, 20, 130, dxfattribs={"extrusion": (0, 0, -1)})
    layout.add_arc((2, 3, 1), 3, 0, 100, dxfattribs={"extrusion": (0.3, 0.2, 1)})
    layout.add_circle((dx + 4, 45), 3.5)
    layout.add_ellipse((dx + 4, 55), (4, 1), 0.4, 0.3, 4.5)
    # Long knots: a spline is drawn with chords between them.
    layout.add_spline(degree=3).control_points = [(dx, 65), (dx + 1, 69), (dx + 3, 61), (dx + 5, 69), (dx + 7, 62)]
    spline = layout.query("SPLINE").last
    spline.knots = [0, 0, 0, 0, 1, 2, 2, 2, 2]
    layout.add_solid([(dx, 75), (dx + 4, 75), (dx, 79), (dx + 5, 80)])
    layout.add_trace([(dx, 85), (dx + 4, 85), (dx, 88), (dx + 5, 89)])
    layout.add_3dface([(dx, 95), (dx + 4, 95, 1), (dx + 5, 99, 2), (dx, 98)])


def make():
    document = ezdxf.new("R2010")
    space = document.modelspace()
    fill(space, 0)
    inner = document.blocks.new("INNER", base_point=(1, 2))
    fill(inner, 0)
    outer = document.blocks.new("OUTER", base_point=(5, 5))
    outer.add_blockref("INNER", (3, 4), dxfattribs={"xscale": 0.5, "yscale": 0.5, "rotation": 30})
    outer.add_line((0, 0), (40, 0))
    space.add_blockref("INNER", (60, 0), dxfattribs={"xscale": -1})
    space.add_blockref("INNER", (80, 0), dxfattribs={"xscale": 1.5, "yscale": -0.7, "rotation": 20})
    space.add_blockref("OUTER", (130, 10), dxfattribs={"rotation": 100, "xscale": -1.2, "yscale": 1.2})
    space.add_blockref("OUTER", (-180, 60), dxfattribs={"extrusion": (0, 0, -1), "rotation": 15})
    space.add_blockref("INNER", (200, -20, 3), dxfattribs={"extrusion": (0.2, 0.4, 1), "rotation": 15})
    space.add_blockref("INNER", (20, 120), dxfattribs={"column_count": 3, "row_count": 2, "column_spacing": 30,
                                                       "row_spacing": 110, "rotation": 10})
    return document


def placement(insert, row=0, column=0):
    """Where a block reference puts its block, from the definition of its values."""
    d = insert.dxf
    base = insert.block().block.dxf.base_point
    step = Vec3(column * d.get("column_spacing", 0), row * d.get("row_spacing", 0))
    matrix = Matrix44.translate(*(-Vec3(base)))
    matrix @= Matrix44.scale(d.xscale, d.yscale, d.get("zscale", 1))
    matrix @= Matrix44.translate(*step)
    matrix @= Matrix44.z_rotate(math.radians(d.rotation))
    matrix @= Matrix44.translate(*Vec3(d.insert))
    return matrix @ insert.ocs().matrix if insert.ocs().transform else matrix


def curves(entities, matrix, found):
    for entity in entities:
        kind = entity.dxftype()
        if kind == "INSERT":
            for row in range(entity.dxf.get("row_count", 1)):
                for column in range(entity.dxf.get("column_count", 1)):
                    curves(entity.block(), placement(entity, row, column) @ matrix, found)
        elif kind in KINDS_WITH_PATHS:
            path = make_path(entity)
            points = [matrix.transform(p) for p in path.flattening(2e-3, segments=16)]
            filled = kind in ("SOLID", "TRACE")
            found.append({"kind": kind, "filled": filled, "points": [(p.x, p.y) for p in points]})


def main(drawing, expected):
    document = make()
    document.saveas(drawing)
    found = []
    curves(document.modelspace(), Matrix44(), found)
    with open(expected, "w", encoding="utf-8") as file:
        json.dump(found, file)


main(*sys.argv[1:])

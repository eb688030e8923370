"""Reads the lines of an SVG, and finds the nearest one to a point."""
import math
import re
import xml.etree.ElementTree as ElementTree

CELL = 8.0


def read(path):
    """The lists of points of all paths, in the picture's coordinates (the program writes no transformation)."""
    lines = []
    for group in ElementTree.parse(path).iter():
        matrix = group.get("transform", "matrix(1,0,0,1,0,0)")
        assert re.sub(r"\s", "", matrix) == "matrix(1,0,0,1,0,0)", matrix
        if group.tag.endswith("}path"):
            lines += subpaths(group.get("d"))
    return lines


def subpaths(text):
    found = []
    for letter, x, y in re.findall(r"([ML])\s*(-?[\d.e+-]+),(-?[\d.e+-]+)", text):
        if letter == "M":
            found.append([])
        found[-1].append((float(x), float(y)))
    return found


class Nearest:
    """The segments of many lines by the cells they pass."""

    def __init__(self, lines):
        self.cells = {}
        for line in lines:
            for a, b in zip(line, line[1:] or line):
                steps = int(math.dist(a, b) / CELL * 2) + 1
                for i in range(steps + 1):
                    x, y = (a[k] + (b[k] - a[k]) * i / steps for k in (0, 1))
                    self.cells.setdefault((int(x // CELL), int(y // CELL)), set()).add((a, b))

    def distance(self, point):
        cx, cy = (int(v // CELL) for v in point)
        near = set().union(*(self.cells.get((cx + i, cy + j), ()) for i in (-1, 0, 1) for j in (-1, 0, 1)))
        return min((to_segment(point, *segment) for segment in near), default=CELL)


def to_segment(p, a, b):
    dx, dy = b[0] - a[0], b[1] - a[1]
    square = dx * dx + dy * dy
    part = max(0.0, min(1.0, ((p[0] - a[0]) * dx + (p[1] - a[1]) * dy) / square)) if square else 0.0
    return math.dist(p, (a[0] + dx * part, a[1] + dy * part))

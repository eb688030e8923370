"""Draws docs/symbols.png: every symbol drawing of a folder on one sheet, its base point marked, as another program shows it.

usage: /usr/bin/python3 sheet.py FOLDER OUT.png [NAME...]   (Debian: python3-ezdxf, python3-matplotlib)
"""

import math
import pathlib
import sys

import ezdxf
import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt
from ezdxf.addons.drawing import Frontend, RenderContext
from ezdxf.addons.drawing.config import Configuration
from ezdxf.addons.drawing.matplotlib import MatplotlibBackend

COLUMNS = 10
CELL = 3.7

folder, out, *names = sys.argv[1:]
paths = sorted(path for path in pathlib.Path(folder).glob("*.dxf") if not names or path.stem in names)
columns = min(COLUMNS, len(paths))
rows = math.ceil(len(paths) / columns)
figure, cells = plt.subplots(rows, columns, figsize=(columns * 1.35, rows * 1.5), dpi=100, squeeze=False)
for cell in cells.flat:
    cell.axis("off")
for cell, path in zip(cells.flat, paths):
    drawing = ezdxf.readfile(path)
    space = drawing.modelspace()
    for entity in space:
        entity.rgb = (0, 0, 0)
    context = RenderContext(drawing)
    context.set_current_layout(space)
    config = Configuration.defaults().with_changes(lineweight_scaling=0.35)
    Frontend(context, MatplotlibBackend(cell), config=config).draw_layout(space, finalize=False)
    cell.plot([0], [0], marker="+", color="red", markersize=5, markeredgewidth=0.7, zorder=100)
    top = 3.2 if cell.dataLim.y1 > CELL / 3 else CELL / 2
    cell.set_xlim(-CELL / 2, CELL / 2)
    cell.set_ylim(top - CELL, top)
    cell.set_aspect("equal")
    cell.axis("off")
    cell.set_title(path.stem, fontsize=6.5, y=-0.08)
figure.subplots_adjust(left=0.01, right=0.99, top=0.99, bottom=0.03, wspace=0.05, hspace=0.15)
figure.savefig(out, dpi=100)

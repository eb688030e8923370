"""Reads the symbol drawings with an independent program and checks what a symbol drawing promises.

usage: audit.py FOLDER. Exit status 77 when the reader is not installed.
"""

import pathlib
import sys

try:
    import ezdxf
    from ezdxf import bbox
except ImportError:
    print("skipped: needs Debian's python3-ezdxf")
    sys.exit(77)

SMALLEST, LARGEST = 0.5, 3.5


def faults(path):
    drawing = ezdxf.readfile(path)
    auditor = drawing.audit()
    yield from (entry.message for entry in auditor.errors + auditor.fixes)
    if drawing.dxfversion != "AC1015":
        yield f"version {drawing.dxfversion}"
    if tuple(drawing.header["$INSBASE"]) != (0, 0, 0):
        yield "the base point is not the origin"
    space = drawing.modelspace()
    if any(entity.dxf.layer != "0" or entity.dxf.color != 0 for entity in space):
        yield "an entity is not on layer 0 or not coloured by block"
    box = bbox.extents(space)
    if not SMALLEST <= max(box.size.x, box.size.y) <= LARGEST:
        yield f"size {box.size}"
    if not box.inside((0, 0, 0)):
        yield "the base point lies outside the symbol"


paths = sorted(pathlib.Path(sys.argv[1]).glob("*.dxf"))
found = [f"{path.name}: {fault}" for path in paths for fault in faults(path)]
print("\n".join(found) or f"{len(paths)} drawings are in order")
sys.exit(1 if found or not paths else 0)

#!/usr/bin/env python3
"""Holds the includes of src/ against the table of boxes in ARCHITECTURE.md, and looks for circles."""
import pathlib
import re
import sys

# Files of one folder that include each other because they are one type and its parts. Any other circle is a fault.
ONE_TYPE = [
    {"host/db/object", "host/db/database", "host/db/class_registry", "host/db/damage", "host/db/resident_cache",
     "host/db/undo_step"},
    {"host/db/curve/entity_curves", "host/db/curve/curve_readers"},
    {"host/db/insert/foreign_names", "host/db/insert/foreign_pairs"},
    {"host/companion/alignment", "host/companion/alignment_pairs"},
    {"host/app/session", "host/app/document", "host/app/registry", "host/app/disk", "host/app/paths",
     "host/app/symbol_search", "host/app/host_command"},
    {"host/ui/dialog", "host/ui/tab_ctrl", "host/ui/window", "host/ui/controls", "host/ui/grid_ctrl", "host/ui/grid_cell"},
    {"kernel/crossing/plane_crossing", "kernel/crossing/straight_crossing"},
    {"console/report/check_report", "console/report/verdict"},
    {"picture/list/drawing_lists", "picture/list/entity_writer", "picture/list/list_update"},
]
# Circles that are still to be untangled; nothing may join them.
LEFT = [
    {"survey/sheet/ground_source", "survey/sheet/plan_drawing", "survey/sheet/section_plan",
     "survey/sheet/section_points", "survey/sheet/section_sheet", "survey/sheet/survey_content",
     "survey/sheet/write_drawing"},
]
QT_BOXES = {"picture", "desktop"}


def arrows_of(text):
    """The rows of the table of boxes, top first: the name of each box, what it may include."""
    text = text.partition("## The boxes")[2].partition("\n## ")[0]
    rows = re.findall(r"^\| `([\w/]+)` \|[^|]*\|([^|]*)\|$", text, re.MULTILINE)
    return {box: set(re.findall(r"`([\w/]+)`", includes)) for box, includes in rows}


def includes_of(root):
    """(file, line number, included) of every include in quotes, and the same of those of Qt."""
    own, qt = [], []
    for file in sorted(root.rglob("*")):
        if file.suffix not in (".cpp", ".h"):
            continue
        name = str(file.relative_to(root))
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            if found := re.match(r'\s*#include "([^"]+)"', line):
                own.append((name, number, found.group(1)))
            elif re.match(r"\s*#include <Q", line):
                qt.append((name, number))
    return own, qt


def box_of(file, boxes):
    """The box whose folder the file stands in; the longest that fits, since boxes stand in each other."""
    folder = file.rpartition("/")[0]
    while folder and folder not in boxes:
        folder = folder.rpartition("/")[0]
    return folder


def circles(graph):
    """Sets of more than one node that lead to each other (Tarjan's strongly connected components)."""
    index, low, stack, found = {}, {}, [], []

    def visit(node):
        index[node] = low[node] = len(index)
        stack.append(node)
        for other in graph.get(node, ()):
            if other not in index:
                visit(other)
                low[node] = min(low[node], low[other])
            elif other in stack:
                low[node] = min(low[node], index[other])
        if low[node] == index[node]:
            circle = set(stack[stack.index(node):])
            del stack[stack.index(node):]
            if len(circle) > 1:
                found.append(circle)

    sys.setrecursionlimit(10000)
    for node in list(graph):
        if node not in index:
            visit(node)
    return found


def graph_of(own, name_of):
    graph = {}
    for file, _, target in own:
        if name_of(file) != name_of(target):
            graph.setdefault(name_of(file), set()).add(name_of(target))
    return graph


def wrong_arrows(own, arrows):
    wrong, used = [], set()
    for file, number, target in own:
        box, other = box_of(file, arrows), box_of(target, arrows)
        if box == other and box:
            continue
        used.add((box, other))
        if other not in arrows.get(box, set()):
            wrong.append(f"{file}:{number}: {box or 'a folder of no box'} must not include {target}")
    for box, includes in arrows.items():
        wrong += [f"ARCHITECTURE.md: {box} does not include {other}" for other in includes if (box, other) not in used]
    order = list(arrows)
    for box, includes in arrows.items():
        wrong += [f"ARCHITECTURE.md: {box} stands below {other}, which it includes" for other in includes
                  if other not in arrows or order.index(other) < order.index(box)]
    return wrong


def main(source):
    source = pathlib.Path(source)
    arrows = arrows_of((source / "ARCHITECTURE.md").read_text(encoding="utf-8"))
    own, qt = includes_of(source / "src")
    wrong = wrong_arrows(own, arrows)
    wrong += [f"{file}:{number}: Qt may be included in {', '.join(sorted(QT_BOXES))} only" for file, number in qt
              if file.split("/")[0] not in QT_BOXES]
    for circle in circles(graph_of(own, lambda name: name.rpartition("/")[0])):
        if not any(circle <= one for one in LEFT):
            wrong.append("folders that include each other: " + ", ".join(sorted(circle)))
    for circle in circles(graph_of(own, lambda name: name.rpartition(".")[0])):
        if not any(circle <= one for one in ONE_TYPE + LEFT):
            wrong.append("files that include each other: " + ", ".join(sorted(circle)))
    print("\n".join(wrong) or f"{len(own)} includes follow the arrows of {len(arrows)} boxes")
    return 1 if wrong or not own or not arrows else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

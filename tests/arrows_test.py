#!/usr/bin/env python3
"""Reads every include of src/ and says which go against the arrows of the architecture."""
import pathlib
import re
import sys

# What each box may include besides itself. The order is that of the picture in ARCHITECTURE.md, bottom up.
ARROWS = {
    "disk": set(),
    "store": set(),
    "host": {"store", "disk"},
    "util": {"host"},
    "resources": {"util", "host"},
    "frame/tracking": {"util", "host"},
    "dbkit": {"frame/tracking", "util", "host"},
    "sections": {"dbkit", "util", "resources", "host"},
    "settings": {"sections", "dbkit", "util", "resources", "host"},
    "sectiondraw": {"settings", "sections", "dbkit", "util", "resources", "host"},
    "plan": {"sections", "dbkit", "util", "resources", "host"},
    "frame/entry": {"sectiondraw", "plan", "settings", "sections", "dbkit", "frame/tracking", "util", "resources", "host"},
    "files": {"host", "store", "disk"},
    "survey": {"util", "host", "store", "disk"},
    "console": {"frame/entry", "sections", "settings", "sectiondraw", "plan", "dbkit", "util", "resources", "files", "survey", "host", "disk"},
    "picture": {"util", "host"},
    "desktop": {"picture", "frame/entry", "survey", "resources", "sections", "settings", "sectiondraw", "plan", "dbkit", "util", "files", "host", "disk"},
}


def box_of(path):
    parts = path.split("/")
    return "/".join(parts[:2]) if parts[0] == "frame" else parts[0]


def main(source):
    root = pathlib.Path(source) / "src"
    wrong = []
    read = 0
    for file in sorted(root.rglob("*")):
        if file.suffix not in (".cpp", ".h"):
            continue
        read += 1
        box = box_of(str(file.relative_to(root)))
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            found = re.match(r'\s*#include\s+"([^"]+)"', line)
            if found:
                target = box_of(found.group(1))
                if target != box and target not in ARROWS.get(box, set()):
                    wrong.append(f"{file.relative_to(root)}:{number}: {box} must not include {found.group(1)}")
            if re.match(r'\s*#include\s+<Q', line) and box not in ("picture", "desktop"):
                wrong.append(f"{file.relative_to(root)}:{number}: only picture and desktop may include Qt")
    print("\n".join(wrong) or f"{read} files follow the arrows")
    return 1 if wrong or read == 0 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

#!/usr/bin/env python3
"""Every text of the window has a Vietnamese one with the same places, and none is left over."""
import pathlib
import re
import sys

STRING = r'"((?:[^"\\]|\\.)*)"'


def texts_of(path):
    """The texts asked for in a source: in msg(...), and in the tables whose texts are given to it."""
    source = path.read_text(encoding="utf-8")
    source = re.sub(r'"\s*\n\s*"', "", source)  # parts of one text
    found = re.findall(r"\bmsg\(\s*" + STRING, source)
    if path.name == "user_actions.cpp":
        found += [text for pair in re.findall(r"\{(?:menu|" + STRING + r"),\s*" + STRING, source) for text in pair if text]
        found += re.findall(r"menu = " + STRING, source)
    if path.name == "entity_facts.cpp":
        found += re.findall(r"KindName\{" + STRING + r",\s*" + STRING, source) and [
            english for _, english in re.findall(r"KindName\{" + STRING + r",\s*" + STRING, source)]
    return found


def places(text):
    return sorted(re.findall(r"%\d", text))


def main(source):
    root = pathlib.Path(source) / "src" / "desktop"
    table = re.sub(r'"\s*\n\s*"', "", (root / "language" / "vietnamese.cpp").read_text(encoding="utf-8"))
    known = dict(re.findall(r"\{\s*" + STRING + r",\s*" + STRING + r"\s*\}", table))
    used = {}
    for file in sorted(root.rglob("*.cpp")) + sorted(root.rglob("*.h")):
        if file.name != "vietnamese.cpp":
            for text in texts_of(file):
                used.setdefault(text, file.relative_to(root))
    wrong = [f"{file}: no Vietnamese for \"{text}\"" for text, file in used.items() if text not in known]
    wrong += [f"vietnamese.cpp: nobody says \"{text}\"" for text in known if text not in used]
    wrong += [f"vietnamese.cpp: other places in \"{text}\"" for text, translated in known.items()
              if places(text) != places(translated)]
    print("\n".join(wrong) or f"{len(used)} texts")
    return 1 if wrong or len(used) < 50 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

"""What the program draws stands where an independent reader of the same drawing has it."""
import json
import subprocess
import unittest

import program
import svg_paths

HERE = program.SOURCE / "tests" / "desktop"
WINDOW = (-420.0, -180.0, 380.0, 420.0)
SCALE = 2.0
NEAR = 0.01


class RenderGeometry(program.ProgramTest):
    def test_every_kind_alone_mirrored_stretched_tilted_and_nested(self):
        drawing, expected = self.folder / "every.dxf", self.folder / "every.json"
        subprocess.run(["/usr/bin/python3", HERE / "every_kind.py", drawing, expected], check=True)
        out = self.folder / "every.svg"
        _, err = self.run_program("render", drawing, "-o", out, "--window", ",".join(map(str, WINDOW)), "--pixels",
                                  "1600,1200", "--background", "transparent")
        self.assertEqual(err, "")
        wanted = [dict(curve, points=[((x - WINDOW[0]) * SCALE, (WINDOW[3] - y) * SCALE) for x, y in curve["points"]])
                  for curve in json.loads(expected.read_text(encoding="utf-8"))]
        drawn = svg_paths.read(out)
        self.assert_near(wanted, svg_paths.Nearest(drawn), "is not drawn")
        outlines = [curve["points"] + (curve["points"][:1] if curve["filled"] else []) for curve in wanted]
        self.assert_near([{"kind": "line", "points": line} for line in drawn], svg_paths.Nearest(outlines),
                         "is drawn where nothing is")

    def assert_near(self, curves, nearest, what):
        for curve in curves:
            for point in curve["points"]:
                distance = nearest.distance(point)
                self.assertLess(distance, NEAR, f"{curve['kind']} at {point} {what}")


if __name__ == "__main__":
    program.main()

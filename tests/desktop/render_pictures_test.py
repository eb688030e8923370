"""Pictures look as the kept ones do. With VELOXA_KEEP_PICTURES=1 the pictures of this run become the kept ones: look at
each before it is committed."""
import os
import shutil
import subprocess
import unittest

import png
import program

HERE = program.SOURCE / "tests" / "desktop"
CELL = 4
# Fonts of another release may put a pixel elsewhere; a letter, a line or an accent elsewhere is seen.
MOST_OFF = 48
SHARE_OFF = 0.002


class Pictures(program.ProgramTest):
    def test_pictures_look_as_the_kept_ones(self):
        drawn, sheet = self.folder / "drawn.dxf", self.folder / "sheet.dxf"
        self.draw(program.SAMPLE, drawn, "--library", program.LIBRARY, "--nearby")
        subprocess.run(["/usr/bin/python3", HERE / "sheet.py", sheet], check=True)
        for name, arguments in {
                "sheet": (sheet, "--window", "0,0,120,150", "--pixels", "960,1200"),
                "plan": (drawn, "--window", "580120,1190330,580220,1190400", "--pixels", "1000,700"),
                "section-3": (drawn, "--sections", "3", "--pixels", "1000,560"),
                "section-17": (drawn, "--sections", "17", "--pixels", "1000,560", "--monochrome"),
                "section-t2": (drawn, "--alignment", "T2", "--sections", "5", "--paper", "A4", "--dpi", "80")}.items():
            with self.subTest(name=name):
                made = self.folder / f"{name}.png"
                self.run_program("render", *arguments, "-o", made)
                self.compare(made, HERE / "pictures" / made.name)

    def compare(self, made, kept):
        if os.environ.get("VELOXA_KEEP_PICTURES"):
            shutil.copy(made, kept)
        ours, theirs = (png.cells(png.read(path), CELL) for path in (made, kept))
        self.assertEqual((len(ours), len(ours[0])), (len(theirs), len(theirs[0])))
        off = [(x * CELL, y * CELL) for y, rows in enumerate(zip(ours, theirs)) for x, (a, b) in enumerate(zip(*rows))
               if abs(a - b) > MOST_OFF]
        self.assertLess(len(off), SHARE_OFF * len(ours) * len(ours[0]), f"{made.name} differs at {off[:10]}")


if __name__ == "__main__":
    program.main()

#!/usr/bin/env python3
"""Writes a drawing of polylines of five points that lie all over a square, so that a picture of everything has nothing
to leave out: spread.py COUNT OUT. The same count gives the same bytes."""

import math
import random
import sys

HEAD = """  0
SECTION
  2
HEADER
  9
$ACADVER
  1
AC1015
  0
ENDSEC
  0
SECTION
  2
ENTITIES
"""


def main(count, out):
    chance = random.Random(count)
    side = math.sqrt(count)
    with open(out, "w") as file:
        file.write(HEAD)
        for number in range(count):
            x, y = chance.uniform(0, side), chance.uniform(0, side)
            turn = chance.uniform(0, 2 * math.pi)
            points = []
            for _ in range(5):
                points.append((x, y))
                turn += chance.uniform(-0.8, 0.8)
                x, y = x + math.cos(turn), y + math.sin(turn)
            file.write(f"  0\nLWPOLYLINE\n  5\n{number + 256:X}\n100\nAcDbEntity\n  8\n{number % 7}\n 62\n{number % 7 + 1}\n"
                       "100\nAcDbPolyline\n 90\n5\n 70\n0\n")
            file.write("".join(f" 10\n{px:.3f}\n 20\n{py:.3f}\n" for px, py in points))
        file.write("  0\nENDSEC\n  0\nEOF\n")


main(int(sys.argv[1]), sys.argv[2])

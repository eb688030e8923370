#!/usr/bin/env python3
"""The verdict of `check`, and what it is made of."""
import math
import re

from program import LIBRARY, SAMPLE, SYMBOLS, TABLE, ProgramTest, main


class Verdict(ProgramTest):
    def check(self, drawing, *arguments):
        return self.run_json("check", drawing, *arguments)

    def first_lines(self, drawing, *arguments):
        out, _ = self.run_program("check", drawing, *arguments, "--settings", self.settings)
        return out.split("\n")

    def variant(self, *changes):
        text = SAMPLE.read_text(encoding="utf-8")
        for old, new in changes:
            self.assertIn(old, text)
            text = text.replace(old, new)
        path = self.folder / "variant.dxf"
        path.write_text(text, encoding="utf-8")
        return path

    def library(self, old, new):
        path = self.folder / "road.dv"
        text = LIBRARY.read_bytes()
        self.assertIn(old, text)
        path.write_bytes(text.replace(old, new))
        return path

    def kinds(self, findings):
        return {finding["kind"]: finding["count"] for finding in findings}

    def test_ready(self):
        lines = self.first_lines(SAMPLE, "--library", LIBRARY, "--table", TABLE)
        self.assertTrue(lines[0].startswith("Ready: 2 alignments, 50 sections, "), lines[0])
        self.assertTrue(lines[0].endswith(" points of the plan."), lines[0])
        checked = self.check(SAMPLE, "--library", LIBRARY)
        self.assertEqual((checked["ready"], checked["stops"]), (True, []))

    def test_lists_are_cut_unless_all_is_wanted(self):
        out, _ = self.run_program("check", SAMPLE, "--library", LIBRARY, "--settings", self.settings)
        whole, _ = self.run_program("check", SAMPLE, "--library", LIBRARY, "--all", "--settings", self.settings)
        unused = self.check(SAMPLE, "--library", LIBRARY)["unusedFiles"]
        self.assertIn(f"\n  {unused[9]}\n  ... and {len(unused) - 10} more (--all)\n", out)
        self.assertNotIn(unused[10], out)
        self.assertIn("\n  " + "\n  ".join(unused) + "\n", whole)
        self.assertLess(max(len(part.split("\n")) for part in re.split(r"\n(?=\S)", out.rstrip("\n"))), 13)

    def test_what_vanishes_with_a_missing_file(self):
        library = self.library(b"MuongXay.dxf", b"Lost.dxf")
        arguments = ["--library", library, "--symbols", SYMBOLS, "--alignment", "T1"]
        self.assertEqual(self.first_lines(SAMPLE, *arguments)[0], "Not ready: 1 symbol file is missing.")
        checked = self.check(SAMPLE, *arguments)
        self.assertEqual(self.kinds(checked["stops"]), {"missingFiles": 1})
        sections = self.run_json("scan", SAMPLE)["alignments"][0]["sections"]
        crossed = [section["name"] for section in sections if any(row["name"] == "Rãnh" for row in section["crossing"])]
        self.assertEqual(checked["lostFiles"], [{
            "path": "symbols\\Lost.dxf", "missing": True,
            "names": [{"list": "names", "name": "Rãnh",
                       "count": sum(row["name"] == "Rãnh" for section in sections for row in section["crossing"])}],
            "sections": [{"alignment": "T1", "section": name} for name in crossed]}])
        _, err = self.run_program("check", SAMPLE, *arguments, "--strict", status=1)
        self.assertIn("Not ready: 1 symbol file is missing.", err)
        drawn = self.folder / "drawn.dxf"
        self.draw(SAMPLE, drawn, "--library", LIBRARY)
        self.assertTrue(self.check(drawn, "--alignment", "T1")["ready"], "the drawing has the blocks")
        unreadable = self.folder / "Lost.dxf"
        unreadable.write_text("no drawing")
        self.assertEqual(self.kinds(self.check(SAMPLE, *arguments)["stops"]), {"unreadableFiles": 1})

    def test_files_of_symbols_that_are_not_drawn_stop_nothing(self):
        library = self.library(b"MuongXay.dxf", b"Lost.dxf")
        arguments = ["--library", library, "--symbols", SYMBOLS, "--alignment", "T1"]
        self.draw(SAMPLE, self.folder / "drawn.dxf")
        kept = self.settings / "iniSymbol.cfg"
        switched = kept.read_text(encoding="latin-1").replace("Check Section symbol layer=1", "Check Section symbol layer=0")
        kept.write_text(switched, encoding="latin-1")
        checked = self.check(SAMPLE, *arguments)
        self.assertEqual((checked["ready"], checked["lostFiles"], len(checked["unreadable"])), (True, [], 1))

    def test_points_whose_side_is_not_seen(self):
        text = SAMPLE.read_text(encoding="utf-8").split("\nENTITIES\n")
        moved = re.sub(r"(PlxDbPointObj\n 10\n)([^\n]*)", lambda m: f"{m[1]}{float(m[2]) + 0.05!r}", text[1])
        path = self.folder / "moved.dxf"
        path.write_text(text[0] + "\nENTITIES\n" + moved, encoding="utf-8")
        expected, points = [], 0
        for alignment in self.run_json("scan", path)["alignments"]:
            for section in alignment["sections"]:
                (cx, cy, _), (dx, dy, _) = section["center"], section["direction"]
                for row in section["plan"]:
                    x, y = row["position"][0] - cx, row["position"][1] - cy
                    points += 1
                    if row["offset"] > 0 and x * dx + y * dy > 0.001:
                        expected.append((alignment["name"], section["name"], row["code"], row["offset"],
                                         abs(x * dy - y * dx)))
        self.assertGreater(len(expected), 50)
        checked = self.check(path)
        found = [(each["alignment"], each["section"], each["code"], each["offset"], each["distance"])
                 for each in checked["wrongSides"]]
        self.assertEqual([each[:4] for each in found], [each[:4] for each in expected])
        self.assertTrue(all(math.isclose(a[4], b[4], abs_tol=1e-9) for a, b in zip(found, expected)))
        self.assertIn({"kind": "wrongSides", "count": len(expected), "of": points}, checked["warnings"])
        self.assertIn(f"But {len(expected)} of {points} section points lie off the line on side A",
                      "\n".join(self.first_lines(path)[:4]))

    def test_rows_at_one_place(self):
        checked = self.check(SAMPLE, "--nearby")
        superfluous = 0
        for alignment in self.run_json("scan", SAMPLE, "--nearby")["alignments"]:
            for section in alignment["sections"]:
                rows = [(row["name"].lower(), round(row["offset1"], 3)) for row in section["nearby"] + section["crossing"]]
                rows += [(row["code"].lower(), round(row["offset"], 3)) for row in section["codes"]]
                superfluous += len(rows) - len(set(rows))
        self.assertEqual(superfluous, 279)
        self.assertEqual(sum(each["count"] - 1 for each in checked["coinciding"]), superfluous)
        self.assertEqual(self.kinds(checked["warnings"])["coinciding"], superfluous)

    def test_alignments_and_section_lines(self):
        text = SAMPLE.read_text(encoding="utf-8")
        start = text.rindex("\nPLXDBALIGNMENT\n  5\n")
        second = text[start:].replace("\n  1\nT2\n", "\n  1\nt1\n", 1)
        first = re.sub(r"(\n  2\nC3\n 10\n[^\n]*\n 20\n[^\n]*\n 30\n)[^\n]*", r"\g<1>1.5", text[:start], count=1)
        path = self.folder / "variant.dxf"
        path.write_text(first + second, encoding="utf-8")
        checked = self.check(path, "--library", LIBRARY)
        self.assertEqual(checked["duplicateAlignments"], ["t1"])
        self.assertEqual(checked["raisedSections"],
                         [{"alignment": "T1", "section": "C3", "heightA": 1.5, "heightB": 0.0}])
        self.assertEqual(self.kinds(checked["stops"]), {"duplicateAlignments": 1})
        empty = self.folder / "empty.dxf"
        empty.write_text("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n"
                         "  0\nENDSEC\n  0\nEOF\n")
        self.assertEqual(self.first_lines(empty)[0], "Not ready: the drawing has no alignment.")

    def test_layers_and_rotations(self):
        self.draw(SAMPLE, self.folder / "out.dxf", "--library", LIBRARY)
        config = self.settings / "iniSymbol.cfg"
        config.write_text(re.sub("(?m)^Section symbol layer=.*$", "Section symbol layer=KY/HIEU",
                                 config.read_text(encoding="latin-1")), encoding="latin-1")
        library = self.library(b"MuongXay.dxf,2.00,2.00,0.00", b"MuongXay.dxf,2.00,2.00,-90")
        table = self.folder / "road.dvbd"
        table.write_bytes(re.sub(rb"(?m)^(TIM,[^,]*,[^,]*,[^,]*),[^,]*", rb"\1,45", TABLE.read_bytes()))
        checked = self.check(SAMPLE, "--library", library, "--table", table, "--symbols", SYMBOLS)
        self.assertEqual(checked["badLayers"], [{"option": "symbols", "layer": "KY/HIEU"}])
        self.assertEqual(checked["wideRotations"], [{"list": "tableCodes", "name": "TIM", "rotation": 45.0},
                                                    {"list": "names", "name": "Rãnh", "rotation": -90.0}])
        self.assertEqual(self.kinds(self.check(SAMPLE, "--library", LIBRARY, "--table", TABLE)["warnings"]).keys() &
                         {"wideRotations"}, set())


if __name__ == "__main__":
    main()

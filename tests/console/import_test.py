#!/usr/bin/env python3
"""Survey files become drawings that the other commands work on at once."""
import json

from drawing_test import entities_of
from program import LIBRARY, SYMBOLS, ProgramTest, main

UNITS = '<Units><Metric linearUnit="meter"/></Units>'
ALIGNMENT = ('<Alignments><Alignment name="T1" staStart="1000"><CoordGeom><Line><Start>2300000 500000</Start>'
             '<End>2300100 500000</End></Line></CoordGeom></Alignment></Alignments>')
# A slope of 1 m in 100 m to the east, 80 m to each side of the road.
SURFACE = ('<Surfaces><Surface name="EG"><SourceData><Breaklines>'
           '<Breakline name="1" desc="Mép đường"><PntList3D>2299990 500004 10.04 2300110 500004 10.04</PntList3D>'
           '</Breakline></Breaklines></SourceData><Definition surfType="TIN"><Pnts>'
           '<P id="1">2299950 499920 9.2</P><P id="2">2300150 499920 9.2</P><P id="3">2300150 500080 10.8</P>'
           '<P id="4">2299950 500080 10.8</P></Pnts><Faces><F>1 2 3</F><F>1 3 4</F></Faces></Definition></Surface></Surfaces>')
POINTS = ('<CgPoints code="COT"><CgPoint name="1" code="CAY">2300020.2 500006 10.1</CgPoint>'
          '<CgPoint name="2">2300050 499990 9.9</CgPoint></CgPoints>')


def landxml(*parts):
    return f'<?xml version="1.0"?>\n<LandXML version="1.2">{UNITS}\n' + "\n".join(parts) + "\n</LandXML>\n"


class Import(ProgramTest):
    def write(self, name, text):
        path = self.folder / name
        path.write_text(text, encoding="utf-8")
        return path

    def run_import(self, *arguments, status=0):
        out, err = self.run_program("import", *arguments, "--json", status=status)
        return json.loads(out), err

    def sections_of(self, drawing):
        return [section for line in self.run_json("scan", drawing, "--nearby")["alignments"]
                for section in line["sections"]]

    def test_a_terrain_becomes_sections_that_can_be_drawn(self):
        road = self.folder / "road.dxf"
        report, _ = self.run_import(self.write("road.xml", landxml(ALIGNMENT, SURFACE, POINTS)), "-o", road,
                                    "--half-width", 12, "--edges", "4.5,5")
        self.assertEqual(report["findings"], [])
        self.assertEqual([s["station"] for s in report["alignments"][0]["sections"]],
                         ["Km1+000.00", "Km1+020.00", "Km1+040.00", "Km1+060.00", "Km1+080.00", "Km1+100.00"])
        self.assertEqual([(p["name"], p["section"]) for p in report["offLine"]], [("1", "Km1+020.00")])
        self.assertEqual([p["name"] for p in report["unusedPoints"]], ["2"])
        self.assert_sound(road)
        sections = self.sections_of(road)
        self.assertEqual([[row["name"] for row in s["crossing"]] for s in sections], [["Mép đường"]] * 6)
        self.assertTrue(all(s["groundLine"] != "0" for s in sections))
        self.assertAlmostEqual(sections[2]["crossing"][0]["offset1"], 4.0)
        self.assertEqual([row["code"] for row in sections[1]["codes"]], ["CAY", "DC1", "DC2"])
        self.assertEqual([row["offset"] for row in sections[1]["codes"][1:]], [-4.5, 5.0])
        drawn = self.run_json("draw", road, "-o", self.folder / "drawn.dxf", "--library", LIBRARY, "--symbols", SYMBOLS)
        self.assertGreater(drawn["placed"], 0)

    def test_nothing_is_saved_when_something_cannot_be_used_unless_the_user_goes_on(self):
        road = self.folder / "road.dxf"
        survey = self.write("road.xml", landxml(ALIGNMENT, SURFACE.replace("<F>1 3 4</F>", "<F>1 3 9</F>"),
                                                POINTS.replace("10.1", "10,1")))
        report, err = self.run_import(survey, "-o", road, status=1)
        self.assertEqual([(f["kind"], f["line"]) for f in report["findings"] if f["kind"] == "unusable"],
                         [("unusable", 4), ("unusable", 5), ("unusable", 3)])
        self.assertEqual(report["findings"][0]["file"], str(survey))
        self.assertIn("3 things of the surveys cannot be used: nothing is saved", err)
        self.assertFalse(road.exists())
        text, _ = self.run_program("import", survey, "-o", road, status=1)
        self.assertIn(f"{survey}: line 5: a CgPoint is no place of two or three numbers", text)
        self.run_import(survey, "--preview", "--keep-going")
        self.assertFalse(road.exists())
        report, _ = self.run_import(survey, "-o", road, "--keep-going")
        self.assertEqual(report["points"], 1)
        self.assert_sound(road)

    def test_tables_of_points_and_sections_stand_on_an_alignment_of_a_file_of_its_own(self):
        line = self.write("line.xml", landxml(ALIGNMENT, POINTS))
        points = self.write("points.csv", "STT;X;Y;H;Mã\n7;2300010;500003,1;10,5;CAY\n8;2300400;500400;11;\n")
        book = self.write("book.csv", "Km1+010;-8;9,5;\nKm1+010;0;10;\nKm1+010;6;10,4;NHA\nKm1+030;-5;9;\nKm1+030;5;9;\n")
        unused = self.folder / "unused.csv"
        road = self.folder / "road.dxf"
        report, _ = self.run_import(points, book, "--alignment-file", line, "-o", road, "--unused-points", unused,
                                    "--code-from", "coding")
        sections = report["alignments"][0]["sections"]
        self.assertEqual([(s["station"], s["given"], s["groundVertices"], s["points"]) for s in sections],
                         [("Km1+010.00", True, 3, 2), ("Km1+030.00", True, 2, 0)])
        self.assertEqual([[row["code"] for row in s["codes"]] for s in self.sections_of(road)], [["CAY", "NHA"], []])
        self.assert_sound(road)
        again, _ = self.run_import(unused, "--preview")
        self.assertEqual([(p["name"], p["position"]) for p in again["unusedPoints"]], [("8", [500400, 2300400, 11])])

    def test_a_plain_drawing_keeps_what_it_has(self):
        first = self.folder / "first.dxf"
        self.run_import(self.write("line.xml", landxml(ALIGNMENT, SURFACE)), "-o", first)
        road = self.folder / "road.dxf"
        book = self.write("book.csv", "section,offset,elevation\nC1,-8,9.5\nC1,8,10\n")
        _, err = self.run_import(book, "--into", first, "-o", road, status=1)
        self.assertIn("cannot be used", err)
        report, _ = self.run_import(book, "--into", first, "-o", road, "--replace")
        self.assertEqual(len(report["alignments"][0]["sections"]), 1)
        self.assert_sound(road)
        # The same drawing as a plain one: its coded line is coded again by its layer.
        kept = entities_of(road)
        layer = next(value for entity in kept.values() for code, value in entity if code == "8" and
                     entity[0][1] == "POLYLINE")
        out = self.folder / "out.dxf"
        codes = self.write("codes.csv", f"{layer},RANH\n")
        report, _ = self.run_import(road, "-o", out, "--code-from-layer", "--layer-codes", codes)
        self.assertEqual(report["lineCodes"], [{"code": "RANH", "count": 1}])
        after = entities_of(out)
        self.assertEqual({handle: after.get(handle) for handle in kept}, kept)
        self.assert_sound(out)

    def test_words_that_are_not_understood_are_wrong_usage(self):
        survey = self.write("road.xml", landxml(ALIGNMENT))
        for words in ([survey], ["-o", "a.dxf"], [survey, "-o", "a.dxf", "--edges", "4"],
                      [survey, "-o", "a.dxf", "--spacing", "0"], [survey, "-o", "a.dxf", "--points-from", "star"],
                      [survey, "-o", "a.dxf", "--unit", "ell"], [survey, "-o", "a.dxf", "--code-from", "colour"]):
            self.run_program("import", *words, status=2)
        for words in ([survey, "-o", "a.dwg"], ["missing.xml", "-o", "a.dxf"],
                      [survey, "--into", "missing.dxf", "-o", "a.dxf"]):
            self.run_program("import", *words, status=1)


if __name__ == "__main__":
    main()

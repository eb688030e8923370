#!/usr/bin/env python3
"""The main job on a real road, and real drawings of other programs: in the folder that VELOXA_REAL_DATA names."""
import json
import unittest

from drawing_test import entities_of
from program import REAL_DATA, SYMBOLS, ProgramTest, main

ROAD = REAL_DATA and REAL_DATA / "road" / "m3.dxf"


@unittest.skipUnless(REAL_DATA, "VELOXA_REAL_DATA is not set")
class RealRoad(ProgramTest):
    def library(self, scan):
        """A feature library that gives every name and code of the scan one of our symbols."""
        symbols = sorted(path.name for path in SYMBOLS.glob("*.dxf"))
        sections = [section for line in scan["alignments"] for section in line["sections"]]
        names = sorted({row["name"] for s in sections for row in s["nearby"] + s["crossing"]})
        codes = sorted({row["code"] for s in sections for row in s["codes"]})
        lines = []
        for marker, keys in (("[SYMBOL]", names), ("[TN]", codes), ("[BD]", codes)):
            lines.append(marker)
            lines += [f"{key},{symbols[i % len(symbols)]},1.00,1.00,0.00" for i, key in enumerate(keys)]
        path = self.folder / "m3.dv"
        path.write_bytes("\n".join(lines + [""]).encode("latin-1"))
        return path

    def test_scan_draw_erase(self):
        scan = self.run_json("scan", ROAD, "--nearby")
        self.assertEqual([len(line["sections"]) for line in scan["alignments"]], [64])
        drawn, clean = self.folder / "drawn.dxf", self.folder / "clean.dxf"
        report = self.draw(ROAD, drawn, "--library", self.library(scan), "--nearby")
        self.assertGreater(report["placed"], 500)
        self.assertEqual(report["unreadable"], [])
        self.assertEqual(report["withoutSymbol"], [])
        self.assert_sound(drawn)
        self.assertEqual(self.run_json("erase", drawn, "-o", clean)["erased"], report["placed"])
        self.assert_sound(clean)
        before, after = entities_of(ROAD), entities_of(clean)
        self.assertEqual(before.keys(), after.keys())
        changed = [handle for handle in before if before[handle] != after[handle]]
        self.assertEqual([before[handle][0][1] for handle in changed], ["PLXDBALIGNMENT"])

    def test_its_survey_files_become_a_drawing(self):
        road = self.folder / "imported.dxf"
        out, _ = self.run_program("import", *sorted((REAL_DATA / "road").glob("*.xml")), "-o", road, "--spacing", 20,
                                  "--half-width", 30, "--json")
        report = json.loads(out)
        self.assertEqual(report["findings"], [])
        self.assertEqual(report["points"], 37)
        self.assertEqual(sum(code["count"] for code in report["lineCodes"]), 175)
        self.assert_sound(road)
        sections = self.run_json("scan", road, "--nearby")["alignments"][0]["sections"]
        self.assertIn(len(sections), (63, 64))
        self.assertTrue(all(s["groundLine"] != "0" and s["crossing"] for s in sections))
        self.assertEqual(sum(any(row["name"] == "D2342" for row in s["nearby"]) for s in sections), 22)

    def test_drawings_of_other_programs_serve_as_symbols(self):
        """Each of them, the one too old to be worked on included, becomes a block that an auditor finds sound."""
        drawings = sorted((REAL_DATA / "dwg").glob("*.dxf"))
        scan = self.run_json("scan", ROAD)
        sections = [section for line in scan["alignments"] for section in line["sections"]]
        names = sorted({row["name"] for section in sections for row in section["crossing"]})
        library, out = self.folder / "foreign.dv", self.folder / "out.dxf"
        rows = [f"{name},{drawings[i % len(drawings)].name},0.01,0.01,0.00\n" for i, name in enumerate(names)]
        library.write_bytes(("[SYMBOL]\n" + "".join(rows)).encode("latin-1"))
        report = self.draw(ROAD, out, "--library", library, "--symbols", REAL_DATA / "dwg")
        self.assertEqual(report["unreadable"], [])
        blocks = json.loads(self.run_program("info", out, "--json", "--settings", self.settings)[0])["blocks"]
        self.assertIn("example_r14", [block["name"] for block in blocks])
        self.assert_sound(out)

    def test_drawings_of_other_programs_stay_as_they_are(self):
        for drawing in sorted((REAL_DATA / "dwg").glob("*.dxf")):
            out = self.folder / drawing.name
            script = self.folder / "save.txt"
            script.write_text(f'open "{drawing}"\nprint drawing\nsave "{out}"\n')
            if "r14" in drawing.name:
                _, err = self.run_program("script", script, status=1)
                self.assertIn("R14", err)
                continue
            printed, _ = self.run_program("script", script, "--settings", self.settings)
            self.assertTrue(json.loads(printed)["types"] is not None)
            self.assertEqual(out.read_bytes(), drawing.read_bytes(), drawing.name)


if __name__ == "__main__":
    main()

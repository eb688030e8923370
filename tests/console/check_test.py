#!/usr/bin/env python3
"""What `check` tells before drawing: that it is what `draw` then meets, and that nothing is written."""
import json
import os
import re
import shutil
from unittest import mock

from dwg_test import DRAWINGS, with_real_dwg
from program import LIBRARY, SAMPLE, SYMBOLS, TABLE, ProgramTest, main


def tcvn3(text):
    """The bytes of the few texts that the tests' libraries hold."""
    return text.translate(str.maketrans("áéơưđờộ", "\u00b8\u00d0\u00ac\u00ad\u00ae\u00ea\u00e9")).encode("latin-1")


class Check(ProgramTest):
    def check(self, drawing, *arguments):
        return self.run_json("check", drawing, *arguments)

    def library(self, *lines):
        """A library in a folder of its own, with a `symbols` folder beside it."""
        folder = self.folder / "library"
        (folder / "symbols").mkdir(parents=True, exist_ok=True)
        (folder / "road.dv").write_bytes(b"".join(tcvn3(line) + b"\n" for line in lines))
        return folder / "road.dv"

    def names(self, entries):
        return {entry["name"]: entry for entry in entries}

    def damaged(self):
        """The sample; the ground of section C2 of T1 is no polyline, that of C3 lies below everything."""
        text = SAMPLE.read_text(encoding="utf-8")
        ground = {section["name"]: section["groundLine"]
                  for section in self.run_json("scan", SAMPLE)["alignments"][0]["sections"]}
        start = text.index(f"LWPOLYLINE\n  5\n{ground['C3']}\n")
        end = text.index("\n  0\n", start)
        text = text[:start] + re.sub(r"\n 20\n[^\n]*", "\n 20\n-5000.0", text[start:end]) + text[end:]
        text = text.replace(f"LWPOLYLINE\n  5\n{ground['C2']}\n", f"XPOLYLINE\n  5\n{ground['C2']}\n")
        path = self.folder / "damaged.dxf"
        path.write_text(text, encoding="utf-8")
        return path

    def test_it_tells_what_draw_then_meets(self):
        drawing = self.damaged()
        lines = LIBRARY.read_bytes().replace(b"MuongXay.dxf", b"Lost.dxf")
        library = self.folder / "road.dv"
        library.write_bytes(lines)
        given = ["--library", library, "--alignment", "t1", "--nearby", "--symbols", SYMBOLS]
        checked = self.check(drawing, *given)
        self.assertEqual(checked["alignments"], [{"name": "T1", "sections": 25}])
        self.assertEqual(checked["withoutGroundLine"], [{"alignment": "T1", "section": "C2"}])
        drawn = self.run_json("draw", drawing, "-o", self.folder / "out.dxf", *given)
        without = {}
        for entry in checked["names"] + checked["codes"]:
            if entry["file"] == "":
                without[entry["name"]] = without.get(entry["name"], 0) + entry["count"]
        self.assertEqual(without, {entry["name"]: entry["count"] for entry in drawn["withoutSymbol"]})
        self.assertEqual(without, {"LK": without["LK"], "Cáp quang": 25})
        self.assertEqual(checked["unreadable"], drawn["unreadable"])
        self.assertEqual([entry["path"] for entry in drawn["unreadable"]], ["symbols\\Lost.dxf"])
        ground = {part["name"]: part["withoutGround"] for part in drawn["sections"] if part["withoutGround"]}
        self.assertGreater(len(ground.pop("C2")), 5)
        self.assertEqual({part["section"]: part["names"] for part in checked["withoutGround"]}, ground)
        self.assertIn("Rãnh", ground["C3"])

    def test_rows_files_and_numbers(self):
        library = self.library("[SYMBOL]", "Mép đường,D:\\Ve\\CAY.dxf,1,1,0", "Mương,garbage.dxf,1,1,0",
                               "mép đường,other.dxf,1,1,0", "Cáp quang,a,b.dxf,1,1,0", "NOBODY,lost.dxf,x1,1,0",
                               "[tn]", "DC1,lost.dxf,1,rộng,0", "LK,~,1,1,0")
        folder = library.parent
        shutil.copy(SYMBOLS / "CayLaRong.dxf", folder / "Cay.DXF")
        (folder / "garbage.dxf").write_text("no drawing")
        (folder / "symbols" / "nobody.dxf").write_text("")
        (folder / "symbols" / "readme.txt").write_text("")
        checked = self.check(SAMPLE, "--library", library)
        names, codes = self.names(checked["names"]), self.names(checked["codes"])
        self.assertEqual(names["Mép đường"], {"name": "Mép đường", "count": 99, "file": "D:\\Ve\\CAY.dxf",
                                              "found": str(folder / "Cay.DXF"), "reason": "",
                                              "inDrawing": False})
        self.assertEqual(names["Mương"]["found"], str(folder / "garbage.dxf"))
        self.assertIn("line 1", names["Mương"]["reason"])
        self.assertEqual((codes["DC1"]["found"], codes["DC1"]["count"]), ("", 32))
        self.assertIn(f"no lost.dxf in {folder}, {folder}/symbols", codes["DC1"]["reason"])
        self.assertEqual([entry["path"] for entry in checked["unreadable"]], ["garbage.dxf", "lost.dxf"])
        without = [(entry["list"], entry["name"]) for entry in checked["withoutRow"]]
        self.assertIn(("names", "Cáp quang"), without)
        self.assertIn(("planCodes", "LK"), without)
        self.assertNotIn(("codes", "LK"), without, "a row may say that there is no symbol")
        self.assertEqual(checked["unusedRows"], [{"list": "names", "name": "NOBODY", "file": "lost.dxf"}])
        self.assertEqual(checked["unusedFiles"], [str(folder / "symbols" / "nobody.dxf")])
        notes = "\n".join(checked["notes"])
        for says in ('a second row for "mép đường" in [SYMBOL]', '"Cáp quang,a,b.dxf,1,1,0" of [SYMBOL]',
                     'row "NOBODY" of [SYMBOL]: "x1" is no number', 'row "DC1" of [TN]: "rộng" is no number',
                     "objects near the sections were not looked for"):
            self.assertIn(says, notes)
        text, _ = self.run_program("check", SAMPLE, "--library", library, "--all", "--settings", self.settings)
        for says in (f"Mép đường (99): D:\\Ve\\CAY.dxf -> {folder / 'Cay.DXF'}\n", "DC1 (32): lost.dxf: not found\n",
                     f"garbage.dxf -> {folder / 'garbage.dxf'}: cannot be read", "Cáp quang (50), [SYMBOL]\n"):
            self.assertIn(says, text)

    def test_files_that_become_the_same_block(self):
        library = self.library("[SYMBOL]", "Mép đường,Cay.dxf,1,1,0", "Mương,symbols/cay.dxf,1,1,0", "Cáp quang,Cot.dxf,1,1,0",
                               "[TN]", "DC1,d:\\COT.DXF,1,1,0")
        for name in ("Cay.dxf", "symbols/cay.dxf", "Cot.dxf"):
            shutil.copy(SYMBOLS / "CayLaRong.dxf", library.parent / name)
        out, _ = self.run_program("check", SAMPLE, "--library", library, "--settings", self.settings, "--json",
                                  cwd=library.parent)
        self.assertEqual([note for note in json.loads(out)["notes"] if "block" in note],
                         ['the symbol files Cay.dxf, symbols/cay.dxf become the same block, "Cay": '
                          "the one that is drawn first stands for all"])

    def test_the_plan_and_its_table(self):
        table = self.folder / "road.dvbd"
        table.write_bytes(b"".join(line for line in TABLE.read_bytes().splitlines(True) if not line.startswith(b"TIM,")) +
                          b"XX,lost.dxf,,,,\nXY,lost.dxf,a,1e999,0,1\n")
        checked = self.check(SAMPLE, "--table", table, "--symbols", SYMBOLS)
        placed = self.run_json("plan", SAMPLE, "-o", self.folder / "out.dxf", "--table", table, "--symbols", SYMBOLS)
        self.assertEqual({entry["name"]: entry["count"] for entry in checked["tableCodes"] if not entry["file"]},
                         {entry["name"]: entry["count"] for entry in placed["withoutSymbol"]})
        self.assertIn({"list": "tableCodes", "name": "TIM", "count": 10}, checked["withoutRow"])
        self.assertEqual([row["name"] for row in checked["unusedRows"]], ["XY"])
        for notes in (checked["notes"], placed["notes"]):
            self.assertTrue(any('row "XY" of the table: "a" is no number' in note for note in notes), notes)
            self.assertTrue(any('row "XY" of the table: "1e999" is no number and counts as 0' in note for note in notes), notes)
            self.assertTrue(any('the line "XX,lost.dxf,,,," of the table' in note for note in notes), notes)
        self.assertIn("rows of the table that nothing in the drawing uses: XY", placed["notes"])

    def test_characters_that_are_lost_are_named(self):
        drawing = self.folder / "capitals.dxf"
        text = SAMPLE.read_text(encoding="utf-8").replace("\nONG NUOC\n", "\nÁNG NUOC\n").replace("\nDC1\n", "\nĐẾ𝐃\n")
        drawing.write_text(text, encoding="utf-8")
        lost = {entry["text"]: entry["characters"] for entry in self.check(drawing, "--nearby")["lostTexts"]}
        self.assertEqual(lost, {"CỘT ĐIỆN": [{"character": "Ộ", "code": "U+1ED8"}, {"character": "Ệ", "code": "U+1EC6"}],
                                "ÁNG NUOC": [{"character": "Á", "code": "U+00C1"}],
                                "ĐẾ𝐃": [{"character": "Ế", "code": "U+1EBE"}, {"character": "𝐃", "code": "U+1D403"}]})
        drawn = self.draw(drawing, self.folder / "out.dxf", "--library", LIBRARY)["notes"]
        self.assertIn('the label "ÁNG NUOC" has characters without an 8-bit form: Á (U+00C1)', drawn)
        self.assertIn('the label "ĐẾ𝐃" has characters without an 8-bit form: Ế (U+1EBE), 𝐃 (U+1D403)', drawn)
        placed = self.run_json("plan", drawing, "-o", self.folder / "out.dxf", "--table", TABLE)["notes"]
        self.assertIn('the code "ĐẾ𝐃" has characters without an 8-bit form: Ế (U+1EBE), 𝐃 (U+1D403)', placed)

    def test_settings_that_the_drawing_keeps_count(self):
        drawn = self.folder / "drawn.dxf"
        self.draw(SAMPLE, drawn, "--library", LIBRARY, "--alignment", "T2")
        kept = self.check(drawn, "--symbols", SYMBOLS)
        self.assertTrue(self.names(entry for entry in kept["names"] if entry["file"])["Mép đường"]["inDrawing"])
        self.assertEqual({entry["file"] for entry in kept["names"] if entry["name"] == "Mép đường"},
                         {"", "symbols\\MepDuong.dxf"}, "they are kept for one alignment")
        text = drawn.read_text(encoding="utf-8").replace("\n5.00,5.00,0.40,2.00\n", "\nfünf,5.00,0.40,2.00\n")
        drawn.write_text(text, encoding="utf-8")
        says = 'settings that the drawing keeps: "fünf" as the search distance behind is no number and counts as 0'
        self.assertIn("T2: " + says, self.check(drawn)["notes"])
        self.assertIn(says, self.draw(drawn, self.folder / "again.dxf", "--alignment", "T2", "--library", LIBRARY)["notes"])

    def counted(self, checked):
        return sum(entry["count"] for entry in checked["names"])

    def everything(self):
        return {path: (path.stat().st_mtime_ns, path.read_bytes() if path.is_file() else None)
                for path in self.folder.rglob("*")}

    def test_nothing_is_written(self):
        home, temporary = self.folder / "home", self.folder / "temporary"
        for folder in (home, temporary):
            folder.mkdir()
        road = self.folder / "road.dxf"
        shutil.copy(SAMPLE, road)
        environment = {"HOME": str(home), "XDG_CONFIG_HOME": "", "TMPDIR": str(temporary)}
        check = ["check", road, "--library", LIBRARY, "--table", TABLE, "--nearby"]
        with mock.patch.dict(os.environ, environment):
            before = self.everything()
            self.run_program(*check)
            self.assertEqual(self.everything().keys(), before.keys(), "a new user gets no folders")
            self.run_program("draw", road, "-o", self.folder / "out.dxf", "--library", LIBRARY)
            self.run_program("plan", road, "-o", self.folder / "out.dxf", "--table", TABLE)
            self.run_program("folders", "--add", SYMBOLS)
            settings = home / ".config" / "PLX" / "Kavendo"
            config = (settings / "iniSymbol.cfg").read_text(encoding="latin-1")
            (settings / "iniSymbol.cfg").write_text(config.replace("Forward distance=5", "Forward distance=0"))
            before = self.everything()
            near = self.counted(json.loads(self.run_program(*check, "--json")[0]))
            # The folder of the temporary ones is the only one that may have been worked in.
            after = self.everything()
            del before[temporary], after[temporary]
            self.assertEqual(after, before)
            self.assertLess(near, self.counted(self.check(road, "--nearby")), "the user's settings count")

    def test_what_cannot_be_checked_and_what_is_strict(self):
        for arguments, says in (([self.folder / "no.dxf"], "no.dxf: no such file"), ([SAMPLE, "--library", "no.dv"], "no.dv"),
                                ([SAMPLE, "--table", self.folder], "is a folder"),
                                ([SAMPLE, "--alignment", "T9"], "T1, T2")):
            out, err = self.run_program("check", *arguments, "--settings", self.settings, status=1)
            self.assertEqual((out, err.count("\n")), ("", 1))
            self.assertIn(says, err)
        library = self.library("[SYMBOL]", "Mép đường,lost.dxf,1,1,0")
        out, err = self.run_program("check", SAMPLE, "--library", library, "--strict", "--json", status=1)
        self.assertEqual(len(json.loads(out)["unreadable"]), 1)
        self.assertIn("Not ready: 1 symbol file is missing.", err)
        empty = self.folder / "empty.dxf"
        empty.write_text("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n"
                         "  0\nENDSEC\n  0\nEOF\n")
        checked = self.check(empty, "--library", LIBRARY, "--table", TABLE, "--nearby")
        self.assertEqual((checked["alignments"], checked["names"], checked["tableCodes"]), ([], [], []))
        self.assertGreater(len(checked["unusedRows"]), 50)

    @with_real_dwg
    def test_dwg_symbols_and_drawings(self):
        library = self.library("[SYMBOL]", "Mép đường,D:\\2013_circle.dwg,1,1,0", "Mương,Broken.dwg,1,1,0")
        (library.parent / "Broken.dwg").write_bytes((DRAWINGS / "example_2004.dwg").read_bytes()[:3000])
        with mock.patch.dict(os.environ, {"XDG_CACHE_HOME": str(self.folder / "cache")}):
            checked = self.check(SAMPLE, "--library", library, "--symbols", DRAWINGS)
            self.assertEqual(self.names(checked["names"])["Mép đường"]["reason"], "")
            self.assertEqual([entry["path"] for entry in checked["unreadable"]], ["Broken.dwg"])
            checked = self.check(DRAWINGS / "example_2010.dwg", "--library", library)
            self.assertTrue(any("converted" in note for note in checked["notes"]))


if __name__ == "__main__":
    main()

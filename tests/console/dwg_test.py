#!/usr/bin/env python3
"""DWG drawings: as symbols of a library, and opened to be looked at. Needs the converter and VELOXA_REAL_DATA."""
import json
import os
import shutil
import unittest
from unittest import mock

from program import CONVERTER, REAL_DATA, SAMPLE, ProgramTest, main

DRAWINGS = REAL_DATA and REAL_DATA / "dwg"
with_real_dwg = unittest.skipUnless(REAL_DATA and CONVERTER.exists() and shutil.which("node"),
                                    "VELOXA_REAL_DATA is not set, or the converter is not installed")


@with_real_dwg
class Dwg(ProgramTest):
    def setUp(self):
        super().setUp()
        cache = mock.patch.dict(os.environ, {"XDG_CACHE_HOME": str(self.folder / "cache")})
        cache.start()
        self.addCleanup(cache.stop)

    def library(self, *symbols):
        path = self.folder / "dwg.dv"
        names = ("R·nh", "M­¬ng", "M\u00d0p ®­êng")
        path.write_bytes(("[SYMBOL]\n" + "".join(f"{name},D:\\Symbols\\{symbol},1,1,0\n"
                                                 for name, symbol in zip(names, symbols))).encode("latin-1"))
        return path

    def test_symbols_are_converted_once_and_broken_ones_are_told(self):
        broken = self.folder / "Broken.dwg"
        broken.write_bytes((DRAWINGS / "example_2004.dwg").read_bytes()[:3000])
        library = self.library("2013_circle.dwg", "2007_Arc.dwg", "Broken.dwg")
        for _ in range(2):
            out = self.folder / "out.dxf"
            report = self.draw(SAMPLE, out, "--library", library, "--symbols", DRAWINGS, "--symbols", self.folder)
            self.assertEqual([entry["path"] for entry in report["unreadable"]], ["D:\\Symbols\\Broken.dwg"])
            blocks = json.loads(self.run_program("info", out, "--json", "--settings", self.settings)[0])["blocks"]
            self.assertLessEqual({"2013_circle", "2007_Arc"}, {block["name"] for block in blocks})
            self.assert_sound(out)
        self.assertEqual(len([path for path in (self.folder / "cache").rglob("*") if path.is_file()]), 3)

    def test_what_a_conversion_loses_is_told_by_kind_and_number(self):
        library = self.library("example_2010.dwg")
        report = self.draw(SAMPLE, self.folder / "out.dxf", "--library", library, "--symbols", DRAWINGS)
        check = self.run_json("check", SAMPLE, "--library", library, "--symbols", DRAWINGS)
        for notes in (report["notes"], check["notes"]):
            told = [note for note in notes if "example_2010.dwg" in note]
            self.assertEqual(len(told), 1, notes)
            for words in ("1 ACAD_TABLE", "1 MULTILEADER", "1 LIGHT"):
                self.assertIn(words, told[0])
        self.assertIn("1 ACAD_TABLE", " ".join(self.run_json("check", DRAWINGS / "example_2010.dwg")["notes"]))

    def test_a_dwg_can_be_looked_at_but_is_not_saved_as_one(self):
        info = json.loads(self.run_program("info", DRAWINGS / "example_2010.dwg", "--json")[0])
        self.assertGreater(sum(info["types"].values()), 10)
        script = self.folder / "script.txt"
        script.write_text(f'open "{DRAWINGS / "2013_circle.dwg"}"\nsave "{self.folder / "copy.dwg"}"\n')
        _, err = self.run_program("script", script, status=1)
        self.assertIn("saved as DXF", err)
        self.assertFalse((self.folder / "copy.dwg").exists())

    def test_without_node_it_says_so(self):
        with mock.patch.dict(os.environ, {"PATH": str(self.folder)}):
            _, err = self.run_program("info", DRAWINGS / "2013_circle.dwg", status=1)
        self.assertIn("Node", err)


if __name__ == "__main__":
    main()

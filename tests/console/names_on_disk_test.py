#!/usr/bin/env python3
"""Names on disk that are not UTF-8 (old archives in 8-bit Vietnamese or CP1258), and names with a backslash."""
import json
import os
import shutil
import subprocess

from program import LIBRARY, SAMPLE, SYMBOLS, TABLE, ProgramTest, main

ROAD = b"Tuy\xd5n \xae\xad\xeang"  # TCVN3: Tuyến đường
SYMBOL = b"C\xa9y l\xb8 r\xe9ng"  # TCVN3: Cây lá rộng
OLD_SYMBOL = b"C\xe2y la\xec r\xf4\xf2ng"  # the same in CP1258, its tones apart
BACKSLASH = b"D:\\ve\\road"


class NamesOnDisk(ProgramTest):
    def setUp(self):
        super().setUp()
        self.archive = os.path.join(os.fsencode(self.folder), b"L\xadu tr\xf7")
        os.mkdir(self.archive)

    def path(self, name):
        return os.path.join(self.archive, name)

    def run_bytes(self, *arguments, status=0):
        """The JSON, or the text, of a run in the archive's folder."""
        words = [os.environ["VELOXA"], *(word if isinstance(word, bytes) else str(word).encode() for word in arguments)]
        done = subprocess.run(words + [b"--settings", self.path(b"c\xb5i \xae\xc6t")], capture_output=True, cwd=self.archive,
                              timeout=120, check=False)
        out, err = done.stdout.decode(), done.stderr.decode()
        self.assertEqual(done.returncode, status, err)
        return json.loads(out) if "--json" in arguments else out + err

    def names(self):
        return sorted(os.listdir(self.archive))

    def test_drawings_are_opened_and_written_under_exactly_their_name(self):
        for name, text in ((ROAD + b".dxf", "Tuyến đường.dxf"), (b"\x80\x9b\xff.dxf", "\x80\x9bÿ.dxf"),
                           (BACKSLASH + b".dxf", "D:\\ve\\road.dxf")):
            shown = text.replace("\x80", "\\x80").replace("\x9b", "\\x9b")
            shutil.copy(os.fsencode(SAMPLE), self.path(name))
            self.assertEqual(len(self.run_bytes("scan", name, "--json")["alignments"]), 2)
            self.assertIn(shown, self.run_bytes("info", name))
            out = b"ra " + name
            self.assertEqual(self.run_bytes("erase", name, "-o", out, "--json")["output"], "ra " + text)
            self.assertIn(out, self.names())
            self.run_bytes("erase", out, "-o", out)
            self.assertIn(out + b".bak", self.names())
            self.assertIn("ra " + shown + "x: no such file", self.run_bytes("scan", out + b"x", status=1))
        self.assertEqual(len(self.names()), 10, self.names())

    def test_libraries_tables_and_symbol_folders(self):
        library, table, folder = ROAD + b".dv", ROAD + b".dvbd", b"K\xdd hi\xd6u"
        shutil.copytree(os.fsencode(SYMBOLS), self.path(folder))
        shutil.copy(os.fsencode(LIBRARY), self.path(library))
        shutil.copy(os.fsencode(TABLE), self.path(table))
        expected = self.draw(SAMPLE, self.folder / "plain.dxf", "--library", LIBRARY)
        drawn = self.run_bytes("draw", SAMPLE, "-o", ROAD + b".dxf", "--library", library, "--symbols", folder, "--json")
        self.assertEqual((drawn["placed"], drawn["unreadable"], drawn["output"]),
                         (expected["placed"], [], "Tuyến đường.dxf"))
        self.assertGreater(expected["placed"], 0)
        self.assert_sound(os.fsdecode(self.path(ROAD + b".dxf")))
        placed = self.run_bytes("plan", ROAD + b".dxf", "-o", ROAD + b".dxf", "--table", table, "--symbols", folder, "--json")
        self.assertGreater(placed["placed"], 0)
        checked = self.run_bytes("check", SAMPLE, "--library", library, "--table", table, "--symbols", folder, "--json")
        self.assertEqual((checked["library"], checked["unreadable"]), ("Tuyến đường.dv", []))
        self.assertTrue(checked["names"][0]["found"].startswith("Kí hiệu/"), checked["names"][0])
        # The list of folders is text, and leads to the folder all the same.
        self.run_bytes("folders", "--add", folder)
        with open(self.path(b"c\xb5i \xae\xc6t/symbol-folders.txt"), encoding="utf-8") as kept:
            self.assertTrue(kept.read().endswith("Lưu trữ/Kí hiệu\n"))
        self.assertNotIn("no such folder", self.run_bytes("folders"))
        kept = self.run_bytes("draw", SAMPLE, "-o", ROAD + b".dxf", "--library", library, "--json")
        self.assertEqual((kept["placed"], kept["unreadable"]), (expected["placed"], []))
        self.run_bytes("folders", "--remove", folder)
        self.assertEqual(self.run_bytes("folders", "--json")["folders"], [])

    def test_an_alignment_is_named_in_8_bit_vietnamese_too(self):
        with open(self.path(b"a.dxf"), "wb") as drawing:
            drawing.write(SAMPLE.read_bytes().replace(b"\nT2\n", "\nTuyến 2\n".encode()))
        out, chosen = b"b.dxf", b"TUY\xd5N 2"
        self.assertEqual(self.run_bytes("draw", b"a.dxf", "-o", out, "--alignment", chosen, "--json")["alignment"], "Tuyến 2")
        checked = self.run_bytes("check", b"a.dxf", "--alignment", chosen, "--json")
        self.assertEqual([each["name"] for each in checked["alignments"]], ["Tuyến 2"])
        self.assertIn('no alignment "đêm"', self.run_bytes("erase", b"a.dxf", "-o", out, "--alignment", b"\xae\xaam", status=1))

    def test_a_row_finds_its_symbol_in_every_reading(self):
        table = self.path(b"b.dvbd")
        with open(table, "wb") as rows:
            rows.write(b"MT1,D:\\K\xdd hi\xd6u\\" + SYMBOL + b".DXF,1,1,0,0\n")
        for name in (SYMBOL + b".dxf", OLD_SYMBOL + b".dxf", "Cây lá rộng.dxf".encode(), "CÂY LÁ RỘNG.dxf".encode()):
            shutil.copy(os.fsencode(SYMBOLS / "CocTim.dxf"), self.path(name))
            out = name + b"-out.dxf"
            report = self.run_bytes("plan", SAMPLE, "-o", out, "--table", table, "--json")
            self.assertGreater(report["placed"], 0, name)
            with open(self.path(out), encoding="utf-8") as drawing:
                self.assertIn("\nCây lá rộng\n", drawing.read())
            os.unlink(self.path(name))
        self.assertEqual(self.run_bytes("plan", SAMPLE, "-o", b"o.dxf", "--table", table, "--json")["placed"], 0)

    def test_scripts_carry_the_bytes_and_keep_letters(self):
        symbol, library = self.path(SYMBOL + b".dxf"), self.path(ROAD + b".dv")
        shutil.copy(os.fsencode(SYMBOLS / "CayLaRong.dxf"), symbol)
        shutil.copy(os.fsencode(SAMPLE), self.path(BACKSLASH + b".dxf"))
        shutil.copy(os.fsencode(LIBRARY), library)
        script = self.path(b"k\xde ch b\xb6n.txt")
        with open(script, "wb") as lines:
            lines.write(b'open "%s"\ncommand DSS\nclick 1096\nanswer "%s"\nclick 1095\nanswer "%s"\npress 1 1\nanswer "%s"\n'
                        b'click 1082\nclick 1\nprint rows\nclick 1094\nclick 1\nsave "%s"\n' %
                        (BACKSLASH + b".dxf", library, symbol, self.path(b"m\xedi.dv"), self.path(ROAD + b".dxf")))
        out = self.run_bytes("script", script, "--symbols", SYMBOLS)
        rows = json.loads(out.splitlines()[0])
        self.assertEqual(rows["drawing"], "D:\\ve\\road.dxf")
        self.assertIn("Lưu trữ/Cây lá rộng.dxf", json.dumps(rows, ensure_ascii=False))
        with open(self.path(ROAD + b".dxf"), encoding="utf-8") as drawing:
            content = drawing.read()
        self.assertIn("\nCây lá rộng\n", content)
        self.assertIn("Lưu trữ/Cây lá rộng.dxf,", content, "the record of the drawing")
        self.assert_sound(os.fsdecode(self.path(ROAD + b".dxf")))
        with open(self.path(b"m\xedi.dv"), "rb") as saved:
            self.assertIn(symbol, saved.read())
        # What was kept leads to the files again, without a second block for them.
        again = self.run_bytes("draw", ROAD + b".dxf", "-o", b"again.dxf", "--library", b"m\xedi.dv", "--symbols", SYMBOLS, "--json")
        self.assertEqual(again["unreadable"], [])
        with open(self.path(b"again.dxf"), encoding="utf-8") as drawing:
            self.assertEqual(drawing.read().count("\nAcDbBlockTableRecord\n  2\nCây lá rộng\n"), 1)


if __name__ == "__main__":
    main()

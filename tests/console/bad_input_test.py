#!/usr/bin/env python3
"""What a user gets wrong, and what a file can hold: one line that says what and where, and nothing lost."""
import os
import random
import re
import subprocess

from program import LIBRARY, SAMPLE, SYMBOLS, TABLE, ProgramTest, main

HEAD = "  0\nSECTION\n  2\nENTITIES\n"


class BadInput(ProgramTest):
    def refused(self, *arguments, says, status=1):
        """A run that fails with one line that holds `says`, and writes nothing."""
        before = self.files()
        _, err = self.run_program(*arguments, "--settings", self.settings, status=status)
        self.assertIn(says, err)
        if status == 1:
            self.assertEqual(err.count("\n"), 1, err)
        self.assertEqual(before, self.files())

    def files(self):
        return {path: path.read_bytes() for path in self.folder.rglob("*")
                if path.is_file() and self.settings not in path.parents}

    def test_wrong_usage(self):
        for arguments in (["scan"], ["draw", SAMPLE], ["scan", SAMPLE, "--nonsense"]):
            self.run_program(*arguments, status=2)
        out, _ = self.run_program("--help")
        for command in ("scan", "draw", "erase", "plan", "check", "folders", "script", "info"):
            self.assertIn(command, out)

    def test_what_cannot_be_done(self):
        out = self.folder / "out.dxf"
        self.refused("scan", "missing.dxf", says="missing.dxf: no such file")
        self.refused("scan", self.folder, says="is a folder")
        self.refused("draw", SAMPLE, "-o", out, "--alignment", "T9", says="T1, T2")
        self.refused("draw", SAMPLE, "-o", out, "--sections", "1,99", says="section 99 is out of range")
        self.refused("draw", SAMPLE, "-o", out, "--sections", "x", says="no list of sections")
        self.refused("draw", SAMPLE, "-o", out, "--library", "missing.dv", says="missing.dv")
        self.refused("plan", SAMPLE, "-o", out, "--table", "missing.dvbd", says="missing.dvbd")
        self.refused("draw", SAMPLE, "-o", self.folder / "no" / "such.dxf", "--library", LIBRARY, says="such.dxf")
        self.refused("draw", SAMPLE, "-o", "/dev/full", says="/dev/full")
        empty = self.folder / "empty.dxf"
        empty.write_text("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n" + HEAD +
                         "  0\nENDSEC\n  0\nEOF\n")
        self.refused("draw", empty, "-o", out, says="no alignment")

    def changed(self, name, *changes):
        """The sample with the first place of each pattern changed."""
        text = SAMPLE.read_text(encoding="utf-8")
        for pattern, replacement in changes:
            text, count = re.subn(pattern, replacement, text, count=1, flags=re.DOTALL)
            self.assertEqual(count, 1, pattern)
        path = self.folder / name
        path.write_text(text, encoding="utf-8")
        return path

    def test_drawings_in_which_the_dialog_would_do_nothing(self):
        out = self.folder / "out.dxf"
        alignment = r"(\n100\nPlxDbAlignment\n  1\n)T1(\n.*?\n 90\n)25(\n.*?)(?=\n  0\n)"
        for drawing, says in (
                (self.changed("locked.dxf", (r"(\n  2\nTIM_TUYEN\n 70\n)0", r"\g<1>4")), '"T1" is on a locked layer'),
                (self.changed("unnamed.dxf", (alignment, r"\1\g<2>25\3")), "has no name"),
                (self.changed("tables.dxf", (r"  0\nSECTION\n  2\nTABLES\n.*?\n  0\nENDSEC\n", "")), "no model space")):
            for command in (["draw", drawing, "--library", LIBRARY], ["draw", drawing], ["erase", drawing]):
                self.refused(*command, "-o", out, says=says)
        bare = self.changed("bare.dxf", (alignment, r"\1T1\g<2>0"))
        self.refused("draw", bare, "-o", out, "--library", LIBRARY, says='"T1" has no cross-sections')

    def test_a_drawing_without_blocks_gets_labels_only(self):
        drawing = self.changed("blocks.dxf", (r"  0\nSECTION\n  2\nBLOCKS\n.*?\n  0\nENDSEC\n", ""))
        out = self.folder / "out.dxf"
        report = self.draw(drawing, out, "--library", LIBRARY)
        self.assertIn("no section of blocks", report["unreadable"][0]["reason"])
        self.assertEqual(sum(section["blocks"] for section in report["sections"]), 0)
        self.assert_sound(out)

    def test_what_cannot_be_erased_is_told_and_stays(self):
        drawn, out = self.folder / "drawn.dxf", self.folder / "out.dxf"
        placed = self.draw(SAMPLE, drawn, "--sections", "1")["placed"]
        text = drawn.read_text(encoding="utf-8")
        ends = [re.search(r"  0\n" + kind + r"\n  5\n(\w+)\n", text).group(1) for kind in ("SEQEND", "ENDBLK")]
        hostile = text.replace("\n 93\n0\n", "\n 93\n2\n" + "".join(f"331\n{end}\n" for end in ends), 1)
        name = "AcDbLayerTableRecord\n  2\n0\n 70\n"
        for content, erased, kept in ((hostile, placed, 2), (text.replace(name + "0", name + "4", 1), 0, placed)):
            drawn.write_text(content, encoding="utf-8")
            report = self.run_json("erase", drawn, "-o", out)
            self.assertEqual(report["erased"], erased)
            self.assertTrue(report["notes"][0].startswith(f"{kept} entities of earlier drawings"), report["notes"])
            self.assert_sound(out)

    def test_a_locked_layer_of_the_plan_is_told(self):
        once, twice = self.folder / "once.dxf", self.folder / "twice.dxf"
        placed = self.run_json("plan", SAMPLE, "-o", once, "--table", TABLE)["placed"]
        layer = "\n  2\nDiaVatBinhDo\n 70\n"
        once.write_text(once.read_text(encoding="utf-8").replace(layer + "0", layer + "4", 1), encoding="utf-8")
        report = self.run_json("plan", once, "-o", twice, "--table", TABLE)
        self.assertEqual((report["placed"], report["erased"]), (placed, 0))
        self.assertTrue(report["notes"][0].startswith(f"{placed} symbols of earlier runs"), report["notes"])

    def test_a_missing_symbol_is_reported_and_fails_only_when_strict(self):
        library = self.folder / "lost.dv"
        library.write_bytes(b"[SYMBOL]\nlost,C:\\x\\lost.dxf,1,1,0\n" +
                            LIBRARY.read_bytes().replace(b"symbols\\", b"D:\\Symbols\\").replace(b".dxf", b"_.dxf"))
        out = self.folder / "out.dxf"
        report = self.draw(SAMPLE, out, "--library", library)
        self.assertGreater(len(report["unreadable"]), 3)
        self.assertTrue(all("no such file" in entry["reason"] for entry in report["unreadable"]))
        self.assert_sound(out)
        out.unlink()
        self.refused("draw", SAMPLE, "-o", out, "--library", library, "--strict", says="_.dxf")

    def test_a_symbol_that_contains_itself_is_unreadable(self):
        def insert(name):
            return f"  0\nINSERT\n  8\n0\n  2\n{name}\n 10\n0\n 20\n0\n 30\n0\n"

        def block(name, body):
            return f"  0\nBLOCK\n  8\n0\n  2\n{name}\n 70\n0\n 10\n0\n 20\n0\n 30\n0\n{body}  0\nENDBLK\n"

        table, out = self.folder / "table.dvbd", self.folder / "out.dxf"
        for name, blocks, body in (("own", block("A", insert("A")), insert("A")),
                                   ("two", block("A", insert("B")) + block("B", insert("A")), insert("B")),
                                   ("name", block("name", insert("A")) + block("A", ""), insert("name"))):
            symbol = self.folder / f"{name}.dxf"
            symbol.write_text("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n  0\nSECTION\n  2\nBLOCKS\n" +
                              blocks + "  0\nENDSEC\n" + HEAD + body + "  0\nENDSEC\n  0\nEOF\n")
            table.write_text(f"MT1,{symbol},1,1,0,0\n")
            report = self.run_json("plan", SAMPLE, "-o", out, "--table", table)
            self.assertEqual((report["placed"], len(report["unreadable"])), (0, 1), name)
            self.assert_sound(out)

    def test_damaged_drawings(self):
        good = SAMPLE.read_bytes()
        bad = self.folder / "bad.dxf"
        for content, says in ((b"", "empty or not a DXF"), (b"GIF89a" * 50, "line 1"), (good[: len(good) // 2], "cut short"),
                              (good.replace(b"AC1027", b"AC1014", 1), "R14"), (bytes(range(256)) * 400, "line 1"),
                              (b"\0" * 100000, "line 1")):
            bad.write_bytes(content)
            self.refused("scan", bad, says=says)

    def test_hostile_drawings_neither_crash_nor_hang(self):
        good = SAMPLE.read_bytes()
        chooser = random.Random(11)
        bad, out = self.folder / "bad.dxf", self.folder / "out.dxf"
        values = [b"nan", b"inf", b"-1e308", b"1e400", b"999999999999", b"-1", b"", b"FFFFFFFF", b"\xff\xfe", b"0"]
        for _ in range(25):
            lines = good.split(b"\n")
            for _ in range(200):
                i = chooser.randrange(len(lines) // 2 - 1) * 2 + 1
                lines[i] = chooser.choice(values) if lines[i].strip()[:1].isdigit() else lines[i]
            bad.write_bytes(b"\n".join(lines))
            for command in (["scan", bad, "--nearby"], ["draw", bad, "-o", out, "--library", LIBRARY, "--symbols", SYMBOLS,
                                                        "--nearby"],
                            ["check", bad, "--library", LIBRARY, "--table", TABLE, "--nearby"]):
                status = self.status_of(*command)
                self.assertIn(status, (0, 1), command)

    def status_of(self, *arguments):
        return subprocess.run([os.environ["VELOXA"], *map(str, arguments), "--settings", str(self.settings)],
                              capture_output=True, timeout=60, check=False).returncode

    def test_hostile_settings_neither_crash_nor_damage(self):
        drawn, again, library, table = (self.folder / name for name in ("drawn.dxf", "again.dxf", "a.dv", "a.dvbd"))
        script = self.folder / "day.txt"
        script.write_text(f"""
command DSS
answer "{library}"
click 1096
click 1095
answer "{library}"
click 1082
click 1
click 1094
click 1
answer "{table}"
command DVBD
click 1095
click 1
save "{drawn}"
close
# the drawing keeps what was loaded
open "{drawn}"
command DSS
click 1096
click 1
click 1
save "{again}"
""")
        play = ["script", script, SAMPLE, "--settings", self.settings, "--symbols", SYMBOLS]
        library.write_bytes(LIBRARY.read_bytes())
        table.write_bytes(TABLE.read_bytes())
        self.run_program(*play)
        paths = [library, table, self.settings / "iniSymbol.cfg", self.settings / "FcodeBD.cfg"]
        good = [path.read_bytes() for path in paths]
        chooser = random.Random(3)
        for number in range(8):
            for path, content in zip(paths, good):
                path.write_bytes(chooser.randbytes(3000) if number % 4 == 0 else self.hostile(chooser, content))
            self.run_program(*play)
            if number % 4 < 2:
                self.assert_sound(drawn)
                self.assert_sound(again)

    @staticmethod
    def hostile(chooser, content):
        """Lines of fields, many of them with a value that no user would want."""
        values = [b"9" * 400, b"1e999", b"-1e308", b"inf", b"nan", b"~", b"", b",", b"\r", b"\x01\x00\xd8", b"\x02\xff", b"\xff",
                  b"..\\..", b"C:\\a b\\c,d.dwg", b"/dev/null", b"\\\\", b"[ALL]\n1,2", b"[tn]", b"\0"]
        lines = content.split(b"\n")
        for _ in range(40):
            at = chooser.randrange(len(lines))
            for separator in (b",", b"#", b"="):
                fields = lines[at].split(separator)
                if len(fields) > 1:
                    fields[chooser.randrange(len(fields))] = chooser.choice(values)
                    lines[at] = separator.join(fields)
        return b"\n".join(lines)

    def test_settings_that_cannot_be_kept_are_told(self):
        blocked = self.folder / "blocked"
        blocked.write_text("a file where the folder should be")
        out, _ = self.run_program("draw", SAMPLE, "-o", self.folder / "out.dxf", "--settings", blocked / "settings")
        self.assertIn("settings could not be kept", out)
        for name in ("iniSymbol.cfg", "FcodeBD.cfg"):
            (self.settings / name).mkdir(parents=True)
        for command in (["draw", SAMPLE, "--library", LIBRARY], ["plan", SAMPLE, "--table", TABLE]):
            notes = self.run_json(*command, "-o", self.folder / "out.dxf")["notes"]
            self.assertEqual(len([note for note in notes if "settings could not be kept" in note]), 1, notes)
        for name in ("iniSymbol.cfg", "FcodeBD.cfg"):
            (self.settings / name).rmdir()
        for _ in range(2):
            for command in (["draw", SAMPLE, "--library", LIBRARY], ["plan", SAMPLE, "--table", TABLE]):
                notes = self.run_json(*command, "-o", self.folder / "out.dxf")["notes"]
                self.assertNotIn("settings could not be kept", "".join(notes))


if __name__ == "__main__":
    main()

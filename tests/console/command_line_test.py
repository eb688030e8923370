#!/usr/bin/env python3
"""What the words of the command line mean: commands, files and their kinds; and how names stand in what is printed."""
import json
import shutil

from program import LIBRARY, SAMPLE, SYMBOLS, TABLE, ProgramTest, main


class CommandLine(ProgramTest):
    def test_commands_and_files(self):
        self.without_display()
        for words, status, says in (
                (["bogus", "x.dxf"], 2, 'unknown command "bogus"'), (["drwa", SAMPLE, "-o", "x.dxf"], 2, 'nearest is "draw"'),
                (["Chek"], 2, 'nearest is "check"'), (["help", "scna"], 2, 'nearest is "scan"'), ([], 2, "veloxa help"),
                ([""], 2, "unknown command"), (["x" * 5000], 2, "unknown command"), (["missing.DXF"], 1, "no such file"),
                (["missing.dwg"], 1, "no such file"), (["./missing"], 1, "no such file"),
                ([SAMPLE], 1, "no display"), (["b\x1b[2J\x7f\u0085"], 2, r'"b\x1b[2J\x7f\x85"'),
                (["scan", SAMPLE, "--b\x1b"], 2, r"--b\x1b")):
            out, err = self.run_program(*words, status=status)
            self.assertIn(says, err)
            self.assertEqual(out, "")

    def test_help_is_the_help(self):
        for words, same in ((["help"], ["--help"]), (["help", "draw"], ["draw", "--help"])):
            out, _ = self.run_program(*words)
            self.assertEqual(out, self.run_program(*same)[0])
        self.assertIn("--library", out)

    def test_files_of_another_kind_are_refused(self):
        library, table, drawing = (self.folder / name for name in ("other.dv", "other.dvbd", "other.dxf"))
        for kind, path in ((TABLE, library), (LIBRARY, table), (SAMPLE, drawing)):
            shutil.copy(kind, path)
        hidden = self.folder / "drawing.dv"
        shutil.copy(SAMPLE, hidden)
        shutil.copy(LIBRARY, self.folder / "road.txt")
        draw, plan, check = ["draw", SAMPLE, "-o", "o.dxf"], ["plan", SAMPLE, "-o", "o.dxf"], ["check", SAMPLE]
        wrong = [(command + ["--library", path], says) for command in (draw, check) for path, says in (
            (drawing, "but a drawing"), (hidden, "but a drawing"), (library, "but a plan table"), (TABLE, "but a plan table"),
            ("road.txt", "ends in .dv"))]
        wrong += [(command + ["--table", path], says) for command in (plan, check) for path, says in (
            (drawing, "but a drawing"), (table, "but a feature library"), (LIBRARY, "but a feature library"))]
        wrong += [(command + ["--symbols", path], says) for command in (["scan", SAMPLE], draw + ["--library", LIBRARY], check)
                  for path, says in ((SAMPLE, "is not a folder"), ("nowhere", "nowhere: no such folder"))]
        for name in ("o.dv", "o.DVBD", "o.pdf", "o.cfg", "o.dwg", "o.dxf.bak", "o."):
            wrong += [(command + ["-o", name], "ends in .dxf") for command in (
                ["draw", SAMPLE, "--library", LIBRARY], ["erase", SAMPLE], ["plan", SAMPLE, "--table", TABLE])]
        before = {path: path.read_bytes() for path in self.folder.iterdir()}
        for words, says in wrong:
            out, err = self.run_program(*words, "--settings", self.settings, status=1)
            self.assertIn(says, err, words)
            self.assertEqual((out, err.count("\n")), ("", 1))
        self.assertEqual(before, {path: path.read_bytes() for path in self.folder.iterdir()})
        script = self.folder / "save.txt"
        script.write_text(f'open "{SAMPLE}"\nsave other.dv\n')
        self.assertIn("line 2: other.dv: drawings are saved as DXF", self.run_program("script", script, status=1)[1])
        for name in ("drawn", "drawn.DXF", "ký hiệu.dxf"):
            self.run_program("erase", SAMPLE, "-o", name, "--settings", self.settings)
            self.assertTrue((self.folder / name).exists())

    def test_control_characters_of_names_are_shown_escaped(self):
        name, shown = "M\\U+001B[31m\\U+0007\\U+009B\\U+007F\\U+000A", "M\\x1b[31m\\x07\\x9b\\x7f\\x0a"
        drawing, library = self.folder / "red.dxf", self.folder / "red\x1b.dv"
        content = SAMPLE.read_text(encoding="utf-8").replace("\nT1\n", f"\n{name}T1\n").replace("\nMT1\n", f"\n{name}\n")
        drawing.write_text(content.replace("\nCOC_H\n", f"\n{name}\n").replace("\nHO_GA\n", f"\n{name}\n"), encoding="utf-8")
        rows = b"[TN]\nred,C:\\red\x1b[2J.dxf,1,1\x1b,0\n" + LIBRARY.read_bytes()
        library.write_bytes(rows.replace(b"symbols\\", b"nowhere\\\x1b"))
        common = ["--settings", self.settings, "--symbols", SYMBOLS]
        script = self.folder / "red.txt"
        script.write_text(f'open "{drawing}"\nanswer "red\x1b.dxf"\nopen "red\x1b.dxf"\n')
        for words, status in ((["scan", drawing, "--nearby"], 0), (["info", drawing], 0),
                              (["check", drawing, "--library", library, "--table", TABLE], 0),
                              (["draw", drawing, "-o", "o.dxf", "--library", library], 0),
                              (["plan", drawing, "-o", "o.dxf", "--table", TABLE], 0), (["erase", drawing, "-o", "e.dxf"], 0),
                              (["draw", drawing, "-o", "o.dxf", "--alignment", "T\x1b"], 1), (["scan", "T\x1b.dxf"], 1),
                              (["script", script], 1)):
            printed = "".join(self.run_program(*words, *common, status=status))
            self.assertFalse([c for c in printed if c != "\n" and (c < " " or "\x7f" <= c <= "\x9f")], words)
            self.assertIn("\\x1b", printed, words)
        self.assertIn(f"{shown}T1: 25 cross-sections\n", self.run_program("scan", drawing)[0])
        self.assertEqual(json.loads(self.run_program("scan", drawing, "--json")[0])["alignments"][0]["name"],
                         "M\x1b[31m\x07\x9b\x7f\nT1")


if __name__ == "__main__":
    main()

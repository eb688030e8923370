#!/usr/bin/env python3
"""A whole working day as a script: scan, nearby objects, settings, draw, save, reopen, redraw, undo."""
import json

from program import LIBRARY, SAMPLE, SYMBOLS, TABLE, ProgramTest, main


class Script(ProgramTest):
    def play(self, text, *arguments, status=0):
        path = self.folder / "script.txt"
        path.write_text(text, encoding="utf-8")
        return self.run_program("script", path, *arguments, "--settings", self.settings, "--symbols", SYMBOLS,
                                status=status)

    def play_json(self, text):
        out, _ = self.play(text)
        return [json.loads(line) for line in out.splitlines()]

    def test_a_working_day(self):
        drawn, redrawn = self.folder / "drawn.dxf", self.folder / "redrawn.dxf"
        dss, empty, settings, rows, after, undone = self.play_json(f"""
# morning: look, load the library, draw
open "{SAMPLE}"
command DSS
print dialog
print drawing
command ZE
answer "{LIBRARY}"
click 1096
click 1095
tab 3
set 1114 3.5
tab 0
print dialog
click 1
print rows
click 1094
print drawing
click 1
save "{drawn}"
close
# afternoon: everything is found again; take it all back
open "{drawn}"
command DSS
click 1095
print drawing
click 1094
save "{redrawn}"
""")
        self.assertEqual((dss["class"], dss["template"], dss["modal"]), ("VeloxaDlg", 192, False))
        self.assertEqual(dss["title"], "Vẽ địa vật lên trắc ngang")
        controls = {control["id"]: control for control in dss["controls"]}
        self.assertEqual(controls[1113]["items"], ["T1", "T2"])
        self.assertTrue(all(controls[1099]["checked"]))
        self.assertEqual(controls[1100]["text"], "Chọn tất cả")
        self.assertEqual((settings["class"], settings["modal"], settings["page"]), ("MainConfigDlg", True, 0))
        self.assertEqual(len(settings["pages"]), 4)
        files = [row["file"] for s in rows["alignments"][0]["sections"] for row in s["crossing"]]
        self.assertTrue(any(files) and rows["drawing"] == str(SAMPLE))
        placed = after["types"]["INSERT"] - empty["types"]["INSERT"]
        self.assertGreater(placed, 50)
        self.assertEqual(undone["types"], empty["types"])
        self.assert_sound(drawn)
        self.assert_sound(redrawn)
        self.assertIn("DeltaY=3.5", (self.settings / "iniSymbol.cfg").read_text())

    def test_what_the_module_is_silent_about_is_told(self):
        for name in ("iniSymbol.cfg", "FcodeBD.cfg"):
            (self.settings / name).mkdir(parents=True)
        own = self.folder / "no" / "such" / "own.dv"
        _, err = self.play(f'''
open "{SAMPLE}"
command DSS
click 1096
answer color 3
answer missing.dxf
press 1 1
cell 1 1 typed
''', status=1)
        self.assertIn("line 8: cell 1 1 is read-only", err)
        _, err = self.play(f'''
open "{SAMPLE}"
command DSS
click 1096
answer color 3
answer missing.dxf
press 1 1
answer "{own}"
click 1082
click 1
click 1094
command DVBD
click 1
''')
        kept = "the settings could not be kept: {} cannot be written"
        self.assertEqual(err.splitlines()[:2], ["line 9: " + kept.format(own),
                                                "line 10: " + kept.format(self.settings / "iniSymbol.cfg")])
        self.assertIn("line 11: symbol file that cannot be read: missing.dxf: no such file", err)
        self.assertEqual(err.splitlines()[-1], "line 13: " + kept.format(self.settings / "FcodeBD.cfg"))

    def test_the_plan_table_is_kept(self):
        first, second = self.play_json(f"""
open "{SAMPLE}"
answer "{TABLE}"
command DVBD
click 1095
print dialog
click 1
command DVBD
print dialog
key escape
""")
        cells, again = ([[cell["text"] for cell in row[:2]] for control in dialog["controls"]
                         if control["kind"] == "grid" for row in control["cells"]] for dialog in (first, second))
        self.assertEqual(cells, again)
        self.assertTrue(any(file for _, file in cells[1:]))

    def test_what_cannot_be_done_names_its_line(self):
        for text, says in (("open missing.dxf\n", "line 1: missing.dxf"), ("\n# x\nclick 1\n", "line 3: no dialog"),
                           ("dance\n", 'line 1: there is no action "dance"'), ("echo \"a\nb\"\n", "line 1: a quote"),
                           (f'open "{SAMPLE}"\ncommand DSS\nclick 4711\n', "line 3: "),
                           (f'open "{SAMPLE}"\ncommand DSS\ntick 1099 99 on\n', "line 3: "),
                           (f'open "{SAMPLE}"\ncommand DSS\nclick 1096\n', "left open"),
                           (f'open "{SAMPLE}"\ncommand DSS\nclick 1096\ncommand DSS\n', "line 4: \"command\" has to wait"),
                           (f'open "{SAMPLE}"\ncommand NONE\n', "line 2: there is no command NONE"),
                           ("answer color 257\n", "line 1: 257 is no colour"),
                           ("use 1\n", "line 1: there is no drawing 1")):
            _, err = self.play(text, status=1)
            self.assertIn(says, err)

    def test_two_drawings_stay_apart(self):
        out, _ = self.play(f'open "{SAMPLE}"\nopen "{SAMPLE}"\ncommand DSS\nuse 1\nclick 1094\nprint drawing\n'
                           f'use 2\nprint drawing\nuse 1\nclose\nprint drawing\necho "say ""hi"""\n')
        *drawings, said = out.splitlines()
        counts = [json.loads(line)["types"] for line in drawings]
        self.assertEqual(counts[0], counts[1], "a dialog of one drawing draws nothing in another")
        self.assertEqual(said, 'say "hi"')


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""A whole working day as a script: scan, nearby objects, all settings, draw, save, reopen, change, redraw, undo, plan."""
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
        drawn, final, own = (self.folder / name for name in ("drawn.dxf", "final.dxf", "own.dv"))
        tree, stake = SYMBOLS / "CayLaRong.dxf", SYMBOLS / "CocTim.dxf"
        dss, empty, scanned, settings, rows, after, undone, kept, changed, again, none, plan, finished = self.play_json(f"""
# morning: look, find the nearby objects, fill all pages of the settings, draw
open "{SAMPLE}"
command DSS
print dialog
print drawing
command ZE
print rows
click 1096
answer "{LIBRARY}"
click 1095
answer "{tree}"
press 4 1
cell 4 2 1.5
tab 1
cell 3 2 2,5
tab 2
answer "{stake}"
press 3 1
cell 3 4 0.25
answer "{own}"
click 1082
tab 3
set 1102 6
set 1114 3.5
cell 2 2 "Nhãn mã"
answer color 30
cell 1 3 Others...
mark 3 1 off
print dialog
click 1
print rows
click 1094
print drawing
click 1095
print drawing
click 1094
click 1
save "{drawn}"
close
# afternoon: everything is found again; change something, draw again, take all back
open "{drawn}"
command DSS
click 1096
print dialog
tab 3
mark 3 1 on
tab 1
cell 3 2 4
click 1
print rows
click 1094
print drawing
click 1095
print drawing
click 1
# evening: the plan
command DVBD
answer "{TABLE}"
click 1095
answer "{tree}"
press 1 1
mark 1 5 on
print dialog
click 1
print drawing
save "{final}"
""")
        self.assertEqual((dss["class"], dss["template"], dss["modal"]), ("VeloxaDlg", 192, False))
        self.assertEqual(dss["title"], "Vẽ địa vật lên trắc ngang")
        controls = {control["id"]: control for control in dss["controls"]}
        self.assertEqual(controls[1113]["items"], ["T1", "T2"])
        self.assertTrue(all(controls[1099]["checked"]))
        self.assertEqual(controls[1100]["text"], "Chọn tất cả")
        self.assertTrue(self.rows_of(scanned, "nearby") and not any(row["file"] for row in self.rows_of(scanned, "nearby")))
        # Found with the changed distance; the rows known before are as they were.
        self.assertGreaterEqual(len(self.rows_of(rows, "nearby")), len(self.rows_of(scanned, "nearby")))

        self.assertEqual((settings["class"], settings["modal"], settings["page"]), ("MainConfigDlg", True, 3))
        self.assertEqual([page["class"] for page in settings["pages"]],
                         ["SymbolSettingDlg", "LineSettingDlg", "LineSettingDlg1", "GeneralSettingDlg"])
        symbol, code, coded = (self.grid_of(page)[row] for page, row in zip(settings["pages"], (4, 3, 3)))
        self.assertEqual([cell["text"] for cell in symbol], ["CAY", str(tree), "1.5", "2.00", "0.00"])
        self.assertEqual([cell["readonly"] for cell in symbol], [True, True, False, False, False])
        self.assertEqual((code[0]["text"], code[2]["text"]), ("COC_H", "2,5"))
        self.assertEqual([cell["text"] for cell in coded], ["COC_H", str(stake), "1.00", "1.00", "0.25"])
        for kind, key, name, values in (("nearby", "name", "CAY", (str(tree), 1.5, 2, 0)),
                                        ("codes", "code", "COC_H", (code[1]["text"], 2, 2, 0)),
                                        ("plan", "code", "COC_H", (str(stake), 1, 1, 0.25))):
            found = [row for row in self.rows_of(rows, kind) if row[key] == name]
            self.assertTrue(found)
            for row in found:
                self.assertEqual((row["file"], row["scaleX"], row["scaleY"], row["rotation"]), values)
        self.assertIn(f"[SYMBOL]\nAo,symbols\\MucNuoc.dxf,2.00,2.00,0.00\n", own.read_text("latin-1"))
        self.assertIn(f"\nCAY,{tree},1.5,2.00,0.00\n", own.read_text("latin-1"))
        cfg = (self.settings / "iniSymbol.cfg").read_text("latin-1")
        for line in ("Forward distance=6.000000", "DeltaY=3.500000", "Layer Breakpoint feature code=Nhãn mã", "Alignment=T1",
                     "Line ScaleX=4.000000"):
            self.assertIn(line + "\n", cfg)

        # Symbols of names were switched off, those of codes and all labels were drawn, the codes' on their layer.
        self.assertGreater(after["types"]["INSERT"], empty["types"]["INSERT"])
        self.assertGreater(after["layers"]["Nhãn mã"], len(self.rows_of(rows, "codes")))
        self.assertEqual(undone["types"], empty["types"])
        self.assertEqual(self.texts_of(kept["pages"][2]), self.texts_of(settings["pages"][2]), "kept in the drawing")
        self.assertEqual(self.grid_of(kept["pages"][1])[3][2]["text"], "2.00", "what was applied: a comma is not kept")
        self.assertEqual([control["text"] for control in kept["pages"][3]["controls"] if control["kind"] == "edit"],
                         ["6", "5.00", "0.40", "3.5"])
        self.assertEqual({row["scaleX"] for row in self.rows_of(changed, "codes") if row["code"] == "COC_H"}, {4})
        self.assertGreater(again["types"]["INSERT"], after["types"]["INSERT"])
        self.assertEqual(none["types"], empty["types"])

        table = self.grid_of(plan)
        self.assertEqual(([cell["text"] for cell in table[1]][:2], table[1][5]["checked"]), (["MT1", str(tree)], True))
        self.assertEqual(finished["layers"]["DiaVatBinhDo"], finished["types"]["INSERT"] - none["types"]["INSERT"])
        self.assertIn(f"MT1#{tree}#", (self.settings / "FcodeBD.cfg").read_text("latin-1"))
        self.assert_sound(drawn)
        self.assert_sound(final)

    @staticmethod
    def rows_of(rows, kind):
        return [row for section in rows["alignments"][0]["sections"] for row in section[kind]]

    @staticmethod
    def grid_of(page):
        return next(control["cells"] for control in page["controls"] if control["kind"] == "grid")

    def texts_of(self, page):
        return [[cell["text"] for cell in row] for row in self.grid_of(page)]

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

    def test_a_library_opened_brings_the_folders_beside_it(self):
        symbols = self.folder / "elsewhere" / "symbols"
        symbols.mkdir(parents=True)
        (symbols / "OnlyHere.dxf").write_bytes((SYMBOLS / "CayLaRong.dxf").read_bytes())
        library = symbols.parent / "own.dv"
        library.write_bytes(LIBRARY.read_bytes().replace(b"CayLaRong.dxf", b"OnlyHere.dxf"))
        drawn = self.folder / "drawn.dxf"
        _, told = self.play(f"""
open "{SAMPLE}"
command DSS
click 1096
answer "{library}"
click 1095
click 1
click 1094
click 1
save "{drawn}"
""")
        self.assertNotIn("OnlyHere", told)
        self.assertIn("\nOnlyHere\n", drawn.read_text(encoding="utf-8"))

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

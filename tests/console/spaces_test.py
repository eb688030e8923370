#!/usr/bin/env python3
"""Drawings with more than model space: what is counted where, and what is said of a drawing saved on a layout."""
from program import LIBRARY, SAMPLE, SYMBOLS, TABLE, ProgramTest, main

SAYS = 'the drawing was saved on the layout "Layout1"'


class Spaces(ProgramTest):
    def variant(self, name, old, new):
        text = SAMPLE.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path = self.folder / name
        path.write_text(text.replace(old, new, 1), encoding="utf-8")
        return path

    def on_layout(self):
        return self.variant("layout.dxf", "\n$TILEMODE\n 70\n1\n", "\n$TILEMODE\n 70\n0\n")

    def spaces(self, drawing):
        return {space["layout"]: space["types"] for space in self.run_json("info", drawing)["spaces"]}

    def plan(self, drawing, output):
        return self.run_json("plan", drawing, "-o", output, "--table", TABLE, "--symbols", SYMBOLS)

    def test_symbols_on_a_layout_are_counted(self):
        layout, out = self.on_layout(), self.folder / "out.dxf"
        expected = self.plan(SAMPLE, self.folder / "model.dxf")["placed"]
        self.assertGreater(expected, 500)
        runs = [self.plan(layout, out), self.plan(out, out)]
        self.assertEqual([(run["placed"], run["erased"]) for run in runs], [(expected, 0), (expected, expected)])
        self.assertEqual(self.spaces(out), {"Model": self.spaces(SAMPLE)["Model"],
                                            "Layout1": {"INSERT": expected, "VIEWPORT": 2}})
        self.assertIn(f"Entities of Layout1 by type:\n  {expected}  INSERT\n", self.run_program("info", out)[0])

    def test_points_of_a_layout_count(self):
        """The command takes them, whatever space is shown."""
        moved = self.variant("moved.dxf", "\nPLXDBMEASUREPOINTOBJ\n  5\n200\n330\n1F\n100\nAcDbEntity\n",
                             "\nPLXDBMEASUREPOINTOBJ\n  5\n200\n330\n1B\n100\nAcDbEntity\n 67\n1\n")
        self.assertEqual(self.spaces(moved)["Layout1"]["PLXDBMEASUREPOINTOBJ"], 1)
        codes = [self.run_json("check", drawing, "--table", TABLE)["tableCodes"] for drawing in (SAMPLE, moved)]
        self.assertEqual(*codes)
        self.assertEqual(*(self.plan(drawing, self.folder / "out.dxf")["placed"] for drawing in (SAMPLE, moved)))

    def test_every_command_says_so(self):
        layout, out = self.on_layout(), self.folder / "out.dxf"
        commands = {"scan": [], "check": [], "draw": ["-o", out, "--library", LIBRARY], "plan": ["-o", out, "--table", TABLE]}
        for command, arguments in commands.items():
            for drawing, times in ((layout, 1), (SAMPLE, 0)):
                notes = self.run_json(command, drawing, *arguments)["notes"]
                self.assertEqual(sum(note.startswith(SAYS) for note in notes), times, command)
        self.assertIn(f"Note: {SAYS}", self.run_program("scan", layout)[0])


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Drawing again what a drawing keeps the settings of, whatever the user's own settings are."""
import re

from program import LIBRARY, SAMPLE, SYMBOLS, ProgramTest, main

# What closing the dialog stores.
CLOSING = {"Alignment", "Check Select", "Symbol ScaleX", "Symbol ScaleY", "Symbol Rotate", "Line ScaleX", "Line ScaleY",
           "Line Rotate"}


class KeptSettings(ProgramTest):
    def setUp(self):
        super().setUp()
        self.drawn, self.again = self.folder / "drawn.dxf", self.folder / "again.dxf"
        self.first = self.draw(SAMPLE, self.drawn, "--library", LIBRARY)
        self.config = self.settings / "iniSymbol.cfg"

    def stored(self):
        lines = self.config.read_text(encoding="latin-1").splitlines()
        return {key: value for key, _, value in (line.partition("=") for line in lines) if key not in CLOSING}

    def change_stored(self, **values):
        """The user's own settings, as the program writes them."""
        values = {"Forward distance": "40.000000", "Backward distance": "40.000000", "TextHei": "0.700000",
                  "Section symbol layer": "OF_THE_USER"} | values
        lines = [line.partition("=") for line in self.config.read_text(encoding="latin-1").splitlines()]
        self.assertLessEqual(values.keys(), {key for key, _, _ in lines})
        self.config.write_text("".join(f"{key}={values.get(key, value)}\n" for key, _, value in lines), encoding="latin-1")

    def keep_in_drawing(self, numbers):
        text = self.drawn.read_text(encoding="utf-8")
        self.assertIn("\n5.00,5.00,0.40,2.00\n", text)
        self.drawn.write_text(text.replace("\n5.00,5.00,0.40,2.00\n", f"\n{numbers}\n"), encoding="utf-8")

    def counts(self, report):
        return [(part["name"], part["blocks"], part["labels"], part["entities"]) for part in report["sections"]]

    def labels(self, report):
        return {part["name"]: part["labels"] for part in report["sections"]}

    def heights(self, text):
        """Of the labels: texts in the style that is theirs."""
        return set(re.findall(r"\nAcDbText\n 10\n.*\n 20\n.*\n 30\n.*\n 40\n(.*)\n  1\n.*\n  7\nMADIAVATTN\n", text))

    def redraw(self, *arguments):
        return self.draw(self.drawn, self.again, *arguments)

    def test_a_drawing_keeps_its_symbols_and_the_user_the_settings(self):
        self.change_stored()
        before = self.stored()
        report = self.redraw()
        self.assertEqual(self.counts(report), self.counts(self.first))
        self.assertEqual(report["erased"], self.first["placed"])
        self.assertEqual(self.stored(), before)
        self.assertIn("the settings that the drawing keeps count here, and yours stay as they are: search distance behind "
                      "5.00 (yours: 40.00), search distance ahead 5.00 (yours: 40.00), text height 0.40 (yours: 0.70)",
                      report["notes"])
        text = self.again.read_text(encoding="utf-8")
        self.assertEqual(self.heights(text), {"0.4"}, "labels have the height that the drawing keeps")
        self.assertIn("\nOF_THE_USER\n", text, "layers are not kept with a drawing")
        self.assertIn("\n5.00,5.00,0.40,2.00\n", text)
        self.assertEqual(self.counts(self.redraw("--library", LIBRARY)), self.counts(self.first))
        self.assertEqual(self.stored(), before)

    def test_a_new_user_gets_settings_of_no_drawing(self):
        self.keep_in_drawing("3.00,40.00,0.60,1.50")
        new = self.stored()
        self.config.unlink()
        report = self.redraw()
        self.assertEqual(self.counts(report), self.counts(self.first))
        self.assertEqual(self.stored(), new, "those that the dialog starts with")
        self.assertEqual(self.heights(self.again.read_text(encoding="utf-8")), {"0.6"})
        self.assertFalse(any("yours" in note for note in report["notes"]))

    def test_nearby_objects_are_looked_for_within_the_distances_of_the_drawing(self):
        self.keep_in_drawing("30.00,40.00,0.40,2.00")
        near = self.labels(self.redraw("--nearby"))
        self.assertGreater(sum(near.values()), sum(self.labels(self.first).values()))
        self.assertEqual(self.counts(self.redraw()), self.counts(self.first), "unless they are asked for")
        names = self.run_json("check", self.drawn, "--alignment", "T1", "--nearby")["names"]
        self.change_stored(**{"Forward distance": "40.000000", "Backward distance": "30.000000"})
        self.assertEqual(self.labels(self.draw(SAMPLE, self.again, "--library", LIBRARY, "--nearby")), near)
        wanted = self.run_json("check", SAMPLE, "--alignment", "T1", "--nearby")["names"]
        self.assertEqual({entry["name"]: entry["count"] for entry in names},
                         {entry["name"]: entry["count"] for entry in wanted})


if __name__ == "__main__":
    main()

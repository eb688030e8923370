#!/usr/bin/env python3
"""What `plan` tells of the symbols that stood there before."""
from program import LIBRARY, SAMPLE, SYMBOLS, TABLE, ProgramTest, main


class Plan(ProgramTest):
    def plan(self, drawing, table):
        return self.run_json("plan", drawing, "-o", self.folder / "plan.dxf", "--table", table, "--symbols", SYMBOLS)

    def table_without(self, *codes):
        path = self.folder / "part.dvbd"
        path.write_bytes(b"".join(line for line in TABLE.read_bytes().splitlines(True)
                                  if line.split(b",")[0].decode("latin-1") not in codes))
        return path

    def test_codes_that_kept_their_symbols(self):
        part = self.table_without("TIM", "CAY")
        first = self.plan(SAMPLE, part)
        self.assertEqual(first["keptSymbols"], [], "there is no earlier run")
        self.assertIn({"name": "TIM", "count": 10}, first["withoutSymbol"])
        whole = self.plan(SAMPLE, TABLE)
        again = self.plan(SAMPLE, part)
        self.assertEqual(again["placed"], whole["placed"])
        kept = [{"name": "CAY", "count": 45, "file": "symbols\\CayLaRong.dxf"},
                {"name": "TIM", "count": 10, "file": "symbols\\CocTim.dxf"}]
        self.assertEqual(again["keptSymbols"], kept)
        self.assertEqual(self.run_json("check", SAMPLE, "--table", part)["keptSymbols"], kept)
        out, _ = self.run_program("plan", SAMPLE, "-o", self.folder / "plan.dxf", "--table", part, "--symbols", SYMBOLS,
                                  "--settings", self.settings)
        self.assertIn("codes outside the table that still have the symbols of an earlier run: "
                      "CAY (45, symbols\\CayLaRong.dxf), TIM (10, ", out)

    def test_points_that_draw_has_given_a_symbol(self):
        drawn = self.folder / "drawn.dxf"
        self.draw(SAMPLE, drawn, "--library", LIBRARY, "--sections", "1-3")
        expected = {}
        for section in self.run_json("scan", SAMPLE)["alignments"][0]["sections"][:3]:
            for row in section["plan"]:
                if row["code"] not in ("LK", "CAY"):
                    expected[row["code"]] = expected.get(row["code"], 0) + 1
        self.assertGreater(len(expected), 3)
        part = self.table_without("CAY")
        self.assertEqual({entry["name"]: entry["count"] for entry in self.plan(drawn, part)["placedTwice"]}, expected)
        self.assertEqual(self.plan(SAMPLE, part)["placedTwice"], [])


if __name__ == "__main__":
    main()

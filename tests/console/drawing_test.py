#!/usr/bin/env python3
"""Scan, draw, draw again, erase: on the sample road, through the command line."""
import shutil

from program import LIBRARY, SAMPLE, TABLE, ProgramTest, main


def entities_of(path):
    """The lines of each object of the ENTITIES section, by handle."""
    lines = path.read_text(encoding="utf-8", errors="surrogateescape").split("\n")
    start = next(i for i in range(1, len(lines), 2) if lines[i].strip() == "ENTITIES" and lines[i - 1].strip() == "2")
    found, current = {}, []
    for i in range(start + 1, len(lines) - 1, 2):
        code, value = lines[i].strip(), lines[i + 1]
        if code == "0":
            if current:
                found[next((v.strip() for c, v in current if c == "5"), "")] = current
            current = []
            if value.strip() == "ENDSEC":
                break
        current.append((code, value))
    return found


class Drawing(ProgramTest):
    def test_scan_finds_the_road(self):
        scan = self.run_json("scan", SAMPLE)
        self.assertEqual([line["name"] for line in scan["alignments"]], ["T1", "T2"])
        sections = [section for line in scan["alignments"] for section in line["sections"]]
        self.assertEqual(len(sections), 50)
        self.assertTrue(all(section["nearby"] == [] for section in sections))
        self.assertGreater(sum(len(section["crossing"]) for section in sections), 100)
        self.assertGreater(sum(len(section["codes"]) for section in sections), 100)
        nearby = self.run_json("scan", SAMPLE, "--nearby")
        self.assertGreater(sum(len(s["nearby"]) for line in nearby["alignments"] for s in line["sections"]), 10)

    def test_draws_replaces_and_takes_back(self):
        first, second, clean = (self.folder / name for name in ("first.dxf", "second.dxf", "clean.dxf"))
        drawn = self.draw(SAMPLE, first, "--library", LIBRARY, "--nearby")
        self.assertEqual(drawn["alignment"], "T1")
        self.assertEqual(drawn["erased"], 0)
        self.assertEqual(drawn["unreadable"], [])
        self.assertGreater(drawn["placed"], 500)
        self.assertGreater(sum(section["blocks"] for section in drawn["sections"]), 50)
        self.assertEqual(drawn["placed"], sum(section["entities"] for section in drawn["sections"]))
        self.assertIn("Cáp quang", [entry["name"] for entry in drawn["withoutSymbol"]])
        self.assert_sound(first)

        before, after = entities_of(SAMPLE), entities_of(first)
        self.assertEqual(len(after), len(before) + drawn["placed"])
        changed = [handle for handle in before if after[handle] != before[handle]]
        self.assertEqual([before[handle][0][1] for handle in changed], ["PLXDBALIGNMENT"])

        again = self.draw(first, second, "--library", LIBRARY, "--nearby")
        self.assertEqual((again["erased"], again["placed"]), (drawn["placed"], drawn["placed"]))
        self.assertEqual(len(entities_of(second)), len(after))
        self.assert_sound(second)

        erased = self.run_json("erase", second, "-o", clean)
        self.assertEqual(erased["erased"], drawn["placed"])
        self.assertNotIn("placed", erased)
        self.assertEqual(entities_of(clean).keys(), before.keys())
        self.assert_sound(clean)

    def test_draws_chosen_sections_of_a_named_alignment_in_place(self):
        road = self.folder / "road.dxf"
        shutil.copy(SAMPLE, road)
        report = self.draw(road, road, "--alignment", "t2", "--sections", "2,4-5")
        self.assertEqual(report["alignment"], "T2")
        self.assertEqual(len(report["sections"]), 3)
        self.assertEqual((self.folder / "road.dxf.bak").read_bytes(), SAMPLE.read_bytes())
        self.assertEqual(report["placed"], sum(section["labels"] for section in report["sections"]) * 3,
                         "without a library each label stands with its leader and arrowhead, and nothing else")
        self.assert_sound(road)

    def test_places_symbols_on_the_plan(self):
        once, twice = self.folder / "once.dxf", self.folder / "twice.dxf"
        first = self.run_json("plan", SAMPLE, "-o", once, "--table", TABLE)
        self.assertGreater(first["placed"], 300)
        self.assertEqual(first["erased"], 0)
        self.assertIn("LK", [entry["name"] for entry in first["withoutSymbol"]])
        second = self.run_json("plan", once, "-o", twice, "--table", TABLE)
        self.assertEqual((second["erased"], second["placed"]), (first["placed"], first["placed"]))
        self.assert_sound(twice)

    def test_draws_every_version_soundly(self):
        for name, version in (("r2000", "AC1015"), ("r2018", "AC1032")):
            text = SAMPLE.read_text(encoding="utf-8")
            drawing, output = self.folder / f"{name}.dxf", self.folder / f"{name}-drawn.dxf"
            if version == "AC1015":
                text = text.encode("ascii", "namereplace_dxf").decode("ascii")
            drawing.write_text(text.replace("AC1027", version, 1), encoding="utf-8")
            self.assertGreater(self.draw(drawing, output, "--library", LIBRARY)["placed"], 500)
            self.assert_sound(output)


def dxf_escapes(error):
    """What an older drawing writes for a character outside its code page."""
    return "".join(f"\\U+{ord(c):04X}" for c in error.object[error.start:error.end]), error.end


if __name__ == "__main__":
    import codecs

    codecs.register_error("namereplace_dxf", dxf_escapes)
    main()

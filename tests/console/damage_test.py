#!/usr/bin/env python3
"""Values that are no numbers where numbers stand: told where the work rests on them, left alone where nobody reads them."""
import json
import shutil

from program import LIBRARY, SAMPLE, SYMBOLS, TABLE, ProgramTest, main, read_cases


class Drawing:
    """The lines of the sample, and where the pairs of its objects stand."""

    def __init__(self, path=SAMPLE):
        self.lines = path.read_text(encoding="utf-8").split("\n")
        starts = [i for i in range(0, len(self.lines) - 1, 2) if self.lines[i].strip() == "0"]
        self.objects = [range(start, end, 2) for start, end in zip(starts, starts[1:])]

    def kind(self, pairs):
        return self.lines[pairs[0] + 1].strip()

    def values(self, pairs, code):
        """Places of the values of a group."""
        return [i + 1 for i in pairs if self.lines[i].strip() == str(code)]

    def value(self, pairs, code):
        return self.lines[self.values(pairs, code)[0]].strip()

    def find(self, name):
        """The first object of a kind, by what the cases call it."""
        kind, coded = {"alignment": ("PLXDBALIGNMENT", False), "point": ("PLXDBMEASUREPOINTOBJ", False),
                       "line": ("LWPOLYLINE", True), "vertex": ("VERTEX", False), "block": ("INSERT", True),
                       "plain": ("INSERT", False), "ground": ("LWPOLYLINE", False)}[name]
        handle = self.value(self.find("alignment"), 340) if name == "ground" else None
        return next(pairs for pairs in self.objects if self.kind(pairs) == kind and
                    any(self.lines[i] == "SV_INFOR" for i in self.values(pairs, 1001)) == coded and
                    handle in (None, self.value(pairs, 5)))

    def save(self, path):
        path.write_text("\n".join(self.lines), encoding="utf-8")
        return path


class Damage(ProgramTest):
    def words(self, command, drawing):
        output = ["-o", self.folder / "out.dxf"]
        common = ["--json", "--settings", self.settings, "--symbols", SYMBOLS]
        return {"scan": ["scan", drawing], "nearby": ["scan", drawing, "--nearby"], "check": ["check", drawing],
                "draw": ["draw", drawing, *output, "--library", LIBRARY], "erase": ["erase", drawing, *output],
                "plan": ["plan", drawing, *output, "--table", TABLE]}[command] + common

    def result(self, command, drawing):
        """What a command prints, but for the drawing's name and the notes; and the notes."""
        found = json.loads(self.run_program(*self.words(command, drawing))[0])
        notes = found.pop("notes")
        found.pop("drawing")
        return found, notes

    def test_one_value(self):
        expected = {}
        cases = read_cases("damaged_values.txt")
        self.assertGreater(len(cases), 40)
        for case in cases:
            name, code, which, value, command, outcome = (field.replace("_", " ") for field in case.fields)
            drawing = Drawing()
            pairs = drawing.find(name)
            at = drawing.values(pairs, code)[int(which) - 1]
            drawing.lines[at] = value
            path = drawing.save(self.folder / "in.dxf")
            with self.subTest(case.name):
                self.try_case(command, outcome, path, (f"line {at + 1}: \"{value}\"", drawing.value(pairs, 5)), expected)

    def try_case(self, command, outcome, path, named, expected):
        written = self.folder / "out.dxf"
        written.unlink(missing_ok=True)
        if outcome == "refused":
            out, err = self.run_program(*self.words(command, path), status=1)
            self.assertEqual((out, err.count("\n"), written.exists()), ("", 1, False), err)
            self.assertIn(f"{path}: {named[0]}", err)
            return
        found, notes = self.result(command, path)
        kept = written.read_text(encoding="utf-8").split("\n") if outcome == "stays" else []
        if outcome == "met":
            self.assertTrue(any(f" {named[1]} " in note and named[0] in note for note in notes), notes)
            return
        if command not in expected:
            expected[command] = self.result(command, SAMPLE)
        self.assertEqual((found, notes), expected[command])
        if outcome == "stays":
            self.assertIn(named[0].split('"')[1], kept)

    def test_many_in_passing_are_counted(self):
        drawing = Drawing()
        plain = [pairs for pairs in drawing.objects if drawing.kind(pairs) == "INSERT" and not drawing.values(pairs, 1001)]
        for pairs in plain[:25]:
            drawing.lines[drawing.values(pairs, 10)[0]] = "?"
        _, notes = self.result("nearby", drawing.save(self.folder / "in.dxf"))
        self.assertEqual(sum("meets nothing: line" in note for note in notes), 20)
        self.assertIn("5 more objects are damaged and meet nothing", notes)

    def test_a_script_stops_and_saves_nothing(self):
        drawing = Drawing()
        drawing.lines[drawing.values(drawing.find("point"), 10)[0]] = "abc"
        path = drawing.save(self.folder / "in.dxf")
        script = self.folder / "script.txt"
        script.write_text(f"open {path}\ncommand DSS\nsave {self.folder}/out.dxf\n")
        err = self.run_program("script", script, "--settings", self.settings, status=1)[1]
        self.assertRegex(err, r"line 2: .*in\.dxf: line \d+: \"abc\" is no number .* PLXDBMEASUREPOINTOBJ ")
        self.assertFalse((self.folder / "out.dxf").exists())

    def test_a_damaged_symbol_is_unreadable_and_places_nothing_elsewhere(self):
        symbols = self.folder / "symbols"
        shutil.copytree(SYMBOLS, symbols)
        used = json.loads(self.run_program(*self.words("check", SAMPLE), "--library", LIBRARY)[0])["names"]
        name = next(each["file"] for each in used if each["file"].endswith(".dxf")).replace("\\", "/").split("/")[-1]
        symbol = Drawing(symbols / name)
        entity = next(pairs for pairs in symbol.objects if symbol.kind(pairs) in ("LINE", "LWPOLYLINE", "CIRCLE", "ARC")
                      and symbol.values(pairs, 10))
        at = symbol.values(entity, 10)[0]
        symbol.lines[at] = "1,5"
        symbol.save(symbols / name)
        out, _ = self.run_program("draw", SAMPLE, "-o", self.folder / "out.dxf", "--library", LIBRARY, "--symbols", symbols,
                                  "--settings", self.settings, "--json")
        reasons = [each["reason"] for each in json.loads(out)["unreadable"] if name in each["path"]]
        self.assertEqual(len(reasons), 1, out[-2000:])
        self.assertIn(f'line {at + 1}: "1,5"', reasons[0])

    def test_scales_that_nothing_can_be_drawn_in(self):
        for value in ("0", "-200", "1e-320"):
            drawing = Drawing()
            drawing.lines[drawing.values(drawing.find("alignment"), 40)[0]] = value
            path = drawing.save(self.folder / "in.dxf")
            for command in ("scan", "check", "draw"):
                found, notes = self.result(command, path)
                self.assertTrue(any('alignment "T1" has the scale' in note for note in notes), (value, command, notes))
                self.assertNotIn("null", json.dumps(found).replace('"page": null', ""))
                if command == "scan":
                    self.assertEqual({section["scale"] for section in found["alignments"][0]["sections"]}, {0})

    def test_new_handles_stay_below_the_last_one(self):
        drawing = Drawing()
        seed = drawing.lines.index("$HANDSEED") + 2
        written = self.folder / "out.dxf"
        for value in ("FFFFFFFFFFFFFFFF", "FFFFFFFFFFFFFFF0", "0", "not one"):
            drawing.lines[seed] = value
            self.result("plan", drawing.save(self.folder / "in.dxf"))
            self.assert_sound(written)
        text = next(pairs for pairs in drawing.objects if drawing.kind(pairs) == "TEXT")
        for value, status in (("FFFFFFFFFFFFFFFF", 1), ("FFFFFFFFFFFFFFFE", 1), ("FFFFFFFFFFFF0000", 0)):
            written.unlink(missing_ok=True)
            drawing.lines[drawing.values(text, 5)[0]] = value
            path = drawing.save(self.folder / "in.dxf")
            self.result("scan", path)
            err = self.run_program(*self.words("plan", path), status=status)[1]
            self.assertEqual("no handles left" in err, status == 1)
            self.assertEqual(written.exists(), status == 0)
        self.assert_sound(written)

    def test_flags_are_written_in_16_bits(self):
        for value in ("32768", "-32768"):
            drawing = Drawing()
            drawing.lines[drawing.values(drawing.find("alignment"), 70)[0]] = value
            self.result("draw", drawing.save(self.folder / "in.dxf"))
            drawn = Drawing(self.folder / "out.dxf")
            self.assertEqual(drawn.value(drawn.find("alignment"), 70), "-32766")

    def test_what_tells_a_polyline_in_space_and_a_feature_code(self):
        def scanned(change):
            drawing = Drawing()
            for pairs in drawing.objects:
                change(drawing, pairs)
            return self.result("scan", drawing.save(self.folder / "in.dxf"))[0]

        def forget(kind, code, value):
            def change(drawing, pairs):
                if drawing.kind(pairs) == kind:
                    for at in drawing.values(pairs, code):
                        drawing.lines[at] = value
            return change

        whole = self.result("scan", SAMPLE)[0]
        for change in (forget("VERTEX", 70, "0"), forget("POLYLINE", 70, "0")):
            self.assertEqual(scanned(change), whole)

        def control(drawing, pairs):
            if drawing.kind(pairs) == "LWPOLYLINE":
                for at in drawing.values(pairs, 1000):
                    drawing.lines[at - 1] = "1002"
        fewer = scanned(control)
        count = lambda rows: sum(len(s["crossing"]) for a in rows["alignments"] for s in a["sections"])
        self.assertLess(count(fewer), count(whole))


if __name__ == "__main__":
    main()

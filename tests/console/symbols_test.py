#!/usr/bin/env python3
"""Symbol drawings of every kind: what is refused and why, and that what is not refused opens in other programs."""
import re

from program import SAMPLE, ProgramTest, main, read_cases


def pairs(entity):
    kind, *words = entity.split()
    return f"  0\n{kind}\n" + "".join("{}\n{}\n".format(*word.split("=", 1)) for word in words)


def symbol(version, entities):
    return (f"  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\n{version}\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n{entities}"
            "  0\nENDSEC\n  0\nEOF\n")


class Symbols(ProgramTest):
    def drawing(self, count):
        """The sample with as many survey points more, coded S0, S1, ..."""
        text = SAMPLE.read_text(encoding="utf-8")
        seed = int(re.search(r"\$HANDSEED\n  5\n(\w+)\n", text).group(1), 16)
        points = "".join(f"  0\nPLXDBMEASUREPOINTOBJ\n  5\n{seed + i:X}\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\n"
                         f"PlxDbPointObj\n 10\n{i}.0\n 20\n0.0\n 30\n0.0\n 70\n1\n  1\nS{i}\n100\nPlxDbMeasurePointObj\n"
                         for i in range(count))
        end = text.index("  0\nENDSEC\n", text.index("\nENTITIES\n"))
        text = text[:end] + points + text[end:]
        path = self.folder / "points.dxf"
        path.write_text(re.sub(r"(\$HANDSEED\n  5\n)\w+", rf"\g<1>{seed + count:X}", text), encoding="utf-8")
        return path

    def table(self, files):
        path = self.folder / "points.dvbd"
        path.write_text("".join(f"S{i},{file},1,1,0,0\n" for i, file in enumerate(files)), encoding="utf-8")
        return path

    def reasons(self, files):
        """Why each file cannot be used, as the check tells, by its name."""
        report = self.run_json("check", self.drawing(len(files)), "--table", self.table(files))
        return {entry["path"]: entry["reason"] for entry in report["unreadable"]}

    def blocks_of(self, files):
        """What becomes of the files' blocks in a plan, which holds all of them."""
        out = self.folder / "plan.dxf"
        report = self.run_json("plan", self.drawing(len(files)), "-o", out, "--table", self.table(files))
        self.assertEqual(report["unreadable"], [])
        self.assert_sound(out)
        return out.read_text(encoding="utf-8"), report

    def test_what_others_could_not_open_is_refused_with_the_reason(self):
        cases = read_cases("symbols.txt")
        self.assertGreater(len(cases), 30)
        for i, case in enumerate(cases):
            version, _, entity = case.fields
            (self.folder / f"case{i}.dxf").write_text(symbol(version, pairs(entity)), encoding="utf-8")
        files = [f"case{i}.dxf" for i in range(len(cases))]
        reasons = self.reasons(files)
        for file, case in zip(files, cases):
            says = case.fields[1]
            self.assertIn(says if says != "-" else "", reasons.get(file, ""), case.name)
            self.assertEqual(file in reasons, says != "-", (case.name, reasons.get(file)))
        self.blocks_of([file for file in files if file not in reasons])

    def test_coordinates_in_any_order_are_written_point_by_point(self):
        line = "LINE 100=AcDbEntity 8=0 100=AcDbLine 10=0.5 11=5 30=3 20=1 31=4 21=7"
        (self.folder / "line.dxf").write_text(symbol("AC1015", pairs(line)), encoding="utf-8")
        text, _ = self.blocks_of(["line.dxf"])
        self.assertIn(" 10\n0.5\n 20\n1\n 30\n3\n 11\n5\n 21\n7\n 31\n4\n", text)

    def test_a_symbol_cannot_be_named_like_a_space(self):
        line = pairs("LINE 100=AcDbEntity 8=0 100=AcDbLine 10=0 20=0 11=1 21=1")
        names = ["*Model_Space.dxf", "*U1.dxf"]
        for name in names:
            (self.folder / name).write_text(symbol("AC1015", line), encoding="utf-8")
        for reason in [self.reasons(names)[name] for name in names]:
            self.assertIn("cannot name a block", reason)
        out = self.folder / "out.dxf"
        report = self.run_json("plan", self.drawing(1), "-o", out, "--table", self.table(names[:1]))
        self.assertEqual((report["placed"], [entry["path"] for entry in report["unreadable"]]), (0, names[:1]))
        self.assert_sound(out)

    def test_what_a_block_cannot_take_over_is_told(self):
        line = pairs("LINE 100=AcDbEntity 8=0 100=AcDbLine 10=0 20=0 11=1 21=1")
        other = pairs("MULTILEADER 100=AcDbEntity 8=0")
        (self.folder / "leader.dxf").write_text(symbol("AC1018", line + 2 * other), encoding="utf-8")
        _, report = self.blocks_of(["leader.dxf"])
        self.assertIn("leader.dxf is without 2 MULTILEADER", " ".join(report["notes"]))


if __name__ == "__main__":
    main()

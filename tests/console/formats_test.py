#!/usr/bin/env python3
"""The examples in the documents of formats: the program reads each of them, and writes it again byte for byte."""
import re
import subprocess

from program import SOURCE, SYMBOLS, ProgramTest, main

FORMATS = SOURCE / "docs" / "formats"

# The drawing that the examples go into is made with Debian's package, whatever interpreter runs this.
MAKE = """
import sys, ezdxf
document = ezdxf.new("R2010")
document.appids.add("SV_INFOR")
model = document.modelspace()
model.add_lwpolyline([(890, 60), (1110, 60)], dxfattribs={"handle": "F005"})
model.add_lwpolyline([(-8, 3), (9, 3)], dxfattribs={"handle": "F006"}).set_xdata("SV_INFOR", [(1000, "CODE")])
document.saveas(sys.argv[1])
"""


def examples(document, kind):
    """The fenced blocks of that kind, in order."""
    text = (FORMATS / document).read_text(encoding="utf-8")
    return re.findall(rf"(?ms)^```{kind}\n(.*?)^```$", text)


def example(document, kind):
    (only,) = examples(document, kind)
    return only


LETTERS = {letter: bytes.fromhex(byte) for byte, letter in
           re.findall(r"([0-9A-F]{2}) (\S)", example("text.md", "tcvn3"))}


def tcvn3(text):
    return b"".join(LETTERS.get(letter) or letter.encode("ascii") for letter in text)


class Formats(ProgramTest):
    def road(self, code=None):
        """A drawing with the survey objects of the documents; the ditch has the code given, else that of the document."""
        path = self.folder / "road.dxf"
        subprocess.run(["/usr/bin/python3", "-c", MAKE, path], check=True)
        classes, objects, ditch, _ = examples("survey-objects.md", "dxf")
        if code is not None:
            ditch = ditch.replace("R·nh", code)
        text = path.read_text(encoding="utf-8")
        for place, piece in ((r"SECTION\n *2\nCLASSES\n", classes), (r"SECTION\n *2\nENTITIES\n", objects)):
            text, count = re.subn(place, lambda found: found[0] + piece, text)
            self.assertEqual(count, 1, place)
        text, count = re.subn(r"1001\nSV_INFOR\n1000\nCODE\n", lambda _: ditch, text)
        self.assertEqual(count, 1)
        path.write_text(text, encoding="utf-8")
        return path

    def play(self, *lines):
        script = self.folder / "script.txt"
        script.write_text("\n".join(lines), encoding="utf-8")
        return self.run_program("script", script, "--settings", self.settings, "--symbols", SYMBOLS)[0]

    def test_survey_objects(self):
        (alignment,) = self.run_json("scan", self.road())["alignments"]
        (section,) = alignment["sections"]
        self.assertEqual((alignment["name"], alignment["handle"], section["name"]), ("T1", "F003", "C1"))
        self.assertEqual([section[key] for key in ("center", "direction", "origin", "groundLine", "scale", "extent1")],
                         [[0, 0, 0], [0, 1, 0], [1000, 50, 0], "F005", 5, 20])
        self.assertEqual([(row["name"], row["offset1"]) for row in section["crossing"]], [("Rãnh", -3)])
        self.assertEqual([(row["code"], row["offset"]) for row in section["codes"]],
                         [("CAY", 4), ("Cột", 6.5), ("DC1", -2.5), ("DC2", 2.5)])
        self.assertEqual(section["plan"][0]["position"], [0, -4, 1.25])

    def test_letters(self):
        self.assertEqual(len(LETTERS), 74)
        code = b"".join(LETTERS.values()).decode("latin-1")
        (alignment,) = self.run_json("scan", self.road(code))["alignments"]
        self.assertEqual(alignment["sections"][0]["crossing"][0]["name"], "".join(LETTERS))

    def test_library_settings_and_record(self):
        """Opened, saved, confirmed and drawn: each file comes out as it went in, and the drawing keeps its record."""
        library, config = tcvn3(example("library.md", "dv")), self.settings / "iniSymbol.cfg"
        self.assertIn(bytes.fromhex(example("library.md", "hex")), library)
        settings = example("settings.md", "cfg").replace("<01>", "\x01").encode("ascii")
        (self.folder / "in.dv").write_bytes(library)
        self.settings.mkdir()
        config.write_bytes(settings)
        self.play(f'open "{self.road()}"', "command DSS", "click 1096", f'answer "{self.folder}/in.dv"', "click 1095",
                  f'answer "{self.folder}/out.dv"', "click 1082", "tab 3", "click 1", "click 1094", "click 1",
                  f'save "{self.folder}/out.dxf"')
        self.assertEqual((self.folder / "out.dv").read_bytes(), library)
        self.assertEqual(config.read_bytes(), settings)
        saved = re.sub(r"(?m)^ +(?=\d+$)", "", (self.folder / "out.dxf").read_text(encoding="utf-8"))
        self.assertIn("\nDICTIONARY_DSS_F003\n", saved)
        self.assertIn("\n" + example("drawing-record.md", "dxf") + "0\n", saved)
        self.assertEqual(saved.count(examples("survey-objects.md", "dxf")[-1]), 3, "leader, arrowhead and text")

    def test_plan_table(self):
        table = tcvn3(example("plan-table.md", "dvbd"))
        (self.folder / "in.dvbd").write_bytes(table)
        self.play(f'open "{self.road()}"', f'answer "{self.folder}/in.dvbd"', f'answer "{self.folder}/out.dvbd"',
                  "command DVBD", "click 1095", "click 1082", "click 1")
        self.assertEqual((self.folder / "out.dvbd").read_bytes(), table)
        self.assertEqual((self.settings / "FcodeBD.cfg").read_bytes(), tcvn3(example("plan-table.md", "fcodebd")))


if __name__ == "__main__":
    main()

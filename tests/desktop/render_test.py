"""Pictures of drawings, made as a user makes them."""
import pathlib
import re
import shutil
import subprocess
import unittest

import program
import svg_paths

HEADER = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n"


def pairs(*values):
    return "".join(f"{code:3}\n{value}\n" for code, value in values)


def drawing(blocks, entities):
    """A drawing of blocks ({name: entities}) and entities, each a list of pairs."""
    text = HEADER + "  0\nSECTION\n  2\nBLOCKS\n"
    for name, contents in {"*Model_Space": [], **blocks}.items():
        text += pairs((0, "BLOCK"), (8, 0), (2, name), (70, 0), (10, 0), (20, 0), (30, 0))
        text += "".join(pairs(*entity) for entity in contents) + pairs((0, "ENDBLK"), (8, 0))
    return (text + "  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n" + "".join(pairs(*entity) for entity in entities) +
            "  0\nENDSEC\n  0\nEOF\n")


def line(x1, y1, x2, y2):
    return [(0, "LINE"), (8, 0), (10, x1), (20, y1), (11, x2), (21, y2)]


def insert(name, *more):
    return [(0, "INSERT"), (8, 0), (2, name), (10, 1), (20, 1), *more]


class Render(program.ProgramTest):
    def render(self, *arguments, status=0):
        return self.run_program("render", *arguments, status=status)[1]

    def text_of(self, pdf, *options):
        done = subprocess.run(["pdftotext", *options, pdf, "-"], capture_output=True, check=True)
        return done.stdout.decode()

    def test_an_album_has_contents_outline_and_texts_that_a_search_finds(self):
        drawn, album = self.folder / "drawn.dxf", self.folder / "album.pdf"
        self.draw(program.SAMPLE, drawn, "--library", program.LIBRARY, "--nearby")
        self.render(drawn, "-o", album, "--sections", "1-3,7", "--scale", "1:250")
        info = subprocess.run(["pdfinfo", album], capture_output=True, check=True).stdout.decode()
        self.assertRegex(info, r"Pages: +5\n")
        self.assertIn("(A4)", info)
        contents = self.text_of(album, "-l", "1")
        self.assertEqual(re.findall(r"^C\d+$", contents, re.M), ["C1", "C2", "C3", "C7"])
        page = self.text_of(album, "-f", "4", "-l", "4")
        self.assertIn("T1 \u00b7 C3 \u00b7 1:250", page)
        self.assertIn("Cao độ tự nhiên", page)
        self.assertIn("17.49", page)  # written upwards in the table
        outline = re.findall(rb"/Title <FEFF([0-9A-F]+)>", album.read_bytes())
        self.assertEqual([bytes.fromhex(title.decode()).decode("utf-16-be") for title in outline],
                         ["C1", "C2", "C3", "C7"])

    def test_a_section_is_true_to_scale(self):
        out = self.folder / "section.svg"
        self.render(program.SAMPLE, "-o", out, "--sections", "2", "--scale", "1:250")
        widths = [max(x) - min(x) for x in ([p[0] for p in path] for path in svg_paths.read(out))]
        # The ground reaches 26 metres to either side: 208 millimetres of paper.
        wanted = 208 * 96 / 25.4
        self.assertLess(min(abs(width - wanted) for width in widths), 0.02)

    def test_sections_are_numbered_files_and_drawings_go_to_a_folder(self):
        self.render(program.SAMPLE, "-o", self.folder / "s.png", "--sections", "9-10", "--alignment", "T2")
        self.render(program.SAMPLE, "-o", self.folder / "one.png", "--sections", "4", "--background", "black")
        (self.folder / "d").mkdir()
        other = shutil.copy(program.SAMPLE, self.folder / "other.dxf")
        self.render(program.SAMPLE, other, "-d", self.folder / "d", "--format", "svg", "--layers", "DONG_MUC*")
        made = sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*.*") if path.suffix != ".dxf")
        self.assertEqual(made, ["d/other.svg", "d/road.svg", "one.png", "s-1.png", "s-2.png"])

    def test_drawings_out_of_the_ordinary_end_in_a_picture_and_a_note(self):
        deep = {f"B{i}": [insert(f"B{i + 1}"), insert(f"B{i + 1}", (41, 0.5))] for i in range(300)}
        cases = [
            ("nothing", {}, [], "nothing to show"),
            ("endless", {}, [line(0, 0, 1e300, 1e300), line(0, 0, 1, 1)], "coordinates beyond all use"),
            ("point", {}, [line(5, 5, 5, 5)], ""),
            ("deep", {**deep, "B300": [line(0, 0, 1, 1)]}, [insert("B0")], "nested deeper"),
            ("circle", {"A": [insert("B"), line(0, 0, 1, 1)], "B": [insert("A")]}, [insert("A")], "contain each other"),
            ("copies", {"A": [line(0, 0, 1, 1)]},
             [insert("A", (70, 32767), (71, 32767), (44, 2), (45, 2))], "more than 200,000 copies"),
            ("text", {}, [[(0, "TEXT"), (8, 0), (10, 0), (20, 0), (40, 1e7), (1, "A")]], "label font"),
        ]
        for name, blocks, entities, note in cases:
            for ending in ("png", "svg", "pdf"):
                with self.subTest(name=name, ending=ending):
                    path, out = self.folder / f"{name}.dxf", self.folder / f"{name}.{ending}"
                    path.write_text(drawing(blocks, entities), encoding="ascii")
                    self.assertIn(note, self.render(path, "-o", out))
                    self.assertGreater(out.stat().st_size, 100)

    def test_what_cannot_be_done_leaves_nothing(self):
        sample, out = program.SAMPLE, self.folder / "out.png"
        for status, arguments in [
                (1, ("missing.dxf", "-o", out)),
                (1, (sample, "-o", self.folder / "no" / "out.png")),
                (1, (sample, "-o", out, "--sections", "99")),
                (1, (sample, "-o", out, "--sections", "1", "--alignment", "T9")),
                (2, (sample, "-o", self.folder / "out.jpg")),
                (2, (sample,)),
                (2, (sample, "-o", out, "--window", "0,0,5")),
                (2, (sample, "-o", out, "--scale", "1:0")),
                (2, (sample, "-o", out, "--paper", "A9")),
                (2, (sample, "-o", out, "--pixels", "0,100")),
                (2, (sample, sample, "-o", out))]:
            with self.subTest(arguments=arguments):
                self.assertTrue(self.render(*arguments, status=status).startswith("veloxa: "))
                self.assertEqual([p for p in self.folder.iterdir() if p.name != "settings"], [])

    def test_without_the_program_that_draws_it_says_what_is_missing(self):
        alone = self.folder / "veloxa"
        built = pathlib.Path(program.os.environ["VELOXA"])
        for file in (built, built.parent / "Veloxa.arx"):
            shutil.copy(file, self.folder)
        done = subprocess.run([alone, "render", program.SAMPLE, "-o", self.folder / "a.png"], capture_output=True,
                              env={**program.os.environ, "PATH": "/nowhere"}, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"veloxa-desktop", done.stderr)


if __name__ == "__main__":
    program.main()

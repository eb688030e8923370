#!/usr/bin/env python3
"""Older drawings, each in a code page of its own: what is written into them reads the same with another program."""
import json
import shutil
import subprocess
import unicodedata

from program import SYMBOLS, ProgramTest, main

PAGES = range(1250, 1259)
NEW_LAYER = "Đường ẵ"
LABELS = "Nha\u0303n"  # as the table spells it: a vowel and its mark
BLOCK = unicodedata.normalize("NFD", "Cột")

# The drawings are made and read back with Debian's package, whatever interpreter runs this.
MAKE = """
import json, sys, ezdxf
for page, path in json.load(sys.stdin):
    document = ezdxf.new("R2000")
    document.encoding = f"cp{page}"
    for name in ("Nha\\u0303n", "C@y"):
        document.layers.add(name)
    document.blocks.new(sys.argv[1]).add_line((0, 0), (1, 1))
    document.appids.add("SV_INFOR")
    model = document.modelspace()
    ground = model.add_lwpolyline([(980, 5), (1020, 5)])
    for y, code in ((3, "@1"), (5, "@2")):
        model.add_lwpolyline([(-5, y), (5, y)]).set_xdata("SV_INFOR", [(1002, "{"), (1000, code), (1002, "}")])
    document.saveas(path)
    print(ground.dxf.handle)
"""
READ = """
import json, sys
from ezdxf import recover
found = []
for path in json.load(sys.stdin):
    document, auditor = recover.readfile(path)
    model = document.modelspace()
    found.append({"layers": [layer.dxf.name for layer in document.layers],
                  "blocks": [block.name for block in document.blocks],
                  "inserts": [[e.dxf.name, e.dxf.layer] for e in model.query("INSERT")],
                  "texts": [[e.dxf.text, e.dxf.layer] for e in model.query("TEXT")],
                  "problems": len(auditor.errors) + len(auditor.fixes)})
print(json.dumps(found))
"""


def pairs(*values):
    return "".join(f"{code}\n{value}\n" for code, value in values)


def road(ground):
    """An alignment of one section, which the features cross, and its survey point, whose code comes decomposed."""
    point = pairs((0, "PLXDBMEASUREPOINTOBJ"), (5, "FA01"), (100, "AcDbEntity"), (8, "0"), (100, "PlxDbPointObj"),
                  (10, 0), (20, -4), (30, 0), (70, 1), (1, unicodedata.normalize("NFD", "Miếu")),
                  (100, "PlxDbMeasurePointObj"))
    return point + pairs(
        (0, "PLXDBALIGNMENT"), (5, "FA02"), (100, "AcDbEntity"), (8, "0"), (100, "PlxDbAlignment"), (1, "Lý trình"),
        (40, 1000), (41, 20), (42, 20), (90, 1), (2, "Lũ"), (10, 0), (20, 10), (30, 0), (11, 0), (21, -10), (31, 0),
        (12, 1000), (22, 0), (32, 0), (340, ground), (70, 0), (91, 1), (330, "FA01"), (92, 0), (93, 0))


def escaped(text, page):
    """The bytes of a text in a drawing: one for each character of the code page, an escape for any other."""
    return b"".join(c.encode(f"cp{page}", "ignore") or b"\\U+%04X" % ord(c) for c in text)


def tcvn3(text):
    return text.translate(str.maketrans("Đèếẵộ", "\u00a7\u00cc\u00d5\u00bd\u00e9")).encode("latin-1")


def other_program(script, given, *arguments):
    done = subprocess.run(["/usr/bin/python3", "-c", script, *arguments], input=json.dumps(given).encode(),
                          capture_output=True, check=False)
    if done.returncode != 0:
        raise AssertionError(done.stderr.decode())
    return done.stdout.decode()


class CodePages(ProgramTest):
    def drawings(self):
        """One for each code page; the layer C@y gets a name that is spelled with an escape without need, the features
        their codes in 8-bit Vietnamese."""
        paths = [(page, self.folder / f"{page}.dxf") for page in PAGES]
        grounds = other_program(MAKE, [(page, str(path)) for page, path in paths], BLOCK).split()
        for (page, path), ground in zip(paths, grounds):
            head = b"  2\nENTITIES\n"
            made = path.read_bytes().replace(b"\r\n", b"\n")
            for placeholder, code in ((b"@1", "\u00a7\u00ccn"), (b"@2", "C\u00e9t")):
                made = made.replace(placeholder, escaped(code, page))
            self.assertEqual((made.count(head), b"ANSI_%d" % page in made), (1, True))
            path.write_bytes(made.replace(b"C@y", b"C\\U+00E2y").replace(head, head + escaped(road(ground), page)))
        return paths

    def test_another_program_reads_the_same(self):
        for name in ("Đèn ẵ", "Miếu"):
            shutil.copy(SYMBOLS / "CocTim.dxf", self.folder / f"{name}.dxf")
        self.settings.mkdir()
        layers = {"Layer Symbol Layer Name": "NHÃN", "Layer Breakpoint feature code": NEW_LAYER,
                  "Section symbol layer": "cây"}
        flags = ("Draw Symbol Layer Name", "Breakpoint feature code", "Check Section symbol layer",
                 "Check Breakpoint symbol layer")
        settings = "".join(f"{key}=1\n" for key in flags) + "".join(f"{k}={v}\n" for k, v in layers.items())
        (self.settings / "iniSymbol.cfg").write_bytes(
            b"".join(c.encode("latin-1", "ignore") or b"\x01%04X" % ord(c) for c in settings))
        library, table = self.folder / "a.dv", self.folder / "a.dvbd"
        library.write_bytes(tcvn3("[SYMBOL]\nĐèn,Đèn ẵ.dxf,1,1,0\nCột,Cột.dxf,1,1,0\n[TN]\nMiếu,Miếu.dxf,1,1,0\n"))
        table.write_bytes(tcvn3("Miếu,Đèn ẵ.dxf,1,1,0,0\n"))
        outputs = []
        for page, path in self.drawings():
            drawn, out = self.folder / f"{page}-drawn.dxf", self.folder / f"{page}-out.dxf"
            report = self.draw(path, drawn, "--library", library)
            self.assertEqual((report["alignment"], report["sections"][0]["name"]), ("Lý trình", "Lũ"))
            self.run_json("plan", drawn, "-o", out, "--table", table)
            self.assertIn(b"  8\nC\\U+00E2y\n", out.read_bytes(), "the layer is named by the table's own bytes")
            outputs.append(str(out))
        for page, found in zip(PAGES, json.loads(other_program(READ, outputs))):
            with self.subTest(page=page):
                self.assertEqual(found["problems"], 0)
                self.assertEqual(found["layers"], ["0", "Defpoints", LABELS, "Cây", NEW_LAYER, "DiaVatBinhDo"])
                self.assertLessEqual({BLOCK, "Đèn ẵ"}, set(found["blocks"]))
                self.assertLessEqual({(BLOCK, "Cây"), ("Đèn ẵ", "Cây"), ("Đèn ẵ", "DiaVatBinhDo")},
                                     {tuple(each) for each in found["inserts"]})
                self.assertEqual(sorted(found["texts"]), sorted([["\u00a7\u00ccn", LABELS], ["C\u00e9t", LABELS],
                                                                 ["Mi\u00d5u", NEW_LAYER]]))


if __name__ == "__main__":
    main()

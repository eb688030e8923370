"""Makes a drawing of every alignment of texts, of hatches, linetypes, widths and multi-line texts. Run by Debian's
Python."""
import sys

import ezdxf

HORIZONTAL = ("left", "center", "right", "", "middle")


def texts(space):
    for vertical in range(4):
        for horizontal in (0, 1, 2, 4):
            if horizontal == 4 and vertical:
                continue
            x, y = 10 + horizontal * 22, 10 + vertical * 8
            space.add_point((x, y))
            space.add_text(f"Ệg{horizontal}{vertical}", dxfattribs={
                "insert": (x, y), "align_point": (x, y), "height": 3, "halign": horizontal, "valign": vertical})
    for i, (halign, mirror) in enumerate(((3, 0), (5, 0), (0, 2), (0, 4))):
        space.add_line((5 + 30 * i, 45), (25 + 30 * i, 48))
        space.add_text("Hố ga", dxfattribs={"insert": (5 + 30 * i, 45), "align_point": (25 + 30 * i, 48), "height": 4,
                                            "halign": halign, "text_generation_flag": mirror, "rotation": 8.5})
    for i, (style, text) in enumerate((("VN", "C\u00e9t \u00aei\u00d6n"), ("VNH", "m\u00ad\u00acng"),
                                       ("Standard", "%%c20 %%p0.5 45%%d %%uA%%u"))):
        space.add_text(text, dxfattribs={"insert": (5 + 40 * i, 60), "height": 4, "style": style, "oblique": 15 * i,
                                         "width": 1 - 0.2 * i})
    space.add_mtext(r"{\fArial|b1;Đậm} {\C1;đỏ} \H1.5x;cao\H0.667x; \S1/2; \LGạch\l chân\PDòng hai rất dài bị ngắt",
                    dxfattribs={"insert": (5, 84), "char_height": 3, "width": 40, "attachment_point": 1})
    space.add_mtext("Giữa\\Phai", dxfattribs={"insert": (90, 74), "char_height": 3, "attachment_point": 5, "rotation": 30})


def hatches(space):
    for i, pattern in enumerate((None, "ANSI31", "ANSI37", "EARTH")):
        x = 5 + i * 27
        hatch = space.add_hatch(color=3, dxfattribs={"hatch_style": 0})
        if pattern:
            hatch.set_pattern_fill(pattern, scale=0.5 if pattern != "EARTH" else 0.3)
        hatch.paths.add_polyline_path([(x, 90), (x + 22, 90), (x + 22, 106), (x, 106)], flags=1)
        path = hatch.paths.add_edge_path(flags=16)
        path.add_arc((x + 11, 98), 6, 0, 180)
        path.add_line((x + 5, 98), (x + 17, 98))


def lines(document, space):
    document.header["$LTSCALE"] = 0.5
    for i, (name, pattern) in enumerate((("DASH", [12, 8, -4]), ("DOT", [3, 0, -3]), ("MIX", [16, 10, -2, 0, -4]))):
        document.linetypes.add(name, pattern)
        space.add_lwpolyline([(5, 112 + 5 * i), (60, 112 + 5 * i, 0.3), (110, 114 + 5 * i)], format="xyb",
                             dxfattribs={"linetype": name, "color": i + 1, "ltscale": 1 + i})
    space.add_lwpolyline([(5, 130, 2, 0.5, 0.4), (40, 130, 1, 1, 0), (60, 140, 1, 3, 0), (80, 130, 0, 0, 0)])
    for i, weight in enumerate((13, 50, 100, 211)):
        space.add_line((85 + i * 7, 130), (88 + i * 7, 140), dxfattribs={"lineweight": weight})


def main(path):
    document = ezdxf.new("R2010")
    document.header["$LWDISPLAY"] = 1
    document.header["$PDMODE"] = 34
    document.header["$PDSIZE"] = 2
    document.styles.new("VN", dxfattribs={"font": "Vnsimple.shx"})
    document.styles.new("VNH", dxfattribs={"font": ".VnTimeH.ttf"})
    space = document.modelspace()
    texts(space)
    hatches(space)
    lines(document, space)
    document.saveas(path)


main(sys.argv[1])

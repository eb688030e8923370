#!/usr/bin/env python3
"""Where symbol files are found: the list of folders that the program keeps, and the order of the search."""
import json
import os
import pathlib
import shutil
from unittest import mock

from program import SAMPLE, SYMBOLS, ProgramTest, main

MEP_DUONG = "M\u00d0p \u00ae\u00ad\u00eang".encode("latin-1")


class Folders(ProgramTest):
    def folders(self, *changes, status=0):
        return self.run_program("folders", *changes, "--settings", self.settings, status=status)

    def kept(self):
        out, _ = self.folders("--json")
        return json.loads(out)["folders"]

    def test_a_list_is_kept(self):
        for name in ("a", "Ký hiệu b"):
            (self.folder / name).mkdir()
        a, b = str(self.folder / "a"), str(self.folder / "Ký hiệu b")
        self.assertEqual(self.kept(), [])
        self.assertFalse(self.settings.exists(), "looking makes nothing")
        self.folders("--add", "a", "--add", b + "/", "--add", "./a/../a")
        self.assertEqual(self.kept(), [a, b])
        kept_in = self.settings / "symbol-folders.txt"
        self.assertEqual(kept_in.read_text(encoding="utf-8"), f"{a}\n{b}\n")
        os.rmdir(b)
        self.assertIn(f"{b}  (no such folder now)\n", self.folders()[0])
        self.folders("--remove", b)
        kept_in.write_bytes(b"\xef\xbb\xbf" + kept_in.read_bytes().replace(b"\n", b"\r\n") + b"\r\n")
        self.assertEqual(self.folders()[0], f"{a}\n", "an editor on another system changes nothing")

    def test_what_cannot_be_done_changes_nothing(self):
        self.folders("--add", self.folder)
        before = (self.settings / "symbol-folders.txt").read_bytes()
        for changes, says in ((["--add", SYMBOLS, "--add", "missing"], "missing: no such folder"),
                              (["--add", SAMPLE], "no such folder"), (["--remove", "other"], "other: not in the list")):
            _, err = self.folders(*changes, status=1)
            self.assertIn(says, err)
            self.assertEqual((self.settings / "symbol-folders.txt").read_bytes(), before)
        blocked = self.folder / "blocked"
        blocked.write_text("a file where the folder should be")
        for settings in (blocked, blocked / "settings"):
            _, err = self.run_program("folders", "--add", SYMBOLS, "--settings", settings, status=1)
            self.assertIn(str(blocked), err)
        self.assertEqual(blocked.read_text(), "a file where the folder should be")

    def test_folders_are_searched_in_order(self):
        program = self.folder / "program" / "veloxa"
        names = ["library", "library/symbols", "given", "kept", "program/symbols"]
        for name in names:
            (self.folder / name).mkdir(parents=True)
        for file in (os.environ["VELOXA"], pathlib.Path(os.environ["VELOXA"]).with_name("Veloxa.arx")):
            shutil.copy(file, program.parent)
        with mock.patch.dict(os.environ, {"VELOXA": str(program)}):
            self.folders("--add", "kept")
            library, out = self.folder / "library" / "road.dv", self.folder / "out.dxf"
            library.write_bytes(b"[SYMBOL]\n" + MEP_DUONG + b",C:\\Ve\\FOLDERS test.DXF,1,1,0\n")
            draw = ["draw", SAMPLE, "-o", out, "--library", library, "--sections", "1", "--symbols", "given"]
            reason = self.run_json(*draw)["unreadable"][0]["reason"]
            self.assertEqual(reason, "C:/Ve/FOLDERS test.DXF: no such file, and no FOLDERS test.DXF in " + ", ".join(
                name if name == "given" else str(self.folder / name) for name in names))
            # From the last place to the first: each new file hides the one before it.
            symbol = (SYMBOLS / "MepDuong.dxf").read_text(encoding="utf-8")
            for number, name in enumerate(reversed(names)):
                mark = f"0.7123{number}"
                (self.folder / name / "Folders test.dxf").write_text(symbol.replace("\n0.7\n", f"\n{mark}\n"))
                self.assertEqual(self.run_json(*draw)["unreadable"], [])
                self.assertIn(mark, out.read_text(encoding="utf-8"), name)


if __name__ == "__main__":
    main()

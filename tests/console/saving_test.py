#!/usr/bin/env python3
"""Where saving is refused and what it leaves: other programs and protection."""
import fcntl
import os
import shutil
import subprocess

from program import SAMPLE, ProgramTest, main


class Saving(ProgramTest):
    def setUp(self):
        super().setUp()
        self.drawing = self.folder / "a.dxf"
        shutil.copy(SAMPLE, self.drawing)

    def refused(self, output, says):
        before = {path: path.read_bytes() for path in self.folder.iterdir() if path.is_file()}
        _, err = self.run_program("draw", self.drawing, "-o", output, "--settings", self.settings, status=1)
        self.assertIn(says, err)
        self.assertEqual(before, {path: path.read_bytes() for path in self.folder.iterdir() if path.is_file()})

    def test_what_may_not_be_replaced(self):
        self.drawing.chmod(0o444)
        self.refused(self.drawing, "write-protected")
        self.drawing.chmod(0o644)
        os.mkfifo(self.folder / "pipe.dxf")
        self.refused(self.folder / "pipe.dxf", "not a regular file")
        self.run_program("scan", self.folder / "pipe.dxf", status=1)
        (self.folder / "a.dxf.bak").mkdir()
        self.refused(self.drawing, "a.dxf.bak")
        with open(self.drawing, "rb") as other:
            fcntl.flock(other, fcntl.LOCK_EX)
            (self.folder / "a.dxf.bak").rmdir()
            self.refused(self.drawing, "is being saved by another program")

    def test_two_at_once(self):
        out = self.folder / "out.dxf"
        both = [subprocess.Popen([os.environ["VELOXA"], "draw", str(self.drawing), "-o", str(out), "--settings",
                                  str(self.folder / f"s{n}")], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
                for n in range(2)]
        for process in both:
            err = process.communicate(timeout=60)[1].decode()
            self.assertTrue(process.returncode == 0 or "is being saved by another program" in err, err)
        self.assert_sound(out)
        self.assertEqual([path for path in self.folder.iterdir() if path.name.startswith(".veloxa")], [])


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Where saving is refused and what it leaves: other programs, protection, odd names, signals."""
import fcntl
import os
import shutil
import select
import signal
import subprocess
import unittest
from unittest import mock

from program import CONVERTER, LIBRARY, SAMPLE, ProgramTest, main


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

    def temporaries(self):
        return [path for path in self.folder.iterdir() if path.name.startswith(".veloxa")]

    def test_what_may_not_be_replaced(self):
        self.drawing.chmod(0o444)
        self.refused(self.drawing, "write-protected")
        _, err = self.run_program("draw", self.folder / "none.dxf", "-o", self.drawing, status=1)
        self.assertIn("write-protected", err, "told before the work")
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

    def test_a_name_too_long_for_its_backup_is_saved_and_told(self):
        out = self.folder / ("n" * 251 + ".dxf")
        self.assertEqual(self.draw(self.drawing, out)["notes"], self.draw(self.drawing, self.folder / "b.dxf")["notes"])
        notes = self.draw(self.drawing, out)["notes"]
        self.assertTrue(any("not kept" in note for note in notes), notes)

    def test_a_drawing_changed_since_it_was_opened(self):
        script = self.folder / "script.txt"
        script.write_text("open a.dxf\nopen a.dxf\nsave\nuse 1\nsave\n")
        _, err = self.run_program("script", script, "--settings", self.settings, status=1)
        self.assertIn("line 5: ", err)
        self.assertIn("changed on disk", err)
        self.run_program("script", script, "--overwrite", "--settings", self.settings)

    def test_two_at_once(self):
        out = self.folder / "out.dxf"
        both = [subprocess.Popen([os.environ["VELOXA"], "draw", str(self.drawing), "-o", str(out), "--settings",
                                  str(self.folder / f"s{n}")], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
                for n in range(2)]
        for process in both:
            err = process.communicate(timeout=60)[1].decode()
            self.assertTrue(process.returncode == 0 or "is being saved by another program" in err, err)
        self.assert_sound(out)
        self.assertEqual(self.temporaries(), [])

    def test_looking_keeps_nothing_and_reads_the_same(self):
        blocked = self.folder / "blocked"
        blocked.write_text("a file where the folder should be")
        home = self.folder / "home"
        home.mkdir()
        environment = os.environ | {"XDG_CONFIG_HOME": str(home / "config"), "TMPDIR": str(home)}
        for command in (["scan", "--nearby"], ["info"], ["check", "--library", LIBRARY]):
            outputs = []
            for settings in ([], ["--settings", blocked / "settings"]):
                done = subprocess.run([os.environ["VELOXA"], command[0], SAMPLE, *command[1:], *settings],
                                      env=environment, capture_output=True, check=True)
                outputs.append(done.stdout)
            self.assertEqual(outputs[0], outputs[1], command)
        self.assertEqual(list(home.iterdir()), [])
        out, _ = self.run_program("draw", SAMPLE, "-o", self.folder / "b.dxf", "--library", LIBRARY, "--settings",
                                  blocked / "settings")
        self.draw(SAMPLE, self.folder / "c.dxf", "--library", LIBRARY)
        self.assertEqual((self.folder / "b.dxf").read_bytes(), (self.folder / "c.dxf").read_bytes(), out)

    def test_folders_are_made_when_something_is_kept(self):
        home = self.folder / "home"
        script = self.folder / "script.txt"
        script.write_text("open a.dxf\nprint rows\nclose\n")
        with mock.patch.dict(os.environ, {"XDG_CONFIG_HOME": str(home)}):
            self.run_program("script", script)
            self.assertFalse(home.exists())
            self.run_program("draw", SAMPLE, "-o", self.folder / "b.dxf")
        self.assertTrue((home / "PLX" / "Kavendo" / "iniSymbol.cfg").is_file())

    def test_a_signal_while_saving_leaves_the_file_as_it_was_or_as_it_should_be(self):
        out = self.folder / "out.dxf"
        process = subprocess.Popen([os.environ["VELOXA"], "draw", str(self.drawing), "-o", str(out), "--settings",
                                    str(self.settings)], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        while process.poll() is None and not self.temporaries():
            pass
        process.terminate()
        self.assertIn(process.wait(timeout=60), (0, -signal.SIGTERM))
        self.assertEqual(self.temporaries(), [])
        if out.exists():
            self.assert_sound(out)

    @unittest.skipUnless(CONVERTER.exists(), "the converter is not installed")
    def test_a_signal_leaves_nothing_of_a_conversion(self):
        drawing, tools, place = self.folder / "d.dwg", self.folder / "tools", self.folder / "tmp"
        drawing.write_bytes(b"AC1015" + bytes(200))
        for folder in (tools, place):
            folder.mkdir()
        os.mkfifo(self.folder / "started")
        started = os.open(self.folder / "started", os.O_RDONLY | os.O_NONBLOCK)
        self.addCleanup(os.close, started)
        (tools / "node").write_text(f'#!/bin/sh\necho $$ > "{self.folder}/started"\nexec sleep 600\n')
        (tools / "node").chmod(0o755)
        environment = {"PATH": f"{tools}:{os.environ['PATH']}", "TMPDIR": str(place),
                       "XDG_CACHE_HOME": str(self.folder / "cache")}
        with mock.patch.dict(os.environ, environment):
            process = subprocess.Popen([os.environ["VELOXA"], "scan", str(drawing)], stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
        self.assertTrue(select.select([started], [], [], 120)[0], "the converter was not started")
        converter = int(os.read(started, 20))
        self.assertNotEqual(list(place.iterdir()), [])
        process.terminate()
        self.assertEqual(process.wait(timeout=60), -signal.SIGTERM)
        self.assertEqual(list(place.iterdir()), [])
        self.assertRaises(ProcessLookupError, os.kill, converter, 0)


if __name__ == "__main__":
    main()

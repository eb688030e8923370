#!/usr/bin/env python3
"""A second start of the window hands its drawings to the first one; signals end it; no display is told."""
import os
import shutil
import signal
import subprocess
import time

from program import SAMPLE, ProgramTest, main


class OneWindow(ProgramTest):
    def setUp(self):
        super().setUp()
        self.environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "HOME": str(self.folder)}
        for name in ("XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"):
            folder = self.folder / name
            folder.mkdir(mode=0o700)
            self.environment[name] = str(folder)
        for name in ("a.dxf", "Đường b.dxf", "c.dxf"):
            shutil.copy(SAMPLE, self.folder / name)

    def start(self, *words):
        """The program as it runs; it ends with the test."""
        program = subprocess.Popen([os.environ["VELOXA"], *words], env=self.environment, cwd=self.folder,
                                   stderr=subprocess.PIPE)
        self.addCleanup(lambda: (program.kill(), program.communicate()))
        return program

    def wait_for(self, condition, what):
        deadline = time.monotonic() + 60
        while not condition():
            self.assertLess(time.monotonic(), deadline, what)
            time.sleep(0.02)

    def opened(self, name):
        """Whether a drawing stands in the list of those opened last."""
        settings = self.folder / "XDG_CONFIG_HOME" / "PLX" / "veloxa.conf"
        return settings.exists() and name in settings.read_text(encoding="utf-8")

    def test_the_second_start_hands_over(self):
        first = self.start("a.dxf")
        self.wait_for(lambda: self.opened("a.dxf"), "the first drawing is not opened")
        second = self.start("Đường b.dxf")
        self.assertEqual(second.wait(60), 0)
        self.wait_for(lambda: self.opened("b.dxf"), "the second drawing is not opened in the first window")
        self.assertIsNone(first.poll())
        first.kill()  # its socket stays behind
        first.wait(60)
        third = self.start("c.dxf")
        self.wait_for(lambda: self.opened("c.dxf"), "no window after one that was killed")
        third.send_signal(signal.SIGTERM)
        self.assertEqual(third.wait(60), -signal.SIGTERM)

    def test_a_display_that_is_not_there_is_told(self):
        self.environment.update(QT_QPA_PLATFORM="xcb", DISPLAY=":97531")
        done = self.start("a.dxf")
        _, err = done.communicate(timeout=60)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"cannot be shown", err)


if __name__ == "__main__":
    main()

"""Runs the program as a user does, in folders of its own, and has other programs look at what it wrote."""
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(os.environ["VELOXA_SOURCE"])
SAMPLE = SOURCE / "samples" / "road.dxf"
LIBRARY = SOURCE / "samples" / "road.dv"
TABLE = SOURCE / "samples" / "road.dvbd"
SYMBOLS = SOURCE / "samples" / "symbols"
# Real drawings are not part of the project: whoever has some says where. Nowhere else are they looked for.
REAL_DATA = pathlib.Path(os.environ["VELOXA_REAL_DATA"]) if os.environ.get("VELOXA_REAL_DATA") else None

CONVERTER = SOURCE / "tools" / "dwg2dxf" / "node_modules"

# The auditor is Debian's package, whatever interpreter runs this.
AUDIT = """
import sys, ezdxf
document = ezdxf.readfile(sys.argv[1])
auditor = document.audit()
print(len(auditor.errors), len(auditor.fixes), [e.message for e in auditor.errors + auditor.fixes][:5])
"""


class Case:
    """A line of a file of cases: fields parted by "|"; `name` tells which case failed."""

    def __init__(self, name, fields):
        self.name = name
        self.fields = fields


def read_cases(file):
    """The cases of tests/cases/FILE. Lines that begin with "#" are comments, [headings] stand in brackets."""
    cases, heading = [], ""
    lines = (SOURCE / "tests" / "cases" / file).read_text(encoding="utf-8").splitlines()
    for number, line in enumerate(lines, 1):
        if line.startswith("["):
            heading = line[1:line.index("]")]
        elif line and not line.startswith("#"):
            fields = [" ".join(field.split()) for field in line.split("|")]
            cases.append(Case(f"{heading} ({file}, line {number}: {line})", fields))
    return cases


class ProgramTest(unittest.TestCase):
    """A test with a folder of its own, which is also where settings go."""

    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        self.settings = self.folder / "settings"

    def without_display(self):
        """Programs that the test runs find no display, wherever the test itself runs."""
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            if name in os.environ:
                self.addCleanup(os.environ.__setitem__, name, os.environ.pop(name))

    def run_program(self, *arguments, status=0, cwd=None):
        """Standard output and standard error of a run that must end with `status`."""
        done = subprocess.run([os.environ["VELOXA"], *map(str, arguments)], capture_output=True, cwd=cwd or self.folder,
                              timeout=120, check=False)
        out, err = done.stdout.decode(), done.stderr.decode()
        self.assertEqual(done.returncode, status, f"{arguments}: {err}{out}")
        return out, err

    def run_json(self, command, drawing, *arguments):
        out, _ = self.run_program(command, drawing, *arguments, "--json", "--settings", self.settings)
        return json.loads(out)

    def draw(self, drawing, output, *arguments):
        return self.run_json("draw", drawing, "-o", output, "--symbols", SYMBOLS, *arguments)

    def assert_sound(self, drawing):
        """An independent auditor finds no error and nothing to repair."""
        done = subprocess.run(["/usr/bin/python3", "-c", AUDIT, str(drawing)], capture_output=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        self.assertTrue(done.stdout.decode().startswith("0 0 "), done.stdout.decode())


def main():
    """Runs the file's tests. Ends with 77, which is "skipped" to ctest, only when every one of them was."""
    program = unittest.main(verbosity=2, exit=False)
    if not program.result.wasSuccessful():
        sys.exit(1)
    sys.exit(77 if len(program.result.skipped) == program.test.countTestCases() else 0)

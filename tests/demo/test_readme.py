#!/usr/bin/env python3
"""Runs the README's commands as they are written, one after the other, in a folder that looks like
the project's.

    test_readme.py TARVORDP FOLDER
"""
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

PROJECT = pathlib.Path(__file__).resolve().parents[2]
README = (PROJECT / "README.md").read_text("utf-8")


def commands():
    """The lines of the blocks marked as "sh", without comments."""
    for block in re.findall(r"(?ms)^```sh\n(.*?)^```$", README):
        yield from (line for line in block.splitlines() if line and not line.startswith("#"))


class Readme(unittest.TestCase):
    program = None
    folder = None

    def setUp(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        (self.folder / "build/native").mkdir(parents=True)
        (self.folder / "build/native/tarvordp").symlink_to(self.program)
        (self.folder / "samples").symlink_to(PROJECT / "samples")

    def test_every_command_works(self):
        lines = list(commands())
        self.assertGreater(len(lines), 8)
        for line in lines:
            with self.subTest(line):
                result = subprocess.run(["sh", "-c", line], cwd=self.folder, text=True, timeout=120,
                                        stdin=subprocess.DEVNULL, capture_output=True, check=False)
                self.assertEqual(result.returncode, 0, result.stderr)
        for name in ("invoice.prn", "invoice-1.png", "invoice.pdf", "testpage.prn", "payroll.prn",
                     "trace.jsonl"):
            self.assertGreater((self.folder / name).stat().st_size, 100, name)

    def test_every_path_that_it_names_exists(self):
        links = re.findall(r"\]\(([^)#:]+)\)", README)
        rooms = re.findall(r"(?m)^\| (`[^|]*`) \|", README.split("## Where things are")[1])
        rooms = [room for cell in rooms for room in re.findall(r"`([^`]+)`", cell)]
        self.assertGreater(len(links), 6)
        self.assertGreater(len(rooms), 10)
        for path in links + rooms:
            self.assertTrue((PROJECT / path).exists(), path)


if __name__ == "__main__":
    Readme.program, Readme.folder = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    unittest.main(argv=sys.argv[:1], verbosity=2)

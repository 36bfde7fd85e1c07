"""The companion's message boxes on a screen, answered with the keyboard.  Pictures of some of them
stay in the test's folder."""
import pathlib

import script_test
from script_test import Failure, Script, windows_path

PICTURES = ("unknown_printer.png", "letters.png", "question.png")


def test(test):
    here = pathlib.Path(__file__).resolve().parent
    pictures = test.subfolder("pictures")
    program = test.library.parent / "message_boxes.exe"
    test.run_scripts(
        Script(here / "message_boxes.vbs", runner=[program, windows_path(pictures)]),
        options=["--screenshots", pictures])
    for name in PICTURES:
        if not (pictures / name).exists():
            raise Failure(f"no picture {name}")


if __name__ == "__main__":
    script_test.run(test)

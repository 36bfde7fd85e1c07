"""The printing mode's dialog on a screen, worked with keyboard and mouse.  Pictures of it stay in the
test's folder."""
import pathlib

import script_test
from script_test import Failure, Script, windows_path

PICTURES = ("fresh.png", "text.png", "tooltip.png")


def test(test):
    here = pathlib.Path(__file__).resolve().parent
    pictures = test.subfolder("pictures")
    program = test.library.parent / "printing_mode.exe"
    test.run_scripts(
        Script(here / "printing_mode.vbs", runner=[program, windows_path(pictures)]),
        options=["--screenshots", pictures])
    for name in PICTURES:
        if not (pictures / name).exists():
            raise Failure(f"no picture {name}")


if __name__ == "__main__":
    script_test.run(test)

"""The printing mode's dialog on a screen, worked with keyboard and mouse.  Pictures of it stay in the
test's folder."""
import pathlib

import script_test

PICTURES = ("fresh.png", "text.png", "tooltip.png")


def test(test):
    here = pathlib.Path(__file__).resolve().parent
    test.run_on_screen(here / "printing_mode.vbs", "printing_mode.exe", PICTURES)


if __name__ == "__main__":
    script_test.run(test)

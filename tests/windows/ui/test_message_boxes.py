"""The companion's message boxes on a screen, answered with the keyboard.  Pictures of some of them
stay in the test's folder."""
import pathlib

import script_test

PICTURES = ("unknown_printer.png", "letters.png", "question.png")


def test(test):
    here = pathlib.Path(__file__).resolve().parent
    test.run_on_screen(here / "message_boxes.vbs", "message_boxes.exe", PICTURES)


if __name__ == "__main__":
    script_test.run(test)

"""The template classes, the line buffer and the helpers, as scripts use them."""
import script_test
from script_test import Script


def test(test):
    test.run_scripts(Script("template.vbs"), Script("text_helpers.vbs"), Script("template.js"))


if __name__ == "__main__":
    script_test.run(test)

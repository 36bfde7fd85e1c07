"""The enumerations' texts and the operator's help text, as scripts use them."""
import script_test
from script_test import Script


def test(test):
    test.run_scripts(Script("enum_texts.vbs"), Script("enum_texts.js"))


if __name__ == "__main__":
    script_test.run(test)

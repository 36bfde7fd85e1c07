"""Late binding, as scripts use it."""
import script_test
from script_test import Script


def test(test):
    test.run_scripts(Script("late_binding.vbs"), Script("late_binding.js"))


if __name__ == "__main__":
    script_test.run(test)

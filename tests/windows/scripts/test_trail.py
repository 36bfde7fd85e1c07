"""The way of an error through the library, as a script sees it."""
import script_test
from script_test import Script, windows_path


def test(test):
    files = windows_path(test.subfolder("files"))
    test.run_scripts(Script("trail.vbs", f"file:{files}\\"))


if __name__ == "__main__":
    script_test.run(test)

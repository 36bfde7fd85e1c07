"""Where the library was loaded from, and which version it announces."""
import pathlib
import shutil
import tempfile

import script_test
from script_test import Script, windows_path

# Folders, and the code of each.  Case counts, the whole name counts, and "backup" goes first.
FOLDERS = (
    ("copia", 0),
    ("Backup", 0),
    ("backup-2", 0),
    ("PRUEBA", 0),
    ("backup", 2),
    ("prueba", 1),
    ("backup/prueba", 2),
    ("prueba/backup/otra", 2),
)


def test(test):
    # Outside the build, whose own path may have any name in it.
    with tempfile.TemporaryDirectory(prefix="tarvo-location.") as root:
        steps = [Script("version.vbs", test.version)]
        for name, code in FOLDERS:
            copy = pathlib.Path(root, name, test.library.name)
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(test.library, copy)
            steps.append(f"wine regsvr32 /s '{windows_path(copy)}'")
            steps.append(Script("location.vbs", code))
        steps.append(f"wine regsvr32 /s /u '{windows_path(test.companion)}'")
        steps.append(Script("version_without_companion.vbs"))
        test.run_scripts(*steps)


if __name__ == "__main__":
    script_test.run(test)

"""Where the library was loaded from, and which version it announces."""
import pathlib
import shutil
import tempfile

import script_test
from script_test import Script, windows_path

# Folders, and the code of each.  Case counts, the whole name counts, and "backup" goes first.  (No
# two differ in case alone: the system would take them for one.)
FOLDERS = (
    ("copia nº 1", 0),
    ("mayúscula/Backup", 0),
    ("prueba 2", 0),
    ("backup", 2),
    ("prueba", 1),
    ("backup/prueba", 2),
    ("prueba/backup/otra", 2),
)


def test(test):
    # Outside the build, whose own path may have any name in it.
    with tempfile.TemporaryDirectory(prefix="tarvo-location.") as root:
        copies = []
        for name, code in FOLDERS:
            copy = pathlib.Path(root, name, test.library.name)
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(test.library, copy)
            copies += [windows_path(copy), code]
        test.run_scripts(Script("location.vbs", *copies),
                         Script("version.vbs", test.version, windows_path(test.companion)))


if __name__ == "__main__":
    script_test.run(test)

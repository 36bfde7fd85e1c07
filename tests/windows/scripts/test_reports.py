"""A script prints whole reports on a printer of the Windows spooler, with the bytes that the native
library prints of the same templates and values, and drafts into PDF files."""
import shutil
import subprocess

import script_test
from script_test import Failure, Script, Skip, TESTS, expect_equal, expect_golden, windows_path

JOBS = ("reports/golden/recibo_1.txt", "reports/golden/recibo_2.txt", "reports/golden/libro.txt")

DRAFT = ["Borrador del recibo de José Peña Muñoz", "Neto        4.188,25 ¿á é í ó ú ñ Ñ?"]
LINES = [f"    Línea {number} ñandú" for number in range(1, 101)] + ["fin"]


def expect_text(pdf, expected):
    """The rows as an independent reader finds them; empty ones do not show in it."""
    for program in ("qpdf", "pdftotext"):
        if shutil.which(program) is None:
            raise Skip(f"{program} is not installed: the content of {pdf.name} was not looked at")
    checked = subprocess.run(["qpdf", "--check", str(pdf)], stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, text=True, check=False)
    if checked.returncode != 0:
        raise Failure(f"{pdf.name}: {checked.stdout}")
    text = subprocess.run(["pdftotext", "-layout", "-enc", "UTF-8", str(pdf), "-"],
                          stdout=subprocess.PIPE, check=True).stdout.decode("utf-8")
    rows = [row.rstrip() for row in text.replace("\f", "\n").split("\n") if row.strip()]
    expect_equal(pdf.name, [" ".join(row.split()) for row in expected],
                 [" ".join(row.split()) for row in rows])


def test(test):
    jobs = test.subfolder("jobs")
    pages = test.subfolder("pages")
    test.run_scripts(Script("reports.vbs", windows_path(TESTS / "reports/samples") + "\\",
                            "TarvoRaw", windows_path(pages)),
                     options=["--dir", jobs])
    for number, golden in enumerate(JOBS, 1):
        expect_golden(golden, f"job {number}", (jobs / f"job-{number}.prn").read_bytes())
    expect_equal("jobs", len(JOBS), len(list(jobs.glob("job-*.prn"))))
    expect_equal("files", ["Borrador.pdf", "lineas.pdf"],
                 sorted(file.name for file in pages.iterdir()))
    expect_text(pages / "Borrador.pdf", DRAFT)
    expect_text(pages / "lineas.pdf", LINES)


if __name__ == "__main__":
    script_test.run(test)

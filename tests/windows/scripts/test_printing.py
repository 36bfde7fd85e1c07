"""A script prints on a printer of the Windows spooler: its jobs have the bytes that the same script
prints into files, and both those of the golden pages."""
import script_test
from script_test import Script, TESTS, expect_equal, expect_golden, windows_path

# The jobs in their order, with the golden page of each, and the file that has the same.
JOBS = (
    ("printer/golden/test_page.txt", "pagina.prn"),
    ("printer/golden/vertical_rule_1.txt", "reglas.prn"),
    ("printer/golden/horizontal_rule_3_12.txt", "reglas.prn.2"),
    ("windows/scripts/golden/letters.txt", "letras.prn"),
)


def printing_script(test, first_printer, second_printer):
    files = test.subfolder("files")
    return Script("printing.vbs", windows_path(TESTS / "windows/scripts/profile.txt"),
                  first_printer, second_printer, f"file:{windows_path(files)}\\")


def expect_jobs(test, jobs):
    """`jobs`: the folder with job-1.prn and so on."""
    for number, (golden, file) in enumerate(JOBS, 1):
        job = (jobs / f"job-{number}.prn").read_bytes()
        expect_golden(golden, f"job {number}", job)
        expect_golden(golden, file, (test.folder / "files" / file).read_bytes())
    expect_equal("jobs", len(JOBS), len(list(jobs.glob("job-*.prn"))))
    expect_equal("files", sorted(file for _, file in JOBS),
                 sorted(file.name for file in (test.folder / "files").iterdir()))


def test(test):
    jobs = test.subfolder("jobs")
    test.run_scripts(printing_script(test, "TarvoRaw", "Impresora pequeña"),
                     options=["--dir", jobs])
    expect_jobs(test, jobs)


if __name__ == "__main__":
    script_test.run(test)

"""The script of test_printing.py prints on a queue of a real print server, which is the test's own:
the same bytes, and each job under its document's name."""
import contextlib
import subprocess

import script_test
import test_printing
from script_test import Failure, SKIPPED, Skip, TESTS, expect_equal

PRIVATE_CUPS = TESTS / "equipment/cups/private_cups.sh"


def private_cups(*arguments):
    result = subprocess.run([PRIVATE_CUPS, *arguments], stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, text=True, check=False)
    if result.returncode != 0:
        raise Failure(f"private_cups.sh {arguments[0]}: exit code {result.returncode}")
    return result.stdout


@contextlib.contextmanager
def print_server(jobs):
    """The socket of a server whose jobs come to the folder.  It lives as long as a pipe from here
    is open, so it ends with this program, however that ends."""
    command = [PRIVATE_CUPS, "run", jobs, "--", "sh", "-c", 'echo "$CUPS_SERVER" && exec cat']
    with subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                          text=True) as server:
        said = server.stdout.readline().strip()
        if not said.startswith("/"):
            if server.wait() == SKIPPED:
                raise Skip(said)
            raise Failure(f"there is no print server: {said}")
        yield said


def test(test):
    jobs = test.subfolder("jobs")
    with print_server(jobs) as socket:
        test.run_scripts(test_printing.printing_script(test, "rawq", "RAWQ"),
                         options=["--cups", socket])
        private_cups("wait", jobs, str(len(test_printing.JOBS)))
    test_printing.expect_jobs(test, jobs)
    expect_equal("the jobs' names", ["Página de prueba", "Reglas", "Reglas", "Letras: €, ñ"],
                 private_cups("job_names", jobs).splitlines())


if __name__ == "__main__":
    script_test.run(test)

"""The samples for Windows: each prints an invoice, refuses another one, tells where an error
happened, and wants its arguments; with the bytes and the words of the native sample
(tests/samples)."""
import shlex
import subprocess

import script_test
from script_test import TESTS, Failure, Skip, expect_equal, expect_golden, windows_path

SAMPLES = TESTS.parent / "samples"
TEMPLATES = windows_path(SAMPLES / "templates")
BROKEN = windows_path(TESTS / "samples/broken")

# What is printed and said, the exit code, and the arguments after the printer.
RUNS = (
    ("printed", 0, (TEMPLATES, "1254")),
    ("printed", 0, (TEMPLATES + "\\",)),
    ("refused", 0, (TEMPLATES, "1255")),
    ("broken", 1, (BROKEN, "1254")),
)

# Wine's console.
CODE_PAGE = "cp437"


def programs(test):
    """By name, the words that start each sample."""
    scripts = {name: ["cscript", "//nologo", windows_path(SAMPLES / file)]
               for name, file in (("vbscript", "vbscript/invoice.vbs"),
                                  ("jscript", "jscript/invoice.js"))}
    program = test.library.parent / "sample_invoice.exe"
    return {**scripts, "cpp-com": [windows_path(program)]}


def run_all(test, commands, jobs):
    """Runs the commands one after the other in one prefix; what each says, and its exit code, are
    left in numbered files."""
    said = test.subfolder("said")
    words = [str(TESTS / "equipment/wine/run.sh"), test.bits, "--timeout", "60",
             "--visible", str(test.folder), "--visible", str(test.library.parent),
             "--dir", str(jobs)]
    for server in (test.library, test.companion):
        words += ["--register", str(server)]
    for number, command in enumerate(commands):
        file = shlex.quote(str(said / str(number)))
        words += ["--before", f"wine {shlex.join(command)} >{file} 2>/dev/null </dev/null; "
                              f"echo $? >{file}.code"]
    result = subprocess.run([*words, "--", "cmd", "/c", "exit 0"], stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                            errors="replace", check=False)
    if result.returncode == script_test.SKIPPED:
        raise Skip(result.stdout.strip())
    if result.returncode != 0:
        raise Failure(f"exit code {result.returncode}\n{result.stdout}")
    return [((said / str(number)).read_bytes().decode(CODE_PAGE).replace("\r\n", "\n"),
             int((said / f"{number}.code").read_text("ascii")))
            for number in range(len(commands))]


def expect_said(where, name, said):
    file = f"samples/golden/{name}_says.txt"
    expect_equal(f"{where}, compared with {file}", (TESTS / file).read_text("utf-8"), said)


def test(test):
    jobs = test.subfolder("jobs")
    cases = [(sample, words, run) for sample, words in programs(test).items() for run in RUNS]
    commands = [[*words, "TarvoRaw", *arguments] for _, words, (_, _, arguments) in cases]
    wrong = [[*words, "TarvoRaw", TEMPLATES, "7"] for words in programs(test).values()]
    results = run_all(test, commands + wrong, jobs)
    for job, ((sample, _, (name, code, _)), (said, ended)) in enumerate(zip(cases, results), 1):
        where = f"{sample}, {name}"
        expect_said(where, name, said)
        expect_equal(f"{where}: exit code", code, ended)
        expect_golden(f"samples/golden/{name}.txt", where,
                      (jobs / f"job-{job}.prn").read_bytes())
    for said, ended in results[len(cases):]:
        expect_equal("a wrong number", ("usage:", 2), (said[:6], ended))
    expect_equal("jobs", len(cases), len(list(jobs.glob("job-*.prn"))))


if __name__ == "__main__":
    script_test.run(test)

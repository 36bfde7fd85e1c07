"""What the script tests stand on: runs scripts under Wine as clients do, and judges them.

A script is made of files, put one after the other: those named in its first line, from parts/, and
then itself.

    'uses checks.vbs start.vbs

It gets the name of its report as its first argument.  The report has one line for each check, and
at its end their number (parts/checks.vbs, parts/checks.js).  A script has passed when it ended with
exit code 42, which it does at its very end, and its report is complete and without a failure:
Wine's script host ends with 0, and says nothing, when a script dies of an error.

Sources are UTF-8 here; the script host takes them in the system's code page.

A test is a program that calls run(test); ctest starts it with the arguments named below.
"""
import argparse
import os
import pathlib
import shlex
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
TESTS = HERE.parent.parent

SUCCESS = 42
SKIPPED = 77


class Failure(Exception):
    pass


class Skip(Exception):
    pass


class Script:
    """A script with its arguments.  FILE counts from this module's folder; RUNNER is a program that
    starts the script, with the command for it behind its own arguments, and ends with its exit
    code."""

    def __init__(self, file, *arguments, runner=()):
        self.file = HERE / file
        self.arguments = arguments
        self.runner = [str(word) for word in runner]


class Test:
    """The equipment of one test; its files are kept in its folder below the build's."""

    def __init__(self, options):
        self.bits = options.bits
        self.version = options.version
        self.library = options.build / "LibTarvoRdpCI_2402.dll"
        self.companion = options.build / "LibTarvoCI_2402.dll"
        self.folder = options.folder
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)

    def subfolder(self, name):
        folder = self.folder / name
        folder.mkdir(parents=True, exist_ok=True)
        return folder

    def run_scripts(self, *scripts, options=()):
        """Runs scripts one after the other in one fresh prefix, with both servers registered."""
        runs = [self._prepare(number, script) for number, script in enumerate(scripts)]
        command = [str(TESTS / "equipment/wine/run.sh"), self.bits, "--timeout", "60",
                   "--visible", str(self.folder)]
        for server in (self.library, self.companion):
            command += ["--register", str(server)]
        command += [str(option) for option in options]
        for run in runs[:-1]:
            command += ["--before", run.shell_command()]
        command += ["--", *runs[-1].command()]
        # With this, Wine's script engines say where a script is not in their language.
        environment = {"TARVO_WINE_LOG": "-all,fixme+vbscript,fixme+jscript", **os.environ}
        result = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True, errors="replace", check=False,
                                env=environment)
        if result.returncode == SKIPPED:
            raise Skip(result.stdout.strip())
        failures = []
        for run in runs:
            failures += run.judge()
        if result.returncode != SUCCESS:
            failures.append(f"exit code {result.returncode} instead of {SUCCESS}")
        if failures:
            raise Failure("\n".join([*failures, *said_by_wine(result.stdout)]))

    def run_on_screen(self, script, operator, pictures):
        """Runs a script that an operator's program, one of the build's, starts and works on a
        screen; the operator leaves the named pictures in the test's folder."""
        folder = self.subfolder("pictures")
        program = self.library.parent / operator
        self.run_scripts(Script(script, runner=[program, windows_path(folder)]),
                         options=["--screenshots", folder])
        for name in pictures:
            if not (folder / name).exists():
                raise Failure(f"no picture {name}")

    def _prepare(self, number, script):
        source = script.file.read_text("utf-8")
        first_line = source.split("\n", 1)[0]
        marker, _, names = first_line.partition("uses ")
        if marker not in ("'", "//"):
            raise Failure(f"{script.file.name}: its first line does not say which parts it uses")
        parts = [(HERE / "parts" / name).read_text("utf-8") for name in names.split()]
        folder = self.subfolder("scripts")
        name = f"{number}-{script.file.name}"
        whole = folder / name
        text = "".join([*parts, source]).replace("\n", "\r\n")
        whole.write_bytes(text.encode("cp1252"))
        return Prepared(script, whole, folder / f"{name}.report")


class Prepared:
    """A script that is ready to run."""

    def __init__(self, script, file, report):
        self.name = script.file.name
        self.report = report
        self._runner = script.runner
        self._words = ["cscript", "//nologo", windows_path(file), windows_path(report),
                       *(str(argument) for argument in script.arguments)]

    def command(self):
        """For Wine."""
        return [*self._runner, *self._words]

    def shell_command(self):
        return f"{shlex.join(['wine', *self.command()])}; test $? -eq {SUCCESS}"

    def judge(self):
        """What is wrong with the report, as lines; says on the standard output what is right."""
        if not self.report.exists():
            return [f"{self.name}: no report: it was not run, or has a mistake in its language"]
        lines = self.report.read_text("utf-16").splitlines()
        failures = [f"{self.name}: {line}" for line in lines if not line.startswith("ok ")]
        if lines and lines[-1].startswith("end "):
            failures.pop()
            number = int(lines[-1].split()[1])
            checks = len(lines) - 1
            if number != checks:
                failures.append(f"{self.name}: made {checks} checks, but has {number}: the error "
                                "of a skipped one was ignored")
            elif not failures:
                print(f"{self.name}: {checks} checks")
        else:
            last = lines[-1] if lines else "(no check at all)"
            failures.append(f"{self.name}: died after: {last}")
        return failures


def said_by_wine(output):
    return [line for line in output.splitlines() if ":fixme:" not in line or "parser" in line]


def windows_path(path):
    return "Z:" + str(pathlib.Path(path).resolve()).replace("/", "\\")


# --- Printed bytes.  A dump has plain ASCII as it is, other bytes as numbers in angle brackets, and
# --- one line for each printed one.


def dump(data):
    text = "".join(chr(byte) if 32 <= byte < 127 and byte != ord("<") else f"<{byte:02X}>"
                   for byte in data)
    text = text.replace("<0A>", "<0A>\n")
    if text.endswith(" "):
        text = text[:-1] + "<20>"
    return text if text.endswith("\n") or not text else text + "\n"


def expect_dump(where, expected, data):
    """Both are shown at the first line that differs."""
    actual = dump(data)
    if actual == expected:
        return
    pairs = list(zip([*expected.splitlines(), "(end)"], [*actual.splitlines(), "(end)"]))
    number = next((i for i, pair in enumerate(pairs) if pair[0] != pair[1]), len(pairs) - 1)
    raise Failure(f"{where}: line {number + 1} differs\n  expected: {pairs[number][0]}\n"
                  f"  actual:   {pairs[number][1]}")


def expect_golden(file, where, data):
    """`file`: a dump, counted from the tests' folder."""
    golden = TESTS / file
    if not golden.exists():
        raise Failure(f"{golden}: no such golden file")
    expect_dump(f"{where}, compared with {file}", golden.read_text("ascii"), data)


def expect_equal(where, expected, actual):
    if expected != actual:
        raise Failure(f"{where}\n  expected: {expected}\n  actual:   {actual}")


def run(test):
    parser = argparse.ArgumentParser()
    parser.add_argument("--bits", choices=("64", "32"), required=True)
    parser.add_argument("--build", type=pathlib.Path, required=True, help="the servers' folder")
    parser.add_argument("--version", required=True, help="the library's, as it announces it")
    parser.add_argument("--folder", type=pathlib.Path, required=True,
                        help="emptied, and then the test's own")
    try:
        test(Test(parser.parse_args()))
    except Skip as reason:
        print(reason)
        sys.exit(SKIPPED)
    except Failure as failure:
        print(failure)
        sys.exit(1)

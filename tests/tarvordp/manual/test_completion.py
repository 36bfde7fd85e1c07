#!/usr/bin/env python3
"""The completion, as a person meets it: keys typed into an interactive bash.

    test_completion.py TARVORDP PROJECT [TEST...]
"""
import os
import pathlib
import pty
import re
import select
import shlex
import sys
import tempfile
import time
import unittest

PACKAGE = pathlib.Path("/usr/share/bash-completion/bash_completion")


class Bash:
    """An interactive bash in which "tarvordp" shows its arguments, but for the ones that the
    completion itself uses."""

    def __init__(self, program, completion, folder, package):
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.chdir(folder)
            os.environ.update(PS1="", TERM="dumb", LC_ALL="C.UTF-8", HISTFILE="")
            os.execvp("bash", ["bash", "--noprofile", "--norc", "-i"])
        self.type("stty -echo; bind 'set enable-bracketed-paste off'\n")
        if package:
            self.type(f". {package}\n")
        self.type(f". {shlex.quote(str(completion))}\n")
        self.type(f'tarvordp() {{ case "$*" in profiles) {shlex.quote(str(program))} profiles ;; '
                  "*) printf 'GOT'; printf '[%s]' \"$@\"; printf 'END\\n' ;; esac; }\n")
        self.type("echo rea''dy\n")
        self.read_until("ready")

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def read_until(self, pattern):
        shown = ""
        end = time.monotonic() + 30
        while time.monotonic() < end:
            if select.select([self.terminal], [], [], 0.2)[0]:
                shown += os.read(self.terminal, 4096).decode(errors="replace")
            found = re.search(pattern, shown)
            if found:
                return found
        raise AssertionError(f"{pattern} is not shown: {shown!r}")

    def arguments_after_tab(self, line):
        """The arguments that the command gets when the line is typed, Tab and Enter."""
        self.type(f"{line}\t\n")
        return re.findall(r"\[(.*?)\]", self.read_until(r"GOT(\[.*?\])*END").group(0))

    def close(self):
        os.close(self.terminal)
        os.waitpid(self.pid, 0)


class Completion(unittest.TestCase):
    program = None
    project = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "invoice.json").touch()
        (self.folder / "other.txt").touch()
        (self.folder / "FACTURA.ID").touch()
        (self.folder / "pages out").mkdir()
        (self.folder / "pages out" / "old.prn").touch()

    def look(self, package):
        bash = Bash(self.program, self.project / "tools/tarvordp/completion/tarvordp", self.folder,
                    package)
        self.addCleanup(bash.close)
        for line, arguments in (
                ("pri", ["print"]),
                ("print inv", ["print", "invoice.json"]),
                ("print oth", ["print", "oth"]),
                ("check FAC", ["check", "FACTURA.ID"]),
                ("print x --pri", ["print", "x", "--printer"]),
                ("print x --printer fil", ["print", "x", "--printer", "file:"]),
                ("print x --printer file:oth", ["print", "x", "--printer", "file:other.txt"]),
                ("print x --printer=file:oth", ["print", "x", "--printer=file:other.txt"]),
                ("print x --printer file:pag", ["print", "x", "--printer", "file:pages out/"]),
                ("print x --printer file:pages\\ out/o",
                 ["print", "x", "--printer", "file:pages out/old.prn"]),
                (f"print x --printer file:{self.folder}/inv",
                 ["print", "x", "--printer", f"file:{self.folder}/invoice.json"]),
                ("view x --profile ok", ["view", "x", "--profile", "oki-microline"]),
                ("view x --profile=ok", ["view", "x", "--profile=oki-microline"]),
                ("view x --profile=inv", ["view", "x", "--profile=invoice.json"]),
                ("check x --kind=ma", ["check", "x", "--kind=master-detail"]),
                ("profiles ib", ["profiles", "ibm-proprinter"])):
            with self.subTest(line):
                self.assertEqual(bash.arguments_after_tab("tarvordp " + line), arguments)

    def test_with_bash_alone(self):
        self.look(None)

    @unittest.skipUnless(PACKAGE.exists(), "the package bash-completion is not installed")
    def test_with_the_package_bash_completion(self):
        self.look(PACKAGE)


if __name__ == "__main__":
    Completion.program, Completion.project = (pathlib.Path(word).resolve()
                                              for word in sys.argv[1:3])
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)

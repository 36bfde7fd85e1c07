#!/usr/bin/env python3
"""The manual page and the completion know what the program's own help says: every command, and
every option of it, and none besides.

    test_manual.py TARVORDP PROJECT [TEST...]
"""
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import unittest

COMMANDS = ("print", "view", "check", "fields", "profiles", "testpage")

WRONG_ARGUMENTS = (
    ("", "say what to do: print, view, check, fields, profiles or testpage"),
    ("prnt x", 'there is no command "prnt" (did you mean "print"?)'),
    ("whatever", 'there is no command "whatever"'),
    ("--nope", 'there is no option "--nope"'),
    ("print", "JOB is missing"),
    ("view", "FILE is missing"),
    ("view x", "--profile PROFILE is missing"),
    ("check --kind form", "TEMPLATE is missing"),
    ("fields", "TEMPLATE is missing"),
    ("testpage", "--profile PROFILE is missing"),
    ("print x y", '"y" is one argument too many'),
    ("profiles a b", '"b" is one argument too many'),
    ("print x --nope", 'there is no option "--nope"'),
    ("print x --cop 3", 'there is no option "--cop" (did you mean "--copies"?)'),
    ("print x --coppies=3", 'there is no option "--coppies" (did you mean "--copies"?)'),
    ("view x --profile plain --pgn y", 'there is no option "--pgn" (did you mean "--png"?)'),
    ("print -x", 'there is no option "-x"'),
    ("print x --copies", "--copies: its value is missing: --copies N"),
    ("print x --set A=1 --set B=2 --set",
     "--set: its value is missing: --set NAME=VALUE"),
    ("print x --copies 0", '--copies: "0" is not a whole number from 1 to 255'),
    ("print x --copies 256", '--copies: "256" is not a whole number from 1 to 255'),
    ("print x --copies=two", '--copies: "two" is not a whole number from 1 to 255'),
    ("view x --profile plain --lines 1.5", '--lines: "1.5" is not a whole number from 1 to 255'),
    ("check x --kind foo", '--kind: "foo" is not form or master-detail'),
    ("print x --printer a --printer b", "--printer is given more than once"),
    ("print x --yes=no", "--yes takes no value"),
    ("print x --help=3", "--help takes no value"),
    ("print x --set A", '--set: "A" is not of the form NAME=VALUE'),
)


class Manual(unittest.TestCase):
    program = None
    project = None

    def options_of(self, *words):
        said = subprocess.run([self.program, *words, "--help"], capture_output=True, text=True,
                              timeout=60, check=True).stdout
        return set(re.findall(r"(?m)^  (?:-\w, )?(--[a-z-]+)", said))

    def test_the_help_lists_the_commands(self):
        said = subprocess.run([self.program, "--help"], capture_output=True, text=True, timeout=60,
                              check=True).stdout
        for name in COMMANDS:
            self.assertRegex(said, rf"(?m)^\s+{name}\s+\S")

    def help_of(self, *words):
        return subprocess.run([self.program, *words, "--help"], capture_output=True, text=True,
                              timeout=60, check=True).stdout

    def test_the_help_is_of_one_style(self):
        for words in ((), *((name,) for name in COMMANDS)):
            page = self.help_of(*words)
            with self.subTest(words):
                self.assertNotRegex(
                    page, r"REQUIRED|\bTEXT\b|\bINT\b|OPTIONS|SUBCOMMAND|Positionals")
                self.assertRegex(page, r"\A[A-Z][^\n]")
                self.assertIn("\n\nUsage: " + " ".join(("tarvordp", *words)) + " ", page)
                self.assertTrue(page.index("\nUsage: ") < page.index("\nOptions:\n")
                                < page.index("\n  -h, --help"))
                self.assertFalse([line for line in page.splitlines() if len(line) > 80
                                  and not line.startswith("  ")], "prose is filled")
                self.assertFalse([line for line in page.splitlines() if line != line.rstrip()])
                self.assertNotIn("\n\n\n", page)

    def test_the_usage_tells_what_must_be_there(self):
        for name, usage in (("print", "JOB [options]"),
                            ("view", "FILE --profile PROFILE [options]"),
                            ("check", "TEMPLATE... [options]"),
                            ("profiles", "[NAME] [options]")):
            self.assertIn(f"Usage: tarvordp {name} {usage}\n", self.help_of(name))

    def test_the_help_tells_what_would_be_a_surprise(self):
        for words, told in (
                ((), "0 done; check: no errors were found"),
                (("print",), "as which it is printed: number and date formats do not apply to it. "
                             "Queries keep the job's parameters."),
                (("print",), "want some printer's name all the same"),
                (("view",), "the template's NMAXLINPAGINA, or 29 if it has none"),
                (("fields",), "decimals count only where the client answers with a number."),
                (("profiles",), "CanPrintInTextMode is false"),
                (("profiles",), "Exit status: 0 shown")):
            with self.subTest(told):
                self.assertIn(told, " ".join(self.help_of(*words).split()))
        self.assertNotIn("FACTURA.NUMERO", self.help_of("print"))
        manual = " ".join(self.manual().split())
        for told in (r"\fBcheck\fR: no errors were found",
                     "number and date formats do not apply to it", "want some printer's name",
                     r"the \fBNMAXLINPAGINA\fR of the template, or 29"):
            with self.subTest(told):
                self.assertIn(told, manual)

    def test_the_version_is_one_line(self):
        said = subprocess.run([self.program, "--version"], capture_output=True, text=True,
                              timeout=60, check=True).stdout
        self.assertRegex(said, r"\Atarvordp \d+\.\d+\.\d+\n\Z")

    def test_wrong_arguments_are_told_in_words_of_the_program(self):
        for words, said in WRONG_ARGUMENTS:
            result = subprocess.run([self.program, *words.split()], capture_output=True, text=True,
                                    timeout=60, check=False)
            command = [word for word in words.split()[:1] if word in COMMANDS]
            with self.subTest(words):
                self.assertEqual((result.returncode, result.stdout), (2, ""))
                self.assertEqual(result.stderr, f'tarvordp: {said}; see "'
                                 + " ".join(["tarvordp", *command, "--help"]) + '"\n')

    def test_a_full_disk_is_told(self):
        for words in (("--help",), ("profiles",), ("profiles", "plain")):
            with self.subTest(words), open("/dev/full", "wb") as full:
                result = subprocess.run([self.program, *words], stdout=full, timeout=60,
                                        stderr=subprocess.PIPE, text=True, check=False)
                self.assertEqual(result.returncode, 3)
                self.assertIn("was not written whole", result.stderr)

    def manual(self):
        return (self.project / "tools/tarvordp/tarvordp.1").read_text("utf-8").replace("\\-", "-")

    def described(self, begin, end):
        """The options that have a paragraph of their own there."""
        part = self.manual().split(begin, 1)[1]
        part = re.split(end, part, maxsplit=1)[0]
        heads = re.findall(r"(?m)^\.TP\n(.*)$", part)
        return {option for head in heads for option in re.findall(r"--[a-z-]+", head)}

    def test_the_manual_describes_every_option_of_every_command_and_no_other(self):
        self.assertEqual(re.findall(r"(?m)^\.SS (\S+)$", self.manual()), list(COMMANDS))
        for name in COMMANDS:
            with self.subTest(name):
                self.assertEqual(self.described(f".SS {name}\n", r"\.S[SH] "),
                                 self.options_of(name) - {"--help"})
        self.assertEqual(self.described(".SH OPTIONS\n", r"\.SH "), self.options_of())

    def test_the_synopsis_of_the_manual_has_every_option(self):
        synopsis = self.manual().split(".SH SYNOPSIS\n", 1)[1].split(".SH ", 1)[0]
        usages = re.split(r"\\fBtarvordp ", synopsis)[1:]
        self.assertEqual([usage.split("\\", 1)[0] for usage in usages], list(COMMANDS))
        for name, usage in zip(COMMANDS, usages):
            usage = usage.split("\\fBtarvordp\\fR")[0]
            with self.subTest(name):
                self.assertEqual(set(re.findall(r"--[a-z-]+", usage)),
                                 self.options_of(name) - {"--help"})

    def test_the_manual_tells_every_exit_status(self):
        statuses = self.manual().split(".SH EXIT STATUS\n", 1)[1].split(".SH ", 1)[0]
        self.assertEqual(re.findall(r"(?m)^\.B (\d)$", statuses), ["0", "1", "2", "3"])

    def complete(self, *words):
        script = (f". {shlex.quote(str(self.project / 'tools/tarvordp/completion/tarvordp'))}; "
                  f"PATH={shlex.quote(str(self.program.parent))}:$PATH; "
                  f"COMP_WORDS=({shlex.join(words)}); COMP_CWORD={len(words) - 1}; _tarvordp; "
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        said = subprocess.run(["bash", "-c", script], capture_output=True, text=True, timeout=60,
                              check=True, cwd=self.project / "samples/trading").stdout
        return {line for line in said.splitlines() if line}

    def test_the_completion_offers_every_option_and_no_other(self):
        for name in COMMANDS:
            with self.subTest(name):
                self.assertEqual(self.complete("tarvordp", name, "--"), self.options_of(name))

    def test_the_completion_offers_commands_profiles_and_files(self):
        self.assertEqual(self.complete("tarvordp", "p"), {"print", "profiles"})
        self.assertEqual(self.complete("tarvordp", "view", "x", "--profile", "o"),
                         {"oki-microline"})
        self.assertEqual(len(self.complete("tarvordp", "view", "x", "--profile", "")), 5)
        self.assertEqual(self.complete("tarvordp", "print", "inv"), {"invoice.json"})
        self.assertIn("plantillas/FACTURA.ID",
                      self.complete("tarvordp", "check", "plantillas/F"))


class Page(unittest.TestCase):
    @unittest.skipUnless(shutil.which("groff"), "groff (package groff-base) is not installed")
    def test_the_manual_is_set_without_a_warning(self):
        page = Manual.project / "tools/tarvordp/tarvordp.1"
        result = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-z", page], capture_output=True,
                                text=True, timeout=60, check=False)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))


if __name__ == "__main__":
    Manual.program, Manual.project = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)

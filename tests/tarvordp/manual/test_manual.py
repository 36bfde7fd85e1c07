#!/usr/bin/env python3
"""The manual page and the completion know what the program's own help says: every command, and
every option of it, and none besides.

    test_manual.py TARVORDP PROJECT
"""
import pathlib
import re
import shlex
import subprocess
import sys
import unittest

COMMANDS = ("print", "view", "check", "fields", "profiles", "testpage")


class Manual(unittest.TestCase):
    program = None
    project = None

    def options_of(self, *words):
        said = subprocess.run([self.program, *words, "--help"], capture_output=True, text=True,
                              timeout=60, check=True).stdout
        return set(re.findall(r"(?m)^\s+(?:-\w,)?(--[a-z-]+)", said))

    def all_options(self):
        return set().union(self.options_of(), *(self.options_of(name) for name in COMMANDS))

    def test_the_help_lists_the_commands(self):
        said = subprocess.run([self.program, "--help"], capture_output=True, text=True, timeout=60,
                              check=True).stdout
        for name in COMMANDS:
            self.assertRegex(said, rf"(?m)^\s+{name}\s+\S")

    def test_wrong_command_lines_are_told(self):
        for words, said in (((), "A subcommand is required"),
                            (("prnt", "x"), 'there is no command "prnt"'),
                            (("view", "x"), "--profile is required"),
                            (("view", "x", "--profile", "plain", "--pgn", "y"), "--pgn")):
            result = subprocess.run([self.program, *words], capture_output=True, text=True,
                                    timeout=60, check=False)
            with self.subTest(words):
                self.assertEqual((result.returncode, result.stdout), (2, ""))
                self.assertIn(said, result.stderr)

    def test_a_full_disk_is_told(self):
        for words in (("--help",), ("profiles",), ("profiles", "plain")):
            with self.subTest(words), open("/dev/full", "wb") as full:
                result = subprocess.run([self.program, *words], stdout=full, timeout=60,
                                        stderr=subprocess.PIPE, text=True, check=False)
                self.assertEqual(result.returncode, 3)
                self.assertIn("was not written whole", result.stderr)

    def test_the_manual_describes_every_option_and_no_other(self):
        page = (self.project / "tools/tarvordp/tarvordp.1").read_text("utf-8").replace("\\-", "-")
        described = page[page.index(".SH OPTIONS"):page.index(".SH EXIT STATUS")]
        self.assertEqual(set(re.findall(r"(?<!\S)--[a-z-]+", re.sub(r"\"|, ", " ", described))),
                         self.all_options())

    def test_the_manual_has_no_mistakes(self):
        page = self.project / "tools/tarvordp/tarvordp.1"
        text = page.read_text("utf-8")
        for name in COMMANDS:
            self.assertIn(f"\n.B {name}\n", text)
        self.assertEqual(text.count(".TH "), 1)

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


if __name__ == "__main__":
    Manual.program, Manual.project = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    unittest.main(argv=sys.argv[:1], verbosity=2)

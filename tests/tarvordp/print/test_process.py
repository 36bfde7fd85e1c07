#!/usr/bin/env python3
"""The program as the system sees it: its streams, closed or full, its signals, a terminal.

    test_process.py TARVORDP
"""
import fcntl
import json
import os
import pathlib
import pty
import resource
import select
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest

TEMPLATE = "{A}\r\n{CUERPO=1}\r\n{N}\r\n{FINCUERPO}\r\n"
REPORT = b"a\r\n1\r\n\f"


class Process(unittest.TestCase):
    program = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "T.ID").write_text(TEMPLATE, encoding="ascii")
        (self.folder / "PAUSE.ID").write_text("a\n...PAUSA...\n", encoding="ascii")
        self.job = {"report": "master-detail", "title": "T", "directory": ".", "template": "T",
                    "record": {"A": "a"}, "details": [{"N": "1"}],
                    "profile": {"CanPrintInTextMode": True, "MaxLinPage": 60,
                                "ChrFormFeed": "\f", "PrinterName": "file:out.prn"}}
        self.write_job()

    def write_job(self, **more):
        self.job.update(more)
        (self.folder / "j.json").write_text(json.dumps(self.job), encoding="utf-8")

    def write_form(self, **more):
        self.job = {"report": "form", "title": "T", "directory": ".", "firstSheet": "PAUSE",
                    "secondSheet": "PAUSE", "profile": self.job["profile"], **more}
        self.write_job()

    def run_program(self, *words, shell=None, **environment):
        """With `shell`, the command line's end in a shell, such as a redirection."""
        command = [self.program, *words]
        if shell:
            command = ["sh", "-c", f'exec "$0" "$@" {shell}', *command]
        return subprocess.run(command, cwd=self.folder, capture_output=True, timeout=60,
                              check=False,
                              env={**os.environ, "LC_ALL": "C.UTF-8", **environment})

    def has(self, name):
        return (self.folder / name).exists()

    # --- Streams

    def test_the_standard_output_gets_the_bytes_and_nothing_else(self):
        result = self.run_program("print", "j.json", "--printer", "file:-")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, REPORT, b""))

    def test_a_full_standard_output_is_told(self):
        result = self.run_program("print", "j.json", "--printer", "file:-", shell=">/dev/full")
        self.assertEqual(result.returncode, 3)
        self.assertEqual(result.stderr.decode(),
                         "tarvordp: file:-: the report did not arrive whole: No space left on "
                         "device\ntarvordp: what was written to the standard output is not whole\n")

    def test_a_report_that_fails_says_that_the_standard_output_is_not_whole(self):
        (self.folder / "T.ID").write_text("x\n{A[x]}\n{CUERPO=1}\n{FINCUERPO}\n")
        result = self.run_program("print", "j.json", "--printer", "file:-")
        self.assertEqual(result.returncode, 3)
        self.assertTrue(result.stderr.decode().endswith(
            "tarvordp: what was written to the standard output is not whole\n"), result.stderr)

    def test_a_closed_standard_output_is_told(self):
        result = self.run_program("print", "j.json", "--printer", "file:-", shell=">&-")
        self.assertEqual(result.returncode, 3)
        self.assertIn("did not arrive whole: Bad file descriptor", result.stderr.decode())
        for words in (("profiles",), ("--help",), ("fields", "T.ID")):
            result = self.run_program(*words, shell=">&-")
            with self.subTest(words):
                self.assertEqual(result.returncode, 3)
                self.assertIn("was not written whole", result.stderr.decode())

    def test_a_closed_stream_is_not_replaced_by_the_printed_file(self):
        self.write_form(answers={"turnSheet": True})
        for closed in (">&-", "2>&-", "<&-", "<&- >&- 2>&-"):
            result = self.run_program("print", "j.json", "--trace", "t", shell=closed)
            with self.subTest(closed):
                self.assertEqual(result.returncode, 0)
                self.assertEqual((self.folder / "out.prn").read_bytes(), b"a\r\n\f")
                self.assertEqual((self.folder / "out.prn.2").read_bytes(), b"a\r\n\f")
                for line in (self.folder / "t").read_text("utf-8").splitlines():
                    json.loads(line)

    def test_a_closed_standard_input_is_told(self):
        result = self.run_program("print", "-", shell="<&-")
        self.assertEqual(result.returncode, 2)
        self.assertEqual(result.stderr, b"tarvordp: -: cannot be read: Bad file descriptor\n")

    def test_a_trace_on_the_standard_output(self):
        result = self.run_program("print", "j.json", "--trace", "-")
        events = [json.loads(line) for line in result.stdout.decode().splitlines()]
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        self.assertEqual((events[0]["call"], events[-1]["call"]), ("OpenPrinter", "ClosePrinter"))
        self.assertEqual((self.folder / "out.prn").read_bytes(), REPORT)
        self.assertFalse(self.has("-"), "a file of that name")
        result = self.run_program("print", "j.json", "--trace", "-", shell=">/dev/full")
        self.assertEqual(result.returncode, 3)
        self.assertIn("tarvordp: the standard output: the trace is not whole\n",
                      result.stderr.decode())

    def test_a_trace_and_a_report_are_not_mixed(self):
        for words, taker in ((("--printer", "file:-"), "the printer"), (("--save", "-"), "--save")):
            result = self.run_program("print", "j.json", "--trace", "-", *words)
            with self.subTest(words):
                self.assertEqual((result.returncode, result.stdout), (2, b""))
                self.assertEqual(result.stderr.decode(), "tarvordp: --trace: the standard output "
                                 f"is taken by {taker}\n")

    def test_a_printer_that_nobody_has_is_told(self):
        for server in ("/nowhere/socket", "127.0.0.1:1"):
            result = self.run_program("print", "j.json", "--printer", "NOPE", CUPS_SERVER=server)
            with self.subTest(server):
                self.assertEqual((result.returncode, result.stdout), (1, b""))
                self.assertEqual(result.stderr.decode(),
                                 "No se reconoce el nombre de la impresora: NOPE\n"
                                 'tarvordp: printer "NOPE": the print server cannot be reached; '
                                 "file:PATH prints into a file\n")

    # --- Jobs that are none

    def test_a_folder_and_an_empty_file_are_no_jobs(self):
        (self.folder / "d").mkdir()
        (self.folder / "empty").touch()
        for job, said in (("d", "d: cannot be read: Is a directory"),
                          ("empty", "empty: is empty"),
                          ("none", "none: cannot be read: No such file or directory"),
                          ("/dev/null", "/dev/null: is empty")):
            result = self.run_program("print", job)
            with self.subTest(job):
                self.assertEqual((result.returncode, result.stdout), (2, b""))
                self.assertTrue(result.stderr.decode().startswith(f"tarvordp: {said}"),
                                result.stderr)
                self.assertFalse(self.has("out.prn"))

    def test_data_that_can_be_read_once_only_are_refused_at_once(self):
        os.mkfifo(self.folder / "d.csv")
        self.write_job(details={"csv": "d.csv"})
        with subprocess.Popen(["sh", "-c", "printf 'N;M\\n1;2\\n' >d.csv"],
                              cwd=self.folder) as writer:
            result = self.run_program("print", "j.json")
            writer.wait(timeout=60)
        self.assertEqual((result.returncode, result.stdout), (2, b""))
        self.assertIn("/details/csv: d.csv: cannot be read", result.stderr.decode())
        self.assertNotIn("separated", result.stderr.decode())

    # --- A terminal

    def at_terminal(self, *words, until, then):
        """Runs on a terminal; when `until` has been shown, types `then`. Gives the exit status and
        what was shown."""
        pid, terminal = pty.fork()
        if pid == 0:
            os.chdir(self.folder)
            os.execv(self.program, [self.program, *words])
        shown = b""
        end = time.monotonic() + 30
        while time.monotonic() < end:
            if not select.select([terminal], [], [], 0.5)[0]:
                continue
            try:
                some = os.read(terminal, 4096)
            except OSError:
                some = b""
            if not some:
                break
            shown += some
            if then and until in shown:
                os.write(terminal, then)
                then = b""
        else:
            os.kill(pid, signal.SIGKILL)
        os.close(terminal)
        return os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1]), shown.decode()

    def test_control_c_at_a_pause_ends_the_report_and_leaves_no_half_file(self):
        self.write_job(copies=2)
        status, shown = self.at_terminal("print", "j.json", until=b"Ctrl-C to give up. ",
                                         then=b"\x03")
        self.assertEqual(status, 3)
        self.assertIn("tarvordp: interrupted\r\ntarvordp: out.prn was not whole and was removed",
                      shown)
        self.assertFalse(self.has("out.prn"))

    def test_control_c_at_the_pause_at_the_end_is_no_success(self):
        self.write_form(sheets="first")
        status, shown = self.at_terminal("print", "j.json", until=b"Ctrl-C to give up. ",
                                         then=b"\x03")
        self.assertEqual(status, 3)
        self.assertIn("tarvordp: interrupted\r\n", shown)
        self.assertFalse(self.has("out.prn"))

    def test_control_c_at_a_question_is_no_answer(self):
        self.write_form(answers={"pause": True})
        status, shown = self.at_terminal("print", "j.json", until=b"cancelar (C): ", then=b"\x03")
        self.assertEqual(status, 3)
        self.assertIn("tarvordp: interrupted\r\n", shown)
        self.assertEqual((self.folder / "out.prn").read_bytes(), b"a\r\n\f", "which was whole")
        self.assertFalse(self.has("out.prn.2"))

    def test_enter_at_a_pause_goes_on(self):
        self.write_job(copies=2)
        status, shown = self.at_terminal("print", "j.json", until=b"Ctrl-C to give up. ",
                                         then=b"\r")
        self.assertEqual(status, 0, shown)
        self.assertIn("printed 2 pages, 2 records, 14 bytes to file:out.prn\r\n", shown)
        self.assertEqual((self.folder / "out.prn").read_bytes(), REPORT + REPORT)

    # --- Signals, and what a closed pipe and a limit would end the program by

    def held(self, *words, before=None):
        """Prints to a pipe that is full by now; gives the process and the pipe's other end."""
        if not isinstance(self.job.get("details"), dict):
            self.write_job(details=[{"N": "x" * 60}] * 4000)
        os.mkfifo(self.folder / "slow")
        process = subprocess.Popen(  # pylint: disable=consider-using-with
            [self.program, "print", "j.json", "--printer", "file:slow", *words], cwd=self.folder,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            preexec_fn=before)
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        pipe = os.open(self.folder / "slow", os.O_RDONLY)
        self.addCleanup(os.close, pipe)
        for _ in range(1000):
            if waiting(pipe) >= 60000:
                break
            time.sleep(0.02)
        time.sleep(0.1)
        self.assertGreaterEqual(waiting(pipe), 60000)
        self.assertIsNone(process.poll())
        return process, pipe

    def test_signals_that_were_ignored_stay_ignored(self):
        def ignore():
            for number in (signal.SIGHUP, signal.SIGINT):
                signal.signal(number, signal.SIG_IGN)
        process, pipe = self.held(before=ignore)
        for number in (signal.SIGHUP, signal.SIGINT):
            process.send_signal(number)
        report = rest_of(pipe)
        self.assertEqual((process.wait(60), process.stderr.read()), (0, b""))
        self.assertEqual(report.count(b"x" * 60), 4000)

    def test_a_second_signal_of_whichever_kind_ends_a_report_that_hangs(self):
        for number, second in ((signal.SIGINT, signal.SIGINT), (signal.SIGHUP, signal.SIGTERM)):
            with self.subTest(second):
                process, _ = self.held()
                process.send_signal(number)
                time.sleep(0.3)
                self.assertIsNone(process.poll(), "the first one is only noted")
                process.send_signal(second)
                self.assertEqual(process.wait(60), -second)
                (self.folder / "slow").unlink()

    def test_a_csv_file_that_changes_while_it_is_printed_is_no_report(self):
        data = self.folder / "d.csv"
        data.write_text("N\n" + ("x" * 60 + "\n") * 20000)
        self.write_job(details={"csv": "d.csv"})
        process, pipe = self.held()
        data.write_text("N\n" + ("x" * 60 + "\n") * 12000)
        rest_of(pipe)
        self.assertEqual(process.wait(60), 3)
        self.assertIn("d.csv: somebody changed the file while it was read: print again",
                      process.stderr.read().decode())

    def test_a_pipe_that_nobody_reads_is_told(self):
        process, pipe = self.held()
        with open(os.devnull, "rb") as nothing:
            os.dup2(nothing.fileno(), pipe)  # which closes the pipe
        self.assertEqual(process.wait(60), 3)
        self.assertIn("did not arrive whole: Broken pipe", process.stderr.read().decode())

    def test_a_trace_into_a_closed_pipe_is_told_and_the_report_is_whole(self):
        there, here = os.pipe()
        os.close(there)
        result = subprocess.run([self.program, "print", "j.json", "--trace", "-"],
                                cwd=self.folder, stdout=here, stderr=subprocess.PIPE, timeout=60,
                                check=False)
        os.close(here)
        self.assertEqual(result.returncode, 3)
        self.assertIn("the trace is not whole", result.stderr.decode())
        self.assertEqual((self.folder / "out.prn").read_bytes(), REPORT)

    def test_a_file_that_grows_beyond_the_limit_is_removed(self):
        self.write_job(details=[{"N": "x" * 60}] * 4000)
        result = subprocess.run(
            [self.program, "print", "j.json"], cwd=self.folder, capture_output=True, timeout=60,
            check=False,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (10000, 10000)))
        self.assertEqual(result.returncode, 3)
        self.assertIn("tarvordp: out.prn was not whole and was removed", result.stderr.decode())
        self.assertFalse(self.has("out.prn"))

    def test_an_interrupted_drawing_leaves_no_half_file(self):
        (self.folder / "long.prn").write_bytes((b"x" * 80 + b"\r\n") * 60 * 5000)
        (self.folder / "v.pdf").write_bytes(b"an earlier one")
        for option, name in (("--pdf", "v.pdf.part"), ("--png", "v-3.png")):
            with self.subTest(option), subprocess.Popen(
                    [self.program, "view", "long.prn", "--profile", "epson-9pin", option,
                     "v.pdf" if option == "--pdf" else "v"],
                    cwd=self.folder, stderr=subprocess.PIPE) as process:
                self.addCleanup(process.kill)
                file = self.folder / name
                for _ in range(60000):
                    if process.poll() is not None or file.exists() and file.stat().st_size > 0:
                        break
                    time.sleep(0.001)
                process.terminate()
                self.assertEqual(process.wait(60), 1)
                self.assertIn("interrupted", process.stderr.read().decode().lower())
                self.assertEqual((self.folder / "v.pdf").read_bytes(), b"an earlier one")
                self.assertEqual(list(self.folder.glob("*.part")), [])
                for picture in self.folder.glob("v-*.png"):
                    self.assertTrue(picture.read_bytes().endswith(b"IEND\xaeB`\x82"), picture)


def waiting(pipe):
    """The bytes that can be read at once."""
    return struct.unpack("i", fcntl.ioctl(pipe, termios.FIONREAD, b"\0" * 4))[0]


def rest_of(pipe):
    pieces = []
    while piece := os.read(pipe, 65536):
        pieces.append(piece)
    return b"".join(pieces)


if __name__ == "__main__":
    Process.program = str(pathlib.Path(sys.argv[1]).resolve())
    unittest.main(argv=sys.argv[:1], verbosity=2)

#!/usr/bin/env python3
"""Runs the demonstration and reads what it printed: amounts are added up from the printed lines and
compared with the database, page by page, so nothing is taken from the library's own word.

    test_demo.py TARVORDP FOLDER
"""
import os
import pathlib
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(__file__).resolve().parents[2]
HERE = pathlib.Path(__file__).resolve().parent
SAMPLES = PROJECT / "samples/trading"
DATABASE = SAMPLES / "trading.sqlite"
AMOUNT = r"-?[\d.]+,\d\d"


def cents(text):
    return int(text.replace(".", "").replace(",", ""))


class Demo(unittest.TestCase):
    program = None
    folder = None

    @classmethod
    def setUpClass(cls):
        cls.result = subprocess.run([PROJECT / "tools/dev/demo.sh", cls.program, cls.folder],
                                    stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                    timeout=240, check=False)
        cls.base = sqlite3.connect(f"file:{DATABASE}?mode=ro", uri=True)

    @classmethod
    def tearDownClass(cls):
        cls.base.close()

    def one(self, query, *parameters):
        return self.base.execute(query, parameters).fetchone()[0]

    def pages_of(self, printed):
        """The pages as lists of lines, read from the bytes alone."""
        data = (self.folder / printed).read_bytes()
        data = re.sub(rb"\x1bA\x01[\r\n]*\x1b2", b"", data)  # a skip of points is no line
        data = re.sub(rb"\x1b[W-].|\x1b[@EFPM245]|\x1bA.|[\x0f\x12\r]", b"", data, flags=re.DOTALL)
        return [page.split("\n") for page in data.decode("cp437").split("\f")[:-1]]

    def test_it_ends_well_and_says_what_it_did_in_five_lines(self):
        self.assertEqual(self.result.returncode, 0, self.result.stderr)
        said = self.result.stdout.rstrip("\n").split("\n\n")[-1].split("\n")
        self.assertEqual(len(said), 5, said)

    def test_it_shows_the_first_page(self):
        for words in ("FACTURA Nº 00001003", "D i s t r i b u i d o r a", "Descripción"):
            self.assertIn(words, self.result.stdout)
        self.assertNotIn("TOTAL     Bs.", self.result.stdout)

    def check_carried(self, pages, amounts_of, first_carried="0,00"):
        """VIENEN is the last page's VAN, and VAN is VIENEN and the page's own amounts."""
        carried = cents(first_carried)
        for number, page in enumerate(pages, start=1):
            whole = "\n".join(page)
            brought = re.search(rf"Vienen Bs\.\s*({AMOUNT})", whole)
            if number == 1:
                self.assertIsNone(brought, "the first page brings nothing forward")
            else:
                self.assertEqual(cents(brought[1]), carried, f"VIENEN on page {number}")
            carried += sum(amounts_of(page))
            if number < len(pages):
                on = re.search(rf"Van Bs\.\s*({AMOUNT})", whole)
                self.assertEqual(cents(on[1]), carried, f"VAN on page {number}")
        return carried

    def test_the_invoice_adds_up_page_by_page(self):
        pages = self.pages_of("invoice.prn")
        self.assertEqual(len(pages), 4)

        def amounts(page):
            lines = [re.match(rf" *(\d+) A-\d{{4}} .* ({AMOUNT}) +({AMOUNT})$", line)
                     for line in page]
            return [cents(line[3]) for line in lines if line]

        total = self.check_carried(pages, amounts)
        net = self.one("SELECT SUM(cantidad * precio) FROM renglones WHERE factura = 1003")
        self.assertEqual(total, net)
        last = "\n".join(pages[-1])
        self.assertEqual(cents(re.search(rf"Subtotal  Bs\.\s*({AMOUNT})", last)[1]), net)
        self.assertEqual(cents(re.search(rf"TOTAL     Bs\.\s*({AMOUNT})", last)[1]),
                         net + (net * 16 + 50) // 100)
        self.assertNotIn("Van Bs.", last)
        numbers = re.findall(r"(?m)^ *(\d+) A-\d{4} ", "\n".join("\n".join(p) for p in pages))
        self.assertEqual([int(n) for n in numbers], list(range(1, 121)))

    def test_no_record_of_the_invoice_is_split_from_its_note(self):
        for page in self.pages_of("invoice.prn"):
            lines = [line for line in page if re.match(r" *\d+ A-\d{4} | {14}\w", line)]
            if lines:
                self.assertRegex(lines[0], r"^ *\d+ A-\d{4} ")

    def test_the_ledger_has_every_movement_and_adds_up(self):
        pages = self.pages_of("ledger.prn")
        self.assertGreater(len(pages), 200)

        def amounts(page):
            lines = [re.match(rf" *(\d+) \d\d/\d\d/\d{{4}} .* ({AMOUNT}) +({AMOUNT})$", line)
                     for line in page]
            return [cents(line[2]) for line in lines if line]

        total = self.check_carried(pages, amounts)
        self.assertEqual(total, self.one("SELECT SUM(cantidad * costo) FROM movimientos"))
        printed = sum(len(amounts(page)) for page in pages)
        self.assertEqual(printed, self.one("SELECT COUNT(*) FROM movimientos"))

    def test_the_payroll_receipt_has_two_sheets_with_the_amount_of_the_database(self):
        net = self.one("SELECT e.sueldo / 2 + horas_extra + bono - seguro - vivienda - prestamo "
                       "FROM recibos JOIN empleados e ON e.cedula = empleado WHERE numero = 506")
        name = self.one("SELECT e.nombre FROM recibos JOIN empleados e ON e.cedula = empleado "
                        "WHERE numero = 506")
        (front,), (back,) = self.pages_of("payroll.prn"), self.pages_of("payroll.prn.2")
        self.assertEqual(cents(re.search(rf"Neto a cobrar Bs\.\s*({AMOUNT})", "\n".join(front))[1]),
                         net)
        self.assertIn(f"Trabajador: {name} ", "\n".join(front))
        self.assertIn(f"Yo, {name}, titular", "\n".join(back))

    def text_pages(self, printed):
        """The pages as the program's own text form has them."""
        text = subprocess.run([self.program, "view", self.folder / printed, "--profile",
                               "epson-9pin", "--text"], capture_output=True, text=True, timeout=120,
                              check=True).stdout
        return [page.rstrip("\n").split("\n") for page in text.rstrip("\f\n").split("\f")]

    def test_the_text_form_gives_back_the_lines_that_were_printed(self):
        def without_blanks(pages):
            return ["\n".join(line.rstrip() for line in page).rstrip("\n") for page in pages]

        for printed in ("invoice.prn", "payroll.prn", "payroll.prn.2", "ledger.prn"):
            with self.subTest(printed):
                self.assertEqual(without_blanks(self.text_pages(printed)),
                                 without_blanks(self.pages_of(printed)))

    def test_the_pages_are_those_that_somebody_has_looked_at(self):
        for printed, pages in (("invoice.prn", 4), ("payroll.prn", 1), ("payroll.prn.2", 1),
                               ("ledger.prn", 2)):
            with self.subTest(printed):
                text = "\f".join("\n".join(page) + "\n"
                                 for page in self.text_pages(printed)[:pages])
                golden = HERE / "golden" / f"{printed}.txt"
                if os.environ.get("TARVO_UPDATE_GOLDENS") == "1":
                    golden.write_text(text, "utf-8")
                    self.fail(f"{golden} was written anew: look at it, and run again")
                self.assertEqual(text, golden.read_text("utf-8"))

    def test_there_are_pictures_of_the_pages(self):
        names = sorted(path.name for path in self.folder.iterdir())
        self.assertEqual(names, ["invoice-1.png", "invoice-2.png", "invoice-3.png", "invoice-4.png",
                                 "invoice.pdf", "invoice.prn", "ledger.pdf", "ledger.prn",
                                 "payroll-back-1.png", "payroll-back.pdf", "payroll-front-1.png",
                                 "payroll-front.pdf", "payroll.prn", "payroll.prn.2"])
        for name in names:
            if name.endswith(".png"):
                self.assertEqual((self.folder / name).read_bytes()[:8], b"\x89PNG\r\n\x1a\n", name)

    def test_the_pdfs_have_as_many_pages_as_were_printed(self):
        if shutil.which("pdfinfo") is None:
            self.skipTest("pdfinfo is not installed")
        for name, pages in (("invoice", 4), ("payroll-front", 1), ("payroll-back", 1),
                            ("ledger", len(self.pages_of("ledger.prn")))):
            said = subprocess.run(["pdfinfo", self.folder / f"{name}.pdf"], capture_output=True,
                                  text=True, timeout=60, check=True).stdout
            self.assertEqual(int(re.search(r"(?m)^Pages:\s*(\d+)", said)[1]), pages, name)

    def test_the_templates_are_clean(self):
        templates = sorted((SAMPLES / "plantillas").glob("*.ID"))
        self.assertEqual(len(templates), 4)
        for template in templates:
            result = subprocess.run([self.program, "check", template, "--profile", "epson-9pin"],
                                    capture_output=True, text=True, timeout=60, check=False)
            self.assertEqual((result.returncode, result.stdout), (0, ""), template.name)

    def test_the_database_is_what_its_maker_makes(self):
        with tempfile.TemporaryDirectory() as folder:
            made = os.path.join(folder, "made.sqlite")
            subprocess.run([sys.executable, SAMPLES / "make_database.py", made], check=True,
                           timeout=120)
            again = sqlite3.connect(made)
            self.assertEqual(list(again.iterdump()), list(self.base.iterdump()))
            again.close()


if __name__ == "__main__":
    Demo.program, Demo.folder = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    unittest.main(argv=sys.argv[:1], verbosity=2)

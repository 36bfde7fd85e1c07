"""Pages printed on a queue of a real print server, by Windows' drawing: read back from the PostScript
that comes out, every character is there, in its column and its row.

The server's queue knows Letter paper only.  So the wide pages come out smaller, lying, and complete.
"""
import re
import shutil
import subprocess
import xml.etree.ElementTree as XML

import script_test
from script_test import Failure, SKIPPED, Skip, TESTS, expect_equal
from test_cups import print_server, private_cups

# Points: a row's height and a column's width in the pages' own size, and the first row's baseline
# below the upper margin.
ROW, COLUMN, BASELINE = 229 / 20, 4.8, 8.1
MARGIN = 18
TOLERANCE = 1.01  # what is read back is in whole points


def expected_rows(columns, count):
    rows = []
    for row in range(count):
        text = list(("i" if row % 2 == 0 else "W") * columns)
        number = str(1000 + row)
        text[0:5] = number + " "
        text[50:56] = " Ñandú"
        text[-5:] = " " + number
        rows.append("".join(text))
    return rows


class Upright:
    """Where a character of a page stands on the paper, from its left upper corner."""
    scale = 1

    def place(self, row, column):
        return (MARGIN + column * COLUMN, MARGIN + BASELINE + row * ROW)


class Lying:
    """On a Letter sheet that lies; positions are still those of the upright one."""
    # 1188 points between the margins come to what the printer can print of a lying sheet's 792.
    scale = 756 / 1188

    def place(self, row, column):
        return (MARGIN + self.scale * (BASELINE + row * ROW),
                792 - MARGIN - self.scale * column * COLUMN)


def printed_pages(job):
    """The pages' characters in the order in which they are drawn, each with its place."""
    result = subprocess.run(
        ["gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=txtwrite", "-dTextFormat=0",
         "-o", "-", job], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, check=True)
    text = result.stdout.decode("utf-8")
    pages = []
    for page in XML.fromstring(f"<job>{text}</job>").iter("page"):
        characters = []
        for character in page.iter("char"):
            x, y, *_ = (float(number) for number in character.get("bbox").split())
            characters.append((character.get("c").replace("\xa0", " "), x, y))
        pages.append(characters)
    return pages


def expect_page(where, rows, layout, characters):
    expect_equal(f"{where}: characters", sum(len(row) for row in rows), len(characters))
    found = iter(characters)
    for number, row in enumerate(rows):
        for column, expected in enumerate(row):
            character, x, y = next(found)
            if character != expected:
                raise Failure(f"{where}: row {number}, column {column} has {character!r} "
                              f"instead of {expected!r}")
            right_x, right_y = layout.place(number, column)
            if abs(x - right_x) > TOLERANCE or abs(y - right_y) > TOLERANCE:
                raise Failure(f"{where}: row {number}, column {column} is at {x}, {y} instead of "
                              f"{right_x:.1f}, {right_y:.1f}")


def paper_of(job):
    head = job.read_bytes()[:3000].decode("latin-1")
    orientation = re.search(r"^%%Orientation: (\w+)", head, re.MULTILINE)
    return orientation.group(1) if orientation else "(none)"


def test(test):
    if shutil.which("gs") is None:
        raise Skip("gs (ghostscript) is not installed")
    jobs = test.subfolder("jobs")
    with print_server(jobs) as socket:
        result = subprocess.run(
            [TESTS / "equipment/wine/run.sh", test.bits, "--timeout", "60", "--success", "42",
             "--cups", socket, "--display", "--", test.library.parent / "printed_pages.exe", "rawq"],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
            check=False)
        if result.returncode == SKIPPED:
            raise Skip(result.stdout.strip())
        expect_equal(f"exit code; {result.stdout}", 0, result.returncode)
        private_cups("wait", jobs, "4")
        expect_equal("the jobs' names", ["Relación nº 1", "Hoja ancha", "Sin filas", "Desde la ventana"],
                     private_cups("job_names", jobs).splitlines())

    first, wide, empty, chosen = (jobs / f"job-{number}.prn" for number in (1, 2, 3, 4))
    rows = expected_rows(120, 70)
    pages = printed_pages(first)
    expect_equal("pages of the first job", 2, len(pages))
    expect_page("first page", rows[:66], Upright(), pages[0])
    expect_page("second page", rows[66:], Upright(), pages[1])
    expect_equal("paper of the first job", "Portrait", paper_of(first))

    pages = printed_pages(wide)
    expect_equal("pages of the wide job", 1, len(pages))
    expect_page("wide page", expected_rows(247, 66), Lying(), pages[0])
    expect_equal("paper of the wide job", "Landscape", paper_of(wide))

    pages = printed_pages(empty)
    expect_equal("a report without rows", [[]], pages)

    rows = expected_rows(120, 250)
    pages = printed_pages(chosen)
    expect_equal("pages that were asked for", 2, len(pages))
    expect_page("page 2", rows[66:132], Upright(), pages[0])
    expect_page("page 3", rows[132:198], Upright(), pages[1])


if __name__ == "__main__":
    script_test.run(test)

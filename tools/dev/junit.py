#!/usr/bin/env python3
"""Counts the outcomes in a JUnit file written by ctest.

usage: junit.py FILE CTEST_EXIT_CODE

Prints "PASSED FAILED SKIPPED" and, on stderr, one line with the reason for each skipped test.
A GoogleTest program that ctest knows as one test counts with all its tests.  A test that did not
run counts as failed unless it said itself that it cannot run; and a ctest run that failed has at
least one failure.
"""
import re
import sys
import xml.etree.ElementTree as ElementTree


def gtest_counts(output):
    """The counts of a GoogleTest program's closing lines, or None."""
    found = {}
    for word in ("PASSED", "FAILED", "SKIPPED"):
        match = re.findall(r"^\[ +%s +\] (\d+) tests?\b" % word, output, re.MULTILINE)
        if match:
            found[word] = int(match[-1])
    if "PASSED" not in found:
        return None
    return [found.get(word, 0) for word in ("PASSED", "FAILED", "SKIPPED")]


def case_counts(case):
    """One test of ctest: its [passed, failed, skipped], and why it was skipped."""
    output = case.findtext("system-out") or ""
    status = case.get("status")
    skipped = case.find("skipped")
    said_so = skipped is not None and (skipped.get("message") or "").startswith("SKIP_")
    inner = gtest_counts(output)
    if status == "run":
        counts = inner or [1, 0, 0]
    elif status == "disabled" or said_so:
        counts = inner if inner and inner[2] else [0, 0, 1]
    else:
        counts = [0, 1, 0]
        if inner and inner[1]:
            counts = inner
    return counts, reason(output) if counts[2] else ""


def reason(output):
    """What a skipped test says: the text after "Skipped", else its first line."""
    lines = [line.strip() for line in output.splitlines() if line.strip()]
    for number, line in enumerate(lines):
        if re.search(r": Skipped$|^Skipped$", line) and number + 1 < len(lines):
            return lines[number + 1]
    return lines[0] if lines else "no reason given"


def main(path, exit_code):
    total = [0, 0, 0]
    for case in ElementTree.parse(path).getroot().iter("testcase"):
        counts, why = case_counts(case)
        total = [a + b for a, b in zip(total, counts)]
        if why:
            print("  skipped: %s: %s" % (case.get("name"), why), file=sys.stderr)
    if exit_code != 0 and total[1] == 0:
        total[1] = 1
    print(*total)


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]))

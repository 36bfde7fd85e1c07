#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a build, in parallel.

usage: tidy.py BUILD_DIRECTORY [PATH_PART...]

Which checks: .clang-tidy.  A source that was found clean is not looked at again until it, a header
of this project that it includes, its compiler options or the checks change; what was found clean
is remembered in BUILD_DIRECTORY/tidy.  Exit code 1 when something was found.
"""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
ROOMS = ("src", "services", "tests", "tools", "samples")
VERSION = "1"


def entries(build):
    """The compile commands of the project's own sources, by source."""
    found = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["directory"], entry["file"]).resolve()
        if source.is_relative_to(ROOT) and source.relative_to(ROOT).parts[0] in ROOMS:
            found.setdefault(source, entry)
    return found


def included_headers(build):
    """By object file, the project's files that it was compiled from, as ninja recorded them."""
    listing = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True,
                             check=True).stdout
    headers, current = {}, None
    for line in listing.splitlines():
        if line.startswith(" "):
            path = (build / line.strip()).resolve()
            if path.is_relative_to(ROOT):
                headers[current].append(path)
        elif ": #deps" in line:
            current = line.split(": #deps")[0]
            headers[current] = []
    return headers


class Fingerprints:
    """What a source's result depends on, as one number; files are read once."""

    def __init__(self, build):
        self.headers = included_headers(build)
        self.contents = {}
        version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True)
        self.common = VERSION.encode() + version.stdout + (ROOT / ".clang-tidy").read_bytes()

    def content(self, path):
        if path not in self.contents:
            self.contents[path] = hashlib.sha256(path.read_bytes()).digest()
        return self.contents[path]

    def of(self, source, entry):
        """None when it is not known what the source includes."""
        words = shlex.split(entry["command"])
        output = words[words.index("-o") + 1] if "-o" in words else None
        if output not in self.headers:
            return None
        mix = hashlib.sha256(self.common + entry["command"].encode())
        for path in sorted({source, *self.headers[output]}):
            mix.update(os.fsencode(path) + self.content(path))
        return mix.hexdigest()


def check(build, source):
    command = ["clang-tidy", "-p", str(build), "--quiet",
               "--extra-arg=-Wno-unknown-warning-option", str(source)]
    result = subprocess.run(command, capture_output=True, text=True, cwd=ROOT)
    if result.returncode == 0:
        return ""
    return result.stdout or result.stderr or shlex.join(command)


def main(build, parts):
    remembered = build / "tidy"
    remembered.mkdir(exist_ok=True)
    prints = Fingerprints(build)
    work, clean = {}, 0
    for source, entry in entries(build).items():
        if parts and not any(part in str(source.relative_to(ROOT)) for part in parts):
            continue
        mark = prints.of(source, entry)
        if mark and (remembered / mark).exists():
            clean += 1
        else:
            work[source] = mark
    complaints = 0
    # The large ones first, so that none is left to run alone at the end.
    order = sorted(work, key=lambda source: -source.stat().st_size)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for source, text in zip(order, pool.map(lambda source: check(build, source), order)):
            if text:
                complaints += 1
                print(text.strip())
            elif work[source]:
                (remembered / work[source]).touch()
    print("clang-tidy: %d sources with complaints, %d clean, %d unchanged and clean before" %
          (complaints, len(work) - complaints, clean))
    if not work and not clean:
        print("clang-tidy: no sources found", file=sys.stderr)
        return 1
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), sys.argv[2:]))

#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a build, in parallel.

usage: tidy.py [--analyze] BUILD_DIRECTORY [PATH_PART...]

Which checks: .clang-tidy; with --analyze also the path-sensitive ones (clang-analyzer-*), except for
tests.  A source that was found clean is not looked at again until it, a header of this project that
it includes, its compiler options or the checks change; what was found clean is remembered in
BUILD_DIRECTORY/tidy.  Exit code 1 when something was found.

Most of the time goes into the headers, so sources of one directory are looked at together.  Only
when such a group gives complaints (two sources may just use one name) is it taken apart, and what is
reported is what a source gives alone.
"""
import argparse
import concurrent.futures
import functools
import hashlib
import itertools
import json
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
ROOMS = ("src", "services", "tests", "tools", "samples", "fuzz")
LARGEST_GROUP = 8


def without_precompiled_headers(words):
    """They are the other compiler's, and the sources include what they need."""
    kept = list(words)
    for place in reversed(range(len(words) - 1)):
        if words[place] == "-include" and "cmake_pch" in words[place + 1]:
            del kept[place:place + 2]
    return [word for word in kept if word != "-Winvalid-pch"]


class Source:
    """A source of the project and how it is compiled."""

    def __init__(self, path, entry):
        self.path = path
        self.room = path.relative_to(ROOT).parts[0]
        self.directory = entry["directory"]
        words = shlex.split(entry["command"])[1:]
        self.output = words.pop(words.index("-o") + 1) if "-o" in words else None
        words = without_precompiled_headers(words)
        self.options = [word for word in words if word not in ("-o", "-c", entry["file"])]


def sources(build, parts):
    """The project's own sources in this build, those with one of the parts in their path; a part
    that ends in a slash is a folder that the path begins with."""
    def wanted(name):
        return not parts or any(
            name.startswith(part) if part.endswith("/") else part in name for part in parts)

    found = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        path = pathlib.Path(entry["directory"], entry["file"]).resolve()
        if not path.is_relative_to(ROOT) or path.is_relative_to(build):
            continue
        name = str(path.relative_to(ROOT))
        if name.split("/")[0] in ROOMS and wanted(name):
            found.setdefault(path, Source(path, entry))
    return [found[path] for path in sorted(found)]


@functools.lru_cache
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


class Memory:
    """Which sources were found clean, by what the result depends on; files are read once."""

    def __init__(self, build, checks):
        self.place = build / "tidy"
        self.place.mkdir(exist_ok=True)
        self.headers = included_headers(build)
        self.contents = {}
        version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True)
        self.common = version.stdout + (ROOT / ".clang-tidy").read_bytes() + checks.encode()

    def content(self, path):
        if path not in self.contents:
            # The build's notes may name a header that has gone since.
            content = path.read_bytes() if path.exists() else b"gone"
            self.contents[path] = hashlib.sha256(content).digest()
        return self.contents[path]

    def mark(self, source):
        """None when it is not known what the source includes."""
        if source.output not in self.headers:
            return None
        mix = hashlib.sha256(self.common + shlex.join(source.options).encode())
        for path in sorted({source.path, *self.headers[source.output]}):
            mix.update(os.fsencode(path) + self.content(path))
        return self.place / mix.hexdigest()

    def is_clean(self, source):
        mark = self.mark(source)
        return mark is not None and mark.exists()

    def remember_clean(self, source):
        mark = self.mark(source)
        if mark is not None:
            mark.touch()


class Tidy:
    """clang-tidy for one source, or for some at once that are compiled alike."""

    def __init__(self, place, checks):
        self.place = place
        self.checks = checks

    def run(self, path, model, checks):
        command = ["clang-tidy", "--quiet", "--checks=" + checks, str(path), "--", *model.options,
                   "-Wno-unknown-warning-option", "-Wno-error"]
        result = subprocess.run(command, capture_output=True, text=True, cwd=model.directory)
        if result.returncode == 0:
            return ""
        return result.stdout.strip() or result.stderr.strip() or shlex.join(command)

    def complaints(self, group):
        """By source, what clang-tidy says; "" for a clean one."""
        if len(group) == 1:
            return {group[0]: self.run(group[0].path, group[0], self.checks)}
        with tempfile.NamedTemporaryFile("w", dir=self.place, suffix=".cpp") as together:
            together.writelines('#include "%s"\n' % source.path for source in group)
            together.flush()
            said = self.run(together.name, group[0], self.checks + ",-bugprone-suspicious-include")
        if not said:
            return {source: "" for source in group}
        middle = len(group) // 2
        return {**self.complaints(group[:middle]), **self.complaints(group[middle:])}


def groups(work, analyze):
    """Sources of one directory with the same options; the analysis looks at the main file only."""
    def alike(source):
        return str(source.path.parent), source.directory, source.options

    for _, members in itertools.groupby(sorted(work, key=alike), alike):
        members = list(members)
        alone = analyze and members[0].room != "tests"
        count = len(members) if alone else -(-len(members) // LARGEST_GROUP)
        for first in range(count):
            yield members[first::count]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--analyze", action="store_true")
    parser.add_argument("build", type=lambda path: pathlib.Path(path).resolve())
    parser.add_argument("parts", nargs="*")
    options = parser.parse_args()

    def checks(room):
        return "clang-analyzer-*" if options.analyze and room != "tests" else ""

    everything = sources(options.build, options.parts)
    memories = {room: Memory(options.build, checks(room)) for room in ROOMS}
    work = [source for source in everything if not memories[source.room].is_clean(source)]
    found = 0

    def look_at(group):
        room = group[0].room
        return Tidy(memories[room].place, checks(room)).complaints(group)

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for said in pool.map(look_at, sorted(groups(work, options.analyze), key=len, reverse=True)):
            for source, text in said.items():
                if text:
                    found += 1
                    print(text)
                else:
                    memories[source.room].remember_clean(source)
    print("clang-tidy: %d sources with complaints, %d clean, %d unchanged and clean before" %
          (found, len(work) - found, len(everything) - len(work)))
    if not everything:
        print("clang-tidy: no sources found", file=sys.stderr)
    return 1 if found or not everything else 0


if __name__ == "__main__":
    sys.exit(main())

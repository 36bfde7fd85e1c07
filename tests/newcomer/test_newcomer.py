#!/usr/bin/env python3
"""A newcomer's first minutes, on a Debian that has nothing yet.

    test_newcomer.py TEST PACKAGES FOLDER

PACKAGES is the folder with the Debian package, FOLDER the test's own.  Exit code 77: the test cannot
run here, and why.  Needs root, or sudo without a password, and a Debian mirror.
"""
import contextlib
import fcntl
import functools
import os
import pathlib
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import time

PROJECT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(PROJECT / "tests/equipment"))
from standalone_test import Failure, Skip, exit_code_of  # pylint: disable=wrong-import-position

EQUIPMENT = PROJECT / "tests/equipment/debian"
README = (PROJECT / "README.md").read_text("utf-8")
# For "./dev demo", when the packages it needs are there, on a machine that does nothing else.
DEMO_LIMIT_SECONDS = 300


def cache():
    default = pathlib.Path(os.environ.get("XDG_CACHE_HOME", pathlib.Path.home() / ".cache"))
    return pathlib.Path(os.environ.get("TARVO_CACHE", default / "libtarvordp"))


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


@contextlib.contextmanager
def alone():
    """One such test at a time: they share what is kept, and one of them is timed."""
    cache().mkdir(parents=True, exist_ok=True)
    with (cache() / "newcomer.lock").open("w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        yield


def empty_system():
    """A Debian that has nothing, made once for a recipe."""
    recipe = EQUIPMENT / "make_system.sh"
    system = cache() / f"empty-{output('cksum', recipe).split()[0]}"
    if system.is_dir():
        return system
    if not shutil.which("debootstrap"):
        raise Skip("debootstrap is not installed")
    for older in cache().glob("empty-*"):
        shutil.rmtree(older)
    unfinished = pathlib.Path(f"{system}.new")
    made = subprocess.run([recipe, output("dpkg", "--print-architecture").strip(), unfinished],
                          stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
    if made.returncode != 0:
        raise Skip("an empty Debian could not be made: " + (made.stdout + made.stderr)[-500:])
    unfinished.rename(system)
    return system


def files_of_a_clone():
    """The files that a clone of the project has; of a project without history, all but builds."""
    if (PROJECT / ".git").exists():
        return output("git", "-c", f"safe.directory={PROJECT}", "-C", PROJECT, "ls-files",
                      "-z").rstrip("\0").split("\0")
    return [path.name for path in PROJECT.iterdir() if path.name != "build"]


class Machine:
    """A copy of the empty system, with the test's files in it; it ends with the block."""

    def __init__(self, folder):
        self.root = folder / "machine"

    def __enter__(self):
        self.remove()
        self.root.parent.mkdir(parents=True, exist_ok=True)
        system = empty_system()
        try:
            subprocess.run(["cp", "-a", system, self.root], check=True)
        except BaseException:
            self.remove()
            raise
        return self

    def __exit__(self, *_):
        self.remove()

    def remove(self):
        shutil.rmtree(self.root, ignore_errors=True)

    def clone_project(self):
        clone = self.root / "root/project"
        clone.mkdir()
        files = clone / ".files"
        files.write_text("\0".join(files_of_a_clone()), "utf-8")
        packed = clone / ".packed"
        run = functools.partial(subprocess.run, check=True)
        run(["tar", "-C", PROJECT, "--null", "-T", files, "-cf", packed])
        run(["tar", "-C", clone, "--no-same-owner", "-xf", packed])
        files.unlink()
        packed.unlink()
        return clone

    def run(self, script):
        """What the shell script says on standard output; its failure is the test's."""
        result = subprocess.run([EQUIPMENT / "enter.sh", self.root, cache() / "archives",
                                 "sh", "-ec", script], stdin=subprocess.DEVNULL,
                                capture_output=True, text=True, errors="replace", check=False)
        if result.returncode != 0:
            raise Failure(f"{script}: exit code {result.returncode}\n"
                          f"{result.stdout[-3000:]}{result.stderr[-3000:]}")
        return result.stdout

    def bring_package_index_up_to_date(self):
        """A mirror that cannot be reached is nobody's fault."""
        try:
            self.run("apt-get update -qq -o APT::Update::Error-Mode=any")
        except Failure as failure:
            raise Skip(f"no Debian mirror can be reached: {failure}") from failure


def processor_seconds():
    """Of all processors, by programs that were started here and have ended."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def readme_commands():
    """The blocks of commands that a reader types after "./dev demo"."""
    return "".join(re.findall(r"(?ms)^```sh\n(.*?)^```$", README))


def expect(condition, what):
    if not condition:
        raise Failure(what)


def demo_on_an_empty_machine(machine, _):
    """As the README says, from nothing: what is needed is installed, built, and prints."""
    expect("\n```\n./dev demo\n```\n" in README, "the README begins with something else")
    project = machine.clone_project()
    machine.bring_package_index_up_to_date()
    machine.run("rm -rf /var/lib/apt/lists/*")
    machine.run("cd /root/project && . tools/dev/setup.sh && need native")
    started, busy_before = time.monotonic(), processor_seconds()
    said = machine.run("cd /root/project && ./dev demo")
    seconds = time.monotonic() - started
    alone_seconds = (processor_seconds() - busy_before) / len(os.sched_getaffinity(0))
    took = (f"./dev demo took {seconds:.0f} s, packages not counted; its processors' work alone is "
            f"{alone_seconds:.0f} s")
    print(took)
    expect(min(seconds, alone_seconds) < DEMO_LIMIT_SECONDS, took)
    expect(len(said.splitlines()) > 5 and said.splitlines()[-5].startswith("Printed from samples/trading/trading.sqlite"),
           f"these are not the demo's last five lines:\n{said[-800:]}")
    expect("FACTURA Nº 00001003" in said, "the invoice's first page is not shown")
    for name in ("invoice.prn", "invoice-1.png", "payroll.prn.2", "payroll-front.pdf",
                 "ledger.pdf"):
        expect((project / "build/demo" / name).stat().st_size > 100, f"{name} is no page")
    machine.run(f"cd /root/project\n{readme_commands()}")
    helped = machine.run("cd /root/project && ./dev help")
    for command in sorted(set(re.findall(r"\./dev ([a-z]+)", README)) - {"help"}):
        expect(re.search(rf"(?m)^  {command}\b", helped), f"./dev help does not know {command}")


def package_installed_by_apt(machine, packages):
    """The package brings what it needs, prints, and goes away again."""
    found = sorted(packages.glob("*.deb"))
    if not found:
        raise Skip("there is no Debian package: ./dev package makes it")
    expect(len(found) == 1, f"{packages}: {len(found)} Debian packages")
    shutil.copy(found[0], machine.root / "root")
    machine.bring_package_index_up_to_date()
    machine.run(f"apt-get install -qq -y /root/{shlex.quote(found[0].name)}")
    samples = "/usr/share/doc/tarvordp/samples/trading"
    said = machine.run("cd /root; tarvordp --version; tarvordp profiles >/dev/null; "
                       f"tarvordp print {samples}/invoice.json --printer file:i.prn --yes; "
                       "tarvordp view i.prn --profile epson-9pin --text --png i --pdf i.pdf")
    expect(said.startswith("tarvordp "), "no version is told")
    expect("FACTURA Nº 00001003" in said, f"this is no invoice:\n{said[:500]}")
    for name in ("i.prn", "i-1.png", "i.pdf"):
        expect((machine.root / "root" / name).stat().st_size > 100, f"{name} is no page")
    # The library, with what its package suggests.
    machine.run("apt-get install -qq -y g++ cmake make pkg-config libcups2-dev && "
                "cd /root && cmake -S /usr/share/doc/tarvordp/samples/cpp-native -B client && "
                "cmake --build client && "
                "client/invoice file:client.prn /usr/share/doc/tarvordp/samples/templates")
    expect((machine.root / "root/client.prn").stat().st_size > 100, "the client printed nothing")
    machine.run("apt-get remove -qq -y tarvordp && ! command -v tarvordp")


TESTS = {
    "DemoOnAnEmptyMachine": demo_on_an_empty_machine,
    "PackageInstalledByApt": package_installed_by_apt,
}


def as_root():
    """Starts this program again as root, when that needs no password."""
    if os.geteuid() == 0:
        return
    cache().mkdir(parents=True, exist_ok=True)
    command = ["sudo", "-n", f"TARVO_CACHE={cache()}", sys.executable]
    if not shutil.which("sudo") or subprocess.run([*command, "-c", ""], capture_output=True,
                                                  check=False).returncode != 0:
        raise Skip("an empty Debian can only be made by root")
    os.execvp("sudo", [*command, *sys.argv])


def run_test():
    name, packages, folder = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    as_root()
    with alone(), Machine(folder.resolve()) as machine:
        TESTS[name](machine, packages.resolve())


if __name__ == "__main__":
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    sys.exit(exit_code_of(run_test))

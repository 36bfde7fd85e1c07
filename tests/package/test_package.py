#!/usr/bin/env python3
"""Installs what "./dev package" made and uses it, as those would who get nothing else.

    test_package.py TEST PACKAGES FOLDER

PACKAGES is the folder of the zip and the Debian package, FOLDER the test's own.  Exit code 77: the
test cannot run here, and why.
"""
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import zipfile

PROJECT = pathlib.Path(__file__).resolve().parents[2]
HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(PROJECT / "tests/windows/scripts"))
sys.path.insert(0, str(PROJECT / "tests/equipment"))
import script_test  # pylint: disable=wrong-import-position
from standalone_test import (  # pylint: disable=wrong-import-position
    SKIPPED, Failure, Skip, exit_code_of)

SERVERS = ("LibTarvoRdpCI_2402", "LibTarvoCI_2402")


def run(*command, **options):
    """The program's standard output.  Its failure is the test's."""
    result = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL,
                            capture_output=True, text=True, errors="replace", timeout=240,
                            check=False, **options)
    if result.returncode == SKIPPED:
        raise Skip((result.stdout + result.stderr).strip())
    if result.returncode != 0:
        raise Failure(f"{shlex.join(str(w) for w in command)}: exit code {result.returncode}\n"
                      f"{result.stdout}{result.stderr}")
    return result.stdout


def expect_equal(what, expected, actual):
    if expected != actual:
        raise Failure(f"{what}\n  expected: {expected!r}\n  actual:   {actual!r}")


class Packages:
    def __init__(self, made, folder):
        self.made = made
        self.folder = folder
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)

    def one(self, pattern):
        found = sorted(self.made.glob(pattern))
        if len(found) != 1:
            raise Failure(f"{self.made}/{pattern}: {len(found)} files")
        return found[0]

    def unzipped(self):
        """The zip's one folder, unpacked."""
        with zipfile.ZipFile(self.one("*-windows.zip")) as archive:
            archive.extractall(self.folder)
        return next(path for path in self.folder.iterdir() if path.is_dir())

    def installed(self):
        """The root of a system of which the Debian package is the whole.  It has no scripts that
        would run, so nobody need be in that root."""
        root = self.folder / "root"
        database = root / "var/lib/dpkg"
        (database / "updates").mkdir(parents=True)
        (database / "info").mkdir()
        (database / "status").touch()
        command = ["dpkg", f"--root={root}", "--force-depends", "--force-not-root",
                   "--force-script-chrootless", "--log=/dev/null", "-i", self.one("*.deb")]
        run(*command)
        return root


# --- The zip.

def zip_holds_what_it_should(packages):
    root = packages.unzipped()
    for folder in ("x64", "x86"):
        expect_equal(folder, sorted(f"{server}.{kind}" for server in SERVERS
                                    for kind in ("dll", "manifest", "tlb")),
                     sorted(path.name for path in (root / folder).iterdir()))
    expect_equal("the first level",
                 ["README.txt", "docs", "include", "profiles", "register.cmd", "samples",
                  "unregister.cmd", "x64", "x86"], sorted(path.name for path in root.iterdir()))
    for name in ("docs/clients-guide.md", "docs/reference.md", "docs/template-language.en.md",
                 "docs/lenguaje-de-plantillas.es.md", "profiles/epson-9pin.json",
                 "samples/vbscript/invoice.vbs", "include/LibTarvoRdpCI_2402.h"):
        if not (root / name).is_file():
            raise Failure(f"{name} is missing")
    for script in root.glob("*.cmd"):
        lines = script.read_bytes().split(b"\n")
        if not all(line.endswith(b"\r") for line in lines[:-1]):
            raise Failure(f"{script.name}: not every line ends as Windows' do")


def zip_holds_each_bitness(packages):
    root = packages.unzipped()
    for folder, machine in (("x64", 0x8664), ("x86", 0x014C)):
        for server in SERVERS:
            data = (root / folder / f"{server}.dll").read_bytes()
            header = int.from_bytes(data[0x3C:0x40], "little")
            expect_equal(f"{folder}/{server}.dll's machine", machine,
                         int.from_bytes(data[header + 4:header + 6], "little"))


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def script_client(packages, bits):
    """The package's own sample prints when its own script has registered the servers, and finds
    none any more when they are unregistered."""
    root = packages.unzipped()
    jobs = packages.folder / "jobs"
    wine = [PROJECT / "tests/equipment/wine/run.sh", str(bits), "--visible", packages.folder]

    def command(name):
        return f"wine cmd /c {shlex.quote(windows_path(root / name))}"

    sample = ["cscript", "//nologo", windows_path(root / "samples/vbscript/invoice.vbs"),
              "TarvoRaw", windows_path(root / "samples/templates")]
    run(*wine, "--dir", jobs, "--before", command("register.cmd"), "--", *sample)
    expect_printed_invoice((jobs / "job-1.prn").read_bytes())
    probe = packages.folder / "probe.vbs"
    probe.write_text('On Error Resume Next\r\n'
                     'Set made = CreateObject("LibTarvoRdpCI.clsUtilImp")\r\n'
                     'If Err.Number = 0 Then WScript.Quit 42\r\n'
                     'WScript.Quit 43\r\n', "ascii")
    run(*wine, "--success", "43", "--before", command("register.cmd"), "--before",
        command("unregister.cmd"), "--", "cscript", "//nologo", windows_path(probe))


def expect_printed_invoice(data):
    try:
        script_test.expect_golden("samples/golden/printed.txt", "the invoice", data)
    except script_test.Failure as failure:
        raise Failure(str(failure)) from failure


# --- The Debian package.

def depends_on_what_it_needs(packages):
    """Every library that the program is linked with comes from a package that it names."""
    fields = run("dpkg-deb", "-f", packages.one("*.deb"), "Package", "Version", "Depends")
    depends = re.findall(r"(?:Depends: |, )([a-z0-9.+-]+)", fields)
    program = packages.installed() / "usr/bin/tarvordp"
    needed = re.findall(r"NEEDED\s+(\S+)", run("objdump", "-p", program))
    for library in needed:
        paths = re.findall(rf"{re.escape(library)} .*=> (\S+)", run("/sbin/ldconfig", "-p"))
        owners = {owner for path in paths
                  for owner in re.findall(r"^([a-z0-9.+-]+)[:,]", owner_of(path))}
        if not owners & set(depends):
            raise Failure(f"{library} of {sorted(owners)} is none of the packages {depends}")


def owner_of(path):
    """What dpkg says of a file; it knows the place that a file was installed to, before links."""
    for name in (path, os.path.realpath(path), "/usr" + path, path.removeprefix("/usr")):
        result = subprocess.run(["dpkg", "-S", name], capture_output=True, text=True, check=False)
        if result.returncode == 0:
            return result.stdout
    return ""


def workbench_prints(packages):
    root = packages.installed()
    program = root / "usr/bin/tarvordp"
    job = root / "usr/share/doc/tarvordp/samples/trading/invoice.json"
    printed = packages.folder / "invoice.prn"
    run(program, "print", job, "--printer", f"file:{printed}", "--yes")
    text = run(program, "view", printed, "--profile", "epson-9pin", "--text")
    if "FACTURA Nº 00001003" not in text:
        raise Failure(f"this is no invoice:\n{text[:500]}")
    expect_equal("the version", "tarvordp 1.0.0\n", run(program, "--version"))


def library_by_cmake(packages):
    """The installed sample, built against the installed library."""
    samples = packages.installed() / "usr/share/doc/tarvordp/samples"
    build = packages.folder / "invoice"
    run("cmake", "-S", samples / "cpp-native", "-B", build, "-G", "Ninja",
        f"-DCMAKE_PREFIX_PATH={packages.folder}/root/usr")
    run("cmake", "--build", build)
    printed = packages.folder / "printed.prn"
    run(build / "invoice", f"file:{printed}", samples / "templates")
    expect_printed_invoice(printed.read_bytes())


def library_by_pkg_config(packages):
    root = packages.installed()
    places = [str(path) for path in root.glob("usr/lib/**/pkgconfig")]
    environment = {**os.environ, "PKG_CONFIG_PATH": ":".join(places)}
    flags = run("pkg-config", "--cflags", "--libs", "tarvordpci", env=environment).split()
    client = packages.folder / "client"
    run("g++", HERE / "client/main.cpp", "-o", client, *flags)
    printed = packages.folder / "printed.prn"
    run(client, printed)
    expect_equal("the printed bytes", b"A\xa4o nuevo\r\n  fin\r\n", printed.read_bytes())


def manual_and_completion(packages):
    root = packages.installed()
    manual = list(root.glob("usr/share/man/man1/tarvordp.1*"))
    expect_equal("manual pages", 1, len(manual))
    completion = root / "usr/share/bash-completion/completions/tarvordp"
    program = root / "usr/bin"
    script = (f". {shlex.quote(str(completion))}; PATH={shlex.quote(str(program))}:$PATH; "
              "COMP_WORDS=(tarvordp view x --profile ep); COMP_CWORD=4; _tarvordp; "
              'echo "${COMPREPLY[@]}"')
    expect_equal("the completion of --profile ep", "epson-9pin epson-24pin\n",
                 run("bash", "-c", script))


TESTS = {
    "ZipHoldsWhatItShould": zip_holds_what_it_should,
    "ZipHoldsEachBitness": zip_holds_each_bitness,
    "ScriptClient64": lambda packages: script_client(packages, 64),
    "ScriptClient32": lambda packages: script_client(packages, 32),
    "DebianPackageDependsOnWhatItNeeds": depends_on_what_it_needs,
    "InstalledWorkbenchPrints": workbench_prints,
    "InstalledLibraryByCMake": library_by_cmake,
    "InstalledLibraryByPkgConfig": library_by_pkg_config,
    "InstalledManualAndCompletion": manual_and_completion,
}


def run_test():
    name, made, folder = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    TESTS[name](Packages(made.resolve(), folder.resolve()))


if __name__ == "__main__":
    sys.exit(exit_code_of(run_test))

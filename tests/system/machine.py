"""A small Windows machine: a fresh Wine prefix whose drives are real folders."""

import functools
import os
import pathlib
import shutil
import subprocess

from operator_client import Operator, OperatorError

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAMS = pathlib.Path(os.environ.get("TAMBLIN_PROGRAMS", ROOT / "build" / "windows"))
# Whoever cleans up after the tests says where machines may stand.
MACHINES = pathlib.Path(os.environ.get("TAMBLIN_MACHINES", ROOT / "build" / "machines"))
TAMBLIN = PROGRAMS / "tamblin.exe"
OMBREL = PROGRAMS / "tests" / "system" / "ombrel.exe"
OPERATOR = PROGRAMS / "tests" / "system" / "operator.exe"


def discard(entry):
    """Deletes a file, a link, or a folder with all it holds, whatever its permissions are."""
    if entry.is_symlink() or not entry.is_dir():
        entry.unlink()
        return
    entry.chmod(0o755)
    for inner in entry.iterdir():
        discard(inner)
    entry.rmdir()


class Machine:
    """Drives C: and those named, and what runs on them. Nothing outside the prefix is in reach."""

    def __init__(self, folder, drives="d"):
        self.prefix = pathlib.Path(folder).absolute()
        self.started = []
        self.drives = "c" + drives
        self.command(ROOT / "tools" / "wine-prefix", self.prefix, *drives)
        self.copy_in(OPERATOR, Operator.PROGRAM)
        self.own = self.entries()

    @functools.cached_property
    def operator(self):
        """Serves for as long as the machine runs."""
        return Operator(self)

    def entries(self):
        return {entry for drive in self.drives for entry in self.path(drive + ":\\").iterdir()}

    def sweep(self):
        """Ends all programs and empties the drives, for the next test; false when that is impossible."""
        try:
            self.operator.ask("end-programs")
        except OperatorError:
            return False
        for entry in self.entries() - self.own:
            discard(entry)
        return True

    @staticmethod
    def command(*command):
        subprocess.run([str(part) for part in command], check=True, stdin=subprocess.DEVNULL)

    def path(self, name):
        """Where a path like "C:\\Tamblin\\tamb.ini" really lies."""
        drive, rest = name[0].lower(), name[2:]
        return self.prefix.joinpath(f"drive_{drive}", *[part for part in rest.split("\\") if part])

    def make_folder(self, name):
        folder = self.path(name)
        folder.mkdir(parents=True, exist_ok=True)
        return folder

    def write(self, name, data):
        target = self.path(name)
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(data)

    def read(self, name):
        return self.path(name).read_bytes()

    def copy_in(self, source, name):
        target = self.path(name)
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source, target)

    def tree(self, name):
        """What a folder holds: relative path ("a/b", folders end in "/") to bytes."""
        top = self.path(name)
        content = {}
        for path in sorted(top.rglob("*")):
            relative = path.relative_to(top).as_posix()
            if path.is_dir():
                content[relative + "/"] = b""
            else:
                content[relative] = path.read_bytes()
        return content

    def in_prefix(self, *command):
        return [str(ROOT / "tools" / "in-prefix"), str(self.prefix), *command]

    def start(self, program, *arguments, folder="C:\\", **options):
        """Starts a program; `folder` is its current folder."""
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(
            self.in_prefix("wine", program, *arguments), cwd=self.path(folder), **options
        )
        self.started.append(process)
        return process

    def stop(self):
        """Ends everything that runs on the machine."""
        subprocess.run(self.in_prefix("wineserver", "-k"), check=False, stdin=subprocess.DEVNULL)
        subprocess.run(self.in_prefix("wineserver", "-w"), check=False, stdin=subprocess.DEVNULL)
        for process in self.started:
            process.wait(timeout=300)

    def remove(self):
        self.stop()
        self.command(ROOT / "tools" / "discard-prefix", self.prefix)

"""A small Windows machine: a fresh Wine prefix whose drives are real folders."""

import os
import pathlib
import shutil
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAMS = pathlib.Path(os.environ.get("TAMBLIN_PROGRAMS", ROOT / "build" / "windows"))
# Whoever cleans up after the tests says where machines may stand.
MACHINES = pathlib.Path(os.environ.get("TAMBLIN_MACHINES", ROOT / "build" / "machines"))
TAMBLIN = PROGRAMS / "tamblin.exe"
OMBREL = PROGRAMS / "tests" / "system" / "ombrel.exe"
OPERATOR = PROGRAMS / "tests" / "system" / "operator.exe"


def discard(entry):
    """Deletes a file, a link, or a folder with all it holds."""
    if entry.is_dir() and not entry.is_symlink():
        shutil.rmtree(entry)
    else:
        entry.unlink()


class Machine:
    """Drives C: and those named, and what runs on them. Nothing outside the prefix is in reach."""

    def __init__(self, folder, drives="d"):
        self.prefix = pathlib.Path(folder).absolute()
        self.started = []
        self.command(ROOT / "tools" / "wine-prefix", self.prefix, *drives)

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

    @staticmethod
    def note_that_wine_did_not_come_up(why):
        """For the summary of the tests, as tools/wine-prefix does."""
        results = pathlib.Path(os.environ.get("TAMBLIN_RESULTS", ROOT / "build" / "results"))
        results.mkdir(parents=True, exist_ok=True)
        with (results / "wine-did-not-come-up.log").open("a") as log:
            log.write(why.replace("\n", " ") + "\n")

    def stop(self):
        """Ends everything that runs on the machine."""
        subprocess.run(self.in_prefix("wineserver", "-k"), check=False, stdin=subprocess.DEVNULL)
        subprocess.run(self.in_prefix("wineserver", "-w"), check=False, stdin=subprocess.DEVNULL)
        for process in self.started:
            process.wait(timeout=300)

    def remove(self):
        self.stop()
        self.command(ROOT / "tools" / "discard-prefix", self.prefix)

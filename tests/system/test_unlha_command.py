"""unlha as a command: unlha x "PATH" unpacks into the current folder, natively and on Windows."""

import os
import pathlib
import subprocess

import pytest

import lzh_packages
from machine import MACHINES, PROGRAMS, ROOT, Machine

NATIVE = pathlib.Path(os.environ.get("TAMBLIN_NATIVE_PROGRAMS", ROOT / "build" / "native")) / "unlha"

# The exit codes, which callers rely on.
DONE, BAD_COMMAND, CANNOT_OPEN, NOT_AN_ARCHIVE, UNKNOWN_METHOD, TRUNCATED = 0, 1, 2, 4, 6, 8
WRONG_CHECKSUM, FORBIDDEN_NAME, CANNOT_WRITE = 9, 10, 12


class NativeUnlha:
    def __init__(self, folder):
        self.folder = folder

    def command(self, *arguments):
        return [str(NATIVE), *arguments]

    def remove(self):
        pass


class WindowsUnlha:
    """On drive C: of a machine; the test's folder is C:\\Unpack."""

    def __init__(self):
        self.machine = Machine(MACHINES / f"unlha-{os.getpid()}", drives="")
        self.machine.copy_in(PROGRAMS / "unlha.exe", "C:\\unlha.exe")
        self.folder = self.machine.make_folder("C:\\Unpack")

    def command(self, *arguments):
        return self.machine.in_prefix("wine", "C:\\unlha.exe", *arguments)

    def remove(self):
        self.machine.remove()


class Unlha:
    """The command in a test's own two folders: archives lie in one, the other is the current one."""

    def __init__(self, program, archives, target):
        self.program = program
        self.archives = archives
        self.target = target
        for folder in [archives, target]:
            folder.mkdir()

    def run(self, *arguments):
        result = subprocess.run(
            self.program.command(*arguments),
            cwd=self.target,
            stdin=subprocess.DEVNULL,
            capture_output=True,
            timeout=300,
            check=False,
        )
        assert result.stdout == b""
        return result.returncode, result.stderr.decode("utf-8").replace("\r\n", "\n")

    def unpack(self, archive):
        """The archive is named as a user would, by a path that leads there from the current folder."""
        return self.run("x", os.path.join("..", self.archives.name, archive.name))

    def tree(self):
        return {
            path.relative_to(self.target).as_posix(): path.read_bytes()
            for path in self.target.rglob("*")
            if path.is_file()
        }


@pytest.fixture(scope="module")
def windows():
    program = WindowsUnlha()
    yield program
    program.remove()


@pytest.fixture(params=["native", "windows"])
def unlha(request, tmp_path):
    if request.param == "native":
        return Unlha(NativeUnlha(tmp_path), tmp_path / "書 庫", tmp_path / "表ソ能")
    program = request.getfixturevalue("windows")
    folder = program.folder / request.node.name.replace("[", " ").replace("]", "")
    folder.mkdir()
    return Unlha(program, folder / "書 庫", folder / "表ソ能")


def one_line(text, *parts):
    """One line that names the program and all the parts."""
    return text.startswith("unlha: ") and text.count("\n") == 1 and all(part in text for part in parts)


def test_unpacks_into_the_current_folder_and_says_nothing(unlha):
    archive = lzh_packages.archive(unlha.archives / "表 ソ.lzh", lzh_packages.JAPANESE)
    assert unlha.unpack(archive) == (DONE, "")
    assert unlha.tree() == {k: v for k, v in lzh_packages.JAPANESE.items() if not k.endswith("/")}


@pytest.mark.parametrize("arguments", [[], ["x"], ["l", "a.lzh"], ["x", "a.lzh", "b.lzh"]])
def test_other_commands_get_the_usage(unlha, arguments):
    code, text = unlha.run(*arguments)
    assert code == BAD_COMMAND and one_line(text, "usage: unlha x"), text


def test_an_archive_that_is_not_there(unlha):
    code, text = unlha.unpack(unlha.archives / "nowhere.lzh")
    assert code == CANNOT_OPEN and one_line(text, "cannot be opened"), text


def test_a_file_that_is_no_archive(unlha):
    archive = unlha.archives / "note.lzh"
    archive.write_bytes(b"This is a note and nothing else.\r\n" * 40)
    code, text = unlha.unpack(archive)
    assert code == NOT_AN_ARCHIVE and one_line(text, "not an LZH archive"), text


def test_what_is_wrong_is_said_with_the_entry(unlha):
    sound = lzh_packages.stored_entry("良い.txt", b"sound")
    broken = bytearray(lzh_packages.stored_entry("表\\ソ能.txt", b"damaged"))
    broken[-1] ^= 1
    archive = unlha.archives / "damaged.lzh"
    archive.write_bytes(sound + bytes(broken) + b"\0")
    code, text = unlha.unpack(archive)
    assert code == WRONG_CHECKSUM and one_line(text, "表", "ソ能.txt", "checksum"), text
    assert unlha.tree()["良い.txt"] == b"sound"


def test_an_unknown_method_is_named(unlha):
    archive = unlha.archives / "future.lzh"
    entry = bytearray(lzh_packages.stored_entry("new.txt", b"data").replace(b"-lh0-", b"-lh9-"))
    entry[1] = sum(entry[2 : 2 + entry[0]]) & 0xFF
    archive.write_bytes(bytes(entry) + b"\0")
    code, text = unlha.unpack(archive)
    assert code == UNKNOWN_METHOD and one_line(text, "new.txt", "-lh9-"), text


def test_an_archive_that_ends_too_early(unlha):
    archive = unlha.archives / "cut.lzh"
    archive.write_bytes(lzh_packages.stored_entry("long.txt", bytes(5000))[:3000])
    code, text = unlha.unpack(archive)
    assert code == TRUNCATED and one_line(text, "long.txt", "ends too early"), text


def test_names_that_lead_out_are_refused(unlha):
    archive = lzh_packages.hostile_archive(unlha.archives / "hostile.lzh", ["..\\evil.txt"])
    code, text = unlha.unpack(archive)
    assert code == FORBIDDEN_NAME and one_line(text, "evil.txt", "not allowed"), text
    assert not (unlha.target.parent / "evil.txt").exists() and unlha.tree() == {}


def test_a_name_that_a_folder_has_already(unlha):
    (unlha.target / "taken.txt").mkdir()
    archive = lzh_packages.hostile_archive(unlha.archives / "taken.lzh", ["taken.txt"])
    code, text = unlha.unpack(archive)
    assert code == CANNOT_WRITE and one_line(text, "taken.txt", "cannot be written"), text
    assert (unlha.target / "taken.txt").is_dir()

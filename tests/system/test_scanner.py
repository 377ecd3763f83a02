"""A virus scanner holds every new file: for a while, which costs time alone, or for longer than the
program waits, which ends a command, loses nothing, and lets the next try finish the job.

All tests use one running program, each its own characters."""

import itertools
import os

import pytest

import lzh_packages
from controls import wait_until
from hosts import install_by_hand
from machine import MACHINES, Machine
from names import MENU_ITEMS
from sandbox import HOST, PACKAGES, furnish
from scanner_client import Scanner
from test_faults import wait_report
from test_install import HOST_KAVALET, MERGED_KAVALET, as_tree, finish, install, kavalet_files, propose
from test_maintenance_check import RECYCLE_QUESTION, recycled
from test_maintenance_uninstall import uninstall, without
from test_maintenance_updates import HOST_DONE, HOST_QUESTION
from windows import CheckWindow, Window

EXIT = "Tamblin を終了してもよろしいですか？"
STAGING = "C:\\TAMTMP"
SETTINGS = "C:\\Tamblin\\tamb.ini"
BACKUP = "C:\\Tamblin\\tamb.bak"
PROGRAM = HOST + "\\ombrel.exe"
NAGI = lzh_packages.character("nagi", KVA__DEF=lzh_packages.WITH_KAVALET["sora/KVA.DEF"])
# Far beyond the program's patience.
TOO_LONG = 60
numbers = itertools.count(1)


class ProgressWindow(Window):
    CLASS = "Tamblin.Progress"


def start_app(samples):
    machine = Machine(MACHINES / f"scanner-{os.getpid()}-{next(numbers)}")
    app = furnish(machine, samples, kavalet="ON")
    app.check = CheckWindow(app)
    app.progress = ProgressWindow(app)
    machine.write(PACKAGES + "\\ombrel.exe", b"a newer host program")
    lzh_packages.archive(machine.path(PACKAGES + "\\nagi.lzh"), NAGI)
    app.start_main()
    return app


@pytest.fixture(scope="module")
def started(samples):
    """The program in use, which is replaced when a test has left it in disorder."""
    current = []
    yield current
    for app in current:
        app.machine.remove()


@pytest.fixture
def app(started, samples):
    if started and not (started[0].main.shown() and started[0].main.enabled()):
        started.pop().machine.remove()
    if not started:
        started.append(start_app(samples))
    return started[0]


def update_host_program(app):
    """Up to the confirmed question."""
    app.main.list2.select("ombrel.exe")
    app.main.update_host.press()
    app.answer(HOST_QUESTION, "OK")


def rewrite(machine, name, data=None):
    """Makes a file a new one to the scanner."""
    data = machine.read(name) if data is None else data
    machine.path(name).unlink(missing_ok=True)
    machine.write(name, data)


# Held for a while


def test_an_install_waits_and_shows_that_it_works(app):
    machine = app.machine
    staged = [f"{STAGING}\\nagi.obl", f"{STAGING}\\nagi\\KVA.DEF", f"{STAGING}\\nagi\\nagi.txt"]
    with Scanner(machine, 3, STAGING, HOST) as scanner:
        confirmation = propose(app, "nagi.lzh")
        rewrite(machine, HOST + "\\kva.def", HOST_KAVALET)
        scanner.wait_held(*staged, HOST + "\\kva.def")
        confirmation.install.press()
        app.progress.wait_shown()
        assert app.progress.state()["owner"] == app.main.handle
        finish(app)
        assert not app.progress.shown()
    installed = as_tree(NAGI)
    tree = machine.tree(HOST)
    assert {path: tree[path] for path in installed} == installed
    assert kavalet_files(machine) == {"kva.def": MERGED_KAVALET, "kva.tmp": HOST_KAVALET}
    assert not machine.path(STAGING).exists()


@pytest.mark.parametrize("lets_delete", [False, True])
def test_an_uninstall_waits(app, lets_delete):
    machine = app.machine
    before = machine.tree(HOST)
    with Scanner(machine, 1, HOST, lets_delete=lets_delete) as scanner:
        rewrite(machine, HOST + "\\yuzu.obl")
        rewrite(machine, HOST + "\\yuzu\\dat\\image.bin")
        scanner.wait_held(HOST + "\\yuzu.obl", HOST + "\\yuzu\\dat\\image.bin")
        uninstall(app, "yuzu")
    assert machine.tree(HOST) == without(before, "yuzu", "yuzu.obl")
    install_by_hand(machine, HOST, "yuzu")
    app.main.combo1.select(HOST)
    wait_until(lambda: "yuzu" in app.main.list3.entries(), "the character to be listed")


def test_an_update_waits(app):
    machine = app.machine
    before = machine.tree(HOST)
    with Scanner(machine, 1, HOST, PACKAGES) as scanner:
        rewrite(machine, PROGRAM)
        rewrite(machine, PACKAGES + "\\ombrel.exe")
        scanner.wait_held(PROGRAM, PACKAGES + "\\ombrel.exe")
        update_host_program(app)
        app.answer(HOST_DONE, "OK")
        app.main.wait_enabled()
    assert machine.tree(HOST) == {**before, "ombrel.exe": b"a newer host program"}


def test_recycling_waits(app):
    machine = app.machine
    before = machine.tree(HOST)
    name = "orphan"
    with Scanner(machine, 1, HOST, lets_delete=True) as scanner:
        machine.write(f"{HOST}\\{name}\\below\\a.txt", b"a")
        app.main.check_folders.press()
        check = app.check.wait_shown()
        wait_until(lambda: check.folders.entries() == [name], "the folder to be listed")
        check.folders.select(name)
        rewrite(machine, f"{HOST}\\{name}\\below\\a.txt", b"another")
        scanner.wait_held(f"{HOST}\\{name}\\below\\a.txt")
        app.operator.act("command", check.handle, MENU_ITEMS["mnmv"])
        app.answer(RECYCLE_QUESTION, "OK")
        check.wait_enabled()
        wait_until(lambda: check.folders.entries() == [], "the list to be empty")
        check.done.press()
        check.wait_gone()
    assert machine.tree(HOST) == before
    (place,) = [place for place in recycled(machine) if place.name == name]
    assert (recycled(machine)[place] / "below" / "a.txt").read_bytes() == b"another"


def test_a_save_waits(app):
    machine = app.machine
    folders = [HOST, "D:\\Games\\Vimora"]
    app.main.combo1.select(folders[1])
    with Scanner(machine, 1, "C:\\Tamblin", lets_delete=True) as scanner:
        rewrite(machine, SETTINGS)
        rewrite(machine, BACKUP, b"left over")
        scanner.wait_held(SETTINGS, BACKUP)
        app.main.leave.press()
        app.answer(EXIT, "Cancel")
        app.main.wait_enabled()
    assert b"DEFAULT=D:\\Games\\Vimora\r\n" in app.ini()
    assert not machine.path(BACKUP).exists()
    app.main.combo1.select(folders[0])


# Held for too long


def test_an_install_gives_up_before_anything_is_replaced_and_can_be_done_again(app):
    machine = app.machine
    if "nagi" in app.main.list3.entries():
        uninstall(app, "nagi")
    before = {**machine.tree(HOST), "kva.def": HOST_KAVALET}
    with Scanner(machine, TOO_LONG, HOST) as scanner:
        confirmation = propose(app, "nagi.lzh")
        rewrite(machine, HOST + "\\kva.def", HOST_KAVALET)
        scanner.wait_held(HOST + "\\kva.def")
        confirmation.install.press()
        _, path, advice = wait_report(app, 70)
        assert path == HOST + "\\kva.def"
        assert "使用" in advice
        app.main.wait_enabled()
        assert machine.tree(HOST) == before
    install(app, "nagi.lzh")
    assert machine.tree(HOST) == {
        **before,
        **as_tree(NAGI),
        "kva.def": MERGED_KAVALET,
        "kva.tmp": HOST_KAVALET,
    }
    assert not machine.path(STAGING).exists()


def test_an_install_that_breaks_off_loses_nothing_and_can_be_done_again(app):
    machine = app.machine
    before = machine.tree(HOST)
    package = as_tree(lzh_packages.JAPANESE)
    with Scanner(machine, TOO_LONG, STAGING) as scanner:
        confirmation = propose(app, "表ソ能.lzh")
        scanner.wait_held(STAGING + "\\ｶﾅ.obl", STAGING + "\\表ソ能\\ア.TXT")
        confirmation.install.press()
        (_, path, _) = wait_report(app, 70)
        assert path.startswith(STAGING + "\\")
        app.main.wait_enabled()
        tree = machine.tree(HOST)
        assert {path: tree[path] for path in before} == before
        left = machine.tree(STAGING)
        assert {path: {**left, **tree}[path] for path in package} == package
    install(app, "表ソ能.lzh")
    assert machine.tree(HOST) == {**before, **package}


def test_an_uninstall_leaves_the_character_whole_and_can_be_done_again(app):
    machine = app.machine
    before = machine.tree(HOST)
    with Scanner(machine, TOO_LONG, HOST) as scanner:
        rewrite(machine, HOST + "\\yuzu\\dat\\image.bin")
        scanner.wait_held(HOST + "\\yuzu\\dat\\image.bin")
        uninstall(app, "yuzu")
        assert "yuzu" in app.main.list3.entries()
        tree = machine.tree(HOST)
        for path in ["yuzu.obl", "yuzu/dat/image.bin"]:
            assert tree[path] == before[path]
    uninstall(app, "yuzu")
    assert machine.tree(HOST) == without(before, "yuzu", "yuzu.obl")


def test_a_save_leaves_the_former_settings_and_can_be_done_again(app):
    machine = app.machine
    before = app.ini()
    app.main.combo1.select("D:\\Games\\Vimora")
    with Scanner(machine, TOO_LONG, "C:\\Tamblin") as scanner:
        rewrite(machine, SETTINGS)
        scanner.wait_held(SETTINGS)
        app.main.leave.press()
        (_, path, _) = wait_report(app, 70)
        assert path == SETTINGS
        app.wait_ended()
        assert app.ini() == before
    app.start_main()
    app.main.combo1.select("D:\\Games\\Vimora")
    app.main.leave.press()
    app.answer(EXIT, "OK")
    app.wait_ended()
    assert b"DEFAULT=D:\\Games\\Vimora\r\n" in app.ini()
    assert not machine.path(BACKUP).exists()

"""The start-up file, and launching a character."""

import os
import pathlib

import pytest

from controls import wait_until
from hosts import install_by_hand
from maintenance_scene import (  # noqa: F401
    HOST,
    OTHER_HOST,
    START_UP,
    app,
    assert_start_up_file_is_back,
    choose_for_character,
    machine,
    scene,
    scenes,
    wait_host,
)
from test_faults import wait_report
from test_maintenance_uninstall import DONE as UNINSTALLED
from test_maintenance_uninstall import QUESTION as UNINSTALL_QUESTION

RUN = "オンブレルの起動"
REWRITTEN = "が起動するようにombrel.rcを書き換えました。"
CHARACTERS = ["mikan", "yuzu", "空 白", "表ソ能"]


@pytest.fixture
def with_dotted_name(scene, machine):
    """A character whose name looks like a definition file's, in the list with the others."""
    install_by_hand(machine, HOST, "x.obl")
    scene.refresh()


def start_up_line(definition):
    return f"H001currentobl={definition}\r\n".encode("cp932")


def rewrite(app, character):
    app.main.set_start_up_character.press()
    app.answer(character + REWRITTEN, "OK")


def assert_launches(app, machine):
    """Presses the button; afterwards the start-up file is as it was."""
    app.main.launch.press()
    wait_host(machine)
    assert_start_up_file_is_back(machine)


# The start-up file


@pytest.mark.parametrize("character", ["mikan", "空 白", "表ソ能"])
def test_the_start_up_file_becomes_one_line(app, machine, character):
    before = machine.tree(HOST)
    app.main.list3.select(character)
    app.main.set_start_up_character.press()
    box = app.wait_box()
    assert box.buttons() == ["OK"]
    assert not box.has_icon()
    app.answer(character + REWRITTEN, "OK")
    app.main.wait_enabled()
    assert machine.tree(HOST) == {**before, "ombrel.rc": start_up_line(character + ".obl")}
    assert app.main.list3.selected() == [character]


def test_a_character_called_like_a_definition_file(with_dotted_name, app, machine):
    app.main.list3.select("x.obl")
    rewrite(app, "x.obl")
    assert machine.read(HOST + "\\ombrel.rc") == start_up_line("x.obl.obl")
    app.main.launch.press()
    wait_host(machine)
    assert_start_up_file_is_back(machine, content=start_up_line("x.obl.obl"))
    app.main.uninstall.press()
    app.answer(UNINSTALL_QUESTION, "OK")
    app.answer(UNINSTALLED, "OK")
    app.main.wait_enabled()
    assert app.main.list3.entries() == CHARACTERS
    assert not machine.path(HOST + "\\x.obl").exists()
    assert not machine.path(HOST + "\\x.obl.obl").exists()


def test_the_start_up_file_is_made_where_there_is_none(app, machine):
    app.main.list3.select("yuzu")
    machine.path(HOST + "\\ombrel.rc").unlink()
    rewrite(app, "yuzu")
    assert machine.read(HOST + "\\ombrel.rc") == start_up_line("yuzu.obl")


def test_a_read_only_start_up_file_is_reported_and_kept(app, machine):
    machine.path(HOST + "\\ombrel.rc").chmod(0o444)
    app.main.list3.select("mikan")
    app.main.set_start_up_character.press()
    wait_report(app, 70, 75)
    app.main.wait_enabled()
    assert machine.read(HOST + "\\ombrel.rc") == START_UP
    machine.path(HOST + "\\ombrel.rc").chmod(0o644)
    rewrite(app, "mikan")
    assert machine.read(HOST + "\\ombrel.rc") == start_up_line("mikan.obl")


# Launching


def launch_by_button(app):
    app.main.launch.press()


def launch_by_menu(app):
    choose_for_character(app, RUN)


@pytest.mark.parametrize("launch", [launch_by_button, launch_by_menu])
@pytest.mark.parametrize("character", ["yuzu", "表ソ能"])
def test_the_characters_line_stands_in_the_file_when_the_host_is_started(app, machine, launch, character):
    """The file is put back at once, so a host that starts reads what it happens to meet. One that
    cannot be started ends the launch there, and what stood in the file at that moment stays."""
    machine.write(HOST + "\\ombrel.exe", b"no program at all")
    app.main.list3.select(character)
    launch(app)
    wait_report(app, 5, 53, 57, 70, 75)
    app.main.wait_enabled()
    assert machine.read(HOST + "\\ombrel.rc") == start_up_line(character + ".obl")
    assert machine.read(HOST + "\\ombrel_rc.bak") == START_UP


@pytest.mark.parametrize("launch", [launch_by_button, launch_by_menu])
@pytest.mark.parametrize("character", ["yuzu", "表ソ能"])
def test_the_host_starts_minimised_in_its_folder(app, machine, launch, character):
    app.main.list3.select(character)
    launch(app)
    log = wait_host(machine)
    assert log["command line"] == f'"{HOST}\\ombrel.exe" /n'
    assert log["show command"] == "2"
    assert log["current folder"] == HOST
    assert_start_up_file_is_back(machine)
    host = next(w for w in app.operator.windows() if w["class"] == "StandIn.Ombrel")
    assert host["style"] & 0x20000000, "the host's window is not minimised"
    assert not app.box.shown()
    assert app.main.enabled()


def test_a_host_in_another_folder_is_started_there(app, machine):
    former = machine.read(OTHER_HOST + "\\ombrel.rc")
    app.main.combo1.select(OTHER_HOST)
    app.main.list3.select("kinako")
    app.main.launch.press()
    log = wait_host(machine, OTHER_HOST)
    assert log["command line"] == f'"{OTHER_HOST}\\ombrel.exe" /n'
    assert log["current folder"] == OTHER_HOST
    assert_start_up_file_is_back(machine, OTHER_HOST, former)


def test_after_a_launch_the_program_is_back_in_its_own_folder(app, machine):
    app.main.list3.select("yuzu")
    app.main.launch.press()
    wait_host(machine)
    assert machine.path(HOST) in folders_in_use(machine)
    for window in app.operator.windows():
        if window["class"] == "StandIn.Ombrel":
            app.operator.ask("close-box", window["window"])
    wait_until(lambda: machine.path(HOST) not in folders_in_use(machine), "the host folder to be free")
    assert machine.path("C:\\Tamblin") in folders_in_use(machine)


def folders_in_use(machine):
    """The machine's folders that are some program's current one; its server holds them open."""
    held = set()
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if (process / "comm").read_text().startswith("wineserver"):
                held.update(pathlib.Path(os.readlink(handle)) for handle in (process / "fd").iterdir())
        except OSError:
            continue  # it has ended meanwhile, or is another user's
    return {path for path in held if machine.prefix in path.parents}


@pytest.mark.parametrize("missing", ["ombrel.exe", "ombrel.rc", "mikan.obl"])
def test_without_what_it_needs_a_launch_ends_silently(app, machine, missing):
    app.main.list3.select("mikan")
    machine.path(f"{HOST}\\{missing}").unlink()
    before = machine.tree(HOST)
    app.main.launch.press()
    # The next command has its turn only after the launch.
    app.main.deselect_installed.press()
    wait_until(lambda: app.main.list3.selected() == [], "the list to be deselected")
    assert not app.box.shown()
    assert machine.tree(HOST) == before
    assert app.operator.running("ombrel.exe") == 0


def test_the_definition_file_is_the_one_in_the_same_place(app, machine):
    """A definition file without a folder ahead of the character moves the pair by one. A host that
    cannot be started leaves the temporary file to be seen."""
    machine.write(HOST + "\\akane.OBL", b"nobody's")
    machine.write(HOST + "\\ombrel.exe", b"no program at all")
    app.main.combo1.select(OTHER_HOST)
    app.main.combo1.select(HOST)
    assert app.main.list3.entries() == CHARACTERS
    app.main.list3.select("mikan")
    app.main.launch.press()
    wait_report(app, 5, 53, 57, 70, 75)
    app.main.wait_enabled()
    assert machine.read(HOST + "\\ombrel.rc") == start_up_line("akane.OBL")
    assert machine.read(HOST + "\\ombrel_rc.bak") == START_UP


def test_a_leftover_of_an_earlier_launch_is_reported_and_nothing_is_lost(app, machine):
    machine.write(HOST + "\\ombrel_rc.bak", b"of an earlier launch")
    before = machine.tree(HOST)
    app.main.list3.select("mikan")
    app.main.launch.press()
    wait_report(app, 58, 75)
    app.main.wait_enabled()
    assert machine.tree(HOST) == before
    machine.path(HOST + "\\ombrel_rc.bak").unlink()
    assert_launches(app, machine)


def test_a_start_up_file_that_is_read_only_survives_a_launch(app, machine):
    machine.path(HOST + "\\ombrel.rc").chmod(0o444)
    app.main.list3.select("mikan")
    assert_launches(app, machine)
    assert machine.path(HOST + "\\ombrel.rc").stat().st_mode & 0o222 == 0
    machine.path(HOST + "\\ombrel.rc").chmod(0o644)


def test_a_host_folder_that_is_read_only_survives_a_launch(app, machine):
    machine.path(HOST).chmod(0o555)
    before = machine.tree(HOST)
    app.main.list3.select("mikan")
    app.main.launch.press()
    wait_report(app, 70, 75)
    app.main.wait_enabled()
    assert machine.tree(HOST) == before
    machine.path(HOST).chmod(0o755)
    assert_launches(app, machine)


def test_a_start_up_file_in_use_survives_a_launch(app, machine):
    held = app.operator.ask("hold-file", HOST + "\\ombrel.rc")
    before = machine.tree(HOST)
    app.main.list3.select("mikan")
    app.main.launch.press()
    wait_report(app, 55, 70, 75)
    app.main.wait_enabled()
    assert machine.tree(HOST) == before
    app.operator.ask("release-file", held)
    assert_launches(app, machine)

"""The start-up file, and launching a character."""

import pytest

from maintenance_scene import (  # noqa: F401
    HOST,
    app,
    assert_start_up_file_is_back,
    choose_for_character,
    machine,
    scene,
    scenes,
    wait_host,
)
from test_faults import wait_report

RUN = "オンブレルの起動"
REWRITTEN = "が起動するようにombrel.rcを書き換えました。"
def test_the_start_up_file_becomes_one_line(app, machine):
    before = machine.tree(HOST)
    app.main.list3.select("表ソ能")
    app.main.set_start_up_character.press()
    app.answer("表ソ能" + REWRITTEN, "OK")
    app.main.wait_enabled()
    line = "H001currentobl=表ソ能.obl\r\n".encode("cp932")
    assert machine.tree(HOST) == {**before, "ombrel.rc": line}
    assert app.main.list3.selected() == ["表ソ能"]


def launch_by_button(app):
    app.main.launch.press()


def launch_by_menu(app):
    choose_for_character(app, RUN)


@pytest.mark.parametrize("launch", [launch_by_button, launch_by_menu])
def test_the_host_starts_minimised_in_its_folder(app, machine, launch):
    app.main.list3.select("表ソ能")
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


def assert_launches(app, machine):
    launch_by_button(app)
    wait_host(machine)
    assert_start_up_file_is_back(machine)


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

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

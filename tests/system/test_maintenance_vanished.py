"""Commands on a host folder that has gone since its characters were listed."""

import pytest

from controls import press_keys, right_click_row
from maintenance_scene import (  # noqa: F401
    HOST,
    OTHER_HOST,
    app,
    machine,
    scene,
    scenes,
)
from test_faults import wait_report
from test_maintenance_uninstall import QUESTION
from test_maintenance_updates import HOST_QUESTION, offer, question
from windows import character_menu


@pytest.fixture
def vanish(app, machine):
    """Takes the host folder away, after what else a test needs; it comes back for the next test."""
    away = machine.path("C:\\Away")

    def take():
        machine.path(HOST).rename(away)

    yield take
    away.rename(machine.path(HOST))


def assert_usable(app):
    app.main.wait_enabled()
    assert not app.box.shown() and not app.check.shown()
    app.main.combo1.select(OTHER_HOST)
    assert app.main.list3.entries() == ["kinako"]


def test_the_check_is_reported_and_opens_no_window(app, vanish):
    vanish()
    app.main.check_folders.press()
    wait_report(app, 76)
    assert_usable(app)


def test_launch_readme_and_menu_end_silently(app, machine, vanish):
    machine.write(HOST + "\\mikan\\mikan.txt", b"read me")
    app.main.list3.select("mikan")
    vanish()
    app.main.launch.press()
    app.main.show_readme.press()
    right_click_row(app.main.list3, "mikan")
    menu = character_menu(app).wait_shown()
    press_keys("Escape")
    menu.wait_gone()
    assert app.recorder.records() == []
    assert_usable(app)


def test_the_start_up_file_is_reported(app, vanish):
    app.main.list3.select("mikan")
    vanish()
    app.main.set_start_up_character.press()
    wait_report(app, 76)
    assert_usable(app)


def test_uninstall_is_reported(app, vanish):
    app.main.list3.select("mikan")
    vanish()
    app.main.uninstall.press()
    app.answer(QUESTION, "OK")
    wait_report(app, 53, 76)
    assert_usable(app)


def test_updates_are_reported(app, machine, vanish):
    offer(app, machine, **{"mikan.obl": b"newer", "ombrel.exe": b"newer"})
    app.main.list3.select("mikan")
    app.main.list2.select("mikan.obl")
    vanish()
    app.main.update_definition.press()
    app.answer(question("mikan"), "OK")
    wait_report(app, 76)
    app.main.wait_enabled()
    app.main.deselect_installed.press()
    app.main.list2.select("ombrel.exe")
    app.main.update_host.press()
    app.answer(HOST_QUESTION, "OK")
    wait_report(app, 76)
    assert_usable(app)
    assert not machine.path(HOST).exists()

"""The folder management window: list, add, change, delete, default, permission, and leaving."""

import pytest

from controls import wait_until
from hosts import make_host
from names import VERSION
from set_up_scene import (  # noqa: F401
    app,
    assert_main_shows,
    drives,
    leave_main,
    make_known,
    shown_windows,
    start_main,
    wait_only,
)

ONE, TWO, THREE = "C:\\One", "D:\\表ソ能\\Two 2", "C:\\Three"


def open_management(app):
    app.main.manage_folders.press()
    return wait_only(app, app.management)


def start_management(app, *folders, **known):
    make_known(app, *folders, **known)
    start_main(app)
    return open_management(app)


def go_back(app):
    app.management.leave.press()
    return wait_only(app, app.main)


def expected_settings(*folders, default, kavalet="OFF"):
    lines = [f"VERSION=Ver.{VERSION}", f"DEFAULT={default}", f"KVAOPTION={kavalet}"]
    lines += [f"VMRFOLDER={folder}" for folder in folders]
    return "".join(line + "\r\n" for line in lines).encode("cp932")


def test_the_folders_and_the_default_are_shown(app):
    management = start_management(app, ONE, TWO, THREE, default=TWO)
    assert management.title() == "Vimoraフォルダ管理 - Tamblin - "
    assert management.folders.entries() == [ONE, TWO, THREE]
    assert management.folders.selected() == [TWO]
    assert management.leave.text() == "戻る"
    buttons = [management.add, management.change, management.delete, management.leave]
    assert [button.enabled() for button in buttons] == [True, True, True, True]
    assert management.forbid.ticked() and not management.allow.ticked()
    go_back(app)
    assert_main_shows(app, ONE, TWO, THREE, selected=TWO)


def test_another_default(app):
    management = start_management(app, ONE, TWO)
    management.folders.select(TWO)
    main = go_back(app)
    assert_main_shows(app, ONE, TWO, selected=TWO)
    assert main.list3.entries() == ["two 2"]
    leave_main(app)
    assert app.ini() == expected_settings(ONE, TWO, default=TWO)
    app.start()
    assert_main_shows(app, ONE, TWO, selected=TWO)


def test_deleting_a_folder(app):
    management = start_management(app, ONE, TWO, THREE)
    management.folders.select(TWO)
    management.delete.press()
    wait_until(lambda: management.folders.entries() == [ONE, THREE], "the folder to be gone")
    assert management.folders.selected() == [ONE]
    go_back(app)
    assert_main_shows(app, ONE, THREE, selected=ONE)
    leave_main(app)
    assert app.ini() == expected_settings(ONE, THREE, default=ONE)
    assert app.machine.path(TWO + "\\ombrel.exe").exists()


# The permission


@pytest.mark.parametrize("before, after", [("OFF", "ON"), ("On", "OFF")])
def test_the_permission_is_kept(app, before, after):
    management = start_management(app, ONE, lines=[f"KVAOPTION={before}"])
    allowed = before == "On"
    assert management.allow.ticked() == allowed and management.forbid.ticked() != allowed
    chosen = management.allow if after == "ON" else management.forbid
    chosen.press()
    wait_until(chosen.ticked, "the choice")
    assert management.allow.ticked() != management.forbid.ticked()
    go_back(app)
    leave_main(app)
    assert app.ini() == expected_settings(ONE, default=ONE, kavalet=after)
    start_main(app)
    assert open_management(app).allow.ticked() == (after == "ON")


# Adding


@pytest.mark.usefixtures("fresh")
def test_adding_by_hand_comes_back_here(app, machine):
    make_host(machine, TWO, ["mikan"])
    management = start_management(app, ONE)
    management.add.press()
    wizard = wait_only(app, app.wizard)
    assert wizard.give_up.text() == "戻る"
    wizard.by_hand.press()
    manual = wait_only(app, app.manual)
    manual.browse(TWO)
    manual.ok.press()
    management = wait_only(app, app.management)
    assert management.folders.entries() == [ONE, TWO]
    assert management.folders.selected() == [ONE]
    management.folders.select(TWO)
    main = go_back(app)
    assert_main_shows(app, ONE, TWO, selected=TWO)
    assert main.list3.entries() == ["mikan"]
    leave_main(app)
    assert app.ini() == expected_settings(ONE, TWO, default=TWO)
    app.start()
    assert_main_shows(app, ONE, TWO, selected=TWO)


def test_the_wizard_goes_back_here(app):
    start_management(app, ONE).add.press()
    wait_only(app, app.wizard).give_up.press()
    management = wait_only(app, app.management)
    assert management.folders.entries() == [ONE]
    assert management.leave.text() == "戻る"
    go_back(app)
    assert app.running()


# Leaving


@pytest.mark.parametrize("way", ["close box", "escape"])
def test_leaving_by_the_frame_applies_nothing(app, way):
    management = start_management(app, ONE, TWO)
    management.folders.select(TWO)
    management.allow.press()
    wait_until(management.allow.ticked, "the choice")
    management.leave_by(way, management.leave)
    assert_main_shows(app, ONE, TWO, selected=ONE)
    leave_main(app)
    assert app.ini() == expected_settings(ONE, TWO, default=ONE)


def test_nothing_is_written_before_the_main_window_is_left(app):
    management = start_management(app, ONE, TWO)
    before = app.ini()
    management.folders.select(TWO)
    management.delete.press()
    wait_until(lambda: management.folders.entries() == [ONE], "the folder to be gone")
    go_back(app)
    assert app.ini() == before
    assert app.main.end_session()
    app.wait_ended()
    assert app.ini() == before
    assert shown_windows(app) == []

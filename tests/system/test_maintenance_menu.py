"""A character's README, and the menu under the right mouse button."""

import pytest

from controls import point_at, press_keys, right_click_row, wait_until
from maintenance_scene import (  # noqa: F401
    HOST,
    app,
    choose_for_character,
    host_log,
    machine,
    scene,
    scenes,
)
from windows import character_menu

VIEW = "READMEの表示"


def view_by_button(app):
    app.main.show_readme.press()


def view_by_menu(app):
    choose_for_character(app, VIEW)


@pytest.mark.parametrize("view", [view_by_button, view_by_menu])
def test_a_readme_is_opened_in_the_characters_folder(app, view):
    app.main.list3.select("表ソ能")
    view(app)
    (record,) = app.recorder.wait_records(1)
    folder = HOST + "\\表ソ能"
    assert record["command line"] == app.recorder.opened(folder + "\\表ソ能.txt")
    assert record["working folder"] == folder
    assert record["show command"] == "1"
    assert not app.box.shown()


def test_without_a_readme_the_menus_item_is_grey(app, machine):
    machine.path(HOST + "\\mikan\\mikan.txt").unlink()
    app.main.list3.select("mikan")
    assert not app.main.show_readme.enabled()
    right_click_row(app.main.list3, "mikan")
    menu = character_menu(app).wait_shown()
    menu.click_item(VIEW)
    point_at(*menu.row_centre("キャンセル"))
    assert menu.shown()
    menu.click_item("キャンセル")
    menu.wait_gone()
    assert app.main.enabled()
    assert app.recorder.records() == []
    assert host_log(machine) == {}


def test_the_menu_opens_at_the_pointer_and_goes_with_escape(app, machine):
    app.main.list3.select("yuzu")
    right_click_row(app.main.list3, "yuzu")
    x, y = app.main.list3.row_centre("yuzu")
    left, top = character_menu(app).wait_shown().position()
    assert abs(left - x) <= 2 and abs(top - y) <= 2
    press_keys("Escape")
    character_menu(app).wait_gone()
    assert app.main.enabled()
    assert app.main.list3.selected() == ["yuzu"]
    assert host_log(machine) == {}


def test_the_menu_by_the_keyboard(app, machine):
    app.main.list3.real_click_row("yuzu")
    wait_until(lambda: app.main.list3.selected() == ["yuzu"], "the row to be selected")
    press_keys("shift+F10")
    character_menu(app).wait_shown()
    press_keys("Down", "Down", "Return")
    (record,) = app.recorder.wait_records(1)
    assert record["command line"] == app.recorder.opened(HOST + "\\yuzu\\yuzu.txt")

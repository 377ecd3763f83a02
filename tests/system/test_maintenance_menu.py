"""A character's README, and the menu under the right mouse button."""

import pytest

from controls import point_at, press_keys, right_click_row, wait_until
from maintenance_scene import (  # noqa: F401
    HOST,
    app,
    assert_start_up_file_is_back,
    choose_for_character,
    host_log,
    machine,
    scene,
    scenes,
    wait_host,
)
from names import MENU_ITEMS
from windows import character_menu

VIEW = "READMEの表示"


def write_readmes(machine, character, *endings):
    for ending in endings:
        machine.write(f"{HOST}\\{character}\\{character}{ending}", b"read me")


def view_by_button(app):
    app.main.show_readme.press()


def view_by_menu(app):
    choose_for_character(app, VIEW)


@pytest.mark.parametrize("view", [view_by_button, view_by_menu])
@pytest.mark.parametrize("character", ["yuzu", "表ソ能", "空 白"])
def test_a_readme_is_opened_in_the_characters_folder(app, machine, view, character):
    app.main.list3.select(character)
    view(app)
    (record,) = app.recorder.wait_records(1)
    folder = f"{HOST}\\{character}"
    assert record["command line"] == app.recorder.opened(f"{folder}\\{character}.txt")
    assert record["working folder"] == folder
    assert record["show command"] == "1"
    assert not app.box.shown()


def test_every_readme_is_opened_in_its_order(app, machine):
    write_readmes(machine, "mikan", ".html", ".htm", "-X.txt", ".txt")
    write_readmes(machine, "yuzu", ".html")
    app.main.list3.select("mikan")
    app.main.show_readme.press()
    records = app.recorder.wait_records(4)
    stem = f"{HOST}\\mikan\\mikan"
    assert [record["command line"] for record in records] == [
        app.recorder.opened(stem + ending) for ending in [".txt", "-X.txt", ".htm", ".html"]
    ]
    assert {record["working folder"] for record in records} == {HOST + "\\mikan"}


def test_a_note_alone_is_a_readme(app, machine):
    machine.path(HOST + "\\mikan\\mikan.txt").unlink()
    write_readmes(machine, "mikan", "-X.txt")
    app.main.list3.select("mikan")
    assert app.main.show_readme.enabled()
    view_by_menu(app)
    (record,) = app.recorder.wait_records(1)
    assert record["command line"] == app.recorder.opened(HOST + "\\mikan\\mikan-X.txt")


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


def test_the_menu_acts_on_the_character_under_the_pointer(app):
    app.main.list3.select("mikan")
    right_click_row(app.main.list3, "yuzu")
    character_menu(app).wait_shown().click_item(VIEW)
    (record,) = app.recorder.wait_records(1)
    assert record["command line"] == app.recorder.opened(HOST + "\\yuzu\\yuzu.txt")
    assert app.main.list3.selected() == ["yuzu"]


@pytest.mark.parametrize("selection", [[], ["mikan", "yuzu"]])
def test_unless_one_is_selected_no_menu_opens(app, selection):
    main = app.main
    main.list3.select(*selection)
    right_click_row(main.list3, "mikan")
    # The pointer's next stop shows that the click has had its turn.
    point_at(*main.check_folders.centre())
    wait_until(lambda: main.text2.text() == "ヴィモラフォルダの不具合を検出します。", "the text of CHK")
    assert not character_menu(app).shown()
    assert main.list3.selected() == selection


def test_the_menus_commands_by_message(app, machine):
    app.main.list3.select("mikan")
    app.operator.act("command", app.main.handle, MENU_ITEMS["mnview"])
    app.recorder.wait_records(1)
    app.operator.act("command", app.main.handle, MENU_ITEMS["mnrun"])
    wait_host(machine)
    assert_start_up_file_is_back(machine)

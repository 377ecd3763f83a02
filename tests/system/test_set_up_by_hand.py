"""Naming host folders by hand, on a first start and to change what is registered."""

import pytest

from controls import wait_until
from hosts import make_host
from set_up_scene import (  # noqa: F401
    DEFAULT_QUESTION,
    NO_HOST,
    app,
    assert_main_shows,
    drives,
    fresh_settings,
    leave_main,
    make_known,
    start_main,
    start_wizard,
    wait_only,
)

HOST = "D:\\Games 能\\表ソ能 Vimora"


def start_by_hand(app):
    start_wizard(app)
    app.wizard.by_hand.press()
    return wait_only(app, app.manual)


def change(app, folder):
    """From the main window to the manual window for one registered folder."""
    app.main.manage_folders.press()
    management = wait_only(app, app.management)
    management.folders.select(folder)
    management.change.press()
    return wait_only(app, app.manual)


# On a first start


@pytest.mark.usefixtures("fresh")
def test_walking_to_the_host(app, machine):
    make_host(machine, HOST, ["mikan"])
    machine.write(HOST + "\\other.txt", b"")
    manual = start_by_hand(app)
    assert manual.title() == "VMRフォルダの手動設定 - Tamblin -"
    assert manual.folder.text() == manual.status.text() == "C:\\Tamblin"
    assert manual.files.entries() == []
    assert manual.more.enabled()
    manual.browse(HOST)
    assert manual.tree.selected() == ["    + 表ソ能 Vimora"]
    assert manual.files.entries() == ["ombrel.exe", "ombrel.rc"]
    assert manual.folder.text() == HOST
    manual.ok.press()
    assert_main_shows(app, HOST, selected=HOST)
    assert app.main.list3.entries() == ["mikan"]
    leave_main(app)
    assert app.ini() == fresh_settings(HOST, default=HOST)
    app.start()
    assert_main_shows(app, HOST, selected=HOST)


def test_a_click_puts_the_folder_into_the_text(app, machine):
    make_host(machine, "C:\\Vimora")
    manual = start_by_hand(app)
    manual.tree.double_click("C:")
    wait_until(lambda: "  + Vimora" in manual.tree.entries(), "the root's folders")
    manual.tree.real_click_row("  + Vimora")
    wait_until(lambda: manual.folder.text() == "C:\\Vimora", "the folder to be in the text")
    manual.press_keys("Tab")
    wait_until(lambda: app.operator.ask("focus")["id"] != manual.tree.identity, "the tree to lose the keyboard")
    manual.ok.press()
    assert_main_shows(app, "C:\\Vimora", selected="C:\\Vimora")


def test_a_folder_that_is_no_host_is_refused_once(app, machine):
    machine.write("D:\\Half\\ombrel.exe", b"without its start-up file")
    manual = start_by_hand(app)
    manual.type_folder("D:\\Half")
    manual.ok.press()
    app.answer(NO_HOST, "OK")
    wait_only(app, manual)
    assert manual.folder.text() == "D:\\Half"
    manual.back.press()
    wait_only(app, app.wizard).give_up.press()
    app.wait_ended()
    assert not app.has_ini()


@pytest.mark.parametrize("way", ["button", "close box", "escape"])
def test_going_back_leads_to_the_wizard(app, way):
    manual = start_by_hand(app)
    manual.leave_by(way, manual.back)
    wait_only(app, app.wizard).give_up.press()
    app.wait_ended()
    assert not app.has_ini()


@pytest.mark.usefixtures("fresh")
def test_two_folders_by_more_and_the_choice_of_the_default(app, machine):
    make_host(machine, HOST, ["mikan"])
    make_host(machine, "C:\\Vimora", ["yuzu"])
    manual = start_by_hand(app)
    manual.browse(HOST)
    former = manual.handle
    manual.more.press()
    manual.wait_shown_anew(former)
    wait_only(app, manual)
    assert manual.folder.text() == "C:\\Tamblin"
    manual.type_folder("C:\\Vimora")
    manual.ok.press()
    choice = wait_only(app, app.choice)
    assert choice.question.text() == DEFAULT_QUESTION
    assert choice.default.entries() == [HOST, "C:\\Vimora"]
    assert not choice.ok.enabled()
    choice.default.select("C:\\Vimora")
    wait_until(choice.ok.enabled, "the OK button")
    choice.ok.press()
    assert_main_shows(app, HOST, "C:\\Vimora", selected="C:\\Vimora")
    assert app.main.list3.entries() == ["yuzu"]
    leave_main(app)
    assert app.ini() == fresh_settings(HOST, "C:\\Vimora", default="C:\\Vimora")
    app.start()
    assert_main_shows(app, HOST, "C:\\Vimora", selected="C:\\Vimora")


# Changing a registered folder


def test_a_registered_folder_is_changed(app, machine):
    make_known(app, "C:\\One", "C:\\Two")
    make_host(machine, HOST)
    start_main(app)
    manual = change(app, "C:\\Two")
    assert not manual.more.enabled()
    assert manual.folder.text() == "C:\\Two"
    assert manual.files.entries() == ["ombrel.exe", "ombrel.rc"]
    manual.browse(HOST)
    manual.ok.press()
    management = wait_only(app, app.management)
    assert management.folders.entries() == ["C:\\One", HOST]
    assert management.folders.selected() == [HOST]
    management.leave.press()
    assert_main_shows(app, "C:\\One", HOST, selected=HOST)

"""The folder structure check: what it lists, deleting, and the recycle bin."""

import pathlib
import re
import urllib.parse

import pytest

from controls import LB_GETHORIZONTALEXTENT, right_click_row, wait_until
from maintenance_scene import (  # noqa: F401
    HOST,
    OTHER_HOST,
    app,
    machine,
    scene,
    scenes,
)
from names import MENU_ITEMS
from test_faults import wait_report
from windows import folder_menu

DELETE_QUESTION = "使用可能状態にないオンブレルの定義ファイルを削除します。"
RECYCLE_QUESTION = "VMRフォルダ内にある、オンブレルとは直接関係のないフォルダをごみ箱へ移動します。"
RECYCLE = "ごみ箱へ移動"
NOTHING = "（該当なし）"


def open_check(app):
    app.main.check_folders.press()
    check = app.check.wait_shown()
    wait_until(lambda: check.files.entries() and check.folders.entries(), "the lists to be filled")
    return check


def leave(app, by="button"):
    app.check.leave_by(by, app.check.done)
    app.check.wait_gone()
    app.main.wait_enabled()


def orphan_files(machine, *names):
    for name in names:
        machine.write(f"{HOST}\\{name}", b"without a folder")


def orphan_folders(machine, *names):
    for name in names:
        machine.write(f"{HOST}\\{name}\\inside\\{name}.txt", f"in {name}".encode())
        machine.write(f"{HOST}\\{name}\\plain.txt", b"plain")


def delete(app):
    app.check.delete.press()
    app.answer(DELETE_QUESTION, "OK")


def choose(app, folder, text):
    """Chooses from the menu of a folder."""
    right_click_row(app.check.folders, folder)
    folder_menu(app).wait_shown().click_item(text)
    folder_menu(app).wait_gone()


def recycle_by_message(app, folder):
    app.check.folders.select(folder)
    app.operator.act("command", app.check.handle, MENU_ITEMS["mnmv"])
    app.answer(RECYCLE_QUESTION, "OK")
    app.check.wait_enabled()


# What is listed


def test_a_tidy_host_folder(app, machine):
    before = machine.tree(HOST)
    check = open_check(app)
    assert check.title() == "フォルダ構造チェックの結果 - Tamblin -"
    assert not app.main.enabled()
    assert check.files.entries() == [NOTHING] and not check.files.enabled()
    assert check.folders.entries() == [NOTHING] and not check.folders.enabled()
    assert not check.delete.enabled()
    assert not check.file_note.enabled()
    assert [note.enabled() for note in check.folder_notes] == [False, False]
    assert check.general_note.visible()
    leave(app)
    assert machine.tree(HOST) == before


def test_halves_without_a_partner_are_listed(app, machine):
    orphan_files(machine, "akane.obl", "能 空.OBL", "odd.obl", "HIDAMARI.OBL")
    orphan_folders(machine, "dat", "odd.obl.d", "ソ能", "Hidamari")
    check = open_check(app)
    assert check.files.entries() == ["akane.obl", "odd.obl", "能 空.OBL"]
    assert check.folders.entries() == ["dat", "odd.obl.d", "ソ能"]
    assert check.files.enabled() and check.folders.enabled()
    assert check.delete.enabled()
    assert check.file_note.enabled()
    assert [note.enabled() for note in check.folder_notes] == [True, True]
    assert not check.general_note.visible()
    leave(app)


def test_only_folders_without_a_definition_file(app, machine):
    orphan_folders(machine, "dat")
    check = open_check(app)
    assert check.files.entries() == [NOTHING]
    assert check.folders.entries() == ["dat"]
    assert not check.files.enabled() and not check.delete.enabled()
    assert not check.file_note.enabled()
    assert check.folders.enabled()
    assert not check.general_note.visible()
    leave(app)


def test_the_check_sees_the_folder_as_it_is_now(app, machine):
    machine.path(HOST + "\\mikan.obl").unlink()
    machine.path(HOST + "\\yuzu").rename(machine.path("D:\\yuzu"))
    check = open_check(app)
    assert check.files.entries() == ["yuzu.obl"]
    assert check.folders.entries() == ["mikan"]
    leave(app)
    machine.path("D:\\yuzu").rename(machine.path(HOST + "\\yuzu"))


def test_long_names_can_be_scrolled_sideways(app, machine):
    long = "長い名前の" * 15
    orphan_files(machine, long + ".obl")
    orphan_folders(machine, long + "フォルダ")
    check = open_check(app)
    for entries in [check.files, check.folders]:
        left, _, right, _ = entries.state()["area"]
        assert app.operator.ask("send", entries.handle, LB_GETHORIZONTALEXTENT, 0, 0) > right - left
    leave(app)


@pytest.mark.parametrize("by", ["button", "close box", "escape"])
def test_ways_to_leave(app, machine, by):
    orphan_folders(machine, "dat")
    before = machine.tree(HOST)
    open_check(app)
    leave(app, by)
    assert machine.tree(HOST) == before
    assert app.running()


# Deleting definition files


def test_cancel_deletes_nothing(app, machine):
    orphan_files(machine, "akane.obl")
    before = machine.tree(HOST)
    check = open_check(app)
    check.delete.press()
    box = app.wait_box()
    assert box.buttons() == ["OK", "Cancel"]
    assert not box.has_icon()
    app.answer(DELETE_QUESTION, "Cancel")
    check.wait_enabled()
    assert machine.tree(HOST) == before
    assert check.files.entries() == ["akane.obl"] and check.delete.enabled()
    leave(app)


def test_all_definition_files_are_deleted(app, machine):
    before = machine.tree(HOST)
    orphan_files(machine, "akane.obl", "能 空.OBL", "表ソ.obl")
    check = open_check(app)
    check.files.select("能 空.OBL")
    delete(app)
    check.wait_enabled()
    wait_until(lambda: check.files.entries() == [], "the list to be cleared")
    assert machine.tree(HOST) == before
    assert not check.files.enabled() and not check.delete.enabled()
    assert not check.file_note.enabled()
    assert not app.box.shown()
    leave(app)


def test_a_definition_file_that_cannot_be_deleted_is_reported(app, machine):
    orphan_files(machine, "aoi.obl", "beni.obl", "chiyo.obl")
    machine.path(HOST + "\\beni.obl").chmod(0o444)
    check = open_check(app)
    delete(app)
    wait_report(app, 70, 75)
    check.wait_enabled()
    assert not machine.path(HOST + "\\aoi.obl").exists()
    assert machine.path(HOST + "\\beni.obl").exists() and machine.path(HOST + "\\chiyo.obl").exists()
    assert check.files.entries() == ["aoi.obl", "beni.obl", "chiyo.obl"]
    assert check.delete.enabled()
    leave(app)
    check = open_check(app)
    assert check.files.entries() == ["beni.obl", "chiyo.obl"]
    leave(app)


# The recycle bin


def recycled(machine):
    """What lies in the desktop's trash: where it came from, to where it lies now."""
    trash = machine.prefix / "user_data" / "Trash"
    found = {}
    for note in (trash / "info").glob("*.trashinfo"):
        path = re.search("^Path=(.*)$", note.read_text(), re.MULTILINE)[1]
        # The way there leads over a drive, which is a link.
        place = pathlib.Path(urllib.parse.unquote(path)).resolve()
        found[place] = trash / "files" / note.stem
    return found


def restore(machine, name):
    """Takes a folder of the host out of the trash again."""
    place = machine.path(f"{HOST}\\{name}")
    recycled(machine)[place].rename(place)


def test_selected_folders_go_to_the_recycle_bin_and_come_back(app, machine):
    orphan_folders(machine, "alpha", "beta", "dat", "表ソ")
    before = machine.tree(HOST)
    check = open_check(app)
    assert check.folders.entries() == ["alpha", "beta", "dat", "表ソ"]
    check.folders.select("alpha", "dat", "表ソ")
    choose(app, "dat", RECYCLE)
    box = app.wait_box()
    assert box.buttons() == ["OK", "Cancel"]
    assert not box.has_icon()
    app.answer(RECYCLE_QUESTION, "OK")
    check.wait_enabled()
    wait_until(lambda: check.folders.entries() == ["beta"], "the moved folders to leave the list")
    assert not app.box.shown()
    assert check.folders.enabled()
    for name in ["alpha", "dat", "表ソ"]:
        assert not machine.path(f"{HOST}\\{name}").exists()
    leave(app)
    for name in ["alpha", "dat", "表ソ"]:
        restore(machine, name)
    assert machine.tree(HOST) == before


def test_the_last_folder_greys_the_list(app, machine):
    before = machine.tree(HOST)
    orphan_folders(machine, "dat")
    check = open_check(app)
    recycle_by_message(app, "dat")
    wait_until(lambda: check.folders.entries() == [], "the list to be empty")
    assert not check.folders.enabled()
    assert [note.enabled() for note in check.folder_notes] == [False, False]
    assert machine.tree(HOST) == before
    leave(app)


def test_cancel_in_the_menu_and_in_the_question_recycles_nothing(app, machine):
    orphan_folders(machine, "dat")
    before = machine.tree(HOST)
    check = open_check(app)
    check.folders.select("dat")
    choose(app, "dat", "キャンセル")
    assert not app.box.shown()
    choose(app, "dat", RECYCLE)
    app.answer(RECYCLE_QUESTION, "Cancel")
    check.wait_enabled()
    assert machine.tree(HOST) == before
    assert check.folders.entries() == ["dat"] and check.folders.selected() == ["dat"]
    leave(app)


def test_with_nothing_selected_no_menu_opens(app, machine):
    orphan_folders(machine, "dat")
    check = open_check(app)
    check.folders.select()
    right_click_row(check.folders, "dat")
    # A click that follows has its turn after the right one.
    check.folders.real_click_row("dat")
    wait_until(lambda: check.folders.selected() == ["dat"], "the row to be selected")
    assert not folder_menu(app).shown()
    leave(app)


def test_what_a_linked_folder_points_to_is_not_recycled(app, machine):
    machine.write("D:\\Elsewhere\\kept.txt", b"the only copy")
    machine.path(HOST + "\\link").symlink_to(machine.path("D:\\Elsewhere"))
    check = open_check(app)
    assert check.folders.entries() == ["link"]
    recycle_by_message(app, "link")
    assert machine.read("D:\\Elsewhere\\kept.txt") == b"the only copy"
    leave(app)
    machine.path(HOST + "\\link").unlink()


def test_the_check_of_the_other_host(app, machine):
    machine.write(OTHER_HOST + "\\lonely.obl", b"")
    app.main.combo1.select(OTHER_HOST)
    check = open_check(app)
    assert check.files.entries() == ["lonely.obl"]
    assert check.folders.entries() == [NOTHING]
    leave(app)

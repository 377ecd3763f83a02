"""The folder structure check: what it lists, deleting, and the recycle bin."""

import pathlib
import re
import urllib.parse

import pytest

from controls import right_click_row, wait_until
from maintenance_scene import (  # noqa: F401
    HOST,
    app,
    machine,
    scene,
    scenes,
)
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


def choose(app, folder, text):
    """Chooses from the menu of a folder."""
    right_click_row(app.check.folders, folder)
    folder_menu(app).wait_shown().click_item(text)
    folder_menu(app).wait_gone()


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


def test_halves_are_listed_and_the_definition_files_deleted(app, machine):
    orphan_folders(machine, "dat", "odd.obl.d", "ソ能", "Hidamari")
    orphan_files(machine, "HIDAMARI.OBL")
    before = machine.tree(HOST)
    orphan_files(machine, "akane.obl", "能 空.OBL", "odd.obl")
    check = open_check(app)
    assert check.files.entries() == ["akane.obl", "odd.obl", "能 空.OBL"]
    assert check.folders.entries() == ["dat", "odd.obl.d", "ソ能"]
    assert check.files.enabled() and check.delete.enabled() and check.file_note.enabled()
    assert check.folders.enabled()
    assert [note.enabled() for note in check.folder_notes] == [True, True]
    assert not check.general_note.visible()
    check.delete.press()
    app.answer(DELETE_QUESTION, "OK")
    check.wait_enabled()
    wait_until(lambda: check.files.entries() == [], "the list to be cleared")
    assert machine.tree(HOST) == before
    assert not check.files.enabled() and not check.delete.enabled() and not check.file_note.enabled()
    assert not app.box.shown()
    leave(app)


def test_a_host_folder_that_is_gone_is_reported_and_opens_no_window(app, machine):
    away = machine.path("C:\\Away")
    machine.path(HOST).rename(away)
    app.main.check_folders.press()
    wait_report(app, 76)
    app.main.wait_enabled()
    assert not app.box.shown() and not app.check.shown()
    away.rename(machine.path(HOST))


@pytest.mark.parametrize("by", ["button", "close box", "escape"])
def test_ways_to_leave(app, machine, by):
    orphan_folders(machine, "dat")
    before = machine.tree(HOST)
    open_check(app)
    leave(app, by)
    assert machine.tree(HOST) == before
    assert app.running()


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
    choose(app, "dat", "キャンセル")
    assert not app.box.shown()
    choose(app, "dat", RECYCLE)
    app.answer(RECYCLE_QUESTION, "Cancel")
    check.wait_enabled()
    assert machine.tree(HOST) == before
    assert check.folders.selected() == ["alpha", "dat", "表ソ"]
    choose(app, "dat", RECYCLE)
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


def test_what_a_linked_folder_points_to_is_not_recycled(app, machine):
    machine.write("D:\\Elsewhere\\kept.txt", b"the only copy")
    machine.path(HOST + "\\link").symlink_to(machine.path("D:\\Elsewhere"))
    check = open_check(app)
    assert check.folders.entries() == ["link"]
    check.folders.select("link")
    choose(app, "link", RECYCLE)
    app.answer(RECYCLE_QUESTION, "OK")
    check.wait_enabled()
    assert machine.read("D:\\Elsewhere\\kept.txt") == b"the only copy"
    leave(app)
    machine.path(HOST + "\\link").unlink()

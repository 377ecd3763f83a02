"""Uninstalling a character: what goes, what stays, and what is asked."""

from controls import click, wait_until
from maintenance_scene import (  # noqa: F401
    HOST,
    OTHER_HOST,
    app,
    machine,
    scene,
    scenes,
)

QUESTION = "現在選択されているオンブレルをアンインストールしてもよろしいですか？"
DONE = "アンインストールが完了しました。"


def without(tree, *names):
    """A tree without these files and folders and what the folders hold."""
    return {
        path: data
        for path, data in tree.items()
        if not any(path == name or path.startswith(name + "/") for name in names)
    }


def uninstall(app, *characters):
    app.main.list3.select(*characters)
    app.main.uninstall.press()
    app.answer(QUESTION, "OK")
    app.answer(DONE, "OK")
    app.main.wait_enabled()


def test_a_character_goes_for_good_with_its_read_only_files(app, machine):
    before = machine.tree(HOST)
    others = machine.tree(OTHER_HOST)
    machine.write(HOST + "\\表ソ能\\dat\\deep\\locked.txt", b"read-only")
    machine.path(HOST + "\\表ソ能\\dat\\deep\\locked.txt").chmod(0o444)
    uninstall(app, "表ソ能")
    main = app.main
    assert machine.tree(HOST) == without(before, "表ソ能", "表ソ能.obl")
    assert machine.tree(OTHER_HOST) == others
    assert main.list3.entries() == ["mikan", "yuzu", "空 白"]
    assert main.list3.selected() == []
    assert not main.uninstall.enabled() and not main.deselect_installed.enabled()
    assert list(machine.prefix.glob("user_data/Trash/files/*")) == []


def test_the_whole_uninstall_with_the_mouse(app, machine):
    before = machine.tree(HOST)
    main = app.main
    main.list3.real_click_row("yuzu")
    wait_until(main.uninstall.enabled, "the uninstall button")
    main.uninstall.real_click()
    box = app.wait_box()
    ok = next(c for c in box.controls() if c["id"] == 1)
    left, top, right, bottom = ok["area"]
    click((left + right) // 2, (top + bottom) // 2)
    wait_until(lambda: box.shown() and box.text() == DONE, "the completion message")
    box.press("OK")
    main.wait_enabled()
    assert machine.tree(HOST) == without(before, "yuzu", "yuzu.obl")


def test_what_a_linked_character_folder_points_to_stays(app, machine):
    """Wine follows a link of the system in every call, so there the link itself stays as well."""
    machine.write("D:\\Elsewhere\\mikan.txt", b"the only copy")
    machine.write("D:\\Elsewhere\\dat\\image.bin", b"an image")
    machine.path(HOST + "\\mikan").rename(machine.path(HOST + "\\former"))
    machine.path(HOST + "\\mikan").symlink_to(machine.path("D:\\Elsewhere"))
    app.main.combo1.select(OTHER_HOST)
    app.main.combo1.select(HOST)
    uninstall(app, "mikan")
    assert machine.tree("D:\\Elsewhere") == {
        "dat/": b"",
        "dat/image.bin": b"an image",
        "mikan.txt": b"the only copy",
    }
    assert machine.path(HOST + "\\mikan.obl").exists()
    assert "mikan" in app.main.list3.entries()
    uninstall(app, "yuzu")
    assert not machine.path(HOST + "\\yuzu").exists()


def test_what_a_link_within_a_character_folder_points_to_stays(app, machine):
    machine.write("D:\\Elsewhere\\kept.txt", b"the only copy")
    machine.path(HOST + "\\mikan\\dat\\link").symlink_to(machine.path("D:\\Elsewhere"))
    uninstall(app, "mikan")
    assert machine.tree("D:\\Elsewhere")["kept.txt"] == b"the only copy"
    assert machine.path(HOST + "\\mikan.obl").exists()


def test_a_character_folder_that_cannot_be_deleted_keeps_its_definition_file(app, machine):
    """The shell's failure is not reported, but the character is still there."""
    before = machine.tree(HOST)
    machine.path(HOST + "\\yuzu").chmod(0o555)
    uninstall(app, "yuzu")
    machine.path(HOST + "\\yuzu").chmod(0o755)
    after = machine.tree(HOST)
    assert "yuzu/yuzu.txt" in after and "yuzu.obl" in after
    assert without(after, "yuzu") == without(before, "yuzu")
    assert app.main.list3.entries() == ["mikan", "yuzu", "空 白", "表ソ能"]

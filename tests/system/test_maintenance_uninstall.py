"""Uninstalling a character: what goes, what stays, and what is asked."""

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

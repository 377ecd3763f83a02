"""From selected packages to characters in the host."""

import lzh_packages
from controls import tab_to, wait_until
from document_recorder import Recorder
from sandbox import settings
from windows import ALWAYS

DONE = "インストールが完了しました。"
CANCELLED = "インストールを中止しました。"
NONE = "（なし）"
HOST = "C:\\Vimora"


def as_tree(content):
    """A package's content as Machine.tree shows it: with every folder on the way."""
    tree = dict(content)
    for path in content:
        parts = path.rstrip("/").split("/")
        for depth in range(1, len(parts)):
            tree["/".join(parts[:depth]) + "/"] = b""
    return tree


def propose(app, *packages):
    """Selects packages and presses install, up to the confirmation window."""
    app.main.list2.select(*packages)
    app.main.install.press()
    return app.confirmation.wait_shown()


def finish(app):
    box = app.wait_box()
    assert box.buttons() == ["OK"]
    assert box.has_icon()
    app.answer(DONE, "OK")
    app.main.wait_enabled()


def confirm(app):
    app.confirmation.install.press()
    finish(app)


def install(app, *packages):
    propose(app, *packages)
    confirm(app)


def assert_not_staged(machine):
    for drive in "CD":
        assert not machine.path(f"{drive}:\\TAMTMP").exists()


def test_a_package_with_two_characters(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "futari.lzh")
    assert confirmation.title() == "インストールするオンブレルの確認 - Tamblin - "
    assert confirmation.list1.entries() == ["haruka （futari.lzh）", "minato （futari.lzh）"]
    assert confirmation.list2.entries() == [NONE]
    assert confirmation.list3.entries() == [NONE]
    assert not confirmation.label6.visible()
    assert not running.main.enabled()
    assert machine.tree(HOST) == before
    confirm(running)
    assert machine.tree(HOST) == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}
    assert_not_staged(machine)
    main = running.main
    assert main.list3.entries() == ["haruka", "mikan", "minato", "yuzu"]
    assert main.list2.selected() == []
    assert main.install.enabled()
    assert not main.deselect_files.enabled()


def test_the_whole_install_with_the_mouse(running, machine):
    main = running.main
    main.list2.real_click_row("futari.lzh")
    wait_until(main.install.enabled, "the install button")
    main.install.real_click()
    running.confirmation.wait_shown().install.real_click()
    finish(running)
    assert main.list3.entries() == ["haruka", "mikan", "minato", "yuzu"]
    assert machine.tree(HOST)["haruka.obl"] == lzh_packages.definition("haruka")


def test_the_whole_install_with_the_keyboard(running, machine):
    main = running.main
    tab_to(main.list2)
    while (before := main.list2.selected()) != ["futari.lzh"]:
        main.press_keys("Down")
        wait_until(lambda: main.list2.selected() != before, "the next file to be selected")
    tab_to(main.install)
    main.press_keys("space")
    confirmation = running.confirmation.wait_shown()
    tab_to(confirmation.install)
    confirmation.press_keys("Return")
    running.wait_box().press_keys("Return")
    running.box.wait_gone()
    main.wait_enabled()
    assert main.list3.entries() == ["haruka", "mikan", "minato", "yuzu"]
    assert machine.tree(HOST)["haruka.obl"] == lzh_packages.definition("haruka")


def test_cancelling_changes_nothing(running, machine):
    before = machine.tree(HOST)
    propose(running, "futari.lzh").cancel.press()
    box = running.wait_box()
    assert box.has_icon()
    running.answer(CANCELLED, "OK")
    running.main.wait_enabled()
    assert machine.tree(HOST) == before
    assert_not_staged(machine)
    assert running.main.list2.selected() == ["futari.lzh"]
    assert running.main.enabled_commands() == ALWAYS | {"install", "deselect_files"}


def test_names_in_japanese(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "表ソ能.lzh")
    assert sorted(confirmation.list1.entries()) == ["表ソ能 （表ソ能.lzh）", "ｶﾅ （表ソ能.lzh）"]
    confirm(running)
    assert machine.tree(HOST) == {**before, **as_tree(lzh_packages.JAPANESE)}
    assert set(running.main.list3.entries()) == {"mikan", "yuzu", "表ソ能", "ｶﾅ"}


def test_a_note_is_shown_minimised_with_focus_after_the_install(running, machine):
    recorder = Recorder(machine)
    recorder.clear()
    install(running, "sora.LZH")
    (record,) = recorder.wait_records(1)
    assert record["command line"] == recorder.opened(HOST + "\\sora\\sora-X.txt")
    assert record["show command"] == "2"


HOST_KAVALET = b"# host\r\nsora,start,1\r\nother,x,1\r\n"
MERGED_KAVALET = b"# host\r\nsora,start,2\r\nother,x,1\r\nsora,stop,9\r\nsora,new,1\r\n"


def kavalet_files(machine):
    files = machine.path(HOST).iterdir()
    return {path.name.lower(): path.read_bytes() for path in files if path.stem.lower() == "kva"}


def test_launcher_definitions_are_merged_when_allowed(furnished, machine):
    furnished.write_ini(*settings(kavalet="on"))
    machine.write(HOST + "\\kva.def", HOST_KAVALET)
    furnished.start_main()
    install(furnished, "sora.LZH")
    assert kavalet_files(machine) == {"kva.def": MERGED_KAVALET, "kva.tmp": HOST_KAVALET}
    assert machine.read(HOST + "\\sora\\KVA.DEF") == lzh_packages.WITH_KAVALET["sora/KVA.DEF"]


def test_two_archives_at_once(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "futari.lzh", "sora.LZH")
    assert confirmation.list1.entries() == [
        "haruka （futari.lzh）",
        "minato （futari.lzh）",
        "sora （sora.LZH）",
    ]
    confirm(running)
    wanted = {**lzh_packages.TWO_CHARACTERS, **lzh_packages.WITH_KAVALET}
    assert machine.tree(HOST) == {**before, **as_tree(wanted)}


def test_the_host_on_another_drive(running, machine):
    before = machine.tree("D:\\Games\\Vimora")
    untouched = machine.tree(HOST)
    running.main.combo1.select("D:\\Games\\Vimora")
    confirmation = propose(running, "futari.lzh")
    assert machine.path("D:\\TAMTMP\\haruka.obl").exists()
    assert not machine.path("C:\\TAMTMP").exists()
    confirm(running)
    assert machine.tree("D:\\Games\\Vimora") == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}
    assert machine.tree(HOST) == untouched
    assert_not_staged(machine)
    assert running.main.list3.entries() == ["haruka", "kinako", "minato"]

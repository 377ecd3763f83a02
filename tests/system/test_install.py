"""From selected packages to characters in the host."""

import shutil

import pytest

import lzh_packages
from controls import tab_to, wait_until
from document_recorder import Recorder
from sandbox import settings
from windows import ALWAYS

DONE = "インストールが完了しました。"
CANCELLED = "インストールを中止しました。"
UNPACK_FAILED = "パッケージの解凍に失敗しました。"
NONE = "（なし）"
NOTE = (
    "tambに対応した形式ではありませんでした。\n"
    "これらをインストールする場合は手動で行ってください。"
)
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


def install(app, *packages):
    propose(app, *packages).install.press()
    finish(app)


def assert_not_staged(machine, *drives):
    for drive in drives:
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
    confirmation.install.press()
    finish(running)
    assert machine.tree(HOST) == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}
    assert_not_staged(machine, "C", "D")
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
    assert_not_staged(machine, "C", "D")
    assert running.main.list2.selected() == ["futari.lzh"]
    assert running.main.enabled_commands() == ALWAYS | {"install", "deselect_files"}


def test_escape_in_the_confirmation_cancels(running, machine):
    before = machine.tree(HOST)
    propose(running, "futari.lzh").press_keys("Escape")
    running.answer(CANCELLED, "OK")
    running.main.wait_enabled()
    assert machine.tree(HOST) == before


def test_closing_the_confirmation_by_its_frame_goes_on_to_install(running):
    propose(running, "futari.lzh").close()
    finish(running)
    assert running.main.list3.entries() == ["haruka", "mikan", "minato", "yuzu"]


def test_two_archives_at_once(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "futari.lzh", "sora.LZH")
    assert confirmation.list1.entries() == [
        "haruka （futari.lzh）",
        "minato （futari.lzh）",
        "sora （sora.LZH）",
    ]
    confirmation.install.press()
    finish(running)
    wanted = {**lzh_packages.TWO_CHARACTERS, **lzh_packages.WITH_KAVALET}
    assert machine.tree(HOST) == {**before, **as_tree(wanted)}


def test_the_host_on_another_drive(running, machine):
    before = machine.tree("D:\\Games\\Vimora")
    untouched = machine.tree(HOST)
    running.main.combo1.select("D:\\Games\\Vimora")
    confirmation = propose(running, "futari.lzh")
    assert machine.path("D:\\TAMTMP\\haruka.obl").exists()
    assert_not_staged(machine, "C")
    confirmation.install.press()
    finish(running)
    assert machine.tree("D:\\Games\\Vimora") == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}
    assert machine.tree(HOST) == untouched
    assert_not_staged(machine, "C", "D")
    assert running.main.list3.entries() == ["haruka", "kinako", "minato"]


def test_what_is_installed_already_stays_as_it_is(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "mikan.lzh")
    assert confirmation.list1.entries() == [NONE]
    assert confirmation.list2.entries() == [NONE]
    assert confirmation.list3.entries() == ["mikan （mikan.lzh）"]
    assert not confirmation.install.enabled()
    confirmation.cancel.press()
    running.answer(CANCELLED, "OK")
    running.main.wait_enabled()
    assert machine.tree(HOST) == before


def test_beside_an_installed_one_only_the_others_are_installed(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "futari.lzh", "mikan.lzh")
    assert confirmation.list1.entries() == ["haruka （futari.lzh）", "minato （futari.lzh）"]
    assert confirmation.list3.entries() == ["mikan （mikan.lzh）"]
    confirmation.install.press()
    finish(running)
    assert machine.tree(HOST) == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}


@pytest.mark.parametrize("package", ["picture.lzh", "loose.lzh"])
def test_a_package_in_another_form_cannot_be_installed(running, machine, package):
    before = machine.tree(HOST)
    confirmation = propose(running, package)
    assert confirmation.list1.entries() == [NONE]
    assert confirmation.list2.entries() == [package]
    assert confirmation.label6.visible()
    assert confirmation.label6.text().replace("\r\n", "\n") == NOTE
    assert not confirmation.install.enabled()
    confirmation.cancel.press()
    running.answer(CANCELLED, "OK")
    assert machine.tree(HOST) == before
    assert_not_staged(machine, "C")


def test_the_same_content_twice_cannot_be_judged(running, machine):
    shutil.copy(machine.path("C:\\Packages\\futari.lzh"), machine.path("C:\\Packages\\futari2.lzh"))
    running.main.browse("C:\\Packages")
    confirmation = propose(running, "futari.lzh", "futari2.lzh")
    assert confirmation.list1.entries() == ["haruka （futari.lzh）", "minato （futari.lzh）"]
    assert confirmation.list2.entries() == ["futari2.lzh （判定不能）"]


def test_a_loose_definition_file_cannot_be_installed(running, machine):
    machine.write("C:\\Packages\\kinako.obl", lzh_packages.definition("kinako"))
    running.main.browse("C:\\Packages")
    before = machine.tree(HOST)
    confirmation = propose(running, "futari.lzh", "kinako.obl")
    assert confirmation.list2.entries() == ["kinako.obl"]
    confirmation.install.press()
    finish(running)
    assert machine.tree(HOST) == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}


@pytest.mark.parametrize("package", ["damaged.lzh", "cut.lzh", "hostile.lzh"])
def test_a_bad_archive_ends_the_install(running, machine, package):
    before = {drive: machine.tree(f"{drive}:\\") for drive in "D"}
    host = machine.tree(HOST)
    main = running.main
    main.list2.select(package)
    main.install.press()
    box = running.wait_box()
    assert box.buttons() == ["OK"]
    assert not box.has_icon()
    running.answer(UNPACK_FAILED, "OK")
    main.wait_enabled()
    assert machine.tree(HOST) == host
    assert {drive: machine.tree(f"{drive}:\\") for drive in "D"} == before
    assert not list(machine.prefix.rglob("evil.txt"))
    assert_not_staged(machine, "C", "D")
    assert not main.install.enabled()
    assert not running.confirmation.shown()
    # The program goes on as ever.
    install(running, "futari.lzh")
    assert main.list3.entries() == ["haruka", "mikan", "minato", "yuzu"]


def test_a_bad_archive_discards_those_before_it(running, machine):
    before = machine.tree(HOST)
    shutil.copy(machine.path("C:\\Packages\\damaged.lzh"), machine.path("C:\\Packages\\z.lzh"))
    running.main.browse("C:\\Packages")
    running.main.list2.select("futari.lzh", "z.lzh")
    running.main.install.press()
    running.answer(UNPACK_FAILED, "OK")
    running.main.wait_enabled()
    assert machine.tree(HOST) == before
    assert_not_staged(machine, "C")


def test_names_in_japanese(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "表ソ能.lzh")
    assert sorted(confirmation.list1.entries()) == ["表ソ能 （表ソ能.lzh）", "ｶﾅ （表ソ能.lzh）"]
    confirmation.install.press()
    finish(running)
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


def test_launcher_definitions_stay_when_not_allowed(running, machine):
    machine.write(HOST + "\\kva.def", HOST_KAVALET)
    install(running, "sora.LZH")
    assert kavalet_files(machine) == {"kva.def": HOST_KAVALET}
    assert machine.read(HOST + "\\sora\\KVA.DEF") == lzh_packages.WITH_KAVALET["sora/KVA.DEF"]


def test_a_staging_folder_left_over_is_cleared_first(running, machine):
    machine.write("C:\\TAMTMP\\old\\deeper\\file.txt", b"left over")
    machine.write("C:\\TAMTMP\\old.obl", b"left over")
    before = machine.tree(HOST)
    install(running, "futari.lzh")
    assert machine.tree(HOST) == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}
    assert_not_staged(machine, "C")


def test_a_definition_file_in_the_way_is_replaced(running, machine):
    machine.write(HOST + "\\haruka.obl", b"half of an older install")
    install(running, "futari.lzh")
    assert machine.read(HOST + "\\haruka.obl") == lzh_packages.definition("haruka")

"""First starts on a bare machine: the wizard and the search for host folders."""

import pytest

from controls import wait_until
from hosts import make_host
from set_up_scene import (  # noqa: F401
    DEFAULT_QUESTION,
    REGISTER_QUESTION,
    app,
    assert_main_shows,
    drives,
    fresh_settings,
    leave_main,
    make_hosts,
    make_known,
    search_from_start,
    shown_windows,
    start_main,
    start_wizard,
    wait_only,
)

HOST = "C:\\Programs 表ソ\\Vimora 能"


# The wizard


@pytest.mark.parametrize("way", ["button", "close box", "escape"])
def test_giving_up_ends_the_program_and_writes_nothing(app, machine, way):
    before = machine.tree("C:\\Tamblin")
    start_wizard(app)
    assert app.wizard.title() == "環境設定ウィザード  - Tamblin -"
    assert app.wizard.give_up.text() == "終了"
    app.wizard.leave_by(way, app.wizard.give_up)
    app.wait_ended()
    assert shown_windows(app) == []
    assert machine.tree("C:\\Tamblin") == before


# Searching


@pytest.mark.usefixtures("fresh")
def test_one_host_becomes_the_default(app, machine):
    make_host(machine, HOST, ["mikan", "yuzu"])
    search_from_start(app)
    assert_main_shows(app, HOST, selected=HOST)
    assert app.main.list3.entries() == ["mikan", "yuzu"]
    leave_main(app)
    assert app.ini() == fresh_settings(HOST, default=HOST)
    app.start()
    assert_main_shows(app, HOST, selected=HOST)
    assert app.main.list3.entries() == ["mikan", "yuzu"]


@pytest.mark.usefixtures("fresh")
def test_three_hosts_on_the_fixed_drives_and_one_on_a_removable_drive(app, machine):
    # Subfolders are searched from the last to the first.
    found = ["C:\\Second\\Vimora", "C:\\First\\Vimora", "D:\\Games\\表ソ\\Vimora"]
    make_hosts(machine, *found, "F:\\Vimora", characters=["mikan"])
    search_from_start(app)
    choice = wait_only(app, app.choice)
    assert choice.title() == "VMRフォルダの選択 - Tamblin -"
    assert choice.question.text() == REGISTER_QUESTION
    assert choice.found.visible() and not choice.default.visible()
    assert choice.found.entries() == found
    assert choice.found.ticked() == []
    assert not choice.ok.enabled()

    choice.found.press_space(found[0])
    assert choice.ok.enabled()
    choice.found.press_space(found[0])
    assert not choice.ok.enabled()
    choice.found.real_click_box(found[2])
    choice.found.press_space(found[1])
    assert choice.found.ticked() == found[1:]
    choice.ok.press()

    wait_until(lambda: choice.question.text() == DEFAULT_QUESTION, "the second question")
    assert choice.default.visible() and not choice.found.visible()
    assert choice.default.entries() == found[1:]
    assert choice.default.selected() == []
    assert not choice.ok.enabled()
    choice.default.select(found[2])
    wait_until(choice.ok.enabled, "the OK button")
    choice.ok.press()

    assert_main_shows(app, *found[1:], selected=found[2])
    leave_main(app)
    assert app.ini() == fresh_settings(*found[1:], default=found[2])
    app.start()
    assert_main_shows(app, *found[1:], selected=found[2])


def test_closing_the_choice_goes_back_to_the_wizard(app, machine):
    make_hosts(machine, "C:\\Vimora", "D:\\Vimora")
    search_from_start(app)
    wait_only(app, app.choice).close()
    wait_only(app, app.wizard)
    app.wizard.search.press()
    wait_only(app, app.choice).press_keys("Escape")
    wait_only(app, app.wizard)
    app.wizard.give_up.press()
    app.wait_ended()
    assert not app.has_ini()


def test_odd_trees_are_searched_to_their_end_without_a_word(app, machine):
    """Links that lead back, folders that the user may not open, names beyond the code page, and the
    only host far down."""
    deep = "D:\\" + "\\".join(["a name of 20 letters"] * 20) + "\\Vimora"
    assert len(deep) > 400
    make_host(machine, deep, ["mikan"])
    machine.write("C:\\Привет 한국 😀\\inside\\ombrel.exe", b"")
    machine.path("C:\\round").symlink_to(machine.path("C:\\"))
    machine.path("D:\\again").symlink_to(machine.path(deep))
    folders = ["C:\\closed 1", "C:\\closed 2", deep + "\\closed 3", "D:\\closed 4"]
    for folder in folders:
        make_host(machine, folder + "\\inside")
        machine.path(folder).chmod(0o000)
    try:
        search_from_start(app)
        assert_main_shows(app, deep, selected=deep)
        assert app.main.list3.entries() == ["mikan"]
    finally:
        for folder in folders:
            machine.path(folder).chmod(0o755)


def test_several_new_folders_join_the_registered_one(app, machine):
    make_hosts(machine, "D:\\One", "D:\\Two")
    make_known(app, "C:\\Vimora")
    start_main(app).manage_folders.press()
    wait_only(app, app.management).add.press()
    wait_only(app, app.wizard).search.press()
    choice = wait_only(app, app.choice)
    assert choice.found.entries() == ["C:\\Vimora", "D:\\Two", "D:\\One"]
    assert choice.found.ticked() == ["C:\\Vimora"]
    assert choice.ok.enabled()
    choice.found.press_space("D:\\One")
    choice.ok.press()
    wait_until(lambda: choice.question.text() == DEFAULT_QUESTION, "the second question")
    choice.default.select("D:\\One")
    wait_until(choice.ok.enabled, "the OK button")
    choice.ok.press()
    management = wait_only(app, app.management)
    assert management.folders.entries() == ["C:\\Vimora", "D:\\One"]
    assert management.folders.selected() == ["D:\\One"]
    management.leave.press()
    assert_main_shows(app, "C:\\Vimora", "D:\\One", selected="D:\\One")

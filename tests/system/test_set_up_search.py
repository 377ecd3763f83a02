"""First starts on a bare machine: the wizard and the search for host folders."""

import pytest

from controls import wait_until
from hosts import make_host
from set_up_scene import (  # noqa: F401
    CANCELLED,
    DEFAULT_QUESTION,
    NO_HOST,
    NOTHING_NEW,
    REGISTER_QUESTION,
    SPARE,
    app,
    assert_main_shows,
    drives,
    fresh_settings,
    leave_main,
    make_known,
    shown_windows,
    start_main,
    start_wizard,
    wait_only,
)

HOST = "C:\\Programs 表ソ\\Vimora 能"


def search(app):
    app.wizard.search.press()


# The wizard


@pytest.mark.parametrize("way", ["button", "close box", "escape"])
def test_giving_up_ends_the_program_and_writes_nothing(app, machine, way):
    before = machine.tree("C:\\Tamblin")
    start_wizard(app)
    assert app.wizard.title() == "環境設定ウィザード  - Tamblin -"
    assert app.wizard.give_up.text() == "終了"
    if way == "button":
        app.wizard.give_up.press()
    elif way == "close box":
        app.wizard.close()
    else:
        app.wizard.press_keys("Escape")
    app.wait_ended()
    assert shown_windows(app) == []
    assert machine.tree("C:\\Tamblin") == before


# Searching


@pytest.mark.usefixtures("fresh")
def test_a_machine_without_a_host_goes_back_to_the_wizard_without_a_message(app, machine):
    machine.write("D:\\Half\\ombrel.exe", b"without its start-up file")
    make_host(machine, "F:\\Vimora")
    start_wizard(app)
    search(app)
    wait_only(app, app.wizard)
    app.wizard.give_up.press()
    app.wait_ended()
    assert not app.has_ini()


@pytest.mark.usefixtures("fresh")
def test_one_host_becomes_the_default(app, machine):
    make_host(machine, HOST, ["mikan", "yuzu"])
    start_wizard(app)
    search(app)
    wait_only(app, app.main)
    assert_main_shows(app, HOST, selected=HOST)
    assert app.main.list3.entries() == ["mikan", "yuzu"]
    leave_main(app)
    assert app.ini() == fresh_settings(HOST, default=HOST)
    start_main(app)
    assert_main_shows(app, HOST, selected=HOST)
    assert app.main.list3.entries() == ["mikan", "yuzu"]


def test_a_host_in_a_drives_root_and_spelled_in_capitals(app, machine):
    machine.write("D:\\OMBREL.EXE", b"")
    machine.write("D:\\Ombrel.RC", b"")
    start_wizard(app)
    search(app)
    wait_only(app, app.main)
    assert_main_shows(app, "D:\\", selected="D:\\")
    leave_main(app)
    assert app.ini() == fresh_settings("D:\\", default="D:\\")


@pytest.mark.usefixtures("fresh")
def test_three_hosts_on_the_fixed_drives_and_one_on_a_removable_drive(app, machine):
    # Subfolders are searched from the last to the first.
    found = ["C:\\Second\\Vimora", "C:\\First\\Vimora", "D:\\Games\\表ソ\\Vimora"]
    for folder in [*found, "F:\\Vimora"]:
        make_host(machine, folder, ["mikan"])
    start_wizard(app)
    search(app)
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

    wait_only(app, app.main)
    assert_main_shows(app, *found[1:], selected=found[2])
    leave_main(app)
    assert app.ini() == fresh_settings(*found[1:], default=found[2])
    start_main(app)
    assert_main_shows(app, *found[1:], selected=found[2])


def test_one_tick_among_several_needs_no_second_question(app, machine):
    for folder in ["C:\\Vimora", "D:\\Vimora"]:
        make_host(machine, folder)
    start_wizard(app)
    search(app)
    choice = wait_only(app, app.choice)
    choice.found.press_space("D:\\Vimora")
    choice.ok.press()
    wait_only(app, app.main)
    assert_main_shows(app, "D:\\Vimora", selected="D:\\Vimora")
    leave_main(app)
    assert app.ini() == fresh_settings("D:\\Vimora", default="D:\\Vimora")


def test_closing_the_choice_goes_back_to_the_wizard(app, machine):
    for folder in ["C:\\Vimora", "D:\\Vimora"]:
        make_host(machine, folder)
    start_wizard(app)
    search(app)
    wait_only(app, app.choice).close()
    wait_only(app, app.wizard)
    search(app)
    wait_only(app, app.choice).press_keys("Escape")
    wait_only(app, app.wizard)
    app.wizard.give_up.press()
    app.wait_ended()
    assert not app.has_ini()


def test_closing_the_choice_of_the_default_goes_on_to_the_main_window(app, machine):
    for folder in ["C:\\Vimora", "D:\\Vimora"]:
        make_host(machine, folder)
    start_wizard(app)
    search(app)
    choice = wait_only(app, app.choice)
    choice.found.press_space("C:\\Vimora")
    choice.found.press_space("D:\\Vimora")
    choice.ok.press()
    wait_until(lambda: choice.question.text() == DEFAULT_QUESTION, "the second question")
    choice.close()
    wait_only(app, app.main)
    assert_main_shows(app, "C:\\Vimora", "D:\\Vimora", selected=None)
    leave_main(app)
    assert app.ini() == fresh_settings("C:\\Vimora", "D:\\Vimora", default="")


# Cancelling


@pytest.fixture
def large(machine):
    """So many folders that a search goes on until it is cancelled, with a host among those that are
    searched first. The spare drives hold the same few thousand."""
    make_host(machine, "C:\\zzz\\Vimora")
    # Making and removing them takes longer than a test, so they only come and go.
    folders = machine.prefix / "large"
    if not folders.exists():
        for outer in range(50):
            for inner in range(50):
                (folders / f"{outer:02}" / f"{inner:02}").mkdir(parents=True)
            (folders / f"{outer:02}" / "file.txt").write_bytes(b"")
    drives = [machine.path(letter + ":\\") for letter in SPARE]
    for drive in drives:
        drive.rmdir()
        drive.symlink_to(folders)
    yield machine
    for drive in drives:
        empty_again(drive)


def empty_again(drive):
    if drive.is_symlink():
        drive.unlink()
        drive.mkdir()


def wait_searching(app):
    app.search.wait_shown()
    wait_until(lambda: app.search.folder_count.text().strip(), "the first folders to be searched")


@pytest.mark.parametrize("way", ["button", "close box", "escape"])
def test_cancelling_in_the_middle_forgets_what_was_found(app, large, way):
    make_host(large, "D:\\By hand")
    start_wizard(app)
    search(app)
    wait_searching(app)
    assert app.search.title() == "VMRフォルダを検索中... - Tamblin -"
    assert shown_windows(app) == [app.search.CLASS]
    if way == "button":
        app.search.cancel.press()
    elif way == "close box":
        app.search.close()
    else:
        app.search.press_keys("Escape")
    box = app.wait_box()
    assert box.buttons() == ["OK"]
    assert not box.has_icon()
    app.answer(CANCELLED, "OK")
    wait_only(app, app.wizard)
    app.wizard.by_hand.press()
    manual = wait_only(app, app.manual)
    manual.type_folder("D:\\By hand")
    manual.ok.press()
    wait_only(app, app.main)
    assert_main_shows(app, "D:\\By hand", selected="D:\\By hand")


def test_the_cancel_button_answers_at_once(app, large):
    """Within 0.1 s of work beyond what any message box takes."""
    start_wizard(app)
    app.wizard.by_hand.press()
    manual = wait_only(app, app.manual)
    usual = work_until_message_box(app, manual.ok)
    app.answer(NO_HOST, "OK")
    wait_only(app, manual).back.press()
    wait_only(app, app.wizard)
    search(app)
    wait_searching(app)
    taken = work_until_message_box(app, app.search.cancel)
    app.answer(CANCELLED, "OK")
    wait_only(app, app.wizard)
    assert taken < 2 * usual + 0.1, f"{taken} s, usually {usual} s"


def work_until_message_box(app, button):
    """The processor time that the program takes; on a machine under load it waits besides."""
    before = app.processor_time()
    app.operator.ask("press-until-message-box", button.handle)
    return app.processor_time() - before


def test_the_counters_live_during_the_search(app, large):
    start_wizard(app)
    search(app)
    wait_searching(app)
    assert app.search.drive.text() in [letter + ":\\" for letter in "C" + SPARE.upper()]
    first = int(app.search.folder_count.text())
    wait_until(lambda: int(app.search.folder_count.text()) > first, "the folders to be counted on")
    assert app.search.folder_count.text().startswith(" ")
    wait_until(lambda: app.search.found_count.text() == "1", "the host to be found")
    app.search.cancel.press()
    app.answer(CANCELLED, "OK")
    wait_only(app, app.wizard)


def test_a_search_after_a_cancelled_one_finds_everything(app, large):
    start_wizard(app)
    search(app)
    wait_searching(app)
    app.search.cancel.press()
    app.answer(CANCELLED, "OK")
    wait_only(app, app.wizard)
    for letter in SPARE[1:]:
        empty_again(large.path(letter + ":\\"))
    search(app)
    wait_only(app, app.main)
    assert_main_shows(app, "C:\\zzz\\Vimora", selected="C:\\zzz\\Vimora")


# Odd trees


def test_links_are_not_searched(app, machine):
    make_host(machine, "C:\\Vimora")
    machine.path("C:\\round").symlink_to(machine.path("C:\\"))
    machine.path("D:\\again").symlink_to(machine.path("C:\\Vimora"))
    start_wizard(app)
    search(app)
    wait_only(app, app.main)
    assert_main_shows(app, "C:\\Vimora", selected="C:\\Vimora")


def test_folders_that_the_user_may_not_open_are_passed_over_without_a_word(app, machine):
    make_host(machine, "C:\\Vimora")
    folders = ["C:\\closed 1", "C:\\closed 2", "C:\\Vimora\\closed 3", "D:\\closed 4"]
    closed = [machine.make_folder(folder) for folder in folders]
    for folder in folders:
        make_host(machine, folder + "\\inside")
    for folder in closed:
        folder.chmod(0o000)
    try:
        start_wizard(app)
        search(app)
        wait_only(app, app.main)
        assert_main_shows(app, "C:\\Vimora", selected="C:\\Vimora")
    finally:
        for folder in closed:
            folder.chmod(0o755)


def test_a_host_far_down_and_names_that_are_not_in_the_code_page(app, machine):
    deep = "D:\\" + "\\".join(["a name of 20 letters"] * 20) + "\\Vimora"
    assert len(deep) > 400
    make_host(machine, deep, ["mikan"])
    machine.write("C:\\Привет 한국 😀\\inside\\ombrel.exe", b"")
    start_wizard(app)
    search(app)
    wait_only(app, app.main)
    assert_main_shows(app, deep, selected=deep)
    assert app.main.list3.entries() == ["mikan"]


def test_of_eleven_hosts_the_last_takes_the_tenth_place(app, machine):
    hosts = [f"D:\\Host{number:02}" for number in reversed(range(11))]
    for folder in hosts:
        make_host(machine, folder)
    start_wizard(app)
    search(app)
    choice = wait_only(app, app.choice)
    assert choice.found.entries() == hosts[:9] + hosts[10:]
    for folder in choice.found.entries():
        choice.found.press_space(folder)
    choice.ok.press()
    wait_until(lambda: choice.question.text() == DEFAULT_QUESTION, "the second question")
    choice.default.select(hosts[10])
    wait_until(choice.ok.enabled, "the OK button")
    choice.ok.press()
    wait_only(app, app.main)
    assert_main_shows(app, *hosts[:9], hosts[10], selected=hosts[10])


# Searching with folders registered


def open_wizard_from_management(app):
    app.main.manage_folders.press()
    wait_only(app, app.management).add.press()
    wait_only(app, app.wizard)


def test_nothing_new_is_said_when_folders_were_registered(app, machine):
    make_known(app, "C:\\Vimora")
    make_host(machine, "F:\\Vimora")
    start_main(app)
    open_wizard_from_management(app)
    search(app)
    app.answer(NOTHING_NEW, "OK")
    wait_only(app, app.wizard)
    app.wizard.give_up.press()
    wait_only(app, app.management)
    assert app.management.folders.entries() == ["C:\\Vimora"]


def test_one_new_folder_leads_back_to_the_management(app, machine):
    make_known(app, "C:\\Vimora")
    make_host(machine, "D:\\Newcomer")
    start_main(app)
    open_wizard_from_management(app)
    search(app)
    management = wait_only(app, app.management)
    assert management.folders.entries() == ["C:\\Vimora", "D:\\Newcomer"]
    assert management.folders.selected() == ["C:\\Vimora"]
    management.leave.press()
    wait_only(app, app.main)
    assert_main_shows(app, "C:\\Vimora", "D:\\Newcomer", selected="C:\\Vimora")


def test_a_folder_registered_in_another_case_of_the_drive_is_found_again(app, machine):
    make_known(app, "c:\\Vimora")
    start_main(app)
    open_wizard_from_management(app)
    search(app)
    management = wait_only(app, app.management)
    assert management.folders.entries() == ["c:\\Vimora", "C:\\Vimora"]


def test_several_new_folders_join_the_registered_one(app, machine):
    make_known(app, "C:\\Vimora")
    for folder in ["D:\\One", "D:\\Two"]:
        make_host(machine, folder)
    start_main(app)
    open_wizard_from_management(app)
    search(app)
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
    wait_only(app, app.main)
    assert_main_shows(app, "C:\\Vimora", "D:\\One", selected="D:\\One")

"""Cancelling the search for host folders, and its counters meanwhile."""

import pytest

from controls import wait_until
from hosts import make_host
from set_up_scene import (  # noqa: F401
    CANCELLED,
    NO_HOST,
    SPARE,
    app,
    assert_main_shows,
    drives,
    search_from_start,
    shown_windows,
    start_wizard,
    wait_only,
)


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


def search_until_first_folders(app):
    search_from_start(app)
    wait_searching(app)


def wait_searching(app):
    app.search.wait_shown()
    wait_until(lambda: app.search.folder_count.text().strip(), "the first folders to be searched")


def cancel(app):
    app.search.cancel.press()
    app.answer(CANCELLED, "OK")
    wait_only(app, app.wizard)


@pytest.mark.parametrize("way", ["button", "close box", "escape"])
def test_cancelling_in_the_middle_forgets_what_was_found(app, large, way):
    make_host(large, "D:\\By hand")
    search_until_first_folders(app)
    assert app.search.title() == "VMRフォルダを検索中... - Tamblin -"
    assert shown_windows(app) == [app.search.CLASS]
    app.search.leave_by(way, app.search.cancel)
    box = app.wait_box()
    assert box.buttons() == ["OK"]
    assert not box.has_icon()
    app.answer(CANCELLED, "OK")
    wait_only(app, app.wizard)
    app.wizard.by_hand.press()
    manual = wait_only(app, app.manual)
    manual.type_folder("D:\\By hand")
    manual.ok.press()
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
    app.wizard.search.press()
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
    search_until_first_folders(app)
    assert app.search.drive.text() in [letter + ":\\" for letter in "C" + SPARE.upper()]
    first = int(app.search.folder_count.text())
    wait_until(lambda: int(app.search.folder_count.text()) > first, "the folders to be counted on")
    assert app.search.folder_count.text().startswith(" ")
    wait_until(lambda: app.search.found_count.text() == "1", "the host to be found")
    cancel(app)

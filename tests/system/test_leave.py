"""Leaving the program, and what its settings file holds then."""

import pytest

from controls import click, wait_until
from sandbox import settings
from windows import HelpWindow

EXIT = "Tamblin を終了してもよろしいですか？"
CLOSE = "終了してもよろしいですか？"


# The browser's folder is kept with its backslash, so the first save adds it.
LINES = [line + "\\" if line.startswith("VIEWFOLDER=") else line for line in settings()]
SAVED = "".join(line + "\r\n" for line in LINES).encode("cp932")


@pytest.mark.parametrize(
    "way, question, buttons",
    [("button", EXIT, ["OK", "Cancel"]), ("close box", CLOSE, ["Yes", "No"])],
)
def test_leaving_saves_asks_and_ends(running, machine, way, question, buttons):
    running.main.leave_by(way, running.main.leave)
    box = running.wait_box()
    assert box.buttons() == buttons
    assert not box.has_icon()
    assert running.ini() == SAVED
    running.answer(question, buttons[0])
    running.wait_ended()
    assert running.ini() == SAVED
    assert not machine.path("C:\\Tamblin\\tamb.bak").exists()


def test_leaving_with_other_windows_open_ends_the_program(running):
    running.main.show_help.press()
    HelpWindow(running).wait_shown()
    running.main.leave.press()
    running.answer(EXIT, "OK")
    running.wait_ended()
    assert not [w for w in running.operator.windows() if w["class"].startswith("Tamblin.")]
    wait_until(lambda: running.operator.running("tamblin.exe") == 0, "every copy to end")


def test_the_close_box_under_the_mouse(running):
    left, top, right, bottom = running.main.state()["area"]
    click(right - 14, top + 13)
    running.answer(CLOSE, "Yes")
    running.wait_ended()
    assert running.ini() == SAVED


def test_the_end_of_the_session_saves_nothing(running):
    running.main.browse("D:\\Games")
    before = running.ini()
    assert running.main.end_session()
    running.wait_ended()
    assert running.ini() == before
    assert not running.box.shown()


def test_settings_survive_from_one_run_to_the_next(running):
    running.main.combo1.select("D:\\Games\\Vimora")
    running.main.leave.press()
    running.answer(EXIT, "OK")
    running.wait_ended()
    running.start_main()
    assert running.main.combo1.selected() == ["D:\\Games\\Vimora"]
    assert running.main.text1.text() == "C:\\Packages\\"

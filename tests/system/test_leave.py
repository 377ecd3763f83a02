"""Leaving the program, and what its settings file holds then."""

import pytest

from controls import click, wait_until
from names import VERSION
from sandbox import settings
from windows import HelpWindow

EXIT = "Tamblin を終了してもよろしいですか？"
CLOSE = "終了してもよろしいですか？"


def as_file(lines):
    return "".join(line + "\r\n" for line in lines).encode("cp932")


# The browser's folder is kept with its backslash, so the first save adds it.
SAVED = as_file([line + "\\" if line.startswith("VIEWFOLDER=") else line for line in settings()])


def ways_to_leave():
    return [
        pytest.param(lambda main: main.leave.press(), EXIT, ["OK", "Cancel"], id="button"),
        pytest.param(lambda main: main.close(), CLOSE, ["Yes", "No"], id="close-box"),
    ]


@pytest.mark.parametrize("leave, question, buttons", ways_to_leave())
def test_leaving_saves_asks_and_ends(running, machine, leave, question, buttons):
    leave(running.main)
    box = running.wait_box()
    assert box.buttons() == buttons
    assert not box.has_icon()
    assert running.ini() == SAVED
    running.answer(question, buttons[0])
    running.wait_ended()
    assert running.ini() == SAVED
    assert not machine.path("C:\\Tamblin\\tamb.bak").exists()


@pytest.mark.parametrize("leave, question, buttons", ways_to_leave())
def test_staying_has_saved_all_the_same(running, leave, question, buttons):
    running.main.combo1.select("D:\\Games\\Vimora")
    running.main.browse("D:\\Games")
    leave(running.main)
    running.answer(question, buttons[1])
    running.main.wait_enabled()
    assert running.running()
    text = SAVED.replace(b"DEFAULT=C:\\Vimora", b"DEFAULT=D:\\Games\\Vimora")
    assert running.ini() == text.replace(b"VIEWFOLDER=C:\\Packages", b"VIEWFOLDER=D:\\Games")
    assert running.main.list3.entries() == ["kinako"]


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


def test_settings_that_are_gone_are_written_afresh(running, machine):
    machine.path("C:\\Tamblin\\tamb.ini").unlink()
    running.main.leave.press()
    running.answer(EXIT, "OK")
    running.wait_ended()
    assert running.ini() == SAVED


def test_an_older_version_is_brought_up_to_date_and_other_lines_survive(furnished):
    odd = b"\x82\xff\x00\x80 not a line of ours\r\n# \x95\\ comment, with a comma\r\nUNKNOWN=1\r\n"
    furnished.machine.write(
        "C:\\Tamblin\\tamb.ini",
        odd + as_file(["VMRFOLDER=C:\\Vimora", "VERSION=Ver.0.60 Beta-2", "VMRFOLDER=D:\\gone", "# end"]),
    )
    furnished.start_main()
    furnished.main.leave.press()
    furnished.answer(EXIT, "OK")
    furnished.wait_ended()
    # The rewrite reads field by field: a comma ends a field, and so a line.
    assert furnished.ini() == odd.replace(b"comment, with", b"comment\r\nwith") + as_file(
        ["VMRFOLDER=C:\\Vimora", f"VERSION=Ver.{VERSION}", "# end"]
    )


def test_settings_survive_from_one_run_to_the_next(running):
    running.main.combo1.select("D:\\Games\\Vimora")
    running.main.leave.press()
    running.answer(EXIT, "OK")
    running.wait_ended()
    running.start_main()
    assert running.main.combo1.selected() == ["D:\\Games\\Vimora"]
    assert running.main.text1.text() == "C:\\Packages\\"


def test_leaving_with_other_windows_open_ends_the_program(running):
    running.main.show_help.press()
    HelpWindow(running).wait_shown()
    running.main.leave.press()
    running.answer(EXIT, "OK")
    running.wait_ended()
    assert not [w for w in running.operator.windows() if w["class"].startswith("Tamblin.")]
    wait_until(lambda: running.operator.running("tamblin.exe") == 0, "every copy to end")

"""From the start of the program to its first window."""

import pytest

from controls import wait_until
from sandbox import settings

WM_SYSCOMMAND, SC_MINIMIZE, WS_MINIMIZE = 0x0112, 0xF020, 0x20000000
ALREADY_RUNNING = "すでに起動されています。"


@pytest.mark.parametrize("folder", ["C:\\Tamblin", "D:\\Another copy"])
def test_a_second_copy_is_refused(running, machine, folder):
    machine.path(folder).mkdir(exist_ok=True)
    machine.copy_in(machine.path("C:\\Tamblin\\tamblin.exe"), folder + "\\tamblin2.exe")
    settings = running.ini()
    machine.start(folder + "\\tamblin2.exe", folder="D:\\")
    box = running.wait_box()
    assert box.buttons() == ["OK"]
    assert not box.has_icon()
    running.operator.ask("send", running.main.handle, WM_SYSCOMMAND, SC_MINIMIZE, 0)
    assert running.main.state()["style"] & WS_MINIMIZE
    running.answer(ALREADY_RUNNING, "OK")
    wait_until(lambda: running.operator.running("tamblin2.exe") == 0, "the second copy to end")
    wait_until(
        lambda: running.main.state()["active"] and not running.main.state()["style"] & WS_MINIMIZE,
        "the first copy's window in front",
    )
    assert running.running() and running.main.enabled()
    assert running.ini() == settings
    assert not machine.path(folder + "\\tamb.bak").exists()


def test_the_program_folder_is_what_counts_not_the_current_folder(furnished):
    furnished.start(folder="D:\\Games")
    wait_until(lambda: furnished.main.shown() or furnished.wizard.shown(), "the first window")
    furnished.splash.wait_gone()
    assert furnished.main.shown() and not furnished.wizard.shown()
    assert furnished.ini() == "".join(line + "\r\n" for line in settings()).encode("cp932")

"""From the start of the program to its first window."""

import time

import pytest

from controls import wait_until
from hosts import make_host
from names import VERSION
from sandbox import settings

WM_SYSCOMMAND, SC_MINIMIZE, WS_MINIMIZE = 0x0112, 0xF020, 0x20000000
ALREADY_RUNNING = "すでに起動されています。"


def wait_first_window(app):
    """Waits until the splash has made way for a window, and says which."""
    wait_until(lambda: app.main.shown() or app.wizard.shown(), "the first window")
    app.splash.wait_gone()
    assert not (app.main.shown() and app.wizard.shown())
    return app.main if app.main.shown() else app.wizard


def test_without_settings_the_wizard_opens(app):
    app.start()
    assert wait_first_window(app) is app.wizard
    assert not app.has_ini()


def test_with_a_valid_host_folder_the_main_window_opens(app, machine):
    make_host(machine, "C:\\Vimora", ["mikan"])
    app.write_ini("VERSION=Ver.0.60", "DEFAULT=C:\\Vimora", "VMRFOLDER=C:\\Vimora")
    app.start()
    assert wait_first_window(app) is app.main
    assert app.main.combo1.entries() == ["C:\\Vimora"]
    assert app.main.combo1.selected() == ["C:\\Vimora"]
    assert app.main.list3.entries() == ["mikan"]


def test_with_an_unknown_version_the_wizard_opens(app, machine):
    make_host(machine, "C:\\Vimora")
    app.write_ini("VERSION=Ver.9.99", "DEFAULT=C:\\Vimora", "VMRFOLDER=C:\\Vimora")
    before = app.ini()
    app.start()
    assert wait_first_window(app) is app.wizard
    assert app.ini() == before


def test_with_nothing_but_a_view_folder_the_main_window_opens_empty(app, machine):
    make_host(machine, "C:\\Vimora", ["mikan"])
    machine.path("C:\\Vimora\\ombrel.rc").unlink()
    machine.write("D:\\Work\\readme.txt", b"a file")
    app.write_ini(f"VERSION=Ver.{VERSION}", "VMRFOLDER=C:\\Vimora", "VIEWFOLDER=D:\\Work")
    app.start()
    assert wait_first_window(app) is app.main
    assert app.main.combo1.entries() == []
    assert app.main.list3.entries() == []
    assert app.main.text1.text() == "D:\\Work\\"


def test_with_only_folders_that_are_gone_the_wizard_opens(app, machine):
    machine.make_folder("D:\\Work\\only folders")
    app.write_ini(
        f"VERSION=Ver.{VERSION}", "DEFAULT=C:\\Vimora", "VMRFOLDER=Q:\\Vimora", "VIEWFOLDER=D:\\Work"
    )
    app.start()
    assert wait_first_window(app) is app.wizard


def test_the_splash_shows_its_progress_line_for_a_while(furnished):
    splash = furnished.splash

    def with_progress_line():
        labels = {label["id"]: label for label in splash.controls()}
        return labels if labels[splash.label4.identity]["visible"] else None

    assert furnished.operator
    started = time.monotonic()
    furnished.start()
    labels = wait_until(with_progress_line, "the splash with its progress line")
    assert [labels[label.identity]["text"] for label in [splash.label2, splash.label3, splash.label4]] == [
        f"Version {VERSION}",
        "support to install && uninstall ombrels",
        "system files are checking...",
    ]
    furnished.main.wait_shown()
    assert time.monotonic() - started > 2
    splash.wait_gone()


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
    assert wait_first_window(furnished) is furnished.main
    assert furnished.ini() == "".join(line + "\r\n" for line in settings()).encode("cp932")

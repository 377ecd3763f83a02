"""One running program for a module's tests; every test gets the hosts afresh."""

import itertools
import os

import pytest

from controls import right_click_row, wait_until
from document_recorder import Recorder
from hosts import make_host
from machine import MACHINES, Machine, discard
from names import VERSION
from tamblin_app import App
from windows import CheckWindow, character_menu

HOST = "C:\\Vimora 表ソ能"
OTHER_HOST = "D:\\Games\\Vimora"
NEW_FILES = "D:\\Neue Dateien"
START_UP = b"H001currentobl=default.obl\r\n; kept \x83\x5c as it is, \xff\r\nno line end"
numbers = itertools.count(1)


def empty(folder):
    folder.chmod(0o755)
    for entry in folder.iterdir():
        discard(entry)


class Scene:
    """A machine with the program running, its hosts in HOST and OTHER_HOST."""

    def __init__(self):
        self.machine = Machine(MACHINES / f"maintenance-{os.getpid()}-{next(numbers)}", drives="d")
        self.app = App(self.machine)
        self.app.check = CheckWindow(self.app)
        self.app.write_ini(
            f"VERSION=Ver.{VERSION}",
            f"DEFAULT={HOST}",
            f"VMRFOLDER={HOST}",
            f"VMRFOLDER={OTHER_HOST}",
            f"VIEWFOLDER={NEW_FILES}",
        )
        assert self.app.operator
        self.app.recorder = Recorder(self.machine)
        self.furnish()
        self.app.start_main()

    def furnish(self):
        """Gives every folder its first content. The folders themselves stay: the main window re-reads
        its lists whenever another window hands over to it, and leaves a folder that it finds gone."""
        for folder in [HOST, OTHER_HOST, NEW_FILES]:
            self.machine.make_folder(folder)
            empty(self.machine.path(folder))
        make_host(self.machine, HOST, ["mikan", "yuzu", "表ソ能", "空 白"])
        make_host(self.machine, OTHER_HOST, ["kinako"])
        self.machine.write(HOST + "\\ombrel.rc", START_UP)
        self.machine.write(NEW_FILES + "\\new.lzh", b"not opened here")

    def refresh(self):
        """As a user does who looks into the other host meanwhile."""
        main = self.app.main
        for folder in [OTHER_HOST, HOST]:
            main.combo1.select(folder)
        if main.text1.text() != NEW_FILES + "\\":
            main.browse(NEW_FILES)
        main.list1.double_click(main.list1.selected()[0])
        wait_until(lambda: main.list2.entries() == ["new.lzh"], "the browser to be read again")

    def is_at_rest(self):
        """Whether nothing but the main window is shown, and that can be used."""
        windows = [w for w in self.app.operator.windows() if w["visible"]]
        own = [w for w in windows if w["class"].startswith("Tamblin.") or w["class"][0] == "#"]
        return [w["class"] for w in own] == ["Tamblin.Form1"] and own[0]["enabled"]

    def close_hosts(self):
        def none_left():
            for window in self.app.operator.windows():
                if window["class"] == "StandIn.Ombrel":
                    self.app.operator.ask("close-box", window["window"])
            return not self.app.operator.running("ombrel.exe")

        wait_until(none_left, "the hosts to end")


def host_log(machine, folder=HOST):
    path = machine.path(folder + "\\ombrel.log")
    lines = path.read_text("utf-8").splitlines() if path.exists() else []
    return dict(line.split(": ", 1) for line in lines)


def wait_host(machine, folder=HOST):
    """Waits until the host runs and the start-up file has been put back."""
    wait_until(lambda: "window" in host_log(machine, folder), "the host to show its window")
    backup = machine.path(folder + "\\ombrel_rc.bak")
    wait_until(lambda: not backup.exists(), "the start-up file to be put back")
    return host_log(machine, folder)


def assert_start_up_file_is_back(machine, folder=HOST, content=START_UP):
    assert machine.read(folder + "\\ombrel.rc") == content
    assert not machine.path(folder + "\\ombrel_rc.bak").exists()


@pytest.fixture(scope="module")
def scenes():
    """The scene in use, which is replaced when a test has left it in disorder."""
    current = []
    yield current
    for scene in current:
        scene.machine.remove()


@pytest.fixture
def scene(scenes):
    if scenes and not scenes[0].is_at_rest():
        scenes.pop().machine.remove()
    if not scenes:
        scenes.append(Scene())
    scene = scenes[0]
    scene.furnish()
    scene.app.recorder.clear()
    scene.refresh()
    yield scene
    scene.close_hosts()


@pytest.fixture
def app(scene):
    return scene.app


@pytest.fixture
def machine(scene):
    return scene.machine


def choose_for_character(app, text):
    """Chooses from the menu of the selected character."""
    characters = app.main.list3
    right_click_row(characters, characters.selected()[0])
    character_menu(app).wait_shown().click_item(text)
    character_menu(app).wait_gone()

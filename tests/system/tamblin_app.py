"""The program on a machine: its windows, its settings, and how it is started and ended."""

import os
import pathlib
import subprocess

from controls import PATIENCE, wait_until
from machine import TAMBLIN
from operator_client import OperatorError
from set_up_windows import WizardWindow
from windows import Confirmation, MainWindow, MessageBox, Splash


class App:
    """The program on a machine."""

    FOLDER = "C:\\Tamblin"
    PROGRAM = FOLDER + "\\tamblin.exe"

    # The one that a failing test is about.
    latest = None

    def __init__(self, machine):
        App.latest = self
        self.machine = machine
        self.main = MainWindow(self)
        self.splash = Splash(self)
        self.wizard = WizardWindow(self)
        self.confirmation = Confirmation(self)
        self.box = MessageBox(self)
        machine.copy_in(TAMBLIN, self.PROGRAM)

    @property
    def operator(self):
        return self.machine.operator

    def write_ini(self, *lines):
        """tamb.ini, one line per argument, in the system's code page."""
        text = "".join(f"{line}\r\n" for line in lines)
        self.machine.write(self.FOLDER + "\\tamb.ini", text.encode("cp932"))

    def ini(self):
        return self.machine.read(self.FOLDER + "\\tamb.ini")

    def has_ini(self):
        return self.machine.path(self.FOLDER + "\\tamb.ini").exists()

    def start(self, folder="C:\\"):
        assert self.operator
        return self.machine.start(self.PROGRAM, folder=folder)

    def start_main(self):
        """Starts and waits until the main window can be used."""
        self.start()
        return self.main.wait_shown()

    def wait_box(self, timeout=PATIENCE):
        self.box.wait_shown(timeout)
        wait_until(lambda: self.box.shown() and self.box.text(), "the message box to have its text")
        return self.box

    def answer(self, text, button, timeout=PATIENCE):
        """Waits for the message box with exactly that text and presses one of its buttons."""
        box = self.wait_box(timeout)
        if box.text() != text:
            raise AssertionError(f"the message box says {box.text()!r}, not {text!r}")
        if box.title() != "Tamblin":
            raise AssertionError(f"the message box is titled {box.title()!r}")
        box.press(button)

    def running(self):
        return self.operator.running("tamblin.exe") > 0

    def processor_time(self):
        """The seconds of work that the program has done."""
        ticks = 0
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                name, fields = (process / "stat").read_text().rsplit(") ", 1)
                environment = (process / "environ").read_bytes().split(b"\0")
            except OSError:
                continue  # it has ended meanwhile, or is another user's
            if name.endswith("(tamblin.exe") and f"WINEPREFIX={self.machine.prefix}".encode() in environment:
                ticks += sum(int(field) for field in fields.split()[11:13])
        return ticks / os.sysconf("SC_CLK_TCK")

    def wait_ended(self, timeout=PATIENCE):
        wait_until(lambda: not self.running(), "the program to end", timeout)

    def described(self):
        """Every window and control there is, for the report of a failed test."""
        lines = []
        for window in self.operator.windows():
            if not window["visible"]:
                continue
            lines.append(f"{window['class']} {window['text']!r} enabled={window['enabled']}")
            try:
                for c in self.operator.ask("controls", window["window"]):
                    state = f"enabled={c['enabled']} visible={c['visible']}"
                    lines.append(f"    {c['id']} {c['class']} {c['text']!r} {c['area']} {state}")
            except OperatorError as error:
                lines.append(f"    {error}")
        return "\n".join(lines)


def save_screenshot(path):
    subprocess.run(["import", "-window", "root", str(path)], check=False)

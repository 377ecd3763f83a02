"""The program as its user meets it: one class per window, controls under their own names.

Everything goes through window messages and the operator, or through the mouse and the keyboard of
the screen (the methods named real_...). Nothing sleeps for a fixed time: whoever needs a state waits
for it, and a state that does not come is an error that says what was there instead.
"""

import os
import pathlib
import subprocess
import time

from machine import TAMBLIN
from operator_client import OperatorError

KINDS = {"command": 1, "list": 2, "label": 3, "text": 4, "combo": 5, "option": 6, "check": 7, "image": 8}
BUTTONS = {"OK": 1, "Cancel": 2, "Retry": 4, "Yes": 6, "No": 7}


def control_id(kind, number, index=0):
    return 1000 * KINDS[kind] + 20 * number + index


# More than the most loaded machine needs; nothing takes long unless it fails.
PATIENCE = 120.0


def wait_until(condition, what, timeout=PATIENCE):
    """The first true value that `condition` gives. A window or row that it looks for in vain is not
    there yet."""
    end = time.monotonic() + timeout
    while True:
        try:
            value = condition()
        except (LookupError, OperatorError) as error:
            value, found = None, f"{type(error).__name__}: {error}"
        else:
            found = repr(value)
        if value:
            return value
        if time.monotonic() > end:
            raise TimeoutError(f"waited {timeout} s for {what}; last found {found}")
        time.sleep(0.05)


class Control:
    def __init__(self, window, identity):
        self.window = window
        self.identity = identity

    @property
    def operator(self):
        return self.window.app.operator

    def state(self):
        for control in self.operator.ask("controls", self.window.handle):
            if control["id"] == self.identity:
                return control
        raise LookupError(f"{self.window.CLASS} has no control {self.identity}")

    @property
    def handle(self):
        return self.state()["window"]

    def text(self):
        return self.state()["text"]

    def enabled(self):
        return self.state()["enabled"]

    def visible(self):
        return self.state()["visible"]

    def centre(self):
        left, top, right, bottom = self.state()["area"]
        return (left + right) // 2, (top + bottom) // 2

    def real_click(self):
        click(*self.centre())


class Command(Control):
    def press(self):
        """Presses the button. Returns when the program has done what the button does, or waits for an
        answer."""
        wait_until(self.enabled, f"button {self.identity} of {self.window.CLASS} to be enabled")
        self.operator.act("press", self.handle)


class List(Control):
    def entries(self):
        return self.operator.ask("entries", self.handle)["entries"]

    def selected(self):
        """The texts of the selected entries."""
        answer = self.operator.ask("entries", self.handle)
        return [answer["entries"][row] for row in answer["selected"]]

    def row(self, text):
        entries = self.entries()
        if text not in entries:
            raise LookupError(f"no entry {text!r} among {entries}")
        return entries.index(text)

    def select(self, *texts):
        self.operator.ask("select", self.handle, *[self.row(text) for text in texts])

    def double_click(self, text):
        self.operator.act("double-click", self.handle, self.row(text))

    def row_centre(self, text):
        left, top, right, bottom = self.operator.ask("row-area", self.handle, self.row(text))
        return min(left + 20, (left + right) // 2), (top + bottom) // 2

    def real_click_row(self, text, *keys):
        click(*self.row_centre(text), keys=keys)

    def real_double_click(self, text):
        click(*self.row_centre(text), times=2)


class Combo(List):
    pass


def click(x, y, times=1, keys=()):
    """The screen's own mouse, with keys held down meanwhile."""
    command = ["xdotool", "mousemove", str(x), str(y)]
    for key in keys:
        command += ["keydown", key]
    command += ["click", "--repeat", str(times), "--delay", "0", "1"]
    for key in keys:
        command += ["keyup", key]
    subprocess.run(command, check=True)


def press_keys(*keys):
    """The screen's own keyboard, which whatever is active gets."""
    subprocess.run(["xdotool", "key", "--delay", "0", *keys], check=True)


def tab_to(control):
    """Presses Tab until the control has the keyboard."""

    def focus():
        return control.operator.ask("focus")

    passed = []
    while (here := wait_until(focus, "a control to have the keyboard"))["id"] != control.identity:
        if here in passed:
            raise AssertionError(f"Tab does not lead to control {control.identity}")
        passed.append(here)
        press_keys("Tab")
        wait_until(lambda: focus() not in (None, here), "Tab to lead on")


def point_at(x, y):
    subprocess.run(["xdotool", "mousemove", str(x), str(y)], check=True)


class Window:
    """A window of the program, found by its class."""

    CLASS = ""

    def __init__(self, app):
        self.app = app

    def find(self):
        for window in self.app.operator.windows():
            if window["class"] == self.CLASS and window["visible"]:
                return window
        return None

    def state(self):
        window = self.find()
        if window is None:
            raise LookupError(f"{self.CLASS} is not shown")
        return window

    @property
    def handle(self):
        return self.state()["window"]

    def shown(self):
        return self.find() is not None

    def wait_shown(self, timeout=PATIENCE):
        wait_until(self.shown, f"{self.CLASS} to be shown", timeout)
        return self

    def wait_gone(self, timeout=PATIENCE):
        wait_until(lambda: not self.shown(), f"{self.CLASS} to be gone", timeout)

    def wait_enabled(self, timeout=PATIENCE):
        wait_until(lambda: self.shown() and self.state()["enabled"], f"{self.CLASS} to be usable", timeout)
        return self

    def title(self):
        return self.state()["text"]

    def enabled(self):
        return self.state()["enabled"]

    def controls(self):
        return self.app.operator.ask("controls", self.handle)

    def close(self):
        """What the system does for a close box, by message."""
        self.app.operator.act("close-box", self.handle)

    def has_keyboard(self):
        focus = self.app.operator.ask("focus")
        return focus is not None and focus["top"] == self.handle

    def press_keys(self, *keys):
        """The screen's own keyboard, once this window has it."""
        wait_until(self.has_keyboard, f"{self.CLASS} to have the keyboard")
        press_keys(*keys)

    def end_session(self):
        return self.app.operator.ask("end-session", self.handle)

    def command(self, number):
        return Command(self, control_id("command", number))

    def list(self, number):
        return List(self, control_id("list", number))

    def label(self, number):
        return Control(self, control_id("label", number))


class Splash(Window):
    CLASS = "Tamblin.Form6"

    @property
    def label2(self):
        return self.label(2)

    @property
    def label3(self):
        return self.label(3)

    @property
    def label4(self):
        return self.label(4)


class Wizard(Window):
    CLASS = "Tamblin.Form2"


class MainWindow(Window):
    CLASS = "Tamblin.Form1"

    def __init__(self, app):
        super().__init__(app)
        self.combo1 = Combo(self, control_id("combo", 1))
        self.list1 = self.list(1)
        self.list2 = self.list(2)
        self.list3 = self.list(3)
        self.text1 = Control(self, control_id("text", 1))
        self.text2 = Control(self, control_id("text", 2))
        for number in range(1, 15):
            setattr(self, f"command{number}", self.command(number))

    def enabled_commands(self):
        """The numbers of the buttons that can be pressed."""
        enabled = {c["id"] for c in self.controls() if c["enabled"]}
        return [number for number in range(1, 15) if control_id("command", number) in enabled]

    def browse(self, folder):
        """Double-clicks from a drive down to a folder ("C:\\Packages")."""
        parts = folder.rstrip("\\").split("\\")
        self.list1.double_click(parts[0])
        self.wait_browsed(parts[0] + "\\")
        for depth in range(1, len(parts)):
            child = [row for row in self.list1.entries() if row.strip() == "+ " + parts[depth]]
            if not child:
                raise LookupError(f"no folder {parts[depth]!r} in {self.list1.entries()}")
            self.list1.double_click(child[-1])
            self.wait_browsed("\\".join(parts[: depth + 1]) + "\\")

    def wait_browsed(self, folder):
        wait_until(lambda: self.text1.text() == folder, f"the browser to show {folder}")


class Confirmation(Window):
    CLASS = "Tamblin.Form7"

    def __init__(self, app):
        super().__init__(app)
        self.list1 = self.list(1)
        self.list2 = self.list(2)
        self.list3 = self.list(3)
        self.command1 = self.command(1)
        self.command2 = self.command(2)
        self.label6 = self.label(6)


class MessageBox(Window):
    """A message box of the program; the system's own window."""

    CLASS = "#32770"

    def _controls(self, kind):
        return [c for c in self.controls() if c["class"].lower() == kind]

    def text(self):
        texts = [c["text"] for c in self._controls("static") if c["text"]]
        return texts[0].replace("\r\n", "\n")

    def has_icon(self):
        pictures = [c for c in self._controls("static") if c["style"] & 0x1F == 3]
        return any(self.app.operator.ask("has-icon", c["window"]) for c in pictures if c["visible"])

    def buttons(self):
        """The names of its buttons, in their order."""
        names = {number: name for name, number in BUTTONS.items()}
        shown = [c for c in self._controls("button") if c["visible"]]
        return [names[c["id"]] for c in sorted(shown, key=lambda c: c["area"][0])]

    def press(self, button):
        state = self.state()
        pressed = [c for c in self._controls("button") if c["id"] == BUTTONS[button] and c["visible"]]
        if not pressed:
            raise LookupError(f"no button {button} among {self.buttons()}")
        self.app.operator.ask("press", pressed[0]["window"])
        wait_until(
            lambda: all(
                w["window"] != state["window"] or not w["visible"] for w in self.app.operator.windows()
            ),
            "the message box to close",
        )
        self.app.operator.wait_until_handled(state["owner"])


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
        self.wizard = Wizard(self)
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

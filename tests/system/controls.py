"""Controls of the program under the numbers of their names, the mouse and the keyboard.

Everything goes through window messages and the operator, or through the mouse and the keyboard of
the screen (the methods named real_...). Nothing sleeps for a fixed time: whoever needs a state waits
for it, and a state that does not come is an error that says what was there instead.
"""

import subprocess
import time

from names import KINDS
from operator_client import OperatorError

BM_GETCHECK = 0x00F0
BM_CLICK = 0x00F5
LB_GETITEMDATA = 0x0199
LB_SETCURSEL = 0x0186
WM_KEYDOWN = 0x0100
WM_KEYUP = 0x0101
VK_SPACE = 0x20


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


def right_click(x, y):
    subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "3"], check=True)


def right_click_row(entries, text):
    """The right mouse button on a row; a right click selects nothing by itself."""
    right_click(*entries.row_centre(text))


class Tickable(Control):
    """A check box, or one of several exclusive choices."""

    def ticked(self):
        return self.operator.ask("send", self.handle, BM_GETCHECK, 0, 0) == 1

    def press(self):
        self.operator.act("post", self.handle, BM_CLICK, 0, 0)


class Link(Control):
    """A label that can be clicked."""

    def press(self):
        self.operator.act("post", self.handle, BM_CLICK, 0, 0)


class CheckList(List):
    def _is_ticked(self, handle, row):
        data = self.operator.ask("send", handle, LB_GETITEMDATA, row, 0)
        assert data in [0, 1], data
        return data == 1

    def ticked(self):
        """The texts of the ticked lines."""
        handle = self.handle
        return [entry for row, entry in enumerate(self.entries()) if self._is_ticked(handle, row)]

    def _change(self, text, act):
        handle, row = self.handle, self.row(text)
        before = self._is_ticked(handle, row)
        act(handle, row)
        wait_until(lambda: self._is_ticked(handle, row) != before, f"the tick of {text} to change")

    def press_space(self, text):
        """Changes a line's tick as the space bar does."""

        def press(handle, row):
            self.operator.ask("send", handle, LB_SETCURSEL, row, 0)
            self.operator.ask("post", handle, WM_KEYDOWN, VK_SPACE, 1)
            self.operator.ask("post", handle, WM_KEYUP, VK_SPACE, 1)

        self._change(text, press)

    def real_click_box(self, text):
        """Changes a line's tick by the mouse on its box."""

        def press(handle, row):
            left, top, _, bottom = self.operator.ask("row-area", handle, row)
            click(left + (bottom - top) // 2, (top + bottom) // 2)

        self._change(text, press)

"""The windows of maintenance and set-up, the menus, and the recorder that documents are opened with."""

import subprocess

from machine import PROGRAMS
from tamblin_app import Combo, Control, List, Window, click, control_id, wait_until

RECORDER = PROGRAMS / "tests" / "system" / "recorder.exe"

BM_GETCHECK = 0x00F0
BM_CLICK = 0x00F5
LB_GETITEMDATA = 0x0199
LB_SETCURSEL = 0x0186
LB_GETHORIZONTALEXTENT = 0x0193
WM_KEYDOWN = 0x0100
WM_KEYUP = 0x0101
VK_SPACE = 0x20

MENU_RUN = 9001
MENU_VIEW = 9002
MENU_RECYCLE = 9011


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


class PopupMenu(Window):
    """A menu that has popped up: the system's own window, one row per item and a separator."""

    CLASS = "#32768"
    FRAME, SEPARATOR = 3, 5

    def __init__(self, app, items, items_above_separator):
        super().__init__(app)
        self.items = items
        self.above = items_above_separator

    def row_centre(self, item):
        left, top, right, bottom = self.state()["area"]
        height = (bottom - top - 2 * self.FRAME - self.SEPARATOR) / self.items
        separator = self.SEPARATOR if item >= self.above else 0
        return (left + right) // 2, round(top + self.FRAME + separator + (item + 0.5) * height)

    def click_item(self, item):
        click(*self.row_centre(item))

    def position(self):
        left, top, _, _ = self.state()["area"]
        return left, top


def character_menu(app):
    """The installed list's menu: start, README, cancel."""
    return PopupMenu(app, items=3, items_above_separator=2)


def folder_menu(app):
    """The check window's menu: to the recycle bin, cancel."""
    return PopupMenu(app, items=2, items_above_separator=1)


class WizardWindow(Window):
    CLASS = "Tamblin.Form2"

    def __init__(self, app):
        super().__init__(app)
        self.by_hand = self.command(1)
        self.search = self.command(2)
        self.give_up = self.command(3)


class ManualWindow(Window):
    CLASS = "Tamblin.Form3"

    def __init__(self, app):
        super().__init__(app)
        self.tree = self.list(1)
        self.files = self.list(2)
        self.folder = Control(self, control_id("text", 1))
        self.status = self.label(10)
        self.ok = self.command(1)
        self.back = self.command(2)
        self.more = self.command(3)

    def type_folder(self, folder):
        self.app.operator.ask("set-text", self.folder.handle, folder)

    def browse(self, folder):
        """Double-clicks from a drive down to a folder ("D:\\Games")."""
        parts = folder.split("\\")
        self.tree.double_click(parts[0])
        wait_until(lambda: self.folder.text() in (parts[0], parts[0] + "\\"), f"the root of {parts[0]}")
        for depth in range(1, len(parts)):
            name = parts[depth]
            row = next(r for r in reversed(self.tree.entries()) if r.strip() == "+ " + name)
            self.tree.double_click(row)
            wanted = "\\".join(parts[: depth + 1])
            wait_until(lambda: self.status.text() == wanted, f"the tree to show {wanted}")

    def wait_shown_anew(self, former):
        """Waits until another window of this kind stands in the place of `former`."""
        wait_until(lambda: self.handle != former, "a further manual window")
        return self


class SearchWindow(Window):
    CLASS = "Tamblin.Form4"

    def __init__(self, app):
        super().__init__(app)
        self.cancel = self.command(1)
        self.drive = self.label(11)
        self.file_count = self.label(8)
        self.folder_count = self.label(3)
        self.found_count = self.label(5)


class ChoiceWindow(Window):
    CLASS = "Tamblin.Form5"

    def __init__(self, app):
        super().__init__(app)
        self.question = self.label(1)
        self.found = CheckList(self, control_id("list", 1))
        self.default = Combo(self, control_id("combo", 1))
        self.ok = self.command(1)


class ManagementWindow(Window):
    CLASS = "Tamblin.Form8"

    def __init__(self, app):
        super().__init__(app)
        self.folders = self.list(1)
        self.add = self.command(1)
        self.change = self.command(2)
        self.delete = self.command(3)
        self.leave = self.command(4)
        self.allow = Tickable(self, control_id("option", 1, 0))
        self.forbid = Tickable(self, control_id("option", 1, 1))


class HelpWindow(Window):
    CLASS = "Tamblin.Form9"

    def __init__(self, app):
        super().__init__(app)
        self.categories = [Link(self, control_id("label", 3, index)) for index in range(4)]
        self.purposes = [Link(self, control_id("label", 4, index)) for index in range(7)]
        self.buttons = [Link(self, control_id("label", 5, index)) for index in range(11)]
        self.purpose_text = self.label(6)
        self.button_text = self.label(7)
        self.limitations = [Control(self, control_id("label", 8, index)) for index in range(2)]
        self.about = [Control(self, control_id("label", 9, index)) for index in range(2)]
        self.support = Link(self, control_id("label", 9, 2))
        self.remora = Tickable(self, control_id("check", 1))
        self.done = self.command(1)

    def area(self):
        return self.state()["area"]


class CheckWindow(Window):
    CLASS = "Tamblin.Form11"

    def __init__(self, app):
        super().__init__(app)
        self.files = self.list(1)
        self.folders = self.list(2)
        self.file_note = self.label(5)
        self.folder_notes = [self.label(6), self.label(7)]
        self.general_note = self.label(4)
        self.delete = self.command(1)
        self.done = self.command(3)


class Recorder:
    """The program that shows documents on this machine, and what it has been given."""

    PROGRAM = "C:\\recorder\\recorder.exe"
    LOG = "C:\\recorder\\recorder.log"

    def __init__(self, machine):
        self.machine = machine
        machine.copy_in(RECORDER, self.PROGRAM)
        assert machine.start(self.PROGRAM, "/register").wait(timeout=300) == 0

    def clear(self):
        self.machine.path(self.LOG).unlink(missing_ok=True)

    def records(self):
        """In the order in which they were started: command line, working folder, show command."""
        path = self.machine.path(self.LOG)
        text = path.read_text("utf-8") if path.exists() else ""
        records = []
        for piece in text.split("\n\n")[:-1]:
            records.append(dict(line.split(": ", 1) for line in piece.splitlines()))
        return sorted(records, key=lambda record: int(record["started"]))

    def wait_records(self, count):
        wait_until(lambda: len(self.records()) >= count, f"{count} documents to be opened")
        return self.records()

    def opened(self, document):
        """The command line that opening a document gives."""
        return f'"{self.PROGRAM}" open "{document}"'

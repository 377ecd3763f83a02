"""The program as its user meets it: one class per window, controls under names of what they do.
Those of set-up are in set_up_windows.py."""

from functools import partial

from controls import (
    PATIENCE,
    Combo,
    Command,
    Control,
    Link,
    List,
    Tickable,
    click,
    control_id,
    press_keys,
    wait_until,
)
from names import CHARACTER_MENU, COMMANDS, FOLDER_MENU

BUTTONS = {"OK": 1, "Cancel": 2, "Retry": 4, "Yes": 6, "No": 7}

# What can be used whatever is selected.
ALWAYS = {"manage_folders", "leave", "show_help", "check_folders"}


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

    def leave_by(self, way, button):
        escape = partial(self.press_keys, "Escape")
        {"button": button.press, "close box": self.close, "escape": escape}[way]()

    def has_keyboard(self):
        focus = self.app.operator.ask("focus")
        return focus is not None and focus["top"] == self.handle

    def press_keys(self, *keys):
        """The screen's own keyboard, once this window has it."""
        wait_until(self.has_keyboard, f"{self.CLASS} to have the keyboard")
        press_keys(*keys)

    def end_session(self):
        return self.app.operator.ask("end-session", self.handle)


USUAL = {"command": Command, "list": List, "combo": Combo, "check": Tickable, "option": Tickable}


def named(kind, number, index=0, of=None):
    """A control of a window, under the name that its class gives it."""
    of = of or USUAL.get(kind, Control)
    return property(lambda window: of(window, control_id(kind, number, index)))


def named_row(kind, number, count, of=Control):
    """The controls of one number, by their indexes."""
    return property(lambda window: [of(window, control_id(kind, number, index)) for index in range(count)])


class Splash(Window):
    CLASS = "Tamblin.Form6"
    progress_line = named("label", 4)


class MainWindow(Window):
    CLASS = "Tamblin.Form1"
    combo1 = named("combo", 1)
    list1 = named("list", 1)
    list2 = named("list", 2)
    list3 = named("list", 3)
    text1 = named("text", 1)
    text2 = named("text", 2)

    def enabled_commands(self):
        enabled = {c["id"] for c in self.controls() if c["enabled"]}
        return {name for name, number in COMMANDS.items() if control_id("command", number) in enabled}

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


for button, number in COMMANDS.items():
    setattr(MainWindow, button, named("command", number))


class Confirmation(Window):
    CLASS = "Tamblin.Form7"
    list1 = named("list", 1)
    list2 = named("list", 2)
    list3 = named("list", 3)
    install = named("command", 1)
    cancel = named("command", 2)
    label6 = named("label", 6)


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


class PopupMenu(Window):
    """A menu that has popped up: the system's own window. Items are chosen by their texts."""

    CLASS = "#32768"
    FRAME, SEPARATOR = 3, 5

    def __init__(self, app, rows):
        super().__init__(app)
        self.rows = rows

    def row_centre(self, text):
        left, top, right, bottom = self.state()["area"]
        separators = self.rows.count("")
        height = (bottom - top - 2 * self.FRAME - separators * self.SEPARATOR) / (len(self.rows) - separators)
        above = self.rows[: self.rows.index(text)]
        lines = len(above) - above.count("") + 0.5
        return (left + right) // 2, round(top + self.FRAME + above.count("") * self.SEPARATOR + lines * height)

    def click_item(self, text):
        click(*self.row_centre(text))

    def position(self):
        left, top, _, _ = self.state()["area"]
        return left, top


def character_menu(app):
    return PopupMenu(app, CHARACTER_MENU)


def folder_menu(app):
    return PopupMenu(app, FOLDER_MENU)


class HelpWindow(Window):
    CLASS = "Tamblin.Form9"
    categories = named_row("label", 3, 4, Link)
    purposes = named_row("label", 4, 7, Link)
    buttons = named_row("label", 5, 11, Link)
    purpose_text = named("label", 6)
    button_text = named("label", 7)
    limitations = named_row("label", 8, 2)
    about = named_row("label", 9, 2)
    support = named("label", 9, 2, of=Link)
    remora = named("check", 1)
    done = named("command", 1)

    def area(self):
        return self.state()["area"]


class CheckWindow(Window):
    CLASS = "Tamblin.Form11"
    files = named("list", 1)
    folders = named("list", 2)
    file_note = named("label", 5)
    general_note = named("label", 4)
    delete = named("command", 1)
    done = named("command", 3)

    @property
    def folder_notes(self):
        return [Control(self, control_id("label", number)) for number in (6, 7)]

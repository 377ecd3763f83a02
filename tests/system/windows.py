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

    def command(self, number):
        return Command(self, control_id("command", number))

    def list(self, number):
        return List(self, control_id("list", number))

    def label(self, number):
        return Control(self, control_id("label", number))


class Splash(Window):
    CLASS = "Tamblin.Form6"


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
        for name, number in COMMANDS.items():
            setattr(self, name, self.command(number))

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


class Confirmation(Window):
    CLASS = "Tamblin.Form7"

    def __init__(self, app):
        super().__init__(app)
        self.list1 = self.list(1)
        self.list2 = self.list(2)
        self.list3 = self.list(3)
        self.install = self.command(1)
        self.cancel = self.command(2)
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

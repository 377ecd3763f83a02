"""The windows of set-up and folder management."""

from controls import CheckList, Combo, Control, Tickable, control_id, wait_until
from windows import Window


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

"""The windows of set-up and folder management."""

from controls import CheckList, wait_until
from windows import Window, named


class WizardWindow(Window):
    CLASS = "Tamblin.Form2"
    by_hand = named("command", 1)
    search = named("command", 2)
    give_up = named("command", 3)


class ManualWindow(Window):
    CLASS = "Tamblin.Form3"
    tree = named("list", 1)
    files = named("list", 2)
    folder = named("text", 1)
    status = named("label", 10)
    ok = named("command", 1)
    back = named("command", 2)
    more = named("command", 3)

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
    cancel = named("command", 1)
    drive = named("label", 11)
    folder_count = named("label", 3)
    found_count = named("label", 5)


class ChoiceWindow(Window):
    CLASS = "Tamblin.Form5"
    question = named("label", 1)
    found = named("list", 1, of=CheckList)
    default = named("combo", 1)
    ok = named("command", 1)


class ManagementWindow(Window):
    CLASS = "Tamblin.Form8"
    folders = named("list", 1)
    add = named("command", 1)
    change = named("command", 2)
    delete = named("command", 3)
    leave = named("command", 4)
    allow = named("option", 1, 0)
    forbid = named("option", 1, 1)

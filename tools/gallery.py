"""Pictures of every window, for the README and the manual: opens each window of a furnished machine
and saves what it looks like."""

import pathlib
import subprocess
import time

from controls import press_keys, right_click_row, wait_until
from hosts import make_host
from sandbox import HOST
from set_up_windows import ChoiceWindow, ManagementWindow, ManualWindow, SearchWindow, WizardWindow
from windows import CheckWindow, HelpWindow, character_menu


class Gallery:
    def __init__(self, app, folder):
        self.app = app
        self.folder = pathlib.Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)

    def take(self, name, *windows):
        """The part of the screen that the windows cover, once it has come to rest."""
        areas = [window.state()["area"] for window in windows]
        left, top = min(a[0] for a in areas), min(a[1] for a in areas)
        right, bottom = max(a[2] for a in areas), max(a[3] for a in areas)
        path = self.folder / f"{name}.png"
        part = f"{right - left}x{bottom - top}+{max(left, 0)}+{max(top, 0)}"
        previous = None
        for _ in range(20):
            time.sleep(0.1)
            subprocess.run(["import", "-window", "root", "-crop", part, "+repage", str(path)], check=True)
            current = path.read_bytes()
            if current == previous:
                break
            previous = current
        print(f"  {path.name}")


def furnish_for_pictures(machine):
    machine.write(HOST + "\\mikan\\mikan.txt", "みかんの説明書\r\n".encode("cp932"))
    machine.write(HOST + "\\hinata.obl", b"")
    machine.make_folder(HOST + "\\dat")
    make_host(machine, "D:\\Old\\Vimora", [])
    make_host(machine, "D:\\Old\\Vimora2", [])
    for number in range(4000):
        machine.make_folder(f"D:\\Music\\{number:04}")


def move(window, x, y):
    left, top, right, bottom = window.state()["area"]
    window.app.operator.ask("move", window.handle, x, y, right - left, bottom - top)


def take_main_windows(gallery, app):
    main = app.main
    move(main, 20, main.state()["area"][1])
    main.list3.select("mikan")
    gallery.take("main", main)
    right_click_row(main.list3, "mikan")
    menu = character_menu(app).wait_shown()
    gallery.take("menu", main)
    press_keys("Escape")
    menu.wait_gone()
    main.check_folders.press()
    check = CheckWindow(app).wait_shown()
    gallery.take("check", check)
    check.done.press()
    main.wait_enabled()
    main.show_help.press()
    help_window = HelpWindow(app).wait_shown()
    help_window.purposes[0].press()
    wait_until(help_window.purpose_text.text, "a help text")
    help_window.remora.press()
    move(help_window, 100, 100)
    gallery.take("help", help_window)
    help_window.done.press()
    help_window.wait_gone()


def take_set_up_windows(gallery, app):
    wizard, manual = WizardWindow(app), ManualWindow(app)
    app.main.manage_folders.press()
    management = ManagementWindow(app).wait_shown()
    gallery.take("management", management)
    management.add.press()
    gallery.take("wizard", wizard.wait_shown())
    wizard.by_hand.press()
    manual.wait_shown().browse("C:\\Vimora")
    gallery.take("manual", manual)
    manual.back.press()
    wizard.wait_shown().search.press()
    take_search(gallery, SearchWindow(app).wait_shown())
    gallery.take("choice", ChoiceWindow(app).wait_shown(60))


def take_search(gallery, search):
    """The search goes on while its picture is taken."""
    wait_until(search.folder_count.text, "the counters to move")
    left, top, right, bottom = search.state()["area"]
    part = f"{right - left}x{bottom - top}+{left}+{top}"
    path = gallery.folder / "search.png"
    subprocess.run(["import", "-window", "root", "-crop", part, "+repage", str(path)], check=True)
    print(f"  {path.name}")


def take_gallery(machine, app, folder):
    """The program is at its main window; it is left in the choice of folders."""
    furnish_for_pictures(machine)
    gallery = Gallery(app, folder)
    take_main_windows(gallery, app)
    take_set_up_windows(gallery, app)

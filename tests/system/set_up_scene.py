"""What set-up tests share: a program on a machine with several drives, and journeys through it."""

import pytest

from controls import wait_until
from hosts import make_host
from names import VERSION
from set_up_windows import ChoiceWindow, ManagementWindow, ManualWindow, SearchWindow, WizardWindow
from tamblin_app import App
from windows import HelpWindow

EXIT = "Tamblin を終了してもよろしいですか？"
CANCELLED = "Vimoraフォルダの検出を中止しました。"
NO_HOST = "Vimora が見つかりませんでした。"
REGISTER_QUESTION = "検出されたフォルダのうち、登録するフォルダにチェックをつけてください。"
DEFAULT_QUESTION = "デフォルトに設定するフォルダを選択してください。"


def with_windows(app):
    app.wizard = WizardWindow(app)
    app.manual = ManualWindow(app)
    app.search = SearchWindow(app)
    app.choice = ChoiceWindow(app)
    app.management = ManagementWindow(app)
    app.help = HelpWindow(app)
    return app


# Fixed drives, which are empty.
SPARE = "stuvwxyz"


@pytest.fixture(scope="module")
def drives():
    """D: is fixed, too; F: is removable."""
    return "df" + SPARE


@pytest.fixture
def app(machine):
    """The program, not started and without settings."""
    return with_windows(App(machine))


def shown_windows(app):
    """The classes of the program's windows that are shown, its message boxes too."""
    shown = [w["class"] for w in app.operator.windows() if w["visible"]]
    return sorted(name for name in shown if name.startswith("Tamblin.") or name == "#32770")


def wait_only(app, window):
    """Waits until `window` is the program's only one and can be used."""
    wait_until(lambda: shown_windows(app) == [window.CLASS], f"{window.CLASS} alone to be shown")
    return window.wait_enabled()


def start_wizard(app):
    app.start()
    return wait_only(app, app.wizard)


def search_from_start(app):
    start_wizard(app).search.press()


def start_main(app):
    app.start()
    return wait_only(app, app.main)


def make_hosts(machine, *folders, characters=()):
    for folder in folders:
        make_host(machine, folder, characters)


def make_known(app, *folders, default=None, lines=("KVAOPTION=OFF",)):
    """Makes host folders and the settings that name them."""
    for folder in folders:
        make_host(app.machine, folder, [folder.rsplit("\\", 1)[1].lower()])
    app.write_ini(
        f"VERSION=Ver.{VERSION}",
        f"DEFAULT={folders[0] if default is None else default}",
        *lines,
        *[f"VMRFOLDER={folder}" for folder in folders],
    )


def fresh_settings(*folders, default, kavalet=""):
    """The settings file that a first run leaves; its browser stood in the program's folder."""
    lines = ["# Tamblin", "# Configuration File", "", f"VERSION=Ver.{VERSION}", f"DEFAULT={default}"]
    lines += [f"KVAOPTION={kavalet}", *[f"VMRFOLDER={folder}" for folder in folders]]
    lines += ["VIEWFOLDER=C:\\Tamblin\\", ""]
    return "".join(line + "\r\n" for line in lines).encode("cp932")


def leave_main(app):
    app.main.leave.press()
    app.answer(EXIT, "OK")
    app.wait_ended()
    assert shown_windows(app) == []


def assert_main_shows(app, *folders, selected):
    wait_only(app, app.main)
    assert app.main.combo1.entries() == list(folders)
    assert app.main.combo1.selected() == ([selected] if selected else [])

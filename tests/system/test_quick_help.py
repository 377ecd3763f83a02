"""The quick help window: categories, topics, the support page, and keeping to the main window's side."""

import subprocess
import time

import pytest

from controls import point_at, wait_until
from maintenance_scene import (  # noqa: F401
    app,
    machine,
    scene,
    scenes,
)
from names import VERSION
from windows import HelpWindow

CATEGORIES = ["●機能制限", "●ボタン説明", "●目的別ヘルプ", "●Tamblinについて"]
LIMITATIONS, BUTTONS, PURPOSES, ABOUT = range(4)
DELIVERED = (
    "　該当オンブレルが、ネットワーク更新で{}新しい定義ファイルを提供している場合は、"
    "オンブレルを選択するだけで、ボタンがアクティブになります。"
)
OBL_STEPS = [
    "　「すべてのフォルダ」から新しいオンブレル定義ファイルを選択し、"
    "「導入済オンブレル一覧」から該当するオンブレルを選択します。",
    "　「OBL」ボタンがアクティブになるので、クリックすると完了です。",
    "",
]
CHECK_REASON = (
    "　オンブレル定義ファイルだけがある場合や、フォルダだけがある場合、"
    "オンブレルが正しく起動できない場合があるので、その対処ができます。"
)
PURPOSE_TOPICS = {
    "●オンブレルをインストールする": [
        "　「すべてのフォルダ」からオンブレルのパッケージを選択し、インストールボタンをクリックします。",
        "　確認ウィンドウが出るので、「Install」ボタンをクリックするとインストールされます。",
    ],
    "●Ombrel.exeを更新する": [
        "　「すべてのフォルダ」から新しいombrel.exeを選択し、「VMR」ボタンをクリックします。"
    ],
    "●.oblファイルを更新する": [*OBL_STEPS, DELIVERED.format("")],
    "●.rcファイルを書き換える": [
        "　ヴィモラを普通に起動する場合の起動オンブレルを設定します。",
        "　「導入済オンブレル一覧」からオンブレルを選択し、「.rc」ボタンをクリックします。",
    ],
    "●VMRフォルダをチェックする": ["　ヴィモラのフォルダをチェックします。", "", CHECK_REASON],
    "●オンブレルを起動する": [
        "　「導入済オンブレル一覧」から選択したオンブレルを直接起動できます。",
        "　呼び出したいオンブレルを選択し、右クリックのメニューから「オンブレルの起動」をクリックします。",
    ],
    "●READMEを表示する": [
        "　READMEを表示させたいオンブレルを選択し、右クリックのメニューから「READMEの表示」をクリックします。",
        "　そのオンブレルのREADMEを見つけられなかった場合は、メニューが選択できなくなっています。",
    ],
}
BUTTON_TOPICS = {
    "●インストールボタン": [
        "　オンブレルをインストールします。",
        "",
        "　「すべてのフォルダ」からパッケージを選択し、このボタンをクリックします。",
        "　確認ウィンドウが表示されるので、「Install」ボタンをクリックするとインストールされます。",
    ],
    "●Local Updateボタン": ["　"],
    "●VMRボタン": [
        "　ombrel.exeをアップデートします。",
        "　「すべてのフォルダ」から新しいombrel.exeを選択し、このボタンをクリックします。",
    ],
    "●OBLボタン": ["　オンブレル定義ファイルをアップデートします。", *OBL_STEPS, DELIVERED.format("、")],
    "●アンインストールボタン": [
        "　オンブレルをアンインストールします。",
        "　「導入済オンブレル一覧」から、アンインストールするオンブレルを選択し、このボタンをクリックします。",
    ],
    "●.rcボタン": [
        "　ombrel.rcファイルを書き換えます。",
        "　選択したオンブレルをヴィモラの次回起動オンブレルに設定します。",
    ],
    "●Checkボタン": ["　ヴィモラフォルダのチェックをします。", "", CHECK_REASON],
    "●設定ボタン": [
        "　ヴィモラに関する設定を行います。",
        "　ヴィモラを複数インストールしている場合、１０ヶ所まで登録しておくことができます。",
        "　Kavalet用定義ファイルにデータを書き込むかどうかも、ここで設定できます。",
    ],
    "●Quick Helpボタン": ["　Tamblinに関する簡単なヘルプを表示します。"],
    "●選択解除ボタン": ["　それぞれのリストの選択を解除します。"],
    "●終了ボタン": ["　Tamblinを終了します。"],
}


@pytest.fixture
def help_window(app):
    window = HelpWindow(app)
    app.operator.ask("move", app.main.handle, 0, 60, 740, 560)
    app.main.show_help.press()
    window.wait_shown()
    yield window
    if app.running() and window.shown():
        window.close()
        window.wait_gone()


def main_corner(app):
    """Where the help window belongs: at the main window's upper right corner."""
    _, top, right, _ = app.main.state()["area"]
    return [right, top]


def visible_parts(window):
    shown = {c["id"] for c in window.controls() if c["visible"]}

    def all_shown(controls):
        found = [control.identity in shown for control in controls]
        assert len(set(found)) == 1, found
        return found[0]

    parts = {
        LIMITATIONS: window.limitations,
        BUTTONS: [*window.buttons, window.button_text],
        PURPOSES: [*window.purposes, window.purpose_text],
        ABOUT: [*window.about, window.support],
    }
    return [category for category, controls in parts.items() if all_shown(controls)]


def show(window, category):
    window.categories[category].press()
    wait_until(lambda: visible_parts(window) == [category], CATEGORIES[category] + " to be shown")


def test_each_category_shows_its_part_alone(app, help_window):
    assert help_window.title() == "Quick Help"
    assert app.main.enabled()
    texts = {c["id"]: c["text"] for c in help_window.controls()}
    assert [texts[link.identity] for link in help_window.categories] == CATEGORIES
    assert "「●」のついた文字をクリックすると簡単なヘルプが表示されます。" in texts.values()
    for category in [ABOUT, LIMITATIONS, BUTTONS, PURPOSES, BUTTONS]:
        show(help_window, category)


@pytest.mark.parametrize("category, topics", [(PURPOSES, PURPOSE_TOPICS), (BUTTONS, BUTTON_TOPICS)])
def test_each_topic_shows_its_text(app, help_window, category, topics):
    show(help_window, category)
    links = help_window.purposes if category == PURPOSES else help_window.buttons
    pane = help_window.purpose_text if category == PURPOSES else help_window.button_text
    texts = {c["id"]: c["text"] for c in help_window.controls()}
    assert [texts[link.identity] for link in links] == list(topics)
    assert pane.text() == ""
    for link, lines in zip(links, topics.values()):
        link.press()
        wait_until(lambda: pane.text() == "\r\n".join(lines), f"the text {lines}")


def test_limitations_and_about(app, help_window):
    texts = {c["id"]: c["text"] for c in help_window.controls()}
    assert [texts[line.identity] for line in help_window.limitations] == [
        "１、一度に登録できるヴィモラの場所は１０ヶ所までです。",
        "２、ウィンドウ上のボタンは使用可能状態になっている場合のみアクティブになります。",
    ]
    assert [texts[line.identity] for line in help_window.about] == [
        f"Tamblin\r\n  Ver.{VERSION}\r\n\r\n1999/11/16 Released.",
        "adapted for Vimora",
    ]
    assert texts[help_window.support.identity] == "support Page"


def test_the_support_page_is_opened_by_the_shell(app, help_window):
    show(help_window, ABOUT)
    app.recorder.clear()
    for line in help_window.about:
        line.real_click()
    help_window.support.real_click()
    (record,) = app.recorder.wait_records(1)
    assert record["command line"].startswith(f'"{app.recorder.PROGRAM}" open "https://')
    assert record["show command"] == "1"


# Remora mode


def test_the_window_keeps_to_the_main_windows_side_while_it_is_told_to(app, help_window):
    def beside_main():
        return help_window.area()[:2] == main_corner(app)

    assert not help_window.remora.ticked()
    assert help_window.remora.text() == "小判鮫モード\r\nOFFにする"
    wait_until(beside_main, "the help window at its place")
    former = main_corner(app)
    app.operator.ask("move", app.main.handle, 0, 200, 740, 560)
    wait_until(beside_main, "the help window to follow")
    assert main_corner(app) != former
    help_window.remora.press()
    wait_until(help_window.remora.ticked, "the box to be ticked")
    wait_until(lambda: app.operator.ask("focus")["id"] == help_window.done.identity, "the focus to move on")
    left, top, right, bottom = help_window.area()
    app.operator.ask("move", help_window.handle, 500, 300, right - left, bottom - top)
    app.operator.ask("move", app.main.handle, 5, 100, 740, 560)
    # Twice the time after which it would follow.
    end = time.monotonic() + 2.2
    while time.monotonic() < end:
        assert help_window.area()[:2] == [500, 300]
        time.sleep(0.1)
    help_window.remora.press()
    wait_until(beside_main, "the help window to return")
    assert not help_window.remora.ticked()


def test_the_window_opens_only_once(app, help_window):
    show(help_window, ABOUT)
    app.main.show_help.press()
    assert len([w for w in app.operator.windows() if w["class"] == HelpWindow.CLASS]) == 1
    assert visible_parts(help_window) == [ABOUT]


@pytest.mark.parametrize("way", ["button", "close box", "escape"])
def test_ways_to_close(app, help_window, way):
    app.operator.ask("activate", help_window.handle)
    help_window.leave_by(way, help_window.done)
    help_window.wait_gone()
    assert app.main.enabled() and app.running()


def test_the_pointer_over_a_category_lights_it(app, help_window):
    """What is under the pointer is drawn in another style, and only as long."""
    link = help_window.categories[LIMITATIONS]
    point_at(5, 900)
    plain = settled_picture(link)
    point_at(*link.centre())
    wait_until(lambda: picture(link) != plain, "the category to light up")
    point_at(*help_window.categories[ABOUT].centre())
    wait_until(lambda: picture(link) == plain, "the category to go out")


def picture(control):
    """The pixels of a control as they are on the screen, but for the pointer."""
    left, top, right, bottom = control.state()["area"]
    crop = f"{right - left}x{bottom - top}+{left}+{top}"
    command = ["import", "-window", "root", "-crop", crop, "rgb:-"]
    return subprocess.run(command, check=True, capture_output=True).stdout


def settled_picture(control):
    previous = picture(control)

    def same():
        nonlocal previous
        current = picture(control)
        unchanged, previous = current == previous, current
        return unchanged

    wait_until(same, "the picture to settle")
    return previous


def test_topics_under_the_mouse(app, help_window):
    show(help_window, BUTTONS)
    help_window.buttons[10].real_click()
    wait_until(lambda: help_window.button_text.text() == "　Tamblinを終了します。", "the text")
    help_window.categories[PURPOSES].real_click()
    wait_until(lambda: visible_parts(help_window) == [PURPOSES], "the purposes")

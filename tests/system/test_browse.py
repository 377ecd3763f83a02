"""The main window's lists and buttons: hosts, characters, folders, files, selections."""

from controls import click, point_at, press_keys, tab_to, wait_until
from names import VERSION


def test_the_main_window_shows_hosts_characters_and_packages(running):
    main = running.main
    assert main.title() == f"Tamblin Ver.{VERSION}"
    assert main.combo1.entries() == ["C:\\Vimora", "D:\\Games\\Vimora"]
    assert main.combo1.selected() == ["C:\\Vimora"]
    assert main.list3.entries() == ["mikan", "yuzu"]
    assert main.text1.text() == "C:\\Packages\\"
    assert main.list2.entries() == [
        "damaged.lzh",
        "futari.lzh",
        "hostile.lzh",
        "loose.lzh",
        "mikan.lzh",
        "picture.lzh",
        "sora.LZH",
        "表ソ能.lzh",
    ]
    rows = main.list1.entries()
    assert rows[0] == "ﾃﾞｽｸﾄｯﾌﾟ"
    assert rows[1:3] == ["C:", "  + Packages"]
    assert rows[-1] == "D:"
    assert main.list1.selected() == ["  + Packages"]


def test_browsing_by_double_click_with_the_mouse(running, machine):
    machine.write("D:\\Collection\\深い\\ombrel.obl", b"")
    machine.write("D:\\Collection\\深い\\package.lzh.bak", b"")
    main = running.main
    main.list1.real_double_click("D:")
    main.wait_browsed("D:\\")
    main.list1.real_double_click("  + Collection")
    main.wait_browsed("D:\\Collection\\")
    assert main.list1.entries()[-2:] == ["  + Collection", "    + 深い"]
    main.list1.real_double_click("    + 深い")
    main.wait_browsed("D:\\Collection\\深い\\")
    assert main.list1.selected() == ["    + 深い"]
    assert main.list2.entries() == ["ombrel.obl"]


def test_selecting_several_files_with_the_mouse(running):
    main = running.main
    main.list2.real_click_row("futari.lzh")
    wait_until(lambda: main.list2.selected() == ["futari.lzh"], "the first file to be selected")
    main.list2.real_click_row("sora.LZH", "ctrl")
    wait_until(lambda: main.list2.selected() == ["futari.lzh", "sora.LZH"], "both to be selected")
    main.list2.real_click_row("picture.lzh")
    wait_until(lambda: main.list2.selected() == ["picture.lzh"], "the last alone to be selected")
    main.list2.real_click_row("damaged.lzh", "shift")
    wait_until(lambda: len(main.list2.selected()) == 6, "the range to be selected")
    assert main.install.enabled()


def test_the_status_line_explains_the_button_under_the_pointer_though_disabled(running):
    main = running.main
    assert main.text2.text().startswith(f"Tamblin Ver.{VERSION}")
    assert not main.install.enabled()
    for button, text in [
        (main.check_folders, "ヴィモラフォルダの不具合を検出します。"),
        (main.install, "選択しているパッケージをインストールします。"),
    ]:
        point_at(*button.centre())
        wait_until(lambda: main.text2.text() == text, "the text of the button")


def test_a_glance_at_another_program_keeps_the_selection(running, machine):
    main = running.main
    main.list2.select("futari.lzh")
    machine.start("C:\\Vimora\\ombrel.exe")
    host = wait_until(
        lambda: [w for w in running.operator.windows() if w["class"] == "StandIn.Ombrel"], "the host"
    )[0]
    running.operator.ask("activate", host["window"])
    running.operator.ask("activate", main.handle)
    running.operator.ask("close-box", host["window"])
    wait_until(lambda: not running.operator.running("ombrel.exe"), "the host to end")
    assert main.list2.selected() == ["futari.lzh"]
    assert main.install.enabled()
    click(*main.install.centre())
    running.confirmation.wait_shown()


def test_by_keyboard_alone_to_a_new_package(running, machine):
    """Up by Backspace, down by typing a folder's name, F5 for what has just been downloaded."""
    main = running.main
    machine.write("C:\\Downloads\\first.lzh", b"")
    main.browse("C:\\Packages")
    tab_to(main.list1)
    press_keys("BackSpace")
    main.wait_browsed("C:\\")
    press_keys("F5", "d", "o", "Return")
    main.wait_browsed("C:\\Downloads\\")
    tab_to(main.list2)
    press_keys("f")
    wait_until(lambda: main.list2.selected() == ["first.lzh"], "the package to be selected")
    machine.write("C:\\Downloads\\another.lzh", b"")
    press_keys("F5")
    wait_until(lambda: main.list2.entries() == ["another.lzh", "first.lzh"], "the new package")
    assert main.list2.selected() == ["first.lzh"]
    press_keys("ctrl+a")
    wait_until(lambda: main.list2.selected() == main.list2.entries(), "all to be selected")
    assert main.install.enabled()


def test_browsing_with_the_keyboard(running):
    main = running.main
    main.list1.real_click_row("C:")
    wait_until(lambda: main.list1.selected() == ["C:"], "the drive row to be selected")
    press_keys("Return")
    main.wait_browsed("C:\\")
    row = main.list1.row("  + Packages")
    press_keys(*["Down"] * (row - main.list1.row("C:")))
    wait_until(lambda: main.list1.selected() == ["  + Packages"], "the row to be selected")
    press_keys("Return")
    main.wait_browsed("C:\\Packages\\")
    assert "futari.lzh" in main.list2.entries()


def test_the_desktop_row_leads_to_the_desktop(running, machine):
    # Public has a desktop, too.
    users = [user for user in machine.path("C:\\users").iterdir() if user.name != "Public"]
    desktop = users[0] / "Desktop"
    (desktop / "on the desktop.lzh").write_bytes(b"")
    running.main.list1.double_click("ﾃﾞｽｸﾄｯﾌﾟ")
    running.main.wait_browsed(f"C:\\users\\{desktop.parent.name}\\Desktop\\")
    assert running.main.list2.entries() == ["on the desktop.lzh"]

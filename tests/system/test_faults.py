"""What happens when the surroundings fail: reports, and a program that can be used afterwards."""

import re

from sandbox import settings
from test_install import HOST, install, propose


def wait_report(app, *numbers):
    """Waits for the report of a run-time error with one of these numbers, puts it away, and gives
    the paragraphs below the number."""
    box = app.wait_box()
    found = re.fullmatch(r"実行時エラー '(\d+)':\n\n\S.*", box.text(), re.DOTALL)
    assert found, box.text()
    assert int(found[1]) in numbers, box.text()
    assert box.title() == "Tamblin"
    assert box.has_icon()
    assert box.buttons() == ["OK"]
    paragraphs = box.text().split("\n\n")[1:]
    box.press("OK")
    return paragraphs


def test_a_host_folder_that_is_read_only(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "futari.lzh")
    machine.path(HOST).chmod(0o555)
    confirmation.install.press()
    text, path, advice = wait_report(running, 70, 75)
    assert text.endswith("。") and advice.endswith("。")
    assert path.startswith((HOST + "\\", "C:\\TAMTMP\\"))
    machine.path(HOST).chmod(0o755)
    running.main.wait_enabled()
    assert machine.tree(HOST) == before
    assert running.main.list3.entries() == ["mikan", "yuzu"]
    install(running, "futari.lzh")
    assert running.main.list3.entries() == ["haruka", "mikan", "minato", "yuzu"]


def test_settings_beyond_reason(furnished, machine):
    """Ten thousand lines, bytes that are no characters: the program starts all the same."""
    odd = b"".join(b"line %d \xff\x00\x81\r\n" % number for number in range(10000))
    lines = "".join(line + "\r\n" for line in settings()).encode("cp932")
    machine.write("C:\\Tamblin\\tamb.ini", odd + lines)
    furnished.start_main()
    furnished.main.leave.press()
    furnished.answer("Tamblin を終了してもよろしいですか？", "OK")
    furnished.wait_ended()
    assert furnished.ini() == odd + lines.replace(b"C:\\Packages", b"C:\\Packages\\")

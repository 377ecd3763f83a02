"""Packages that cannot be installed, wholly or in part."""

import shutil

import pytest

import lzh_packages
from test_install import HOST, as_tree, assert_not_staged, confirm, install, propose

UNPACK_FAILED = "パッケージの解凍に失敗しました。"
NOTE = (
    "tambに対応した形式ではありませんでした。\n"
    "これらをインストールする場合は手動で行ってください。"
)


def test_what_cannot_be_installed_is_listed_and_the_rest_installed(running, machine):
    machine.write("C:\\Packages\\kinako.obl", lzh_packages.definition("kinako"))
    shutil.copy(machine.path("C:\\Packages\\futari.lzh"), machine.path("C:\\Packages\\futari2.lzh"))
    running.main.browse("C:\\Packages")
    before = machine.tree(HOST)
    packages = ["futari.lzh", "futari2.lzh", "kinako.obl", "loose.lzh", "mikan.lzh", "picture.lzh"]
    confirmation = propose(running, *packages)
    assert confirmation.list1.entries() == ["haruka （futari.lzh）", "minato （futari.lzh）"]
    refused = ["futari2.lzh （判定不能）", "kinako.obl", "loose.lzh", "picture.lzh"]
    assert confirmation.list2.entries() == refused
    assert confirmation.list3.entries() == ["mikan （mikan.lzh）"]
    assert confirmation.label6.visible()
    assert confirmation.label6.text().replace("\r\n", "\n") == NOTE
    confirm(running)
    assert machine.tree(HOST) == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}


@pytest.mark.parametrize("package", ["damaged.lzh", "hostile.lzh"])
def test_a_bad_archive_ends_the_install(running, machine, package):
    before = machine.tree(HOST), machine.tree("D:\\")
    main = running.main
    main.list2.select(package)
    main.install.press()
    running.answer(UNPACK_FAILED, "OK")
    main.wait_enabled()
    assert (machine.tree(HOST), machine.tree("D:\\")) == before
    assert not list(machine.prefix.rglob("evil.txt"))
    assert_not_staged(machine)
    assert not main.install.enabled()
    assert not running.confirmation.shown()
    # The program goes on as ever.
    install(running, "futari.lzh")
    assert main.list3.entries() == ["haruka", "mikan", "minato", "yuzu"]

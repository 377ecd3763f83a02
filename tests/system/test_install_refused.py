"""Packages that cannot be installed, wholly or in part."""

import shutil

import pytest

import lzh_packages
from test_install import HOST, NONE, as_tree, assert_not_staged, cancel, confirm, install, propose

UNPACK_FAILED = "パッケージの解凍に失敗しました。"
NOTE = (
    "tambに対応した形式ではありませんでした。\n"
    "これらをインストールする場合は手動で行ってください。"
)


def test_what_is_installed_already_stays_as_it_is(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "mikan.lzh")
    assert confirmation.list1.entries() == [NONE]
    assert confirmation.list2.entries() == [NONE]
    assert confirmation.list3.entries() == ["mikan （mikan.lzh）"]
    assert not confirmation.install.enabled()
    cancel(running)
    assert machine.tree(HOST) == before


def test_beside_an_installed_one_only_the_others_are_installed(running, machine):
    before = machine.tree(HOST)
    confirmation = propose(running, "futari.lzh", "mikan.lzh")
    assert confirmation.list1.entries() == ["haruka （futari.lzh）", "minato （futari.lzh）"]
    assert confirmation.list3.entries() == ["mikan （mikan.lzh）"]
    confirm(running)
    assert machine.tree(HOST) == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}


@pytest.mark.parametrize("package", ["picture.lzh", "loose.lzh"])
def test_a_package_in_another_form_cannot_be_installed(running, machine, package):
    before = machine.tree(HOST)
    confirmation = propose(running, package)
    assert confirmation.list1.entries() == [NONE]
    assert confirmation.list2.entries() == [package]
    assert confirmation.label6.visible()
    assert confirmation.label6.text().replace("\r\n", "\n") == NOTE
    assert not confirmation.install.enabled()
    cancel(running)
    assert machine.tree(HOST) == before
    assert_not_staged(machine)


def test_the_same_content_twice_cannot_be_judged(running, machine):
    shutil.copy(machine.path("C:\\Packages\\futari.lzh"), machine.path("C:\\Packages\\futari2.lzh"))
    running.main.browse("C:\\Packages")
    confirmation = propose(running, "futari.lzh", "futari2.lzh")
    assert confirmation.list1.entries() == ["haruka （futari.lzh）", "minato （futari.lzh）"]
    assert confirmation.list2.entries() == ["futari2.lzh （判定不能）"]


def test_a_loose_definition_file_cannot_be_installed(running, machine):
    machine.write("C:\\Packages\\kinako.obl", lzh_packages.definition("kinako"))
    running.main.browse("C:\\Packages")
    before = machine.tree(HOST)
    confirmation = propose(running, "futari.lzh", "kinako.obl")
    assert confirmation.list2.entries() == ["kinako.obl"]
    confirm(running)
    assert machine.tree(HOST) == {**before, **as_tree(lzh_packages.TWO_CHARACTERS)}


@pytest.mark.parametrize("package", ["damaged.lzh", "cut.lzh", "hostile.lzh"])
def test_a_bad_archive_ends_the_install(running, machine, package):
    before = machine.tree(HOST), machine.tree("D:\\")
    main = running.main
    main.list2.select(package)
    main.install.press()
    box = running.wait_box()
    assert box.buttons() == ["OK"]
    assert not box.has_icon()
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


def test_a_bad_archive_discards_those_before_it(running, machine):
    before = machine.tree(HOST)
    shutil.copy(machine.path("C:\\Packages\\damaged.lzh"), machine.path("C:\\Packages\\z.lzh"))
    running.main.browse("C:\\Packages")
    running.main.list2.select("futari.lzh", "z.lzh")
    running.main.install.press()
    running.answer(UNPACK_FAILED, "OK")
    running.main.wait_enabled()
    assert machine.tree(HOST) == before
    assert_not_staged(machine)

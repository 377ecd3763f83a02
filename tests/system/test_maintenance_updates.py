"""VMR Update and OBL Update: both sources, both answers, and copies that fail."""

import pytest

from controls import wait_until
from maintenance_scene import (  # noqa: F401
    HOST,
    NEW_FILES,
    OTHER_HOST,
    app,
    machine,
    scene,
    scenes,
)
from test_faults import wait_report

HOST_QUESTION = "Vimoraをアップデートします。よろしいですか？"
HOST_DONE = "Vimoraのアップデートが完了しました。"


def question(stem):
    return stem + "をアップデートします。よろしいですか？"


def done(stem):
    return stem + "のアップデートが完了しました。"


def offer(app, machine, **files):
    """Puts files where the browser is and has it read them."""
    for name, data in files.items():
        machine.write(f"{NEW_FILES}\\{name}", data)
    main = app.main
    main.list1.double_click(main.list1.selected()[0])
    wait_until(lambda: set(files) <= set(main.list2.entries()), f"{list(files)} to be offered")


def ask(app, button, text):
    button.press()
    box = app.wait_box()
    assert box.buttons() == ["OK", "Cancel"]
    assert not box.has_icon()
    assert box.text() == text
    return box


# The host program


def test_the_host_program_is_replaced(app, machine):
    before = machine.tree(HOST)
    offer(app, machine, **{"ombrel.exe": b"a newer one"})
    app.main.list2.select("ombrel.exe")
    ask(app, app.main.update_host, HOST_QUESTION).press("OK")
    box = app.wait_box()
    assert box.buttons() == ["OK"]
    app.answer(HOST_DONE, "OK")
    app.main.wait_enabled()
    assert machine.tree(HOST) == {**before, "ombrel.exe": b"a newer one"}
    assert not app.main.update_host.enabled()
    app.main.list2.select("ombrel.exe")
    assert app.main.update_host.enabled()


def test_cancel_keeps_the_host_program(app, machine):
    before = machine.tree(HOST)
    offer(app, machine, **{"Ombrel.EXE": b"a newer one"})
    app.main.list2.select("Ombrel.EXE")
    ask(app, app.main.update_host, HOST_QUESTION).press("Cancel")
    app.main.wait_enabled()
    assert machine.tree(HOST) == before
    assert app.main.update_host.enabled()


def test_a_host_program_that_is_gone_again_ends_silently(app, machine):
    before = machine.tree(HOST)
    offer(app, machine, **{"ombrel.exe": b"a newer one"})
    app.main.list2.select("ombrel.exe")
    machine.path(NEW_FILES + "\\ombrel.exe").unlink()
    app.main.update_host.press()
    app.main.deselect_files.press()
    wait_until(lambda: app.main.list2.selected() == [], "the files to be deselected")
    assert not app.box.shown()
    assert machine.tree(HOST) == before


def test_a_read_only_host_program_is_reported_and_kept(app, machine):
    before = machine.tree(HOST)
    machine.path(HOST + "\\ombrel.exe").chmod(0o444)
    offer(app, machine, **{"ombrel.exe": b"a newer one"})
    app.main.list2.select("ombrel.exe")
    ask(app, app.main.update_host, HOST_QUESTION).press("OK")
    wait_report(app, 70, 75)
    app.main.wait_enabled()
    assert machine.tree(HOST) == before
    assert app.main.update_host.enabled()
    machine.path(HOST + "\\ombrel.exe").chmod(0o644)
    ask(app, app.main.update_host, HOST_QUESTION).press("OK")
    app.answer(HOST_DONE, "OK")
    assert machine.read(HOST + "\\ombrel.exe") == b"a newer one"


def test_a_host_program_that_runs_is_reported_and_kept(app, machine):
    before = machine.read(HOST + "\\ombrel.exe")
    offer(app, machine, **{"ombrel.exe": b"a newer one"})
    app.main.list3.select("mikan")
    app.main.launch.press()
    wait_until(lambda: app.operator.running("ombrel.exe"), "the host to run")
    app.main.list3.select()
    app.main.list2.select("ombrel.exe")
    ask(app, app.main.update_host, HOST_QUESTION).press("OK")
    wait_report(app, 70, 75)
    app.main.wait_enabled()
    assert machine.read(HOST + "\\ombrel.exe") == before


def test_a_folder_that_may_not_be_changed_keeps_the_host_program(app, machine):
    """The report names the file that the user knows, not the one that was to take its place."""
    before = machine.tree(HOST)
    offer(app, machine, **{"ombrel.exe": b"a newer one"})
    app.main.list2.select("ombrel.exe")
    machine.path(HOST).chmod(0o555)
    ask(app, app.main.update_host, HOST_QUESTION).press("OK")
    _, path, _ = wait_report(app, 70, 75)
    machine.path(HOST).chmod(0o755)
    app.main.wait_enabled()
    assert path == HOST + "\\ombrel.exe"
    assert machine.tree(HOST) == before


# A character's definition file, as the browser offers it


def test_a_definition_file_is_replaced_by_the_selected_file(app, machine):
    before = machine.tree(HOST)
    offer(app, machine, **{"MIKAN.obl": b"newer", "yuzu.obl": b"not this"})
    app.main.list3.select("mikan")
    assert not app.main.update_definition.enabled()
    app.main.list2.select("MIKAN.obl")
    ask(app, app.main.update_definition, question("MIKAN")).press("OK")
    app.answer(done("MIKAN"), "OK")
    app.main.wait_enabled()
    assert machine.tree(HOST) == {**before, "mikan.obl": b"newer"}
    assert not app.main.update_definition.enabled()
    app.main.list2.select("MIKAN.obl")
    assert app.main.update_definition.enabled()


def test_cancel_keeps_the_definition_file(app, machine):
    before = machine.tree(HOST)
    offer(app, machine, **{"表ソ能.obl": b"newer"})
    app.main.list3.select("表ソ能")
    app.main.list2.select("表ソ能.obl")
    ask(app, app.main.update_definition, question("表ソ能")).press("Cancel")
    app.main.wait_enabled()
    assert machine.tree(HOST) == before
    assert app.main.update_definition.enabled()


def test_the_file_must_be_the_characters(app, machine):
    offer(app, machine, **{"yuzu.obl": b"newer"})
    app.main.list3.select("mikan")
    app.main.list2.select("yuzu.obl")
    assert not app.main.update_definition.enabled()
    app.main.list3.select("yuzu")
    assert app.main.update_definition.enabled()
    app.main.list3.select("yuzu", "mikan")
    app.main.list2.select()
    assert not app.main.update_definition.enabled()


# A character's definition file, as the character's own updates deliver it


@pytest.mark.parametrize("character", ["yuzu", "空 白", "表ソ能"])
def test_a_definition_file_is_replaced_by_the_delivered_one(app, machine, character):
    machine.write(f"{HOST}\\{character}\\dat\\obl\\{character}.obl", b"delivered")
    before = machine.tree(HOST)
    app.main.list3.select(character)
    ask(app, app.main.update_definition, question(character)).press("OK")
    app.answer(done(character), "OK")
    app.main.wait_enabled()
    assert machine.tree(HOST) == {**before, character + ".obl": b"delivered"}
    assert not app.main.update_definition.enabled()


def test_cancel_keeps_the_definition_file_from_the_delivered_one(app, machine):
    machine.write(HOST + "\\yuzu\\dat\\obl\\yuzu.obl", b"delivered")
    before = machine.tree(HOST)
    app.main.list3.select("yuzu")
    ask(app, app.main.update_definition, question("yuzu")).press("Cancel")
    app.main.wait_enabled()
    assert machine.tree(HOST) == before


def test_the_delivered_one_wins_over_the_selected_file(app, machine):
    machine.write(HOST + "\\yuzu\\dat\\obl\\yuzu.obl", b"delivered")
    offer(app, machine, **{"yuzu.obl": b"from the browser"})
    app.main.list2.select("yuzu.obl")
    app.main.list3.select("yuzu")
    ask(app, app.main.update_definition, question("yuzu")).press("OK")
    app.answer(done("yuzu"), "OK")
    assert machine.read(HOST + "\\yuzu.obl") == b"delivered"


def test_a_read_only_definition_file_is_reported_and_kept(app, machine):
    machine.write(HOST + "\\yuzu\\dat\\obl\\yuzu.obl", b"delivered")
    machine.path(HOST + "\\yuzu.obl").chmod(0o444)
    before = machine.tree(HOST)
    app.main.list3.select("yuzu")
    ask(app, app.main.update_definition, question("yuzu")).press("OK")
    wait_report(app, 70, 75)
    app.main.wait_enabled()
    assert machine.tree(HOST) == before
    app.main.combo1.select(OTHER_HOST)
    assert app.main.list3.entries() == ["kinako"]

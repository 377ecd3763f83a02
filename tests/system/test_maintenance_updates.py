"""VMR Update and OBL Update: both sources, both answers, and copies that fail."""

from controls import wait_until
from maintenance_scene import (  # noqa: F401
    HOST,
    NEW_FILES,
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


def test_the_host_program_is_replaced(app, machine):
    before = machine.tree(HOST)
    offer(app, machine, **{"ombrel.exe": b"a newer one"})
    app.main.list2.select("ombrel.exe")
    app.main.update_host.press()
    app.answer(HOST_QUESTION, "OK")
    app.answer(HOST_DONE, "OK")
    app.main.wait_enabled()
    assert machine.tree(HOST) == {**before, "ombrel.exe": b"a newer one"}
    assert not app.main.update_host.enabled()
    app.main.list2.select("ombrel.exe")
    assert app.main.update_host.enabled()


def test_a_host_program_that_runs_is_reported_and_kept(app, machine):
    before = machine.read(HOST + "\\ombrel.exe")
    offer(app, machine, **{"ombrel.exe": b"a newer one"})
    app.main.list3.select("mikan")
    app.main.launch.press()
    wait_until(lambda: app.operator.running("ombrel.exe"), "the host to run")
    app.main.list3.select()
    app.main.list2.select("ombrel.exe")
    app.main.update_host.press()
    app.answer(HOST_QUESTION, "OK")
    wait_report(app, 70, 75)
    app.main.wait_enabled()
    assert machine.read(HOST + "\\ombrel.exe") == before


def test_a_folder_that_may_not_be_changed_keeps_the_host_program(app, machine):
    """The report names the file that the user knows, not the one that was to take its place."""
    before = machine.tree(HOST)
    offer(app, machine, **{"ombrel.exe": b"a newer one"})
    app.main.list2.select("ombrel.exe")
    machine.path(HOST).chmod(0o555)
    app.main.update_host.press()
    app.answer(HOST_QUESTION, "OK")
    _, path, _ = wait_report(app, 70, 75)
    machine.path(HOST).chmod(0o755)
    app.main.wait_enabled()
    assert path == HOST + "\\ombrel.exe"
    assert machine.tree(HOST) == before


def test_a_definition_file_is_replaced_by_the_selected_file(app, machine):
    before = machine.tree(HOST)
    offer(app, machine, **{"MIKAN.obl": b"newer", "yuzu.obl": b"not this"})
    app.main.list3.select("mikan")
    assert not app.main.update_definition.enabled()
    app.main.list2.select("MIKAN.obl")
    app.main.update_definition.press()
    app.answer(question("MIKAN"), "OK")
    app.answer(done("MIKAN"), "OK")
    app.main.wait_enabled()
    assert machine.tree(HOST) == {**before, "mikan.obl": b"newer"}
    assert not app.main.update_definition.enabled()
    app.main.list2.select("MIKAN.obl")
    assert app.main.update_definition.enabled()


def test_a_definition_file_is_replaced_by_the_delivered_one(app, machine):
    character = "表ソ能"
    machine.write(f"{HOST}\\{character}\\dat\\obl\\{character}.obl", b"delivered")
    before = machine.tree(HOST)
    app.main.list3.select(character)
    app.main.update_definition.press()
    app.answer(question(character), "OK")
    app.answer(done(character), "OK")
    app.main.wait_enabled()
    assert machine.tree(HOST) == {**before, character + ".obl": b"delivered"}
    assert not app.main.update_definition.enabled()

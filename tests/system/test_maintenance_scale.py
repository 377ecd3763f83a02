"""Ten thousand characters, all of them selected."""

from controls import click, press_keys, wait_until
from maintenance_scene import (  # noqa: F401
    HOST,
    app,
    machine,
    scene,
    scenes,
)
from test_maintenance_uninstall import QUESTION
from windows import ALWAYS

LB_GETCOUNT = 0x018B
LB_GETSELCOUNT = 0x0190
CHARACTERS = [f"c{number:04}" for number in range(10_000)]


def add_characters(machine):
    for name in CHARACTERS:
        machine.write(f"{HOST}\\{name}.obl", b"")
        machine.path(f"{HOST}\\{name}").mkdir()


def count(app, message):
    """Of the installed list; reading ten thousand entries from outside would take its time."""
    return app.operator.ask("send", app.main.list3.handle, message, 0, 0)


def test_all_can_be_selected_and_a_command_refused(scene, app, machine):
    add_characters(machine)
    scene.refresh()
    main = app.main
    everyone = len(CHARACTERS) + 4
    assert count(app, LB_GETCOUNT) == everyone
    click(*main.list3.centre())
    press_keys("Home", "shift+End")
    wait_until(lambda: count(app, LB_GETSELCOUNT) == everyone, "all characters to be selected")
    several = ALWAYS | {"uninstall", "deselect_installed"}
    wait_until(lambda: main.enabled_commands() == several, "the buttons of several")
    main.uninstall.press()
    app.answer(QUESTION, "Cancel")
    main.wait_enabled()
    assert count(app, LB_GETSELCOUNT) == everyone
    assert len(list(machine.path(HOST).glob("c*.obl"))) == len(CHARACTERS)
    main.deselect_installed.press()
    wait_until(lambda: count(app, LB_GETSELCOUNT) == 0, "the selection to go")
    assert main.enabled_commands() == ALWAYS

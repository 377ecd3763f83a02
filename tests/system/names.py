"""The names and numbers that the program and its tests share, as the program's sources have them."""

import re

from machine import ROOT


def source(file):
    return (ROOT / "src" / file).read_text("utf-8")


def numbers_of(enumeration, file):
    body = re.search(rf"enum class {enumeration} {{(.*?)}};", source(file), re.DOTALL)[1]
    return {name: int(number) for name, number in re.findall(r"(\w+) = (\d+)", body)}


def snake_case(name):
    return re.sub(r"(?<=[a-z])(?=[A-Z])", "_", name).lower()


def rows_of_menu(file):
    """The texts of a menu's rows; a separator has none."""
    table = source(file)
    table = table[table.index("{MenuItem::") :].split(";")[0]
    return re.findall(r'{(?:MenuItem::\w+, L"([^"]*)"[^{}]*)?}', table)


VERSION = re.search(r"project\(\w+ VERSION ([\d.]+)", source("../CMakeLists.txt"))[1]
KINDS = {name.lower(): number for name, number in numbers_of("ControlKind", "ui/control_id.h").items()}
COMMANDS = {snake_case(name): number for name, number in numbers_of("Command", "install/command.h").items()}
MENU_ITEMS = numbers_of("MenuItem", "base/menu.h")
CHARACTER_MENU = rows_of_menu("maintenance/character_menu.cpp")
FOLDER_MENU = rows_of_menu("maintenance/folder_check.cpp")

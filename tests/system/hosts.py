"""Host folders with the stand-in host program and characters."""

from lzh_packages import definition, write_tree
from machine import OMBREL

START_UP_LINE = b"H001currentobl=default.obl\r\n"


def make_host(machine, folder, characters=()):
    """Makes `folder` a host folder."""
    machine.make_folder(folder)
    machine.copy_in(OMBREL, folder + "\\ombrel.exe")
    machine.write(folder + "\\ombrel.rc", START_UP_LINE)
    for name in characters:
        install_by_hand(machine, folder, name)


def install_by_hand(machine, folder, name):
    write_tree(
        machine.path(folder),
        {
            f"{name}.obl": definition(name),
            f"{name}/{name}.txt": f"{name}のはじめに\r\n".encode("cp932"),
            f"{name}/dat/image.bin": name.encode("cp932") * 100,
        },
    )

"""A machine furnished for trying the program out: two hosts, characters, packages, settings."""

import lzh_packages
from hosts import make_host
from tamblin_app import App

SETTINGS = [
    "# Tamblin",
    "# Configuration File",
    "",
    "VERSION=Ver.0.61",
    "DEFAULT=C:\\Vimora",
    "KVAOPTION=ON",
    "VMRFOLDER=C:\\Vimora",
    "VMRFOLDER=D:\\Games\\Vimora",
    "VIEWFOLDER=C:\\Packages",
    "",
]
KAVALET = "# Kavaletの定義\r\nmikan,start,1\r\nsora,start,1\r\n".encode("cp932")


def furnish(machine):
    make_host(machine, "C:\\Vimora", ["mikan", "yuzu", "白菜"], KAVALET)
    make_host(machine, "D:\\Games\\Vimora", ["kinako"])
    lzh_packages.make_samples(machine.make_folder("C:\\Packages"))
    app = App(machine)
    app.write_ini(*SETTINGS)
    return app

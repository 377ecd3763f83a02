"""Furnishes a machine for trying the program out: two hosts, characters, packages, settings."""

import pathlib
import shutil

import lzh_packages
from hosts import make_host
from names import VERSION
from tamblin_app import App

HOST = "C:\\Vimora"
OTHER_HOST = "D:\\Games\\Vimora"
PACKAGES = "C:\\Packages"


def settings(kavalet="OFF"):
    """The lines of tamb.ini."""
    return [
        "# Tamblin",
        "# Configuration File",
        "",
        f"VERSION=Ver.{VERSION}",
        f"DEFAULT={HOST}",
        f"KVAOPTION={kavalet}",
        f"VMRFOLDER={HOST}",
        f"VMRFOLDER={OTHER_HOST}",
        f"VIEWFOLDER={PACKAGES}",
        "",
    ]


def furnish(machine, samples=None, kavalet="OFF"):
    """`samples` is a folder with the sample packages; without it they are made."""
    make_host(machine, HOST, ["mikan", "yuzu"])
    make_host(machine, OTHER_HOST, ["kinako"])
    packages = pathlib.Path(machine.path(PACKAGES))
    if samples is None:
        lzh_packages.make_samples(packages)
    else:
        shutil.copytree(samples, packages)
    app = App(machine)
    app.write_ini(*settings(kavalet))
    return app

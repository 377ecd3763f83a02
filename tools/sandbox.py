#!/usr/bin/env python3
"""The program in a sandbox, build/sandbox: a machine with two hosts and a folder of packages.

    sandbox.py start    starts the program on the display and waits for its end
    sandbox.py tour     goes the main road through the real windows, with screenshots in build/tour,
                        then takes a picture of every window for build/tour/gallery

Both say afterwards what changed on the sandbox's drives. The tour succeeds only when the package has
arrived in the host, byte for byte.
"""

import pathlib
import shutil
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TOP / "tests" / "system"))

import lzh_packages  # noqa: E402
from controls import wait_until  # noqa: E402
from gallery import Gallery, take_gallery  # noqa: E402
from machine import Machine  # noqa: E402
from sandbox import HOST, OTHER_HOST, furnish  # noqa: E402
from tamblin_app import save_screenshot  # noqa: E402

SANDBOX = TOP / "build" / "sandbox"
TOUR = TOP / "build" / "tour"
WATCHED = ["C:\\Tamblin", HOST, OTHER_HOST, "D:\\"]
PACKAGE = "futari.lzh"
DONE = "インストールが完了しました。"


def make_machine():
    if SANDBOX.exists():
        left = Machine.__new__(Machine)
        left.prefix, left.started = SANDBOX, []
        left.remove()
    machine = Machine(SANDBOX, drives="d")
    dress(machine)
    return machine


# Text as on users' screens: smoothed, in grey, so that a picture looks alike on every screen.
FONT = "Noto Sans CJK JP"
FACES = ["MS UI Gothic", "MS PGothic", "MS Gothic", "Meiryo", "Meiryo UI", "Yu Gothic UI", "Segoe UI"]
SMOOTHED = f"""Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\\Control Panel\\Desktop]
"FontSmoothing"="2"
"FontSmoothingType"=dword:00000001
"FontSmoothingGamma"=dword:00000578
"FontSmoothingOrientation"=dword:00000001

[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]
{chr(10).join(f'"{face}"="{FONT}"' for face in FACES)}
"""


def dress(machine):
    machine.write("C:\\smoothed.reg", SMOOTHED.encode())
    machine.command(*machine.in_prefix("wine", "regedit", "/S", "C:\\smoothed.reg"))
    machine.path("C:\\smoothed.reg").unlink()


def snapshot(machine):
    files = {}
    for folder in WATCHED:
        prefix = folder.rstrip("\\") + "\\"
        files.update({prefix + name.replace("/", "\\"): data for name, data in machine.tree(folder).items()})
    return files


def tell_changes(before, after):
    print("What changed on the drives:")
    for name in sorted(before.keys() | after.keys()):
        if name not in before:
            print(f"  + {name}" + ("" if name.endswith("\\") else f" ({len(after[name])} bytes)"))
        elif name not in after:
            print(f"  - {name}")
        elif before[name] != after[name]:
            print(f"  * {name} ({len(before[name])} -> {len(after[name])} bytes)")
    if before == after:
        print("  nothing")


def missing_from_host(machine):
    """What of the toured package is not in the host as it should be."""
    host = machine.tree(HOST)
    return [name for name, data in lzh_packages.TWO_CHARACTERS.items() if host.get(name) != data]


def start(machine, app):
    # On the user's own screen the window stands among the user's other windows.
    subprocess.run(
        machine.in_prefix("wine", "reg", "delete", "HKCU\\Software\\Wine\\Explorer", "/f"),
        cwd=machine.path("C:\\"),
        stdin=subprocess.DEVNULL,
        stdout=subprocess.DEVNULL,
        check=False,
    )
    print(f"The sandbox's drives are {SANDBOX}/drive_c and drive_d. Close the program to end.")
    machine.start(app.PROGRAM).wait()
    return 0


def picture(app, name, ready):
    """A screenshot once the windows are as they should be and have drawn themselves."""
    wait_until(ready, f"the state of {name}.png")
    previous = None
    path = TOUR / f"{name}.png"

    def settled():
        nonlocal previous
        save_screenshot(path)
        current = path.read_bytes()
        same, previous = current == previous, current
        return same

    wait_until(settled, f"{name}.png to be drawn")
    print(f"  build/tour/{name}.png")


def walk(app):
    main, confirmation = app.main, app.confirmation
    gallery = Gallery(app, TOUR / "gallery")
    print("Starting")
    app.start()
    wait_until(lambda: app.splash.shown() and app.splash.progress_line.visible(), "the splash")
    save_screenshot(TOUR / "1-start-up.png")
    print("  build/tour/1-start-up.png")
    gallery.take("splash", app.splash)
    main.wait_shown()
    app.splash.wait_gone()
    main.browse("D:\\")
    picture(app, "2-main-window", lambda: main.list2.entries() == [])
    print("Browsing to the packages, selecting", PACKAGE)
    main.browse("C:\\Packages")
    main.list2.select(PACKAGE)
    picture(app, "3-selection", main.install.enabled)
    print("Installing")
    main.install.press()
    confirmation.wait_shown()
    picture(app, "4-confirmation", lambda: len(confirmation.list1.entries()) == 2)
    gallery.take("confirmation", confirmation)
    confirmation.install.press()
    box = app.wait_box()
    picture(app, "5-done", box.shown)
    app.answer(DONE, "OK")
    main.wait_enabled()
    picture(app, "6-list", lambda: "haruka" in main.list3.entries())
    print("Installed, says the program:", "、".join(main.list3.entries()))


def tour(machine, app):
    shutil.rmtree(TOUR, ignore_errors=True)
    TOUR.mkdir(parents=True)
    try:
        walk(app)
    except Exception:
        save_screenshot(TOUR / "failure.png")
        print(app.described())
        raise
    missing = missing_from_host(machine)
    for name in missing:
        print(f"Not in the host as it should be: {name}")
    return 1 if missing else 0


def take_pictures(machine, app):
    """After the tour and the list of what it changed: the pictures' scenes change more."""
    print("Pictures of every window, in build/tour/gallery:")
    try:
        take_gallery(machine, app, TOUR / "gallery")
    except Exception:
        save_screenshot(TOUR / "failure.png")
        print(app.described())
        raise


def main():
    ways = {"start": start, "tour": tour}
    if len(sys.argv) != 2 or sys.argv[1] not in ways:
        print(__doc__, file=sys.stderr)
        return 2
    machine = make_machine()
    try:
        app = furnish(machine, kavalet="ON")
        before = snapshot(machine)
        code = ways[sys.argv[1]](machine, app)
        tell_changes(before, snapshot(machine))
        if sys.argv[1] == "tour":
            take_pictures(machine, app)
        return code
    finally:
        machine.stop()


if __name__ == "__main__":
    sys.exit(main())

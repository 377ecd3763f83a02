#!/usr/bin/env python3
"""Usage: bench_trees.py PREFIX

Makes the trees that the Windows benchmarks measure, as drives of a Wine prefix, from outside: through
Wine large folders take long to fill. C: gets host folders with 100, 1,000 and 10,000 characters; I: a
tree of 100,000 folders and 300,000 files; J:, K: and L: a folder with 10, 1,000 and 10,000 subfolders.
"""

import pathlib
import sys


def make_host(folder, characters):
    folder.mkdir(parents=True)
    for name in ["ombrel.exe", "ombrel.rc"]:
        (folder / name).touch()
    for number in range(characters):
        (folder / f"character{number}").mkdir()
        (folder / f"character{number}.obl").touch()


def make_tree(folder, folders, files_each):
    """Ten subfolders to a folder, until there are enough."""
    folder.mkdir()
    made, waiting = 0, [folder]
    while made < folders:
        parent = waiting.pop(0)
        for number in range(min(10, folders - made)):
            child = parent / f"folder{number}"
            child.mkdir()
            for file_number in range(files_each):
                (child / f"file{file_number}.dat").touch()
            waiting.append(child)
            made += 1


def make_siblings(folder, count):
    (folder / "many").mkdir(parents=True)
    for number in range(count):
        (folder / "many" / f"folder{number}").mkdir()


def main(prefix):
    for characters in [100, 1000, 10000]:
        make_host(prefix / "drive_c" / "tamblin-bench" / f"host{characters}", characters)
    trees = {
        "i": lambda folder: make_tree(folder, 100_000, 3),
        "j": lambda folder: make_siblings(folder, 10),
        "k": lambda folder: make_siblings(folder, 1000),
        "l": lambda folder: make_siblings(folder, 10000),
    }
    for letter, make in trees.items():
        drive = prefix / f"drive_{letter}"
        make(drive)
        (prefix / "dosdevices" / f"{letter}:").symlink_to(f"../drive_{letter}")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))

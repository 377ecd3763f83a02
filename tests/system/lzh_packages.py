"""Character packages for the sandbox and the tests.

Well-formed packages come from an independent archiver (jlha), so that the program's reader is not
tested against a writer that shares its mistakes. What no archiver makes (hostile names) is written
here. A package's content is a dictionary from path ("haruka/readme.txt") to bytes; a path that ends
in "/" is an empty folder.
"""

import os
import pathlib
import random
import struct
import subprocess
import tempfile


def definition(name):
    """A character's definition file, as far as anything here cares."""
    return f"[{name}]\r\nname={name}\r\n".encode("cp932")


def picture(name):
    """Bytes that pack to about half, the same for the same name."""
    weights = [1 / (value + 1) for value in range(256)]
    return bytes(random.Random(name).choices(range(256), weights, k=20000))


def character(name, **files):
    """The files of a package with one character: its definition and its folder.

    Further files go into the folder; a double underscore in a keyword stands for a dot.
    """
    content = {
        f"{name}.obl": definition(name),
        f"{name}/{name}.txt": f"{name}のはじめに\r\n".encode("cp932"),
        f"{name}/dat/image.bin": picture(name),
        f"{name}/dat/obl/": b"",
    }
    content.update({f"{name}/{key.replace('__', '.')}": data for key, data in files.items()})
    return content


TWO_CHARACTERS = {**character("haruka"), **character("minato")}
INSTALLED = character("MIKAN")
UNSUPPORTED = {"picture/picture.bmp": b"BM" + bytes(400), "picture/readme.txt": b"No definition.\r\n"}
LOOSE_FILES = {"readme.txt": b"Nothing but this.\r\n"}
WITH_KAVALET = {
    **character(
        "sora",
        KVA__DEF="# sora\r\nsora,start,2\r\nsora,stop,9\r\nsora,new,1\r\n".encode("cp932"),
    ),
    "sora/sora-X.txt": "インストール後のお知らせ\r\n".encode("cp932"),
}
JAPANESE = {
    **character("表ソ能"),
    "表ソ能/ア.TXT": "アの説明\r\n".encode("cp932"),
    "表ソ能/ｶﾅ/予定表.dat": bytes(1000),
    **character("ｶﾅ"),
}


def write_tree(folder, content):
    """Writes a package's content as files and folders."""
    for path, data in content.items():
        target = pathlib.Path(folder, path)
        if path.endswith("/"):
            target.mkdir(parents=True, exist_ok=True)
        else:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(data)


def archive(path, content, level=2, method=5):
    """Packs `content` with jlha. `level` is the header level, `method` the 5 of -lh5-."""
    path = pathlib.Path(path).absolute()
    roots = sorted({name.split("/")[0] for name in content})
    with tempfile.TemporaryDirectory() as folder:
        write_tree(folder, content)
        packed = pathlib.Path(folder, "packed")
        packed.mkdir()
        subprocess.run(
            ["jlha", f"c{level}o{method}", str(packed / "package.lzh"), *roots],
            cwd=folder,
            env={**os.environ, "LC_ALL": "ja_JP.UTF-8"},
            check=True,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        path.write_bytes((packed / "package.lzh").read_bytes())
    return path


def crc16(data):
    crc = 0
    for byte in data:
        crc ^= byte
        for _ in range(8):
            crc = (crc >> 1) ^ 0xA001 if crc & 1 else crc >> 1
    return crc


def stored_entry(name, data):
    """One stored file with a level 0 header, its name exactly as given."""
    name = name.encode("cp932")
    body = b"-lh0-" + struct.pack("<IIIBB", len(data), len(data), 0x50210000, 0x20, 0)
    body += bytes([len(name)]) + name + struct.pack("<H", crc16(data))
    return bytes([len(body), sum(body) & 0xFF]) + body + data


def hostile_archive(path, names):
    """An archive whose entries have names that no archiver would give them."""
    entries = b"".join(stored_entry(name, f"this is {name}".encode("cp932")) for name in names)
    pathlib.Path(path).write_bytes(entries + b"\0")
    return path


def damaged_archive(path, sound):
    """A copy of a sound archive with a few of its first packed file's bytes turned over."""
    data = bytearray(pathlib.Path(sound).read_bytes())
    start = data.index(b"-lh5-") + 2000
    for position in range(start, start + 8):
        data[position] ^= 0xFF
    pathlib.Path(path).write_bytes(data)
    return path


def make_samples(folder):
    """All sample packages, made into `folder`."""
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    archive(folder / "futari.lzh", TWO_CHARACTERS, level=2)
    archive(folder / "mikan.lzh", INSTALLED, level=1)
    archive(folder / "picture.lzh", UNSUPPORTED, level=0)
    archive(folder / "loose.lzh", LOOSE_FILES, level=0)
    archive(folder / "sora.LZH", WITH_KAVALET, level=2, method=6)
    archive(folder / "表ソ能.lzh", JAPANESE, level=2, method=7)
    damaged_archive(folder / "damaged.lzh", folder / "futari.lzh")
    hostile_archive(folder / "hostile.lzh", ["evil.obl", "evil\\evil.txt", "..\\..\\evil.txt"])
    (folder / "readme.txt").write_bytes("パッケージの見本\r\n".encode("cp932"))


if __name__ == "__main__":
    import sys

    make_samples(sys.argv[1])

#!/usr/bin/env python3
"""Makes assets/tamblin.ico from the program's own drawing of its emblem.

Run it after a change of the drawing; the icon is kept in the repository, so that a build needs
neither this script nor a native compiler.
"""

import pathlib
import struct
import subprocess
import tempfile
import zlib

ROOT = pathlib.Path(__file__).resolve().parents[2]
SIZES = [16, 20, 24, 32, 40, 48, 64, 256]
SOURCES = ["tools/icon/draw_icon.cpp", "src/app/artwork.cpp", "src/ui/picture.cpp"]


def png(side, pixels):
    """The form in which an icon holds its largest picture."""

    def chunk(kind, data):
        check = zlib.crc32(kind + data)
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", check)

    rows = b""
    for y in range(side):
        row = pixels[y * side * 4 : (y + 1) * side * 4]
        rows += b"\0" + b"".join(
            bytes((row[i + 2], row[i + 1], row[i], row[i + 3])) for i in range(0, len(row), 4)
        )
    header = struct.pack(">IIBBBBB", side, side, 8, 6, 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(rows, 9))
        + chunk(b"IEND", b"")
    )


def bitmap(side, pixels):
    """The form in which it holds the others: rows from the bottom, then a mask."""
    header = struct.pack("<IiiHHIIiiII", 40, side, 2 * side, 1, 32, 0, 0, 0, 0, 0, 0)
    rows = b"".join(pixels[y * side * 4 : (y + 1) * side * 4] for y in reversed(range(side)))
    mask = b""
    for y in reversed(range(side)):
        bits = "".join("1" if pixels[(y * side + x) * 4 + 3] == 0 else "0" for x in range(side))
        bits = bits.ljust((side + 31) // 32 * 32, "0")
        mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
    return header + rows + mask


def main():
    with tempfile.TemporaryDirectory() as folder:
        program = pathlib.Path(folder, "draw_icon")
        command = ["g++", "-std=c++20", "-O2", "-I", ROOT / "src", "-o", program]
        subprocess.run(command + [ROOT / source for source in SOURCES], check=True)
        pictures = []
        for side in SIZES:
            drawn = subprocess.run([program, str(side)], check=True, capture_output=True)
            form = png if side == 256 else bitmap
            pictures.append(form(side, drawn.stdout))
    directory = struct.pack("<HHH", 0, 1, len(SIZES))
    offset = 6 + 16 * len(SIZES)
    for side, picture in zip(SIZES, pictures):
        directory += struct.pack(
            "<BBBBHHII", side % 256, side % 256, 0, 0, 1, 32, len(picture), offset
        )
        offset += len(picture)
    (ROOT / "assets" / "tamblin.ico").write_bytes(directory + b"".join(pictures))


if __name__ == "__main__":
    main()

"""The program's file: what it takes from Windows, what it loads, and what it says of itself."""

import os
import re
import subprocess

from machine import ROOT, TAMBLIN

KNOWN_FUNCTIONS = ROOT / "tests" / "system" / "windows7_functions.txt"


def known_functions():
    """Library to functions, in lower-case library names."""
    known = {}
    for line in KNOWN_FUNCTIONS.read_text().splitlines():
        if line.startswith("#"):
            continue
        words = line.split()
        if not line.startswith(" "):
            functions = known.setdefault(words.pop(0).lower(), set())
        functions.update(words)
    return known


def imported_functions():
    listing = subprocess.run(
        ["x86_64-w64-mingw32-objdump", "-p", str(TAMBLIN)], check=True, capture_output=True, text=True
    ).stdout
    imports = {}
    for line in listing.splitlines():
        library = re.fullmatch(r"\s*DLL Name: (\S+)", line)
        function = re.fullmatch(r"\s+[0-9a-f]+\s+\d+\s+([A-Za-z_]\w*)", line)
        if library:
            functions = imports.setdefault(library[1].lower(), set())
        elif function and imports:
            functions.add(function[1])
    return imports


def test_it_imports_only_what_windows_7_has_and_takes_from_its_own_folder():
    known = known_functions()
    imports = imported_functions()
    assert {"kernel32.dll", "user32.dll", "msvcrt.dll"} <= imports.keys()
    assert "CreateFileW" in imports["kernel32.dll"]
    assert imports.keys() <= known.keys()
    unknown = {
        library: functions - known[library]
        for library, functions in imports.items()
        if "*" not in known[library] and functions - known[library]
    }
    assert unknown == {}


def test_it_searches_libraries_in_windows_own_folder_alone(furnished, machine, tmp_path):
    """From its own first step on; what was loaded before that is what it imports."""
    searches = tmp_path / "searches"
    with searches.open("wb") as report:
        assert furnished.operator
        machine.start(
            furnished.PROGRAM,
            stderr=report,
            env={**os.environ, "WINEDEBUG": "+module"},
        )
        furnished.main.wait_shown()
        furnished.main.wait_enabled()
        furnished.main.leave.press()
        furnished.answer("Tamblin を終了してもよろしいですか？", "OK")
        furnished.wait_ended()
    log = searches.read_text("utf-8", "replace").replace("\\\\", "\\").lower()
    found = re.findall(r'looking for l"([^"]+)" in l"([^"]+)"', log)
    names = [name for name, _ in found]
    system = {"c:\\windows\\system32"}
    restricted = [{folder.rstrip("\\") for folder in path.split(";")} == system for _, path in found]
    # Wine loads its display driver for the program's first window.
    first = len(names) - 1 - names[::-1].index("winex11.drv")
    assert "uxtheme.dll" in names[first:]
    assert all(restricted[first:])


def test_it_says_what_it_is_in_both_languages():
    """Each language's block of the version resource: names and texts, each a string of UTF-16."""
    content = TAMBLIN.read_bytes()
    blocks = [content.index(name.encode("utf-16le")) for name in ("041104B0", "040904B0")]
    assert blocks[0] < blocks[1]
    for start, end in [(blocks[0], blocks[1]), (blocks[1], blocks[1] + 2000)]:
        texts = content[start:end].decode("utf-16le", "replace").split("\0")
        texts = [text for text in texts if text]
        for name in [
            "CompanyName",
            "FileDescription",
            "FileVersion",
            "InternalName",
            "LegalCopyright",
            "OriginalFilename",
            "ProductName",
            "ProductVersion",
        ]:
            [at] = [index for index, text in enumerate(texts) if text.endswith(name)]
            assert len(texts[at + 1].strip()) > 2, name
    assert "オンブレルの管理".encode("utf-16le") in content
    translation = bytes.fromhex("1104b0040904b004")
    assert translation in content[blocks[1] :]

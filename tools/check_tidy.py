#!/usr/bin/env python3
"""Usage: check_tidy.py BUILD_FOLDER

Runs clang-tidy over the rules of a native build, two files at a time. A file that passed is looked at
again only when it, a header that it includes, or the checks have changed.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parents[1]


def dependencies(build):
    """Which project files each object was made from, as the build recorded it."""
    text = subprocess.run(
        ["ninja", "-C", str(build), "-t", "deps"], check=True, capture_output=True, text=True
    ).stdout
    result = {}
    current = []
    for line in text.splitlines():
        if line and not line[0].isspace():
            current = result.setdefault(line.split(":")[0], [])
        elif line.strip():
            path = pathlib.Path(os.path.normpath(build / line.strip()))
            if path.is_relative_to(TOP / "src"):
                current.append(path)
    return result


def fingerprint(source, included):
    digest = hashlib.sha256()
    for path in [TOP / ".clang-tidy", source, *sorted(set(included))]:
        digest.update(path.read_bytes())
    return digest.hexdigest()


def object_of(entry):
    words = entry["command"].split()
    return words[words.index("-o") + 1]


def rules(build):
    """Each rule's source file and its fingerprint."""
    included = dependencies(build)
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["file"])
        if source.is_relative_to(TOP / "src"):
            yield source, fingerprint(source, included.get(object_of(entry), []))


def check(build, source):
    return subprocess.run(
        ["clang-tidy", "--quiet", "-p", str(build), str(source)],
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.DEVNULL,
        text=True,
    )


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    passed = build / "tidy-passed"
    passed.mkdir(exist_ok=True)
    waiting = [(source, mark) for source, mark in rules(build) if not (passed / mark).exists()]
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        runs = pool.map(lambda item: check(build, item[0]), waiting)
        for (source, mark), run in zip(waiting, runs):
            if run.returncode:
                failed += 1
                print(f"{source.relative_to(TOP)}:\n{run.stdout}")
            else:
                (passed / mark).touch()
    print(f"clang-tidy: {len(waiting)} files looked at, {failed} with findings")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

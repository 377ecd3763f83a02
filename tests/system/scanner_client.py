"""Runs scanner.exe, the stand-in for a virus scanner, on a machine."""

import subprocess
import threading

from controls import wait_until
from machine import PROGRAMS

SCANNER = PROGRAMS / "tests" / "system" / "scanner.exe"


class Scanner:
    """Watches folders while its block runs: every new file there is held for some seconds."""

    PROGRAM = "C:\\scanner\\scanner.exe"

    def __init__(self, machine, seconds, *folders, lets_delete=False):
        self.machine = machine
        self.arguments = [str(round(seconds * 1000)), "delete" if lets_delete else "keep", *folders]
        self.lines = []

    def __enter__(self):
        if not self.machine.path(self.PROGRAM).exists():
            self.machine.copy_in(SCANNER, self.PROGRAM)
        self.process = self.machine.start(
            self.PROGRAM, *self.arguments, stdin=subprocess.PIPE, stdout=subprocess.PIPE
        )
        threading.Thread(target=self._listen, daemon=True).start()
        wait_until(lambda: self.lines, "the scanner to watch")
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait(timeout=300)

    def _listen(self):
        for line in self.process.stdout:
            self.lines.append(line.decode().rstrip("\r\n"))

    def held(self, path):
        """Whether it has held that file."""
        return path in self.lines

    def wait_held(self, *paths):
        """From then on it looks into no folder any more."""
        for path in paths:
            wait_until(lambda path=path: self.held(path), f"{path} to be held")
        self.process.stdin.write(b"\n")
        self.process.stdin.flush()
        wait_until(lambda: "watched" in self.lines, "the watch to end")

"""The program that documents are opened with on the tests' machines."""

from controls import wait_until
from machine import PROGRAMS

RECORDER = PROGRAMS / "tests" / "system" / "recorder.exe"


class Recorder:
    """The program that shows documents on this machine, and what it has been given."""

    PROGRAM = "C:\\recorder\\recorder.exe"
    LOG = "C:\\recorder\\recorder.log"

    def __init__(self, machine):
        self.machine = machine
        machine.copy_in(RECORDER, self.PROGRAM)
        assert machine.start(self.PROGRAM, "/register").wait(timeout=300) == 0

    def clear(self):
        self.machine.path(self.LOG).unlink(missing_ok=True)

    def records(self):
        """In the order in which they were started: command line, working folder, show command."""
        path = self.machine.path(self.LOG)
        text = path.read_text("utf-8") if path.exists() else ""
        records = []
        for piece in text.split("\n\n")[:-1]:
            records.append(dict(line.split(": ", 1) for line in piece.splitlines()))
        return sorted(records, key=lambda record: int(record["started"]))

    def wait_records(self, count):
        wait_until(lambda: len(self.records()) >= count, f"{count} documents to be opened")
        return self.records()

    def opened(self, document):
        """The command line that opening a document gives."""
        return f'"{self.PROGRAM}" open "{document}"'

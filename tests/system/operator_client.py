"""Talks to operator.exe, which operates windows by messages from a process of its own."""

import contextlib
import json
import queue
import subprocess
import threading


class OperatorError(Exception):
    """The operator could not do it: a window that is gone, a disabled button, no such row."""


class Operator:
    """One operator serves a machine for as long as the machine runs."""

    PROGRAM = "C:\\operator\\operator.exe"

    def __init__(self, machine):
        self.log = machine.prefix / "tmp" / "operator.log"
        with self.log.open("wb") as log:
            self.process = machine.start(
                self.PROGRAM, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=log
            )
        self.answers = queue.Queue()
        threading.Thread(target=self._listen, daemon=True).start()
        self.ask("processes")

    def _listen(self):
        for line in self.process.stdout:
            try:
                answer = json.loads(line)
            except ValueError:
                answer = {"error": f"the operator has printed {line!r}"}
            self.answers.put(answer)
        code = self.process.wait()
        said = self.log.read_text(errors="replace")
        self.answers.put({"error": f"the operator has ended with {code}: {said}"})

    def ask(self, command, *arguments, timeout=300):
        line = "\t".join([command, *[str(argument) for argument in arguments]])
        with contextlib.suppress(BrokenPipeError):  # The last answer says how it has ended.
            self.process.stdin.write(line.encode() + b"\n")
            self.process.stdin.flush()
        try:
            answer = self.answers.get(timeout=timeout)
        except queue.Empty:
            raise OperatorError(f"{command}: the operator has not answered for {timeout} s") from None
        if "error" in answer:
            raise OperatorError(f"{command}: {answer['error']}")
        return answer["answer"]

    def act(self, command, window, *arguments):
        """Asks for what the window's program does in its own time, and waits until it has done it or
        waits for an answer itself."""
        answer = self.ask(command, window, *arguments)
        self.wait_until_handled(window)
        return answer

    def wait_until_handled(self, window):
        """A window that is gone has handled all that it ever will."""
        self.ask("wait-until-handled", window)

    def windows(self):
        return self.ask("windows")

    def running(self, name):
        """How many processes of that program run."""
        return sum(p["name"].lower() == name.lower() for p in self.ask("processes"))

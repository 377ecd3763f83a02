"""Talks to operator.exe, which operates windows by messages from a process of its own."""

import json
import queue
import subprocess
import threading

from machine import OPERATOR


class OperatorError(Exception):
    """The operator could not do it: a window that is gone, a disabled button, no such row."""


class Operator:
    """One operator serves a machine for as long as the machine runs."""

    PROGRAM = "C:\\operator\\operator.exe"

    def __init__(self, machine):
        machine.copy_in(OPERATOR, self.PROGRAM)
        self.process = machine.start(self.PROGRAM, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.answers = queue.Queue()
        threading.Thread(target=self._listen, daemon=True).start()
        self.ask("processes")

    def _listen(self):
        for line in self.process.stdout:
            self.answers.put(json.loads(line))
        self.answers.put({"error": "the operator has ended"})

    def ask(self, command, *arguments, timeout=300):
        line = "\t".join([command, *[str(argument) for argument in arguments]])
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

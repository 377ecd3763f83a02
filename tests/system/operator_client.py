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

    ATTEMPTS = 3

    def __init__(self, machine):
        machine.copy_in(OPERATOR, self.PROGRAM)
        for attempt in range(1, self.ATTEMPTS + 1):
            try:
                self._start(machine)
                return
            except (OperatorError, OSError) as error:
                # The first program of a machine that ends before it has done anything: Wine is not up.
                machine.note_that_wine_did_not_come_up(f"{error} {self.log.read_text(errors='replace')}")
                if attempt == self.ATTEMPTS:
                    raise

    def _start(self, machine):
        self.log = machine.prefix / "tmp" / "operator.log"
        with self.log.open("wb") as log:
            self.process = machine.start(
                self.PROGRAM, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=log
            )
        self.answers = queue.Queue()
        threading.Thread(target=self._listen, args=(self.process, self.answers), daemon=True).start()
        self.ask("processes")

    @staticmethod
    def _listen(process, answers):
        for line in process.stdout:
            answers.put(json.loads(line))
        answers.put({"error": f"the operator has ended with {process.wait()}"})

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

"""Fixtures: for every test an empty machine, and on it the program with two hosts and packages."""

import itertools
import os
import pathlib
import signal
import subprocess

import pytest

import lzh_packages
from machine import MACHINES, ROOT, Machine
from sandbox import furnish
from tamblin_app import App, save_screenshot

RESULTS = pathlib.Path(os.environ.get("TAMBLIN_RESULTS", ROOT / "build" / "results"))
FAILURES = RESULTS / "system-failures"
numbers = itertools.count(1)


def pytest_configure():
    # The fixtures clean up after whoever ends the tests, too.
    signal.signal(signal.SIGTERM, signal.default_int_handler)


@pytest.hookimpl(hookwrapper=True, tryfirst=True)
def pytest_runtest_makereport(item, call):
    result = yield
    report = result.get_result()
    app = App.latest
    if report.when != "teardown" and report.failed and app is not None:
        FAILURES.mkdir(parents=True, exist_ok=True)
        save_screenshot(FAILURES / f"{item.name}.png")
        try:
            report.sections.append(("Windows", app.described()))
        except Exception as error:  # The report must come whatever state the program is in.
            report.sections.append(("Windows", f"cannot be listed: {error}"))


@pytest.fixture(scope="session", autouse=True)
def display():
    """A screen of our own."""
    command = [ROOT / "tools" / "with-display", "sh", "-c", "echo $DISPLAY; cat"]
    screen = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    os.environ["DISPLAY"] = screen.stdout.readline().decode().strip()
    assert os.environ["DISPLAY"], "the screen did not start"
    yield
    screen.stdin.close()
    screen.wait()


@pytest.fixture(scope="session")
def samples(tmp_path_factory):
    folder = tmp_path_factory.mktemp("packages")
    lzh_packages.make_samples(folder)
    return folder


@pytest.fixture(scope="module")
def drives():
    """The machine's drives beside C:."""
    return "d"


@pytest.fixture(scope="module")
def machines():
    """The machine that a module's tests share, one after the other."""
    current = []
    yield current
    for machine in current:
        machine.remove()


@pytest.fixture
def fresh():
    """For tests that want a machine on which no program has ever run."""


@pytest.fixture
def machine(request, machines, drives):
    if "fresh" in request.fixturenames and machines:
        machines.pop().remove()
    if not machines:
        machines.append(Machine(MACHINES / f"system-{os.getpid()}-{next(numbers)}", drives))
    machine = machines[0]
    yield machine
    if not machine.sweep():
        machines.pop().remove()


@pytest.fixture
def app(machine):
    """The program, put into its folder and not started, without settings."""
    return App(machine)


@pytest.fixture
def furnished(machine, samples):
    """The program with settings for two hosts and a folder full of packages; not started."""
    return furnish(machine, samples)


@pytest.fixture
def running(furnished):
    """The furnished program with its main window ready."""
    furnished.start_main()
    return furnished

"""The machine itself that the other tests use."""

import subprocess

import pytest

from machine import ROOT

ADDR_NO_RANDOMIZE = 0x0040000


def test_no_process_has_its_heap_in_a_page_that_wine_needs(tmp_path):
    if subprocess.run(["setarch", "-R", "true"], capture_output=True, check=False).returncode:
        pytest.skip("this container does not let programs choose where their heap lies")
    personality = subprocess.run([ROOT / "tools" / "in-prefix", tmp_path,
                                  "cat", "/proc/self/personality"],
                                 capture_output=True, check=True, text=True).stdout
    assert int(personality, 16) & ADDR_NO_RANDOMIZE

#!/usr/bin/env python3
"""Keeps the results of a test run: one JUnit file and one line in steps.tsv per step.

    results.py case FOLDER NAME COMMAND...    runs a command that is one test by itself
    results.py summary FOLDER                 prints the table; the last line is the count

A step that failed without naming a failed test, or that ran no test at all, counts as one failure.
"""

import pathlib
import subprocess
import sys
import time
import xml.etree.ElementTree as ElementTree
from xml.sax.saxutils import escape, quoteattr


def run_case(folder, name, command):
    start = time.monotonic()
    output = ""
    with subprocess.Popen(
        command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT
    ) as process:
        for line in process.stdout:
            output += line.decode(errors="replace")
            print(line.decode(errors="replace"), end="", flush=True)
    seconds = time.monotonic() - start
    printable = "".join(c for c in output[-20000:] if c in "\n\t" or c >= " ")
    failure = f"<failure>{escape(printable)}</failure>" if process.returncode else ""
    pathlib.Path(folder, name + ".xml").write_text(
        f'<testsuite name={quoteattr(name)}><testcase classname="checks" name={quoteattr(name)} '
        f'time="{seconds:.2f}">{failure}</testcase></testsuite>\n',
        encoding="utf-8",
    )
    return process.returncode


def outcome(case):
    if case.find("failure") is not None or case.find("error") is not None:
        return "failed"
    if case.find("skipped") is not None or case.get("status") == "notrun":
        return "skipped"
    return "passed"


def count(path):
    """How the test cases of one JUnit file ended, and the names of those that failed."""
    counts = {"passed": 0, "failed": 0, "skipped": 0}
    failed = []
    try:
        cases = list(ElementTree.parse(path).iter("testcase"))
    except (OSError, ElementTree.ParseError):
        return counts, ["(no readable results)"]
    for case in cases:
        counts[outcome(case)] += 1
        if outcome(case) == "failed":
            failed.append(f"{case.get('classname', '')}.{case.get('name', '')}")
    return counts, failed


def summarise(folder):
    folder = pathlib.Path(folder)
    total = {"passed": 0, "failed": 0, "skipped": 0}
    failures = []
    rows = []
    for line in (folder / "steps.tsv").read_text().splitlines():
        name, code, seconds = line.split("\t")
        counts, failed = count(folder / f"{name}.xml")
        if not failed and int(code) != 0:
            failed = [f"(the runner ended with {code})"]
        if not failed and sum(counts.values()) == 0:
            failed = ["(no test ran)"]
        counts["failed"] = max(counts["failed"], len(failed))
        for key in total:
            total[key] += counts[key]
        failures += [f"{name}: {test}" for test in failed]
        rows.append(f"{name:<18}{counts['passed']:>8}{counts['failed']:>8}{counts['skipped']:>8}{seconds:>8} s")
    if failures:
        print("\nFailed:")
        print("\n".join("  " + failure for failure in failures))
    print(f"\n{'':<18}{'passed':>8}{'failed':>8}{'skipped':>8}{'time':>10}")
    print("\n".join(rows))
    print()
    tell_wine_failures(folder)
    print(f"{total['passed']} passed, {total['failed']} failed, {total['skipped']} skipped")
    return 1 if total["failed"] or not total["passed"] else 0


def tell_wine_failures(folder):
    """tools/wine-prefix tries again when Wine does not come up, and notes it."""
    notes = folder / "wine-did-not-come-up.log"
    if notes.exists():
        print(f"Wine did not come up: {len(notes.read_text().splitlines())}")


def main():
    if len(sys.argv) > 4 and sys.argv[1] == "case":
        return run_case(sys.argv[2], sys.argv[3], sys.argv[4:])
    if len(sys.argv) == 3 and sys.argv[1] == "summary":
        return summarise(sys.argv[2])
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main())

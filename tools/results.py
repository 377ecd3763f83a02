#!/usr/bin/env python3
"""Usage: results.py FOLDER

Counts the test cases of a run of CTest, which left its own results in FOLDER/ctest.xml. A test of many
cases must leave them in FOLDER/NAME.xml; any other is one case itself, as is one that failed with no
case to show for it. Prints which cases failed and why; the last line is the count.
"""

import pathlib
import sys
import xml.etree.ElementTree as ElementTree

SHOWN = 3000
OF_MANY_CASES = ("unit-", "windows", "system-")


def outcome(case):
    if case.find("failure") is not None or case.find("error") is not None:
        return "failed"
    if case.find("skipped") is not None or case.get("status") == "notrun":
        return "skipped"
    return "passed"


def cases_of(path):
    try:
        return list(ElementTree.parse(path).iter("testcase"))
    except (OSError, ElementTree.ParseError):
        return []


def name_of(case):
    return f"{case.get('classname', '')}.{case.get('name', '')}"


def reason(case):
    texts = [(part.text or part.get("message", "")) for part in case if part.tag in ("failure", "error")]
    return "\n".join(texts)[:SHOWN]


def count(path):
    """How the test cases of one JUnit file ended, and the names of those that failed."""
    counts = {"passed": 0, "failed": 0, "skipped": 0}
    cases = cases_of(path)
    for case in cases:
        counts[outcome(case)] += 1
    return counts, [name_of(case) for case in cases if outcome(case) == "failed"]


def results_of(folder, test):
    """Outcome, name and reason of each case of one CTest test."""
    name = test.get("name")
    results = [
        (outcome(case), f"{name}: {name_of(case)}", reason(case)) for case in cases_of(folder / f"{name}.xml")
    ]
    passed = test.get("status") == "run"
    if not results and passed:
        if name.startswith(OF_MANY_CASES):
            return [("failed", name, "It left no results.")]
        return [("passed", name, "")]
    if not passed and not any(result[0] == "failed" for result in results):
        results.append(("failed", name, (test.findtext("system-out") or "It did not run.")[-SHOWN:]))
    return results


def tell_wine_failures(folder):
    """tools/wine-prefix tries again when Wine does not come up, and notes it."""
    notes = folder / "wine-did-not-come-up.log"
    if notes.exists():
        print(f"Wine did not come up: {len(notes.read_text().splitlines())}")


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    folder = pathlib.Path(sys.argv[1])
    results = [result for test in cases_of(folder / "ctest.xml") for result in results_of(folder, test)]
    for result, name, why in results:
        if result == "failed":
            print(f"\n---- {name}\n{why}")
    counts = {key: sum(result[0] == key for result in results) for key in ("passed", "failed", "skipped")}
    print()
    tell_wine_failures(folder)
    print(", ".join(f"{number} {key}" for key, number in counts.items()))
    return 1 if counts["failed"] or not counts["passed"] else 0


if __name__ == "__main__":
    sys.exit(main())

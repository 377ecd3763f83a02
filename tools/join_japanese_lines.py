#!/usr/bin/env python3
"""Usage: tools/join_japanese_lines.py <PAGE >PAGE
Joins the lines of a page (HTML) where a line ends within Japanese text: a browser would show the end
of the line as a blank, which Japanese does not put between words. What is in <pre> stays."""

import re
import sys

SIGNS = "\u3000-\u303f\uff00-\uffef"  # full-width punctuation and forms
JAPANESE = SIGNS + "\u3040-\u30ff\u3400-\u9fff"
# Between Japanese characters, and on either side of a full-width sign, which carries its own blank.
BREAK = re.compile(f"(?<=[{JAPANESE}])\n(?=[{JAPANESE}])|(?<=[{SIGNS}])\n(?=[^<\n])|(?<=[^>\n])\n(?=[{SIGNS}])")
FIXED = re.compile("(<pre.*?</pre>)", re.DOTALL)


def join_lines(page):
    parts = FIXED.split(page)
    return "".join(part if index % 2 else BREAK.sub("", part) for index, part in enumerate(parts))


if __name__ == "__main__":
    sys.stdin.reconfigure(encoding="utf-8")
    sys.stdout.reconfigure(encoding="utf-8")
    sys.stdout.write(join_lines(sys.stdin.read()))

"""The manual's page: Japanese sentences run on where their source has a line's end."""

import html.parser
import re
import subprocess
import sys

from machine import ROOT

sys.path.insert(0, str(ROOT / "tools"))

from join_japanese_lines import join_lines  # noqa: E402

JAPANESE = "[\u3000-\u30ff\u3400-\u9fff\uff00-\uffef]"


def manual_page():
    command = ["cmark-gfm", "--extension", "table", str(ROOT / "docs" / "manual.ja.md")]
    return subprocess.run(command, check=True, capture_output=True, encoding="utf-8").stdout


class Texts(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.found = []

    def handle_data(self, data):
        self.found.append(data)


def texts(page):
    parser = Texts()
    parser.feed(page)
    return parser.found


def test_no_sentence_of_the_manual_is_broken():
    broken = re.compile(f"{JAPANESE}\\s*\n\\s*{JAPANESE}")
    page = manual_page()
    assert any(broken.search(text) for text in texts(page)), "the source breaks no line"
    assert not [text for text in texts(join_lines(page)) if broken.search(text)]


def test_joining_changes_nothing_but_line_ends():
    page = manual_page()
    assert join_lines(page).replace("\n", "") == page.replace("\n", "")


def test_lines_are_joined_where_japanese_meets_japanese():
    assert join_lines("<p>途\n中で、\nOK を\n押す\nと</p>\n<p>次") == "<p>途中で、OK を押すと</p>\n<p>次"
    assert join_lines("word\nword と\nword") == "word\nword と\nword"
    assert join_lines("<pre>一\n二</pre>\n三\n四") == "<pre>一\n二</pre>\n三四"

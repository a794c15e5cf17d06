"""Fails when the guide or the first page links to a file, a picture or a heading that isn't there, or when the guide tells of
a key of the board that docs/keys.md doesn't know."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
GUIDE = ROOT / "docs" / "guide" / "guide.md"
LINK = re.compile(r"\]\(([^)#\s]*)(?:#([^)]*))?\)")
KEY = re.compile(r"\((Alt\+\w+)\)")


def anchors(page):
    headings = re.findall(r"^#+ (.*)$", page.read_text(encoding="utf-8"), re.M)
    return {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-") for heading in headings}


def broken_links(page):
    for target, heading in LINK.findall(page.read_text(encoding="utf-8")):
        if "://" in target:
            continue
        file = page.parent / target if target else page
        if not file.is_file():
            yield f"{page.relative_to(ROOT)}: there is no {target}"
        elif heading and heading not in anchors(file):
            yield f"{page.relative_to(ROOT)}: {file.name} has no heading {heading}"


def unknown_keys():
    board = (ROOT / "docs" / "keys.md").read_text(encoding="utf-8").partition("(`frmMain`)")[2].partition("\n## ")[0]
    for key in KEY.findall(GUIDE.read_text(encoding="utf-8")):
        if f"| {key} |" not in board:
            yield f"docs/guide/guide.md: the board has no key {key}"


found = [*broken_links(GUIDE), *broken_links(ROOT / "README.md"), *unknown_keys()]
print("\n".join(found) if found else "every link and key of the guide is there")
sys.exit(1 if found else 0)

"""Fails when docs/where.md names a source that isn't there, or when a source of the program is named nowhere in it."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCE = ROOT / "src"
ROW = re.compile(r"^\|[^|]*\|(.*)\|\s*$", re.M)
SPAN = re.compile(r"`([^`]+)`")
PATH = re.compile(r"[\w/.*-]+/[\w.*-]+|\w+\.(?:cpp|h|ui|txt|cmake)")


def is_source(path):
    return path.suffix in (".h", ".cpp")


def files_of(named):
    """A header and its source go by one name, board/frmMain; a pattern, ui/qt/*Peers, names all that fit."""
    whole = [named] if pathlib.PurePosixPath(named).suffix else [named + ".h", named + ".cpp"]
    return {path for pattern in whole for path in SOURCE.glob(pattern) if path.is_file()}


def complaints(text):
    seen = set()
    for row in ROW.findall(text):
        for span in SPAN.findall(row):
            if not PATH.fullmatch(span):
                continue
            files = files_of(span)
            if not files:
                yield f"docs/where.md: no source is {span}"
            seen |= files
    for path in sorted(filter(is_source, SOURCE.rglob("*"))):
        if path not in seen:
            yield f"src/{path.relative_to(SOURCE)}: not in docs/where.md"


found = list(complaints((ROOT / "docs" / "where.md").read_text(encoding="utf-8")))
print("\n".join(found) if found else "every source is in docs/where.md, and every one named there is one")
sys.exit(1 if found else 0)

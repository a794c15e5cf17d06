"""Fails when docs/edge-cases.md or docs/security.md names a test that isn't there, or a case without one."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SPAN = re.compile(r"`([^`]+)`")
PATH = re.compile(r"tests/\S+\.(cpp|py)")
UNIT = re.compile(r"(\w+)\.(\w+)")
FUNCTIONAL = re.compile(r"test_\w+")


def cases(text):
    """Each entry of a list with its continuation lines."""
    return re.findall(r"^- .*(?:\n  .*)*", text, re.M)


def stands_in(name, source):
    unit = UNIT.fullmatch(name)
    if unit:
        return re.search(rf"\bTEST(_F|_P)?\({unit[1]},\s*{unit[2]}\)", source)
    return re.search(rf"^def {name}\(", source, re.M)


def complaints(text):
    for case in cases(text):
        path, named = None, 0
        for span in SPAN.findall(case):
            if PATH.fullmatch(span):
                path = ROOT / span
            elif path and (UNIT.fullmatch(span) or FUNCTIONAL.fullmatch(span)):
                named += 1
                if not path.is_file():
                    yield f"{path.relative_to(ROOT)}: no such file, for {span}"
                elif not stands_in(span, path.read_text(encoding="utf-8")):
                    yield f"{path.relative_to(ROOT)}: no test {span}"
        if not named:
            yield f"no test named for: {case.splitlines()[0][2:]}"


listed = (ROOT / "docs" / "edge-cases.md").read_text(encoding="utf-8")
checked = (ROOT / "docs" / "security.md").read_text(encoding="utf-8")
found = [*complaints(listed), *complaints(checked)] if cases(listed) else ["docs/edge-cases.md lists no case"]
print("\n".join(found) if found else f"all {len(cases(listed))} edge cases have their tests")
sys.exit(1 if found else 0)

"""Fails when the guide or the first page links to a file, a picture or a heading that isn't there, when the guide tells of a
key that docs/keys.md doesn't know of the screens it is about, and when a screen of the program has no page in it."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
GUIDE = ROOT / "docs" / "guide" / "guide.md"
LINK = re.compile(r"\]\(([^)#\s]*)(?:#([^)]*))?\)")
KEY = re.compile(r"\(((?:(?:Alt|Ctrl)\+\w+)|F\d+|Insert|Delete)\)")
FORMS = re.compile(r"^<!-- (.*) -->$", re.M)
MAKER = re.compile(r"\bMake<(frm\w+)>")


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


def keys_of(forms):
    """Keys that docs/keys.md has for these forms, and for the board, where they are opened."""
    parts = (ROOT / "docs" / "keys.md").read_text(encoding="utf-8").split("\n## ")
    told = [part for part in parts if any(f"(`{form}`)" in part for form in [*forms, "frmMain"])]
    return {key for part in told for key in re.findall(r"^\| ([^|]*) \|", part, re.M)}


def unknown_keys():
    forms = []
    for page in re.split(r"^#+ ", GUIDE.read_text(encoding="utf-8"), flags=re.M):
        known = keys_of(forms)
        for key in KEY.findall(page):
            if key not in known:
                yield f"docs/guide/guide.md: no key {key} on {', '.join(forms) or 'the board'}"
        named = FORMS.findall(page)
        forms = named[-1].split() if named else []


def screens():
    """Every form that the program makes, by its maker; a form with two faces has two names."""
    made = set(MAKER.findall((ROOT / "src/start/EveryForm.cpp").read_text(encoding="utf-8")))
    return made - {"frmEstExtras"} | {"frmEstSublets", "frmEstWaste", "frmVendorEdit"}


def missing_pages():
    told = [form for forms in FORMS.findall(GUIDE.read_text(encoding="utf-8")) for form in forms.split()]
    yield from (f"docs/guide/guide.md: no page is about {form}" for form in sorted(screens() - set(told)))
    yield from (f"docs/guide/guide.md: there is no screen {form}" for form in sorted(set(told) - screens()))
    yield from (f"docs/guide/guide.md: two pages are about {form}" for form in sorted({f for f in told if told.count(f) > 1}))


found = [*broken_links(GUIDE), *broken_links(ROOT / "README.md"), *unknown_keys(), *missing_pages()]
print("\n".join(found) if found else "every link, key and screen of the guide is there")
sys.exit(1 if found else 0)

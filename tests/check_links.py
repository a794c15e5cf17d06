"""Fails when a page of the docs links to a file, a picture or a heading that isn't there, has a link that nobody can follow,
or names a file of the sources, the tests or the docs that is gone."""

import functools
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FENCED = re.compile(r"^```.*?^```", re.M | re.S)
INDENTED = re.compile(r"^(?: {4}|\t).*$", re.M)
QUOTED = re.compile(r"`([^`\n]*)`")
LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]*)(?: \"[^\"]*\")?\)")
REFERENCE = re.compile(r"\[[^\]]+\]\[([^\]]*)\]")
DEFINED = re.compile(r"^\[([^\]]+)\]:\s*(\S+)", re.M)
# A path from the root, in running text or quoted.
NAMED = re.compile(r"(?<![\w/.-])((?:\.ci|bench|cmake|demo|docs|packaging|src|tests|withholding)/[\w./+-]*\w)")
# What CONTRIBUTING.md takes for an example of something new.
IMAGINED = re.compile("loaner", re.I)


def slug(heading):
    """As the pages of a code host name it."""
    text = LINK.sub(lambda link: link[0][link[0].index("[") + 1:link[0].index("]")], heading.strip().rstrip("#").strip())
    return re.sub(r"[^\w -]", "", text.lower()).replace(" ", "-")


@functools.cache
def anchors(page):
    text = FENCED.sub("", page.read_text(encoding="utf-8"))
    slugs = [slug(heading) for heading in re.findall(r"^#+ (.*)$", text, re.M)]
    names = {name if slugs.index(name) == i else f"{name}-{slugs[:i].count(name)}" for i, name in enumerate(slugs)}
    return names | set(re.findall(r"<a (?:id|name)=\"([^\"]+)\"", text))


def fault_of_link(page, link):
    if re.match(r"[a-z]+:", link):
        return None if re.match(r"(https?|mailto):", link) else f"{link} leads to no page"
    target, _, heading = link.partition("#")
    file = page.parent / target if target else page
    if not file.exists():
        return f"there is no {target}"
    if heading and (file.suffix != ".md" or heading not in anchors(file)):
        return f"{file.name} has no heading {heading}"
    return None


def faults(page):
    text = FENCED.sub("", page.read_text(encoding="utf-8"))
    prose = QUOTED.sub("", INDENTED.sub("", text))
    defined = dict(DEFINED.findall(prose))
    for link in LINK.findall(prose) + list(defined.values()):
        if fault := fault_of_link(page, link):
            yield fault
    for name in REFERENCE.findall(prose):
        if name and name not in defined:
            yield f"nothing tells where [{name}] leads"
    for path in NAMED.findall(INDENTED.sub("", text)):
        if not IMAGINED.search(path) and not (ROOT / path).exists() and not list((ROOT / path).parent.glob(pathlib.Path(path).name + ".*")):
            yield f"there is no {path}"


pages = [*sorted(ROOT.glob("*.md")), *sorted(ROOT.glob("docs/**/*.md"))]
found = [f"{page.relative_to(ROOT)}: {fault}" for page in pages for fault in faults(page)]
print("\n".join(found) if found else f"every link and path of {len(pages)} pages leads somewhere")
sys.exit(1 if found else 0)

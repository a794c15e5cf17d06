"""Fails when docs/settings.md lacks a key that the program reads or writes, or has one that it doesn't."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCE = ROOT / "src"
LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
CONSTANT = re.compile(r'constexpr (?:std::string_view|char) (k\w+)(?:\[\])? = "([^"]*)"')

# How a key is named: the call, and which of its arguments is the key.
CALLS = (
    (re.compile(r"\bsettings_?(?:\(\))?\s*\.\s*(?:Get|GetNumber|GetBoolean|Save)\("), 0),
    (re.compile(r"\b[pP]rofile_?(?:\(\))?\s*\.\s*(?:Get|Put)\("), 1),
    (re.compile(r"\bReadAs\((?=profile)"), 2),
    (re.compile(r"\bRead\((?=settings)"), 1),
    (re.compile(r"\bplace\((?=\")"), 0),
    (re.compile(r"\b(?:getenv|qEnvironmentVariable|qEnvironmentVariableIsSet)\("), 0),
    (re.compile(r"\badd_(?:option|flag|flag_callback)\("), 0),
)
APPLICATIONS = ("kMainApplication", "kOwnApplication")  # in front of them: application and section
TABLES = (re.compile(r'\{"(\w+)", &PrintOptions::'), re.compile(r'"(\w+To\w+|ContinuedAutoSchedule|RescheduledAllow)"'))
# Arguments that hand a key on; it is named where they get it.
HANDED_ON = {"key", "key.name", "kStatusKeys[i]", "entries", "section"}
PREFIXES = {"form.Name()": "<form>", "caption": "<caption>"}
NUMBERED = {"std::to_string(i)": ("0", "12")}


def arguments(text, start):
    """Of a call whose bracket ends at start, split at its commas."""
    depth, begin, found, quoted = 0, start, [], False
    for at in range(start, len(text)):
        char = text[at]
        if char == '"' and text[at - 1] != "\\":
            quoted = not quoted
        if quoted:
            continue
        if char in "([{":
            depth += 1
        elif char in ")]}" and depth:
            depth -= 1
        elif (char == "," and not depth) or char == ")":
            found.append(" ".join(text[begin:at].split()))
            begin = at + 1
            if char == ")":
                return found
    return found


def keys_of(argument, constants):
    """Nothing when the argument can't be read."""
    if argument in HANDED_ON:
        return []
    if argument in NUMBERED:
        return NUMBERED[argument]
    if argument in constants:
        return [constants[argument]]
    prefix, _, rest = argument.rpartition(" + ")
    literal = LITERAL.fullmatch(rest)
    if not literal or (prefix and prefix not in PREFIXES):
        return None
    return [PREFIXES.get(prefix, "") + literal[1]]


def keys_in(text, complain):
    constants = dict(CONSTANT.findall(text))
    for call, index in CALLS:
        for hit in call.finditer(text):
            given = arguments(text, hit.end())
            place = index + 2 if given[0] in APPLICATIONS else index
            keys = keys_of(given[place], constants) if place < len(given) else None
            if keys is None:
                complain(hit.group() + ", ".join(given) + "): no key can be read from this")
            yield from keys or ()


def keys_of_sources(complain):
    for path in sorted(SOURCE.rglob("*.cpp")):
        text = path.read_text(encoding="utf-8")
        if path.name not in ("UserSettings.cpp", "ProfileFile.cpp"):
            yield from keys_in(text, lambda what, path=path: complain(f"{path.relative_to(ROOT)}: {what}"))
        else:
            yield from re.findall(r'getenv\("(\w+)"\)', text)
        if path.name == "Options.cpp":
            for table in TABLES:
                yield from table.findall(text)
        if path.parent.name == "app":
            yield from re.findall(r'"(--(?:help|version))"', text)
    yield "/D="


def keys_of_page(text):
    for row in re.findall(r"^\| (`[^|]*) \|", text, re.M):
        yield from re.findall(r"`([^`]+)`", row)


wrong = []
read = set(keys_of_sources(wrong.append))
told = set(keys_of_page((ROOT / "docs" / "settings.md").read_text(encoding="utf-8")))
wrong += [f"docs/settings.md lacks {key}" for key in sorted(read - told)]
wrong += [f"docs/settings.md has {key}, which nothing in src/ reads" for key in sorted(told - read)]
print("\n".join(wrong) if wrong else f"all {len(told)} settings are on their page")
sys.exit(1 if wrong else 0)

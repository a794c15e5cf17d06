"""Makes a man page: the hand-written page, with the options and commands that the program itself tells of."""

import argparse
import re
import subprocess

ENTRY = re.compile(r"^  (\S.*?)(?:  +(\S.*))?$")
# Kinds of a value, which the page has no use for: "INT:INT in [0 - 3600000]", "UINT=1".
KIND = re.compile(r" (?:TEXT|INT|UINT|FLOAT)\b:?(?:INT in (\[[^\]]*\]))?(=\S+)?( \.\.\.)?")


def escaped(text):
    return text.replace("\\", "\\\\").replace("-", "\\-").replace("'", "\\(aq")


def help_of(program, *command):
    return subprocess.run([program, *command, "--help"], capture_output=True, text=True, check=True).stdout


def entries(text, heading):
    """Pairs of what stands at the left of a section and what is told of it."""
    found = []
    inside = False
    for line in text.splitlines():
        if line and not line.startswith(" "):
            inside = line == heading + ":"
        elif inside and line.startswith("   ") and found:
            found[-1][1] = f"{found[-1][1]} {line.strip()}".strip()
        elif inside and (entry := ENTRY.match(line)):
            found.append([entry[1], entry[2] or ""])
    return found


def option(left, told):
    left = re.sub(r" (?:Excludes|Needs):.*", "", left).replace(" REQUIRED", "")
    kind = KIND.search(left)
    name = KIND.sub("", left).strip().replace(",", ", ")
    value = " \\fIVALUE\\fR" if kind and name.startswith("-") else ""
    default = f" The default is {escaped(kind[2][1:])}." if kind and kind[2] else ""
    stop = "" if told.endswith(".") or not told else "."
    return f".TP\n.B {escaped(name)}{value}\n{escaped(told)}{stop}{default}"


def options(text):
    rows = [row for heading in ("Positionals", "Options") for row in entries(text, heading)]
    return "\n".join(option(left, told) for left, told in rows)


def command(program, name):
    text = help_of(program, name)
    told, usage = text.splitlines()[:2]
    usage = escaped(usage.removeprefix("Usage: "))
    return f".SS {escaped(name)}\n.B {usage}\n.PP\n{escaped(told)}.\n{options(text)}"


def page(template, program, words):
    for word, value in words.items():
        template = template.replace(f"@{word}@", value)
    text = help_of(program)
    if "@OPTIONS@" in template:
        template = template.replace("@OPTIONS@", options(text))
    if "@COMMANDS@" in template:
        names = [left for left, _ in entries(text, "Subcommands")]
        template = template.replace("@COMMANDS@", "\n".join(command(program, name) for name in names))
    return template


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    for name in ("template", "program", "page", "version", "date"):
        parser.add_argument(name)
    given = parser.parse_args()
    with open(given.template, encoding="utf-8") as file:
        made = page(file.read(), given.program, {"LANTOS_VERSION": given.version, "LANTOS_DATE": given.date})
    with open(given.page, "w", encoding="utf-8") as file:
        file.write(made)

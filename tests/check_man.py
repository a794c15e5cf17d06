"""Fails when a program that is installed under a prefix has an option or a command that its man page doesn't tell of."""

import gzip
import pathlib
import re
import subprocess
import sys

PREFIX = pathlib.Path(sys.argv[1])
OPTION = re.compile(r"(?<![\w-])--[a-z][a-z-]*|^  (-[a-z])\b", re.M)
COMMAND = re.compile(r"^  ([a-z][a-z-]*)\s", re.M)


def help_of(*command):
    return subprocess.run([PREFIX / "bin" / command[0], *command[1:], "--help"], capture_output=True, text=True, check=True).stdout


def commands_of(program):
    _, _, listed = help_of(program).partition("Subcommands:")
    return COMMAND.findall(listed)


def complaints(program):
    packed = PREFIX / "share" / "man" / "man1" / f"{program}.1.gz"
    page = gzip.decompress(packed.read_bytes()).decode().replace("\\-", "-")
    commands = commands_of(program)
    for text in [help_of(program), *(help_of(program, command) for command in commands)]:
        for option in sorted({match[0].strip() for match in OPTION.finditer(text)}):
            if option not in page:
                yield f"{program}(1) doesn't tell of {option}"
    for command in commands:
        if f".SS {command}\n" not in page:
            yield f"{program}(1) has no section {command}"
    if "@" in re.sub(r"\S+@\S+\.\S+", "", page):
        yield f"{program}(1) has a place that was left open"


found = [line for program in ("lantos", "lantos-drive", "lantos-shop") for line in complaints(program)]
print("\n".join(found) if found else "every option of the programs is on its man page")
sys.exit(1 if found else 0)

"""Fails on a source over 400 lines, a function over 40 lines, a class with more than 30 functions of its own, and on a
name that two classes bear: the linker takes either for both.

What is longer on purpose stands in ALLOWED, with the reason. Needs universal-ctags.
"""

import collections
import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FILE_LINES, FUNCTION_LINES, CLASS_FUNCTIONS = 400, 40, 30
ALLOWED = {
    "lantos::BoardCommands::OfTheMenu": "a table",
    "lantos::BoardCommands::OfTheDetail": "a table",
    "lantos::EstimateDesign": "a table",
    "lantos::de": "one function a command of the database",
}


def sources():
    for folder in ("src", "tests", "bench", "demo"):
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in (".h", ".cpp", ".py"):
                yield path


def tags():
    """Functions with their last lines, and what classes declare, overriding ones marked as such."""
    command = ["ctags", "--output-format=json", "--fields=+neZK", "--fields-C++=+{properties}", "--c++-kinds=+fp", "-R", "-o", "-", "src"]
    listed = subprocess.run(command, cwd=ROOT, capture_output=True, text=True, check=True).stdout
    return [json.loads(line) for line in listed.splitlines()]


def long_files():
    for path in sources():
        lines = len(path.read_text(encoding="utf-8").splitlines())
        if lines > FILE_LINES:
            yield str(path.relative_to(ROOT)), f"{lines} lines"


def long_functions(found):
    for tag in found:
        if tag.get("kind") != "function" or "end" not in tag:
            continue
        lines = tag["end"] - tag["line"] + 1
        if lines > FUNCTION_LINES:
            yield "::".join(part for part in (tag.get("scope"), tag["name"]) if part and "__anon" not in part), f"{lines} lines, {tag['path']}:{tag['line']}"


def large_classes(found):
    """What a class overrides is its base's and isn't counted."""
    own = collections.Counter()
    for tag in found:
        is_member = tag.get("scopeKind") in ("class", "struct") and tag["kind"] in ("function", "prototype")
        left_out = {"override", "delete", "default"} & set(tag.get("properties", "").split(","))
        if is_member and not left_out and tag["path"].endswith(".h"):
            own[tag["scope"]] += 1
    for name, functions in own.items():
        if functions > CLASS_FUNCTIONS:
            yield name, f"{functions} functions of its own"


def shared_names(found):
    homes = collections.defaultdict(set)
    for tag in found:
        is_of_namespace = tag.get("scopeKind") == "namespace" and "__anon" not in tag["scope"]
        if is_of_namespace and tag["kind"] in ("class", "struct", "enum", "union"):
            homes[tag["scope"] + "::" + tag["name"]].add(tag["path"])
    for name, paths in homes.items():
        if len(paths) > 1:
            yield name, "in " + " and ".join(sorted(paths))


def main():
    found = tags()
    complaints = [
        f"{name}: {what}"
        for kind in (long_files(), long_functions(found), large_classes(found), shared_names(found))
        for name, what in kind
        if name not in ALLOWED
    ]
    print("\n".join(complaints) if complaints else "no file, function or class is too large, and no two classes have one name")
    return 1 if complaints else 0


sys.exit(main())

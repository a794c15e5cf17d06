"""Fails when a source folder includes one that doesn't lie below it, or when Qt comes in anywhere but in its place."""

import pathlib
import re
import sys

# From the ground up. Folders of one floor don't see one another, unless an arrow says so.
FLOORS = [
    ["frame"],
    ["ui"],
    ["records"],
    ["estimatedb"],
    ["workorders"],
    ["printing"],
    ["shopmaker", "masters", "payroll", "admin", "workorders/history"],
    ["contents"],
    ["board"],
    ["frame/start"],
    ["ui/qt", "ui/driver", "app"],
]
# The window libraries stand on ui alone; the small mains take start and a desktop.
ONLY = {"ui/qt": {"ui", "frame"}, "ui/driver": {"ui", "frame"}}
ALSO = {"app": {"ui/qt", "ui/driver"}, "admin": set(), "masters": {"admin"}}
QT_ALLOWED = {"ui/qt", "app"}

SOURCE = pathlib.Path(__file__).resolve().parent.parent / "src"
INCLUDE = re.compile(r'^\s*#include\s+([<"])([^>"]+)[>"]', re.M)


def folder_of(path):
    """The longest known folder that a path relative to src/ lies in."""
    known = [name for floor in FLOORS for name in floor]
    fitting = [name for name in known if str(path).startswith(name + "/")]
    return max(fitting, key=len, default=None)


def may_include(user, used):
    if user == used or used in ALSO.get(user, set()):
        return True
    if user in ONLY:
        return used in ONLY[user]
    floor = {name: i for i, names in enumerate(FLOORS) for name in names}
    return floor[used] < floor[user]


def complaints():
    for path in sorted(SOURCE.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        relative = path.relative_to(SOURCE)
        user = folder_of(relative)
        if user is None:
            yield f"{relative}: in no known folder"
            continue
        for bracket, name in INCLUDE.findall(path.read_text(encoding="utf-8")):
            if bracket == "<" and name.startswith("Q") and user not in QT_ALLOWED:
                yield f"{relative}: includes <{name}>, but Qt belongs to ui/qt and app"
            used = folder_of(name) if bracket == '"' else None
            if used is not None and not may_include(user, used):
                yield f"{relative}: {user} must not include {name}"


found = list(complaints())
print("\n".join(found) if found else "every include points downwards")
sys.exit(1 if found else 0)

"""Fails when a source includes a room that src/floors.txt doesn't let it use, a library outside of its rooms, or
says something that only one place may say: an engine's name, a statement of its own."""

import pathlib
import re
import sys

SOURCE = pathlib.Path(__file__).resolve().parent.parent / "src"
INCLUDE = re.compile(r'^\s*#include\s+([<"])([^>"]+)[>"]', re.M)
# Libraries that only some rooms may see.
RESERVED = {
    re.compile(r"<Q"): {"ui/qt", "app"},
    re.compile(r"<(SQLiteCpp|sqlite)"): {"estimatedb/sqlite"},
    re.compile(r"<(libpq|pg_|postgres)"): {"estimatedb/postgres"},
}
# What may be said in some places only: what it is, how it looks, and where it may stand, by the path's beginning.
KEPT = [
    ("names the engine", re.compile(r"sqlite", re.I), ("estimatedb/sqlite/", "estimatedb/EngineChoice.")),
    ("names the engine", re.compile(r"postgres", re.I), ("estimatedb/postgres/", "estimatedb/EngineChoice.", "caretaker/MoveCommand.")),
    ("runs a statement or a command by its text", re.compile(r'Connection\(\)\s*\.\s*Run\b|\bRun\(\s*(?:"|fmt::)'),
     ("estimatedb/",)),
]


def read_rooms(text):
    """Each room with all that it may use, itself included."""
    rooms = {}
    for line in text.splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        room, _, used = line.partition(":")
        unknown = [name for name in used.split() if name not in rooms]
        if unknown:
            raise SystemExit(f"src/floors.txt: {room} uses {', '.join(unknown)}, which isn't below it")
        rooms[room] = {room}.union(*(rooms[name] for name in used.split()))
    return rooms


def room_of(path, rooms):
    """The room that a path relative to src/ lies in: its folder, which must be one."""
    folder = str(pathlib.PurePosixPath(path).parent)
    return folder if folder in rooms else None


def complaints(rooms):
    for path in sorted(SOURCE.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        relative = path.relative_to(SOURCE).as_posix()
        user = room_of(relative, rooms)
        if user is None:
            yield f"{relative}: in no room of src/floors.txt"
            continue
        text = path.read_text(encoding="utf-8")
        for number, line in enumerate(text.splitlines(), 1):
            for deed, looks, places in KEPT:
                if looks.search(line) and not relative.startswith(places):
                    yield f"{relative}:{number}: {deed}"
        for bracket, name in INCLUDE.findall(text):
            for library, allowed in RESERVED.items():
                if library.match(bracket + name) and user not in allowed:
                    yield f"{relative}: {user} must not see {bracket}{name}>"
            used = room_of(name, rooms) if bracket == '"' else None
            if used is not None and used not in rooms[user]:
                yield f"{relative}: {user} must not include {name}"


found = list(complaints(read_rooms((SOURCE / "floors.txt").read_text(encoding="utf-8"))))
print("\n".join(found) if found else "every include points downwards, and every statement stands in its table")
sys.exit(1 if found else 0)

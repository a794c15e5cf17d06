"""Runs clang-tidy over the sources of the program, one a processor. A source found clean isn't looked at again until it,
a header that it includes or the list of checks changes. With --changed only those that differ from the last commit."""

import concurrent.futures
import functools
import hashlib
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCE = ROOT / "src"
BUILD = ROOT / "build" / "test"
STAMPS = BUILD / "tidy"  # by source: the fingerprint under which it was clean
INCLUDE = re.compile(r'^\s*#include\s+"([^"]+)"', re.M)


@functools.cache
def text_of(path):
    return path.read_text(encoding="utf-8")


@functools.cache
def included_by(path):
    """The program's own headers that a file names."""
    named = [candidate for name in INCLUDE.findall(text_of(path)) for candidate in (SOURCE / name, path.parent / name)]
    return [header for header in named if header.is_file()]


def fingerprint(source):
    """Of everything that a look at the source depends on."""
    seen, waiting = set(), [source]
    while waiting:
        path = waiting.pop()
        if path not in seen:
            seen.add(path)
            waiting += included_by(path)
    digest = hashlib.sha256(text_of(ROOT / ".clang-tidy").encode())
    for path in sorted(seen):
        digest.update(text_of(path).encode())
    return digest.hexdigest()


def stamp_of(source):
    return STAMPS / source.relative_to(SOURCE).as_posix().replace("/", "+")


def is_known(source):
    stamp = stamp_of(source)
    return stamp.exists() and stamp.read_text() == fingerprint(source)


def is_clean(source):
    """Whether clang-tidy says nothing, which is noted; else prints what it says."""
    looked = subprocess.run(["clang-tidy", "-p", BUILD, "--quiet", source], capture_output=True, text=True, cwd=ROOT)
    if looked.returncode == 0:
        stamp_of(source).write_text(fingerprint(source))
    else:
        print(looked.stdout + looked.stderr, flush=True)
    return looked.returncode == 0


def changed_sources():
    listed = subprocess.run(["git", "status", "--porcelain", "--untracked-files=all", "src"], cwd=ROOT, check=True,
                            capture_output=True, text=True).stdout
    return {ROOT / line[3:].split(" -> ")[-1] for line in listed.splitlines()}


def main():
    sources = sorted(SOURCE.rglob("*.cpp"))
    if "--changed" in sys.argv[1:]:
        changed = changed_sources()
        sources = [source for source in sources if source in changed]
    STAMPS.mkdir(parents=True, exist_ok=True)
    waiting = [source for source in sources if not is_known(source)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        amiss = list(pool.map(is_clean, waiting)).count(False)
    print(f"{len(waiting)} of {len(sources)} sources looked at, {amiss} of them amiss")
    return 1 if amiss else 0


sys.exit(main())

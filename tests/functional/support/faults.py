"""Calls of a running program on its files that fail, as a full disk, a broken one, or another user would have it."""

import os

DISK_FULL, DEVICE_IO, READ_ONLY, HELD, KILLED = "disk full", "I/O error", "read-only", "held", "killed"
ANY = "any"  # or open, create, read, write, cut, flush, lock, close, delete


class Faults:
    """Hand it to the start of a copy; it fails nothing until it is told."""

    def __init__(self, directory, home):
        self.directory = directory
        self._wishes = home / "faults"
        self._hits = home / "faults.hits"

    def environment(self):
        return {"LANTOS_FAULTS_IN": str(self.directory), "LANTOS_FAULTS": str(self._wishes)}

    def fail(self, *names, fault, call=ANY, times="always"):
        """From now on, in place of what was wished before: calls on files of these names."""
        self._put("".join(f"{name}|{call}|{fault}|{times}\n" for name in names))

    def mend(self):
        self._put("")

    def hits(self):
        """The calls that have failed so far: name and kind."""
        if not self._hits.exists():
            return []
        return [tuple(line.split("|")) for line in self._hits.read_text(encoding="utf-8").splitlines()]

    def _put(self, text):
        # A file of its own each time, so that the program sees it as another one.
        fresh = self._wishes.with_suffix(".new")
        fresh.write_text(text, encoding="utf-8")
        os.replace(fresh, self._wishes)

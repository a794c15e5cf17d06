"""Another program's claims on shared files, made with the same kind of lock."""

import contextlib
import fcntl
import os
import struct

READERS = 2**62 + 1
WRITERS = 2**62 + 2
WRITER_SLOTS = 2**30
F_OFD_SETLK = 37


def claim(descriptor, kind, start, length):
    """Fails at once with OSError when somebody is in the way."""
    fcntl.fcntl(descriptor, F_OFD_SETLK, struct.pack("hhqqi4x", kind, os.SEEK_SET, start, length, 0))


@contextlib.contextmanager
def denied_to_all(path):
    descriptor = os.open(path, os.O_RDWR | os.O_CREAT)
    try:
        claim(descriptor, fcntl.F_WRLCK, READERS, WRITER_SLOTS + 1)
        yield descriptor
    finally:
        os.close(descriptor)


def deny_to_all(path):
    """Until the returned descriptor is closed."""
    descriptor = os.open(path, os.O_RDWR | os.O_CREAT)
    claim(descriptor, fcntl.F_WRLCK, READERS, WRITER_SLOTS + 1)
    return descriptor


@contextlib.contextmanager
def foreign_window(runtime, computer, caption):
    """A window of another program of the same user, known to the copies on this computer."""
    folder = runtime / "lantos"
    folder.mkdir(mode=0o700, parents=True, exist_ok=True)
    path = folder / "1-0.windows"
    descriptor = os.open(path, os.O_RDWR | os.O_CREAT, 0o600)
    try:
        claim(descriptor, fcntl.F_WRLCK, 2**62, 1)
        os.write(descriptor, f"{computer}\n{caption}\n".encode("cp1252"))
        yield path
    finally:
        path.unlink()
        os.close(descriptor)

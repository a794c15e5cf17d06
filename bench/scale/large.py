#!/usr/bin/python3
"""Each command of the caretaker on a large shop: 32,767 customers, 50,000 vehicles, 100,000 parts, 2,000 estimates. Prints
what each took of the processor, of time and of memory. Ends with 1 where one fails.

    bench/scale/large.py [DIRECTORY on the disk to measure]

Needs a build whose speed means something, as in build/release/bin."""

import os
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests" / "functional" / "support")]

from databases import Server

PROGRAM = ROOT / "build" / "release" / "bin" / "lantos-shop"
REPAIRED = 1
SIZES = ("--customers", 32767, "--vehicles", 50000, "--parts", 100000, "--estimates", 2000, "--date", "2003-09-30")


def measure(*words, code=0):
    """Whether it ended with the code."""
    command = ["/usr/bin/time", "-f", "%U %S %e %M", PROGRAM, *map(str, words)]
    done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    user, system, elapsed, memory = done.stderr.splitlines()[-1].split()
    told = " ".join(str(word).rsplit("/", 1)[-1] for word in words[:4])
    print(f"{told:40} {float(user) + float(system):6.2f} s {float(elapsed):6.2f} s {int(memory) // 1024:5} MB", flush=True)
    if done.returncode != code:
        print(done.stderr)
    return done.returncode == code


def spoil(shop):
    """Nearly all tags of customers are gone, and all of the parts."""
    os.truncate(shop / "TQCSTTAG.DAT", 37 * 96)
    (shop / "TQINVTAG.DAT").unlink()


def run(place):
    shop, archive = place / "shop", place / "shop.tar.zst"
    print(f"{'command':40} processor  elapsed   memory")
    commands = [("new", place / "empty"), ("sample", shop, *SIZES), ("check", shop), ("repair", shop),
                *(("export", shop, name, "--csv") for name in ("estimates", "labor", "customers", "vehicles", "parts")),
                ("export", shop, "parts", "--json"), ("export", shop, "--ics", "--from", "2003-09-01", "--days", 60), ("logs", shop),
                ("prune-trail", shop, "2003-10-01"), ("backup", shop, archive), ("verify", archive),
                ("restore", archive, place / "restored")]
    well = [measure(*words) for words in commands]
    spoil(place / "restored")
    well += [measure("repair", place / "restored", code=REPAIRED), measure("check", place / "restored")]
    server = Server(f"{place}-server")
    try:
        well += [measure("move", shop, f"postgresql://shop@/test?host={server.directory}", "--schema", "large"),
                 measure("check", shop), measure("backup", shop, place / "server.tar.zst"), measure("verify", place / "server.tar.zst"),
                 measure("move", shop, "--to-file"), measure("check", shop)]
    finally:
        server.close()
    return all(well)


def main():
    where = sys.argv[1] if len(sys.argv) > 1 else None
    with tempfile.TemporaryDirectory(prefix="lantos-large-", dir=where, ignore_cleanup_errors=True) as directory:
        os.chmod(directory, 0o755)
        return 0 if run(pathlib.Path(directory)) else 1


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/python3
"""How long a move to a database server and back takes, of a shop with many estimates of three lines of labor each, and what
is there behind it.

    bench/scale/move.py --estimates 100000

Needs a build whose speed means something: --bin says where, build/release/bin by default."""

import argparse
import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests" / "functional" / "support"), str(ROOT / "tests" / "functional")]

from databases import Server

SERVER_SETTINGS = "fsync = on\nfull_page_writes = on\nshared_buffers = 128MB\nmax_wal_size = 1GB\n"
LINES = (1, 2, 3)


def fill(database, estimates):
    with sqlite3.connect(database) as connection:
        connection.executemany(
            "INSERT INTO Estimates (EstimateNumber, CustomerNumber, SchedDate, Status, Comments, VehMake, VehModel) "
            "VALUES (?, ?, ?, ?, ?, ?, ?)",
            ((n, n % 30000, f"{2016 + n % 10}-{1 + n % 12:02}-{1 + n % 28:02}", n % 7, "Noise in front, left. " * 3, "Ford",
              "Focus") for n in range(1, estimates + 1)))
        connection.executemany(
            "INSERT INTO Labors (EstimateNumber, LaborNumber, Description, LaborHours, LaborRate, LaborTotal, Mechanic) "
            "VALUES (?, ?, ?, ?, ?, ?, ?)",
            ((n, line, "REPLACE BRAKE PADS " * 6, 100, 6500, 6500, 3) for n in range(1, estimates + 1) for line in LINES))


def moved(program, *arguments):
    begun = time.perf_counter()
    done = subprocess.run([program, "move", *arguments], capture_output=True, text=True, check=True)
    took = time.perf_counter() - begun
    print(f"{took:6.1f} s  {[line for line in done.stdout.splitlines() if line.startswith('Moved')][0]}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--estimates", type=int, default=100000)
    parser.add_argument("--bin", default=str(ROOT / "build" / "release" / "bin"))
    options = parser.parse_args()
    program = os.path.join(options.bin, "lantos-shop")
    os.environ["LANTOS_SERVER_SETTINGS"] = SERVER_SETTINGS
    with tempfile.TemporaryDirectory(prefix="lantos-move-") as directory:
        os.chmod(directory, 0o755)
        shop = os.path.join(directory, "shop")
        subprocess.run([program, "new", shop], check=True, stdout=subprocess.DEVNULL)
        database = os.path.join(shop, "Lantos.mdb")
        fill(database, options.estimates)
        print(f"{options.estimates} estimates, {os.path.getsize(database) / 1e6:.0f} MB")
        server = Server(directory + "-server")
        try:
            moved(program, shop, f"postgresql://shop@/test?host={server.directory}")
            moved(program, shop, "--to-file")
        finally:
            server.close()


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Two boards in real windows on one shop, each with a person of its own: what is changed in one shows in the other by
itself, with the focus, the selection and what is being typed there untouched. Prints how long it took.

    tests/keyboard/follow.py [FOLDER FOR PICTURES]
"""

import os
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from desk import Desk, until  # noqa: E402

WIDTH, HEIGHT = 1100, 860  # of a window, pixels
TWIPS = 15
SHOWN_WITHIN = 2.0  # seconds
TYPED = ", and call first"


class TwoDesks(Desk):
    """The front desk's window on the left, the office's on the right. Where this process may, the two have the computer's
    names, too."""

    def __init__(self):
        self.windows = {}
        self.name = "FRONTDESK"
        super().__init__(screen=f"{2 * WIDTH}x{HEIGHT + 40}", prepare=self._settle)
        self.expect("Lantos: ")
        self.windows["FRONTDESK"] = self.window()
        first = self.environment
        self.environment = {**first, "XDG_CONFIG_HOME": str(self.folder / "config-office"),
                            "XDG_RUNTIME_DIR": str(self._folder("runtime-office"))}
        self.name = "OFFICE"
        self.office = self._start([str(self.binaries / "lantos"), f"/D={self.shop}"])
        self.environment = first
        self.expect_other(self.windows["FRONTDESK"])
        self.expect("Lantos: ")
        self.windows["OFFICE"] = self.window()

    def _folder(self, name):
        folder = self.folder / name
        folder.mkdir(mode=0o700)
        return folder

    def _settle(self, _):
        for name, left in (("config", 0), ("config-office", WIDTH)):
            settings = self.folder / name / "lantos" / "Lantos.conf"
            settings.parent.mkdir(parents=True)
            settings.write_text("[Settings]\n" + "".join(
                f"{key}={value * TWIPS}\n" for key, value in (("MainLeft", left), ("MainTop", 0), ("MainWidth", WIDTH),
                                                             ("MainHeight", HEIGHT))))

    def _start(self, command):
        if pathlib.Path(command[0]).name != "lantos" or os.geteuid() != 0 or not shutil.which("unshare"):
            return super()._start(command)
        return super()._start(["unshare", "--uts", "sh", "-c", f'hostname {self.name}; exec "$@"', "sh", *command])

    def go_to(self, name):
        self._xdotool("windowactivate", "--sync", self.windows[name])

    def look_of(self, name):
        """The window's pixels, but for the line that tells how old they are."""
        picture = subprocess.run(["import", "-window", self.windows[name], "-crop", f"{WIDTH - 250}x{HEIGHT}+250+0", "rgb:-"],
                                 env=self.environment, capture_output=True)
        return picture.stdout


def open_estimate(desk, name):
    """The first one of a customer of the sample shop, in the detail view; the labor has the focus."""
    desk.go_to(name)
    desk.press("alt+i")
    desk.expect("Find")
    desk.type("goodw")
    desk.press("Return", "Down", "Return")
    desk.expect("Lantos: ")
    desk.pause()


def begin_labor(desk):
    desk.press("alt+1")
    desk.expect("Estimate Labor")
    desk.type("1.5")
    desk.press("alt+d")
    desk.type("Replace front pads")


def count_of(desk, rows):
    connection = sqlite3.connect(f"file:{desk.shop}/Lantos.mdb?mode=ro", uri=True, timeout=10)
    try:
        return connection.execute(f"select count(*) from {rows}").fetchone()[0]
    finally:
        connection.close()


def seconds_until_changed(desk, name, before):
    """From now on until a window looks another way than it did."""
    begin = time.monotonic()
    while desk.look_of(name) == before:
        assert time.monotonic() - begin < SHOWN_WITHIN, f"{name} shows nothing of it"
        time.sleep(0.05)
    return time.monotonic() - begin


def follow(desk, pictures):
    for name in ("FRONTDESK", "OFFICE"):
        open_estimate(desk, name)
    desk.press("shift+Tab", "End")  # into the comments
    desk.type(TYPED)
    desk.go_to("FRONTDESK")
    desk.pause()
    if pictures:
        desk.picture(pictures / "follow-before.png")
    begin_labor(desk)
    desk.pause()
    before = desk.look_of("OFFICE")
    stored = count_of(desk, "Labors")
    desk.press("F10")
    until(lambda: count_of(desk, "Labors") != stored, "no labor was stored")
    took = seconds_until_changed(desk, "OFFICE", before)
    desk.expect("Lantos: ")
    desk.pause()
    if pictures:
        desk.picture(pictures / "follow-after.png")
    desk.go_to("OFFICE")
    desk.press("Tab")
    until(lambda: count_of(desk, f"Estimates where Comments like '%{TYPED}'") == 1, "what was typed meanwhile is lost")
    return took


def main():
    pictures = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else None
    desk = TwoDesks()
    try:
        print(f"Shown in the other window {follow(desk, pictures):.1f} s behind its change.")
        for name in ("OFFICE", "FRONTDESK"):
            desk.go_to(name)
            desk.press("alt+F4")
        for program in (desk.office, desk.program):
            code = program.wait(timeout=20)
            assert code == 0, f"the program ended with {code}"
    except AssertionError as lost:
        print(f"{lost}; the window is {desk.title()!r}", file=sys.stderr)
        return 1
    finally:
        desk.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/python3
"""Help by keyboard alone, in real windows: the guide over the board and over a screen in which something was typed, its
links, a search, and what the program tells of itself. Prints the count of keys; fails when there were too many.

    tests/keyboard/help.py [DIRECTORY for pictures]
"""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "functional/support")]
from desk import play_day, until  # noqa: E402
from shopfiles import Shop  # noqa: E402

MOST_KEYS = 45

VENDOR = "Zeta Gaskets"
PICTURES = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else None


def picture(desk, name):
    if PICTURES:
        desk.pause()
        desk.picture(PICTURES / f"{name}.png")


def read_the_guide(desk):
    """From the board to the contents, to a page by its link, and back."""
    desk.press("F1")
    desk.expect("Guide - The board")
    picture(desk, "guide-board")
    desk.press("alt+Home")
    desk.expect("Guide - Lantos Quick Start Guide")
    desk.press("Tab", "Tab", "Tab")
    picture(desk, "guide-link")
    desk.press("Return")
    desk.expect("Guide - Fill")
    desk.press("BackSpace")
    desk.expect("Guide - Lantos Quick Start Guide")
    desk.press("ctrl+f")
    desk.type("locked")
    desk.press("Return")
    desk.expect("Guide - When a box says that a file is locked")
    picture(desk, "guide-found")
    desk.press("Escape")
    desk.expect("Lantos: ")


def add_a_vendor(desk, shop):
    """With a look into the guide in the middle of the name."""
    desk.press("alt+m", "v")
    desk.expect("Vendor List")
    desk.press("Insert")
    desk.expect("Add Vendor")
    desk.type(VENDOR[:5])
    desk.press("F1")
    desk.expect("Guide - Vendors")
    picture(desk, "guide-vendors")
    desk.press("Escape")
    desk.expect("Add Vendor")
    desk.type(VENDOR[5:])
    desk.press("F10")
    until(lambda: VENDOR.encode() in shop.path("TQVENDOR.DAT").read_bytes(), "the vendor wasn't stored as it was typed")
    while "Lantos: " not in desk.title():
        desk.press("Escape")
        desk.pause()


def look_at_about(desk):
    desk.press("alt+h", "a")
    desk.expect("About Lantos")
    desk.press("F2")
    picture(desk, "about")
    desk.press("Escape")
    desk.expect("Lantos: ")


def work(desk):
    read_the_guide(desk)
    add_a_vendor(desk, Shop(desk.shop))
    look_at_about(desk)


if __name__ == "__main__":
    sys.exit(play_day("the guide", work, MOST_KEYS))

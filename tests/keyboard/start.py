#!/usr/bin/python3
"""A start that takes long, in real windows: a file of the shop is held by another copy. The window that shows the start
says what it waits for, has the keyboard, and ends the start by Esc. Fails when it doesn't.

    tests/keyboard/start.py [DIRECTORY for pictures]
"""

import os
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "functional/support")]
from desk import Desk  # noqa: E402
from locks import deny_to_all  # noqa: E402

CANCELLED = 3
PICTURES = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else None


def logs(shop):
    return "".join(path.read_text(encoding="latin-1") for path in shop.glob("LN*.LOG"))


def main():
    held = []
    desk = Desk(prepare=lambda shop: held.append(deny_to_all(shop / "TQDEPART.DAT")))
    try:
        desk.expect("Lantos")
        if PICTURES:
            desk.pause()
            desk.picture(PICTURES / "start-slow.png")
        desk.press("F1")  # nobody is waited for in the middle of a start
        desk.press("Escape")
        code = desk.program.wait(timeout=20)
        assert code == CANCELLED, f"the program ended with {code}"
        assert "Stopped before it was up." in logs(desk.shop), logs(desk.shop)
        assert not list(desk.shop.glob("AU*")), "a mailbox was left"
    finally:
        for descriptor in held:
            os.close(descriptor)
        desk.close()
    print("a start that takes long was stopped by Esc")


main()

#!/usr/bin/python3
"""The spelling of a job and of a note by keyboard alone, in real windows, with the dictionary that is installed. Prints the
count of keys; fails when there were too many.

    tests/keyboard/spell.py [DIRECTORY for pictures]
"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from day import book, number_of, query  # noqa: E402
from desk import play_day, until  # noqa: E402

MOST_KEYS = 95

PICTURES = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else None


def picture(desk, name):
    if PICTURES:
        desk.pause()
        desk.picture(PICTURES / f"{name}.png")


def check_a_job(desk, number):
    """One word is changed by its suggestion, one by hand, one is left, one is kept for good."""
    desk.press("alt+1")
    desk.expect("Estimate Labor")
    desk.type("1.5")
    desk.press("alt+d")
    desk.type("Brakez squael qqxx zyfo")
    desk.press("alt+s")
    desk.expect("Spell Check")
    picture(desk, "spelling")
    desk.press("alt+2")  # its second suggestion into the field, which has the focus
    desk.press("F10")
    desk.press("ctrl+a")
    desk.type("squeal")
    desk.press("Return")
    desk.press("alt+i")
    picture(desk, "spelling-last")
    checking = desk.window()
    desk.press("alt+d")
    desk.expect_other(checking)
    picture(desk, "spelling-done")
    told = desk.window()
    desk.press("Return")  # the box that says so
    desk.expect_other(told)
    desk.press("F10")
    desk.expect("Lantos: ")
    until(lambda: query(desk, "select 1 from Labors where EstimateNumber = ?", number), "no labor")
    told = query(desk, "select * from Labors where EstimateNumber = ?", number)
    assert any("BRAKES SQUEAL QQXX ZYFO" in str(value).upper() for value in told[0]), told


def leave_a_job(desk, number):
    """Esc leaves the text as it was, and the word that was kept is known."""
    desk.press("alt+1")
    desk.expect("Estimate Labor")
    desk.press("alt+d")
    desk.type("zyfo wobbels")
    desk.press("alt+s")
    desk.expect("Spell Check")
    checking = desk.window()
    desk.press("Escape")
    desk.expect_other(checking)
    told = desk.window()
    desk.press("Return")  # the box that says that nothing was changed
    desk.expect_other(told)
    picture(desk, "spelling-left")
    labor = desk.window()
    desk.press("Escape")
    desk.expect_other(labor)
    desk.press("alt+y")  # the changes are discarded
    desk.expect("Lantos: ")
    assert query(desk, "select count(*) from Labors where EstimateNumber = ?", number) == [(1,)]


def work(desk):
    number = book(desk, number_of(desk))
    check_a_job(desk, number)
    leave_a_job(desk, number)


if __name__ == "__main__":
    sys.exit(play_day("the dictionary", work, MOST_KEYS))

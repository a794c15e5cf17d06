#!/usr/bin/env python3
"""A day at the counter by keyboard alone, in real windows. Prints the count of keys; fails when there were too many.

    tests/keyboard/day.py
"""

import pathlib
import sqlite3
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from desk import play_day, until  # noqa: E402

# Somebody who knows the program needs no more, the letters of names and texts among them.
MOST_KEYS = 130


def query(desk, statement, *values):
    connection = sqlite3.connect(f"file:{desk.shop}/Lantos.mdb?mode=ro", uri=True, timeout=10)
    try:
        return connection.execute(statement, values).fetchall()
    finally:
        connection.close()


def number_of(desk, what="max"):
    return query(desk, f"select {what}(EstimateNumber) from Estimates")[0][0]


def book(desk, before):
    """A customer, found by name, on a day of next week."""
    desk.press("alt+Next", "alt+Right")
    desk.press("alt+n")
    desk.expect("New Estimate")
    desk.press("alt+n")  # not an Estimate Only
    desk.expect("Customer Search - New Estimate on ")
    desk.type("good")
    desk.press("Return", "Down", "Return")
    desk.expect("Vehicle List")
    desk.press("F10")
    desk.expect("Lantos: ")
    number = until(lambda: number_of(desk) > before and number_of(desk), "nothing was booked")
    desk.type("Brakes squeal")  # the focus is in the comments
    return number


def add_labor(desk, number):
    desk.press("alt+1")
    desk.expect("Estimate Labor")
    desk.type("1.5")
    desk.press("alt+d")
    desk.type("Replace front pads")
    desk.press("F10")
    desk.expect("Lantos: ")
    until(lambda: query(desk, "select 1 from Labors where EstimateNumber = ? and LaborHours = 150", number), "no labor")
    assert query(desk, "select Comments from Estimates where EstimateNumber = ?", number) == [("Brakes squeal",)]


def add_part(desk, number):
    desk.press("alt+6")
    desk.expect("Add part")
    desk.press("alt+i")
    desk.type("brake")
    desk.press("Return", "Return")  # search; the first hit
    desk.expect("Add Part")
    desk.press("F10")
    desk.expect("Add part")
    desk.press("Escape")
    desk.expect("Lantos: ")
    until(lambda: query(desk, "select 1 from Parts where EstimateNumber = ?", number), "no part")


def add_note(desk, number):
    desk.press("alt+o")
    desk.expect("Notes")
    list_of_notes = desk.window()
    desk.press("Insert")
    desk.expect_other(list_of_notes)
    desk.type("Call before noon")
    editor = desk.window()
    desk.press("F10")
    desk.expect_other(editor)
    until(lambda: query(desk, "select 1 from Notes where EstimateNumber = ?", number), "no note")
    desk.press("Escape")
    desk.expect("Lantos: ")


def status_of(desk, number):
    return query(desk, "select Status from Estimates where EstimateNumber = ?", number)[0][0]


def print_it(desk, number):
    desk.press("alt+p")
    desk.expect(f"Estimate {number}")
    desk.press("Escape")
    desk.expect("Print Estimate")
    desk.press("Return")  # from Scheduled to Arrived
    until(lambda: status_of(desk, number) == 1, "the estimate isn't Arrived")
    desk.expect("Lantos: ")


def start_work(desk, number):
    desk.press("alt+g")
    desk.expect("Change Status")
    desk.press("Down", "F10")
    until(lambda: status_of(desk, number) == 2, "the estimate isn't In Progress")
    desk.expect("Lantos: ")


def move_to_another_day(desk, number):
    desk.press("alt+r")
    desk.expect("Reschedule")
    desk.press("Right", "Up", "F10")  # a day later
    desk.expect("Lantos: ")
    copy = until(lambda: number_of(desk) > number and number_of(desk), "no copy on another day")
    until(lambda: status_of(desk, number) == 7, "the old one isn't Rescheduled")
    return copy


def convert(desk, number):
    orders = set(desk.shop.glob("*.tqa"))
    desk.press("End", "Return")  # the last of the day, in the list that has the focus
    desk.pause()
    desk.press("alt+t")
    # Every question on the way is answered by its default.
    for _ in range(12):
        desk.pause()
        if desk.title().startswith("Lantos: "):
            break
        desk.press("Return")
    made = until(lambda: set(desk.shop.glob("*.tqa")) - orders, "no work order was made")
    until(lambda: query(desk, "select 1 from Estimates where EstimateNumber = ? and Comments like '%WO%'", number)
          or status_of(desk, number) == 3, "the estimate wasn't converted")
    text = made.pop().read_bytes().decode("cp1252")
    assert "REPLACE FRONT PADS" in text.upper(), "another estimate was converted"


def work(desk):
    number = book(desk, number_of(desk))
    add_labor(desk, number)
    add_part(desk, number)
    add_note(desk, number)
    print_it(desk, number)
    start_work(desk, number)
    convert(desk, move_to_another_day(desk, number))


def main():
    return play_day("the counter", work, MOST_KEYS)


if __name__ == "__main__":
    sys.exit(main())

"""Another copy has converted or moved the estimate since it was shown here."""

import pytest

from boardlines import elsewhere
from conversionsteps import FIRST, TITLE, begin, convert, estimate, expect_converted, is_untouched, shop

CHANGED = "Estimate # 000900 was changed by another user since it was shown here.\n"
ASKED = "\n\nDo you wish to continue?"


@pytest.mark.parametrize("command, title", [("cmdConvert", TITLE), ("cmdReschedule", "Reschedule")])
@pytest.mark.parametrize("statement, told", [
    ("UPDATE Estimates SET Comments = 'Workorder # 005000 wants it'", "\nIt is Workorder # 005000."),
    ("UPDATE Estimates SET Status = 7", "\nIts status is 'Rescheduled', not 'Scheduled'."),
])
def test_what_another_copy_did_is_asked_about(start, shop, command, title, statement, told):
    estimate(shop)
    copy = begin(start, shop)
    elsewhere(shop, statement)
    copy.click(command)
    copy.expect_box(CHANGED + told + ASKED, title, "question", ["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmMain")
    assert is_untouched(shop) and len(shop.query("SELECT * FROM Estimates")) == 1


@pytest.mark.parametrize("answer, status", [("No", 6), ("Yes", 3)])
def test_a_status_that_is_set_while_the_new_one_is_asked_about(start, shop, answer, status):
    estimate(shop)
    copy = begin(start, shop)
    convert(copy)
    expect_converted(copy, FIRST)
    copy.expect_box("Change status to 'Completed'?", TITLE)
    elsewhere(shop, "UPDATE Estimates SET Status = 6")
    copy.press("Yes")
    copy.expect_box(CHANGED + "\nIts status is 'Cancelled', not 'Scheduled'." + ASKED, TITLE, "question")
    copy.press(answer)
    if answer == "No":
        copy.expect_box("Estimate status is still 'Cancelled'", TITLE, "information")
        copy.press("OK")
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == status


def test_who_goes_on_moves_the_estimate_as_it_stands(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    elsewhere(shop, "UPDATE Estimates SET Status = 1")
    copy.click("cmdReschedule")
    copy.expect_box(CHANGED + "\nIts status is 'Arrived', not 'Scheduled'." + ASKED)
    copy.press("Yes")
    copy.expect_form("frmReschedule")
    elsewhere(shop, "UPDATE Estimates SET Status = 6")
    copy.key("F10")
    copy.expect_box(CHANGED + "\nIts status is 'Cancelled', not 'Arrived'." + ASKED)
    copy.press("No")
    copy.expect_form("frmReschedule")
    copy.key("Esc")
    copy.expect_form("frmMain")
    assert len(shop.query("SELECT * FROM Estimates")) == 1

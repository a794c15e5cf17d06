"""A status that the database refuses: what it was is still said, and the next try finds it."""

import contextlib
import sqlite3

import pytest

from boardlines import TODAY, listed
from conversionsteps import convert, expect_converted
from movesteps import NEW, WEDNESDAY, choose, reschedule
from workorderfiles import add_paid_employee


@pytest.fixture
def copy(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    add_paid_employee(shop, 4, "Dan Ortiz", wage=2450, wage_period=1, commission=55000, commission_period=1)
    shop.add_estimate(900, TODAY, status=1, customer=7, hours=1)
    shop.write()
    shop.write_profile({"Status Options": {"ArrivedToComplete": "Y"}})
    return choose(start(shop))


def run(shop, statement):
    with contextlib.closing(sqlite3.connect(shop.path("Lantos.mdb"))) as database, database:
        database.execute(statement)


def refuse(shop):
    run(shop, "CREATE TRIGGER Refuse BEFORE UPDATE OF Status ON Estimates BEGIN SELECT RAISE(ABORT, 'no'); END")


def allow(shop):
    run(shop, "DROP TRIGGER Refuse")


def told_of_failure(copy):
    assert copy.answer["waiting"] == "box" and copy.answer["icon"] == "critical"
    copy.press("OK")


def word_of(copy):
    """As detail view, week list and popup have it."""
    copy.right_click("List1(2)", row=0)
    checked = [item["caption"] for item in copy.answer["items"] if item["checked"]]
    copy.choose(None)
    return copy.caption("frameDetailView").split("  ")[-1], copy.rows("List1(2)")[0][7:], checked


def test_a_popup_can_be_tried_again(copy, shop):
    refuse(shop)
    copy.right_click("List1(2)", row=0)
    copy.choose("In Progress")
    told_of_failure(copy)
    assert word_of(copy) == ("Arrived", "Arrived", ["Arrived"])
    allow(shop)
    copy.right_click("List1(2)", row=0)
    copy.choose("In Progress")
    assert word_of(copy) == ("In Progress", "In Progress", ["In Progress"])
    assert shop.estimate(900)["Status"] == 2


def test_the_form_stays_for_another_try(copy, shop):
    refuse(shop)
    copy.click("cmdChangeStatus")
    copy.check("Option1(3)")
    copy.click("cmdOK")
    told_of_failure(copy)
    copy.expect_form("frmEstStatus")
    allow(shop)
    copy.click("cmdOK")
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 3


def test_after_a_conversion_the_board_says_what_the_database_has(copy, shop):
    copy.click("cmdDetailView")
    refuse(shop)
    convert(copy)
    expect_converted(copy, shop.read_system()["last_workorder_number"] - 1)
    told_of_failure(copy)
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 1
    assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Arrived"
    copy.click("cmdWeekView")
    assert word_of(copy) == ("Arrived", "Arrived", ["Arrived"])


def test_a_move_that_is_refused_behind_its_copy_names_and_shows_it(copy, shop):
    refuse(shop)
    reschedule(copy)
    copy.pick("DTPicker1", WEDNESDAY)
    copy.key("F10")
    assert copy.answer["text"].startswith(f"Estimate # {NEW:06} was made on Wed 10/01/2003 as a copy of this one")
    told_of_failure(copy)
    copy.key("Esc")
    copy.expect_form("frmMain")
    assert listed(copy, "List1(3)") == [NEW]
    assert word_of(copy) == ("Arrived", "Arrived", ["Arrived"])


def test_a_continuation_that_is_refused_behind_its_copy_goes_on_with_it(copy, shop):
    run(shop, "CREATE TRIGGER Refuse BEFORE UPDATE OF Status ON Estimates WHEN old.EstimateNumber = 900 "
              "BEGIN SELECT RAISE(ABORT, 'no'); END")
    copy.right_click("List1(2)", row=0)
    copy.choose("Continued")
    if copy.answer["waiting"] == "box":
        copy.press("Yes")
    copy.key("F10")
    assert copy.answer["text"].startswith(f"Estimate # {NEW:06} was made on Wed 10/01/2003 as a copy of this one")
    told_of_failure(copy)
    copy.expect_form("frmContinue")
    allow(shop)
    copy.key("F10")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert listed(copy, "List1(3)") == [NEW]
    assert word_of(copy) == ("Continued", "Continued", ["Continued"])

"""The day that is meant: marked on the board, named while booking, and the one that everything stands on afterwards."""

import pytest

from boardlines import TODAY, hours_of
from screens import ask_new_estimate, book, pick_customer

MARK = "» New estimates"


@pytest.fixture
def copy(start, shop):
    shop.add_employee(4, "Dan Ortiz")
    shop.add_customer(7, "Adams", "Beth")
    shop.add_customer(8, "School", "City")
    shop.add_estimate(900, TODAY, customer=8, status=1, hours=2)
    shop.add_estimate(901, "2003-10-02", customer=8, status=1, hours=3)
    shop.write()
    return start(shop)


def marked(copy):
    return [i for i in range(7) if copy.caption(f"lblWeekMark({i})", "frmMain") == MARK]


def days_from_now(copy, days):
    """The day of a followup that is due in so many days."""
    copy.click("cmdLaborAdd")
    copy.expect_form("frmLabor")
    copy.type("Days", days)
    copy.leave()
    return copy.text("FollowupDate")


def test_an_estimate_chosen_on_another_day_leaves_the_mark_where_new_ones_are_booked(copy, shop):
    assert marked(copy) == [2]
    copy.click("List1(4)", row=0)
    assert (copy.control("MonthView1")["date"], marked(copy)) == ("2003-10-02", [2])
    ask_new_estimate(copy)
    assert copy.answer["caption"] == "Customer Search - New Estimate on Tue 09/30/2003"
    pick_customer(copy, 7)
    copy.key("Esc")
    answer = copy.expect_form("frmMain")
    assert answer["focus"] == "txtComments"
    assert shop.estimate(1001)["SchedDate"] == TODAY
    assert (copy.rows("List1(2)"), copy.rows("List1(4)")) == (
        ["000900 Arrived", "  School,City", "001001 ", "  Adams,Beth"], ["000901 Arrived", "  School,City"])
    assert copy.control("MonthView1")["date"] == TODAY
    assert hours_of(copy)[0] == "Tue 9/30"
    assert copy.rows("List2")[-3:-1] != [] and copy.rows("List2")[-3].startswith("001001 ")


def test_the_hours_of_each_panel_are_told(copy):
    available = hours_of(copy)[1]
    assert copy.caption("lblWeekHours(2)").startswith(f"Scheduled 2.00\nof {available}: ")
    assert copy.caption("lblWeekHours(4)").startswith("Scheduled 3.00\nof ")


def test_a_status_that_loads_another_week_takes_the_calendar_along(copy):
    copy.click("List1(2)", row=0)
    copy.pick("MonthView1", "2003-10-14")
    copy.click("cmdChangeStatus")
    assert copy.answer["caption"] == "Change Status - Est. # 000900"
    copy.check("Option1(6)")
    copy.click("cmdOK")
    copy.expect_form("frmMain")
    assert (copy.control("MonthView1")["date"], marked(copy)) == (TODAY, [2])
    assert copy.caption("frameWeek(2)") == "Tue 9/30"


def test_whose_other_day_and_whose_rest_is_asked_for_is_named(copy):
    copy.click("List1(2)", row=0)
    copy.click("cmdReschedule")
    assert copy.answer["caption"] == "Reschedule - Est. # 000900"
    copy.key("Esc")
    copy.click("cmdChangeStatus")
    copy.check("Option1(5)")
    copy.click("cmdOK")
    copy.press("Yes")
    assert copy.answer["caption"] == "Continue - Est. # 000900"


def test_days_of_a_followup_count_from_the_booked_day(copy):
    copy.pick("MonthView1", "2003-10-08")
    book(copy, 7)
    assert days_from_now(copy, "30") == "11/07/2003"


def test_days_of_a_followup_count_from_the_estimate_that_was_chosen_where_nothing_was_booked(copy):
    copy.click("List1(4)", row=0)
    copy.click("cmdDetailView")
    assert days_from_now(copy, "30") == "11/01/2003"

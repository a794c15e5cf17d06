"""The calendar by keyboard: the mark goes at once, the board follows it when it rests."""

import pytest

REST = 500  # milliseconds


@pytest.fixture
def copy(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    shop.add_estimate(900, "2003-10-01", customer=7)
    shop.write()
    copy = start(shop)
    # Away and back, as the person goes there.
    while copy.answer["focus"] != "MonthView1":
        copy.key("Shift+Tab")
    return copy


def standing(copy):
    """The day that is marked, the one that the hours are of, and where the keys go."""
    return copy.control("MonthView1")["date"], copy.caption("lblDate"), copy.answer["focus"]


@pytest.mark.parametrize("keys, date, panel", [
    (["Right"], "2003-10-01", "Wed 10/1"),
    (["Left", "Left"], "2003-09-28", "Sun 9/28"),
    (["Down"], "2003-10-07", "Tue 10/7"),
    (["Up", "Up"], "2003-09-16", "Tue 9/16"),
    (["PgDn"], "2003-10-30", "Thu 10/30"),
    (["PgUp"], "2003-08-30", "Sat 8/30"),
    (["PgDn", "PgDn", "PgDn", "PgDn", "PgDn"], "2004-02-29", "Sun 2/29"),
    (["Home"], "2003-09-01", "Mon 9/1"),
])
def test_the_board_follows_the_mark_after_a_rest(copy, keys, date, panel):
    for key in keys:
        copy.key(key)
    assert standing(copy) == (date, "Tue 9/30", "MonthView1")
    copy.wait(REST)
    assert standing(copy) == (date, panel, "MonthView1")


def test_each_key_begins_the_rest_anew(copy):
    copy.key("Right")
    copy.wait(REST - 100)
    copy.key("Right")
    copy.wait(REST - 100)
    assert copy.caption("lblDate") == "Tue 9/30"
    copy.wait(100)
    assert copy.caption("lblDate") == "Thu 10/2"


def test_enter_is_the_click_on_the_day(copy):
    copy.click("cmdDayView")
    while copy.answer["focus"] != "MonthView1":
        copy.key("Shift+Tab")
    copy.key("Right")
    copy.key("Enter")
    assert standing(copy) == ("2003-10-01", "Wed 10/1", "cmdWeekView")
    assert copy.control("frameWeekView")["visible"]


def test_who_leaves_the_calendar_finds_the_board_on_the_marked_day(copy):
    copy.key("Right")
    copy.key("Tab")
    assert standing(copy)[:2] == ("2003-10-01", "Wed 10/1")


def test_a_command_from_the_menu_is_for_the_marked_day(copy):
    copy.key("Right")
    copy.menu("mnuNewEstimate")
    copy.press("No")
    assert "10/01/2003" in copy.expect_form("frmCustSearch")["caption"]


def test_letters_and_blanks_do_nothing_there(copy):
    for key in ("A", "5", "Space", "Backspace"):
        copy.key(key)
    copy.wait(REST)
    assert standing(copy) == ("2003-09-30", "Tue 9/30", "MonthView1")


@pytest.mark.parametrize("key, date", [("Alt+Right", "2003-10-02"), ("Alt+Left", "2003-09-30"),
                                       ("Alt+PgDn", "2003-10-08"), ("Alt+PgUp", "2003-09-24")])
def test_keys_lead_from_day_to_day_wherever_the_focus_is(copy, key, date):
    copy.click("List1(3)", row=0)  # of October 1st, which is marked by it
    copy.key(key)
    assert copy.control("MonthView1")["date"] == date
    copy.key("Alt+Home")
    assert standing(copy)[:2] == ("2003-09-30", "Tue 9/30")


def test_the_day_view_stays_and_the_detail_view_gives_way(copy):
    copy.click("cmdDayView")
    copy.key("Alt+Right")
    assert copy.control("frameDayView")["visible"]
    assert copy.caption("frameDay") == "Wednesday, October 1, 2003"
    copy.select("List2", row=0)
    copy.click("cmdDetailView")
    copy.key("Alt+Right")
    assert copy.control("frameWeekView")["visible"]

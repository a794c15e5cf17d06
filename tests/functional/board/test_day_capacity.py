"""The shop's mechanic hours: standard ones, special days, and what a day's colour and word say of them."""

import pytest

from boardlines import (CLOSED, CLOSED_WITH_WORK, GOOD, OVER, TODAY, TUESDAY, UNDER, hours_of, serial)

WEEK = ["2003-09-28", "2003-09-29", "2003-09-30", "2003-10-01", "2003-10-02", "2003-10-03", "2003-10-04"]
HELP = {
    "Standard hours are the total \"mechanic\" hours for each day of the week.  For example, if you have 2 mechanics "
    "each working 8 hours on a particular day of the week, then the standard hours for that day would be 16.  "
    "Similarly, if you have 3 mechanics working 8 hours each, and 2 more mechanics working 4 hours each, then the "
    "total for that day would be 32.  Enter 0 for the days the shop is normally closed.",
    "The fudge factor is a whole percentage value used to determine when the totals are \"close enough\".  For "
    "example: if the day has 40 mechanic hours available and the fudge factor is set to 10%, then scheduled hours "
    "anywhere from 36 to 44 hours would be considered \"full\" or \"good\", 35 or less hours would be \"under\", and "
    "45 or more hours would be \"over\".",
    "Note: You can use the menu option Maintenance>System>Special Days to record exceptions to the standard hours.  "
    "The Spedial Days option is used to indicate days when the shop is closed (eg: holidays), or days when hte "
    "standard hours are changed because mechanic(s) are not available (eg: vacations).",
}


def colors(copy):
    return [copy.control(f"frameWeek({i})")["backcolor"] for i in range(7)]


def book(shop, hours):
    """One estimate a day of this week, with those hours; None books nothing."""
    for i, (date, worth) in enumerate(zip(WEEK, hours)):
        if worth is not None:
            shop.add_estimate(900 + i, date, hours=worth)


def test_each_result_has_its_colour_and_word_at_each_boundary(start, shop):
    shop.standard_hours = {"Sun": 0, "Mon": 40, "Tue": 40, "Wed": 40, "Thu": 40, "Fri": 40, "Sat": 0}
    book(shop, [None, 35.99, 36, 44, 44.01, 40, 0.01])
    shop.write()
    copy = start(shop)
    expected = [
        ("Sun 9/28", "0.00", "0.00", "0.00", "Closed", CLOSED),
        ("Mon 9/29", "40.00", "35.99", "-4.01", "Under", UNDER),
        ("Tue 9/30", "40.00", "36.00", "-4.00", "Good", GOOD),
        ("Wed 10/1", "40.00", "44.00", "4.00", "Good", GOOD),
        ("Thu 10/2", "40.00", "44.01", "4.01", "Over", OVER),
        ("Fri 10/3", "40.00", "40.00", "0.00", "Good", GOOD),
        ("Sat 10/4", "0.00", "0.01", "0.01", "CLOSED!", CLOSED_WITH_WORK),
    ]
    assert colors(copy) == [row[-1] for row in expected]
    for i, row in enumerate(expected):
        copy.click(f"frameWeek({i})")
        assert hours_of(copy) == row
        assert copy.control("frameDay")["backcolor"] == row[-1]


def test_a_factor_of_nought_takes_only_an_exact_match(start, shop):
    shop.fudge_factor = 0
    book(shop, [None, 15.99, 16, 16.01, None, None, None])
    shop.write()
    assert colors(start(shop)) == [CLOSED, UNDER, GOOD, OVER, UNDER, UNDER, CLOSED]


def test_both_bounds_are_rounded_half_to_even(start, shop):
    # Half an hour with 1 %: 49.5 and 50.5 hundredths both round to 50.
    shop.standard_hours = {"Sun": 0.5, "Mon": 0.5, "Tue": 0.5, "Wed": 0.5, "Thu": 0, "Fri": 0, "Sat": 0}
    shop.fudge_factor = 1
    book(shop, [0.49, 0.5, 0.51, None, None, None, None])
    shop.write()
    assert colors(start(shop)) == [UNDER, GOOD, OVER, UNDER, CLOSED, CLOSED, CLOSED]


def test_a_special_day_of_no_hours_closes_a_working_day(start, shop):
    shop.add_special_day(TODAY, 0, "  Inventory count  ")
    shop.add_special_day("2003-10-01", 0, "Holiday")
    book(shop, [None, None, 2, None, None, None, None])
    shop.write()
    copy = start(shop)
    assert hours_of(copy) == ("Tue 9/30", "0.00", "2.00", "2.00", "CLOSED!", CLOSED_WITH_WORK)
    copy.click("frameWeek(3)")
    assert hours_of(copy) == ("Wed 10/1", "0.00", "0.00", "0.00", "Closed", CLOSED)
    assert copy.caption("lblWeekComment") == "Tue 9/30: Inventory count, Wed 10/1: Holiday"
    copy.click("frameWeek(2)")
    copy.click("cmdDayView")
    assert copy.caption("lblDayComments") == "Inventory count"


def test_special_hours_replace_the_standard_ones(start, shop):
    shop.add_special_day(TODAY, 4, "Half staff")
    shop.add_special_day("2003-09-28", 6, "Open Sunday")
    shop.add_special_day("2003-10-01", 0.5, "Half an hour is none")
    shop.write()
    copy = start(shop)
    available = []
    for i in (0, TUESDAY, 3):
        copy.click(f"frameWeek({i})")
        available.append(hours_of(copy)[:2])
    assert available == [("Sun 9/28", "6.00"), ("Tue 9/30", "4.00"), ("Wed 10/1", "0.00")]


def test_of_two_special_days_on_one_date_the_first_counts(start, shop):
    shop.add_special_day(TODAY, 5, "First")
    shop.add_special_day(TODAY, 9, "Second")
    shop.write()
    copy = start(shop)
    assert hours_of(copy)[1] == "5.00"
    assert copy.caption("lblWeekComment") == "Tue 9/30: First"


# Standard hours.


def hours_row(shop):
    return shop.query("SELECT * FROM StandardHours")


def test_standard_hours_are_shown_saved_and_seen_at_the_next_load(start, shop):
    shop.standard_hours = {"Sun": 0, "Mon": 16, "Tue": 16.6, "Wed": 24, "Thu": 16, "Fri": 8, "Sat": 0}
    shop.write()
    copy = start(shop)
    copy.menu("mnuStandardHours")
    copy.expect_form("frmStdHours")
    assert [copy.text(f"txtHours({i})") for i in range(8)] == ["0", "16", "17", "24", "16", "8", "0", "10"]
    assert {copy.caption(f"lblHelp({i})") for i in range(3)} == HELP
    assert copy.control("cmdOK")["tooltip"] == "Select highlighted part <F10>"
    assert copy.control("cmdCancel")["tooltip"] == "Close <Esc>"
    for i, text in enumerate(("4", "abc", "12", "", "7.5", "8.5", "1", "20")):
        copy.type(f"txtHours({i})", text)
    copy.key("F10")
    copy.expect_form("frmMain")
    # What isn't a number gives 0; the others are rounded half to even.
    assert hours_row(shop) == [{"RecNum": 1, "SunHours": 4, "MonHours": 0, "TueHours": 12, "WedHours": 0,
                                "ThuHours": 8, "FriHours": 8, "SatHours": 1, "FudgeFactor": 20}]
    assert hours_of(copy)[:2] == ("Tue 9/30", "16.60"), "the board is as it was loaded"
    copy.click("frameWeek(2)")
    assert hours_of(copy)[:2] == ("Tue 9/30", "12.00")


def test_leaving_the_standard_hours_changes_nothing(lantos, shop):
    before = hours_row(shop)
    for way_out in (lambda: lantos.click("cmdCancel"), lambda: lantos.key("Esc"), lantos.close):
        lantos.menu("mnuStandardHours")
        lantos.type("txtHours(1)", "99")
        for answer, then in (("No", "frmStdHours"), ("Yes", "frmMain")):
            way_out()
            lantos.expect_box("Discard changes?", "Standard Hours", buttons=["Yes", "No"])
            lantos.press(answer)
            lantos.expect_form(then)
    assert hours_row(shop) == before


def test_standard_hours_that_do_not_fit_are_an_overflow_and_nothing_is_written(lantos, shop):
    before = hours_row(shop)
    lantos.menu("mnuStandardHours")
    lantos.type("txtHours(1)", "12")
    lantos.type("txtHours(2)", "99999999999")
    lantos.click("cmdOK")
    assert "Overflow" in lantos.answer["text"]
    lantos.press("OK")
    lantos.expect_form("frmStdHours")
    assert hours_row(shop) == before


def test_hours_that_are_no_number_are_red_and_count_as_none(lantos, shop):
    lantos.menu("mnuStandardHours")
    lantos.type("txtHours(1)", "eight")
    assert lantos.control("txtHours(1)")["backcolor"] is not None
    lantos.type("txtHours(2)", "8")
    assert lantos.control("txtHours(2)")["backcolor"] is None
    lantos.click("cmdOK")
    lantos.expect_form("frmMain")
    assert (hours_row(shop)[0]["MonHours"], hours_row(shop)[0]["TueHours"]) == (0, 8)


# Special days.


def special_rows(shop):
    return shop.query("SELECT * FROM SpecialDays ORDER BY SpecialDate")


def fields(copy):
    return copy.control("DTPicker1")["date"], copy.text("txtHours"), copy.text("txtComments")


@pytest.fixture
def special_days(start, shop):
    shop.add_special_day("2003-12-25", 0, "Christmas")
    shop.add_special_day("2003-10-13", 12, " Columbus Day ")
    shop.add_special_day("2003-07-04", 0, "Independence Day")
    shop.write()
    copy = start(shop)
    copy.menu("mnuSpecialDays")
    copy.expect_form("frmSpecialDays")
    return copy


def test_special_days_from_today_on_are_listed_by_date(special_days):
    listed = special_days.control("List1")["rows"]
    assert [row["text"] for row in listed] == ["10/13/2003    12 Columbus Day", "12/25/2003     0 Christmas"]
    assert [row["data"] for row in listed] == [serial("2003-10-13"), serial("2003-12-25")]
    special_days.check("Check1")
    assert special_days.rows("List1") == [
        "07/04/2003     0 Independence Day", "10/13/2003    12 Columbus Day", "12/25/2003     0 Christmas"]
    special_days.check("Check1", False)
    assert len(special_days.rows("List1")) == 2


def test_a_click_puts_a_special_day_into_the_fields(special_days):
    special_days.click("List1", row=0)
    assert fields(special_days) == ("2003-10-13", "12", "Columbus Day")
    special_days.click("List1", row=1)
    assert fields(special_days) == ("2003-12-25", "0", "Christmas")


def test_hours_that_are_no_number_keep_the_focus(special_days):
    special_days.type("txtHours", "eight")
    special_days.leave()
    special_days.expect_box("Hours must be numeric.", "Special Days")
    special_days.press("OK")
    assert special_days.expect_form("frmSpecialDays")["focus"] == "txtHours"
    special_days.type("txtHours", "8")
    assert special_days.leave()["focus"] != "txtHours"


def test_leaving_a_date_selects_its_line_or_clears_the_fields(special_days):
    special_days.pick("DTPicker1", "2003-12-25")
    special_days.leave()
    assert special_days.control("List1")["selected"] == 1
    assert fields(special_days) == ("2003-12-25", "0", "Christmas")
    special_days.pick("DTPicker1", "2003-12-26")
    special_days.leave()
    assert fields(special_days) == ("2003-12-26", "", "")


def test_a_past_date_turns_the_history_on(special_days):
    special_days.pick("DTPicker1", "2003-07-04")
    assert special_days.control("Check1")["checked"] is False
    special_days.leave()
    assert special_days.control("Check1")["checked"] is True
    assert len(special_days.rows("List1")) == 3
    assert special_days.control("List1")["selected"] == 0
    assert fields(special_days) == ("2003-07-04", "0", "Independence Day")


def test_all_three_fields_are_required(special_days, shop):
    before = special_rows(shop)
    special_days.click("cmdSave")
    special_days.expect_box("All three fields are required.", "Special Days")
    special_days.press("OK")
    special_days.type("txtHours", "8")
    special_days.type("txtComments", "   ")
    special_days.key("F10")
    special_days.expect_box("All three fields are required.")
    special_days.press("OK")
    assert special_rows(shop) == before


def test_saving_a_new_special_day_and_a_known_one(special_days, shop):
    special_days.pick("DTPicker1", "2003-11-27")
    special_days.type("txtHours", "6")
    special_days.type("txtComments", " Thanksgiving ")
    special_days.click("cmdSave")
    special_days.expect_form("frmSpecialDays")
    assert special_days.rows("List1") == [
        "10/13/2003    12 Columbus Day", "11/27/2003     6 Thanksgiving", "12/25/2003     0 Christmas"]
    special_days.click("List1", row=0)
    special_days.type("txtHours", "8")
    special_days.key("F10")
    assert special_days.rows("List1") == [
        "10/13/2003     8 Columbus Day", "11/27/2003     6 Thanksgiving", "12/25/2003     0 Christmas"]
    assert special_rows(shop) == [
        {"SpecialDate": "2003-07-04", "SpecialHours": 0, "SpecialDesc": "Independence Day"},
        {"SpecialDate": "2003-10-13", "SpecialHours": 8, "SpecialDesc": "Columbus Day"},
        {"SpecialDate": "2003-11-27", "SpecialHours": 6, "SpecialDesc": "Thanksgiving"},
        {"SpecialDate": "2003-12-25", "SpecialHours": 0, "SpecialDesc": "Christmas"}]
    special_days.key("Esc")
    special_days.pick("MonthView1", "2003-10-13")
    assert hours_of(special_days)[:2] == ("Mon 10/13", "8.00")
    assert special_days.caption("lblWeekComment") == "Mon 10/13: Columbus Day"


def test_deleting_a_special_day_removes_line_and_row(special_days, shop):
    special_days.click("List1", row=1)
    special_days.click("cmdDelete")
    assert special_days.rows("List1") == ["10/13/2003    12 Columbus Day"]
    assert [row["SpecialDate"] for row in special_rows(shop)] == ["2003-07-04", "2003-10-13"]
    special_days.pick("DTPicker1", "2003-12-31")
    special_days.click("cmdDelete")
    special_days.expect_form("frmSpecialDays")
    assert len(special_rows(shop)) == 2


def test_hours_and_special_days_stand_behind_the_system_password(start, shop):
    shop.set_password("System", "Wrench")
    shop.write()
    copy = start(shop)
    for entry, form in (("mnuStandardHours", "frmStdHours"), ("mnuSpecialDays", "frmSpecialDays")):
        copy.menu(entry)
        assert copy.expect_form("frmEnterPwd")["caption"] == "Enter System Password"
        copy.type("Pwd", "wrench")
        copy.click("cmdOK")
        copy.expect_form("frmMain")
        copy.menu(entry)
        copy.click("cmdCancel")
        copy.expect_form("frmMain")
        copy.menu(entry)
        copy.type("Pwd", " Wrench ")
        copy.click("cmdOK")
        copy.expect_form(form)
        copy.key("Esc")

"""The week view: seven panels, their lists, and what clicks in them select."""

import pytest

from boardlines import (CLOSED, CREATED, TODAY, TUESDAY, UNDER, add_elsewhere, elsewhere, hours_of, listed, row_of,
                        serial, status_line, view_of)

WORDS = ["", "Arrived", "In Progress", "Completed", "Departed", "Continued", "Cancelled", "Rescheduled", "No-show",
         "Estimate Only"]
LONG_NAME = "Vandenbergh-Featherst", "Maximilian Alexander"


def add_one_of_each_status(shop, hours=1):
    customer = shop.add_customer(7, "Adams", "Beth")
    for status in range(10):
        shop.add_estimate(900 + status, TODAY, status=status, customer=7, hours=hours, CreateDate=CREATED)
    return customer


def test_each_estimate_has_two_lines_with_its_number(start, shop):
    add_one_of_each_status(shop)
    shop.write()
    copy = start(shop)
    expected = []
    for status, word in enumerate(WORDS):
        expected += [(f"{900 + status:06} {word}", 900 + status), ("  Adams,Beth", 900 + status)]
    assert [(row["text"], row["data"]) for row in copy.control("List1(2)")["rows"]] == expected


def test_a_name_is_cut_at_32_characters_and_an_unknown_customer_still_lists(start, shop):
    shop.add_customer(7, *LONG_NAME)
    shop.add_estimate(900, TODAY, customer=7)
    shop.add_estimate(901, TODAY, customer=77)
    shop.write()
    assert start(shop).rows("List1(2)") == [
        "000900 ", "  Vandenbergh-Featherst,Maximilian", "000901 ", "  CUSTOMER,UNKNOWN"]


def test_names_beyond_ascii_are_shown_as_they_are(start, shop):
    shop.add_customer(7, "Müller", "Zoë")
    shop.add_estimate(900, TODAY, customer=7)
    shop.write()
    assert start(shop).rows("List1(2)")[1] == "  Müller,Zoë"


def test_an_estimate_of_no_known_status_is_in_no_list(start, shop):
    shop.add_estimate(900, TODAY, status=12, hours=3)
    shop.add_estimate(901, TODAY, status=-1, hours=3)
    shop.add_estimate(902, TODAY, status=1, hours=1)
    shop.write()
    copy = start(shop)
    assert listed(copy, "List1(2)") == listed(copy, "List2") == [902]
    assert hours_of(copy)[2] == "1.00"


def test_panels_carry_their_dates(lantos):
    for i in range(7):
        assert lantos.control(f"frameWeek({i})")["tag"] == str(serial("2003-09-28") + i)
    lantos.pick("MonthView1", "2004-01-03")
    assert [lantos.caption(f"frameWeek({i})") for i in range(7)] == [
        "Sun 12/28", "Mon 12/29", "Tue 12/30", "Wed 12/31", "Thu 1/1", "Fri 1/2", "Sat 1/3"]


def test_a_past_scheduled_estimate_has_no_word_here_and_is_a_no_show_in_the_day_list(start, shop):
    shop.add_estimate(900, "2003-09-29", hours=2, CreateDate=CREATED)
    shop.write()
    copy = start(shop)
    assert copy.rows("List1(1)")[0] == "000900 "
    copy.click("frameWeek(1)")
    assert hours_of(copy)[1:3] == ("16.00", "2.00")
    copy.click("cmdDayView")
    assert copy.rows("List2")[1] == status_line("No-show", "2003-09-29")
    assert shop.estimate(900)["Status"] == 0


def test_a_day_of_cancelled_rescheduled_and_estimate_only_lists_them_and_counts_no_hours(start, shop):
    for status in (6, 7, 9):
        shop.add_estimate(900 + status, TODAY, status=status, hours=3)
    shop.write()
    copy = start(shop)
    assert listed(copy, "List1(2)") == [906, 907, 909]
    assert hours_of(copy) == ("Tue 9/30", "16.00", "0.00", "-16.00", "Under", UNDER)


def test_all_other_statuses_count(start, shop):
    add_one_of_each_status(shop, hours=1)
    shop.write()
    assert hours_of(start(shop))[2] == "7.00"


def test_a_filter_takes_effect_at_the_next_load_and_hides_lines_and_hours(start, shop):
    add_one_of_each_status(shop)
    shop.write()
    copy = start(shop)
    copy.menu("mnuShowStat(3)")
    assert copy.control("mnuShowStat(3)")["checked"] is False
    assert 903 in listed(copy, "List1(2)") and hours_of(copy)[2] == "7.00"
    copy.click("frameWeek(2)")
    assert listed(copy, "List1(2)") == [900, 901, 902, 904, 905, 906, 907, 908, 909]
    assert hours_of(copy)[2] == "6.00"
    copy.menu("mnuShowStat(3)")
    copy.click("frameWeek(2)")
    assert hours_of(copy)[2] == "7.00"


def test_with_every_row_hidden_a_panel_reads_by_the_standard_hours_alone(start, shop):
    shop.add_estimate(900, TODAY, status=1, hours=30)
    shop.add_estimate(901, "2003-10-04", status=1, hours=30)
    shop.write()
    copy = start(shop)
    copy.menu("mnuShowStat(1)")
    copy.click("frameWeek(6)")
    assert hours_of(copy) == ("Sat 10/4", "0.00", "0.00", "0.00", "Closed", CLOSED)
    copy.click("frameWeek(2)")
    assert hours_of(copy) == ("Tue 9/30", "16.00", "0.00", "-16.00", "Under", UNDER)


def test_two_special_days_follow_one_another_in_the_comment(start, shop):
    shop.add_special_day("2003-10-03", 4, "Training")
    shop.add_special_day("2003-09-29", 0, "Stocktaking")
    shop.add_special_day("2003-10-01", 8, "   ")
    shop.write()
    copy = start(shop)
    assert copy.caption("lblWeekComment") == "Mon 9/29: Stocktaking, Fri 10/3: Training"
    copy.pick("MonthView1", "2003-10-07")
    assert copy.caption("lblWeekComment") == ""


# Panels.


def test_a_click_on_a_panel_selects_its_day(start, shop):
    shop.add_estimate(900, TODAY, hours=2)
    shop.add_estimate(901, "2003-10-02", hours=3)
    shop.write()
    copy = start(shop)
    add_elsewhere(shop, 902, "2003-10-02")
    copy.click("frameWeek(4)")
    assert copy.control("MonthView1")["date"] == "2003-10-02"
    assert copy.control("frameDay")["tag"] == str(serial("2003-10-02"))
    assert copy.caption("frameDay") == "Thursday, October 2, 2003"
    assert hours_of(copy)[:3] == ("Thu 10/2", "16.00", "3.00")
    assert listed(copy, "List1(4)") == [901, 902], "another workstation's change shows at a load"
    assert listed(copy, "List2") == [901, 902]
    assert view_of(copy) == ["Week"]


def test_a_double_click_on_a_panel_opens_its_day(lantos):
    lantos.double_click("frameWeek(5)")
    assert view_of(lantos) == ["Day"]
    assert lantos.caption("frameDay") == "Friday, October 3, 2003"
    assert lantos.control("MonthView1")["date"] == "2003-10-03"


# Lists.


@pytest.mark.parametrize("line", [0, 1])
def test_a_click_in_a_list_makes_the_estimate_current_with_no_reload(start, shop, line):
    add_one_of_each_status(shop)
    shop.add_estimate(910, "2003-10-02", status=3, customer=7)
    shop.write()
    copy = start(shop)
    add_elsewhere(shop, 911, "2003-10-02")
    copy.click("List1(4)", row=line)
    assert copy.control("MonthView1")["date"] == "2003-10-02"
    assert copy.caption("frameDay") == "Thursday, October 2, 2003"
    assert copy.control("frameDay")["tag"] == str(serial("2003-10-02"))
    assert copy.caption("frameDetailView") == "Est. # 000910  10/02/2003  Completed"
    assert copy.caption("lblCustName") == "Beth Adams"
    assert listed(copy, "List1(4)") == [910]
    assert hours_of(copy)[0] == "Tue 9/30"
    assert view_of(copy) == ["Week"]
    copy.click("cmdDayView")
    assert listed(copy, "List2") == [910, 911]


def test_a_double_click_in_a_list_shows_the_days_hours_and_the_estimate(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    shop.add_estimate(910, "2003-10-02", customer=7, hours=5)
    shop.write()
    copy = start(shop)
    copy.double_click("List1(4)", row=1)
    assert view_of(copy) == ["Detail"]
    assert hours_of(copy)[:3] == ("Thu 10/2", "16.00", "5.00")
    assert copy.caption("frameDetailView") == "Est. # 000910  10/02/2003  Scheduled"
    copy.click("cmdWeekView")
    assert view_of(copy) == ["Week"]


def test_a_click_on_an_estimate_that_is_gone_shows_the_earlier_one(start, shop):
    add_one_of_each_status(shop)
    shop.write()
    copy = start(shop)
    copy.click("List1(2)", row=row_of(copy, "List1(2)", 901))
    elsewhere(shop, "DELETE FROM Estimates WHERE EstimateNumber = 903")
    copy.click("List1(2)", row=row_of(copy, "List1(2)", 903))
    assert copy.caption("frameDetailView") == "Est. # 000901  09/30/2003  Arrived"


def test_the_right_button_where_nothing_is_selected_offers_to_refresh_the_customers(start, shop):
    add_one_of_each_status(shop)
    shop.write()
    copy = start(shop)
    entry = {"name": "mnuPopupRefreshCustomers", "caption": "Refresh Customers", "checked": False, "enabled": True}
    for place in (f"List1({TUESDAY})", "List1(0)", "frameWeekView", "frameCommands"):
        answer = copy.right_click(place)
        assert (answer["waiting"], answer["menu"], answer["items"]) == ("popup", "mnuPopup", [entry]), place
        copy.choose(None)
    copy.right_click("frameWeekView")
    copy.choose("Refresh Customers")
    copy.expect_box("Customer information refreshed.", "Refresh Complete.", buttons=["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")


# The calendar.


def test_a_date_clicked_in_the_calendar_shows_its_week(start, shop):
    shop.add_estimate(900, "2003-10-14", hours=2)
    shop.write()
    copy = start(shop)
    copy.click("cmdDayView")
    assert copy.pick("MonthView1", "2003-10-14")["focus"] == "cmdWeekView"
    assert view_of(copy) == ["Week"]
    assert listed(copy, "List1(2)") == [900]
    assert hours_of(copy)[:3] == ("Tue 10/14", "16.00", "2.00")


def test_a_date_double_clicked_in_the_calendar_shows_its_day(start, shop):
    shop.add_estimate(900, "2003-10-14", hours=2)
    shop.write()
    copy = start(shop)
    assert copy.pick("MonthView1", "2003-10-14", double=True)["focus"] == "cmdDayView"
    assert view_of(copy) == ["Day"]
    assert listed(copy, "List2") == [900]
    assert copy.caption("frameDay") == "Tuesday, October 14, 2003"

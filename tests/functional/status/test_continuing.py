"""Work that goes on the next business day: whether it does, and the copy made there."""

import pytest

from boardlines import CREATED, TODAY, hours_of, labor_line, main_line, row_of, serial
from locks import denied_to_all
from movesteps import (FRIDAY, NEW, TABLES, WEDNESDAY, applied, by_week_popup, choose, continued_shop, everything,
                       expect_copied, full_shop, lines, reschedule, told)
from shopfiles import NO_LINK

NEXT_MONDAY = "2003-10-06"

ASK = ('"Continue" this estimate to the next business day?', "Change Status to Continued", "question", ["Yes", "No"])


def by_form(copy):
    copy.click("cmdChangeStatus")
    copy.check("Option1(5)")
    copy.click("cmdOK")
    return copy


def by_day_popup(copy):
    copy.click("cmdDayView")
    copy.right_click("List2", row=row_of(copy, "List2", 900))
    copy.choose("Continued")
    return copy


def by_detail_popup(copy):
    choose(copy)
    copy.click("cmdDetailView")
    copy.right_click("frameDetailView")
    copy.choose("Continued")
    return copy


def chosen_by_form(copy):
    return by_form(choose(copy))


WAYS = [chosen_by_form, by_week_popup, by_day_popup, by_detail_popup]


@pytest.mark.parametrize("way", WAYS)
def test_an_estimate_is_continued_less_the_hours_applied(start, shop, way):
    continued_shop(shop)
    old = shop.estimate(900)
    content = {table: lines(shop, table, 900) for table in TABLES[1:]}
    copy = way(start(shop))
    copy.expect_form("frmContinue")
    assert copy.caption("lblHours").replace("&", "") == "Enter number of hours applied on 09/30/2003."
    assert copy.caption("Check1").replace("&", "") == "Active Emp. Only"
    assert copy.caption("OKButton").replace("&", "") == "Continue <F10>"
    assert copy.caption("CancelButton").replace("&", "") == "Stop <Esc>"
    assert everything(shop)["Estimates"] == [old], "nothing before the hours are known"
    copy.type("txtHours", "1.25")
    copy.select("EmpList", text=f"{'Eve Gone':<31}000012")
    copy.click("OKButton")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    assert shop.estimate(900) == {**old, "Status": 5}
    assert {table: lines(shop, table, 900) for table in TABLES[1:]} == content
    new = shop.estimate(NEW)
    assert (new["Status"], new["SchedDate"], new["CreateDate"]) == (2, WEDNESDAY, TODAY)
    assert new["Comments"] == "Waits for a call"
    expect_copied(shop, labor=[applied(125, technician=12)])
    assert shop.estimate(NEW + 1) is None
    # The old one is still the one on show.
    copy.click("cmdDetailView")
    assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Continued"
    copy.pick("MonthView1", WEDNESDAY, double=True)
    assert copy.rows("List2")[0] == main_line(NEW, "Adams,Beth", "2.25", vehicle="1999 Ford Focus")
    assert labor_line("000012 -1.25 65.00 -81.25 HOURS APPLIED ON 09/30/2003") in copy.rows("List2")
    assert hours_of(copy)[2] == "2.25", "the day has what is left to do"


def test_the_hours_applied_have_the_rate_that_the_shop_has_now(start, shop):
    continued_shop(shop)
    copy = choose(start(shop))
    shop.system["shop_rate"] = 10000
    shop.path("TQSYSTEM.DAT").write_bytes(shop.system_record())
    by_form(copy)
    copy.type("txtHours", "1.25")
    copy.click("OKButton")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    assert applied(125, rate=10000) in lines(shop, "Labors", NEW)


@pytest.mark.parametrize("way", WAYS)
def test_where_the_shop_asks_no_ends_it(start, shop, way):
    continued_shop(shop, "A")
    copy = start(shop)
    before = everything(shop)
    way(copy)
    copy.expect_box(*ASK)
    copy.press("No")
    copy.expect_form("frmEstStatus" if way is chosen_by_form else "frmMain")
    assert everything(shop) == before


@pytest.mark.parametrize("way", WAYS)
def test_where_the_shop_asks_yes_continues(start, shop, way):
    continued_shop(shop, "A")
    copy = way(start(shop))
    copy.press("Yes")
    copy.expect_form("frmContinue")
    copy.key("F10")
    told(copy, "Continued by request", "Wed 10/01/2003")
    assert (shop.estimate(900)["Status"], shop.estimate(NEW)["Status"]) == (5, 2)


@pytest.mark.parametrize("letter", ["N", "E", "X"])
def test_any_other_letter_only_changes_the_status(start, shop, letter):
    continued_shop(shop, letter)
    copy = by_week_popup(start(shop))
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 5
    assert shop.estimate(NEW) is None


@pytest.mark.parametrize("status", [0, 1, 3, 4, 6, 7, 8, 9])
def test_the_copy_has_the_status_that_the_old_one_had(start, shop, status):
    continued_shop(shop, status=status)
    copy = chosen_by_form(start(shop))
    copy.key("F10")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    assert (shop.estimate(900)["Status"], shop.estimate(NEW)["Status"]) == (5, status)


def test_continuing_an_estimate_in_progress_makes_a_new_one_in_progress(start, shop):
    continued_shop(shop, status=2)
    copy = by_week_popup(start(shop))
    copy.key("F10")
    copy.press("OK")
    assert shop.estimate(NEW)["Status"] == 2
    assert copy.rows("List1(2)")[0] == "000900 Continued"


def test_what_is_continued_already_isnt_continued_again(start, shop):
    continued_shop(shop, status=5)
    copy = by_week_popup(start(shop))
    copy.expect_form("frmMain")
    assert shop.estimate(NEW) is None


@pytest.mark.parametrize("stop", [
    lambda copy: copy.click("CancelButton"), lambda copy: copy.key("Esc"), lambda copy: copy.close()])
@pytest.mark.parametrize("way", [chosen_by_form, by_week_popup])
def test_stop_changes_nothing(start, shop, stop, way):
    continued_shop(shop)
    copy = start(shop)
    before = shop.hashes(but=("LN*",))
    way(copy)
    copy.type("txtHours", "2")
    stop(copy)
    if way is chosen_by_form:
        copy.expect_form("frmEstStatus")
        copy.key("Esc")
    copy.expect_form("frmMain")
    assert shop.hashes(but=("LN*",)) == before
    assert copy.rows("List1(2)")[0] == "000900 In Progress"


@pytest.mark.parametrize("way", ["menu", "popup"])
def test_comments_still_being_typed_are_continued(start, shop, way):
    continued_shop(shop)
    copy = start(shop)
    copy.click("List1(2)", row=row_of(copy, "List1(2)", 900))
    copy.click("cmdDetailView")
    copy.type("txtComments", "Typed now")
    if way == "menu":
        copy.menu("mnuChangeStatus")
        copy.check("Option1(5)")
        copy.key("F10")
    else:
        copy.right_click("frameDetailView")
        copy.choose("Continued")
    copy.expect_form("frmContinue")
    copy.key("F10")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert (shop.estimate(900)["Comments"], shop.estimate(NEW)["Comments"]) == ("Typed now", "Typed now")


def test_a_held_system_record_stops_the_copy_before_anything_has_changed(start, shop):
    full_shop(shop)
    copy = choose(start(shop))
    before = everything(shop)
    with denied_to_all(shop.path("TQSYSTEM.DAT")):
        reschedule(copy)
        copy.pick("DTPicker1", FRIDAY)
        copy.click("cmdOK")
        copy.expect_box(buttons=["Retry", "Cancel"])
        assert "System file locked by another user." in copy.answer["text"]
        assert everything(shop) == before
    copy.press("Retry")
    copy.expect_form("frmMain")
    assert (shop.estimate(900)["Status"], shop.estimate(NEW)["SchedDate"]) == (7, FRIDAY)


FRIDAY_CASES = {
    "closed at the weekend": ([], NEXT_MONDAY, "Mon 10/06/2003"),
    "Monday closed": ([(NEXT_MONDAY, 0)], "2003-10-07", "Tue 10/07/2003"),
    "less than half an hour on Monday": ([(NEXT_MONDAY, 0.4)], "2003-10-07", "Tue 10/07/2003"),
    "short Monday": ([(NEXT_MONDAY, 4)], NEXT_MONDAY, "Mon 10/06/2003"),
    "open Sunday": ([("2003-10-05", 3)], "2003-10-05", "Sun 10/05/2003"),
    "a closed week": ([(f"2003-10-{day:02}", 0) for day in range(6, 11)], "2003-10-13", "Mon 10/13/2003"),
}


@pytest.mark.parametrize("case", FRIDAY_CASES)
def test_a_friday_goes_on_with_the_next_open_day(start, shop, case):
    special, day, word = FRIDAY_CASES[case]
    for date, hours in special:
        shop.add_special_day(date, hours, case)
    continued_shop(shop, date=FRIDAY)
    copy = by_week_popup(start(shop), panel=5)
    copy.key("F10")
    told(copy, "Automatically continued", word, since="Fri 10/03/2003")
    assert shop.estimate(NEW)["SchedDate"] == day


def test_an_estimate_without_customer_and_lines_is_continued(start, shop):
    shop.add_estimate(900, TODAY, status=2, vehicle=NO_LINK, CreateDate=CREATED)
    shop.write()
    shop.write_profile({"Status Options": {"ContinuedAutoSchedule": "Y"}})
    copy = by_week_popup(start(shop))
    copy.key("F10")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    assert lines(shop, "Labors", NEW) == [] and shop.estimate(NEW)["Status"] == 2
    assert copy.control("frameWeek(3)")["tag"] == str(serial(WEDNESDAY))

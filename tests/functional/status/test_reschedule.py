"""Work that moves to another day: the copy made there, and the trace left behind."""

import pytest

from boardlines import TODAY, add_elsewhere, hours_of, listed, main_line, row_of, status_line, view_of
from movesteps import FRIDAY, MONDAY, NEW, TABLES, THURSDAY, choose, expect_copied, full_shop, lines, reschedule


# Rescheduling.


def test_a_rescheduled_estimate_is_copied_to_its_new_day(start, shop):
    full_shop(shop, StartDate="2003-09-30", StopDate="2003-09-30")
    old = shop.estimate(900)
    content = {table: lines(shop, table, 900) for table in TABLES[1:]}
    foreign = shop.foreign_system_bytes()
    system = shop.read_system()
    copy = reschedule(choose(start(shop)), THURSDAY)
    assert shop.estimate(900) == {**old, "Status": 7, "Comments": "Rescheduled for 10/02/2003. Waits for a call"}
    assert {table: lines(shop, table, 900) for table in TABLES[1:]} == content, "the old one keeps its lines"
    new = shop.estimate(NEW)
    assert (new["Status"], new["SchedDate"], new["CreateDate"]) == (0, THURSDAY, TODAY)
    assert (new["Comments"], new["StartDate"], new["StopDate"]) == ("Waits for a call", None, None)
    expect_copied(shop)
    assert shop.read_system() == {**system, "last_estimate_number": NEW + 1}
    assert shop.foreign_system_bytes() == foreign
    # What is on show then.
    assert view_of(copy) == ["Day"]
    assert copy.control("MonthView1")["date"] == THURSDAY
    assert listed(copy, "List2") == [NEW]
    assert copy.rows("List2")[:3] == [
        main_line(NEW, "Adams,Beth", "3.50", vehicle="1999 Ford Focus"), " ----> Waits for a call",
        status_line("Scheduled", THURSDAY, TODAY)]
    assert hours_of(copy)[2] == "3.50"
    copy.click("cmdWeekView")
    assert copy.rows("List1(2)") == ["000900 Rescheduled", "  Adams,Beth"]
    assert copy.rows("List1(4)") == [f"{NEW:06} ", "  Adams,Beth"]


def test_the_form(start, shop):
    full_shop(shop)
    copy = reschedule(choose(start(shop)))
    assert copy.caption("lblHint") == "(Click the down arrow to select date via the calendar.)"
    assert copy.caption("cmdOK").replace("&", "") == "Save <F10>"
    assert copy.caption("cmdCancel").replace("&", "") == "Cancel <Esc>"
    assert copy.control("DTPicker1")["date"] == TODAY


@pytest.mark.parametrize("leave", [
    lambda copy: copy.click("cmdCancel"), lambda copy: copy.key("Esc"), lambda copy: copy.close()])
def test_leaving_the_form_changes_nothing(start, shop, leave):
    full_shop(shop)
    copy = choose(start(shop))
    add_elsewhere(shop, 960)
    before = shop.hashes(but=("LN*",))
    reschedule(copy)
    copy.pick("DTPicker1", FRIDAY)
    leave(copy)
    copy.expect_form("frmMain")
    assert shop.hashes(but=("LN*",)) == before
    assert view_of(copy) == ["Week"] and copy.control("MonthView1")["date"] == TODAY
    assert 960 not in listed(copy, "List1(2)"), "nothing is loaded anew"


def test_by_menu_and_key_into_another_week(start, shop):
    full_shop(shop)
    copy = choose(start(shop))
    copy.menu("mnuReschedule")
    copy.expect_form("frmReschedule")
    copy.pick("DTPicker1", "2004-02-29")
    copy.key("F10")
    copy.expect_form("frmMain")
    assert copy.control("MonthView1")["date"] == "2004-02-29"
    assert listed(copy, "List1(0)") == listed(copy, "List2") == [NEW]
    assert shop.estimate(900)["Comments"] == "Rescheduled for 02/29/2004. Waits for a call"


def test_with_no_estimate_chosen_there_is_nothing_to_reschedule(start, shop):
    full_shop(shop)
    copy = start(shop)
    copy.click("cmdReschedule")
    copy.expect_box("No estimate is selected.", "Reschedule")
    copy.press("OK")
    copy.expect_form("frmMain")


@pytest.mark.parametrize("status", [1, 2, 3, 4, 5, 6, 7, 8])
def test_the_copy_is_scheduled_whatever_the_old_one_was(start, shop, status):
    full_shop(shop, status)
    reschedule(choose(start(shop)), FRIDAY)
    assert (shop.estimate(900)["Status"], shop.estimate(NEW)["Status"]) == (7, 0)
    assert shop.estimate(900)["Comments"] == "Rescheduled for 10/03/2003. Waits for a call"


def test_an_estimate_only_makes_a_scheduled_copy_and_stays_estimate_only(start, shop):
    full_shop(shop, 9)
    reschedule(choose(start(shop)), FRIDAY)
    assert (shop.estimate(900)["Status"], shop.estimate(NEW)["Status"]) == (9, 0)
    assert shop.estimate(900)["Comments"] == "Scheduled for 10/03/2003. Waits for a call"
    assert shop.estimate(NEW)["Comments"] == "Waits for a call"
    expect_copied(shop)


def test_a_past_scheduled_estimate_can_be_rescheduled(start, shop):
    full_shop(shop, date=MONDAY)
    reschedule(choose(start(shop), panel=1), TODAY)
    assert (shop.estimate(900)["Status"], shop.estimate(NEW)["Status"]) == (7, 0)
    assert shop.estimate(NEW)["SchedDate"] == TODAY


def test_to_the_same_day_and_again(start, shop):
    full_shop(shop)
    copy = reschedule(choose(start(shop)), TODAY)
    assert listed(copy, "List2") == [900, NEW]
    copy.click("List2", row=row_of(copy, "List2", NEW))
    reschedule(copy, FRIDAY)
    assert shop.estimate(NEW)["Comments"] == "Rescheduled for 10/03/2003. Waits for a call"
    assert shop.estimate(NEW + 1)["Comments"] == "Waits for a call"
    copy.pick("MonthView1", TODAY)
    choose(copy)
    reschedule(copy, FRIDAY)
    again = "Rescheduled for 10/03/2003. Rescheduled for 09/30/2003. Waits for a call"
    assert shop.estimate(900)["Comments"] == again
    assert shop.estimate(NEW + 2)["Comments"] == "Rescheduled for 09/30/2003. Waits for a call"


def test_the_option_for_changes_by_hand_has_no_say_here(start, shop):
    full_shop(shop)
    shop.write_profile({"Status Options": {"RescheduledAllow": "N"}})
    reschedule(choose(start(shop)), FRIDAY)
    assert shop.estimate(900)["Status"] == 7


LEAD = "Rescheduled for 10/03/2003. "


@pytest.mark.parametrize("comments, stored", [
    (None, LEAD.strip()), ("", LEAD.strip()), ("   ", LEAD.strip()), ("  Trimmed  ", LEAD + "Trimmed"),
    ("It's \"5\" & Caf\u00e9", LEAD + "It's \"5\" & Caf\u00e9"),
    ("c" * 227, LEAD + "c" * 227), ("c" * 228, LEAD + "c" * 227), ("c" * 255, LEAD + "c" * 227),
    ("c" * 1000, LEAD + "c" * 227), ("c" * 226 + " tail", LEAD + "c" * 226)])
def test_comments_of_255_characters_or_more_lose_their_tail_on_the_old_row(start, shop, comments, stored):
    """The copy keeps them whole."""
    assert len(stored) <= 255
    full_shop(shop, comments=comments)
    reschedule(choose(start(shop)), FRIDAY)
    assert shop.estimate(900)["Comments"] == stored
    assert shop.estimate(NEW)["Comments"] == comments


def test_comments_still_being_typed_go_along(start, shop):
    full_shop(shop)
    copy = choose(start(shop))
    copy.click("cmdDetailView")
    copy.type("txtComments", "New text")
    copy.menu("mnuReschedule")
    copy.pick("DTPicker1", FRIDAY)
    copy.key("F10")
    assert shop.estimate(900)["Comments"] == LEAD + "New text"
    assert shop.estimate(NEW)["Comments"] == "New text"


def test_the_old_one_keeps_its_trace_when_it_is_looked_at(start, shop):
    """Leaving its comments writes what stands there."""
    full_shop(shop)
    copy = start(shop)
    copy.click("List1(2)", row=row_of(copy, "List1(2)", 900))
    copy.click("cmdReschedule")
    copy.pick("DTPicker1", THURSDAY)
    copy.key("F10")
    copy.expect_form("frmMain")
    copy.click("cmdDetailView")
    assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Rescheduled"
    trace = "Rescheduled for 10/02/2003. Waits for a call"
    assert copy.text("txtComments") == trace
    copy.type("txtComments", trace)
    copy.click("cmdWeekView")
    assert shop.estimate(900)["Comments"] == trace


def test_what_was_chosen_can_be_rescheduled_from_lists_filled_anew(start, shop):
    full_shop(shop)
    copy = start(shop)
    copy.click("List1(2)", row=row_of(copy, "List1(2)", 900))
    copy.click("cmdDayView")
    copy.click("cmdReschedule")
    copy.expect_form("frmReschedule")
    copy.pick("DTPicker1", THURSDAY)
    copy.key("F10")
    copy.expect_form("frmMain")
    assert shop.estimate(NEW)["SchedDate"].startswith(THURSDAY)


def test_deleting_the_copys_lines_doesnt_touch_the_old_ones(start, shop):
    full_shop(shop)
    content = {table: lines(shop, table, 900) for table in TABLES[1:]}
    copy = reschedule(choose(start(shop)), FRIDAY)
    copy.click("List2", row=0)
    copy.click("cmdDetailView")
    copy.select("listParts", rows=[0, 1])
    copy.click("cmdPartRemove")
    copy.press("Yes")
    assert lines(shop, "Parts", NEW) == []
    assert {table: lines(shop, table, 900) for table in TABLES[1:]} == content


# The date it proposes.


def proposed(copy):
    reschedule(copy)
    date = copy.control("DTPicker1")["date"]
    copy.key("Esc")
    return date


def test_the_day_last_selected_is_proposed(start, shop):
    full_shop(shop)
    shop_days = {4: THURSDAY, 5: FRIDAY}
    copy = start(shop)
    assert proposed(choose(copy)) == TODAY, "the start selects today's panel"
    for panel, day in shop_days.items():
        copy.click(f"frameWeek({panel})")
        assert proposed(choose(copy)) == day, "choosing an estimate of another day selects no day"
    copy.pick("MonthView1", MONDAY)
    assert proposed(choose(copy)) == FRIDAY, "the calendar doesn't count"


def test_a_day_before_2003_is_taken_for_none_and_today_proposed(start, shop):
    full_shop(shop, date="2002-12-31")
    copy = start(shop, now="2002-12-31T08:15:00")
    copy.click("frameWeek(3)")
    assert proposed(choose(copy)) == "2003-01-01", "the first day that counts"
    copy.click("frameWeek(1)")
    assert proposed(choose(copy)) == "2002-12-31"

"""Work that moves to another day: the copy made there, the trace left behind, the hours applied taken off."""

import pytest

from boardlines import (CREATED, TODAY, add_elsewhere, hours_of, labor_line, listed, main_line, row_of, serial,
                        shown_date, status_line, view_of)
from locks import denied_to_all
from shopfiles import NO_LINK
from workfiles import make_checklist

MONDAY, WEDNESDAY, THURSDAY, FRIDAY = "2003-09-29", "2003-10-01", "2003-10-02", "2003-10-03"
NEXT_MONDAY = "2003-10-06"
NEW = 1001  # what the system record hands out next
TABLES = ("Estimates", "Labors", "Parts", "Notes", "Sublets", "Waste", "Checklist")
COPIED = ("CustomerNumber", "VehicleLink", "Mechanic", "TotalPrice", "VehYear", "VehMake", "VehModel", "VehVIN",
          "VehLic", "VehDate", "VehMileage")


def full_shop(shop, status=0, date=TODAY, comments="Waits for a call", **columns):
    """Estimate 900 with something in every table."""
    customer = shop.add_customer(7, "Adams", "Beth")
    vehicle = shop.add_vehicle(customer, "Ford", "Focus", "1999")
    shop.add_employee(4, "Dan Ortiz")
    shop.add_employee(12, "Eve Gone", terminated="2001-01-01")
    shop.add_employee(3, "Al Bell")
    shop.add_estimate(900, date, status=status, customer=7, vehicle=vehicle, CreateDate=CREATED, Comments=comments,
                      Mechanic=4, TotalPrice=12345, VehYear="1999", VehMake="Ford", VehModel="Focus", VehVIN="1FA",
                      VehLic="ABC 123", VehDate="05/06/2003", VehMileage="51234", VehEng="2.0L", VehTrans="Auto",
                      **columns)
    shop.add_labor(900, 2, "Brake pads\tfront", 3, mechanic=4)
    shop.add_labor(900, 5, "Test drive", 0.5, rate=10000)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3050, cost=2000, price_list=3300)
    shop.add_part(900, "BULB", "HEADLIGHT BULB", 1, 1200)
    shop.add_note(900, 1, "Customer waits", "", "third")
    shop.add_note(900, 4, "O'Brien called")
    shop.add_sublet(900, 3, "Riverside Radiator", 24570, 18900, "Yes")
    shop.add_row("Waste", EstimateNumber=900, WasteNumber=2, VendorName="Waste Disposal Fee", Price=25, Cost=25,
                 VendorInvoice="I-1", Desc1="one", Desc4="four", Taxable="No")
    shop.add_row("Checklist", EstimateNumber=900, ChecklistData="Oil,ok,3000")
    shop.write()
    make_checklist(shop, ["[Engine]", "Oil"])
    return shop


def lines(shop, table, number):
    """What stands under an estimate but for its number."""
    order = {"Labors": "LaborNumber", "Parts": "PartNumber", "Notes": "NoteNumber", "Sublets": "SubletNumber",
             "Waste": "WasteNumber", "Checklist": "RecId"}[table]
    rows = shop.query(f"SELECT * FROM {table} WHERE EstimateNumber = ? ORDER BY {order}", number)
    return [{name: value for name, value in row.items() if name not in ("EstimateNumber", "RecId")} for row in rows]


def everything(shop):
    return {table: shop.query(f"SELECT * FROM {table}") for table in TABLES}


def expect_copied(shop, number=NEW, labor=()):
    old, new = shop.estimate(900), shop.estimate(number)
    assert {name: new[name] for name in COPIED} == {name: old[name] for name in COPIED}
    assert (new["VehEng"], new["VehTrans"]) == (None, None)
    assert lines(shop, "Labors", number) == lines(shop, "Labors", 900) + list(labor)
    for table in ("Notes", "Sublets", "Waste"):
        assert lines(shop, table, number) == lines(shop, table, 900)
        assert lines(shop, table, number) != []
    assert lines(shop, "Parts", number) == [{**part, "PartCost": None, "PartList": None}
                                            for part in lines(shop, "Parts", 900)]
    assert lines(shop, "Checklist", number) == [] and len(lines(shop, "Checklist", 900)) == 1


def choose(copy, number=900, panel=2):
    copy.click(f"List1({panel})", row=row_of(copy, f"List1({panel})", number))
    return copy


def reschedule(copy, date=None):
    copy.click("cmdReschedule")
    copy.expect_form("frmReschedule")
    if date:
        copy.pick("DTPicker1", date)
        copy.click("cmdOK")
        copy.expect_form("frmMain")
    return copy


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


# Continuing.


def continued_shop(shop, letter="Y", status=2, **options):
    full_shop(shop, status, **options)
    shop.write_profile({"Status Options": {"ContinuedAutoSchedule": letter}})
    return shop


ASK = ('"Continue" this estimate to the next business day?', "Change Status to Continued", "question", ["Yes", "No"])


def by_form(copy):
    copy.click("cmdChangeStatus")
    copy.check("Option1(5)")
    copy.click("cmdOK")
    return copy


def by_week_popup(copy, panel=2):
    copy.right_click(f"List1({panel})", row=row_of(copy, f"List1({panel})", 900))
    copy.choose("Continued")
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


def told(copy, how, to, since="Tue 09/30/2003"):
    copy.expect_box(f"{how} from {since} to {to}", "Continued...", "information", ["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")


def applied(hours, rate=6500, technician=0, number=6, date=TODAY):
    return {"LaborNumber": number, "Description": f"HOURS APPLIED ON {shown_date(date)}", "LaborHours": -hours,
            "LaborRate": rate, "LaborTotal": -round(hours * rate / 100), "Mechanic": technician}


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


@pytest.mark.parametrize("hours", [None, "0", "0.00", ".004"])
def test_continuing_with_0_hours_adds_no_line(start, shop, hours):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    if hours is not None:
        copy.type("txtHours", hours)
    copy.select("EmpList", text=f"{'Dan Ortiz':<31}000004")
    copy.click("OKButton")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    expect_copied(shop)


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


def test_a_person_who_stops_isnt_held_by_bad_hours(start, shop):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", "two")
    copy.click("CancelButton")
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 2


@pytest.mark.parametrize("text", ["two", "", " ", "1,2,x"])
def test_hours_must_be_numeric(start, shop, text):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", text)
    copy.leave()
    copy.expect_box("Please enter a numeric amount (0.00)", "Invalid amount", buttons=["OK"])
    copy.press("OK")
    assert copy.answer["focus"] == "txtHours"
    copy.type("txtHours", "1.5")
    copy.leave()
    copy.expect_form("frmContinue")
    assert copy.answer["focus"] != "txtHours"
    assert shop.estimate(NEW) is None


@pytest.mark.parametrize("text", ["-99999999", "-21474836.48", "99999999", "1e300"])
def test_hours_that_no_line_holds_leave_all_as_it_was(start, shop, text):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    before = everything(shop)
    copy.type("txtHours", text)
    copy.key("F10")
    assert copy.expect_box(title="Lantos", icon="critical")["text"].startswith("Overflow")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert everything(shop) == before


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


@pytest.mark.parametrize("typed, shown", [("2", "2.00"), (".5", "0.50"), ("1.257", "1.26"), ("-1", "-1.00"),
                                          (" 3 ", "3.00"), ("100", "100.00")])
def test_hours_are_shown_with_two_decimals(start, shop, typed, shown):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", typed)
    copy.leave()
    assert copy.text("txtHours") == shown
    copy.click("OKButton")
    copy.press("OK")
    expect_copied(shop, labor=[applied(round(float(shown) * 100))])


@pytest.mark.parametrize("rate, typed, total", [
    (6550, "0.33", -2162), (6550, "0.35", -2292), (6550, "0.45", -2948), (0, "2", 0)])
def test_the_amount_is_rounded_half_to_even(start, shop, rate, typed, total):
    """21.615, 22.925 and 29.475 dollars."""
    shop.system["shop_rate"] = rate
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", typed)
    copy.key("F10")
    copy.press("OK")
    line = lines(shop, "Labors", NEW)[-1]
    assert (line["LaborRate"], line["LaborTotal"]) == (rate, total)


def test_the_employees_with_none_ahead_and_the_active_ones_alone(start, shop):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    active = [" None", f"{'Al Bell':<31}000003", f"{'Dan Ortiz':<31}000004"]
    whole = [*active, f"{'Eve Gone':<31}000012"]

    def shown():
        state = copy.control("EmpList")
        return [row["text"] for row in state["rows"]], state["selected"]

    assert not copy.control("Check1")["checked"]
    assert shown() == (whole, 0)
    copy.select("EmpList", row=2)
    copy.check("Check1")
    assert shown() == (active, 0), "filled anew, it stands on None again"
    copy.check("Check1", False)
    assert shown() == (whole, 0)


@pytest.mark.parametrize("row, technician", [(0, 0), (1, 3), (2, 4), (3, 123456)])
def test_the_line_names_the_technician(start, shop, row, technician):
    shop.add_employee(123456, "Zoe With A Name That Is Very Long")
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    rows = {name: at for at, name in enumerate(copy.rows("EmpList"))}
    wanted = next(name for name in rows if (technician and name.endswith(f"{technician:06}")) or
                  (not technician and name == " None"))
    copy.select("EmpList", row=rows[wanted])
    copy.type("txtHours", "1")
    copy.key("F10")
    copy.press("OK")
    expect_copied(shop, labor=[applied(100, technician=technician)])


def test_with_the_employees_out_of_reach_it_is_continued_all_the_same(start, shop):
    continued_shop(shop)
    copy = start(shop)
    with denied_to_all(shop.path("TQEMPLOY.DAT")):
        by_week_popup(copy)
        copy.expect_box("Could not access employee master file!", buttons=["OK"])
        copy.press("OK")
    copy.expect_form("frmContinue")
    copy.type("txtHours", "1")
    copy.key("F10")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    expect_copied(shop, labor=[applied(100)])


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


def test_the_line_comes_behind_the_highest_number_and_first_where_there_is_no_labor(start, shop):
    shop.add_estimate(901, TODAY, status=1, CreateDate=CREATED)
    continued_shop(shop)
    copy = start(shop)
    for number, line in ((900, 6), (901, 1)):
        copy.right_click("List1(2)", row=row_of(copy, "List1(2)", number))
        copy.choose("Continued")
        copy.type("txtHours", "1")
        copy.key("F10")
        copy.press("OK")
        new = NEW if number == 900 else NEW + 1
        assert lines(shop, "Labors", new)[-1] == applied(100, number=line)


def test_continued_twice_each_day_is_taken_off(start, shop):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", "1")
    copy.key("F10")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    copy.pick("MonthView1", WEDNESDAY)
    copy.right_click("List1(3)", row=row_of(copy, "List1(3)", NEW))
    copy.choose("Continued")
    assert copy.caption("lblHours").replace("&", "") == "Enter number of hours applied on 10/01/2003."
    copy.type("txtHours", "0.5")
    copy.key("F10")
    told(copy, "Automatically continued", "Thu 10/02/2003", since="Wed 10/01/2003")
    expect_copied(shop, NEW, labor=[applied(100)])
    expect_copied(shop, NEW + 1, labor=[applied(100), applied(50, number=7, date=WEDNESDAY)])
    assert [shop.estimate(number)["Status"] for number in (900, NEW, NEW + 1)] == [5, 5, 2]


# The next business day.


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

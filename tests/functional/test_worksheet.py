"""The paper that travels with the vehicle: the work, room for hours and parts, and what was done to it before."""

import pytest

from boardlines import CREATED, TODAY, elsewhere
from historyfiles import ACTIVE_LENGTH, ARCHIVED_LENGTH, History, order_text
from locks import denied_to_all
from test_printing import (MONDAY, NOTHING_CHOSEN, TITLE, VIN, as_text, choose, expect_on_paper, expect_preview, jobs,
                           options, text_of)
from workfiles import followup, make_followups

WORKSHEET = "Print Worksheet"
SURE = 'Current status is neither "Scheduled" nor "Arrived".\n\nAre you sure you want to print the worksheet?'
NOT_SCHEDULED = ('To print the worksheet, the current status must not be "Scheduled".\n'
                 'You must either first print the Estimate, or change the status via\n'
                 'the "Change Status" command button.')
FROM_SCHEDULED = "Shall I change the status from\nScheduled to In Progress?"
FROM_ARRIVED = "Shall I change the status from\nArrived to In Progress?"
TECH = "Tech     Hours     Description"
TECH_RULE = "______   _______   " + "_" * 82
PART_RULE = "_" * 48 + "    " + "_" * 49
NOTES = "*-*-*-*-*-*-*-*-*-*-*-*-*-* Workorder Notes *-*-*-*-*-*-*-*-*-*-*-*-*-*"
NOTES_END = "*-" * 35 + "*"
BARE = {"PrintCommentsOnWorksheet": "False", "PrintVehSummaryOnWorksheet": "False", "BlankLinesPerLabor": "0",
        "BlankPartLines": "0"}
HISTORY = {**BARE, "PrintVehSummaryOnWorksheet": "True"}
NO_CHANGE = {"ScheduledToInProgress": "N", "ArrivedToInProgress": "N"}


def car_shop(shop, vin=VIN, status=0, date=TODAY, **columns):
    """Estimate 900 on a vehicle that was last seen in May."""
    customer = shop.add_customer(7, "Adams", "Beth", spouse="Carl", spouse_last="Lee", phone="937-555-0142",
                                 Address="5 Oak Street", City="Dayton", State="OH", Zip="45402")
    vehicle = shop.add_vehicle(customer, "Ford", "Taurus", "1998", date="2003-05-06", VIN="2FAKE", Mileage=70000)
    shop.add_estimate(900, date, status=status, customer=7, vehicle=vehicle, CreateDate=CREATED, VehYear="1999",
                      VehMake="Ford", VehModel="Focus", VehVIN=vin, VehLic="ABC 123", VehMileage="51234",
                      VehEng="2.0L", VehTrans="Auto", **columns)
    return shop


def open_worksheet(start, shop, letters=None, **print_options):
    """The lines of the worksheet of estimate 900, and the copy that shows it."""
    options(shop, NO_CHANGE if letters is None else letters, **print_options)
    copy = choose(start(shop))
    return lines_of(copy), copy


def lines_of(copy):
    copy.click("cmdPrintWorksheet")
    assert copy.answer.get("waiting") == "preview", copy.answer
    assert copy.answer["columns"] == ["DataLine"]
    return [line for [line] in copy.answer["lines"]]


EMPTY_BODY = ["____Labor____", "       HOURS APPLIED ON", TECH, TECH_RULE, "____Parts____", " "]
SUMMARY = ["***** Vehicle Summary *****", " "]


def past(number, date, *labor, mileage=0, name="Adams, Beth", notes=()):
    """The lines of one work order of the past."""
    lines = [f"Workorder: {number:06} {date} Mileage: {mileage} Customer: {name}", *labor]
    if notes:
        lines += [NOTES, *notes, NOTES_END]
    return [*lines, " "]


def summary_of(lines):
    assert lines[:len(EMPTY_BODY)] == EMPTY_BODY
    assert lines[len(EMPTY_BODY):len(EMPTY_BODY) + 2] == SUMMARY
    return lines[len(EMPTY_BODY) + 2:]


def numbers_of(lines):
    return [int(line[11:17]) for line in lines if line.startswith("Workorder: ")]


# The body.


def work_shop(shop, **columns):
    car_shop(shop, Comments="Call first\r\n \r\n then wait", **columns)
    shop.add_labor(900, 1, "Brake pads\tfront\t\trear\t \tlast", 1.5, mechanic=12)
    shop.add_labor(900, 2, "1\t2\t3\t4\t5\t6\t7\t8\t9", 0.25)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3050)
    shop.add_part(900, "BULB", "HEADLIGHT BULB", 1, 1200)
    shop.add_note(900, 1, "Customer waits", "", "third", *[""] * 4, "eighth")
    shop.add_note(900, 2, "Second note")
    shop.write()
    return shop


COMMENTS = ["____Comments____", "Call first", " then wait", " "]
HEADINGS = ["____Labor____", "       HOURS APPLIED ON"]
FIRST, SECOND = ["Brake pads", "front", "rear", "last"], ["1", "2", "3", "4", "5", "6", "7", "8"]
PARTS = ["____Parts____", "PAD-9 BRAKE PADS", "BULB HEADLIGHT BULB", " "]
NOTE_LINES = ["____Notes____", "Customer waits", "third", "eighth", "Second note"]


def test_the_worksheet_of_a_shop_that_set_nothing(start, shop):
    """Comments and three rules for each labor and below the parts, but no notes."""
    work_shop(shop)
    lines, copy = open_worksheet(start, shop)
    shown = expect_preview(copy, "rptWorksheet2")
    assert shown["title"] == "Technician Worksheet for Estimate 900"
    assert shown["labels"] == {
        "lblCompanyName": "Miller's Garage", "lblMake": "1999 Ford Focus", "lblEngTran": "2.0L Auto", "lblVIN": VIN,
        "lblLic": "ABC 123", "lblLastSeen": "05/06/2003", "lblLastMiles": "70000", "lblWONumber": "900",
        "lblDate": "09/30/2003", "lblCustName": "Beth Adams", "lblSpouse": "Carl Lee", "lblAddress": "5 Oak Street",
        "lblCSZ": "Dayton, OH 45402", "lblPhone": " 937-555-0142", "lblPage": "Page 1 of 1"}
    rules = [TECH, TECH_RULE, TECH_RULE, TECH_RULE]
    whole = COMMENTS + HEADINGS + FIRST + rules + SECOND + rules + PARTS + [PART_RULE] * 3 + SUMMARY
    assert lines == whole
    copy.send(do="print")
    copy.close()
    copy.expect_form("frmMain")
    [job] = jobs(copy)
    assert job["printed"] == "rptWorksheet2" and text_of(job) == as_text(shown["lines"])
    assert ("pdf" in job) == (copy.desktop == "qt")
    if copy.desktop == "qt":
        expect_on_paper(job, shown["lines"], [*list(shown["labels"].values())[:-1], "Technician Worksheet"])


def test_the_worksheet_without_its_customer(start, shop):
    work_shop(shop)
    lines, copy = open_worksheet(start, shop, PrintCustomerOnWorksheet="False", **BARE)
    shown = expect_preview(copy, "rptWorksheet1")
    assert shown["title"] == "Technician Worksheet for Estimate 900"
    assert sorted(shown["labels"]) == sorted([
        "lblCompanyName", "lblMake", "lblEngTran", "lblVIN", "lblLic", "lblLastSeen", "lblLastMiles", "lblWONumber",
        "lblDate", "lblPage"])
    assert lines == HEADINGS + [TECH, TECH_RULE] + FIRST + SECOND + PARTS
    copy.send(do="print")
    [job] = jobs(copy)
    assert job["printed"] == "rptWorksheet1"
    if copy.desktop == "qt":
        expect_on_paper(job, shown["lines"], ["Mechanic Worksheet", "1999 Ford Focus"])


def test_without_blank_lines_the_rule_stands_once_above_the_labor(start, shop):
    work_shop(shop)
    lines, _ = open_worksheet(start, shop, **{**BARE, "PrintCommentsOnWorksheet": "True"})
    assert lines == COMMENTS + HEADINGS + [TECH, TECH_RULE] + FIRST + SECOND + PARTS


@pytest.mark.parametrize("labor, part", [(1, 0), (0, 2), (5, 1)])
def test_so_many_rules_as_the_options_say(start, shop, labor, part):
    work_shop(shop)
    lines, _ = open_worksheet(start, shop, **{**BARE, "BlankLinesPerLabor": labor, "BlankPartLines": part})
    rules = [TECH] + [TECH_RULE] * labor if labor else []
    once = [] if labor else [TECH, TECH_RULE]
    assert lines == HEADINGS + once + FIRST + rules + SECOND + rules + PARTS + [PART_RULE] * part


def test_notes_are_printed_where_the_shop_wants_them(start, shop):
    work_shop(shop)
    lines, _ = open_worksheet(start, shop, PrintNotesOnWorksheet="True", **BARE)
    assert lines == HEADINGS + [TECH, TECH_RULE] + FIRST + SECOND + PARTS + NOTE_LINES


@pytest.mark.parametrize("comments", [None, "", "   "])
def test_an_estimate_without_content_keeps_the_headings_of_work_and_parts_alone(start, shop, comments):
    car_shop(shop, Comments=comments).write()
    lines, _ = open_worksheet(start, shop, PrintNotesOnWorksheet="True",
                              **{**BARE, "PrintCommentsOnWorksheet": "True"})
    assert lines == EMPTY_BODY


def test_a_line_is_cut_at_255_characters(start, shop):
    car_shop(shop, Comments="c" * 300).write()
    lines, _ = open_worksheet(start, shop, **{**BARE, "PrintCommentsOnWorksheet": "True"})
    assert lines[:3] == ["____Comments____", "c" * 255, " "]


def test_comments_still_being_typed_are_printed(start, shop):
    car_shop(shop, Comments="Old").write()
    options(shop, NO_CHANGE, **{**BARE, "PrintCommentsOnWorksheet": "True"})
    copy = choose(start(shop))
    copy.click("cmdDetailView")
    copy.type("txtComments", "New")
    copy.menu("mnuPrintWorksheet")
    assert [line for [line] in expect_preview(copy, "rptWorksheet2")["lines"]][:3] == ["____Comments____", "New", " "]


def test_part_numbers_stand_on_the_worksheet_whatever_the_estimates_option_says(start, shop):
    work_shop(shop)
    lines, _ = open_worksheet(start, shop, ShowPartNumbersOnEst="False", **BARE)
    assert lines[-4:] == PARTS


def test_a_vehicle_that_is_in_no_file_was_never_seen(start, shop):
    shop.add_estimate(900, TODAY, CreateDate=CREATED)
    shop.write()
    _, copy = open_worksheet(start, shop, **BARE)
    labels = copy.answer["labels"]
    assert (labels["lblLastSeen"], labels["lblLastMiles"]) == ("", "")


def test_a_vehicle_without_a_date_has_its_miles(start, shop):
    customer = shop.add_customer(7, "Adams", "Beth")
    vehicle = shop.add_vehicle(customer, "Ford", Mileage=12)
    shop.add_estimate(900, TODAY, customer=7, vehicle=vehicle, CreateDate=CREATED)
    shop.write()
    _, copy = open_worksheet(start, shop, **BARE)
    labels = copy.answer["labels"]
    assert (labels["lblLastSeen"], labels["lblLastMiles"]) == ("", "12")


# Followups.


def test_what_earlier_work_orders_recommended_stands_below(start, shop):
    car_shop(shop).write()
    make_followups(shop, [
        followup(7, "Timing belt\tat the dealer", vin=VIN, date="2003-12-24", miles=60000),
        followup(7, "Used up", vin=VIN, active=0),
        followup(8, "Another customer", vin=VIN),
        followup(7, "Another car", vin="OTHER"),
        followup(7, "Plugs", vin=VIN, date="2004-01-02"),
    ])
    lines, _ = open_worksheet(start, shop, **BARE)
    block = lines[len(EMPTY_BODY):]
    assert lines[:len(EMPTY_BODY)] == EMPTY_BODY
    assert [line.split() for line in block] == [
        ["Service", "Due", "Back"],
        ["Timing", "belt", "12/24/2003", "60000", "mi"], ["_" * 24, "_" * 14],
        ["Plugs", "01/02/2004"], ["_" * 24, "_" * 14]]
    due = block[0].index("  Due Back")
    assert block[0].startswith("  Service ") and {line[due:due + 2] for line in block} == {"  "}
    assert all(line.startswith("  ") and line[due + 2] != " " for line in block), "both columns stand in line"


def test_without_followups_there_is_no_block(start, shop):
    car_shop(shop).write()
    make_followups(shop, [followup(7, "Another car", vin="OTHER")])
    lines, _ = open_worksheet(start, shop, **BARE)
    assert lines == EMPTY_BODY


def test_without_a_vin_followups_go_by_the_license(start, shop):
    car_shop(shop, vin=" ").write()
    make_followups(shop, [followup(7, "Plugs", license="ABC 123", date="2004-01-02"),
                          followup(7, "Other", license="XYZ")])
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert [line.split() for line in lines[len(EMPTY_BODY):]] == [
        ["Service", "Due", "Back"], ["Plugs", "01/02/2004"], ["_" * 24, "_" * 14]]


# The vehicle summary.


def write_history(shop, history):
    car_shop(shop).write()
    history.write(shop)
    return shop


def test_the_past_of_a_vehicle_newest_first_and_the_active_ones_ahead(start, shop):
    history = History(VIN)
    history.add_active(4001, opened="2003-09-29", labor=[["Oil change", "with filter"], ["Test drive"]],
                       mileage=49000, notes=[["n1", "", "n3"], ["m1"]])
    history.add_archived(3001, status="PAID", paid="2003-03-01", labor=[["Tires"]], mileage=42000, last="Baker",
                         first="Ann")
    history.add_active(4002, opened=TODAY, mileage=49100)
    history.add_archived(3002, status="PAID", paid="2003-07-01", mileage=45000)
    history.add_active(4003, opened="2003-09-29", mileage=49050)
    write_history(shop, history)
    lines, copy = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == [
        *past(4002, "09/30/2003", mileage=49100),
        *past(4003, "09/29/2003", mileage=49050),
        *past(4001, "09/29/2003", "       Oil change", "       Test drive", mileage=49000, notes=["n1", "n3", "m1"]),
        *past(3002, "07/01/2003", mileage=45000),
        *past(3001, "03/01/2003", "       Tires", mileage=42000, name="Baker, Ann")]
    handle = [line for line in copy.log_lines() if "requested by cmdPrintWorksheet" in line]
    assert len(handle) == 1, "the open-file log tells who reads the archive's tags"


@pytest.mark.parametrize("status, date", [
    ("OPEN", "01/02/2003"), ("VOID", "01/02/2003"), ("CLOSED", "03/04/2003"), ("ON ACCT", "03/04/2003"),
    ("PAID", "05/06/2003")])
def test_the_date_of_a_work_order_goes_by_its_status(start, shop, status, date):
    dates = {"opened": "2003-01-02", "closed": "2003-03-04", "paid": "2003-05-06"}
    history = History(VIN)
    history.add_active(4001, status=status, **dates)
    history.add_archived(3001, status=status, **dates)
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == past(4001, date) + past(3001, date)


def test_only_the_years_asked_for_are_looked_at_and_both_ends_count(start, shop):
    history = History(VIN)
    for number, day in enumerate(("2001-09-29", "2001-09-30", "2002-09-29", "2002-09-30", TODAY, "2003-10-01"), 1):
        history.add_active(4000 + number, opened=day)
        history.add_archived(3000 + number, paid=day)
    write_history(shop, history)
    for years, wanted in ((1, [4, 5]), (2, [2, 3, 4, 5]), (0, [5])):
        lines, copy = open_worksheet(start, shop, **HISTORY, VehSummaryYears=years)
        newest_first = wanted[::-1]
        assert numbers_of(lines) == [4000 + n for n in newest_first] + [3000 + n for n in newest_first]
        copy.cut()


def test_with_0_years_only_todays_work_orders_count(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=MONDAY)
    history.add_active(4002, opened=TODAY)
    history.add_archived(3001, paid=MONDAY)
    history.add_archived(3002, paid=TODAY)
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY, VehSummaryYears=0)
    assert summary_of(lines) == past(4002, "09/30/2003") + past(3002, "09/30/2003")


def test_a_year_back_from_a_leap_day_is_the_28th(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid="2003-02-27")
    history.add_archived(3002, paid="2003-02-28")
    car_shop(shop, date="2004-02-29").write()
    history.write(shop)
    options(shop, NO_CHANGE, **HISTORY)
    copy = start(shop, now="2004-02-29T08:15:00")
    choose(copy, panel=0)
    assert numbers_of(lines_of(copy)) == [3002]


def test_a_work_order_outside_the_window_is_skipped_without_opening_its_file(start, shop):
    """Its text is missing, and nobody is asked about that."""
    history = History(VIN)
    history.add_active(4001, opened="2001-01-01", text="")
    history.add_active(4002, opened="2003-10-01", text="")
    history.add_active(4003, opened=TODAY, vin="OTHER", text="")
    history.add_archived(3001, paid="2001-01-01", text="nothing of the kind\r\n")
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == []


@pytest.mark.parametrize("vin, count", [
    (VIN, 2), (VIN.lower(), 0), (VIN[:-1], 0), (VIN + "7", 0), (f" {VIN} ", 2), (f"{VIN}\0junk", 2), ("", 0)])
def test_a_vin_that_differs_only_in_case_does_not_match(start, shop, vin, count):
    """Blanks around it don't matter."""
    history = History(VIN)
    history.add_active(4001, opened=TODAY, vin=vin)
    history.add_archived(3001, paid=TODAY, vin=vin)
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert numbers_of(summary_of(lines)) == [4001, 3001][:count]


def test_the_vin_of_the_estimate_is_trimmed(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    car_shop(shop, vin=f"  {VIN} ").write()
    history.write(shop)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == past(4001, "09/30/2003")


@pytest.mark.parametrize("vin", [None, "", " "])
def test_a_vehicle_without_a_vin_has_no_summary_at_all(start, shop, vin):
    history = History("")
    history.add_active(4001, opened=TODAY)
    car_shop(shop, vin=vin).write()
    history.write(shop)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert lines == EMPTY_BODY


def test_a_work_order_without_its_date_belongs_to_no_year(start, shop):
    car_shop(shop).write()
    history = History(VIN)
    history.add_active(4001, status="PAID", opened=TODAY)
    history.write(shop)
    lines, _ = open_worksheet(start, shop, **HISTORY, VehSummaryYears=150)
    assert not [line for line in lines if line.startswith("Workorder: ")]


def test_nothing_is_held_while_the_operator_is_asked(start, shop):
    shop.add_customer(8, "Baker", "Ann")
    car_shop(shop).write()
    history = History(VIN)
    history.add_active(4002, opened=TODAY, text=order_text(4002).replace("CustomerNumber=7", "CustomerNumber=8"))
    history.add_active(4001, opened=TODAY)
    history.write(shop)
    shop.path("W0004001.tqa").unlink()
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    copy.expect_box()
    for name in ("TQCSTDAT.DAT", "TQOPENWO.DAT", "TQINCTAG.DAT"):
        with denied_to_all(shop.path(name)):
            pass
    copy.press("Cancel")
    assert copy.answer["waiting"] == "preview"


def test_what_past_work_orders_say_is_no_work_order_of_the_estimate(start, shop):
    """A price is proposed at the level of the current work order, and none is open."""
    car_shop(shop).write()
    history = History(VIN)
    history.add_active(4001, opened=TODAY, text=order_text(4001).replace("Pricing=Retail", "Pricing=Wholesale"))
    history.write(shop)
    options(shop, NO_CHANGE, **HISTORY)
    proposals = []
    copy = choose(start(shop))
    copy.click("cmdDetailView")
    for _ in range(2):
        copy.click("cmdPartAddNonStock")
        copy.type("CostPrice", "10")
        copy.leave()
        proposals.append(copy.text("ListPrice"))
        copy.key("Esc")
        while copy.answer["waiting"] == "box":
            copy.press("Yes")
        copy.click("cmdPrintWorksheet")
        assert copy.answer["waiting"] == "preview"
        copy.close()
    assert proposals[0] == proposals[1] != ""


def test_the_summary_is_left_out_where_the_shop_wants_that(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY, text="")
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **BARE)
    assert lines == EMPTY_BODY


EIGHT = ["first", "second", "", "fourth", " ", "sixth", "seventh", "eighth"]


@pytest.mark.parametrize("shown, lines", [
    (0, 1), (1, 1), (2, 2), (3, 2), (4, 3), (5, 3), (6, 4), (7, 5), (8, 6), (9, 6)])
def test_so_many_lines_of_each_labor_as_the_option_says(start, shop, shown, lines):
    """With 1 the first one alone. A blank line counts and isn't printed."""
    history = History(VIN)
    history.add_active(4001, opened=TODAY, labor=[EIGHT, ["other", "line"]])
    write_history(shop, history)
    printed, _ = open_worksheet(start, shop, **HISTORY, VehSummaryLaborLines=shown)
    full = [f"       {text}" for text in EIGHT if text.strip()]
    other = ["       other", "       line"] if shown >= 2 else ["       other"]
    assert summary_of(printed) == past(4001, "09/30/2003", *full[:lines], *other)


def test_removed_labor_is_skipped_and_its_first_line_may_be_blank(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY, labor=[["", "second"], ["free", "gone"], ["kept"], ["done"], ["behind"]])
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY, VehSummaryLaborLines=2)
    assert summary_of(lines) == past(4001, "09/30/2003", "       ", "       second", "       kept")


def test_tags_of_active_work_orders_in_the_archive_are_skipped(start, shop):
    """They count once, among the active ones; a closed one that is no longer there at all doesn't count."""
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    history.add_archived(3001, paid=TODAY, offset=-1, text="")
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert numbers_of(summary_of(lines)) == [4001]


def test_an_archived_tag_at_offset_0_is_read(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY, mileage=7)
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == past(3001, "09/30/2003", mileage=7)


def test_an_old_date_is_the_bare_day(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    write_history(shop, history)
    tags = bytearray(history.archived)
    tags[83:87] = (37894).to_bytes(4, "little")  # 30 September 2003
    shop.path("TQINCTAG.DAT").write_bytes(tags)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == past(3001, "09/30/2003")


def test_a_shop_without_work_orders_has_a_bare_summary(start, shop):
    car_shop(shop).write()
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == []


def test_hundreds_of_work_orders_are_looked_through(start, shop):
    history = History(VIN)
    for number in range(1, 601):
        mine = number in (1, 256, 257, 600)
        history.add_active(number, opened=TODAY, vin=VIN if mine else "OTHER", text=None if mine else "")
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert numbers_of(summary_of(lines)) == [600, 257, 256, 1]


# What can't be read.


def missing(name):
    return "File not found: \nClick Retry to try again, or Cancel to skip.", f"GetCurrWoRec({name})"


def expect_retry(copy, text, title):
    copy.expect_box(text, title, buttons=["Retry", "Cancel"])


def open_damaged(start, shop, history):
    write_history(shop, history)
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    return copy


def summary_on_show(copy):
    assert copy.answer["waiting"] == "preview", copy.answer
    return summary_of([line for [line] in copy.answer["lines"]])


def test_a_missing_text_is_asked_about_and_found_on_retry(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY, text="")
    copy = open_damaged(start, shop, history)
    for _ in range(2):
        expect_retry(copy, *missing("W0004001.tqa"))
        copy.press("Retry")
    shop.path("W0004001.tqa").write_bytes(order_text(4001, mileage=5).encode())
    copy.press("Retry")
    assert summary_on_show(copy) == past(4001, "09/30/2003", mileage=5)


def test_cancel_skips_a_missing_text_and_the_report_goes_on(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    history.add_active(4002, opened=TODAY, text="")
    history.add_active(4003, opened=MONDAY, file="", text="")
    history.add_archived(3001, paid=TODAY)
    copy = open_damaged(start, shop, history)
    expect_retry(copy, *missing("W0004002.tqa"))
    copy.press("Cancel")
    expect_retry(copy, *missing(""))
    copy.press("Cancel")
    assert numbers_of(summary_on_show(copy)) == [4001, 3001]


def test_a_text_that_somebody_writes_is_asked_about_until_it_is_free(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    write_history(shop, history)
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    with denied_to_all(shop.path("W0004001.tqa")):
        copy.click("cmdPrintWorksheet")
        held = ("File locked by another user.\nClick Retry to try again, or Cancel to skip.",
                "GetCurrWoRec(W0004001.tqa)")
        expect_retry(copy, *held)
        copy.press("Retry")
        expect_retry(copy, *held)
        copy.press("Cancel")
        assert summary_on_show(copy) == []
        copy.close()
        copy.click("cmdPrintWorksheet")
        expect_retry(copy, *held)
    copy.press("Retry")
    assert summary_on_show(copy) == past(4001, "09/30/2003")


def test_a_held_archive_is_asked_about_for_each_of_its_work_orders(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    history.add_archived(3002, paid=TODAY)
    write_history(shop, history)
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    held = ("File locked by another user.\nClick Retry to try again, or Cancel to exit.", "GetArchWo(TQINVOIC.DAT)")
    with denied_to_all(shop.path("TQINVOIC.DAT")):
        copy.click("cmdPrintWorksheet")
        expect_retry(copy, *held)
        copy.press("Cancel")
        expect_retry(copy, *held)
    copy.press("Retry")
    assert numbers_of(summary_on_show(copy)) == [3001]


def test_an_archive_tag_that_leads_elsewhere_is_told_and_skipped(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    history.add_archived(3002, paid=TODAY, offset=5)
    copy = open_damaged(start, shop, history)
    copy.expect_box("Possible corrupted tag file - run KRVLCLEN", "GetArchWo()", "critical", ["OK"])
    copy.press("OK")
    assert numbers_of(summary_on_show(copy)) == [3001]


def test_an_archive_that_has_another_work_order_there_is_told_and_skipped(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    history.add_archived(3002, paid=TODAY, offset=0)
    copy = open_damaged(start, shop, history)
    copy.expect_box("Possible corrupted archive file - run KRVLCLEN", "GetArchWo()", "critical", ["OK"])
    copy.press("OK")
    assert numbers_of(summary_on_show(copy)) == [3001]


def test_a_missing_archive_is_taken_for_a_locked_one(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    write_history(shop, history)
    shop.path("TQINVOIC.DAT").unlink()
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    expect_retry(copy, "File locked by another user.\nClick Retry to try again, or Cancel to exit.",
                 "GetArchWo(TQINVOIC.DAT)")
    copy.press("Cancel")
    assert summary_on_show(copy) == []
    copy.close()
    copy.click("cmdPrintWorksheet")
    shop.path("TQINVOIC.DAT").write_bytes(history.archive)
    copy.press("Retry")
    assert summary_on_show(copy) == past(3001, "09/30/2003")


@pytest.mark.parametrize("file, length, routine", [
    ("TQOPENWO.DAT", ACTIVE_LENGTH, "ReadActiveWO"), ("TQINCTAG.DAT", ARCHIVED_LENGTH, "ReadArchWO")])
def test_tags_that_are_no_longer_whole_are_told_and_read_from_the_end(start, shop, file, length, routine):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    history.add_archived(3001, paid=TODAY)
    write_history(shop, history)
    shop.path(file).write_bytes(b"\0" * 10 + shop.path(file).read_bytes())
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    copy.expect_box(f"Invalid offset supplied to {routine} = 10", buttons=["OK"])
    copy.press("OK")
    assert numbers_of(summary_on_show(copy)) == [4001, 3001]
    copy.close()
    shop.path(file).write_bytes(b"\0" * (length - 1))
    copy.click("cmdPrintWorksheet")
    assert numbers_of(summary_on_show(copy)) == ([3001] if routine == "ReadActiveWO" else [4001])


# Whether it is printed at all, and the status that follows.


def test_with_no_estimate_chosen_the_title_is_the_estimates(start, shop):
    car_shop(shop).write()
    copy = start(shop)
    copy.click("cmdPrintWorksheet")
    copy.expect_box(NOTHING_CHOSEN, TITLE, buttons=["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")


@pytest.mark.parametrize("status", [2, 3, 4, 5, 6, 7, 8, 9])
def test_a_status_above_arrived_asks_first(start, shop, status):
    car_shop(shop, status=status).write()
    options(shop, {"ScheduledToInProgress": "Y", "ArrivedToInProgress": "Y"}, **BARE)
    copy = choose(start(shop))
    before = shop.hashes(but=("LN*", "TQFOLLOW.DAT"))
    copy.click("cmdPrintWorksheet")
    copy.expect_box(SURE, WORKSHEET, "none", ["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmMain")
    copy.click("cmdPrintWorksheet")
    copy.press("Yes")
    expect_preview(copy, "rptWorksheet2")
    copy.close()
    copy.expect_form("frmMain")
    assert shop.hashes(but=("LN*", "TQFOLLOW.DAT")) == before


def test_a_past_scheduled_estimate_is_a_no_show_to_the_worksheet(start, shop):
    car_shop(shop, date=MONDAY).write()
    options(shop, {"ScheduledToInProgress": "E"}, **BARE)
    copy = choose(start(shop), panel=1)
    copy.click("cmdPrintWorksheet")
    copy.expect_box(SURE, WORKSHEET)
    copy.press("Yes")
    expect_preview(copy, "rptWorksheet2")
    copy.close()
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 0


def test_a_scheduled_estimate_is_refused_where_the_shop_wants_that(start, shop):
    car_shop(shop).write()
    options(shop, {"ScheduledToInProgress": "E", "ArrivedToInProgress": "Y"}, **BARE)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    copy.expect_box(NOT_SCHEDULED, WORKSHEET, buttons=["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 0
    elsewhere(shop, "UPDATE Estimates SET Status = 1")
    choose(copy)
    lines_of(copy)
    copy.close()
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 2


@pytest.mark.parametrize("status, option, question", [
    (0, "ScheduledToInProgress", FROM_SCHEDULED), (1, "ArrivedToInProgress", FROM_ARRIVED)])
@pytest.mark.parametrize("letter, answer, changes", [
    ("Y", None, True), ("A", "Yes", True), ("A", "No", False), ("N", None, False), ("X", None, False)])
def test_a_printed_worksheet_puts_the_work_in_progress_as_the_option_says(start, shop, status, option, question, letter,
                                                                         answer, changes):
    car_shop(shop, status=status).write()
    other = "ArrivedToInProgress" if status == 0 else "ScheduledToInProgress"
    options(shop, {option: letter, other: "N" if letter == "Y" else "Y"}, **BARE)
    copy = choose(start(shop))
    lines_of(copy)
    assert shop.estimate(900)["Status"] == status, "not before the paper is out"
    copy.close()
    if answer:
        copy.expect_box(question, TITLE, "none", ["Yes", "No"])
        copy.press(answer)
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == (2 if changes else status)
    if changes:
        assert copy.rows("List1(2)")[0] == "000900 In Progress"


def test_an_arrived_estimate_isnt_refused_by_an_e_of_its_own(start, shop):
    car_shop(shop, status=1).write()
    _, copy = open_worksheet(start, shop, {"ArrivedToInProgress": "E"}, **BARE)
    copy.close()
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 1


@pytest.mark.parametrize("dialog", [True, False])
def test_without_preview_it_goes_to_the_printer(start, shop, dialog):
    car_shop(shop).write()
    options(shop, {"ScheduledToInProgress": "Y"}, PreviewWorksheet="False", PreviewEstimate="True",
            ShowPrinterDialog=str(dialog), **BARE)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    if dialog:
        assert copy.answer == {"waiting": "printer", "report": "rptWorksheet2"}
        copy.send(do="print")
    copy.expect_form("frmMain")
    [job] = jobs(copy)
    assert text_of(job) == as_text([line] for line in EMPTY_BODY)
    assert shop.estimate(900)["Status"] == 2
    if copy.desktop == "qt":
        expect_on_paper(job, [[line] for line in EMPTY_BODY], ["Beth Adams"])


def test_the_printed_worksheet_of_a_long_past_goes_over_pages(start, shop):
    history = History(VIN)
    for number in range(1, 61):
        history.add_archived(3000 + number, paid=TODAY, labor=[[f"Work of {number}"]])
    write_history(shop, history)
    lines, copy = open_worksheet(start, shop, **HISTORY)
    assert numbers_of(lines) == list(range(3060, 3000, -1))
    assert copy.answer["pages"] > 1
    assert copy.answer["labels"]["lblPage"] == f"Page 1 of {copy.answer['pages']}"

"""The paper that travels with the vehicle: the work, room for hours and parts, and what was done to it before."""

import pytest

from boardlines import CREATED, TODAY, elsewhere
from historyfiles import History
from printsteps import (MONDAY, NOTHING_CHOSEN, TITLE, VIN, as_text, choose, expect_on_paper, expect_preview, jobs,
                           options, pdf_pages, text_of)
from workfiles import followup, make_followups
from worksheetsteps import (BARE, EMPTY_BODY, HISTORY, NO_CHANGE, SUMMARY, TECH, TECH_RULE, car_shop, lines_of,
                            numbers_of, open_worksheet, write_history)

WORKSHEET = "Print Worksheet"
SURE = 'Current status is neither "Scheduled" nor "Arrived".\n\nAre you sure you want to print the worksheet?'
NOT_SCHEDULED = ('To print the worksheet, the current status must not be "Scheduled".\n'
                 'You must either first print the Estimate, or change the status via\n'
                 'the "Change Status" command button.')
FROM_SCHEDULED = "Shall I change the status from\nScheduled to In Progress?"
FROM_ARRIVED = "Shall I change the status from\nArrived to In Progress?"
PART_RULE = "_" * 48 + "    " + "_" * 49


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


def test_all_of_a_long_comment_is_on_paper(start, shop):
    comment = " ".join(f"Remark{number}" for number in range(40))[:255].rstrip()
    car_shop(shop, Comments=comment)
    shop.add_labor(900, 1, "Brake pads", 1.5)
    shop.write()
    lines, copy = open_worksheet(start, shop, PrintCommentsOnWorksheet="True", PrintVehSummaryOnWorksheet="False")
    assert lines[:2] == ["____Comments____", comment]
    copy.send(do="print")
    [job] = jobs(copy)
    assert text_of(job) == as_text([[line] for line in lines])
    if copy.desktop == "qt":
        [paper] = pdf_pages(job["pdf"])
        assert "".join(comment.split()) in "".join("".join(paper).split())


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

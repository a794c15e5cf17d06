"""Labor lines: adding, changing and removing them, and what follows: database, list, hours, colours and totals."""

import contextlib
import sqlite3

import pytest

from boardlines import GOOD, UNDER, hours_of
from workfiles import followup, make_followups, one_estimate, show, texts, totals


@pytest.fixture
def board(start, shop):
    """An estimate with one labor line of technician 4, 1.00 hour, on a day of 16 hours."""
    one_estimate(shop, VehVIN="VIN123")
    shop.add_labor(900, 3, "CHECK BRAKES\t\tROAD TEST\t\t\t\t\t", 1, mechanic=4)
    shop.write()
    make_followups(shop, [followup(7, "TIMING BELT\tDUE", vin="VIN123", mechanic=4, hours=250, rate=8000, total=20000),
                          followup(7, "USED", vin="VIN123", active=0), followup(8, "OTHER", vin="VIN123"),
                          followup(7, "NO SUCH VIN", vin="VIN999")])
    return show(start(shop))


def labors(shop):
    return shop.query("SELECT LaborNumber, Description, LaborHours, LaborRate, LaborTotal, Mechanic FROM Labors "
                      "WHERE EstimateNumber = 900 ORDER BY LaborNumber")


def labor(number, description, hours, rate, total, mechanic):
    return {"LaborNumber": number, "Description": description, "LaborHours": hours, "LaborRate": rate,
            "LaborTotal": total, "Mechanic": mechanic}


OLD = labor(3, "CHECK BRAKES\t\tROAD TEST\t\t\t\t\t", 100, 6500, 6500, 4)


def test_a_line_typed_from_the_keyboard_alone(board, shop):
    board.click("cmdLaborAdd")
    board.expect_form("frmLabor")
    assert board.answer["caption"] == "Estimate Labor"
    assert [board.text(name) for name in ("Hours", "ShopRate", "TotalLabor")] == ["0.00", "65.00", "0.00"]
    assert board.control("Check2")["checked"], "the new line has no technician yet"
    assert not board.control("cmdTechHours")["visible"]
    assert not board.control("lovRepairCode")["visible"]
    board.type("Hours", "2.5")
    board.key("Enter")
    assert board.answer["focus"] == "ShopRate"
    assert board.text("TotalLabor") == "162.50"
    board.key("Enter")
    assert board.answer["focus"] == "TotalLabor"
    board.key("Enter")
    assert board.answer["focus"] == "txtDesc"
    board.type("txtDesc", "Replace pads\nroad test")
    board.select("EmpList", text="Dan Ortiz")
    board.key("F10")
    board.expect_form("frmMain")
    assert labors(shop) == [OLD, labor(4, "REPLACE PADS\tROAD TEST\t\t\t\t\t\t", 250, 6500, 16250, 4)]
    assert texts(board, "listLabor") == [
        "000004 1.00 65.00 65.00", "       CHECK BRAKES", "       ROAD TEST",
        "000004 2.50 65.00 162.50", "       REPLACE PADS", "       ROAD TEST"]
    assert totals(board) == ["3.50", "227.50", "0.00", "0.00", "0.00", "0.00", "227.50"]
    assert hours_of(board) == ("Tue 9/30", "16.00", "3.50", "-12.50", "Under", UNDER)


def test_the_days_colour_follows_the_hours(board):
    board.click("cmdLaborAdd")
    board.type("Hours", "15")
    board.type("txtDesc", "overhaul")
    board.key("F10")
    assert hours_of(board) == ("Tue 9/30", "16.00", "16.00", "0.00", "Good", GOOD)
    assert board.control("frameWeek(2)")["backcolor"] == GOOD


def test_a_changed_line_keeps_its_number(board, shop):
    board.select("listLabor", row=2)
    board.click("cmdLaborChange")
    assert board.text("txtDesc") == "CHECK BRAKES\nROAD TEST"
    board.type("TotalLabor", "50")
    board.key("F10")
    assert labors(shop) == [labor(3, "CHECK BRAKES\tROAD TEST\t\t\t\t\t\t", 100, 6500, 5000, 4)], "typed, not worked out"
    assert texts(board, "listLabor")[0] == "000004 1.00 65.00 50.00"


def test_overtyping_the_total_and_then_touching_the_hours_recomputes_it(board):
    board.select("listLabor", row=0)
    board.click("cmdLaborChange")
    board.type("TotalLabor", "50")
    board.type("Hours", "2")
    assert board.text("TotalLabor") == "130.00"


def test_removing_a_labor_row_selected_on_a_description_row_removes_the_whole_line(board, shop):
    board.select("listLabor", row=1)
    board.click("cmdLaborRemove")
    board.expect_box("Remove\n    CHECK BRAKES\nfrom this estimate?", "Remove Labor", "none", ["Yes", "No"])
    board.press("No")
    assert labors(shop) == [OLD]
    board.click("cmdLaborRemove")
    board.press("Yes")
    assert labors(shop) == [] and texts(board, "listLabor") == []
    assert hours_of(board)[2:4] == ("0.00", "-16.00")
    board.click("cmdLaborRemove")
    board.expect_box("Must select a labor item in order to remove it.", "Remove Labor")
    board.press("OK")
    board.click("cmdLaborChange")
    board.expect_box("Must select a labor item in order to change it.", "Change Labor")
    board.press("OK")


def test_only_an_empty_description_stops_a_line_of_rate_0_and_hours_0(board, shop):
    board.click("cmdLaborAdd")
    board.type("ShopRate", "0")
    board.key("F10")
    board.expect_box("The labor description is required.")
    board.press("OK")
    assert board.answer["focus"] == "txtDesc"
    board.type("txtDesc", "free")
    board.key("F10")
    assert labors(shop)[1] == labor(4, "FREE\t\t\t\t\t\t\t", 0, 0, 0, 0)


def test_a_long_word_without_a_blank_ends_the_save_and_nothing_is_written(board, shop):
    board.click("cmdLaborAdd")
    board.type("txtDesc", "x" * 65)
    board.key("F10")
    board.expect_box(title="Lantos", icon="critical")
    assert board.events("failure")
    board.press("OK")
    board.expect_form("frmLabor")
    assert labors(shop) == [OLD]
    board.type("txtDesc", "x" * 64)
    board.key("F10")
    assert labors(shop)[1]["Description"] == "X" * 64 + "\t" * 7


def test_a_rest_behind_the_eighth_line_is_told_and_a_ninth_line_is_dropped_silently(board, shop):
    board.click("cmdLaborAdd")
    board.type("txtDesc", "1\n2\n3\n4\n5\n6\n7\n8\n9")
    board.key("F10")
    board.expect_form("frmMain")
    assert labors(shop)[1]["Description"] == "1\t2\t3\t4\t5\t6\t7\t8"
    board.click("cmdLaborAdd")
    board.type("txtDesc", "1\n2\n3\n4\n5\n6\n7\n" + "y" * 60 + " over")
    board.key("F10")
    board.expect_box("Labor description exceeded maximum allowed.\nThe following text was truncated:\nover",
                     "Labor description trunctated.")
    board.press("OK")
    assert labors(shop)[2]["Description"] == "1\t2\t3\t4\t5\t6\t7\t" + "Y" * 60


def test_cancel_asks_only_about_changes(board, shop):
    board.click("cmdLaborAdd")
    board.key("Esc")
    board.expect_form("frmMain")
    board.click("cmdLaborAdd")
    board.type("Hours", "1")
    board.key("Esc")
    board.expect_box("Discard changes?", buttons=["Yes", "No", "Cancel"])
    board.press("No")
    board.expect_form("frmLabor")
    board.key("Esc")
    board.press("Yes")
    board.expect_form("frmMain")
    assert labors(shop) == [OLD]


def test_the_boxes_beside_the_technicians(board):
    board.click("cmdLaborAdd")
    assert texts(board, "EmpList") == [" None", f"{'Dan Ortiz':<31}000004", f"{'Eve Gone':<31}000005"]
    board.check("Check1")
    assert texts(board, "EmpList") == [" None", f"{'Dan Ortiz':<31}000004"]
    board.select("EmpList", row=1)
    board.check("Check2", False)
    assert texts(board, "EmpList") == [f"{'Dan Ortiz':<31}000004"]
    assert board.text("EmpList") == f"{'Dan Ortiz':<31}000004"
    board.check("Check1", False)
    board.expect_box("Discard changes?")
    board.press("No")
    assert board.control("Check1")["checked"]
    board.key("Esc")
    board.press("Yes")
    board.select("listLabor", row=0)
    board.click("cmdLaborChange")
    assert not board.control("Check2")["checked"], "kept from the last use"


def test_followup_fields_fill_one_another_and_refuse_what_they_cant_mean(board):
    board.click("cmdLaborAdd")
    board.type("txtDesc", "belt")
    board.type("Miles", "6000")
    board.leave()
    # 6000 miles at 12000 a year are 182.5 days, to the even 182.
    assert board.text("FollowupDate") == "03/30/2004"
    board.type("Miles", "")
    board.type("FollowupDate", "never")
    board.key("F10")
    board.expect_box("Followup information is invalid.")
    board.press("OK")
    board.type("FollowupDate", "")
    board.key("F10")
    board.expect_form("frmMain")


def test_followups_become_labor_lines_and_are_used_up(board, shop):
    before = shop.path("TQFOLLOW.DAT").read_bytes()
    board.click("cmdLaborFollowup")
    board.expect_form("frmEstFollowup")
    assert texts(board, "List1") == ["09/30/2003 TIMING BELT\tDUE"]
    board.key("F10")
    board.expect_box("No items were selected.")
    board.press("OK")
    board.check("List1", row=0)
    board.key("F10")
    board.expect_form("frmMain")
    assert labors(shop)[1] == labor(4, "TIMING BELT\tDUE\t\t\t\t\t\t", 250, 8000, 20000, 4)
    assert shop.path("TQFOLLOW.DAT").read_bytes() == b"\0" + before[1:]
    board.click("cmdLaborFollowup")
    assert texts(board, "List1") == [], "a followup used on one estimate isn't offered again"


def test_an_estimate_with_neither_vin_nor_license_shows_no_followups(start, shop):
    one_estimate(shop)
    shop.write()
    make_followups(shop, [followup(7, "ANY")])
    copy = show(start(shop))
    copy.click("cmdLaborFollowup")
    assert texts(copy, "List1") == []


def test_repair_codes_come_from_the_other_database(start, shop):
    one_estimate(shop)
    shop.write()
    with contextlib.closing(sqlite3.connect(shop.path("Korvel.mdb"))) as database:
        database.execute("CREATE UNIQUE INDEX OneEach ON RepairCodes (RepairCode)")
    shop.write_profile({"Options": {"RepairCodeOption": "True"}})
    copy = show(start(shop))
    copy.click("cmdLaborAdd")
    assert texts(copy, "lovRepairCode") == ["N/A", "<New> Add a new repair code"]
    copy.select("lovRepairCode", row=1)
    copy.expect_form("frmRepairCode")
    copy.key("F10")
    copy.expect_box("The Repair Code can not be blank")
    copy.press("OK")
    copy.expect_box("The Description can not be blank")
    copy.press("OK")
    copy.type("txtRepairCode", "BR'1")
    copy.type("txtRepairCodeDesc", "Brakes")
    copy.key("F10")
    copy.expect_form("frmLabor")
    assert copy.text("lovRepairCode") == "BR'1   Brakes"
    copy.select("lovRepairCode", row=1)
    copy.type("txtRepairCode", "BR'1")
    copy.type("txtRepairCodeDesc", "Again")
    copy.key("F10")
    copy.expect_box()
    assert copy.answer["text"].endswith("\nError inserting Repair Code!")
    copy.press("OK")
    copy.expect_form("frmRepairCode")


def test_labor_needs_an_estimate_and_spelling_a_word_processor(lantos):
    lantos.click("cmdDetailView")
    for button in ("cmdLaborAdd", "cmdLaborAddCanned", "cmdLaborFollowup", "cmdPartAdd", "cmdPartAddNonStock"):
        lantos.click(button)
        lantos.expect_box("No estimate is selected.")
        lantos.press("OK")


def test_the_spelling_needs_a_word_processor(board):
    board.click("cmdLaborAdd")
    board.click("cmdSpellCheck")
    board.expect_box("Microsoft Word is required in order to check the spelling.")
    board.press("OK")


def test_a_change_begins_without_followup_fields_and_without_empty_lines(board, shop):
    board.click("cmdLaborAdd")
    board.type("txtDesc", "belt")
    board.type("Miles", "6000")
    board.leave()
    board.key("F10")
    board.select("listLabor", row=4)
    board.click("cmdLaborChange")
    assert board.text("txtDesc") == "BELT"
    assert [board.text(name) for name in ("Miles", "Days", "FollowupDate")] == ["", "", ""]
    board.key("Esc")


def test_hours_that_no_row_can_hold_are_refused(board, shop):
    board.click("cmdLaborAdd")
    board.type("txtDesc", "endless")
    board.type("Hours", "99999999")
    board.key("F10")
    assert "Overflow" in board.answer["text"]
    board.press("OK")
    assert labors(shop) == [OLD]


def test_a_technician_whom_nobody_knows_stays_with_the_line(start, shop):
    one_estimate(shop)
    shop.add_labor(900, 1, "OLD JOB\t\t\t\t\t\t\t", 1, mechanic=77)
    shop.write()
    copy = show(start(shop))
    copy.select("listLabor", row=0)
    copy.click("cmdLaborChange")
    assert copy.text("EmpList") == f"{'(not listed)':<31}000077"
    copy.type("Hours", "2")
    copy.key("F10")
    assert [row["Mechanic"] for row in labors(shop)] == [77]


def test_days_of_a_followup_may_be_none_or_lie_before(board):
    board.click("cmdLaborAdd")
    for days, date in (("0", "09/30/2003"), ("-3", "09/27/2003")):
        board.type("Days", days)
        board.leave()
        assert board.text("FollowupDate") == date

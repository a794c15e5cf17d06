"""Who changed what: the list, one's own last move taken back, and the file for a spreadsheet."""

import csv
import subprocess

import pytest

from boardlines import TODAY
from caretakersteps import caretaker_says
from driver import program_path
from linesteps import LABOR, begin_to_add, fill, remove, save, set_status, stored
from movesteps import NEW, THURSDAY, choose, full_shop, reschedule
from startsteps import SHOP_NOT_RUN, SHOP_WRONG_USE
from workfiles import one_estimate, show

NOW, LATER = "2003-09-30T10:32:00", "2003-09-30T10:40:00"


def open_trail(copy):
    copy.menu("mnuShowTrail")
    copy.expect_form("frmTrail")
    return copy


def rows(copy):
    """A row read from left to right is a sentence."""
    return [" ".join(filter(None, row["cells"].values())) for row in copy.control("ListView1")["rows"]]


def leave(copy):
    copy.key("Esc")
    copy.expect_form("frmMain")


def expect_question(copy, *what):
    copy.expect_box("\n".join(("Take this back?", "", *what)), "Undo", "question", ["Yes", "No"])


def test_a_move_is_told_in_plain_words_and_taken_back(start, shop):
    full_shop(shop)
    copy = start(shop, now=NOW, computer="FRONTDESK")
    reschedule(choose(copy), THURSDAY)
    copy.click("cmdWeekView")
    open_trail(choose(copy))
    assert copy.answer["caption"] == "Trail - Est. # 000900"
    assert rows(copy) == ["Tue 10:32 FRONTDESK moved from 09/30 to 10/02 000900 beth"]
    copy.click("cmdUndo")
    expect_question(copy, "Est. # 000900", "Tue 10:32 FRONTDESK (beth) moved from 09/30 to 10/02", "",
                    f'The copy that was made, Est. # {NEW:06}, becomes "Cancelled".')
    copy.press("No")
    assert shop.estimate(900)["Status"] == 7
    copy.set_now(LATER)
    copy.click("cmdUndo")
    copy.press("Yes")
    copy.expect_form("frmTrail")
    assert rows(copy) == ["Tue 10:40 FRONTDESK move to 10/02 taken back 000900 beth",
                          "Tue 10:32 FRONTDESK moved from 09/30 to 10/02 000900 beth"]
    assert not copy.control("cmdUndo")["enabled"], "each deed goes back once"
    leave(copy)
    assert (shop.estimate(900)["Status"], shop.estimate(900)["Comments"]) == (0, "Waits for a call")
    assert shop.estimate(NEW)["Status"] == 6
    assert copy.rows("List1(2)")[0] == "000900 "


@pytest.fixture
def two_labors(shop):
    """Estimate 900 with two lines of labor, and a surcharge of a tenth of it; and estimate 901."""
    one_estimate(shop)
    shop.add_estimate(901, TODAY, customer=7)
    shop.system["labor_surcharge_percent"] = 100000
    shop.system["surcharge_description"] = "SUPPLIES"
    shop.add_labor(900, 1, "OIL", 1, 8000)
    shop.add_labor(900, 2, "BRAKES", 1.5, 8000)
    shop.add_row("Waste", EstimateNumber=900, WasteNumber=1, VendorName="SURCHARGE", Cost=2000, Price=2000,
                 Desc1="SUPPLIES", Taxable="No")
    shop.write()
    return shop


def surcharge(shop):
    return [row["Price"] for row in shop.query("SELECT Price FROM Waste WHERE VendorName = 'SURCHARGE'")]


def test_a_removed_line_comes_back_with_what_followed_it(start, two_labors):
    copy = show(start(two_labors, now=NOW, computer="FRONTDESK"))
    before = stored(two_labors, LABOR)
    remove(copy, LABOR, "BRAKES")
    assert surcharge(two_labors) == [800]
    open_trail(copy)
    assert rows(copy) == ["Tue 10:32 FRONTDESK surcharge from 20.00 to 8.00 000900 beth",
                          "Tue 10:32 FRONTDESK labor 2 removed: BRAKES 1.50 h 000900 beth"]
    copy.set_now(LATER)
    copy.click("cmdUndo")
    copy.press("Yes")
    copy.expect_form("frmTrail")
    leave(copy)
    assert stored(two_labors, LABOR) == before
    assert surcharge(two_labors) == [2000]
    assert any("BRAKES" in row for row in copy.rows("listLabor"))
    assert copy.text("txtTotalHours") == "2.50"


def test_the_list_shows_one_kind_alone_or_the_whole_shop_on_a_day(start, two_labors):
    copy = show(start(two_labors, now=NOW, computer="FRONTDESK"))
    remove(copy, LABOR, "BRAKES")
    copy.set_now(LATER)
    set_status(show(copy, 901), "Arrived")
    copy.key("Ctrl+T")
    copy.expect_form("frmTrail")
    status = "Tue 10:40 FRONTDESK status from Scheduled to Arrived 000901 beth"
    labor = "Tue 10:32 FRONTDESK labor 2 removed: BRAKES 1.50 h 000900 beth"
    extra = "Tue 10:32 FRONTDESK surcharge from 20.00 to 8.00 000900 beth"
    assert rows(copy) == [status]
    assert copy.caption("lblCount") == "1 change"
    copy.check("chkWholeShop")
    assert rows(copy) == [status, extra, labor]
    assert copy.caption("lblCount") == "3 changes, the newest first"
    copy.select("cboKind", text="Labor")
    assert rows(copy) == [labor]
    copy.select("cboKind", text="Everything")
    copy.pick("DTPicker1", "2003-09-29")
    assert (rows(copy), copy.caption("lblCount")) == ([], "Nothing was changed.")
    assert not copy.control("cmdUndo")["enabled"] and not copy.control("cmdExport")["enabled"]


def test_what_somebody_else_has_changed_since_isnt_taken_back(start, shop):
    one_estimate(shop).write()
    first = show(start(shop, now=NOW, computer="FRONTDESK"))
    second = show(start(shop, now=LATER, computer="BACKOFFICE", user="al"))
    set_status(first, "Arrived")
    open_trail(first)
    set_status(show(second), "In Progress")
    first.click("cmdUndo")
    first.press("Yes")
    first.expect_box("This can't be taken back any more:\n\n"
                     "Tue 10:40 BACKOFFICE (al) status from Arrived to In Progress", "Undo", "exclamation", ["OK"])
    first.press("OK")
    first.expect_form("frmTrail")
    assert shop.estimate(900)["Status"] == 2
    assert rows(first)[0] == "Tue 10:40 BACKOFFICE status from Arrived to In Progress 000900 al"
    open_trail(second)
    assert second.control("cmdUndo")["enabled"], "one's own"
    leave(second)


def test_the_list_is_saved_for_a_spreadsheet(start, shop, tmp_path):
    one_estimate(shop).write()
    copy = show(start(shop, now=NOW, computer="=FRONT,DESK"))
    begin_to_add(copy, LABOR)
    fill(copy, LABOR, '"=1+1", O\'BRIEN;', 2)
    save(copy, LABOR)
    open_trail(copy)
    copy.click("cmdExport")
    copy.expect_form("frmTrailExport")
    assert copy.text("txtFile").endswith("/Lantos trail estimate 900.csv")
    path = tmp_path / "trail.csv"
    path.write_text("kept")
    copy.type("txtFile", str(path))
    copy.click("cmdOK")
    copy.expect_box(f'"{path}" is there already.\n\nReplace it?', "Export the Trail", "question", ["Yes", "No"])
    copy.press("No")
    assert path.read_text() == "kept"
    copy.click("cmdOK")
    copy.press("Yes")
    copy.expect_form("frmTrail")
    with open(path, encoding="utf-8-sig", newline="") as file:
        assert list(csv.reader(file)) == [
            ["Time", "Workstation", "User", "Estimate", "Kind", "Change"],
            ["2003-09-30 10:32:00", "'=FRONT,DESK", "beth", "900", "Labor",
             'labor 1 added: "=1+1", O\'BRIEN; 2.00 h']]


def test_a_file_that_cant_be_written_is_told_and_asked_for_again(start, shop, tmp_path):
    one_estimate(shop).write()
    copy = show(start(shop, now=NOW))
    set_status(copy, "Arrived")
    open_trail(copy)
    copy.click("cmdExport")
    for path, why in ((tmp_path / "nowhere" / "trail.csv", "can not be saved: its directory is not there."),
                      (shop.path("Lantos.mdb"), "is in the shop's data directory, which is for its own files.")):
        copy.type("txtFile", str(path))
        copy.key("F10")
        assert " ".join(copy.expect_box()["text"].split()) == f'"{path}" {why} Name another place.'
        copy.press("OK")
        copy.expect_form("frmTrailExport")
        assert copy.answer["focus"] == "txtFile"
    copy.key("Esc")
    copy.expect_form("frmTrail")


def prune(shop, date):
    return subprocess.run([program_path().with_name("lantos-shop"), "prune-trail", shop.directory, date],
                          capture_output=True, text=True, timeout=60)


def test_old_changes_are_taken_off_and_counted_and_a_date_that_is_none_is_refused(start, shop):
    one_estimate(shop).write()
    copy = show(start(shop, now=NOW))
    set_status(copy, "Arrived")
    copy.close_window()
    for date, code, why in (
            ("yesterday", SHOP_WRONG_USE, '"yesterday" is no date of the form 2003-09-30.'),
            ("2003-02-30", SHOP_WRONG_USE, '"2003-02-30" is no date of the form 2003-09-30.'),
            ("9998-01-01", SHOP_NOT_RUN, "9998-01-01 is still to come; nothing was taken off the trail.")):
        refused = prune(shop, date)
        assert (refused.returncode, refused.stdout, refused.stderr) == (code, "", f"lantos-shop: {why}\n")
    assert prune(shop, TODAY).stdout == f"Took 0 changes off the trail that were made before {TODAY}.\n"
    assert prune(shop, "2003-10-01").stdout == "Took 1 change off the trail that was made before 2003-10-01.\n"
    assert shop.query("SELECT * FROM Trail") == []
    assert caretaker_says("prune-trail", shop.directory, TODAY) == {"taken": 0, "before": TODAY}

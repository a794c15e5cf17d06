"""Screens that were changed ask before they close, whichever way they are left; numbers that are none are refused."""

import pytest

from inventoryfiles import kit_part, make_inventory, make_kits, part
from workfiles import followup, make_followups, one_estimate, show

YES_NO = ["Yes", "No"]


@pytest.fixture
def board(start, shop):
    """An estimate with a line of labor, a part that isn't stocked, and a followup; a part and a kit in stock."""
    one_estimate(shop, VehVIN="VIN123")
    shop.add_labor(900, 3, "CHECK BRAKES\t\t\t\t\t\t\t", 1, mechanic=4)
    shop.write()
    make_followups(shop, [followup(7, "TIMING BELT", vin="VIN123")])
    make_inventory(shop.directory, [part("PAD-9", "BRAKE PADS", (2000, 2500, 3000, 3500), 1),
                                    kit_part("KIT-A", "LUBE KIT", "20.00", "25.00")])
    make_kits(shop.directory, {"KIT-A": ["PAD-9"]})
    return show(start(shop))


def asks(copy, cancel, then, buttons=YES_NO):
    """The changed screen on top: each way out asks, No stays, and at last Yes leads to another form."""
    form, title = copy.answer["form"], copy.answer["caption"]
    assert copy.caption(cancel).replace("&", "") == "Cancel"
    for way_out in (lambda: copy.click(cancel), lambda: copy.key("Esc"), copy.close):
        way_out()
        copy.expect_box("Discard changes?", title, buttons=buttons)
        copy.press("No")
        copy.expect_form(form)
    copy.close()
    copy.press("Yes")
    copy.expect_form(then)


def starts_with_close(copy, cancel):
    assert copy.caption(cancel).replace("&", "") == "Close"


def test_labor_and_its_repair_code(board, shop):
    board.click("cmdLaborChange")
    starts_with_close(board, "CancelButton")
    board.type("txtDesc", "something else")
    asks(board, "CancelButton", "frmMain", ["Yes", "No", "Cancel"])


def test_a_followup_that_was_ticked(board):
    board.click("cmdLaborFollowup")
    starts_with_close(board, "cmdCancel")
    board.check("List1", row=0)
    asks(board, "cmdCancel", "frmMain")


def test_canned_labor(board):
    board.click("cmdLaborAddCanned")
    board.click("cmdAdd")
    starts_with_close(board, "cmdCancel")
    board.type("txtDesc", "oil change")
    asks(board, "cmdCancel", "frmCanLaborList")


def test_a_part(board):
    board.click("cmdPartAddNonStock")
    starts_with_close(board, "cmdCancel")
    board.type("Description", "a thing")
    asks(board, "cmdCancel", "frmMain")


def test_a_kit(board):
    board.click("cmdPartAdd")
    board.type("SearchPart", "KIT-A")
    board.key("Enter")
    board.select("DataGrid1", row=0)
    board.key("F10")
    board.expect_form("frmWOKit")
    starts_with_close(board, "cmdCancel")
    board.type("QuantityUsed", "3")
    asks(board, "cmdCancel", "frmInvList")


def test_a_note(board):
    board.click("cmdEstimateNotes")
    board.click("cmdAdd")
    starts_with_close(board, "cmdCancel")
    board.type("txtDesc", "call the owner")
    asks(board, "cmdCancel", "frmEstNotes")


def test_a_special_day(board):
    board.menu("mnuSpecialDays")
    starts_with_close(board, "cmdCancel")
    board.type("txtComments", "Fair")
    asks(board, "cmdCancel", "frmMain")


def test_an_untouched_screen_closes_without_a_word(board):
    for button, form in (("cmdLaborAdd", "frmLabor"), ("cmdPartAddNonStock", "frmWOPart"),
                         ("cmdLaborFollowup", "frmEstFollowup")):
        for way_out in (lambda: board.key("Esc"), board.close):
            board.click(button)
            board.expect_form(form)
            way_out()
            board.expect_form("frmMain")


def test_prices_that_are_no_numbers_are_red_and_told_before_they_count(board, shop):
    board.click("cmdPartAddNonStock")
    board.type("PartNumber", "X-1")
    board.type("Description", "a thing")
    board.type("QuantityUsed", "1")
    board.type("CostPrice", "10")
    board.type("SalePrice", "abc")
    board.type("ListPrice", "20")
    board.leave()
    assert board.text("SalePrice") == "abc"
    assert board.control("SalePrice")["backcolor"] is not None
    for save in (lambda: board.click("cmdSave"), lambda: board.key("F10")):
        board.type("SalePrice", "abc")
        save()
        board.expect_box('Sale Price: "abc" is not a number. 0.00 stands in its place.', "Add Non-Stocked Part")
        board.press("OK")
        assert board.answer["focus"] == "SalePrice"
    board.type("SalePrice", "15")
    assert board.control("SalePrice")["backcolor"] is None
    board.key("F10")
    board.expect_form("frmMain")
    assert [row["PartPrice"] for row in shop.query("SELECT * FROM Parts")] == [1500]


def test_hours_that_are_no_number_never_become_nought_in_silence(board, shop):
    board.click("cmdLaborChange")
    board.type("Hours", "abc")
    board.click("OKButton")
    board.expect_box('Hours: "ABC" is not a number. 0.00 stands in its place.', "Estimate Labor")
    board.press("OK")
    board.type("Hours", "2")
    board.key("F10")
    board.expect_form("frmMain")
    assert [row["LaborHours"] for row in shop.query("SELECT * FROM Labors")] == [200]

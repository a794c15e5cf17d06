"""Sublets, waste and the surcharge: their screens, the purchase orders behind them, and the line that follows the
totals."""

import pytest

from boardlines import hours_of
from locks import denied_to_all
from workfiles import make_orders, one_estimate, order_tag, show, sublet_line, texts, totals

RATES = (0, 0, 50000, 40000)  # parts, labor, sublets 5 %, waste 4 %


def lines(shop, table="Sublets"):
    number = {"Sublets": "SubletNumber", "Waste": "WasteNumber"}[table]
    return [tuple(row.values()) for row in shop.query(
        f"SELECT {number}, VendorName, VendorInvoice, Cost, Price, Desc1, Desc2, Desc3, Desc4, Taxable FROM {table} "
        f"WHERE EstimateNumber = 900 ORDER BY {number}")]


@pytest.fixture
def board(start, shop):
    shop.system["tax_rate"] = RATES
    one_estimate(shop)
    shop.write()
    return show(start(shop))


def add(copy, row=0):
    copy.click("cmdAdd")
    copy.expect_form("frmSubList")
    copy.click("POSubletList", row=row)
    copy.key("F10")
    copy.expect_form("frmWOExtra")


def test_a_sublet_without_an_order(board, shop):
    board.click("cmdEstimateSublets")
    board.expect_form("frmEstSublets")
    assert [board.caption(name) for name in ("lblEstimateNumber", "lblCustName")] == ["000900", "Beth Adams"]
    board.click("cmdAdd")
    assert texts(board, "POSubletList") == ["New Sublet (No Purchase Order)"]
    board.key("F10")
    board.expect_box("You must select an item first.")
    board.press("OK")
    board.click("POSubletList", row=0)
    board.key("F10")
    assert board.answer["caption"] == "Estimate Sublet"
    assert [board.text(name) for name in ("Vendor", "VendorInvoice", "Cost", "Price", "Taxable", "Desc(1)")] == [
        "", "", "0.00", "0.00", "Yes", ""]
    assert board.caption("cmdCancel") == "Close"
    board.type("Vendor", "Valley Machine")
    assert board.caption("cmdCancel") == "Cancel"
    board.type("VendorInvoice", "A-17")
    board.type("Cost", "10.999")
    board.leave()
    assert board.text("Cost") == "11.00"
    board.type("Price", "15.5")
    board.type("Desc(1)", "TURN DRUMS")
    board.type("Desc(3)", "BOTH SIDES")
    board.key("F10")
    board.expect_form("frmEstSublets")
    assert texts(board, "listSublets") == ["Valley Machine (A-17) 11.00 15.50", "--> TURN DRUMS", "    BOTH SIDES"]
    board.key("Esc")
    assert lines(shop) == [(1, "Valley Machine", "A-17", 1100, 1550, "TURN DRUMS", "", "BOTH SIDES", "", "Yes")]
    # 5 % of 15.50 are 0.775.
    assert totals(board)[3:] == ["15.50", "0.00", "0.78", "16.28"]
    assert board.control("cmdEstimateSublets")["bold"]


def test_amounts_are_cut_to_whole_cents_on_the_way_out_of_a_field_that_was_not_left(board, shop):
    board.click("cmdEstimateSublets")
    add(board)
    board.type("Price", "3.999")
    board.key("F10")
    board.key("Esc")
    assert lines(shop)[0][4] == 399


def test_a_line_is_changed_under_its_number_and_reset_and_cancelled(start, shop):
    one_estimate(shop)
    shop.add_sublet(900, 4, "Valley Machine", 1550, cost=1100, taxable="No")
    shop.write()
    copy = show(start(shop))
    copy.click("cmdEstimateSublets")
    copy.click("cmdChange")
    assert copy.answer["caption"] == "Change Sublet"
    assert copy.text("Taxable") == "No"
    copy.type("Vendor", "Nobody")
    copy.key("F2")
    assert copy.text("Vendor") == "Valley Machine" and copy.caption("cmdCancel") == "Close"
    copy.type("Vendor", "Nobody")
    copy.key("Esc")
    copy.expect_box("Discard Changes?")
    copy.press("No")
    copy.expect_form("frmWOExtra")
    copy.key("Esc")
    copy.press("Yes")
    copy.expect_form("frmEstSublets")
    copy.click("cmdChange")
    copy.type("Price", "20")
    copy.key("F10")
    copy.click("cmdRemove")
    copy.expect_box("Remove\n    Valley Machine 11.00 20.00\nfrom this estimate?", "Remove Sublet", "none",
                    ["Yes", "No"])
    copy.press("No")
    assert [line[:5] for line in lines(shop)] == [(4, "Valley Machine", "", 1100, 2000)]
    copy.click("cmdRemove")
    copy.press("Yes")
    assert lines(shop) == [] and texts(copy, "listSublets") == []
    for button, text, title in (("cmdChange", "Must select a Sublet to change.", "Change Sublet"),
                                ("cmdRemove", "You must select a Sublet in order to remove it.", "Remove Sublet")):
        copy.click(button)
        copy.expect_box(text, title)
        copy.press("OK")


def test_sublets_of_purchase_orders_are_offered(start, shop):
    shop.system["tax_rate"] = RATES
    one_estimate(shop)
    shop.write()
    detail = ("[Order]\r\nx\r\n[Sublets]\r\n" + sublet_line("Riverside Radiator", "81120", "189.00", "245.70", "RECORE")
              + "\r\n" + sublet_line("Free Help", "1", "5.00", "0.00", "NOT OFFERED") + "\r\n[Credits]\r\n"
              + sublet_line("Credit", "2", "1.00", "1.00", "NO SUBLET") + "\r\n")
    make_orders(shop, [(order_tag(3101, status=1, file="A.TQP"), detail), (order_tag(3102, status=0, file="B.TQP"), detail),
                       (order_tag(3103, status=4, file="C.TQP"), detail), (order_tag(3104, status=4), None)])
    copy = show(start(shop))
    copy.click("cmdEstimateSublets")
    copy.click("cmdAdd")
    assert texts(copy, "POSubletList") == [
        "New Sublet (No Purchase Order)",
        "003101 Riverside  81120          245.70 RECORE",
        "003103 Riverside  81120          245.70 RECORE"]
    copy.click("POSubletList", row=2)
    copy.key("F10")
    copy.key("F10")
    assert lines(shop) == [(1, "Riverside Radiator", "81120", 18900, 24570, "RECORE", "", "", "", "Yes")]
    with denied_to_all(shop.path("C.TQP")):
        copy.click("cmdAdd")
        copy.expect_box("Purchase Order detail file (C.TQP)\nlocked by another user.\n"
                        "Click RETRY to try again, or CANCEL to skip.", buttons=["Retry", "Cancel"])
        assert copy.answer["title"].startswith("zGetOpenPOSublets Error 70")
        copy.press("Retry")
        copy.press("Cancel")
        assert len(texts(copy, "POSubletList")) == 2
        copy.key("Esc")
    with denied_to_all(shop.path("TQOPENPO.DAT")):
        copy.click("cmdAdd")
        copy.expect_box("Purchase Orders tags file TQOPENPO.DAT\nlocked by another user.\n"
                        "Click RETRY to try again, or CANCEL to skip.")
        copy.press("Cancel")
        assert texts(copy, "POSubletList") == ["New Sublet (No Purchase Order)"]


def test_an_order_whose_detail_file_is_missing_is_named_once(start, shop):
    one_estimate(shop)
    shop.write()
    make_orders(shop, [(order_tag(3101, status=1, file="A.TQP"), None), (order_tag(3102, status=4, file="B.TQP"), None)])
    copy = show(start(shop))
    copy.click("cmdEstimateSublets")
    copy.click("cmdAdd")
    copy.expect_box("Purchase Order detail file (A.TQP)\nPurchase Order detail file (B.TQP)\nnot found.  Skipped.",
                    "Purchase Orders")
    copy.press("OK")
    assert copy.answer["focus"] == "POSubletList"
    copy.key("Esc")
    copy.click("cmdAdd")
    copy.expect_form("frmSubList")


def test_waste_goes_straight_to_its_editor(board, shop):
    board.click("cmdEstimateWaste")
    board.expect_form("frmEstWaste")
    board.click("cmdChange")
    board.expect_box("Must select a Waste to change.", "Change Waste")
    board.press("OK")
    board.click("cmdAdd")
    board.expect_form("frmWOExtra")
    assert board.answer["caption"] == "Estimate Waste"
    board.type("Vendor", "Coolant")
    board.type("Price", "2.25")
    board.key("F10")
    board.key("Esc")
    assert lines(shop, "Waste") == [(1, "Coolant", "", 0, 225, "", "", "", "", "Yes")]
    assert totals(board)[4:] == ["2.25", "0.09", "2.34"]


def test_both_screens_need_an_estimate(lantos):
    for button in ("cmdEstimateSublets", "cmdEstimateWaste"):
        lantos.click(button)
        lantos.expect_box("Must first select an estimate.")
        lantos.press("OK")


# The surcharge.


def type_labor(copy, hours):
    copy.click("cmdLaborAdd")
    copy.type("Hours", hours)
    copy.type("txtDesc", "work")
    copy.key("F10")


def surcharged(start, shop, labor, parts, as_sublet="Y", description="SHOP SUPPLIES", fill=lambda shop: None):
    shop.system.update(labor_surcharge_percent=labor, parts_surcharge_percent=parts,
                       surcharge_description=description, surcharge_is_sublet=ord(as_sublet), tax_rate=RATES)
    one_estimate(shop)
    fill(shop)
    shop.write()
    return show(start(shop))


def test_a_surcharge_in_percent_follows_labor_and_parts(start, shop):
    # 5 % of labor, 2.5 % of parts.
    copy = surcharged(start, shop, 50000, 25000, fill=lambda shop: shop.add_part(900, "A-1", "PART", 3, 333))
    type_labor(copy, "1.5")
    # 97.50 gives 4.875, to the even 4.88; 9.99 gives 0.24975, so 0.25.
    assert lines(shop) == [(1, "SURCHARGE", "", 513, 513, "SHOP SUPPLIES", "", "", "", "Yes")]
    assert totals(copy)[3] == "5.13"
    copy.select("listLabor", row=0)
    copy.click("cmdLaborRemove")
    copy.press("Yes")
    assert lines(shop)[0][3:5] == (25, 25)
    copy.select("listParts", rows=[0])
    copy.click("cmdPartRemove")
    copy.press("Yes")
    assert lines(shop)[0][3:5] == (0, 0), "the line stays"


def test_a_flat_surcharge_needs_something_to_stand_on(start, shop):
    copy = surcharged(start, shop, -50000, 0, as_sublet="N")
    type_labor(copy, "0")
    assert lines(shop, "Waste") == [(1, "SURCHARGE", "", 0, 0, "SHOP SUPPLIES", "", "", "", "Yes")]
    type_labor(copy, "1")
    assert lines(shop, "Waste")[0][3:5] == (500, 500)
    assert lines(shop) == []


def test_the_surcharge_cant_be_changed_and_comes_back_when_removed(start, shop):
    copy = surcharged(start, shop, 100000, 0)
    type_labor(copy, "1")
    copy.click("cmdEstimateSublets")
    copy.click("cmdChange")
    copy.expect_box("This is a system-generated value.\nIt can only be removed, not changed.",
                    "Can not edit SURCHARGE.")
    copy.press("OK")
    copy.click("cmdRemove")
    copy.press("Yes")
    copy.key("Esc")
    assert lines(shop) == []
    type_labor(copy, "1")
    assert lines(shop)[0][3:5] == (1300, 1300)


def expect_kept_out(copy, what):
    """The box says what is in the way, and no statement; the log has the statement."""
    copy.expect_box(title="Lantos", icon="critical", buttons=["OK"])
    text = copy.answer["text"]
    assert text.startswith("The surcharge could not be stored:") and f"the {what} stands there" in text
    assert "insert" not in text.lower() and "constraint" not in text
    assert any("unique constraint" in line.lower() for line in copy.log_lines())
    copy.press("OK")
    copy.expect_form("frmMain")


def test_a_sublet_of_number_1_keeps_the_surcharge_out(start, shop):
    copy = surcharged(start, shop, 100000, 0, fill=lambda shop: shop.add_sublet(900, 1, "Valley Machine", 100))
    hours = hours_of(copy)[2:4]
    type_labor(copy, "1")
    expect_kept_out(copy, 'sublet "Valley Machine"')
    assert [line[1] for line in lines(shop)] == ["Valley Machine"]
    assert len(shop.query("SELECT * FROM Labors WHERE EstimateNumber = 900")) == 1, "the labor line itself is stored"
    assert totals(copy) == ["1.00", "65.00", "0.00", "1.00", "0.00", "0.00", "66.00"]
    assert float(hours_of(copy)[2]) == float(hours[0]) + 1
    type_labor(copy, "1")
    expect_kept_out(copy, 'sublet "Valley Machine"')
    assert totals(copy)[:2] == ["2.00", "130.00"]
    # What the box tells to do.
    copy.click("cmdEstimateSublets")
    add(copy)
    copy.type("Vendor", "Valley Machine")
    copy.type("Price", "1")
    copy.key("F10")
    copy.select("listSublets", row=0)
    copy.click("cmdRemove")
    copy.press("Yes")
    copy.key("Esc")
    type_labor(copy, "1")
    copy.expect_form("frmMain")
    assert [line[:2] for line in lines(shop)] == [(1, "SURCHARGE"), (2, "Valley Machine")]


def test_a_disposal_fee_keeps_the_surcharge_out_of_the_waste(start, shop):
    copy = surcharged(start, shop, 100000, 0, as_sublet="N",
                      fill=lambda shop: shop.add_waste(900, 1, "Waste Disposal Fee", 100))
    type_labor(copy, "1")
    expect_kept_out(copy, 'waste charge "Waste Disposal Fee"')
    assert totals(copy)[:2] == ["1.00", "65.00"]


def test_an_emptied_description_stops_all_recalculation(start, shop):
    copy = surcharged(start, shop, 100000, 0, description="",
                      fill=lambda shop: shop.add_sublet(900, 1, "SURCHARGE", 77, cost=77))
    type_labor(copy, "1")
    assert lines(shop)[0][3:5] == (77, 77)

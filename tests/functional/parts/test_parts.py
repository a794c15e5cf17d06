"""Parts on an estimate: stock parts from the inventory list, non-stock parts, cores, disposal fees, kits."""

import sqlite3

import pytest

from inventoryfiles import kit_part, make_inventory, make_kits, part
from locks import denied_to_all
from workfiles import one_estimate, show, texts, totals

PARTS = [
    part("ALT-1", "ALTERNATOR", (6000, 7000, 8000, 9999), 2, HasACore=1, CoreCost=1500),
    part("ALT-1/C", "CORE: ALTERNATOR", (1500, 1600, 1700, 1800)),
    part("OIL-1", "MOTOR OIL QT", (100, 120, 150, 200), 40, HasWaste=1, DisposalFee=25),
    part("PAD-9", "BRAKE PADS", (2000, 2500, 3000, 3500), 1),
    kit_part("KIT-A", "LUBE KIT", "20.00", "25.00", prices=(500, 500, 500, 500)),
    kit_part("KIT-B", "OPEN KIT"),
]


@pytest.fixture
def board(start, shop):
    """Prices of the customer are Resale; the shop's markup on cost for Retail is 45 %."""
    one_estimate(shop)
    shop.add_customer(8, "Baker", pricing_level=2)
    shop.write()
    make_inventory(shop.directory, PARTS)
    make_kits(shop.directory, {"KIT-A": ["OIL-1(3)", "", "GONE-7"], "KIT-B": ["PAD-9"]})
    return show(start(shop))


def stored(shop):
    return {row["PartNumber"]: (row["PartDesc"], row["Quantity"], row["PartPrice"], row["PartTotal"], row["PartCost"],
                                row["PartList"])
            for row in shop.query("SELECT * FROM Parts WHERE EstimateNumber = 900")}


def waste(shop):
    return [(row["WasteNumber"], row["VendorName"], row["Cost"], row["Price"], row["Desc1"], row["Taxable"])
            for row in shop.query("SELECT * FROM Waste WHERE EstimateNumber = 900 ORDER BY WasteNumber")]


def pick(copy, number):
    """In the inventory list that is up."""
    copy.expect_form("frmInvList")
    copy.type("SearchPart", number)
    copy.key("Enter")
    copy.select("DataGrid1", row=0)
    copy.key("F10")


def fields(copy):
    return [copy.text(name) for name in ("PartNumber", "Description", "QuantityUsed", "CostPrice", "SalePrice",
                                         "ListPrice", "DisposalFee")]


def test_a_stock_part_is_added_and_the_list_comes_back_for_the_next(board, shop):
    before = shop.hashes(but=("*.mdb*", "*.LOG", "AU*"))
    board.click("cmdPartAdd")
    assert board.answer["caption"] == "Add part to estimate"
    pick(board, "PAD")
    board.expect_form("frmWOPart")
    assert board.answer["caption"] == "Add Part to Estimate"
    assert fields(board) == ["PAD-9", "BRAKE PADS", "1", "20.00", "35.00", "35.00", "0.00"]
    assert board.control("PartNumber")["locked"] and not board.control("CostPrice")["visible"]
    assert board.caption("lblInStock") == "1 in stock"
    board.type("QuantityUsed", "5")
    board.key("Enter")
    assert board.answer["focus"] == "SalePrice"
    board.key("Enter")
    board.key("Enter")
    assert board.answer["focus"] == "cmdSave"
    board.key("F10")
    board.expect_form("frmInvList")
    board.key("Esc")
    board.expect_form("frmMain")
    assert stored(shop) == {"PAD-9": ("BRAKE PADS", 5, 3500, 17500, 2000, 3500)}, "more than the stock, without a word"
    assert texts(board, "listParts") == ["PAD-9                 BRAKE PADS               5   35.00  175.00"]
    assert totals(board)[2] == "175.00"
    assert shop.hashes(but=("*.mdb*", "*.LOG", "AU*")) == before, "the inventory is only read"


def test_two_adds_of_one_number_give_one_row_with_the_sum_and_the_later_price(board, shop):
    board.click("cmdPartAdd")
    for quantity, price in (("2", "30"), ("3", "31.5")):
        pick(board, "PAD")
        board.type("QuantityUsed", quantity)
        board.type("SalePrice", price)
        board.key("F10")
    board.key("Esc")
    assert stored(shop) == {"PAD-9": ("BRAKE PADS", 5, 3150, 15750, 2000, 3500)}


def test_a_fee_is_charged_once_a_line_and_stays_when_the_part_goes(board, shop):
    board.click("cmdPartAdd")
    for _ in range(2):
        pick(board, "OIL")
        board.type("QuantityUsed", "6")
        board.type("DisposalFee", "9.99")
        board.key("F10")
    board.key("Esc")
    fee = ("Waste Disposal Fee", 25, 25, "Disposal Fee for: OIL-1", "No")
    assert waste(shop) == [(1, *fee), (2, *fee)]
    assert totals(board)[4] == "0.50"
    board.select("listParts", row=0)
    board.click("cmdPartRemove")
    board.press("Yes")
    assert stored(shop) == {} and len(waste(shop)) == 2


def test_without_a_number_for_its_fee_a_part_isnt_added(board, shop):
    with sqlite3.connect(shop.directory / "Lantos.mdb") as database:
        database.execute("INSERT INTO Waste (EstimateNumber, WasteNumber) VALUES (900, 2147483647)")
    board.click("cmdPartAdd")
    pick(board, "OIL")
    board.key("F10")
    assert board.expect_box(icon="critical")["text"].startswith("Overflow")
    board.press("OK")
    assert stored(shop) == {} and len(waste(shop)) == 1


def test_a_core_comes_through_the_same_screen(board, shop):
    board.click("cmdPartAdd")
    pick(board, "ALT")
    board.key("F10")
    board.expect_form("frmWOPart")
    assert fields(board)[:2] == ["ALT-1/C", "CORE: ALTERNATOR"]
    board.key("F10")
    board.key("Esc")
    assert stored(shop) == {"ALT-1": ("ALTERNATOR", 1, 9999, 9999, 6000, 9999),
                            "ALT-1/C": ("CORE: ALTERNATOR", 1, 1800, 1800, 1500, 1800)}


def test_the_surcharge_of_a_part_and_its_core_comes_behind_the_fees_of_both(start, shop):
    one_estimate(shop)
    shop.system["parts_surcharge_percent"] = 100000
    shop.system["surcharge_description"] = "SUPPLIES"
    shop.write()
    fee = {"HasWaste": 1, "DisposalFee": 25}
    make_inventory(shop.directory, [part("BAT", "BATTERY", (6000,) * 4, HasACore=1),
                                    part("BAT/C", "CORE", (1500,) * 4, **fee)])
    board = show(start(shop))
    board.click("cmdPartAdd")
    pick(board, "BAT")
    board.key("F10")
    board.expect_form("frmWOPart")
    board.key("F10")
    assert board.expect_box()["text"].startswith("The surcharge could not be stored: it needs the first place")
    board.press("OK")
    board.key("Esc")
    board.expect_form("frmMain")
    assert waste(shop) == [(1, "Waste Disposal Fee", 25, 25, "Disposal Fee for: BAT/C", "No")]
    assert sorted(stored(shop)) == ["BAT", "BAT/C"]


def test_a_surcharge_of_a_part_whose_core_isnt_wanted_stays(start, shop):
    one_estimate(shop)
    shop.system["parts_surcharge_percent"] = 100000
    shop.system["surcharge_description"] = "SUPPLIES"
    shop.write()
    make_inventory(shop.directory, [part("BAT", "BATTERY", (6000,) * 4, HasACore=1), part("BAT/C", "CORE")])
    board = show(start(shop))
    board.click("cmdPartAdd")
    pick(board, "BAT")
    board.key("F10")
    board.expect_form("frmWOPart")
    board.key("Esc")
    board.key("Esc")
    board.expect_form("frmMain")
    assert waste(shop) == [(1, "SURCHARGE", 600, 600, "SUPPLIES", "No")]


def test_a_part_the_shop_doesnt_stock(board, shop):
    board.click("cmdPartAddNonStock")
    board.expect_form("frmWOPart")
    assert board.answer["caption"] == "Add Non-Stocked Part"
    assert fields(board) == ["", "", "", "", "", "", ""]
    assert not board.control("lblInStock")["visible"]
    for message, name, text in (("Part number is required.", "PartNumber", "zz-1"),
                                ("Description is required.", "Description", "special bolt"),
                                ("Quantity Used is required.", "QuantityUsed", "0"),
                                ("Cost is required.", "CostPrice", "10.01")):
        board.key("F10")
        board.expect_box(message, "Add Non-Stocked Part")
        board.press("OK")
        assert board.answer["focus"] == name
        board.type(name, text)
        board.leave()
    # 10.01 and 45 % of it are 14.5145.
    assert fields(board) == ["zz-1", "special bolt", "1", "10.01", "14.51", "14.51", ""]
    board.type("SalePrice", "")
    board.key("F10")
    board.expect_box("Sale Price is required.")
    board.press("OK")
    board.type("SalePrice", "15")
    board.type("ListPrice", "")
    board.key("F10")
    board.expect_box("List Price is required.")
    board.press("OK")
    board.key("F2")
    assert fields(board) == ["", "", "", "", "", "", ""], "as they were at the beginning"
    board.key("Esc")
    assert stored(shop) == {}


def test_a_typed_number_that_is_in_stock_brings_its_part(board, shop):
    board.click("cmdPartAddNonStock")
    board.type("PartNumber", "PAD-9")
    board.leave()
    assert fields(board) == ["PAD-9", "BRAKE PADS", "1", "20.00", "35.00", "35.00", "0.00"]
    board.key("F10")
    assert stored(shop) == {"PAD-9": ("BRAKE PADS", 1, 3500, 3500, 2000, 3500)}


def test_a_part_number_with_an_apostrophe_breaks_the_search(board, shop):
    board.click("cmdPartAddNonStock")
    for name, text in (("PartNumber", "o'ring"), ("Description", "ring"), ("QuantityUsed", "1"), ("CostPrice", "1")):
        board.type(name, text)
        board.leave()
    board.key("F10")
    board.expect_box(title="Lantos", icon="critical")
    assert "O'RING" in board.answer["text"]
    board.press("OK")
    assert stored(shop) == {}


def test_a_changed_line_has_its_quantity_replaced(start, shop):
    one_estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 4, 3000, 2100, 3333)
    shop.add_part(900, "LEFT-1", "NO LONGER STOCKED", 1, 500, 400, 600)
    shop.write()
    make_inventory(shop.directory, PARTS)
    copy = show(start(shop))
    copy.click("cmdPartChange")
    copy.expect_box("You must select a part in order to change it.", "Change Part")
    copy.press("OK")
    copy.select("listParts", rows=[0, 1])
    copy.click("cmdPartChange")
    copy.expect_box("You must select a single part to change.", "Change Part")
    copy.press("OK")
    pads = next(i for i, text in enumerate(texts(copy, "listParts")) if text.startswith("PAD"))
    copy.select("listParts", rows=[pads])
    copy.click("cmdPartChange")
    assert copy.answer["caption"] == "Change Part for Estimate"
    assert fields(copy) == ["PAD-9", "BRAKE PADS", "4", "21.00", "30.00", "35.00", "0.00"]
    copy.type("QuantityUsed", "2")
    copy.key("F10")
    assert stored(shop)["PAD-9"] == ("BRAKE PADS", 2, 3000, 6000, 2100, 3500)
    left = next(i for i, text in enumerate(texts(copy, "listParts")) if text.startswith("LEFT"))
    copy.select("listParts", rows=[left])
    copy.click("cmdPartChange")
    assert copy.control("CostPrice")["visible"], "what has left the inventory becomes a non-stock line"
    assert fields(copy)[:6] == ["LEFT-1", "NO LONGER STOCKED", "1", "4.00", "5.00", "6.00"]
    copy.key("Esc")


def test_several_parts_are_removed_at_once(start, shop):
    one_estimate(shop)
    for number in ("A-1", "B-2", "C-3"):
        shop.add_part(900, number, "PART", 1, 100)
    shop.write()
    copy = show(start(shop))
    copy.click("cmdPartRemove")
    copy.expect_box("You must select a part in order to remove it.", "Remove Part")
    copy.press("OK")
    rows = texts(copy, "listParts")
    copy.select("listParts", rows=[0, 2])
    copy.click("cmdPartRemove")
    copy.expect_box(f"Are you sure wish to remove\n    {rows[0]}\n    {rows[2]}\nfrom this estimate?", "Remove Part",
                    "none", ["Yes", "No"])
    copy.press("Yes")
    assert texts(copy, "listParts") == [rows[1]]
    assert list(stored(shop)) == ["B-2"]
    assert totals(copy)[2] == "1.00"


def test_a_kit_of_two_with_a_row_of_three_adds_six_at_no_charge(board, shop):
    board.click("cmdPartAdd")
    pick(board, "KIT-A")
    board.expect_form("frmWOKit")
    assert board.answer["caption"] == "Add Kit to Estimate" and board.answer["focus"] == "QuantityUsed"
    assert fields(board) == ["KIT-A", "LUBE KIT", "1", "5.00", "20.00", "25.00", "0.00"]
    assert board.caption("lblHeading") == "  Qty   Part Number          Description"
    assert texts(board, "List1") == ["    3   OIL-1                MOTOR OIL QT", "    1   GONE-7               "]
    board.type("QuantityUsed", "2")
    board.key("F10")
    board.expect_form("frmInvList")
    board.key("Esc")
    assert stored(shop) == {"KIT-A": ("LUBE KIT", 2, 2000, 4000, 500, 2500),
                            "OIL-1": ("MOTOR OIL QT", 6, 0, 0, 100, 0), "GONE-7": ("", 2, 0, 0, 0, 0)}


def test_a_kit_without_a_price_shows_the_sum_of_its_parts_merged_with_those_there(board, shop):
    board.click("cmdPartAdd")
    for number in ("PAD", "KIT-B"):
        pick(board, number)
        board.key("F10")
    board.key("Esc")
    assert stored(shop) == {"KIT-B": ("OPEN KIT", 1, 0, 0, 0, 0),
                            "PAD-9": ("BRAKE PADS", 2, 3500, 7000, 2000, 3500)}


def test_prices_are_those_of_the_customers_level(start, shop):
    shop.add_customer(7, "Adams", "Beth", pricing_level=1)
    shop.add_estimate(900, "2003-09-30", customer=7)
    shop.write()
    make_inventory(shop.directory, PARTS)
    copy = show(start(shop))
    copy.click("cmdPartAdd")
    cells = copy.control("DataGrid1")["rows"]
    assert [row["cells"]["Retail1"] for row in cells if row["cells"]["Part"] == "PAD-9"] == ["25.00"]
    pick(copy, "PAD")
    assert fields(copy)[4:6] == ["25.00", "35.00"]


def test_what_no_row_can_hold_is_refused_and_nothing_is_written(board, shop):
    board.click("cmdPartAddNonStock")
    for name, text in (("PartNumber", "BIG"), ("Description", "BIG"), ("QuantityUsed", "99999"),
                       ("CostPrice", "1"), ("SalePrice", "99999"), ("ListPrice", "1")):
        board.type(name, text)
    board.key("F10")
    assert "Overflow" in board.answer["text"]
    board.press("OK")
    assert stored(shop) == {}


def test_a_quantity_of_0_is_saved_as_1_even_when_the_field_is_never_left(board, shop):
    board.click("cmdPartAdd")
    pick(board, "PAD")
    board.type("QuantityUsed", "0.3")
    board.key("F10")
    board.key("Esc")
    assert stored(shop)["PAD-9"][1] == 1


def test_half_a_cent_is_rounded_without_the_noise_of_the_product(board, shop):
    board.click("cmdPartAdd")
    pick(board, "PAD")
    board.type("SalePrice", "1.015")
    board.key("F10")
    board.key("Esc")
    assert stored(shop)["PAD-9"][2] == 102, "1.015 x 100 is 101.49999999999999 as a double"


def test_a_changed_part_keeps_as_much_of_its_description_as_its_row_shows(board, shop):
    board.click("cmdPartAddNonStock")
    for name, text in (("PartNumber", "LONG"), ("Description", "a description of thirty-one cha"),
                       ("QuantityUsed", "1"), ("CostPrice", "1"), ("SalePrice", "1"), ("ListPrice", "1")):
        board.type(name, text)
    board.key("F10")
    assert stored(shop)["LONG"][0] == "A DESCRIPTION OF THIRTY-ONE CHA"
    board.select("listParts", rows=[0])
    board.click("cmdPartChange")
    board.key("F10")
    assert stored(shop)["LONG"][0] == "A DESCRIPTION OF THI"


def test_a_kit_whose_contents_are_held_does_not_come_up(board, shop):
    board.click("cmdPartAdd")
    with denied_to_all(shop.path("TQINVKIT.DAT")):
        pick(board, "KIT-A")
        board.expect_box("Could not open TQINVKIT.DAT for shared access.")
        board.press("OK")
        board.expect_form("frmInvList")
    assert stored(shop) == {}

"""Canned labor: picking a standard job, keeping the list, and the kit that goes with it."""

import pytest

from inventoryfiles import kit_part, make_inventory, make_kits, part
from workfiles import canned_line, make_canned_labor, one_estimate, show, texts

JOBS = [canned_line(50, 6000, 3000, "LOF  OIL AND FILTER", "CHECK FLUIDS"), canned_line(120, 0, 9900, "AC   RECHARGE"),
        canned_line(10, 6500, 650, "BRKFLADJUST BRAKES", "a", "b", "c", "d", "e", "f", "g", "h")]
KITS = [("LOF", "KIT-A"), ("AC", "None")]


@pytest.fixture
def board(start, shop):
    one_estimate(shop)
    shop.write()
    make_canned_labor(shop, JOBS, KITS)
    make_inventory(shop.directory, [kit_part("KIT-A", "LUBE KIT", "20.00", "25.00"), part("OIL-1", "OIL")])
    make_kits(shop.directory, {"KIT-A": ["OIL-1(3)"]})
    copy = show(start(shop))
    copy.click("cmdLaborAddCanned")
    copy.expect_form("frmCanLaborList")
    return copy


def entries(copy):
    return [tuple(row["cells"][column] for column in ("Code", "Description", "Hours", "Rate", "Total"))
            for row in copy.control("DataGrid1")["rows"]]


def labors(shop):
    return [tuple(row.values()) for row in shop.query(
        "SELECT Description, LaborHours, LaborRate, LaborTotal, Mechanic FROM Labors WHERE EstimateNumber = 900")]


def pick(copy, row):
    copy.select("DataGrid1", row=row)
    copy.key("F10")
    copy.expect_form("frmLabor")


def test_a_search_goes_to_the_hits(board):
    board.type("txtDesc", "brakes")
    board.key("Enter")
    assert board.answer["form"] == "frmCanLaborList" and board.answer["focus"] == "DataGrid1"
    assert board.control("DataGrid1")["selected"] == 0
    board.key("Enter")
    board.expect_form("frmLabor")
    assert board.text("txtDesc").startswith("ADJUST BRAKES")


def test_the_list_shows_code_and_text(board):
    assert entries(board) == [("LOF", "OIL AND FILTER CHECK FLUIDS", "0.50", "60.00", "30.00"),
                              ("AC", "RECHARGE", "1.20", "0.00", "99.00"),
                              ("BRKFL", "ADJUST BRAKES a b c d e f g", "0.10", "65.00", "6.50")]
    assert board.control("cmdSelect")["tooltip"] == "Add to workorder <F10>"
    board.key("F10")
    board.expect_box("Must select entry in grid.")
    board.press("OK")


def test_a_pick_goes_through_the_labor_screen_and_offers_its_kit(board, shop):
    pick(board, 0)
    assert board.answer["caption"] == "Estimate Labor"
    assert board.text("txtDesc") == "OIL AND FILTER\nCHECK FLUIDS"
    assert [board.text(name) for name in ("Hours", "ShopRate", "TotalLabor")] == ["0.50", "60.00", "30.00"]
    board.key("F10")
    board.expect_box("Add associated inventory kit\n\nKIT-A\n\nto estimate?", "Add Canned Labor Kit?", "none",
                     ["Yes", "No"])
    board.press("Yes")
    board.expect_form("frmWOKit")
    board.key("F10")
    board.expect_form("frmMain")
    assert labors(shop) == [("OIL AND FILTER\tCHECK FLUIDS\t\t\t\t\t\t", 50, 6000, 3000, 0)]
    assert [row["PartNumber"] for row in shop.query("SELECT * FROM Parts")] == ["KIT-A", "OIL-1"]


def test_an_entry_picked_with_rate_0_stays_0_and_a_kit_of_none_is_not_offered(board, shop):
    pick(board, 1)
    board.key("F10")
    board.expect_form("frmMain")
    assert labors(shop) == [("RECHARGE\t\t\t\t\t\t\t", 120, 0, 9900, 0)]


def test_the_filters_work_as_one_types(board):
    board.type("txtDesc", "brakes")
    assert [code for code, *_ in entries(board)] == ["BRKFL"]
    board.type("txtCode", "lo")
    assert entries(board) == []
    board.type("txtDesc", "")
    assert [code for code, *_ in entries(board)] == ["LOF"]


def test_an_unchanged_list_is_not_written(board, shop):
    before = shop.hashes(but=("*.mdb*", "*.LOG", "AU*"))
    board.key("Esc")
    board.expect_form("frmMain")
    assert shop.hashes(but=("*.mdb*", "*.LOG", "AU*")) == before


def test_entries_are_added_edited_and_deleted(board, shop):
    board.key("Insert")
    board.expect_form("frmCanLabor")
    assert board.answer["caption"] == "Add Canned Labor Item" and board.caption("cmdSave") == "Add"
    assert texts(board, "Combo1") == [" None", "KIT-A"]
    board.type("txtCode", "rot")
    assert board.text("txtCode") == "ROT"
    board.type("Hours", "0.4")
    board.type("ShopRate", "50")
    board.leave()
    assert board.text("TotalLabor") == "20.00"
    board.type("txtDesc", "ROTATE TIRES\nSET PRESSURES")
    board.select("Combo1", text="KIT-A")
    board.key("F10")
    board.expect_form("frmCanLaborList")
    board.select("DataGrid1", row=1)
    board.key("F4")
    assert board.answer["caption"] == "Edit Canned Labor Item" and board.caption("cmdSave") == "Save"
    board.type("TotalLabor", "88")
    board.key("F10")
    board.select("DataGrid1", row=2)
    board.key("Delete")
    board.expect_box("Delete BRKFLADJUST BRAKES?", buttons=["Yes", "No"])
    board.press("Yes")
    assert shop.path("TQCANLAB.DAT").read_bytes() == "".join(JOBS).encode(), "written when the screen closes"
    board.key("Esc")
    assert shop.path("TQCANLAB.DAT").read_bytes() == (
        JOBS[0] + canned_line(120, 0, 8800, "AC   RECHARGE") + canned_line(40, 5000, 2000, "ROT  ROTATE TIRES",
                                                                          "SET PRESSURES")).encode()
    kits = shop.path("TQLABKIT.DAT").read_bytes()
    assert [kits[at:at + 26].replace(b"\0", b" ").split() for at in range(0, len(kits), 26)] == [
        [b"LOF", b"KIT-A"], [b"AC", b"None"], [b"ROT", b"KIT-A"]]


def test_update_rate_changes_the_ticked_entries_alone(board, shop):
    board.click("cmdUpdateRate")
    assert board.caption("cmdUpdateRate") == "Update Now"
    assert not board.control("DataGrid1")["visible"] and board.control("UpdList")["visible"]
    assert [board.control(name)["enabled"] for name in ("cmdDelete", "cmdEdit", "cmdSelect", "cmdPrint")] == [False] * 4
    board.click("cmdUpdateRate")
    board.key("Esc")
    assert shop.path("TQCANLAB.DAT").read_bytes() == "".join(JOBS).encode(), "no ticks change nothing"
    board.click("cmdLaborAddCanned")
    board.click("cmdUpdateRate")
    board.check("UpdList", row=1)
    board.click("cmdUpdateRate")
    assert board.caption("cmdUpdateRate") == "Update Rate"
    assert entries(board)[1] == ("AC", "RECHARGE", "1.20", "65.00", "78.00")
    board.key("Esc")
    assert shop.path("TQCANLAB.DAT").read_bytes().decode().splitlines()[1].startswith("120         6500")


def test_a_shop_without_the_files_has_an_empty_list(start, shop):
    one_estimate(shop)
    shop.write()
    copy = show(start(shop))
    copy.click("cmdLaborAddCanned")
    assert entries(copy) == []
    copy.key("Esc")
    copy.expect_form("frmMain")


def test_the_list_is_printed_after_a_question(board):
    board.click("cmdPrint")
    board.expect_box("Print Canned Labor List?", buttons=["Yes", "No"])
    board.press("No")
    board.expect_form("frmCanLaborList")
    board.click("cmdPrint")
    board.press("Yes")
    assert board.answer["waiting"] == "printer" and board.answer["report"] == "rptGeneric"
    board.send(do="print")
    printed = [event for event in board.answer["events"] if "printed" in event]
    lines = open(printed[0]["text"], encoding="utf-8").read().splitlines()
    assert lines[:3] == ["LOF   OIL AND FILTER\t0.50\t60.00\t30.00", "      CHECK FLUIDS",
                         "AC    RECHARGE\t1.20\t0.00\t99.00"]

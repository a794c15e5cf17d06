"""The inventory list: loading in the background, searching, sorting, and what it hands out."""

from inventoryfiles import make_inventory, part
from locks import denied_to_all
from workfiles import one_estimate, show

PARTS = [part("B-222-111-X", "LONG HOSE", (100, 200, 300, 400), 3), part("OIL'S", "OIL 10'W", (1, 2, 3, 4), 7),
         part("123-456-789", "BELT", (5, 6, 7, 8), IsStocked=0), part("123456789", "NUMBER ALONE"),
         part("A-999-000-X", "SHORT HOSE", (1000, 2000, 3000, 4000), -2)]


def opened(start, shop, parts=PARTS, profile=None, **options):
    one_estimate(shop)
    shop.write()
    if profile:
        shop.write_profile(profile)
    make_inventory(shop.directory, parts)
    copy = show(start(shop, **options))
    copy.click("cmdPartAdd")
    copy.expect_form("frmInvList")
    return copy


def column(copy, name, form=None):
    return [row["cells"][name] for row in copy.control("DataGrid1", form)["rows"]]


def test_the_list_loads_while_the_board_is_used(start, shop):
    one_estimate(shop)
    shop.write()
    make_inventory(shop.directory, [part(f"P-{i:05}", f"PART {i}") for i in range(300)])
    copy = start(shop)
    assert copy.caption("TotalParts", "frmInvList") == "      0 Total Parts"
    assert copy.control("LoadProgress", "frmInvList")["visible"]
    assert not copy.control("SearchPart", "frmInvList")["enabled"]
    copy.wait(1)
    assert copy.caption("TotalParts", "frmInvList") == "    128 Total Parts"
    assert {"beep": True} in copy.wait(10)["events"]
    assert copy.caption("TotalParts", "frmInvList") == "    300 Total Parts"
    assert not copy.control("LoadProgress", "frmInvList")["visible"]
    assert not copy.control("LoadingLabel", "frmInvList")["visible"]
    assert copy.control("SearchPart", "frmInvList")["enabled"]
    assert copy.caption("lblElapsedTime", "frmInvList") == "0:00:00"
    assert copy.answer["form"] == "frmMain"


def test_rows_stand_under_their_base_number(start, shop):
    copy = opened(start, shop)
    assert copy.answer["caption"] == "Add part to estimate" and copy.answer["focus"] == "SearchPart"
    assert column(copy, "SortKey") == ["123456789", "456-123-789", "A-000-999-X", "B-111-222-X", "OIL~S"]
    assert column(copy, "Part") == ["123456789", "123-456-789", "A-999-000-X", "B-222-111-X", "OIL'S"]
    assert [column(copy, name)[3] for name in ("Description", "Qty", "Retail1", "Retail", "Resale", "Wholesale",
                                               "Cost", "Tag", "Index")] == [
        "LONG HOSE", "3", "4.00", "4.00", "3.00", "2.00", "1.00", "0", "0"]
    assert not copy.control("frameStocked")["visible"]


def test_a_search_by_enter_and_by_each_key(start, shop):
    copy = opened(start, shop)
    copy.type("SearchPart", "99")
    assert len(column(copy, "Part")) == 5, "no key searches by itself yet"
    copy.key("Enter")
    assert column(copy, "Part") == ["A-999-000-X"]
    assert copy.caption("lblMatchParts") == "1 Matches    "
    copy.type("SearchPart", "")
    copy.check("cbAutoSearch")
    copy.type("SearchDesc", "hose")
    assert column(copy, "Part") == ["A-999-000-X", "B-222-111-X"], "in either case"
    copy.type("SearchPart", "b-2")
    assert column(copy, "Part") == ["B-222-111-X"]
    copy.type("SearchDesc", "10'w")
    assert column(copy, "Part") == []
    copy.type("SearchPart", "")
    assert column(copy, "Part") == ["OIL'S"], "an apostrophe does not break the filter"
    copy.key("Esc")
    copy.click("cmdPartAdd")
    assert copy.control("cbAutoSearch")["checked"]


def test_the_focus_is_on_the_hits_whose_first_is_current(start, shop):
    copy = opened(start, shop)
    copy.type("SearchPart", "99")
    copy.key("Enter")
    assert copy.answer["focus"] == "DataGrid1" and copy.control("DataGrid1")["selected"] == 0
    copy.key("Enter")
    copy.expect_form("frmWOPart")
    assert copy.text("PartNumber") == "A-999-000-X"


def test_parts_without_a_number_stand_at_the_end(start, shop):
    copy = opened(start, shop, parts=[part("", "NAMELESS"), *PARTS])
    assert column(copy, "Part")[-1] == ""


def test_a_heading_sorts_up_and_down(start, shop):
    copy = opened(start, shop)
    copy.click("DataGrid1", column="Part")
    up = column(copy, "Part")
    assert up == ["123-456-789", "123456789", "A-999-000-X", "B-222-111-X", "OIL'S"]
    copy.click("DataGrid1", column="Part")
    assert column(copy, "Part") == up[::-1]
    copy.click("DataGrid1", column="Description")
    assert column(copy, "Description") == sorted(column(copy, "Description"))


def test_the_stocked_flag_is_used_from_tag_version_1_on(start, shop):
    copy = opened(start, shop, profile={"Inventory": {"InventoryTagVersion": "1"}})
    assert copy.control("frameStocked")["visible"]
    assert column(copy, "IsStocked") == ["1", "0", "1", "1", "1"]
    copy.check("optNonStk")
    assert column(copy, "Part") == ["123-456-789"]
    copy.check("optStk")
    assert len(column(copy, "Part")) == 4
    copy.check("optBoth")
    assert len(column(copy, "Part")) == 5


def test_nothing_selected_and_no_stock_keeping_while_a_part_is_picked(start, shop):
    copy = opened(start, shop)
    for key in ("F10", "F4"):
        copy.key(key)
        copy.expect_box("No part is selected.", "Add part to estimate")
        copy.press("OK")
        copy.expect_form("frmInvList")
    for button in ("cmdAdd", "cmdChange", "cmdDelete"):
        assert not copy.control(button)["enabled"]
    copy.double_click("DataGrid1", row=1)
    copy.expect_form("frmWOPart")
    assert copy.text("PartNumber") == "123-456-789"


def test_a_part_is_looked_at_before_it_goes_on_the_estimate(start, shop):
    copy = opened(start, shop, parts=[part("HOSE", "A HOSE", AltNumber1="BELT"), part("BELT", "A BELT")])
    copy.type("SearchPart", "HOSE")
    copy.key("Enter")
    copy.key("F4")
    copy.expect_form("frmInvView")
    assert copy.caption("StockNumber") == "HOSE"
    copy.key("Esc")
    copy.expect_form("frmInvList")
    assert copy.answer["caption"] == "Add part to estimate"
    assert copy.control("DataGrid1")["selected"] == 0
    copy.key("F4")
    copy.key("F10")
    copy.expect_form("frmWOPart")
    assert copy.text("PartNumber") == "HOSE"
    copy.key("Esc")
    copy.expect_form("frmInvList")
    copy.key("F4")
    copy.key("Alt+1")
    copy.key("Enter")
    copy.expect_form("frmWOPart")
    assert copy.text("PartNumber") == "BELT", "the alternate that was gone to"


def test_blank_tags_are_not_listed(start, shop):
    one_estimate(shop)
    shop.write()
    make_inventory(shop.directory, PARTS[:1])
    tags = shop.path("TQINVTAG.DAT")
    named = bytearray(128)
    named[21:28] = b"NO NAME"
    placed = bytearray(128)
    placed[78] = 9
    tags.write_bytes(bytes(128) + tags.read_bytes() + bytes(named) + bytes(placed) + b"tail of a record")
    copy = show(start(shop))
    assert copy.caption("TotalParts", "frmInvList") == "      4 Total Parts"


def test_a_file_that_is_held_is_asked_for_again(start, shop):
    one_estimate(shop)
    shop.write()
    make_inventory(shop.directory, PARTS)
    with denied_to_all(shop.path("TQINVTAG.DAT")):
        copy = start(shop)
        copy.wait(1)
        copy.expect_box("Error reading inventory tags - Click OK to retry.")
        copy.press("OK")
        copy.expect_box("Error reading inventory tags - Click OK to retry.")
    copy.press("OK")
    copy.expect_form("frmMain")
    copy.wait(5)
    assert copy.caption("TotalParts", "frmInvList") == "      5 Total Parts"

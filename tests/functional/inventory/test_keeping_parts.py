"""Parts are viewed, added, given other numbers and deleted from the inventory list."""

from inventoryfiles import MASTER, MASTER_LENGTH, TAG, TAG_LENGTH, master_record, part, tag_record
from inventorysteps import begin_keeping, both_files, go_to_part, go_to_part_among_all, listed, open_inventory
from screens import expect_changed_within, span, tell
from workfiles import show

PARTS = [
    part("AXLE", "REAR AXLE", (1000, 2000, 3000, 4000), 2, AltNumber1="PAD-9"),
    part("PAD-9", "BRAKE PADS", (5, 1050, 2050, 3050), 12, AltNumber1="AXLE", AltNumber3="NOWHERE", Department="BRAKES",
         Manufacturer="ACME", Location="SHELF 4", Comment="left & right", MarkupPercent=(0, 125000, 250000, 375000),
         HasACore=1, CoreCost=1500, DisposalFee=75, ReorderLevel=3, IdealLevel=20, UsageLink=256, ReceivingLink=512),
    part("ZINC", "ZINC COAT"),
]


def test_the_list_is_opened_from_the_menu_and_closed_again(start, shop):
    copy = begin_keeping(start, shop, PARTS)
    assert copy.events("status") == ["Performing Inventory Maintenance..."]
    assert copy.answer["caption"] == "Inventory List" and copy.answer["focus"] == "SearchPart"
    tips = {name: copy.control(name)["tooltip"] for name in ("cmdView", "cmdAdd", "cmdChange", "cmdDelete")}
    assert tips == {"cmdView": "View <F4>", "cmdAdd": "Add <Insert>",
                    "cmdChange": "Change Part Number *NOT RECOMMENDED*",
                    "cmdDelete": "Delete Part Number *NOT RECOMMENDED*"}
    for control in ("cmdSelect", "cmdView", "cmdChange", "cmdDelete"):
        copy.click(control)
        tell(copy, "No part is selected.", "Inventory List")
        copy.expect_form("frmInvList")
    copy.key("Esc")
    copy.expect_form("frmMain")
    assert copy.events("status") == ["Performing Inventory Maintenance...", ""]


def test_a_part_is_viewed_and_so_are_its_alternates(start, shop):
    copy = begin_keeping(start, shop, PARTS)
    before = both_files(shop)
    go_to_part(copy, "PAD-9")
    copy.key("F4")
    copy.expect_form("frmInvView")
    shown = {name: copy.caption(name) for name in (
        "StockNumber", "Description", "Department", "Manufacturer", "Location", "Comment", "QtyInStock",
        "ReorderLevel", "IdealLevel", "IsStocked", "HasACore", "CoreCost", "HasWaste", "DisposalFee")}
    assert list(shown.values()) == ["PAD-9", "BRAKE PADS", "BRAKES", "ACME", "SHELF 4", "left & right", "12", "3", "20",
                                    "Yes", "Yes", "15.00", "No", "0.75"]
    for name, texts in {"Pricing": ["0.05", "10.50", "20.50", "30.50"],
                        "MarkupPercent": ["0.0000", "12.5000", "25.0000", "37.5000"],
                        "AltNumber": ["AXLE", "", "NOWHERE", ""], "AltInStock": ["2", "", "0", ""],
                        "lblLevel": ["Cost", "Wholesale", "Resale", "Retail"]}.items():
        assert [copy.caption(f"{name}({i})") for i in range(4)] == texts
    assert [copy.control(f"LevelColor({i})")["backcolor"] for i in range(4)] == [
        "#000000", "#ff0000", "#00ff00", "#0000ff"]
    assert [copy.control(f"cmdGoToAlt({i})")["enabled"] for i in range(4)] == [True, False, True, False]
    copy.key("Alt+3")
    tell(copy, "Inventory record does not exist for NOWHERE")
    copy.key("Alt+1")
    assert copy.caption("StockNumber") == "AXLE"
    copy.key("Esc")
    copy.expect_form("frmInvList")
    assert copy.answer["focus"] == "DataGrid1"
    assert listed(copy)[copy.control("DataGrid1")["selected"]] == "PAD-9"
    assert both_files(shop) == before


def test_a_part_is_edited_from_the_list_and_from_its_view(start, shop):
    copy = begin_keeping(start, shop, PARTS)
    go_to_part(copy, "ZINC")
    for keys in (("Enter",), ("F10",), ("F4", "F10")):
        for key in keys:
            copy.key(key)
        copy.expect_form("frmInvEdit")
        assert copy.text("StockNumber") == "ZINC"
        copy.key("Esc")
        copy.expect_form("frmInvList")
        assert copy.answer["focus"] == "DataGrid1"
        assert listed(copy)[copy.control("DataGrid1")["selected"]] == "ZINC"
    go_to_part(copy, "AXLE")
    for key in ("F4", "Alt+1", "F10"):
        copy.key(key)
    copy.expect_form("frmInvEdit")
    assert copy.text("StockNumber") == "PAD-9", "the alternate that was gone to in the view"
    copy.type("Description", "CERAMIC PADS")
    copy.key("F10")
    copy.expect_form("frmInvList")
    copy.type("SearchPart", "")
    copy.click("cmdSearch")
    assert listed(copy, "Description") == ["REAR AXLE", "CERAMIC PADS", "ZINC COAT"]


def test_a_part_is_added_with_the_shops_markups(start, shop):
    shop.system["markups"] = (0, 200000, 300000, 400000)
    copy = begin_keeping(start, shop, PARTS)
    tags, masters = both_files(shop)
    copy.key("Insert")
    copy.expect_form("frmInvAdd")
    assert copy.caption("Msg") == "Enter part number to add." and copy.answer["focus"] == "StockNumber"
    copy.key("Enter")
    tell(copy, "Part number is required.", "Add Part")
    copy.type("StockNumber", "PAD-9")
    copy.key("Enter")
    tell(copy, "Part\nPAD-9\nalready exists.", "Add Part")
    assert copy.caption("Msg") == "PAD-9 already exists."
    assert both_files(shop) == (tags, masters)
    copy.type("StockNumber", "bolt \"5'/C")
    copy.key("F10")
    assert copy.caption("Msg") == "bolt \"5'/C added."
    added = part("bolt \"5'/C", "bolt \"5'/C", IsStocked=0, MarkupPercent=(0, 200000, 300000, 400000))
    assert both_files(shop) == (tags + tag_record(added, 3 * MASTER_LENGTH), masters + master_record(added))
    assert copy.caption("TotalParts", "frmInvList") == "4 Total Parts"
    copy.key("Esc")
    copy.expect_form("frmInvList")
    assert listed(copy) == ["AXLE", "bolt \"5'/C", "PAD-9", "ZINC"]
    assert copy.control("DataGrid1")["selected"] == 1
    assert any(line.endswith("WriteInventory bolt \"5'/C In stock=0") for line in copy.log_lines())


def test_a_part_gets_another_number_and_its_history_stays_with_nobody(start, shop):
    copy = begin_keeping(start, shop, PARTS)
    tags, masters = both_files(shop)
    go_to_part_among_all(copy, "PAD-9")
    copy.key("Alt+G")
    copy.expect_form("frmInvPartChange")
    assert [copy.caption(name) for name in ("lblPart", "lblDesc")] == ["PAD-9", "BRAKE PADS"]
    assert [copy.caption(f"lblWarning({i})") for i in range(3)] == [
        'Warning: Changing the part number will "lose" all receiving and usage history for the old part number. '
        'This change can not be "undone".',
        "Make sure only one instance of Korvel is running, otherwise, Inventory will not be accurate.",
        'WARNING: You must have already removed the "old" part number from all POs and Workorders before changing '
        'the part number here.']
    copy.key("F10")
    tell(copy, "You must supply a new part number, or [Cancel].", "Change Part Number")
    assert copy.answer["focus"] == "txtNewPart"
    copy.type("txtNewPart", "123-456-789")
    copy.key("Enter")
    copy.expect_form("frmInvList")
    assert listed(copy) == ["123-456-789", "AXLE", "ZINC"]
    assert listed(copy, "SortKey")[0] == "456-123-789"
    assert copy.control("DataGrid1")["selected"] == 0
    new_tags, new_masters = both_files(shop)
    expect_changed_within(tags, new_tags, span(TAG, "StockNumber", TAG_LENGTH))
    expect_changed_within(masters, new_masters, *(span(MASTER, field, MASTER_LENGTH) for field in
                                                 ("StockNumber", "UsageLink", "ReceivingLink")))
    assert new_tags[TAG_LENGTH:TAG_LENGTH + 21] == b"123-456-789".ljust(21, b"\0")
    assert new_masters[MASTER_LENGTH:MASTER_LENGTH + 21] == b"123-456-789".ljust(21, b"\0")
    assert new_masters[2 * MASTER_LENGTH - 8:2 * MASTER_LENGTH] == b"\xff" * 8


def test_a_part_is_deleted_and_has_no_row_any_more(start, shop):
    copy = begin_keeping(start, shop, PARTS)
    tags, masters = both_files(shop)
    go_to_part_among_all(copy, "PAD-9")
    copy.key("Alt+L")
    copy.expect_form("frmInvPartDelete")
    assert [copy.caption(name) for name in ("lblPart", "lblDesc", "lblWarning(0)", "lblWarning(1)", "lblQuestion")] == [
        "PAD-9", "BRAKE PADS", 'Warning: Deleting a part number can not be "undone".',
        "Make sure only one instance of Korvel is running, otherwise, Inventory will not be accurate.",
        "Are you really sure you wish to do this?"]
    assert [copy.caption(name).replace("&", "") for name in ("cmdYes", "cmdNo")] == [
        "Yes, delete the part.", "No, I changed my mind."]
    copy.key("Enter")
    copy.expect_form("frmInvList")
    assert both_files(shop) == (tags, masters), "Enter is the way back"
    copy.key("Alt+L")
    copy.click("cmdYes")
    copy.expect_form("frmInvList")
    assert listed(copy) == ["AXLE", "ZINC"]
    assert listed(copy)[copy.control("DataGrid1")["selected"]] == "ZINC"
    new_tags, new_masters = both_files(shop)
    expect_changed_within(tags, new_tags, (TAG_LENGTH, TAG_LENGTH + len("PAD-9")))
    assert new_tags[TAG_LENGTH:TAG_LENGTH + 21] == bytes(21)
    expect_changed_within(masters, new_masters, span(MASTER, "Deleted", MASTER_LENGTH))
    assert new_masters[MASTER_LENGTH + 335] == 1

    copy.key("Esc")
    copy.close_window()
    copy = open_inventory(show(start(shop)))
    assert listed(copy) == ["AXLE", "ZINC"]
    assert copy.caption("TotalParts") == "      2 Total Parts"

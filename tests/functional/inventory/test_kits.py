"""What a kit consists of: its screen, the screen of one part, and the record of the file."""

import pytest
from inventoryfiles import KIT_FILE, KIT_LINES, kit_record, read_kits
from kitsteps import add_part, make_stock, open_kit, row, rows_of
from locks import denied_to_all
from screens import tell

KIT = ["PLUG(4)", "", "WIRES"]


@pytest.fixture
def stock(shop):
    make_stock(shop, {"OTHER": ["CAP"], "TUNEUP": KIT, "LAST": ["PLUG(2)"]})
    return shop


def others(shop):
    kits = read_kits(shop.directory)
    return kits["OTHER"] == ["CAP"] and kits["LAST"] == ["PLUG(2)"] and list(kits) == ["OTHER", "TUNEUP", "LAST"]


def test_a_kit_is_edited_by_keys_and_its_record_alone_is_written(start, stock):
    copy = open_kit(start(stock))
    assert copy.answer["focus"] == "List1"
    assert [copy.text("txtKitPartNumber"), copy.text("txtDesc")] == ["TUNEUP", "TUNE-UP KIT"]
    assert copy.caption("lblHeading") == "  Qty   Part Number          Description"
    assert rows_of(copy) == [row(4, "PLUG", "SPARK PLUG"), row(1, "WIRES", "IGNITION WIRES")]
    assert copy.control("List1")["selected"] == 0
    add_part(copy, "CAP", "3")
    copy.expect_form("frmInvKit")
    assert rows_of(copy)[2] == row(3, "CAP", "DISTRIBUTOR CAP") and copy.control("List1")["selected"] == 2
    copy.key("Ctrl+Up")
    copy.key("Ctrl+Up")
    copy.key("F4")
    copy.expect_form("frmInvKitAdd")
    assert copy.answer["caption"] == "Change Part of Kit" and copy.answer["focus"] == "txtQuantity"
    copy.type("txtQuantity", "1")
    copy.key("Enter")
    assert copy.expect_form("frmInvKit")["focus"] == "List1"
    assert rows_of(copy)[0] == row(1, "CAP", "DISTRIBUTOR CAP")
    copy.key("Down")
    copy.key("Delete")
    copy.key("F10")
    copy.expect_form("frmInvEdit")
    assert stock.path(KIT_FILE).read_bytes() == (kit_record("OTHER", ["CAP"]) + kit_record("TUNEUP", ["CAP", "WIRES"])
                                                 + kit_record("LAST", ["PLUG(2)"]))
    copy.key("F4")
    assert rows_of(copy) == [row(1, "CAP", "DISTRIBUTOR CAP"), row(1, "WIRES", "IGNITION WIRES")]
    copy.key("Esc")
    copy.expect_form("frmInvEdit")


def test_a_part_for_the_kit_is_chosen_from_the_inventory_list(start, stock):
    copy = open_kit(start(stock))
    copy.key("F5")
    copy.expect_form("frmInvKitAdd")
    assert copy.answer["caption"] == "Choose Part for Kit" and copy.answer["focus"] == "txtPart"
    copy.key("F5")
    copy.expect_form("frmInvList")
    assert copy.answer["caption"] == "Choose Part for Kit"
    copy.type("SearchPart", "CAP")
    copy.key("Enter")
    copy.key("F10")
    copy.expect_form("frmInvKitAdd")
    assert [copy.text("txtPart"), copy.text("txtDesc"), copy.text("txtQuantity")] == ["CAP", "DISTRIBUTOR CAP", "1"]
    assert copy.answer["focus"] == "txtQuantity"
    copy.key("6")
    copy.key("F10")
    copy.expect_form("frmInvKit")
    copy.key("F10")
    assert read_kits(stock.directory)["TUNEUP"] == ["PLUG(4)", "WIRES", "CAP(6)"] and others(stock)
    copy.key("Esc")
    assert copy.expect_form("frmInvList")["caption"] != "Choose Part for Kit"
    assert copy.text("SearchPart") == "TUNEUP" and len(copy.control("DataGrid1")["rows"]) == 1
    copy.key("Esc")
    copy.expect_form("frmMain")


def test_each_button_says_what_it_lacks(start, stock):
    copy = open_kit(start(stock))
    copy.key("Ctrl+Up")
    tell(copy, "Part is already at the top of the list!", "Inventory Kit")
    copy.select("List1", row=1)
    copy.click("cmdMoveDown")
    tell(copy, "Part is already at the bottom of the list!")
    copy.key("Delete")
    copy.key("Delete")
    for key, text in (("F4", "There are no parts which can be changed!"),
                      ("Delete", "There are no parts which can be deleted!"),
                      ("Ctrl+Up", "There are no parts which can be moved!"),
                      ("Ctrl+Down", "There are no parts which can be moved!")):
        copy.key(key)
        tell(copy, text)
    copy.key("Esc")
    copy.expect_box("Are you sure you wish to discard updates?", "Inventory Kit", "question", ["Yes", "No"])
    copy.press("No")
    copy.close()
    copy.press("Yes")
    copy.expect_form("frmInvEdit")
    assert stock.path(KIT_FILE).read_bytes()[1971:3942] == kit_record("TUNEUP", KIT)


def test_a_part_that_a_kit_can_not_hold_is_refused_in_words(start, stock):
    copy = open_kit(start(stock))
    for number, quantity, text in (("", None, "Part number is required."), ("GONE", None, "Part GONE not found."),
                                   ("PLUG", "0", "Quantity must be a whole number from 1 to 99999."),
                                   ("PLUG", "-2", "Quantity must be a whole number from 1 to 99999."),
                                   ("PLUG", "abc", 'Quantity: "abc" is not a number.')):
        add_part(copy, number, quantity)
        tell(copy, text, "Choose Part for Kit")
        copy.key("Esc")
        if number:
            copy.expect_box("Discard changes?")
            copy.press("Yes")
        copy.expect_form("frmInvKit")
    assert len(rows_of(copy)) == 2
    copy.key("Esc")
    copy.expect_form("frmInvEdit")


def test_a_kit_of_fifty_parts_fills_the_record_and_has_no_room_for_another(start, shop):
    lines = [f"P{i}(2)" for i in range(1, KIT_LINES)]
    make_stock(shop, {"TUNEUP": lines})
    copy = open_kit(start(shop))
    add_part(copy, "CAP")
    copy.key("F5")
    tell(copy, "A kit has room for 50 parts, and this one is full.")
    copy.key("F10")
    copy.expect_form("frmInvEdit")
    assert shop.path(KIT_FILE).read_bytes() == kit_record("TUNEUP", lines + ["CAP"])


def test_a_held_kit_file_is_told_and_nothing_is_lost(start, stock):
    copy = open_kit(start(stock))
    copy.key("Delete")
    with denied_to_all(stock.path(KIT_FILE)):
        copy.key("F10")
        tell(copy, "Could not open TQINVKIT.DAT for exclusive access.")
        copy.expect_form("frmInvKit")
    copy.key("F10")
    copy.expect_form("frmInvEdit")
    assert read_kits(stock.directory)["TUNEUP"] == ["WIRES"] and others(stock)
    with denied_to_all(stock.path(KIT_FILE)):
        copy.key("F4")
        tell(copy, "Could not open TQINVKIT.DAT for shared access.")
        copy.expect_form("frmInvEdit")

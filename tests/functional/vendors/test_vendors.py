"""The vendors: list, edit, add, delete, by keys, and the key that shows them on every screen."""

import pytest

from locks import denied_to_all
from screens import back_to_board, edit_customer, expect_changed_within, shared_files, tell
from vendorfiles import (ALPHA, BLANK, COMMANDS, DELTA, GAMMA, LOCKED, VENDOR, VENDOR_FILE, VENDOR_LENGTH, add_vendor,
                         open_vendors, vendor_bytes, vendor_record, vendors, write_vendors)


@pytest.fixture
def at_list(start, vendors):
    copy = start(vendors)
    open_vendors(copy)
    return copy


def fields_on_show(copy):
    return {name: copy.text(name) for name in VENDOR}


def test_the_list_has_the_vendors_that_are_not_deleted(at_list, vendors):
    assert at_list.answer["caption"] == "Vendor List" and at_list.answer["focus"] == "VendorList"
    assert [(row["text"], row["data"]) for row in at_list.control("VendorList")["rows"]] == [
        ("Alpha Glass", 0), ("Gamma Towing", 2), ("Delta Paint", 3)]
    assert at_list.control("VendorList")["selected"] == -1
    at_list.key("F10")
    tell(at_list, "No vendor selected.", "Vendor List")
    at_list.key("Enter")
    tell(at_list, "No vendor selected.")
    at_list.key("Delete")
    tell(at_list, "No vendor selected.")
    at_list.key("Esc")
    at_list.expect_form("frmMain")


def test_an_empty_or_missing_file_has_no_vendors(start, shop):
    shop.write()
    copy = start(shop)
    open_vendors(copy)
    assert copy.rows("VendorList") == []
    copy.key("Esc")
    assert shop.path(VENDOR_FILE).read_bytes() == b""
    open_vendors(copy)
    assert copy.rows("VendorList") == []
    copy.key("Esc")


def test_every_field_is_shown_and_saved(at_list, vendors):
    before = shared_files(vendors)
    at_list.key("Down")
    at_list.key("Enter")
    at_list.expect_form("frmVendorEdit")
    assert at_list.answer["caption"] == "Edit Vendor" and at_list.answer["focus"] == "VendorName"
    assert fields_on_show(at_list) == {**ALPHA, "Contact": "Ann Adams"}
    assert at_list.caption("cmdCancel") == "Close"
    assert shared_files(vendors) == before, "looking writes nothing"
    changed = {"VendorName": "Omega", "Contact": "C\xf6sar", "Address": "2 A", "City": "C", "State": "NY", "Zip": "1",
               "Phone1": "2", "Phone1Ext": "3", "Phone2": "4", "Phone3": "5", "TaxIdNumber": "6"}
    for name, text in changed.items():
        at_list.type(name, text)
    assert at_list.caption("cmdCancel") == "Cancel"
    at_list.key("F10")
    at_list.expect_form("frmVendorList")
    assert at_list.rows("VendorList") == ["Omega", "Gamma Towing", "Delta Paint"]
    assert at_list.control("VendorList")["selected"] == 0
    assert vendor_bytes(vendors) == [vendor_record(changed), BLANK, vendor_record(GAMMA), vendor_record(DELTA)]


def test_a_change_of_one_field_leaves_every_other_byte(at_list, vendors):
    before = vendors.path(VENDOR_FILE).read_bytes()
    at_list.key("Down")
    at_list.key("Enter")
    at_list.type("Zip", "97331-0001")
    at_list.click("cmdSave")
    at_list.expect_form("frmVendorList")
    expect_changed_within(before, vendors.path(VENDOR_FILE).read_bytes(), (121, 132))


def test_reset_cancel_and_the_neighbours_ask_as_they_should(at_list, vendors):
    before = vendors.path(VENDOR_FILE).read_bytes()
    at_list.key("Down")
    at_list.key("Enter")
    at_list.type("City", "Nowhere")
    at_list.key("F2")
    assert at_list.text("City") == "Dayton" and at_list.caption("cmdCancel") == "Close"
    at_list.type("City", "Nowhere")
    at_list.key("PgDn")
    at_list.expect_box("Discard current changes?", "Edit Vendor", "question", ["Yes", "No"])
    at_list.press("No")
    assert at_list.text("City") == "Nowhere"
    at_list.click("cmdNext")
    at_list.press("Yes")
    assert (at_list.text("VendorName"), at_list.text("City")) == ("Gamma Towing", "Xenia")
    at_list.key("PgDn")
    assert at_list.text("VendorName") == "Delta Paint"
    assert {"beep": True} in at_list.key("PgDn")["events"]
    at_list.key("PgUp")
    at_list.type("State", "OH")
    at_list.key("Esc")
    at_list.expect_box("Discard changes?", "Edit Vendor", "question", ["Yes", "No"])
    at_list.press("No")
    at_list.expect_form("frmVendorEdit")
    at_list.click("cmdCancel")
    at_list.press("Yes")
    at_list.expect_form("frmVendorList")
    assert at_list.control("VendorList")["selected"] == 1, "the vendor seen last"
    assert vendors.path(VENDOR_FILE).read_bytes() == before


def test_a_vendor_without_a_name_is_not_saved(at_list, vendors):
    at_list.key("Down")
    at_list.key("Enter")
    at_list.type("VendorName", "")
    at_list.key("F10")
    tell(at_list, "A vendor must have a name.", "Edit Vendor")
    assert at_list.answer["focus"] == "VendorName"
    assert vendor_bytes(vendors)[0] == vendor_record(ALPHA)


def test_a_new_vendor_takes_the_companys_city_and_state(at_list, vendors):
    at_list.key("Insert")
    at_list.expect_form("frmVendorAdd")
    assert at_list.answer["focus"] == "VendorName" and at_list.caption("Msg") == "Enter vendor to add."
    at_list.type("VendorName", "gamma TOWING")
    assert {"beep": True} in at_list.key("Enter")["events"]
    assert at_list.caption("Msg") == "gamma TOWING already exists."
    at_list.type("VendorName", "  Epsilon Tires ")
    at_list.key("Enter")
    at_list.expect_form("frmVendorList")
    assert at_list.rows("VendorList")[-1] == "Epsilon Tires" and at_list.control("VendorList")["selected"] == 3
    assert vendor_bytes(vendors)[4:] == [
        vendor_record({"VendorName": "Epsilon Tires", "City": "Springfield", "State": "OH"})]


def test_a_name_typed_and_not_added_is_asked_about(at_list, vendors):
    at_list.click("cmdNew")
    at_list.type("VendorName", "Epsilon")
    at_list.key("Esc")
    at_list.expect_box("Discard changes?")
    at_list.press("Yes")
    at_list.expect_form("frmVendorList")
    assert len(vendor_bytes(vendors)) == 4


def test_a_deleted_vendors_row_is_absent_at_the_next_load_and_the_others_keep_their_numbers(at_list, start, vendors):
    at_list.select("VendorList", text="Gamma Towing")
    at_list.key("Delete")
    at_list.expect_box("Deleting vendor\nGamma Towing\nAre you sure?", "Vendor List", "question", ["Yes", "No"])
    at_list.press("No")
    assert vendor_bytes(vendors)[2] == vendor_record(GAMMA)
    at_list.click("cmdDelete")
    at_list.press("Yes")
    assert at_list.rows("VendorList") == ["Alpha Glass", "Delta Paint"]
    assert vendor_bytes(vendors) == [vendor_record(ALPHA), BLANK, BLANK, vendor_record(DELTA)]
    at_list.cut()
    again = start(vendors)
    open_vendors(again)
    assert [(row["text"], row["data"]) for row in again.control("VendorList")["rows"]] == [
        ("Alpha Glass", 0), ("Delta Paint", 3)]


@pytest.mark.parametrize("broken", (101, 102))
def test_a_file_that_is_not_whole_records(start, shop, broken):
    shop.write()
    half = vendor_record(GAMMA)[:broken]
    write_vendors(shop, ALPHA, half)
    copy = start(shop)
    open_vendors(copy)
    counts = broken == 102
    assert copy.rows("VendorList") == ["Alpha Glass"] + ["Gamma Towing"] * counts
    add_vendor(copy, "Epsilon")
    added = vendor_record({"VendorName": "Epsilon", "City": "Springfield", "State": "OH"})
    kept = [half + bytes(VENDOR_LENGTH - broken)] if counts else []
    assert vendor_bytes(shop) == [vendor_record(ALPHA), *kept, added]


def test_the_key_of_the_vendors_shows_them_on_every_screen(start, shop):
    shop.add_vehicle(shop.add_customer(7, "Smith", "John"), "Ford", "Focus", "1999")
    shop.write()
    write_vendors(shop, ALPHA)
    copy = start(shop)

    def look(expected):
        copy.key("Ctrl+Alt+V")
        copy.expect_form("frmVendorList")
        assert copy.answer["caption"] == "View Vendors"
        assert not any(copy.control(name)["visible"] for name in COMMANDS)
        assert {"beep": True} in copy.key("Ctrl+Alt+V")["events"]
        copy.key("Esc")
        copy.expect_form(expected)

    look("frmMain")
    edit_customer(copy, 7)
    copy.type("City", "Typed")
    look("frmCustEdit")
    assert copy.text("City") == "Typed"
    copy.click("cmdVehicles")
    look("frmVehList")
    copy.key("Esc")
    copy.key("Esc")
    copy.press("Yes")
    back_to_board(copy)
    for item, form in (("mnuSpecialDays", "frmSpecialDays"), ("mnuPrintOptions", "frmPrintOptions")):
        copy.menu(item)
        look(form)
        back_to_board(copy)


def test_a_vendor_that_is_only_looked_at(start, vendors):
    before = vendors.path(VENDOR_FILE).read_bytes()
    copy = start(vendors)
    copy.key("Ctrl+Alt+V")
    copy.key("Down")
    copy.key("Enter")
    copy.expect_form("frmVendorEdit")
    assert copy.answer["caption"] == "Vendor View"
    assert all(copy.control(name)["locked"] for name in VENDOR)
    assert not copy.control("cmdSave")["visible"] and not copy.control("cmdReset")["visible"]
    copy.refused(do="type", control="City", text="x")
    copy.key("PgDn")
    assert fields_on_show(copy) == {**dict.fromkeys(VENDOR, ""), **GAMMA}
    assert {"beep": True} in copy.key("Ctrl+Alt+V")["events"]
    copy.key("F10")
    copy.expect_form("frmVendorEdit")
    copy.key("Esc")
    copy.expect_form("frmVendorList")
    copy.key("Esc")
    copy.expect_form("frmMain")
    assert vendors.path(VENDOR_FILE).read_bytes() == before


def test_a_file_that_is_held_is_asked_about_for_ever(start, vendors):
    copy = start(vendors)
    with denied_to_all(vendors.path(VENDOR_FILE)):
        copy.menu("mnuMaintVendors")
        for _ in range(4):
            copy.expect_box(LOCKED, "LoadVendors Error 70: Permission denied", "none", ["OK"])
            copy.press("OK")
    copy.press("OK")
    copy.expect_form("frmVendorList")
    for keys, title in ((("Home", "Enter", "F10"), "SaveVendor"), (("Home", "Delete"), "DeleteVendor")):
        for key in keys[:-1]:
            copy.key(key)
        with denied_to_all(vendors.path(VENDOR_FILE)):
            copy.key(keys[-1])
            if title == "DeleteVendor":
                copy.press("Yes")
            for _ in range(2):
                copy.expect_box(LOCKED, title + " Error 70: Permission denied", "none", ["OK"])
                copy.press("OK")
        copy.press("OK")
        copy.expect_form("frmVendorList")
    assert vendor_bytes(vendors)[:2] == [BLANK, BLANK]

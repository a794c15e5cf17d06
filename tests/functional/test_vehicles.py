"""The vehicle list and the vehicle screen: rows, filters, order, the toggle, and every byte."""

import struct

import pytest

from driver import Settings
from screens import (back_to_board, cells, customer_span, expect_changed_within, open_search, open_vehicles,
                     pick_customer, search, shared_files, tell, vehicle_span)
from shopfiles import (CUSTOMER_LENGTH, DELETED, LIVE, NO_LINK, VEHICLE, VEHICLE_LENGTH, file_date, put, take)

FOCUS, CIVIC, TAURUS = 0, 2 * VEHICLE_LENGTH, 3 * VEHICLE_LENGTH
TEXTS = {
    "Make": "Make", "Model": "Model", "Year": "Year", "EngineSize": "EngineSize", "Transmission": "Transmission",
    "VIN": "VIN", "LicenseNumber": "LicenseNumber", "State": "State", "VComment(0)": "VComment1",
    "VComment(1)": "VComment2", "VComment(2)": "VComment3", "VComment(3)": "VComment4",
}


def grid_row(year, make, model, license_number, vin, mileage, link, deleted=LIVE, unit="License"):
    return {"Year": year, "Make": make, "Model": model, unit: license_number, "VIN": vin, "Mileage": str(mileage),
            "VLink": str(link), "Deleted": str(deleted), "X": "X" if deleted == DELETED else " "}


FOCUS_ROW = grid_row("1999", "Ford", "Focus", "ABC 1", "V3", 1000, FOCUS)
CIVIC_ROW = grid_row("1995", "Honda", "Civic", "OLD", "V1", 0, CIVIC, DELETED)
TAURUS_ROW = grid_row("2000", "ford", "Taurus", "XYZ", "V2", 90000, TAURUS)


@pytest.fixture
def shop(shop):
    shop.add_employee(1, "Bob Wrench")
    shop.add_customer(7, "Walker", "Wes")
    smith = shop.add_customer(8, "Smith", "Martha")
    dodge = shop.add_customer(9, "Dodger", "Dee")
    # What stands behind the first NUL is somebody's leftover.
    leftovers = {"EngineSize": b"2.0\0~~~~~~~~~", "VComment2": b"Squeaks\0".ljust(65, b"~")}
    shop.add_vehicle(smith, "Ford", "Focus", "1999", "2003-05-06", LicenseNumber="ABC 1", VIN="V3", Mileage=1000,
                     FirstMileage=10, FirstDate=file_date("1999-01-02"), State="OH", **leftovers)
    shop.add_vehicle(dodge, "Dodge", "Ram", "2001", VIN="V9")
    shop.add_vehicle(smith, "Honda", "Civic", "1995", Deleted=DELETED, LicenseNumber="OLD", VIN="V1")
    shop.add_vehicle(smith, "ford", "Taurus", "2000", LicenseNumber="XYZ", VIN="V2", Mileage=90000,
                     FirstMileage=80000)
    shop.add_make("Ford", ["Focus", "Taurus"])
    shop.add_make("Honda", ["Civic"])
    return shop


@pytest.fixture
def at_list(lantos):
    open_vehicles(lantos, 8)
    return lantos


def vehicles(shop):
    return shop.path("TQVEHICL.DAT").read_bytes()


def masters(shop):
    return shop.path("TQCSTDAT.DAT").read_bytes()


def edit(copy, row):
    copy.click("DataGrid1", row=row)
    copy.click("cmdEdit")
    return copy.expect_form("frmVehEdit")


def save(copy):
    copy.key("F10")
    return copy.expect_form("frmVehList")


# The list.


def test_a_deleted_vehicle_is_hidden_until_it_is_asked_for_and_shows_an_x(at_list, tmp_path):
    assert (at_list.text("CustomerNumber"), at_list.text("CustName")) == ("000008", "Smith, Martha")
    assert cells(at_list) == [TAURUS_ROW, FOCUS_ROW]
    at_list.check("chkShowDeleted")
    assert at_list.caption("chkShowDeleted") == "Show Deleted (X)"
    assert cells(at_list) == [CIVIC_ROW, TAURUS_ROW, FOCUS_ROW]
    assert Settings(tmp_path / "settings").read("Lantos", "frmVehListShowDel") == "True"
    back_to_board(at_list)
    open_vehicles(at_list, 8)
    assert at_list.control("chkShowDeleted")["checked"] is True
    assert cells(at_list) == [CIVIC_ROW, TAURUS_ROW, FOCUS_ROW]
    at_list.check("chkShowDeleted", False)
    assert cells(at_list) == [TAURUS_ROW, FOCUS_ROW]


def test_a_customer_without_vehicles_has_an_empty_list(lantos):
    open_vehicles(lantos, 7)
    assert cells(lantos) == []
    lantos.click("cmdEdit")
    tell(lantos, "No vehicle selected.")
    lantos.click("cmdDelete")
    tell(lantos, "Must select a vehicle to delete.")
    lantos.expect_form("frmVehList")


@pytest.mark.parametrize("filters, vins", [
    ({"txtYear": "2"}, ["V2"]), ({"txtYear": "00"}, []), ({"txtMake": "FORD"}, ["V2", "V3"]),
    ({"txtModel": "t"}, ["V2"]), ({"txtLicense": "abc"}, ["V3"]), ({"txtVIN": "V"}, ["V2", "V3"]),
    ({"txtMake": "ford", "txtModel": "f"}, ["V3"]), ({"txtMake": "ford", "txtModel": "c"}, []),
    ({"txtModel": "%cus"}, ["V3"]), ({"txtModel": "*s"}, ["V2", "V3"]), ({"txtModel": "F*"}, ["V3"]),
    ({"txtMake": "F%", "txtYear": "1*"}, ["V3"]), ({"txtVIN": "  "}, ["V2", "V3"]),
])
def test_filters_narrow_the_list_as_they_are_typed(at_list, filters, vins):
    for box, text in filters.items():
        at_list.type(box, text)
    assert cells(at_list, "VIN") == vins
    at_list.check("chkShowDeleted")
    assert ("V1" in cells(at_list, "VIN")) == (filters == {"txtVIN": "V"} or filters == {"txtVIN": "  "})
    for box in filters:
        at_list.type(box, "")
    assert cells(at_list, "VIN") == ["V1", "V2", "V3"]


def test_a_heading_sorts_and_the_order_is_remembered(start, shop, tmp_path):
    shop.write()
    copy = start(shop)
    open_vehicles(copy, 8)
    settings = Settings(tmp_path / "settings")
    for column, stored, vins in (("Year", "Year", ["V3", "V2"]), ("Year", "Year Desc", ["V2", "V3"]),
                                 ("Mileage", "Mileage", ["V3", "V2"]), ("License", "License", ["V3", "V2"]),
                                 ("License", "License Desc", ["V2", "V3"])):
        copy.click("DataGrid1", column=column)
        assert cells(copy, "VIN") == vins
        assert settings.read("Lantos", "frmVehListSort") == stored
    back_to_board(copy)
    copy.close_window()
    copy = start(shop)
    open_vehicles(copy, 8)
    assert cells(copy, "VIN") == ["V2", "V3"]
    copy.click("DataGrid1", column="License")
    assert settings.read("Lantos", "frmVehListSort") == "License"


@pytest.mark.parametrize("fleet, stored, column, vins", [
    ("True", "License Desc", "Unit", ["V2", "V3"]), ("True", "License", "Unit", ["V3", "V2"]),
    ("False", "Unit Desc", "License", ["V2", "V3"]), ("False", "Unit", "License", ["V3", "V2"]),
    ("False", "Nonsense", "License", ["V2", "V3"]),
])
def test_a_stored_sort_by_license_serves_either_kind_of_shop(start, shop, tmp_path, fleet, stored, column, vins):
    shop.write()
    settings = Settings(tmp_path / "settings")
    settings.write("Lantos", {"frmVehListSort": stored})
    settings.write("Korvel", {"FleetVersion": fleet})
    copy = start(shop)
    open_vehicles(copy, 8)
    assert cells(copy, "VIN") == vins
    assert list(cells(copy)[0]) == ["Year", "Make", "Model", column, "VIN", "Mileage", "VLink", "Deleted", "X"]
    copy.type("txtLicense", "abc")
    assert cells(copy, column) == ["ABC 1"]
    copy.click("cmdEdit")
    captions = [control.get("caption") for control in copy.get("form")["controls"].values()]
    assert ("Unit Number" in captions) == (fleet == "True")


def test_a_link_behind_the_end_of_the_file_ends_the_walk(start, shop):
    struct.pack_into("<i", shop.customers, CUSTOMER_LENGTH + 313, 999999)
    shop.write()
    copy = start(shop)
    open_vehicles(copy, 8)
    assert cells(copy, "VLink") == ["999999", "0"], "a blank vehicle leads on to the first of the file"


# Deleting and restoring.


def test_deleting_twice_restores_and_nothing_else_changes(at_list, shop):
    original, owner = vehicles(shop), masters(shop)
    marked = bytearray(original)
    marked[TAURUS + 4:TAURUS + 8] = struct.pack("<i", DELETED)
    at_list.check("chkShowDeleted")
    at_list.click("DataGrid1", row=1)
    at_list.key("Ctrl+Del")
    at_list.expect_box("Delete the 2000 ford Taurus from this customer?", "Delete vehicle", buttons=["Yes", "No"])
    at_list.press("No")
    assert vehicles(shop) == original
    at_list.click("cmdDelete")
    at_list.press("Yes")
    tell(at_list, "Vehicle deleted from this customer.")
    assert vehicles(shop) == marked
    assert cells(at_list) == [CIVIC_ROW, {**TAURUS_ROW, "Deleted": "86", "X": "X"}, FOCUS_ROW]
    at_list.click("DataGrid1", row=1)
    at_list.click("cmdDelete")
    at_list.expect_box("Return the 2000 ford Taurus to this customer?", "Undelete vehicle", buttons=["Yes", "No"])
    at_list.press("Yes")
    tell(at_list, "Vehicle restored to this customer.")
    assert vehicles(shop) == original
    assert cells(at_list) == [CIVIC_ROW, TAURUS_ROW, FOCUS_ROW]
    assert masters(shop) == owner


def test_a_deleted_vehicle_leaves_the_list_and_still_passes_its_chain_on(at_list, shop):
    at_list.click("DataGrid1", row=0)
    at_list.click("cmdDelete")
    at_list.press("Yes")
    tell(at_list, "Vehicle deleted from this customer.")
    assert cells(at_list) == [FOCUS_ROW]
    back_to_board(at_list)
    open_vehicles(at_list, 8)
    assert cells(at_list) == [FOCUS_ROW], "behind two deleted ones"


def test_the_toggle_goes_by_what_the_record_holds(at_list, shop):
    original = vehicles(shop)
    marked = bytearray(original)
    marked[TAURUS + 4:TAURUS + 8] = struct.pack("<i", DELETED)
    shop.path("TQVEHICL.DAT").write_bytes(marked)
    at_list.click("DataGrid1", row=0)
    at_list.click("cmdDelete")
    at_list.expect_box("Delete the 2000 ford Taurus from this customer?", "Delete vehicle")
    at_list.press("Yes")
    tell(at_list, "Vehicle restored to this customer.")
    assert vehicles(shop) == original
    assert cells(at_list) == [TAURUS_ROW, FOCUS_ROW]


def test_any_other_mark_than_86_is_a_live_vehicle(start, shop):
    at = CIVIC + 4
    shop.vehicles[at:at + 4] = struct.pack("<i", 85)
    shop.write()
    copy = start(shop)
    open_vehicles(copy, 8)
    assert cells(copy, "VIN") == ["V1", "V2", "V3"]
    copy.click("DataGrid1", row=0)
    copy.click("cmdDelete")
    copy.press("Yes")
    tell(copy, "Vehicle deleted from this customer.")
    assert vehicles(shop)[at:at + 4] == struct.pack("<i", DELETED)


# New.


def test_a_new_vehicle_becomes_the_first_of_the_chain(at_list, shop):
    before, owner = vehicles(shop), masters(shop)
    tags = shop.path("TQCSTTAG.DAT").read_bytes()
    at_list.key("Insert")
    at_list.expect_form("frmVehEdit")
    assert (at_list.text("CustomerNumber"), at_list.text("Lastname")) == ("000008", "Smith")
    assert {control: at_list.text(control) for control in TEXTS} == {**dict.fromkeys(TEXTS, ""), "State": "OH"}
    assert at_list.text("txtDate") == ""
    for control, text in (("Make", "BMW"), ("Model", "318i"), ("Year", "1992"), ("VIN", "V0"), ("Mileage", " "),
                          ("VComment(3)", " last line ")):
        at_list.type(control, text)
    save(at_list)
    assert cells(at_list, "VIN") == ["V0", "V2", "V3"]
    link = 4 * VEHICLE_LENGTH
    added = put(bytearray(VEHICLE_LENGTH), VEHICLE, Number=8, Deleted=LIVE, Make="BMW", Model="318i", Year="1992",
                VIN="V0", State="OH", VComment4="last line", VLink=TAURUS)
    assert vehicles(shop) == before + added
    first, last = customer_span("VLink", CUSTOMER_LENGTH)
    expect_changed_within(owner, masters(shop), (first, first + 2))
    assert masters(shop)[first:last] == struct.pack("<i", link)
    assert shop.path("TQCSTTAG.DAT").read_bytes() == tags
    back_to_board(at_list)
    open_search(at_list)
    assert search(at_list, VIN="V0") == "Found 1 matching VIN # records."


def test_the_first_vehicle_of_a_shop_lies_at_offset_0_which_is_a_real_link(start, shop):
    shop.vehicles.clear()
    for at in range(0, len(shop.customers), CUSTOMER_LENGTH):
        struct.pack_into("<i", shop.customers, at + 313, NO_LINK)
    shop.write()
    copy = start(shop)
    for vin in ("A", "B"):
        open_vehicles(copy, 7)
        copy.key("Insert")
        copy.type("VIN", vin)
        save(copy)
        back_to_board(copy)
    open_vehicles(copy, 7)
    assert cells(copy, "VIN") == ["A", "B"]
    assert [vehicle["VLink"] for vehicle in shop.read_vehicles()] == [NO_LINK, 0]
    assert [customer["VLink"] for customer in shop.read_customers()] == [VEHICLE_LENGTH, NO_LINK, NO_LINK]


def test_a_new_vehicle_that_is_not_saved_leaves_nothing(at_list, shop):
    before = shared_files(shop)
    at_list.key("Insert")
    at_list.type("VIN", "V0")
    assert at_list.caption("cmdCancel") == "Cancel"
    at_list.key("Esc")
    at_list.expect_box("Discard changes?", buttons=["Yes", "No"])
    at_list.press("Yes")
    at_list.expect_form("frmVehList")
    assert cells(at_list) == [TAURUS_ROW, FOCUS_ROW]
    assert shared_files(shop) == before


# Editing.


def test_editing_one_field_changes_that_fields_bytes_alone(at_list, shop):
    owner = masters(shop)
    for control, field in TEXTS.items():
        before = vehicles(shop)
        edit(at_list, -1 + len(cells(at_list)))
        typed = "X9" if control == "State" else "W" + control[:1] + control[-2:-1]
        at_list.type(control, typed)
        save(at_list)
        first, last = vehicle_span(field, FOCUS)
        expect_changed_within(before, vehicles(shop), (first, last))
        assert vehicles(shop)[first:last] == typed.encode().ljust(last - first, b"\0")
    assert masters(shop) == owner
    assert cells(at_list)[-1]["VIN"] == take(vehicles(shop), VEHICLE)["VIN"]


def test_saving_what_was_not_changed_leaves_every_byte(at_list, shop):
    before = shared_files(shop)
    for row in (0, 1):
        edit(at_list, row)
        save(at_list)
    assert shared_files(shop) == before


def test_enter_edits_and_reset_shows_the_record_again(at_list, shop):
    before = shared_files(shop)
    at_list.click("DataGrid1", row=1)
    at_list.key("Enter")
    at_list.expect_form("frmVehEdit")
    shown = {control: at_list.text(control) for control in (*TEXTS, "Mileage", "txtDate")}
    assert shown == {"Make": "Ford", "Model": "Focus", "Year": "1999", "EngineSize": "2.0", "Transmission": "",
                     "VIN": "V3", "LicenseNumber": "ABC 1", "State": "OH", "VComment(0)": "", "VComment(1)": "Squeaks",
                     "VComment(2)": "", "VComment(3)": "", "Mileage": "1000", "txtDate": "05/06/2003"}
    for control in shown:
        at_list.type(control, "11/11/1999" if control == "txtDate" else "1")
    assert at_list.caption("cmdCancel") == "Cancel"
    at_list.key("F2")
    assert {control: at_list.text(control) for control in shown} == shown
    assert at_list.caption("cmdCancel") == "Close"
    at_list.key("Esc")
    at_list.expect_form("frmVehList")
    assert shared_files(shop) == before


def test_mileage_and_date_go_to_their_bytes_and_the_first_ones_follow(at_list, shop):
    steps = [
        # row, typed, changed fields
        (1, {"Mileage": "2000", "txtDate": "09/30/2003"}, {"Mileage": 2000, "Date": 731868}),
        (1, {"Mileage": ""}, {"Mileage": 0, "FirstMileage": 0, "FirstDate": 0}),
        (1, {"Mileage": "2,500"}, {"Mileage": 2500, "FirstMileage": 2500, "FirstDate": 731868}),
        (0, {"txtDate": "01/01/2000"}, {"Date": file_date("2000-01-01"), "FirstDate": file_date("2000-01-01")}),
        (0, {"txtDate": ""}, {"Date": 0}),
    ]
    for row, typed, changed in steps:
        at = (TAURUS, FOCUS)[row]
        before = vehicles(shop)
        edit(at_list, row)
        for control, text in typed.items():
            at_list.type(control, text)
        save(at_list)
        expected = put(bytearray(before[at:at + VEHICLE_LENGTH]), VEHICLE, **changed)
        assert vehicles(shop) == before[:at] + expected + before[at + VEHICLE_LENGTH:], typed


@pytest.mark.parametrize("typed", ["12k", "a", "1 2 3", "--5"])
def test_a_mileage_that_is_no_number_stops_the_save(at_list, shop, typed):
    before = shared_files(shop)
    edit(at_list, 0)
    at_list.type("Mileage", typed)
    at_list.key("F10")
    tell(at_list, "Invalid mileage - must be numeric.")
    at_list.expect_form("frmVehEdit")
    assert at_list.text("Mileage") == typed
    assert shared_files(shop) == before


@pytest.mark.parametrize("typed", ["13/01/2003", "02/29/2003", "yesterday", "0"])
def test_an_invalid_date_is_told_of_when_the_field_is_left(at_list, shop, typed):
    before = shared_files(shop)
    edit(at_list, 0)
    at_list.type("txtDate", typed)
    at_list.leave()
    tell(at_list, "Invalid date!")
    at_list.expect_form("frmVehEdit")
    at_list.type("txtDate", "2/29/2004")
    at_list.leave()
    assert at_list.text("txtDate") == "02/29/2004"
    assert shared_files(shop) == before


def test_the_number_of_the_owner_is_written_with_each_save(start, shop):
    shop.vehicles[TAURUS:TAURUS + 4] = struct.pack("<i", 4711)
    shop.write()
    copy = start(shop)
    before = vehicles(shop)
    open_vehicles(copy, 8)
    edit(copy, 0)
    save(copy)
    expect_changed_within(before, vehicles(shop), (TAURUS, TAURUS + 4))
    assert take(vehicles(shop)[TAURUS:], VEHICLE)["Number"] == 8


def test_selecting_a_vehicle_outside_of_a_booking_writes_nothing(lantos, shop):
    before = shared_files(shop)
    open_search(lantos)
    pick_customer(lantos, 8)
    lantos.click("cmdVehicles")
    lantos.click("DataGrid1", row=0)
    lantos.key("F10")
    lantos.expect_form("frmCustEdit")
    back_to_board(lantos)
    assert shared_files(shop) == before

"""The vehicle screen: new vehicles and changed ones, every byte."""

import struct

import pytest

from screens import (back_to_board, cells, customer_span, expect_changed_within, open_search, open_vehicles,
                     pick_customer, search, shared_files, tell, vehicle_span)
from shopfiles import CUSTOMER_LENGTH, LIVE, NO_LINK, VEHICLE, VEHICLE_LENGTH, file_date, put, take
from vehiclesteps import FOCUS, FOCUS_ROW, TAURUS, TAURUS_ROW, at_list, masters, shop, vehicles

TEXTS = {
    "Make": "Make", "Model": "Model", "Year": "Year", "EngineSize": "EngineSize", "Transmission": "Transmission",
    "VIN": "VIN", "LicenseNumber": "LicenseNumber", "State": "State", "VComment(0)": "VComment1",
    "VComment(1)": "VComment2", "VComment(2)": "VComment3", "VComment(3)": "VComment4",
}


def edit(copy, row):
    copy.click("DataGrid1", row=row)
    copy.click("cmdEdit")
    return copy.expect_form("frmVehEdit")


def save(copy):
    copy.key("F10")
    return copy.expect_form("frmVehList")


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

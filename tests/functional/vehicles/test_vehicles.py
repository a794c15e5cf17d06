"""The vehicle list: rows, filters, order, and the toggle that deletes and restores."""

import struct

import pytest

from driver import Settings
from screens import back_to_board, cells, open_vehicles, tell
from shopfiles import CUSTOMER_LENGTH, DELETED
from vehiclesteps import CIVIC, FOCUS_ROW, TAURUS, TAURUS_ROW, at_list, grid_row, masters, shop, vehicles

CIVIC_ROW = grid_row("1995", "Honda", "Civic", "OLD", "V1", 0, CIVIC, DELETED)


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

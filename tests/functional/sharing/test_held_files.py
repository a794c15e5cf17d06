"""Files that somebody else has: every prompt."""

import os

import pytest

from boardlines import TODAY
from copysteps import SYSTEM_LOCKED, shop
from locks import denied_to_all, deny_to_all
from screens import (ask_new_estimate, cells, edit_customer, open_search, open_vehicles, pick_customer, search,
                     shared_files, tell)

AGAIN = "\nClick OK to try again, or CANCEL to exit."
TAGS_LOCKED = "Customer tags file locked by another user."
CUSTOMERS_LOCKED = "Customer data file locked by another user."
VEHICLES_LOCKED = "Could not open Vehicle file, click Retry to try again."
DENIED = "Error 70: Permission denied"


def expect_system_prompt(copy):
    copy.expect_box(SYSTEM_LOCKED, DENIED, "critical", ["Retry", "Cancel"])


# The system record.


def test_a_held_system_record_asks_and_retry_succeeds_after_its_release(lantos, shop):
    ask_new_estimate(lantos)
    before = shared_files(shop)
    with denied_to_all(shop.path("TQSYSTEM.DAT")):
        pick_customer(lantos, 7)
        for _ in range(2):
            expect_system_prompt(lantos)
            lantos.press("Retry")
        expect_system_prompt(lantos)
        assert shared_files(shop) == before
    lantos.press("Retry")
    lantos.expect_form("frmVehList")
    assert shop.estimate(1001)["CustomerNumber"] == 7
    assert shop.read_system()["last_estimate_number"] == 1002


@pytest.mark.parametrize("held", ["booking", "new customer"])
def test_cancel_at_the_system_prompt_ends_the_program_with_nothing_written(lantos, shop, held):
    ask_new_estimate(lantos)
    before = shared_files(shop)
    with denied_to_all(shop.path("TQSYSTEM.DAT")):
        if held == "booking":
            pick_customer(lantos, 7)
        else:
            lantos.key("Insert")
        expect_system_prompt(lantos)
        lantos.press("Cancel")
        lantos.expect_end()
    assert shared_files(shop) == before
    assert shop.names("AU*") == ["AU9300.$$$"], "no form was closed, nothing unloaded"


def test_a_system_record_held_at_the_start_asks_before_anything_is_shown(start, shop):
    shop.write()
    held = deny_to_all(shop.path("TQSYSTEM.DAT"))
    copy = start(shop)
    expect_system_prompt(copy)
    copy.press("Retry")
    expect_system_prompt(copy)
    os.close(held)
    copy.press("Retry")
    assert copy.expect_form("frmMain")["caption"].startswith("Lantos: Miller's Garage")


# The customer files.


def test_held_tags_ask_after_three_silent_seconds_and_cancel_gives_up(lantos, shop):
    open_search(lantos)
    with denied_to_all(shop.path("TQCSTTAG.DAT")):
        lantos.type("NameKey", "smith")
        lantos.key("F10")
        for _ in range(2):
            lantos.expect_box(TAGS_LOCKED, "Open failure", buttons=["OK", "Cancel"])
            lantos.press("OK")
        lantos.expect_box(TAGS_LOCKED, "Open failure")
        lantos.press("Cancel")
        lantos.expect_form("frmCustSearch")
        assert lantos.caption("Msg") == "Found 0 matching Customer Name records."
        lantos.key("F10")
        lantos.expect_box(TAGS_LOCKED, "Open failure")
    lantos.press("OK")
    lantos.expect_form("frmCustSearch")
    assert lantos.caption("Msg") == "Found 1 matching Customer Name records."


def test_one_cancel_at_held_tags_holds_for_the_whole_load_of_the_board(start, shop):
    for number in range(3):
        shop.add_customer(7 + number, f"Adams{number}", "Beth")
        shop.add_estimate(900 + number, TODAY, customer=7 + number, hours=1, CreateDate=TODAY)
    shop.write()
    held = deny_to_all(shop.path("TQCSTTAG.DAT"))
    copy = start(shop)
    for _ in range(2):  # a start fills the board twice
        copy.expect_box(TAGS_LOCKED, "Open failure")
        copy.press("Cancel")
    copy.expect_form("frmMain")
    assert "UNKNOWN" in copy.control("List2")["rows"][0]["text"]
    os.close(held)
    copy.click("cmdDayView")
    copy.click("cmdWeekView")
    copy.expect_form("frmMain")


def test_held_customer_data_asks_and_cancel_leaves_the_record_unread(lantos, shop):
    open_search(lantos)
    search(lantos, NameKey="smith")
    with denied_to_all(shop.path("TQCSTDAT.DAT")):
        lantos.double_click("CustList", row=0)
        lantos.expect_box(CUSTOMERS_LOCKED + AGAIN, "ReadCustomer()", "exclamation", ["OK", "Cancel"])
        lantos.press("OK")
        lantos.expect_box(CUSTOMERS_LOCKED + AGAIN, "ReadCustomer()")
        lantos.press("Cancel")
        lantos.expect_form("frmCustSearch")
        lantos.double_click("CustList", row=0)
        lantos.expect_box(CUSTOMERS_LOCKED + AGAIN, "ReadCustomer()")
    lantos.press("OK")
    lantos.expect_form("frmCustEdit")
    assert lantos.text("Lastname") == "Smith"


@pytest.mark.parametrize("name, text", [("TQCSTTAG.DAT", TAGS_LOCKED), ("TQCSTDAT.DAT", CUSTOMERS_LOCKED)])
def test_a_held_customer_file_asks_before_it_is_written(lantos, shop, name, text):
    edit_customer(lantos, 8)
    before = shared_files(shop)
    lantos.type("City", "Xenia")
    with denied_to_all(shop.path(name)):
        for answer in ("OK", "Cancel"):
            if answer == "OK":
                lantos.key("F10")
            lantos.expect_box(text + AGAIN, "WriteCustomer()", "exclamation", ["OK", "Cancel"])
            lantos.press(answer)
        lantos.expect_form("frmCustEdit")
        assert lantos.text("City") == "Xenia"
        assert shared_files(shop) == before
        lantos.key("F10")
        lantos.expect_box(text + AGAIN, "WriteCustomer()")
    lantos.press("OK")
    lantos.expect_form("frmCustSearch")
    assert shop.read_customers()[1]["City"] == "Xenia"


# The vehicle file.


def test_a_held_vehicle_file_asks_when_the_list_is_filled(lantos, shop):
    edit_customer(lantos, 7)
    with denied_to_all(shop.path("TQVEHICL.DAT")):
        lantos.click("cmdVehicles")
        for answer in ("Retry", "Cancel"):
            lantos.expect_box(VEHICLES_LOCKED, "OpenVehicleForRead", "critical", ["Retry", "Cancel"])
            lantos.press(answer)
        lantos.expect_form("frmVehList")
        assert cells(lantos) == []
        lantos.key("Esc")
        lantos.click("cmdVehicles")
        lantos.expect_box(VEHICLES_LOCKED, "OpenVehicleForRead")
    lantos.press("Retry")
    lantos.expect_form("frmVehList")
    assert cells(lantos, "VIN") == ["V1"]


def leave_unstored(lantos, model):
    """The screen of a vehicle that couldn't be stored has what was typed; it is given up."""
    lantos.expect_form("frmVehEdit")
    assert lantos.get("frmVehEdit.Model")["text"] == model
    lantos.key("Esc")
    while lantos.answer["waiting"] == "box":
        lantos.press("Yes")
    lantos.expect_form("frmVehList")


def test_a_held_vehicle_file_is_told_of_when_a_vehicle_is_read_or_written(lantos, shop):
    open_vehicles(lantos, 7)
    before = shared_files(shop)
    with denied_to_all(shop.path("TQVEHICL.DAT")):
        lantos.click("cmdEdit")
        lantos.expect_box("Could not open Vehicle file.", "ReadVehicle", "critical", ["OK"])
        lantos.press("OK")
        lantos.expect_form("frmVehList")
        lantos.click("cmdDelete")
        lantos.press("Yes")
        tell(lantos, "Could not open Vehicle file.", "ReadVehicle")
        lantos.expect_form("frmVehList")
    lantos.click("cmdEdit")
    lantos.type("Model", "Fiesta")
    with denied_to_all(shop.path("TQVEHICL.DAT")):
        lantos.key("F10")
        lantos.expect_box("Could not open Vehicle file.", "WriteVehicle", "critical", ["OK"])
        lantos.press("OK")
    leave_unstored(lantos, "Fiesta")
    assert cells(lantos, "Model") == ["Focus"]
    lantos.key("Insert")
    lantos.type("Model", "New")
    with denied_to_all(shop.path("TQVEHICL.DAT")):
        lantos.key("F10")
        tell(lantos, "Could not open Vehicle file.", "WriteVehicle")
    leave_unstored(lantos, "New")
    assert shared_files(shop) == before, "nor has the customer a link to a vehicle that isn't there"

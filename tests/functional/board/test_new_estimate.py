"""Booking: the questions, the number, the row, the vehicle's snapshot, and what a cancelled step leaves."""

import sqlite3

import pytest

from screens import (ask_new_estimate, book, cells, customer_span, expect_changed_within, pick_customer, search,
                     shared_files, tell)
from shopfiles import CUSTOMER_LENGTH, VEHICLE_LENGTH

SNAPSHOT = ("VehYear", "VehMake", "VehModel", "VehVIN", "VehLic", "VehDate", "VehMileage", "VehEng", "VehTrans")
EMPTY_ROW = {"CustomerNumber": 0, "VehicleLink": 0, "StartDate": None, "StopDate": None, "Mechanic": 0,
             "TotalPrice": 0, "Comments": None, "CreateDate": "2003-09-30", **dict.fromkeys(SNAPSHOT)}
FOCUS = {"VehYear": "1999", "VehMake": "Ford", "VehModel": "Focus", "VehVIN": "1FAFP34P", "VehLic": "ABC 123",
         "VehDate": "05/06/2003", "VehMileage": "1000", "VehEng": "2.0", "VehTrans": "Auto"}
TRUCK = {**dict.fromkeys(SNAPSHOT, " "), "VehMake": "Dodge", "VehMileage": "0"}
CUSTOMER_LABELS = ("lblCustName", "lblCustSpouse", "lblCustAddr", "lblCustCSZ", "lblCustPhoneH", "lblCustPhoneW",
                   "lblCustPhoneO")
VEHICLE_LABELS = ("lblVehYMM", "lblVehVIN", "lblVehLic", "lblVehDate", "lblVehMileage", "lblEngTrans")
PAST = ("Warning.\n\nThe scheduled date is in the past.\n\nAre you sure you wish to schedule\n\n"
        "a new estimate for {} ?")
CANCELLED = "New Estimate cancelled.\n\nPrevious estimate redisplayed."


@pytest.fixture
def shop(shop):
    shop.add_employee(1, "Bob Wrench")
    smith = shop.add_customer(7, "Smith", "John", "Mary", phone="555-1111", Address="1 Elm Street", City="Dayton",
                              State="OH", Zip="45402", WorkPhone="555-2222", WorkExt="12", OtherPhone="555-3333")
    shop.add_customer(8, "Walker", "Wes")
    shop.add_vehicle(smith, "Ford", "Focus", "1999", "2003-05-06", LicenseNumber="ABC 123", VIN="1FAFP34P",
                     Mileage=1000, EngineSize=" 2.0 ", Transmission=b"Auto\0~~~~")
    shop.add_vehicle(smith, "Dodge")
    shop.add_estimate(900, "2003-09-30", customer=8, hours=2)
    shop.add_part(900, "P-1", "Filter", 1, 1000)
    shop.add_estimate(901, "2003-09-30", customer=8, hours=1)
    shop.add_estimate(902, "2003-09-30", customer=8)
    shop.add_part(902, "P-2", "Wiper", 2, 500)
    return shop


def captions(copy, labels):
    return [copy.caption(label, "frmMain") for label in labels]


def row(number, date="2003-09-30", status=0, **columns):
    return {"EstimateNumber": number, **EMPTY_ROW, "SchedDate": date, "Status": status, **columns}


def show(copy, number):
    """The detail view of an estimate of today."""
    lines = copy.rows("List1(2)", "frmMain")
    copy.click("cmdWeekView")
    copy.double_click("List1(2)", row=next(i for i, line in enumerate(lines) if line.startswith(f"{number:06}")))
    return copy.expect_form("frmMain")


# The row.


def test_a_booking_takes_the_stored_number_and_makes_a_whole_row(lantos, shop):
    foreign, system, before = shop.foreign_system_bytes(), shop.read_system(), shared_files(shop)
    ask_new_estimate(lantos)
    pick_customer(lantos, 7)
    lantos.expect_form("frmVehList")
    assert lantos.caption("frameDetailView", "frmMain") == "Est. # 001001  09/30/2003  Scheduled"
    assert shop.estimate(1001) == row(1001, CustomerNumber=7), "on file before a vehicle is chosen"
    lantos.double_click("DataGrid1", row=1)
    assert shop.estimate(1001) == row(1001, CustomerNumber=7, VehicleLink=0, **FOCUS)
    assert shop.read_system() == {**system, "last_estimate_number": 1002}
    assert shop.foreign_system_bytes() == foreign
    after = shared_files(shop)
    assert {name for name in after if after[name] != before[name]} == {"TQSYSTEM.DAT", "Lantos.mdb"}
    assert lantos.caption("frameDetailView") == "Est. # 001001  09/30/2003  Scheduled"
    assert lantos.control("frameDetailView")["visible"] is True
    assert captions(lantos, CUSTOMER_LABELS) == ["John Smith", "Mary", "1 Elm Street", "Dayton, OH 45402", "555-1111",
                                                 "555-2222 x 12", "555-3333"]
    assert captions(lantos, VEHICLE_LABELS) == ["1999 Ford Focus", "1FAFP34P", "ABC 123", "05/06/2003", "1000",
                                                "2.0 Auto"]
    assert lantos.rows("List1(2)")[-2:] == ["001001 ", "  Smith,John"]


def test_an_empty_field_of_the_vehicle_is_written_as_one_blank(lantos, shop):
    lantos.menu("mnuNewEstimate")
    lantos.press("No")
    pick_customer(lantos, 7)
    assert cells(lantos, "Make") == ["Dodge", "Ford"]
    lantos.double_click("DataGrid1", row=0)
    assert shop.estimate(1001) == row(1001, CustomerNumber=7, VehicleLink=VEHICLE_LENGTH, **TRUCK)
    assert lantos.caption("frameDetailView") == "Est. # 001001  09/30/2003  Scheduled"


def test_a_cancelled_vehicle_list_leaves_the_link_at_its_default_and_the_snapshot_null(lantos, shop):
    book(lantos, 7)
    assert shop.estimate(1001) == row(1001, CustomerNumber=7)
    assert captions(lantos, VEHICLE_LABELS) == ["  "] + [""] * 5
    book(lantos, 7, vehicle_row=1)
    book(lantos, 7)
    assert shop.estimate(1003) == row(1003, CustomerNumber=7), "nothing of the vehicle chosen before"
    assert captions(lantos, VEHICLE_LABELS) == ["  "] + [""] * 5


@pytest.mark.parametrize("day", ["2003-10-02", "2004-02-29"])
def test_a_booking_on_a_later_day_asks_nothing_about_it(lantos, shop, day):
    lantos.pick("MonthView1", day)
    book(lantos, 8)
    assert shop.estimate(1001) == row(1001, day, CustomerNumber=8)
    assert shop.estimate(1001)["CreateDate"] == "2003-09-30"


def test_a_booking_on_a_past_day_asks_first_and_no_spends_no_number(lantos, shop):
    lantos.pick("MonthView1", "2003-09-26")
    before = shared_files(shop)
    lantos.click("cmdNewEstimate")
    lantos.expect_box(PAST.format("09/26/2003"), "New Estimate", "question", ["Yes", "No"])
    lantos.press("No")
    lantos.expect_form("frmMain")
    assert lantos.control("frameWeekView")["visible"] is True
    assert shared_files(shop) == before
    lantos.click("cmdNewEstimate")
    lantos.expect_box(PAST.format("09/26/2003"), "New Estimate")
    lantos.press("Yes")
    lantos.expect_box('Is this an Estimate Only?\n\n(Will not be "Scheduled")', "New Estimate", "question",
                      ["Yes", "No"])
    lantos.press("No")
    pick_customer(lantos, 8)
    lantos.key("Esc")
    assert shop.estimate(1001) == row(1001, "2003-09-26", CustomerNumber=8)
    assert lantos.caption("frameDetailView") == "Est. # 001001  09/26/2003  No-show"


def test_an_estimate_only_has_status_9_lists_and_counts_no_hours(lantos, shop):
    scheduled = lantos.caption("lblSched")
    book(lantos, 8, estimate_only=True)
    assert shop.estimate(1001) == row(1001, status=9, CustomerNumber=8)
    assert lantos.caption("frameDetailView") == "Est. # 001001  09/30/2003  Estimate Only"
    assert lantos.rows("List1(2)")[-2:] == ["001001 Estimate Only", "  Walker,Wes"]
    with sqlite3.connect(shop.path("Lantos.mdb")) as database:
        database.execute("INSERT INTO Labors VALUES (1001, 1, 'Look', 500, 6500, 32500, 0)")
    lantos.pick("MonthView1", "2003-09-30")
    assert lantos.caption("lblSched") == scheduled
    assert "001001 Estimate Only" in lantos.rows("List1(2)")


# Steps that are cancelled.


def test_a_cancelled_customer_search_spends_no_number_and_shows_the_old_estimate_again(lantos, shop):
    show(lantos, 900)
    shown = [lantos.get("frmMain")["controls"][name] for name in (*CUSTOMER_LABELS, "listLabor", "listParts",
                                                                    "frameDetailView", "txtTotalCost")]
    before = shared_files(shop)
    ask_new_estimate(lantos)
    assert lantos.caption("frameDetailView", "frmMain") == ""
    assert captions(lantos, CUSTOMER_LABELS) == [""] * 7
    lantos.key("Esc")
    lantos.expect_box(CANCELLED, "New Estimate - Cancelled", "information", ["OK"])
    lantos.press("OK")
    lantos.expect_form("frmMain")
    assert [lantos.get("frmMain")["controls"][name] for name in (*CUSTOMER_LABELS, "listLabor", "listParts",
                                                                 "frameDetailView", "txtTotalCost")] == shown
    assert shared_files(shop) == before


def test_there_is_no_way_around_the_two_questions(lantos):
    lantos.click("cmdNewEstimate")
    assert lantos.refused(do="close")
    lantos.expect_box(buttons=["Yes", "No"])


def test_a_new_customer_of_the_search_is_the_one_who_is_booked(lantos, shop):
    ask_new_estimate(lantos)
    lantos.type("NameKey", "Doe,Jane")
    lantos.key("Insert")
    lantos.key("F10")
    lantos.click("cmdVehicles")
    lantos.key("Insert")
    lantos.type("Make", "BMW")
    lantos.key("F10")
    lantos.key("Esc")
    lantos.key("Esc")
    lantos.expect_form("frmVehList")
    assert cells(lantos, "Make") == ["BMW"]
    lantos.key("F10")
    lantos.expect_form("frmMain")
    assert shop.estimate(1001) == row(1001, CustomerNumber=301, VehicleLink=2 * VEHICLE_LENGTH,
                                      **{**TRUCK, "VehMake": "BMW"})
    assert shop.read_customers()[-1]["VLink"] == 2 * VEHICLE_LENGTH


def test_a_failure_behind_the_number_leaves_a_gap(lantos, shop):
    """Another program writes in the database for longer than this one has patience."""
    ask_new_estimate(lantos)
    writer = sqlite3.connect(shop.path("Lantos.mdb"), isolation_level=None)
    writer.execute("BEGIN IMMEDIATE")
    pick_customer(lantos, 7)
    lantos.expect_box(buttons=["OK"])
    writer.execute("ROLLBACK")
    writer.close()
    lantos.press("OK")
    lantos.expect_form("frmMain")
    assert shop.read_system()["last_estimate_number"] == 1002
    assert shop.estimate(1001) is None
    book(lantos, 7)
    assert shop.estimate(1002) == row(1002, CustomerNumber=7)


# Another customer, another vehicle.


def test_changing_the_customer_always_asks_for_a_vehicle_as_well(lantos, shop):
    book(lantos, 8)
    lantos.click("cmdCustomerEdit")
    lantos.expect_form("frmCustSearch")
    lantos.key("Esc")
    lantos.expect_form("frmMain")
    assert shop.estimate(1001) == row(1001, CustomerNumber=8, Comments="")
    lantos.click("cmdCustomerEdit")
    pick_customer(lantos, 7)
    lantos.expect_form("frmVehList")
    assert shop.estimate(1001) == row(1001, CustomerNumber=7, Comments="")
    assert lantos.caption("lblCustName", "frmMain") == "John Smith"
    lantos.click("DataGrid1", row=1)
    lantos.key("F10")
    lantos.expect_form("frmMain")
    assert shop.estimate(1001) == row(1001, CustomerNumber=7, Comments="", **FOCUS)
    lantos.click("cmdCustomerEdit")
    pick_customer(lantos, 8)
    lantos.key("Esc")
    assert shop.estimate(1001) == row(1001, CustomerNumber=8, Comments="", **FOCUS), "the vehicle stays as it was"


@pytest.mark.parametrize("estimate, text", [
    (900, "There are parts and labor already on the estimate.\\n\nDid you want to keep them for the new vehicle?"),
    (902, "There are parts already on the estimate.\\n\nDid you want to keep them for the new vehicle?"),
    (901, "There are labor items already on the estimate.\nDid you want to keep them for the new vehicle?"),
])
def test_another_vehicle_asks_about_the_lines_that_are_there(lantos, shop, estimate, text):
    with sqlite3.connect(shop.path("Lantos.mdb")) as database:
        database.execute("UPDATE Estimates SET CustomerNumber = 7 WHERE EstimateNumber = ?", (estimate,))
    show(lantos, estimate)
    lines = lantos.rows("listLabor"), lantos.rows("listParts")
    rows_kept = shop.query("SELECT * FROM Labors"), shop.query("SELECT * FROM Parts")
    assert lines != ([], [])
    for answer in ("Cancel", "Yes", "No"):
        lantos.click("cmdVehicleEdit")
        lantos.expect_box(text, "Vehicle Edit", buttons=["Yes", "No", "Cancel"])
        lantos.press(answer)
        if answer == "Cancel":
            lantos.expect_form("frmMain")
            assert shop.estimate(estimate)["VehMake"] is None
            continue
        lantos.expect_form("frmVehList")
        lantos.double_click("DataGrid1", row=1 if answer == "Yes" else 0)
        lantos.expect_form("frmMain")
        wanted = FOCUS if answer == "Yes" else TRUCK
        assert {column: shop.estimate(estimate)[column] for column in SNAPSHOT} == wanted
        assert (lantos.rows("listLabor"), lantos.rows("listParts")) == (lines if answer == "Yes" else ([], []))
    assert (shop.query("SELECT * FROM Labors"), shop.query("SELECT * FROM Parts")) == rows_kept
    show(lantos, estimate)
    assert (lantos.rows("listLabor"), lantos.rows("listParts")) == lines, "they come back at the next selection"
    assert lantos.caption("lblVehYMM").split() == ["Dodge"]


def test_another_vehicle_of_an_estimate_without_lines_asks_nothing(lantos, shop):
    book(lantos, 7)
    lantos.click("cmdVehicleEdit")
    lantos.expect_form("frmVehList")
    lantos.double_click("DataGrid1", row=1)
    assert shop.estimate(1001) == row(1001, CustomerNumber=7, Comments="", **FOCUS)
    assert captions(lantos, VEHICLE_LABELS)[0] == "1999 Ford Focus"
    lantos.click("cmdVehicleEdit")
    lantos.key("Esc")
    assert shop.estimate(1001) == row(1001, CustomerNumber=7, Comments="", **FOCUS)


def test_the_snapshot_stays_when_the_vehicle_is_edited_later(lantos, shop):
    book(lantos, 7, vehicle_row=1)
    lantos.menu("mnuCustomer")
    pick_customer(lantos, 7)
    lantos.click("cmdVehicles")
    lantos.click("DataGrid1", row=1)
    lantos.key("Enter")
    lantos.type("VIN", "CHANGED")
    lantos.key("F10")
    for _ in range(3):
        lantos.key("Esc")
    lantos.expect_form("frmMain")
    assert shop.read_vehicles()[0]["VIN"] == "CHANGED"
    assert shop.estimate(1001) == row(1001, CustomerNumber=7, **FOCUS)


def test_a_customer_edited_on_the_way_keeps_the_bytes_that_were_not_edited(lantos, shop):
    """Booking itself never writes a customer or a vehicle; a new vehicle changes its owner's link alone."""
    masters, vehicles = shop.path("TQCSTDAT.DAT").read_bytes(), shop.path("TQVEHICL.DAT").read_bytes()
    ask_new_estimate(lantos)
    assert search(lantos, NameKey="smith") == "Found 1 matching Customer Name records."
    lantos.double_click("CustList", row=1)
    lantos.key("Insert")
    lantos.type("Make", "BMW")
    lantos.key("F10")
    lantos.key("Esc")
    lantos.expect_form("frmMain")
    assert shop.path("TQVEHICL.DAT").read_bytes()[:2 * VEHICLE_LENGTH] == vehicles
    first, _ = customer_span("VLink")
    expect_changed_within(masters, shop.path("TQCSTDAT.DAT").read_bytes(), (first, first + 2))
    assert len(masters) == 2 * CUSTOMER_LENGTH


def test_without_an_estimate_the_two_edit_buttons_say_so(lantos, shop):
    before = shared_files(shop)
    lantos.click("cmdDetailView")
    for button, title in (("cmdCustomerEdit", "Customer Edit"), ("cmdVehicleEdit", "Vehicle Edit")):
        lantos.click(button)
        tell(lantos, "No estimate is selected.", title)
    assert shared_files(shop) == before

"""Looking never writes, and what is written changes its own bytes alone."""

import sqlite3
import struct

import pytest

from screens import (ask_new_estimate, back_to_board, book, cells, edit_customer, open_search, open_vehicles,
                     pick_customer, search, shared_files, tell)
from shopfiles import (CUSTOMER, CUSTOMER_LENGTH, DELETED, FOREIGN_SYSTEM_BYTES, LIVE, MAKE_LENGTH, NO_LINK,
                       RETAIL, SYSTEM_LENGTH, TAG, TAG_LENGTH, VEHICLE, VEHICLE_LENGTH, file_date, foreign_bytes, put)

TEXT_FIELDS = ("Lastname", "Address", "City", "HomePhone", "Comment")


@pytest.fixture
def shop(shop):
    shop.add_employee(1, "Bob Wrench")
    smith = shop.add_customer(7, "Smith", "John", "Mary", phone="555-1111", WorkPhone="937-1")
    jones = shop.add_customer(12, "Jones", "Johanna", Address="2 Oak", tax_id_number="EX-1")
    for make, model, year, vin in (("Ford", "Focus", "1999", "V1"), ("Honda", "Civic", "1998", "V2")):
        shop.add_vehicle(smith, make, model, year, "2003-05-06", VIN=vin, LicenseNumber="L" + vin, Mileage=1000)
    shop.add_vehicle(jones, "Dodge", "Ram", "2001", VIN="V3", Deleted=DELETED)
    shop.add_make("Ford", ["Focus", "Taurus"])
    for number in range(900, 910):
        shop.add_estimate(number, "2003-09-30", status=number - 900, customer=7, vehicle=0, hours=1)
    shop.add_estimate(910, "2003-10-01", customer=12, vehicle=2 * VEHICLE_LENGTH, hours=3, VehMake="Dodge")
    shop.add_part(900, "P-1", "Filter", 1, 1000)
    shop.add_note(900, 1, "Note")
    shop.add_sublet(900, 1, "Glass Co", 5000)
    shop.add_waste(900, 1, "Oil Co", 300)
    shop.add_special_day("2003-10-02", 8, "Half staff")
    return shop


def every_byte(shop):
    return {path.name: path.read_bytes() for path in shop.directory.glob("TQ*")}


# Looking.


def look_at_the_board(copy):
    copy.click("cmdDayView")
    for sort in range(4):
        copy.check(f"optDaySortBy({sort})")
    copy.check("cbShowLabor", False)
    copy.click("List2", row=0)
    copy.double_click("List2", row=0)
    copy.menu("mnuRefreshTotals")
    for day in ("2003-10-01", "2003-09-20", "2004-02-29", "2003-09-30"):
        copy.pick("MonthView1", day)
    copy.pick("MonthView1", "2003-10-01", double=True)
    copy.click("cmdWeekView")
    copy.menu("mnuShowStat(0)")
    copy.pick("MonthView1", "2003-09-30")
    copy.menu("mnuShowStat(0)")
    copy.pick("MonthView1", "2003-09-30")
    for panel in range(7):
        copy.click(f"frameWeek({panel})")
    copy.click("List1(2)", row=0)
    copy.right_click("List1(2)", row=0)
    assert copy.answer["waiting"] == "popup"
    copy.choose(None)
    copy.click("cmdChangeStatus")
    copy.expect_form("frmEstStatus")
    copy.key("Esc")


def look_at_the_settings(copy):
    for entry in ("mnuSpecialDays", "mnuStandardHours", "mnuStatusOptions", "mnuPrintOptions"):
        copy.menu(entry)
        assert copy.answer["form"] != "frmMain"
        copy.key("Esc")
        copy.expect_form("frmMain")
    copy.menu("mnuRefreshCustomer")
    tell(copy, "Customer information refreshed.", "Refresh Complete.")


def look_at_customers_and_vehicles(copy):
    open_search(copy)
    for fields in ({"NameKey": ","}, {"Number": "7"}, {"License": "V"}, {"VIN": "V"}, {"Phone": "9"}, {"Make": "o"}):
        search(copy, **fields)
    pick_customer(copy, 7)
    copy.click("cmdNext")
    copy.click("cmdPrev")
    copy.check("Check1")
    copy.click("cmdVehicles")
    copy.check("chkShowDeleted")
    copy.click("DataGrid1", column="Year")
    copy.type("txtMake", "h")
    copy.click("cmdDelete")
    copy.press("No")
    copy.click("cmdEdit")
    copy.type("Make", "Ford")
    copy.key("Insert")
    copy.expect_form("frmMakeModel")
    copy.click("listMakes", row=0)
    copy.click("listModels", row=1)
    copy.click("cmdDelModel")
    copy.press("No")
    copy.click("cmdClose")
    copy.key("Esc")
    copy.press("Yes")
    copy.key("Insert")
    copy.key("Esc")
    back_to_board(copy)


def look_at_booking(copy):
    ask_new_estimate(copy)
    search(copy, NameKey="smith")
    copy.key("Esc")
    copy.press("OK")
    copy.click("cmdCustomerEdit")
    copy.key("Esc")
    copy.click("cmdVehicleEdit")
    copy.press("Yes")
    copy.expect_form("frmVehList")
    copy.key("Esc")
    copy.expect_form("frmMain")


def test_looking_at_every_screen_writes_nothing(lantos, shop):
    before = shared_files(shop)
    for look in (look_at_the_board, look_at_the_settings, look_at_customers_and_vehicles, look_at_booking):
        look(lantos)
        assert shared_files(shop) == before, look.__name__
    lantos.close_window()
    stored = "Lantos.ini"  # the workstation's own section may be stored at the end
    assert {**shared_files(shop), stored: None} == {**before, stored: None}


# Writing.


def test_taking_numbers_changes_the_two_counters_alone(lantos, shop):
    path = shop.path("TQSYSTEM.DAT")
    before = path.read_bytes()
    for _ in range(2):
        book(lantos, 7)
    open_search(lantos)
    lantos.click("cmdNew")
    lantos.key("F10")
    expected = bytearray(before)
    struct.pack_into("<i", expected, 4, 1003)
    struct.pack_into("<i", expected, 12, 302)
    assert path.read_bytes() == expected
    for first, last in FOREIGN_SYSTEM_BYTES:
        assert expected[first:last] == before[first:last] == foreign_bytes(SYSTEM_LENGTH)[first:last]


@pytest.mark.parametrize("pattern", [b"\xff", b"\0", b"\xa5"])
def test_whatever_the_main_application_keeps_in_the_system_record_survives(start, shop, pattern):
    shop.write()
    record = bytearray(shop.path("TQSYSTEM.DAT").read_bytes())
    for first, last in FOREIGN_SYSTEM_BYTES:
        record[first:last] = pattern * (last - first)
    record += b"bytes of a later version"
    shop.path("TQSYSTEM.DAT").write_bytes(record)
    copy = start(shop)
    book(copy, 7)
    struct.pack_into("<i", record, 4, 1002)
    assert shop.path("TQSYSTEM.DAT").read_bytes() == record


def test_settings_changed_elsewhere_are_not_undone_by_taking_a_number(lantos, shop):
    path = shop.path("TQSYSTEM.DAT")
    record = bytearray(path.read_bytes())
    record[24:28] = struct.pack("<i", 71000)
    record[253:270] = b"Have a nice day!\0"
    path.write_bytes(record)
    book(lantos, 7)
    struct.pack_into("<i", record, 4, 1002)
    assert path.read_bytes() == record


def test_a_days_work_changes_what_was_worked_on(lantos, shop):
    """One customer's city, one new customer with a vehicle, one mileage: every other byte of the family stays."""
    files = every_byte(shop)
    edit_customer(lantos, 12)
    lantos.type("City", "Xenia")
    lantos.key("F10")
    lantos.type("NameKey", "Doe,Jane")
    lantos.key("Insert")
    lantos.key("F10")
    lantos.key("Alt+V")
    lantos.key("Insert")
    lantos.type("VIN", "V4")
    lantos.key("F10")
    back_to_board(lantos)
    open_vehicles(lantos, 7)
    assert cells(lantos, "VIN") == ["V1", "V2"]
    lantos.click("DataGrid1", row=1)
    lantos.key("Enter")
    lantos.type("Mileage", "2000")
    lantos.key("F10")
    back_to_board(lantos)

    system = bytearray(files["TQSYSTEM.DAT"])
    struct.pack_into("<i", system, 12, 302)
    customers = bytearray(files["TQCSTDAT.DAT"])
    customers[CUSTOMER_LENGTH:] = put(customers[CUSTOMER_LENGTH:], CUSTOMER, City="Xenia")
    customers += put(bytearray(CUSTOMER_LENGTH), CUSTOMER, Number=301, Lastname="Doe", Firstname="Jane",
                     City="Springfield", State="OH", pricing_level=RETAIL, Date=file_date("2003-09-30"),
                     VLink=3 * VEHICLE_LENGTH)
    tag = put(bytearray(TAG_LENGTH), TAG, Number=301, NameKey="Doe,Jane", SpouseKey=",", Offset=2 * CUSTOMER_LENGTH)
    vehicles = bytearray(files["TQVEHICL.DAT"])
    second = slice(VEHICLE_LENGTH, 2 * VEHICLE_LENGTH)
    vehicles[second] = put(vehicles[second], VEHICLE, Mileage=2000, FirstMileage=2000,
                           FirstDate=file_date("2003-05-06"))
    vehicles += put(bytearray(VEHICLE_LENGTH), VEHICLE, Number=301, Deleted=LIVE, VIN="V4", State="OH", VLink=NO_LINK)
    assert every_byte(shop) == {**files, "TQSYSTEM.DAT": system, "TQCSTDAT.DAT": customers,
                                "TQCSTTAG.DAT": files["TQCSTTAG.DAT"] + tag, "TQVEHICL.DAT": vehicles}


def test_a_text_of_the_full_width_is_read_whole_and_stays(start, shop):
    """Without a terminator; another field of the record is edited beside it."""
    for field in TEXT_FIELDS:
        offset, width, _ = CUSTOMER[field]
        shop.customers[offset:offset + width] = bytes(ord("a") + i % 26 for i in range(width))
    shop.write()
    before = bytearray(shop.customers)
    copy = start(shop)
    edit_customer(copy, 7)
    for field in TEXT_FIELDS:
        control = {"HomePhone": "Home"}.get(field, field)
        assert copy.text(control) == "".join(chr(ord("a") + i % 26) for i in range(CUSTOMER[field][1]))
    copy.type("Zip", "45402")
    copy.key("F10")
    before[:CUSTOMER_LENGTH] = put(before[:CUSTOMER_LENGTH], CUSTOMER, Zip="45402")
    assert shop.path("TQCSTDAT.DAT").read_bytes() == before


def test_letters_beyond_ascii_are_one_byte_each(lantos, shop):
    edit_customer(lantos, 7)
    lantos.type("Lastname", "M\u00fcller\u20ac")
    lantos.type("Comment", "na\u00efve \u4e2d")
    lantos.key("F10")
    record = shop.path("TQCSTDAT.DAT").read_bytes()[:CUSTOMER_LENGTH]
    assert record[4:25] == b"M\xfcller\x80".ljust(21, b"\0")
    assert record[234:281] == b"na\xefve ?".ljust(47, b"\0")
    assert search(lantos, NameKey="m\u00fcller\u20ac") == "Found 1 matching Customer Name records."
    assert lantos.rows("CustList")[0].startswith("000007 M\u00fcller\u20ac,John ")


@pytest.mark.parametrize("spell", [str.lower, str.capitalize])
def test_files_are_found_in_whatever_case_they_are_spelled(start, shop, spell):
    shop.write()
    for path in list(shop.directory.glob("TQ*")):
        path.rename(path.with_name(spell(path.name)))
    copy = start(shop)
    names = shop.names()
    book(copy, 7, vehicle_row=0)
    edit_customer(copy, 12)
    copy.type("City", "Xenia")
    copy.key("F10")
    back_to_board(copy)
    open_vehicles(copy, 7)
    copy.click("cmdDelete")
    copy.press("Yes")
    tell(copy, "Vehicle deleted from this customer.")
    assert shop.names() == names
    assert shop.names("TQ*") == []
    assert struct.unpack_from("<i", shop.path(spell("TQSYSTEM.DAT")).read_bytes(), 4) == (1002,)
    assert b"Xenia" in shop.path(spell("TQCSTDAT.DAT")).read_bytes()


def test_files_that_end_in_the_middle_of_a_record_read_as_zeros_and_stay(start, shop):
    shop.write()
    for name, length in (("TQCSTTAG.DAT", TAG_LENGTH), ("TQCSTDAT.DAT", CUSTOMER_LENGTH),
                         ("TQVEHICL.DAT", VEHICLE_LENGTH), ("TQMAKMOD.DAT", MAKE_LENGTH)):
        path = shop.path(name)
        path.write_bytes(path.read_bytes()[:-length // 2])
    copy = start(shop)
    before = shared_files(shop)
    copy.expect_box("Customer 000012 can't be shown: the tag in TQCSTTAG.DAT leads to the record of customer 000007 in "
                    "TQCSTDAT.DAT.\nRun KRVLCLEN to repair the files.", "ReadCustomer()", "exclamation", ["OK"])
    copy.press("OK")
    open_search(copy)
    search(copy, NameKey="jones")
    assert len(copy.rows("CustList")) == 1, "the key of the last tag is still there"
    pick_customer(copy, 7)
    copy.click("cmdVehicles")
    assert cells(copy, "VIN") == ["V1", "V2"]
    copy.click("cmdEdit")
    copy.expect_form("frmVehEdit")
    copy.key("Esc")
    back_to_board(copy)
    assert shared_files(shop) == before


def test_the_database_opens_for_others_while_the_program_runs(lantos, shop):
    with sqlite3.connect(shop.path("Lantos.mdb"), timeout=0) as database:
        assert database.execute("PRAGMA journal_mode").fetchone() == ("delete",)
        database.execute("UPDATE Estimates SET Comments = 'from elsewhere' WHERE EstimateNumber = 900")
    lantos.double_click("List1(2)", row=0)
    assert lantos.text("txtComments") == "from elsewhere"

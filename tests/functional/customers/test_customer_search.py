"""The customer search: six keys, their order, what it says, and what becomes of a selection."""

import pytest

from driver import Settings
from screens import (ask_new_estimate, back_to_board, customer_row, open_search, search, shared_files, spouse_row, tell)
from shopfiles import CUSTOMER, DELETED, TAG, TAG_LENGTH, put

SMITH = customer_row(7, "Smith,John")
SMITH_SPOUSE = spouse_row(7, "Smith,Mary")
JONES = customer_row(12, "Jones,Johanna")
JONES_SPOUSE = spouse_row(12, "JonesSmythe,Peter")
ABEL = customer_row(301, "Abel,Smitty")
FIELDS = ("NameKey", "Number", "License", "VIN", "Phone", "Year", "Make", "Model")


@pytest.fixture
def shop(shop):
    shop.system["last_customer_number"] = 801
    smith = shop.add_customer(7, "Smith", "John", spouse="Mary", phone="937-555-1111")
    jones = shop.add_customer(12, "Jones", "Johanna", "Peter", "Smythe", phone="614-777-0001", WorkPhone="937-555-2222")
    abel = shop.add_customer(301, "Abel", "Smitty", OtherPhone="(800) 44-ABLE")
    shop.add_vehicle(smith, "Ford", "Focus", "1999", LicenseNumber="ABC 123", VIN="1FAFP34P")
    shop.add_vehicle(smith, "Ford", "Taurus", "2000", LicenseNumber="ABC 999", VIN="1FAFP53U")
    shop.add_vehicle(jones, "Honda", "Civic", "1999", LicenseNumber="xyz 123", VIN="JHMEJ667")
    shop.add_vehicle(abel, "Ford", "Escort", "1998", Deleted=DELETED, LicenseNumber="OLD 1", VIN="1FAPP13P")
    shop.add_employee(1, "Bob Wrench")
    return shop


@pytest.fixture
def at_search(lantos):
    open_search(lantos)
    return lantos


SEARCHES = [
    ({"NameKey": "smi"}, [SMITH, SMITH_SPOUSE, ABEL], "Found 2 matching Customer Name records."),
    ({"NameKey": " Smi , jo "}, [SMITH, SMITH_SPOUSE], "Found 1 matching Customer Name records."),
    ({"NameKey": "smi,"}, [SMITH, SMITH_SPOUSE], "Found 1 matching Customer Name records."),
    ({"NameKey": "smi,mar"}, [], "Found 0 matching Customer Name records."),
    ({"NameKey": "PETER"}, [JONES, JONES_SPOUSE], "Found 1 matching Customer Name records."),
    ({"NameKey": "smythe,pet"}, [JONES, JONES_SPOUSE], "Found 1 matching Customer Name records."),
    ({"NameKey": "smythe,joh"}, [], "Found 0 matching Customer Name records."),
    ({"NameKey": ","}, [SMITH, SMITH_SPOUSE, JONES, JONES_SPOUSE, ABEL], "Found 3 matching Customer Name records."),
    ({"Number": "12"}, [JONES, JONES_SPOUSE], "Found 1 matching Customer # records."),
    ({"Number": "000301"}, [ABEL], "Found 1 matching Customer # records."),
    ({"Number": "99"}, [], "Found 0 matching Customer # records."),
    ({"License": "123"}, [SMITH, SMITH_SPOUSE, JONES, JONES_SPOUSE], "Found 2 matching License # records."),
    ({"License": "XYZ"}, [], "Found 0 matching License # records."),
    ({"License": "xyz"}, [JONES, JONES_SPOUSE], "Found 1 matching License # records."),
    ({"License": "OLD"}, [ABEL], "Found 1 matching License # records."),
    ({"VIN": "FAFP5"}, [SMITH, SMITH_SPOUSE], "Found 1 matching VIN # records."),
    ({"VIN": "1fafp"}, [], "Found 0 matching VIN # records."),
    ({"VIN": "1FAFP"}, [SMITH, SMITH_SPOUSE, SMITH, SMITH_SPOUSE], "Found 2 matching VIN # records."),
    ({"Phone": "555"}, [SMITH, SMITH_SPOUSE, JONES, JONES_SPOUSE], "Found 2 matching Phone # records."),
    ({"Phone": "able"}, [], "Found 0 matching Phone # records."),
    ({"Phone": "ABLE"}, [ABEL], "Found 1 matching Phone # records."),
    ({"Year": "1999"}, [SMITH, SMITH_SPOUSE, JONES, JONES_SPOUSE], "Found 2 matching Year/Make/Model records."),
    ({"Year": "1999", "Make": "ord"}, [SMITH, SMITH_SPOUSE], "Found 1 matching Year/Make/Model records."),
    ({"Make": "Ford", "Model": "Escort"}, [ABEL], "Found 1 matching Year/Make/Model records."),
    ({"Year": "1999", "Make": "Ford", "Model": "Civic"}, [], "Found 0 matching Year/Make/Model records."),
    ({"NameKey": "   ", "Number": " "}, [], "Fill in one of the items, then click [Search]."),
    ({}, [], "Fill in one of the items, then click [Search]."),
]


def test_each_key_finds_its_customers_row_by_row(at_search):
    for fields, rows, said in SEARCHES:
        assert search(at_search, **fields) == said, fields
        assert at_search.rows("CustList") == rows, fields


def test_the_focus_is_on_the_hits_of_which_none_is_chosen(at_search):
    at_search.type("NameKey", "a")
    at_search.key("Enter")
    assert at_search.answer["focus"] == "CustList"
    assert at_search.control("CustList")["selected"] == -1
    at_search.type("NameKey", "nobody of that name")
    at_search.key("Enter")
    assert at_search.answer["focus"] == "NameKey"


def test_the_first_field_that_is_not_blank_decides(at_search):
    filled = {"NameKey": "abel", "Number": "7", "License": "xyz", "VIN": "1FAPP", "Phone": "614", "Year": "2000"}
    decided = [("Customer Name", [ABEL]), ("Customer #", [SMITH, SMITH_SPOUSE]), ("License #", [JONES, JONES_SPOUSE]),
               ("VIN #", [ABEL]), ("Phone #", [JONES, JONES_SPOUSE]), ("Year/Make/Model", [SMITH, SMITH_SPOUSE])]
    for field, text in filled.items():
        at_search.type(field, text)
    for field, (label, rows) in zip(filled, decided):
        at_search.click("cmdSearch")
        assert at_search.caption("Msg") == f"Found 1 matching {label} records."
        assert at_search.rows("CustList") == rows
        at_search.type(field, " ")


def test_clear_empties_all_eight_fields_and_the_list(at_search):
    search(at_search, **dict.fromkeys(FIELDS, "7"))
    assert [at_search.text(field) for field in FIELDS] == ["7"] * 8
    at_search.type("NameKey", "smith")
    at_search.click("cmdSearch")
    assert at_search.rows("CustList") == [SMITH, SMITH_SPOUSE]
    at_search.click("cmdClear")
    assert [at_search.text(field) for field in FIELDS] == [""] * 8
    assert at_search.rows("CustList") == []


def test_the_keys_press_the_buttons(at_search):
    assert at_search.answer["caption"] == "Customer Search"
    at_search.type("NameKey", "abel")
    at_search.key("F10")
    assert at_search.rows("CustList") == [ABEL]
    at_search.key("F2")
    assert at_search.text("NameKey") == ""
    assert at_search.rows("CustList") == []
    at_search.key("Insert")
    at_search.expect_form("frmCustEdit")
    at_search.key("Esc")
    at_search.expect_form("frmCustSearch")
    at_search.key("Esc")
    at_search.expect_form("frmMain")


def test_the_status_line_tells_of_the_maintenance(at_search):
    assert at_search.events("status") == ["Performing Customer Maintenance..."]


def test_selecting_needs_a_list_and_a_row(at_search):
    at_search.click("cmdSelect")
    tell(at_search, "No items in list.")
    search(at_search, NameKey="smi")
    at_search.click("cmdSelect")
    tell(at_search, "No item currently selected.")
    at_search.click("CustList", row=2)
    at_search.click("cmdSelect")
    at_search.expect_form("frmCustEdit")
    assert at_search.text("CustomerNumber") == "000301"


def test_both_rows_lead_to_the_same_customer_and_the_search_comes_back(at_search):
    search(at_search, NameKey="jones")
    for row in (0, 1):
        at_search.double_click("CustList", row=row)
        at_search.expect_form("frmCustEdit")
        assert (at_search.text("CustomerNumber"), at_search.text("Lastname")) == ("000012", "Jones")
        at_search.key("Esc")
        at_search.expect_form("frmCustSearch")
        assert at_search.rows("CustList") == [JONES, JONES_SPOUSE]


def test_a_spouse_key_that_is_empty_or_a_bare_comma_gets_no_row(start, shop):
    shop.add_customer(400, "Alone", "Ann")
    shop.add_customer(401, "Empty", "Eve")
    shop.tags[-TAG_LENGTH:] = put(shop.tags[-TAG_LENGTH:], TAG, SpouseKey="")
    shop.write()
    copy = start(shop)
    open_search(copy)
    search(copy, NameKey="alone")
    assert copy.rows("CustList") == [customer_row(400, "Alone,Ann")]
    search(copy, NameKey="empty")
    assert copy.rows("CustList") == [customer_row(401, "Empty,Eve")]


def test_a_tag_with_the_number_0_is_dropped(start, shop):
    shop.add_empty_tag()
    shop.add_customer(500, "Behind", "Bob")
    shop.write()
    copy = start(shop)
    open_search(copy)
    search(copy, NameKey=",")
    assert copy.rows("CustList") == [SMITH, SMITH_SPOUSE, JONES, JONES_SPOUSE, ABEL, customer_row(500, "Behind,Bob")]


def test_an_empty_tag_file_finds_nobody_without_an_error(start, shop):
    shop.tags.clear()
    shop.write()
    copy = start(shop)
    open_search(copy)
    assert search(copy, NameKey="smith") == "Found 0 matching Customer Name records."
    assert copy.rows("CustList") == []


def test_a_key_of_the_full_width_is_shown_and_found_whole(start, shop):
    last, first = "L" * 20, "F" * 19 + "X"
    shop.add_customer(600, last, first)
    assert bytes(shop.tags[-96 + 4:-96 + 36]) == (last + "," + first)[:32].encode(), "no terminator"
    shop.write()
    copy = start(shop)
    open_search(copy)
    assert search(copy, NameKey=f"{last},{'f' * 11}") == "Found 1 matching Customer Name records."
    assert copy.rows("CustList") == [customer_row(600, f"{last},{'F' * 11}")]
    assert search(copy, NameKey=f"{last},{'f' * 12}") == "Found 0 matching Customer Name records."


@pytest.mark.parametrize("offset, shown", [(-1, -1), (-77, -1), (317 * 3, 951), (999999, 999999)])
def test_an_offset_outside_of_the_master_file_is_told_of(start, shop, offset, shown):
    second = slice(TAG_LENGTH, 2 * TAG_LENGTH)
    shop.tags[second] = put(shop.tags[second], TAG, Offset=offset)
    shop.write()
    copy = start(shop)
    open_search(copy)
    search(copy, Number="12")
    copy.double_click("CustList", row=0)
    copy.expect_box(f"Invalid file offset supplied to ReadCustomer = {shown}", buttons=["OK"])
    copy.press("OK")
    copy.expect_form("frmCustSearch")


def test_the_tags_are_loaded_once_and_again_when_the_index_is_refreshed(lantos, shop):
    open_search(lantos)
    assert search(lantos, NameKey="later") == "Found 0 matching Customer Name records."
    shop.add_customer(700, "Later", "Lou")
    shop.path("TQCSTDAT.DAT").write_bytes(shop.customers)
    shop.path("TQCSTTAG.DAT").write_bytes(shop.tags)
    assert search(lantos, NameKey="later") == "Found 0 matching Customer Name records."
    lantos.key("Esc")
    lantos.menu("mnuRefreshCustomer")
    tell(lantos, "Customer information refreshed.", "Refresh Complete.")
    open_search(lantos)
    assert search(lantos, NameKey="later") == "Found 1 matching Customer Name records."


def test_a_vehicle_whose_owner_has_no_tag_finds_nobody(start, shop):
    shop.vehicles += shop.vehicles[:397]
    shop.vehicles[-397:-393] = (4711).to_bytes(4, "little")
    shop.write()
    copy = start(shop)
    open_search(copy)
    assert search(copy, License="ABC 123") == "Found 1 matching License # records."
    assert copy.rows("CustList") == [SMITH, SMITH_SPOUSE]


@pytest.mark.parametrize("fleet, label", [(None, "License #"), ("True", "Unit #")])
def test_the_license_is_a_unit_number_in_a_fleet_shop(start, shop, tmp_path, fleet, label):
    shop.write()
    if fleet:
        Settings(tmp_path / "settings").write("Korvel", {"FleetVersion": fleet})
    copy = start(shop)
    open_search(copy)
    captions = [control.get("caption") for control in copy.get("form")["controls"].values()]
    assert label in captions


def test_the_windows_size_and_state_are_stored(at_search, tmp_path):
    settings = Settings(tmp_path / "settings")
    assert settings.read("Lantos", "frmCustSearchWidth") is None
    at_search.key("Esc")
    stored = [settings.read("Lantos", f"frmCustSearch{what}") for what in ("Width", "Height", "State")]
    assert stored[2] == "0"
    assert all(float(size) > 0 for size in stored[:2])


def test_a_cancelled_search_and_all_its_looks_write_nothing(lantos, shop):
    before = shared_files(shop)
    ask_new_estimate(lantos)
    for fields, _, said in SEARCHES:
        assert search(lantos, **fields) == said
    lantos.close()
    tell(lantos, "New Estimate cancelled.\n\nPrevious estimate redisplayed.", "New Estimate - Cancelled")
    back_to_board(lantos)
    assert shared_files(shop) == before


def test_bytes_behind_a_nul_are_no_part_of_a_name(start, shop):
    offset, width, _ = TAG["NameKey"]
    shop.tags[offset:offset + width] = b"Smith\0,OLDNAME".ljust(width, b"x")
    shop.customers[CUSTOMER["Lastname"][0]:CUSTOMER["Lastname"][0] + 21] = b"Smith\0OLDNAME".ljust(21, b"x")
    shop.write()
    copy = start(shop)
    open_search(copy)
    assert search(copy, NameKey="oldname") == "Found 0 matching Customer Name records."
    search(copy, Number="7")
    assert copy.rows("CustList")[0] == customer_row(7, "Smith")
    copy.double_click("CustList", row=0)
    assert copy.text("Lastname") == "Smith"

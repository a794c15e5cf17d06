"""Editing a customer, and going through the customers: every byte in the shared files."""

import datetime
import struct

from customersteps import MARTHA, TEXTS, masters, save, shop, shown, tags
from locks import denied_to_all
from screens import (customer_row, customer_span, edit_customer, expect_changed_within, open_search, pick_customer,
                     search, shared_files, spouse_row, tag_span, tell)
from shopfiles import CUSTOMER, CUSTOMER_LENGTH, RETAIL, TAG, TAG_LENGTH, file_date, put, take


def second(data, length):
    return bytes(data[length:2 * length])


def test_each_field_is_filled_from_the_record(lantos):
    edit_customer(lantos, 8)
    assert shown(lantos) == {control: MARTHA[field] for control, field in TEXTS.items()}
    assert lantos.text("CustomerNumber") == "000008"
    assert lantos.text("Date") == "12/31/1999"
    assert lantos.control("PricingLevel")["selected"] == 1
    assert lantos.rows("PricingLevel") == ["Cost", "Wholesale", "Resale", "Retail"]
    people = lantos.control("EmpList")
    assert people["rows"][0]["text"] == " None"
    assert [row["text"].split() for row in people["rows"][1:]] == [
        ["Bob", "Wrench", "000003"], ["Al", "Gone", "000004"], ["Zoe", "Spring", "000005"]]
    assert people["selected"] == 1
    lantos.check("Check1")
    people = lantos.control("EmpList")
    assert [row["text"].split()[0] for row in people["rows"]] == ["None", "Bob", "Zoe"]
    assert people["selected"] == 1
    lantos.check("Check1", False)
    assert len(lantos.rows("EmpList")) == 4


def test_a_customer_without_date_and_salesperson_shows_none(lantos):
    edit_customer(lantos, 7)
    assert lantos.text("Date") == ""
    assert lantos.control("EmpList")["selected"] == 0
    assert lantos.control("PricingLevel")["selected"] == RETAIL


def test_editing_one_field_changes_that_fields_bytes_alone(lantos, shop):
    open_search(lantos)
    search(lantos, Number="8")
    for control, field in TEXTS.items():
        master, tag = masters(shop), tags(shop)
        lantos.double_click("CustList", row=0)
        lantos.expect_form("frmCustEdit")
        typed = "X9" if control == "State" else "New" + control[:2]
        lantos.type(control, typed)
        save(lantos)
        expect_changed_within(master, masters(shop), customer_span(field, CUSTOMER_LENGTH))
        width = CUSTOMER[field][1]
        first = customer_span(field, CUSTOMER_LENGTH)[0]
        assert masters(shop)[first:first + width] == typed.encode().ljust(width, b"\0")
        key = {"Lastname": "NameKey", "Firstname": "NameKey", "Spouse": "SpouseKey", "SpouseLast": "SpouseKey",
               "HomePhone": "Phone"}.get(field)
        if key:
            expect_changed_within(tag, tags(shop), tag_span(key, TAG_LENGTH))
        else:
            assert tags(shop) == tag
    assert take(second(tags(shop), TAG_LENGTH), TAG) == {
        "Number": 8, "NameKey": "NewLa,NewFi", "SpouseKey": "NewSp,NewSp", "Offset": CUSTOMER_LENGTH,
        "Phone": "NewHo", "Reserved": ""}
    assert lantos.rows("CustList") == [customer_row(8, "NewLa,NewFi"), spouse_row(8, "NewLaNewSp,NewSp")]


def test_date_level_and_salesperson_go_to_their_bytes_alone(lantos, shop):
    open_search(lantos)
    search(lantos, Number="8")
    changes = [
        ("Date", lambda: lantos.type("Date", "09/30/2003"), struct.pack("<i", 731868)),
        ("Date", lambda: lantos.type("Date", ""), struct.pack("<i", 0)),
        ("pricing_level", lambda: lantos.select("PricingLevel", text="Resale"), b"\x02\x00"),
        ("salesperson", lambda: lantos.select("EmpList", row=3), b"Zoe Spring".ljust(32, b"\0")),
        ("salesperson", lambda: lantos.select("EmpList", row=0), bytes(32)),
    ]
    tag = tags(shop)
    for field, change, stored in changes:
        before = masters(shop)
        lantos.double_click("CustList", row=0)
        change()
        save(lantos)
        first, last = customer_span(field, CUSTOMER_LENGTH)
        expect_changed_within(before, masters(shop), (first, last))
        assert masters(shop)[first:last] == stored
    assert tags(shop) == tag


def test_saving_what_was_not_changed_leaves_every_byte(lantos, shop):
    before = shared_files(shop)
    edit_customer(lantos, 8)
    save(lantos)
    assert shared_files(shop) == before


def test_a_bare_serial_in_the_date_is_shown_and_kept(start, shop):
    at = CUSTOMER_LENGTH
    shop.customers[at:2 * at] = put(shop.customers[at:2 * at], CUSTOMER, Date=37894)
    shop.write()
    copy = start(shop)
    before = masters(shop)
    edit_customer(copy, 8)
    assert copy.text("Date") == "09/30/2003"
    copy.type("Zip", "99999")
    save(copy)
    expect_changed_within(before, masters(shop), customer_span("Zip", at))


def test_a_date_that_is_none_is_refused(lantos, shop):
    before = masters(shop)
    edit_customer(lantos, 8)
    lantos.type("Date", "02/30/2003")
    lantos.leave()
    tell(lantos, "Invalid date!")
    assert lantos.expect_form("frmCustEdit")["focus"] == "Date"
    lantos.key("F10")
    tell(lantos, "Invalid date!")
    lantos.key("Esc")
    lantos.expect_box("Discard changes?", buttons=["Yes", "No"])
    lantos.press("Yes")
    lantos.expect_form("frmCustSearch")
    assert masters(shop) == before


def test_reset_shows_the_record_again(lantos, shop):
    before = shared_files(shop)
    edit_customer(lantos, 8)
    for control in TEXTS:
        lantos.type(control, "zz")
    lantos.select("PricingLevel", row=0)
    lantos.select("EmpList", row=0)
    lantos.key("F2")
    assert shown(lantos) == {control: MARTHA[field] for control, field in TEXTS.items()}
    assert (lantos.control("PricingLevel")["selected"], lantos.control("EmpList")["selected"]) == (1, 1)
    lantos.key("Esc")
    lantos.expect_form("frmCustSearch")
    assert shared_files(shop) == before


def test_cancel_reads_close_until_something_changes_and_asks_then(lantos, shop):
    before = shared_files(shop)
    edit_customer(lantos, 8)
    assert lantos.caption("cmdCancel") == "Close"
    lantos.type("City", "Columbus")
    assert lantos.caption("cmdCancel") == "Cancel"
    for leave in (lambda: lantos.key("Esc"), lambda: lantos.click("cmdCancel"), lantos.close):
        leave()
        lantos.expect_box("Discard changes?", buttons=["Yes", "No"])
        lantos.press("No")
        lantos.expect_form("frmCustEdit")
        assert lantos.text("City") == "Columbus"
    lantos.key("F2")
    assert lantos.caption("cmdCancel") == "Close"
    lantos.type("City", "Columbus")
    lantos.click("cmdCancel")
    lantos.press("Yes")
    lantos.expect_form("frmCustSearch")
    assert shared_files(shop) == before


# From one to the next.


def test_previous_and_next_walk_the_tags_and_stop_at_the_ends(lantos, shop):
    before = shared_files(shop)
    edit_customer(lantos, 8)
    seen = []
    for key in ("PgDn", "PgDn", "PgUp", "PgUp", "PgUp"):
        lantos.key(key)
        lantos.expect_form("frmCustEdit")
        seen.append((lantos.text("CustomerNumber"), lantos.text("Lastname")))
    assert seen == [("000009", "Zorn"), ("000009", "Zorn"), ("000008", "Smith"), ("000007", "Abel"), ("000007", "Abel")]
    assert lantos.events("beep") == [True, True]
    lantos.click("cmdNext")
    assert lantos.text("CustomerNumber") == "000008"
    lantos.click("cmdPrev")
    assert lantos.text("CustomerNumber") == "000007"
    assert shared_files(shop) == before


def test_going_on_with_changes_asks_to_save_them_first(lantos, shop):
    before = masters(shop)
    edit_customer(lantos, 8)
    lantos.type("City", "Xenia")
    lantos.click("cmdNext")
    lantos.expect_box("Save changes first?", icon="question", buttons=["Yes", "No"])
    lantos.press("No")
    lantos.expect_form("frmCustEdit")
    assert lantos.text("CustomerNumber") == "000009"
    assert masters(shop) == before
    lantos.key("PgUp")
    assert lantos.text("City") == "Dayton"
    lantos.type("City", "Xenia")
    lantos.key("PgUp")
    lantos.expect_box("Save changes first?")
    lantos.press("Yes")
    assert lantos.text("CustomerNumber") == "000007"
    assert lantos.caption("cmdCancel") == "Close"
    expect_changed_within(before, masters(shop), customer_span("City", CUSTOMER_LENGTH))


def test_the_vehicles_of_the_customer_open_from_the_screen(lantos):
    edit_customer(lantos, 8)
    for opens in (lambda: lantos.click("cmdVehicles"), lambda: lantos.key("Alt+V")):
        opens()
        lantos.expect_form("frmVehList")
        assert (lantos.text("CustomerNumber"), lantos.text("CustName")) == ("000008", "Smith, Martha")
        lantos.key("Esc")
        lantos.expect_form("frmCustEdit")


def test_a_slot_another_program_emptied_shifts_the_tags_behind_it(start, shop):
    slot = bytearray(TAG_LENGTH)
    shop.tags[:] = slot + shop.tags
    shop.write()
    copy = start(shop)
    before = tags(shop)
    edit_customer(copy, 8)
    copy.type("Home", "1")
    save(copy)
    # The third tag of the file is the second that is held, and so is written as the second.
    mine = put(bytearray(before[2 * TAG_LENGTH:3 * TAG_LENGTH]), TAG, Phone="1")
    assert tags(shop) == before[:TAG_LENGTH] + mine + before[2 * TAG_LENGTH:]


def test_an_employee_file_that_is_held_is_told_of(lantos, shop):
    open_search(lantos)
    with denied_to_all(shop.path("TQEMPLOY.DAT")):
        pick_customer(lantos, 8)
        tell(lantos, "Could not access employee master file!")
    lantos.expect_form("frmCustEdit")
    before = masters(shop)
    lantos.type("Zip", "1")
    save(lantos)
    expect_changed_within(before, masters(shop), customer_span("Zip", CUSTOMER_LENGTH))
    assert shop.read_customers()[1]["salesperson"] == "Bob Wrench"


def test_each_day_that_a_person_can_type_is_the_day_in_the_file(lantos, shop):
    open_search(lantos)
    search(lantos, Number="9")
    for day in (datetime.date(1900, 3, 1), datetime.date(2000, 2, 29), datetime.date(2003, 9, 30),
                datetime.date(2049, 12, 31)):
        lantos.double_click("CustList", row=0)
        lantos.type("Date", day.strftime("%m/%d/%Y"))
        save(lantos)
        assert shop.read_customers()[2]["Date"] == file_date(day)
        lantos.double_click("CustList", row=0)
        assert lantos.text("Date") == day.strftime("%m/%d/%Y")
        lantos.key("Esc")

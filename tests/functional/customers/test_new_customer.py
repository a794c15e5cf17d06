"""A new customer: the number, the tag and every byte in the shared files."""

from customersteps import masters, save, shop, shown, tags
from driver import MORNING, today_of
from screens import (back_to_board, customer_row, edit_customer, expect_changed_within, open_search, search,
                     shared_files, tag_span)
from shopfiles import CUSTOMER, CUSTOMER_LENGTH, NO_LINK, RETAIL, TAG, TAG_LENGTH, file_date, foreign_bytes, put, take

TODAY = today_of(MORNING)


def test_a_new_customer_takes_the_stored_number_and_leaves_the_next(lantos, shop):
    foreign = shop.foreign_system_bytes()
    system, master, tag = shop.read_system(), masters(shop), tags(shop)
    open_search(lantos)
    lantos.type("NameKey", " Doe , Jane ")
    lantos.click("cmdNew")
    lantos.expect_form("frmCustEdit")
    assert {control: text for control, text in shown(lantos).items() if text} == {
        "Lastname": "Doe", "Firstname": "Jane", "City": "Springfield", "State": "OH"}
    assert (lantos.text("CustomerNumber"), lantos.text("Date")) == ("000301", "09/30/2003")
    assert lantos.control("PricingLevel")["selected"] == RETAIL
    assert lantos.control("EmpList")["selected"] == 0
    assert shop.read_system() == {**system, "last_customer_number": 302}
    assert (masters(shop), tags(shop)) == (master, tag), "not on file yet"
    lantos.type("Home", "937-555-7777")
    lantos.key("F10")
    answer = lantos.expect_form("frmCustEdit")
    assert answer["focus"] == "cmdVehicles"
    assert lantos.caption("cmdCancel") == "Close"
    added = put(bytearray(CUSTOMER_LENGTH), CUSTOMER, Number=301, Lastname="Doe", Firstname="Jane", City="Springfield",
                State="OH", HomePhone="937-555-7777", pricing_level=RETAIL, Date=file_date(TODAY), VLink=NO_LINK)
    assert masters(shop) == master + added
    assert tags(shop) == tag + put(bytearray(TAG_LENGTH), TAG, Number=301, NameKey="Doe,Jane", SpouseKey=",",
                                   Offset=3 * CUSTOMER_LENGTH, Phone="937-555-7777")
    assert shop.foreign_system_bytes() == foreign
    assert shop.read_system() == {**system, "last_customer_number": 302}
    back_to_board(lantos)
    open_search(lantos)
    search(lantos, NameKey="doe,jane")
    assert lantos.rows("CustList") == [customer_row(301, "Doe,Jane")]


def test_a_key_of_41_characters_is_cut_to_32_behind_its_comma(lantos, shop):
    open_search(lantos)
    last, first = "Lastnameoftwentychar", "Firstnameoftwentycha"
    lantos.type("NameKey", f"{last},{first}")
    lantos.key("Insert")
    assert (lantos.text("Lastname"), lantos.text("Firstname")) == (last, first)
    lantos.type("Spouse", "S" * 20)
    lantos.type("SpouseLastname", "T" * 20)
    lantos.key("F10")
    tag = tags(shop)[3 * TAG_LENGTH:]
    assert tag[4:36] == b"Lastnameoftwentychar,Firstnameof"
    assert tag[36:68] == b"T" * 20 + b"," + b"S" * 11
    record = take(masters(shop)[3 * CUSTOMER_LENGTH:], CUSTOMER)
    assert (record["Lastname"], record["Firstname"]) == (last, first)
    assert (record["Spouse"], record["SpouseLast"]) == ("S" * 20, "T" * 20)


def test_a_new_customer_who_is_not_saved_spends_a_number_and_leaves_nothing(lantos, shop):
    before = shared_files(shop)
    open_search(lantos)
    lantos.click("cmdNew")
    lantos.type("Lastname", "Nobody")
    lantos.key("Esc")
    lantos.expect_box("Discard changes?")
    lantos.press("Yes")
    lantos.expect_form("frmCustSearch")
    after = shared_files(shop)
    assert {name for name in after if after[name] != before.get(name)} == {"TQSYSTEM.DAT"}
    assert shop.read_system()["last_customer_number"] == 302
    assert search(lantos, NameKey="nobody") == "Found 0 matching Customer Name records."


def test_the_first_customer_of_a_shop(start, shop):
    for data in (shop.tags, shop.customers, shop.vehicles):
        data.clear()
    shop.write()
    copy = start(shop)
    open_search(copy)
    copy.click("cmdNew")
    copy.type("Lastname", "First")
    copy.key("F10")
    assert [(tag["Number"], tag["NameKey"], tag["Offset"]) for tag in shop.read_tags()] == [(301, "First,", 0)]
    assert shop.read_customers()[0]["Lastname"] == "First"


def test_city_and_state_come_from_the_record_as_another_copy_left_it(lantos, shop):
    record = bytearray(shop.path("TQSYSTEM.DAT").read_bytes())
    record[109:130] = b"Cincinnati".ljust(21, b"\0")
    record[12:16] = (1001).to_bytes(4, "little")
    shop.path("TQSYSTEM.DAT").write_bytes(record)
    open_search(lantos)
    lantos.click("cmdNew")
    assert (lantos.text("CustomerNumber"), lantos.text("City")) == ("001001", "Cincinnati")
    record[12:16] = (1002).to_bytes(4, "little")
    assert shop.path("TQSYSTEM.DAT").read_bytes() == record


def test_what_the_tag_reserves_is_written_blank(start, shop):
    first, last = tag_span("Reserved", TAG_LENGTH)
    shop.tags[first:last] = foreign_bytes(last - first)
    shop.write()
    copy = start(shop)
    before = tags(shop)
    edit_customer(copy, 8)
    save(copy)
    expect_changed_within(before, tags(shop), (first, last))
    assert tags(shop)[first:last] == bytes(last - first)

"""Several copies on the customers at once: nobody's tag and nobody's record goes lost, and nothing that was stored is
undone."""

import struct
from functools import partial

import pytest

from copysteps import copies, in_parallel, shop, try_again, workstations
from locks import denied_to_all
from screens import back_to_board, edit_customer, open_search, open_vehicles, search
from shopfiles import CUSTOMER_LENGTH, NO_LINK, TAG_LENGTH, VEHICLE_LENGTH


def add_customer(copy, name):
    copy.type("NameKey", name)
    copy.key("Insert")
    try_again(copy)
    copy.expect_form("frmCustEdit")
    copy.key("F10")
    try_again(copy)
    copy.expect_form("frmCustEdit")
    copy.key("Esc")
    copy.expect_form("frmCustSearch")
    copy.click("cmdClear")


def pairs(shop):
    """The customers by number, each tag with its record."""
    masters = shop.read_customers()
    found = {}
    for tag in shop.read_tags():
        master = masters[tag["Offset"] // CUSTOMER_LENGTH]
        assert master["Number"] == tag["Number"]
        assert tag["NameKey"] == f"{master['Lastname']},{master['Firstname']}"
        assert tag["Number"] not in found
        found[tag["Number"]] = master
    return found


def test_four_copies_that_add_customers_at_once_lose_none(copies, shop):
    count, each = 4, 15
    shop.write()
    running = workstations(copies, shop, count)

    def add_all(copy, letter):
        open_search(copy)
        for i in range(each):
            add_customer(copy, f"{letter}{i},New")

    in_parallel(*(partial(add_all, copy, letter) for copy, letter in zip(running, "ABCD")))
    found = pairs(shop)
    wanted = ["Smith", "Walker"] + [f"{letter}{i}" for letter in "ABCD" for i in range(each)]
    assert sorted(master["Lastname"] for master in found.values()) == sorted(wanted)
    assert sorted(found) == [7, 8, *range(301, 301 + count * each)]


def test_a_wait_at_a_box_keeps_nobody_waiting_and_overwrites_nobody(copies, shop):
    shop.write()
    first, second = workstations(copies, shop, 2)
    open_search(first)
    first.type("NameKey", "Late,Lou")
    first.key("Insert")
    with denied_to_all(shop.path("TQCSTDAT.DAT")):
        first.key("F10")
        first.expect_box(title="WriteCustomer()")
    open_search(second)
    second.type("NameKey", "Early,Eve")
    second.key("Insert")
    try_again(second)
    second.key("F10")
    second.expect_form("frmCustEdit")
    first.press("OK")
    first.expect_form("frmCustEdit")
    assert {number: master["Lastname"] for number, master in pairs(shop).items()} == {
        7: "Smith", 8: "Walker", 301: "Late", 302: "Early"}


def test_two_copies_that_add_vehicles_to_one_customer_keep_both(copies, shop):
    shop.write()
    running = workstations(copies, shop, 2)
    for copy in running:
        open_vehicles(copy, 8)
    for copy, vin in zip(running, ("FIRST", "SECOND")):
        copy.key("Insert")
        copy.type("VIN", vin)
        copy.key("F10")
        copy.expect_form("frmVehList")
    vehicles, chain = shop.read_vehicles(), []
    link = shop.read_customers()[1]["VLink"]
    while link != NO_LINK:
        chain.append(vehicles[link // VEHICLE_LENGTH]["VIN"])
        link = vehicles[link // VEHICLE_LENGTH]["VLink"]
    assert chain == ["SECOND", "FIRST"]


def put_number(shop, name, length, place, number):
    with open(shop.path(name), "r+b") as file:
        file.seek(place * length)
        file.write(struct.pack("<i", number))


def test_a_counter_behind_the_files_gives_no_number_twice(start, shop):
    shop.system["last_customer_number"] = 7
    shop.write()
    (copy,) = workstations(start, shop, 1)
    before = pairs(shop)
    open_search(copy)
    copy.type("NameKey", "New,Nora")
    copy.key("Insert")
    copy.key("F10")
    box = copy.expect_box(title="Next Number", buttons=["OK", "Cancel"])
    assert box["text"] == ("000007, the running number of the customers in TQSYSTEM.DAT, is in use already.\n"
                           "The file was emptied, or is older than the others.\n\n"
                           "The next free number is 000009.\nClick OK to go on from there, or CANCEL to stop.")
    copy.press("OK")
    copy.expect_form("frmCustEdit")
    assert copy.text("CustomerNumber") == "000009"
    after = pairs(shop)
    assert {number: after[number] for number in before} == before
    assert after[9]["Lastname"] == "New"
    assert shop.read_system()["last_customer_number"] == 10


def test_a_tag_that_leads_to_another_shows_nobody(start, shop):
    shop.write()
    put_number(shop, "TQCSTTAG.DAT", TAG_LENGTH, 0, 70)
    (copy,) = workstations(start, shop, 1)
    open_search(copy)
    assert search(copy, Number="70") == "Found 1 matching Customer # records."
    copy.double_click("CustList", row=0)
    copy.expect_box("Customer 000070 can't be shown: the tag in TQCSTTAG.DAT leads to the record of customer 000007 in "
                    "TQCSTDAT.DAT.\nRun KRVLCLEN to repair the files.", "ReadCustomer()")
    copy.press("OK")
    copy.expect_form("frmCustSearch")


# One record, two and four copies.


@pytest.mark.parametrize("count", [2, 4])
def test_copies_that_change_one_customer_keep_each_others_fields(copies, shop, count):
    shop.write()
    running = workstations(copies, shop, count)
    texts = {"Address": "1 Elm Street", "City": "Xenia", "Zip": "45385", "Comment": "No calls"}
    for copy in running:
        edit_customer(copy, 8)
    for copy, (control, text) in zip(running, texts.items()):
        copy.type(control, text)
    for copy in running:
        copy.key("F10")
        copy.expect_form("frmCustSearch")
    record = shop.read_customers()[1]
    assert {name: record[name] for name in list(texts)[:count]} == dict(list(texts.items())[:count])
    back_to_board(running[0])
    edit_customer(running[0], 8)
    assert running[0].text("City") == record["City"], "the screen reads the file, whatever is in memory"


def test_the_same_field_of_two_copies_is_asked_about(start, shop):
    shop.write()
    first, second = workstations(start, shop, 2)
    for copy, city in ((first, "Xenia"), (second, "Dayton")):
        edit_customer(copy, 8)
        copy.type("City", city)
    first.type("Zip", "45385")
    for copy in (first, second):
        copy.key("F10")
    second.expect_box("Somebody else has changed this meanwhile:\n\nCity: \"Xenia\" is stored, \"Dayton\" is yours\n\n"
                      "Do you want to store yours?\nNo keeps what is stored, CANCEL goes back.", "Edit Customer",
                      "question", ["Yes", "No", "Cancel"])
    second.press("Cancel")
    assert second.text("City") == "Dayton", "all that was typed is still there"
    second.key("F10")
    second.press("Yes")
    second.expect_form("frmCustSearch")
    record = shop.read_customers()[1]
    assert (record["City"], record["Zip"]) == ("Dayton", "45385")

"""Several copies on one file of vendors, and copies killed in the middle of it."""

import json
import random
from functools import partial

from copysteps import copies, in_parallel, kill_within, workstations
from vendorfiles import (ALPHA, GAMMA, VENDOR_FILE, VENDOR_LENGTH, add_vendor, open_vendors, press_on, vendor_bytes,
                         vendor_names, vendor_record, write_vendors)


def running(copies, shop, count):
    shop.write()
    write_vendors(shop, ALPHA)
    started = workstations(copies, shop, count)
    for copy in started:
        copy.menu("mnuMaintVendors")
        press_on(copy)
    return started


def test_two_copies_that_add_vendors_at_once_lose_none_and_add_none_twice(copies, shop):
    each = 25

    def add_all(copy, letter):
        for i in range(each):
            add_vendor(copy, f"{letter} {i}")

    in_parallel(*(partial(add_all, copy, letter) for copy, letter in zip(running(copies, shop, 2), "XY")))
    wanted = ["Alpha Glass"] + [f"{letter} {i}" for letter in "XY" for i in range(each)]
    assert sorted(vendor_names(shop)) == sorted(wanted)
    for record in vendor_bytes(shop)[1:]:
        name = record[:32].rstrip(b"\0").decode("cp1252")
        assert record == vendor_record({"VendorName": name, "City": "Springfield", "State": "OH"})


def test_a_name_that_another_copy_has_added_meanwhile_is_there(copies, shop):
    first, second = running(copies, shop, 2)
    add_vendor(first, "Epsilon")
    second.key("Insert")
    second.type("VendorName", "EPSILON")
    second.key("F10")
    assert second.caption("Msg") == "EPSILON already exists."
    second.key("Esc")
    assert second.rows("VendorList") == ["Alpha Glass", "Epsilon"]
    assert vendor_names(shop) == ["Alpha Glass", "Epsilon"]


def test_what_another_copy_did_is_there_when_the_list_is_opened_again(copies, shop):
    first, second = running(copies, shop, 2)
    second.key("Esc")
    add_vendor(first, "Epsilon")
    first.key("Home")
    first.key("Delete")
    first.press("Yes")
    open_vendors(second)
    assert second.rows("VendorList") == ["Epsilon"]
    first.key("Down")
    first.key("Enter")
    first.type("City", "Xenia")
    first.key("F10")
    second.key("Down")
    second.key("Enter")
    assert second.text("City") == "Xenia", "as the file has it now"


def test_kills_leave_whole_records(copies, shop):
    moments = random.Random(7)
    shop.write()
    write_vendors(shop, ALPHA, GAMMA)
    for round_ in range(6):
        victim = copies(shop)
        open_vendors(victim)
        lines = []
        for i in range(5):
            lines += [{"do": "key", "key": "Insert"},
                      {"do": "type", "control": "VendorName", "text": f"Vendor {round_}.{i}"},
                      {"do": "key", "key": "F10"}]
        kill_within(victim, [json.dumps(line) for line in lines], moments.uniform(0, 0.15))
        assert shop.path(VENDOR_FILE).stat().st_size % VENDOR_LENGTH == 0
        names = vendor_names(shop)
        assert len(set(names)) == len(names) and names[:2] == ["Alpha Glass", "Gamma Towing"]
        mine = [name for name in names if name.startswith(f"Vendor {round_}.")]
        assert mine == [f"Vendor {round_}.{i}" for i in range(len(mine))], "in order, and none in the middle missing"
    last = copies(shop)
    open_vendors(last)
    assert last.rows("VendorList") == vendor_names(shop)

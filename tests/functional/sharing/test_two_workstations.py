"""Several copies at work on one directory at once, and copies killed in the middle of booking."""

import os
import random
import sqlite3
from functools import partial

from copysteps import (copies, in_parallel, kill_within, shop, start_victim, time_of, try_again,
                       workstations)
from screens import ask_new_estimate, back_to_board, book, edit_customer, open_search, search, tell
from shopfiles import CUSTOMER_LENGTH, NO_LINK, TAG_LENGTH, VEHICLE_LENGTH


def on_one_shop(copies, shop, count):
    shop.write()
    return workstations(copies, shop, count)


# Several copies at once.


def test_two_writers_of_one_customer_and_the_later_one_says_who_wins(copies, shop):
    first, second = on_one_shop(copies, shop, 2)
    for copy, city in ((first, "Xenia"), (second, "Dayton")):
        edit_customer(copy, 8)
        copy.type("City", city)
    first.type("Zip", "11111")
    for copy in (first, second):
        copy.key("F10")
    second.expect_box(title="Edit Customer", buttons=["Yes", "No", "Cancel"])
    second.press("Yes")
    record = shop.read_customers()[1]
    assert (record["City"], record["Zip"]) == ("Dayton", "11111"), "what only the first one wrote is kept"


def test_writes_to_different_columns_survive_and_of_one_column_the_later(copies, shop):
    shop.add_estimate(900, "2003-09-30", customer=7)
    first, second = on_one_shop(copies, shop, 2)
    for copy in (first, second):
        copy.double_click("List1(2)", row=0)
    first.type("txtComments", "from the first")
    first.leave()
    second.click("cmdVehicleEdit")
    second.key("F10")
    kept = shop.estimate(900)
    assert (kept["Comments"], kept["VehMake"]) == ("from the first", "Ford")
    second.type("txtComments", "from the second")
    second.leave()
    assert shop.estimate(900)["Comments"] == "from the second"
    assert first.text("txtComments") == "from the first", "each sees its own screen until a reload"


def test_another_copys_new_customer_is_found_when_its_number_is_missed(copies, shop):
    """The second copy's tags are older than the customer that the first one adds."""
    first, second = on_one_shop(copies, shop, 2)
    open_search(second)
    search(second, NameKey=",")
    open_search(first)
    first.type("NameKey", "Early,Eve")
    first.key("Insert")
    first.key("F10")
    second.type("NameKey", "Late,Lou")
    second.key("Insert")
    second.key("F10")
    assert [(tag["Number"], tag["NameKey"], tag["Offset"] // CUSTOMER_LENGTH) for tag in shop.read_tags()] == [
        (7, "Smith,John", 0), (8, "Walker,Wes", 1), (301, "Early,Eve", 2), (302, "Late,Lou", 3)]
    assert [customer["Lastname"] for customer in shop.read_customers()] == ["Smith", "Walker", "Early", "Late"]


def book_patiently(copy, customer):
    ask_new_estimate(copy)
    copy.type("Number", str(customer))
    copy.key("F10")
    copy.double_click("CustList", row=0)
    try_again(copy)
    copy.expect_form("frmVehList")
    copy.key("Esc")
    return copy.expect_form("frmMain")


def test_four_copies_that_book_at_once_never_share_a_number(copies, shop):
    count, bookings = 4, 10
    running = on_one_shop(copies, shop, count)

    def book_all(copy):
        for _ in range(bookings):
            book_patiently(copy, 7)

    in_parallel(*(partial(book_all, copy) for copy in running))
    rows = shop.query("SELECT EstimateNumber, CustomerNumber FROM Estimates ORDER BY EstimateNumber")
    assert [row["EstimateNumber"] for row in rows] == list(range(1001, 1001 + count * bookings))
    assert {row["CustomerNumber"] for row in rows} == {7}
    assert shop.read_system()["last_estimate_number"] == 1001 + count * bookings
    shown = [{copy.caption("frameDetailView")[7:13]} for copy in running]
    assert len(set.union(*shown)) == count, "each one's last booking is another"


# Kills.


def booking_lines(name):
    """A new customer with a new vehicle is booked, in one breath."""
    return ['{"do":"click","control":"cmdNewEstimate"}', '{"do":"answer","button":"No"}',
            f'{{"do":"type","control":"NameKey","text":"{name},X"}}', '{"do":"key","key":"Insert"}',
            '{"do":"key","key":"F10"}', '{"do":"key","key":"Alt+V"}', '{"do":"key","key":"Insert"}',
            f'{{"do":"type","control":"VIN","text":"{name}"}}', '{"do":"key","key":"F10"}', '{"do":"key","key":"Esc"}',
            '{"do":"key","key":"Esc"}', '{"do":"key","key":"F10"}']


def expect_whole_shop(shop, torn):
    """Whole records, no number twice, every link leads to its own. torn: customers whose copy was killed between the
    two writes of a new one, which leaves a tag at the end of the masters."""
    for name, length in (("TQCSTTAG.DAT", TAG_LENGTH), ("TQCSTDAT.DAT", CUSTOMER_LENGTH),
                         ("TQVEHICL.DAT", VEHICLE_LENGTH)):
        assert shop.path(name).stat().st_size % length == 0, name
    tags, masters, vehicles = shop.read_tags(), shop.read_customers(), shop.read_vehicles()
    for numbers in ([tag["Number"] for tag in tags], [master["Number"] for master in masters]):
        assert len(set(numbers)) == len(numbers)
    for tag in tags:
        if tag["Offset"] == len(masters) * CUSTOMER_LENGTH:
            torn.add(tag["Number"])
        elif tag["Number"] not in torn:
            assert masters[tag["Offset"] // CUSTOMER_LENGTH]["Number"] == tag["Number"]
    for master in masters:
        link, seen = master["VLink"], 0
        while link != NO_LINK:
            vehicle = vehicles[link // VEHICLE_LENGTH]
            assert vehicle["Number"] == master["Number"]
            link, seen = vehicle["VLink"], seen + 1
        assert seen <= 1
    known = {master["Number"] for master in masters} | {0}
    with sqlite3.connect(shop.path("Lantos.mdb")) as database:
        assert database.execute("PRAGMA integrity_check").fetchall() == [("ok",)]
        for number, customer, link, vin in database.execute(
                "SELECT EstimateNumber, CustomerNumber, VehicleLink, VehVIN FROM Estimates"):
            assert number < shop.read_system()["last_estimate_number"]
            assert customer in known
            if vin is not None:
                assert (vehicles[link // VEHICLE_LENGTH]["VIN"], vehicles[link // VEHICLE_LENGTH]["Number"]) == (
                    vin, customer)
    assert max(known) < shop.read_system()["last_customer_number"]


def test_kills_in_the_middle_of_booking_leave_a_whole_shop(copies, shop, tmp_path):
    kills = int(os.environ.get("LANTOS_KILLS", "30"))
    (survivor,) = on_one_shop(copies, shop, 1)
    foreign = shop.foreign_system_bytes()
    own = set(shop.names())
    chance = random.Random(os.environ.get("LANTOS_KILL_SEED", "930"))
    whole_time, finished, torn = 0.0, 0, set()
    for kill in range(kills + 1):
        victim = start_victim(tmp_path, shop)
        victim.expect_form("frmMain")
        lines = [line for part in range(2) for line in booking_lines(f"K{kill}-{part}")]
        if kill == 0:
            whole_time = time_of(victim, lines)
        else:
            kill_within(victim, lines, chance.uniform(0, whole_time))
        book(survivor, 7)
        expect_whole_shop(shop, torn)
        finished += sum(vehicle["VIN"] == f"K{kill}-1" for vehicle in shop.read_vehicles())
        for name in set(shop.names()) - own:
            if name.startswith(("LN", "AU")):
                shop.path(name).unlink()  # a later day's start does it
    print(f"{kills} kills, {finished} behind the last write, {len(torn)} between the two writes of a new customer")
    assert len(torn) <= 1 + kills // 100
    assert shop.foreign_system_bytes() == foreign
    assert len(shop.query("SELECT * FROM Estimates WHERE CustomerNumber = 7")) == kills + 1
    assert 0 < finished <= kills, "some kills came in the middle, and some copies came through"
    back_to_board(survivor)
    open_search(survivor)
    survivor.key("Esc")
    survivor.menu("mnuRefreshCustomer")
    tell(survivor, "Customer information refreshed.", "Refresh Complete.")

"""Files that somebody else has: every prompt, and several copies at work on one directory at once."""

import os
import random
import sqlite3
import threading
import time

import pytest

from boardlines import TODAY
from conftest import Starter
from driver import Lantos, data_option
from inventoryfiles import make_inventory, part
from locks import denied_to_all, deny_to_all
from screens import (ask_new_estimate, back_to_board, book, cells, edit_customer, open_search, open_vehicles,
                     pick_customer, search, shared_files, tell)
from shopfiles import CUSTOMER_LENGTH, NO_LINK, TAG_LENGTH, VEHICLE_LENGTH
from workfiles import show
from workorderfiles import (WORKORDER_FILES, active_tags, archived_tags, file_name, part_row, read_workorder,
                            stock_masters, stock_tags, usage_records, used_from)

SYSTEM_LOCKED = "System file locked by another user."
AGAIN = "\nClick OK to try again, or CANCEL to exit."
TAGS_LOCKED = "Customer tags file locked by another user."
CUSTOMERS_LOCKED = "Customer data file locked by another user."
VEHICLES_LOCKED = "Could not open Vehicle file, click Retry to try again."
DENIED = "Error 70: Permission denied"


@pytest.fixture
def shop(shop):
    shop.add_employee(1, "Bob Wrench")
    smith = shop.add_customer(7, "Smith", "John", phone="555-1111")
    shop.add_customer(8, "Walker", "Wes", phone="555-2222")
    shop.add_vehicle(smith, "Ford", "Focus", "1999", VIN="V1")
    return shop


@pytest.fixture
def copies(tmp_path):
    """Several copies on the desktop without windows: what they share is files."""
    starter = Starter(tmp_path, "driver")
    yield starter
    starter.clean_up()


def workstations(copies, shop, count):
    shop.write()
    return [copies(shop, computer=f"BENCH{i}", settings=copies.home / f"settings{i}") for i in range(count)]


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
    lantos.expect_form("frmVehList")
    assert cells(lantos, "Model") == ["Focus"]
    lantos.key("Insert")
    lantos.type("Model", "New")
    with denied_to_all(shop.path("TQVEHICL.DAT")):
        lantos.key("F10")
        tell(lantos, "Could not open Vehicle file.", "WriteVehicle")
    lantos.expect_form("frmVehList")
    assert shared_files(shop) == before, "nor has the customer a link to a vehicle that isn't there"


# Several copies at once.


def test_two_writers_of_one_customer_the_last_one_wins(copies, shop):
    first, second = workstations(copies, shop, 2)
    for copy, city in ((first, "Xenia"), (second, "Dayton")):
        edit_customer(copy, 8)
        copy.type("City", city)
    first.type("Zip", "11111")
    for copy in (first, second):
        copy.key("F10")
    record = shop.read_customers()[1]
    assert (record["City"], record["Zip"]) == ("Dayton", ""), "the first one's write is lost silently"


def test_writes_to_different_columns_survive_and_of_one_column_the_later(copies, shop):
    shop.add_estimate(900, "2003-09-30", customer=7)
    first, second = workstations(copies, shop, 2)
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
    first, second = workstations(copies, shop, 2)
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


def through_prompts(copy):
    """A hundred tries may all meet another copy's hold: a person presses Retry."""
    while copy.answer.get("waiting") == "box" and copy.answer["text"] == SYSTEM_LOCKED:
        copy.press("Retry")


def book_patiently(copy, customer):
    ask_new_estimate(copy)
    copy.type("Number", str(customer))
    copy.key("F10")
    copy.double_click("CustList", row=0)
    through_prompts(copy)
    copy.expect_form("frmVehList")
    copy.key("Esc")
    return copy.expect_form("frmMain")


def test_four_copies_that_book_at_once_never_share_a_number(copies, shop):
    count, bookings = 4, 10
    running = workstations(copies, shop, count)
    failures = []

    def work(copy):
        try:
            for _ in range(bookings):
                book_patiently(copy, 7)
        except Exception as failure:  # told in the test's own thread
            failures.append(failure)

    threads = [threading.Thread(target=work, args=(copy,)) for copy in running]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not failures, failures[0]
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


def time_of(victim, lines):
    """How long it takes when nobody is killed before it is through."""
    begun = time.monotonic()
    for line in lines:
        assert "error" not in victim.send_text(line), victim.evidence()
    victim.expect_form("frmMain")
    took = time.monotonic() - begun
    victim.kill()
    return took


def kill_within(victim, lines, seconds):
    """The moment is what is tried."""
    victim.process.stdin.write("".join(line + "\n" for line in lines))
    victim.process.stdin.flush()
    time.sleep(seconds)
    victim.kill()


def test_kills_in_the_middle_of_booking_leave_a_whole_shop(copies, shop, tmp_path):
    kills = int(os.environ.get("LANTOS_KILLS", "30"))
    (survivor,) = workstations(copies, shop, 1)
    foreign = shop.foreign_system_bytes()
    own = set(shop.names())
    chance = random.Random(os.environ.get("LANTOS_KILL_SEED", "930"))
    whole_time, finished, torn = 0.0, 0, set()
    for kill in range(kills + 1):
        victim = Lantos(tmp_path, arguments=(data_option(shop.directory),), computer="VICTIM", name="victim",
                        settings=tmp_path / "victim-settings")
        victim.first_answer()
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


# Conversions.


STOCK = 10000
USED = {"P-1": 1, "P-2": 3}  # by each conversion
HELD = (SYSTEM_LOCKED, "Inventory Usage file locked by another user.", "Tag file locked by another user.")


@pytest.fixture
def work(shop):
    """Estimates 900 to 903 of today, of John Smith, with parts and labor. They may be converted any number of times."""
    shop.system["tax_rate"] = (100000, 0, 0, 0)
    for number in range(900, 904):
        shop.add_estimate(number, TODAY, customer=7, CreateDate=TODAY)
        for name, quantity in USED.items():
            shop.add_part(number, name, f"PART OF {number}", quantity, 1000, 600)
        shop.add_labor(number, 1, f"Labor of {number}", 1)
    return shop


def write_work(shop):
    shop.write()
    make_inventory(shop.directory, [part(name, "PART", in_stock=STOCK) for name in USED])
    for name in WORKORDER_FILES:
        shop.path(name).write_bytes(b"")
    shop.write_profile({"Status Options": {"ScheduledToComplete": "N"}})


def converting_copies(copies, shop, count):
    write_work(shop)
    running = [copies(shop, computer=f"BENCH{i}", settings=copies.home / f"settings{i}") for i in range(count)]
    return [show(copy, 900 + i) for i, copy in enumerate(running)]


def convert_patiently(copy):
    """The number of the work order. A file that is held is tried again."""
    copy.click("cmdConvert")
    copy.press("Yes")
    while copy.expect_box()["text"].split("\n")[0] in HELD:
        copy.press(copy.answer["buttons"][0])
    text = copy.answer["text"]
    assert " is now Workorder # " in text, copy.evidence()
    copy.press("OK")
    tell(copy, "Estimate status is still 'Scheduled'", "Convert to WO")
    copy.expect_form("frmMain")
    return int(text.rsplit(" ", 1)[1])


def expect_whole_order(shop, number, active, archived):
    """Text and both tags tell of one and the same estimate."""
    sections = read_workorder(shop, number)
    labor = sections["Labor"][0]
    estimate = labor[labor.index("Labor of ") + 9:][:3]
    assert sections["Workorder"][0] == f"WorkorderNumber={number:06}"
    assert sections["Parts"] == [part_row(name, f"PART OF {estimate}", quantity, 600, 1000, 0)
                                 for name, quantity in USED.items()]
    # 40.00 of parts with 10 % tax and an hour's labor.
    wanted = {"WorkorderNumber": number, "CustomerName": "Smith,John", "CustomerNumber": 7, "PartsCost": 2400,
              "PartsSubtotal": 4000, "LaborSubtotal": 6500, "WorkorderTax": 400, "WorkorderTotal": 10900}
    for tag in (active, archived):
        assert {name: tag[name] for name in wanted} == wanted
    assert (active["FileName"], archived["MasterOffset"]) == (file_name(number), NO_LINK)
    return int(estimate)


def test_four_copies_that_convert_at_once_never_share_a_number_or_lose_stock(copies, work):
    count, conversions = 4, 8
    running = converting_copies(copies, work, count)
    failures, numbers = [], {}

    def convert_all(copy, number):
        try:
            numbers[number] = [convert_patiently(copy) for _ in range(conversions)]
        except Exception as failure:  # told in the test's own thread
            failures.append(failure)

    threads = [threading.Thread(target=convert_all, args=(copy, 900 + i)) for i, copy in enumerate(running)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not failures, failures[0]
    total = count * conversions
    assert sorted(sum(numbers.values(), [])) == list(range(5001, 5001 + total))
    assert work.read_system()["last_workorder_number"] == 5001 + total
    active = {tag["WorkorderNumber"]: tag for tag in active_tags(work)}
    archived = {tag["WorkorderNumber"]: tag for tag in archived_tags(work)}
    assert len(active_tags(work)) == len(active) == len(archived_tags(work)) == len(archived) == total
    for estimate, orders in numbers.items():
        for number in orders:
            assert expect_whole_order(work, number, active[number], archived[number]) == estimate
    for tag, master in zip(stock_tags(work), stock_masters(work)):
        used = USED[tag["StockNumber"]]
        assert tag["InStock"] == master["QtyInStock"] == STOCK - used * total
        chain = used_from(work, master)
        assert {record["WorkorderNumber"] for record in chain} == set(active)
        assert [(record["StockNumber"], record["Quantity"]) for record in chain] == [(tag["StockNumber"], used)] * total
    assert len(usage_records(work)) == 2 * total
    for number in range(900, 904):
        assert work.estimate(number)["Comments"].count("Workorder # ") == conversions


def conversion_lines():
    return ['{"do":"click","control":"cmdConvert"}', '{"do":"answer","button":"Yes"}',
            '{"do":"answer","button":"OK"}', '{"do":"answer","button":"OK"}']


def expect_whole_orders(shop, texts):
    """Whole records, no number twice, nothing that leads nowhere. Adds to the numbers of whole texts, which come last
    of all. How many texts are there by name alone: a kill may come between making a file and its one write."""
    active, archived = active_tags(shop), archived_tags(shop)
    numbers = [tag["WorkorderNumber"] for tag in active]
    assert len(set(numbers)) == len(numbers)
    assert all(number < shop.read_system()["last_workorder_number"] for number in numbers)
    by_number = {tag["WorkorderNumber"]: tag for tag in archived}
    assert len(by_number) == len(archived) and set(by_number) <= set(numbers)
    empty = 0
    for tag in active:
        number = tag["WorkorderNumber"]
        if number in texts:
            continue
        path = shop.path(file_name(number))
        if path.exists() and path.stat().st_size > 0:
            expect_whole_order(shop, number, tag, by_number[number])
            texts.add(number)
        else:
            empty += path.exists()
    assert {int(name[1:8]) for name in shop.names("W*.tqa")} <= set(numbers)
    used = {name: {record["WorkorderNumber"] for record in usage_records(shop) if record["StockNumber"] == name}
            for name in USED}
    for tag, master in zip(stock_tags(shop), stock_masters(shop)):
        name = tag["StockNumber"]
        chain = used_from(shop, master)
        assert {record["StockNumber"] for record in chain} <= {name}
        # Between usage, tag and master a kill may come; each is written whole, in this order.
        tag_moves, master_moves = ((STOCK - stock) / USED[name] for stock in (tag["InStock"], master["QtyInStock"]))
        assert texts <= {record["WorkorderNumber"] for record in chain} <= used[name]
        assert master_moves.is_integer() and tag_moves.is_integer()
        assert len(used[name]) >= tag_moves >= master_moves >= len(texts)
    return empty


def test_kills_in_the_middle_of_converting_leave_whole_files(copies, work, tmp_path):
    kills = int(os.environ.get("LANTOS_KILLS", "30"))
    (survivor,) = converting_copies(copies, work, 1)
    own = set(work.names())
    chance = random.Random(os.environ.get("LANTOS_KILL_SEED", "930"))
    whole_time, taken, texts, orders = 0.0, set(), set(), []
    for kill in range(kills + 1):
        victim = Lantos(tmp_path, arguments=(data_option(work.directory),), computer="VICTIM", name="victim",
                        settings=tmp_path / "victim-settings")
        victim.first_answer()
        show(victim, 901)
        lines = conversion_lines() * 2
        if kill == 0:
            whole_time = time_of(victim, lines)
        else:
            kill_within(victim, lines, chance.uniform(0, whole_time))
        before = work.read_system()["last_workorder_number"]
        orders.append(convert_patiently(survivor))
        assert orders[-1] == before and orders[-1] not in taken
        taken.update(range(5001, work.read_system()["last_workorder_number"]))
        empty = expect_whole_orders(work, texts)
        assert texts.issuperset(orders)
        for name in set(work.names()) - own:
            if name.startswith(("LN", "AU")):
                work.path(name).unlink()  # a later day's start does it
    through = len(texts) - len(orders)
    lost = work.read_system()["last_workorder_number"] - 5001 - len(texts)
    print(f"{kills} kills: {through} of the victims' work orders whole, {lost} numbers without, {empty} empty")
    assert 2 <= through < 2 * (kills + 1), "some kills came in the middle, and some conversions came through"

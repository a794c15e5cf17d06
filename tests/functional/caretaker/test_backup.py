"""A backup is taken while the shop works; what is restored of it is the shop as it was at one moment."""

import os
from functools import partial

from caretakersteps import caretaker, caretaker_says
from copysteps import STOCK, USED, be_patient, convert_patiently, converting_copies, copies, in_parallel, shop, work
from linesteps import LABOR, begin_to_add, close_list, fill, open_list, save
from screens import book
from shopfiles import Shop
from startsteps import SHOP_LEFT, SHOP_NOT_RUN, SHOP_WRONG_USE
from workfiles import one_estimate, show
from workorderfiles import active_tags, archived_tags, read_workorder, stock_masters, stock_tags, usage_records

# Of an ordinary run; the long one asks for 4 copies and 20 backups.
COPIES = int(os.environ.get("LANTOS_STORM_COPIES", "2"))
BACKUPS = int(os.environ.get("LANTOS_STORM_BACKUPS", "3"))


def expect_whole(shop):
    """Every work order has its text, both tags and its parts, and every part that is gone has its order."""
    numbers = {tag["WorkorderNumber"] for tag in active_tags(shop)}
    assert numbers == {tag["WorkorderNumber"] for tag in archived_tags(shop)}
    assert all(number < shop.read_system()["last_workorder_number"] for number in numbers)
    for number in numbers:
        assert read_workorder(shop, number)["Workorder"][0] == f"WorkorderNumber={number:06}"
    for tag, master in zip(stock_tags(shop), stock_masters(shop)):
        assert tag["InStock"] == master["QtyInStock"] == STOCK - USED[tag["StockNumber"]] * len(numbers)
    assert len(usage_records(shop)) == len(USED) * len(numbers)
    comments = sum((shop.estimate(number)["Comments"] or "").count("Workorder # ") for number in range(900, 904))
    assert comments == len(numbers)
    return len(numbers)


def expect_booked(shop, booked):
    """What was booked before a backup began is in it, whole, and the counter is behind none of its numbers."""
    estimates = {row["EstimateNumber"] for row in shop.query("SELECT EstimateNumber FROM Estimates")}
    lines = {(row["EstimateNumber"], row["Description"].split("\t")[0].upper()) for row in shop.query("SELECT * FROM Labors")}
    assert set(booked) <= estimates
    assert {(number, f"OF {number}") for number in booked} <= lines
    assert max(estimates) < shop.read_system()["last_estimate_number"]


def book_with_labor(copy):
    book(copy, 7, vehicle_row=0)
    number = int(copy.caption("frameDetailView").split("# ")[1][:6])
    open_list(copy, LABOR)
    begin_to_add(copy, LABOR)
    fill(copy, LABOR, f"Of {number}", 1)
    save(copy, LABOR)
    close_list(copy, LABOR)
    return number


def test_a_storm_of_bookings_and_conversions_is_restored_whole(copies, work, tmp_path):
    work.system["last_estimate_number"] = 1001
    running = converting_copies(copies, work, COPIES)
    clerk = be_patient(copies(work, computer="CLERK", settings=tmp_path / "clerk"))
    taken, booked, known = [], [], []

    def convert(number, copy):
        while len(taken) < BACKUPS:
            convert_patiently(copy)

    def back_up():
        try:
            for i in range(BACKUPS):
                known.append(len(booked))
                taken.append(caretaker("backup", work.directory, tmp_path / f"{i}.tar.zst"))
        finally:
            taken.extend([None] * BACKUPS)

    def book_on():
        while len(taken) < BACKUPS:
            booked.append(book_with_labor(clerk))

    in_parallel(back_up, book_on, *(partial(convert, 900 + i, copy) for i, copy in enumerate(running)))
    for i, backup in enumerate(taken[:BACKUPS]):
        assert backup.returncode == 0, backup.stderr
        assert caretaker_says("verify", tmp_path / f"{i}.tar.zst")["differences"] == []
        caretaker_says("restore", tmp_path / f"{i}.tar.zst", tmp_path / f"restored{i}")
        restored = Shop(tmp_path / f"restored{i}")
        expect_whole(restored)
        expect_booked(restored, booked[:known[i]])
    assert known[-1] > 0 and len(set(booked)) == len(booked)


def test_what_was_lost_comes_back_and_the_shop_goes_on(start, shop, tmp_path):
    one_estimate(shop)
    shop.write()
    archive = tmp_path / "shop.tar.zst"
    assert caretaker_says("backup", shop.directory, archive)["left out"] == []
    board = show(start(shop))
    refused = caretaker("restore", archive, shop.directory)
    assert refused.returncode == SHOP_NOT_RUN and "Somebody works in this directory" in refused.stderr
    board.close()
    board.expect_end()
    (shop.directory / "Lantos.mdb").write_bytes(b"lost")
    restored = caretaker_says("restore", archive, shop.directory)
    assert (tmp_path / restored["kept"] / "Lantos.mdb").read_bytes() == b"lost"
    show(start(shop))
    assert shop.estimate(900)["EstimateNumber"] == 900


def test_each_outcome_has_its_code(shop, tmp_path):
    shop.write()
    archive = tmp_path / "shop.tar.zst"
    assert caretaker("backup", shop.directory).returncode == SHOP_WRONG_USE
    assert caretaker("backup", tmp_path / "none", archive).returncode == SHOP_NOT_RUN
    (shop.directory / "AWAY.DAT").symlink_to("/etc/hostname")
    left = caretaker("backup", shop.directory, archive)
    assert left.returncode == SHOP_LEFT and 'Left out "AWAY.DAT"' in left.stdout
    archive.write_bytes(archive.read_bytes()[:-100])
    cut = caretaker("verify", archive)
    assert cut.returncode == SHOP_NOT_RUN and "can't be used" in cut.stderr

"""Several copies that convert on one directory at once, and copies killed in the middle of it."""

import os
import random
from functools import partial

from copysteps import (STOCK, USED, conversion_lines, convert_patiently, converting_copies, copies, in_parallel,
                       kill_within, settle_half_done, shop, start_victim, time_of, work)
from shopfiles import NO_LINK
from workfiles import show
from workorderfiles import (active_tags, archived_tags, file_name, part_row, read_workorder, stock_masters, stock_tags,
                            usage_records, used_from)


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
    numbers = {}

    def convert_all(number, copy):
        numbers[number] = [convert_patiently(copy) for _ in range(conversions)]

    in_parallel(*(partial(convert_all, 900 + i, copy) for i, copy in enumerate(running)))
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


def expect_whole_orders(shop, texts):
    """Whole records, no number twice, nothing that leads nowhere. Adds to the numbers of whole texts, which come last
    of all."""
    active, archived = active_tags(shop), archived_tags(shop)
    numbers = [tag["WorkorderNumber"] for tag in active]
    assert len(set(numbers)) == len(numbers)
    assert all(number < shop.read_system()["last_workorder_number"] for number in numbers)
    by_number = {tag["WorkorderNumber"]: tag for tag in archived}
    assert len(by_number) == len(archived) and set(by_number) <= set(numbers)
    for tag in active:
        number = tag["WorkorderNumber"]
        if number in texts:
            continue
        path = shop.path(file_name(number))
        if path.exists() and path.stat().st_size > 0:
            expect_whole_order(shop, number, tag, by_number[number])
            texts.add(number)
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


def expect_nothing_apart(shop, texts, unused):
    """Once all that was half done is settled: each number has its work order, or was told to have none."""
    assert shop.names("AJ*") == []
    assert {tag["WorkorderNumber"] for tag in active_tags(shop)} == texts
    assert {tag["WorkorderNumber"] for tag in archived_tags(shop)} == texts
    assert texts | set(unused) == set(range(5001, shop.read_system()["last_workorder_number"]))
    for tag, master in zip(stock_tags(shop), stock_masters(shop)):
        name = tag["StockNumber"]
        assert tag["InStock"] == master["QtyInStock"] == STOCK - USED[name] * len(texts)
        assert {record["WorkorderNumber"] for record in used_from(shop, master)} == texts
        assert {record["WorkorderNumber"] for record in usage_records(shop) if record["StockNumber"] == name} == texts


def test_kills_in_the_middle_of_converting_leave_whole_files(copies, work, tmp_path):
    kills = int(os.environ.get("LANTOS_KILLS", "30"))
    (survivor,) = converting_copies(copies, work, 1)
    own = set(work.names())
    chance = random.Random(os.environ.get("LANTOS_KILL_SEED", "930"))
    whole_time, texts, orders, unused = 0.0, set(), [], []

    def start_and_settle():
        copy = start_victim(tmp_path, work)
        unused.extend(settle_half_done(copy, lambda: chance.choice(["Yes", "No"])))
        return copy

    for kill in range(kills + 1):
        victim = show(start_and_settle(), 901)
        lines = conversion_lines() * 2
        if kill == 0:
            whole_time = time_of(victim, lines)
        else:
            kill_within(victim, lines, chance.uniform(0, whole_time))
        before = work.read_system()["last_workorder_number"]
        orders.append(convert_patiently(survivor))
        assert orders[-1] == before
        expect_whole_orders(work, texts)
        assert texts.issuperset(orders)
        for name in set(work.names()) - own:
            if name.startswith(("LN", "AU")):
                work.path(name).unlink()  # a later day's start does it
    start_and_settle().kill()
    expect_whole_orders(work, texts)
    expect_nothing_apart(work, texts, unused)
    through = len(texts) - len(orders)
    print(f"{kills} kills: {through} of the victims' work orders whole, {len(unused)} numbers told to be unused")
    assert 2 <= through < 2 * (kills + 1), "some kills came in the middle, and some conversions came through"

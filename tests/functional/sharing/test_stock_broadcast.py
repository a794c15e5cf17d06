"""Several copies that sell from one stock at once and tell one another of it, and copies killed in the middle."""

import os
import random
import time
from functools import partial

from copysteps import (STOCK, USED, conversion_lines, convert_patiently, converting_copies, copies, in_parallel,
                       kill_within, settle_half_done, shop, start_victim, time_of, work)
from mailboxes import TICK, mail, stock
from workfiles import show
from workorderfiles import stock_masters, stock_tags

SECONDS = float(os.environ.get("LANTOS_BROADCAST_SECONDS", "3"))
BROADCAST = "BroadcastUpdate"


def tick(copy):
    """Lets a copy send and take in; what it asks about a file that is held is tried again."""
    copy.wait(TICK)
    while copy.answer["waiting"] == "box":
        assert copy.answer["title"] in (BROADCAST, "ReadInventoryTag"), copy.evidence()
        copy.press("Retry")


def let_all_run_empty(shop, running):
    """Everybody tells what waits, and takes in what was told."""
    for _ in range(2):
        for copy in running:
            tick(copy)
    for number in range(len(running)):
        assert mail(shop, f"AU930{number}.$$$") == []


def expect_lists_as_the_file(shop, running):
    in_file = {tag["StockNumber"]: tag["InStock"] for tag in stock_tags(shop)}
    assert {tag["StockNumber"]: tag["QtyInStock"] for tag in stock_masters(shop)} == in_file
    for copy in running:
        assert {name: stock(copy, name) for name in USED} == in_file, copy.evidence()


def test_four_copies_that_sell_at_once_come_to_one_list(copies, work):
    running = converting_copies(copies, work, 4)
    sold = []
    end = time.monotonic() + SECONDS

    def sell(copy):
        chance = random.Random(copy.settings.name)
        while time.monotonic() < end:
            sold.append(convert_patiently(copy))
            if chance.random() < 0.7:
                tick(copy)

    in_parallel(*(partial(sell, copy) for copy in running))
    let_all_run_empty(work, running)
    expect_lists_as_the_file(work, running)
    assert {tag["StockNumber"]: STOCK - tag["InStock"] for tag in stock_tags(work)} == {
        name: used * len(sold) for name, used in USED.items()}


def test_kills_in_the_middle_leave_no_torn_record_and_lists_that_follow(copies, work, tmp_path):
    kills = int(os.environ.get("LANTOS_BROADCAST_KILLS", "6"))
    running = converting_copies(copies, work, 2)
    chance = random.Random(os.environ.get("LANTOS_KILL_SEED", "930"))
    lines = [*conversion_lines(), f'{{"do":"wait","ms":{TICK}}}'] * 2
    whole_time = 0.0
    for kill in range(kills + 1):
        victim = start_victim(tmp_path, work)
        settle_half_done(victim, lambda: chance.choice(["Yes", "No"]))
        show(victim, 902)
        if kill == 0:
            whole_time = time_of(victim, lines)
        else:
            kill_within(victim, lines, chance.uniform(0, whole_time))
        for name in work.names("AU*"):
            mail(work, name)
        convert_patiently(running[kill % 2])
        tick(running[kill % 2])
    # What a victim had written and not told stands in the lists with the next change of the part.
    for copy in running:
        convert_patiently(copy)
    let_all_run_empty(work, running)
    expect_lists_as_the_file(work, running)

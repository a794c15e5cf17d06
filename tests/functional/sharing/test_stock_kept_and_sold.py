"""Four copies on one stock: two sell from it, two edit the same parts, and a fifth is killed in the middle of a sale.
LANTOS_BROADCAST_SECONDS says for how long; a minute finds more than the few seconds of every day's run."""

import os
import random
import time
from functools import partial

from copysteps import (STOCK, USED, conversion_lines, convert_patiently, copies, in_parallel, kill_within, shop,
                       start_victim, work, write_work)
from inventoryfiles import make_inventory, part, read_masters, read_tags
from inventorysteps import go_to_part, open_inventory
from mailboxes import TICK, listed, mail
from workfiles import show

PARTS = [*USED, "P-3", "P-4"]
ALTERNATES = [f"AltNumber{place}" for place in range(1, 5)]
SECONDS = float(os.environ.get("LANTOS_BROADCAST_SECONDS", "3"))
TRIED_AGAIN = ("BroadcastUpdate", "ReadInventoryTag", "ReadInventory")


def patiently(copy):
    """What is asked about a file that is held is tried again, a missing price is let be, and of a field that both have
    changed ours is stored."""
    while copy.answer["waiting"] == "box":
        if copy.answer["text"].startswith("Somebody else has changed this meanwhile:"):
            copy.press("Yes")
            continue
        missing = "One or more of the pricing values is missing." in copy.answer["text"]
        assert missing or copy.answer["title"] in TRIED_AGAIN, copy.evidence()
        copy.press("OK" if missing else "Retry")


def tick(copy):
    copy.wait(TICK)
    patiently(copy)


def edit(copy, dice, partners):
    """A price of any part, and of its own pair whether each names the other."""
    number = dice.choice(PARTS)
    go_to_part(copy, number)
    copy.key("F10")
    patiently(copy)
    copy.expect_form("frmInvEdit")
    copy.type("Pricing(3)", f"{dice.randint(100, 999)}.00")
    if number in partners:
        other = partners[1 - partners.index(number)]
        standing = [place for place in range(4) if copy.text(f"AltNumber({place})") == other]
        copy.type(f"AltNumber({standing[0] if standing else 0})", "" if standing else other)
    copy.key("F10")
    patiently(copy)
    copy.expect_form("frmInvList")


def work_until(end, deeds):
    def again_and_again(deed, dice):
        while time.monotonic() < end:
            deed(dice)

    in_parallel(*(partial(again_and_again, deed, random.Random(i)) for i, deed in enumerate(deeds)))


def test_who_sells_and_who_edits_come_to_one_stock(copies, work, tmp_path):
    write_work(work)
    make_inventory(work.directory, [part(name, "PART", (600, 700, 800, 900), STOCK) for name in PARTS])
    sellers = [show(copies(work, computer=f"DESK{i}", settings=copies.home / f"desk{i}"), 900 + i) for i in range(2)]
    keepers = []
    for i in range(2):
        copy = copies(work, computer=f"SHELF{i}", settings=copies.home / f"shelf{i}")
        copy.wait(10)
        keepers.append(open_inventory(copy))
    sold, killed = [], []

    def sell(copy, dice):
        sold.append(convert_patiently(copy))
        if dice.random() < 0.7:
            tick(copy)

    def keep(copy, dice, partners):
        edit(copy, dice, partners)
        if dice.random() < 0.7:
            tick(copy)

    def kill(dice):
        victim = start_victim(tmp_path, work)
        victim.wait(10)  # its list of parts is read
        while victim.answer["waiting"] == "box":
            victim.press(victim.answer["buttons"][0])
        show(victim, 902)
        lines = [*conversion_lines(), f'{{"do":"wait","ms":{TICK}}}']
        kill_within(victim, lines, dice.uniform(0, 0.3))
        killed.append(victim)

    deeds = [lambda dice, copy=copy: sell(copy, dice) for copy in sellers]
    deeds += [lambda dice, copy=copy, pair=pair: keep(copy, dice, pair)
              for copy, pair in zip(keepers, (["P-1", "P-3"], ["P-2", "P-4"]))]
    work_until(time.monotonic() + SECONDS, [*deeds, kill])
    assert sold and killed

    # What a victim had written and not told stands in the lists with the next change of the part.
    for copy in sellers:
        convert_patiently(copy)
    for _ in range(2):
        for copy in [*sellers, *keepers]:
            tick(copy)
    for copy in keepers:
        copy.type("SearchPart", "")
        copy.key("Enter")
    expect_one_stock(work, [*sellers, *keepers])


def expect_one_stock(shop, running):
    tags = {tag["StockNumber"]: tag for tag in read_tags(shop.directory)}
    masters = {master["StockNumber"]: master for master in read_masters(shop.directory)}
    assert sorted(tags) == sorted(masters) == sorted(PARTS)
    named = {number: {master[place] for place in ALTERNATES} - {""} for number, master in masters.items()}
    for number, others in named.items():
        assert all(number in named[other] for other in others), f"an alternate points one way: {named}"
    for number, master in masters.items():
        assert tags[number]["Pricing"] == master["Pricing"], number
    for name in shop.names("AU*"):
        mail(shop, name)
    for copy in running:
        rows = listed(copy)
        for number, tag in tags.items():
            assert (int(rows[number]["Qty"]), float(rows[number]["Retail"])) == (
                tag["InStock"], tag["Pricing"][3] / 100), (number, copy.evidence())

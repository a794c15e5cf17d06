"""Copies that edit parts which name one another: no record is torn, and no alternate points one way."""

import random
import threading
from functools import partial

from copysteps import copies, in_parallel, workstations
from driver import DEADLINE
from inventoryfiles import make_inventory, part, read_masters, read_tags
from inventorysteps import go_to_part, open_inventory

PARTS = [f"PART-{letter}" for letter in "ABCD"]
ALTERNATES = [f"AltNumber{place}" for place in range(1, 5)]
ROUNDS = 20


def patiently(copy):
    """A file that another copy writes at this moment is tried again, and of a field that both change ours is stored."""
    while copy.answer["waiting"] == "box":
        if copy.answer["text"].startswith("Somebody else has changed this meanwhile:"):
            copy.press("Yes")
            continue
        copy.expect_box(buttons=["Retry", "Cancel"])
        assert "Can not read tags record for " in copy.answer["text"], copy.evidence()
        copy.press("Retry")


def edit_all(copy, dice, together):
    try:
        for round_number in range(ROUNDS):
            number = dice.choice(PARTS)
            go_to_part(copy, number)
            copy.key("F10")
            patiently(copy)
            copy.expect_form("frmInvEdit")
            for place in dice.sample(range(4), 2):
                # None twice: four places are enough for three others.
                standing = {copy.text(f"AltNumber({other})") for other in range(4) if other != place}
                copy.type(f"AltNumber({place})", dice.choice(["", *sorted(set(PARTS) - standing - {number})]))
            copy.type("Comment", f"round {round_number}")
            together.wait(DEADLINE)
            copy.key("F10")
            patiently(copy)
            copy.expect_form("frmInvList")
    except threading.BrokenBarrierError:
        pass  # another copy's failure
    except Exception:
        together.abort()
        raise


def test_alternates_of_three_copies_stay_on_both_sides(copies, shop):
    shop.write()
    make_inventory(shop.directory, [part(name, "PART", (1, 2, 3, 4), 9) for name in PARTS])
    running, together = workstations(copies, shop, 3), threading.Barrier(3)
    for copy in running:
        copy.wait(10)
        open_inventory(copy)
    in_parallel(*(partial(edit_all, copy, random.Random(i), together) for i, copy in enumerate(running)))

    masters = {master["StockNumber"]: master for master in read_masters(shop.directory)}
    assert list(masters) == PARTS
    named = {number: {master[place] for place in ALTERNATES} - {""} for number, master in masters.items()}
    assert any(named.values()), "they name each other in the end"
    for number, others in named.items():
        for other in others:
            assert number in named[other], f"{number} names {other}, and not the other way round: {named}"
    tags = read_tags(shop.directory)
    assert [(tag["StockNumber"], tag["Description"], tag["InStock"]) for tag in tags] == [
        (name, "PART", 9) for name in PARTS]

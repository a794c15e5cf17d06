"""Copies that edit parts which name one another: no record is torn, no alternate points one way or stands twice."""

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
    for number, master in masters.items():
        standing = [master[place] for place in ALTERNATES if master[place]]
        assert len(standing) == len(set(standing)), f"{number} names one part twice: {standing}"
    for number, others in named.items():
        for other in others:
            assert number in named[other], f"{number} names {other}, and not the other way round: {named}"
    tags = read_tags(shop.directory)
    assert [(tag["StockNumber"], tag["Description"], tag["InStock"]) for tag in tags] == [
        (name, "PART", 9) for name in PARTS]


def alternates(shop, number):
    master = next(master for master in read_masters(shop.directory) if master["StockNumber"] == number)
    return [master[place] for place in ALTERNATES]


def begin_editing(copy, number):
    copy.wait(10)
    go_to_part(open_inventory(copy), number).key("F10")
    copy.expect_form("frmInvEdit")
    return copy


def save(copy):
    copy.key("F10")
    copy.expect_form("frmInvList")


def test_an_alternate_that_another_copy_entered_meanwhile_takes_one_place(copies, shop):
    shop.write()
    make_inventory(shop.directory, [part(name, "PART", (1, 2, 3, 4), 9) for name in PARTS[:2]])
    first, second = workstations(copies, shop, 2)
    begin_editing(first, "PART-A")
    begin_editing(second, "PART-B").type("AltNumber(2)", "PART-A")
    save(second)
    assert alternates(shop, "PART-A") == ["PART-B", "", "", ""]
    first.type("AltNumber(1)", "PART-B")  # its first place shows blank still
    save(first)
    assert alternates(shop, "PART-A") == ["PART-B", "", "", ""]
    assert alternates(shop, "PART-B") == ["", "", "PART-A", ""]


def test_what_the_person_enters_twice_stands_twice(copies, shop):
    shop.write()
    make_inventory(shop.directory, [part(name, "PART", (1, 2, 3, 4), 9) for name in PARTS[:2]])
    copy, = workstations(copies, shop, 1)
    begin_editing(copy, "PART-A")
    copy.type("AltNumber(1)", "PART-B")
    copy.type("AltNumber(2)", "PART-B")
    save(copy)
    assert alternates(shop, "PART-A") == ["", "PART-B", "PART-B", ""]
    assert alternates(shop, "PART-B") == ["PART-A", "", "", ""]

"""Two copies that add parts at once: all are there, and none twice."""

from functools import partial

from copysteps import copies, in_parallel, workstations
from inventoryfiles import MASTER_LENGTH, make_inventory, part, read_masters, read_tags
from inventorysteps import open_inventory

OWN = 25  # numbers that one copy alone adds
COMMON = 15


def add_all(copy, numbers, told):
    for number in numbers:
        copy.type("StockNumber", number)
        copy.key("Enter")
        while copy.answer["waiting"] == "box":
            told.append(copy.answer["text"])
            copy.press("OK")
        copy.expect_form("frmInvAdd")


def test_all_parts_of_two_copies_are_there_and_none_twice(copies, shop):
    shop.write()
    make_inventory(shop.directory, [part("FIRST", "THE FIRST")])
    told, workers, running = [], [], workstations(copies, shop, 2)
    for i, copy in enumerate(running):
        copy.wait(10)
        open_inventory(copy)
        copy.key("Insert")
        numbers = [f"COMMON-{n}" for n in range(COMMON)] + [f"COPY{i}-{n}" for n in range(OWN)]
        workers.append(partial(add_all, copy, numbers, told))
    in_parallel(*workers)

    tags, masters = read_tags(shop.directory), read_masters(shop.directory)
    wanted = ["FIRST", *(f"COMMON-{n}" for n in range(COMMON)), *(f"COPY{i}-{n}" for i in range(2) for n in range(OWN))]
    assert sorted(tag["StockNumber"] for tag in tags) == sorted(wanted)
    assert sorted(told) == sorted(f"Part\nCOMMON-{n}\nalready exists." for n in range(COMMON))
    assert sorted(tag["Tag"] for tag in tags) == [MASTER_LENGTH * n for n in range(len(wanted))]
    for tag in tags:
        assert masters[tag["Tag"] // MASTER_LENGTH]["StockNumber"] == tag["StockNumber"]
    for copy in running:
        copy.key("Esc")
        copy.key("Esc")
        copy.expect_form("frmMain")

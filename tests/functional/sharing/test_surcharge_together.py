"""The surcharge of an estimate that several copies have on show, or that a killed copy has left."""

import json
import os
import random

from copysteps import copies, kill_within, start_victim, time_of, undo_half_written, workstations
from inventoryfiles import make_inventory, part
from linesteps import LABOR, PARTS, begin_to_add, begin_to_change, fill, remove, save
from workfiles import one_estimate, show


def shop_with_surcharge(shop):
    one_estimate(shop)
    shop.system["labor_surcharge_percent"] = shop.system["parts_surcharge_percent"] = 100000
    shop.system["surcharge_description"] = "SUPPLIES"
    return shop


def expect_surcharge_of_what_is_stored(shop):
    sums = shop.query("SELECT (SELECT sum(LaborTotal) FROM Labors) AS labor, (SELECT sum(PartTotal) FROM Parts) AS parts")
    wanted = (sums[0]["labor"] or 0) // 10 + (sums[0]["parts"] or 0) // 10
    stored = [row["Price"] for row in shop.query("SELECT Price FROM Waste WHERE VendorName = 'SURCHARGE'")]
    assert stored == ([wanted] if wanted else [])


def test_the_surcharge_is_that_of_the_lines_of_both_copies(start, shop):
    shop_with_surcharge(shop)
    for number, word in enumerate(("ONE", "TWO"), 1):
        shop.add_labor(900, number, word, 1, 100)
    shop.write()
    first, second = pair = [show(copy) for copy in workstations(start, shop, 2)]
    for copy, line, count in zip(pair, ("ONE", "TWO"), (50, 70)):
        begin_to_change(copy, LABOR, line)
        fill(copy, LABOR, line, count)
        save(copy, LABOR)
        expect_surcharge_of_what_is_stored(shop)
    begin_to_add(first, PARTS)
    fill(first, PARTS, "THREE", 3)
    save(first, PARTS)
    expect_surcharge_of_what_is_stored(shop)
    remove(second, LABOR, "TWO")
    expect_surcharge_of_what_is_stored(shop)


def shop_with_core(shop):
    shop_with_surcharge(shop).write()
    make_inventory(shop.directory, [part("ALT-1", "ALTERNATOR", (6000,) * 4, 2, HasACore=1),
                                    part("ALT-1/C", "CORE: ALTERNATOR", (1500,) * 4)])


def test_a_kill_between_a_part_and_its_core_leaves_the_surcharge_of_the_part(copies, shop, tmp_path):
    shop_with_core(shop)
    victim = show(start_victim(tmp_path, shop))
    victim.click("cmdPartAdd")
    victim.type("SearchPart", "ALT-1")
    victim.key("Enter")
    victim.select("DataGrid1", row=0)
    victim.key("F10")
    victim.expect_form("frmWOPart")
    victim.key("F10")
    victim.expect_form("frmWOPart")
    assert victim.text("PartNumber") == "ALT-1/C"
    victim.kill()
    assert shop.query("SELECT PartNumber FROM Parts") == [{"PartNumber": "ALT-1"}]
    expect_surcharge_of_what_is_stored(shop)


def adding_lines():
    """The alternator and its core, three times, in one breath."""
    key = {"do": "key", "key": "F10"}
    pick = [{"do": "type", "control": "SearchPart", "text": "ALT-1"}, {"do": "key", "key": "Enter"},
            {"do": "select", "control": "DataGrid1", "row": 0}, key]
    deeds = [{"do": "click", "control": "cmdPartAdd"}, *(3 * [*pick, key, key]), {"do": "key", "key": "Esc"}]
    return [json.dumps(deed) for deed in deeds]


def test_a_kill_while_parts_with_cores_are_added_leaves_the_surcharge_of_what_is_stored(copies, shop, tmp_path):
    shop_with_core(shop)
    chance = random.Random(os.environ.get("LANTOS_KILL_SEED", "931"))
    whole_time = 0.0
    for kill in range(int(os.environ.get("LANTOS_KILLS", "6")) + 1):
        victim = show(start_victim(tmp_path, shop))
        if kill == 0:
            whole_time = time_of(victim, adding_lines())
            assert shop.query("SELECT sum(Quantity) AS units FROM Parts") == [{"units": 6}]
        else:
            kill_within(victim, adding_lines(), chance.uniform(0, whole_time))
            undo_half_written(shop)
        expect_surcharge_of_what_is_stored(shop)

"""A copy that is killed in the middle of changing a line of labor: the line is as it was or as it was to be."""

import os
import random

from boardlines import TODAY
from copysteps import copies, kill_within, shop, start_victim, time_of, undo_half_written
from workfiles import show

CHANGES = 4


def changing_lines():
    """The one line of the estimate on show is changed to 1.50 hours and 2.50 hours, over and over, in one breath."""
    lines = []
    for change in range(CHANGES):
        lines += ['{"do":"select","control":"listLabor","row":0}', '{"do":"click","control":"cmdLaborChange"}',
                  f'{{"do":"type","control":"Hours","text":"{1 + change % 2}.50"}}', '{"do":"key","key":"F10"}']
    return lines


def test_a_kill_in_the_middle_of_changing_labor_leaves_the_line_and_its_surcharge(copies, shop, tmp_path):
    shop.add_estimate(900, TODAY, customer=7, CreateDate=TODAY)
    shop.add_labor(900, 1, "WASH", 1)
    shop.system["labor_surcharge_percent"] = 100000
    shop.system["surcharge_description"] = "SUPPLIES"
    shop.write()
    chance = random.Random(os.environ.get("LANTOS_KILL_SEED", "930"))
    whole_time = 0.0
    for kill in range(int(os.environ.get("LANTOS_KILLS", "6")) + 1):
        victim = show(start_victim(tmp_path, shop), 900)
        if kill == 0:
            whole_time = time_of(victim, changing_lines())
        else:
            kill_within(victim, changing_lines(), chance.uniform(0, whole_time))
            undo_half_written(shop)
        (line,) = shop.query("SELECT * FROM Labors WHERE EstimateNumber = 900")
        assert line["LaborHours"] in (150, 250) and line["LaborNumber"] == 1
        (surcharge,) = shop.query("SELECT * FROM Waste WHERE EstimateNumber = 900")
        assert surcharge["Price"] == line["LaborTotal"] // 10

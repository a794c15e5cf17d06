"""What a workstation has written down is read, while it works too."""

import pytest

from caretakersteps import caretaker, caretaker_says
from startsteps import SHOP_NOT_RUN, SHOP_WRONG_USE
from workfiles import one_estimate, show

DAY = "2003-09-30"


def test_one_workstations_day(start, shop):
    one_estimate(shop).write()
    front = show(start(shop, computer="FRONT"))
    back = show(start(shop, computer="Back"))
    back.close_window()
    told = caretaker_says("logs", shop.directory, "--day", DAY)["runs"]
    assert [(run["workstation"], run["at_work"]) for run in told] == [("FRONT", True), ("Back", False)]
    [run] = caretaker_says("logs", shop.directory, "--day", DAY, "--workstation", "front")["runs"]
    assert [f'09/30/2003 {line["at"]} {line["text"]}' for line in run["lines"]] == front.log_lines()
    printed = caretaker("logs", shop.directory, "--day", DAY, "--workstation", "BACK").stdout.splitlines()
    assert printed[0].startswith(f'{told[1]["log"]}: Back') and printed[0].endswith(", from 08:15:00 to 08:15:00")
    assert printed[1] == "  08:15:00 Korvel Appointment Scheduler Started."
    front.close_window()


def test_a_day_without_logs_says_how_long_they_are_kept(shop):
    shop.write()
    told = caretaker("logs", shop.directory, "--day", DAY)
    assert (told.returncode, told.stderr) == (0, "")
    assert told.stdout == f"There is no such log of {DAY}. A log is kept until the first start of another day.\n"
    assert caretaker_says("logs", shop.directory, "--day", DAY)["runs"] == []


@pytest.mark.parametrize("arguments, code, words", [
    (("logs", "/dev/shm/never"), SHOP_NOT_RUN, "There is no shop in /dev/shm/never"),
    (("logs", "/dev/shm/never", "--day", "30.9."), SHOP_WRONG_USE, '"30.9." is no date of the form 2003-09-30.'),
])
def test_what_can_not_be_done_is_said(arguments, code, words):
    refused = caretaker(*arguments)
    assert (refused.returncode, refused.stdout) == (code, "")
    assert words in refused.stderr

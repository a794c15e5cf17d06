"""A program that ends in the middle of a conversion, and the next start, which finishes or undoes it."""

import pytest

from boardlines import TODAY, elsewhere
from conversionsteps import (FIRST, PARTS, TITLE, answer_status, convert, estimate, expect_converted, question, shop, show,
                             stored_comments)
from driver import DriverError
from faults import KILLED, Faults
from inventoryfiles import make_inventory, read_tags
from workorderfiles import (ACTIVE_FILE, ARCHIVED_FILE, USAGE_FILE, WORKORDER_FILES, active_tags, archived_tags,
                            file_name, read_workorder, stock_masters, usage_records)

BEGUN = (f"The conversion of estimate # 000900 to work order # {FIRST:06} was not finished.\nIt was begun on BENCH1 at "
         "2003-09-30T08:15:00. What was done:\n- the number was taken")
NOTED = "\n- the use of PAD-9 was noted"
EITHER_WAY = "\n\nClick Yes to finish it, No to undo it, or Cancel to decide later."
ON_ALONE = "\n\nClick Yes to finish it, or No to decide later."


def stocked(shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    shop.add_labor(900, 1, "Look", 1)
    shop.write()
    make_inventory(shop.directory, PARTS)
    for name in WORKORDER_FILES:
        shop.path(name).write_bytes(b"")
    return shop


def kill_at_write_of(start, shop, tmp_path, name):
    """A copy that converts, and ends where it would have written this file for the first time."""
    faults = Faults(shop.directory, tmp_path)
    copy = show(start(shop, faults=faults))
    copy.click("cmdConvert")
    copy.expect_box(question(), TITLE)
    faults.fail(name, fault=KILLED, call="write", times=1)
    with pytest.raises(DriverError, match="the process ended with 137"):
        copy.press("Yes")
    copy.kill()
    assert faults.hits() == [] or faults.hits()[-1][0] == name


def left(shop):
    return shop.names("AJ*")


def expect_whole(shop):
    assert [tag["WorkorderNumber"] for tag in active_tags(shop)] == [FIRST]
    assert [tag["WorkorderNumber"] for tag in archived_tags(shop)] == [FIRST]
    assert read_workorder(shop, FIRST)["Workorder"][0] == f"WorkorderNumber={FIRST:06}"
    assert (read_tags(shop.directory)[0]["InStock"], stock_masters(shop)[0]["QtyInStock"]) == (4, 4)
    assert [(record["StockNumber"], record["WorkorderNumber"]) for record in usage_records(shop)] == [("PAD-9", FIRST)]
    assert stored_comments(shop).startswith(f"Workorder # {FIRST:06}")
    assert left(shop) == []


@pytest.mark.parametrize("name, done, choice", [
    (USAGE_FILE, "", EITHER_WAY),
    ("TQINVTAG.DAT", NOTED, EITHER_WAY),
    ("TQINVENT.DAT", NOTED, EITHER_WAY),
    (ACTIVE_FILE, NOTED, EITHER_WAY),
    (ARCHIVED_FILE, NOTED + f"\n- the tag in {ACTIVE_FILE} was written", ON_ALONE),
    (file_name(FIRST), NOTED + f"\n- the tag in {ACTIVE_FILE} was written\n- the tag in {ARCHIVED_FILE} was written",
     ON_ALONE),
])
def test_the_next_start_tells_of_it_and_finishes_it(start, shop, tmp_path, name, done, choice):
    kill_at_write_of(start, stocked(shop), tmp_path, name)
    assert len(left(shop)) == 1
    copy = start(shop)
    copy.expect_box(BEGUN + done + choice, TITLE, "question")
    copy.press("Yes")
    expect_converted(copy, FIRST)
    answer_status(copy)
    expect_whole(shop)
    assert copy.text("txtComments").startswith(f"Workorder # {FIRST:06}")


def test_the_next_start_undoes_it(start, shop, tmp_path):
    kill_at_write_of(start, stocked(shop), tmp_path, ACTIVE_FILE)
    copy = start(shop)
    copy.expect_box(BEGUN + NOTED + EITHER_WAY, TITLE, "question", ["Yes", "No", "Cancel"])
    copy.press("No")
    copy.expect_box(f"The conversion of estimate # 000900 to work order # {FIRST:06} was undone.", TITLE, "information")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert (read_tags(shop.directory)[0]["InStock"], stock_masters(shop)[0]["QtyInStock"]) == (6, 6)
    assert usage_records(shop) == [] and active_tags(shop) == [] and left(shop) == []
    assert shop.read_system()["last_workorder_number"] == FIRST
    assert stored_comments(shop) is None
    show(copy)
    convert(copy)
    expect_converted(copy, FIRST)
    answer_status(copy)
    expect_whole(shop)


def test_who_decides_later_is_asked_by_the_next_start_and_ahead_of_the_same_estimate(start, shop, tmp_path):
    shop.add_estimate(901, TODAY, customer=7, CreateDate=TODAY)
    kill_at_write_of(start, stocked(shop), tmp_path, "TQINVENT.DAT")
    copy = start(shop, computer="BENCH2", settings=tmp_path / "other")
    copy.expect_box(BEGUN + NOTED + EITHER_WAY)
    copy.press("Cancel")
    copy.expect_form("frmMain")
    show(copy, 901)
    convert(copy, 901)
    expect_converted(copy, FIRST + 1, 901)
    answer_status(copy)
    show(copy)
    copy.click("cmdConvert")
    copy.expect_box(BEGUN + NOTED + EITHER_WAY)
    copy.press("Yes")
    expect_converted(copy, FIRST)
    answer_status(copy)
    assert {tag["WorkorderNumber"] for tag in active_tags(shop)} == {FIRST, FIRST + 1} and left(shop) == []


def test_one_that_another_copy_is_at_is_told_and_nothing_is_done(start, shop, tmp_path):
    first = show(start(stocked(shop)))
    second = show(start(shop, computer="BENCH2", settings=tmp_path / "other"))
    convert(first)
    first.expect_box(f"Estimate # 000900 is now Workorder # {FIRST:06}")
    second.click("cmdConvert")
    second.expect_box(f"Estimate # 000900 is being converted to work order # {FIRST:06} by another copy of the program. "
                      "It was begun on BENCH1 at 2003-09-30T08:15:00.\nNothing was done here.", TITLE, "exclamation")
    second.press("OK")
    second.expect_form("frmMain")
    first.press("OK")
    answer_status(first)
    expect_whole(shop)


def test_one_of_a_deleted_estimate_is_left_as_it_is(start, shop, tmp_path):
    kill_at_write_of(start, stocked(shop), tmp_path, ARCHIVED_FILE)
    elsewhere(shop, "DELETE FROM Estimates")
    copy = start(shop)
    copy.expect_box(title=TITLE, buttons=["Yes", "No"])
    copy.press("Yes")
    copy.expect_box("Estimate 000900 is no longer there.", TITLE)
    copy.press("OK")
    box = copy.expect_box(title=TITLE, icon="question", buttons=["Yes", "No"])
    assert box["text"].startswith(f"The conversion of estimate # 000900 to work order # {FIRST:06} can not be finished: "
                                  "its estimate or its customer is not on file.")
    copy.press("Yes")
    copy.expect_form("frmMain")
    assert left(shop) == []
    assert any("part 2 6 6 -1 PAD-9" in line for line in copy.log_lines())

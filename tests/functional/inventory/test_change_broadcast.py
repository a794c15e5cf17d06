"""Copies tell one another of changed parts through their update files, and their lists follow."""

import pytest

from conversionsteps import begin, convert_whole, estimate, show, shop
from inventoryfiles import make_inventory, part
from inventorysteps import go_to_part, open_inventory
from locks import denied_to_all
from mailboxes import OWN, TICK, listed, mail, put_mail, stock, told, total
from startsteps import START_FAILED
from workfiles import one_estimate

PARTS = [part("HOSE-1", "HOSE", (1, 2, 3, 400), 10), part("HOSE-2", "HOSE", (1, 2, 3, 500), 20),
         part("PAD-9", "PADS", (1, 2, 3, 600), 30)]
PEER = "AU9301.$$$"
HELD = ("Inventory Update file AU9301.$$$ could not be opened.\nError 70: Permission denied\n"
        "Click RETRY to try again, or CANCEL to skip this file.")


def opened(start, shop, parts=PARTS):
    """A copy at its board, the list read."""
    shop.write()
    make_inventory(shop.directory, parts)
    copy = start(shop)
    copy.wait(50)
    return copy


def two_copies(start, shop, tmp_path, quantity=3):
    """The first has an estimate with three PAD-9 in the detail view."""
    estimate(shop)
    shop.add_part(900, "PAD-9", "PADS", quantity, 600, 1)
    first = begin(start, shop, PARTS)
    second = start(shop, computer="BENCH2", settings=tmp_path / "settings2")
    second.wait(50)
    return first, second


def test_a_conversion_stands_in_another_copys_list_within_five_seconds_and_a_tick(start, shop, tmp_path):
    first, second = two_copies(start, shop, tmp_path)
    convert_whole(first)
    assert stock(first, "PAD-9") == 27
    assert mail(shop, PEER) == [], "it waits for the tick"
    first.wait(TICK)
    (sent,) = mail(shop, PEER)
    assert shop.path(PEER).read_bytes() == shop.path("TQINVTAG.DAT").read_bytes()[256:384]
    assert (sent["StockNumber"], sent["InStock"]) == ("PAD-9", 27)
    assert mail(shop) == [], "not to itself"
    assert stock(second, "PAD-9") == 30
    second.wait(TICK)
    assert stock(second, "PAD-9") == 27
    assert shop.path(PEER).read_bytes() == b""
    first.wait(4 * TICK)
    assert mail(shop, PEER) == [], "each change goes out once"


def test_a_saved_part_stands_in_another_copys_list_within_five_seconds_and_a_tick(start, shop, tmp_path):
    first, second = two_copies(start, shop, tmp_path)
    go_to_part(open_inventory(first), "HOSE-2")
    first.key("F10")
    first.expect_form("frmInvEdit")
    first.type("Pricing(3)", "7.25")
    first.key("F10")
    first.expect_form("frmInvList")
    assert listed(second)["HOSE-2"]["Retail"] == "5.00"
    first.wait(TICK)
    second.wait(TICK)
    assert listed(second)["HOSE-2"]["Retail"] == "7.25"


def test_what_waits_goes_out_when_the_window_is_closed(start, shop, tmp_path):
    first, second = two_copies(start, shop, tmp_path)
    convert_whole(first)
    first.close_window()
    assert [tag["InStock"] for tag in mail(shop, PEER)] == [27]
    assert shop.names("AU*") == [PEER], "its own is deleted"
    second.wait(TICK)
    assert stock(second, "PAD-9") == 27


def test_leaving_by_the_menu_sends_nothing_more_and_leaves_the_file(start, shop, tmp_path):
    first, second = two_copies(start, shop, tmp_path)
    convert_whole(first)
    first.menu("mnuFileExit")
    first.expect_end()
    assert mail(shop, PEER) == []
    assert shop.names("AU*") == [OWN, PEER]


def test_a_start_that_fails_leaves_no_file_behind(start, shop):
    shop.write()
    shop.path("TQEMPLOY.DAT").unlink(missing_ok=True)
    shop.path("TQEMPLOY.DAT").mkdir()
    copy = start(shop)
    copy.expect_box(title="Lantos can not start", icon="critical")
    copy.press("OK")
    copy.expect_end(START_FAILED)
    assert shop.names("AU*") == []


def test_a_copy_that_runs_past_midnight_keeps_to_the_files_of_its_first_day(start, shop, tmp_path):
    first, second = two_copies(start, shop, tmp_path)
    convert_whole(first)
    shop.path("AUa010.$$$").write_bytes(b"")
    first.set_now("2003-10-01T00:00:05")
    first.wait(TICK)
    assert [tag["InStock"] for tag in mail(shop, PEER)] == [27]
    assert shop.path("AUa010.$$$").read_bytes() == b""


def test_all_whole_records_of_another_program_are_taken_in(start, shop):
    copy = opened(start, shop)
    put_mail(shop, told("HOSE-1", "HOSE", 9, (1, 2, 3, 450), 0), told("NEW-1", "NEW PART", 4),
             told("HOSE-1", "HOSE", 8, (1, 2, 3, 460), 0), told("HOSE-10", "NEW HOSE", 5), told("TORN")[:100])
    copy.wait(TICK)
    rows = listed(copy)
    assert list(rows) == ["HOSE-1", "HOSE-10", "HOSE-2", "NEW-1", "PAD-9"]
    assert (rows["HOSE-1"]["Qty"], rows["HOSE-1"]["Retail"]) == ("8", "4.60")
    assert (rows["NEW-1"]["Qty"], rows["NEW-1"]["Index"], rows["NEW-1"]["Offset"]) == ("4", "3", "-1")
    assert total(copy) == "      5 Total Parts"
    assert shop.path(OWN).read_bytes() == b""


def test_less_than_a_record_is_left_where_it_is(start, shop):
    copy = opened(start, shop)
    put_mail(shop, told("HOSE-1", "HOSE", 9)[:127])
    copy.wait(2 * TICK)
    assert stock(copy, "HOSE-1") == 10
    assert shop.path(OWN).stat().st_size == 127


def test_an_open_list_keeps_its_selection_and_its_search(start, shop):
    one_estimate(shop)
    shop.write()
    make_inventory(shop.directory, PARTS)
    copy = show(start(shop), panel=2)
    copy.click("cmdPartAdd")
    copy.expect_form("frmInvList")
    copy.type("SearchDesc", "hose")
    copy.key("Enter")
    copy.select("DataGrid1", row=1)
    put_mail(shop, told("HOSE-2", "HOSE", 19, master=344), told("PAD-9", "PADS", 29, master=688),
             told("HOSE-10", "NEW HOSE", 5), told("NEW-1", "NEW PART", 4))
    copy.wait(TICK)
    grid = copy.control("DataGrid1")
    assert [(row["cells"]["Part"], row["cells"]["Qty"]) for row in grid["rows"]] == [
        ("HOSE-1", "10"), ("HOSE-10", "5"), ("HOSE-2", "19")]
    assert grid["selected"] == 2
    assert copy.caption("TotalParts") == "      5 Total Parts"


def test_a_held_file_is_asked_about_and_skipping_loses_that_round_for_that_copy_alone(start, shop, tmp_path):
    first, second = two_copies(start, shop, tmp_path)
    third = "AU9302.$$$"
    shop.path(third).write_bytes(b"")
    convert_whole(first)
    with denied_to_all(shop.path(PEER)):
        first.wait(TICK)
        first.expect_box(HELD, "BroadcastUpdate", "exclamation", ["Retry", "Cancel"])
        first.press("Retry")
        first.expect_box(HELD)
        first.press("Cancel")
    first.expect_form("frmMain")
    assert [tag["InStock"] for tag in mail(shop, third)] == [27]
    first.wait(2 * TICK)
    assert mail(shop, PEER) == []
    second.wait(2 * TICK)
    assert stock(second, "PAD-9") == 30, "it hears of it when it reads the tags anew"


def test_a_mailbox_that_is_gone_is_warned_of(start, shop):
    copy = opened(start, shop)
    shop.path(OWN).unlink()
    copy.wait(TICK)
    copy.expect_box(f"Warning!\nInventory update file {OWN} does not exist.\nPlease exit and restart Korvel.",
                    "Automatic Inventory Update", "exclamation", ["OK"])
    copy.press("OK")
    copy.wait(3 * TICK)
    copy.expect_form("frmMain")


@pytest.mark.parametrize("damage", [b"\xff" * 640, bytes(range(256)) * 3, b"\0" * 1280], ids=("ff", "any", "blank"))
def test_a_damaged_mailbox_harms_nobody(start, shop, damage):
    copy = opened(start, shop)
    put_mail(shop, damage)
    copy.wait(TICK)
    copy.expect_form("frmMain")
    assert shop.path(OWN).read_bytes() == b""
    assert [stock(copy, name) for name in ("HOSE-1", "HOSE-2", "PAD-9")] == [10, 20, 30]
    put_mail(shop, told("HOSE-1", "HOSE", 9, master=0))
    copy.wait(TICK)
    assert stock(copy, "HOSE-1") == 9

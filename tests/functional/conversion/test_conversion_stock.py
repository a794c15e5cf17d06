"""Parts that a conversion takes out of stock, and the history of their use."""

import pytest

from boardlines import TODAY
from conversionsteps import FIRST, PARTS, answer_status, begin, convert, convert_whole, estimate, expect_converted, shop
from inventoryfiles import MASTER, part, read_masters, read_tags
from inventoryfiles import TAG as STOCK_TAG
from screens import expect_changed_within, span
from shopfiles import NO_LINK
from workorderfiles import (USAGE_FILE, USAGE_LENGTH, active_tags, long_at, part_row, read_workorder, usage_record,
                            usage_records, used_from)

# Stock.


def test_a_stock_of_exactly_1_is_not_listed_0_and_below_are(start, shop):
    estimate(shop)
    stocks = {"P-1": (3, 2), "P-2": (3, 3), "P-3": (3, 4), "P-4": (-5, 1), "P-5": (9, -1)}
    for number, (_, quantity) in stocks.items():
        shop.add_part(900, number, "PART", quantity, 100)
    copy = begin(start, shop, [part(number, "PART", in_stock=stock) for number, (stock, _) in stocks.items()])
    convert(copy)
    copy.expect_box("Parts which might need to be ordered.\n\nP-2 quantity in stock is now 0\n"
                    "P-3 quantity in stock is now -1\nP-4 quantity in stock is now -6", "Convert - Inventory Status")
    copy.press("OK")
    expect_converted(copy, FIRST)
    wanted = [1, 0, -1, -6, 10]
    assert [tag["InStock"] for tag in read_tags(shop.directory)] == wanted
    assert [master["QtyInStock"] for master in read_masters(shop.directory)] == wanted


def test_a_part_not_in_inventory_is_a_line_without_stock_and_never_listed(start, shop):
    estimate(shop)
    shop.add_part(900, "GONE-7", "NO LONGER SOLD", 9, 100, 60)
    copy = begin(start, shop, PARTS)
    stock = [shop.path(name).read_bytes() for name in ("TQINVTAG.DAT", "TQINVENT.DAT", USAGE_FILE)]
    convert_whole(copy)
    assert read_workorder(shop, FIRST)["Parts"] == [part_row("GONE-7", "NO LONGER SOLD", 9, 60, 100, 0)]
    assert [shop.path(name).read_bytes() for name in ("TQINVTAG.DAT", "TQINVENT.DAT", USAGE_FILE)] == stock


def test_only_stock_and_link_change_in_tag_and_master(start, shop):
    """Records full of bytes that this program has no name for."""
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    copy = begin(start, shop, PARTS)
    tags = bytearray(shop.path("TQINVTAG.DAT").read_bytes())
    tags[83:128] = bytes(range(1, 46))
    masters = bytearray(shop.path("TQINVENT.DAT").read_bytes())
    for name in ("AltNumber1", "Department", "Manufacturer", "Comment", "Location"):
        first, end = span(MASTER, name)
        masters[first:end] = bytes(65 + i % 26 for i in range(end - first))
    first, end = span(MASTER, "Description")
    masters[first:end] = b"BRAKE PADS\0old text".ljust(end - first, b"\0")
    masters[340:344] = b"\1\2\3\4"
    shop.path("TQINVTAG.DAT").write_bytes(tags)
    shop.path("TQINVENT.DAT").write_bytes(masters)
    convert_whole(copy)
    expect_changed_within(tags, shop.path("TQINVTAG.DAT").read_bytes(), span(STOCK_TAG, "InStock"))
    after = shop.path("TQINVENT.DAT").read_bytes()
    expect_changed_within(masters, after, (331, 333), (336, 340))
    assert (after[331:333], long_at(after, 336)) == (b"\4\0", 0)


def test_the_first_usage_has_no_link_and_its_master_leads_to_it(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500, 2000)
    shop.add_part(900, "OIL-1", "MOTOR OIL QT", 2, 165, 100)
    parts = [part("PAD-9", "BRAKE PADS", in_stock=9), part("OIL-1", "MOTOR OIL QT", in_stock=9)]
    copy = begin(start, shop, parts)
    convert_whole(copy)
    assert shop.path(USAGE_FILE).read_bytes() == (
        usage_record("PAD-9", FIRST, TODAY, "Adams,Beth", 1, 2000, 3500)
        + usage_record("OIL-1", FIRST, TODAY, "Adams,Beth", 2, 100, 165))
    assert [master["UsageLink"] for master in read_masters(shop.directory)] == [0, USAGE_LENGTH]
    convert_whole(copy, FIRST + 1)
    pad, oil = read_masters(shop.directory)
    assert [(record["WorkorderNumber"], record["Quantity"], record["PrevLink"]) for record in used_from(shop, pad)] == [
        (FIRST + 1, 1, 0), (FIRST, 1, NO_LINK)]
    assert [record["PrevLink"] for record in used_from(shop, oil)] == [USAGE_LENGTH, NO_LINK]


@pytest.mark.parametrize("exists", [True, False])
def test_an_empty_usage_file_gives_offset_0_a_legal_link(start, shop, exists):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500)
    copy = begin(start, shop, PARTS)
    if not exists:
        shop.path(USAGE_FILE).unlink()
    convert_whole(copy)
    assert read_masters(shop.directory)[0]["UsageLink"] == 0
    assert len(usage_records(shop)) == 1
    assert any("UpdateUsage: Opened TQUSEHST.DAT (update,fp=" in line for line in copy.log_lines())


def test_a_tag_or_master_of_another_number_is_warned_of_and_goes_on(start, shop):
    """The first conversion has found out where the tag lies; the files are damaged behind it."""
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500)
    copy = begin(start, shop, [part("PAD-9", "BRAKE PADS", in_stock=9)])
    convert_whole(copy)
    for name, text in (("TQINVTAG.DAT", b"PAD-8\0"), ("TQINVENT.DAT", b"PAD-7\0")):
        shop.path(name).write_bytes(text + shop.path(name).read_bytes()[len(text):])
    before = shop.path("TQINVTAG.DAT").read_bytes(), shop.path("TQINVENT.DAT").read_bytes()
    convert(copy)
    copy.expect_box("Warning! Inventory tag file problem.\nLooking for 'PAD-9'\nFound 'PAD-8'",
                    "Convert - Update Inventory", buttons=["OK"])
    copy.press("OK")
    copy.expect_box("Warning! Inventory master file problem.\nLooking for 'PAD-9'\nFound 'PAD-7'",
                    "Convert - Update Inventory", buttons=["OK"])
    copy.press("OK")
    expect_converted(copy, FIRST + 1)
    after = shop.path("TQINVTAG.DAT").read_bytes(), shop.path("TQINVENT.DAT").read_bytes()
    expect_changed_within(before[0], after[0], span(STOCK_TAG, "InStock"))
    expect_changed_within(before[1], after[1], (331, 333), (336, 340))
    assert (read_tags(shop.directory)[0]["InStock"], usage_records(shop)[1]["StockNumber"]) == (7, "PAD-8")


def test_a_part_whose_tag_is_gone_asks_and_cancel_moves_nothing(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 9, 3500)
    copy = begin(start, shop, [part("PAD-9", "BRAKE PADS", in_stock=8)])
    shop.path("TQINVTAG.DAT").write_bytes(b"PAD-8\0" + shop.path("TQINVTAG.DAT").read_bytes()[6:])
    before = shop.path("TQINVTAG.DAT").read_bytes(), shop.path("TQINVENT.DAT").read_bytes()
    convert(copy)
    for answer in ("Retry", "Cancel"):
        copy.expect_box("Can not read tags record for PAD-9\nError 57: Device I/O error", "ReadInventory",
                        "exclamation", ["Retry", "Cancel"])
        copy.press(answer)
    copy.expect_box(f"Estimate # 000900 is now Workorder # {FIRST:06}\n\n"
                    "The stock of these parts could not be read and was not changed:\n\nPAD-9")
    copy.press("OK")
    answer_status(copy)
    assert (shop.path("TQINVTAG.DAT").read_bytes(), shop.path("TQINVENT.DAT").read_bytes()) == before
    assert usage_records(shop) == []
    assert read_workorder(shop, FIRST)["Parts"] == [part_row("PAD-9", "BRAKE PADS", 9, 0, 3500, 0)]


def test_the_list_in_memory_knows_the_new_stock(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    copy = begin(start, shop, PARTS)
    convert_whole(copy)
    copy.click("cmdPartAdd")
    copy.expect_form("frmInvList")
    copy.type("SearchPart", "PAD")
    copy.key("Enter")
    copy.select("DataGrid1", row=0)
    copy.key("F10")
    copy.expect_form("frmWOPart")
    assert copy.caption("lblInStock") == "4 in stock"


@pytest.mark.parametrize("quantity, stock", [(40000, 5), (32767, -100)])
def test_a_quantity_beyond_16_bits_stops_it_with_its_stock_unmoved(start, shop, quantity, stock):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500)
    shop.add_part(900, "OIL-1", "MOTOR OIL QT", quantity, 1)
    copy = begin(start, shop, [part("PAD-9", "BRAKE PADS", in_stock=9), part("OIL-1", "MOTOR OIL QT", in_stock=stock)])
    convert(copy)
    box = copy.expect_box(icon="critical")
    assert box["text"].startswith("Overflow: the quantity")
    assert box["text"].endswith("- the number was taken\n- the usage of PAD-9 was noted\n"
                                "- the stock of PAD-9 is now 8\nThe next step was not finished.")
    copy.press("OK")
    assert [tag["InStock"] for tag in read_tags(shop.directory)] == [8, stock]
    assert not shop.names("W*.tqa") and not active_tags(shop) and len(usage_records(shop)) == 1

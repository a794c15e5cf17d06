#!/usr/bin/env python3
"""A day of the person who keeps the shelf, by keyboard alone, in real windows. Prints the count of keys; fails when there
were too many.

    tests/keyboard/stock.py
"""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "functional/support")]
from desk import play_day, until  # noqa: E402
from inventoryfiles import DEPARTMENT_FILE, read_kits, read_masters, read_names, read_tags  # noqa: E402
from shopfiles import take  # noqa: E402

# Somebody who knows the program needs no more, the letters of names and texts among them.
MOST_KEYS = 210

VENDOR_LENGTH = 204
VENDOR = {"VendorName": (0, 32, "text"), "Contact": (32, 32, "text"), "City": (97, 21, "text"),
          "Phone1": (132, 15, "text"), "Phone3": (168, 15, "text")}


def part(desk, number):
    """The master's fields of the part that has this number, and isn't deleted."""
    found = [fields for fields in read_masters(desk.shop) if fields["StockNumber"] == number and not fields["Deleted"]]
    return found[0] if found else None


def tag(desk, number):
    found = [fields for fields in read_tags(desk.shop) if fields["StockNumber"] == number]
    return found[0] if found else None


def vendors(desk):
    data = (desk.shop / "TQVENDOR.DAT").read_bytes()
    return [take(data[at:at + VENDOR_LENGTH], VENDOR) for at in range(0, len(data), VENDOR_LENGTH)]


def add_parts(desk):
    """Three numbers one after the other; the last of them is where the list comes back to."""
    desk.press("alt+m", "i")
    desk.expect("Inventory List")
    place = desk.place()
    desk.press("Insert")
    desk.expect("Add Part")
    for number in ("AAA-1", "AAA-2", "AAA-3"):
        desk.type(number)
        desk.press("Return")
        until(lambda: part(desk, number), f"{number} wasn't added")
    desk.press("Escape")
    desk.expect("Inventory List")
    assert desk.place() == place, f"the list has gone from {place} to {desk.place()}"


def edit_prices_and_alternates(desk):
    """Of the part in the middle: a new department, an alternate, prices from cost and markup, a typing mended."""
    desk.press("Up", "Return")
    desk.expect("Edit Part")
    desk.type("Shelf barcket")
    desk.press("BackSpace", "BackSpace", "BackSpace", "BackSpace", "BackSpace", "BackSpace")
    desk.type("racket")
    desk.press("alt+e", "alt+Down", "Home", "Return")  # the open list, "<New>"
    desk.expect("Add Department")
    desk.type("SHELVES")
    desk.press("F10")
    desk.expect("Edit Part")
    desk.press("alt+a")
    desk.type("AAA-1")
    desk.press("alt+c")
    desk.type("10")
    desk.press("Tab", "Tab", "Tab", "Tab", "Tab")  # over the other prices, to the markup of the cost and on
    desk.type("25")
    desk.press("Tab")
    desk.type("50")
    desk.press("Tab")
    desk.type("100")
    desk.press("alt+l")  # and on in the reorder level
    desk.type("4")
    desk.press("Tab")
    desk.type("12")
    desk.press("F10")
    desk.expect("Inventory List")
    saved = until(lambda: (part(desk, "AAA-2") or {}).get("Department") == "SHELVES" and part(desk, "AAA-2"),
                  "the part wasn't saved")
    assert saved["Description"] == "Shelf bracket", saved
    assert saved["Pricing"] == (1000, 1250, 1500, 2000), saved
    assert (saved["ReorderLevel"], saved["QtyInStock"]) == (4, 12), saved
    assert saved["AltNumber1"] == "AAA-1" and part(desk, "AAA-1")["AltNumber1"] == "AAA-2", "each names the other"
    assert tag(desk, "AAA-2")["InStock"] == 12 and tag(desk, "AAA-2")["Pricing"] == (1000, 1250, 1500, 2000)
    assert read_names(desk.shop, DEPARTMENT_FILE)[-1] == "SHELVES"


def make_a_kit(desk):
    """Of the part behind it, with two components, one of them found in the list."""
    desk.press("Down", "Return")
    desk.expect("Edit Part")
    desk.press("alt+f")
    desk.type("KIT:")
    desk.press("F4")
    desk.expect("Inventory Kit")
    desk.press("F5")
    desk.expect("Choose Part for Kit")
    desk.type("AAA-1")
    desk.press("Tab", "Tab")
    desk.type("6")
    desk.press("Return")
    desk.expect("Inventory Kit")
    desk.press("F5")
    desk.expect("Choose Part for Kit")
    asked = desk.window()
    desk.press("F5")
    desk.expect_other(asked)
    desk.type("AAA-2")
    desk.press("Return", "Return")  # search; the first hit
    desk.expect("Choose Part for Kit")
    desk.press("F10")
    desk.expect("Inventory Kit")
    desk.press("ctrl+Up", "F10")
    desk.expect("Edit Part")
    until(lambda: read_kits(desk.shop).get("AAA-3") == ["AAA-2", "AAA-1(6)"], "the kit isn't as it was put together")
    editor = desk.window()
    desk.press("F10")
    desk.expect_other(editor)  # the prices are missing: Cancel is the default, OK beside it
    desk.press("Left", "Return")
    desk.expect("Inventory List")
    until(lambda: part(desk, "AAA-3")["Location"] == "KIT:", "the part isn't a kit")


def renumber(desk):
    desk.press("Up", "Up", "alt+g")
    desk.expect("Change Part Number")
    desk.type("AAA-9")
    desk.press("Return")
    desk.expect("Inventory List")
    until(lambda: part(desk, "AAA-9"), "the part has no other number")
    assert part(desk, "AAA-1") is None and tag(desk, "AAA-1") is None


def delete(desk):
    """The renumbered one, which is where the list goes on; Enter alone is the way back."""
    desk.press("alt+l")
    desk.expect("Delete Part")
    desk.press("Return")
    desk.expect("Inventory List")
    assert part(desk, "AAA-9"), "Enter alone has deleted it"
    desk.press("alt+l")
    desk.expect("Delete Part")
    desk.press("alt+y")
    desk.expect("Inventory List")
    until(lambda: part(desk, "AAA-9") is None and tag(desk, "AAA-9") is None, "the part is there yet")
    desk.press("Escape")
    desk.expect("Lantos: ")


def keep_vendors(desk):
    """One is added, edited and copied from; the one behind it in the list goes."""
    desk.press("alt+m", "v")
    desk.expect("Vendor List")
    desk.press("Insert")
    desk.expect("Add Vendor")
    desk.type("Zeta Tools")
    desk.press("Return")
    desk.expect("Vendor List")
    until(lambda: vendors(desk)[-1]["VendorName"] == "Zeta Tools", "no vendor was added")
    desk.press("Return")
    desk.expect("Edit Vendor")
    desk.press("Tab")
    desk.type("Zoe")
    desk.press("alt+1")
    desk.type("555-1234")
    desk.press("ctrl+a", "ctrl+c", "alt+3", "ctrl+v", "F10")
    desk.expect("Vendor List")
    zeta = until(lambda: vendors(desk)[-1]["Contact"] == "Zoe" and vendors(desk)[-1], "the vendor wasn't saved")
    assert zeta["Phone1"] == zeta["Phone3"] == "555-1234", zeta
    before = vendors(desk)
    desk.press("Up")
    list_of_vendors = desk.window()
    desk.press("Delete")
    desk.expect_other(list_of_vendors)
    desk.press("Return")  # Yes
    desk.expect("Vendor List")
    until(lambda: vendors(desk)[-2]["VendorName"] == "", "the vendor is there yet")
    assert vendors(desk)[:-2] == before[:-2] and vendors(desk)[-1] == zeta, "another one went too"
    desk.press("Return")
    desk.expect("Edit Vendor")  # of the row behind it
    desk.press("ctrl+a")
    desk.type("Zeta Tool Company")
    desk.press("F10")
    desk.expect("Vendor List")
    until(lambda: vendors(desk)[-1]["VendorName"] == "Zeta Tool Company", "another row was current")
    desk.press("Escape")
    desk.expect("Lantos: ")


def work(desk):
    add_parts(desk)
    edit_prices_and_alternates(desk)
    make_a_kit(desk)
    renumber(desk)
    delete(desk)
    keep_vendors(desk)


def main():
    return play_day("the shelf", work, MOST_KEYS)


if __name__ == "__main__":
    sys.exit(main())

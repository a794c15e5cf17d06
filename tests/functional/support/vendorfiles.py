"""The vendors of a shop's directory, made and read without the program, and the roads to their screens."""

import pytest

from shopfiles import put, take

VENDOR_FILE = "TQVENDOR.DAT"
VENDOR_LENGTH = 204
VENDOR = {
    "VendorName": (0, 32, "text"), "Contact": (32, 32, "text"), "Address": (64, 33, "text"), "City": (97, 21, "text"),
    "State": (118, 3, "text"), "Zip": (121, 11, "text"), "Phone1": (132, 15, "text"), "Phone1Ext": (147, 6, "text"),
    "Phone2": (153, 15, "text"), "Phone3": (168, 15, "text"), "TaxIdNumber": (183, 21, "text"),
}
BLANK = bytes(VENDOR_LENGTH)
LOCKED = "Vendor file locked by another user.\nClick OK to try again."
COMMANDS = ("cmdEdit", "cmdNew", "cmdDelete")

ALPHA = {"VendorName": "Alpha Glass", "Contact": b"Ann Adams\0old", "Address": "1 Pane Street", "City": "Dayton",
         "State": "OH", "Zip": "45402", "Phone1": "937-555-0101", "Phone1Ext": "11", "Phone2": "937-555-0102",
         "Phone3": "937-555-0103", "TaxIdNumber": "31-0000001"}
GAMMA = {"VendorName": "Gamma Towing", "City": "Xenia"}
DELTA = {"VendorName": "Delta Paint"}


def vendor_record(fields):
    return bytes(put(bytearray(VENDOR_LENGTH), VENDOR, **fields))


def write_vendors(shop, *vendors):
    """Each is its fields, or its bytes as they are."""
    data = b"".join(each if isinstance(each, bytes) else vendor_record(each) for each in vendors)
    shop.path(VENDOR_FILE).write_bytes(data)


def vendor_bytes(shop):
    """Record by record; the last may be short."""
    data = shop.path(VENDOR_FILE).read_bytes()
    return [data[at:at + VENDOR_LENGTH] for at in range(0, len(data), VENDOR_LENGTH)]


def vendor_names(shop):
    return [take(record, VENDOR)["VendorName"] for record in vendor_bytes(shop)]


@pytest.fixture
def vendors(shop):
    """Alpha, a deleted one, Gamma, Delta."""
    shop.write()
    write_vendors(shop, ALPHA, BLANK, GAMMA, DELTA)
    return shop


def open_vendors(copy):
    copy.menu("mnuMaintVendors")
    return copy.expect_form("frmVendorList")


def add_vendor(copy, name):
    """From the list and back to it. A file that somebody else has is tried again."""
    copy.key("Insert")
    copy.type("VendorName", name)
    copy.key("F10")
    press_on(copy)
    return copy.expect_form("frmVendorList")


def press_on(copy):
    while copy.answer.get("waiting") == "box":
        copy.expect_box(LOCKED, icon="none", buttons=["OK"])
        copy.press("OK")

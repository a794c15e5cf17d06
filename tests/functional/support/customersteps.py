"""A shop with a few customers of all kinds, and the bytes of their records."""

import pytest

from shopfiles import CUSTOMER, file_date

TEXTS = {
    "Lastname": "Lastname", "Firstname": "Firstname", "Spouse": "Spouse", "SpouseLastname": "SpouseLast",
    "Address": "Address", "City": "City", "State": "State", "Zip": "Zip", "TaxID": "tax_id_number",
    "Home": "HomePhone", "Work": "WorkPhone", "Ext": "WorkExt", "Other": "OtherPhone", "Comment": "Comment",
}
MARTHA = {
    "Lastname": "Smith", "Firstname": "Martha", "Spouse": "John", "SpouseLast": "Doe", "Address": "1 Elm Street",
    "City": "Dayton", "State": "OH", "Zip": "45402", "HomePhone": "937-555-1111", "WorkPhone": "937-555-2222",
    "WorkExt": "12", "OtherPhone": "937-555-3333", "pricing_level": 1, "tax_id_number": "EX-77", "Comment": "No calls",
    "salesperson": "Bob Wrench", "Date": file_date("1999-12-31"),
}
# Fields whose bytes behind the first NUL are somebody's leftovers. The four names are stored trimmed at every write.
DIRTY = ("Address", "City", "WorkPhone", "Comment", "tax_id_number")


def dirty(field):
    _, width, _ = CUSTOMER[field]
    return (MARTHA[field].encode() + b"\0").ljust(width, b"~")


@pytest.fixture
def shop(shop):
    shop.add_employee(5, "Zoe Spring")
    shop.add_employee(3, "Bob Wrench")
    shop.add_employee(4, "Al Gone", terminated="2001-01-31")
    shop.add_customer(7, "Abel", "Ann", phone="555-0007")
    names = {name: value for name, value in MARTHA.items() if name not in ("Lastname", "Firstname", "Spouse",
                                                                          "SpouseLast", "HomePhone")}
    names.update({field: dirty(field) for field in DIRTY})
    at = shop.add_customer(8, "Smith", "Martha", "John", "Doe", "937-555-1111", **names)
    shop.add_vehicle(at, "Ford", "Focus", "1999")
    shop.add_customer(9, "Zorn", "Zac", phone="555-0009")
    return shop


def masters(shop):
    return shop.path("TQCSTDAT.DAT").read_bytes()


def tags(shop):
    return shop.path("TQCSTTAG.DAT").read_bytes()


def save(copy):
    copy.key("F10")
    return copy.expect_form("frmCustSearch")


def shown(copy):
    return {control: copy.text(control) for control in TEXTS}

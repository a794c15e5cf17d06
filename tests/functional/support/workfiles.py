"""The lists that the line editors read, written byte for byte as another program would: purchase orders, followups,
canned labor and notes, the checklist. And the roads to the screens on an estimate."""

import struct

from boardlines import TODAY, row_of, view_of
from shopfiles import file_date


def text(value, width):
    return value.encode("cp1252")[:width].ljust(width, b"\0")


def order_tag(number, vendor="", invoice="", status=1, file=""):
    record = struct.pack("<i", number) + text(vendor, 32) + text(invoice, 11) + struct.pack("<h", status)
    return record + bytes(range(106)) + text(file, 16)


def sublet_line(vendor, invoice, cost, price, description):
    return f"{vendor:<31}{invoice:<11}{cost:>11}{price:>12}{description:<64}"


def make_orders(shop, orders):
    """(tag, detail text or None) in order; the detail file bears the name that stands in the tag."""
    shop.path("TQOPENPO.DAT").write_bytes(b"".join(tag for tag, _ in orders))
    for tag, detail in orders:
        if detail is not None:
            name = tag[155:171].split(b"\0")[0].decode()
            shop.path(name).write_bytes(detail.encode("cp1252"))


def followup(customer, description, vin="", license="", active=1, date=TODAY, mechanic=0, hours=0, rate=0, total=0,
             workorder=4000, miles=0, days=0):
    record = struct.pack("<Bi", active, customer) + text(vin, 21) + text(license, 11) + b"KORVEL"
    record += struct.pack("<iiii", workorder, file_date(date), miles, days) + text(description, 513)
    return record + struct.pack("<iiii", mechanic, hours, rate, total) + b"KORVEL86"


def make_followups(shop, records):
    shop.path("TQFOLLOW.DAT").write_bytes(b"".join(records))


def canned_line(hours, rate, total, *lines):
    return f"{hours:<12}{rate:<12}{total:>12}" + "\t".join(lines) + "\r\n"


def make_canned_labor(shop, lines, kits=()):
    shop.path("TQCANLAB.DAT").write_bytes("".join(lines).encode("cp1252"))
    shop.path("TQLABKIT.DAT").write_bytes(b"".join(text(code, 5) + text(kit, 21) for code, kit in kits))


def make_canned_notes(shop, notes):
    shop.path("TQCANNOT.DAT").write_bytes("".join("\t".join(note) + "\r\n" for note in notes).encode("cp1252"))


def make_checklist(shop, lines):
    shop.path("CHECKLST.TXT").write_bytes("".join(line + "\r\n" for line in lines).encode("cp1252"))


def one_estimate(shop, **columns):
    """Estimate 900 of today, of Beth Adams, with technician 4."""
    shop.add_customer(7, "Adams", "Beth")
    shop.add_employee(4, "Dan Ortiz")
    shop.add_employee(5, "Eve Gone", terminated="2001-01-01")
    shop.add_estimate(900, TODAY, customer=7, CreateDate=TODAY, **columns)
    return shop


def show(copy, number=900):
    """The estimate in the detail view, the inventory loaded."""
    copy.wait(50)
    copy.click("cmdWeekView")
    copy.double_click("List1(2)", row=row_of(copy, "List1(2)", number))
    assert view_of(copy) == ["Detail"]
    return copy


TOTALS = ["txtTotalHours", "txtTotalLabor", "txtTotalParts", "txtTotalSublet", "txtTotalWaste", "txtTotalTax",
          "txtTotalCost"]


def totals(copy):
    return [copy.text(name) for name in TOTALS]


def texts(copy, control):
    return [row["text"] for row in copy.control(control)["rows"]]

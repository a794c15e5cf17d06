"""Work orders and the history of parts used, as the shared files hold them, made and read without the program: the two
tag files by offset, the text of a work order by its sections, usage records by offset."""

import struct

from inventoryfiles import MASTER, MASTER_LENGTH, TAG
from inventoryfiles import TAG_LENGTH as STOCK_TAG_LENGTH
from shopfiles import EMPLOYEE_LENGTH, NO_LINK, file_date, put, take

ACTIVE_FILE = "TQOPENWO.DAT"
ARCHIVED_FILE = "TQINCTAG.DAT"
USAGE_FILE = "TQUSEHST.DAT"
WORKORDER_FILES = (ACTIVE_FILE, ARCHIVED_FILE, USAGE_FILE)

# Totals, with their offsets inside a tag.
TOTALS = {
    "DateOpen": 75, "DateClosed": 79, "DatePaid": 83, "PartsTaxRate": 87, "LaborTaxRate": 91, "SubletTaxRate": 95,
    "WasteTaxRate": 99, "PartsCost": 103, "LaborCost": 107, "SubletCost": 111, "WasteCost": 115,
    "NonTaxSubletCost": 119, "NonTaxWasteCost": 123, "PartsSubtotal": 135, "LaborSubtotal": 139, "SubletSubtotal": 143,
    "WasteSubtotal": 147, "NonTaxSubletSubtotal": 151, "NonTaxWasteSubtotal": 155, "CreditSubtotal": 159,
    "FuelSubtotal": 163, "PartsDiscount": 167, "LaborDiscount": 171, "SubletDiscount": 175, "WasteDiscount": 179,
    "DollarDiscount": 183, "WorkorderTax": 187, "WorkorderTotal": 191,
}
TAG_HEAD = {
    "WorkorderNumber": (0, 4, "long"), "CustomerName": (4, 32, "text"), "CustomerNumber": (36, 4, "long"),
    "VIN": (40, 21, "text"), "LicenseNumber": (61, 11, "text"), "Status": (72, 1, "byte"), "Type": (73, 1, "byte"),
    "TaxExempt": (74, 1, "byte"), **{name: (offset, 4, "long") for name, offset in TOTALS.items()},
    "PaymentMethod": (195, 1, "byte"),
}
ACTIVE_LENGTH = 302
ACTIVE = {**TAG_HEAD, "FileName": (286, 16, "text")}
ARCHIVED_LENGTH = 290
ARCHIVED = {**TAG_HEAD, "MasterOffset": (286, 4, "long")}
USAGE_LENGTH = 76
USAGE = {
    "StockNumber": (0, 21, "text"), "WorkorderNumber": (21, 4, "long"), "Date": (25, 4, "long"),
    "CustomerKey": (29, 32, "text"), "Quantity": (61, 2, "integer"), "Price": (63, 4, "long"), "Cost": (67, 4, "long"),
    "PrevLink": (71, 4, "long"), "reserved": (75, 1, "byte"),
}

SECTIONS = ["Workorder", "Totals", "Customer", "Vehicle", "Parts", "Labor", "Sublets", "Waste", "Credits", "Notes",
            "Check List"]


# Made.


def file_name(number):
    return f"W{number:07}.tqa"


def tags_of(number, **fields):
    """An active and an archived tag, from the fields' values: what isn't named is NUL."""
    head = {"WorkorderNumber": number, **fields}
    return (bytes(put(bytearray(ACTIVE_LENGTH), ACTIVE, **head, FileName=file_name(number))),
            bytes(put(bytearray(ARCHIVED_LENGTH), ARCHIVED, **head, MasterOffset=NO_LINK)))


def usage_record(part, workorder, date, customer, quantity, cost, price, previous=NO_LINK):
    """The field called Price has the cost, and the other way round."""
    return bytes(put(bytearray(USAGE_LENGTH), USAGE, StockNumber=part, WorkorderNumber=workorder,
                     Date=file_date(date), CustomerKey=customer, Quantity=quantity, Price=cost, Cost=price,
                     PrevLink=previous))


def text_of(*lines):
    return "".join(line + "\r\n" for line in lines).encode("cp1252") + b"\0"


def add_paid_employee(shop, number, name, wage=0, wage_period=0, salary=0, salary_period=0, commission=0,
                      commission_period=0):
    """An employee with the head of the pay block filled; wages in cents, the commission in millionths."""
    shop.add_employee(number, name)
    struct.pack_into("<iBiBBi", shop.employees, len(shop.employees) - EMPLOYEE_LENGTH + 145, wage, wage_period, salary,
                     salary_period, commission_period, commission)


def part_row(number, description, quantity, cost, price, price_list):
    """0 is as blank as nothing."""
    columns = "".join(f"{value or '':>{width}}" for value, width in ((quantity, 5), (cost, 12), (price, 12),
                                                                     (price_list, 12)))
    return f"{number:<20}{description:<38}{columns}"


def labor_row(mechanic, hours, rate, commission, total, *texts):
    lines = "".join(f"{text}\t" for text in (*texts, *[""] * (8 - len(texts))))
    return (f"{mechanic:06}{hours or '':>12}{rate or '':>12}{commission:>12}{total or '':>12}{lines}"
            "0      \t0    \t       ")


def extra_row(vendor, invoice, taxable, cost, price, description="\t\t\t"):
    return f"{vendor:<31}{invoice:<10}{taxable}{cost:>12}{price:>12}{description}"


# Read.


def whole_records(shop, name, length, layout):
    """Fails when the file isn't a row of whole records."""
    path = shop.path(name)
    data = path.read_bytes() if path.exists() else b""
    assert len(data) % length == 0, f"{name} has {len(data)} bytes"
    return [take(data[at:at + length], layout) for at in range(0, len(data), length)]


def active_tags(shop):
    return whole_records(shop, ACTIVE_FILE, ACTIVE_LENGTH, ACTIVE)


def archived_tags(shop):
    return whole_records(shop, ARCHIVED_FILE, ARCHIVED_LENGTH, ARCHIVED)


def usage_records(shop):
    return whole_records(shop, USAGE_FILE, USAGE_LENGTH, USAGE)


def stock_tags(shop):
    return whole_records(shop, "TQINVTAG.DAT", STOCK_TAG_LENGTH, TAG)


def stock_masters(shop):
    return whole_records(shop, "TQINVENT.DAT", MASTER_LENGTH, MASTER)


def used_from(shop, master):
    """The usage records of a part's chain, newest first."""
    history, chain, link = usage_records(shop), [], master["UsageLink"]
    while link != NO_LINK:
        assert link % USAGE_LENGTH == 0
        chain.append(history[link // USAGE_LENGTH])
        link = chain[-1]["PrevLink"]
        assert len(chain) <= len(history), "the chain is a ring"
    return chain


def read_workorder(shop, number):
    """The sections of a work order's text: lists of lines by heading. Fails on a text that isn't whole."""
    data = shop.path(file_name(number)).read_bytes()
    assert data.endswith(b"\r\n\r\n\0") and data.count(b"\0") == 1, f"{file_name(number)} doesn't end as it should"
    sections, heading = {}, None
    for line in data[:-1].decode("cp1252").split("\r\n")[:-1]:
        if heading is None:
            assert line.startswith("[") and line.endswith("]"), line
            heading = line[1:-1]
            sections[heading] = []
        elif line:
            sections[heading].append(line)
        else:
            heading = None
    assert list(sections) == [name for name in SECTIONS if name in sections]
    assert set(SECTIONS) - set(sections) <= {"Vehicle"}
    return sections


def keys(lines):
    return dict(line.split("=", 1) for line in lines)


def totals_in_text(shop, number):
    """The keys of [Totals] that are numbers; what isn't there is 0."""
    written = keys(read_workorder(shop, number)["Totals"])
    return {name: int(written.get(name, 0)) for name in TOTALS if not name.startswith("Date")}


def long_at(data, offset):
    return struct.unpack_from("<i", data, offset)[0]

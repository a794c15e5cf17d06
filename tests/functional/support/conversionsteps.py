"""The steps of a conversion as the tests take them: a shop with work to convert, and the road through its questions."""

import pytest

from boardlines import TODAY, row_of, view_of
from inventoryfiles import make_inventory, part
from shopfiles import file_date
from workorderfiles import USAGE_FILE, add_paid_employee, keys, read_workorder

TITLE = "Convert to WO"
FIRST = 5001  # the next work order's number
THURSDAY = "2003-10-02"
RATES = (82500, 57500, 60000, 10000)  # parts, labor, sublets, waste
CANCELLED = "Vehicle update cancelled.\n\nDo you wish to continue with the conversion?"
USAGE_HELD = "Inventory Usage file locked by another user.\nClick OK to try again."


def question(number=900, name="Beth Adams"):
    return ("This function will convert an estimate\nto a workorder which can then be managed\n"
            f"by the Korvel application.\n\nThe estimate to be converted is # {number:06}\nfor {name}.\n\n"
            "Do you wish to continue?")


@pytest.fixture
def shop(shop):
    """Beth Adams has no vehicle. The stock is made by its own tests."""
    shop.system["tax_rate"] = RATES
    shop.add_customer(7, "Adams", "Beth")
    add_paid_employee(shop, 4, "Dan Ortiz", wage=2450, wage_period=1, commission=55000, commission_period=1)
    return shop


def begin(start, shop, parts=(), options=None, number=900, panel=2, usage=b"", profile=None):
    """A copy with the estimate in the detail view, the inventory loaded."""
    shop.write()
    make_inventory(shop.directory, parts)
    shop.path(USAGE_FILE).write_bytes(usage)
    shop.write_profile({**({"Status Options": options} if options else {}), **(profile or {})})
    return show(start(shop), number, panel)


def show(copy, number=900, panel=2):
    copy.wait(50)
    copy.click("cmdWeekView")
    copy.double_click(f"List1({panel})", row=row_of(copy, f"List1({panel})", number))
    assert view_of(copy) == ["Detail"]
    return copy


def estimate(shop, number=900, status=0, **columns):
    shop.add_estimate(number, columns.pop("date", TODAY), status=status, customer=columns.pop("customer", 7),
                      CreateDate=TODAY, **columns)


def convert(copy, number=900, name="Beth Adams"):
    """Up to the first thing behind the confirmation."""
    copy.click("cmdConvert")
    copy.expect_box(question(number, name), TITLE, "question", ["Yes", "No"])
    copy.press("Yes")
    return copy


def expect_converted(copy, order, number=900):
    copy.expect_box(f"Estimate # {number:06} is now Workorder # {order:06}", TITLE, "information", ["OK"])
    copy.press("OK")


def answer_status(copy, answer="No", word="Scheduled"):
    copy.expect_box("Change status to 'Completed'?", TITLE, buttons=["Yes", "No"])
    copy.press(answer)
    if answer == "No":
        copy.expect_box(f"Estimate status is still '{word}'", TITLE, "information", ["OK"])
        copy.press("OK")
    copy.expect_form("frmMain")


def convert_whole(copy, order=FIRST, number=900):
    """A conversion that asks nothing of its own; the status is left."""
    convert(copy, number)
    expect_converted(copy, order, number)
    answer_status(copy)


def stored_comments(shop, number=900):
    return shop.estimate(number)["Comments"]


def is_untouched(shop):
    """No number, no file, no stock."""
    return shop.read_system()["last_workorder_number"] == FIRST and not shop.names("W*.tqa")


PARTS = [
    part("PAD-9", "BRAKE PADS", (2000, 2500, 3000, 3500), 6),
    part("OIL-1", "MOTOR OIL QT", (100, 120, 150, 165), 40, UsageLink=76),
    part("FLT-2", "OIL FILTER", (250, 300, 400, 433), 1),
    part("NUT-3", "NUT", (1, 1, 1, 1), 12),
]


SNAPSHOT = ("VehYear", "VehMake", "VehModel", "VehVIN", "VehLic", "VehDate", "VehMileage", "VehEng", "VehTrans")


def snapshot(shop):
    kept = shop.estimate(900)
    return [(kept[name] or "").strip() for name in SNAPSHOT]


def vehicle_shop(shop, **columns):
    """Di's three vehicles; the newest comes first when they are looked through."""
    owner = shop.add_customer(9, "Driver", "Di")
    shop.add_vehicle(owner, "Ford", "Focus", "1999", "2003-09-01", VIN="VIN-1", LicenseNumber="LIC-1", Mileage=100,
                     FirstMileage=50, FirstDate=file_date("2000-01-03"))
    shop.add_vehicle(owner, "Audi", "A4", "2001", VIN="VIN-2", LicenseNumber="LIC-2")
    shop.add_vehicle(owner, "Ford", "Focus", "1999", VIN="VIN-3", LicenseNumber="LIC-3")
    estimate(shop, customer=9, **columns)
    return shop


AS_ON_FILE = dict(vehicle=0, VehYear="1999", VehMake="Ford", VehModel="Focus", VehVIN="VIN-1", VehLic="LIC-1",
                  VehDate="09/01/2003", VehMileage="100", VehEng=" ", VehTrans=" ")


def to_vehicle(copy):
    convert(copy, name="Di Driver")
    copy.expect_form("frmVehEdit")
    assert copy.answer["caption"] == "Convert to WO - Vehicle Information"
    return copy


def vehicle_in_text(shop):
    return keys(read_workorder(shop, FIRST)["Vehicle"])

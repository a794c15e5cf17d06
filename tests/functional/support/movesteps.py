"""Estimates that move to another day, and what is compared of the two."""

from boardlines import CREATED, TODAY, row_of, shown_date
from workfiles import make_checklist

MONDAY, WEDNESDAY, THURSDAY, FRIDAY = "2003-09-29", "2003-10-01", "2003-10-02", "2003-10-03"
NEW = 1001  # what the system record hands out next
TABLES = ("Estimates", "Labors", "Parts", "Notes", "Sublets", "Waste", "Checklist")
COPIED = ("CustomerNumber", "VehicleLink", "Mechanic", "TotalPrice", "VehYear", "VehMake", "VehModel", "VehVIN",
          "VehLic", "VehDate", "VehMileage")


def full_shop(shop, status=0, date=TODAY, comments="Waits for a call", **columns):
    """Estimate 900 with something in every table."""
    customer = shop.add_customer(7, "Adams", "Beth")
    vehicle = shop.add_vehicle(customer, "Ford", "Focus", "1999")
    shop.add_employee(4, "Dan Ortiz")
    shop.add_employee(12, "Eve Gone", terminated="2001-01-01")
    shop.add_employee(3, "Al Bell")
    shop.add_estimate(900, date, status=status, customer=7, vehicle=vehicle, CreateDate=CREATED, Comments=comments,
                      Mechanic=4, TotalPrice=12345, VehYear="1999", VehMake="Ford", VehModel="Focus", VehVIN="1FA",
                      VehLic="ABC 123", VehDate="05/06/2003", VehMileage="51234", VehEng="2.0L", VehTrans="Auto",
                      **columns)
    shop.add_labor(900, 2, "Brake pads\tfront", 3, mechanic=4)
    shop.add_labor(900, 5, "Test drive", 0.5, rate=10000)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3050, cost=2000, price_list=3300)
    shop.add_part(900, "BULB", "HEADLIGHT BULB", 1, 1200)
    shop.add_note(900, 1, "Customer waits", "", "third")
    shop.add_note(900, 4, "O'Brien called")
    shop.add_sublet(900, 3, "Riverside Radiator", 24570, 18900, "Yes")
    shop.add_row("Waste", EstimateNumber=900, WasteNumber=2, VendorName="Waste Disposal Fee", Price=25, Cost=25,
                 VendorInvoice="I-1", Desc1="one", Desc4="four", Taxable="No")
    shop.add_row("Checklist", EstimateNumber=900, ChecklistData="Oil,ok,3000")
    shop.write()
    make_checklist(shop, ["[Engine]", "Oil"])
    return shop


def lines(shop, table, number):
    """What stands under an estimate but for its number."""
    order = {"Labors": "LaborNumber", "Parts": "PartNumber", "Notes": "NoteNumber", "Sublets": "SubletNumber",
             "Waste": "WasteNumber", "Checklist": "RecId"}[table]
    rows = shop.query(f"SELECT * FROM {table} WHERE EstimateNumber = ? ORDER BY {order}", number)
    return [{name: value for name, value in row.items() if name not in ("EstimateNumber", "RecId")} for row in rows]


def everything(shop):
    return {table: shop.query(f"SELECT * FROM {table}") for table in TABLES}


def expect_copied(shop, number=NEW, labor=()):
    old, new = shop.estimate(900), shop.estimate(number)
    assert {name: new[name] for name in COPIED} == {name: old[name] for name in COPIED}
    assert (new["VehEng"], new["VehTrans"]) == (None, None)
    assert lines(shop, "Labors", number) == lines(shop, "Labors", 900) + list(labor)
    for table in ("Notes", "Sublets", "Waste"):
        assert lines(shop, table, number) == lines(shop, table, 900)
        assert lines(shop, table, number) != []
    assert lines(shop, "Parts", number) == [{**part, "PartCost": None, "PartList": None}
                                            for part in lines(shop, "Parts", 900)]
    assert lines(shop, "Checklist", number) == [] and len(lines(shop, "Checklist", 900)) == 1


def choose(copy, number=900, panel=2):
    copy.click(f"List1({panel})", row=row_of(copy, f"List1({panel})", number))
    return copy


def reschedule(copy, date=None):
    copy.click("cmdReschedule")
    copy.expect_form("frmReschedule")
    if date:
        copy.pick("DTPicker1", date)
        copy.click("cmdOK")
        copy.expect_form("frmMain")
    return copy


def continued_shop(shop, letter="Y", status=2, **options):
    full_shop(shop, status, **options)
    shop.write_profile({"Status Options": {"ContinuedAutoSchedule": letter}})
    return shop


def by_week_popup(copy, panel=2):
    copy.right_click(f"List1({panel})", row=row_of(copy, f"List1({panel})", 900))
    copy.choose("Continued")
    return copy


def told(copy, how, to, since="Tue 09/30/2003"):
    copy.expect_box(f"{how} from {since} to {to}", "Continued...", "information", ["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")


def applied(hours, rate=6500, technician=0, number=6, date=TODAY):
    return {"LaborNumber": number, "Description": f"HOURS APPLIED ON {shown_date(date)}", "LaborHours": -hours,
            "LaborRate": rate, "LaborTotal": -round(hours * rate / 100), "Mechanic": technician}

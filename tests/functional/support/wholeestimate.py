"""An estimate with something of everything."""

from conversionsteps import THURSDAY, estimate
from shopfiles import file_date
from workfiles import make_checklist
from workorderfiles import add_paid_employee


def fill_whole_estimate(shop):
    """One of everything, scheduled for Thursday."""
    shop.path("").mkdir(parents=True, exist_ok=True)
    owner = shop.add_customer(
        8, "Baker", "Ann", "Carl", "Cook", "555-1000", Address="1 Elm St.", City="Dayton", State="OH", Zip="45402",
        WorkPhone="555-2000", WorkExt="12", OtherPhone="555-3000", salesperson="Sue", pricing_level=2)
    shop.add_vehicle(owner, "Ford", "Focus", "1999", "2003-09-01", EngineSize="2.0L", Transmission="Auto", VIN="VIN-1",
                     LicenseNumber="ABC 123", State="OH", VComment1="red", VComment3="dented", Mileage=81234,
                     FirstMileage=500, FirstDate=file_date("1999-05-01"))
    shop.add_vehicle(owner, "Audi", "A4", "2001", VIN="VIN-2", LicenseNumber="XYZ 9")
    estimate(shop, date=THURSDAY, customer=8, Comments="wants it by noon", VehYear="1999", VehMake="Ford",
             VehModel="Focus", VehVIN="VIN-1", VehLic="ABC 123", VehDate="09/01/2003", VehMileage="81234",
             VehEng="2.0L", VehTrans="Auto", vehicle=0)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 5, 3500, 2000, 3650)
    shop.add_part(900, "OIL-1", "MOTOR OIL QT", 40, 165, 100, 0)
    shop.add_part(900, "FLT-2", "OIL FILTER", 3, 433, 250, 499)
    shop.add_part(900, "GONE-7", "NO LONGER SOLD", 2, 101, 50, 0)
    add_paid_employee(shop, 5, "Eve", salary=346667, salary_period=4, commission=70000)
    shop.add_labor(900, 1, "Replace pads\tand look at\t\tthe discs", 1.5, mechanic=4)
    shop.add_labor(900, 2, "HOURS APPLIED ON 09/29/2003", -1, mechanic=4)
    shop.add_labor(900, 3, "Oil change", 0.25, 8000, mechanic=5)
    shop.add_row("Labors", EstimateNumber=900, LaborNumber=4, Description="Shuttle", LaborHours=0, LaborRate=0,
                 LaborTotal=1234, Mechanic=0)
    for table, key, rows in (
            ("Sublets", "SubletNumber", [("Towing Inc", "INV-1", 4000, 5000, "tow", "", "far", "", "Yes"),
                                         ("Glass Co", "", 1000, 1500, "pane", "", "", "", "No")]),
            ("Waste", "WasteNumber", [("Disposal Fee", "", 100, 250, "for: OIL-1", "", "", "", "Yes"),
                                      ("Old tires", "W-7", 30, 75, "", "", "", "", "No")])):
        for i, (vendor, invoice, cost, price, *texts, taxable) in enumerate(rows):
            shop.add_row(table, EstimateNumber=900, **{key: i + 1}, VendorName=vendor, VendorInvoice=invoice,
                         Cost=cost, Price=price, Taxable=taxable,
                         **{f"Desc{n + 1}": text for n, text in enumerate(texts)})
    shop.add_note(900, 5, "the other", *[""] * 7)
    shop.add_note(900, 1, "first", "", " third ", *[""] * 5)
    shop.add_note(900, 3, *[""] * 8)
    make_checklist(shop, ["[Brakes]", "Pads", "Discs", "[Lights]", "Head lamps"])
    for data in ("[Brakes], , ", "Discs,worn,95000", "[Lights], , ", "Head lamps, , "):
        shop.add_row("Checklist", EstimateNumber=900, ChecklistData=data)

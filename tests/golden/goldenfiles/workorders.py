"""Work orders as texts, active and archived, and their tags."""

from .layouts import ACTIVE_WO_TAG, ARCHIVED_WO_TAG, WO_TOTALS, file_date, record


def part_row(number, description, quantity, *amounts):
    return f"{number:<20}{description:<38}{quantity or '':>5}" + "".join(f"{amount or '':>12}" for amount in amounts)


def labor_row(mechanic, hours, rate, commission, total, lines, followup):
    texts = "".join(line + "\t" for line in lines + [""] * (8 - len(lines)))
    return f"{mechanic:06}{hours or '':>12}{rate or '':>12}{commission:>12}{total or '':>12}" + texts + followup


def extra_row(vendor, invoice, taxable, cost, price, text):
    return f"{vendor:<31}{invoice:<10}{taxable}{cost:>12}{price:>12}{text}"


def sections(*parts):
    return "".join("".join(line + "\r\n" for line in part) + "\r\n" for part in parts)


def split_rows(*paid):
    """Ten rows, of which those that are not given are blank."""
    lines = []
    for i in range(10):
        method, amount, date = paid[i] if i < len(paid) else ("", 0, " " * 10)
        lines += [f"SplitType{i + 1}={method:<8}", f"SplitAmount{i + 1}={amount}", f"SplitDate{i + 1}={date}"]
    return lines


WO_4711 = sections(
    ["[Workorder]", "WorkorderNumber=004711", "Status=OPEN", "Type=Repair", "Pricing=Retail", "TimeIn=8:15AM",
     "TimePromised=5PM"],
    ["[Totals]", "DateOpen=09/30/2003", "PartsTaxRate=57500", "PartsCost=620", "SubletCost=18900",
     "PartsSubtotal=1398", "LaborSubtotal=16250", "SubletSubtotal=24570", "NonTaxSubletSubtotal=500",
     "NonTaxWasteSubtotal=250", "CreditSubtotal=1500", "LaborDiscount=100000", "WorkorderTax=80",
     "WorkorderTotal=18728", "PaymentMethod=Split   ", "PaymentComment=half now",
     *split_rows(("Cash", 5000, "09/30/2003"), ("Check", 728, " " * 10))],
    ["[Customer]", "CustomerNumber=1002", "Lastname=Bj\u00f8rnson", "Firstname=Ann", "SpouseLastname=Lee",
     "Address=22 Second Street", "City=Dayton", "State=OH", "Zip=45402", "Phone1=937-555-0202", "Phone2ext=12",
     "TaxIDNumber=EX-1", "Salesperson=None"],
    ["[Vehicle]", "Year=1998", "Make=Ford", "Model=Crown Victoria", "VIN=2FAFP71W0WX100001", "LicenseNumber=CAB 1",
     "Mileage=188000", "Date=09/30/2003", "VComment2=dent in the door", "OrigMileage=40000", "OrigDate=01/03/2001"],
    ["[Parts]", part_row("PF47", "OIL FILTER", 2, 310, 699, 750),
     part_row("12345678901234567890", "x2345678901234567890123456789012345678", -1, 0, 12345, 0)],
    ["[Labor]", labor_row(12, 250, 6500, 100000, 16250, ["TIMING BELT", "", "CHECK WATER PUMP"],
                          "  60000\t  180\t 731868"),
     labor_row(0, 0, 0, 0, 0, ["COURTESY CHECK"], "0      \t0    \t       ")],
    ["[Sublets]", extra_row("Riverside Radiator", "81120", "Y", 18900, 24570, "RECORE RADIATOR\tBY FRIDAY"),
     extra_row("SURCHARGE", "", "N", 0, 500, "SHOP SUPPLIES")],
    ["[Waste]", extra_row("Oil disposal", "", " ", 0, 250, "")],
    ["[Credits]", f"{1500:<12}Coupon\t\tspring"],
    ["[Notes]", "first\t\tthird", "Customer waits"],
    ["[Check List]", "[Engine]", "Oil,changed,3000", "Pads, , "])

# The archive: one with its first key behind the heading and without newer sections, then one without a vehicle.
WO_4600 = sections(
    ["[Workorder]WorkorderNumber=004600", "Status=PAID", "Type=Sales 2", "Pricing=Wholesale"],
    ["[Totals]", "DateOpen=06/02/1999", "DateClosed=06/03/1999", "DatePaid=06/04/1999", "LaborSubtotal=9900",
     "WorkorderTotal=9900", "PaymentMethod=Cash    "],
    ["[Customer]", "CustomerNumber=1001", "Lastname=Adams", "Firstname=J."],
    ["[Vehicle]", "Make=Ford", "Model=Pinto", "Mileage=99999", "OrigMileage=", "OrigDate="],
    ["[Labor]", f"{12:06}{150:>12}{6600:>12}{0:>12}{9900:>12}TUNE-UP\tCARBURETOR"])
WO_4601 = sections(
    ["[Workorder]", "WorkorderNumber=004601", "Status=ON ACCT", "Type=Repair", "Pricing=Retail"],
    ["[Totals]", "DateClosed=06/05/1999", "PartsSubtotal=699", "WorkorderTotal=699", "PaymentMethod=Account "],
    ["[Customer]", "CustomerNumber=1003", "Lastname=City Cabs"],
    ["[Parts]", part_row("PF47", "OIL FILTER", 1, 310, 699, 699)],
    ["[Notes]", "Send the bill"], ["[Check List]"])


def make_workorders():
    """4711 is active still, with a tag in both files; the others are archived. Their masters lie in another order."""
    totals = {
        4711: record(WO_TOTALS, DateOpen=file_date(37894), TaxRate_0=57500, Cost_0=620, Cost_2=18900, Subtotal_0=1398,
                     Subtotal_1=16250, Subtotal_2=24570, Subtotal_4=500, Subtotal_5=250, Subtotal_6=1500,
                     Discount_1=100000, WorkorderTax=80, WorkorderTotal=18728, PaymentMethod=12, SplitType_1=1,
                     SplitAmount_1=5000, SplitDate_1=file_date(37894), SplitType_2=2, SplitAmount_2=728),
        4600: record(WO_TOTALS, DateOpen=file_date(36313), DateClosed=36314, DatePaid=file_date(36315),
                     Subtotal_1=9900, WorkorderTotal=9900, PaymentMethod=1),
        4601: record(WO_TOTALS, DateClosed=file_date(36316), Subtotal_0=699, WorkorderTotal=699, PaymentMethod=8),
    }
    heads = {
        4711: dict(CustomerName="Bj\u00f8rnson,Ann", CustomerNumber=1002, VIN="2FAFP71W0WX100001",
                   LicenseNumber="CAB 1", Status=0, Type=0, TaxExempt=1),
        4600: dict(CustomerName=b"Adams,J.\0older", CustomerNumber=1001, VIN="v" * 21, LicenseNumber="l" * 11,
                   Status=2, Type=4, TaxExempt=0),
        4601: dict(CustomerName="City Cabs,", CustomerNumber=1003, Status=4, Type=0, TaxExempt=0),
    }
    heads = {number: dict(WorkorderNumber=number, Totals=totals[number], **head) for number, head in heads.items()}
    archive = WO_4601.encode("cp1252") + WO_4600.encode("cp1252")
    offsets = {4601: 0, 4600: len(WO_4601.encode("cp1252")), 4711: -1}
    active = record(ACTIVE_WO_TAG, FileName="W0004711.tqa", **heads[4711])
    archived = b"".join(record(ARCHIVED_WO_TAG, MasterOffset=offsets[number], **heads[number])
                        for number in (4600, 4601, 4711))
    return active, archived, WO_4711.encode("cp1252") + b"\0", archive

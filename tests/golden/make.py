#!/usr/bin/env python3
"""Makes the golden files of this directory: known shop files, byte for byte.

Knows the layouts from its own tables of offsets, written down here by hand and independent of the program's sources.
The tables are also left in layouts.txt (file, field, offset, width, kind), against which the unit tests hold the
program's own. Run it in this directory; the files it makes are kept under version control.
"""

import struct

LONG, INTEGER, BYTE, TEXT, OPAQUE = "long", "integer", "byte", "text", "opaque"

SYSTEM = ("TQSYSTEM.DAT", 1038, {
    "last_workorder_number": (0, 4, LONG),
    "last_estimate_number": (4, 4, LONG),
    "korvel1": (8, 4, OPAQUE),
    "last_customer_number": (12, 4, LONG),
    "last_employee_number": (16, 4, LONG),
    "korvel2": (20, 4, OPAQUE),
    "tax_rate_parts": (24, 4, LONG),
    "tax_rate_labor": (28, 4, LONG),
    "tax_rate_sublet": (32, 4, LONG),
    "tax_rate_waste": (36, 4, LONG),
    "shop_rate": (40, 4, LONG),
    "company_name": (44, 32, TEXT),
    "company_address": (76, 33, TEXT),
    "company_city": (109, 21, TEXT),
    "company_state": (130, 3, TEXT),
    "company_zip": (133, 11, TEXT),
    "company_phone1": (144, 15, TEXT),
    "company_phone2": (159, 15, TEXT),
    "fed_id_number": (174, 21, TEXT),
    "state_id_number": (195, 21, TEXT),
    "local_id_number": (216, 21, TEXT),
    "markups_0": (237, 4, LONG),
    "markups_1": (241, 4, LONG),
    "markups_2": (245, 4, LONG),
    "markups_3": (249, 4, LONG),
    "hand_msg1": (253, 79, TEXT),
    "hand_msg2": (332, 79, TEXT),
    "korvel3": (411, 288, OPAQUE),
    "labor_surcharge_percent": (699, 4, LONG),
    "parts_surcharge_percent": (703, 4, LONG),
    "surcharge_description": (707, 79, TEXT),
    "fleet_terms": (786, 79, TEXT),
    "state_reg_number": (865, 21, TEXT),
    "korvel4": (886, 19, OPAQUE),
    "shell_command_line": (905, 79, TEXT),
    "korvel5": (984, 1, OPAQUE),
    "fleet_late_charge_percent": (985, 4, LONG),
    "korvel6": (989, 1, OPAQUE),
    "extra_company_name": (990, 41, TEXT),
    "korvel7": (1031, 2, OPAQUE),
    "surcharge_is_sublet": (1033, 1, BYTE),
    "korvel8": (1034, 4, OPAQUE),
})

CUSTOMER_TAG = ("TQCSTTAG.DAT", 96, {
    "Number": (0, 4, LONG),
    "NameKey": (4, 32, TEXT),
    "SpouseKey": (36, 32, TEXT),
    "Offset": (68, 4, LONG),
    "Phone": (72, 15, TEXT),
    "reserved": (87, 9, TEXT),
})

CUSTOMER = ("TQCSTDAT.DAT", 317, {
    "Number": (0, 4, LONG),
    "Lastname": (4, 21, TEXT),
    "Firstname": (25, 21, TEXT),
    "Spouse": (46, 21, TEXT),
    "SpouseLast": (67, 21, TEXT),
    "Address": (88, 33, TEXT),
    "City": (121, 21, TEXT),
    "State": (142, 3, TEXT),
    "Zip": (145, 11, TEXT),
    "HomePhone": (156, 15, TEXT),
    "WorkPhone": (171, 15, TEXT),
    "WorkExt": (186, 6, TEXT),
    "OtherPhone": (192, 15, TEXT),
    "pricing_level": (207, 2, INTEGER),
    "Date": (209, 4, LONG),
    "tax_id_number": (213, 21, TEXT),
    "Comment": (234, 47, TEXT),
    "salesperson": (281, 32, TEXT),
    "VLink": (313, 4, LONG),
})

VEHICLE = ("TQVEHICL.DAT", 397, {
    "Number": (0, 4, LONG),
    "Deleted": (4, 4, LONG),
    "Make": (8, 21, TEXT),
    "Model": (29, 21, TEXT),
    "Year": (50, 6, TEXT),
    "EngineSize": (56, 13, TEXT),
    "Transmission": (69, 13, TEXT),
    "VIN": (82, 21, TEXT),
    "LicenseNumber": (103, 11, TEXT),
    "State": (114, 3, TEXT),
    "VComment1": (117, 65, TEXT),
    "VComment2": (182, 65, TEXT),
    "VComment3": (247, 65, TEXT),
    "VComment4": (312, 65, TEXT),
    "Mileage": (377, 4, LONG),
    "Date": (381, 4, LONG),
    "FirstMileage": (385, 4, LONG),
    "FirstDate": (389, 4, LONG),
    "VLink": (393, 4, LONG),
})

MAKE_MODEL = ("TQMAKMOD.DAT", 29, {
    "Name": (0, 21, TEXT),
    "Prev": (21, 4, LONG),
    "Next": (25, 4, LONG),
})

EMPLOYEE = ("TQEMPLOY.DAT", 199, {
    "EmpNumber": (0, 4, LONG),
    "Name": (4, 32, TEXT),
    "SocSecNum": (36, 15, TEXT),
    "EmpAddr": (51, 33, TEXT),
    "EmpCity": (84, 21, TEXT),
    "EmpState": (105, 3, TEXT),
    "EmpZip": (108, 11, TEXT),
    "EmpPhone": (119, 15, TEXT),
    "DateHired": (134, 4, LONG),
    "DateTerminated": (138, 4, LONG),
    "MaritalStatus": (142, 1, BYTE),
    "NumExemptions": (143, 1, BYTE),
    "FICAExempt": (144, 1, BYTE),
    "payroll": (145, 54, OPAQUE),
})

INVENTORY_TAG = ("TQINVTAG.DAT", 128, {
    "StockNumber": (0, 21, TEXT),
    "Description": (21, 39, TEXT),
    "Pricing_0": (60, 4, LONG),
    "Pricing_1": (64, 4, LONG),
    "Pricing_2": (68, 4, LONG),
    "Pricing_3": (72, 4, LONG),
    "InStock": (76, 2, INTEGER),
    "Tag": (78, 4, LONG),
    "IsStocked": (82, 1, BYTE),
    "Dummy": (83, 45, TEXT),
})

INVENTORY = ("TQINVENT.DAT", 344, {
    "StockNumber": (0, 21, TEXT),
    "AltNumber_0": (21, 21, TEXT),
    "AltNumber_1": (42, 21, TEXT),
    "AltNumber_2": (63, 21, TEXT),
    "AltNumber_3": (84, 21, TEXT),
    "Description": (105, 39, TEXT),
    "Department": (144, 21, TEXT),
    "Manufacturer": (165, 21, TEXT),
    "Comment": (186, 79, TEXT),
    "Pricing_0": (265, 4, LONG),
    "Pricing_1": (269, 4, LONG),
    "Pricing_2": (273, 4, LONG),
    "Pricing_3": (277, 4, LONG),
    "MarkupPercent_0": (281, 4, LONG),
    "MarkupPercent_1": (285, 4, LONG),
    "MarkupPercent_2": (289, 4, LONG),
    "MarkupPercent_3": (293, 4, LONG),
    "IsStocked": (297, 1, BYTE),
    "Location": (298, 21, TEXT),
    "HasACore": (319, 1, BYTE),
    "CoreCost": (320, 4, LONG),
    "HasWaste": (324, 1, BYTE),
    "DisposalFee": (325, 4, LONG),
    "ReorderLevel": (329, 2, INTEGER),
    "QtyInStock": (331, 2, INTEGER),
    "IdealLevel": (333, 2, INTEGER),
    "Deleted": (335, 1, BYTE),
    "UsageLink": (336, 4, LONG),
    "ReceivingLink": (340, 4, LONG),
})

KIT = ("TQINVKIT.DAT", 1971, {
    "KitNumber": (0, 21, TEXT), **{"Line_%d" % i: (21 + 39 * i, 39, TEXT) for i in range(50)}})

FOLLOWUP = ("TQFOLLOW.DAT", 596, {
    "Active": (0, 1, BYTE),
    "CustomerNumber": (1, 4, LONG),
    "VIN": (5, 21, TEXT),
    "LicenseNumber": (26, 11, TEXT),
    "korvel1": (37, 6, OPAQUE),
    "WorkorderNumber": (43, 4, LONG),
    "FollowupDate": (47, 4, LONG),
    "Miles": (51, 4, LONG),
    "Days": (55, 4, LONG),
    "Description": (59, 513, TEXT),
    "Mechanic": (572, 4, LONG),
    "Hours": (576, 4, LONG),
    "Rate": (580, 4, LONG),
    "Total": (584, 4, LONG),
    "korvel2": (588, 8, OPAQUE),
})

PO_TAG = ("TQOPENPO.DAT", 171, {
    "Number": (0, 4, LONG),
    "VendorName": (4, 32, TEXT),
    "VendorInvoice": (36, 11, TEXT),
    "Status": (47, 2, INTEGER),
    "amounts": (49, 106, OPAQUE),
    "FileName": (155, 16, TEXT),
})

LABOR_KIT = ("TQLABKIT.DAT", 26, {"Code": (0, 5, TEXT), "Kit": (5, 21, TEXT)})

def slots(name, offset, count, first=0, width=4, kind=LONG):
    return {"%s_%d" % (name, first + i): (offset + width * i, width, kind) for i in range(count)}


# The money of a work order, a block within its tags.
WO_TOTALS = ("WoTotals", 211, {
    "DateOpen": (0, 4, LONG),
    "DateClosed": (4, 4, LONG),
    "DatePaid": (8, 4, LONG),
    **slots("TaxRate", 12, 4),
    **slots("Cost", 28, 6),
    "reserved": (52, 8, OPAQUE),
    **slots("Subtotal", 60, 8),
    **slots("Discount", 92, 4),
    "DollarDiscount": (108, 4, LONG),
    "WorkorderTax": (112, 4, LONG),
    "WorkorderTotal": (116, 4, LONG),
    "PaymentMethod": (120, 1, BYTE),
    **slots("SplitType", 121, 10, 1, 1, BYTE),
    **slots("SplitAmount", 131, 10, 1),
    **slots("SplitDate", 171, 10, 1),
})

WO_TAG_HEAD = {
    "WorkorderNumber": (0, 4, LONG),
    "CustomerName": (4, 32, TEXT),
    "CustomerNumber": (36, 4, LONG),
    "VIN": (40, 21, TEXT),
    "LicenseNumber": (61, 11, TEXT),
    "Status": (72, 1, BYTE),
    "Type": (73, 1, BYTE),
    "TaxExempt": (74, 1, BYTE),
    "Totals": (75, 211, OPAQUE),
}

ACTIVE_WO_TAG = ("TQOPENWO.DAT", 302, {**WO_TAG_HEAD, "FileName": (286, 16, TEXT)})

ARCHIVED_WO_TAG = ("TQINCTAG.DAT", 290, {**WO_TAG_HEAD, "MasterOffset": (286, 4, LONG)})

PASSWORDS = ("TQPASSWD.DAT", 252, {"password_%d" % i: (21 * i, 21, TEXT) for i in range(12)})

LAYOUTS = (SYSTEM, CUSTOMER_TAG, CUSTOMER, VEHICLE, MAKE_MODEL, EMPLOYEE, PASSWORDS, INVENTORY_TAG, INVENTORY, KIT, FOLLOWUP,
           PO_TAG, LABOR_KIT, WO_TOTALS, ACTIVE_WO_TAG, ARCHIVED_WO_TAG)


def record(layout, **values):
    """One record's bytes. Text as str is NUL-filled; as bytes it is taken as it is, up to the field's width."""
    _, length, fields = layout
    result = bytearray(length)
    for name, value in values.items():
        offset, width, kind = fields[name]
        if kind == LONG:
            piece = struct.pack("<i", value)
        elif kind == INTEGER:
            piece = struct.pack("<h", value)
        elif kind == BYTE:
            piece = struct.pack("<B", value)
        else:
            piece = value.encode("cp1252") if isinstance(value, str) else value
        assert len(piece) <= width, (name, value)
        result[offset:offset + len(piece)] = piece
    return bytes(result)


def pattern(width, seed):
    """Bytes that nobody would write by chance, none of them 0."""
    return bytes(1 + (seed + 7 * i) % 255 for i in range(width))


def file_date(serial):
    return serial + 693974


def make_system():
    opaque = {name: pattern(width, offset) for name, (offset, width, kind) in SYSTEM[2].items() if kind == OPAQUE}
    return record(
        SYSTEM, last_workorder_number=5012, last_estimate_number=3007, last_customer_number=1005,
        last_employee_number=14, tax_rate_parts=82500, tax_rate_labor=0, tax_rate_sublet=82500, tax_rate_waste=10000,
        shop_rate=6500, company_name="M\u00fcller's Garage", company_address=b"12 Canal Street\0old street name",
        company_city="Springfield", company_state="OH", company_zip="45501", company_phone1="937-555-0100",
        company_phone2="937-555-01000000"[:15], fed_id_number="31-0000001", state_id_number="S-77",
        local_id_number="", markups_0=0, markups_1=250000, markups_2=400000, markups_3=650000,
        hand_msg1="Thank you for your business.", hand_msg2="x" * 79, labor_surcharge_percent=-1250,
        parts_surcharge_percent=35000, surcharge_description="Shop supplies", fleet_terms="Net 30",
        state_reg_number="REG 4711", shell_command_line="C:\\TOOLS\\BACKUP.EXE", fleet_late_charge_percent=15000,
        extra_company_name="Family owned", surcharge_is_sublet=ord("Y"), **opaque)


CUSTOMERS = (
    dict(Number=1001, Lastname="Adams", Firstname="John", Spouse="Mary", SpouseLast="", Address="1 First Street",
         City="Springfield", State="OH", Zip="45501", HomePhone="937-555-0101", WorkPhone="937-555-0102", WorkExt="12",
         OtherPhone="", pricing_level=3, Date=file_date(37000), tax_id_number="", Comment="calls twice",
         salesperson="", VLink=794),
    dict(Number=1002, Lastname="Bj\u00f8rnson-Carpenters", Firstname="Alexander-Maximilia", Spouse="Ann",
         SpouseLast="Lee", Address=b"22 Second Street\0older text", City="Dayton", State="OHI",
         Zip="45402-1234", HomePhone="937-555-0202 x9", WorkPhone="", WorkExt="123456", OtherPhone="none",
         pricing_level=1, Date=37010, tax_id_number="EX-1", Comment="c" * 47, salesperson="Bob", VLink=-1),
    dict(Number=1003, Lastname="City Cabs", Firstname="", Spouse="", SpouseLast="", Address="", City="", State="",
         Zip="", HomePhone="", WorkPhone="", WorkExt="", OtherPhone="", pricing_level=0, Date=0, tax_id_number="",
         Comment="", salesperson="", VLink=0),
    dict(Number=1004, Lastname="Davis", Firstname="Eve", Spouse="", SpouseLast="", Address="4 Fourth Street",
         City="Xenia", State="OH", Zip="45385", HomePhone="937-555-0404", WorkPhone="", WorkExt="", OtherPhone="",
         pricing_level=2, Date=file_date(37800), tax_id_number="", Comment="", salesperson="", VLink=-1),
)


def make_customers():
    """Masters in another order than the tags: what finds a master is the tag's offset alone."""
    order = (2, 0, 3, 1)
    masters = b"".join(record(CUSTOMER, **CUSTOMERS[i]) for i in order)
    tags = b""
    for i, one in enumerate(CUSTOMERS):
        name = (one["Lastname"] + "," + one["Firstname"])[:32]
        spouse = (one["SpouseLast"] + "," + one["Spouse"])[:32]
        tags += record(CUSTOMER_TAG, Number=one["Number"], NameKey=name, SpouseKey=spouse,
                       Offset=317 * order.index(i), Phone=one["HomePhone"])
    return tags, masters


def make_vehicles():
    """Adams owns 794 -> 397 (deleted) -> 1191; City Cabs own 0."""
    return b"".join((
        record(VEHICLE, Number=1003, Deleted=-1, Make="Ford", Model="Crown Victoria", Year="1998", EngineSize="4.6L",
               Transmission="AUTO", VIN="2FAFP71W0WX100001", LicenseNumber="CAB 1", State="OH", Mileage=188000,
               Date=file_date(37850), FirstMileage=40000, FirstDate=file_date(36900), VLink=-1),
        record(VEHICLE, Number=1001, Deleted=86, Make="Ford", Model="Pinto", Year="1974", LicenseNumber="OLD 1",
               State="OH", VComment1="gone", Mileage=99999, Date=file_date(36000), FirstMileage=99999,
               FirstDate=file_date(36000), VLink=1191),
        record(VEHICLE, Number=1001, Deleted=-1, Make="Chevrolet", Model="Impala", Year=b"01\0\0\0?",
               EngineSize="3.8L V6 OHV..", Transmission="4 speed", VIN="2G1WH55K019100002", LicenseNumber="ABC 1234",
               State="OH", VComment1="dent in the door", VComment2="b" * 65, VComment3="", VComment4="d", Mileage=0,
               Date=file_date(37880), FirstMileage=0, FirstDate=0, VLink=397),
        record(VEHICLE, Number=1001, Deleted=0, Make="Chevrolet", Model="Nova", Year="77", Mileage=150000,
               Date=1000000, FirstMileage=150000, FirstDate=1000000, VLink=-1),
    ))


def make_makes():
    """Ford -> Pinto -> Crown Victoria; a deleted record; Chevrolet without models; Toyota -> Corolla."""
    return b"".join((
        record(MAKE_MODEL, Name="Ford", Prev=-1, Next=87),
        record(MAKE_MODEL, Name="Crown Victoria", Prev=0, Next=-1),
        record(MAKE_MODEL, Name="", Prev=-1, Next=-1),
        record(MAKE_MODEL, Name=b"Pinto\0stale bytes", Prev=0, Next=29),
        record(MAKE_MODEL, Name="Chevrolet", Prev=-1, Next=-1),
        record(MAKE_MODEL, Name=b"Toyota\0old", Prev=-1, Next=174),
        record(MAKE_MODEL, Name="Corolla", Prev=145, Next=-1),
    ))


def make_employees():
    return b"".join((
        record(EMPLOYEE, EmpNumber=12, Name="Zoe Young", SocSecNum="000-00-0012", EmpAddr="1 Mill Lane",
               EmpCity="Springfield", EmpState="OH", EmpZip="45501", EmpPhone="937-555-0912",
               DateHired=file_date(36000), DateTerminated=-1, MaritalStatus=1, NumExemptions=2, FICAExempt=0,
               payroll=pattern(54, 3)),
        record(EMPLOYEE, EmpNumber=3, Name=b"Al\0gernon", SocSecNum="000-00-0003", DateHired=-1,
               DateTerminated=file_date(37000), MaritalStatus=0, NumExemptions=0, FICAExempt=1,
               payroll=pattern(54, 90)),
        record(EMPLOYEE, EmpNumber=7, Name="  Bert Wood", DateHired=file_date(35000), DateTerminated=-1,
               payroll=pattern(54, 180)),
    ))


def make_passwords():
    words = {0: "wrench  ", 1: "Stock", 2: "korvel2", 3: b"\0hidden", 4: "korvel4", 8: "x" * 21, 11: b"Edit\0older"}
    return record(PASSWORDS, **{"password_%d" % index: word for index, word in words.items()})


PARTS = (
    dict(StockNumber="PF47", Description="OIL FILTER", AltNumber_0="PH3614", AltNumber_2=b"L10241\0older",
         Department="FILTERS", Manufacturer="AC DELCO", Comment="c" * 79, Pricing_0=310, Pricing_1=420, Pricing_2=500,
         Pricing_3=699, MarkupPercent_1=354838, MarkupPercent_2=612903, MarkupPercent_3=1254838, IsStocked=1,
         Location="A 4", ReorderLevel=6, QtyInStock=12, IdealLevel=24, UsageLink=0, ReceivingLink=76),
    dict(StockNumber="STARTER", Description="STARTER MOTOR, REMANUFACTURED, V8 ENGIN", Department="ELECTRIC",
         Manufacturer="B\u00f6sch", Pricing_0=8000, Pricing_1=9000, Pricing_2=10000, Pricing_3=12000, IsStocked=0,
         HasACore=1, CoreCost=1525, HasWaste=1, DisposalFee=250, QtyInStock=-1, UsageLink=-1, ReceivingLink=-1),
    dict(StockNumber="1-234-567-89-ABCDEFGH", Description=b"A\0stale bytes", Pricing_3=2147483647, QtyInStock=32767,
         UsageLink=152, ReceivingLink=-1),
    dict(StockNumber="OLDBELT", Description="FAN BELT", Deleted=1, UsageLink=-1, ReceivingLink=-1),
    dict(StockNumber="TUNEUP", Description="TUNE-UP KIT, 8 CYLINDERS", Department="KITS", Location="KIT:(99.00,120.00)",
         UsageLink=-1, ReceivingLink=-1),
)


def make_inventory():
    """Masters in another order than the tags. The deleted part's number is blank in its tag alone."""
    order = (4, 1, 0, 3, 2)
    masters = b"".join(record(INVENTORY, **PARTS[i]) for i in order)
    tags = b""
    for i, one in enumerate(PARTS):
        copied = {name: one[name] for name in ("Description", "Pricing_0", "Pricing_1", "Pricing_2", "Pricing_3",
                                               "IsStocked") if name in one}
        number = "" if one.get("Deleted") else one["StockNumber"]
        tags += record(INVENTORY_TAG, StockNumber=number, InStock=one.get("QtyInStock", 0),
                       Tag=344 * order.index(i), **copied)
    return tags, masters


def make_kits():
    """The second has a blank line ahead of its last one, and fills its record."""
    full = {"Line_%d" % i: "PART%d(%d)" % (i, i) for i in range(50)}
    full.update(Line_1="ONE", Line_48="")
    return (record(KIT, KitNumber="TUNEUP", Line_0="SPARKPLUG(8)", Line_1=b"PF47\0(3)", Line_2="ROTOR" + " " * 16 + "x(9)")
            + record(KIT, KitNumber="FULL", **full))


def make_names(*names):
    return "".join(name.ljust(20) for name in names).encode("cp1252") + b"\r\n"


def make_followups():
    return b"".join((
        record(FOLLOWUP, Active=1, CustomerNumber=1001, VIN="2G1WH55K019100002", LicenseNumber="ABC 1234",
               korvel1=pattern(6, 5), WorkorderNumber=4711, FollowupDate=file_date(37900), Miles=0, Days=180,
               Description=b"TIMING BELT\tDUE AT 90,000\0older", Mechanic=12, Hours=250, Rate=6500, Total=16250,
               korvel2=pattern(8, 50)),
        record(FOLLOWUP, Active=0, CustomerNumber=1001, VIN="2G1WH55K019100002", Description="USED"),
        record(FOLLOWUP, Active=255, CustomerNumber=1003, LicenseNumber="CAB 1", Description="x" * 513, Total=-1,
               korvel2=pattern(8, 90)),
    ))


SUBLETS = (("Riverside Radiator", "81120", "189.00", "245.70", "RECORE RADIATOR"),
           ("Valley Machine", "A-17", "10.00", "0.00", "NOTHING CHARGED"))


def make_orders():
    """The second order is open still, the third has no detail text."""
    tags = b"".join((
        record(PO_TAG, Number=3101, VendorName="Riverside Radiator", VendorInvoice="81120", Status=1,
               amounts=pattern(106, 9), FileName="P0003101.TQP"),
        record(PO_TAG, Number=3102, VendorName="B\u00f6sch", Status=0, FileName="P0003102.TQP"),
        record(PO_TAG, Number=3103, VendorName="v" * 32, VendorInvoice="i" * 11, Status=4, amounts=pattern(106, 77)),
    ))
    lines = "".join(f"{vendor:<31}{invoice:<11}{cost:>11}{price:>12}{text:<64}\r\n"
                    for vendor, invoice, cost, price, text in SUBLETS)
    detail = "[Purchase Order]\r\nVendor=Riverside Radiator\r\n\r\n[Sublets]\r\n" + lines + "[Credits]\r\n"
    return tags, detail.encode("cp1252")


def make_canned_labor():
    """A code of five characters, one of three, and a job of eight lines."""
    jobs = ((50, 6500, 3250, ("LOF  OIL AND FILTER", "CHECK FLUIDS")), (120, 0, 9900, ("RADIARECHARGE",)),
            (-10, 6500, -650, ("EIGHTONE", "2", "3", "4", "5", "6", "7", "8")))
    text = "".join(f"{hours:<12}{rate:<12}{total:>12}" + "\t".join(lines) + "\r\n" for hours, rate, total, lines in jobs)
    kits = record(LABOR_KIT, Code="LOF", Kit="TUNEUP") + record(LABOR_KIT, Code="RADIA", Kit="None")
    return text.encode("cp1252"), kits


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


CANNED_NOTES = b"Customer waits\r\nCall before work\tleave word\t3\t4\t5\t6\t7\t8\r\n\r\nK\xe4se\r\n"
CHECKLIST = b"Loose item\r\n[Engine]\r\n  Oil, the stick \r\n\r\nBelts\r\n[Brakes]\r\nPads\r\n"


def main():
    tags, masters = make_customers()
    part_tags, part_masters = make_inventory()
    for layout, content in ((SYSTEM, make_system()), (CUSTOMER_TAG, tags), (CUSTOMER, masters),
                            (VEHICLE, make_vehicles()), (MAKE_MODEL, make_makes()), (EMPLOYEE, make_employees()),
                            (PASSWORDS, make_passwords()), (INVENTORY_TAG, part_tags), (INVENTORY, part_masters),
                            (KIT, make_kits()), (FOLLOWUP, make_followups()), (PO_TAG, make_orders()[0]),
                            (LABOR_KIT, make_canned_labor()[1]), (ACTIVE_WO_TAG, make_workorders()[0]),
                            (ARCHIVED_WO_TAG, make_workorders()[1])):
        assert len(content) % layout[1] == 0
        with open(layout[0], "wb") as out:
            out.write(content)
    for name, content in (("TQDEPART.DAT", make_names("FILTERS", "ELECTRIC", "CORES", "KITS")),
                          ("TQMANUFA.DAT", make_names("AC DELCO", "B\u00f6sch", "A NAME OF TWENTY CHR")),
                          ("P0003101.TQP", make_orders()[1]), ("TQCANLAB.DAT", make_canned_labor()[0]),
                          ("TQCANNOT.DAT", CANNED_NOTES), ("CHECKLST.TXT", CHECKLIST),
                          ("W0004711.tqa", make_workorders()[2]), ("TQINVOIC.DAT", make_workorders()[3])):
        with open(name, "wb") as out:
            out.write(content)
    with open("layouts.txt", "w", encoding="ascii") as out:
        for name, _, fields in LAYOUTS:
            for field, (offset, width, kind) in fields.items():
                out.write("%s %s %d %d %s\n" % (name, field, offset, width, kind))


if __name__ == "__main__":
    main()

"""The inventory with its kits and lists of names, purchase orders, and vendors."""

from .layouts import INVENTORY, INVENTORY_TAG, KIT, PO_TAG, VENDOR, pattern, record

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


def make_updates():
    """Changes told by other copies: a known part twice, one that is new, one with bytes behind its text."""
    return (record(INVENTORY_TAG, StockNumber="PF47", Description="OIL FILTER", Pricing_0=310, Pricing_1=420, Pricing_2=500,
                   Pricing_3=699, InStock=11, Tag=344 * 2, IsStocked=1)
            + record(INVENTORY_TAG, StockNumber="PF47", Description="OIL FILTER", Pricing_0=320, Pricing_1=430,
                     Pricing_2=510, Pricing_3=719, InStock=10, Tag=344 * 2, IsStocked=1)
            + record(INVENTORY_TAG, StockNumber="B\u00c4LG 7", Description="BELLOWS", Pricing_3=-1, InStock=-32768,
                     Tag=344 * 5, IsStocked=1)
            + record(INVENTORY_TAG, StockNumber=b"STARTER\0/C", Description="STARTER MOTOR", Pricing_3=12500, InStock=2,
                     Tag=344))


def make_kits():
    """The second has a blank line ahead of its last one, and fills its record."""
    full = {"Line_%d" % i: "PART%d(%d)" % (i, i) for i in range(50)}
    full.update(Line_1="ONE", Line_48="")
    return (record(KIT, KitNumber="TUNEUP", Line_0="SPARKPLUG(8)", Line_1=b"PF47\0(3)", Line_2="ROTOR" + " " * 16 + "x(9)")
            + record(KIT, KitNumber="FULL", **full))


def make_names(*names):
    return "".join(name.ljust(20) for name in names).encode("cp1252") + b"\r\n"


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


def make_vendors():
    """One with leftovers behind its texts, a deleted one, one whose texts fill their fields, one in blanks."""
    return b"".join((
        record(VENDOR, VendorName=b"Riverside Radiator\0& Sons", Contact=b"Rita\0Robert Rivers", Address="9 River Road",
               City="Dayton", State="OH", Zip="45402", Phone1="937-555-0900", Phone1Ext="21", Phone2="937-555-0901",
               Phone3="937-555-0902", TaxIdNumber="31-0000009"),
        record(VENDOR),
        record(VENDOR, VendorName="M\u00fcnchner Motorenteile Import A", Contact="c" * 32, Address="a" * 33, City="i" * 21,
               State="OHI", Zip="45402-12345", Phone1="937-555-0100 x9", Phone1Ext="123456", Phone2="2" * 15,
               Phone3="3" * 15, TaxIdNumber="t" * 21),
        record(VENDOR, VendorName="  Valley Machine  ", City="Xenia"),
    ))

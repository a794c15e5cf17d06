"""The parts inventory in a shop's directory, made and read without the program: tags, masters, kits, lists of names."""

from pathlib import Path

from shopfiles import NO_LINK, put, take

TAG_FILE = "TQINVTAG.DAT"
MASTER_FILE = "TQINVENT.DAT"
KIT_FILE = "TQINVKIT.DAT"
DEPARTMENT_FILE = "TQDEPART.DAT"
MANUFACTURER_FILE = "TQMANUFA.DAT"
NAME_COLUMN = 20
COST, WHOLESALE, RESALE, RETAIL = range(4)

TAG_LENGTH = 128
TAG = {
    "StockNumber": (0, 21, "text"), "Description": (21, 39, "text"), "Pricing": (60, 16, "longs"),
    "InStock": (76, 2, "integer"), "Tag": (78, 4, "long"), "IsStocked": (82, 1, "byte"), "Dummy": (83, 45, "text"),
}
MASTER_LENGTH = 344
MASTER = {
    "StockNumber": (0, 21, "text"), "AltNumber1": (21, 21, "text"), "AltNumber2": (42, 21, "text"),
    "AltNumber3": (63, 21, "text"), "AltNumber4": (84, 21, "text"), "Description": (105, 39, "text"),
    "Department": (144, 21, "text"), "Manufacturer": (165, 21, "text"), "Comment": (186, 79, "text"),
    "Pricing": (265, 16, "longs"), "MarkupPercent": (281, 16, "longs"), "IsStocked": (297, 1, "byte"),
    "Location": (298, 21, "text"), "HasACore": (319, 1, "byte"), "CoreCost": (320, 4, "long"),
    "HasWaste": (324, 1, "byte"), "DisposalFee": (325, 4, "long"), "ReorderLevel": (329, 2, "integer"),
    "QtyInStock": (331, 2, "integer"), "IdealLevel": (333, 2, "integer"), "Deleted": (335, 1, "byte"),
    "UsageLink": (336, 4, "long"), "ReceivingLink": (340, 4, "long"),
}
KIT_LENGTH = 1971
KIT_LINES = 50
KIT = {"KitNumber": (0, 21, "text"), **{f"Line{i + 1}": (21 + 39 * i, 39, "text") for i in range(KIT_LINES)}}


def part(number, description="", prices=(0, 0, 0, 0), in_stock=0, **fields):
    """One part's master fields. The prices are Cost, Wholesale, Resale, Retail in cents; fields are those of MASTER."""
    return {"StockNumber": number, "Description": description, "Pricing": tuple(prices), "QtyInStock": in_stock,
            "IsStocked": 1, "UsageLink": NO_LINK, "ReceivingLink": NO_LINK, **fields}


def kit_part(number, description="", sale=None, list_price=None, prices=(0, 0, 0, 0), **fields):
    """A part that stands for a kit, with or without prices of the kit's own (texts, as "12.50")."""
    location = "KIT:" if sale is None else f"KIT:({sale},{list_price})"
    return part(number, description, prices, Location=location, **fields)


def tag_record(fields, offset):
    """The tag of a part whose master lies at the offset. A deleted part's number is blank in its tag alone."""
    number = "" if fields.get("Deleted") else fields["StockNumber"]
    return put(bytearray(TAG_LENGTH), TAG, StockNumber=number, Description=fields["Description"],
               Pricing=fields["Pricing"], InStock=fields["QtyInStock"], Tag=offset, IsStocked=fields["IsStocked"])


def master_record(fields):
    return put(bytearray(MASTER_LENGTH), MASTER, **fields)


def kit_record(number, lines):
    """Lines are texts as they stand in the record, as "BRAKEPAD(4)"; at most 50."""
    assert len(lines) <= KIT_LINES
    return put(bytearray(KIT_LENGTH), KIT, KitNumber=number, **{f"Line{i + 1}": line for i, line in enumerate(lines)})


def make_inventory(directory, parts=()):
    """Both files, for parts made by part(); tags and masters in the order given. The offset of each master by number:
    the tag of the n-th part lies at 128 n. To be called after Shop.write(), which makes an empty tag file."""
    offsets = {fields["StockNumber"]: MASTER_LENGTH * i for i, fields in enumerate(parts)}
    tags = b"".join(tag_record(fields, MASTER_LENGTH * i) for i, fields in enumerate(parts))
    Path(directory, TAG_FILE).write_bytes(tags)
    Path(directory, MASTER_FILE).write_bytes(b"".join(master_record(fields) for fields in parts))
    return offsets


def make_kits(directory, kits):
    """A dictionary of lists of lines, by the number of the kit's part."""
    Path(directory, KIT_FILE).write_bytes(b"".join(kit_record(number, lines) for number, lines in kits.items()))


def make_names(directory, departments=(), manufacturers=()):
    """The two lists of one line: a column of 20 characters a name."""
    for name, names in ((DEPARTMENT_FILE, departments), (MANUFACTURER_FILE, manufacturers)):
        line = "".join(one[:NAME_COLUMN].ljust(NAME_COLUMN) for one in names)
        Path(directory, name).write_bytes((line + "\r\n").encode("cp1252"))


def read_tags(directory):
    return _records(directory, TAG_FILE, TAG_LENGTH, TAG)


def read_masters(directory):
    return _records(directory, MASTER_FILE, MASTER_LENGTH, MASTER)


def read_kits(directory):
    """A dictionary of lists of lines, without the blank ones at the end."""
    kits = {}
    for fields in _records(directory, KIT_FILE, KIT_LENGTH, KIT):
        lines = [fields[f"Line{i + 1}"] for i in range(KIT_LINES)]
        while lines and not lines[-1]:
            lines.pop()
        kits[fields["KitNumber"]] = lines
    return kits


def read_names(directory, name):
    line = Path(directory, name).read_bytes().decode("cp1252").rstrip("\r\n")
    return [line[at:at + NAME_COLUMN].rstrip() for at in range(0, len(line), NAME_COLUMN)]


def _records(directory, name, length, layout):
    data = Path(directory, name).read_bytes()
    return [take(data[at:at + length], layout) for at in range(0, len(data), length)]

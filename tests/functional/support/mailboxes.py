"""The update files by which running copies tell one another of changed parts, made and read without the program."""

from inventoryfiles import TAG, TAG_LENGTH, part, tag_record
from shopfiles import take

TICK = 5000  # milliseconds between two looks of a copy, at its own changes and at those of the others
OWN = "AU9300.$$$"  # of the first copy of 30 September


def told(number, description="", in_stock=0, prices=(0, 0, 0, 0), master=90000, **fields):
    """One change, as its record stands in an update file."""
    return bytes(tag_record(part(number, description, prices, in_stock, **fields), master))


def put_mail(shop, *records, name=OWN):
    shop.path(name).write_bytes(b"".join(records))


def mail(shop, name=OWN):
    """What waits in an update file, which must be whole records."""
    data = shop.path(name).read_bytes()
    assert len(data) % TAG_LENGTH == 0, f"{name} has a torn record"
    return [take(data[at:at + TAG_LENGTH], TAG) for at in range(0, len(data), TAG_LENGTH)]


def listed(copy):
    """The rows of the inventory list, shown or hidden: part number to its cells."""
    return {row["cells"]["Part"]: row["cells"] for row in copy.control("DataGrid1", "frmInvList")["rows"]}


def stock(copy, number):
    return int(listed(copy)[number]["Qty"])


def total(copy):
    return copy.caption("TotalParts", "frmInvList")

"""Work orders in the shop's files, written byte for byte as another program would: both tag files, the text of each
active one, the archive of the others."""

from shopfiles import NO_LINK, file_date, put

ACTIVE_LENGTH = 302
ARCHIVED_LENGTH = 290
TAG = {
    "WorkorderNumber": (0, 4, "long"), "CustomerName": (4, 32, "text"), "CustomerNumber": (36, 4, "long"),
    "VIN": (40, 21, "text"), "LicenseNumber": (61, 11, "text"), "Status": (72, 1, "byte"), "Type": (73, 1, "byte"),
    "TaxExempt": (74, 1, "byte"), "DateOpen": (75, 4, "long"), "DateClosed": (79, 4, "long"),
    "DatePaid": (83, 4, "long"),
}
ACTIVE_TAG = {**TAG, "FileName": (286, 16, "text")}
ARCHIVED_TAG = {**TAG, "MasterOffset": (286, 4, "long")}
STATUSES = ["OPEN", "CLOSED", "PAID", "VOID", "ON ACCT"]


def labor_line(lines, mechanic=4, hours=100, rate=6500, total=6500):
    """The texts of one labor entry, up to eight."""
    columns = f"{mechanic:06}{hours or '':>12}{rate or '':>12}{0:>12}{total or '':>12}"
    return columns + "".join(line + "\t" for line in (*lines, *[""] * 8)[:8]) + "0      \t0    \t       "


def order_text(number, status="OPEN", last="Adams", first="Beth", mileage=0, labor=(), notes=()):
    sections = {
        "Workorder": [f"WorkorderNumber={number:06}", f"Status={status}", "Type=Repair", "Pricing=Retail"],
        "Totals": ["WorkorderTotal=100", "PaymentMethod=        "],
        "Customer": ["CustomerNumber=7", f"Lastname={last}", f"Firstname={first}"],
        "Vehicle": ["Make=Ford", f"Mileage={mileage or ''}", "OrigMileage=", "OrigDate="],
        "Parts": [], "Labor": [labor_line(lines) for lines in labor], "Sublets": [], "Waste": [], "Credits": [],
        "Notes": ["\t".join(lines) for lines in notes], "Check List": [],
    }
    return "".join(f"[{name}]\r\n" + "".join(line + "\r\n" for line in lines) + "\r\n"
                   for name, lines in sections.items())


class History:
    """What was done to vehicles. Fill it in the order of the files, then write() it."""

    def __init__(self, vin):
        self.vin = vin
        self.active = bytearray()
        self.archived = bytearray()
        self.archive = b""
        self.texts = {}

    def _fields(self, number, status, vin, opened, closed, paid, license="", last="Adams", first="Beth", **_):
        vin = self.vin if vin is None else vin
        return {"WorkorderNumber": number, "CustomerName": f"{last},{first}"[:31], "CustomerNumber": 7, "VIN": vin,
                "LicenseNumber": license, "Status": STATUSES.index(status), "DateOpen": file_date(opened), "DateClosed": file_date(closed),
                "DatePaid": file_date(paid)}

    def add_active(self, number, opened=None, closed=None, paid=None, status="OPEN", vin=None, file=None, text=None,
                   license="", **content):
        """Its tag stands in both files."""
        fields = self._fields(number, status, vin, opened, closed, paid, license, **content)
        file = f"W{number:07}.tqa" if file is None else file
        self.active += put(bytearray(ACTIVE_LENGTH), ACTIVE_TAG, FileName=file, **fields)
        self.archived += put(bytearray(ARCHIVED_LENGTH), ARCHIVED_TAG, MasterOffset=NO_LINK, **fields)
        if text is None:
            text = order_text(number, status, **content)
        if text != "":
            self.texts[file] = text.encode("cp1252") + b"\0\r\n"

    def add_archived(self, number, opened=None, closed=None, paid=None, status="PAID", vin=None, offset=None, text=None,
                     license="", **content):
        fields = self._fields(number, status, vin, opened, closed, paid, license, **content)
        offset = len(self.archive) if offset is None else offset
        self.archived += put(bytearray(ARCHIVED_LENGTH), ARCHIVED_TAG, MasterOffset=offset, **fields)
        self.archive += (order_text(number, status, **content) if text is None else text).encode("cp1252")

    def write(self, shop):
        for name, data in (("TQOPENWO.DAT", self.active), ("TQINCTAG.DAT", self.archived),
                           ("TQINVOIC.DAT", self.archive), *self.texts.items()):
            shop.path(name).write_bytes(data)
        return shop

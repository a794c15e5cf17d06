"""Shop directories made and read without the program: layouts by offset, the database by plain statements."""

import contextlib
import datetime
import hashlib
import sqlite3
import struct
from pathlib import Path

from databases import FileDatabase

FILE_DATE_BASE = 693974
NO_LINK = -1
DELETED = 86
LIVE = -1
RETAIL = 3

# Field: offset, width, kind. A text of n widths is n fields of one name, told by index.
TAG_LENGTH = 96
TAG = {
    "Number": (0, 4, "long"), "NameKey": (4, 32, "text"), "SpouseKey": (36, 32, "text"), "Offset": (68, 4, "long"),
    "Phone": (72, 15, "text"), "Reserved": (87, 9, "text"),
}
CUSTOMER_LENGTH = 317
CUSTOMER = {
    "Number": (0, 4, "long"), "Lastname": (4, 21, "text"), "Firstname": (25, 21, "text"), "Spouse": (46, 21, "text"),
    "SpouseLast": (67, 21, "text"), "Address": (88, 33, "text"), "City": (121, 21, "text"), "State": (142, 3, "text"),
    "Zip": (145, 11, "text"), "HomePhone": (156, 15, "text"), "WorkPhone": (171, 15, "text"),
    "WorkExt": (186, 6, "text"), "OtherPhone": (192, 15, "text"), "pricing_level": (207, 2, "integer"),
    "Date": (209, 4, "long"), "tax_id_number": (213, 21, "text"), "Comment": (234, 47, "text"),
    "salesperson": (281, 32, "text"), "VLink": (313, 4, "long"),
}
VEHICLE_LENGTH = 397
VEHICLE = {
    "Number": (0, 4, "long"), "Deleted": (4, 4, "long"), "Make": (8, 21, "text"), "Model": (29, 21, "text"),
    "Year": (50, 6, "text"), "EngineSize": (56, 13, "text"), "Transmission": (69, 13, "text"), "VIN": (82, 21, "text"),
    "LicenseNumber": (103, 11, "text"), "State": (114, 3, "text"), "VComment1": (117, 65, "text"),
    "VComment2": (182, 65, "text"), "VComment3": (247, 65, "text"), "VComment4": (312, 65, "text"),
    "Mileage": (377, 4, "long"), "Date": (381, 4, "long"), "FirstMileage": (385, 4, "long"),
    "FirstDate": (389, 4, "long"), "VLink": (393, 4, "long"),
}
MAKE_LENGTH = 29
MAKE = {"Name": (0, 21, "text"), "Prev": (21, 4, "long"), "Next": (25, 4, "long")}
EMPLOYEE_LENGTH = 199
EMPLOYEE = {
    "EmpNumber": (0, 4, "long"), "Name": (4, 32, "text"), "SocSecNum": (36, 15, "text"), "EmpAddr": (51, 33, "text"),
    "EmpCity": (84, 21, "text"), "EmpState": (105, 3, "text"), "EmpZip": (108, 11, "text"),
    "EmpPhone": (119, 15, "text"), "DateHired": (134, 4, "long"), "DateTerminated": (138, 4, "long"),
    "MaritalStatus": (142, 1, "byte"), "NumExemptions": (143, 1, "byte"), "FICAExempt": (144, 1, "byte"),
}
SYSTEM_LENGTH = 1038
SYSTEM = {
    "last_workorder_number": (0, 4, "long"), "last_estimate_number": (4, 4, "long"),
    "last_customer_number": (12, 4, "long"), "last_employee_number": (16, 4, "long"),
    "tax_rate": (24, 16, "longs"), "shop_rate": (40, 4, "long"), "company_name": (44, 32, "text"),
    "company_address": (76, 33, "text"), "company_city": (109, 21, "text"), "company_state": (130, 3, "text"),
    "company_zip": (133, 11, "text"), "company_phone1": (144, 15, "text"), "company_phone2": (159, 15, "text"),
    "fed_id_number": (174, 21, "text"), "state_id_number": (195, 21, "text"), "local_id_number": (216, 21, "text"),
    "markups": (237, 16, "longs"), "hand_msg1": (253, 79, "text"), "hand_msg2": (332, 79, "text"),
    "labor_surcharge_percent": (699, 4, "long"), "parts_surcharge_percent": (703, 4, "long"),
    "surcharge_description": (707, 79, "text"), "fleet_terms": (786, 79, "text"), "state_reg_number": (865, 21, "text"),
    "shell_command_line": (905, 79, "text"), "fleet_late_charge_percent": (985, 4, "long"),
    "extra_company_name": (990, 41, "text"), "surcharge_is_sublet": (1033, 1, "byte"),
}
# What the other program keeps in the system record: from, to.
FOREIGN_SYSTEM_BYTES = ((8, 12), (20, 24), (411, 699), (886, 905), (984, 985), (989, 990), (1031, 1033), (1034, 1038))
PASSWORD_LENGTH = 252
PASSWORD_WIDTH = 21
PASSWORD_SECTIONS = {"Workorders": 0, "Inventory Maintenance": 1, "Customer": 3, "Employee": 4, "Vendor": 5,
                     "System": 8, "Edit Menu": 11}

TABLES = """
CREATE TABLE Estimates (EstimateNumber INTEGER PRIMARY KEY, CustomerNumber INTEGER DEFAULT 0,
  VehicleLink INTEGER DEFAULT 0, SchedDate DATE, StartDate DATE, StopDate DATE, Status SMALLINT DEFAULT 0,
  Mechanic INTEGER DEFAULT 0, TotalPrice NUMERIC DEFAULT 0, Comments LONGTEXT,
  CreateDate DATE DEFAULT (date('now','localtime')), VehYear TEXT(5), VehMake TEXT(20), VehModel TEXT(20),
  VehVIN TEXT(20), VehLic TEXT(10), VehDate TEXT(10), VehMileage TEXT(7), VehEng TEXT(12), VehTrans TEXT(12));
CREATE TABLE Labors (EstimateNumber INTEGER, LaborNumber INTEGER, Description LONGTEXT, LaborHours INTEGER,
  LaborRate INTEGER, LaborTotal INTEGER, Mechanic INTEGER);
CREATE TABLE Parts (EstimateNumber INTEGER, PartNumber TEXT(20), PartDesc TEXT(38), Quantity INTEGER,
  PartPrice INTEGER, PartTotal INTEGER, PartCost INTEGER, PartList INTEGER);
CREATE TABLE Notes (EstimateNumber INTEGER, NoteNumber INTEGER, Desc1 TEXT(65), Desc2 TEXT(65), Desc3 TEXT(65),
  Desc4 TEXT(65), Desc5 TEXT(65), Desc6 TEXT(65), Desc7 TEXT(65), Desc8 TEXT(65));
CREATE TABLE Sublets (EstimateNumber INTEGER, SubletNumber INTEGER, VendorName TEXT(32), VendorInvoice TEXT(11),
  Cost INTEGER, Price INTEGER, Desc1 TEXT(65), Desc2 TEXT(65), Desc3 TEXT(65), Desc4 TEXT(65), Taxable TEXT(3),
  PRIMARY KEY (EstimateNumber, SubletNumber));
CREATE TABLE Waste (EstimateNumber INTEGER, WasteNumber INTEGER, VendorName TEXT(32), VendorInvoice TEXT(11),
  Cost INTEGER, Price INTEGER, Desc1 TEXT(65), Desc2 TEXT(65), Desc3 TEXT(65), Desc4 TEXT(65), Taxable TEXT(3),
  PRIMARY KEY (EstimateNumber, WasteNumber));
CREATE TABLE Checklist (EstimateNumber INTEGER, RecId INTEGER PRIMARY KEY AUTOINCREMENT, ChecklistData TEXT(255));
CREATE TABLE StandardHours (RecNum INTEGER PRIMARY KEY, SunHours NUMERIC, MonHours NUMERIC, TueHours NUMERIC,
  WedHours NUMERIC, ThuHours NUMERIC, FriHours NUMERIC, SatHours NUMERIC, FudgeFactor INTEGER);
CREATE TABLE SpecialDays (SpecialDate DATE, SpecialHours NUMERIC, SpecialDesc TEXT(50));
"""
KORVEL_TABLES = """
CREATE TABLE EmpPRInfo (EmployeeNumber INTEGER, AdditionalFederal INTEGER, AdditionalState INTEGER);
CREATE TABLE EmpPRHist (EmployeeNumber INTEGER, PayrollDate TEXT(10));
CREATE TABLE FollowUps (CustomerNumber INTEGER);
CREATE TABLE RepairCodes (RepairCode TEXT(6), RepairCodeDesc TEXT(50));
"""


def put(record, layout, **values):
    """Writes fields into a bytearray: what isn't named stays."""
    for name, value in values.items():
        offset, width, kind = layout[name]
        if kind == "long":
            struct.pack_into("<i", record, offset, value)
        elif kind == "longs":
            struct.pack_into(f"<{width // 4}i", record, offset, *value)
        elif kind == "integer":
            struct.pack_into("<h", record, offset, value)
        elif kind == "byte":
            record[offset] = value
        else:
            data = value.encode("cp1252") if isinstance(value, str) else value
            record[offset:offset + width] = data[:width].ljust(width, b"\0")
    return record


def take(record, layout):
    """All fields of a record; a text up to its first NUL, blanks kept."""
    fields = {}
    for name, (offset, width, kind) in layout.items():
        data = record[offset:offset + width]
        if kind == "long":
            fields[name] = struct.unpack("<i", data)[0]
        elif kind == "longs":
            fields[name] = struct.unpack(f"<{width // 4}i", data)
        elif kind == "integer":
            fields[name] = struct.unpack("<h", data)[0]
        elif kind == "byte":
            fields[name] = data[0]
        else:
            fields[name] = data.split(b"\0")[0].decode("cp1252")
    return fields


def file_date(date):
    """A date as the flat files have it; 0 is none."""
    if not date:
        return 0
    if isinstance(date, str):
        date = datetime.date.fromisoformat(date)
    return (date - datetime.date(1899, 12, 30)).days + FILE_DATE_BASE


def foreign_bytes(length):
    """A pattern with no two equal neighbours, never NUL: whatever moves or is lost shows."""
    return bytearray((i * 37 + 11) % 255 + 1 for i in range(length))


class Shop:
    """What a shop holds. Fill it, write() it, start the program on it, and read it back."""

    def __init__(self, directory, server=None):
        """With a database server, estimates lie there, and the shop's file names it."""
        self.directory = Path(directory)
        self.server = server
        place = self.directory / "Lantos.mdb"
        self.database = server.database_for(place) if server else FileDatabase(place)
        self.system = {
            "last_workorder_number": 5001, "last_estimate_number": 1001, "last_customer_number": 301,
            "last_employee_number": 11, "tax_rate": (82500, 0, 0, 0), "shop_rate": 6500,
            "company_name": "Miller's Garage", "company_address": "12 Main Street", "company_city": "Springfield",
            "company_state": "OH", "company_zip": "45501", "company_phone1": "937-555-0100",
            "markups": (0, 150000, 300000, 450000),
        }
        self.tags = bytearray()
        self.customers = bytearray()
        self.vehicles = bytearray()
        self.makes = bytearray()
        self.employees = bytearray()
        self.passwords = bytearray(PASSWORD_LENGTH)
        self.statements = []
        self.standard_hours = {"Sun": 0, "Mon": 16, "Tue": 16, "Wed": 16, "Thu": 16, "Fri": 16, "Sat": 0}
        self.fudge_factor = 10

    # Filling.

    def add_customer(self, number, last, first="", spouse="", spouse_last="", phone="", **fields):
        """The offset of the master record."""
        offset = len(self.customers)
        values = {"Number": number, "Lastname": last, "Firstname": first, "Spouse": spouse, "SpouseLast": spouse_last,
                  "HomePhone": phone, "pricing_level": RETAIL, "VLink": NO_LINK, **fields}
        self.customers += put(bytearray(CUSTOMER_LENGTH), CUSTOMER, **values)
        self.tags += put(bytearray(TAG_LENGTH), TAG, Number=number, NameKey=f"{last},{first}",
                         SpouseKey=f"{spouse_last},{spouse}", Offset=offset, Phone=phone)
        return offset

    def add_empty_tag(self):
        self.tags += bytearray(TAG_LENGTH)

    def add_vehicle(self, customer_offset, make="", model="", year="", date=None, **fields):
        """The newest of its customer's chain, and so the first. Its offset."""
        offset = len(self.vehicles)
        owner = take(self.customers[customer_offset:customer_offset + CUSTOMER_LENGTH], CUSTOMER)
        values = {"Number": owner["Number"], "Deleted": LIVE, "Make": make, "Model": model, "Year": year,
                  "Date": file_date(date), "VLink": owner["VLink"], **fields}
        self.vehicles += put(bytearray(VEHICLE_LENGTH), VEHICLE, **values)
        struct.pack_into("<i", self.customers, customer_offset + CUSTOMER["VLink"][0], offset)
        return offset

    def add_make(self, name, models=()):
        make = len(self.makes)
        links = [make + MAKE_LENGTH * (i + 1) for i in range(len(models))] + [NO_LINK]
        self.makes += put(bytearray(MAKE_LENGTH), MAKE, Name=name, Prev=NO_LINK, Next=links[0])
        for i, model in enumerate(models):
            self.makes += put(bytearray(MAKE_LENGTH), MAKE, Name=model, Prev=make + MAKE_LENGTH * i, Next=links[i + 1])

    def add_employee(self, number, name, terminated=None, **fields):
        ended = file_date(terminated) if terminated else -1
        values = {"EmpNumber": number, "Name": name, "DateHired": -1, "DateTerminated": ended, **fields}
        self.employees += put(bytearray(EMPLOYEE_LENGTH), EMPLOYEE, **values)

    def set_password(self, section, password):
        at = PASSWORD_SECTIONS[section] * PASSWORD_WIDTH
        self.passwords[at:at + PASSWORD_WIDTH] = password.encode("cp1252")[:PASSWORD_WIDTH].ljust(PASSWORD_WIDTH, b"\0")

    def add_row(self, table, **columns):
        names = ", ".join(columns)
        marks = ", ".join("?" for _ in columns)
        values = [str(value) if isinstance(value, datetime.date) else value for value in columns.values()]
        self.statements.append((f"INSERT INTO {table} ({names}) VALUES ({marks})", values))

    def add_estimate(self, number, date, status=0, customer=0, vehicle=NO_LINK, hours=None, **columns):
        """With one labor line of so many hours, when hours are given."""
        self.add_row("Estimates", EstimateNumber=number, SchedDate=date, Status=status, CustomerNumber=customer,
                     VehicleLink=vehicle, **columns)
        if hours is not None:
            self.add_labor(number, 1, "Labor", hours)

    def add_labor(self, estimate, line, description, hours, rate=6500, mechanic=0):
        hundredths = round(hours * 100)
        self.add_row("Labors", EstimateNumber=estimate, LaborNumber=line, Description=description,
                     LaborHours=hundredths, LaborRate=rate, LaborTotal=round(hundredths * rate / 100),
                     Mechanic=mechanic)

    def add_part(self, estimate, number, description, quantity, price, cost=0, price_list=0):
        self.add_row("Parts", EstimateNumber=estimate, PartNumber=number, PartDesc=description, Quantity=quantity,
                     PartPrice=price, PartTotal=quantity * price, PartCost=cost, PartList=price_list)

    def add_note(self, estimate, line, *texts):
        self.add_row("Notes", EstimateNumber=estimate, NoteNumber=line,
                     **{f"Desc{i + 1}": text for i, text in enumerate(texts)})

    def add_sublet(self, estimate, line, vendor, price, cost=0, taxable="No"):
        self.add_row("Sublets", EstimateNumber=estimate, SubletNumber=line, VendorName=vendor, Price=price, Cost=cost,
                     Taxable=taxable)

    def add_waste(self, estimate, line, vendor, price, cost=0, taxable="No"):
        self.add_row("Waste", EstimateNumber=estimate, WasteNumber=line, VendorName=vendor, Price=price, Cost=cost,
                     Taxable=taxable)

    def add_special_day(self, date, hours, description):
        self.add_row("SpecialDays", SpecialDate=date, SpecialHours=hours, SpecialDesc=description)

    # Writing.

    def system_record(self):
        record = foreign_bytes(SYSTEM_LENGTH)
        blank = {name: (b"" if kind == "text" else (0,) * (width // 4) if kind == "longs" else 0)
                 for name, (_, width, kind) in SYSTEM.items()}
        return put(record, SYSTEM, **{**blank, **self.system})

    def write(self):
        self.directory.mkdir(parents=True, exist_ok=True)
        for name, data in (("TQSYSTEM.DAT", self.system_record()), ("TQCSTTAG.DAT", self.tags),
                           ("TQCSTDAT.DAT", self.customers), ("TQVEHICL.DAT", self.vehicles),
                           ("TQMAKMOD.DAT", self.makes), ("TQEMPLOY.DAT", self.employees),
                           ("TQPASSWD.DAT", self.passwords), ("TQINVTAG.DAT", b"")):
            self.path(name).write_bytes(data)
        self.write_database()
        self.write_korvel_database()
        return self

    def write_database(self):
        days = [f"{day}Hours" for day in self.standard_hours]
        marks = ", ".join("?" for _ in range(len(days) + 2))
        self.database.make(TABLES)
        hours = (f"INSERT INTO StandardHours (RecNum, {', '.join(days)}, FudgeFactor) VALUES ({marks})",
                 [1, *self.standard_hours.values(), self.fudge_factor])
        self.database.execute([hours, *self.statements])

    def write_korvel_database(self):
        with contextlib.closing(sqlite3.connect(self.path("Korvel.mdb"))) as database:
            database.executescript(KORVEL_TABLES)
            database.commit()

    def write_profile(self, sections):
        """Lantos.ini, whole."""
        lines = []
        for section, values in sections.items():
            lines += [f"[{section}]"] + [f"{key}={value}" for key, value in values.items()]
        self.path("Lantos.ini").write_bytes("".join(line + "\r\n" for line in lines).encode("cp1252"))

    # Reading back.

    def path(self, name):
        return self.directory / name

    def read_system(self):
        return take(self.path("TQSYSTEM.DAT").read_bytes(), SYSTEM)

    def foreign_system_bytes(self):
        record = self.path("TQSYSTEM.DAT").read_bytes()
        return [record[first:last] for first, last in FOREIGN_SYSTEM_BYTES]

    def records(self, name, length, layout):
        data = self.path(name).read_bytes()
        return [take(data[at:at + length], layout) for at in range(0, len(data), length)]

    def read_tags(self):
        return self.records("TQCSTTAG.DAT", TAG_LENGTH, TAG)

    def read_customers(self):
        return self.records("TQCSTDAT.DAT", CUSTOMER_LENGTH, CUSTOMER)

    def read_vehicles(self):
        return self.records("TQVEHICL.DAT", VEHICLE_LENGTH, VEHICLE)

    def read_makes(self):
        return self.records("TQMAKMOD.DAT", MAKE_LENGTH, MAKE)

    def query(self, statement, *values):
        """Rows as dictionaries, read without touching anything."""
        return self.database.rows(statement, values)

    def estimate(self, number):
        rows = self.query("SELECT * FROM Estimates WHERE EstimateNumber = ?", number)
        return rows[0] if rows else None

    def names(self, pattern="*"):
        return sorted(path.name for path in self.directory.glob(pattern))

    def hashes(self, but=()):
        """Of every file by name: what a look must leave as it was."""
        return {path.name: hashlib.sha256(path.read_bytes()).hexdigest() for path in sorted(self.directory.iterdir())
                if path.is_file() and not any(path.match(pattern) for pattern in but)}

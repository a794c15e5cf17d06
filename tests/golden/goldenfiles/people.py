"""The shop itself, its customers, their vehicles, makes and models, employees, passwords and followups."""

from .layouts import (CUSTOMER, CUSTOMER_TAG, EMPLOYEE, FOLLOWUP, MAKE_MODEL, OPAQUE, PASSWORDS, PAYROLL, SYSTEM, VEHICLE,
                      file_date, pattern, record)


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
               Wage=1875, WagePeriod=1, Salary=0, SalaryPeriod=0, CommissionPeriod=2, Commission=125000,
               Insurance=2550, OvertimeExempt=1, Savings=1000, korvel1=pattern(4, 27), Uniform=725,
               korvel2=pattern(18, 35), PayrollHead=606),
        record(EMPLOYEE, EmpNumber=3, Name=b"Al\0gernon", SocSecNum="000-00-0003", DateHired=-1,
               DateTerminated=file_date(37000), MaritalStatus=0, NumExemptions=0, FICAExempt=1,
               Salary=250000, SalaryPeriod=4, korvel1=pattern(4, 114), korvel2=pattern(18, 122), PayrollHead=-1),
        record(EMPLOYEE, EmpNumber=7, Name="  Bert Wood", DateHired=file_date(35000), DateTerminated=-1,
               Wage=-2147483648, WagePeriod=255, Commission=2147483647, korvel1=pattern(4, 204),
               korvel2=pattern(18, 212), PayrollHead=0),
    ))


def make_payroll():
    """Employee 12 has 606 -> 0 -> 303, a record of an hour's wage, a salary and a commission; 909 is deleted."""
    opaque = {name: pattern(width, offset) for name, (offset, width, kind) in PAYROLL[2].items() if kind == OPAQUE}
    common = dict(EmployeeNumber=12, NumExemptions=2, Insurance=1500, Savings=2500, Uniform=450, **opaque)
    return b"".join((
        record(PAYROLL, PayrollDate=file_date(37883), Hours=4000, Gross=80000, FICA=4960, Medicare=1160, FUTA=64,
               SUTA=216, MaritalStatus=1, Salary=80000, SalaryPeriod=2, OvertimeExempt=1, NextRecord=303, **common),
        record(PAYROLL, PayrollDate=37876, Hours=0, Gross=12345678, MaritalStatus=0, Commission=125000,
               CommissionPeriod=4, FICAExempt=1, NextRecord=-1, **common),
        record(PAYROLL, PayrollDate=file_date(37890), Hours=4150, Gross=60000, FICA=3720, Medicare=870, FUTA=48,
               SUTA=162, MaritalStatus=0, Wage=1450, WagePeriod=1, NextRecord=0, **common),
        record(PAYROLL, EmployeeNumber=-1, PayrollDate=file_date(37869), Gross=1, NextRecord=0, **opaque),
    ))


def make_passwords():
    words = {0: "wrench  ", 1: "Stock", 2: "korvel2", 3: b"\0hidden", 4: "korvel4", 8: "x" * 21, 11: b"Edit\0older"}
    return record(PASSWORDS, **{"password_%d" % index: word for index, word in words.items()})


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

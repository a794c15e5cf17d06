"""The employees of a shop's directory and how they are paid, made and read without the program, and the roads to their
screens."""

import contextlib
import sqlite3

import pytest

from shopfiles import EMPLOYEE as PERSON
from shopfiles import EMPLOYEE_LENGTH, NO_LINK, file_date, put, take

EMPLOYEE_FILE = "TQEMPLOY.DAT"
EMPLOYEE = {
    **PERSON,
    "Wage": (145, 4, "long"), "WagePeriod": (149, 1, "byte"), "Salary": (150, 4, "long"),
    "SalaryPeriod": (154, 1, "byte"), "CommissionPeriod": (155, 1, "byte"), "Commission": (156, 4, "long"),
    "Insurance": (160, 4, "long"), "OvertimeExempt": (164, 1, "byte"), "Savings": (165, 4, "long"),
    "Uniform": (173, 4, "long"), "PayrollHead": (195, 4, "long"),
}
# What the other program keeps in the record.
FOREIGN = {169: b"held", 177: b"eighteen held ones"}
EMP_PR_INFO = ("CREATE TABLE EmpPRInfo (EmployeeNumber INTEGER PRIMARY KEY, AdditionalFederal INTEGER DEFAULT 0, "
               "AdditionalState INTEGER DEFAULT 0, AdditionalLocal INTEGER DEFAULT 0, PrintSSN BOOLEAN DEFAULT 0)")

BLANK = {"DateHired": -1, "DateTerminated": -1, "PayrollHead": NO_LINK}
ZOE = {**BLANK, "EmpNumber": 12, "Name": "Zoe Young", "SocSecNum": "000-00-0012", "EmpAddr": b"1 Mill Lane\0old",
       "EmpCity": "Springfield", "EmpState": "OH", "EmpZip": "45501", "EmpPhone": "937-555-0912",
       "DateHired": file_date("1998-07-24"), "MaritalStatus": 1, "NumExemptions": 2, "Wage": 1875, "WagePeriod": 1,
       "CommissionPeriod": 2, "Commission": 125000, "Insurance": 2550, "OvertimeExempt": 1, "Savings": 1000,
       "Uniform": 725, "PayrollHead": 606}
PAT = {**BLANK, "EmpNumber": 9, "Name": "Pat Old", "DateTerminated": file_date("2001-05-15")}
BERT = {**BLANK, "EmpNumber": 3, "Name": "bert Wood"}


def employee_record(fields, foreign=FOREIGN):
    record = bytearray(EMPLOYEE_LENGTH)
    for offset, held in foreign.items():
        record[offset:offset + len(held)] = held
    return bytes(put(record, EMPLOYEE, **fields))


def employee_bytes(shop):
    data = shop.path(EMPLOYEE_FILE).read_bytes()
    return [data[at:at + EMPLOYEE_LENGTH] for at in range(0, len(data), EMPLOYEE_LENGTH)]


def employee(shop, number):
    """The fields of one, by number."""
    found = [take(record, EMPLOYEE) for record in employee_bytes(shop)]
    return next(fields for fields in found if fields["EmpNumber"] == number)


@pytest.fixture
def staff(shop):
    """Zoe, who has pay records; Pat, who has left; Bert."""
    shop.system["last_employee_number"] = 14
    for person in (ZOE, PAT, BERT):
        shop.employees += employee_record(person)
    shop.write()
    with contextlib.closing(sqlite3.connect(shop.path("Korvel.mdb"))) as database:
        database.execute("DROP TABLE EmpPRInfo")
        database.execute(EMP_PR_INFO)
        database.commit()
    return shop


def pay_rows(shop):
    with contextlib.closing(sqlite3.connect(f"file:{shop.path('Korvel.mdb')}?mode=ro", uri=True)) as database:
        return database.execute("SELECT * FROM EmpPRInfo ORDER BY EmployeeNumber").fetchall()


def open_employees(copy):
    copy.menu("mnuMaintEmployees")
    return copy.expect_form("frmEmpMaint")


def choose(copy, text, control="EmpList"):
    return copy.select(control, text=text)


def open_pay(copy, name):
    """From the board to how this employee is paid."""
    open_employees(copy)
    choose(copy, name)
    copy.key("F7")
    return copy.expect_form("frmEmpPRInfo")

"""The pay records of a shop, made and read without the program, and the road to their screen."""

import contextlib
import datetime
import sqlite3
import struct

import pytest

from employeefiles import (BERT, EMPLOYEE_FILE, EMP_PR_INFO, ZOE, choose, employee, employee_bytes, employee_record,
                           open_employees)
from shopfiles import NO_LINK, file_date

PAY_FILE = "TQPAYROL.DAT"
PAY_LENGTH = 303
HEAD = 195  # of the chain, in the employee's record
NEXT = 299
LONGS = {"EmployeeNumber": 0, "PayrollDate": 4, "Hours": 8, "Gross": 12, "FICA": 17, "Medicare": 21, "FUTA": 25, "SUTA": 29,
         "Wage": 259, "Salary": 264, "Commission": 270, "Insurance": 274, "Savings": 279, "Uniform": 287, "NextRecord": NEXT}
BYTES = {"MaritalStatus": 256, "NumExemptions": 257, "FICAExempt": 258, "WagePeriod": 263, "SalaryPeriod": 268,
         "CommissionPeriod": 269}
COLUMNS = ("X", "Date", "Hours", "Gross", "FICA", "Medicare", "Futa", "Suta", "Federal", "State", "Local", "Addl Fed",
           "Addl State", "Addl Local", "Insurance", "Uniform", "Savings", "Net")
LOCKED = "Error 70: Permission denied\nPayroll file locked by another user.\nClick OK to try again."
EMP_PR_HIST = ("CREATE TABLE EmpPRHist (EmployeeNumber INTEGER, PayrollDate TEXT(10), AdditionalFederal INTEGER DEFAULT 0, "
               "AdditionalState INTEGER DEFAULT 0, AdditionalLocal INTEGER DEFAULT 0, "
               "PRIMARY KEY (EmployeeNumber, PayrollDate))")


def pay_record(**fields):
    """What isn't named is filled with bytes that nobody would write by chance, in the fields of the main application."""
    record = bytearray(1 + 7 * at % 250 for at in range(PAY_LENGTH))
    for name, at in LONGS.items():
        struct.pack_into("<i", record, at, fields.get(name, 0))
    for name, at in BYTES.items():
        record[at] = fields.get(name, 0)
    return bytes(record)


def long_at(data, at):
    return struct.unpack_from("<i", data, at)[0]


def with_long(data, at, value):
    return data[:at] + struct.pack("<i", value) + data[at + 4:]


def write_chain(shop, number, dates, **fields):
    """Behind what is there, the oldest first. The employee's head leads to the newest."""
    data = shop.path(PAY_FILE).read_bytes() if shop.path(PAY_FILE).exists() else b""
    link = NO_LINK
    for date in dates:
        record = pay_record(EmployeeNumber=number, PayrollDate=file_date(date), NextRecord=link, **fields)
        link = len(data)
        data += record
    shop.path(PAY_FILE).write_bytes(data)
    people = [with_long(record, HEAD, link) if long_at(record, 0) == number else record for record in employee_bytes(shop)]
    shop.path(EMPLOYEE_FILE).write_bytes(b"".join(people))


def chain(shop, number):
    """The places of an employee's records, from the newest on."""
    data = shop.path(PAY_FILE).read_bytes()
    at = employee(shop, number)["PayrollHead"]
    places = []
    while at != NO_LINK:
        assert at not in places and 0 <= at <= len(data) - PAY_LENGTH
        if long_at(data, at) == -1:
            break
        places.append(at)
        at = long_at(data, at + NEXT)
    return places


def korvel(shop, statement, *values):
    with contextlib.closing(sqlite3.connect(shop.path("Korvel.mdb"))) as database:
        rows = database.execute(statement, values).fetchall()
        database.commit()
    return rows


FRIDAYS = [datetime.date(2003, 8, 29) + datetime.timedelta(days=7 * i) for i in range(4)]


@pytest.fixture
def paid(shop):
    """Zoe Young was paid on the four Fridays up to 09/19/2003, in Texas; Bert Wood never was."""
    shop.system["company_state"] = "TX"
    for person in (BERT, {**ZOE, "PayrollHead": NO_LINK}):
        shop.employees += employee_record(person)
    shop.write()
    write_chain(shop, 12, FRIDAYS, Hours=4000, Gross=60000, FICA=3720, Medicare=870, FUTA=48, SUTA=162, Insurance=1500,
                Savings=2500, Uniform=450, Wage=1500, WagePeriod=1, NumExemptions=1)
    for table, statement in (("EmpPRInfo", EMP_PR_INFO), ("EmpPRHist", EMP_PR_HIST)):
        korvel(shop, f"DROP TABLE {table}")
        korvel(shop, statement)
    korvel(shop, "INSERT INTO EmpPRHist VALUES (12, '09/12/2003', 1000, 200, 30)")
    return shop


def open_history(copy, name):
    open_employees(copy)
    choose(copy, name)
    copy.key("F6")


def dates(copy):
    return [row["cells"]["Date"] for row in copy.control("ListView1")["rows"]]


def marks(copy):
    return [row["cells"]["X"] for row in copy.control("ListView1")["rows"]]

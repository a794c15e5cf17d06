"""How an employee is paid, and what is held back."""

import pytest

from employeefiles import (BERT, EMPLOYEE_FILE, PAT, ZOE, choose, employee_bytes, employee_record, open_employees,
                           open_pay, pay_rows, staff)
from screens import expect_changed_within, tell

TITLE = "Employee Payroll Info"


def test_every_field_is_shown_and_saved(start, staff):
    copy = start(staff)
    open_pay(copy, "Zoe Young")
    assert copy.answer["caption"] == TITLE and copy.text("EmpList") == "Zoe Young"
    shown = {"SocSecNum": "000-00-0012", "EmpAddr": "1 Mill Lane", "EmpCityStateZip": "Springfield, OH 45501",
             "Wage": "18.75", "WagePeriod": "Weekly", "OvertimeExempt": "Yes", "Salary": "0.00", "SalaryPeriod": "None",
             "Commission": "12.5000", "CommissionPeriod": "Two-weekly", "Insurance": "25.50", "Savings": "10.00",
             "Uniform": "7.25", "AddlFed": "0.00", "AddlState": "0.00", "AddlLocal": "0.00", "PrintSSN": "No"}
    assert {name: copy.text(name) for name in shown} == shown
    typed = {"Wage": "20", "Salary": "1000.005", "Commission": "12.5", "Insurance": "", "Savings": "3.14",
             "Uniform": "-1", "AddlFed": "10", "AddlState": "2.5", "AddlLocal": ".05"}
    for name, text in typed.items():
        copy.type(name, text)
    for name, text in {"WagePeriod": "None", "OvertimeExempt": "No", "SalaryPeriod": "Monthly",
                       "CommissionPeriod": "Daily", "PrintSSN": "Yes"}.items():
        choose(copy, text, name)
    copy.key("F10")
    copy.expect_form("frmEmpPRInfo")
    assert copy.caption("cmdCancel") == "Close"
    assert (copy.text("Commission"), copy.text("Insurance"), copy.text("Salary")) == ("12.5000", "0.00", "1000.00")
    stored = {**ZOE, "Wage": 2000, "WagePeriod": 0, "OvertimeExempt": 0, "Salary": 100000, "SalaryPeriod": 4,
              "Commission": 125000, "CommissionPeriod": 8, "Insurance": 0, "Savings": 314, "Uniform": -100}
    assert employee_bytes(staff) == [employee_record(stored), employee_record(PAT), employee_record(BERT)]
    assert pay_rows(staff) == [(12, 1000, 250, 5, 1)]


def test_an_address_and_a_wage_leave_each_others_bytes(start, staff):
    before = staff.path(EMPLOYEE_FILE).read_bytes()
    copy = start(staff)
    open_pay(copy, "Zoe Young")
    copy.type("Wage", "99.99")
    copy.key("F10")
    after = staff.path(EMPLOYEE_FILE).read_bytes()
    expect_changed_within(before, after, (145, 149))
    copy.key("Esc")
    copy.type("EmpAddr", "9 Mill Lane")
    copy.key("F10")
    expect_changed_within(after, staff.path(EMPLOYEE_FILE).read_bytes(), (51, 84))


def test_with_nobody_chosen_nothing_is_saved(start, staff):
    before = staff.path(EMPLOYEE_FILE).read_bytes()
    copy = start(staff)
    open_employees(copy)
    copy.key("F7")
    copy.expect_form("frmEmpPRInfo")
    copy.key("F10")
    tell(copy, "No employee selected.\nMust select an employee first.", TITLE)
    copy.key("Esc")
    copy.expect_form("frmEmpMaint")
    assert staff.path(EMPLOYEE_FILE).read_bytes() == before and pay_rows(staff) == []


def test_changes_are_asked_about(start, staff):
    copy = start(staff)
    open_pay(copy, "bert Wood")
    choose(copy, "Weekly", "WagePeriod")
    assert copy.caption("cmdCancel") == "Cancel"
    choose(copy, "Zoe Young")
    copy.expect_box("Discard changes?", TITLE, "question", ["Yes", "No"])
    copy.press("No")
    assert (copy.text("EmpList"), copy.text("WagePeriod")) == ("bert Wood", "Weekly")
    copy.key("Esc")
    copy.press("Yes")
    copy.expect_form("frmEmpMaint")


def test_without_the_other_database_the_rest_is_saved(start, staff):
    staff.path("Korvel.mdb").unlink()
    copy = start(staff)
    open_pay(copy, "Zoe Young")
    for name in ("AddlFed", "AddlState", "AddlLocal", "PrintSSN"):
        assert not copy.control(name)["enabled"], name
    copy.type("Wage", "20")
    copy.key("F10")
    copy.expect_form("frmEmpPRInfo")
    assert employee_bytes(staff)[0] == employee_record({**ZOE, "Wage": 2000})
    assert not staff.path("Korvel.mdb").exists()

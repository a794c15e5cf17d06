"""The people of the shop: their fields, new ones, other names, the end of one, by keys where a person would."""

import pytest

from employeefiles import (BERT, BLANK, EMPLOYEE_FILE, PAT, ZOE, choose, employee, employee_bytes, employee_record,
                           open_employees, staff)
from locks import denied_to_all
from screens import expect_changed_within, shared_files, tell
from shopfiles import file_date

NAMES = [" None", "bert Wood", "Pat Old", "Zoe Young"]
TITLE = "Employee Maintenance"


@pytest.fixture
def at_staff(start, staff):
    copy = start(staff)
    open_employees(copy)
    return copy


def test_the_list_has_nobody_first_and_the_active_only_when_asked(at_staff, staff):
    before = shared_files(staff)
    assert at_staff.answer["caption"] == TITLE and at_staff.answer["focus"] == "EmpList"
    assert at_staff.rows("EmpList") == NAMES and at_staff.text("EmpList") == " None"
    at_staff.key("Alt+O")
    assert at_staff.rows("EmpList") == [" None", "bert Wood", "Zoe Young"], "Pat has left"
    at_staff.key("Alt+O")
    assert at_staff.rows("EmpList") == NAMES
    at_staff.key("Esc")
    at_staff.expect_form("frmMain")
    assert shared_files(staff) == before, "looking writes nothing"


def test_an_empty_or_missing_file_has_nobody(start, shop):
    shop.write()
    copy = start(shop)
    open_employees(copy)
    assert copy.rows("EmpList") == [" None"]
    copy.key("F10")
    tell(copy, "No employee selected!", TITLE)


def test_every_field_is_shown_and_saved(at_staff, staff):
    choose(at_staff, "Zoe Young")
    shown = {"EmpNumber": "000012", "SocSecNum": "000-00-0012", "EmpAddr": "1 Mill Lane", "EmpCity": "Springfield",
             "EmpState": "OH", "EmpZip": "45501", "EmpPhone": "937-555-0912", "MaritalStatus": "Married",
             "NumExemptions": "2", "FICAExempt": "No", "DateHired": "07/24/1998", "DateTerminated": ""}
    assert {name: at_staff.text(name) for name in shown} == shown
    typed = {"SocSecNum": "1", "EmpAddr": "2 A", "EmpCity": "C\xf6ln", "EmpState": "NY", "EmpZip": "3", "EmpPhone": "4",
             "NumExemptions": "0", "DateHired": "2/29/00", "DateTerminated": "12/31/29"}
    for name, text in typed.items():
        at_staff.type(name, text)
    choose(at_staff, "Single", "MaritalStatus")
    choose(at_staff, "Yes", "FICAExempt")
    assert at_staff.caption("cmdCancel") == "Cancel"
    at_staff.key("F10")
    at_staff.expect_form("frmEmpMaint")
    assert at_staff.caption("cmdCancel") == "Close" and at_staff.text("EmpList") == "Zoe Young"
    assert (at_staff.text("DateHired"), at_staff.text("DateTerminated")) == ("02/29/2000", "12/31/2029")
    stored = {**ZOE, **typed, "MaritalStatus": 0, "FICAExempt": 1, "NumExemptions": 0,
              "DateHired": file_date("2000-02-29"), "DateTerminated": file_date("2029-12-31")}
    assert employee_bytes(staff) == [employee_record(stored), employee_record(PAT), employee_record(BERT)]


def test_a_change_of_one_field_leaves_every_other_byte(at_staff, staff):
    before = staff.path(EMPLOYEE_FILE).read_bytes()
    choose(at_staff, "Zoe Young")
    at_staff.type("EmpZip", "97331-0001")
    at_staff.click("cmdSave")
    expect_changed_within(before, staff.path(EMPLOYEE_FILE).read_bytes(), (108, 119))


def test_an_impossible_date_is_refused_and_keeps_the_focus(at_staff, staff):
    before = staff.path(EMPLOYEE_FILE).read_bytes()
    choose(at_staff, "bert Wood")
    at_staff.type("DateHired", "02/30/2001")
    at_staff.key("Tab")
    tell(at_staff, "Invalid Date", TITLE)
    assert at_staff.answer["focus"] == "DateHired" and at_staff.text("DateHired") == "02/30/2001"
    at_staff.key("F10")
    tell(at_staff, "Invalid Date", TITLE)
    at_staff.type("DateHired", "9/5/30")
    at_staff.key("Tab")
    assert at_staff.answer["focus"] == "DateTerminated" and at_staff.text("DateHired") == "09/05/1930"
    at_staff.key("Esc")
    at_staff.expect_box("Discard changes?", TITLE, "question", ["Yes", "No"])
    at_staff.press("Yes")
    at_staff.expect_form("frmMain")
    assert staff.path(EMPLOYEE_FILE).read_bytes() == before


def test_changes_are_asked_about_before_another_is_chosen(at_staff):
    choose(at_staff, "Zoe Young")
    at_staff.type("EmpCity", "Nowhere")
    choose(at_staff, "Pat Old")
    at_staff.expect_box("Discard changes?", TITLE, "question", ["Yes", "No"])
    at_staff.press("No")
    assert (at_staff.text("EmpList"), at_staff.text("EmpCity")) == ("Zoe Young", "Nowhere")
    choose(at_staff, "Pat Old")
    at_staff.press("Yes")
    assert (at_staff.text("EmpNumber"), at_staff.text("DateTerminated")) == ("000009", "05/15/2001")


def test_a_new_employee_and_another_name(at_staff, staff):
    at_staff.key("Insert")
    at_staff.expect_form("frmEmpNew")
    assert at_staff.answer["caption"] == "New Employee" and at_staff.answer["focus"] == "EmpName"
    at_staff.type("EmpName", "Mia North")
    at_staff.key("Enter")
    at_staff.expect_form("frmEmpMaint")
    assert (at_staff.text("EmpList"), at_staff.text("EmpNumber")) == ("Mia North", "000014")
    assert at_staff.answer["focus"] == "SocSecNum", "where the hand goes on"
    mia = {**BLANK, "EmpNumber": 14, "Name": "Mia North"}
    assert employee_bytes(staff)[3] == employee_record(mia, foreign={})
    assert staff.read_system()["last_employee_number"] == 15
    at_staff.key("Alt+R")
    at_staff.expect_form("frmEmpNew")
    assert at_staff.answer["caption"] == "Change Employee Name" and at_staff.text("txtOriginal") == "Mia North"
    at_staff.type("EmpName", "A. North")
    at_staff.key("F10")
    at_staff.expect_form("frmEmpMaint")
    assert at_staff.rows("EmpList") == [" None", "A. North", "bert Wood", "Pat Old", "Zoe Young"]
    assert (at_staff.text("EmpList"), at_staff.text("EmpNumber")) == ("A. North", "000014")
    assert employee_bytes(staff)[3] == employee_record({**mia, "Name": "A. North"}, foreign={})


def test_an_employee_with_pay_records_stays_and_another_can_be_deleted(at_staff, staff):
    before = staff.path(EMPLOYEE_FILE).read_bytes()
    at_staff.key("Alt+D")
    tell(at_staff, "No employee selected - can not delete.", TITLE)
    choose(at_staff, "Zoe Young")
    at_staff.key("Alt+D")
    tell(at_staff, "Can not delete - this employee has P/R info on file.", TITLE)
    choose(at_staff, "Pat Old")
    for answer in ("No", "Yes"):
        assert staff.path(EMPLOYEE_FILE).read_bytes() == before
        at_staff.key("Alt+D")
        at_staff.expect_box('Are you sure you wish to delete this employee?\nThis action can not be "un-done"!', TITLE,
                            "question", ["Yes", "No"])
        at_staff.press(answer)
    assert at_staff.rows("EmpList") == [" None", "bert Wood", "Zoe Young"] and at_staff.text("EmpList") == " None"
    assert at_staff.answer["focus"] == "EmpList"
    assert employee_bytes(staff) == [employee_record(ZOE), employee_record(BERT)]


def test_a_held_file_ends_the_save_and_keeps_what_was_typed(at_staff, staff):
    choose(at_staff, "bert Wood")
    at_staff.type("EmpCity", "Dayton")
    with denied_to_all(staff.path(EMPLOYEE_FILE)):
        at_staff.key("F10")
        assert at_staff.answer["waiting"] == "box" and "Permission denied" in at_staff.answer["text"]
        at_staff.press("OK")
    assert at_staff.text("EmpCity") == "Dayton"
    at_staff.key("F10")
    at_staff.expect_form("frmEmpMaint")
    assert employee(staff, 3)["EmpCity"] == "Dayton"

"""Several copies on one file of employees, and copies killed in the middle of it."""

import json
import random
import threading

from copysteps import copies, kill_within
from employeefiles import (BERT, EMPLOYEE_FILE, PAT, ZOE, choose, employee, employee_bytes, employee_record,
                           open_employees, open_pay, staff)
from shopfiles import EMPLOYEE_LENGTH


def running(copies, shop, count):
    return [copies(shop, computer=f"BENCH{i}", settings=copies.home / f"settings{i}") for i in range(count)]


def test_two_copies_that_change_two_fields_of_one_employee_lose_nothing(copies, staff):
    first, second = running(copies, staff, 2)
    open_employees(first)
    choose(first, "Zoe Young")
    open_pay(second, "Zoe Young")
    first.type("EmpAddr", "9 Mill Lane")
    second.type("Wage", "20")
    first.key("F10")
    second.key("F10")
    first.type("EmpCity", "Xenia")
    first.key("F10")
    stored = {**ZOE, "EmpAddr": b"9 Mill Lane", "EmpCity": "Xenia", "Wage": 2000}
    assert employee_bytes(staff) == [employee_record(stored), employee_record(PAT), employee_record(BERT)]


def test_copies_that_save_at_once_lose_nothing(copies, staff):
    failures = []

    def save_all(copy, field, box):
        try:
            for i in range(25):
                copy.type(field, str(i + 1))
                copy.key("F10")
                while copy.answer.get("waiting") == "box":  # the other one had the file for all of the patience
                    copy.press("OK")
                    copy.key("F10")
                copy.expect_form(box)
        except Exception as failure:  # told in the test's own thread
            failures.append(failure)

    first, second = running(copies, staff, 2)
    open_employees(first)
    choose(first, "bert Wood")
    open_pay(second, "bert Wood")
    threads = [threading.Thread(target=save_all, args=arguments)
               for arguments in ((first, "EmpZip", "frmEmpMaint"), (second, "Wage", "frmEmpPRInfo"))]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not failures, failures[0]
    assert employee_bytes(staff)[2] == employee_record({**BERT, "EmpZip": "25", "Wage": 2500})
    assert employee_bytes(staff)[:2] == [employee_record(ZOE), employee_record(PAT)]


def test_a_change_finds_its_employee_after_another_copy_has_deleted_one(copies, staff):
    first, second = running(copies, staff, 2)
    open_employees(first)
    choose(first, "bert Wood")
    first.type("EmpCity", "Xenia")
    open_employees(second)
    choose(second, "Pat Old")
    second.key("Alt+D")
    second.press("Yes")
    first.key("F10")
    first.expect_form("frmEmpMaint")
    assert first.rows("EmpList") == [" None", "bert Wood", "Zoe Young"]
    assert employee_bytes(staff) == [employee_record(ZOE), employee_record({**BERT, "EmpCity": "Xenia"})]


def test_kills_leave_whole_records(copies, staff):
    moments = random.Random(7)
    for round_ in range(4):
        victim = copies(staff)
        open_employees(victim)
        lines = []
        for i in range(5):
            lines += [{"do": "key", "key": "Insert"},
                      {"do": "type", "control": "EmpName", "text": f"Worker {round_}.{i}"},
                      {"do": "key", "key": "F10"}]
        kill_within(victim, [json.dumps(line) for line in lines], moments.uniform(0, 0.15))
        assert staff.path(EMPLOYEE_FILE).stat().st_size % EMPLOYEE_LENGTH == 0
    records = employee_bytes(staff)
    assert records[:3] == [employee_record(each) for each in (ZOE, PAT, BERT)]
    numbers = [employee(staff, int.from_bytes(record[:4], "little"))["EmpNumber"] for record in records]
    assert len(set(numbers)) == len(numbers), "no number twice"

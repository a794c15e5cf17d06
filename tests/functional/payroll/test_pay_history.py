"""An employee's pay records: the list, deleting, the stub."""

import os
import random
import time

from driver import Settings
from locks import denied_to_all
from payfiles import (COLUMNS, FRIDAYS, HEAD, LOCKED, NEXT, PAY_FILE, PAY_LENGTH, chain, dates, korvel, long_at, marks,
                      open_history, paid, with_long, write_chain)
from printsteps import jobs, text_of
from screens import shared_files, tell

HISTORY = "frmEmpPRHist"
NEWEST = 3 * PAY_LENGTH


def at_history(start, shop, name="Zoe Young"):
    copy = start(shop)
    open_history(copy, name)
    copy.expect_form(HISTORY)
    return copy


def test_the_list_reads_as_the_records_are(start, paid):
    copy = start(paid)
    before = shared_files(paid)
    open_history(copy, "Zoe Young")
    copy.expect_form(HISTORY)
    assert copy.answer["caption"] == "Employee Payroll History"
    rows = [row["cells"] for row in copy.control("ListView1")["rows"]]
    assert [tuple(row) for row in rows] == [COLUMNS] * 4
    assert dates(copy) == ["09/19/2003", "09/12/2003", "09/05/2003", "08/29/2003"]
    # 600.00 a week, single, one exemption: 31200 - 3100 a year, 3465.00 / 52.
    assert rows[1] == {
        "X": "", "Date": "09/12/2003", "Hours": "40.00", "Gross": "600.00", "FICA": "37.20", "Medicare": "8.70",
        "Futa": "0.48", "Suta": "1.62", "Federal": "66.63", "State": "0.00", "Local": "0.00", "Addl Fed": "10.00",
        "Addl State": "2.00", "Addl Local": "0.30", "Insurance": "15.00", "Uniform": "4.50", "Savings": "25.00",
        "Net": "430.67"}
    assert copy.caption("MsgLabel") == ""
    copy.key("Esc")
    copy.expect_form("frmEmpMaint")
    assert shared_files(paid) == before, "looking writes nothing"


def test_an_employee_who_was_never_paid_has_an_empty_list(start, paid):
    copy = at_history(start, paid, "bert Wood")
    assert dates(copy) == [] and copy.caption("MsgLabel") == "No payroll records found."
    assert not copy.control("cmdDelete")["enabled"] and not copy.control("cmdPrint")["enabled"]
    copy.key("Esc")


def test_what_has_no_table_is_empty_and_named(start, paid):
    write_chain(paid, 12, [FRIDAYS[0].replace(year=1999)], Gross=60000, WagePeriod=1)
    copy = at_history(start, paid)
    row = copy.control("ListView1")["rows"][0]["cells"]
    assert [row[name] for name in ("Federal", "State", "Local", "Net")] == [""] * 4
    assert copy.caption("MsgLabel").startswith("No withholding table: federal 1999; state TX 1999; local TX 1999.")
    assert copy.caption("MsgLabel").endswith("withholding\\<year>.txt.")
    copy.key("Esc")


def test_the_shops_own_file_goes_first(start, paid):
    paid.path("withholding").mkdir()
    paid.path("withholding/2003.txt").write_text("state TX\nsource the mayor\nrate 1.5%\n")
    copy = at_history(start, paid)
    row = copy.control("ListView1")["rows"][0]["cells"]
    assert (row["Federal"], row["State"]) == ("66.63", "9.00")
    copy.key("Esc")


def test_deleting_the_newest_moves_the_employees_head(start, paid):
    copy = at_history(start, paid)
    pays, people = paid.path(PAY_FILE).read_bytes(), paid.path("TQEMPLOY.DAT").read_bytes()
    copy.key("Delete")
    assert marks(copy) == ["X", "", "", ""] and copy.caption("cmdCancel") == "Cancel"
    copy.key("F10")
    copy.expect_form(HISTORY)
    assert dates(copy) == ["09/12/2003", "09/05/2003", "08/29/2003"] and copy.caption("cmdCancel") == "Close"
    assert paid.path(PAY_FILE).read_bytes() == with_long(pays, NEWEST, -1)
    assert paid.path("TQEMPLOY.DAT").read_bytes() == with_long(people, 199 + HEAD, 2 * PAY_LENGTH)
    assert "frmEmpPRHist/Save: Opened TQPAYROL.DAT (update,fp=" in " ".join(copy.log_lines())
    copy.key("Esc")


def test_deleting_a_middle_one_changes_the_link_in_front_of_it(start, paid):
    copy = at_history(start, paid)
    pays, people = paid.path(PAY_FILE).read_bytes(), paid.path("TQEMPLOY.DAT").read_bytes()
    copy.key("Down")
    copy.key("Delete")
    copy.click("cmdSave")
    assert dates(copy) == ["09/19/2003", "09/05/2003", "08/29/2003"]
    assert paid.path(PAY_FILE).read_bytes() == with_long(with_long(pays, 2 * PAY_LENGTH, -1), NEWEST + NEXT, PAY_LENGTH)
    assert paid.path("TQEMPLOY.DAT").read_bytes() == people
    assert korvel(paid, "SELECT * FROM EmpPRHist") == [], "the additional withholding of 09/12/2003 went along"
    copy.key("Esc")


def test_neighbours_go_together(start, paid):
    copy = at_history(start, paid)
    for key in ("Down", "Delete", "Down", "Delete", "F10"):
        copy.key(key)
    assert dates(copy) == ["09/19/2003", "08/29/2003"]
    assert chain(paid, 12) == [NEWEST, 0]
    copy.key("Esc")


def test_marks_are_asked_about(start, paid):
    copy = at_history(start, paid)
    before = shared_files(paid)
    copy.key("Delete")
    copy.key("Esc")
    copy.expect_box("Discard changes?", "Employee Payroll History", "question", ["Yes", "No"])
    copy.press("No")
    copy.expect_form(HISTORY)
    copy.close()
    copy.expect_box("Discard changes?")
    copy.press("Yes")
    copy.expect_form("frmEmpMaint")
    assert shared_files(paid) == before


def test_a_held_file_is_asked_about_until_it_is_free(start, paid):
    copy = at_history(start, paid)
    copy.key("Delete")
    with denied_to_all(paid.path(PAY_FILE)):
        copy.key("F10")
        copy.expect_box(LOCKED, "Employee Payroll History", buttons=["OK"])
        copy.press("OK")
        copy.expect_box(LOCKED)
    copy.press("OK")
    copy.expect_form(HISTORY)
    assert chain(paid, 12) == [2 * PAY_LENGTH, PAY_LENGTH, 0]
    copy.key("Esc")


def test_a_damaged_chain_ends_with_a_message(start, paid):
    pays = paid.path(PAY_FILE).read_bytes()
    paid.path(PAY_FILE).write_bytes(with_long(pays, PAY_LENGTH + NEXT, NEWEST))
    copy = start(paid)
    open_history(copy, "Zoe Young")
    tell(copy, "The pay records of Zoe Young are damaged: one leads back to the record at 909, which stands before it.\n"
               "Only those in front of it are listed.", "Employee Payroll History")
    copy.expect_form(HISTORY)
    assert len(dates(copy)) == 3
    copy.key("Esc")


def test_a_broken_database_leaves_the_records_to_be_seen(start, paid):
    copy = start(paid)
    paid.path("Korvel.mdb").write_bytes(b"nothing that a database is" * 100)
    open_history(copy, "Zoe Young")
    copy.expect_form(HISTORY)
    row = copy.control("ListView1")["rows"][1]["cells"]
    assert [row[name] for name in ("Gross", "Federal", "Addl Fed", "Net")] == ["600.00", "66.63", "", ""]
    assert copy.caption("MsgLabel") == "The additional withholding can't be read from Korvel.mdb."
    copy.key("Esc")


def test_the_stub_says_what_the_list_says(start, paid):
    copy = at_history(start, paid)
    copy.key("Down")
    copy.click("chkIncludeSSN")
    copy.key("F1")
    copy.expect_box("Print pay stub with SSN for Zoe Young?", "Employee Payroll History", "question", ["Yes", "No"])
    copy.press("Yes")
    copy.expect_form(HISTORY)
    (job,) = jobs(copy)
    lines = [line.rstrip() for line in text_of(job)]
    assert lines[2].startswith("Miller's Garage") and lines[2].endswith("Payroll Stub")
    assert lines[3:] == [
        "09/30/2003", "====================================================", "Payroll date        : 09/12/2003",
        "SSN                 : 000-00-0012", "Employee            : Zoe Young", "Address             : 1 Mill Lane",
        "City, ST ZIP        : Springfield, OH 45501", "Phone               : 937-555-0912",
        "Marital Status      : Single", "Exemptions          : 1", "FICA Exempt         : No",
        "Pay Period          : Weekly", "Pay is              : Hourly", "Wage ($/hour)       : $15.00",
        "Hours               : 40.00", "Taxable Gross Pay   : $600.00 [YTD: $1,800.00]",
        "FICA Deduction      : $37.20 [YTD: $111.60]", "Medicare Deduction  : $8.70 [YTD: $26.10]",
        "FUTA                : $0.48 [YTD: $1.44]", "SUTA                : $1.62 [YTD: $4.86]",
        "Federal Withholding : $66.63 [YTD: $199.89]", "State Withholding   : $0.00 [YTD: $0.00]",
        "Local Withholding   : $0.00 [YTD: $0.00]", "Additional Federal  : $10.00 [YTD: $10.00]",
        "Additional State    : $2.00 [YTD: $2.00]", "Additional Local    : $0.30 [YTD: $0.30]",
        "Insurance Deduction : $15.00 [YTD: $45.00]", "Uniform Deduction   : $4.50 [YTD: $13.50]",
        "401K Deduction      : $0.00 [YTD: $0.00]", "Savings Deduction   : $25.00 [YTD: $75.00]",
        "====================================================", "Net Payroll         : $430.67 [YTD: $1,316.61]"]
    copy.key("Delete")
    copy.key("Alt+F2")
    tell(copy, "Can't print pay-stub for deleted item.")
    copy.key("Esc")
    copy.press("Yes")


def test_the_place_of_the_window_is_kept(start, paid, tmp_path):
    copy = at_history(start, paid)
    copy.key("Esc")
    copy.expect_form("frmEmpMaint")
    settings = Settings(tmp_path / "settings")
    assert [settings.read("Lantos", HISTORY + key) for key in ("Width", "Height", "State")] == ["15180", "6600", "0"]


def test_kills_in_the_middle_of_deleting_leave_the_chain_whole(start, paid):
    """The copy is ended at random moments of a save of many; whoever wasn't marked is still on the chain, in order."""
    count, chance = 120, random.Random(7)
    for _ in range(int(os.environ.get("LANTOS_KILLS", "4"))):
        paid.path(PAY_FILE).unlink()
        write_chain(paid, 12, [FRIDAYS[0]] * count, Gross=60000, WagePeriod=1)
        copy = at_history(start, paid)
        for row in range(0, count, 2):
            copy.select("ListView1", row=row)
            copy.key("Delete")
        copy.process.stdin.write('{"do": "key", "key": "F10"}\n')
        copy.process.stdin.flush()
        time.sleep(chance.uniform(0, 0.03))
        copy.kill()
        left = chain(paid, 12)
        kept = [PAY_LENGTH * at for at in range(count - 2, -1, -2)]
        assert [at for at in left if at in kept] == kept
        assert left == sorted(left, reverse=True)
        assert all(long_at(paid.path(PAY_FILE).read_bytes(), at) == 12 for at in left)

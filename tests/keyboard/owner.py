#!/usr/bin/python3
"""A day of the owner by keyboard alone, in real windows: looks things up, keeps the people and their pay, sets the
shop's own data. Prints the count of keys; fails when there were too many.

    tests/keyboard/owner.py
"""

import datetime
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "functional/support")]
from desk import play_day, until  # noqa: E402
from employeefiles import employee, employee_bytes, pay_rows  # noqa: E402
from payfiles import chain, write_chain  # noqa: E402
from printsteps import pdf_pages, without_blanks  # noqa: E402
from shopfiles import PASSWORD_SECTIONS, PASSWORD_WIDTH, Shop, file_date  # noqa: E402
from workorderfiles import active_tags, archived_tags  # noqa: E402

# Somebody who knows the program needs no more, the letters of names, numbers and passwords among them.
MOST_KEYS = 155

PASSWORD = "boss"
PAID = 3  # the technician who has pay records
FRIDAYS = [datetime.date(2003, 8, 29) + datetime.timedelta(days=7 * week) for week in range(5)]
CUSTOMER = "GOODWIN"


def prepare(folder):
    """Passwords before the people and the shop's data, and a technician who was paid."""
    shop = Shop(folder)
    passwords = bytearray(shop.path("TQPASSWD.DAT").read_bytes())
    for section in ("Employee", "System"):
        at = PASSWORD_SECTIONS[section] * PASSWORD_WIDTH
        passwords[at:at + len(PASSWORD)] = PASSWORD.encode()
    shop.path("TQPASSWD.DAT").write_bytes(passwords)
    write_chain(shop, PAID, FRIDAYS, Hours=4000, Gross=160000, FICA=9920, Medicare=2320, Wage=4000, WagePeriod=1)


def unlock(desk, section, title):
    desk.expect(f"Enter {section} Password")
    desk.type(PASSWORD)
    desk.press("Return")
    desk.expect(title)


def look_at_hours(desk):
    """Of a day on, of those who have any; the choice is kept."""
    desk.press("alt+c", "t")
    desk.expect("Technician Hours")
    desk.press("alt+Right", "alt+o", "Down", "Escape")
    desk.expect("Lantos: ")
    kept = desk.folder / "config/lantos/Lantos.conf"
    until(lambda: kept.exists() and "frmTechHoursShowSched=True" in kept.read_text(), "the tick wasn't kept")


def find_an_estimate(desk, shop):
    """The first of a customer, who is found by the first letters of the name; the board goes there."""
    tags = sorted((tag["NameKey"].upper(), tag["Number"]) for tag in shop.read_tags())
    number = next(number for name, number in tags if name.startswith(CUSTOMER))
    rows = shop.query("select EstimateNumber from Estimates where CustomerNumber = ? order by SchedDate", number)
    desk.press("alt+i")
    desk.expect("Find")
    desk.type(CUSTOMER[:5].lower())
    desk.press("Return", "Down", "Return")
    desk.expect("Lantos: ")
    desk.press("alt+g")
    desk.expect(f"Change Status - Est. # {rows[0]['EstimateNumber']:06}")
    desk.press("Escape")
    desk.expect("Lantos: ")


def hits_of(shop, vin):
    """Numbers of the work orders that a search for it finds, in its order."""
    active = [tag["WorkorderNumber"] for tag in reversed(active_tags(shop)) if tag["WorkorderNumber"] and vin in tag["VIN"]]
    return active + [tag["WorkorderNumber"] for tag in reversed(archived_tags(shop))
                     if tag["MasterOffset"] != -1 and vin in tag["VIN"]]


def some_vin(shop):
    """The end of one that the shop has worked on more than once."""
    return next(tag["VIN"][-6:] for tag in archived_tags(shop)
                if len(tag["VIN"]) == 17 and len(hits_of(shop, tag["VIN"][-6:])) > 1)


def look_back(desk, shop):
    """At what was done to a car: on to the second work order, back to the first, its costs, its paper."""
    vin = some_vin(shop)
    newest, older = hits_of(shop, vin)[:2]
    desk.press("alt+y")
    desk.expect("Workorder History")
    desk.press("Tab")
    desk.type(vin)
    desk.press("Return")
    desk.expect("Workorder History by VIN #")
    desk.press("Return", "alt+F2")
    desk.expect(f"Workorder {older}")
    desk.press("Escape")
    desk.expect("Workorder History by VIN #")
    desk.press("alt+p")
    desk.press_with("alt", "F4")  # the costs, and not the end of the window
    desk.press("alt+F2")
    desk.expect(f"Workorder {newest}")
    desk.press("ctrl+p")
    paper = print_to_file(desk, f"Workorder {newest}")
    assert str(newest) in paper, paper
    desk.expect(f"Workorder {newest}")
    desk.press("Escape")
    desk.expect("Workorder History by VIN #")
    desk.press("Escape")
    desk.expect("Lantos: ")


def print_to_file(desk, title):
    """From the dialog of a computer without printers and without a folder for documents; the text on the paper, without
    blanks."""
    desk.expect(f"Print {title}")
    desk.press("Return")
    file = desk.folder / f"{title}.pdf"
    until(lambda: file.exists() and file.read_bytes().rstrip().endswith(b"%%EOF"), f"no {file.name} was printed")
    return without_blanks("".join("".join(page) for page in pdf_pages(file)))


def add_an_employee(desk, shop):
    """Somebody new, with a date that no calendar has at first; then how she is paid."""
    known = {person["EmpNumber"] for person in people(shop)}
    desk.press("Insert")
    desk.expect("New Employee")
    desk.type("Zoe Zimmer")
    desk.press("Return")
    desk.expect("Employee Maintenance")
    number = until(lambda: {person["EmpNumber"] for person in people(shop)} - known, "nobody was added").pop()
    desk.type("000-00-0012")  # the focus is behind the number
    desk.press("alt+h")
    desk.type("2/30/2001")
    editor = desk.window()
    desk.press("Tab")
    desk.expect_other(editor)
    desk.press("Return")  # Invalid Date
    desk.expect("Employee Maintenance")
    desk.type("2/28/01")  # in its place
    desk.press("F10")
    zoe = until(lambda: employee(shop, number)["DateHired"] != -1 and employee(shop, number), "no date was saved")
    assert zoe["DateHired"] == file_date("2001-02-28") and zoe["SocSecNum"] == "000-00-0012", zoe
    assert zoe["Name"] == "Zoe Zimmer"
    return number


def people(shop):
    return [employee(shop, int.from_bytes(record[:4], "little", signed=True)) for record in employee_bytes(shop)]


def set_up_pay(desk, shop, number):
    desk.press("F7")
    desk.expect("Employee Payroll Info")
    desk.press("alt+w")
    desk.type("18.5")
    desk.press("Tab", "Down")  # weekly
    desk.press("alt+f")
    desk.type("5")
    desk.press("F10")
    zoe = until(lambda: employee(shop, number)["Wage"] and employee(shop, number), "no wage was saved")
    assert (zoe["Wage"], zoe["WagePeriod"]) == (1850, 1), zoe
    until(lambda: [row[:2] for row in pay_rows(shop) if row[0] == number] == [(number, 500)], "no additional withholding")
    desk.press("Escape")
    desk.expect("Employee Maintenance")


def keep_pay_records(desk, shop):
    """Two neighbours go, and the newest of those that stay is printed."""
    before = chain(shop, PAID)
    assert len(before) == len(FRIDAYS)
    desk.press("alt+y")
    desk.type(employee(shop, PAID)["Name"][:2].lower())
    desk.press("F6")
    desk.expect("Employee Payroll History")
    desk.press("Down", "Delete", "Down", "alt+d", "F10")
    until(lambda: chain(shop, PAID) == [before[0], *before[3:]], "the chain isn't what is left")
    history = desk.window()
    desk.press("F1")
    desk.expect_other(history)
    desk.press("Return")  # the question
    paper = print_to_file(desk, "Payroll Stub")
    assert f"Payrolldate:{FRIDAYS[-1]:%m/%d/%Y}" in paper, paper
    assert "TaxableGrossPay:$1,600.00[YTD:$4,800.00]" in paper, paper
    desk.expect("Employee Payroll History")
    desk.press("Escape")
    desk.expect("Employee Maintenance")


def keep_people(desk, shop):
    desk.press("alt+m", "e")
    unlock(desk, "Employee", "Employee Maintenance")
    number = add_an_employee(desk, shop)
    set_up_pay(desk, shop, number)
    keep_pay_records(desk, shop)
    desk.press("Escape")
    desk.expect("Lantos: ")


def set_the_shops_data(desk, shop):
    before = shop.read_system()
    desk.press("alt+m", "s", "c")
    unlock(desk, "System", "Company Info")
    desk.press("alt+2")
    desk.type("541-555-0199")
    desk.press("F10")
    desk.expect("Lantos: ")
    until(lambda: shop.read_system()["company_phone2"] == "541-555-0199", "no telephone was saved")
    desk.press("alt+m", "s", "p")
    unlock(desk, "System", "System Parameters")
    desk.type("92.5")
    desk.press("F10")
    desk.expect("Lantos: ")
    until(lambda: shop.read_system()["shop_rate"] == 9250, "no rate was saved")
    assert shop.read_system() == {**before, "company_phone2": "541-555-0199", "shop_rate": 9250}, "more than that was saved"


def work(desk):
    shop = Shop(desk.shop)
    look_at_hours(desk)
    find_an_estimate(desk, shop)
    look_back(desk, shop)
    keep_people(desk, shop)
    set_the_shops_data(desk, shop)


def main():
    return play_day("the owner's", work, MOST_KEYS, prepare)


if __name__ == "__main__":
    sys.exit(main())

"""Several copies on one system record."""

import threading

from copysteps import copies

SAVES = 20


def test_copies_that_save_and_book_numbers_at_once_lose_nothing(copies, shop):
    """Two screens of the record and new employees, who take a number of it: each has its own fields, none is lost."""
    shop.system["surcharge_is_sublet"] = ord("N")
    shop.write()
    before, foreign = shop.read_system(), shop.foreign_system_bytes()
    failures = []

    def save_info(copy, i):
        copy.menu("mnuSystemCompanyInfo")
        copy.type("company_phone2", f"555-{i:04}")
        copy.key("F10")

    def save_rates(copy, i):
        copy.menu("mnuSystemParameters")
        copy.type("shop_rate", f"{i}.25")
        copy.key("F10")

    def add_employee(copy, i):
        copy.menu("mnuMaintEmployees")
        copy.key("Insert")
        copy.type("EmpName", f"Worker {i}")
        copy.key("F10")
        copy.key("Esc")

    def repeat(copy, deed):
        try:
            for i in range(1, SAVES + 1):
                deed(copy, i)
                copy.expect_form("frmMain")
        except Exception as failure:  # told in the test's own thread
            failures.append(failure)

    threads = [threading.Thread(target=repeat, args=(copies(shop, computer=f"BENCH{i}"), deed))
               for i, deed in enumerate((save_info, save_rates, add_employee))]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not failures, failures[0]
    assert shop.read_system() == {**before, "company_phone2": f"555-{SAVES:04}", "shop_rate": SAVES * 100 + 25,
                                  "last_employee_number": before["last_employee_number"] + SAVES}
    assert shop.foreign_system_bytes() == foreign

"""Section passwords: the menu entries behind them, and what counts as the right text."""

import pytest

from screens import open_search, shared_files
from shopfiles import PASSWORD_LENGTH, PASSWORD_WIDTH, foreign_bytes

# Every guarded entry: the section, and the screen behind it when there is one yet.
GUARDED = {
    "mnuCustomer": ("Customer", "frmCustSearch"),
    "mnuSpecialDays": ("System", "frmSpecialDays"),
    "mnuStandardHours": ("System", "frmStdHours"),
    "mnuStatusOptions": ("System", "frmStatusOptions"),
    "mnuMaintInventory": ("Inventory Maintenance", "frmInvList"),
    "mnuMaintEmployees": ("Employee", "frmEmpMaint"),
    "mnuMaintVendors": ("Vendor", "frmVendorList"),
    "mnuSystemCompanyInfo": ("System", "frmCompanyInfo"),
    "mnuSystemParameters": ("System", "frmSystemParameters"),
    "mnuDisclaimer": ("Edit Menu", "frmDisclaimer"),
}
OPEN_TO_ALL = {"mnuPrintOptions": "frmPrintOptions"}
SECTIONS = ("Workorders", "Inventory Maintenance", "Customer", "Employee", "Vendor", "System", "Edit Menu")


def is_enabled(copy, entry):
    return copy.control(entry, "frmMain")["enabled"]


def ask(copy, entry, section):
    copy.menu(entry)
    copy.expect_form("frmEnterPwd")
    assert copy.answer["caption"] == f"Enter {section} Password"


@pytest.fixture
def shop(shop):
    for section in SECTIONS:
        shop.set_password(section, f"Open {section}"[:PASSWORD_WIDTH - 1])
    return shop


def test_each_guarded_entry_asks_for_the_password_of_its_section(lantos):
    for entry, (section, screen) in GUARDED.items():
        if not is_enabled(lantos, entry):
            assert screen is None, f"{entry} should lead to {screen}"
            continue
        ask(lantos, entry, section)
        lantos.type("Pwd", f"Open {section}"[:PASSWORD_WIDTH - 1])
        lantos.click("cmdOK")
        lantos.expect_form(screen)
        lantos.key("Esc")
        lantos.expect_form("frmMain")


def test_an_entry_without_a_section_asks_nothing(lantos):
    for entry, screen in OPEN_TO_ALL.items():
        lantos.menu(entry)
        lantos.expect_form(screen)
        lantos.key("Esc")
        lantos.expect_form("frmMain")


def test_a_wrong_or_cancelled_password_does_nothing_and_says_nothing(lantos, shop):
    before = shared_files(shop)
    for wrong in ("", "open customer", "OPEN CUSTOMER", "Open Custome", "Open Customer!", "Open  Customer",
                  "Open System"):
        ask(lantos, "mnuCustomer", "Customer")
        lantos.type("Pwd", wrong)
        lantos.key("F10")
        lantos.expect_form("frmMain")
    for cancel in (lambda: lantos.key("Esc"), lambda: lantos.click("cmdCancel"), lantos.close):
        ask(lantos, "mnuCustomer", "Customer")
        lantos.type("Pwd", "Open Customer")
        cancel()
        lantos.expect_form("frmMain")
    assert not lantos.events("beep")
    assert shared_files(shop) == before


def test_the_question_has_a_label_and_starts_empty_each_time(lantos):
    ask(lantos, "mnuCustomer", "Customer")
    labels = [control["caption"] for control in lantos.get("form")["controls"].values() if control["type"] == "Label"]
    assert "Password?" in labels
    lantos.type("Pwd", "Open Customer")
    lantos.key("Esc")
    ask(lantos, "mnuCustomer", "Customer")
    assert lantos.text("Pwd") == ""
    lantos.key("F10")
    lantos.expect_form("frmMain")


@pytest.mark.parametrize("stored, typed, opens", [
    ("Secret   ", "Secret", True), ("  Secret", "Secret", True), ("Secret", "  Secret ", True),
    (b"Secret\0Old one", "Secret", True), (b"Secret\0Old one", "Old one", False), ("Secret", "SECRET", False),
    (b"A" * PASSWORD_WIDTH, "A" * PASSWORD_WIDTH, True), (b"A" * PASSWORD_WIDTH, "A" * 20, False),
    ("M\u00fcller", "M\u00fcller", True), ("M\u00fcller", "M\u00dcLLER", False), ("two words", "two words", True),
])
def test_the_field_is_trimmed_and_cut_and_compared_exactly(start, shop, stored, typed, opens):
    at = 3 * PASSWORD_WIDTH
    data = stored if isinstance(stored, bytes) else stored.encode("cp1252")
    shop.passwords[at:at + PASSWORD_WIDTH] = data.ljust(PASSWORD_WIDTH, b"\0")
    shop.write()
    copy = start(shop)
    ask(copy, "mnuCustomer", "Customer")
    copy.type("Pwd", typed)
    copy.click("cmdOK")
    copy.expect_form("frmCustSearch" if opens else "frmMain")


@pytest.mark.parametrize("stored", [b"", b"   ", b"\0Old one"])
def test_a_section_with_an_empty_password_is_open_to_all(start, shop, stored):
    at = 3 * PASSWORD_WIDTH
    shop.passwords[at:at + PASSWORD_WIDTH] = stored.ljust(PASSWORD_WIDTH, b"\0")
    shop.write()
    copy = start(shop)
    open_search(copy)
    copy.key("Esc")
    ask(copy, "mnuStandardHours", "System")


def test_the_sections_of_the_main_application_guard_nothing(start, shop):
    shop.passwords = foreign_bytes(PASSWORD_LENGTH)
    for section in SECTIONS:
        shop.set_password(section, "")
    shop.write()
    before = shop.path("TQPASSWD.DAT").read_bytes()
    copy = start(shop)
    for entry, (_, screen) in GUARDED.items():
        if screen and is_enabled(copy, entry):
            copy.menu(entry)
            copy.expect_form(screen)
            copy.key("Esc")
    copy.close_window()
    assert shop.path("TQPASSWD.DAT").read_bytes() == before


def test_an_absent_file_is_made_empty_and_all_sections_are_open(start, shop):
    shop.write()
    shop.path("TQPASSWD.DAT").unlink()
    copy = start(shop)
    assert shop.path("TQPASSWD.DAT").read_bytes() == b""
    for entry, (_, screen) in GUARDED.items():
        if screen and is_enabled(copy, entry):
            copy.menu(entry)
            copy.expect_form(screen)
            copy.key("Esc")
    copy.close_window()
    assert shop.path("TQPASSWD.DAT").read_bytes() == b""


def test_a_short_file_guards_what_it_still_holds(start, shop):
    shop.write()
    data = shop.path("TQPASSWD.DAT").read_bytes()[:4 * PASSWORD_WIDTH]
    shop.path("TQPASSWD.DAT").write_bytes(data)
    copy = start(shop)
    ask(copy, "mnuCustomer", "Customer")
    copy.key("Esc")
    copy.menu("mnuStandardHours")
    copy.expect_form("frmStdHours")
    copy.key("Esc")
    assert shop.path("TQPASSWD.DAT").read_bytes() == data


def test_a_later_change_is_not_seen_until_the_next_start(start, shop):
    shop.write()
    copy = start(shop)
    shop.set_password("Customer", "Changed")
    shop.path("TQPASSWD.DAT").write_bytes(shop.passwords)
    ask(copy, "mnuCustomer", "Customer")
    copy.type("Pwd", "Changed")
    copy.key("F10")
    copy.expect_form("frmMain")
    copy.close_window()
    copy = start(shop)
    ask(copy, "mnuCustomer", "Customer")
    copy.type("Pwd", "Changed")
    copy.key("F10")
    copy.expect_form("frmCustSearch")

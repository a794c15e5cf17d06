"""The shop's name and numbers, its rates and messages: the two screens that edit the system record."""

import pytest

from locks import denied_to_all
from shopfiles import SYSTEM, put

MESSAGE = "Company name is invalid.\nClick Retry to re-enter; click Cancel to revert to saved value."
COMPANY = {
    "company_name": ("Smith & Sons", 31), "extra_company_name": ("of Springfield", 41),
    "company_address": ("1 Oak St", 32), "company_city": ("Xenia", 20), "company_state": ("NV", 2),
    "company_zip": ("45502", 10), "company_phone1": ("937-555-1", 14), "company_phone2": ("937-555-2", 14),
    "state_reg_number": ("ARD 1", 20), "fed_id_number": ("31-1", 20), "state_id_number": ("52-1", 20),
    "local_id_number": ("L-1", 20),
}


@pytest.fixture
def shop(shop):
    shop.system.update(labor_surcharge_percent=25000, parts_surcharge_percent=-100000,
                       surcharge_description="SHOP SUPPLIES", surcharge_is_sublet=ord("N"), hand_msg1="HAVE A NICE DAY")
    return shop


@pytest.fixture
def board(start, shop):
    shop.write()
    return start(shop)


def open_screen(copy, entry):
    copy.menu(entry)
    copy.expect_form({"mnuSystemCompanyInfo": "frmCompanyInfo", "mnuSystemParameters": "frmSystemParameters"}[entry])


def record(shop):
    return shop.path("TQSYSTEM.DAT").read_bytes()


def expected(shop, **fields):
    return bytes(put(shop.system_record(), SYSTEM, **fields))


def test_company_info_goes_to_its_own_fields_alone(board, shop):
    open_screen(board, "mnuSystemCompanyInfo")
    assert board.answer["caption"] == "Company Info"
    assert board.text("company_name") == "Miller's Garage"
    for field, (text, _) in COMPANY.items():
        board.type(field, text)
    board.key("F10")
    board.expect_form("frmMain")
    assert record(shop) == expected(shop, **{field: text for field, (text, _) in COMPANY.items()})
    assert "Updating Company Info" in board.events("status")
    assert board.answer["caption"].startswith("Lantos: Smith & Sons (")


def test_each_box_holds_its_width(board):
    open_screen(board, "mnuSystemCompanyInfo")
    for field, (_, width) in COMPANY.items():
        board.type(field, "x" * 50)
        assert board.text(field) == "x" * width, field


def test_a_bracket_in_the_name_is_refused(board, shop):
    open_screen(board, "mnuSystemCompanyInfo")
    board.type("company_name", "Miller > Sons")
    board.leave()
    board.expect_box(text=MESSAGE, buttons=["Retry", "Cancel"])
    board.press("Retry")
    assert board.answer["focus"] == "company_name"
    board.key("F10")
    board.expect_box(text=MESSAGE)
    board.press("Retry")
    assert (board.answer["form"], board.answer["focus"]) == ("frmCompanyInfo", "company_name")
    board.leave()
    board.press("Cancel")
    assert board.text("company_name") == "Miller's Garage"
    board.key("F10")
    board.expect_form("frmMain")
    assert record(shop) == expected(shop)


def test_parameters_are_scaled_and_signed(board, shop):
    open_screen(board, "mnuSystemParameters")
    assert board.answer["caption"] == "System Parameters"
    assert [board.text(f"tax_rate({i})") for i in range(4)] == ["8.2500", "0.0000", "0.0000", "0.0000"]
    assert board.text("shop_rate") == "65.00"
    assert board.text("labor_surcharge_percent") == "2.5000" and board.control("optLaborSurcharge(0)")["checked"]
    assert board.text("parts_surcharge_percent") == "10.00" and board.control("optPartsSurcharge(1)")["checked"]
    board.type("shop_rate", "70.5")
    board.type("labor_surcharge_percent", "10.00")
    board.check("optLaborSurcharge(1)")
    board.check("optPartsSurcharge(0)")
    board.type("parts_surcharge_percent", "2.5")
    board.check("surcharge_is_sublet")
    for i in range(4):
        board.type(f"tax_rate({i})", f"{i + 1}.5")
    for i in range(3):
        board.type(f"markups({i})", f"{(i + 1) * 10}")
    board.type("hand_msg2", "COME AGAIN")
    board.type("fleet_late_charge_percent", "1.5")
    board.key("F10")
    board.expect_form("frmMain")
    assert "Updating System Parameters" in board.events("status")
    assert record(shop) == expected(
        shop, shop_rate=7050, labor_surcharge_percent=-100000, parts_surcharge_percent=25000,
        surcharge_is_sublet=ord("Y"), tax_rate=(15000, 25000, 35000, 45000), markups=(0, 100000, 200000, 300000),
        hand_msg2="COME AGAIN", fleet_late_charge_percent=15000)
    open_screen(board, "mnuSystemParameters")
    assert board.text("labor_surcharge_percent") == "10.00" and board.control("optLaborSurcharge(1)")["checked"]
    assert board.text("parts_surcharge_percent") == "2.5000" and board.control("optPartsSurcharge(0)")["checked"]


def test_two_workstations_and_a_booking_lose_nothing(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    shop.write()
    first, second = (start(shop, computer=name, settings=start.home / name) for name in ("BENCH1", "BENCH2"))
    open_screen(first, "mnuSystemParameters")
    open_screen(second, "mnuSystemParameters")
    first.type("tax_rate(1)", "6")
    second.type("shop_rate", "80")
    second.key("F10")
    second.menu("mnuNewEstimate")
    second.press("No")
    second.type("NameKey", "adams")
    second.key("F10")
    second.select("CustList", row=0)
    second.click("cmdSelect")
    second.key("Esc")
    second.expect_form("frmMain")
    first.key("F10")
    assert record(shop) == expected(shop, tax_rate=(82500, 60000, 0, 0), shop_rate=8000, last_estimate_number=1002)


def test_the_rates_count_on_the_board_at_once_here_and_elsewhere_with_the_next_number(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    shop.add_estimate(900, "2003-09-30", customer=7)
    shop.add_labor(900, 1, "WORK", 1)
    shop.write()
    here, there = (start(shop, computer=name, settings=start.home / name) for name in ("BENCH1", "BENCH2"))
    for copy in (here, there):
        copy.double_click("List1(2)", row=0)
        assert copy.text("txtTotalTax") == "0.00"
    open_screen(here, "mnuSystemParameters")
    here.type("tax_rate(1)", "10")
    here.key("F10")
    assert here.text("txtTotalTax") == "6.50"
    there.menu("mnuRefreshTotals")
    assert there.text("txtTotalTax") == "0.00", "its record is as it was read"


def test_the_backup_command_is_kept_and_never_run(board, shop):
    open_screen(board, "mnuSystemParameters")
    assert board.text("txtBackupCmd") == "" and board.control("cbBackupCmdWait")["checked"]
    board.type("txtBackupCmd", '"C:\\Tools\\backup.exe" /all')
    board.type("shell_command_line", "NOTEPAD.EXE")
    board.check("cbBackupCmdWait", False)
    board.key("F10")
    profile = shop.path("Lantos.ini").read_bytes().decode("cp1252")
    section = profile.split("[BENCH1]\r\n")[1]
    assert 'BackupCmd="C:\\Tools\\backup.exe" /all\r\n' in section and "BackupCmdWait=False\r\n" in section
    open_screen(board, "mnuSystemParameters")
    assert board.text("txtBackupCmd") == '"C:\\Tools\\backup.exe" /all'
    board.key("Esc")
    board.close_window()
    assert not board.events("shell")


@pytest.mark.parametrize("entry, field", [("mnuSystemCompanyInfo", "company_zip"), ("mnuSystemParameters", "shop_rate")])
def test_cancel_asks_only_when_something_was_changed(board, shop, entry, field):
    open_screen(board, entry)
    assert board.caption("CancelButton") == "Close"
    board.key("Esc")
    board.expect_form("frmMain")
    open_screen(board, entry)
    board.type(field, "99")
    assert board.caption("CancelButton") == "Cancel"
    board.key("Esc")
    board.expect_box(text="Discard changes?", buttons=["Yes", "No"])
    board.press("Yes")
    board.expect_form("frmMain")
    assert record(shop) == expected(shop)


def test_a_held_record_is_asked_about(board, shop):
    open_screen(board, "mnuSystemCompanyInfo")
    board.type("company_zip", "99999")
    with denied_to_all(shop.path("TQSYSTEM.DAT")):
        board.key("F10")
        board.expect_box(text="System file locked by another user.", icon="critical", buttons=["Retry", "Cancel"])
        board.press("Retry")
        board.expect_box(text="System file locked by another user.")
    board.press("Retry")
    board.expect_form("frmMain")
    assert record(shop) == expected(shop, company_zip="99999")


def test_the_password_of_the_section_right_wrong_three_times_and_blank(start, shop):
    shop.set_password("System", "Secret")
    shop.write()
    copy = start(shop)
    for entry in ("mnuSystemCompanyInfo", "mnuSystemParameters"):
        for wrong in ("secret", "Secre", ""):
            copy.menu(entry)
            copy.expect_form("frmEnterPwd")
            assert copy.answer["caption"] == "Enter System Password"
            copy.type("Pwd", wrong)
            copy.key("F10")
            copy.expect_form("frmMain")
        copy.menu(entry)
        copy.type("Pwd", "Secret")
        copy.key("F10")
        assert copy.answer["form"] in ("frmCompanyInfo", "frmSystemParameters")
        copy.key("Esc")

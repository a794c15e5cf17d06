"""What a mount over the network tells at the close of a file alone."""

from faults import DISK_FULL, Faults

TOLD = "What was just stored in TQSYSTEM.DAT may be lost: the disk is full.\nLook at it again."


def test_a_record_whose_close_fails_is_told_of_once_the_person_goes_on(start, shop, tmp_path):
    shop.write()
    faults = Faults(shop.directory, tmp_path)
    copy = start(shop, faults=faults)
    copy.wait(50)
    copy.menu("mnuSystemParameters")
    copy.type("shop_rate", "71.00")
    faults.fail("TQSYSTEM.DAT", fault=DISK_FULL, call="close")
    copy.key("F10")
    copy.expect_form("frmMain")
    copy.wait(50)
    copy.expect_box(TOLD, "TQSYSTEM.DAT", "exclamation", ["OK"])
    faults.mend()
    copy.press("OK")
    copy.wait(50)
    copy.expect_form("frmMain")
    assert any("Error 61: Disk full (closing " in line for line in copy.log_lines())

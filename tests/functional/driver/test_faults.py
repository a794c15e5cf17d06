"""Calls on files that a test makes fail from outside."""

from copysteps import SYSTEM_LOCKED, shop
from faults import DISK_FULL, HELD, Faults
from screens import ask_new_estimate, pick_customer


def test_a_file_is_held_until_it_is_mended(start, shop, tmp_path):
    shop.write()
    faults = Faults(shop.directory, tmp_path)
    copy = start(shop, faults=faults)
    ask_new_estimate(copy)
    faults.fail("TQSYSTEM.DAT", fault=HELD)
    pick_customer(copy, 7)
    copy.expect_box(SYSTEM_LOCKED)
    assert faults.hits()[0] == ("TQSYSTEM.DAT", "lock")
    faults.mend()
    copy.press("Retry")
    copy.expect_form("frmVehList")
    assert shop.estimate(1001)["CustomerNumber"] == 7


def test_the_database_meets_a_full_disk_as_often_as_was_wished(start, shop, tmp_path):
    shop.write()
    faults = Faults(shop.directory, tmp_path)
    copy = start(shop, faults=faults)
    ask_new_estimate(copy)
    faults.fail("Lantos.mdb", "Lantos.mdb-journal", fault=DISK_FULL, call="write", times=1)
    pick_customer(copy, 7)
    assert "full" in copy.expect_box()["text"]
    assert faults.hits() == [("Lantos.mdb-journal", "write")]

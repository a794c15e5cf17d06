"""Files that a conversion can't write, and nobody holds: the box names the file and the true cause."""

import pytest

from conversionsteps import FIRST, PARTS, answer_status, convert, estimate, expect_converted, shop, show
from faults import DISK_FULL, READ_ONLY, Faults
from inventoryfiles import make_inventory, read_tags
from workorderfiles import ACTIVE_FILE, ARCHIVED_FILE, USAGE_FILE, WORKORDER_FILES, active_tags, stock_masters, usage_records

CLOSED = "it is read-only, or closed to you by its permissions"
FULL = "the disk is full"


def begun(start, shop, tmp_path, *names, fault, call):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    shop.write()
    make_inventory(shop.directory, PARTS)
    for name in WORKORDER_FILES:
        shop.path(name).write_bytes(b"")
    faults = Faults(shop.directory, tmp_path)
    copy = show(start(shop, faults=faults))
    faults.fail(*names, fault=fault, call=call)
    return faults, convert(copy)


def expect_cause(copy, name, cause, cancelling):
    copy.expect_box(f"{name} can not be used: {cause}.\nClick Retry to try again, or Cancel to {cancelling}.",
                    icon="exclamation", buttons=["Retry", "Cancel"])


@pytest.mark.parametrize("name, fault, call, cause, cancelling", [
    (USAGE_FILE, READ_ONLY, "open", CLOSED, "go on without noting the use of the part"),
    (USAGE_FILE, DISK_FULL, "write", FULL, "go on without noting the use of the part"),
    ("TQINVTAG.DAT", READ_ONLY, "open", CLOSED, "leave the part as it is"),
    ("TQINVENT.DAT", READ_ONLY, "open", CLOSED, "leave the part as it is"),
    (ACTIVE_FILE, READ_ONLY, "open", CLOSED, "stop here"),
    (ARCHIVED_FILE, DISK_FULL, "write", FULL, "go on without this tag"),
])
def test_a_file_that_can_not_be_written_is_asked_about_until_it_can(start, shop, tmp_path, name, fault, call, cause,
                                                                   cancelling):
    faults, copy = begun(start, shop, tmp_path, name, fault=fault, call=call)
    expect_cause(copy, name, cause, cancelling)
    copy.press("Retry")
    expect_cause(copy, name, cause, cancelling)
    faults.mend()
    copy.press("Retry")
    expect_converted(copy, FIRST)
    answer_status(copy)
    assert (read_tags(shop.directory)[0]["InStock"], stock_masters(shop)[0]["QtyInStock"]) == (4, 4)
    assert len(usage_records(shop)) == len(active_tags(shop)) == 1


@pytest.mark.parametrize("name", ["TQINVTAG.DAT", "TQINVENT.DAT"])
def test_cancel_leaves_tag_and_master_alike_and_names_the_part(start, shop, tmp_path, name):
    _, copy = begun(start, shop, tmp_path, name, fault=READ_ONLY, call="open")
    expect_cause(copy, name, CLOSED, "leave the part as it is")
    copy.press("Cancel")
    copy.expect_box(f"Estimate # 000900 is now Workorder # {FIRST:06}\n\nThe stock of these parts could not be written and "
                    "was not changed:\n\nPAD-9")
    copy.press("OK")
    answer_status(copy)
    assert (read_tags(shop.directory)[0]["InStock"], stock_masters(shop)[0]["QtyInStock"]) == (6, 6)

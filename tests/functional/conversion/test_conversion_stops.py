"""What is left when a conversion stops halfway, and how files that others hold are waited for."""

import contextlib
import os
import sqlite3

import pytest

from boardlines import elsewhere, row_of
from conversionsteps import (AS_ON_FILE, FIRST, PARTS, TITLE, USAGE_HELD, answer_status, begin, convert, convert_whole,
                             estimate, expect_converted, is_untouched, shop, show, snapshot, stored_comments,
                             to_vehicle, vehicle_in_text, vehicle_shop)
from faults import DISK_FULL, HELD, Faults
from inventoryfiles import read_tags
from locks import denied_to_all, deny_to_all
from screens import shared_files
from workorderfiles import (ACTIVE_FILE, ARCHIVED_FILE, USAGE_FILE, active_tags, archived_tags, file_name, keys,
                            long_at, part_row, read_workorder, usage_records)

# What stops it.


@pytest.mark.parametrize("status", [-1, -32768, 10, 77])
def test_a_status_that_is_none_is_refused(start, shop, status):
    estimate(shop)
    copy = begin(start, shop)
    copy.click("cmdWeekView")
    row = row_of(copy, "List1(2)", 900)
    elsewhere(shop, "UPDATE Estimates SET Status = ?", status)
    copy.double_click("List1(2)", row=row)
    copy.click("cmdConvert")
    copy.expect_box("Estimate status of 'Unknown' can not be converted to a workorder", TITLE, "exclamation")
    copy.press("OK")
    assert is_untouched(shop)


@pytest.mark.parametrize("parts", [[(32767, 100, 100000)], [(1, 2000000000, 1), (1, 2000000000, 1)]])
def test_totals_that_no_field_holds_stop_it(start, shop, parts):
    """Rather than that a wrong amount is billed."""
    estimate(shop)
    for i, (quantity, price, cost) in enumerate(parts):
        shop.add_part(900, f"X-{i}", "BIG", quantity, price, cost)
    copy = begin(start, shop)
    convert(copy)
    assert copy.expect_box(icon="critical")["text"].startswith("Overflow: ")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert not shop.names("W*.tqa") and active_tags(shop) == []


def test_a_failure_names_the_vehicle_that_was_written(start, shop):
    vehicle_shop(shop, **AS_ON_FILE)
    for i in range(31):
        shop.add_note(900, i + 1, f"note {i}")
    copy = to_vehicle(begin(start, shop))
    copy.type("Mileage", "12345")
    copy.key("F10")
    assert ("stays:\n- the vehicle was written\n- the estimate has its vehicle as it is now\n"
            "- the number was taken\nThe next step" in copy.expect_box()["text"])
    assert shop.read_vehicles()[0]["Mileage"] == 12345


@contextlib.contextmanager
def locked_database(shop):
    with contextlib.closing(sqlite3.connect(shop.path("Lantos.mdb"), isolation_level=None)) as database:
        database.execute("BEGIN EXCLUSIVE")
        yield
        database.execute("ROLLBACK")


def test_a_vehicle_that_the_database_has_not_taken_is_stored_by_the_next_conversion(start, shop):
    vehicle_shop(shop, **AS_ON_FILE)
    copy = to_vehicle(begin(start, shop))
    copy.type("Mileage", "12345")
    with locked_database(shop):
        copy.key("F10")
        box = copy.expect_box(icon="critical")
        assert "The conversion to a work order stopped here." in box["text"]
        while copy.answer["waiting"] == "box":
            copy.press("OK")
    copy.expect_form("frmMain")
    assert (shop.read_vehicles()[0]["Mileage"], shop.estimate(900)["VehMileage"]) == (12345, "100")
    show(copy)
    to_vehicle(copy)
    copy.key("F10")
    expect_converted(copy, FIRST)
    answer_status(copy)
    assert shop.estimate(900)["VehMileage"] == "12345"


def test_a_database_that_is_held_at_the_end_says_that_the_work_order_is_there(start, shop):
    estimate(shop)
    shop.add_part(900, "FLT-2", "OIL FILTER", 1, 100)
    copy = begin(start, shop, PARTS)
    convert(copy)
    copy.expect_box(title="Convert - Inventory Status")
    with locked_database(shop):
        copy.press("OK")
        box = copy.expect_box(icon="critical")
        assert box["text"].startswith("Another copy of the program has the database")
        assert "Statement" not in box["text"] and "Values" not in box["text"]
        assert box["text"].endswith("The work order is there. Don't convert the estimate once more.")
        while copy.answer["waiting"] == "box":
            copy.press("OK")
    copy.expect_form("frmMain")
    assert len(active_tags(shop)) == 1 and shop.names("W*.tqa") == [file_name(FIRST)]


def test_line_ends_inside_of_texts_leave_the_sections_whole(start, shop):
    estimate(shop)
    shop.add_part(900, "X-1", "ONE\r\nTWO", 1, 100)
    shop.add_note(900, 1, "first\r\n\r\nsecond")
    convert_whole(begin(start, shop))
    sections = read_workorder(shop, FIRST)
    assert sections["Parts"] == [part_row("X-1", "ONE  TWO", 1, 0, 100, 0)]
    assert sections["Notes"] == ["first    second"]


# Held files.


def test_a_held_archived_tag_file_asks_and_cancel_goes_on_without_that_tag(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    shop.path(ARCHIVED_FILE).write_bytes(b"")
    with denied_to_all(shop.path(ARCHIVED_FILE)):
        convert(copy)
        for answer in ("Retry", "Cancel"):
            copy.expect_box("Tag file locked by another user.\nClick Retry to try again, or Cancel to exit.",
                            "WriteArchivedWoTag(TQINCTAG.DAT)", buttons=["Retry", "Cancel"])
            copy.press(answer)
        expect_converted(copy, FIRST)
        answer_status(copy)
    assert [tag["WorkorderNumber"] for tag in active_tags(shop)] == [FIRST]
    assert archived_tags(shop) == []
    assert keys(read_workorder(shop, FIRST)["Workorder"])["WorkorderNumber"] == "005001"
    assert any("005001 has no tag in TQINCTAG.DAT" in line for line in copy.log_lines())
    convert_whole(copy, FIRST + 1)
    assert [tag["WorkorderNumber"] for tag in archived_tags(shop)] == [FIRST + 1]


def test_retry_at_the_archived_tag_file_writes_it_once(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    denied = deny_to_all(shop.path(ARCHIVED_FILE))
    convert(copy)
    copy.expect_box(title="WriteArchivedWoTag(TQINCTAG.DAT)")
    os.close(denied)
    copy.press("Retry")
    expect_converted(copy, FIRST)
    assert len(active_tags(shop)) == len(archived_tags(shop)) == 1


def test_an_archived_tag_file_of_an_odd_length_is_told_of_and_still_written(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    shop.path(ARCHIVED_FILE).write_bytes(b"damaged")
    convert(copy)
    copy.expect_box("Archived WO Tag File has invalid size", buttons=["OK"])
    copy.press("OK")
    expect_converted(copy, FIRST)
    data = shop.path(ARCHIVED_FILE).read_bytes()
    assert (len(data), data[:7], long_at(data, 7)) == (7 + 290, b"damaged", FIRST)


def held(name):
    return f"{name} is locked by another user.\nClick Retry to try again, or Cancel to stop here."


def test_a_held_active_tag_file_is_asked_about_ahead_of_the_number(start, shop):
    """Any number may be in it."""
    estimate(shop)
    copy = begin(start, shop)
    with denied_to_all(shop.path(ACTIVE_FILE)):
        for _ in range(2):
            convert(copy)
            copy.expect_box(held(ACTIVE_FILE), ACTIVE_FILE, "exclamation", ["Retry", "Cancel"])
            copy.press("Cancel")
            copy.expect_box(f"The work orders in {ACTIVE_FILE} could not be looked at.", icon="critical")
            copy.press("OK")
            copy.expect_form("frmMain")
    assert shop.read_system()["last_workorder_number"] == FIRST and not shop.names("AJ*")
    convert_whole(copy, FIRST)


def test_a_full_disk_at_the_first_tag_stops_it_and_the_next_try_finishes_it(start, shop, tmp_path):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    faults = Faults(shop.directory, tmp_path)
    copy = begin(lambda shop: start(shop, faults=faults), shop, PARTS)
    faults.fail(ACTIVE_FILE, fault=DISK_FULL, call="write")
    convert(copy)
    copy.expect_box(f"{ACTIVE_FILE} can not be used: the disk is full.\n"
                    "Click Retry to try again, or Cancel to stop here.")
    copy.press("Cancel")
    box = copy.expect_box(icon="critical", buttons=["OK"])
    assert box["text"].endswith("stopped here. What was done before stays:\n- the number was taken\n"
                                "- the usage of PAD-9 was noted\n- the stock of PAD-9 is now 4\n"
                                "The next step was not finished.")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert active_tags(shop) == archived_tags(shop) == [] and not shop.names("W*.tqa")
    faults.mend()
    copy.click("cmdConvert")
    box = copy.expect_box(title=TITLE, icon="question", buttons=["Yes", "No", "Cancel"])
    assert "to work order # 005001 was not finished." in box["text"]
    copy.press("Cancel")
    copy.expect_form("frmMain")
    copy.click("cmdConvert")
    copy.expect_box(title=TITLE)
    copy.press("Yes")
    expect_converted(copy, FIRST)
    answer_status(copy)
    assert read_tags(shop.directory)[0]["InStock"] == 4 and len(usage_records(shop)) == 1
    assert [tag["WorkorderNumber"] for tag in active_tags(shop)] == [FIRST] and not shop.names("AJ*")


def test_a_held_text_leaves_both_tags(start, shop, tmp_path):
    estimate(shop)
    faults = Faults(shop.directory, tmp_path)
    copy = begin(lambda shop: start(shop, faults=faults), shop)
    faults.fail(file_name(FIRST), fault=HELD)
    convert(copy)
    copy.expect_box(held(file_name(FIRST)), file_name(FIRST), "exclamation", ["Retry", "Cancel"])
    copy.press("Cancel")
    box = copy.expect_box(icon="critical")
    assert box["text"].endswith("- the number was taken\n- the tag in TQOPENWO.DAT was written\n"
                                "- the tag in TQINCTAG.DAT was written\nThe next step was not finished.")
    copy.press("OK")
    assert len(active_tags(shop)) == len(archived_tags(shop)) == 1


def test_a_number_whose_text_is_there_is_not_given_and_the_text_stays(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    shop.path(file_name(FIRST)).write_bytes(b"old text " * 1000)
    convert(copy)
    box = copy.expect_box(title="Next Number", icon="exclamation", buttons=["OK", "Cancel"])
    assert box["text"].startswith("005001, the running number of the work orders in TQSYSTEM.DAT, is in use already.")
    copy.press("OK")
    expect_converted(copy, FIRST + 1)
    assert shop.path(file_name(FIRST)).read_bytes() == b"old text " * 1000
    assert read_workorder(shop, FIRST + 1)["Workorder"][0] == "WorkorderNumber=005002"


def test_held_usage_asks_after_three_tries_without_a_way_out(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    copy = begin(start, shop, PARTS)
    with denied_to_all(shop.path(USAGE_FILE)):
        convert(copy)
        for _ in range(2):
            copy.expect_box(USAGE_HELD, "UpdateUsage Error 70: Permission denied", "exclamation", ["OK"])
            copy.press("OK")
        copy.expect_box(USAGE_HELD)
        assert read_tags(shop.directory)[0]["InStock"] == 6, "the stock moves behind its usage record"
    copy.press("OK")
    expect_converted(copy, FIRST)
    assert (read_tags(shop.directory)[0]["InStock"], len(usage_records(shop))) == (4, 1)


def test_a_held_system_record_asks_and_retry_takes_the_number(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    before = shared_files(shop)
    with denied_to_all(shop.path("TQSYSTEM.DAT")):
        convert(copy)
        copy.expect_box("System file locked by another user.", "Error 70: Permission denied", "critical",
                        ["Retry", "Cancel"])
        copy.press("Retry")
        copy.expect_box("System file locked by another user.")
        assert shared_files(shop) == before
    copy.press("Retry")
    expect_converted(copy, FIRST)
    assert shop.read_system()["last_workorder_number"] == FIRST + 1


def test_cancel_at_the_system_record_ends_the_program_with_only_the_vehicle_written(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    but = ("LN*", "AU*", "TQVEHICL.DAT", "*.mdb*")
    before = shop.hashes(but=but)
    to_vehicle(copy)
    copy.type("Mileage", "101")
    with denied_to_all(shop.path("TQSYSTEM.DAT")):
        copy.key("F10")
        copy.expect_box("System file locked by another user.")
        copy.press("Cancel")
        copy.expect_end()
    assert shop.hashes(but=but) == before
    assert (shop.read_vehicles()[0]["Mileage"], snapshot(shop)[6], stored_comments(shop)) == (101, "101", None)


def test_a_held_vehicle_file_is_told_of_and_the_conversion_goes_on(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    to_vehicle(copy)
    copy.type("Mileage", "101")
    with denied_to_all(shop.path("TQVEHICL.DAT")):
        copy.key("F10")
        copy.expect_box("Could not open Vehicle file.", "WriteVehicle", "critical", ["OK"])
        copy.press("OK")
        expect_converted(copy, FIRST)
    assert vehicle_in_text(shop)["Mileage"] == "101"

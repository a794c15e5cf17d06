"""A vehicle's history that is held, missing or damaged, while its worksheet is made."""

import pytest

from boardlines import TODAY
from historyfiles import ACTIVE_LENGTH, ARCHIVED_LENGTH, History, order_text
from locks import denied_to_all
from printsteps import MONDAY, VIN, choose, options
from worksheetsteps import HISTORY, NO_CHANGE, numbers_of, past, summary_of, write_history


def missing(name):
    return "File not found: \nClick Retry to try again, or Cancel to skip.", f"GetCurrWoRec({name})"


def expect_retry(copy, text, title):
    copy.expect_box(text, title, buttons=["Retry", "Cancel"])


def open_damaged(start, shop, history):
    write_history(shop, history)
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    return copy


def summary_on_show(copy):
    assert copy.answer["waiting"] == "preview", copy.answer
    return summary_of([line for [line] in copy.answer["lines"]])


def test_a_missing_text_is_asked_about_and_found_on_retry(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY, text="")
    copy = open_damaged(start, shop, history)
    for _ in range(2):
        expect_retry(copy, *missing("W0004001.tqa"))
        copy.press("Retry")
    shop.path("W0004001.tqa").write_bytes(order_text(4001, mileage=5).encode())
    copy.press("Retry")
    assert summary_on_show(copy) == past(4001, "09/30/2003", mileage=5)


def test_cancel_skips_a_missing_text_and_the_report_goes_on(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    history.add_active(4002, opened=TODAY, text="")
    history.add_active(4003, opened=MONDAY, file="", text="")
    history.add_archived(3001, paid=TODAY)
    copy = open_damaged(start, shop, history)
    expect_retry(copy, *missing("W0004002.tqa"))
    copy.press("Cancel")
    expect_retry(copy, *missing(""))
    copy.press("Cancel")
    assert numbers_of(summary_on_show(copy)) == [4001, 3001]


def test_a_text_that_somebody_writes_is_asked_about_until_it_is_free(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    write_history(shop, history)
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    with denied_to_all(shop.path("W0004001.tqa")):
        copy.click("cmdPrintWorksheet")
        held = ("File locked by another user.\nClick Retry to try again, or Cancel to skip.",
                "GetCurrWoRec(W0004001.tqa)")
        expect_retry(copy, *held)
        copy.press("Retry")
        expect_retry(copy, *held)
        copy.press("Cancel")
        assert summary_on_show(copy) == []
        copy.close()
        copy.click("cmdPrintWorksheet")
        expect_retry(copy, *held)
    copy.press("Retry")
    assert summary_on_show(copy) == past(4001, "09/30/2003")


def test_a_held_archive_is_asked_about_for_each_of_its_work_orders(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    history.add_archived(3002, paid=TODAY)
    write_history(shop, history)
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    held = ("File locked by another user.\nClick Retry to try again, or Cancel to exit.", "GetArchWo(TQINVOIC.DAT)")
    with denied_to_all(shop.path("TQINVOIC.DAT")):
        copy.click("cmdPrintWorksheet")
        expect_retry(copy, *held)
        copy.press("Cancel")
        expect_retry(copy, *held)
    copy.press("Retry")
    assert numbers_of(summary_on_show(copy)) == [3001]


def test_an_archive_tag_that_leads_elsewhere_is_told_and_skipped(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    history.add_archived(3002, paid=TODAY, offset=5)
    copy = open_damaged(start, shop, history)
    copy.expect_box("Possible corrupted tag file - run KRVLCLEN", "GetArchWo()", "critical", ["OK"])
    copy.press("OK")
    assert numbers_of(summary_on_show(copy)) == [3001]


def test_an_archive_that_has_another_work_order_there_is_told_and_skipped(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    history.add_archived(3002, paid=TODAY, offset=0)
    copy = open_damaged(start, shop, history)
    copy.expect_box("Possible corrupted archive file - run KRVLCLEN", "GetArchWo()", "critical", ["OK"])
    copy.press("OK")
    assert numbers_of(summary_on_show(copy)) == [3001]


def test_a_missing_archive_is_told_as_missing(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    write_history(shop, history)
    shop.path("TQINVOIC.DAT").unlink()
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    expect_retry(copy, "TQINVOIC.DAT can not be used: it is not there.\n"
                 "Click Retry to try again, or Cancel to go on without it.", "GetArchWo(TQINVOIC.DAT)")
    copy.press("Cancel")
    assert summary_on_show(copy) == []
    copy.close()
    copy.click("cmdPrintWorksheet")
    shop.path("TQINVOIC.DAT").write_bytes(history.archive)
    copy.press("Retry")
    assert summary_on_show(copy) == past(3001, "09/30/2003")


@pytest.mark.parametrize("file, length, routine", [
    ("TQOPENWO.DAT", ACTIVE_LENGTH, "ReadActiveWO"), ("TQINCTAG.DAT", ARCHIVED_LENGTH, "ReadArchWO")])
def test_tags_that_are_no_longer_whole_are_told_and_read_from_the_end(start, shop, file, length, routine):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    history.add_archived(3001, paid=TODAY)
    write_history(shop, history)
    shop.path(file).write_bytes(b"\0" * 10 + shop.path(file).read_bytes())
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    copy.expect_box(f"Invalid offset supplied to {routine} = 10", buttons=["OK"])
    copy.press("OK")
    assert numbers_of(summary_on_show(copy)) == [4001, 3001]
    copy.close()
    shop.path(file).write_bytes(b"\0" * (length - 1))
    copy.click("cmdPrintWorksheet")
    assert numbers_of(summary_on_show(copy)) == ([3001] if routine == "ReadActiveWO" else [4001])

"""What was done to a vehicle before, as its worksheet tells."""

import pytest

from boardlines import TODAY
from historyfiles import History, order_text
from locks import denied_to_all
from printsteps import MONDAY, VIN, choose, options
from worksheetsteps import (BARE, EMPTY_BODY, HISTORY, NO_CHANGE, car_shop, lines_of, numbers_of, open_worksheet, past,
                            summary_of, write_history)


def test_the_past_of_a_vehicle_newest_first_and_the_active_ones_ahead(start, shop):
    history = History(VIN)
    history.add_active(4001, opened="2003-09-29", labor=[["Oil change", "with filter"], ["Test drive"]],
                       mileage=49000, notes=[["n1", "", "n3"], ["m1"]])
    history.add_archived(3001, status="PAID", paid="2003-03-01", labor=[["Tires"]], mileage=42000, last="Baker",
                         first="Ann")
    history.add_active(4002, opened=TODAY, mileage=49100)
    history.add_archived(3002, status="PAID", paid="2003-07-01", mileage=45000)
    history.add_active(4003, opened="2003-09-29", mileage=49050)
    write_history(shop, history)
    lines, copy = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == [
        *past(4002, "09/30/2003", mileage=49100),
        *past(4003, "09/29/2003", mileage=49050),
        *past(4001, "09/29/2003", "       Oil change", "       Test drive", mileage=49000, notes=["n1", "n3", "m1"]),
        *past(3002, "07/01/2003", mileage=45000),
        *past(3001, "03/01/2003", "       Tires", mileage=42000, name="Baker, Ann")]
    handle = [line for line in copy.log_lines() if "requested by cmdPrintWorksheet" in line]
    assert len(handle) == 1, "the open-file log tells who reads the archive's tags"


@pytest.mark.parametrize("status, date", [
    ("OPEN", "01/02/2003"), ("VOID", "01/02/2003"), ("CLOSED", "03/04/2003"), ("ON ACCT", "03/04/2003"),
    ("PAID", "05/06/2003")])
def test_the_date_of_a_work_order_goes_by_its_status(start, shop, status, date):
    dates = {"opened": "2003-01-02", "closed": "2003-03-04", "paid": "2003-05-06"}
    history = History(VIN)
    history.add_active(4001, status=status, **dates)
    history.add_archived(3001, status=status, **dates)
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == past(4001, date) + past(3001, date)


def test_only_the_years_asked_for_are_looked_at_and_both_ends_count(start, shop):
    history = History(VIN)
    for number, day in enumerate(("2001-09-29", "2001-09-30", "2002-09-29", "2002-09-30", TODAY, "2003-10-01"), 1):
        history.add_active(4000 + number, opened=day)
        history.add_archived(3000 + number, paid=day)
    write_history(shop, history)
    for years, wanted in ((1, [4, 5]), (2, [2, 3, 4, 5]), (0, [5])):
        lines, copy = open_worksheet(start, shop, **HISTORY, VehSummaryYears=years)
        newest_first = wanted[::-1]
        assert numbers_of(lines) == [4000 + n for n in newest_first] + [3000 + n for n in newest_first]
        copy.cut()


def test_with_0_years_only_todays_work_orders_count(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=MONDAY)
    history.add_active(4002, opened=TODAY)
    history.add_archived(3001, paid=MONDAY)
    history.add_archived(3002, paid=TODAY)
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY, VehSummaryYears=0)
    assert summary_of(lines) == past(4002, "09/30/2003") + past(3002, "09/30/2003")


def test_a_year_back_from_a_leap_day_is_the_28th(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid="2003-02-27")
    history.add_archived(3002, paid="2003-02-28")
    car_shop(shop, date="2004-02-29").write()
    history.write(shop)
    options(shop, NO_CHANGE, **HISTORY)
    copy = start(shop, now="2004-02-29T08:15:00")
    choose(copy, panel=0)
    assert numbers_of(lines_of(copy)) == [3002]


def test_a_work_order_outside_the_window_is_skipped_without_opening_its_file(start, shop):
    """Its text is missing, and nobody is asked about that."""
    history = History(VIN)
    history.add_active(4001, opened="2001-01-01", text="")
    history.add_active(4002, opened="2003-10-01", text="")
    history.add_active(4003, opened=TODAY, vin="OTHER", text="")
    history.add_archived(3001, paid="2001-01-01", text="nothing of the kind\r\n")
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == []


@pytest.mark.parametrize("vin, count", [
    (VIN, 2), (VIN.lower(), 0), (VIN[:-1], 0), (VIN + "7", 0), (f" {VIN} ", 2), (f"{VIN}\0junk", 2), ("", 0)])
def test_a_vin_that_differs_only_in_case_does_not_match(start, shop, vin, count):
    """Blanks around it don't matter."""
    history = History(VIN)
    history.add_active(4001, opened=TODAY, vin=vin)
    history.add_archived(3001, paid=TODAY, vin=vin)
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert numbers_of(summary_of(lines)) == [4001, 3001][:count]


def test_the_vin_of_the_estimate_is_trimmed(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    car_shop(shop, vin=f"  {VIN} ").write()
    history.write(shop)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == past(4001, "09/30/2003")


@pytest.mark.parametrize("vin", [None, "", " "])
def test_a_vehicle_without_a_vin_has_no_summary_at_all(start, shop, vin):
    history = History("")
    history.add_active(4001, opened=TODAY)
    car_shop(shop, vin=vin).write()
    history.write(shop)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert lines == EMPTY_BODY


def test_a_work_order_without_its_date_belongs_to_no_year(start, shop):
    car_shop(shop).write()
    history = History(VIN)
    history.add_active(4001, status="PAID", opened=TODAY)
    history.write(shop)
    lines, _ = open_worksheet(start, shop, **HISTORY, VehSummaryYears=150)
    assert not [line for line in lines if line.startswith("Workorder: ")]


def test_nothing_is_held_while_the_operator_is_asked(start, shop):
    shop.add_customer(8, "Baker", "Ann")
    car_shop(shop).write()
    history = History(VIN)
    history.add_active(4002, opened=TODAY, text=order_text(4002).replace("CustomerNumber=7", "CustomerNumber=8"))
    history.add_active(4001, opened=TODAY)
    history.write(shop)
    shop.path("W0004001.tqa").unlink()
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    copy.expect_box()
    for name in ("TQCSTDAT.DAT", "TQOPENWO.DAT", "TQINCTAG.DAT"):
        with denied_to_all(shop.path(name)):
            pass
    copy.press("Cancel")
    assert copy.answer["waiting"] == "preview"


def test_what_past_work_orders_say_is_no_work_order_of_the_estimate(start, shop):
    """A price is proposed at the level of the current work order, and none is open."""
    car_shop(shop).write()
    history = History(VIN)
    history.add_active(4001, opened=TODAY, text=order_text(4001).replace("Pricing=Retail", "Pricing=Wholesale"))
    history.write(shop)
    options(shop, NO_CHANGE, **HISTORY)
    proposals = []
    copy = choose(start(shop))
    copy.click("cmdDetailView")
    for _ in range(2):
        copy.click("cmdPartAddNonStock")
        copy.type("CostPrice", "10")
        copy.leave()
        proposals.append(copy.text("ListPrice"))
        copy.key("Esc")
        while copy.answer["waiting"] == "box":
            copy.press("Yes")
        copy.click("cmdPrintWorksheet")
        assert copy.answer["waiting"] == "preview"
        copy.close()
    assert proposals[0] == proposals[1] != ""


def test_the_summary_is_left_out_where_the_shop_wants_that(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY, text="")
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **BARE)
    assert lines == EMPTY_BODY


EIGHT = ["first", "second", "", "fourth", " ", "sixth", "seventh", "eighth"]


@pytest.mark.parametrize("shown, lines", [
    (0, 1), (1, 1), (2, 2), (3, 2), (4, 3), (5, 3), (6, 4), (7, 5), (8, 6), (9, 6)])
def test_so_many_lines_of_each_labor_as_the_option_says(start, shop, shown, lines):
    """With 1 the first one alone. A blank line counts and isn't printed."""
    history = History(VIN)
    history.add_active(4001, opened=TODAY, labor=[EIGHT, ["other", "line"]])
    write_history(shop, history)
    printed, _ = open_worksheet(start, shop, **HISTORY, VehSummaryLaborLines=shown)
    full = [f"       {text}" for text in EIGHT if text.strip()]
    other = ["       other", "       line"] if shown >= 2 else ["       other"]
    assert summary_of(printed) == past(4001, "09/30/2003", *full[:lines], *other)


def test_removed_labor_is_skipped_and_its_first_line_may_be_blank(start, shop):
    history = History(VIN)
    history.add_active(4001, opened=TODAY, labor=[["", "second"], ["free", "gone"], ["kept"], ["done"], ["behind"]])
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY, VehSummaryLaborLines=2)
    assert summary_of(lines) == past(4001, "09/30/2003", "       ", "       second", "       kept")


def test_tags_of_active_work_orders_in_the_archive_are_skipped(start, shop):
    """They count once, among the active ones; a closed one that is no longer there at all doesn't count."""
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    history.add_archived(3001, paid=TODAY, offset=-1, text="")
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert numbers_of(summary_of(lines)) == [4001]


def test_an_archived_tag_at_offset_0_is_read(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY, mileage=7)
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == past(3001, "09/30/2003", mileage=7)


def test_an_old_date_is_the_bare_day(start, shop):
    history = History(VIN)
    history.add_archived(3001, paid=TODAY)
    write_history(shop, history)
    tags = bytearray(history.archived)
    tags[83:87] = (37894).to_bytes(4, "little")  # 30 September 2003
    shop.path("TQINCTAG.DAT").write_bytes(tags)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == past(3001, "09/30/2003")


def test_a_shop_without_work_orders_has_a_bare_summary(start, shop):
    car_shop(shop).write()
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert summary_of(lines) == []


def test_hundreds_of_work_orders_are_looked_through(start, shop):
    history = History(VIN)
    for number in range(1, 601):
        mine = number in (1, 256, 257, 600)
        history.add_active(number, opened=TODAY, vin=VIN if mine else "OTHER", text=None if mine else "")
    write_history(shop, history)
    lines, _ = open_worksheet(start, shop, **HISTORY)
    assert numbers_of(summary_of(lines)) == [600, 257, 256, 1]

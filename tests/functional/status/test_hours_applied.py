"""The hours applied to work that goes on another day, and the line that takes them off."""

import pytest

from boardlines import CREATED, TODAY, row_of
from locks import denied_to_all
from movesteps import NEW, WEDNESDAY, applied, by_week_popup, continued_shop, everything, expect_copied, lines, told


@pytest.mark.parametrize("hours", [None, "0", "0.00", ".004"])
def test_continuing_with_0_hours_adds_no_line(start, shop, hours):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    if hours is not None:
        copy.type("txtHours", hours)
    copy.select("EmpList", text=f"{'Dan Ortiz':<31}000004")
    copy.click("OKButton")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    expect_copied(shop)


def test_a_person_who_stops_isnt_held_by_bad_hours(start, shop):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", "two")
    copy.click("CancelButton")
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 2


@pytest.mark.parametrize("text", ["two", "", " ", "1,2,x"])
def test_hours_must_be_numeric(start, shop, text):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", text)
    copy.leave()
    copy.expect_box("Please enter a numeric amount (0.00)", "Invalid amount", buttons=["OK"])
    copy.press("OK")
    assert copy.answer["focus"] == "txtHours"
    copy.type("txtHours", "1.5")
    copy.leave()
    copy.expect_form("frmContinue")
    assert copy.answer["focus"] != "txtHours"
    assert shop.estimate(NEW) is None


@pytest.mark.parametrize("text", ["-99999999", "-21474836.48", "99999999", "1e300"])
def test_hours_that_no_line_holds_leave_all_as_it_was(start, shop, text):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    before = everything(shop)
    copy.type("txtHours", text)
    copy.key("F10")
    assert copy.expect_box(title="Lantos", icon="critical")["text"].startswith("Overflow")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert everything(shop) == before


@pytest.mark.parametrize("typed, shown", [("2", "2.00"), (".5", "0.50"), ("1.257", "1.26"), ("-1", "-1.00"),
                                          (" 3 ", "3.00"), ("100", "100.00")])
def test_hours_are_shown_with_two_decimals(start, shop, typed, shown):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", typed)
    copy.leave()
    assert copy.text("txtHours") == shown
    copy.click("OKButton")
    copy.press("OK")
    expect_copied(shop, labor=[applied(round(float(shown) * 100))])


@pytest.mark.parametrize("rate, typed, total", [
    (6550, "0.33", -2162), (6550, "0.35", -2292), (6550, "0.45", -2948), (0, "2", 0)])
def test_the_amount_is_rounded_half_to_even(start, shop, rate, typed, total):
    """21.615, 22.925 and 29.475 dollars."""
    shop.system["shop_rate"] = rate
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", typed)
    copy.key("F10")
    copy.press("OK")
    line = lines(shop, "Labors", NEW)[-1]
    assert (line["LaborRate"], line["LaborTotal"]) == (rate, total)


def test_the_employees_with_none_ahead_and_the_active_ones_alone(start, shop):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    active = [" None", f"{'Al Bell':<31}000003", f"{'Dan Ortiz':<31}000004"]
    whole = [*active, f"{'Eve Gone':<31}000012"]

    def shown():
        state = copy.control("EmpList")
        return [row["text"] for row in state["rows"]], state["selected"]

    assert not copy.control("Check1")["checked"]
    assert shown() == (whole, 0)
    copy.select("EmpList", row=2)
    copy.check("Check1")
    assert shown() == (active, 0), "filled anew, it stands on None again"
    copy.check("Check1", False)
    assert shown() == (whole, 0)


@pytest.mark.parametrize("row, technician", [(0, 0), (1, 3), (2, 4), (3, 123456)])
def test_the_line_names_the_technician(start, shop, row, technician):
    shop.add_employee(123456, "Zoe With A Name That Is Very Long")
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    rows = {name: at for at, name in enumerate(copy.rows("EmpList"))}
    wanted = next(name for name in rows if (technician and name.endswith(f"{technician:06}")) or
                  (not technician and name == " None"))
    copy.select("EmpList", row=rows[wanted])
    copy.type("txtHours", "1")
    copy.key("F10")
    copy.press("OK")
    expect_copied(shop, labor=[applied(100, technician=technician)])


def test_with_the_employees_out_of_reach_it_is_continued_all_the_same(start, shop):
    continued_shop(shop)
    copy = start(shop)
    with denied_to_all(shop.path("TQEMPLOY.DAT")):
        by_week_popup(copy)
        copy.expect_box("Could not access employee master file!", buttons=["OK"])
        copy.press("OK")
    copy.expect_form("frmContinue")
    copy.type("txtHours", "1")
    copy.key("F10")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    expect_copied(shop, labor=[applied(100)])


def test_the_line_comes_behind_the_highest_number_and_first_where_there_is_no_labor(start, shop):
    shop.add_estimate(901, TODAY, status=1, CreateDate=CREATED)
    continued_shop(shop)
    copy = start(shop)
    for number, line in ((900, 6), (901, 1)):
        copy.right_click("List1(2)", row=row_of(copy, "List1(2)", number))
        copy.choose("Continued")
        copy.type("txtHours", "1")
        copy.key("F10")
        copy.press("OK")
        new = NEW if number == 900 else NEW + 1
        assert lines(shop, "Labors", new)[-1] == applied(100, number=line)


def test_continued_twice_each_day_is_taken_off(start, shop):
    continued_shop(shop)
    copy = by_week_popup(start(shop))
    copy.type("txtHours", "1")
    copy.key("F10")
    told(copy, "Automatically continued", "Wed 10/01/2003")
    copy.pick("MonthView1", WEDNESDAY)
    copy.right_click("List1(3)", row=row_of(copy, "List1(3)", NEW))
    copy.choose("Continued")
    assert copy.caption("lblHours").replace("&", "") == "Enter number of hours applied on 10/01/2003."
    copy.type("txtHours", "0.5")
    copy.key("F10")
    told(copy, "Automatically continued", "Thu 10/02/2003", since="Wed 10/01/2003")
    expect_copied(shop, NEW, labor=[applied(100)])
    expect_copied(shop, NEW + 1, labor=[applied(100), applied(50, number=7, date=WEDNESDAY)])
    assert [shop.estimate(number)["Status"] for number in (900, NEW, NEW + 1)] == [5, 5, 2]

"""Rules of the board that hold over several of its views."""

from boardlines import (CREATED, TODAY, add_elsewhere, hours_of, listed, row_of, shown_date, status_line, view_of)

MONDAY = "2003-09-29"
EXEMPT = "31-1234567"


def test_the_comment_of_a_special_day_shows_on_the_week_view_and_on_the_day_view(start, shop):
    shop.add_special_day("2003-10-02", 6, "  Half the crew  ")
    shop.write()
    copy = start(shop)
    assert copy.caption("lblWeekComment") == "Thu 10/2: Half the crew"
    copy.click("frameWeek(4)")
    copy.click("cmdDayView")
    assert copy.caption("lblDayComments") == "Half the crew"
    copy.click("cmdWeekView")
    copy.click("frameWeek(5)")
    copy.click("cmdDayView")
    assert copy.caption("lblDayComments") == "", "the next day is nothing special"


def test_a_scheduled_estimate_of_yesterday_is_a_no_show_everywhere_but_in_the_week_list(start, shop):
    for number, date in ((900, MONDAY), (901, TODAY)):
        shop.add_estimate(number, date, CreateDate=CREATED)
    shop.write()
    copy = start(shop)
    for number, date, panel, word, option in ((900, MONDAY, 1, "No-show", 8), (901, TODAY, 2, "Scheduled", 0)):
        copy.click("cmdWeekView")
        assert copy.rows(f"List1({panel})")[0] == f"{number:06} ", "no word in the week list"
        copy.click(f"List1({panel})", row=0)
        assert copy.caption("frameDetailView") == f"Est. # {number:06}  {shown_date(date)}  {word}"
        copy.click("cmdChangeStatus")
        copy.expect_form("frmEstStatus")
        assert [i for i in range(10) if copy.control(f"Option1({i})")["checked"]] == [option]
        copy.key("Esc")
        copy.pick("MonthView1", date, double=True)
        assert copy.rows("List2")[1] == status_line(word, date)
        assert shop.estimate(number)["Status"] == 0


def test_from_arrived_to_completed_nothing_is_loaded_anew_and_to_cancelled_the_week_is(start, shop):
    shop.add_estimate(900, TODAY, status=1, hours=2)
    shop.write()
    copy = start(shop)
    add_elsewhere(shop, 960)
    copy.right_click("List1(2)", row=0)
    copy.choose("In Progress")
    copy.right_click("List1(2)", row=0)
    copy.choose("Completed")
    assert (listed(copy, "List1(2)"), hours_of(copy)[2]) == ([900], "2.00")
    copy.click("cmdChangeStatus")
    copy.check("Option1(1)")
    copy.click("cmdOK")
    assert (listed(copy, "List1(2)"), hours_of(copy)[2]) == ([900], "2.00")
    copy.click("cmdChangeStatus")
    copy.check("Option1(6)")
    copy.click("cmdOK")
    assert (listed(copy, "List1(2)"), hours_of(copy)[2]) == ([900, 960], "0.00")


def test_the_sort_cust_goes_by_the_customers_number_and_not_by_the_name(start, shop):
    for number, customer, name in ((900, 9, "Zimmer"), (901, 100, "Adams"), (902, 20, "Miller")):
        shop.add_customer(customer, name)
        shop.add_estimate(number, TODAY, customer=customer)
    shop.write()
    copy = start(shop)
    copy.click("cmdDayView")
    copy.check("optDaySortBy(1)")
    assert listed(copy, "List2") == [900, 902, 901]


def test_a_tax_exempt_customer_pays_tax_on_taxable_sublets_and_waste_alone(start, shop):
    shop.system["tax_rate"] = (100000, 100000, 100000, 100000)
    shop.add_customer(7, "School", "City", tax_id_number=EXEMPT)
    for number, customer in ((900, 7), (901, 8)):
        shop.add_estimate(number, TODAY, customer=customer)
        shop.add_labor(number, 1, "BRAKES", 2, rate=5000)
        shop.add_part(number, "BP", "Pads", 1, 20000)
        shop.add_sublet(number, 1, "Glass Works", 30000, taxable="Yes")
        shop.add_sublet(number, 2, "Upholstery", 40000)
        shop.add_waste(number, 1, "Oil", 50000, taxable="Yes")
    shop.add_customer(8, "Adams", "Beth")
    shop.write()
    copy = start(shop)
    for number, tax in ((900, "80.00"), (901, "110.00")):
        copy.click("cmdWeekView")
        copy.double_click("List1(2)", row=row_of(copy, "List1(2)", number))
        assert view_of(copy) == ["Detail"]
        assert copy.text("txtTotalTax") == tax

"""The day list: its lines whole, sorts, filters, and what clicks in it select."""

import pytest

from boardlines import (CREATED, TODAY, add_elsewhere, comment_line, elsewhere, hours_of, labor_line, listed,
                        main_line, row_of, shown_date, status_line, view_of)

MONDAY = "2003-09-29"


def day_list(copy):
    copy.click("cmdDayView")
    return copy.rows("List2")


def test_the_lines_of_an_estimate(start, shop):
    shop.add_customer(7, "Adams", "Beth", phone=" 937-555-0142 ", WorkPhone="937-555-0177", WorkExt="12",
                      OtherPhone="555-0199")
    shop.add_estimate(900, TODAY, status=1, customer=7, CreateDate=CREATED, Comments="  Call when done  ",
                      VehYear="1999", VehMake="Ford", VehModel="Focus")
    shop.add_labor(900, 1, "Brake pads\tfront and rear\t\t\t\t\t\t", 1.5, mechanic=12)
    shop.add_labor(900, 2, "  Road test  ", 0.25, rate=10000)
    shop.add_row("Labors", EstimateNumber=900, LaborNumber=3)
    shop.add_estimate(901, TODAY, status=9, CreateDate="2003-01-05")
    shop.write()
    copy = start(shop)
    assert day_list(copy) == [
        main_line(900, "Adams,Beth", "1.75", "W:937-555-0177x12 H:937-555-0142 O:555-0199", "1999 Ford Focus"),
        comment_line("Call when done"),
        status_line("Arrived"),
        labor_line("000012 1.50 65.00 97.50 Brake pads"),
        labor_line("000000 0.25 100.00 25.00 Road test"),
        labor_line("000000 0.00 0.00 0.00 <No description>"),
        " ",
        main_line(901, "CUSTOMER,UNKNOWN", "0.00"),
        status_line("Estimate Only", created="2003-01-05"),
        " ",
    ]
    assert [row["data"] for row in copy.control("List2")["rows"]] == [900] * 7 + [901] * 3
    copy.check("cbShowLabor", False)
    assert copy.rows("List2") == [
        main_line(900, "Adams,Beth", "1.75", "W:937-555-0177x12 H:937-555-0142 O:555-0199", "1999 Ford Focus"),
        comment_line("Call when done"), status_line("Arrived"),
        main_line(901, "CUSTOMER,UNKNOWN", "0.00"), status_line("Estimate Only", created="2003-01-05")]
    copy.check("cbShowLabor")
    assert len(copy.rows("List2")) == 10


@pytest.mark.parametrize("comments", [None, "", "   "])
def test_empty_or_blank_comments_have_no_line(start, shop, comments):
    shop.add_estimate(900, TODAY, CreateDate=CREATED, Comments=comments)
    shop.write()
    assert day_list(start(shop)) == [main_line(900, "CUSTOMER,UNKNOWN", "0.00"), status_line("Scheduled"), " "]


def test_phones_and_vehicles_are_joined_and_cut(start, shop):
    phones = {
        1: ({"WorkPhone": "555-0101"}, "W:555-0101"),
        2: ({"WorkPhone": "555-0102", "WorkExt": " 7 "}, "W:555-0102x7"),
        3: ({"phone": "555-0103"}, " H:555-0103"),
        4: ({"OtherPhone": "555-0104"}, " O:555-0104"),
        5: ({"phone": "555-0105", "OtherPhone": "555-0205"}, "H:555-0105 O:555-0205"),
        6: ({"WorkExt": "44", "phone": "555-0106"}, " H:555-0106"),
        7: ({"WorkPhone": "(937) 555-0107", "WorkExt": "12345", "phone": "(937) 555-0207",
             "OtherPhone": "(937) 555-0307"}, "W:(937) 555-0107x12345 H:(937) 555-0207 O:(937) 555-0307"),
    }
    for number, (fields, _) in phones.items():
        shop.add_customer(number, f"Name{number}", "A", **fields)
        shop.add_estimate(900 + number, TODAY, customer=number, CreateDate=CREATED, VehYear="2002",
                          VehMake="Mercedes-Benz of Ohio", VehModel="Sprinter Long Bed")
    shop.write()
    copy = start(shop)
    lines = [line for line in day_list(copy) if not line.startswith(" ")]
    # The blank of the joint stays in front of a lone phone; the next joint trims it away.
    assert lines == [main_line(900 + number, f"Name{number},A", "0.00", text,
                               "2002 Mercedes-Benz of Ohio Sprinter Long Bed")
                     for number, (_, text) in phones.items()]
    assert all(len(line) == 6 + 1 + 32 + 1 + 40 + 1 + 32 + 1 + 7 for line in lines)


def test_labor_columns_do_not_line_up(start, shop):
    shop.add_estimate(900, TODAY)
    shop.add_labor(900, 1, "Small", 0.5, rate=500)
    shop.add_labor(900, 2, "Large", 112.25, rate=12500)
    shop.write()
    assert [line for line in day_list(start(shop)) if line.startswith("       0")] == [
        labor_line("000000 0.50 5.00 2.50 Small"), labor_line("000000 112.25 125.00 14031.25 Large")]


def test_negative_hours_come_off_the_line_and_the_day(start, shop):
    shop.add_estimate(900, TODAY, hours=6)
    shop.add_labor(900, 2, "HOURS APPLIED ON 09/29/2003", -2.5)
    shop.write()
    copy = start(shop)
    assert day_list(copy)[0] == main_line(900, "CUSTOMER,UNKNOWN", "3.50")
    assert labor_line("000000 -2.50 65.00 -162.50 HOURS APPLIED ON 09/29/2003") in copy.rows("List2")
    assert hours_of(copy)[2] == "3.50"


def test_a_past_estimate_reads_no_show_in_the_day_list_while_the_database_keeps_it_scheduled(start, shop):
    shop.add_estimate(900, MONDAY, CreateDate=CREATED)
    shop.add_estimate(901, TODAY, CreateDate=CREATED)
    shop.write()
    copy = start(shop)
    assert status_line("Scheduled") in day_list(copy), "today's stays Scheduled"
    copy.pick("MonthView1", MONDAY, double=True)
    assert copy.rows("List2") == [main_line(900, "CUSTOMER,UNKNOWN", "0.00"), status_line("No-show", MONDAY), " "]
    assert shop.estimate(900)["Status"] == 0


def test_a_past_scheduled_estimate_is_counted_as_scheduled_and_listed_as_no_show(start, shop):
    shop.add_estimate(900, MONDAY, hours=2, CreateDate=CREATED)
    shop.write()
    copy = start(shop)

    def seen():
        copy.pick("MonthView1", MONDAY, double=True)
        return listed(copy, "List1(1)"), hours_of(copy)[2], listed(copy, "List2")

    assert seen() == ([900], "2.00", [900])
    copy.menu("mnuShowStat(8)")
    assert seen() == ([900], "2.00", [])
    copy.menu("mnuShowStat(0)")
    assert seen() == ([], "0.00", [])
    copy.menu("mnuShowStat(8)")
    assert seen() == ([], "0.00", [900])


def test_an_estimate_whose_status_is_off_adds_no_line_and_no_hours(start, shop):
    shop.add_estimate(900, TODAY, status=1, hours=2)
    shop.add_estimate(901, TODAY, status=3, hours=4)
    shop.write()
    copy = start(shop)
    copy.click("cmdDayView")
    copy.menu("mnuShowStat(3)")
    assert (listed(copy, "List2"), hours_of(copy)[2]) == ([900, 901], "6.00"), "nothing before the next load"
    copy.click("cmdDayView")
    assert (listed(copy, "List2"), hours_of(copy)[2]) == ([900], "2.00")


def test_the_four_sorts(start, shop):
    shop.add_customer(31, "Adams")
    shop.add_customer(12, "Zimmer")
    shop.add_customer(25, "Miller")
    for number, customer, mechanic, vehicle in (
            (901, 31, 9, ("1999", "Ford", "Taurus")), (902, 12, 14, ("2001", "Ford", "Focus")),
            (903, 25, 3, ("1998", "Ford", "Focus")), (904, 40, 5, ("2003", "Audi", "A4"))):
        shop.add_estimate(number, TODAY, customer=customer, Mechanic=mechanic, VehYear=vehicle[0], VehMake=vehicle[1],
                          VehModel=vehicle[2])
    shop.write()
    copy = start(shop)
    copy.click("cmdDayView")
    assert [copy.caption(f"optDaySortBy({i})") for i in range(4)] == ["Est#", "Cust", "Veh", "Tech"]
    assert listed(copy, "List2") == [901, 902, 903, 904]
    for choice, order in ((1, [902, 903, 901, 904]), (2, [904, 903, 902, 901]), (3, [903, 904, 901, 902]),
                          (0, [901, 902, 903, 904])):
        copy.check(f"optDaySortBy({choice})")
        assert listed(copy, "List2") == order
        assert listed(copy, "List1(2)") == order
        assert view_of(copy) == ["Day"]


# What is selected.


def test_clicking_a_continuation_line_selects_the_main_line(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    shop.add_estimate(900, TODAY, status=3, hours=1)
    shop.add_estimate(901, TODAY, status=1, customer=7, Comments="Waits", hours=1)
    shop.write()
    copy = start(shop)
    lines = len(day_list(copy))
    main = row_of(copy, "List2", 901)
    assert (main, lines) == (4, 9)
    for row in range(main, lines):
        copy.click("List2", row=0)
        assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Completed"
        copy.click("List2", row=row)
        assert copy.control("List2")["selected"] == main
        assert copy.caption("frameDetailView") == "Est. # 000901  09/30/2003  Arrived"
        assert copy.caption("lblCustName") == "Beth Adams"
    assert view_of(copy) == ["Day"]


def test_a_double_click_opens_the_detail_view(start, shop):
    shop.add_estimate(900, TODAY, status=3, hours=1)
    shop.write()
    copy = start(shop)
    copy.click("cmdDayView")
    copy.double_click("List2", row=2)
    assert view_of(copy) == ["Detail"]
    assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Completed"


def test_a_day_without_estimates_was_chosen_all_the_same(start, shop):
    shop.add_special_day("2003-10-06", 0, "Shut on Monday")
    shop.add_special_day("2003-10-09", 0, "Shut on Thursday")
    shop.write()
    copy = start(shop)
    copy.click("frameWeek(4)")
    copy.pick("MonthView1", "2003-10-06", double=True)
    assert copy.rows("List2") == []
    assert copy.caption("lblDayComments") == "Shut on Monday"
    assert hours_of(copy)[0] == "Mon 10/6"


def test_a_load_clears_the_detail_and_keeps_the_estimate(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    shop.add_estimate(900, TODAY, status=3, customer=7, hours=1, Comments="Waits")
    shop.write()
    copy = start(shop)
    copy.click("List1(2)", row=0)
    assert (copy.caption("lblCustName"), copy.text("txtTotalLabor")) == ("Beth Adams", "65.00")
    copy.pick("MonthView1", "2003-10-14")
    assert copy.caption("frameDetailView") == ""
    assert (copy.caption("lblCustName"), copy.text("txtTotalLabor"), copy.text("txtComments")) == ("", "", "")
    assert (copy.rows("listLabor"), copy.rows("listParts")) == ([], [])
    copy.click("cmdDetailView")
    assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Completed"
    assert copy.caption("lblCustName") == "Beth Adams"


# Other workstations.


def test_the_list_shows_what_the_database_held_at_the_last_load(start, shop):
    shop.add_estimate(900, TODAY, CreateDate=CREATED)
    shop.write()
    copy = start(shop)
    copy.click("cmdDayView")
    add_elsewhere(shop, 901)
    elsewhere(shop, "UPDATE Estimates SET Status = 2 WHERE EstimateNumber = 900")
    assert listed(copy, "List2") == [900]
    assert copy.rows("List2")[1] == status_line("Scheduled")
    copy.click("cmdDayView")
    assert listed(copy, "List2") == [900, 901]
    assert copy.rows("List2")[1] == status_line("In Progress")


def test_a_customer_that_another_workstation_added_is_found(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    shop.add_estimate(900, TODAY, customer=8)
    shop.write()
    copy = start(shop)
    assert copy.rows("List1(2)") == ["000900 ", "  CUSTOMER,UNKNOWN"]
    shop.add_customer(8, "Newman", "Carl", phone="555-0108")
    shop.path("TQCSTTAG.DAT").write_bytes(shop.tags)
    shop.path("TQCSTDAT.DAT").write_bytes(shop.customers)
    assert day_list(copy)[0] == main_line(900, "Newman,Carl", "0.00", " H:555-0108")


def test_the_right_button_with_no_line_selected_offers_to_refresh_the_customers(start, shop):
    shop.add_estimate(900, TODAY)
    shop.write()
    copy = start(shop)
    copy.click("cmdDayView")
    for place in ("List2", "frameDayView", "lblDayComments"):
        assert copy.right_click(place)["menu"] == "mnuPopup", place
        copy.choose(None)
    copy.right_click("List2")
    copy.choose("mnuPopupRefreshCustomers")
    copy.expect_box("Customer information refreshed.", "Refresh Complete.", buttons=["OK"])
    copy.press("OK")
    assert listed(copy, "List2") == [900]


def test_looking_at_every_view_writes_nothing(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    shop.add_estimate(900, MONDAY, customer=7, hours=1)
    shop.add_estimate(901, TODAY, customer=9, hours=1)
    shop.write()
    copy = start(shop)
    before = shop.hashes(but=("LN*",))
    copy.click("List1(1)", row=0)
    for view in ("cmdDayView", "cmdDetailView", "cmdWeekView"):
        copy.click(view)
    copy.pick("MonthView1", MONDAY, double=True)
    copy.double_click("List2", row=1)
    copy.menu("mnuRefreshTotals")
    assert shop.hashes(but=("LN*",)) == before
    assert shown_date(MONDAY) in copy.caption("frameDetailView")

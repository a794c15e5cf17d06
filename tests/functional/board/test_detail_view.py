"""The detail view: one estimate in full, its totals and taxes, and its comments."""

import pytest

from boardlines import TODAY, elsewhere, listed, row_of, view_of

TOTALS = ["txtTotalHours", "txtTotalLabor", "txtTotalParts", "txtTotalSublet", "txtTotalWaste", "txtTotalTax",
          "txtTotalCost"]
CUSTOMER_LABELS = ["lblCustName", "lblCustSpouse", "lblCustAddr", "lblCustCSZ", "lblCustPhoneH", "lblCustPhoneW",
                   "lblCustPhoneO"]
VEHICLE_LABELS = ["lblVehYMM", "lblVehVIN", "lblVehLic", "lblVehDate", "lblVehMileage", "lblEngTrans"]
# Parts 8.25 %, labor 6 %, sublets 5 %, waste 4 %.
RATES = (82500, 60000, 50000, 40000)


def totals(copy):
    return [copy.text(name) for name in TOTALS]


def captions(copy, labels):
    return [copy.caption(label) for label in labels]


def show(copy, number=900):
    copy.click("cmdWeekView")
    copy.double_click("List1(2)", row=row_of(copy, "List1(2)", number))
    assert view_of(copy) == ["Detail"]
    return copy


def marks(copy):
    return [copy.control(f"cmdEstimate{screen}")["bold"] for screen in ("Notes", "Sublets", "Waste")]


def comments_of(shop, number=900):
    return shop.estimate(number)["Comments"]


# Who and what.


def test_the_customers_labels(start, shop):
    shop.add_customer(7, "Adams", "Beth", spouse="Carl", spouse_last="Cooper", phone="937-555-0142",
                      Address="12 Oak Street", City="Springfield", State="OH", Zip="45501",
                      WorkPhone="937-555-0177", WorkExt="12", OtherPhone="937-555-0199")
    shop.add_customer(8, "Miller", "", spouse="Dora", WorkPhone="555-0108")
    shop.add_estimate(900, TODAY, customer=7)
    shop.add_estimate(901, TODAY, customer=8)
    shop.add_estimate(902, TODAY, customer=99)
    shop.write()
    copy = show(start(shop))
    assert captions(copy, CUSTOMER_LABELS) == [
        "Beth Adams", "Cooper Carl", "12 Oak Street", "Springfield, OH 45501", "937-555-0142", "937-555-0177 x 12",
        "937-555-0199"]
    show(copy, 901)
    assert captions(copy, CUSTOMER_LABELS) == [" Miller", "Dora", "", ",  ", "", "555-0108", ""]
    show(copy, 902)
    assert "UNKNOWN" in copy.caption("lblCustName")
    assert captions(copy, CUSTOMER_LABELS)[4:] == ["", "", ""], "nothing of the customer before stays"


def test_the_vehicles_labels_come_from_the_estimates_own_snapshot(start, shop):
    customer = shop.add_customer(7, "Adams", "Beth")
    vehicle = shop.add_vehicle(customer, "Audi", "A4", "2003", VIN="OTHER", LicenseNumber="NEW 1")
    shop.add_estimate(900, TODAY, customer=7, vehicle=vehicle, VehYear="1999", VehMake="Ford", VehModel="Focus",
                      VehVIN="1FAFP34P1XW000001", VehLic="ABC 123", VehDate="01/15/2003", VehMileage="45210",
                      VehEng=" 2.0 L ", VehTrans=" Auto ")
    shop.add_estimate(901, TODAY, customer=7, vehicle=vehicle, VehEng=" ", VehTrans="Manual", VehDate=" ")
    shop.add_estimate(902, TODAY, customer=7, vehicle=vehicle, VehEng="V6", VehYear="2001")
    shop.write()
    copy = show(start(shop))
    assert captions(copy, VEHICLE_LABELS) == [
        "1999 Ford Focus", "1FAFP34P1XW000001", "ABC 123", "01/15/2003", "45210", "2.0 L Auto"]
    show(copy, 901)
    assert captions(copy, VEHICLE_LABELS) == ["  ", "", "", "", "", "Manual"]
    show(copy, 902)
    assert [text.rstrip() for text in captions(copy, VEHICLE_LABELS)] == ["2001", "", "", "", "", "V6"]


def test_the_caption_tells_number_date_and_status(start, shop):
    shop.add_estimate(900, TODAY, status=9)
    shop.add_estimate(12345678, TODAY, status=2)
    shop.write()
    copy = show(start(shop))
    assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Estimate Only"
    show(copy, 12345678)
    assert copy.caption("frameDetailView") == "Est. # 12345678  09/30/2003  In Progress"


def test_a_past_scheduled_estimate_is_a_no_show_in_the_caption(start, shop):
    shop.add_estimate(900, "2003-09-29")
    shop.write()
    copy = start(shop)
    copy.double_click("List1(1)", row=0)
    assert copy.caption("frameDetailView") == "Est. # 000900  09/29/2003  No-show"
    assert shop.estimate(900)["Status"] == 0


def test_without_a_current_estimate_all_fields_are_empty(lantos):
    lantos.click("cmdDetailView")
    assert view_of(lantos) == ["Detail"]
    assert lantos.caption("frameDetailView") == ""
    assert captions(lantos, CUSTOMER_LABELS + VEHICLE_LABELS) == [""] * 13
    assert totals(lantos) == [""] * 7
    assert lantos.text("txtComments") == ""
    assert lantos.rows("listLabor") + lantos.rows("listParts") == []


# Lines and totals.


def test_labor_and_part_lines(start, shop):
    shop.add_estimate(900, TODAY)
    shop.add_labor(900, 3, "BRAKE PADS\tFRONT\t\t  REAR AXLE  \t\t\t\t", 1.5, mechanic=12)
    shop.add_labor(900, 1, "ROAD TEST\t\t\t\t\t\t\t", 0.25)
    shop.add_part(900, "BP-1002", "Brake pad set, front axle", 2, 2499, cost=1410)
    shop.add_row("Parts", EstimateNumber=900, PartNumber="OLD-1", PartDesc="Bulb", Quantity=12, PartPrice=100,
                 PartTotal=1200)
    shop.write()
    copy = show(start(shop))
    assert [(row["text"], row["data"]) for row in copy.control("listLabor")["rows"] if row["text"][0] != " "] == [
        ("000000 0.25 65.00 16.25", 1), ("000012 1.50 65.00 97.50", 3)]
    assert copy.rows("listLabor") == ["000000 0.25 65.00 16.25", "       ROAD TEST", "000012 1.50 65.00 97.50",
                                      "       BRAKE PADS", "       FRONT", "       REAR AXLE"]
    assert copy.control("listLabor")["selected"] == 0
    assert [(row["text"], row["data"]) for row in copy.control("listParts")["rows"]] == [
        ("BP-1002               Brake pad set, front     2   24.99   49.98", 1410),
        ("OLD-1                 Bulb                    12    1.00   12.00", 0)]


def fill(shop, number, customer):
    """Labor 97.50 + 16.25 = 113.75, parts 4 x 24.99 = 99.96, sublets 120 taxed and 30 not, waste 3.50 taxed."""
    shop.add_estimate(number, TODAY, customer=customer)
    shop.add_labor(number, 1, "BRAKES", 1.5)
    shop.add_labor(number, 2, "TEST", 0.25)
    shop.add_part(number, "BP", "Pads", 4, 2499)
    shop.add_sublet(number, 1, "Glass Works", 12000, taxable="Yes")
    shop.add_sublet(number, 2, "Upholstery", 3000)
    shop.add_waste(number, 1, "Oil", 350, taxable="Yes")


def test_totals_and_taxes(start, shop):
    shop.system["tax_rate"] = RATES
    shop.add_customer(7, "Adams", "Beth")
    shop.add_customer(8, "School", "City", tax_id_number="31-1234567")
    fill(shop, 900, 7)
    fill(shop, 901, 8)
    shop.write()
    copy = show(start(shop))
    # Labor 6 % of 113.75 = 6.825; parts 8.25 % of 99.96 = 8.2467; sublets 5 % of 120.00 = 6.00; waste 4 % of 3.50 =
    # 0.14. Together 21.2117, and with 113.75 + 99.96 + 150.00 + 3.50 = 367.21 the cost is 388.4217.
    assert totals(copy) == ["1.75", "113.75", "99.96", "150.00", "3.50", "21.21", "388.42"]
    show(copy, 901)
    # Exempt: nothing on labor and parts, still 6.00 + 0.14 on the taxable extras.
    assert totals(copy) == ["1.75", "113.75", "99.96", "150.00", "3.50", "6.14", "373.35"]


def test_a_rate_below_one_is_no_tax(start, shop):
    shop.system["tax_rate"] = (-82500, -60000, -50000, -40000)
    shop.add_customer(7, "Adams", "Beth")
    fill(shop, 900, 7)
    shop.write()
    assert totals(show(start(shop)))[-2:] == ["0.00", "367.21"]


def test_negative_labor_takes_off_hours_and_no_money(start, shop):
    shop.system["tax_rate"] = RATES
    shop.add_estimate(900, TODAY)
    shop.add_labor(900, 1, "HOURS APPLIED ON 09/29/2003", -2.5)
    shop.add_estimate(901, TODAY)
    shop.add_labor(901, 1, "CLUTCH", 6)
    shop.add_labor(901, 2, "HOURS APPLIED ON 09/29/2003", -2.5)
    shop.write()
    copy = show(start(shop))
    assert totals(copy) == ["-2.50", "0.00", "0.00", "0.00", "0.00", "0.00", "0.00"]
    show(copy, 901)
    # 6 h x 65.00 = 390.00, and 6 % of it = 23.40.
    assert totals(copy) == ["3.50", "390.00", "0.00", "0.00", "0.00", "23.40", "413.40"]


def test_a_description_counts_nothing(start, shop):
    shop.add_estimate(900, TODAY)
    shop.add_labor(900, 1, "REPLACE 4 TIRES\tPAID 100.00\t 7.00 99.00", 1)
    shop.write()
    copy = show(start(shop))
    assert copy.rows("listLabor")[2] == "       PAID 100.00"
    assert totals(copy)[:2] == ["1.00", "65.00"]


def test_a_total_that_was_overtyped_counts_as_it_stands(start, shop):
    shop.add_row("Labors", EstimateNumber=900, LaborNumber=1, Description="A", LaborHours=100, LaborRate=6500,
                 LaborTotal=5000, Mechanic=0)
    shop.add_estimate(900, TODAY)
    shop.write()
    assert totals(show(start(shop)))[:2] == ["1.00", "50.00"]


def test_the_totals_menu_works_them_out_anew(start, shop):
    shop.add_estimate(900, TODAY, hours=1)
    shop.write()
    copy = show(start(shop))
    elsewhere(shop, "INSERT INTO Sublets (EstimateNumber, SubletNumber, Price, Taxable) VALUES (900, 1, 1000, 'No')")
    elsewhere(shop, "INSERT INTO Labors (EstimateNumber, LaborNumber, LaborHours, LaborTotal) VALUES (900, 2, 100, 1)")
    copy.menu("mnuRefreshTotals")
    # The extras are read from their table, labor from the list on show.
    assert totals(copy) == ["1.00", "65.00", "0.00", "10.00", "0.00", "0.00", "75.00"]
    assert marks(copy) == [False, True, False]


def test_notes_sublets_and_waste_are_marked_where_there_are_any(start, shop):
    for number in (900, 901, 902, 903):
        shop.add_estimate(number, TODAY)
    shop.add_note(901, 1, "Bring the old parts")
    shop.add_sublet(902, 1, "Glass", 0)
    shop.add_waste(903, 1, "Oil", 0)
    shop.write()
    copy = start(shop)
    seen = [marks(show(copy, number)) for number in (900, 901, 902, 903, 900)]
    assert seen == [[False, False, False], [True, False, False], [False, True, False], [False, False, True],
                    [False, False, False]]


# Comments.


def test_comments_are_written_trimmed_when_the_field_is_left(start, shop):
    shop.add_estimate(900, TODAY, Comments="  Old text  ")
    shop.write()
    copy = show(start(shop))
    assert copy.text("txtComments").strip() == "Old text"
    copy.type("txtComments", "  Customer's car \"runs\" rough; 50% é  ")
    assert comments_of(shop) == "  Old text  ", "not before the field is left"
    copy.leave()
    assert comments_of(shop) == "Customer's car \"runs\" rough; 50% é"
    copy.click("cmdDayView")
    assert " ----> Customer's car \"runs\" rough; 50% é" in copy.rows("List2")
    copy.click("cmdDetailView")
    assert copy.text("txtComments") == "Customer's car \"runs\" rough; 50% é"


def test_comments_are_written_every_time_changed_or_not(start, shop):
    shop.add_estimate(900, TODAY, Comments="Ours")
    shop.write()
    copy = show(start(shop))
    elsewhere(shop, "UPDATE Estimates SET Comments = 'Theirs', Status = 3 WHERE EstimateNumber = 900")
    copy.click("txtComments")
    copy.leave()
    assert comments_of(shop) == "Ours", "the later writer of a column wins"
    assert shop.estimate(900)["Status"] == 3, "and touches no other column"


def test_leaving_the_comments_keeps_the_mark_of_another_copys_work_order(start, shop):
    shop.add_estimate(900, TODAY, Comments="Ours")
    shop.write()
    copy = show(start(shop))
    copy.click("txtComments")
    elsewhere(shop, "UPDATE Estimates SET Comments = 'Workorder # 000123 Ours' WHERE EstimateNumber = 900")
    copy.leave()
    assert comments_of(shop) == copy.text("txtComments") == "Workorder # 000123 Ours"


def test_comments_typed_over_the_mark_of_another_copys_work_order_ask(start, shop):
    shop.add_estimate(900, TODAY, Comments="Ours")
    shop.write()
    copy = show(start(shop))
    copy.type("txtComments", "Typed")
    elsewhere(shop, "UPDATE Estimates SET Comments = 'Workorder # 000123 Ours' WHERE EstimateNumber = 900")
    copy.leave()
    copy.expect_box(title="Comments", buttons=["Yes", "No"])
    copy.press("No")
    assert comments_of(shop) == copy.text("txtComments") == "Workorder # 000123 Ours"


def test_comments_can_be_emptied(start, shop):
    shop.add_estimate(900, TODAY, Comments="Old")
    shop.write()
    copy = show(start(shop))
    copy.type("txtComments", "   ")
    copy.leave()
    assert (comments_of(shop) or "").strip() == ""
    copy.click("cmdDayView")
    assert not any("---->" in line for line in copy.rows("List2"))


def test_comments_belong_to_the_estimate_on_show(start, shop):
    shop.add_estimate(900, TODAY, Comments="First")
    shop.add_estimate(901, TODAY, Comments="Second")
    shop.write()
    copy = show(start(shop))
    copy.type("txtComments", "Changed")
    show(copy, 901)
    assert copy.text("txtComments") == "Second"
    assert (comments_of(shop, 900), comments_of(shop, 901)) == ("Changed", "Second")


@pytest.mark.parametrize("way", ["click", "menu", "close"])
def test_no_way_out_of_the_comments_loses_them(start, shop, way):
    shop.add_estimate(900, TODAY, Comments="First")
    shop.write()
    copy = show(start(shop))
    copy.type("txtComments", "Typed")
    if way == "click":
        copy.click("cmdWeekView")
    elif way == "menu":
        copy.menu("mnuChangeStatus")
        copy.check("Option1(6)")
        copy.click("cmdOK")  # loads the week anew, and so fills the view again
        assert copy.text("txtComments") == "Typed"
    else:
        copy.close_window()
    assert comments_of(shop) == "Typed"


def test_another_estimate_replaces_all_of_the_first(start, shop):
    shop.system["tax_rate"] = RATES
    shop.add_customer(7, "Adams", "Beth", Address="12 Oak Street")
    fill(shop, 900, 7)
    shop.add_estimate(901, TODAY)
    shop.write()
    copy = show(start(shop))
    show(copy, 901)
    assert copy.caption("lblCustAddr") == ""
    assert copy.rows("listLabor") + copy.rows("listParts") == []
    assert totals(copy) == ["0.00"] * 7
    assert listed(copy, "List1(2)") == [900, 901]

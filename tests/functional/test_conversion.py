"""An estimate becomes a work order of the main application: the two tags and the text, byte for byte."""

import pytest

from boardlines import row_of
from conversionsteps import (FIRST, PARTS, THURSDAY, answer_status, begin, convert, convert_whole, estimate,
                             expect_converted, shop, show, stored_comments)
from historyfiles import History, order_text
from inventoryfiles import MASTER_LENGTH, make_inventory, read_masters, read_tags
from inventoryfiles import TAG as STOCK_TAG
from inventoryfiles import TAG_LENGTH as STOCK_TAG_LENGTH
from shopfiles import NO_LINK, file_date
from workfiles import make_checklist
from workorderfiles import (ACTIVE_FILE, ARCHIVED_FILE, USAGE_FILE, active_tags, add_paid_employee, archived_tags,
                            extra_row, file_name, keys, labor_row, read_workorder, tags_of, text_of, totals_in_text,
                            usage_record, usage_records, used_from)

# The whole of it.


OLD_USAGE = (usage_record("NUT-3", 4001, "2003-01-07", "Smith,John", 1, 1, 1)
             + usage_record("OIL-1", 4002, "2003-01-08", "Smith,John", 5, 100, 165, previous=NO_LINK))


def fill_whole_estimate(shop):
    """One of everything, scheduled for Thursday."""
    shop.path("").mkdir(parents=True, exist_ok=True)
    owner = shop.add_customer(
        8, "Baker", "Ann", "Carl", "Cook", "555-1000", Address="1 Elm St.", City="Dayton", State="OH", Zip="45402",
        WorkPhone="555-2000", WorkExt="12", OtherPhone="555-3000", salesperson="Sue", pricing_level=2)
    shop.add_vehicle(owner, "Ford", "Focus", "1999", "2003-09-01", EngineSize="2.0L", Transmission="Auto", VIN="VIN-1",
                     LicenseNumber="ABC 123", State="OH", VComment1="red", VComment3="dented", Mileage=81234,
                     FirstMileage=500, FirstDate=file_date("1999-05-01"))
    shop.add_vehicle(owner, "Audi", "A4", "2001", VIN="VIN-2", LicenseNumber="XYZ 9")
    estimate(shop, date=THURSDAY, customer=8, Comments="wants it by noon", VehYear="1999", VehMake="Ford",
             VehModel="Focus", VehVIN="VIN-1", VehLic="ABC 123", VehDate="09/01/2003", VehMileage="81234",
             VehEng="2.0L", VehTrans="Auto", vehicle=0)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 5, 3500, 2000, 3650)
    shop.add_part(900, "OIL-1", "MOTOR OIL QT", 40, 165, 100, 0)
    shop.add_part(900, "FLT-2", "OIL FILTER", 3, 433, 250, 499)
    shop.add_part(900, "GONE-7", "NO LONGER SOLD", 2, 101, 50, 0)
    add_paid_employee(shop, 5, "Eve", salary=346667, salary_period=4, commission=70000)
    shop.add_labor(900, 1, "Replace pads\tand look at\t\tthe discs", 1.5, mechanic=4)
    shop.add_labor(900, 2, "HOURS APPLIED ON 09/29/2003", -1, mechanic=4)
    shop.add_labor(900, 3, "Oil change", 0.25, 8000, mechanic=5)
    shop.add_row("Labors", EstimateNumber=900, LaborNumber=4, Description="Shuttle", LaborHours=0, LaborRate=0,
                 LaborTotal=1234, Mechanic=0)
    for table, key, rows in (
            ("Sublets", "SubletNumber", [("Towing Inc", "INV-1", 4000, 5000, "tow", "", "far", "", "Yes"),
                                         ("Glass Co", "", 1000, 1500, "pane", "", "", "", "No")]),
            ("Waste", "WasteNumber", [("Disposal Fee", "", 100, 250, "for: OIL-1", "", "", "", "Yes"),
                                      ("Old tires", "W-7", 30, 75, "", "", "", "", "No")])):
        for i, (vendor, invoice, cost, price, *texts, taxable) in enumerate(rows):
            shop.add_row(table, EstimateNumber=900, **{key: i + 1}, VendorName=vendor, VendorInvoice=invoice,
                         Cost=cost, Price=price, Taxable=taxable,
                         **{f"Desc{n + 1}": text for n, text in enumerate(texts)})
    shop.add_note(900, 5, "the other", *[""] * 7)
    shop.add_note(900, 1, "first", "", " third ", *[""] * 5)
    shop.add_note(900, 3, *[""] * 8)
    make_checklist(shop, ["[Brakes]", "Pads", "Discs", "[Lights]", "Head lamps"])
    for data in ("[Brakes], , ", "Discs,worn,95000", "[Lights], , ", "Head lamps, , "):
        shop.add_row("Checklist", EstimateNumber=900, ChecklistData=data)


def test_the_whole_work_order_byte_for_byte(start, shop):
    """Amounts worked out by hand. Parts: 175.00 + 66.00 + 12.99 + 2.02, tax 14.44 (14.4375) + 5.44 (5.445, to the even
    cent) + 1.07 + 0.17. Labor: 97.50 + 20.00 + 12.34, tax 5.61 + 1.15 + 0.71. Sublets 50.00 taxed 3.00; waste 2.50
    taxed 0.15, at the rate of sublets. Cost of labor: 1.5 h x 24.50 + 5.5 % of 97.50, and 0.25 h of 3466.67 a
    month."""
    fill_whole_estimate(shop)
    copy = begin(start, shop, PARTS, panel=4, usage=OLD_USAGE)
    before = {name: shop.path(name).read_bytes() for name in shop.names("TQ*")}
    convert(copy, name="Ann Baker")
    copy.expect_form("frmVehEdit")
    assert copy.answer["caption"] == "Convert to WO - Vehicle Information"
    assert [copy.text(name) for name in ("CustomerNumber", "Lastname", "Make", "VIN", "Mileage", "VComment(0)")] == [
        "000008", "Baker", "Ford", "VIN-1", "81234", "red"]
    copy.key("F10")
    copy.expect_box("Parts which might need to be ordered.\n\nOIL-1 quantity in stock is now 0"
                    "\nFLT-2 quantity in stock is now -2", "Convert - Inventory Status", "information", ["OK"])
    copy.press("OK")
    expect_converted(copy, FIRST)
    answer_status(copy)

    head = {
        "CustomerName": "Baker,Ann", "CustomerNumber": 8, "VIN": "VIN-1", "LicenseNumber": "ABC 123",
        "DateOpen": 731870, "PartsTaxRate": 82500, "LaborTaxRate": 57500, "SubletTaxRate": 60000, "WasteTaxRate": 10000,
        "PartsCost": 14850, "LaborCost": 4711, "SubletCost": 4100, "NonTaxSubletCost": 1030, "PartsSubtotal": 25601,
        "LaborSubtotal": 12984, "SubletSubtotal": 5250, "NonTaxSubletSubtotal": 1575, "WorkorderTax": 3174,
        "WorkorderTotal": 48584,
    }
    active, archived = tags_of(FIRST, **head)
    assert shop.path(ACTIVE_FILE).read_bytes() == active
    assert shop.path(ARCHIVED_FILE).read_bytes() == archived
    assert shop.path("W0005001.tqa").read_bytes() == text_of(
        "[Workorder]", "WorkorderNumber=005001", "Status=OPEN", "Type=Repair", "Pricing=Resale", "",
        "[Totals]", "DateOpen=10/02/2003", "PartsTaxRate=82500", "LaborTaxRate=57500", "SubletTaxRate=60000",
        "WasteTaxRate=10000", "PartsCost=14850", "LaborCost=4711", "SubletCost=4000", "NonTaxSubletCost=1000",
        "WasteCost=100", "NonTaxWasteCost=30", "PartsSubtotal=25601", "LaborSubtotal=12984", "SubletSubtotal=5000",
        "NonTaxSubletSubtotal=1500", "WasteSubtotal=250", "NonTaxWasteSubtotal=75", "WorkorderTax=3174",
        "WorkorderTotal=48584", "PaymentMethod=        ", "",
        "[Customer]", "CustomerNumber=8", "Lastname=Baker", "Firstname=Ann", "Spouse=Carl", "SpouseLastname=Cook",
        "Address=1 Elm St.", "City=Dayton", "State=OH", "Zip=45402", "Phone1=555-1000", "Phone2=555-2000",
        "Phone2ext=12", "Phone3=555-3000", "Salesperson=Sue", "",
        "[Vehicle]", "Year=1999", "Make=Ford", "Model=Focus", "Engine=2.0L", "Transmission=Auto", "VIN=VIN-1",
        "LicenseNumber=ABC 123", "State=OH", "Mileage=81234", "Date=09/01/2003", "VComment1=red", "VComment3=dented",
        "OrigMileage=500", "OrigDate=05/01/1999", "",
        "[Parts]",
        "PAD-9               BRAKE PADS                                5        2000        3500        3650",
        "OIL-1               MOTOR OIL QT                             40         100         165            ",
        "FLT-2               OIL FILTER                                3         250         433         499",
        "GONE-7              NO LONGER SOLD                            2          50         101            ", "",
        "[Labor]",
        "000004         150        6500       55000        9750Replace pads\tand look at\t\tthe discs\t\t\t\t\t"
        "0      \t0    \t       ",
        "000005          25        8000       70000        2000Oil change\t\t\t\t\t\t\t\t0      \t0    \t       ",
        "000000                                   0        1234Shuttle\t\t\t\t\t\t\t\t0      \t0    \t       ", "",
        "[Sublets]",
        "Towing Inc                     INV-1     Y        4000        5000tow\t\tfar\t",
        "Glass Co                                 N        1000        1500pane\t\t\t", "",
        "[Waste]",
        "Disposal Fee                             Y         100         250for: OIL-1\t\t\t",
        "Old tires                      W-7       N          30          75\t\t\t", "",
        "[Credits]", "",
        "[Notes]", "first\t\tthird", "the other", "",
        "[Check List]", "[Brakes]", "Discs,worn,95000", "[Lights]", "Head lamps, , ", "")
    assert shop.path(USAGE_FILE).read_bytes() == (
        OLD_USAGE
        + usage_record("PAD-9", FIRST, THURSDAY, "Baker,Ann", 5, 2000, 3500)
        + usage_record("OIL-1", FIRST, THURSDAY, "Baker,Ann", 40, 100, 165, previous=76)
        + usage_record("FLT-2", FIRST, THURSDAY, "Baker,Ann", 3, 250, 433))

    tags, masters = (bytearray(before[name]) for name in ("TQINVTAG.DAT", "TQINVENT.DAT"))
    for place, stock, link in ((0, 1, 152), (1, 0, 228), (2, -2, 304)):
        at = STOCK_TAG_LENGTH * place + STOCK_TAG["InStock"][0]
        tags[at:at + 2] = stock.to_bytes(2, "little", signed=True)
        base = MASTER_LENGTH * place
        masters[base + 331:base + 333] = stock.to_bytes(2, "little", signed=True)
        masters[base + 336:base + 340] = link.to_bytes(4, "little")
    assert shop.path("TQINVTAG.DAT").read_bytes() == tags
    assert shop.path("TQINVENT.DAT").read_bytes() == masters

    system = bytearray(before["TQSYSTEM.DAT"])
    system[0:4] = (FIRST + 1).to_bytes(4, "little")
    assert shop.path("TQSYSTEM.DAT").read_bytes() == system
    changed = {"TQINVTAG.DAT", "TQINVENT.DAT", "TQSYSTEM.DAT", USAGE_FILE}
    assert {name: data for name, data in before.items() if name not in changed} == {
        name: shop.path(name).read_bytes() for name in before if name not in changed}
    assert set(shop.names("TQ*")) - set(before) == {ACTIVE_FILE, ARCHIVED_FILE}
    kept = shop.estimate(900)
    assert (kept["Comments"], kept["Status"], kept["SchedDate"]) == (
        "Workorder # 005001 wants it by noon", 0, THURSDAY)
    assert copy.text("txtComments") == "Workorder # 005001 wants it by noon"
    assert len(shop.query("SELECT * FROM Labors")) == 4, "what the estimate holds stays"


def test_running_totals_stand_in_the_tags_and_totals_by_line_in_the_text(start, shop):
    """Waste counts as sublets while the total is built; the text sorts it out, the tax and the total keep it."""
    estimate(shop)
    for table, rows in (("Sublets", [(1000, 2000, "Yes"), (10, 20, "No")]),
                        ("Waste", [(300, 500, "Yes"), (7, 9, "No")])):
        for i, (cost, price, taxable) in enumerate(rows):
            shop.add_row(table, EstimateNumber=900, **{f"{table.rstrip('s')}Number": i + 1}, VendorName="V", Cost=cost,
                         Price=price, Taxable=taxable)
    convert_whole(begin(start, shop))
    (active,), (archived,), text = active_tags(shop), archived_tags(shop), totals_in_text(shop, FIRST)
    names = ["SubletCost", "NonTaxSubletCost", "WasteCost", "NonTaxWasteCost", "SubletSubtotal",
             "NonTaxSubletSubtotal", "WasteSubtotal", "NonTaxWasteSubtotal", "WorkorderTax", "WorkorderTotal"]
    running = [1300, 17, 0, 0, 2500, 29, 0, 0, 150, 2679]
    assert [active[name] for name in names] == running
    assert [archived[name] for name in names] == running
    assert [text[name] for name in names] == [1000, 10, 300, 7, 2000, 20, 500, 9, 150, 2679]


def test_a_taxable_waste_line_is_taxed_at_the_sublet_rate(start, shop):
    estimate(shop)
    shop.add_waste(900, 1, "Disposal", 10000, taxable="Yes")
    convert_whole(begin(start, shop))
    assert active_tags(shop)[0]["WorkorderTax"] == 600, "6 %, not the 1 % of waste"
    assert totals_in_text(shop, FIRST)["WorkorderTax"] == 600


def test_an_estimate_with_no_lines_gives_only_sentinels_and_a_total_of_0(start, shop):
    estimate(shop)
    convert_whole(begin(start, shop))
    assert shop.path("W0005001.tqa").read_bytes() == text_of(
        "[Workorder]", "WorkorderNumber=005001", "Status=OPEN", "Type=Repair", "Pricing=Retail", "",
        "[Totals]", "DateOpen=09/30/2003", "PartsTaxRate=82500", "LaborTaxRate=57500", "SubletTaxRate=60000",
        "WasteTaxRate=10000", "PaymentMethod=        ", "",
        "[Customer]", "CustomerNumber=7", "Lastname=Adams", "Firstname=Beth", "Salesperson=None", "",
        "[Parts]", "", "[Labor]", "", "[Sublets]", "", "[Waste]", "", "[Credits]", "", "[Notes]", "",
        "[Check List]", "")
    active, archived = tags_of(FIRST, CustomerName="Adams,Beth", CustomerNumber=7, DateOpen=731868,
                               PartsTaxRate=82500, LaborTaxRate=57500, SubletTaxRate=60000, WasteTaxRate=10000)
    assert shop.path(ACTIVE_FILE).read_bytes() == active
    assert shop.path(ARCHIVED_FILE).read_bytes() == archived
    assert shop.path(USAGE_FILE).read_bytes() == b""
    assert stored_comments(shop).rstrip() == "Workorder # 005001"


def test_the_date_opened_is_the_estimates_day_whatever_today_is(start, shop):
    estimate(shop, date=THURSDAY)
    estimate(shop, 901, date="2003-09-29", status=1)
    shop.add_labor(901, 1, "Look", 1)
    shop.add_part(901, "PAD-9", "BRAKE PADS", 1, 3500)
    copy = begin(start, shop, PARTS, panel=4, profile={"Options": {"LaborDateOption": "True"}})
    convert_whole(copy)
    show(copy, 901, 1)
    convert(copy, 901)
    expect_converted(copy, FIRST + 1, 901)
    answer_status(copy, word="Arrived")
    assert [tag["DateOpen"] for tag in active_tags(shop)] == [731870, 731867]
    assert keys(read_workorder(shop, FIRST)["Totals"])["DateOpen"] == "10/02/2003"
    assert read_workorder(shop, FIRST + 1)["Labor"] == ["09/29/2003" + labor_row(0, 100, 6500, 0, 6500, "Look")]
    assert usage_records(shop)[0]["Date"] == 731867


def test_repair_codes_give_each_labor_line_an_empty_column(start, shop):
    estimate(shop)
    shop.add_labor(900, 1, "Look", 1, mechanic=4)
    convert_whole(begin(start, shop, profile={"Options": {"RepairCodeOption": "True"}}))
    assert read_workorder(shop, FIRST)["Labor"] == [labor_row(4, 100, 6500, 55000, 6500, "Look") + "\t"]


def test_lines_without_a_name_stay_out_of_the_text_and_of_its_sums(start, shop):
    """A list's reader takes a blank entry for none; the running totals have them."""
    estimate(shop)
    shop.add_labor(900, 1, "\tsecond line alone", 1, 5000)
    shop.add_sublet(900, 1, "", 700, 300, taxable="Yes")
    shop.add_sublet(900, 2, "Tow", 100, 50, taxable="Yes")
    convert_whole(begin(start, shop))
    text, sections = totals_in_text(shop, FIRST), read_workorder(shop, FIRST)
    assert sections["Labor"] == []
    assert sections["Sublets"] == [extra_row("Tow", "", "Y", 50, 100)]
    tag = active_tags(shop)[0]
    assert (tag["SubletCost"], tag["SubletSubtotal"], text["SubletCost"], text["SubletSubtotal"]) == (350, 800, 50, 100)
    assert tag["LaborSubtotal"] == text["LaborSubtotal"] == 5000


@pytest.mark.parametrize("stored, written", [("", "None"), ("   ", "None"), ("Sue", "Sue")])
def test_a_salesperson_that_was_never_set_is_none(start, shop, stored, written):
    shop.add_customer(9, "Driver", "Di", salesperson=stored)
    estimate(shop, customer=9)
    copy = begin(start, shop)
    convert(copy, name="Di Driver")
    expect_converted(copy, FIRST)
    answer_status(copy)
    assert keys(read_workorder(shop, FIRST)["Customer"])["Salesperson"] == written


def test_long_texts_are_cut_to_their_fields(start, shop):
    owner = shop.add_customer(9, "Featherstonehaugh-Ma", "Wilhelmina Alexandra")
    shop.add_vehicle(owner, "Ford", "F", "1999", VIN="ABCDEFGHIJKLMNOPQRSTU", LicenseNumber="LICENSE-NR1")
    estimate(shop, customer=9, VehVIN="ABCDEFGHIJKLMNOPQRSTU")
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500)
    copy = begin(start, shop, PARTS)
    convert(copy, name="Wilhelmina Alexandra Featherstonehaugh-Ma")
    expect_converted(copy, FIRST)
    answer_status(copy)
    name = "Featherstonehaugh-Ma,Wilhelmina Alexandra"
    (tag,) = active_tags(shop)
    assert (tag["CustomerName"], tag["VIN"], tag["LicenseNumber"]) == (name[:31], "ABCDEFGHIJKLMNOPQRST", "LICENSE-NR")
    assert usage_records(shop)[0]["CustomerKey"] == name[:32], "the history has no closing NUL to keep"


# The customer.


def test_a_customer_with_a_tax_number_gets_four_rates_of_0(start, shop):
    shop.add_customer(9, "Fleet", "Frank", tax_id_number="31-12345")
    estimate(shop, customer=9)
    shop.add_part(900, "X-1", "ANYTHING", 1, 10000)
    shop.add_labor(900, 1, "Work", 1)
    shop.add_sublet(900, 1, "Tow", 5000, taxable="Yes")
    shop.add_waste(900, 1, "Fee", 100, taxable="Yes")
    copy = begin(start, shop)
    convert(copy, name="Frank Fleet")
    expect_converted(copy, FIRST)
    answer_status(copy)
    for tag in (active_tags(shop)[0], archived_tags(shop)[0]):
        assert [tag[f"{name}TaxRate"] for name in ("Parts", "Labor", "Sublet", "Waste")] == [0, 0, 0, 0]
        assert (tag["TaxExempt"], tag["WorkorderTax"], tag["WorkorderTotal"]) == (1, 0, 21600)
    sections = read_workorder(shop, FIRST)
    assert not any("Tax" in line for line in sections["Totals"])
    assert "TaxIDNumber=31-12345" in sections["Customer"]


def test_the_pricing_level_of_the_customer_is_named(start, shop):
    for level in range(4):
        shop.add_customer(20 + level, "Level", str(level), pricing_level=level)
        estimate(shop, 900 + level, customer=20 + level)
    copy = begin(start, shop, options={"ScheduledToComplete": "Y"})
    for level, name in enumerate(("Cost", "Wholesale", "Resale", "Retail")):
        show(copy, 900 + level)
        convert(copy, 900 + level, f"{level} Level")
        expect_converted(copy, FIRST + level, 900 + level)
        assert keys(read_workorder(shop, FIRST + level)["Workorder"])["Pricing"] == name


def test_any_other_pricing_level_counts_as_retail(start, shop):
    for number, level in ((20, -1), (21, 4)):
        shop.add_customer(number, "Odd", "Otto", pricing_level=level)
        estimate(shop, 880 + number, customer=number)
    copy = begin(start, shop, number=900, options={"ScheduledToComplete": "Y"})
    for i in range(2):
        show(copy, 900 + i)
        convert(copy, 900 + i, "Otto Odd")
        expect_converted(copy, FIRST + i, 900 + i)
        assert keys(read_workorder(shop, FIRST + i)["Workorder"])["Pricing"] == "Retail"


# Labor.


def test_the_cost_of_labor_follows_each_mechanics_pay_period(start, shop):
    """Two hours each at 50.00; the wage of an hour in cents, worked out by hand."""
    pay = [
        (dict(wage=1999, wage_period=1, salary=500000), 1999),
        (dict(wage=1999, wage_period=0), 0),
        (dict(salary=100020, salary_period=1), 2500),      # / 40 is 2500.5: the even cent
        (dict(salary=200120, salary_period=2), 2502),      # / 80 is 2501.5
        (dict(salary=260000, salary_period=3), 3000),      # / 86.67
        (dict(salary=346667, salary_period=4), 2000),      # / 173.33
        (dict(salary=1040260, salary_period=5), 2000),     # / 520 is 2000.5
        (dict(salary=2080000, salary_period=6), 2000),     # / 1040
        (dict(salary=4163120, salary_period=7), 2002),     # / 2080 is 2001.5
        (dict(salary=16004, salary_period=8), 2000),       # / 8 is 2000.5
        (dict(salary=16004, salary_period=9, wage=1999, wage_period=1), 0),
    ]
    for i, (fields, _) in enumerate(pay):
        add_paid_employee(shop, 20 + i, f"Paid {i}", **fields)
        estimate(shop, 900 + i)
        shop.add_labor(900 + i, 1, "Work", 2, 5000, mechanic=20 + i)
    for number, mechanic in ((920, 99), (921, 0), (922, -1)):
        estimate(shop, number)
        shop.add_labor(number, 1, "Work", 2, 5000, mechanic=mechanic)
    copy = begin(start, shop, options={"ScheduledToComplete": "Y"})
    numbers = [*range(900, 900 + len(pay)), 920, 921, 922]
    for i, number in enumerate(numbers):
        show(copy, number)
        convert(copy, number)
        expect_converted(copy, FIRST + i, number)
    assert [tag["LaborCost"] for tag in active_tags(shop)] == [*(2 * wage for _, wage in pay), 0, 0, 0]


def test_commission_costs_only_where_it_is_paid_but_stands_on_each_line(start, shop):
    """5.5 % of 4.5 h x 65.00 is 16.0875, with 110.25 of wages 126.3375."""
    add_paid_employee(shop, 6, "No period", wage=1000, wage_period=1, commission=125000)
    estimate(shop)
    shop.add_labor(900, 1, "With", 4.5, mechanic=4)
    shop.add_labor(900, 2, "Without", 1, mechanic=6)
    convert_whole(begin(start, shop))
    assert active_tags(shop)[0]["LaborCost"] == 12634 + 1000
    assert read_workorder(shop, FIRST)["Labor"] == [labor_row(4, 450, 6500, 55000, 29250, "With"),
                                                    labor_row(6, 100, 6500, 125000, 6500, "Without")]


def test_hours_applied_on_another_day_stay_behind(start, shop):
    estimate(shop)
    shop.add_labor(900, 1, "Work", 3, 6500, mechanic=4)
    shop.add_labor(900, 2, "HOURS APPLIED ON 09/29/2003", -1.5, 6500, mechanic=4)
    shop.add_labor(900, 3, "Free of hours", 0, 6500, mechanic=4)
    convert_whole(begin(start, shop))
    assert read_workorder(shop, FIRST)["Labor"] == [labor_row(4, 300, 6500, 55000, 19500, "Work"),
                                                    labor_row(4, 0, 6500, 55000, 0, "Free of hours")]
    assert active_tags(shop)[0]["LaborSubtotal"] == 19500


def test_a_description_of_eight_lines_is_split_at_its_tabs(start, shop):
    estimate(shop)
    lines = [f"line {i}" for i in range(1, 9)]
    shop.add_labor(900, 1, "\t".join([*lines, "the ninth"]), 1, mechanic=4)
    convert_whole(begin(start, shop))
    assert read_workorder(shop, FIRST)["Labor"] == [labor_row(4, 100, 6500, 55000, 6500, *lines)]


# Notes and checklist.


def test_thirty_notes_fit(start, shop):
    estimate(shop)
    for i in range(30):
        shop.add_note(900, 30 - i, f"note {30 - i}", *[""] * 6, "last")
    convert_whole(begin(start, shop))
    assert read_workorder(shop, FIRST)["Notes"] == [f"note {i}" + "\t" * 7 + "last" for i in range(1, 31)]


def test_thirty_one_notes_fail_with_stock_moved_the_number_used_and_no_file(start, shop):
    estimate(shop, Comments="as before")
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    for i in range(31):
        shop.add_note(900, i + 1, f"note {i + 1}")
    copy = begin(start, shop, PARTS)
    convert(copy)
    box = copy.expect_box(icon="critical", buttons=["OK"])
    assert box["text"] == ("Subscript out of range: a work order has room for 30 notes.\n\n"
                           "The conversion to work order # 005001 stopped here. What was done before stays:\n"
                           "- the number was taken\n- the usage of PAD-9 was noted\n- the stock of PAD-9 is now 4\n"
                           "The next step was not finished.")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert shop.read_system()["last_workorder_number"] == FIRST + 1
    assert read_tags(shop.directory)[0]["InStock"] == read_masters(shop.directory)[0]["QtyInStock"] == 4
    assert [record["WorkorderNumber"] for record in usage_records(shop)] == [FIRST]
    assert not shop.names("W*.tqa") and active_tags(shop) == archived_tags(shop) == []
    assert (stored_comments(shop), shop.estimate(900)["Status"]) == ("as before", 0)
    assert any("Subscript out of range" in line for line in copy.log_lines())


def test_an_estimate_without_ticks_has_an_empty_checklist_section(start, shop):
    """Even behind one with ticks."""
    shop.path("").mkdir(parents=True, exist_ok=True)
    make_checklist(shop, ["[Brakes]", "Pads", "Discs"])
    estimate(shop)
    estimate(shop, 901)
    for data in ("[Brakes], , ", "Pads,thin, "):
        shop.add_row("Checklist", EstimateNumber=900, ChecklistData=data)
    copy = begin(start, shop)
    convert_whole(copy)
    show(copy, 901)
    convert_whole(copy, FIRST + 1, 901)
    assert read_workorder(shop, FIRST)["Check List"] == ["[Brakes]", "Pads,thin, "]
    assert read_workorder(shop, FIRST + 1)["Check List"] == []


def test_past_work_orders_on_a_worksheet_leave_the_checklist_of_the_estimate(start, shop):
    shop.path("").mkdir(parents=True, exist_ok=True)
    make_checklist(shop, ["[Brakes]", "Pads", "Discs"])
    estimate(shop, VehVIN="VIN-1")
    for data in ("[Brakes], , ", "Discs,worn,95000"):
        shop.add_row("Checklist", EstimateNumber=900, ChecklistData=data)
    history = History("VIN-1")
    text = order_text(4001).replace("[Check List]\r\n", "[Check List]\r\n[Brakes]\r\nPads,old,11\r\n")
    history.add_active(4001, opened="2003-09-29", text=text)
    copy = begin(start, shop, profile={"Print Options": {"PrintVehSummaryOnWorksheet": "True"}},
                 options={"ScheduledToInProgress": "N"})
    history.write(shop)
    copy.click("cmdPrintWorksheet")
    assert any(line[0].startswith("Workorder: 004001") for line in copy.answer["lines"]), copy.answer
    copy.close()
    convert_whole(copy)
    assert read_workorder(shop, FIRST)["Check List"] == ["[Brakes]", "Discs,worn,95000"]


def test_values_of_the_checklist_are_written_trimmed(start, shop):
    shop.path("").mkdir(parents=True, exist_ok=True)
    make_checklist(shop, ["[Brakes]", "Pads", "Discs"])
    estimate(shop)
    copy = begin(start, shop)
    copy.click("cmdEstimateChecklist")
    copy.expect_form("frmWOChklst")
    copy.check("List1", row=0)
    copy.select("List1", row=0)
    copy.check("List2", row=0)
    copy.select("List2", row=0)
    copy.type("Service", "  thin ")
    copy.type("DueBackMiles", "   ")
    copy.key("F10")
    copy.expect_form("frmMain")
    convert_whole(copy)
    assert read_workorder(shop, FIRST)["Check List"] == ["[Brakes]", "Pads,thin, "]


# Comments.


def test_comments_that_were_not_left_yet_go_behind_the_number(start, shop):
    estimate(shop, Comments="old")
    copy = begin(start, shop)
    copy.type("txtComments", "  typed but not left  ")
    copy.menu("mnuConvertToWO")
    copy.press("Yes")
    expect_converted(copy, FIRST)
    answer_status(copy)
    assert stored_comments(shop) == copy.text("txtComments") == "Workorder # 005001 typed but not left"


def test_an_estimate_converts_again_and_stock_moves_again(start, shop):
    estimate(shop, Comments="twice")
    shop.add_part(900, "PAD-9", "BRAKE PADS", 4, 3500, 2000)
    copy = begin(start, shop, PARTS)
    convert_whole(copy)
    convert(copy)
    copy.expect_box("Parts which might need to be ordered.\n\nPAD-9 quantity in stock is now -2")
    copy.press("OK")
    expect_converted(copy, FIRST + 1)
    answer_status(copy)
    assert stored_comments(shop) == "Workorder # 005002 Workorder # 005001 twice"
    assert [tag["WorkorderNumber"] for tag in active_tags(shop)] == [FIRST, FIRST + 1]
    first, second = (shop.path(file_name(FIRST + i)).read_bytes() for i in range(2))
    assert second == first.replace(b"005001", b"005002"), "nothing of the first is left in the second"
    assert read_tags(shop.directory)[0]["InStock"] == read_masters(shop.directory)[0]["QtyInStock"] == -2
    assert [record["WorkorderNumber"] for record in used_from(shop, read_masters(shop.directory)[0])] == [
        FIRST + 1, FIRST]


def test_a_second_estimate_has_nothing_of_the_first(start, shop):
    """One work order in memory serves all."""
    fill_whole_estimate(shop)
    estimate(shop, 901)
    copy = begin(start, shop, PARTS, panel=4)
    convert(copy, name="Ann Baker")
    copy.key("F10")
    copy.press("OK")
    expect_converted(copy, FIRST)
    answer_status(copy)
    show(copy, 901)
    convert_whole(copy, FIRST + 1, 901)
    sections = read_workorder(shop, FIRST + 1)
    assert "Vehicle" not in sections
    assert {name: lines for name, lines in sections.items() if lines} == {
        "Workorder": sections["Workorder"], "Totals": sections["Totals"],
        "Customer": ["CustomerNumber=7", "Lastname=Adams", "Firstname=Beth", "Salesperson=None"]}
    assert totals_in_text(shop, FIRST + 1)["WorkorderTotal"] == active_tags(shop)[1]["WorkorderTotal"] == 0


# The log.


def test_the_log_has_the_number_and_each_step(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    copy = begin(start, shop, PARTS)
    convert_whole(copy)
    mark = "Convert: estimate 000900 to work order # 005001: "
    steps = [line.split(mark)[1] for line in copy.log_lines() if mark in line]
    assert steps == ["the number was taken", "the usage of PAD-9 was noted", "the stock of PAD-9 is now 4",
                     "the tag in TQOPENWO.DAT was written", "the tag in TQINCTAG.DAT was written",
                     "the work order was written to W0005001.tqa", "the comments of the estimate name the work order"]
    assert any("WriteInventory PAD-9 In stock=4" in line for line in copy.log_lines())
    assert any("WriteArchivedWoTag: Opened TQINCTAG.DAT (update,fp=" in line for line in copy.log_lines())


def test_parts_that_the_background_load_hasnt_reached_leave_the_stock_too(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    shop.write()
    make_inventory(shop.directory, PARTS)
    copy = start(shop)  # with a standing clock the list's timer hasn't run yet
    copy.double_click("List1(2)", row=row_of(copy, "List1(2)", 900))
    convert(copy)
    expect_converted(copy, FIRST)
    answer_status(copy)
    assert {tag["StockNumber"]: tag["InStock"] for tag in read_tags(shop.directory)}["PAD-9"] == 4

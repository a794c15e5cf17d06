"""An estimate becomes a work order of the main application: the two tags and the text, byte for byte."""

import pytest

from conversionsteps import (FIRST, PARTS, THURSDAY, answer_status, begin, convert, convert_whole, estimate,
                             expect_converted, shop, show, stored_comments)
from inventoryfiles import MASTER_LENGTH, TAG as STOCK_TAG, TAG_LENGTH as STOCK_TAG_LENGTH
from shopfiles import NO_LINK
from wholeestimate import fill_whole_estimate
from workorderfiles import (ACTIVE_FILE, ARCHIVED_FILE, USAGE_FILE, active_tags, archived_tags, extra_row, keys,
                            labor_row, read_workorder, tags_of, text_of, totals_in_text, usage_record, usage_records)

# The whole of it.


OLD_USAGE = (usage_record("NUT-3", 4001, "2003-01-07", "Smith,John", 1, 1, 1)
             + usage_record("OIL-1", 4002, "2003-01-08", "Smith,John", 5, 100, 165, previous=NO_LINK))


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

"""An estimate becomes a work order of the main application: questions and refusals, the vehicle, stock and usage, the
two tags and the text, and what is left when it fails halfway."""

import contextlib
import os
import sqlite3

import pytest

from boardlines import TODAY, elsewhere, row_of, view_of
from historyfiles import History, order_text
from inventoryfiles import MASTER, MASTER_LENGTH, make_inventory, part, read_masters, read_tags
from inventoryfiles import TAG as STOCK_TAG
from inventoryfiles import TAG_LENGTH as STOCK_TAG_LENGTH
from locks import denied_to_all, deny_to_all
from screens import expect_changed_within, shared_files, span, tell, vehicle_span
from shopfiles import NO_LINK, VEHICLE_LENGTH, file_date
from workfiles import make_checklist
from workorderfiles import (ACTIVE_FILE, ARCHIVED_FILE, USAGE_FILE, USAGE_LENGTH, active_tags, add_paid_employee,
                            archived_tags, extra_row, file_name, keys, labor_row, long_at, part_row, read_workorder,
                            tags_of, text_of, totals_in_text, usage_record, usage_records, used_from)

TITLE = "Convert to WO"
FIRST = 5001  # the next work order's number
THURSDAY = "2003-10-02"
RATES = (82500, 57500, 60000, 10000)  # parts, labor, sublets, waste
CANCELLED = "Vehicle update cancelled.\n\nDo you wish to continue with the conversion?"
USAGE_HELD = "Inventory Usage file locked by another user.\nClick OK to try again."


def question(number=900, name="Beth Adams"):
    return ("This function will convert an estimate\nto a workorder which can then be managed\n"
            f"by the Korvel application.\n\nThe estimate to be converted is # {number:06}\nfor {name}.\n\n"
            "Do you wish to continue?")


@pytest.fixture
def shop(shop):
    """Beth Adams has no vehicle. The stock is made by its own tests."""
    shop.system["tax_rate"] = RATES
    shop.add_customer(7, "Adams", "Beth")
    add_paid_employee(shop, 4, "Dan Ortiz", wage=2450, wage_period=1, commission=55000, commission_period=1)
    return shop


def begin(start, shop, parts=(), options=None, number=900, panel=2, usage=b"", profile=None):
    """A copy with the estimate in the detail view, the inventory loaded."""
    shop.write()
    make_inventory(shop.directory, parts)
    shop.path(USAGE_FILE).write_bytes(usage)
    shop.write_profile({**({"Status Options": options} if options else {}), **(profile or {})})
    return show(start(shop), number, panel)


def show(copy, number=900, panel=2):
    copy.wait(50)
    copy.click("cmdWeekView")
    copy.double_click(f"List1({panel})", row=row_of(copy, f"List1({panel})", number))
    assert view_of(copy) == ["Detail"]
    return copy


def estimate(shop, number=900, status=0, **columns):
    shop.add_estimate(number, columns.pop("date", TODAY), status=status, customer=columns.pop("customer", 7),
                      CreateDate=TODAY, **columns)


def convert(copy, number=900, name="Beth Adams"):
    """Up to the first thing behind the confirmation."""
    copy.click("cmdConvert")
    copy.expect_box(question(number, name), TITLE, "question", ["Yes", "No"])
    copy.press("Yes")
    return copy


def expect_converted(copy, order, number=900):
    copy.expect_box(f"Estimate # {number:06} is now Workorder # {order:06}", TITLE, "information", ["OK"])
    copy.press("OK")


def answer_status(copy, answer="No", word="Scheduled"):
    copy.expect_box("Change status to 'Completed'?", TITLE, buttons=["Yes", "No"])
    copy.press(answer)
    if answer == "No":
        copy.expect_box(f"Estimate status is still '{word}'", TITLE, "information", ["OK"])
        copy.press("OK")
    copy.expect_form("frmMain")


def convert_whole(copy, order=FIRST, number=900):
    """A conversion that asks nothing of its own; the status is left."""
    convert(copy, number)
    expect_converted(copy, order, number)
    answer_status(copy)


def stored_comments(shop, number=900):
    return shop.estimate(number)["Comments"]


def is_untouched(shop):
    """No number, no file, no stock."""
    return shop.read_system()["last_workorder_number"] == FIRST and not shop.names("W*.tqa")


# The whole of it.


PARTS = [
    part("PAD-9", "BRAKE PADS", (2000, 2500, 3000, 3500), 6),
    part("OIL-1", "MOTOR OIL QT", (100, 120, 150, 165), 40, UsageLink=76),
    part("FLT-2", "OIL FILTER", (250, 300, 400, 433), 1),
    part("NUT-3", "NUT", (1, 1, 1, 1), 12),
]
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


# Refusals.


@pytest.mark.parametrize("status, key, word", [(0, "ScheduledToComplete", "Scheduled"),
                                               (1, "ArrivedToComplete", "Arrived")])
def test_an_option_of_error_refuses_the_conversion(start, shop, status, key, word):
    estimate(shop, status=status)
    copy = begin(start, shop, options={key: "E"})
    before = shared_files(shop)
    copy.click("cmdConvert")
    copy.expect_box(f"Can not Convert to WO if estimate status is '{word}'", TITLE, "exclamation", ["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_a_status_from_completed_on_can_not_be_converted(start, shop):
    words = {3: "Completed", 4: "Departed", 5: "Continued", 6: "Cancelled", 7: "Rescheduled", 8: "No-show",
             9: "Estimate Only"}
    for status in words:
        estimate(shop, 900 + status, status=status)
    copy = begin(start, shop, number=903)
    before = shared_files(shop)
    for status, word in words.items():
        show(copy, 900 + status)
        copy.click("cmdConvert")
        copy.expect_box(f"Estimate status of '{word}' can not be converted to a workorder", TITLE, "exclamation",
                        ["OK"])
        copy.press("OK")
        copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_a_past_scheduled_estimate_is_a_no_show_and_refused(start, shop):
    estimate(shop, date="2003-09-29")
    copy = begin(start, shop, panel=1, options={"ScheduledToComplete": "Y"})
    copy.click("cmdConvert")
    tell(copy, "Estimate status of 'No-show' can not be converted to a workorder", TITLE)
    assert is_untouched(shop) and shop.estimate(900)["Status"] == 0


def test_no_at_the_confirmation_changes_nothing(start, shop):
    estimate(shop, Comments="keep")
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500)
    copy = begin(start, shop, PARTS)
    before = shared_files(shop)
    copy.click("cmdConvert")
    copy.expect_box(question(), TITLE, "question", ["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_the_menu_entry_runs_the_same(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    copy.menu("mnuConvertToWO")
    copy.expect_box(question(), TITLE)
    copy.press("Yes")
    expect_converted(copy, FIRST)


def test_without_an_estimate_on_show_nothing_is_converted(start, shop):
    copy = start(shop.write())
    before = shared_files(shop)
    copy.click("cmdDetailView")
    copy.click("cmdConvert")
    copy.expect_box(title=TITLE)
    copy.press("OK")
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_an_estimate_whose_customer_is_gone_is_refused(start, shop):
    estimate(shop, customer=77)
    copy = begin(start, shop)
    before = shared_files(shop)
    copy.click("cmdConvert")
    tell(copy, "The customer of this estimate isn't on file. Choose a customer first.", TITLE)
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_past_midnight_the_program_ends_instead(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    copy.set_now("2003-10-01T00:00:05")
    copy.click("cmdConvert")
    copy.expect_box(title="Restart required.", icon="information", buttons=["OK"])
    copy.press("OK")
    copy.expect_end()
    assert is_untouched(shop) and not shop.path(ACTIVE_FILE).exists()


def test_the_section_password_stands_before_everything(start, shop):
    """A wrong one and none at all say nothing; the status isn't looked at yet."""
    shop.set_password("Workorders", "Secret")
    estimate(shop, status=9)
    copy = begin(start, shop)
    before = shared_files(shop)
    for text, button in (("secret", "cmdOK"), ("Secret", "cmdCancel")):
        copy.click("cmdConvert")
        copy.expect_form("frmEnterPwd")
        assert copy.answer["caption"] == "Enter Workorders Password"
        copy.type("Pwd", text)
        copy.click(button)
        copy.expect_form("frmMain")
    copy.click("cmdConvert")
    copy.type("Pwd", "Secret")
    copy.click("cmdOK")
    tell(copy, "Estimate status of 'Estimate Only' can not be converted to a workorder", TITLE)
    assert shared_files(shop) == before


# The status afterwards.


WORDS = ["Scheduled", "Arrived", "In Progress"]
KEYS = ["ScheduledToComplete", "ArrivedToComplete", "InProgressToComplete"]


def status_board(start, shop, letter):
    for status in range(3):
        estimate(shop, 900 + status, status=status)
    return begin(start, shop, options={key: letter for key in KEYS})


def test_a_scheduled_estimate_with_option_y_becomes_completed_without_a_question(start, shop):
    copy = status_board(start, shop, "Y")
    for status in range(3):
        show(copy, 900 + status)
        convert(copy, 900 + status)
        expect_converted(copy, FIRST + status, 900 + status)
        copy.expect_form("frmMain")
        assert shop.estimate(900 + status)["Status"] == 3
        assert copy.caption("frameDetailView").endswith("  Completed")
        copy.click("cmdWeekView")
        row = row_of(copy, "List1(2)", 900 + status)
        assert copy.rows("List1(2)")[row] == f"{900 + status:06} Completed"


def test_option_a_asks_and_yes_completes(start, shop):
    copy = status_board(start, shop, "A")
    for status, answer, after in ((0, "Yes", 3), (1, "No", 1), (2, "Yes", 3)):
        show(copy, 900 + status)
        convert(copy, 900 + status)
        expect_converted(copy, FIRST + status, 900 + status)
        answer_status(copy, answer, WORDS[status])
        assert shop.estimate(900 + status)["Status"] == after


def test_option_n_leaves_the_status_and_says_so(start, shop):
    copy = status_board(start, shop, "N")
    for status in range(3):
        show(copy, 900 + status)
        convert(copy, 900 + status)
        expect_converted(copy, FIRST + status, 900 + status)
        copy.expect_box(f"Estimate status is still '{WORDS[status]}'", TITLE, "information", ["OK"])
        copy.press("OK")
        copy.expect_form("frmMain")
        assert shop.estimate(900 + status)["Status"] == status


def test_in_progress_with_option_e_does_convert(start, shop):
    estimate(shop, status=2)
    copy = begin(start, shop, options={"InProgressToComplete": "E"})
    convert(copy)
    expect_converted(copy, FIRST)
    tell(copy, "Estimate status is still 'In Progress'", TITLE)
    assert shop.estimate(900)["Status"] == 2 and len(active_tags(shop)) == 1


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


# The vehicle.


SNAPSHOT = ("VehYear", "VehMake", "VehModel", "VehVIN", "VehLic", "VehDate", "VehMileage", "VehEng", "VehTrans")


def snapshot(shop):
    kept = shop.estimate(900)
    return [(kept[name] or "").strip() for name in SNAPSHOT]


def vehicle_shop(shop, **columns):
    """Di's three vehicles; the newest comes first when they are looked through."""
    owner = shop.add_customer(9, "Driver", "Di")
    shop.add_vehicle(owner, "Ford", "Focus", "1999", "2003-09-01", VIN="VIN-1", LicenseNumber="LIC-1", Mileage=100,
                     FirstMileage=50, FirstDate=file_date("2000-01-03"))
    shop.add_vehicle(owner, "Audi", "A4", "2001", VIN="VIN-2", LicenseNumber="LIC-2")
    shop.add_vehicle(owner, "Ford", "Focus", "1999", VIN="VIN-3", LicenseNumber="LIC-3")
    estimate(shop, customer=9, **columns)
    return shop


AS_ON_FILE = dict(vehicle=0, VehYear="1999", VehMake="Ford", VehModel="Focus", VehVIN="VIN-1", VehLic="LIC-1",
                  VehDate="09/01/2003", VehMileage="100", VehEng=" ", VehTrans=" ")


def to_vehicle(copy):
    convert(copy, name="Di Driver")
    copy.expect_form("frmVehEdit")
    assert copy.answer["caption"] == "Convert to WO - Vehicle Information"
    return copy


def vehicle_in_text(shop):
    return keys(read_workorder(shop, FIRST)["Vehicle"])


def test_a_saved_vehicle_as_it_was_is_not_written(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    to_vehicle(copy)
    with denied_to_all(shop.path("TQVEHICL.DAT")):
        copy.key("F10")
    expect_converted(copy, FIRST)
    assert vehicle_in_text(shop)["VIN"] == "VIN-1"


def test_a_changed_vehicle_is_written_and_kept_with_the_estimate(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    before = shop.path("TQVEHICL.DAT").read_bytes()
    to_vehicle(copy)
    for name, text in (("Mileage", "12345"), ("EngineSize", "2.0L"), ("txtDate", "09/30/2003")):
        copy.type(name, text)
    copy.key("F10")
    expect_converted(copy, FIRST)
    expect_changed_within(before, shop.path("TQVEHICL.DAT").read_bytes(), vehicle_span("Mileage"), vehicle_span("Date"),
                          vehicle_span("EngineSize"))
    assert shop.read_vehicles()[0]["Mileage"] == 12345
    assert snapshot(shop) == ["1999", "Ford", "Focus", "VIN-1", "LIC-1", "09/30/2003", "12345", "2.0L", ""]
    assert shop.estimate(900)["VehicleLink"] == 0
    assert vehicle_in_text(shop) == {
        "Year": "1999", "Make": "Ford", "Model": "Focus", "Engine": "2.0L", "VIN": "VIN-1", "LicenseNumber": "LIC-1",
        "Mileage": "12345", "Date": "09/30/2003", "OrigMileage": "50", "OrigDate": "01/03/2000"}
    answer_status(copy)
    assert (copy.caption("lblVehMileage"), copy.caption("lblEngTrans").strip()) == ("12345", "2.0L")


def test_a_cancelled_vehicle_and_no_end_it_with_nothing_written(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    before = shared_files(shop)
    to_vehicle(copy)
    copy.type("Mileage", "12345")
    copy.key("Esc")
    copy.press("Yes")  # the screen's own question, whether changes are discarded
    copy.expect_box(CANCELLED, TITLE, buttons=["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_a_cancelled_vehicle_and_yes_go_on_with_the_one_on_file(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    before = shop.path("TQVEHICL.DAT").read_bytes()
    to_vehicle(copy)
    copy.type("Mileage", "12345")
    copy.key("Esc")
    copy.press("Yes")
    copy.expect_box(CANCELLED, TITLE)
    copy.press("Yes")
    expect_converted(copy, FIRST)
    assert vehicle_in_text(shop)["Mileage"] == "100"
    assert shop.path("TQVEHICL.DAT").read_bytes() == before


def test_a_cancelled_vehicle_that_differs_from_the_estimate_is_still_taken_over(start, shop):
    """What is on file by now goes into the estimate; the file is written with what it held."""
    copy = begin(start, vehicle_shop(shop, **{**AS_ON_FILE, "VehMileage": "90", "VehLic": "OLD"}))
    before = shop.path("TQVEHICL.DAT").read_bytes()
    to_vehicle(copy)
    copy.key("Esc")
    copy.expect_box(CANCELLED, TITLE)
    copy.press("Yes")
    expect_converted(copy, FIRST)
    assert snapshot(shop) == ["1999", "Ford", "Focus", "VIN-1", "LIC-1", "09/01/2003", "100", "", ""]
    assert shop.path("TQVEHICL.DAT").read_bytes() == before


@pytest.mark.parametrize("texts, wanted", [
    ({"VehVIN": "VIN-2", "VehLic": "LIC-1", "VehYear": "1999", "VehMake": "Ford", "VehModel": "Focus"}, "VIN-2"),
    ({"VehVIN": "OTHER", "VehLic": "LIC-1", "VehYear": "2001", "VehMake": "Audi", "VehModel": "A4"}, "VIN-1"),
    ({"VehVIN": "", "VehLic": "", "VehYear": "1999", "VehMake": "Ford", "VehModel": "Focus"}, "VIN-3"),
])
def test_the_vehicle_is_found_by_vin_then_licence_then_year_make_and_model(start, shop, texts, wanted):
    copy = begin(start, vehicle_shop(shop, **texts))
    to_vehicle(copy)
    assert copy.text("VIN") == wanted
    copy.key("F10")
    expect_converted(copy, FIRST)
    assert active_tags(shop)[0]["VIN"] == vehicle_in_text(shop)["VIN"] == snapshot(shop)[3] == wanted


def test_a_vehicle_that_is_not_on_file_is_built_from_the_estimate(start, shop):
    built = dict(VehYear="1970", VehMake="Saab", VehModel="96", VehVIN="S-96", VehLic="OLD 96", VehDate="01/02/2003",
                 VehMileage="777", VehEng="V4", VehTrans="4 speed")
    copy = begin(start, vehicle_shop(shop, **built))
    before = shop.path("TQVEHICL.DAT").read_bytes()
    to_vehicle(copy)
    assert [copy.text(name) for name in ("Year", "Make", "Model", "VIN", "LicenseNumber", "txtDate", "Mileage",
                                         "EngineSize", "Transmission")] == list(built.values())
    copy.key("Esc")
    copy.expect_box(CANCELLED)
    copy.press("Yes")
    expect_converted(copy, FIRST)
    assert shop.path("TQVEHICL.DAT").read_bytes() == before
    assert vehicle_in_text(shop) == {
        "Year": "1970", "Make": "Saab", "Model": "96", "Engine": "V4", "Transmission": "4 speed", "VIN": "S-96",
        "LicenseNumber": "OLD 96", "Mileage": "777", "Date": "01/02/2003", "OrigMileage": "", "OrigDate": ""}


def test_a_changed_vehicle_that_was_not_on_file_is_added_to_the_customers(start, shop):
    copy = begin(start, vehicle_shop(shop, VehYear="1970", VehMake="Saab", VehModel="96"))
    to_vehicle(copy)
    copy.type("VIN", "S-96")
    copy.key("F10")
    expect_converted(copy, FIRST)
    vehicles = shop.read_vehicles()
    assert (len(vehicles), vehicles[3]["VIN"], vehicles[3]["Number"], vehicles[3]["VLink"]) == (
        4, "S-96", 9, 2 * VEHICLE_LENGTH)
    owner = next(customer for customer in shop.read_customers() if customer["Number"] == 9)
    assert owner["VLink"] == shop.estimate(900)["VehicleLink"] == 3 * VEHICLE_LENGTH
    assert active_tags(shop)[0]["VIN"] == snapshot(shop)[3] == "S-96"


def test_an_estimate_without_year_make_and_model_asks_for_no_vehicle(start, shop):
    """It is looked for all the same: a VIN is enough."""
    copy = begin(start, vehicle_shop(shop, VehYear=" ", VehMake=" ", VehModel=" ", VehVIN="VIN-2"))
    convert(copy, name="Di Driver")
    expect_converted(copy, FIRST)
    assert active_tags(shop)[0]["VIN"] == "VIN-2"
    assert vehicle_in_text(shop)["Make"] == "Audi"
    assert snapshot(shop)[:5] == ["", "", "", "VIN-2", ""]


def test_a_vehicle_without_a_make_has_no_section(start, shop):
    copy = begin(start, vehicle_shop(shop, VehYear="1980", VehModel="Trailer", VehLic="T-1"))
    to_vehicle(copy)
    copy.key("F10")
    expect_converted(copy, FIRST)
    assert "Vehicle" not in read_workorder(shop, FIRST)
    assert active_tags(shop)[0]["LicenseNumber"] == "T-1"


# Stock.


def test_a_stock_of_exactly_1_is_not_listed_0_and_below_are(start, shop):
    estimate(shop)
    stocks = {"P-1": (3, 2), "P-2": (3, 3), "P-3": (3, 4), "P-4": (-5, 1), "P-5": (9, -1)}
    for number, (_, quantity) in stocks.items():
        shop.add_part(900, number, "PART", quantity, 100)
    copy = begin(start, shop, [part(number, "PART", in_stock=stock) for number, (stock, _) in stocks.items()])
    convert(copy)
    copy.expect_box("Parts which might need to be ordered.\n\nP-2 quantity in stock is now 0\n"
                    "P-3 quantity in stock is now -1\nP-4 quantity in stock is now -6", "Convert - Inventory Status")
    copy.press("OK")
    expect_converted(copy, FIRST)
    wanted = [1, 0, -1, -6, 10]
    assert [tag["InStock"] for tag in read_tags(shop.directory)] == wanted
    assert [master["QtyInStock"] for master in read_masters(shop.directory)] == wanted


def test_a_part_not_in_inventory_is_a_line_without_stock_and_never_listed(start, shop):
    estimate(shop)
    shop.add_part(900, "GONE-7", "NO LONGER SOLD", 9, 100, 60)
    copy = begin(start, shop, PARTS)
    stock = [shop.path(name).read_bytes() for name in ("TQINVTAG.DAT", "TQINVENT.DAT", USAGE_FILE)]
    convert_whole(copy)
    assert read_workorder(shop, FIRST)["Parts"] == [part_row("GONE-7", "NO LONGER SOLD", 9, 60, 100, 0)]
    assert [shop.path(name).read_bytes() for name in ("TQINVTAG.DAT", "TQINVENT.DAT", USAGE_FILE)] == stock


def test_only_stock_and_link_change_in_tag_and_master(start, shop):
    """Records full of bytes that this program has no name for."""
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    copy = begin(start, shop, PARTS)
    tags = bytearray(shop.path("TQINVTAG.DAT").read_bytes())
    tags[83:128] = bytes(range(1, 46))
    masters = bytearray(shop.path("TQINVENT.DAT").read_bytes())
    for name in ("AltNumber1", "Department", "Manufacturer", "Comment", "Location"):
        first, end = span(MASTER, name)
        masters[first:end] = bytes(65 + i % 26 for i in range(end - first))
    first, end = span(MASTER, "Description")
    masters[first:end] = b"BRAKE PADS\0old text".ljust(end - first, b"\0")
    masters[340:344] = b"\1\2\3\4"
    shop.path("TQINVTAG.DAT").write_bytes(tags)
    shop.path("TQINVENT.DAT").write_bytes(masters)
    convert_whole(copy)
    expect_changed_within(tags, shop.path("TQINVTAG.DAT").read_bytes(), span(STOCK_TAG, "InStock"))
    after = shop.path("TQINVENT.DAT").read_bytes()
    expect_changed_within(masters, after, (331, 333), (336, 340))
    assert (after[331:333], long_at(after, 336)) == (b"\4\0", 0)


def test_the_first_usage_has_no_link_and_its_master_leads_to_it(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500, 2000)
    shop.add_part(900, "OIL-1", "MOTOR OIL QT", 2, 165, 100)
    parts = [part("PAD-9", "BRAKE PADS", in_stock=9), part("OIL-1", "MOTOR OIL QT", in_stock=9)]
    copy = begin(start, shop, parts)
    convert_whole(copy)
    assert shop.path(USAGE_FILE).read_bytes() == (
        usage_record("PAD-9", FIRST, TODAY, "Adams,Beth", 1, 2000, 3500)
        + usage_record("OIL-1", FIRST, TODAY, "Adams,Beth", 2, 100, 165))
    assert [master["UsageLink"] for master in read_masters(shop.directory)] == [0, USAGE_LENGTH]
    convert_whole(copy, FIRST + 1)
    pad, oil = read_masters(shop.directory)
    assert [(record["WorkorderNumber"], record["Quantity"], record["PrevLink"]) for record in used_from(shop, pad)] == [
        (FIRST + 1, 1, 0), (FIRST, 1, NO_LINK)]
    assert [record["PrevLink"] for record in used_from(shop, oil)] == [USAGE_LENGTH, NO_LINK]


@pytest.mark.parametrize("exists", [True, False])
def test_an_empty_usage_file_gives_offset_0_a_legal_link(start, shop, exists):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500)
    copy = begin(start, shop, PARTS)
    if not exists:
        shop.path(USAGE_FILE).unlink()
    convert_whole(copy)
    assert read_masters(shop.directory)[0]["UsageLink"] == 0
    assert len(usage_records(shop)) == 1
    assert any("UpdateUsage: Opened TQUSEHST.DAT (update,fp=" in line for line in copy.log_lines())


def test_a_tag_or_master_of_another_number_is_warned_of_and_goes_on(start, shop):
    """The first conversion has found out where the tag lies; the files are damaged behind it."""
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500)
    copy = begin(start, shop, [part("PAD-9", "BRAKE PADS", in_stock=9)])
    convert_whole(copy)
    for name, text in (("TQINVTAG.DAT", b"PAD-8\0"), ("TQINVENT.DAT", b"PAD-7\0")):
        shop.path(name).write_bytes(text + shop.path(name).read_bytes()[len(text):])
    before = shop.path("TQINVTAG.DAT").read_bytes(), shop.path("TQINVENT.DAT").read_bytes()
    convert(copy)
    copy.expect_box("Warning! Inventory tag file problem.\nLooking for 'PAD-9'\nFound 'PAD-8'",
                    "Convert - Update Inventory", buttons=["OK"])
    copy.press("OK")
    copy.expect_box("Warning! Inventory master file problem.\nLooking for 'PAD-9'\nFound 'PAD-7'",
                    "Convert - Update Inventory", buttons=["OK"])
    copy.press("OK")
    expect_converted(copy, FIRST + 1)
    after = shop.path("TQINVTAG.DAT").read_bytes(), shop.path("TQINVENT.DAT").read_bytes()
    expect_changed_within(before[0], after[0], span(STOCK_TAG, "InStock"))
    expect_changed_within(before[1], after[1], (331, 333), (336, 340))
    assert (read_tags(shop.directory)[0]["InStock"], usage_records(shop)[1]["StockNumber"]) == (7, "PAD-8")


def test_a_part_whose_tag_is_gone_asks_and_cancel_moves_nothing(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 9, 3500)
    copy = begin(start, shop, [part("PAD-9", "BRAKE PADS", in_stock=8)])
    shop.path("TQINVTAG.DAT").write_bytes(b"PAD-8\0" + shop.path("TQINVTAG.DAT").read_bytes()[6:])
    before = shop.path("TQINVTAG.DAT").read_bytes(), shop.path("TQINVENT.DAT").read_bytes()
    convert(copy)
    for answer in ("Retry", "Cancel"):
        copy.expect_box("Can not read tags record for PAD-9\nError 57: Device I/O error", "ReadInventory",
                        "exclamation", ["Retry", "Cancel"])
        copy.press(answer)
    expect_converted(copy, FIRST)
    assert (shop.path("TQINVTAG.DAT").read_bytes(), shop.path("TQINVENT.DAT").read_bytes()) == before
    assert usage_records(shop) == []
    assert read_workorder(shop, FIRST)["Parts"] == [part_row("PAD-9", "BRAKE PADS", 9, 0, 3500, 0)]


def test_the_list_in_memory_knows_the_new_stock(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    copy = begin(start, shop, PARTS)
    convert_whole(copy)
    copy.click("cmdPartAdd")
    copy.expect_form("frmInvList")
    copy.type("SearchPart", "PAD")
    copy.key("Enter")
    copy.select("DataGrid1", row=0)
    copy.key("F10")
    copy.expect_form("frmWOPart")
    assert copy.caption("lblInStock") == "4 in stock"


@pytest.mark.parametrize("quantity, stock", [(40000, 5), (32767, -100)])
def test_a_quantity_beyond_16_bits_stops_it_with_its_stock_unmoved(start, shop, quantity, stock):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500)
    shop.add_part(900, "OIL-1", "MOTOR OIL QT", quantity, 1)
    copy = begin(start, shop, [part("PAD-9", "BRAKE PADS", in_stock=9), part("OIL-1", "MOTOR OIL QT", in_stock=stock)])
    convert(copy)
    box = copy.expect_box(icon="critical")
    assert box["text"].startswith("Overflow: the quantity")
    assert box["text"].endswith("- the number was taken\n- the usage of PAD-9 was noted\n"
                                "- the stock of PAD-9 is now 8\nThe next step was not finished.")
    copy.press("OK")
    assert [tag["InStock"] for tag in read_tags(shop.directory)] == [8, stock]
    assert not shop.names("W*.tqa") and not active_tags(shop) and len(usage_records(shop)) == 1


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
    held = deny_to_all(shop.path(ARCHIVED_FILE))
    convert(copy)
    copy.expect_box(title="WriteArchivedWoTag(TQINCTAG.DAT)")
    os.close(held)
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


def test_a_held_active_tag_file_stops_it_and_the_box_says_how_far_it_came(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    copy = begin(start, shop, PARTS)
    with denied_to_all(shop.path(ACTIVE_FILE)):
        convert(copy)
        box = copy.expect_box(icon="critical", buttons=["OK"])
        assert box["text"].endswith("stopped here. What was done before stays:\n- the number was taken\n"
                                    "- the usage of PAD-9 was noted\n- the stock of PAD-9 is now 4\n"
                                    "The next step was not finished.")
        copy.press("OK")
        copy.expect_form("frmMain")
    assert active_tags(shop) == archived_tags(shop) == [] and not shop.names("W*.tqa")
    convert_whole(copy, FIRST + 1)


def test_a_held_text_leaves_both_tags(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    with denied_to_all(shop.path(file_name(FIRST))):
        convert(copy)
        box = copy.expect_box(icon="critical")
        assert box["text"].endswith("- the number was taken\n- the tag in TQOPENWO.DAT was written\n"
                                    "- the tag in TQINCTAG.DAT was written\nThe next step was not finished.")
        copy.press("OK")
    assert len(active_tags(shop)) == len(archived_tags(shop)) == 1


def test_an_old_text_of_the_number_is_replaced_whole(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    shop.path(file_name(FIRST)).write_bytes(b"old text " * 1000)
    convert_whole(copy)
    assert read_workorder(shop, FIRST)["Workorder"][0] == "WorkorderNumber=005001"


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

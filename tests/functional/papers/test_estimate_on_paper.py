"""What stands on the customer's copy of an estimate, and its statements."""

import pytest

from boardlines import CREATED, TODAY
from printsteps import (TITLE, TO_ARRIVED, VIN, as_text, choose, expect_on_paper, expect_preview, jobs, options,
                        pdf_pages, plain_shop, print_estimate, row, text_of, with_disclaimer, without_blanks)

DEFAULT_DISCLOSURE = "\n\n".join((
    "Please read carefully, check one of the statements below, and sign:",
    "I understand that, under state law, I am entitled to a written estimate if my final bill will exceed $100.",
    "____ I request a written estimate.",
    "____ I do not request a written estimate as long as the repair costs do not exceed $____________. ",
    "The shop may not exceed this amount without my written or oral approval.",
    "____ I do not request a written estimate.",
    "Signed: __________________________________ Date: ______________"))


def full_shop(shop):
    """Estimate 900 of today, with something in every group."""
    shop.system.update(company_phone2="937-555-0199", extra_company_name="Foreign and domestic",
                       fed_id_number="31-1234567", local_id_number="L-9", tax_rate=(82500, 0, 50000, 40000))
    customer = shop.add_customer(7, "Adams", "Beth", spouse="Carl", spouse_last="Lee", phone="937-555-0142",
                                 WorkPhone="937-555-0177", WorkExt="12", OtherPhone="555-0188", Address="5 Oak Street",
                                 City="Dayton", State="OH", Zip="45402")
    vehicle = shop.add_vehicle(customer, "Ford", "Taurus", "1998", VIN="2FAKE", Mileage=70000)
    shop.add_estimate(900, TODAY, customer=7, vehicle=vehicle, CreateDate=CREATED, VehYear="1999", VehMake="Ford",
                      VehModel="Focus", VehVIN=VIN, VehLic="ABC 123", VehMileage="51234", VehEng="2.0L",
                      VehTrans="Auto")
    shop.add_labor(900, 1, "Brake pads\tfront\t\trear\t \tlast", 1.5, mechanic=12)
    shop.add_labor(900, 2, "1\t2\t3\t4\t5\t6\t7\t8\t9", 0.25, rate=10000)
    shop.add_labor(900, 3, "HOURS APPLIED ON 09/29/2003", -1, mechanic=4)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3050)
    shop.add_part(900, "BULB", "HEADLIGHT BULB", 1, 1200)
    extra = {"Desc2": "Recore", "Desc4": "by Friday", "VendorInvoice": "81120", "Cost": 1000}
    shop.add_row("Sublets", EstimateNumber=900, SubletNumber=1, VendorName="Riverside Radiator", Price=24570,
                 Taxable="Yes", **extra)
    shop.add_sublet(900, 2, "SURCHARGE", 500)
    shop.add_row("Waste", EstimateNumber=900, WasteNumber=1, VendorName="Waste Disposal Fee", Price=25, Taxable="No",
                 Desc1="Disposal Fee for: OIL-1", Cost=25)
    shop.add_note(900, 1, "Customer waits", "", "  indented", *[""] * 4, "eighth")
    shop.add_note(900, 2, "Caf\u00e9 \u20ac 5")
    return shop


BLANK = row(" ")

# The estimate, whole.

LINES = [
    row("____Labor____"),
    row("000012 Brake pads", "1.50", "65.00", "97.50"),
    row("       front"), row("       rear"), row("       last"),
    row("000000 1", "0.25", "100.00", "25.00"),
    *[row(f"       {i}") for i in range(2, 9)],
    row("000004 HOURS APPLIED ON 09/29/2003", "-1.00", "65.00", "-65.00"),
    BLANK,
    row("____Parts____"),
    row("PAD-9 BRAKE PADS", "2", "30.50", "61.00"),
    row("BULB HEADLIGHT BULB", "1", "12.00", "12.00"),
    BLANK,
    row("____Sublets____"),
    row("Riverside Radiator", " ", " ", "245.70"), row("       Recore"), row("       by Friday"),
    row("SURCHARGE", " ", " ", "5.00"),
    BLANK,
    row("____Waste____"),
    row("Waste Disposal Fee", " ", " ", "0.25"), row("       Disposal Fee for: OIL-1"),
    BLANK,
    # 8.25 % of 73.00 and 5 % of 245.70.
    row("Tax", " ", " ", "18.31"),
    BLANK,
    row("____Notes____"),
    row("Customer waits"), row("  indented"), row("eighth"), row("Caf\u00e9 \u20ac 5"),
    BLANK,
]
LABELS = {
    "lblCompanyName": "Miller's Garage", "lblCompanyName2": "Foreign and domestic",
    "lblCompanyAddress": "12 Main Street", "lblCompanyCSZ": "Springfield, OH 45501",
    "lblCompanyPhone": "937-555-0100  937-555-0199",
    "lblCompanyTaxID": "Federal ID Number: 31-1234567  Local ID Number: L-9",
    "lblCustName": "Beth Adams", "lblSpouse": "Carl Lee", "lblAddress": "5 Oak Street", "lblCSZ": "Dayton, OH 45402",
    "lblPhone": " 937-555-0142 937-555-0177 x12 555-0188", "lblMake": "1999 Ford Focus", "lblEngTran": "2.0L Auto",
    "lblVIN": VIN, "lblLic": "ABC 123", "lblMileage": "51234", "lblWONumber": "900", "lblDate": "09/30/2003",
    "lblPrintDate": "09/30/2003", "lblPrintTime": "08:15 AM", "lblLabor": "122.50", "lblParts": "73.00",
    "lblSublet": "250.70", "lblWaste": "0.25", "lblTax": "18.31", "lblTotal": "464.76", "lblDisclaimer": "As is.",
    "lblPage": "Page 1 of 1",
}


def test_an_estimate_with_something_in_every_group(start, shop):
    with_disclaimer(full_shop(shop))
    copy = choose(start(shop))
    shown = print_estimate(copy)
    expect_preview(copy, "rptEstimate")
    assert shown["title"] == "Estimate 900"
    assert shown["columns"] == ["DataLine", "Amt1", "Amt2", "Amt3"]
    assert shown["lines"] == LINES
    assert shown["labels"] == LABELS
    assert shown["pages"] == 1
    copy.send(do="print")
    expect_preview(copy, "rptEstimate")
    copy.close()
    copy.expect_box(TO_ARRIVED, TITLE, "none", ["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmMain")
    [job] = jobs(copy)
    assert job["printed"] == "rptEstimate"
    assert text_of(job) == as_text(LINES)
    assert ("pdf" in job) == (copy.desktop == "qt")
    if copy.desktop == "qt":
        labels = {name: text for name, text in LABELS.items() if name != "lblPage"}
        expect_on_paper(job, LINES, labels.values())


def test_the_totals_on_paper_are_those_on_show(start, shop):
    with_disclaimer(full_shop(shop))
    copy = choose(start(shop))
    boxes = {name.replace("txtTotal", "lbl").replace("Cost", "Total"): copy.text(name)
             for name in ("txtTotalLabor", "txtTotalParts", "txtTotalSublet", "txtTotalWaste", "txtTotalTax",
                          "txtTotalCost")}
    shown = print_estimate(copy)
    assert {name: shown["labels"][name] for name in boxes} == boxes


def test_part_numbers_are_left_off_where_the_shop_wants_that(start, shop):
    with_disclaimer(full_shop(shop))
    options(shop, ShowPartNumbersOnEst="False")
    copy = choose(start(shop))
    at = LINES.index(row("____Parts____"))
    assert print_estimate(copy)["lines"][at:at + 4] == [
        row("____Parts____"), row("BRAKE PADS", "2", "30.50", "61.00"), row("HEADLIGHT BULB", "1", "12.00", "12.00"),
        BLANK]


def test_an_estimate_with_labor_but_nothing_else_has_no_empty_headings(start, shop):
    plain_shop(shop)
    copy = choose(start(shop))
    assert print_estimate(copy)["lines"] == [
        row("____Labor____"), row("000000 Labor", "1.00", "65.00", "65.00"), BLANK,
        row("Tax", " ", " ", "0.00"), BLANK]


@pytest.mark.parametrize("group, lines", [
    ("parts", [row("____Parts____"), row("X X", "1", "1.00", "1.00"), BLANK, row("Tax", " ", " ", "0.08"), BLANK]),
    ("sublets", [row("____Sublets____"), row("V", " ", " ", "1.00"), BLANK, row("Tax", " ", " ", "0.00"), BLANK]),
    ("waste", [row("____Waste____"), row("V", " ", " ", "1.00"), BLANK, row("Tax", " ", " ", "0.00"), BLANK]),
    ("notes", [row("Tax", " ", " ", "0.00"), BLANK, row("____Notes____"), row("N"), BLANK]),
])
def test_each_group_stands_alone(start, shop, group, lines):
    shop.add_estimate(900, TODAY, CreateDate=CREATED)
    {"parts": lambda: shop.add_part(900, "X", "X", 1, 100), "sublets": lambda: shop.add_sublet(900, 1, "V", 100),
     "waste": lambda: shop.add_waste(900, 1, "V", 100), "notes": lambda: shop.add_note(900, 1, "N")}[group]()
    with_disclaimer(shop)
    assert print_estimate(choose(start(shop)))["lines"] == lines


def test_a_report_with_no_rows_still_has_its_headers(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    with_disclaimer(shop)
    copy = start(shop)
    copy.click("cmdDayView")
    copy.click("cmdPrintDay")
    shown = expect_preview(copy, "rptDayView")
    assert (shown["lines"], shown["pages"]) == ([], 1)
    assert shown["labels"]["lblCompanyName"] == "Miller's Garage"
    assert shown["labels"]["lblPage"] == "Page 1 of 1"
    copy.send(do="print")
    [job] = jobs(copy)
    assert text_of(job) == []
    if copy.desktop == "qt":
        expect_on_paper(job, [], ["Day View", "Miller's Garage"])


def test_bare_customers_vehicles_and_shops_leave_their_labels_bare(start, shop):
    shop.system.update(company_city="", company_state="", company_zip="", company_phone1="")
    shop.add_customer(7, "Adams", "", WorkExt="44", OtherPhone="555-0188", VLink=-1)
    shop.add_customer(8, "Baker", "Ann", spouse_last="Lee", WorkPhone="555-0101")
    shop.add_estimate(900, TODAY, customer=7, CreateDate=CREATED)
    shop.add_estimate(901, TODAY, customer=8, CreateDate=CREATED, VehMileage="ab", VehMake="Ford")
    with_disclaimer(shop)
    copy = choose(start(shop))
    labels = print_estimate(copy)["labels"]
    wanted = {"lblCompanyName2": "", "lblCompanyCSZ": ",  ", "lblCompanyPhone": "", "lblCompanyTaxID": "",
              "lblCustName": " Adams", "lblSpouse": " ", "lblAddress": "", "lblCSZ": ",  ", "lblPhone": " 555-0188",
              "lblMileage": "0", "lblVIN": "", "lblLic": ""}
    assert {name: labels[name] for name in wanted} == wanted
    copy.close()
    copy.press("No")
    labels = print_estimate(choose(copy, 901))["labels"]
    assert (labels["lblSpouse"], labels["lblPhone"]) == (" Lee", " 555-0101")
    assert (labels["lblMake"].split(), labels["lblMileage"]) == (["Ford"], "0")


@pytest.mark.parametrize("moment, shown", [
    ("2003-09-30T00:05:00", "12:05 AM"), ("2003-09-30T11:59:59", "11:59 AM"), ("2003-09-30T12:00:00", "12:00 PM"),
    ("2003-09-30T15:07:00", "03:07 PM")])
def test_the_time_of_printing(start, shop, moment, shown):
    plain_shop(shop)
    copy = choose(start(shop, now=moment))
    assert print_estimate(copy)["labels"]["lblPrintTime"] == shown


def test_a_long_estimate_goes_over_pages(start, shop):
    shop.add_estimate(900, TODAY, CreateDate=CREATED)
    for line in range(1, 121):
        shop.add_labor(900, line, f"Work {line}", 1)
    with_disclaimer(shop)
    copy = choose(start(shop))
    shown = print_estimate(copy)
    assert len(shown["lines"]) == 124
    pages = shown["pages"]
    assert pages > 1 and shown["labels"]["lblPage"] == f"Page 1 of {pages}"
    copy.send(do="print")
    [job] = jobs(copy)
    assert text_of(job) == as_text(shown["lines"])
    if copy.desktop == "qt":
        paper = pdf_pages(job["pdf"])
        assert len(paper) == pages
        told = [without_blanks("\n".join(runs)) for runs in paper]
        for page, text in enumerate(told, 1):
            assert f"Page{page}of{pages}" in text
            assert "Miller'sGarage" in text, "the header stands on every page"
        assert all(f"000000Work{line}1.00" in "".join(told) for line in range(1, 121))
        assert "Asis." in told[-1] and "Asis." not in "".join(told[:-1])


# The statements.


@pytest.mark.parametrize("own, other, shown", [
    ({"DISC_EST.TXT": b"Own.\r\n"}, {"DISCLAIM.TXT": b"Other.\r\n"}, "Own."),
    ({"disc_est.txt": b"Own."}, {"disclaim.txt": b"Other."}, "Own."),
    ({"DISC_EST.TXT": b""}, {"DISCLAIM.TXT": b"Other."}, ""),
    ({}, {"DISCLAIM.TXT": b"Other."}, "Other."),
    ({}, {"disclaim.txt": b"  One  \r\n\r\n\tTwo\0hidden\r\nthree \0\r\n"}, "One\n\n\tTwo\nthree"),
    ({"DISC_EST.TXT": b"Caf\xe9 \x80 5\r\n \r\nend"}, {}, "Caf\u00e9 \u20ac 5\n\nend"),
])
def test_the_estimates_own_disclaimer_goes_before_the_work_orders(start, shop, own, other, shown):
    shop.add_estimate(900, TODAY, hours=1)
    shop.write()
    for name, text in {**own, **other}.items():
        shop.path(name).write_bytes(text)
    copy = choose(start(shop))
    assert print_estimate(copy)["labels"]["lblDisclaimer"] == shown


def test_without_any_disclaimer_the_report_fails(start, shop):
    shop.add_estimate(900, TODAY, hours=1)
    shop.write()
    options(shop, {"ScheduledToArrived": "Y"})
    copy = choose(start(shop))
    print_estimate(copy)
    copy.expect_box(title="Lantos", icon="critical", buttons=["OK"])
    assert "DISCLAIM.TXT" in copy.answer["text"].upper()
    copy.press("OK")
    copy.expect_form("frmMain")
    assert (jobs(copy), shop.estimate(900)["Status"]) == ([], 0)
    shop.path("DISCLAIM.TXT").write_bytes(b"Now.")
    assert print_estimate(copy)["labels"]["lblDisclaimer"] == "Now."


CLAUSE = "Clause({}): parts replaced are kept for the customer, and are then the property of the shop."


def test_statements_wider_than_the_paper_go_on_in_the_next_line(start, shop):
    """As the editor shows them: all of their words are on paper, and the pages grow with them."""
    plain_shop(shop, disclaimer=" ".join(CLAUSE.format(number) for number in range(400)).encode())
    shop.path("DISCLOSURE.TXT").write_bytes(" ".join(CLAUSE.format(number) for number in range(1000, 1010)).encode())
    options(shop, {"ScheduledToArrived": "N"}, PrintDisclosure="True")
    copy = choose(start(shop))
    shown = print_estimate(copy)
    assert "\n" not in shown["labels"]["lblDisclaimer"] + shown["labels"]["lblDisclosure"]
    assert shown["pages"] > 4
    copy.send(do="print")
    [job] = jobs(copy)
    assert text_of(job) == as_text(shown["lines"])
    if copy.desktop == "qt":
        pages = pdf_pages(job["pdf"])
        assert len(pages) == shown["pages"]
        told = "".join(without_blanks("\n".join(runs)) for runs in pages)
        assert all(told.count(f"Clause({number}):") == 1 for number in range(400))
        assert all(f"Clause({number}):" in told for number in range(1000, 1010))


def test_the_disclosure_is_printed_only_where_the_shop_wants_it(start, shop):
    plain_shop(shop)
    shop.path("DISCLOSURE.TXT").write_bytes(b"Ours.")
    options(shop, PrintDisclosure="False")
    copy = choose(start(shop))
    assert "lblDisclosure" not in print_estimate(copy)["labels"]
    expect_preview(copy, "rptEstimate")


def test_the_default_disclosure(start, shop):
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": "N"}, PrintDisclosure="True")
    copy = choose(start(shop))
    shown = print_estimate(copy)
    expect_preview(copy, "rptEstimate2")
    assert shown["title"] == "Estimate 900"
    assert shown["columns"] == ["DataLine", "Amt1", "Amt2", "Amt3"]
    assert shown["labels"]["lblDisclosure"] == DEFAULT_DISCLOSURE
    assert shown["labels"]["lblDisclaimer"] == "As is."
    assert shown["lines"][0] == row("____Labor____")
    copy.send(do="print")
    [job] = jobs(copy)
    assert job["printed"] == "rptEstimate2"
    if copy.desktop == "qt":
        expect_on_paper(job, shown["lines"], [DEFAULT_DISCLOSURE, "As is."])


@pytest.mark.parametrize("text, shown", [
    (b"Our one line.", "Our one line."), (b"One\r\n\r\n   [ ] two \r\n", "One\n\n   [ ] two "), (b"", "")])
def test_a_disclosure_of_the_shops_own_stands_alone(start, shop, text, shown):
    plain_shop(shop)
    shop.path("disclosure.txt").write_bytes(text)
    options(shop, PrintDisclosure="True")
    copy = choose(start(shop))
    assert print_estimate(copy)["labels"]["lblDisclosure"] == shown

"""The customer's copy of an estimate and the printed day: what stands on them, where they go, what status follows."""

import re
import shutil
import subprocess
import zlib
from pathlib import Path

import pytest

from boardlines import CREATED, TODAY, main_line, row_of, status_line, view_of
from driver import Settings

MONDAY = "2003-09-29"
VIN = "1FAFP34P3XW123456"
TITLE = "Print Estimate"
NOTHING_CHOSEN = "Must first select an estimate to print."
ANYWAY = 'Current status is not "Scheduled".\nDo you want to print the estimate anyway?'
TO_ARRIVED = "Shall I change the status from\nScheduled to Arrived?"
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


def with_disclaimer(shop, text=b"As is."):
    shop.write()
    shop.path("DISC_EST.TXT").write_bytes(text)
    return shop


def plain_shop(shop, status=0, date=TODAY, disclaimer=b"As is."):
    """Estimate 900 with an hour of labor and nothing else."""
    shop.add_estimate(900, date, status=status, hours=1, CreateDate=CREATED)
    return with_disclaimer(shop, disclaimer)


def options(shop, status_letters=None, **print_options):
    shop.write_profile({"Print Options": print_options, "Status Options": status_letters or {}})


def choose(copy, number=900, panel=2):
    copy.click(f"List1({panel})", row=row_of(copy, f"List1({panel})", number))
    return copy


def print_estimate(copy):
    copy.click("cmdPrintEstimate")
    return copy.answer


def expect_preview(copy, report):
    assert (copy.answer.get("waiting"), copy.answer.get("report")) == ("preview", report), copy.answer
    return copy.answer


def jobs(copy):
    """Every printed job since the start."""
    return [event for answer in copy.said for event in answer.get("events", ()) if "printed" in event]


def text_of(job):
    return Path(job["text"]).read_bytes().decode("utf-8").split("\n")[:-1]


def as_text(lines):
    return ["\t".join(line).rstrip(" \t") for line in lines]


def row(text, amount1=" ", amount2=" ", amount3=" "):
    return [text, amount1, amount2, amount3]


BLANK = row(" ")


# What a printed file says, read without any tool: each run of glyphs through the map of its font.


def pdf_pages(path):
    """The runs of text of each page."""
    data = Path(path).read_bytes()
    assert data.startswith(b"%PDF-") and data.rstrip().endswith(b"%%EOF")
    objects = {int(number): body for number, body in re.findall(rb"(\d+) 0 obj(.*?)endobj", data, re.S)}

    def stream(number):
        body = objects[number]
        content = body[body.index(b"stream") + 6:body.rindex(b"endstream")].lstrip(b"\r").removeprefix(b"\n")
        return zlib.decompressobj().decompress(content) if b"/FlateDecode" in body else content

    def glyphs(font):
        mapping = {}
        table = stream(int(re.search(rb"/ToUnicode (\d+) 0 R", objects[font])[1])).decode("ascii")
        for section in re.findall(r"beginbfrange(.*?)endbfrange", table, re.S):
            for first, last, start in re.findall(r"<(\w+)>\s*<(\w+)>\s*<(\w+)>", section):
                for i in range(int(last, 16) - int(first, 16) + 1):
                    mapping[int(first, 16) + i] = chr(int(start, 16) + i)
            for first, last, several in re.findall(r"<(\w+)>\s*<(\w+)>\s*\[(.*?)\]", section, re.S):
                for i, one in enumerate(re.findall(r"<(\w+)>", several)):
                    mapping[int(first, 16) + i] = chr(int(one, 16))
        for section in re.findall(r"beginbfchar(.*?)endbfchar", table, re.S):
            for glyph, one in re.findall(r"<(\w+)>\s*<(\w+)>", section):
                mapping[int(glyph, 16)] = chr(int(one, 16))
        return mapping

    maps = {}
    pages = []
    for body in objects.values():
        if not re.search(rb"/Type /Page\b(?!s)", body):
            continue
        runs = []
        content = stream(int(re.search(rb"/Contents (\d+) 0 R", body)[1])).decode("latin-1")
        for block in re.findall(r"BT(.*?)ET", content, re.S):
            font = int(re.search(r"/F(\d+) ", block)[1])
            mapping = maps.setdefault(font, glyphs(font))
            shown = "".join(re.findall(r"<([0-9a-fA-F]+)>", block))
            runs.append("".join(mapping[int(shown[at:at + 4], 16)] for at in range(0, len(shown), 4)))
        pages.append(runs)
    return pages


def without_blanks(text):
    return "".join(text.split())


def expect_on_paper(job, lines, labels, page="Page 1 of 1"):
    """Of a report of one page."""
    pages = pdf_pages(job["pdf"])
    assert len(pages) == 1
    shown = without_blanks("\n".join(pages[0]))
    at = 0
    for line in lines:
        for text in line:
            text = without_blanks(text)
            assert text in shown[at:], f"{text} is missing or out of its order in {shown}"
            at = shown.index(text, at) + len(text) if text else at
    for text in (*labels, page):
        for part in text.split("\n"):
            assert without_blanks(part) in shown, part
    if shutil.which("pdftotext"):
        told = subprocess.run(["pdftotext", "-layout", job["pdf"], "-"], capture_output=True, text=True, check=True)
        rows = [" ".join(told_row.split()) for told_row in told.stdout.splitlines()]
        at = 0
        for line in lines:
            wanted = " ".join(" ".join(line).split())
            if wanted:
                at = rows.index(wanted, at) + 1
        assert page in rows


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


# Whether it is printed at all.


@pytest.mark.parametrize("way", ["cmdPrintEstimate", "cmdPrintWorksheet"])
def test_with_no_estimate_chosen_there_is_nothing_to_print(start, shop, way):
    plain_shop(shop)
    copy = start(shop)
    copy.click(way)
    copy.expect_box(NOTHING_CHOSEN, TITLE, "information", ["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")
    copy.menu(way.replace("cmd", "mnu"))
    copy.expect_box(NOTHING_CHOSEN, TITLE, "information", ["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")
    assert jobs(copy) == []


@pytest.mark.parametrize("button, report", [("cmdPrintEstimate", "rptEstimate"), ("cmdPrintWorksheet", "rptWorksheet2")])
def test_what_was_chosen_is_printed_from_lists_filled_anew(start, shop, button, report):
    """The boxes of the totals are empty then, and so is what stands of them on paper."""
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": "N", "ScheduledToInProgress": "N"})
    copy = choose(start(shop))
    copy.click("cmdDayView")
    copy.click(button)
    shown = expect_preview(copy, report)
    assert shown["title"].endswith(" 900")
    if report == "rptEstimate":
        assert [line[0] for line in shown["lines"]] == ["____Labor____", "000000 Labor", " "], "no tax"
        assert shown["labels"]["lblTotal"] == ""


@pytest.mark.parametrize("letter", ["Y", "A"])
@pytest.mark.parametrize("status", [1, 2, 3, 4, 5, 6, 7, 8, 9])
def test_any_other_status_asks_first_and_offers_no_change_afterwards(start, shop, status, letter):
    """Arrived as well."""
    plain_shop(shop, status)
    options(shop, {"ScheduledToArrived": letter})
    copy = choose(start(shop))
    before = shop.hashes(but=("LN*",))
    print_estimate(copy)
    copy.expect_box(ANYWAY, TITLE, "none", ["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmMain")
    print_estimate(copy)
    copy.press("Yes")
    expect_preview(copy, "rptEstimate")
    copy.close()
    copy.expect_form("frmMain")
    assert shop.hashes(but=("LN*",)) == before


def test_a_past_scheduled_estimate_is_a_no_show_to_the_printer(start, shop):
    plain_shop(shop, date=MONDAY)
    options(shop, {"ScheduledToArrived": "Y"})
    copy = choose(start(shop), panel=1)
    print_estimate(copy)
    copy.expect_box(ANYWAY, TITLE)
    copy.press("Yes")
    expect_preview(copy, "rptEstimate")
    copy.close()
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 0


def test_an_estimate_is_printed_past_midnight(start, shop):
    plain_shop(shop)
    copy = choose(start(shop))
    copy.set_now("2003-10-01T00:00:05")
    shown = print_estimate(copy)
    expect_preview(copy, "rptEstimate")
    assert (shown["labels"]["lblPrintDate"], shown["labels"]["lblPrintTime"]) == ("10/01/2003", "12:00 AM")


# The status that follows.


@pytest.mark.parametrize("letter, answer, status", [
    ("Y", None, 1), ("A", "Yes", 1), ("A", "No", 0), ("N", None, 0), ("E", None, 0), ("X", None, 0)])
def test_a_printed_estimate_has_arrived_as_the_option_says(start, shop, letter, answer, status):
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": letter})
    copy = choose(start(shop))
    print_estimate(copy)
    expect_preview(copy, "rptEstimate")
    assert shop.estimate(900)["Status"] == 0, "not before the paper is out"
    copy.close()
    if answer:
        copy.expect_box(TO_ARRIVED, TITLE, "none", ["Yes", "No"])
        copy.press(answer)
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == status
    if status:
        assert copy.rows("List1(2)")[0] == "000900 Arrived"
        assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Arrived"


def test_without_an_option_in_the_file_it_is_asked(start, shop):
    plain_shop(shop)
    copy = choose(start(shop))
    print_estimate(copy)
    copy.close()
    copy.expect_box(TO_ARRIVED, TITLE)
    copy.press("Yes")
    assert shop.estimate(900)["Status"] == 1
    print_estimate(copy)
    copy.expect_box(ANYWAY, TITLE)


# Where it goes.


def test_without_preview_it_goes_through_the_printer_dialog(start, shop):
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": "Y"}, PreviewEstimate="False", ShowPrinterDialog="True")
    copy = choose(start(shop))
    assert print_estimate(copy) == {"waiting": "printer", "report": "rptEstimate"}
    copy.send(do="print")
    copy.expect_form("frmMain")
    [job] = jobs(copy)
    assert text_of(job)[0] == "____Labor____"
    assert ("pdf" in job) == (copy.desktop == "qt")
    assert shop.estimate(900)["Status"] == 1


def test_a_printer_dialog_that_is_left_prints_nothing(start, shop):
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": "A"}, PreviewEstimate="False")
    copy = choose(start(shop))
    assert print_estimate(copy)["waiting"] == "printer"
    copy.close()
    copy.expect_box(TO_ARRIVED, TITLE)
    copy.press("No")
    assert jobs(copy) == []


def test_without_preview_and_dialog_it_is_printed_at_once(start, shop):
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": "N"}, PreviewEstimate="False", ShowPrinterDialog="False")
    copy = choose(start(shop))
    for count in (1, 2):
        print_estimate(copy)
        copy.expect_form("frmMain")
        assert len(jobs(copy)) == count
    first, second = jobs(copy)
    assert first["text"] != second["text"] and text_of(first) == text_of(second)
    if copy.desktop == "qt":
        lines = [row("____Labor____"), row("000000 Labor", "1.00", "65.00", "65.00"), row("Tax", "", "", "0.00")]
        expect_on_paper(second, lines, ["Miller's Garage", "CUSTOMER", "UNKNOWN"])


def test_the_preview_prints_as_often_as_asked(start, shop):
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": "N"})
    copy = choose(start(shop))
    print_estimate(copy)
    for _ in range(3):
        copy.send(do="print")
        expect_preview(copy, "rptEstimate")
    copy.close()
    copy.expect_form("frmMain")
    assert len(jobs(copy)) == 3


def test_the_options_are_those_that_the_shop_has_now(start, shop):
    """Another workstation may have changed them since the start."""
    plain_shop(shop)
    copy = choose(start(shop))
    options(shop, PrintDisclosure="True")
    print_estimate(copy)
    expect_preview(copy, "rptEstimate2")


def test_an_option_that_is_no_yes_or_no_prints_nothing(start, shop):
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": "Y"}, PreviewEstimate="maybe")
    copy = choose(start(shop))
    print_estimate(copy)
    copy.expect_box(title="Lantos", icon="critical", buttons=["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")
    assert (jobs(copy), shop.estimate(900)["Status"]) == ([], 0)


def test_a_print_that_fails_is_told_and_the_preview_stays(start, shop):
    plain_shop(shop)
    copy = choose(start(shop))
    print_estimate(copy)
    expect_preview(copy, "rptEstimate")
    shutil.rmtree(copy.print_to)
    copy.send(do="print")
    copy.expect_box(icon="critical", buttons=["OK"])
    assert jobs(copy) == []
    copy.press("OK")
    expect_preview(copy, "rptEstimate")
    copy.print_to.mkdir()
    copy.send(do="print")
    assert [job["printed"] for job in jobs(copy)] == ["rptEstimate"]


def test_the_place_of_a_preview_is_kept(start, shop, tmp_path):
    """Under the caption of its design; without windows there is a state alone to keep."""
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": "N"})
    keep = Settings(tmp_path / "settings")
    places = [f"Estimate {part}" for part in ("Top", "Left", "Width", "Height", "State")]

    def kept_after_preview(copy):
        print_estimate(copy)
        if copy.desktop == "qt":
            copy.send(get="screenshot", to=str(tmp_path / "preview.png"))
        copy.close()
        return [keep.read("Lantos", key) for key in places]

    copy = choose(start(shop))
    first = kept_after_preview(copy)
    assert None not in first and first[-1] == "0"
    assert kept_after_preview(copy) == first, "the second stands where the first was left"
    assert keep.read("Lantos", "Technician Worksheet State") is None, "each report has a place of its own"
    if copy.desktop == "qt":
        copy.close_window()
        stored = ["600", "750", "10500", "8250", "0"]
        keep.write("Lantos", dict(zip(places, stored)))
        copy = choose(start(shop))
        for _ in range(2):
            assert kept_after_preview(copy) == stored
            assert png_size(tmp_path / "preview.png") == (10500 // 15, 8250 // 15)


def png_size(path):
    header = path.read_bytes()[:24]
    assert header[:8] == b"\x89PNG\r\n\x1a\n"
    return int.from_bytes(header[16:20], "big"), int.from_bytes(header[20:24], "big")


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


# The print options.


def test_empty_counts_are_stored_as_0(start, shop):
    plain_shop(shop)
    options(shop, BlankLinesPerLabor="2", BlankPartLines="4")
    copy = start(shop)
    copy.menu("mnuPrintOptions")
    copy.expect_form("frmPrintOptions")
    assert (copy.text("txtLaborLines"), copy.text("txtPartLines")) == ("2", "4")
    copy.type("txtLaborLines", "")
    copy.type("txtPartLines", "")
    copy.click("cmdSave")
    copy.expect_form("frmMain")
    stored = shop.path("Lantos.ini").read_text("cp1252").splitlines()
    assert "BlankLinesPerLabor=0" in stored and "BlankPartLines=0" in stored


# The day on paper.


def day_shop(shop):
    shop.add_customer(7, "Adams", "Beth")
    shop.add_customer(8, "Baker", "Ann")
    shop.add_estimate(900, TODAY, status=1, customer=8, CreateDate=CREATED, VehMake="Volvo")
    shop.add_labor(900, 1, "Brake pads", 1.5, mechanic=12)
    shop.add_estimate(901, TODAY, customer=7, CreateDate=CREATED, hours=2, VehMake="Audi")
    shop.add_estimate(902, TODAY, status=6, customer=7, CreateDate=CREATED)
    shop.add_estimate(903, MONDAY, customer=7, CreateDate=CREATED)
    shop.write()


def print_day(copy):
    """What goes on paper, which must be the list on show."""
    copy.click("cmdPrintDay")
    shown = expect_preview(copy, "rptDayView")
    copy.send(do="print")
    copy.close()
    copy.expect_form("frmMain")
    lines = [line for [line] in shown["lines"]]
    assert lines == copy.rows("List2")
    job = jobs(copy)[-1]
    assert job["printed"] == "rptDayView" and text_of(job) == [line.rstrip() for line in lines]
    return shown, job


def test_the_printed_day_is_the_list_on_show(start, shop):
    day_shop(shop)
    copy = start(shop)
    copy.click("cmdDayView")
    shown, job = print_day(copy)
    assert (shown["title"], shown["columns"], shown["pages"]) == ("Day View", ["DataLine"], 1)
    assert shown["labels"] == {"lblCompanyName": "Miller's Garage", "lblHeading1": "Tuesday, September 30, 2003",
                               "lblPage": "Page 1 of 1"}
    whole = [
        main_line(900, "Baker,Ann", "1.50", vehicle=" Volvo "), status_line("Arrived"),
        "       000012 1.50 65.00 97.50 Brake pads", " ",
        main_line(901, "Adams,Beth", "2.00", vehicle=" Audi "), status_line("Scheduled"),
        "       000000 2.00 65.00 130.00 Labor", " ",
        main_line(902, "Adams,Beth", "0.00"), status_line("Cancelled"), " "]
    assert [line for [line] in shown["lines"]] == whole
    if copy.desktop == "qt":
        expect_on_paper(job, shown["lines"], ["Day View", "Miller's Garage", "Tuesday, September 30, 2003"])


def test_the_printed_day_has_the_same_filter_sort_and_labor(start, shop):
    day_shop(shop)
    copy = start(shop)
    copy.click("cmdDayView")

    def printed():
        return [line[0][:6] for line in print_day(copy)[0]["lines"] if line[0][0] != " "]

    assert printed() == ["000900", "000901", "000902"]
    copy.check("optDaySortBy(1)")
    assert printed() == ["000901", "000902", "000900"]
    copy.menu("mnuShowStat(6)")
    copy.click("cmdDayView")
    assert printed() == ["000901", "000900"]
    copy.check("cbShowLabor", False)
    shown, _ = print_day(copy)
    assert [line for [line] in shown["lines"]] == [
        main_line(901, "Adams,Beth", "2.00", vehicle=" Audi "), status_line("Scheduled"),
        main_line(900, "Baker,Ann", "1.50", vehicle=" Volvo "), status_line("Arrived")]


def test_an_empty_day_is_printed_with_its_heading(start, shop):
    day_shop(shop)
    copy = start(shop)
    copy.pick("MonthView1", "2003-10-02", double=True)
    assert view_of(copy) == ["Day"]
    shown, job = print_day(copy)
    assert (shown["lines"], shown["labels"]["lblHeading1"]) == ([], "Thursday, October 2, 2003")
    if copy.desktop == "qt":
        expect_on_paper(job, [], ["Day View", "Thursday, October 2, 2003"])


def test_the_day_is_always_previewed(start, shop):
    day_shop(shop)
    options(shop, PreviewEstimate="False", PreviewWorksheet="False", ShowPrinterDialog="False")
    copy = start(shop)
    copy.click("cmdDayView")
    copy.click("cmdPrintDay")
    expect_preview(copy, "rptDayView")
    copy.close()
    assert jobs(copy) == []

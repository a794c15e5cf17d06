"""The printed work order, which the customer pays on: from the browser through the preview to the printer."""

import pytest

from browsesteps import look_for, open_history
from historyfiles import History, labor_line
from paperfiles import across, balance, open_paper, preview, row, text_of_order
from printsteps import VIN, as_text, expect_on_paper, jobs, text_of
from workorderfiles import extra_row, part_row

BLANK = row(" ")
CUSTOMER = {"Lastname": "Adams", "Firstname": "Beth", "Address": "5 Oak Street", "City": "Dayton", "State": "OH",
            "Zip": "45402", "Phone1": "937-555-0142", "Salesperson": "KIM JONES"}
VEHICLE = {"Year": "1999", "Make": "Ford", "Model": "Focus", "Engine": "2.0L", "Transmission": "Auto", "VIN": VIN,
           "LicenseNumber": "ABC 123", "Mileage": "51234"}
TOTALS = {"DateOpen": "09/30/2003", "PartsSubtotal": 8500, "LaborSubtotal": 9750, "SubletSubtotal": 4500,
          "NonTaxSubletSubtotal": 500, "NonTaxWasteSubtotal": 250, "PartsDiscount": 100000, "WorkorderTax": 512,
          "WorkorderTotal": 23162, "PaymentMethod": "Split   ", "SplitType1": "Cash", "SplitAmount1": 10000,
          "SplitDate1": "09/30/2003", "SplitType2": "Visa", "SplitAmount2": 5000, "SplitDate2": "10/01/2003"}
LINES = [
    row("____Parts____", "", "", "Price", "List", "Ext."),
    row("BRAKE PAD SET", "PAD-9", "2", "42.50", "49.99", "85.00"),
    BLANK,
    row("____Labor____", "", "Hours", "Rate", "", "Ext."),
    row("REPLACE PADS", "000004", "1.50", "65.00", "", "97.50"),
    row("ROAD TEST"),
    row("Followup in 90 days on 12/29/2003"),
    BLANK,
    row("____Sublets____", "", "", "", "", "Amount"),
    row("ACE MACHINE SHOP", "", "", "", "", "50.00"),
    row("TURN ROTORS"),
    BLANK,
    row("____Waste/Misc____", "", "", "", "", "Amount"),
    row("DISPOSAL", "", "", "", "", "2.50"),
    BLANK,
    row("____Credits____", "", "", "", "", "Amount"),
    row("COUPON", "", "", "", "", "10.00"),
    BLANK,
    row("____Payments/Charges____", "", "", "Date   ", "Type", "Amount"),
    row("", "", "", "09/30/03", "Cash", "100.00"),
    row("", "", "", "10/01/03", "Visa", "50.00"),
    balance("81.62"),
    row("____Notes____"),
    row("Right rear tire is near its end."),
    row("  Service                   Due Back"),
    row("________________________  ______________"),
    row("____Service Recommendations____"),
    row("Return vehicle in 90 days on or about 12/29/2003 for REPLACE PADS"),
    row("     ROAD TEST"),
    row("Totals include a discount of $8.50"),
]
LABELS = {
    "lblCompanyName": "Miller's Garage", "lblCustName": "Beth Adams", "lblAddress": "5 Oak Street",
    "lblCSZ": "Dayton, OH 45402", "lblPhone": " 937-555-0142", "lblMake": "1999 Ford Focus", "lblEngTran": "2.0L Auto",
    "lblVIN": VIN, "lblLic": "ABC 123", "lblMileage": "51234", "lblWONumber": "4711", "lblType": "Repair",
    "lblDate": "09/30/2003", "lblStatus": "CLOSED", "lblMechNumber": "KIM JONES", "Label5": "License",
    "lblPrintDate": "09/30/2003", "lblPrintTime": "08:15 AM", "lblTotalLabor": "97.50", "lblTotalParts": "85.00",
    "lblTotalSublet": "50.00", "lblTotalWaste": "2.50", "lblTotalTax": "5.12", "lblTotal": "231.62",
    "lblBalance": "81.62", "lblDisclaimer": "As is.\r\n  Signed: ______",
}


def whole_text():
    labor = labor_line(["REPLACE PADS", "ROAD TEST"], hours=150, total=9750)
    followup = f"{0:>7}\t{90:>5}\t{731958:>7}"  # 29 December 2003
    return text_of_order(4711, "CLOSED", TOTALS, CUSTOMER, VEHICLE,
                         parts=[part_row("PAD-9", "BRAKE PAD SET", 2, 1500, 4250, 4999)],
                         labor=[labor[:-len("0      \t0    \t       ")] + followup],
                         sublets=[extra_row("ACE MACHINE SHOP", "A-1", "Y", 3000, 5000, "TURN ROTORS\t\t\t")],
                         waste=[extra_row("DISPOSAL", "", "N", 100, 250)],
                         credits=[f"{1000:<12}COUPON"], notes=["Right rear tire is near its end."])


def test_the_whole_paper_is_previewed_and_printed_from_there(start, shop):
    shop.write()
    shop.path("disclaim.txt").write_bytes(b"As is.\r\n  Signed: ______\r\n")
    copy = open_paper(start, shop, whole_text())
    before = shop.hashes(but=("LN*",))
    assert copy.answer["title"] == "Workorder 4711"
    assert copy.answer["lines"] == LINES
    labels = copy.answer["labels"]
    assert {name: labels[name] for name in LABELS} == LABELS
    copy.send(do="print")
    [job] = jobs(copy)
    assert job["printed"] == "rptWorkorder"
    assert text_of(job) == as_text(LINES)
    if copy.desktop == "qt":
        texts = [text.replace("\r\n", "\n") for text in LABELS.values()]
        expect_on_paper(job, LINES, texts, across=across)
    copy.close()
    copy.expect_form("frmWOHist")
    assert shop.hashes(but=("LN*",)) == before


def test_an_open_one_without_payments_and_disclaimer_has_its_balance_and_a_notice(start, shop):
    copy = open_paper(start, shop, text_of_order(4711, totals={"WorkorderTotal": 12345}))
    assert copy.answer["lines"] == [balance("123.45")]
    labels = copy.answer["labels"]
    assert labels["lblDate"] == "Unknown" and labels["lblMechNumber"] == "None"
    assert labels["lblDisclaimer"].split("\r\n") == ["*" * 35, "* Disclaimer text file not found! *", "*" * 35]


@pytest.mark.parametrize("status, method, rows", [
    ("PAID", "Visa    ", [row("", "", "", "10/02/03", "Visa", "50.00"), balance("0.00")]),
    ("ON ACCT", "Account ", [row("", "", "", "10/02/03", "Account", "50.00"), balance("50.00")]),
    ("OPEN", "Visa    ", [balance("50.00")]),
])
def test_a_payment_in_one_piece(start, shop, status, method, rows):
    totals = {"DateOpen": "09/30/2003", "DateClosed": "10/01/2003", "DatePaid": "10/02/2003", "WorkorderTotal": 5000,
              "PaymentMethod": method}
    copy = open_paper(start, shop, text_of_order(4711, status, totals))
    assert copy.answer["lines"][-len(rows):] == rows
    assert len(copy.answer["lines"]) == len(rows) + (len(rows) > 1)
    assert copy.answer["labels"]["lblBalance"] == rows[-1][-1]


def test_an_archived_one_is_printed_as_well_and_the_next_after_it(start, shop):
    shop.write()
    history = History(VIN)
    for number in (3001, 3002):
        history.add_archived(number, paid="2003-09-30", text=text_of_order(number, "PAID", {"WorkorderTotal": number}))
    history.write(shop)
    copy = open_history(start(shop))
    look_for(copy, "adams")
    for number in (3002, 3001):
        preview(copy)
        assert copy.answer["title"] == f"Workorder {number}"
        assert copy.answer["labels"]["lblTotal"] == f"30.0{number % 10}"
        copy.close()
        copy.click("cmdNext")


def test_margins_are_those_of_the_current_directory(start, shop, tmp_path):
    here = tmp_path / "here"
    here.mkdir()
    (here / "KORVEL.INI").write_text("[Printer Setup]\nWOTopMargin=7200\nWOLeftMargin=1440\n")
    text = text_of_order(4711, parts=[part_row(f"P-{n}", "PART", 1, 1, 2, 3) for n in range(40)])
    copy = open_paper(start, shop, text, cwd=here)
    with_margins = copy.answer["pages"]
    copy.close()
    (here / "KORVEL.INI").unlink()
    assert preview(copy).answer["pages"] < with_margins


def test_texts_of_every_shape_are_printed(start, shop):
    """Nothing crashes, and nothing is changed by looking."""
    shapes = {
        1: "", 2: "[Workorder]\r\n", 3: whole_text().replace("004711", "000003")[:700],
        4: text_of_order(4, "VOID", {"PaymentMethod": "Nobody's", "DateOpen": "never", "WorkorderTotal": "12x"}),
        5: text_of_order(5, "PAID", {f"SplitAmount{n}": -2147483648 for n in range(1, 11)}, labor=["", "short"],
                         parts=["done" + " " * 90, "x"], sublets=["\t\t"], credits=["abc"], notes=["\t" * 20]),
        6: text_of_order(6, "", dict.fromkeys(("PartsDiscount", "DollarDiscount", "WorkorderTotal"), 2147483647),
                         labor=[labor_line(["\u00e9" * 80], hours=2147483647)[:-8] + "9999999"],
                         notes=["long " * 60, "done", "free"]),
    }
    shop.write()
    history = History(VIN)
    for number, text in shapes.items():
        history.add_active(number, opened="2003-09-30")
        history.texts[f"W{number:07}.tqa"] = text.encode("cp1252")
    history.write(shop)
    copy = open_history(start(shop))
    before = shop.hashes(but=("LN*",))
    look_for(copy, "adams")
    for _ in shapes:
        preview(copy)
        assert copy.answer["lines"][-1] != [] and copy.answer["pages"] >= 1
        copy.send(do="print")
        copy.close()
        copy.click("cmdNext")
    assert len(jobs(copy)) == len(shapes)
    assert shop.hashes(but=("LN*",)) == before

"""Past work orders, looked for and looked at."""

import json

import pytest

from boardlines import TODAY
from browsesteps import expect_empty, found, look_for, open_history, shown
from driver import Settings
from historyfiles import History, labor_line, order_text
from locks import denied_to_all
from workorderfiles import extra_row, part_row

VIN = "1FAFP34P0XW000001"
FILES = ("TQOPENWO.DAT", "TQINCTAG.DAT", "TQINVOIC.DAT")


def start_on(start, shop, history, **options):
    shop.write()
    history.write(shop)
    return open_history(start(shop, **options))


@pytest.fixture
def history():
    return History(VIN)


def test_a_name_finds_active_and_archived_work_orders_newest_first(start, shop, history):
    history.add_archived(1, paid=TODAY, last="Anderson")
    history.add_archived(2, paid=TODAY, last="Baker", first="Andy")
    history.add_active(3, opened=TODAY, last="ANDERSON", first="Bea")
    history.add_active(4, opened=TODAY, last="Anderson", first="Al")
    copy = start_on(start, shop, history)
    look_for(copy, "and")
    assert copy.answer["caption"] == "Workorder History by Name"
    assert copy.answer["focus"] == "cmdNext"
    assert found(copy) == [4, 3, 1], "each once, though the active ones have two tags"
    assert copy.caption("done") == "Hit 3 of 3"
    copy.click("cmdFirst")
    assert shown(copy) == 4
    beeps = len(copy.events("beep"))
    copy.click("cmdPrev")
    assert (shown(copy), len(copy.events("beep"))) == (4, beeps + 1)
    copy.click("cmdLast")
    assert shown(copy) == 1
    look_for(copy, "anderson,")
    assert found(copy) == [4, 3, 1]
    look_for(copy, "ANDERSON,b")
    assert found(copy) == [3, 1]
    copy.key("Esc")
    copy.expect_form("frmMain")


def test_a_hit_by_keys_alone(start, shop, history):
    """From the board to the costs of the second work order of a vehicle, and to the others of its owner."""
    for number, last, license in ((1, "Adams", "CAB 1"), (2, "Baker", "CAB 2"), (3, "Adams", "CAB 3")):
        history.add_archived(number, paid=TODAY, last=last, license=license)
    shop.write()
    history.write(shop)
    copy = start(shop)
    copy.key("Alt+Y")
    assert copy.expect_form("frmWOHist")["focus"] == "srchName"
    copy.key("Tab")
    copy.insert(copy.answer["focus"], VIN[:8].lower(), 0)
    copy.key("Enter")
    assert (copy.answer["caption"], shown(copy)) == ("Workorder History by VIN #", 3)
    copy.key("Alt+N")
    assert shown(copy) == 2
    copy.key("Alt+F4")
    assert copy.expect_form("frmWOHist") and copy.control("WoDetailC")["visible"]
    assert copy.caption("lblMargin") == "Margin: 0.0000"
    copy.key("Ctrl+N")
    assert (copy.answer["caption"], copy.text("srchName")) == ("Workorder History by Name", "Baker,Beth")
    assert found(copy) == [2]
    copy.key("Ctrl+L")
    assert (copy.answer["caption"], copy.text("srchLic")) == ("Workorder history by License #", "CAB 2")
    copy.key("F10")
    assert (copy.answer["focus"], copy.text("srchLic")) == ("srchName", "")
    copy.key("Esc")
    copy.expect_form("frmMain")


def test_without_criteria_and_without_hits_it_says_so(start, shop, history):
    history.add_active(1, opened=TODAY)
    copy = start_on(start, shop, history)
    copy.click("cmdSearch")
    copy.expect_box("You must enter search criteria!", "Workorder History", "none", ["OK"])
    copy.press("OK")
    look_for(copy, "nobody")
    copy.expect_box("No data found.", "Workorder History", "none", ["OK"])
    copy.press("OK")
    assert copy.expect_form("frmWOHist")["focus"] == "srchName"
    assert copy.caption("cmdSearch") == "&Search"
    copy.key("Alt+F2")
    assert len(copy.events("beep")) == 1, "there is nothing to print"
    expect_empty(copy)


WHOLE = [
    "____Parts____",
    "PF47                 OIL FILTER                                  2       6.99      13.98",
    "____Labor____",
    "000012    2.50      65.00     162.50  TIMING BELT",
    "     CHECK WATER PUMP",
    "     Followup in 3000 miles on 09/30/2003",
    "____Sublets____",
    "Riverside Radiator              81120          245.70",
    "     RECORE RADIATOR",
    "SURCHARGE                                        5.00",
    "____Waste/Misc____",
    "Oil disposal                                     2.50",
    "____Credits____",
    "     15.00",
    "     Coupon",
    "____Payments/Charges____",
    "09/30/2003  Cash          50.00",
    "____Notes____",
    "Customer waits",
    "____Checklist____",
    "______________",
    "[Engine]",
    "    Oil                            changed  3000",
    "____Discount____",
    "Totals include a discount of $12.50",
]


def whole_text(number):
    labor = labor_line(["TIMING BELT", "CHECK WATER PUMP"], 12, 250, 6500, 16250)
    labor = labor[:labor.rindex("\t0      \t")] + "\t" + f"{3000:>7}\t{0:>5}\t{731868:>7}"
    return order_text(number, status="PAID", last="Müller", mileage=51234).replace(
        "WorkorderTotal=100\r\nPaymentMethod=        ",
        "DateOpen=09/28/2003\r\nPartsCost=620\r\nPartsSubtotal=10000\r\nPartsDiscount=100000\r\nDollarDiscount=250\r\n"
        "WorkorderTax=80\r\nWorkorderTotal=5000\r\nPaymentMethod=Split   \r\nPaymentComment=half now\r\n"
        "SplitType1=Cash    \r\nSplitAmount1=5000\r\nSplitDate1=09/30/2003").replace(
        "[Parts]\r\n", "[Parts]\r\n" + part_row("PF47", "OIL FILTER", 2, 310, 699, 750) + "\r\n").replace(
        "[Labor]\r\n", "[Labor]\r\n" + labor + "\r\n").replace(
        "[Sublets]\r\n", "[Sublets]\r\n" + extra_row("Riverside Radiator", "81120", "Y", 18900, 24570, "RECORE RADIATOR")
        + "\r\n" + extra_row("SURCHARGE", "999", "N", 0, 500, "") + "\r\n").replace(
        "[Waste]\r\n", "[Waste]\r\n" + extra_row("Oil disposal", "", " ", 0, 250, "") + "\r\n").replace(
        "[Credits]\r\n", "[Credits]\r\n1500        Coupon\r\n").replace(
        "[Notes]\r\n", "[Notes]\r\nCustomer waits\r\n").replace(
        "[Check List]\r\n", "[Check List]\r\n[Engine]\r\nOil,changed,3000\r\n")


@pytest.mark.parametrize("place", ["active", "archived"])
def test_every_group_of_a_work_order_in_both_lists(start, shop, history, place):
    if place == "active":
        history.add_active(4711, opened=TODAY, text=whole_text(4711))
    else:
        history.add_archived(4711, paid=TODAY, text=whole_text(4711))
    shop.write()
    shop.path("CHECKLST.TXT").write_text("[Engine]\r\nOil\r\nBelts\r\n")
    history.write(shop)
    copy = open_history(start(shop))
    look_for(copy, VIN, "srchVIN")
    assert copy.rows("WoDetail") == WHOLE
    with_cost = copy.rows("WoDetailC")
    assert len(with_cost) == len(WHOLE)
    added = {row: line[len(row):].strip() for row, line in zip(WHOLE, with_cost) if line != row}
    assert added == {WHOLE[1]: "3.10", WHOLE[7]: "189.00", WHOLE[9]: "0.00", WHOLE[11]: "0.00"}
    head = {name: copy.caption(name) for name in ("custname", "engmiles", "status", "status_date", "method", "total1",
                                                  "wo_po_tax", "paymentcomment", "pricing", "workorder_type")}
    assert head == {"custname": "Müller,Beth", "engmiles": "51234 miles:  ", "status": "PAID",
                    "status_date": "09/28/2003", "method": "Split", "total1": "50.00", "wo_po_tax": "0.80",
                    "paymentcomment": "half now", "pricing": "Retail", "workorder_type": "Repair"}
    copy.click("cmdToggleCost")
    # 620 of parts, 18900 of sublets and what else the sums of the text say.
    assert [copy.caption(name) for name in ("lblCost", "lblPrice", "lblProfit", "lblMargin")] == [
        "Cost: 6.20", "Price: 87.50", "Profit: 81.30", "Margin: 0.9291"]


def test_a_fleet_shop_looks_for_units(start, shop, history, tmp_path):
    Settings(tmp_path / "settings").write("Korvel", {"FleetVersion": "True"})
    history.add_active(1, opened=TODAY, license="U-17")
    copy = start_on(start, shop, history)
    assert copy.caption("lblLic") == "Unit Number"
    look_for(copy, "u-1", "srchLic")
    assert copy.answer["caption"] == "Workorder history by Unit #"
    assert copy.caption("licvin").startswith("Unit: ")
    copy.key("Ctrl+U")
    assert copy.text("srchLic") == "U-17"
    assert (copy.caption("cmdLicense"), copy.control("cmdLicense")["tooltip"]) == ("&Unit", "<Ctrl+U> This Unit")


def test_a_text_that_is_missing_says_so_and_the_browser_goes_on(start, shop, history):
    history.add_archived(1, paid=TODAY)
    history.add_archived(2, paid=TODAY, offset=7)
    history.add_active(3, opened=TODAY)
    history.add_active(4, opened=TODAY, text="")
    copy = start_on(start, shop, history)
    look_for(copy, "adams")
    copy.expect_box("File not found: \nClick Retry to try again, or Cancel to skip.", "GetCurrWoRec(W0000004.tqa)",
                    buttons=["Retry", "Cancel"])
    copy.press("Cancel")
    expect_empty(copy)
    assert not copy.control("cmdPrintWO")["enabled"]
    copy.click("cmdNext")
    assert copy.caption("custname") == "Adams,Beth"
    copy.click("cmdNext")
    copy.expect_box("Possible corrupted tag file - run KRVLCLEN", "GetArchWo()", "critical")
    copy.press("OK")
    copy.expect_box("ArchWO not found = wo = 2", "Workorder History by Name")
    copy.press("OK")
    expect_empty(copy)
    copy.click("cmdNext")
    assert shown(copy) == 1 and copy.caption("custname") == "Adams,Beth"


def test_files_that_are_held_are_asked_about(start, shop, history):
    history.add_archived(1, paid=TODAY)
    history.add_active(2, opened=TODAY)
    copy = start_on(start, shop, history)
    tags = ("Tag file locked by another user.\nClick Retry to try again, or Cancel to exit.",
            "OpenActiveWOForReading(TQOPENWO.DAT)")
    with denied_to_all(shop.path("TQOPENWO.DAT")):
        look_for(copy, "adams")
        copy.expect_box(*tags, buttons=["Retry", "Cancel"])
        copy.press("Retry")
        copy.expect_box(*tags)
        copy.press("Cancel")
        assert copy.expect_form("frmWOHist")["focus"] == "srchName"
    with denied_to_all(shop.path("W0000002.tqa")):
        copy.key("F10")
        copy.expect_box("File locked by another user.\nClick Retry to try again, or Cancel to skip.",
                        "GetCurrWoRec(W0000002.tqa)")
        copy.press("Cancel")
    expect_empty(copy)
    with denied_to_all(shop.path("TQINVOIC.DAT")):
        copy.click("cmdNext")
        copy.expect_box("File locked by another user.\nClick Retry to try again, or Cancel to exit.",
                        "GetArchWo(TQINVOIC.DAT)")
        copy.press("Cancel")
        copy.expect_box("ArchWO not found = wo = 1")
        copy.press("OK")
    copy.click("cmdFirst")
    assert copy.caption("custname") == "Adams,Beth"
    lines = [line[20:] for line in copy.log_lines()]
    assert "Archived WO Tag File Pointer = 3 requested by frmWOHist.SearchArchive" in lines
    copy.key("Esc")
    for name in FILES:
        with denied_to_all(shop.path(name)):
            pass


SHAPES = {
    "empty": "",
    "only its heading": "[Workorder]",
    "cut in a line": order_text(1, labor=[["A"]])[:300],
    "cut in the labor": order_text(1, labor=[["A", "B"]]).split("0      \t")[0],
    "no line ends": order_text(1).replace("\r\n", ""),
    "line feeds alone": order_text(1, notes=[["N"]]).replace("\r\n", "\n"),
    "sections the other way round": "\r\n\r\n".join(reversed(order_text(1, notes=[["N"]]).split("\r\n\r\n"))),
    "unknown sections and keys": "[Odd]\r\nx=y\r\n\r\n" + order_text(1).replace("Status=", "Odd=1\r\nStatus="),
    "numbers that are none": order_text(1).replace("WorkorderTotal=100", "WorkorderTotal=abc\r\nPartsSubtotal=1e99"),
    "the greatest numbers": order_text(1).replace(
        "WorkorderTotal=100", "WorkorderTotal=2147483647\r\nPartsSubtotal=2147483647\r\nLaborSubtotal=2147483647\r\n"
        "PartsDiscount=2147483647\r\nPartsCost=-2147483648"),
    "dates that are none": order_text(1).replace("WorkorderTotal=100", "DateOpen=99/99/9999\r\nDatePaid=never"),
    "rows that end early": order_text(1).replace("[Parts]\r\n", "[Parts]\r\nA\r\n").replace(
        "[Labor]\r\n", "[Labor]\r\n000001\r\n").replace("[Sublets]\r\n", "[Sublets]\r\nV\r\n").replace(
        "[Credits]\r\n", "[Credits]\r\n1\r\n"),
    "marks of its own": order_text(1).replace("[Parts]\r\n", "[Parts]\r\nfree\r\ndone\r\nBEHIND\r\n"),
    "two hundred notes": order_text(1, notes=[[f"N{i}"] for i in range(200)]),
    "long lines": order_text(1, labor=[["x" * 5000] * 8], notes=[["y" * 5000]]),
    "other characters": order_text(1, last="Ñuñez & <Söhne>", notes=[["\x01\x7fŸ€ÿ"]]),
    "old labor without followups": order_text(1).replace("[Labor]\r\n", "[Labor]\r\n000001" + " " * 48 + "OLD\r\n"),
}


def test_texts_of_every_shape_are_browsed_and_none_is_changed(start, shop, history):
    for number, text in enumerate(SHAPES.values(), 1):
        text = text.replace("WorkorderNumber=000001", f"WorkorderNumber={number:06}")
        history.add_active(number, opened=TODAY, text=" " if text == "" else text)
        history.add_archived(1000 + number, paid=TODAY, text=text.replace(
            f"WorkorderNumber={number:06}", f"WorkorderNumber={1000 + number:06}"))
    shop.write()
    history.write(shop)
    names = [*FILES, *history.texts]
    before = {name: shop.path(name).read_bytes() for name in names}
    copy = open_history(start(shop))
    look_for(copy, VIN, "srchVIN")
    seen = []
    for _ in range(2 * len(SHAPES)):
        while copy.answer["waiting"] == "box":
            assert copy.answer["title"] in ("GetArchWo()", "Workorder History by VIN #", "LoadCheckListValues"), copy.answer
            copy.press("OK")
        seen.append(shown(copy))
        copy.click("cmdNext")
    assert seen == [*range(len(SHAPES), 0, -1), *range(1000 + len(SHAPES), 1000, -1)]
    assert copy.events("failure") == []
    assert {name: shop.path(name).read_bytes() for name in names} == before


def many(history, tags, last="Baker"):
    """Archived tags in front of which everything else lies."""
    other = History(VIN)
    other.add_archived(900000, paid=TODAY, last=last)
    history.archived += other.archived * tags


def test_esc_stops_a_search_at_once_whatever_the_size(start, shop, history):
    history.add_archived(1, paid=TODAY)
    many(history, 200_000)
    copy = start_on(start, shop, history)
    copy.type("srchName", "adams")
    for line in ({"do": "click", "control": "cmdSearch"}, {"do": "key", "key": "Esc"}):
        copy.process.stdin.write(json.dumps(line) + "\n")
    copy.process.stdin.flush()
    during = copy._next_answer("the search")
    assert (during["form"], during["focus"]) == ("frmWOHist", "cmdCancelSearch")
    after = copy._next_answer("Esc")
    assert (after["form"], after["focus"]) == ("frmWOHist", "srchName"), "no box says that there is no data"
    assert (copy.text("srchName"), copy.caption("cmdSearch")) == ("adams", "&Search")
    assert not copy.control("lblSearching")["visible"]
    copy.click("cmdSearch")
    assert shown(copy) == 1, "left alone, it finds what lies at the far end"


def test_a_window_closed_in_the_middle_of_a_search_lets_go_of_the_files(start, shop, history):
    many(history, 100_000)
    copy = start_on(start, shop, history)
    copy.type("srchName", "adams")
    copy.process.stdin.write('{"do":"click","control":"cmdSearch"}\n{"do":"close"}\n')
    copy.process.stdin.flush()
    copy._next_answer("the search")
    copy._next_answer("the end of the window")
    copy.expect_form("frmMain")
    with denied_to_all(shop.path("TQINCTAG.DAT")):
        pass


def test_the_size_of_the_window_is_kept(start, shop, history, tmp_path):
    settings = Settings(tmp_path / "settings")
    copy = start_on(start, shop, history)
    copy.close()
    copy.expect_form("frmMain")
    assert float(settings.read("Lantos", "frmWOHistWidth")) >= 9600
    assert float(settings.read("Lantos", "frmWOHistHeight")) >= 7200
    assert settings.read("Lantos", "frmWOHistState") == "0"

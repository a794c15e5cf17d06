"""The customer's copy of an estimate: whether it is printed, where it goes, what status follows."""

import shutil

import pytest

from driver import Settings
from printsteps import (MONDAY, NOTHING_CHOSEN, TITLE, TO_ARRIVED, choose, expect_on_paper, expect_preview, jobs,
                        options, plain_shop, png_size, print_estimate, row, text_of)

ANYWAY = 'Current status is not "Scheduled".\nDo you want to print the estimate anyway?'


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
    """The boxes of the totals are empty then, and are filled before the paper takes what stands in them."""
    plain_shop(shop)
    options(shop, {"ScheduledToArrived": "N", "ScheduledToInProgress": "N"})
    copy = choose(start(shop))
    copy.click("cmdDayView")
    copy.click(button)
    shown = expect_preview(copy, report)
    assert shown["title"].endswith(" 900")
    if report == "rptEstimate":
        assert [line[0] for line in shown["lines"]] == ["____Labor____", "000000 Labor", " ", "Tax", " "]
        assert shown["labels"]["lblTotal"] == copy.text("txtTotalCost", "frmMain") != ""


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

"""The printed day: the list on show, with its filter, sort and labor."""

from boardlines import CREATED, TODAY, main_line, status_line, view_of
from printsteps import MONDAY, expect_on_paper, expect_preview, jobs, options, text_of


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

"""What was done to a vehicle in three years, on a paper of its own, from the list of a customer's vehicles."""

import pytest

from boardlines import TODAY
from driver import Settings
from historyfiles import History
from locks import denied_to_all
from printsteps import VIN, as_text, expect_on_paper, expect_preview, jobs, text_of
from screens import open_vehicles, tell
from worksheetsteps import past

TITLE = "Vehicle History by VIN"
NONE = ("Vehicle History by VIN report could not be generated.\n"
        "This can be because there is either no VIN or no history in the last three years.")


@pytest.fixture
def garage(shop):
    """Customer 7 with a vehicle that has a VIN and one that has none."""
    customer = shop.add_customer(7, "Adams", "Beth")
    shop.add_vehicle(customer, "Honda", "Civic", "1995")
    shop.add_vehicle(customer, "Ford", "Focus", "1999", VIN=VIN)
    return shop


def at_vehicle(start, shop, row, history=None, **options):
    shop.write()
    if history:
        history.write(shop)
    copy = start(shop, **options)
    open_vehicles(copy, 7)
    copy.select("DataGrid1", row=row)
    return copy


def show(copy):
    copy.click("cmdHistory")
    expect_preview(copy, "rptGeneric")
    return [line for [line] in copy.answer["lines"]]


def test_the_history_is_previewed_and_printed_from_there(start, garage):
    history = History(VIN)
    eight = ["Oil change", "with filter", "", "4", "5", "6", "7", "road test"]
    history.add_active(4001, opened="2003-09-29", labor=[eight, ["free", "gone"]], mileage=49000,
                       notes=[["n1", "", "n3"]])
    history.add_archived(3001, paid="2000-09-30", labor=[["Tires"]], mileage=12000, last="Baker", first="Ann")
    history.add_archived(3002, paid="2003-03-01", mileage=45000)
    history.add_archived(3003, paid="2000-09-29")
    history.add_active(4002, opened=TODAY)
    history.add_active(4003, opened=TODAY, vin="OTHER")
    copy = at_vehicle(start, garage, 1, history)
    assert copy.control("cmdHistory")["tooltip"] == "Generate History Report for Selected"
    before = garage.hashes(but=("LN*",))
    lines = show(copy)
    assert lines == [
        *past(4002, "09/30/2003"),
        *past(4001, "09/29/2003", *[f"       {text}" for text in eight if text], mileage=49000, notes=["n1", "n3"]),
        *past(3002, "03/01/2003", mileage=45000),
        *past(3001, "09/30/2000", "       Tires", mileage=12000, name="Baker, Ann")]
    labels = {"lblCompanyName": "Miller's Garage", "lblReportName": TITLE, "lblHeading1": f"VIN: {VIN}",
              "lblHeading2": "1999 Ford Focus"}
    assert copy.answer["title"] == TITLE
    assert {name: copy.answer["labels"][name] for name in labels} == labels
    assert len([line for line in copy.log_lines() if "requested by cmdPrintWorksheet" in line]) == 1
    copy.send(do="print")
    [job] = jobs(copy)
    assert text_of(job) == as_text([[line] for line in lines])
    if copy.desktop == "qt":
        expect_on_paper(job, [[line] for line in lines], labels.values())
    copy.close()
    copy.expect_form("frmVehList")
    assert garage.hashes(but=("LN*",)) == before


def test_without_a_vin_or_a_past_it_says_so(start, garage):
    history = History(VIN)
    history.add_active(4001, opened="2000-09-29")
    history.add_active(4002, opened=TODAY, vin="")
    copy = at_vehicle(start, garage, 0, history)
    for row in (0, 1):
        copy.select("DataGrid1", row=row)
        copy.click("cmdHistory")
        copy.expect_box(NONE, TITLE, "exclamation", ["OK"])
        copy.press("OK")
        copy.expect_form("frmVehList")


def test_without_a_vehicle_there_is_nothing_to_show(start, garage):
    garage.add_customer(8, "Roe", "Al")
    garage.write()
    copy = start(garage)
    open_vehicles(copy, 8)
    copy.click("cmdHistory")
    tell(copy, "No vehicle selected.")
    copy.expect_form("frmVehList")


def test_three_years_back_from_a_leap_day_is_the_28th(start, garage):
    history = History(VIN)
    history.add_archived(3001, paid="2001-02-27")
    history.add_archived(3002, paid="2001-02-28")
    copy = at_vehicle(start, garage, 1, history, now="2004-02-29T08:15:00")
    assert show(copy) == past(3002, "02/28/2001")


def test_a_held_tag_file_is_asked_about_and_is_no_end_of_the_paper(start, garage):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    history.add_archived(3001, paid=TODAY)
    copy = at_vehicle(start, garage, 1, history)
    with denied_to_all(garage.path("TQINCTAG.DAT")):
        copy.click("cmdHistory")
        for _ in range(2):
            copy.expect_box("Tag file locked by another user.\nClick Retry to try again, or Cancel to exit.",
                            buttons=["Retry", "Cancel"])
            copy.press("Retry")
        copy.press("Cancel")
    expect_preview(copy, "rptGeneric")
    assert [line for [line] in copy.answer["lines"]] == past(4001, "09/30/2003")
    copy.close()
    assert show(copy) == past(4001, "09/30/2003") + past(3001, "09/30/2003")


def test_its_window_has_a_place_of_its_own(start, garage, tmp_path):
    history = History(VIN)
    history.add_active(4001, opened=TODAY)
    copy = at_vehicle(start, garage, 1, history)
    show(copy)
    copy.close()
    assert Settings(tmp_path / "settings").read("Lantos", f"{TITLE} State") == "0"
    assert Settings(tmp_path / "settings").read("Lantos", "Report State") is None

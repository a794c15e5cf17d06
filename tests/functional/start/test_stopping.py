"""Going down: by the window, by the menu, by a power cut, and past midnight."""

import pytest

from driver import Settings

MAIN_KEYS = ("MainLeft", "MainTop", "MainWidth", "MainHeight", "MainState", "ShowStatus", "LaborOnDayView")


def settings_of(tmp_path):
    return Settings(tmp_path / "settings")


def test_closing_the_window_goes_down_in_order(lantos, shop, tmp_path):
    lantos.menu("mnuShowStat(3)")
    lantos.click("cmdDayView")
    lantos.check("cbShowLabor", False)
    lantos.close_window()
    settings = settings_of(tmp_path)
    assert settings.read("Lantos", "LaborOnDayView") == "0"
    assert settings.read("Lantos", "ShowStatus") == "1110111111"
    assert [settings.read("Lantos", key) for key in MAIN_KEYS[:5]] == ["1000", "1000", "10000", "10000", "0"]
    assert shop.names("AU*") == []
    assert shop.names("LN*") == ["LN930000.LOG"]


def test_leaving_by_the_menu_ends_on_the_spot(lantos, shop, tmp_path):
    lantos.menu("mnuShowStat(3)")
    lantos.menu("mnuFileExit")
    lantos.expect_end()
    settings = settings_of(tmp_path)
    assert [settings.read("Lantos", key) for key in MAIN_KEYS] == [None] * len(MAIN_KEYS)
    assert shop.names("AU*") == ["AU9300.$$$"]
    assert not shop.path("Lantos.ini").exists() or "[BENCH1]" not in shop.path("Lantos.ini").read_text()


@pytest.mark.parametrize("state", ["1", "2"])
def test_a_minimised_or_maximised_window_keeps_its_stored_place(start, shop, tmp_path, state):
    shop.write()
    stored = {"MainLeft": "1200", "MainTop": "1300", "MainWidth": "11000", "MainHeight": "9000", "MainState": state}
    settings_of(tmp_path).write("Lantos", stored)
    start(shop).close_window()
    settings = settings_of(tmp_path)
    assert {key: settings.read("Lantos", key) for key in stored} == stored


def test_the_end_of_input_is_a_power_cut(lantos, shop, tmp_path):
    lantos.menu("mnuShowStat(3)")
    lantos.cut()
    assert settings_of(tmp_path).read("Lantos", "ShowStatus") is None
    assert shop.names("AU*") == ["AU9300.$$$"]


# Past midnight.

RESTART = ("NOTE: This application must be restarted each \n"
           "day in order to maintain data files integrity.\n\n"
           "Started date: 09/30/2003\n"
           "Current date: 10/01/2003\n\n"
           "Click OK to exit the application.")


def test_the_next_button_past_midnight_ends_the_program(lantos, shop, tmp_path):
    lantos.set_now("2003-10-01T00:00:05")
    lantos.click("cmdDayView")
    lantos.expect_box(RESTART, "Restart required.", "information", ["OK"])
    lantos.press("OK")
    lantos.expect_end()
    assert shop.names("AU*") == ["AU9300.$$$"], "nothing was unloaded"
    assert settings_of(tmp_path).read("Lantos", "ShowStatus") is None


def test_a_minute_before_midnight_is_still_today(lantos):
    lantos.set_now("2003-09-30T23:59:00")
    lantos.click("cmdDayView")
    lantos.expect_form("frmMain")


def test_a_menu_command_that_leads_to_no_such_button_goes_on_past_midnight(lantos):
    lantos.set_now("2003-10-01T00:00:05")
    lantos.menu("mnuRefreshCustomer")
    lantos.expect_box("Customer information refreshed.", "Refresh Complete.")
    lantos.press("OK")
    lantos.expect_form("frmMain")


@pytest.mark.parametrize("button", [
    "cmdChangeStatus", "cmdConvert", "cmdCustomerEdit", "cmdDayView", "cmdDetailView", "cmdEstimateChecklist",
    "cmdEstimateNotes", "cmdEstimateSublets", "cmdEstimateWaste", "cmdFind", "cmdLaborAdd", "cmdLaborAddCanned",
    "cmdLaborChange", "cmdLaborFollowup", "cmdLaborRemove", "cmdNewEstimate", "cmdPartAdd", "cmdPartAddNonStock",
    "cmdPartChange", "cmdPartRemove", "cmdPrintDay", "cmdPrintWorksheet", "cmdReschedule", "cmdTechHours",
    "cmdWeekView", "cmdWOHistory"])
def test_every_button_that_looks_at_the_date(start, shop, button):
    customer = shop.add_customer(7, "Adams", "Beth")
    vehicle = shop.add_vehicle(customer, "Ford", "Focus", "1999")
    shop.add_estimate(900, "2003-09-30", customer=7, vehicle=vehicle, hours=2)
    shop.write()
    copy = start(shop)
    copy.click("List1(2)", row=0)
    if button == "cmdPrintDay":
        copy.click("cmdDayView")
    elif button.startswith(("cmdLabor", "cmdPart", "cmdCustomer")):
        copy.click("cmdDetailView")
    state = copy.control(button)
    assert state["visible"] is True
    copy.set_now("2003-10-01T00:00:05")
    if not state["enabled"]:  # what it calls isn't there yet: it can't be reached at all
        assert copy.refused(do="click", control=button) == f"{button} is disabled"
        return
    copy.click(button)
    copy.expect_box(RESTART, "Restart required.", "information", ["OK"])

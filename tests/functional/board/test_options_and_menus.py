"""Print options, the menus of the main window, keys that every screen knows, and the date past midnight."""

import pytest

from boardlines import TODAY, view_of
from driver import Settings
from faults import READ_ONLY, Faults
from locks import foreign_window

SWITCHES = {
    "PrintCustomerOnWorksheet": ("optCustW", True), "PrintCommentsOnWorksheet": ("optCommW", True),
    "PrintNotesOnWorksheet": ("optNoteW", False), "PrintVehSummaryOnWorksheet": ("optVehW", True),
    "PrintDisclosure": ("optDisclosure", False), "PreviewWorksheet": ("optPreviewWS", True),
    "PreviewEstimate": ("optPreviewEst", True), "ShowPrinterDialog": ("optShowDialog", True),
    "ShowPartNumbersOnEst": ("optPartOnEst", True),
}
NUMBERS = {
    "VehSummaryYears": ("txtVehSummaryYears", 1), "VehSummaryLaborLines": ("txtVehSummaryLaborLines", 1),
    "BlankLinesPerLabor": ("txtLaborLines", 3), "BlankPartLines": ("txtPartLines", 3),
}
DEFAULTS = {key: value for key, (_, value) in {**SWITCHES, **NUMBERS}.items()}

MENUS = [
    ("mnuFile", "&File"), ("mnuKorvelcom", "&Korvel Home Page"), ("mnuFileExit", "E&xit"),
    ("mnuCommand", "&Commands"), ("mnuNewEstimate", "&New Estimate"), ("mnuPrintEstimate", "&Print Estimate"),
    ("mnuPrintWorksheet", "Print &Worksheet"), ("mnuConvertToWO", "&Convert to WO"),
    ("mnuReschedule", "&Reschedule"), ("mnuChangeStatus", "Change &Status"), ("mnuFind", "&Find"),
    ("mnuWOHistory", "WO &History"), ("mnuTechHours", "&Tech Hours"), ("mnuEstimateNotes", "Estimate N&otes"),
    ("mnuEstimateSublets", "Estimate S&ublets"), ("mnuEstimateWaste", "Estimate W&aste"),
    ("mnuEstimateChecklist", "Estimate Check&list"), ("mnuShowTrail", "Show Tra&il"),
    ("mnuFollow", "Follow Other Wor&kstations"),
    ("mnuMaint", "&Maintenance"), ("mnuCustomer", "&Customers"), ("mnuMaintEmployees", "&Employees"),
    ("mnuMaintInventory", "&Inventory"), ("mnuMaintVendors", "&Vendors"), ("mnuRefresh", "&Refresh"),
    ("mnuRefreshCustomer", "&Customers"), ("mnuRefreshTotals", "&Totals"), ("mnuMaintSystemInfo", "&System"),
    ("mnuSystemCompanyInfo", "&Company Info"), ("mnuDisclaimer", "&Estimate Disclaimer"),
    ("mnuSystemParameters", "&Parameters"), ("mnuPrintOptions", "Print &Options"),
    ("mnuSpecialDays", "Special &Days"), ("mnuStandardHours", "Standard &Hours"),
    ("mnuStatusOptions", "&Status Options"), ("mnuShowStatus", "&Show Status"),
    ("mnuShowStat(0)", "&0 Scheduled"), ("mnuShowStat(1)", "&1 Arrived"), ("mnuShowStat(2)", "&2 In Progress"),
    ("mnuShowStat(3)", "&3 Completed"), ("mnuShowStat(4)", "&4 Departed"), ("mnuShowStat(5)", "&5 Continued"),
    ("mnuShowStat(6)", "&6 Cancelled"), ("mnuShowStat(7)", "&7 Rescheduled"), ("mnuShowStat(8)", "&8 No-show"),
    ("mnuShowStat(9)", "&9 Estimate Only"), ("mnuHelp", "&Help"), ("mnuHQuickStartGuide", "&Quick Start Guide"),
    ("mnuHScreen", "&Help on This Screen <F1>"), ("mnuHAbout", "&About Lantos"),
]


def profile(shop):
    return shop.path("Lantos.ini").read_bytes().decode("cp1252")


def shown_options(copy):
    controls = copy.get("frmPrintOptions")["controls"]
    return {**{key: controls[box]["checked"] for key, (box, _) in SWITCHES.items()},
            **{key: controls[box]["text"] for key, (box, _) in NUMBERS.items()}}


def open_options(copy):
    copy.menu("mnuPrintOptions")
    copy.expect_form("frmPrintOptions")
    return shown_options(copy)


def as_shown(options):
    return {key: value if isinstance(value, bool) else str(value) for key, value in options.items()}


def stored_options(shop):
    section = profile(shop).split("[Print Options]\r\n")[1].split("[")[0]
    return dict(line.split("=", 1) for line in section.split("\r\n") if line)


# Print options.


def test_print_options_that_can_not_be_saved_are_told_of_and_stay(start, shop, tmp_path):
    shop.write()
    faults = Faults(shop.directory, tmp_path)
    copy = start(shop, faults=faults)
    before = profile(shop)
    shown = open_options(copy)
    faults.fail("Lantos.ini", fault=READ_ONLY)
    copy.check("optDisclosure")
    copy.key("F10")
    for button in ("Retry", "Cancel"):
        copy.expect_box("Lantos.ini can not be written: it is read-only, or closed to you by its permissions.\n"
                        "Click Retry to try again, or Cancel to leave the print options as before.", "Lantos.ini",
                        "exclamation", ["Retry", "Cancel"])
        copy.press(button)
    copy.expect_form("frmMain")
    assert profile(shop) == before
    faults.mend()
    assert open_options(copy) == shown


def test_without_a_profile_the_print_options_have_their_defaults(lantos):
    assert open_options(lantos) == as_shown(DEFAULTS)


def test_save_writes_all_thirteen_keys(start, shop, tmp_path):
    shop.write()
    copy = start(shop)
    open_options(copy)
    changed = {}
    for key, (box, value) in SWITCHES.items():
        copy.check(box, not value)
        changed[key] = not value
    for key, (box, text) in zip(NUMBERS, (("txtVehSummaryYears", "12"), ("txtVehSummaryLaborLines", "8"),
                                          ("txtLaborLines", "0"), ("txtPartLines", "15"))):
        copy.type(box, text)
        changed[key] = int(text)
    copy.key("F10")
    copy.expect_form("frmMain")
    assert stored_options(shop) == {key: str(value) for key, value in changed.items()}
    assert open_options(copy) == as_shown(changed)
    copy.click("cmdSave")
    assert stored_options(shop) == {key: str(value) for key, value in changed.items()}
    settings = Settings(tmp_path / "settings")
    assert settings.read("Lantos", "frmPrintOptionsState") == "0"
    assert settings.read("Lantos", "frmPrintOptionsWidth") and settings.read("Lantos", "frmPrintOptionsHeight")


def test_cancel_and_esc_write_no_print_option(start, shop):
    shop.write()
    copy = start(shop)
    before = profile(shop)
    for way_out in (lambda: copy.click("cmdCancel"), lambda: copy.key("Esc"), copy.close):
        open_options(copy)
        copy.check("optNoteW")
        way_out()
        copy.expect_form("frmMain")
    assert open_options(copy) == as_shown(DEFAULTS)
    assert profile(shop) == before


def test_print_options_are_read_anew_and_cut_at_five_characters(start, shop):
    shop.write()
    copy = start(shop)
    shop.write_profile({"Print Options": {"PrintNotesOnWorksheet": "True", "PreviewEstimate": "FALSEHOOD",
                                          "BlankPartLines": "123456789", "VehSummaryYears": "00007890"}})
    assert open_options(copy) == as_shown({**DEFAULTS, "PrintNotesOnWorksheet": True, "PreviewEstimate": False,
                                           "BlankPartLines": 12345, "VehSummaryYears": 7})


@pytest.mark.parametrize("key, value", [("PreviewEstimate", "maybe"), ("BlankPartLines", "three")])
def test_a_text_under_such_a_key_is_an_error_of_that_event_alone(start, shop, key, value):
    shop.write()
    shop.write_profile({"Print Options": {key: value}})
    copy = start(shop)
    copy.menu("mnuPrintOptions")
    box = copy.expect_box(buttons=["OK"])
    assert key in box["text"]
    copy.press("OK")
    copy.expect_form("frmMain")
    assert len(copy.events("failure")) == 1
    assert key in copy.events("failure")[0]
    assert key in copy.log_lines()[-1]


# Menus.


def test_every_menu_entry_is_there_in_order_with_its_caption(lantos):
    controls = lantos.get("frmMain")["controls"]
    found = [(name, control["caption"]) for name, control in controls.items()
             if name.startswith("mnu") and not name.startswith("mnuPopup")]
    assert found == MENUS
    popups = [(name, controls[name]["visible"]) for name in ("mnuPopup", "mnuPopupStatusMenu")]
    assert popups == [("mnuPopup", False), ("mnuPopupStatusMenu", False)]


def test_every_entry_leads_somewhere(lantos):
    for name, _ in MENUS:
        assert lantos.control(name)["enabled"], name


def test_a_menu_command_is_its_button(start, shop):
    shop.add_estimate(900, TODAY)
    shop.write()
    copy = start(shop)
    copy.click("List1(2)", row=0)
    copy.menu("mnuChangeStatus")
    copy.expect_form("frmEstStatus")
    copy.key("Esc")
    copy.menu("mnuNewEstimate")
    copy.expect_box("Is this an Estimate Only?\n\n(Will not be \"Scheduled\")", "New Estimate", "question",
                    ["Yes", "No"])


# Keys.


@pytest.mark.parametrize("entry, form", [
    ("mnuStandardHours", "frmStdHours"), ("mnuSpecialDays", "frmSpecialDays"),
    ("mnuStatusOptions", "frmStatusOptions"), ("mnuPrintOptions", "frmPrintOptions")])
def test_every_screen_knows_the_keys_of_all(lantos, entry, form):
    lantos.menu(entry)
    lantos.expect_form(form)
    lantos.key("Ctrl+Alt+T")
    lantos.expect_box("Korvel is not currently running.", "Toggle to Korvel")
    lantos.press("OK")
    assert lantos.key("Ctrl+Alt+P")["events"][0]["printed"] == form
    lantos.key("Esc")
    lantos.expect_form("frmMain")


def test_the_key_for_the_main_application_brings_its_window_up(lantos, tmp_path):
    with foreign_window(tmp_path / "runtime", "BENCH1", "Korvel: Miller's Garage"):
        lantos.key("Ctrl+Alt+T")
        lantos.expect_form("frmMain")


def test_a_missing_guide_is_told_with_its_path(lantos, shop):
    lantos.menu("mnuHQuickStartGuide")
    lantos.expect_box(f"Could not locate {shop.directory}\\Lantos Quick Start Guide.pdf", "Missing help file",
                      buttons=["OK"])


# Past midnight.

RESTART = ("NOTE: This application must be restarted each \n"
           "day in order to maintain data files integrity.\n\n"
           "Started date: 09/30/2003\n"
           "Current date: 10/01/2003\n\n"
           "Click OK to exit the application.")


@pytest.mark.parametrize("step", [
    ("menu", "mnuNewEstimate"), ("menu", "mnuChangeStatus"), ("pick", "single"), ("pick", "double"),
    ("panel", "double"), ("list", "double"), ("check", "cbShowLabor")])
def test_whatever_leads_to_such_a_button_ends_the_program_past_midnight(start, shop, step):
    shop.add_estimate(900, TODAY)
    shop.write()
    copy = start(shop)
    if step[0] == "check":
        copy.click("cmdDayView")
    copy.set_now("2003-10-01T00:00:05")
    kind, what = step
    if kind == "menu":
        copy.menu(what)
    elif kind == "pick":
        copy.pick("MonthView1", "2003-10-14", **({"double": True} if what == "double" else {}))
    elif kind == "panel":
        copy.double_click("frameWeek(4)")
    elif kind == "list":
        copy.double_click("List1(2)", row=0)
    else:
        copy.check(what, False)
    copy.expect_box(RESTART, "Restart required.", "information", ["OK"])
    copy.press("OK")
    copy.expect_end()
    assert shop.names("AU*") == ["AU9300.$$$"]


def test_what_leads_to_no_such_button_goes_on_past_midnight(start, shop):
    shop.add_estimate(900, TODAY, status=1)
    shop.write()
    copy = start(shop)
    copy.click("cmdDayView")
    copy.set_now("2003-10-01T00:00:05")
    copy.check("optDaySortBy(1)")
    copy.click("List2", row=0)
    copy.menu("mnuShowStat(4)")
    copy.menu("mnuRefreshTotals")
    for entry, form in (("mnuStandardHours", "frmStdHours"), ("mnuSpecialDays", "frmSpecialDays"),
                        ("mnuStatusOptions", "frmStatusOptions"), ("mnuPrintOptions", "frmPrintOptions"),
                        ("mnuCustomer", "frmCustSearch")):
        copy.menu(entry)
        copy.expect_form(form)
        copy.key("Esc")
        copy.expect_form("frmMain")
    copy.right_click("List2", row=0)
    copy.choose("In Progress")
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 2
    assert view_of(copy) == ["Day"]

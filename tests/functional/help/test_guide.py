"""F1 opens the guide at the screen's page, over whatever is open, and leaves that as it was."""

import pytest

from driver import data_option
from payfiles import open_history, paid  # noqa: F401

# A screen that a menu entry opens, and the heading of its page.
SCREENS = {
    "mnuSpecialDays": ("frmSpecialDays", "Special days"),
    "mnuWOHistory": ("frmWOHist", "Past work orders"),
    "mnuMaintVendors": ("frmVendorList", "Vendors"),
    "mnuPrintOptions": ("frmPrintOptions", "Print options"),
    "mnuStandardHours": ("frmStdHours", "Standard hours"),
    "mnuHAbout": ("frmAbout", "About Lantos"),
}


def page(copy):
    """The heading of the page on show."""
    return copy.text("page", "frmGuide").split("\n")[0].removeprefix("# ")


def at_guide(copy, heading):
    copy.expect_form("frmGuide")
    assert copy.answer["caption"] == f"Guide - {heading}"
    assert page(copy) == heading


def links(copy):
    return copy.rows("page", "frmGuide")


def test_f1_on_the_board_has_the_page_of_the_board(lantos):
    lantos.key("F1")
    at_guide(lantos, "The board")
    assert lantos.answer["focus"] == "page"
    lantos.key("Esc")
    lantos.expect_form("frmMain")


def test_the_menu_opens_the_same_page(lantos):
    lantos.menu("mnuHScreen")
    at_guide(lantos, "The board")
    lantos.key("F10")
    lantos.expect_form("frmMain")


@pytest.mark.parametrize("entry", SCREENS)
def test_f1_on_a_screen_has_its_page_and_comes_back_to_its_field(lantos, entry):
    form, heading = SCREENS[entry]
    lantos.menu(entry)
    lantos.expect_form(form)
    lantos.key("Tab")
    focus = lantos.answer["focus"]
    lantos.key("F1")
    at_guide(lantos, heading)
    lantos.key("Esc")
    lantos.expect_form(form)
    assert lantos.answer["focus"] == focus


def test_what_was_typed_stays(lantos):
    lantos.menu("mnuMaintVendors")
    lantos.key("Insert")
    lantos.expect_form("frmVendorAdd")
    focus = lantos.answer["focus"]
    lantos.type(focus, "half a na")
    lantos.key("F1")
    at_guide(lantos, "Vendors")
    lantos.key("Esc")
    lantos.expect_form("frmVendorAdd")
    assert lantos.answer["focus"] == focus
    assert lantos.text(focus) == "half a na"


def test_links_are_followed_and_gone_back_by_keys_alone(lantos):
    lantos.key("F1")
    at_guide(lantos, "The board")
    lantos.key("Alt+Home")
    at_guide(lantos, "Lantos Quick Start Guide")
    assert {"The board", "Trail", "Backup"} < set(links(lantos))
    target = links(lantos)[2]
    for _ in range(3):
        lantos.key("Tab")
    assert lantos.control("page")["selected"] == 2
    lantos.key("Shift+Tab")
    lantos.key("Tab")
    lantos.key("Enter")
    at_guide(lantos, target)
    lantos.key("Backspace")
    at_guide(lantos, "Lantos Quick Start Guide")
    assert lantos.control("page")["selected"] == 2
    lantos.key("Alt+Left")
    at_guide(lantos, "The board")
    assert not lantos.events("beep")
    lantos.key("Alt+Left")
    assert lantos.events("beep")
    at_guide(lantos, "The board")


def test_tab_leaves_the_page_behind_its_last_link(lantos):
    lantos.key("F1")
    at_guide(lantos, "The board")
    for _ in links(lantos):
        lantos.key("Tab")
        assert lantos.answer["focus"] == "page"
    lantos.key("Tab")
    assert lantos.answer["focus"] == "cmdBack"


def test_words_are_found_in_the_next_page_that_has_them(lantos):
    lantos.key("F1")
    lantos.key("Ctrl+F")
    assert lantos.answer["focus"] == "txtFind"
    lantos.type("txtFind", "SERVER CAN'T be")
    lantos.key("Enter")
    at_guide(lantos, "Several workstations")
    lantos.key("F3")
    at_guide(lantos, "Several workstations")
    lantos.type("txtFind", "xyzzy")
    lantos.key("F3")
    at_guide(lantos, "Several workstations")
    assert lantos.caption("lblFound") == "Not in the guide."


def test_f1_in_the_guide_tells_of_the_guide(lantos):
    lantos.key("F1")
    lantos.key("F1")
    at_guide(lantos, "This guide")
    lantos.key("Esc")
    lantos.expect_form("frmMain")


def test_in_the_pay_history_f1_prints(start, paid):  # noqa: F811
    copy = start(paid)
    open_history(copy, "Zoe Young")
    copy.expect_form("frmEmpPRHist")
    copy.key("F1")
    assert "frmGuide" not in copy.forms()


def test_the_guide_is_there_before_the_directory_is_known(start, tmp_path):
    (tmp_path / "empty").mkdir()
    copy = start(arguments=(data_option(tmp_path / "empty"),))
    copy.expect_box(title="Error")
    copy.press("Yes")
    copy.expect_form("frmEnterDir")
    copy.key("F1")
    at_guide(copy, "Start")
    copy.key("Ctrl+Alt+V")  # there are no vendors yet
    at_guide(copy, "Start")
    copy.key("Esc")
    copy.expect_form("frmEnterDir")

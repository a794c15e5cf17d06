"""A status changed by hand: the popup in both lists and in the detail view, and the options behind it."""

import pytest

from boardlines import CREATED, TODAY, add_elsewhere, hours_of, listed, main_line, row_of, status_line, view_of
from statussteps import NUMBER, board, choose_in_week, open_form, status_of, week_line

WORDS = ["Scheduled", "Arrived", "In Progress", "Completed", "Departed", "Continued", "Cancelled", "Rescheduled",
         "No-show", "Estimate Only"]
POPUP = [*WORDS[:8], "No Show", "Estimate Only"]
OFFERED = {0: [0, 1, 6, 7, 8, 9], 1: [0, 1, 2, 5], 2: [1, 2, 3, 5], 3: [2, 3, 4], 4: [3, 4], 5: [1, 2, 3, 5],
           6: [0, 6], 7: [0, 7], 8: [0, 1, 6, 7, 8], 9: [0, 6, 9]}
WARNING = ("Warning!\n\n"
           "Status is normally changed to \"Rescheduled\" via the \"Reschedule\" command button.\n"
           "If you change it here, the estimate will not be automatically scheduled for the new date.\n\n"
           "Are you sure you wish to change the status to \"Rescheduled\"?")
WARNING_TITLE = "Change Status to Rescheduled"


def popup_in_week(copy, number, panel=2):
    return copy.right_click(f"List1({panel})", row=row_of(copy, f"List1({panel})", number))


def popup_in_day(copy, number):
    return copy.right_click("List2", row=row_of(copy, "List2", number))


def items(answer):
    assert answer["menu"] == "mnuPopupStatusMenu"
    return [(item["caption"], item["checked"]) for item in answer["items"]]


# What the popup offers.


def offered_of_each_status(copy):
    seen = {}
    for status, number in NUMBER.items():
        seen[status] = items(popup_in_week(copy, number))
        copy.choose(None)
    return seen


def expected_items(leave_out=()):
    return {status: [(POPUP[entry], entry == status) for entry in entries
                     if not (entry == 7 and status in leave_out)]
            for status, entries in OFFERED.items()}


def test_the_popup_offers_a_step_forward_or_back_from_each_status(board, shop):
    copy = board()
    before = shop.hashes(but=("LN*",))
    assert offered_of_each_status(copy) == expected_items()
    copy.click("cmdDayView")
    for status, number in NUMBER.items():
        assert items(popup_in_day(copy, number)) == expected_items()[status]
        copy.choose(None)
    copy.click("cmdDetailView")
    assert items(copy.right_click("frameDetailView")) == expected_items()[9]
    copy.choose(None)
    assert shop.hashes(but=("LN*",)) == before, "a dismissed popup changes nothing"


def test_rescheduled_is_left_out_where_it_is_not_allowed_and_its_option_disabled(board):
    copy = board(RescheduledAllow="N")
    assert offered_of_each_status(copy) == expected_items(leave_out=(0, 8))
    choose_in_week(copy, 900)
    copy.click("cmdChangeStatus")
    assert [copy.control(f"Option1({i})")["enabled"] for i in (6, 7, 8)] == [True, False, True]
    assert "disabled" in copy.refused(do="click", control="Option1(7)")


def test_a_past_scheduled_estimate_is_offered_the_steps_of_a_no_show(board, shop):
    copy = board()
    assert items(popup_in_week(copy, 950, panel=1)) == expected_items()[8]
    copy.choose("Arrived")
    assert status_of(shop, 950) == 1
    assert week_line(copy, 950, panel=1) == "000950 Arrived"


def test_a_no_show_chosen_again_writes_nothing(board, shop):
    copy = board()
    popup_in_week(copy, 950, panel=1)
    copy.choose("No Show")
    assert status_of(shop, 950) == 0


# From the week list.


@pytest.mark.parametrize("line", [0, 1])
def test_a_change_in_the_week_list_puts_the_word_on_the_line(board, shop, line):
    copy = board()
    add_elsewhere(shop, 960)
    copy.right_click("List1(2)", row=row_of(copy, "List1(2)", 900) + line)
    copy.choose("Arrived")
    copy.expect_form("frmMain")
    assert status_of(shop, 900) == 1
    assert week_line(copy, 900) == "000900 Arrived"
    assert copy.rows("List1(2)")[row_of(copy, "List1(2)", 900) + 1] == "  CUSTOMER,UNKNOWN"
    assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Arrived"
    assert 960 not in listed(copy, "List1(2)"), "both count: nothing is loaded anew"


def test_leaving_the_days_count_loads_the_week_anew(board, shop):
    copy = board()
    add_elsewhere(shop, 960)
    assert hours_of(copy)[2] == "7.00"
    popup_in_week(copy, 900)
    copy.choose("mnuPopupStatus(6)")
    assert status_of(shop, 900) == 6
    assert 960 in listed(copy, "List1(2)")
    assert week_line(copy, 900) == "000900 Cancelled"
    assert hours_of(copy)[2] == "6.00"
    popup_in_week(copy, 909)
    copy.choose("Scheduled")
    assert (status_of(shop, 909), hours_of(copy)[2]) == (0, "7.00")
    popup_in_week(copy, 907)
    copy.choose("Scheduled")
    assert (status_of(shop, 907), hours_of(copy)[2]) == (0, "8.00")


def test_the_status_it_has_already_changes_nothing(board, shop):
    copy = board()
    add_elsewhere(shop, 960)
    before = shop.hashes(but=("LN*",))
    popup_in_week(copy, 903)
    copy.choose("Completed")
    copy.expect_form("frmMain")
    assert shop.hashes(but=("LN*",)) == before
    assert 960 not in listed(copy, "List1(2)")


# From the day list.


def test_a_change_in_the_day_list_replaces_the_status_line(board, shop):
    shop.add_estimate(940, TODAY, status=1, hours=1, CreateDate=CREATED, Comments="Waits")
    copy = board()
    copy.click("cmdDayView")
    copy.check("cbShowLabor", False)
    add_elsewhere(shop, 960)
    popup_in_day(copy, 940)
    copy.choose("In Progress")
    row = row_of(copy, "List2", 940)
    assert copy.rows("List2")[row:row + 3] == [
        main_line(940, "CUSTOMER,UNKNOWN", "1.00"), " ----> Waits", status_line("In Progress")]
    assert copy.control("List2")["rows"][row + 2]["data"] == 0
    popup_in_day(copy, 903)
    copy.choose("Departed")
    row = row_of(copy, "List2", 903)
    assert copy.rows("List2")[row:row + 2] == [main_line(903, "CUSTOMER,UNKNOWN", "1.00"), status_line("Departed")]
    assert (status_of(shop, 940), status_of(shop, 903)) == (2, 4)
    assert 960 not in listed(copy, "List2")
    copy.click("List2", row=row + 1)
    assert copy.control("List2")["selected"] == row, "the new line still belongs to its estimate"


def test_a_right_click_on_any_line_is_for_its_estimate(board, shop):
    copy = board()
    copy.click("cmdDayView")
    row = row_of(copy, "List2", 902)
    assert items(copy.right_click("List2", row=row + 1)) == expected_items()[2]
    copy.choose("Completed")
    assert status_of(shop, 902) == 3
    assert copy.rows("List2")[row + 1] == status_line("Completed")


def test_a_change_in_the_day_list_that_leaves_the_count_loads_anew(board, shop):
    copy = board()
    copy.click("cmdDayView")
    add_elsewhere(shop, 960)
    popup_in_day(copy, 908)
    copy.choose("Cancelled")
    assert status_of(shop, 908) == 6
    assert 960 in listed(copy, "List2")
    assert hours_of(copy)[2] == "6.00"
    assert view_of(copy) == ["Day"]


# In the detail view.


def test_a_change_in_the_detail_view_refreshes_its_caption(board, shop):
    copy = board()
    add_elsewhere(shop, 960)
    choose_in_week(copy, 901)
    copy.click("cmdDetailView")
    assert items(copy.right_click("frameDetailView")) == expected_items()[1]
    copy.choose("In Progress")
    assert status_of(shop, 901) == 2
    assert copy.caption("frameDetailView") == "Est. # 000901  09/30/2003  In Progress"
    assert 960 not in listed(copy, "List1(2)")


def test_a_change_in_the_detail_view_that_leaves_the_count_loads_anew_and_shows_it_again(board, shop):
    copy = board()
    add_elsewhere(shop, 960)
    choose_in_week(copy, 900)
    copy.click("cmdDetailView")
    copy.right_click("frameDetailView")
    copy.choose("Cancelled")
    assert status_of(shop, 900) == 6
    assert copy.caption("frameDetailView") == "Est. # 000900  09/30/2003  Cancelled"
    assert copy.text("txtTotalHours") == "1.00"
    assert hours_of(copy)[2] == "6.00"
    assert 960 in listed(copy, "List1(2)")
    assert view_of(copy) == ["Detail"]


# Rescheduled, by its option.


def test_rescheduled_without_a_question(board, shop):
    copy = board(RescheduledAllow="Y")
    popup_in_week(copy, 900)
    copy.choose("Rescheduled")
    copy.expect_form("frmMain")
    assert status_of(shop, 900) == 7
    open_form(copy, 903)
    copy.check("Option1(7)")
    copy.click("cmdOK")
    copy.expect_form("frmMain")
    assert status_of(shop, 903) == 7


@pytest.mark.parametrize("options", [{}, {"RescheduledAllow": "A"}])
def test_rescheduled_warns_and_asks(board, shop, options):
    copy = board(**options)
    popup_in_week(copy, 900)
    copy.choose("Rescheduled")
    copy.expect_box(WARNING, WARNING_TITLE, "exclamation", ["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmMain")
    assert status_of(shop, 900) == 0
    assert week_line(copy, 900) == "000900 Scheduled", "the word is put there after every popup"
    popup_in_week(copy, 900)
    copy.choose("Rescheduled")
    copy.press("Yes")
    assert status_of(shop, 900) == 7
    assert hours_of(copy)[2] == "6.00"

    open_form(copy, 903)
    copy.check("Option1(7)")
    copy.click("cmdOK")
    copy.expect_box(WARNING, WARNING_TITLE, "exclamation", ["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmEstStatus")
    assert status_of(shop, 903) == 3
    copy.click("cmdOK")
    copy.press("Yes")
    copy.expect_form("frmMain")
    assert status_of(shop, 903) == 7


# Continued, by its option.


def test_continued_without_continuation_only_changes_the_status(board, shop):
    copy = board(ContinuedAutoSchedule="N")
    estimates = shop.query("SELECT COUNT(*) AS Number FROM Estimates")
    popup_in_week(copy, 902)
    copy.choose("Continued")
    copy.expect_form("frmMain")
    assert status_of(shop, 902) == 5
    assert week_line(copy, 902) == "000902 Continued"
    open_form(copy, 901)
    copy.check("Option1(5)")
    copy.click("cmdOK")
    copy.expect_form("frmMain")
    assert status_of(shop, 901) == 5
    assert shop.query("SELECT COUNT(*) AS Number FROM Estimates") == estimates

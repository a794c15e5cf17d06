"""A status changed by hand in its form."""

from boardlines import add_elsewhere, hours_of, listed
from statussteps import NUMBER, board, open_form, status_of, week_line

MEANINGS = [
    "(Scheduled) - Displayed as blank.  Customer has been scheduled but vehicle has not yet arrived.",
    "Arrived - Customer has delivered vehicle, Estimate has been printed (and signed).",
    "In Progress - Mechanic has started work on the vehicle (work sheet has been printed).",
    "Complete - Mechanic has completed work.",
    "Departed - Customer has picked up the vehicle.",
    "Continued - Work could not be completed.  Vehicle is scheduled again for following day.",
    "Cancelled - Customer called and cancelled the work. *",
    "Rescheduled - Customer called and rescheduled the work for another day. *",
    "No-Show - Customer did not deliver vehicle, nor did they call to cancel and/or reschedule.",
    "Estimate Only.  Customer not scheduled and totals not included in summary. *",
]


def chosen(copy):
    return [i for i in range(10) if copy.control(f"Option1({i})")["checked"]]


def test_the_form_tells_all_ten_statuses_and_selects_the_present_one(board):
    copy = board()
    for status, number in NUMBER.items():
        open_form(copy, number)
        assert chosen(copy) == [status]
        if status == 0:
            assert [copy.caption(f"Option1({i})") for i in range(10)] == MEANINGS
            assert copy.caption("lblFootnote") == "* Totals not included in daily summary."
        copy.key("Esc")
        copy.expect_form("frmMain")


def test_the_form_changes_a_status_in_any_order(board, shop):
    copy = board()
    add_elsewhere(shop, 960)
    open_form(copy, 901)
    copy.check("Option1(3)")
    copy.click("cmdOK")
    copy.expect_form("frmMain")
    assert status_of(shop, 901) == 3
    assert week_line(copy, 901) == "000901 Completed"
    assert copy.caption("frameDetailView") == "Est. # 000901  09/30/2003  Completed"
    assert 960 not in listed(copy, "List1(2)"), "from Arrived to Completed nothing is loaded anew"
    copy.menu("mnuChangeStatus")
    copy.check("Option1(8)")
    copy.key("F10")
    copy.expect_form("frmMain")
    assert status_of(shop, 901) == 8
    assert copy.caption("frameDetailView") == "Est. # 000901  09/30/2003  No-show"


def test_from_arrived_to_cancelled_the_week_is_loaded_anew(board, shop):
    copy = board()
    add_elsewhere(shop, 960)
    open_form(copy, 901)
    copy.check("Option1(6)")
    copy.click("cmdOK")
    assert status_of(shop, 901) == 6
    assert hours_of(copy)[2] == "6.00"
    assert 960 in listed(copy, "List1(2)")
    assert week_line(copy, 901) == "000901 Cancelled"
    assert copy.caption("frameDetailView") == "Est. # 000901  09/30/2003  Cancelled"


def test_ok_on_the_present_status_does_nothing_and_stays(board, shop):
    copy = board()
    before = shop.hashes(but=("LN*",))
    open_form(copy, 902)
    copy.click("cmdOK")
    copy.expect_form("frmEstStatus")
    copy.check("Option1(3)")
    copy.click("cmdCancel")
    copy.expect_form("frmMain")
    assert shop.hashes(but=("LN*",)) == before
    assert week_line(copy, 902) == "000902 In Progress"


def test_cancelling_the_form_puts_even_the_word_of_a_scheduled_one_on_its_line(board, shop):
    copy = board()
    assert week_line(copy, 900) == "000900 "
    open_form(copy, 900)
    copy.close()
    copy.expect_form("frmMain")
    assert week_line(copy, 900) == "000900 Scheduled"
    assert status_of(shop, 900) == 0


def test_a_past_scheduled_estimate_is_a_no_show_in_the_form(board, shop):
    copy = board()
    open_form(copy, 950, panel=1)
    assert chosen(copy) == [8]
    copy.click("cmdOK")
    copy.expect_form("frmEstStatus")
    assert status_of(shop, 950) == 0
    copy.check("Option1(2)")
    copy.click("cmdOK")
    assert status_of(shop, 950) == 2
    assert week_line(copy, 950, panel=1) == "000950 In Progress"


def test_a_past_estimate_set_to_scheduled_reads_no_show_at_once(board, shop):
    copy = board()
    open_form(copy, 950, panel=1)
    copy.check("Option1(3)")
    copy.click("cmdOK")
    copy.click("cmdChangeStatus")
    copy.check("Option1(0)")
    copy.click("cmdOK")
    assert status_of(shop, 950) == 0
    assert copy.caption("frameDetailView") == "Est. # 000950  09/29/2003  No-show"
    assert week_line(copy, 950, panel=1) == "000950 No-show"


def test_with_no_estimate_chosen_there_is_nothing_to_change(lantos):
    lantos.click("cmdChangeStatus")
    lantos.expect_box("No estimate is selected.", "Change Status")
    lantos.press("OK")
    lantos.expect_form("frmMain")

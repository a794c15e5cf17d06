"""Finding an estimate of a customer, and going to it."""

import pytest

from boardlines import TODAY, elsewhere, serial, view_of


@pytest.fixture
def shop(shop):
    shop.add_customer(8, "School", "City")
    beth = shop.add_customer(7, "Adams", "Beth", phone="555-0142")
    ford = shop.add_vehicle(beth, "FORD", "TAURUS", "1998", VComment1="RED WAGON")
    bmw = shop.add_vehicle(beth, "BMW", "325", "2001")
    shop.add_employee(4, "Dan Ortiz")
    shop.add_estimate(900, "2003-09-24", customer=7, vehicle=ford)
    shop.add_estimate(901, TODAY, customer=7, vehicle=bmw, status=1)
    shop.add_labor(901, 1, "CHECK BRAKES\tFRONT\t\t\t\t\t\t", 1.5, mechanic=4)
    shop.add_labor(901, 2, "ROAD TEST", 0.5)
    shop.add_estimate(902, "2003-11-09", customer=7, vehicle=bmw, status=6)
    shop.add_estimate(903, "2003-11-10", customer=8)
    return shop


@pytest.fixture
def board(start, shop):
    shop.write()
    return start(shop)


def open_find(copy):
    copy.click("cmdFind")
    copy.expect_form("frmFind")


def find(copy, name):
    open_find(copy)
    copy.select("Combo1", text=name)
    copy.key("F10")


def test_the_estimates_of_the_current_customer_at_two_keys(board):
    board.select("List1(2)", row=0)
    open_find(board)
    assert board.text("Combo1") == "Adams,Beth"
    assert [row["text"] for row in board.control("Combo1")["rows"]] == ["Adams,Beth", "School,City"]
    assert [row["data"] for row in board.control("Combo1")["rows"]] == [7, 8]
    assert board.rows("Combo2") == [" All Vehicles", "2001 BMW 325", "1998 FORD TAURUS RED WAGON"]
    board.key("F10")
    rows = board.control("List1")["rows"]
    assert [row["text"].rstrip() for row in rows] == [
        "09/24/2003  1998 FORD TAURUS RED WAGON", "No-show",
        "09/30/2003  2001 BMW 325", "Arrived     000004 CHECK BRAKES", "            000000 ROAD TEST", "",
        "11/09/2003  2001 BMW 325", "Cancelled"]
    assert [row["data"] for row in rows] == [900, 900, 901, 901, 901, 901, 902, 902]
    assert board.caption("lblResults") == "Total estimates = 3"
    board.select("Combo2", row=2)
    assert board.rows("List1") == []
    board.key("F10")
    assert board.caption("lblResults") == "Total estimates = 1"


def test_the_jump_shows_week_day_calendar_and_detail_on_one_estimate(board):
    find(board, "Adams,Beth")
    board.double_click("List1", row=6)
    board.expect_form("frmMain")
    assert view_of(board) == ["Detail"]
    assert board.control("MonthView1")["date"] == "2003-11-09"
    assert board.control("frameDay")["tag"] == str(serial("2003-11-09"))
    assert board.caption("frameDay") == "Sunday, November 9, 2003"
    assert board.caption("frameDetailView").startswith("Est. # 000902  11/09/2003  Cancelled")
    assert [row["data"] for row in board.control("List1(0)")["rows"]] == [902, 902]
    assert board.caption("lblCustName") == "Beth Adams"
    board.click("cmdDayView")
    assert {row["data"] for row in board.control("List2")["rows"]} == {902}


def test_messages_and_keys(board):
    find(board, "School,City")
    board.click("cmdSelect")
    board.expect_box(text="Must select a displayed estimate.", title="Find - Select", buttons=["OK"])
    board.press("OK")
    board.key("F10")
    board.expect_box(text="Must select a displayed estimate.", title="Find - Select")
    board.press("OK")
    board.key("Esc")
    board.expect_form("frmMain")
    assert view_of(board) == ["Week"]


def test_no_estimates_and_no_customers(start, shop):
    shop.statements.clear()
    shop.write()
    copy = start(shop)
    find(copy, "School,City")
    copy.expect_box(text="No estimate records found.", title="Find", buttons=["OK"])
    copy.press("OK")
    assert copy.caption("lblResults") == "Total estimates = 0"
    copy.key("Esc")
    copy.close_window()
    for name in ("TQCSTTAG.DAT", "TQCSTDAT.DAT"):
        shop.path(name).write_bytes(b"")
    copy = start(shop)
    copy.menu("mnuFind")
    copy.expect_box(text="No customers on file.", title="Find", buttons=["OK"])
    copy.press("OK")
    copy.expect_form("frmFind")


def test_the_search_chooses_the_customer(board):
    board.select("List1(2)", row=0)
    open_find(board)
    board.click("cmdSearch")
    board.expect_form("frmCustSearch")
    board.type("NameKey", "sch")
    board.key("F10")
    board.select("CustList", row=0)
    board.click("cmdSelect")
    board.expect_form("frmFind")
    assert board.text("Combo1") == "School,City"
    board.key("F10")
    assert board.caption("lblResults") == "Total estimates = 1"


def test_looking_changes_nothing_and_an_estimate_that_went_is_told(board, shop):
    board.double_click("List1(2)", row=0)
    before = shop.hashes(but=("LN*",))
    find(board, "Adams,Beth")
    assert shop.hashes(but=("LN*",)) == before
    elsewhere(shop, "DELETE FROM Estimates WHERE EstimateNumber = 902")
    board.double_click("List1", row=6)
    board.expect_box(text="Estimate 000902 is no longer there.", title="Find")
    board.press("OK")
    assert board.caption("frameDetailView").startswith("Est. # 000901")

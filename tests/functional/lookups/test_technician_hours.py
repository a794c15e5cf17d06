"""How many hours each technician has on a day: to look from the board, to pick from the labor screen."""

import pytest

from boardlines import TODAY, elsewhere
from driver import Settings


@pytest.fixture
def shop(shop):
    customer = shop.add_customer(7, "Adams", "Beth")
    assert customer == 0
    shop.add_employee(4, "Dan Ortiz")
    shop.add_employee(5, "Eve Gone", terminated="2003-01-31")
    shop.add_employee(12, "Al Young")
    shop.add_estimate(899, "2003-09-29", customer=7)
    shop.add_labor(899, 1, "YESTERDAY", 9, mechanic=4)
    shop.add_estimate(900, TODAY, customer=7, status=1)
    shop.add_labor(900, 1, "BRAKES", 2.5, mechanic=4)
    shop.add_labor(900, 2, "NOBODY'S", 0.75)
    shop.add_labor(900, 3, "OLD HAND", 1, mechanic=5)
    shop.add_estimate(901, TODAY, customer=7, status=6)
    shop.add_labor(901, 1, "CANCELLED", 8, mechanic=4)
    shop.add_estimate(902, "2003-10-01", customer=7)
    shop.add_labor(902, 1, "TOMORROW", 3, mechanic=12)
    return shop


@pytest.fixture
def board(start, shop):
    shop.write()
    return start(shop)


def hours(copy):
    return copy.caption("lblDate"), copy.rows("List1")


def test_looking_from_the_board_day_by_day(board, shop, tmp_path):
    board.menu("mnuTechHours")
    board.expect_form("frmTechHours")
    assert board.caption("cmdCancel") == "Close"
    assert hours(board) == ("Tue 09/30/2003", ["000000    0.75 Unassigned", "000004    2.50 Dan Ortiz",
                                                "000012    0.00 Al Young"])
    assert [row["data"] for row in board.control("List1")["rows"]] == [0, 4, 12]
    board.click("cmdNext")
    assert hours(board) == ("Wed 10/01/2003", ["000000    0.00 Unassigned", "000004    0.00 Dan Ortiz",
                                                "000012    3.00 Al Young"])
    board.click("cmdPrev")
    board.click("cmdPrev")
    assert hours(board)[1][1] == "000004    9.00 Dan Ortiz"
    board.pick("DTPicker1", TODAY)
    board.check("Check1")
    assert hours(board) == ("Tue 09/30/2003", ["000000    0.75 Unassigned", "000004    2.50 Dan Ortiz",
                                                "000005    1.00 Eve Gone"])
    # What others enter meanwhile shows when the window is opened again.
    elsewhere(shop, "UPDATE Labors SET LaborHours = 400 WHERE EstimateNumber = 900 AND LaborNumber = 1")
    board.key("Alt+Right")
    board.key("Alt+Left")
    assert hours(board)[1][1] == "000004    2.50 Dan Ortiz"
    board.key("Esc")
    board.expect_form("frmMain")
    assert Settings(tmp_path / "settings").read("Lantos", "frmTechHoursShowSched") == "True"
    board.click("cmdTechHours")
    assert board.control("Check1")["checked"]
    assert hours(board)[1][1] == "000004    4.00 Dan Ortiz"


def test_picking_for_a_line_of_labor(board, shop):
    board.double_click("List1(2)", row=0)
    board.click("cmdLaborAdd")
    board.expect_form("frmLabor")
    board.key("F7")
    board.expect_form("frmTechHours")
    assert board.caption("cmdCancel") == "Cancel"
    assert board.caption("lblDate") == "Tue 09/30/2003"
    board.click("cmdSelect")
    board.expect_box(text="Must select an employee in the list.", title="Select Technician", buttons=["OK"])
    board.press("OK")
    board.key("Esc")
    board.expect_form("frmLabor")
    assert board.text("EmpList") == " None"
    board.key("F7")
    board.double_click("List1", row=2)
    board.expect_form("frmLabor")
    assert board.text("EmpList").startswith("Al Young ")
    board.type("txtDesc", "PICKED")
    board.key("F10")
    board.expect_form("frmMain")
    assert shop.query("SELECT Mechanic FROM Labors WHERE Description LIKE 'PICKED%'") == [{"Mechanic": 12}]


def test_looking_changes_no_row_and_gives_the_database_its_table_of_hours_once(board, shop):
    def rows():
        return shop.query("SELECT * FROM Estimates") + shop.query("SELECT * FROM Labors")

    before = rows()
    for _ in range(2):
        board.click("cmdTechHours")
        board.key("Esc")
    assert rows() == before
    made = shop.query("SELECT type FROM sqlite_master WHERE name LIKE 'LaborDays%'")
    assert sorted(each["type"] for each in made) == ["index"] * 2 + ["table"] + ["trigger"] * 6 + ["view"]

"""What the database refuses: the box says so in words, the log has the statement, and the screen shows what is
stored."""

import contextlib
import sqlite3

import pytest

from boardlines import hours_of
from workfiles import make_checklist, one_estimate, show, texts, totals

REFUSED = "The database refused the change. Nothing was stored; the run log has the reason."


@pytest.fixture
def board(start, shop):
    one_estimate(shop)
    for number in (1, 2):
        shop.add_labor(900, number, f"WORK {number}", 1)
        shop.add_part(900, f"P-{number}", "PART", 1, 1000)
        shop.add_note(900, number, f"Note {number}")
        shop.add_sublet(900, number, f"Vendor {number}", 100)
        shop.add_waste(900, number, f"Oil {number}", 100)
    shop.write()
    make_checklist(shop, ["[Engine]", "Oil,Leaks,3000"])
    return show(start(shop))


def refuse(shop, change, table):
    with contextlib.closing(sqlite3.connect(shop.path("Lantos.mdb"))) as database:
        database.execute(f"CREATE TRIGGER Refuse BEFORE {change} ON {table} BEGIN SELECT RAISE(ABORT, 'no way'); END")


def expect_refusal(copy, table, before=""):
    copy.expect_box(before + REFUSED, "Lantos", "critical", ["OK"])
    assert any("no way" in line and table.lower() in line.lower().split("statement: ")[-1]
               for line in copy.log_lines())
    copy.press("OK")


def on_show(copy):
    return texts(copy, "listLabor"), texts(copy, "listParts"), totals(copy), hours_of(copy)


def add_labor(copy):
    copy.click("cmdLaborAdd")
    copy.type("Hours", "3")
    copy.type("txtDesc", "more")
    copy.key("F10")


def remove_labor(copy):
    copy.select("listLabor", row=0)
    copy.click("cmdLaborRemove")
    copy.press("Yes")


def add_part(copy):
    copy.click("cmdPartAddNonStock")
    for name, value in (("PartNumber", "NEW"), ("Description", "new"), ("QuantityUsed", "1"), ("CostPrice", "1"),
                        ("SalePrice", "2"), ("ListPrice", "2")):
        copy.type(name, value)
    copy.key("F10")


def change_part(copy):
    copy.select("listParts", rows=[0])
    copy.click("cmdPartChange")
    copy.type("QuantityUsed", "5")
    copy.key("F10")


def remove_parts(copy):
    copy.select("listParts", rows=[0, 1])
    copy.click("cmdPartRemove")
    copy.press("Yes")


@pytest.mark.parametrize("change, table, work", [
    ("INSERT", "Labors", add_labor), ("DELETE", "Labors", remove_labor), ("INSERT", "Parts", add_part),
    ("INSERT", "Parts", change_part), ("DELETE", "Parts", remove_parts)])
def test_a_refused_change_of_labor_or_parts_leaves_all_as_it_was(board, shop, change, table, work):
    before = on_show(board)
    refuse(shop, change, table)
    work(board)
    expect_refusal(board, table)
    board.expect_form("frmMain")
    assert on_show(board) == before


def test_a_labor_line_that_is_lost_in_its_change_is_named_and_counts_no_more(board, shop):
    """Removed and added anew: what can't be added is gone, from the list, the totals and the day too."""
    labor, _, _, hours = on_show(board)
    refuse(shop, "INSERT", "Labors")
    board.select("listLabor", row=0)
    board.click("cmdLaborChange")
    board.type("Hours", "3")
    board.key("F10")
    expect_refusal(board, "Labors", 'The line "WORK 1" is no longer on the estimate, since its change couldn\'t be '
                                    'stored:\n\n')
    assert texts(board, "listLabor") == labor[2:]
    assert totals(board)[0] == "1.00"
    assert float(hours_of(board)[2]) == float(hours[2]) - 1
    assert len(shop.query("SELECT * FROM Labors WHERE EstimateNumber = 900")) == 1


def type_line(copy):
    copy.type("Vendor", "New")
    copy.type("Price", "9")
    copy.key("F10")


def add_sublet(copy):
    copy.click("cmdAdd")
    copy.click("POSubletList", row=0)
    copy.key("F10")
    type_line(copy)


def add_waste(copy):
    copy.click("cmdAdd")
    type_line(copy)


def change_line(copy):
    copy.click("cmdChange")
    type_line(copy)


def type_note(copy):
    copy.type("txtDesc", "other")
    copy.key("F10")


def add_note(copy):
    copy.click("cmdAdd")
    type_note(copy)


def change_note(copy):
    copy.click("cmdChange")
    type_note(copy)


def remove(copy):
    copy.click("cmdRemove")
    copy.press("Yes")


EXTRAS = [("Sublets", "cmdEstimateSublets", "listSublets", add_sublet, change_line),
          ("Waste", "cmdEstimateWaste", "listWaste", add_waste, change_line),
          ("Notes", "cmdEstimateNotes", "listNotes", add_note, change_note)]


@pytest.mark.parametrize("table, command, rows, add, change", EXTRAS, ids=[each[0] for each in EXTRAS])
def test_a_refused_line_of_a_screen_leaves_its_list_as_it_was(board, shop, table, command, rows, add, change):
    board.click(command)
    before = texts(board, rows)
    refuse(shop, "INSERT", table)
    for work in (add, change):
        work(board)
        expect_refusal(board, table)
        assert texts(board, rows) == before
    with contextlib.closing(sqlite3.connect(shop.path("Lantos.mdb"))) as database:
        database.execute("DROP TRIGGER Refuse")
    refuse(shop, "DELETE", table)
    for work in (change, remove):
        work(board)
        expect_refusal(board, table)
        assert texts(board, rows) == before
    assert len(shop.query(f"SELECT * FROM {table} WHERE EstimateNumber = 900")) == 2


def test_a_refused_checklist_is_as_it_was_when_it_comes_up_again(board, shop):
    refuse(shop, "INSERT", "Checklist")
    board.click("cmdEstimateChecklist")
    board.check("List1", row=0)
    board.key("F10")
    expect_refusal(board, "Checklist")
    board.expect_form("frmMain")
    board.click("cmdEstimateChecklist")
    assert [row["checked"] for row in board.control("List1")["rows"]] == [False]

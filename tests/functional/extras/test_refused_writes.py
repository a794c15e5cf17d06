"""What the database refuses: the box says so in words, the log has the statement, lists show what is stored, and what
was typed stays on its screen until it is stored or given up."""

import contextlib
import sqlite3

import pytest

from boardlines import hours_of
from workfiles import make_checklist, one_estimate, show, texts, totals

REFUSED = "The database refused the change. Nothing was stored; the run log has the reason."
STAYS = "\n\nWhat you entered is still here: save it again, or leave the screen without it."


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


def allow(shop):
    with contextlib.closing(sqlite3.connect(shop.path("Lantos.mdb"))) as database:
        database.execute("DROP TRIGGER Refuse")


def expect_refusal(copy, table, text=REFUSED + STAYS):
    copy.expect_box(text, "Lantos", "critical", ["OK"])
    assert any("no way" in line and table.lower() in line.lower().split("statement: ")[-1]
               for line in copy.log_lines())
    copy.press("OK")


def give_up(copy, form, name, asked=True):
    """Leaves the editor, and is told what that was."""
    copy.expect_form(form)
    copy.key("Esc")
    if asked:
        copy.press("Yes")
    assert copy.expect_box(icon="exclamation")["text"] == f"{name} was not stored."
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


@pytest.mark.parametrize("change, table, work, form, name", [
    ("INSERT", "Labors", add_labor, "frmLabor", 'The labor line "MORE"'),
    ("INSERT", "Parts", add_part, "frmWOPart", 'The part "NEW"'),
    ("INSERT", "Parts", change_part, "frmWOPart", 'The part "P-1"')])
def test_a_refused_line_stays_on_its_screen_and_the_board_as_it_was(board, shop, change, table, work, form, name):
    before = on_show(board)
    refuse(shop, change, table)
    work(board)
    expect_refusal(board, table)
    give_up(board, form, name)
    board.expect_form("frmMain")
    assert on_show(board) == before


@pytest.mark.parametrize("table, work", [("Labors", remove_labor), ("Parts", remove_parts)])
def test_a_refused_removal_leaves_all_as_it_was(board, shop, table, work):
    before = on_show(board)
    refuse(shop, "DELETE", table)
    work(board)
    expect_refusal(board, table, REFUSED)
    board.expect_form("frmMain")
    assert on_show(board) == before


def test_a_labor_line_whose_change_is_refused_is_there_and_changed_at_the_next_try(board, shop):
    labor, _, _, hours = on_show(board)
    refuse(shop, "INSERT", "Labors")
    board.select("listLabor", row=0)
    board.click("cmdLaborChange")
    board.type("Hours", "3")
    board.key("F10")
    expect_refusal(board, "Labors")
    board.expect_form("frmLabor")
    assert len(shop.query("SELECT * FROM Labors WHERE EstimateNumber = 900")) == 2
    allow(shop)
    board.key("F10")
    board.expect_form("frmMain")
    assert texts(board, "listLabor")[1:] == labor[1:]
    assert float(hours_of(board)[2]) == float(hours[2]) + 2
    assert len(shop.query("SELECT * FROM Labors WHERE EstimateNumber = 900 AND LaborHours = 300")) == 1


def test_what_is_typed_outlasts_a_database_that_somebody_else_holds(board, shop):
    before = on_show(board)
    with contextlib.closing(sqlite3.connect(shop.path("Lantos.mdb"), isolation_level=None)) as holder:
        holder.execute("BEGIN EXCLUSIVE")
        add_labor(board)
        text = board.expect_box(icon="critical")["text"]
        assert text.startswith("Another copy of the program has the database") and text.endswith(STAYS)
        assert "insert" not in text.lower()
        board.press("OK")
        assert board.text("txtDesc") == "more"
        holder.execute("ROLLBACK")
    board.key("F10")
    board.expect_form("frmMain")
    assert texts(board, "listLabor")[:-2] == before[0]
    assert texts(board, "listLabor")[-1].endswith("MORE")


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


EXTRAS = [("Sublets", "cmdEstimateSublets", "listSublets", add_sublet, change_line, "frmWOExtra", 'The sublet "New"'),
          ("Waste", "cmdEstimateWaste", "listWaste", add_waste, change_line, "frmWOExtra", 'The waste "New"'),
          ("Notes", "cmdEstimateNotes", "listNotes", add_note, change_note, "frmNotes", 'The note "other"')]


@pytest.mark.parametrize("table, command, rows, add, change, form, name", EXTRAS, ids=[each[0] for each in EXTRAS])
def test_a_refused_line_of_a_screen_leaves_its_list_as_it_was(board, shop, table, command, rows, add, change, form,
                                                              name):
    board.click(command)
    before = texts(board, rows)
    refuse(shop, "INSERT", table)
    for work in (add, change):
        work(board)
        expect_refusal(board, table)
        give_up(board, form, name)
        assert texts(board, rows) == before
    allow(shop)
    refuse(shop, "DELETE", table)
    change(board)
    expect_refusal(board, table)
    give_up(board, form, name)
    remove(board)
    expect_refusal(board, table, REFUSED)
    assert texts(board, rows) == before
    assert len(shop.query(f"SELECT * FROM {table} WHERE EstimateNumber = 900")) == 2


@pytest.mark.parametrize("table, command, rows, add, change, form, name", EXTRAS, ids=[each[0] for each in EXTRAS])
def test_a_number_that_another_workstation_has_taken_is_passed_over(board, shop, table, command, rows, add, change,
                                                                    form, name):
    board.click(command)
    number = {"Sublets": "SubletNumber", "Waste": "WasteNumber", "Notes": "NoteNumber"}[table]
    with contextlib.closing(sqlite3.connect(shop.path("Lantos.mdb"))) as database, database:
        database.execute(f"INSERT INTO {table} (EstimateNumber, {number}) VALUES (900, 3)")
    add(board)
    assert [row[number] for row in shop.query(f"SELECT * FROM {table} WHERE EstimateNumber = 900")] == [1, 2, 3, 4]
    assert len(texts(board, rows)) == 4


def test_a_refused_checklist_stays_and_is_as_it_was_when_it_comes_up_again(board, shop):
    refuse(shop, "INSERT", "Checklist")
    board.click("cmdEstimateChecklist")
    board.check("List1", row=0)
    board.key("F10")
    expect_refusal(board, "Checklist")
    assert [row["checked"] for row in board.control("List1")["rows"]] == [True]
    give_up(board, "frmWOChklst", "The checklist", asked=False)
    board.expect_form("frmMain")
    board.click("cmdEstimateChecklist")
    assert [row["checked"] for row in board.control("List1")["rows"]] == [False]

"""Notes, canned notes and the checklist of an estimate."""

import pytest

from workfiles import make_canned_notes, make_checklist, one_estimate, show, texts

CANNED = [("Customer waits",), ("Call before work", "leave word")]


def notes(shop):
    return [tuple(row.values())[1:] for row in shop.query("SELECT * FROM Notes ORDER BY NoteNumber")]


def note(number, *lines):
    return (number, *lines, *[""] * (8 - len(lines)))


@pytest.fixture
def board(start, shop):
    one_estimate(shop)
    shop.add_note(900, 2, "Old note", "", "third", "", "", "", "", "")
    shop.write()
    make_canned_notes(shop, CANNED)
    make_checklist(shop, ["Loose item", "[Engine]", "Oil, the stick", "Belts", "", "[Brakes]", "Pads"])
    return show(start(shop))


def test_notes_are_added_changed_and_removed(board, shop):
    assert board.control("cmdEstimateNotes")["bold"]
    board.click("cmdEstimateNotes")
    board.expect_form("frmEstNotes")
    assert texts(board, "listNotes") == ["--> Old note", "    third"]
    board.click("cmdAdd")
    board.expect_form("frmNotes")
    assert board.answer["caption"] == "Estimate Notes"
    board.type("txtDesc", "First\n\nSecond line")
    board.key("F10")
    assert notes(shop)[1] == note(3, "First", "Second line"), "blank lines typed between lines disappear"
    board.select("listNotes", row=1)
    board.click("cmdChange")
    assert board.text("txtDesc") == "Old note\nthird"
    board.type("txtDesc", "New")
    board.key("F10")
    assert notes(shop)[0] == note(2, "New")
    board.select("listNotes", row=0)
    board.click("cmdRemove")
    board.expect_box("Remove\n    New\nfrom this estimate?", "Remove Note", "none", ["Yes", "No"])
    board.press("Yes")
    assert [row[0] for row in notes(shop)] == [3]
    for button, text, title in (("cmdChange", "Must select a note to change.", "Change Note"),
                                ("cmdRemove", "You must select a note in order to remove it.", "Remove Note")):
        board.click(button)
        board.expect_box(text, title)
        board.press("OK")


def test_a_note_of_nine_lines_loses_the_ninth_with_the_truncation_message(board, shop):
    board.click("cmdEstimateNotes")
    board.click("cmdAdd")
    board.type("txtDesc", "1\n2\n3\n4\n5\n6\n7\n8\nnine")
    board.key("F10")
    board.expect_box("Remaining characters truncated:\nnine", "Estimate Notes")
    board.press("OK")
    assert notes(shop)[1] == note(3, "1", "2", "3", "4", "5", "6", "7", "8")


def test_a_canned_note_changed_on_its_way_leaves_the_list_as_it_was(board, shop):
    before = shop.path("TQCANNOT.DAT").read_bytes()
    board.click("cmdEstimateNotes")
    board.click("cmdCanned")
    board.expect_form("frmCanNoteList")
    assert texts(board, "CanList") == ["Customer waits", "Call before work", "    leave word"]
    board.select("CanList", row=2)
    board.key("F10")
    board.expect_form("frmNotes")
    assert board.answer["caption"] == "Canned Estimate Notes"
    board.type("txtDesc", "Call Beth before work")
    board.key("F10")
    assert notes(shop)[1] == note(3, "Call Beth before work")
    assert shop.path("TQCANNOT.DAT").read_bytes() == before


def test_the_shops_notes_are_kept(board, shop):
    board.click("cmdEstimateNotes")
    board.click("cmdCanned")
    assert board.control("cmdDelete")["tooltip"] == "Delete canned labor item <Delete>"
    board.key("Insert")
    assert board.answer["caption"] == "Canned Workorder Notes"
    board.type("txtDesc", "Third\nnote")
    board.key("F10")
    board.select("CanList", row=0)
    board.key("Delete")
    board.expect_box("Delete Customer waits?", buttons=["Yes", "No"])
    board.press("Yes")
    board.key("Esc")
    assert shop.path("TQCANNOT.DAT").read_bytes() == b"Call before work\tleave word\r\nThird\tnote\r\n"
    board.click("cmdCanned")
    for _ in range(2):
        board.select("CanList", row=0)
        board.key("Delete")
        board.press("Yes")
    board.key("Esc")
    assert shop.path("TQCANNOT.DAT").read_bytes() == b""


def test_reset_and_escape_in_the_editor(board, shop):
    board.click("cmdEstimateNotes")
    board.select("listNotes", row=0)
    board.click("cmdChange")
    board.type("txtDesc", "something else")
    board.key("F2")
    assert board.text("txtDesc") == "Old note\nthird"
    board.type("txtDesc", "something else")
    board.key("Esc")
    board.expect_box("Discard changes?", "Estimate Notes", buttons=["Yes", "No"])
    board.press("Yes")
    board.expect_form("frmEstNotes")
    assert notes(shop)[0][1] == "Old note"


def ticked(shop):
    return [row["ChecklistData"] for row in shop.query("SELECT ChecklistData FROM Checklist ORDER BY RecId")]


def test_the_checklist_is_ticked_and_saved_whole(board, shop):
    board.click("cmdEstimateChecklist")
    board.expect_form("frmWOChklst")
    assert board.answer["caption"] == "Estimate Checklist"
    assert texts(board, "List1") == ["Engine", "Brakes"]
    assert texts(board, "List2") == ["Oil", "Belts"]
    board.check("List1", row=0)
    board.check("List2", row=1)
    board.type("Service", "cracked")
    board.type("DueBackMiles", "500")
    board.check("List1", row=1)
    assert texts(board, "List2") == ["Pads"]
    board.key("F10")
    board.expect_form("frmMain")
    assert ticked(shop) == ["[Engine], , ", "Belts,cracked,500", "[Brakes], , "]
    board.click("cmdEstimateChecklist")
    board.check("List1", False, row=0)
    assert [row["checked"] for row in board.control("List2")["rows"]] == [False, False]
    board.key("Esc")
    assert len(ticked(shop)) == 3, "discarded"
    board.click("cmdEstimateChecklist")
    board.click("cmdClear1")
    board.key("F10")
    assert ticked(shop) == []


def test_a_row_of_a_deleted_item_is_told_once_a_load_and_lost_at_the_next_save(start, shop):
    one_estimate(shop)
    for data in ("[Engine], , ", "Horn,weak, ", "Oil,leaks,3000"):
        shop.add_row("Checklist", EstimateNumber=900, ChecklistData=data)
    shop.write()
    make_checklist(shop, ["[Engine]", "Oil"])
    copy = start(shop)
    copy.wait(50)
    copy.double_click("List1(2)", row=0)
    seen = 0
    while copy.answer["waiting"] == "box":
        copy.expect_box("Couldn't locate Horn in checklist.  Item skipped.", "LoadCheckListValues")
        copy.press("OK")
        seen += 1
    assert seen >= 1
    copy.click("cmdEstimateChecklist")
    copy.press("OK")
    copy.expect_form("frmWOChklst")
    copy.select("List2", row=0)
    assert [copy.text("Service"), copy.text("DueBackMiles")] == ["leaks", "3000"]
    copy.key("F10")
    assert ticked(shop) == ["[Engine], , ", "Oil,leaks,3000"]


def test_both_need_an_estimate(lantos):
    for button, title in (("cmdEstimateNotes", "Estimate Notes"), ("cmdEstimateChecklist", "Estimate Checklist")):
        lantos.click(button)
        lantos.expect_box("Must first select an estimate.", title)
        lantos.press("OK")


def test_the_number_of_a_removed_note_isnt_given_again(board, shop):
    board.click("cmdEstimateNotes")
    board.select("listNotes", row=0)
    board.click("cmdRemove")
    board.press("Yes")
    board.click("cmdAdd")
    board.type("txtDesc", "next")
    board.key("F10")
    assert [row[0] for row in notes(shop)] == [3]


def test_looking_at_the_checklist_unticks_nothing(start, shop):
    one_estimate(shop)
    for data in ("Oil,x,5", "Pads,y,6"):
        shop.add_row("Checklist", EstimateNumber=900, ChecklistData=data)
    shop.write()
    make_checklist(shop, ["[Engine]", "Oil", "[Brakes]", "Pads"])
    copy = show(start(shop))
    copy.click("cmdEstimateChecklist")
    assert texts(copy, "List2") == ["Oil"]
    copy.key("F10")
    assert ticked(shop) == ["Oil,x,5", "Pads,y,6"]

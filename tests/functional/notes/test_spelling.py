"""The spelling of labor and notes, checked against a small dictionary."""

import pytest

from inventoryfiles import make_inventory, part
from workfiles import one_estimate, show

NONE = "Microsoft Word is required in order to check the spelling."
NO_CHANGE = "No changes made.\n\nSpell check complete."
DONE = "\n\nSpell check complete."


@pytest.fixture
def dictionaries(tmp_path):
    folder = tmp_path / "dictionaries"
    folder.mkdir()
    (folder / "en_US.aff").write_text("SET UTF-8\nTRY esianrtolcdugmphbyfvkwz\n")
    (folder / "en_US.dic").write_text("4\nbrake\npads\nreplace\nworn\n")
    return folder


@pytest.fixture
def board(start, shop, dictionaries):
    one_estimate(shop)
    shop.write()
    return show(start(shop, dictionaries=dictionaries))


def note(board, text):
    board.click("cmdEstimateNotes")
    board.click("cmdAdd")
    board.type("txtDesc", text)
    board.click("cmdSpellCheck")


def finish(board, text):
    board.expect_box(text, "Estimate Notes")
    board.press("OK")


def test_without_a_dictionary_it_is_said(start, shop):
    one_estimate(shop)
    shop.write()
    board = show(start(shop))
    note(board, "braek")
    finish(board, NONE)
    assert board.text("txtDesc") == "braek"


def test_words_are_changed_ignored_and_added(board, tmp_path):
    note(board, "Replace braek pads\nTranny worn, tranny zzyzx braek")
    board.expect_form("frmSpelling")
    assert board.control("lblUnknown")["caption"] == "Not in the dictionary: braek"
    assert board.text("txtSentence") == "Replace »braek« pads"
    assert board.text("txtWord") == "brake"
    board.key("Alt+A")
    assert board.control("lblUnknown")["caption"] == "Not in the dictionary: Tranny"
    board.key("Alt+D")
    assert board.control("lblUnknown")["caption"] == "Not in the dictionary: zzyzx"
    board.key("Alt+I")
    finish(board, DONE)
    assert board.text("txtDesc") == "Replace brake pads\nTranny worn, tranny zzyzx brake"
    assert (board.settings / "words.txt").read_text() == "Tranny\n"
    board.type("txtDesc", "tranny brake")
    board.click("cmdSpellCheck")
    finish(board, NO_CHANGE)


def test_a_suggestion_is_taken_by_its_digit_and_enter_changes_to_it(board):
    note(board, "repalce padz")
    board.expect_form("frmSpelling")
    board.key("Alt+1")
    assert board.text("txtWord") == "replace"
    board.key("Enter")
    board.type("txtWord", "pad set")
    board.key("Enter")
    finish(board, DONE)
    assert board.text("txtDesc") == "replace pad set"


def test_cancel_leaves_all_as_it_was(board):
    note(board, " braek tranny padz ")
    board.key("F10")
    board.key("Alt+D")
    board.key("Esc")
    finish(board, NO_CHANGE)
    assert board.text("txtDesc") == " braek tranny padz "
    assert not (board.settings / "words.txt").exists()


def test_labor_is_checked_too(board):
    board.click("cmdLaborAdd")
    board.type("txtDesc", "REPLACE BRAEK pads")
    board.click("cmdSpellCheck")
    board.expect_form("frmSpelling")
    board.key("Enter")
    board.expect_box(DONE)
    board.press("OK")
    assert board.text("txtDesc") == "REPLACE BRAKE pads"


def test_a_damaged_dictionary_is_told_of(board, dictionaries):
    (dictionaries / "en_US.dic").write_text("900000000\nbrake\n")
    note(board, "braek")
    board.expect_box()
    assert board.answer["text"].endswith("is no dictionary: it doesn't begin with the count of its words.")
    board.press("OK")
    assert board.text("txtDesc") == "braek"


def test_the_shops_own_parts_makes_and_models_are_known(start, shop, dictionaries):
    one_estimate(shop)
    shop.add_make("Zyzzyva", ["Quagga"])
    shop.write()
    make_inventory(shop.directory, [part("XYLOBELT", "SERPENTYNE")])
    board = show(start(shop, dictionaries=dictionaries))
    note(board, "Replace xylobelt, serpentyne, zyzzyva QUAGGA")
    finish(board, NO_CHANGE)

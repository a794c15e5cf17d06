"""The data directory: the switch, the questions when it is missing, and names in any case."""

import pytest

from driver import data_option
from faults import DISK_FULL, Faults
from startsteps import MAIN_CAPTION, START_CANCELLED, settings_of

NO_FILES = "No scheduler files in data directory '{directory}'!\n\nChange directory?"


def expect_no_files_box(copy, directory):
    copy.expect_box(NO_FILES.format(directory=directory), "Error", "question", ["Yes", "No", "Cancel"])


def expect_must_be_specified(copy):
    copy.expect_box("Data directory must be specified!", "Fatal Error", "critical", ["OK"])


def stored_directory(tmp_path):
    return settings_of(tmp_path).read("Korvel", "DataDir")


@pytest.mark.parametrize("switch", ["/D=", "/d="])
@pytest.mark.parametrize("end", ["", "\\"])
def test_the_switch_in_either_case_with_or_without_backslash_stores_the_same(start, shop, tmp_path, switch, end):
    shop.write()
    start(arguments=(f"{switch}{shop.directory}{end}",)).expect_form("frmMain")
    assert stored_directory(tmp_path) == f"{shop.directory}\\"


def test_a_directory_that_can_not_be_stored_is_told_of(start, shop, tmp_path):
    shop.write()
    faults = Faults(tmp_path / "settings", tmp_path)
    faults.fail("Korvel.conf", fault=DISK_FULL)
    copy = start(shop, faults=faults)
    text = copy.expect_box(title="Lantos", icon="exclamation", buttons=["Retry", "Cancel"])["text"]
    assert text.startswith(f"The data directory '{shop.directory}\\' could not be stored in\n")
    assert text.endswith("Korvel.conf: the disk is full.\n\n"
                         "Click Retry to try again, or Cancel to go on in the directory of before.")
    faults.mend()
    copy.press("Retry")
    copy.expect_form("frmMain")
    assert stored_directory(tmp_path) == f"{shop.directory}\\"


def test_the_switch_is_for_good(start, shop):
    shop.write()
    start(shop).close_window()
    second = start()
    assert second.expect_form("frmMain")["caption"] == MAIN_CAPTION.format(directory=shop.directory)


def test_there_is_no_other_switch(start, shop, tmp_path):
    shop.write()
    copy = start(arguments=(f"/X={shop.directory}",))
    copy.expect_form("frmEnterDir")
    assert stored_directory(tmp_path) is None


def test_without_a_directory_the_program_asks_and_keeps_the_odd_pair_of_ends(start, shop, tmp_path):
    shop.write()
    copy = start()
    assert copy.expect_form("frmEnterDir")["caption"] == "Enter Data Files Directory"
    copy.type("TextString", f"  {shop.directory}  ")
    copy.click("cmdOK")
    assert copy.expect_form("frmMain")["caption"] == f"Lantos: Miller's Garage ({shop.directory}/\\)"
    assert stored_directory(tmp_path) == f"{shop.directory}/"
    copy.close_window()

    again = start()
    assert again.expect_form("frmMain")["caption"] == MAIN_CAPTION.format(directory=shop.directory)
    assert stored_directory(tmp_path) == f"{shop.directory}/", "mended in memory only"


def test_choosing_a_directory_copies_its_path(start, shop, tmp_path):
    shop.write()
    copy = start()
    copy.expect_form("frmEnterDir")
    copy.select("Drive1", text=str(tmp_path))
    copy.select("Dir1", text="shop")
    assert copy.text("TextString") == str(shop.directory)
    copy.key("F10")
    copy.expect_form("frmMain")


def test_no_answer_at_all_goes_on_with_an_empty_directory(start, tmp_path):
    copy = start()
    copy.expect_form("frmEnterDir")
    copy.click("cmdCancel")
    expect_must_be_specified(copy)
    copy.press("OK")
    expect_no_files_box(copy, "")
    copy.press("Cancel")
    copy.expect_end(START_CANCELLED)
    assert stored_directory(tmp_path) is None


def test_cancel_ends_without_window_log_or_further_message(start, tmp_path):
    empty = tmp_path / "empty"
    empty.mkdir()
    copy = start(arguments=(data_option(empty),))
    expect_no_files_box(copy, f"{empty}\\")
    assert copy.get("forms") == ["frmMain"]
    assert copy.get("frmMain")["visible"] is False
    copy.press("Cancel")
    copy.expect_end(START_CANCELLED)
    assert list(empty.iterdir()) == []


def test_no_repeats_the_question_until_the_file_turns_up(start, shop):
    shop.write()
    database = shop.path("Lantos.mdb")
    hidden = database.rename(shop.path("elsewhere"))
    copy = start(shop)
    for _ in range(2):
        expect_no_files_box(copy, f"{shop.directory}\\")
        copy.press("No")
    expect_no_files_box(copy, f"{shop.directory}\\")
    hidden.rename(database)
    copy.press("No")
    copy.expect_form("frmMain")


def test_yes_asks_for_another_directory_and_stores_even_a_wrong_one(start, shop, tmp_path):
    shop.write()
    wrong = tmp_path / "wrong"
    wrong.mkdir()
    copy = start(arguments=(data_option(tmp_path / "gone"),))
    expect_no_files_box(copy, f"{tmp_path / 'gone'}\\")
    copy.press("Yes")
    copy.expect_form("frmEnterDir")
    copy.type("TextString", str(wrong))
    copy.click("cmdOK")
    expect_no_files_box(copy, f"{wrong}/\\")
    assert stored_directory(tmp_path) == f"{wrong}/"
    copy.press("Yes")
    copy.type("TextString", str(shop.directory))
    copy.click("cmdOK")
    copy.expect_form("frmMain")
    assert stored_directory(tmp_path) == f"{shop.directory}/"


def test_yes_and_then_no_answer_ends_the_start(start, tmp_path):
    copy = start(arguments=(data_option(tmp_path / "gone"),))
    copy.press("Yes")
    copy.expect_form("frmEnterDir")
    copy.key("Esc")
    expect_must_be_specified(copy)
    copy.press("OK")
    copy.expect_end(START_CANCELLED)


def test_names_are_found_in_any_case(start, shop):
    shop.write()
    for path in list(shop.directory.iterdir()):
        path.rename(path.with_name(path.name.lower()))
    before = shop.names()
    copy = start(shop)
    copy.expect_form("frmMain")
    copy.close_window()
    assert [name for name in shop.names() if not name.startswith(("LN", "Lantos.ini"))] == before

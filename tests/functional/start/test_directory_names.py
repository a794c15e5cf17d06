"""Data directories whose names have characters that the program's page hasn't got, or aren't text at all."""

import os

import pytest

from driver import data_option
from shopfiles import Shop

GREEK = "Ωμέγα"
NAMES = [GREEK, "Café", "東京 shop", "clef \U0001D11E"]


def shop_in(tmp_path, name):
    shop = Shop(tmp_path / name)
    shop.write()
    return shop


def stored(tmp_path):
    """The line of the setting, in bytes."""
    lines = (tmp_path / "settings" / "Korvel.conf").read_bytes().splitlines()
    return next(line for line in lines if line.startswith(b"DataDir="))[len(b"DataDir="):]


@pytest.mark.parametrize("name", NAMES)
def test_any_name_opens_and_reads_as_it_is(start, tmp_path, name):
    shop = shop_in(tmp_path, name)
    copy = start(shop)
    assert copy.expect_form("frmMain")["caption"] == f"Lantos: Miller's Garage ({shop.directory}\\)"
    assert copy.get("log") == str(shop.path("LN930000.LOG"))
    assert shop.names("AU*") == ["AU9300.$$$"]
    copy.close_window()

    again = start()
    assert again.expect_form("frmMain")["caption"] == f"Lantos: Miller's Garage ({shop.directory}\\)"


def test_what_the_page_has_is_stored_in_it_and_all_else_in_utf_8(start, tmp_path):
    start(shop_in(tmp_path, "Café")).close_window()
    assert stored(tmp_path) == f"{tmp_path}/Café\\".encode("cp1252")
    start(shop_in(tmp_path, GREEK)).close_window()
    assert stored(tmp_path) == f"{tmp_path}/{GREEK}\\".encode("utf-8")


def test_a_setting_written_by_hand_in_utf_8_reads_as_it_is(start, tmp_path):
    shop = shop_in(tmp_path, "Café")
    (tmp_path / "settings").mkdir()
    (tmp_path / "settings" / "Korvel.conf").write_text(f"[Settings]\nDataDir={shop.directory}/\n", encoding="utf-8")
    assert start().expect_form("frmMain")["caption"] == f"Lantos: Miller's Garage ({shop.directory}\\)"


def test_a_name_that_is_not_utf_8_opens_too(start, tmp_path):
    name = b"\xffshop\xc3("
    shop = shop_in(tmp_path, os.fsdecode(name))
    copy = start(shop)
    assert copy.expect_form("frmMain")["caption"] == f"Lantos: Miller's Garage ({tmp_path}/\ufffdshop\ufffd(\\)"
    assert copy.get("log") == f"{tmp_path}/\ufffdshop\ufffd(/LN930000.LOG"
    assert shop.names("AU*") == ["AU9300.$$$"]
    copy.close_window()
    start().expect_form("frmMain")


def test_the_question_names_the_directory_readably(start, tmp_path):
    directory = tmp_path / GREEK
    directory.mkdir()
    copy = start(arguments=(data_option(directory),))
    copy.expect_box(f"No scheduler files in data directory '{directory}\\'!\n\nChange directory?")


def test_an_error_names_the_file_readably_in_box_and_log(start, tmp_path):
    shop = shop_in(tmp_path, GREEK)
    shop.path("Lantos.mdb").write_bytes(b"no database at all")
    copy = start(shop)
    copy.expect_box(icon="critical", buttons=["OK"])
    assert str(shop.path("Lantos.mdb")) in copy.answer["text"]
    assert str(shop.path("Lantos.mdb")) in shop.path("LN930000.LOG").read_text(encoding="utf-8")
    copy.press("OK")
    copy.expect_end(1)


@pytest.mark.parametrize("way", ["typed", "chosen"])
def test_the_screen_for_the_directory_takes_any_name(start, tmp_path, way):
    shop = shop_in(tmp_path, GREEK)
    copy = start()
    copy.expect_form("frmEnterDir")
    if way == "typed":
        copy.type("TextString", str(shop.directory))
    else:
        copy.select("Drive1", text=str(tmp_path))
        copy.select("Dir1", text=GREEK)
        assert copy.text("TextString") == str(shop.directory)
    copy.key("F10")
    assert copy.expect_form("frmMain")["caption"] == f"Lantos: Miller's Garage ({shop.directory}/\\)"
    assert stored(tmp_path) == f"{shop.directory}/".encode("utf-8")


def test_two_names_that_read_alike_are_not_guessed_at(start, tmp_path):
    for name in ("Ω", "Ψ"):
        shop_in(tmp_path, name)
    copy = start()
    copy.type("TextString", str(tmp_path / "Ω"))
    copy.key("F10")
    copy.expect_box(f"No scheduler files in data directory '{tmp_path}/?/\\'!\n\nChange directory?")


def test_work_is_done_in_such_a_directory(start, tmp_path):
    shop = Shop(tmp_path / GREEK)
    shop.add_customer(7, "Smith", "John")
    shop.add_estimate(900, "2003-09-30", customer=7)
    shop.write()
    copy = start(shop)
    copy.double_click("List1(2)", row=0)
    copy.type("txtComments", "Grüße")
    copy.leave()
    assert shop.estimate(900)["Comments"] == "Grüße"

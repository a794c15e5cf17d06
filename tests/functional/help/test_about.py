"""What a copy tells of itself, and takes along into a report."""

import os
import re


def about(copy):
    copy.menu("mnuHAbout")
    copy.expect_form("frmAbout")
    return dict(line.split(": ", 1) for line in copy.text("txtAbout").strip().split("\n"))


def test_it_tells_version_licence_data_engine_and_log(lantos, shop, desktop):
    told = about(lantos)
    assert re.fullmatch(r"Lantos \d+\.\d+\.\d+", told["Program"])
    assert told["Licence"] == "MIT License"
    assert ("Qt 6." in told["Libraries"]) == (desktop == "qt")
    for library in ("SQLite 3.", "SQLiteCpp ", "libpq ", "hunspell ", "fmt ", "nlohmann-json "):
        assert re.search(rf"(^|, ){re.escape(library)}\d*", told["Libraries"]), library
    assert all(re.fullmatch(r"\S+ \d+(\.\d+)+", library) for library in told["Libraries"].split(", "))
    assert told["Workstation"] == "BENCH1"
    assert told["Data directory"] == f"{shop.directory}\\"
    assert told["Estimates"].startswith(("SQLite 3.", "PostgreSQL"))
    assert os.path.exists(told["Run log"])
    assert told["Last backup that was restored and compared"].startswith("none")


def test_it_tells_of_the_backup_that_was_tried_out_last(lantos, shop):
    (shop.directory / "Lantos-backup.txt").write_bytes(b"2003-09-30T07:00:00 2003-09-29T22:00:00\r\n")
    told = about(lantos)
    assert told["Last backup that was restored and compared"] == "2003-09-29 22:00:00, compared on 2003-09-30 07:00:00"


def test_a_note_of_a_backup_that_says_nothing_is_none(lantos, shop):
    for content in (b"", b"\r\n", b"\x00\x00\x00", b"yesterday\r\n"):
        (shop.directory / "Lantos-backup.txt").write_bytes(content)
        assert about(lantos)["Last backup that was restored and compared"].startswith("none")
        lantos.key("Esc")
        lantos.expect_form("frmMain")


def test_all_of_it_is_copied(lantos):
    about(lantos)
    lantos.key("F2")
    assert lantos.caption("lblCopied") == "Copied."
    lantos.key("F1")
    lantos.key("Ctrl+F")
    lantos.key("Ctrl+V")
    assert "Program: Lantos " in lantos.text("txtFind")
    assert "Data directory: " in lantos.text("txtFind")

"""Coming up: the order, every dialog on the way, and the second copy."""

import os
import sqlite3

import pytest

from driver import Lantos, data_option
from locks import deny_to_all, foreign_window
from startsteps import MAIN_CAPTION, START_CANCELLED, START_FAILED, settings_of, shown_version

SECOND_COPY = ("The Korvel Apppointment Scheduler is already running.\n\n"
               "Click Yes to switch to the running application.\n\n"
               "Click No to allow another copy to run.\n\n"
               "Click Cancel to exit this copy.")
TOO_MANY = "More than 1000 network users - can not continue!"


def expect_second_copy_question(copy):
    copy.expect_box(SECOND_COPY, "Multiple Lantos Instances", "question", ["Yes", "No", "Cancel"])


# What stands on the screen after a start.


def test_the_start_ends_at_the_week_view_with_todays_panel(lantos, shop):
    assert lantos.answer["caption"] == MAIN_CAPTION.format(directory=shop.directory)
    assert lantos.control("MonthView1")["date"] == "2003-09-30"
    assert [lantos.control(view)["visible"] for view in ("frameWeekView", "frameDayView", "frameDetailView")] == [
        True, False, False]
    assert [lantos.control(f"cmd{view}View")["bold"] for view in ("Week", "Day", "Detail")] == [True, False, False]
    assert [lantos.caption(f"frameWeek({i})") for i in range(7)] == [
        "Sun 9/28", "Mon 9/29", "Tue 9/30", "Wed 10/1", "Thu 10/2", "Fri 10/3", "Sat 10/4"]
    assert lantos.forms() == ["frmMain", "frmInvList"]


def test_the_log_begins_with_the_start(lantos, shop):
    assert lantos.get("log") == str(shop.path("LN930000.LOG"))
    assert lantos.log_lines()[0] == "09/30/2003 08:15:00 Korvel Appointment Scheduler Started."


def test_a_running_copy_has_an_update_file_of_its_own(lantos, shop):
    assert shop.path("AU930.$$$").exists() is False
    assert shop.names("AU*") == ["AU9300.$$$"]
    assert shop.path("AU9300.$$$").read_bytes() == b""


def test_a_start_writes_nothing_into_the_shops_own_files(start, shop):
    shop.add_estimate(900, "2003-09-30", hours=2)
    shop.write()
    before = shop.hashes()
    copy = start(shop)
    copy.close_window()
    after = shop.hashes(but=("LN*", "Lantos.ini"))
    assert after == before


def test_the_status_filter_comes_back_as_it_was_stored(start, shop, tmp_path):
    shop.add_estimate(901, "2003-09-30", status=0)
    shop.add_estimate(902, "2003-09-30", status=3)
    shop.write()
    settings_of(tmp_path).write("Lantos", {"ShowStatus": "1110111011"})
    copy = start(shop)
    assert [copy.control(f"mnuShowStat({i})")["checked"] for i in range(10)] == [
        True, True, True, False, True, True, True, False, True, True]
    lines = copy.rows("List1(2)")
    assert any(line.startswith("000901") for line in lines)
    assert not any(line.startswith("000902") for line in lines), "the second load is the filtered one"


@pytest.mark.parametrize("stored, checked", [(None, True), ("1", True), ("0", False)])
def test_the_labor_switch_comes_back(start, shop, tmp_path, stored, checked):
    shop.write()
    if stored is not None:
        settings_of(tmp_path).write("Lantos", {"LaborOnDayView": stored})
    assert start(shop).control("cbShowLabor")["checked"] is checked


# The second copy.


def test_a_second_copy_asks_and_no_lets_both_run(start, shop):
    shop.write()
    first = start(shop)
    second = start(shop)
    expect_second_copy_question(second)
    assert second.get("frmMain")["caption"] == "Lantos Starting..."
    second.press("No")
    second.expect_form("frmMain")
    assert shop.names("AU*") == ["AU9300.$$$", "AU9301.$$$"]
    assert shop.names("LN*") == ["LN930000.LOG", "LN930001.LOG"]
    second.close_window()
    first.close_window()


def test_cancel_ends_the_second_copy_in_order(start, shop):
    shop.write()
    first = start(shop)
    second = start(shop)
    expect_second_copy_question(second)
    second.press("Cancel")
    second.expect_end()
    assert shop.names("AU*") == ["AU9300.$$$"], "the second copy's own is deleted"
    first.click("cmdDayView")
    first.expect_form("frmMain")


def test_yes_brings_the_first_copy_up_and_ends_the_second(start, shop):
    shop.write()
    first = start(shop)
    second = start(shop)
    second.press("Yes")
    second.expect_end()
    first.until(lambda: first.send(get="forms") and first.events("raised"), "the first copy is brought up")
    assert first.events("raised") == [MAIN_CAPTION.format(directory=shop.directory)]


def test_yes_carries_on_when_the_first_copy_has_gone(start, shop):
    shop.write()
    first = start(shop)
    second = start(shop)
    expect_second_copy_question(second)
    first.close_window()
    second.press("Yes")
    second.expect_form("frmMain")


def test_a_copy_that_is_still_starting_is_not_seen(start, shop):
    shop.write()
    first = start(shop)
    second = start(shop)
    expect_second_copy_question(second)
    first.kill()
    third = start(shop)
    third.expect_form("frmMain")


def test_a_killed_copy_is_not_running(start, shop):
    shop.write()
    start(shop).kill()
    start(shop).expect_form("frmMain")


def test_copies_on_other_workstations_are_not_asked_about(start, shop):
    shop.write()
    start(shop, computer="BENCH1").expect_form("frmMain")
    start(shop, computer="BENCH2").expect_form("frmMain")


def test_any_window_with_the_words_in_its_caption_counts(start, shop, tmp_path):
    shop.write()
    with foreign_window(tmp_path / "runtime", "BENCH1", "Korvel - LANTOS: notes"):
        expect_second_copy_question(start(shop))


def test_a_window_without_the_colon_and_blank_does_not_count(start, shop, tmp_path):
    shop.write()
    with foreign_window(tmp_path / "runtime", "BENCH1", "Lantos:notes"):
        start(shop).expect_form("frmMain")


# Names of the day.


def test_a_later_start_on_one_day_takes_the_next_names(start, shop):
    shop.write()
    first = start(shop)
    first.menu("mnuFileExit")
    first.expect_end()
    assert shop.names("AU*") == ["AU9300.$$$"]
    second = start(shop)
    second.expect_form("frmMain")
    assert shop.names("AU*") == ["AU9300.$$$", "AU9301.$$$"]
    assert shop.names("LN*") == ["LN930000.LOG", "LN930001.LOG"]


def test_files_of_earlier_days_are_removed_and_todays_stay(start, shop):
    shop.write()
    for name in ("LN929000.LOG", "LNc31007.LOG", "LN930004.LOG", "AU9290.$$$", "AUb150.$$$", "AU9307.$$$"):
        shop.path(name).write_bytes(b"")
    start(shop).expect_form("frmMain")
    assert shop.names("LN*") == ["LN930000.LOG", "LN930004.LOG"]
    assert shop.names("AU*") == ["AU9300.$$$", "AU9307.$$$"]


def test_a_log_that_another_workstation_holds_stays(start, shop):
    shop.write()
    start(shop, now="2003-09-29T23:00:00", computer="BENCH2")
    start(shop)
    assert shop.names("LN*") == ["LN929000.LOG", "LN930000.LOG"]


def test_december_has_the_letter_c(start, shop):
    shop.write()
    start(shop, now="2003-12-15T08:00:00")
    assert shop.names("LN*") == ["LNc15000.LOG"]
    assert shop.names("AU*") == ["AUc150.$$$"]


def test_the_thousandth_user_of_a_day_cannot_continue(start, shop):
    shop.write()
    for number in range(1000):
        shop.path(f"LN930{number:03}.LOG").touch()
    copy = start(shop)
    copy.expect_box(TOO_MANY, "KorvelMain", "critical", ["OK"])
    copy.press("OK")
    copy.expect_end(START_FAILED)
    assert shop.names("AU*") == []


def test_a_thousand_update_files_stop_the_start_while_the_splash_is_up(start, shop):
    shop.write()
    for number in range(1000):
        shop.path(f"AU930{number}.$$$").touch()
    copy = start(shop)
    copy.expect_box(TOO_MANY, "KorvelMain", "critical", ["OK"])
    splash = copy.get("frmSplash")
    assert splash["visible"] is True
    assert splash["controls"]["lblVersion"]["caption"] == f"Version {shown_version()}"
    copy.press("OK")
    copy.expect_end(START_FAILED)
    assert len(shop.names("LN*")) == 1


# What stands in the way.


def test_a_held_system_record_asks_and_retry_goes_on(start, shop):
    shop.write()
    held = deny_to_all(shop.path("TQSYSTEM.DAT"))
    copy = start(shop)
    copy.expect_box("System file locked by another user.", "Error 70: Permission denied", "critical",
                    ["Retry", "Cancel"])
    copy.press("Retry")
    copy.expect_box("System file locked by another user.")
    os.close(held)
    copy.press("Retry")
    copy.expect_form("frmMain")


def test_cancel_at_a_held_system_record_ends_the_program(start, shop):
    shop.write()
    held = deny_to_all(shop.path("TQSYSTEM.DAT"))
    copy = start(shop)
    copy.expect_box("System file locked by another user.")
    copy.press("Cancel")
    copy.expect_end(START_CANCELLED)
    os.close(held)
    assert shop.names("LN*") == []


STOP = '{"do":"click","control":"cmdStop"}'
CLOSE = '{"do":"close"}'


@pytest.fixture
def say_to_a_long_start(tmp_path, shop, desktop):
    """What a person has said before the start, which a held file makes long, has come anywhere."""
    copies = []

    def say(line):
        shop.write()
        held = deny_to_all(shop.path("TQDEPART.DAT"))
        copies.append(Lantos(tmp_path, desktop=desktop, arguments=(data_option(shop.directory),)))
        copies[0].process.stdin.write(line + "\n")
        copies[0].process.stdin.flush()
        copies[0].first_answer()
        os.close(held)
        return copies[0]
    yield say
    for copy in copies:
        copy.clean_up()


def test_a_long_start_is_stopped_by_its_button(say_to_a_long_start, shop):
    copy = say_to_a_long_start(STOP)
    copy.expect_form("frmSplash")
    copy.first_answer()
    copy.expect_end(START_CANCELLED)
    assert shop.names("AU*") == []


def test_what_is_said_to_the_board_ahead_of_time_waits_for_it(say_to_a_long_start):
    copy = say_to_a_long_start(CLOSE)
    copy.expect_box(icon="critical", buttons=["OK"])  # two seconds are over, and the file is still held


@pytest.mark.parametrize("content", [b"\0\1\0\0Standard Jet DB\0" + bytes(4096), b"no database at all"])
def test_a_database_that_is_not_ours_is_refused_and_left_alone(start, shop, content):
    shop.write()
    shop.path("Lantos.mdb").write_bytes(content)
    copy = start(shop)
    copy.expect_box(icon="critical", buttons=["OK"])
    copy.press("OK")
    copy.expect_end(START_FAILED)
    assert shop.path("Lantos.mdb").read_bytes() == content


def test_a_missing_line_of_standard_hours_ends_the_start(start, shop):
    shop.write()
    with sqlite3.connect(shop.path("Lantos.mdb")) as database:
        database.execute("DELETE FROM StandardHours")
    copy = start(shop)
    copy.expect_box(icon="critical", buttons=["OK"])
    copy.press("OK")
    copy.expect_end(START_FAILED)


def test_a_missing_second_database_is_no_error(start, shop):
    shop.write()
    shop.path("Korvel.mdb").unlink()
    start(shop).expect_form("frmMain")


# The workstation's section of the profile.


@pytest.mark.parametrize("computer, section", [
    ("BENCH1", "BENCH1"), ("A-COMPUTER-WITH-A-VERY-LONG-NAME", "A-COMPUTER-WITH-A-VE"), ("", "Lantos Defaults")])
def test_the_section_bears_the_computers_name_in_twenty_characters(start, shop, computer, section):
    shop.write()
    shop.write_profile({"Lantos Defaults": {"FontFactor": "3"}})
    start(shop, computer=computer).close_window()
    lines = shop.path("Lantos.ini").read_text(encoding="cp1252").splitlines()
    assert "FontFactor=3" in lines[lines.index(f"[{section}]"):]


def test_a_font_factor_of_nought_everywhere_becomes_one_in_the_defaults(start, shop):
    shop.write()
    shop.write_profile({"Lantos Defaults": {"FontFactor": "0"}, "BENCH1": {"FontFactor": "0"}})
    start(shop).expect_form("frmMain")
    lines = shop.path("Lantos.ini").read_text(encoding="cp1252").splitlines()
    assert lines[:2] == ["[Lantos Defaults]", "FontFactor=1"]

"""The driver itself, in real processes: its options, its refusals, and how a run ends."""

import json
import subprocess

import pytest

from driver import Refused, program_path


def run(*arguments, lines=""):
    return subprocess.run([program_path(), *arguments], input=lines, capture_output=True, text=True, timeout=60)


@pytest.mark.parametrize("arguments, words", [
    (["--colour", "red"], "--colour"),
    (["--desktop", "paper"], "paper"),
    (["--now", "yesterday"], "yesterday"),
    (["--now"], "--now"),
    (["surplus"], "surplus"),
])
def test_wrong_options_are_refused_with_a_reason(arguments, words):
    tried = run(*arguments)
    assert tried.returncode == 2
    assert words in tried.stderr
    assert tried.stdout == ""


def test_help_tells_every_option():
    tried = run("--help")
    assert tried.returncode == 0
    for option in ("--desktop", "--now", "--computer", "--settings", "--print-to"):
        assert option in tried.stdout


def test_the_programs_own_arguments_stand_behind_two_dashes(start, shop):
    shop.write()
    directory = shop.directory.rename(shop.directory.with_name("a shop"))
    copy = start(arguments=("/D=" + str(directory).split(" ")[0], "shop"))
    assert copy.expect_form("frmMain")["caption"] == f"Lantos: Miller's Garage ({directory}\\)"


def test_each_line_has_one_answer_and_a_refusal_does_nothing(lantos):
    before = lantos.get("form")
    for line in ("", "nonsense", "[1]", '{"do":"fly"}', '{"do":"click"}', '{"do":"click","control":"cmdNone"}',
                 '{"do":"click","control":"cmdDayView","modifier":"Shift"}', '{"do":"answer","button":"OK"}',
                 '{"do":"choose","item":null}', '{"do":"print"}', '{"do":"click","control":"List1(2)","row":0}',
                 '{"do":"click","control":"List2"}', '{"do":"menu","item":"mnuPopupRefreshCustomers"}',
                 '{"get":"frmNone"}', '{"get":"frmMain.cmdNone"}'):
        answer = lantos.send_text(line)
        assert answer["waiting"] == "form", line
        assert answer["error"], line
    assert lantos.get("form") == before


def test_a_form_tells_all_its_controls(lantos):
    form = lantos.get("form")
    assert form["form"] == "frmMain"
    assert form["visible"] is True
    controls = form["controls"]
    assert controls["cmdWeekView"]["type"] == "Button"
    assert controls["List1(0)"]["type"] == "ListBox"
    assert controls["List2"]["visible"] is False
    assert controls["MonthView1"]["date"] == "2003-09-30"
    assert controls["mnuShowStat(4)"]["checked"] is True
    assert lantos.get("frmMain.cmdWeekView") == controls["cmdWeekView"]


def test_a_hidden_controls_refusal_says_so(lantos):
    assert lantos.refused(do="click", control="List2", row=0) == "List2 is hidden"
    with pytest.raises(Refused):
        lantos.click("List2", row=0)


def test_waiting_moves_a_standing_clock_at_once(lantos):
    lantos.wait(3_600_000)
    lantos.set_now("2003-09-30T23:59:59")
    lantos.click("cmdDayView")
    lantos.expect_form("frmMain")
    lantos.wait(1000)
    lantos.click("cmdDayView")
    lantos.expect_box(title="Restart required.")


def test_the_real_clock_cannot_be_set(start, shop):
    shop.write()
    copy = start(shop, now=None)
    assert copy.refused(do="now", at="2003-09-30T08:15:00") == "the real clock can't be set"


def test_pictures_are_a_matter_of_real_windows(lantos, tmp_path, desktop):
    picture = tmp_path / "board.png"
    if desktop == "qt":
        assert lantos.send(get="screenshot", to=str(picture))["result"] == str(picture)
        assert picture.read_bytes().startswith(b"\x89PNG")
    else:
        assert lantos.refused(get="screenshot", to=str(picture)) == "there are no pixels without real windows"
        assert not picture.exists()


def test_a_screen_goes_to_the_printer_folder(lantos, desktop):
    event = lantos.key("Ctrl+Alt+P")["events"][0]
    assert event["printed"] == "frmMain"
    if desktop == "qt":
        with open(event["pdf"], "rb") as file:
            assert file.read(5) == b"%PDF-"
    else:
        with open(event["text"], encoding="utf-8") as file:
            assert json.load(file)["form"] == "frmMain"
        assert event["text"].startswith(str(lantos.print_to))


def test_a_key_that_finds_no_other_program_says_so(lantos):
    lantos.key("Ctrl+Alt+T")
    lantos.expect_box("Korvel is not currently running.", "Toggle to Korvel")
    lantos.press("OK")
    lantos.expect_form("frmMain")


def test_a_help_file_that_is_not_there(lantos, shop):
    lantos.menu("mnuHQuickStartGuide")
    lantos.expect_box(title="Missing help file")
    assert lantos.answer["text"].startswith("Could not locate ")
    assert lantos.answer["text"].endswith("Lantos Quick Start Guide.pdf")


def test_a_help_file_is_opened(lantos, shop):
    guide = shop.path("Lantos Quick Start Guide.pdf")
    guide.write_bytes(b"%PDF-1.4\n")
    assert lantos.menu("mnuHQuickStartGuide")["events"] == [{"shell": str(guide)}]
    lantos.expect_form("frmMain")


def test_the_makers_site_is_opened(lantos):
    opened = lantos.menu("mnuKorvelcom")["events"][0]["shell"]
    assert "://" in opened

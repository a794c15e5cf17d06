"""The status options: their screen, their lines in Lantos.ini, and the password in front."""

import pytest

from boardlines import TODAY
from driver import Settings

KEYS = ["ScheduledToArrived", "ScheduledToInProgress", "ArrivedToInProgress", "ScheduledToComplete",
        "ArrivedToComplete", "InProgressToComplete", "ContinuedAutoSchedule", "RescheduledAllow"]
# Option n + 1 knows these letters, by index.
KNOWN = ["YNA", "YNAE", "YNA", "YNAE", "YNAE", "YNA", "YNA", "YNA"]


def options_of(copy):
    """The letter chosen in each group."""
    controls = copy.get("frmStatusOptions")["controls"]
    return "".join(next((letter for i, letter in enumerate(known) if controls[f"Option{group}({i})"]["checked"]), "-")
                   for group, known in enumerate(KNOWN, 1))


def open_options(copy):
    copy.menu("mnuStatusOptions")
    return copy.expect_form("frmStatusOptions")


def profile(shop):
    return shop.path("Lantos.ini").read_bytes().decode("cp1252")


def test_each_group_has_the_letters_of_its_event_and_ask_is_the_default(lantos):
    open_options(lantos)
    names = [name for name in lantos.get("frmStatusOptions")["controls"] if name.startswith("Option")]
    assert names == [f"Option{group}({i})" for group, known in enumerate(KNOWN, 1) for i in range(len(known))]
    assert options_of(lantos) == "AAAAAAAA"
    assert lantos.control("cmdSave")["tooltip"] == "Save <F10>"
    assert lantos.control("cmdCancel")["tooltip"] == "Cancel <Esc>"


@pytest.mark.parametrize("letters", ["YNAEYNAY", "NEYYENYA", "AYNNAAYN"])
def test_save_writes_all_eight_lines(start, shop, letters):
    shop.write()
    copy = start(shop)
    before = profile(shop)
    open_options(copy)
    for group, letter in enumerate(letters, 1):
        copy.check(f"Option{group}({'YNAE'.index(letter)})")
    copy.key("F10")
    copy.expect_form("frmMain")
    section = "".join(f"{key}={letter}\r\n" for key, letter in zip(KEYS, letters))
    assert profile(shop) == before + "[Status Options]\r\n" + section
    open_options(copy)
    assert options_of(copy) == letters


def test_cancel_and_esc_write_nothing(start, shop):
    shop.write()
    shop.write_profile({"Lantos Defaults": {"FontFactor": "1"}, "Status Options": {"ScheduledToArrived": "N"}})
    before = profile(shop)
    copy = start(shop)
    for way_out in (lambda: copy.click("cmdCancel"), lambda: copy.key("Esc"), copy.close):
        open_options(copy)
        copy.check("Option1(0)")
        copy.check("Option8(1)")
        way_out()
        copy.expect_form("frmMain")
    open_options(copy)
    assert options_of(copy) == "NAAAAAAA"
    assert profile(shop) == before


def test_the_options_are_read_anew_before_they_are_shown(start, shop):
    shop.add_estimate(900, TODAY)
    shop.write()
    copy = start(shop)
    # Another workstation changes an option: this copy goes by what it read, until it shows the screen.
    shop.write_profile({"Lantos Defaults": {"FontFactor": "1"},
                        "Status Options": {"RescheduledAllow": "N", "ArrivedToComplete": "E"}})
    copy.right_click("List1(2)", row=0)
    assert "Rescheduled" in [item["caption"] for item in copy.answer["items"]]
    copy.choose(None)
    open_options(copy)
    assert options_of(copy) == "AAAAEAAN"
    copy.click("cmdCancel")
    copy.right_click("List1(2)", row=0)
    assert "Rescheduled" not in [item["caption"] for item in copy.answer["items"]], "memory keeps what was read"


def test_the_options_are_read_at_the_start(start, shop):
    shop.add_estimate(900, TODAY)
    shop.write()
    shop.write_profile({"Status Options": {"RescheduledAllow": "No, never"}})
    copy = start(shop)
    copy.right_click("List1(2)", row=0)
    assert "Rescheduled" not in [item["caption"] for item in copy.answer["items"]], "one character counts"


def test_saving_keeps_every_other_line_as_it_was(start, shop):
    shop.write()
    foreign = ("; Korvel's\r\n[Other]\r\nKey = with blanks \r\n\r\n[status options]\r\nInvented=1\r\n"
               "scheduledtoarrived=N\r\n[Lantos Defaults]\r\nFontFactor=1\r\n")
    shop.path("Lantos.ini").write_bytes(foreign.encode("cp1252"))
    copy = start(shop)
    open_options(copy)
    copy.check("Option1(0)")
    copy.click("cmdSave")
    lines = profile(shop).split("\r\n")
    assert lines[:6] == ["; Korvel's", "[Other]", "Key = with blanks ", "", "[status options]", "Invented=1"]
    assert "[Lantos Defaults]\r\nFontFactor=1\r\n" in profile(shop)
    values = dict(line.split("=", 1) for line in lines if "=" in line)
    assert {key.lower(): value for key, value in values.items()} == {
        "key ": " with blanks ", "invented": "1", "fontfactor": "1", "scheduledtoarrived": "Y",
        **{key.lower(): "A" for key in KEYS[1:]}}


def test_a_changed_option_counts_at_once(start, shop):
    shop.add_estimate(900, TODAY)
    shop.write()
    copy = start(shop)
    open_options(copy)
    copy.check("Option8(0)")
    copy.click("cmdSave")
    copy.right_click("List1(2)", row=0)
    copy.choose("Rescheduled")
    copy.expect_form("frmMain")
    assert shop.estimate(900)["Status"] == 7


@pytest.mark.parametrize("entered, form", [
    ("Wrench", "frmStatusOptions"), ("  Wrench ", "frmStatusOptions"), ("WRENCH", "frmMain"), ("", "frmMain"),
    (None, "frmMain")])
def test_the_options_stand_behind_the_system_password(start, shop, entered, form):
    shop.set_password("System", "Wrench   ")
    shop.write()
    copy = start(shop)
    copy.menu("mnuStatusOptions")
    assert copy.expect_form("frmEnterPwd")["caption"] == "Enter System Password"
    if entered is None:
        copy.key("Esc")
    else:
        copy.type("Pwd", entered)
        copy.key("F10")
    copy.expect_form(form)


def test_the_sizes_of_both_status_screens_are_stored(start, shop, tmp_path):
    shop.add_estimate(900, TODAY)
    shop.write()
    copy = start(shop)
    open_options(copy)
    copy.click("cmdCancel")
    copy.click("List1(2)", row=0)
    copy.click("cmdChangeStatus")
    copy.click("cmdCancel")
    settings = Settings(tmp_path / "settings")
    assert [settings.read("Lantos", f"frmStatusOptions{key}") for key in ("Height", "State")] == ["5700", "0"]
    assert [settings.read("Lantos", f"frmEstStatus{key}") for key in ("Height", "State")] == ["3930", "0"]


@pytest.mark.parametrize("state", ["1", "2"])
def test_a_screen_closed_maximised_or_minimised_keeps_its_stored_size(start, shop, tmp_path, state):
    shop.write()
    stored = {"frmStatusOptionsWidth": "13000", "frmStatusOptionsHeight": "6000", "frmStatusOptionsState": state}
    settings = Settings(tmp_path / "settings")
    settings.write("Lantos", stored)
    copy = start(shop)
    open_options(copy)
    copy.click("cmdCancel")
    assert {key: settings.read("Lantos", key) for key in stored} == stored

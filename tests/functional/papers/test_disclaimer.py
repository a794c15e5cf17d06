"""The editor of the text at the foot of the estimates."""

import pytest

from boardlines import TODAY
from driver import Settings
from printsteps import choose, png_size, print_estimate

NOTE = "Note: the system will attempt to print the estimate disclaimer exactly as shown above."


def open_editor(copy):
    copy.menu("mnuDisclaimer")
    return copy.expect_form("frmDisclaimer")


@pytest.fixture
def editor(start, shop):
    """The editor on files of the shop."""

    def open_on(files):
        shop.add_estimate(900, TODAY, hours=1)
        shop.write()
        for name, text in files.items():
            shop.path(name).write_bytes(text)
        copy = start(shop)
        open_editor(copy)
        return copy

    return open_on


def text_of(copy):
    return copy.text("txtDisclaimer").replace("\r\n", "\n")


def button(copy):
    return copy.caption("cmdCancel").replace("&", "")


def files_of(shop):
    return {name: shop.path(name).read_bytes() for name in shop.names("*") if name.upper().startswith("DISC")}


def test_the_screen(editor):
    copy = editor({})
    assert copy.answer["caption"] == "Estimate Disclaimer"
    assert copy.caption("lblNote") == NOTE
    assert copy.control("txtDisclaimer")["tooltip"] == "Will print as shown."
    assert copy.caption("cmdSave").replace("&", "") == "Save <F10>"
    assert copy.caption("cmdReset").replace("&", "") == "Reset <F2>"
    assert button(copy) == "Close"


@pytest.mark.parametrize("files, shown", [
    ({"DISC_EST.TXT": b"Own.", "DISCLAIM.TXT": b"Other."}, "Own."),
    ({"disc_est.txt": b"Own.\r\n\r\nSecond", "DISCLAIM.TXT": b"Other."}, "Own.\n\nSecond"),
    ({"DISC_EST.TXT": b"", "DISCLAIM.TXT": b"Other."}, ""),
    ({"DISCLAIM.TXT": b"Other.\r\nCaf\xe9"}, "Other.\nCaf\u00e9"),
    ({"disclaim.txt": b"Other."}, "Other."),
    ({"DISC_EST.TXT": b"Sign:\r\n    [ ] here  \r\n"}, "Sign:\n    [ ] here  "),
    ({}, ""),
])
def test_the_text_is_the_estimates_own_else_the_work_orders(editor, shop, files, shown):
    copy = editor(files)
    assert text_of(copy) == shown
    assert button(copy) == "Close"
    copy.key("Esc")
    copy.expect_form("frmMain")
    assert files_of(shop) == files, "looking changes nothing"


@pytest.mark.parametrize("leave", [
    lambda copy: copy.click("cmdCancel"), lambda copy: copy.key("Esc"), lambda copy: copy.close()])
def test_a_change_is_asked_about_before_it_is_discarded(editor, shop, leave):
    files = {"DISC_EST.TXT": b"Own."}
    copy = editor(files)
    copy.type("txtDisclaimer", "Changed.")
    assert button(copy) == "Cancel"
    leave(copy)
    copy.expect_box("Discard changes?", "Estimate Disclaimer", buttons=["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmDisclaimer")
    assert (text_of(copy), button(copy)) == ("Changed.", "Cancel")
    leave(copy)
    copy.press("Yes")
    copy.expect_form("frmMain")
    assert files_of(shop) == files
    open_editor(copy)
    assert (text_of(copy), button(copy)) == ("Own.", "Close")


@pytest.mark.parametrize("leave", [
    lambda copy: copy.click("cmdCancel"), lambda copy: copy.key("Esc"), lambda copy: copy.close()])
def test_without_a_change_it_closes_at_once(editor, leave):
    copy = editor({"DISC_EST.TXT": b"Own."})
    leave(copy)
    copy.expect_form("frmMain")


@pytest.mark.parametrize("save", [lambda copy: copy.click("cmdSave"), lambda copy: copy.key("F10")])
@pytest.mark.parametrize("files", [
    {"DISC_EST.TXT": b"A much longer text than the one that takes its place.\r\n" * 5, "DISCLAIM.TXT": b"Other."},
    {"disc_est.txt": b"Own.", "DISCLAIM.TXT": b"Other."}, {"DISCLAIM.TXT": b"Other."}, {}])
def test_saving_replaces_the_estimates_own_text_whole(editor, shop, files, save):
    copy = editor(files)
    copy.type("txtDisclaimer", "First line\n\n  Caf\u00e9 \u20ac 5 \"quoted\"\nlast")
    save(copy)
    copy.expect_form("frmDisclaimer")
    assert button(copy) == "Close"
    own = next((name for name in files if name.lower() == "disc_est.txt"), "DISC_EST.TXT")
    assert files_of(shop) == {**files, own: b"First line\r\n\r\n  Caf\xe9 \x80 5 \"quoted\"\r\nlast"}
    copy.key("Esc")
    copy.expect_form("frmMain")


def test_what_was_saved_is_no_change_any_more_and_the_next_one_is(editor, shop):
    copy = editor({"DISC_EST.TXT": b"Own."})
    copy.type("txtDisclaimer", "One")
    copy.click("cmdSave")
    copy.type("txtDisclaimer", "Two")
    assert button(copy) == "Cancel"
    copy.key("Esc")
    copy.expect_box("Discard changes?")
    copy.press("Yes")
    assert files_of(shop) == {"DISC_EST.TXT": b"One"}


def test_an_emptied_text_is_saved_empty(editor, shop):
    copy = editor({"DISC_EST.TXT": b"Own.", "DISCLAIM.TXT": b"Other."})
    copy.type("txtDisclaimer", "")
    assert button(copy) == "Cancel"
    copy.key("F10")
    assert files_of(shop)["DISC_EST.TXT"] == b""
    copy.key("Esc")
    open_editor(copy)
    assert text_of(copy) == ""


@pytest.mark.parametrize("reset", [lambda copy: copy.click("cmdReset"), lambda copy: copy.key("F2")])
def test_reset_reads_the_file_again(editor, shop, reset):
    copy = editor({"DISCLAIM.TXT": b"Other."})
    copy.type("txtDisclaimer", "Changed.")
    reset(copy)
    assert (text_of(copy), button(copy)) == ("Other.", "Close")
    shop.path("DISC_EST.TXT").write_bytes(b"From another workstation.")
    reset(copy)
    assert (text_of(copy), button(copy)) == ("From another workstation.", "Close")
    copy.key("Esc")
    copy.expect_form("frmMain")


def test_what_was_saved_stands_on_the_next_estimate(editor):
    copy = editor({"DISCLAIM.TXT": b"Other."})
    copy.type("txtDisclaimer", "Ours.\nSecond.")
    copy.click("cmdSave")
    copy.click("cmdCancel")
    assert print_estimate(choose(copy))["labels"]["lblDisclaimer"] == "Ours.\nSecond."


# Its place and its password.


def stored_size(keep):
    return [keep.read("Lantos", f"frmDisclaimer{part}") for part in ("Width", "Height", "State")]


def test_the_size_is_kept(start, shop, tmp_path):
    shop.write()
    keep = Settings(tmp_path / "settings")
    copy = start(shop)
    open_editor(copy)
    assert stored_size(keep) == [None, None, None]
    copy.key("Esc")
    first = stored_size(keep)
    assert first[2] == "0" and float(first[0]) > 0 and float(first[1]) > 0
    copy.close_window()
    keep.write("Lantos", {"frmDisclaimerWidth": 10500, "frmDisclaimerHeight": 9000, "frmDisclaimerState": 0})
    copy = start(shop)
    open_editor(copy)
    if copy.desktop == "qt":
        copy.send(get="screenshot", to=str(tmp_path / "editor.png"))
        assert png_size(tmp_path / "editor.png") == (10500 // 15, 9000 // 15)
    copy.key("Esc")
    assert stored_size(keep) == ["10500", "9000", "0"]


def test_a_maximised_editor_keeps_the_stored_size(start, shop, tmp_path):
    shop.write()
    keep = Settings(tmp_path / "settings")
    keep.write("Lantos", {"frmDisclaimerWidth": 10500, "frmDisclaimerHeight": 9000, "frmDisclaimerState": 2})
    copy = start(shop)
    open_editor(copy)
    copy.key("Esc")
    assert stored_size(keep) == ["10500", "9000", "2"]


def test_the_editor_is_behind_the_password_of_the_edit_menu(start, shop):
    shop.set_password("Edit Menu", "Secret")
    shop.set_password("System", "Other")
    shop.write()
    copy = start(shop)
    copy.menu("mnuDisclaimer")
    copy.expect_form("frmEnterPwd")
    assert copy.answer["caption"] == "Enter Edit Menu Password"
    copy.type("Pwd", "Secret")
    copy.click("cmdOK")
    copy.expect_form("frmDisclaimer")

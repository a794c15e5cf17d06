"""The command lines of the programs: help, version, what isn't understood, and the codes they end with."""

import subprocess

import pytest

from driver import data_option, program_path
from startsteps import SHOP_WRONG_USE, START_CANCELLED, WRONG_OPTIONS, settings_of, shown_version

PROGRAMS = ("lantos", "lantos-drive", "lantos-shop")


def run(name, *arguments):
    program = program_path().with_name(name)
    if not program.exists():
        pytest.skip(f"{name} isn't built")
    return subprocess.run([program, *arguments], input="", capture_output=True, text=True, timeout=60, env={})


@pytest.mark.parametrize("name", PROGRAMS)
def test_help_goes_to_the_output_and_needs_no_display(name):
    answer = run(name, "--help")
    assert (answer.returncode, answer.stderr) == (0, "")
    assert "--version" in answer.stdout
    assert ("new" if name == "lantos-shop" else "/D=") in answer.stdout


@pytest.mark.parametrize("name", PROGRAMS)
def test_the_version_is_the_one_of_the_splash(name):
    answer = run(name, "--version")
    assert (answer.returncode, answer.stderr) == (0, "")
    assert answer.stdout == f"{name} {shown_version()}\n"


@pytest.mark.parametrize("name, arguments, named", [
    ("lantos-drive", ("--nonsense",), "--nonsense"),
    ("lantos-drive", ("/srv/shop",), "/srv/shop"),
    ("lantos-drive", ("--now", "today"), "today"),
    ("lantos-drive", ("--desktop", "none"), "none"),
    ("lantos-shop", ("--nonsense",), "--nonsense"),
    ("lantos-shop", ("make",), "make"),
    ("lantos-shop", (), "--help"),
    ("lantos-shop", ("new",), "DIR"),
    ("lantos-shop", ("prune-trail", "/dev/shm/never"), "DATE"),
    ("lantos-shop", ("sample", "/dev/shm/never", "--customers", "many"), "many"),
    ("lantos-shop", ("sample", "/dev/shm/never", "--date", "yesterday"), "yesterday"),
])
def test_what_is_wrong_is_named_on_the_error_stream(name, arguments, named):
    answer = run(name, *arguments)
    code = SHOP_WRONG_USE if name == "lantos-shop" else WRONG_OPTIONS
    assert (answer.returncode, answer.stdout) == (code, "")
    assert named in answer.stderr


def test_an_option_that_lantos_does_not_have_is_named(has_windows):
    program = program_path().with_name("lantos")
    if not program.exists() or not has_windows:
        pytest.skip("lantos isn't built")
    answer = subprocess.run([program, "--nonsense"], capture_output=True, text=True, timeout=60,
                            env={"QT_QPA_PLATFORM": "offscreen"})
    assert (answer.returncode, answer.stdout) == (WRONG_OPTIONS, "")
    assert "there is no option --nonsense" in answer.stderr


def test_a_directory_without_the_switch_is_named_and_the_kept_one_counts(start, shop, tmp_path):
    shop.write()
    start(shop).close_window()
    other = tmp_path / "other"
    other.mkdir()
    copy = start(arguments=(other,))
    copy.expect_box(f'"{other}" on the command line is not understood.\n\nThe data directory is given as /D={other}\n\n'
                    "The program goes on with the directory it worked in before.", "Lantos", "exclamation", ["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")
    assert settings_of(tmp_path).read("Korvel", "DataDir") == f"{shop.directory}\\"


def test_another_switch_is_named_on_the_status_line_and_in_the_log(start, shop):
    shop.write()
    start(shop).close_window()
    copy = start(arguments=("/X=/srv/shop",))
    copy.expect_form("frmMain")
    text = '"/X=/srv/shop" on the command line is not understood. The only switch is /D= and a directory.'
    assert copy.events("status") == [text]
    assert any(line.endswith(text) for line in copy.log_lines())


def test_a_start_that_is_given_up_ends_with_a_code_of_its_own(start, tmp_path):
    copy = start(arguments=(data_option(tmp_path / "gone"),))
    copy.press("Cancel")
    copy.expect_end(START_CANCELLED)

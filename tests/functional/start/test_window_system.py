"""The window system under the program: what becomes of a display that isn't there, and of its library's own talk."""

import os
import subprocess

import pytest

from driver import data_option, program_path


def run_in(environment, shop, home):
    """One copy on real windows in a bare environment, until its input ends at once."""
    plain = {key: os.environ[key] for key in ("PATH", "ASAN_OPTIONS", "LD_LIBRARY_PATH") if key in os.environ}
    command = [program_path(), "--desktop", "qt", "--settings", home / "settings", "--print-to", home / "print",
               "--now", "2003-09-30T08:15:00", "--", data_option(shop.directory)]
    return subprocess.run(command, input="", capture_output=True, text=True, timeout=60,
                          env={**plain, "HOME": str(home), **environment})


@pytest.fixture
def written_shop(shop, has_windows):
    if not has_windows:
        pytest.skip("this build has no real windows")
    shop.write()
    return shop


def test_without_a_display_the_windows_are_kept_in_memory_and_nothing_is_said_about_it(written_shop, tmp_path):
    run = run_in({}, written_shop, tmp_path)
    assert (run.returncode, run.stderr) == (0, "")
    assert '"form":"frmMain"' in run.stdout.splitlines()[0]


@pytest.mark.parametrize("environment, reason", [
    ({"DISPLAY": ":7654"}, "the display :7654 can't be opened"),
    ({"QT_QPA_PLATFORM": "nowhere"}, "the window system \"nowhere\" (QT_QPA_PLATFORM) can't be used"),
])
def test_windows_that_cannot_be_had_end_the_program_with_one_sentence(written_shop, tmp_path, environment, reason):
    run = run_in(environment, written_shop, tmp_path)
    assert (run.returncode, run.stdout) == (1, "")
    assert run.stderr == f"lantos-drive: no windows can be shown: {reason}.\n"

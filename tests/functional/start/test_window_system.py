"""The window system under the program: what becomes of a display that isn't there, and of its library's own talk."""

import os
import subprocess
import time

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


def test_a_program_that_is_asked_to_end_takes_its_update_file_along(written_shop, tmp_path):
    runtime = tmp_path / "runtime"
    runtime.mkdir(mode=0o700)
    plain = {key: os.environ[key] for key in ("PATH", "ASAN_OPTIONS", "LD_LIBRARY_PATH") if key in os.environ}
    copy = subprocess.Popen([program_path().with_name("lantos"), data_option(written_shop.directory)],
                            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
                            env={**plain, "HOME": str(tmp_path), "XDG_CONFIG_HOME": str(tmp_path / "settings"),
                                 "XDG_RUNTIME_DIR": str(runtime), "QT_QPA_PLATFORM": "offscreen"})
    deadline = time.monotonic() + 60
    while not any("Lantos: " in windows.read_text() for windows in runtime.glob("lantos/*.windows")):
        assert time.monotonic() < deadline and copy.poll() is None
        time.sleep(0.05)
    assert list(written_shop.directory.glob("AU*.$$$"))
    copy.terminate()
    assert (copy.wait(timeout=60), copy.stderr.read()) == (0, "")
    assert not list(written_shop.directory.glob("AU*.$$$"))

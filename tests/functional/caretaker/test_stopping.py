"""Ctrl+C in the middle of the caretaker's work: all is as it was, and no half of anything stays."""

import pytest

from caretakersteps import caretaker_says, stopped
from locks import denied_to_all
from startsteps import SHOP_NOT_RUN

STOPPED = "lantos-shop: Stopped, as it was asked to. What was begun is taken back.\n"
LONG = 256 * 2**20  # bytes: nobody is through with them at once


def contents(directory):
    return {path.relative_to(directory): path.is_file() and path.stat().st_size for path in directory.rglob("*")}


@pytest.fixture
def place(tmp_path):
    folder = tmp_path / "backups"
    folder.mkdir()
    return folder


@pytest.fixture
def long_shop(shop):
    shop.write()
    with open(shop.directory / "TQLONG.DAT", "wb") as file:
        file.truncate(LONG)
    return shop.directory


def expect_stopped(done):
    assert (done.returncode, done.stdout) == (SHOP_NOT_RUN, ""), done.stdout + done.stderr
    assert done.stderr.startswith(STOPPED)


def test_a_stopped_backup_leaves_nothing_beside_the_last_one(shop, place):
    shop.write()
    archive = place / "shop.tar.zst"
    caretaker_says("backup", shop.directory, archive)
    before = archive.read_bytes()
    with denied_to_all(shop.directory / "TQSYSTEM.DAT"):  # it waits for this one
        expect_stopped(stopped("backup", shop.directory, archive))
    assert list(place.iterdir()) == [archive]
    assert archive.read_bytes() == before


def test_a_stopped_restore_leaves_the_shop_as_it_was(long_shop, place):
    caretaker_says("backup", long_shop, place / "shop.tar.zst")
    (long_shop / "TQLONG.DAT").write_bytes(b"newer")
    before = contents(long_shop)
    expect_stopped(stopped("restore", place / "shop.tar.zst", long_shop))
    assert contents(long_shop) == before
    expect_stopped(stopped("restore", place / "shop.tar.zst", place / "new"))
    assert not (place / "new").exists()


def test_a_stopped_verification_takes_its_copy_away(long_shop, place):
    archive = place / "shop.tar.zst"
    caretaker_says("backup", long_shop, archive)
    expect_stopped(stopped("verify", archive))
    assert list(place.iterdir()) == [archive]


def test_a_stopped_check_says_so(shop):
    shop.write()
    (shop.directory / "TQCSTDAT.DAT").write_bytes(b"no whole record")  # looked at again after a moment
    expect_stopped(stopped("check", shop.directory))


@pytest.mark.parametrize("command", ["new", "sample"])
def test_a_shop_that_was_stopped_in_the_making_leaves_nothing(tmp_path, command):
    words = ("--customers", 3000, "--parts", 3000) if command == "sample" else ()
    expect_stopped(stopped(command, tmp_path / "far" / "shop", *words))
    assert list(tmp_path.iterdir()) == []


def test_a_stopped_export_prints_nothing(shop):
    shop.write()
    with open(shop.directory / "TQCSTDAT.DAT", "wb") as file:
        file.truncate(LONG)
    expect_stopped(stopped("export", shop.directory, "customers", "--json"))

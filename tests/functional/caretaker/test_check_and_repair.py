"""A shop is checked while copies work in it, and repaired once they are gone."""

import json
import struct
import subprocess

import pytest

from driver import program_path
from startsteps import SHOP_LEFT, SHOP_NOT_RUN, SHOP_REPAIRED, SHOP_WRONG_USE
from workfiles import one_estimate, show


def caretaker(*arguments):
    return subprocess.run([program_path().with_name("lantos-shop"), *arguments], capture_output=True, text=True, timeout=60)


@pytest.fixture
def sample(tmp_path):
    directory = tmp_path / "sample"
    made = caretaker("sample", directory, "--customers", "30", "--vehicles", "40", "--parts", "60", "--estimates", "20")
    assert made.returncode == 0, made.stderr
    return directory


def set_customer_counter(directory, number):
    with open(directory / "TQSYSTEM.DAT", "r+b") as system:
        system.seek(12)
        system.write(struct.pack("<i", number))


def contents(directory):
    return {path.name: path.read_bytes() for path in directory.iterdir()}


def test_a_shop_in_which_a_copy_works_is_sound(start, shop):
    copy = show(start(one_estimate(shop).write()))
    checked = caretaker("check", shop.directory)
    assert (checked.returncode, checked.stdout) == (0, "Nothing is wrong.\n")
    refused = caretaker("repair", shop.directory)
    assert refused.returncode == SHOP_NOT_RUN and "Somebody works in this directory" in refused.stderr
    copy.close_window()


def test_a_counter_is_told_and_mended_and_the_file_kept_as_it_was(sample):
    set_customer_counter(sample, 5)
    spoiled = contents(sample)
    checked = caretaker("check", sample)
    assert checked.returncode == SHOP_LEFT
    assert "TQSYSTEM.DAT, last_customer_number: it hands out 000005 next, and 000030 is given already.\n" in checked.stdout
    told = json.loads(caretaker("check", sample, "--json").stdout)
    assert [(found["kind"], found["field"]) for found in told["findings"]] == [("counters", "last_customer_number")]
    tried = caretaker("repair", sample, "--dry-run")
    assert tried.returncode == SHOP_LEFT and "Would mend 1 fault, left 0 faults." in tried.stdout
    assert contents(sample) == spoiled
    mended = caretaker("repair", sample, "counters")
    assert mended.returncode == SHOP_REPAIRED
    assert "Mended: it hands out 000031 next from here on." in mended.stdout
    assert [path.read_bytes() for path in sample.glob("TQSYSTEM.DAT.before-*")] == [spoiled["TQSYSTEM.DAT"]]
    assert caretaker("check", sample).returncode == 0
    assert caretaker("repair", sample).returncode == 0


@pytest.mark.parametrize("arguments, code, named", [
    (("check", "/dev/shm/never"), SHOP_NOT_RUN, "There is no shop in /dev/shm/never"),
    (("repair", "/dev/shm/never", "spelling"), SHOP_WRONG_USE, 'There is no kind "spelling".'),
    (("repair", "/dev/shm/never", "dates"), SHOP_WRONG_USE, 'Nothing of the kind "dates" can be mended'),
])
def test_what_can_not_be_done_is_said(arguments, code, named):
    refused = caretaker(*arguments)
    assert (refused.returncode, refused.stdout) == (code, "")
    assert named in refused.stderr


def test_estimates_on_a_server_are_looked_at_there(start, shop, server, tmp_path):
    one_estimate(shop).write()
    moved = caretaker("move", shop.directory, f"postgresql://shop@/test?host={server.directory}", "--schema", tmp_path.name)
    assert moved.returncode == 0, moved.stderr
    copy = show(start(shop))
    checked = caretaker("check", shop.directory)
    assert (checked.returncode, checked.stdout, checked.stderr) == (0, "Nothing is wrong.\n", "")
    copy.click("txtComments")
    copy.type("txtComments", "on the server")
    copy.leave()
    copy.close_window()
    shop.path("TQCSTTAG.DAT").write_bytes(b"")
    shop.path("TQCSTDAT.DAT").write_bytes(b"")
    checked = caretaker("check", shop.directory)
    assert checked.returncode == SHOP_LEFT
    assert "Lantos.mdb, estimate 000900, CustomerNumber: there is no customer " in checked.stdout

"""What somebody has laid into the data directory: links, pipes, tags that name paths, and a limit on lengths."""

import os
import resource
import signal
import subprocess
import time

import pytest

from boardlines import TODAY
from conversionsteps import FIRST, begin, convert, expect_converted
from conversionsteps import estimate as one_to_convert
from driver import data_option, program_path
from historyfiles import History, order_text
from inventoryfiles import make_inventory
from printsteps import VIN, choose, options
from screens import book
from startsteps import SHOP_NOT_RUN
from workfiles import make_orders, one_estimate, order_tag, show, sublet_line, texts
from workorderfiles import file_name
from worksheetsteps import HISTORY, NO_CHANGE, write_history


def worksheet(start, shop):
    options(shop, NO_CHANGE, **HISTORY)
    copy = choose(start(shop))
    copy.click("cmdPrintWorksheet")
    return copy


@pytest.mark.parametrize("name", ["../s.txt", "..\\s.txt"])
def test_a_work_orders_file_is_a_name_and_not_a_path(start, shop, tmp_path, name):
    history = History(VIN)
    history.add_active(4001, opened="2003-09-29", file=name, text="")
    write_history(shop, history)
    (tmp_path / "s.txt").write_bytes(order_text(4001, labor=[["SECRET"]]).encode() + b"\0")
    copy = worksheet(start, shop)
    copy.expect_box("File not found: \nClick Retry to try again, or Cancel to skip.", f"GetCurrWoRec({name})")
    copy.press("Cancel")
    assert copy.answer["waiting"] == "preview"
    assert "SECRET" not in str(copy.answer["lines"])


def test_a_purchase_orders_file_is_a_name_and_not_a_path(start, shop, tmp_path):
    one_estimate(shop)
    shop.write()
    make_orders(shop, [(order_tag(17, "VALLEY", file="../p.txt"),
                        "[Sublets]\r\n" + sublet_line("SECRET", "1", "1.00", "2.00", "SECRET") + "\r\n")])
    copy = show(start(shop))
    copy.click("cmdEstimateSublets")
    copy.click("cmdAdd")
    copy.expect_box("Purchase Order detail file (../p.txt)\nnot found.  Skipped.")
    copy.press("OK")
    assert "SECRET" not in str(texts(copy, "POSubletList"))


def test_a_work_order_is_not_written_through_a_link(start, shop, tmp_path):
    target = tmp_path / "precious"
    target.write_text("precious")
    shop.add_customer(7, "Adams", "Beth")
    one_to_convert(shop)
    copy = begin(start, shop)
    shop.path(file_name(FIRST)).symlink_to(target)
    convert(copy)
    assert "005001" in copy.expect_box(title="Next Number")["text"], "the name is in use, whatever bears it"
    copy.press("OK")
    expect_converted(copy, FIRST + 1)
    assert target.read_text() == "precious"


def link_elsewhere(shop, name, tmp_path):
    """The shop's own file, but outside."""
    shop.write()
    path = shop.path(name)
    target = tmp_path / "elsewhere"
    target.write_bytes(path.read_bytes() if path.exists() else b"[SECRET]\r\n")
    path.unlink(missing_ok=True)
    path.symlink_to(target)
    return target, target.read_bytes()


@pytest.mark.parametrize("name", ["TQEMPLOY.DAT", "CHECKLST.TXT", "Lantos.mdb"])
def test_a_start_opens_no_file_elsewhere(start, shop, tmp_path, name):
    target, before = link_elsewhere(shop, name, tmp_path)
    copy = start(shop)
    copy.expect_box(title="Lantos can not start")
    assert "is a link that leads out of its directory" in copy.answer["text"] and name in copy.answer["text"]
    all_said(copy)
    copy.expect_end(1)
    assert target.read_bytes() == before


def test_a_start_takes_no_system_record_from_elsewhere(start, shop, tmp_path):
    target, before = link_elsewhere(shop, "TQSYSTEM.DAT", tmp_path)
    copy = start(shop)
    copy.expect_box(buttons=["Retry", "Cancel"])
    copy.press("Cancel")
    copy.expect_end(3)
    assert target.read_bytes() == before


def all_said(copy, boxes=12):
    """The texts of the boxes of a start, each left by its last button, and what stands in the log."""
    said = []
    for _ in range(boxes):
        if copy.answer.get("waiting") != "box":
            break
        said.append(copy.answer["text"])
        copy.press(copy.answer["buttons"][-1])
    return said


@pytest.mark.parametrize("name", ["CHECKLST.TXT", "TQDEPART.DAT"])
def test_a_pipe_is_not_waited_for(start, shop, name):
    shop.write()
    shop.path(name).unlink(missing_ok=True)
    os.mkfifo(shop.path(name))
    copy = start(shop)
    assert all_said(copy)[0].startswith(f"{name} is no file but a folder, a pipe or a device")
    copy.expect_end(1)


def test_a_pipe_in_place_of_the_options_is_as_no_options(start, shop):
    shop.write()
    os.mkfifo(shop.path("Lantos.ini"))
    start(shop).expect_form("frmMain")


def test_a_link_to_an_endless_device_takes_no_memory(start, shop):
    history = History(VIN)
    history.add_active(4001, opened="2003-09-29", text="")
    write_history(shop, history)
    shop.path(file_name(4001)).symlink_to("/dev/zero")
    copy = worksheet(start, shop)
    said = all_said(copy)
    assert said and not any("alloc" in text for text in said)


# A limit on the length of files.


def test_a_maker_of_shops_says_that_its_files_may_not_be_so_long(tmp_path):
    program = str(program_path()).replace("lantos-drive", "lantos-shop")
    limited = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (5000, 5000))
    made = subprocess.run([program, "new", tmp_path / "new"], capture_output=True, text=True, preexec_fn=limited)
    assert made.returncode == SHOP_NOT_RUN and made.stderr.startswith("lantos-shop: ")
    assert not (tmp_path / "new").exists()


def test_a_limit_is_an_error_like_a_full_disk(start, shop):
    shop.write()
    make_inventory(shop.directory, [])
    copy = start(shop)
    copy.expect_form("frmMain")
    limits = resource.prlimit(copy.process.pid, resource.RLIMIT_FSIZE, (64, resource.RLIM_INFINITY))
    copy.click("cmdNewEstimate")
    for _ in range(8):
        if copy.answer.get("waiting") != "box":
            break
        copy.press("Yes" if "Yes" in copy.answer["buttons"] else copy.answer["buttons"][-1])
    assert copy.process.poll() is None
    resource.prlimit(copy.process.pid, resource.RLIMIT_FSIZE, limits)


def test_the_program_itself_takes_a_limit_as_an_error(shop, tmp_path, has_windows):
    if not has_windows:
        pytest.skip("this build has no real windows")
    shop.write()
    program = str(program_path()).replace("lantos-drive", "lantos")
    home = {"HOME": str(tmp_path), "QT_QPA_PLATFORM": "offscreen"}
    command = [program, data_option(shop.directory)]
    with subprocess.Popen(command, env={**os.environ, **home}) as running:
        deadline = time.monotonic() + 20
        while not shop.names("LN*.LOG") and time.monotonic() < deadline:
            time.sleep(0.02)
        status = dict(line.split(":\t", 1) for line in open(f"/proc/{running.pid}/status") if ":\t" in line)
        running.kill()
    assert int(status["SigIgn"], 16) & 1 << signal.SIGXFSZ - 1

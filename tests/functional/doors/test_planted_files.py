"""What somebody has laid into the data directory: links, pipes, tags that name paths, and a limit on lengths."""

import os
import resource
import subprocess

import pytest

from boardlines import TODAY
from conversionsteps import FIRST, begin, convert
from conversionsteps import estimate as one_to_convert
from driver import program_path
from historyfiles import History, order_text
from inventoryfiles import make_inventory
from printsteps import VIN, choose, options
from screens import book
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
    one_to_convert(shop, customer=0)
    copy = begin(start, shop)
    shop.path(file_name(FIRST)).symlink_to(target)
    copy.click("cmdConvert")
    while copy.answer.get("waiting") == "box" and "link" not in copy.answer["text"]:
        copy.press("Yes" if "Yes" in copy.answer["buttons"] else "OK")
    assert f"{file_name(FIRST)} is a link" in copy.expect_box()["text"]
    copy.press(copy.answer["buttons"][-1])
    assert target.read_text() == "precious"


@pytest.mark.parametrize("name", ["TQSYSTEM.DAT", "TQCSTTAG.DAT", "TQEMPLOY.DAT", "CHECKLST.TXT", "Lantos.mdb"])
def test_a_start_opens_no_file_elsewhere(start, shop, tmp_path, name):
    """It says what the matter is, or does without the file; it never has what isn't the shop's."""
    shop.write()
    path = shop.path(name)
    target = tmp_path / "elsewhere"
    target.write_bytes(path.read_bytes() if path.exists() else b"[SECRET]\r\n")
    before = target.read_bytes()
    path.unlink(missing_ok=True)
    path.symlink_to(target)
    copy = start(shop)
    assert any("is a link that leads out of its directory" in line for line in all_said(copy)), all_said(copy)
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


@pytest.mark.parametrize("name", ["CHECKLST.TXT", "TQMAKMOD.DAT", "TQDEPART.DAT", "Lantos.ini"])
def test_a_pipe_is_not_waited_for(start, shop, name):
    shop.write()
    shop.path(name).unlink(missing_ok=True)
    os.mkfifo(shop.path(name))
    all_said(start(shop))


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
    assert made.returncode == 1 and made.stderr.startswith("lantos-shop: ")
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

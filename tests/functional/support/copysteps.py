"""Several copies of the program on one directory, what they ask of files that are held, and kills in the middle."""

import contextlib
import sqlite3
import threading
import time

import pytest

from boardlines import TODAY
from conftest import Starter
from databases import FileDatabase
from driver import Lantos, data_option
from inventoryfiles import make_inventory, part
from screens import tell
from workfiles import show
from workorderfiles import WORKORDER_FILES

SYSTEM_LOCKED = "System file locked by another user."


@pytest.fixture
def shop(shop):
    shop.add_employee(1, "Bob Wrench")
    smith = shop.add_customer(7, "Smith", "John", phone="555-1111")
    shop.add_customer(8, "Walker", "Wes", phone="555-2222")
    shop.add_vehicle(smith, "Ford", "Focus", "1999", VIN="V1")
    return shop


@pytest.fixture
def copies(tmp_path):
    """Several copies on the desktop without windows: what they share is files."""
    starter = Starter(tmp_path, "driver")
    yield starter
    starter.clean_up()


def workstations(copies, shop, count):
    """So many copies on the shop, each on a computer of its own."""
    return [copies(shop, computer=f"BENCH{i}", settings=copies.home / f"settings{i}") for i in range(count)]


def in_parallel(*deeds):
    """Each in a thread of its own, until all are through. The first failure is raised in the test's."""
    failures = []

    def guarded(deed):
        try:
            deed()
        except Exception as failure:
            failures.append(failure)

    threads = [threading.Thread(target=guarded, args=(deed,)) for deed in deeds]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if failures:
        raise failures[0]


def start_victim(home, shop):
    """One more copy, to be killed. It finishes what the one before has left of a record in two files, and says so."""
    victim = Lantos(home, arguments=(data_option(shop.directory),), computer="VICTIM", name="victim",
                    settings=home / "victim-settings")
    victim.first_answer()
    while victim.answer["waiting"] == "box" and victim.answer["title"] == "Records":
        assert victim.answer["text"].endswith("It was finished just now: all of it is stored."), victim.answer
        victim.press("OK")
    return victim


def settle_half_done(copy, choose):
    """What killed copies left, at the start of this one: finished or undone as is chosen. Which numbers stay unused."""
    unused = []
    while copy.answer["waiting"] == "box":
        text, buttons = copy.answer["text"], copy.answer["buttons"]
        if "stay unused" in text or "stays unused" in text:
            unused.append(int(text.split("to work order # ")[1][:6]))
        copy.press(choose() if buttons == ["Yes", "No", "Cancel"] else buttons[0])
    copy.expect_form("frmMain")
    return unused


def time_of(victim, lines):
    """How long it takes when nobody is killed before it is through."""
    begun = time.monotonic()
    for line in lines:
        assert "error" not in victim.send_text(line), victim.evidence()
    victim.expect_form("frmMain")
    took = time.monotonic() - begun
    victim.kill()
    return took


def kill_within(victim, lines, seconds):
    """The moment is what is tried."""
    victim.process.stdin.write("".join(line + "\n" for line in lines))
    victim.process.stdin.flush()
    time.sleep(seconds)
    victim.kill()


def undo_half_written(shop):
    """What a killed copy was writing into the database is undone by the next that may write there: a look that may only
    read is refused until then. A server does so by itself."""
    if not isinstance(shop.database, FileDatabase):
        return
    with contextlib.closing(sqlite3.connect(shop.directory / "Lantos.mdb")) as database:
        database.execute("SELECT count(*) FROM Estimates").fetchall()


USED = {"P-1": 1, "P-2": 3}  # by each conversion


@pytest.fixture
def work(shop):
    """Estimates 900 to 903 of today, of John Smith, with parts and labor. They may be converted any number of times."""
    shop.system["tax_rate"] = (100000, 0, 0, 0)
    for number in range(900, 904):
        shop.add_estimate(number, TODAY, customer=7, CreateDate=TODAY)
        for name, quantity in USED.items():
            shop.add_part(number, name, f"PART OF {number}", quantity, 1000, 600)
        shop.add_labor(number, 1, f"Labor of {number}", 1)
    return shop


STOCK = 10000  # of each part


def is_held(answer):
    """Whether a box asks about a file that another copy has at this moment; its first button tries again."""
    text = answer.get("text", "") if answer.get("waiting") == "box" else ""
    return "locked by another user" in text or "Could not open Vehicle file, click Retry" in text


def try_again(copy):
    while is_held(copy.answer):
        copy.press(copy.answer["buttons"][0])


def write_work(shop):
    shop.write()
    make_inventory(shop.directory, [part(name, "PART", in_stock=STOCK) for name in USED])
    for name in WORKORDER_FILES:
        shop.path(name).write_bytes(b"")
    shop.write_profile({"Status Options": {"ScheduledToComplete": "N"}})


def converting_copies(copies, shop, count):
    write_work(shop)
    return [show(copy, 900 + i) for i, copy in enumerate(workstations(copies, shop, count))]


def conversion_lines():
    return ['{"do":"click","control":"cmdConvert"}', '{"do":"answer","button":"Yes"}',
            '{"do":"answer","button":"OK"}', '{"do":"answer","button":"OK"}']


def be_patient(copy):
    """From here on its person tries again by themselves where a file is held."""
    send_text = copy.send_text

    def send_patiently(text):
        answer = send_text(text)
        while is_held(answer):
            answer = send_text(f'{{"do":"answer","button":"{answer["buttons"][0]}"}}')
        return answer

    copy.send_text = send_patiently
    return copy


def convert_patiently(copy):
    """The number of the work order. A file that is held is tried again."""
    copy.click("cmdConvert")
    copy.press("Yes")
    try_again(copy)
    text = copy.expect_box()["text"]
    assert " is now Workorder # " in text, copy.evidence()
    copy.press("OK")
    tell(copy, "Estimate status is still 'Scheduled'", "Convert to WO")
    copy.expect_form("frmMain")
    return int(text.rsplit(" ", 1)[1])

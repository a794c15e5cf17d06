#!/usr/bin/python3
"""Many workstations book, fill, change and move estimates of one shop at once, each a copy of the program on the desktop
without windows, at a person's pace. Then all of it is counted: what was said to be stored is there, no number is given
twice, and every board shows what a board that starts afresh shows. Ends with 1 where something isn't so.

    bench/scale/storm.py --workstations 50 --minutes 5 --database server
    bench/scale/storm.py --workstations 8 --minutes 5 --database file
    bench/scale/storm.py --workstations 20 --minutes 3 --database server --outages 10
    bench/scale/storm.py --workstations 50 --minutes 5 --database server --live --days 28

People work on today, or, with --days, each on any day from today on until the next estimate. Needs a build whose speed means something: --bin says where, build/release/bin by default."""

import argparse
import contextlib
import datetime
import multiprocessing
import os
import pathlib
import random
import sys
import tempfile
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests" / "functional" / "support"), str(ROOT / "tests" / "functional")]

from databases import Server
from driver import DriverError, Lantos, data_option
from linesteps import LABOR, NOTES, begin_to_add, close_list, fill, open_list
from screens import ask_new_estimate, pick_customer
from shopfiles import Shop
from stormcount import given_twice, tell_boxes, tell_times, unstored

SERVER_SETTINGS = "max_connections = 250\nautovacuum = on\nfsync = on\nfull_page_writes = on\nshared_buffers = 128MB\nmax_wal_size = 1GB\n"
ESTIMATES_AT_FIRST = 60
SETTLING = 2.0  # seconds until every board is right
OUTAGE = 1.0  # seconds that the server is away


HELD = ("locked by another user", "Could not open Vehicle file, click Retry")


class Interrupted(Exception):
    """A box that has no place in an ordinary day; what was under way isn't counted as stored."""


class PatientCopy(Lantos):
    """Whose person tries again when a file is held by another copy."""

    retries = 0

    def send_text(self, text):
        answer = super().send_text(text)
        while answer.get("waiting") == "box" and any(said in answer["text"] for said in HELD) and "Retry" in answer["buttons"]:
            self.retries += 1
            answer = super().send_text('{"do":"answer","button":"Retry"}')
        return answer


class Workstation:
    """One person at one copy of the program."""

    def __init__(self, number, shop, options, home):
        self.number = number
        self.random = random.Random(options.seed * 1000 + number)
        self.copy = PatientCopy(home, now=None, computer=f"WS{number:02}", arguments=(data_option(shop.directory),),
                                name="copy", user=f"person{number:02}", live=options.live)
        self.options = options
        self.stored = []  # (deed, estimate, word or value), as said to be
        self.times = {}  # of the line that stores, by deed, in seconds
        self.boxes = {}  # texts, and how often
        self.deeds = 0
        self.mine = []
        self.today = self.day = datetime.date.today()

    def start(self):
        self.copy.first_answer()
        self.expect_board()

    def expect_board(self):
        if self.copy.answer.get("waiting") != "form" or self.copy.answer.get("form") != "frmMain":
            raise Interrupted

    def timed(self, deed, step):
        begun = time.perf_counter()
        step()
        took = time.perf_counter() - begun
        if self.copy.answer.get("waiting") == "box":
            raise Interrupted
        self.times.setdefault(deed, []).append(took)

    # Deeds. Each begins and ends at the board.

    def turn_to_a_day(self):
        """The day that the next estimate is for."""
        self.day = self.today + datetime.timedelta(days=self.random.randrange(self.options.days))
        self.copy.click("cmdWeekView")
        self.timed("another day", lambda: self.copy.pick("MonthView1", self.day))
        self.expect_board()

    def book(self):
        customer = 1 + self.random.randrange(self.options.workstations * 4)
        ask_new_estimate(self.copy)
        self.timed("booked", lambda: pick_customer(self.copy, customer))
        self.copy.expect_form("frmVehList")
        self.timed("vehicle chosen", lambda: self.copy.double_click("DataGrid1", row=0))
        self.expect_board()
        number = int(self.copy.caption("frameDetailView").split("# ")[1][:6])
        self.stored.append(("booked", number, customer))
        self.mine.append(number)

    def add_line(self, kind):
        number = int(self.copy.caption("frameDetailView").split("# ")[1][:6])
        word = f"W{self.number:02}-{self.deeds}"
        open_list(self.copy, kind)
        begin_to_add(self.copy, kind)
        fill(self.copy, kind, word, 1 + self.deeds % 3)
        self.timed(f"{kind.noun.lower()} line", lambda: self.copy.key("F10"))
        self.copy.expect_form(kind.screen)
        self.stored.append((kind.noun, number, word))
        close_list(self.copy, kind)

    def comment(self):
        word = f"Comment W{self.number:02}-{self.deeds}"
        self.copy.type("txtComments", word)
        self.timed("comments", self.copy.leave)
        self.expect_board()
        self.stored.append(("comments", self.mine[-1], word))

    def set_status(self):
        self.copy.right_click("frameDetailView")
        self.timed("status", lambda: self.copy.choose("Arrived"))
        self.expect_board()
        self.stored.append(("status", self.mine[-1], 1))

    def move(self):
        self.day += datetime.timedelta(days=self.random.randrange(1, 5))
        self.copy.click("cmdReschedule")
        self.copy.expect_form("frmReschedule")
        self.copy.pick("DTPicker1", self.day)
        self.timed("moved", lambda: self.copy.click("cmdOK"))
        self.expect_board()
        self.stored.append(("moved", self.mine[-1], None))

    def look_at_another(self):
        """An estimate of the day that anybody has made, and one more line of labor for it."""
        self.copy.click("cmdWeekView")
        panel = f"List1({(self.day.weekday() + 1) % 7})"
        rows = [row["data"] for row in self.copy.control(panel)["rows"]]
        if not rows:
            return
        row = self.random.randrange(len(rows))
        self.timed("shown", lambda: self.copy.double_click(panel, row=row))
        self.expect_board()
        self.add_line(LABOR)

    def round(self):
        """An estimate from its booking on."""
        steps = [self.book, lambda: self.add_line(LABOR), lambda: self.add_line(LABOR), self.comment, self.set_status,
                 lambda: self.add_line(NOTES), self.look_at_another]
        if self.options.days > 1:
            yield self.turn_to_a_day
        for step in steps:
            yield step
        if self.random.random() < 0.3:
            yield self.book
            yield self.move

    def recover(self):
        """Back to the board, whatever is up: nothing that is asked is said to be stored."""
        for _ in range(60):
            answer = self.copy.answer
            if answer.get("waiting") == "ended":
                raise DriverError(f"WS{self.number:02} has ended\n{self.copy.evidence()}")
            if answer.get("waiting") == "box":
                text = answer["text"]
                if not text.startswith("Discard"):
                    self.boxes[text] = self.boxes.get(text, 0) + 1
                wanted = ("Yes",) if text.startswith("Discard") else ("OK", "No", "Cancel", "Yes")
                self.copy.press(next(each for each in wanted if each in answer["buttons"]))
            elif answer.get("form") == "frmMain":
                return
            else:
                self.copy.send_text('{"do":"key","key":"Esc"}')
        raise DriverError(f"WS{self.number:02} doesn't come back to the board\n{self.copy.evidence()}")

    def work_until(self, end):
        self.copy.wait(self.random.randrange(int(1 + 4000 * self.options.pause)))  # nobody begins with the others
        steps = iter(())
        while time.time() < end:
            step = next(steps, None)
            if step is None:
                steps = self.round()
                continue
            self.deeds += 1
            try:
                step()
            except (Interrupted, DriverError, AssertionError) as failure:
                if not isinstance(failure, Interrupted) and self.copy.answer.get("waiting") != "box":
                    raise
                self.recover()
                steps = iter(())
            pause = self.random.expovariate(1 / self.options.pause)
            self.copy.wait(int(1000 * pause))

    def board(self):
        """A day of the week on show, and what its lists show; without boards that follow, when the week is come to anew."""
        self.copy.click("cmdWeekView")
        day = datetime.date.fromisoformat(self.copy.control("MonthView1")["date"])
        if not self.options.live:
            turn_to(self.copy, day)
        return day, lists(self.copy)


def turn_to(copy, day):
    """From another week, so that it is read."""
    for each in (day + datetime.timedelta(days=7), day):
        copy.pick("MonthView1", each)


def lists(copy):
    return [[row["text"] for row in copy.control(f"List1({day})")["rows"]] for day in range(7)]


def person(number, shop, options, home, starting, working, through, done):
    """The life of one workstation, in a process of its own."""
    try:
        workstation = Workstation(number, shop, options, home)
        with starting:  # a few at once
            workstation.start()
        working.wait()
        workstation.work_until(time.time() + options.minutes * 60)
        workstation.copy.wait(1)
        through.wait()
        workstation.copy.wait(int(1000 * SETTLING))
        result = {"number": number, "stored": workstation.stored, "times": workstation.times,
                  "boxes": workstation.boxes, "deeds": workstation.deeds, "retries": workstation.copy.retries, "board": workstation.board()}
        workstation.copy.clean_up()
        done.put(result)
    except BaseException as failure:
        done.put({"number": number, "failed": f"{type(failure).__name__}: {failure}"})
        working.abort()
        through.abort()


def make_shop(directory, options, server):
    shop = Shop(directory, server)
    today = datetime.date.today()
    for number in range(1, options.workstations * 4 + 1):
        customer = shop.add_customer(number, f"Customer{number:04}", "Pat", phone="555-0100")
        shop.add_vehicle(customer, "Ford", "Focus", "1999", VIN=f"V{number:06}")
    shop.add_employee(1, "Bob Wrench")
    for i in range(ESTIMATES_AT_FIRST):
        shop.add_estimate(100 + i, today + datetime.timedelta(days=i % 7 - 3), customer=1 + i, CreateDate=today, hours=1)
    shop.system["last_estimate_number"] = 1001
    shop.write()
    for number in range(1, options.texts + 1):
        shop.path(f"W{number:07}.tqa").touch()
    # As a shop has them that the program has made.
    shop.database.execute([(f"CREATE UNIQUE INDEX {table}Key ON {table} (EstimateNumber, {number})", [])
                           for table, number in (("Labors", "LaborNumber"), ("Parts", "PartNumber"), ("Notes", "NoteNumber"))]
                          + [("CREATE INDEX EstimatesSchedDate ON Estimates (SchedDate)", [])])
    return shop


def wrong_boards(shop, options, home, results):
    """Workstations whose boards differ from one that starts afresh."""
    copy = Lantos(home, now=None, computer="FRESH", arguments=(data_option(shop.directory),), name="fresh")
    copy.first_answer()
    copy.expect_form("frmMain")
    copy.click("cmdWeekView")
    fresh = {}  # by Sunday
    wrong = []
    for result in results:
        day, shown = result["board"]
        sunday = day - datetime.timedelta(days=(day.weekday() + 1) % 7)
        if sunday not in fresh:
            turn_to(copy, day)
            fresh[sunday] = lists(copy)
        if shown != fresh[sunday]:
            wrong.append(result["number"])
    copy.clean_up()
    return wrong


def outages(server, count, minutes):
    """The server stopped and started, evenly over the time."""
    for _ in range(count):
        time.sleep(max(0.0, minutes * 60 / (count + 1) - OUTAGE))
        server.stop()
        time.sleep(OUTAGE)
        server.start()


def run(options, directory):
    os.environ["LANTOS_SERVER_SETTINGS"] = SERVER_SETTINGS
    server = Server(str(directory) + "-server") if options.database == "server" else None
    try:
        shop = make_shop(directory / "shop", options, server)
        starting = multiprocessing.Semaphore(4)
        working = multiprocessing.Barrier(options.workstations + 1)
        through = multiprocessing.Barrier(options.workstations)
        done = multiprocessing.Queue()
        people = []
        for number in range(1, options.workstations + 1):
            home = directory / f"home{number:02}"
            home.mkdir()
            people.append(multiprocessing.Process(target=person, daemon=True,
                                                  args=(number, shop, options, home, starting, working, through, done)))
            people[-1].start()
        with contextlib.suppress(threading.BrokenBarrierError):  # what ended somebody is told below
            working.wait()
            if options.outages:
                outages(server, options.outages, options.minutes)
        results = [done.get() for _ in people]
        failed = [result for result in results if "failed" in result]
        for result in failed:
            print(f"WS{result['number']:02} {result['failed'][:3000]}")
        if failed:
            return False
        fresh_home = directory / "fresh"
        fresh_home.mkdir()
        deeds = sum(result["deeds"] for result in results)
        print(f"{options.workstations} workstations, {options.minutes} minutes, estimates on a {options.database}, "
              f"{options.outages} outages: {deeds} deeds")
        tell_times(results)
        boxes = tell_boxes(results)
        missing, twice = unstored(shop, results), given_twice(results)
        wrong = wrong_boards(shop, options, fresh_home, results)
        stored = sum(len(result["stored"]) for result in results)
        print(f"said to be stored {stored}, missing {len(missing)}; numbers given twice {len(twice)}; "
              f"boards not right within {SETTLING:.0f} s {len(wrong)}; boxes {boxes}; "
              f"files that were held and tried again {sum(result['retries'] for result in results)}")
        for each in missing[:20]:
            print(f"  missing: {each}")
        return not missing and not twice and not wrong and (options.outages > 0 or boxes == 0)
    finally:
        if server:
            server.close()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--workstations", type=int, default=50)
    parser.add_argument("--minutes", type=float, default=5)
    parser.add_argument("--database", choices=("file", "server"), default="server")
    parser.add_argument("--outages", type=int, default=0, help="how often the server is stopped and started meanwhile")
    parser.add_argument("--pause", type=float, default=2.0, help="seconds between two deeds, on an average")
    parser.add_argument("--days", type=int, default=1, help="how many days they book on, from today on")
    parser.add_argument("--texts", type=int, default=0, help="how many past work orders' texts lie in the data directory")
    parser.add_argument("--live", action="store_true", help="with boards that follow")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--bin", default=str(ROOT / "build" / "release" / "bin"))
    options = parser.parse_args()
    os.environ["LANTOS_BIN_DIR"] = options.bin
    with tempfile.TemporaryDirectory(prefix="lantos-storm-") as directory:
        os.chmod(directory, 0o755)
        return 0 if run(options, pathlib.Path(directory)) else 1


if __name__ == "__main__":
    sys.exit(main())

"""Workstations that are switched on in the same moment: names of the day, and a database that is older than they are."""

import os
import sqlite3

import pytest

from conftest import Starter
from driver import Lantos, data_option
from locks import deny_to_all
from startsteps import START_FAILED

ROUNDS = 20
SNAPSHOT = ("VehYear", "VehMake", "VehModel", "VehVIN", "VehLic", "VehDate", "VehMileage", "VehEng", "VehTrans")
VEHICLES = ("Ford", "Audi", "Opel")
ESTIMATES = 30


@pytest.fixture
def started(tmp_path):
    """Copies on the desktop without windows, none of which is waited for before the next is started."""
    starter = Starter(tmp_path, "driver")

    def at_once(shop, count):
        first = len(starter.running)
        copies = [Lantos(tmp_path, computer=f"BENCH{i}", settings=tmp_path / f"settings{i}",
                         arguments=(data_option(shop.directory),), name=f"copy{i}")
                  for i in range(first, first + count)]
        starter.running += copies
        for copy in copies:
            copy.first_answer()
        return copies

    yield at_once
    starter.clean_up()


def make_older(shop, columns=SNAPSHOT):
    """The level before the columns, the costs of parts and two tables."""
    with sqlite3.connect(shop.path("Lantos.mdb")) as database:
        for column in columns:
            database.execute(f"ALTER TABLE Estimates DROP COLUMN {column}")
        for column in ("PartCost", "PartList"):
            database.execute(f"ALTER TABLE Parts DROP COLUMN {column}")
        for table in ("Waste", "Checklist"):
            database.execute(f"DROP TABLE IF EXISTS {table}")
    database.close()


def columns_of(shop, table):
    with sqlite3.connect(shop.path("Lantos.mdb")) as database:
        names = [row[1] for row in database.execute(f"PRAGMA table_info({table})")]
    database.close()
    return names


def makes_in(shop):
    with sqlite3.connect(shop.path("Lantos.mdb")) as database:
        makes = [row[0] for row in database.execute("SELECT VehMake FROM Estimates ORDER BY EstimateNumber")]
    database.close()
    return makes


@pytest.fixture
def garage(shop):
    smith = shop.add_customer(7, "Smith", "John")
    links = [shop.add_vehicle(smith, make, "Model", "1999", VIN=f"V{i}") for i, make in enumerate(VEHICLES)]
    for number in range(ESTIMATES):
        shop.add_estimate(900 + number, "2003-09-30", customer=7, vehicle=links[number % len(links)],
                          VehMake=VEHICLES[number % len(links)])
    return shop


EXPECTED_MAKES = [VEHICLES[number % len(VEHICLES)] for number in range(ESTIMATES)]


def kill_all(copies):
    for copy in copies:
        copy.kill()


@pytest.mark.parametrize("columns", [SNAPSHOT, ("VehEng", "VehTrans")], ids=["oldest", "without engines"])
def test_an_older_database_loses_nothing_to_copies_that_start_together(started, garage, columns):
    garage.write()
    make_older(garage, columns)
    older = garage.path("Lantos.mdb").read_bytes()
    for _ in range(ROUNDS // 2):
        garage.path("Lantos.mdb").write_bytes(older)
        copies = started(garage, 3)
        for copy in copies:
            copy.expect_form("frmMain")
        kill_all(copies)
        assert makes_in(garage) == EXPECTED_MAKES
        assert set(SNAPSHOT) <= set(columns_of(garage, "Estimates"))
        assert {"PartCost", "PartList"} <= set(columns_of(garage, "Parts"))
        assert columns_of(garage, "Waste") and columns_of(garage, "Checklist")


def test_cancel_at_the_vehicle_file_leaves_the_work_to_the_next_start(started, garage):
    garage.write()
    make_older(garage)
    held = deny_to_all(garage.path("TQVEHICL.DAT"))
    copy, = started(garage, 1)
    copy.expect_box("Could not open Vehicle file, click Retry to try again.", "OpenVehicleForRead", "critical",
                    ["Retry", "Cancel"])
    copy.press("Cancel")
    copy.expect_box(icon="critical", buttons=["OK"])
    copy.press("OK")
    copy.expect_end(START_FAILED)
    assert not set(SNAPSHOT) & set(columns_of(garage, "Estimates"))
    os.close(held)
    copy, = started(garage, 1)
    copy.expect_form("frmMain")
    assert makes_in(garage) == EXPECTED_MAKES


def test_another_copy_goes_on_while_the_first_is_asked_for_the_vehicle_file(started, garage):
    garage.write()
    make_older(garage)
    held = deny_to_all(garage.path("TQVEHICL.DAT"))
    first, = started(garage, 1)
    first.expect_box("Could not open Vehicle file, click Retry to try again.")
    os.close(held)
    second, = started(garage, 1)
    second.expect_form("frmMain")
    assert makes_in(garage) == EXPECTED_MAKES
    first.press("Retry")
    first.expect_form("frmMain")
    assert makes_in(garage) == EXPECTED_MAKES


def test_copies_that_start_in_one_moment_get_a_log_and_an_update_file_each(started, shop):
    shop.write()
    for _ in range(4):
        for name in shop.names("LN*") + shop.names("AU*"):
            shop.path(name).unlink()
        copies = started(shop, 5)
        for copy in copies:
            copy.expect_form("frmMain")
        logs = [copy.get("log") for copy in copies]
        kill_all(copies)
        assert sorted(logs) == [str(shop.path(f"LN93000{number}.LOG")) for number in range(5)]
        assert shop.names("AU*") == [f"AU930{number}.$$$" for number in range(5)]
        for log in logs:
            assert open(log, encoding="cp1252").readline().endswith("Korvel Appointment Scheduler Started.\n")

"""A shop with vehicles live and deleted, and the roads to them."""

import pytest

from screens import open_vehicles
from shopfiles import DELETED, LIVE, VEHICLE_LENGTH, file_date

FOCUS, CIVIC, TAURUS = 0, 2 * VEHICLE_LENGTH, 3 * VEHICLE_LENGTH


def grid_row(year, make, model, license_number, vin, mileage, link, deleted=LIVE, unit="License"):
    return {"Year": year, "Make": make, "Model": model, unit: license_number, "VIN": vin, "Mileage": str(mileage),
            "VLink": str(link), "Deleted": str(deleted), "X": "X" if deleted == DELETED else " "}


FOCUS_ROW = grid_row("1999", "Ford", "Focus", "ABC 1", "V3", 1000, FOCUS)
TAURUS_ROW = grid_row("2000", "ford", "Taurus", "XYZ", "V2", 90000, TAURUS)


@pytest.fixture
def shop(shop):
    shop.add_employee(1, "Bob Wrench")
    shop.add_customer(7, "Walker", "Wes")
    smith = shop.add_customer(8, "Smith", "Martha")
    dodge = shop.add_customer(9, "Dodger", "Dee")
    # What stands behind the first NUL is somebody's leftover.
    leftovers = {"EngineSize": b"2.0\0~~~~~~~~~", "VComment2": b"Squeaks\0".ljust(65, b"~")}
    shop.add_vehicle(smith, "Ford", "Focus", "1999", "2003-05-06", LicenseNumber="ABC 1", VIN="V3", Mileage=1000,
                     FirstMileage=10, FirstDate=file_date("1999-01-02"), State="OH", **leftovers)
    shop.add_vehicle(dodge, "Dodge", "Ram", "2001", VIN="V9")
    shop.add_vehicle(smith, "Honda", "Civic", "1995", Deleted=DELETED, LicenseNumber="OLD", VIN="V1")
    shop.add_vehicle(smith, "ford", "Taurus", "2000", LicenseNumber="XYZ", VIN="V2", Mileage=90000,
                     FirstMileage=80000)
    shop.add_make("Ford", ["Focus", "Taurus"])
    shop.add_make("Honda", ["Civic"])
    return shop


@pytest.fixture
def at_list(lantos):
    open_vehicles(lantos, 8)
    return lantos


def vehicles(shop):
    return shop.path("TQVEHICL.DAT").read_bytes()


def masters(shop):
    return shop.path("TQCSTDAT.DAT").read_bytes()

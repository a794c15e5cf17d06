"""Shops whose vehicles have a past, and the lines of their worksheets."""

from boardlines import CREATED, TODAY
from printsteps import VIN, choose, options

TECH = "Tech     Hours     Description"
TECH_RULE = "______   _______   " + "_" * 82
NOTES = "*-*-*-*-*-*-*-*-*-*-*-*-*-* Workorder Notes *-*-*-*-*-*-*-*-*-*-*-*-*-*"
NOTES_END = "*-" * 35 + "*"
BARE = {"PrintCommentsOnWorksheet": "False", "PrintVehSummaryOnWorksheet": "False", "BlankLinesPerLabor": "0",
        "BlankPartLines": "0"}
HISTORY = {**BARE, "PrintVehSummaryOnWorksheet": "True"}
NO_CHANGE = {"ScheduledToInProgress": "N", "ArrivedToInProgress": "N"}


def car_shop(shop, vin=VIN, status=0, date=TODAY, **columns):
    """Estimate 900 on a vehicle that was last seen in May."""
    customer = shop.add_customer(7, "Adams", "Beth", spouse="Carl", spouse_last="Lee", phone="937-555-0142",
                                 Address="5 Oak Street", City="Dayton", State="OH", Zip="45402")
    vehicle = shop.add_vehicle(customer, "Ford", "Taurus", "1998", date="2003-05-06", VIN="2FAKE", Mileage=70000)
    shop.add_estimate(900, date, status=status, customer=7, vehicle=vehicle, CreateDate=CREATED, VehYear="1999",
                      VehMake="Ford", VehModel="Focus", VehVIN=vin, VehLic="ABC 123", VehMileage="51234",
                      VehEng="2.0L", VehTrans="Auto", **columns)
    return shop


def open_worksheet(start, shop, letters=None, **print_options):
    """The lines of the worksheet of estimate 900, and the copy that shows it."""
    options(shop, NO_CHANGE if letters is None else letters, **print_options)
    copy = choose(start(shop))
    return lines_of(copy), copy


def lines_of(copy):
    copy.click("cmdPrintWorksheet")
    assert copy.answer.get("waiting") == "preview", copy.answer
    assert copy.answer["columns"] == ["DataLine"]
    return [line for [line] in copy.answer["lines"]]


EMPTY_BODY = ["____Labor____", "       HOURS APPLIED ON", TECH, TECH_RULE, "____Parts____", " "]
SUMMARY = ["***** Vehicle Summary *****", " "]


def past(number, date, *labor, mileage=0, name="Adams, Beth", notes=()):
    """The lines of one work order of the past."""
    lines = [f"Workorder: {number:06} {date} Mileage: {mileage} Customer: {name}", *labor]
    if notes:
        lines += [NOTES, *notes, NOTES_END]
    return [*lines, " "]


def summary_of(lines):
    assert lines[:len(EMPTY_BODY)] == EMPTY_BODY
    assert lines[len(EMPTY_BODY):len(EMPTY_BODY) + 2] == SUMMARY
    return lines[len(EMPTY_BODY) + 2:]


def numbers_of(lines):
    return [int(line[11:17]) for line in lines if line.startswith("Workorder: ")]


def write_history(shop, history):
    car_shop(shop).write()
    history.write(shop)
    return shop

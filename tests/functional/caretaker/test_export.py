"""The lists and the calendar of a shop, read by other eyes: Python's own csv, and the calendar's grammar by hand."""

import collections
import csv
import datetime
import io
import json
import re
import subprocess

import pytest

from caretakersteps import caretaker
from driver import program_path
from shopfiles import Shop
from startsteps import SHOP_NOT_RUN, SHOP_WRONG_USE
from workfiles import one_estimate, show
from workorderfiles import stock_tags

CANCELLED, RESCHEDULED = 6, 7
DELETED_VEHICLE = 86


@pytest.fixture(scope="module")
def sample(tmp_path_factory):
    """A shop full of work; it is only looked at."""
    directory = tmp_path_factory.mktemp("export") / "shop"
    made = caretaker("sample", directory, "--customers", "60", "--vehicles", "90", "--parts", "80", "--estimates", "40",
                     "--date", "2003-09-30")
    assert made.returncode == 0, made.stderr
    return Shop(directory)


def exported(shop, *words):
    """With its line ends as they are."""
    program = program_path().with_name("lantos-shop")
    done = subprocess.run([program, "export", shop.directory, *words], capture_output=True, check=False)
    assert (done.returncode, done.stderr) == (0, b"")
    return done.stdout.decode("utf-8")


def csv_of(shop, name):
    """Rows by heading, strictly."""
    text = exported(shop, name, "--csv")
    assert text.startswith("\ufeff")
    rows = list(csv.DictReader(io.StringIO(text[1:], newline=""), strict=True))
    assert rows and all(None not in row and None not in row.values() for row in rows)
    return rows


def plain(text):
    """Without the apostrophe that keeps a spreadsheet from taking a text for a formula."""
    return text[1:] if re.match("'[=+@\t\r-]", text) else text


def hundredths(number):
    return f"{number / 100:.2f}"


def test_customers_are_those_of_the_file(sample):
    rows = csv_of(sample, "customers")
    records = [record for record in sample.read_customers() if record["Number"]]
    assert len(rows) == len(records) == 60
    for row, record in zip(rows, records):
        assert (int(row["Number"]), plain(row["Last name"]), plain(row["First name"]), plain(row["City"]),
                plain(row["Home phone"])) == (record["Number"], record["Lastname"], record["Firstname"], record["City"],
                                              record["HomePhone"])
        assert not row["Since"] or datetime.date.fromisoformat(row["Since"])


def test_vehicles_are_those_that_are_not_deleted(sample):
    rows = csv_of(sample, "vehicles")
    records = [record for record in sample.read_vehicles() if record["Deleted"] != DELETED_VEHICLE]
    assert len(rows) == len(records)
    for row, record in zip(rows, records):
        assert (int(row["Customer"]), plain(row["Year"]), plain(row["Make"]), plain(row["Model"]), plain(row["VIN"]),
                plain(row["License"]), int(row["Mileage"])) == (
                    record["Number"], record["Year"], record["Make"], record["Model"], record["VIN"],
                    record["LicenseNumber"], record["Mileage"])


def test_parts_are_in_dollars(sample):
    rows = csv_of(sample, "parts")
    tags = [tag for tag in stock_tags(sample) if tag["StockNumber"]]
    assert len(rows) == len(tags) > 70
    for row, tag in zip(rows, tags):
        assert (plain(row["Number"]), plain(row["Description"]), int(row["In stock"])) == (
            tag["StockNumber"], tag["Description"], tag["InStock"])
        assert [row[name] for name in ("Cost", "Wholesale", "Resale", "Retail")] == [
            hundredths(price) for price in tag["Pricing"]]


def test_estimates_have_their_hours(sample):
    rows = csv_of(sample, "estimates")
    hours = collections.Counter()
    for line in sample.query("SELECT EstimateNumber, LaborHours FROM Labors"):
        hours[line["EstimateNumber"]] += line["LaborHours"]
    estimates = sample.query("SELECT * FROM Estimates ORDER BY EstimateNumber")
    assert len(rows) == len(estimates) == 40
    for row, estimate in zip(rows, estimates):
        assert (int(row["Number"]), row["Day"], int(row["Customer"]), row["Hours"]) == (
            estimate["EstimateNumber"], estimate["SchedDate"], estimate["CustomerNumber"],
            hundredths(hours[estimate["EstimateNumber"]]))


def test_labor_is_in_hours_and_dollars(sample):
    rows = csv_of(sample, "labor")
    lines = sample.query("SELECT * FROM Labors ORDER BY EstimateNumber, LaborNumber")
    assert len(rows) == len(lines) > 40
    for row, line in zip(rows, lines):
        assert (int(row["Estimate"]), int(row["Line"]), plain(row["Description"]), row["Hours"], row["Rate"], row["Total"],
                int(row["Technician"])) == (
                    line["EstimateNumber"], line["LaborNumber"], (line["Description"] or "").strip(" "),
                    hundredths(line["LaborHours"]), hundredths(line["LaborRate"]), hundredths(line["LaborTotal"]),
                    line["Mechanic"])


def test_what_a_spreadsheet_would_run_is_text(shop):
    one_estimate(shop, Comments='=HYPERLINK("x"), "a"\r\nsecond \u20ac')
    shop.add_customer(8, "M\u00fcller", "@John", Comment="+1")
    shop.write()
    [estimate] = csv_of(shop, "estimates")
    assert estimate["Comments"] == '\'=HYPERLINK("x"), "a"\r\nsecond \u20ac'
    mueller = csv_of(shop, "customers")[-1]
    assert (mueller["Last name"], mueller["First name"], mueller["Comment"]) == ("M\u00fcller", "'@John", "'+1")


# A calendar.


def events_of(text):
    """Each event as a dictionary, behind a look at the grammar: line ends, lengths, nesting, escapes."""
    assert text.endswith("\r\n") and "\n" not in text.replace("\r\n", "") and "\r" not in text.replace("\r\n", "")
    assert all(len(line.encode()) <= 75 for line in text.split("\r\n"))
    events, inside = [], []
    for line in text.replace("\r\n ", "").split("\r\n")[:-1]:
        name, value = re.fullmatch(r"([A-Z-]+)(?:;VALUE=DATE)?:(.*)", line).groups()
        if name == "BEGIN":
            inside.append(value)
            if value == "VEVENT":
                events.append({})
        elif name == "END":
            assert inside.pop() == value
        elif inside == ["VCALENDAR", "VEVENT"]:
            assert name not in events[-1]
            assert re.fullmatch(r"(?:[^\\;,]|\\[\\;,n])*", value), value
            events[-1][name] = re.sub(r"\\(.)", lambda found: {"n": "\n"}.get(found[1], found[1]), value)
        else:
            assert inside == ["VCALENDAR"]
    assert inside == []
    return events


def calendar(shop, *words):
    text = exported(shop, "--ics", *words)
    assert text.startswith("BEGIN:VCALENDAR\r\nVERSION:2.0\r\n")
    return events_of(text)


def day_of(event):
    first = datetime.datetime.strptime(event["DTSTART"], "%Y%m%d").date()
    assert datetime.datetime.strptime(event["DTEND"], "%Y%m%d").date() == first + datetime.timedelta(days=1)
    assert re.fullmatch(r"\d{8}T000000Z", event["DTSTAMP"])
    return first.isoformat()


def booked(shop, first, days):
    last = (datetime.date.fromisoformat(first) + datetime.timedelta(days=days - 1)).isoformat()
    return [row for row in shop.query("SELECT * FROM Estimates ORDER BY EstimateNumber")
            if first <= (row["SchedDate"] or "") <= last and row["Status"] not in (CANCELLED, RESCHEDULED)]


def test_an_event_an_estimate(sample):
    events = calendar(sample, "--from", "2003-09-22", "--days", "20", "--by", "estimate")
    wanted = booked(sample, "2003-09-22", 20)
    assert len(wanted) > 10
    assert {event["UID"]: day_of(event) for event in events} == {
        f'estimate-{row["EstimateNumber"]}@cedar-street-auto-repair.97331.lantos': row["SchedDate"] for row in wanted}
    assert all(event["DESCRIPTION"].startswith("Estimate ") for event in events)


def test_an_event_a_day(sample):
    events = calendar(sample, "--from", "2003-09-22", "--days", "20")
    counts = collections.Counter(row["SchedDate"] for row in booked(sample, "2003-09-22", 20))
    assert {day_of(event): int(re.search(r"h, (\d+) appointment", event["SUMMARY"])[1]) for event in events} == counts
    assert all(len(event["DESCRIPTION"].split("\n")) == counts[day_of(event)] for event in events)


def test_commas_and_lines_come_through_a_calendar(shop):
    one_estimate(shop, Comments="one, two; three\\four\r\nfive " + "\u00fc" * 90)
    shop.write()
    [event] = calendar(shop, "--from", "2003-09-30", "--days", "1", "--by", "estimate")
    assert event["DESCRIPTION"].endswith("\none, two; three\\four\nfive " + "\u00fc" * 90)
    assert event["SUMMARY"].startswith("Adams,Beth (0.00 h)")


def test_others_work_meanwhile(start, shop):
    copy = show(start(one_estimate(shop).write()))
    assert csv_of(shop, "estimates")[0]["Name"] == "Adams,Beth"
    copy.close_window()


@pytest.mark.parametrize("words, code, told", [
    (("estimates",), SHOP_WRONG_USE, "One of --csv, --ics and --json must be given."),
    (("--csv",), SHOP_WRONG_USE, "With --csv one of estimates, customers, vehicles, parts and labor must be given."),
    (("parts", "--ics"), SHOP_WRONG_USE, "A calendar is of the estimates"),
    (("wages", "--csv"), SHOP_WRONG_USE, "wages"),
    (("--ics", "--from", "tomorrow"), SHOP_WRONG_USE, '"tomorrow" is no date'),
    (("--ics", "--days", "0"), SHOP_WRONG_USE, "--days"),
])
def test_what_can_not_be_asked_is_said(sample, words, code, told):
    refused = caretaker("export", sample.directory, *words)
    assert (refused.returncode, refused.stdout) == (code, "")
    assert told in refused.stderr


def test_without_a_shop_there_is_no_list(tmp_path):
    assert caretaker("export", tmp_path / "none", "parts", "--csv").returncode == SHOP_NOT_RUN


@pytest.mark.parametrize("words", [("export", "customers", "--csv"), ("check", "--json")], ids=lambda words: words[0])
def test_what_could_not_be_written_whole_is_told(sample, words):
    """A full disk: half of it would be taken for all."""
    program = program_path().with_name("lantos-shop")
    with open("/dev/full", "wb") as full:
        done = subprocess.run([program, words[0], sample.directory, *words[1:]], stdout=full, stderr=subprocess.PIPE,
                              check=False, text=True)
    assert done.returncode == SHOP_NOT_RUN
    assert done.stderr.startswith("lantos-shop: ")


@pytest.mark.parametrize("name", ["estimates", "customers", "vehicles", "parts", "labor"])
def test_json_has_the_rows_of_the_list(sample, name):
    rows = list(csv.DictReader(io.StringIO(exported(sample, name, "--csv").lstrip("\ufeff"), newline="")))
    told = json.loads(exported(sample, name, "--json"))
    assert [list(row) for row in told] == [list(row) for row in rows]
    first = next(iter(rows[0]))
    assert [str(row[first]) for row in told] == [row[first] for row in rows]


def test_one_form_and_no_other(sample):
    for words in (["--json", "--csv"], ["--json"], ["parts", "--json", "--ics"]):
        refused = caretaker("export", sample.directory, *words)
        assert refused.returncode == SHOP_WRONG_USE
        assert "must be given" in refused.stderr

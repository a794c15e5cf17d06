"""The lines of the board as an operator reads them, and where an estimate stands in its lists."""

import datetime

CLOSED = "#e0e0e0"
CLOSED_WITH_WORK = "#808080"
GOOD = "#c0ffc0"
UNDER = "#ffffc0"
OVER = "#ff0000"

TODAY = "2003-09-30"  # a Tuesday, the third panel of its week
TUESDAY = 2
CREATED = "2003-09-22"


def shown_date(date):
    return datetime.date.fromisoformat(date).strftime("%m/%d/%Y")


def serial(date):
    return (datetime.date.fromisoformat(date) - datetime.date(1899, 12, 30)).days


def main_line(number, name, hours, phones="", vehicle="  "):
    return f"{number:06} {name:<32.32} {phones:<40.40} {vehicle:<32.32} {hours:>7}"


def comment_line(text):
    return f" ----> {text}"


def status_line(word, scheduled=TODAY, created=CREATED):
    return f"       Created on {shown_date(created)}, Scheduled for {shown_date(scheduled)}, Status = {word}"


def labor_line(text):
    return f"       {text}"


def row_of(copy, control, number):
    """The first row of an estimate: its main line."""
    return [row["data"] for row in copy.control(control)["rows"]].index(number)


def listed(copy, control):
    """The estimates of a list, in order."""
    numbers = [row["data"] for row in copy.control(control)["rows"]]
    return list(dict.fromkeys(numbers))


def hours_of(copy):
    """What the summary panel says."""
    labels = [copy.caption(label) for label in ("lblDate", "lblAvail", "lblSched", "lblDiff", "lblStatus")]
    return (*labels, copy.control("Frame1")["backcolor"])


def view_of(copy):
    """The view on show; its button is the bold one."""
    views = [view for view in ("Week", "Day", "Detail") if copy.control(f"frame{view}View")["visible"]]
    assert views == [view for view in ("Week", "Day", "Detail") if copy.control(f"cmd{view}View")["bold"]]
    return views


def elsewhere(shop, statement, *values):
    """What another workstation does to the database meanwhile."""
    shop.database.execute([(statement, values)])


def add_elsewhere(shop, number, date=TODAY, status=0):
    elsewhere(shop, "INSERT INTO Estimates (EstimateNumber, SchedDate, Status) VALUES (?, ?, ?)", number, date, status)

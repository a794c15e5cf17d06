"""A board with an estimate of each status, and the roads to a change."""

import pytest

from boardlines import CREATED, TODAY, row_of

MONDAY = "2003-09-29"
NUMBER = {status: 900 + status for status in range(10)}


@pytest.fixture
def board(start, shop):
    """A copy on a shop with an hour's estimate of each status today, and yesterday's 950 still Scheduled."""

    def open_board(**options):
        for status, number in NUMBER.items():
            shop.add_estimate(number, TODAY, status=status, hours=1, CreateDate=CREATED)
        shop.add_estimate(950, MONDAY, hours=1, CreateDate=CREATED)
        shop.write()
        shop.write_profile({"Status Options": options})
        return start(shop)

    return open_board


def status_of(shop, number):
    return shop.estimate(number)["Status"]


def choose_in_week(copy, number, panel=2):
    copy.click(f"List1({panel})", row=row_of(copy, f"List1({panel})", number))


def week_line(copy, number, panel=2):
    return copy.rows(f"List1({panel})")[row_of(copy, f"List1({panel})", number)]


def open_form(copy, number, panel=2):
    choose_in_week(copy, number, panel)
    copy.click("cmdChangeStatus")
    return copy.expect_form("frmEstStatus")

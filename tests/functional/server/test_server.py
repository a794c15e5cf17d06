"""Estimates on a database server: the file that names it, what is told when it can't be reached, and how often it is
asked."""

import datetime

import pytest

from boardlines import add_elsewhere
from countingproxy import CountingProxy
from shopfiles import Shop
from workfiles import one_estimate, show

START_FAILED = 1
SUNDAY = datetime.date(2003, 9, 28)


@pytest.fixture
def shop(server, tmp_path):
    return Shop(tmp_path / "shop", server)


def put_pointer(shop, **changes):
    text = shop.path("Lantos.mdb").read_text(encoding="utf-8")
    for old, new in changes.items():
        text = text.replace(old, new)
    shop.path("Lantos.mdb").write_text(text, encoding="utf-8")


def test_an_estimate_is_booked_and_changed_on_the_server(start, shop):
    one_estimate(shop)
    shop.add_labor(900, 1, "BRAKES", 1)
    shop.write()
    board = show(start(shop))
    board.type("txtComments", "waits for parts")
    board.leave()
    assert shop.estimate(900)["Comments"] == "waits for parts"
    add_elsewhere(shop, 901)
    assert [row["EstimateNumber"] for row in shop.query("SELECT * FROM Estimates ORDER BY EstimateNumber")] == [900, 901]


@pytest.mark.parametrize("changes, words", [
    ({"shop@": "stranger@"}, "refused the login"),
    ({"schema = shop": "schema = north"}, "has no schema \"north"),
    ({"/test?": "/nowhere?"}, "has no database \"nowhere\""),
    ({"/test?": "/test?password=secret&"}, "a password stands in it"),
    ({"schema = ": "scheme = "}, "its line 3 isn't understood"),
])
def test_a_start_without_the_server_says_which_and_why(start, shop, changes, words):
    shop.write()
    put_pointer(shop, **changes)
    copy = start(shop)
    copy.expect_box(icon="critical", buttons=["OK"])
    assert words in copy.answer["text"]
    assert str(shop.path("Lantos.mdb")) in copy.answer["text"]
    assert "secret" not in copy.answer["text"]
    copy.press("OK")
    copy.expect_end(START_FAILED)


def loaded_libraries(copy):
    with open(f"/proc/{copy.process.pid}/maps", encoding="utf-8") as maps:
        return maps.read()


def test_the_servers_library_is_loaded_where_there_is_a_server_and_nowhere_else(start, shop, tmp_path):
    shop.write()
    on_server = start(shop)
    on_server.expect_form("frmMain")
    assert "libpq.so" in loaded_libraries(on_server)
    on_server.close()
    on_server.expect_end()
    other = Shop(tmp_path / "other")
    other.write()
    in_file = start(other)
    in_file.expect_form("frmMain")
    assert "libpq.so" not in loaded_libraries(in_file)


def test_a_server_that_goes_away_is_told_of_and_asked_again(start, shop, server):
    one_estimate(shop)
    shop.write()
    board = show(start(shop))
    server.stop()
    try:
        board.type("txtComments", "typed meanwhile")
        board.leave()
        board.expect_box(icon="critical", buttons=["OK"])
        assert "can't be reached. Nothing was stored." in board.answer["text"]
        board.press("OK")
    finally:
        server.start()
    assert shop.estimate(900)["Comments"] is None
    board.click("txtComments")
    board.leave()
    assert shop.estimate(900)["Comments"] == "typed meanwhile"


def test_a_connection_that_went_unnoticed_is_made_anew(start, shop, server):
    one_estimate(shop)
    shop.write()
    board = show(start(shop))
    server.stop()
    server.start()
    board.type("txtComments", "after the restart")
    board.leave()
    board.expect_form("frmMain")
    assert shop.estimate(900)["Comments"] == "after the restart"


def test_a_week_of_estimates_is_loaded_in_four_round_trips(start, shop, server, tmp_path):
    for number in range(1, 281):
        shop.add_estimate(number, SUNDAY + datetime.timedelta(days=number % 7), hours=1)
    shop.write()
    proxy = CountingProxy(tmp_path / "proxy", server.directory)
    put_pointer(shop, **{server.directory: proxy.directory})
    copy = start(shop)
    copy.expect_form("frmMain")
    proxy.trips()
    copy.pick("MonthView1", SUNDAY + datetime.timedelta(days=8))
    proxy.trips()
    copy.pick("MonthView1", SUNDAY + datetime.timedelta(days=1))
    trips = proxy.trips()
    assert sum(len(copy.rows(f"List1({day})")) for day in range(7)) >= 280
    assert 1 <= trips <= 4
    proxy.close()


@pytest.mark.parametrize("surcharge, most", [(0, 3), (100000, 8)])
def test_a_labor_line_takes_three_round_trips_with_the_totals_behind_it(start, shop, server, tmp_path, surcharge, most):
    """Behind the first change of a run, which looks for the trail's table and makes it."""
    one_estimate(shop)
    shop.system["labor_surcharge_percent"] = shop.system["parts_surcharge_percent"] = surcharge
    shop.system["surcharge_description"] = "SUPPLIES"
    shop.write()
    proxy = CountingProxy(tmp_path / "proxy", server.directory)
    put_pointer(shop, **{server.directory: proxy.directory})
    board = show(start(shop))
    for _ in range(2):
        board.click("cmdLaborAdd")
        board.expect_form("frmLabor")
        board.type("Hours", "2.5")
        board.type("txtDesc", "Replace pads")
        board.select("EmpList", text="Dan Ortiz")
        proxy.trips()
        board.key("F10")
        board.expect_form("frmMain")
        trips = proxy.trips()
    assert [row["LaborHours"] for row in shop.query("SELECT * FROM Labors")] == [250, 250]
    assert len(shop.query("SELECT * FROM Trail WHERE Command = 'AddLabor'")) == 2
    assert [row["VendorName"] for row in shop.query("SELECT * FROM Waste")] == ["SURCHARGE"] * bool(surcharge)
    assert 1 <= trips <= most
    proxy.close()


def test_an_estimate_with_all_its_lines_is_shown_in_two_round_trips(start, shop, server, tmp_path):
    one_estimate(shop)
    shop.add_labor(900, 1, "BRAKES", 1)
    shop.write()
    proxy = CountingProxy(tmp_path / "proxy", server.directory)
    put_pointer(shop, **{server.directory: proxy.directory})
    board = show(start(shop))
    board.click("cmdWeekView")
    board.select("List1(2)", row=0)
    proxy.trips()
    board.click("cmdDetailView")
    trips = proxy.trips()
    assert len(board.rows("listLabor")) == 2
    assert 1 <= trips <= 2
    proxy.close()

"""The estimates of a shop move to a database server and back, by the program that makes shops."""

import os
import subprocess

import pytest

from caretakersteps import caretaker_says
from driver import program_path
from shopfiles import Shop
from startsteps import SHOP_NOT_RUN, SHOP_WRONG_USE
from workfiles import one_estimate, show


@pytest.fixture
def shop(tmp_path):
    return Shop(tmp_path / "shop")


def move(shop, *where):
    program = os.path.join(os.path.dirname(program_path()), "lantos-shop")
    return subprocess.run([program, "move", str(shop.directory), *where], capture_output=True, text=True)


def names(shop):
    return sorted(path.name for path in shop.directory.iterdir() if path.name.startswith("Lantos") and path.suffix == ".mdb")


def change_comments(board, text):
    board.click("txtComments")
    board.type("txtComments", text)
    board.leave()


def test_estimates_go_to_the_server_are_changed_there_and_come_back(start, shop, server):
    one_estimate(shop)
    shop.add_labor(900, 1, "BRAKES", 1)
    shop.write()
    moved = move(shop, f"postgresql://shop@/test?host={server.directory}", "--schema", "north")
    assert moved.returncode == 0, moved.stderr
    assert "Labors: 1 of 1 rows compared" in moved.stdout
    assert "all were counted and compared" in moved.stdout
    assert len(names(shop)) == 2
    board = show(start(shop))
    change_comments(board, "on the server")
    refused = move(shop, "--to-file")
    assert refused.returncode == SHOP_NOT_RUN and "Somebody works with Lantos" in refused.stderr
    board.close()
    board.expect_end()
    back = move(shop, "--to-file")
    assert back.returncode == 0, back.stderr
    assert "\"north_until_" in back.stdout
    assert shop.estimate(900)["Comments"] == "on the server"
    assert [row["Description"] for row in shop.query("SELECT * FROM Labors")] == ["BRAKES"]


def test_a_script_is_told_of_a_move_in_json(shop, server):
    one_estimate(shop)
    shop.write()
    told = caretaker_says("move", shop.directory, f"postgresql://shop@/test?host={server.directory}", "--schema", "told")
    assert {"table": "Estimates", "rows": 1} in told["tables"]
    assert (told["datesDropped"], told["leftBehind"]) == (0, [])
    assert told["kept"] in names(shop)
    assert caretaker_says("move", shop.directory, "--to-file")["kept"].startswith("told_until_")


@pytest.mark.parametrize("where", [(), ("--to-file", "postgresql:///test"), ("--to-file", "--schema", "north")])
def test_one_way_must_be_named(shop, where):
    shop.write()
    assert move(shop, *where).returncode == SHOP_WRONG_USE
    assert names(shop) == ["Lantos.mdb"]


def test_a_server_that_isnt_there_leaves_the_shop_as_it_is(shop):
    shop.write()
    before = shop.path("Lantos.mdb").read_bytes()
    refused = move(shop, "postgresql://127.0.0.1:1/test")
    assert refused.returncode == SHOP_NOT_RUN and "can't be reached" in refused.stderr
    assert shop.path("Lantos.mdb").read_bytes() == before
    assert names(shop) == ["Lantos.mdb"]

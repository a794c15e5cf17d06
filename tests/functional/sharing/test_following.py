"""Two boards that follow each other: what is changed at one shows at the other by itself."""

import os
import time

import pytest

from boardlines import add_elsewhere, elsewhere, listed
from screens import back_to_board, edit_customer
from workfiles import one_estimate, show

TICK = 250  # milliseconds of the program's clock
SHOWN_WITHIN = 2.0  # seconds of real time
CONNECTED_WITHIN = 60  # a busy machine starts slowly


@pytest.fixture
def boards(start, shop, tmp_path):
    """At the front desk and in the office."""
    one_estimate(shop, Comments="Old")
    shop.add_estimate(901, "2003-09-30", customer=7)
    shop.write()

    def board(computer):
        copy = start(shop, computer=computer, settings=tmp_path / computer, runtime=tmp_path / f"run-{computer}", live=True)
        copy.expect_form("frmMain")
        follows(copy)
        return copy

    return board("FRONTDESK"), board("OFFICE")


def follows(copy):
    """Until it is connected and has looked at everything once."""
    shows(copy, lambda: copy.caption("lblFollowed").startswith("Followed"), within=CONNECTED_WITHIN)
    for _ in range(4):
        copy.wait(TICK)


def share_of_time():
    """How many others want the time of a processor, on the average; 1 when each gets what it wants."""
    return max(1.0, os.getloadavg()[0] / os.cpu_count())


def shows(copy, what, within=SHOWN_WITHIN):
    """The program's clock stands, so it is moved on as real time passes."""
    begin = time.monotonic()
    while not what():
        assert time.monotonic() - begin < within * share_of_time(), copy.evidence()
        copy.wait(TICK)
        time.sleep(TICK / 1000)


def test_what_is_changed_at_one_shows_at_the_other_within_two_seconds(boards, shop):
    first, second = boards
    show(second)
    second.click("cmdWeekView")
    show(first)
    first.type("txtComments", "waits for parts")
    first.leave()
    shows(second, lambda: second.text("txtComments") == "waits for parts")
    assert second.caption("lblChanged").startswith("Changed at FRONTDESK 08:1")
    assert second.control("frameWeekView")["visible"], "the view stays"


def test_comments_being_typed_stay_and_the_others_stand_beside_them(boards, shop):
    first, second = boards
    show(second).type("txtComments", "mine")
    show(first).type("txtComments", "theirs")
    first.leave()
    shows(second, lambda: second.caption("lblChanged").endswith(': "theirs"'))
    assert second.text("txtComments") == "mine"
    second.leave()
    second.expect_box(title="Comments", buttons=["Yes", "No"])
    second.press("No")
    assert second.text("txtComments") == "theirs"
    assert shop.estimate(900)["Comments"] == "theirs"


def test_a_screen_that_is_up_is_left_alone_and_the_board_follows_behind_it(boards, shop):
    first, second = boards
    second.menu("mnuPrintOptions")
    second.expect_form("frmPrintOptions")
    show(first).type("txtComments", "changed meanwhile")
    first.leave()
    for _ in range(6):
        second.wait(TICK)
        time.sleep(TICK / 1000)
    assert "changed meanwhile" not in str(second.get("frmMain.List2"))
    second.key("Esc")
    second.expect_form("frmMain")
    shows(second, lambda: "changed meanwhile" in str(second.get("frmMain.List2")))


def test_a_customers_new_name_shows_at_the_other_too(boards, shop):
    first, second = boards
    show(second)
    assert "Adams" in second.caption("lblCustName")
    edit_customer(first, 7)
    first.type("Lastname", "Baker")
    first.key("F10")
    back_to_board(first)
    shows(second, lambda: "Baker" in second.caption("lblCustName"))
    assert second.control("List1(2)")["rows"][1]["text"].strip().startswith("Baker"), "and in the lists"


def test_what_was_changed_before_it_is_turned_on_is_shown_then(start, shop):
    one_estimate(shop, Comments="Old")
    shop.write()
    copy = start(shop, live=False)
    copy.expect_form("frmMain")
    show(copy)
    elsewhere(shop, "UPDATE Estimates SET Comments = ? WHERE EstimateNumber = 900", "theirs")
    copy.menu("mnuFollow")
    shows(copy, lambda: copy.text("txtComments") == "theirs", within=CONNECTED_WITHIN)


def test_following_is_off_where_it_isnt_asked_for_and_the_menu_turns_it_on(start, shop):
    one_estimate(shop)
    shop.write()
    copy = start(shop, live=False)
    copy.expect_form("frmMain")
    assert not copy.control("lblFollowed")["visible"]
    copy.menu("mnuFollow")
    assert copy.control("lblFollowed")["visible"]
    add_elsewhere(shop, 902)
    shows(copy, lambda: 902 in listed(copy, "List1(2)"))
    copy.menu("mnuFollow")
    assert not copy.control("lblFollowed")["visible"]

"""Typing at a place, the caret, and what a screen reader says: alike on both desktops."""

import pytest

from driver import Refused


@pytest.fixture
def customer(start, shop):
    """The editor of a customer's record."""
    shop.add_customer(7, "Adams", "Beth", Address="5797 Second St")
    shop.write()
    copy = start(shop)
    copy.menu("mnuCustomer")
    copy.type("Number", "7")
    copy.key("F10")
    copy.select("CustList", row=0)
    copy.click("cmdSelect")
    copy.expect_form("frmCustEdit")
    return copy


def state(copy, control):
    read = copy.control(control)
    return read["text"], read["caret"]


def test_what_is_typed_in_the_middle_stays_in_the_middle(customer):
    customer.insert("Address", "North ", at=5)
    assert state(customer, "Address") == ("5797 North Second St", 11)
    customer.key("Backspace")
    customer.key("Backspace")
    assert state(customer, "Address") == ("5797 NortSecond St", 9)
    customer.key("Ctrl+Z")
    assert state(customer, "Address") == ("5797 North Second St", 11)
    customer.key("Ctrl+Z")
    assert state(customer, "Address") == ("5797 Second St", 5)
    customer.key("Home")
    customer.key("X")
    assert state(customer, "Address") == ("x5797 Second St", 1)


def test_what_is_put_in_at_two_places_is_taken_back_one_by_one(customer):
    customer.insert("Address", "1", at=0)
    customer.insert("Address", "2", at=5)
    assert state(customer, "Address")[0] == "157972 Second St"
    customer.key("Ctrl+Z")
    assert state(customer, "Address")[0] == "15797 Second St"
    customer.key("Ctrl+Z")
    assert state(customer, "Address")[0] == "5797 Second St"


def test_a_full_field_takes_no_more_at_any_place(customer):
    customer.type("State", "XYZ")
    full = customer.text("State")
    customer.insert("State", "Q", at=1)
    assert state(customer, "State") == (full, 1)


def test_a_place_that_the_text_hasnt_is_refused(customer):
    for at in (-1, 15):
        with pytest.raises(Refused, match="has no place behind"):
            customer.insert("Address", "x", at=at)
    with pytest.raises(Refused, match="is locked"):
        customer.insert("CustomerNumber", "x", at=0)
    with pytest.raises(Refused, match="takes no text"):
        customer.insert("cmdSave", "x", at=0)
    assert customer.text("Address") == "5797 Second St"


def test_in_a_drop_down_that_takes_text_too(customer):
    customer.click("cmdVehicles")
    customer.expect_form("frmVehList")
    customer.click("cmdNew")
    customer.expect_form("frmVehEdit")
    customer.type("Make", "FRD")
    customer.insert("Make", "O", at=1)
    assert state(customer, "Make") == ("FORD", 2)


def test_every_control_has_a_name_for_who_cannot_see_it(customer):
    named = customer.get("form")["controls"]
    assert named["Address"]["name"] == "Address"
    assert named["cmdSave"]["name"] == "Save"
    board = customer.get("frmMain")["controls"]
    assert board["MonthView1"]["name"] == "Calendar"
    assert board["List1(2)"]["name"] == board["frameWeek(2)"]["caption"]
    assert board["txtComments"]["name"] == "Comments"

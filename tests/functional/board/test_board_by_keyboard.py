"""The lists of the board and the buttons of the detail view without a mouse."""

import pytest

from boardlines import TODAY, view_of
from conversionsteps import expect_converted, question
from workorderfiles import add_paid_employee


@pytest.fixture
def copy(start, shop):
    shop.add_customer(7, "Adams", "Beth")
    add_paid_employee(shop, 4, "Dan Ortiz", wage=2450, wage_period=1, commission=55000, commission_period=1)
    for number in (900, 901, 902):
        shop.add_estimate(number, TODAY, customer=7, hours=1, Comments="Waits" if number == 901 else None)
    shop.add_labor(900, 2, "Brake pads\tfront", 3, mechanic=4)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3050)
    shop.write()
    shop.write_profile({"Status Options": {"ScheduledToComplete": "Y"}})
    return start(shop)


def selected(copy, name):
    row = copy.control(name)["selected"]
    return copy.rows(name)[row] if row >= 0 else ""


def press_until(copy, key, reached):
    for _ in range(60):
        if reached():
            return
        copy.key(key)
    assert reached(), f"{key} leads nowhere"


def detail_of(copy, number):
    copy.key("Alt+D")
    press_until(copy, "Tab", lambda: copy.answer["focus"] == "List2")
    press_until(copy, "Down", lambda: copy.caption("frameDetailView")[7:13] == f"{number:06}")
    copy.key("Enter")
    assert (view_of(copy), copy.answer["focus"]) == (["Detail"], "listLabor")


def test_the_day_list_is_walked_from_estimate_to_estimate(copy):
    copy.click("cmdDayView")
    copy.click("List2", row=1)
    walked = [selected(copy, "List2")[:6]]
    for key in ("Down", "Down", "Down", "Up", "Up", "Up"):
        copy.key(key)
        walked.append(selected(copy, "List2")[:6])
    assert walked == ["000900", "000901", "000902", "000902", "000901", "000900", "000900"]
    assert copy.caption("frameDetailView").startswith("Est. # 000900")


def test_labor_is_added_changed_and_removed_by_keys(copy, shop):
    detail_of(copy, 900)
    copy.key("Insert")
    assert copy.expect_form("frmLabor")["form"] == "frmLabor"
    copy.type("txtDesc", "wash")
    copy.key("F10")
    copy.expect_form("frmMain")
    assert copy.answer["focus"] == "listLabor"
    copy.key("Enter")
    copy.expect_form("frmLabor")
    assert copy.text("txtDesc").startswith("WASH")
    copy.key("Esc")
    copy.expect_form("frmMain")
    copy.key("Delete")
    copy.press("Yes")
    assert [row["Description"].split("\t")[0] for row in shop.query(
        "SELECT Description FROM Labors WHERE EstimateNumber = 900 ORDER BY LaborNumber")] == ["Labor", "Brake pads"]
    assert copy.answer["focus"] == "listLabor"


def test_parts_are_changed_and_removed_by_keys(copy, shop):
    detail_of(copy, 900)
    copy.double_click("listParts", row=0)
    copy.expect_form("frmWOPart")
    assert copy.text("PartNumber") == "PAD-9"
    copy.key("Esc")
    copy.expect_form("frmMain")
    copy.key("Delete")
    copy.press("Yes")
    assert shop.query("SELECT * FROM Parts WHERE EstimateNumber = 900") == []


def test_the_buttons_of_the_detail_view_have_keys_of_their_own(copy):
    detail_of(copy, 900)
    copy.key("Alt+1")
    copy.expect_form("frmLabor")
    copy.key("Esc")
    copy.expect_form("frmMain")
    copy.key("Alt+7")
    copy.expect_form("frmWOPart")
    copy.key("Esc")
    copy.expect_form("frmMain")
    copy.key("Alt+U")
    copy.expect_form("frmCustSearch")


def test_after_a_conversion_the_day_is_the_next_key_and_after_none_the_focus_stays(copy):
    detail_of(copy, 902)
    copy.key("Alt+T")
    copy.expect_box(question(902), "Convert to WO", "question", ["Yes", "No"])
    copy.press("No")
    assert copy.expect_form("frmMain")["focus"] == "cmdConvert"
    copy.key("Alt+T")
    copy.press("Yes")
    expect_converted(copy, copy_number(copy), 902)
    assert copy.expect_form("frmMain")["focus"] == "cmdDayView"
    copy.key("Enter")
    assert view_of(copy) == ["Day"]


def copy_number(copy):
    """The work order's number, as the box tells it."""
    return int(copy.answer["text"].split("#")[-1])

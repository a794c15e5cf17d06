"""Two copies with the checklist of one estimate open."""

from copysteps import workstations
from linesteps import pair, two_lines_of_each
from workfiles import make_checklist, show

ENGINE, BRAKES = 0, 1  # rows of the categories


def ticked(shop):
    return [row["ChecklistData"] for row in shop.query("SELECT * FROM Checklist WHERE EstimateNumber = 900")]


def open_checklists(pair):
    for copy in pair:
        copy.click("cmdEstimateChecklist")
        copy.expect_form("frmWOChklst")
    return pair


def tick(copy, category, item, service=""):
    copy.select("List1", row=category)
    copy.check("List1", row=category)
    copy.check("List2", row=item)
    if service:
        copy.type("Service", service)


def save(copy):
    copy.key("F10")
    copy.expect_form("frmMain")


def test_ticks_of_both_copies_are_kept(pair, shop):
    first, second = open_checklists(pair)
    tick(first, ENGINE, 0, "leaks")
    tick(second, BRAKES, 0)
    save(first)
    save(second)
    assert ticked(shop) == ["[Engine], , ", "Oil,leaks, ", "[Brakes], , ", "Pads, , "]
    # Who stores theirs next takes nothing of it away, whether it was seen or not.
    first.click("cmdEstimateChecklist")
    first.check("List2", row=1)
    save(first)
    assert ticked(shop) == ["[Engine], , ", "Oil,leaks, ", "Belts, , ", "[Brakes], , ", "Pads, , "]


def test_an_entry_that_both_copies_change_is_asked_about_with_both_values(pair, shop):
    first, second = open_checklists(pair)
    tick(first, ENGINE, 0, "leaks")
    tick(second, ENGINE, 0, "dirty")
    save(first)
    second.key("F10")
    second.expect_box('Somebody else has changed this meanwhile:\n\nOil: "ticked, leaks" is stored, "ticked, dirty" is '
                      "yours\n\nDo you want to store yours?\nNo keeps what is stored, CANCEL goes back.",
                      "Estimate Checklist", "question", ["Yes", "No", "Cancel"])
    second.press("Cancel")
    second.expect_form("frmWOChklst")
    assert second.text("Service") == "dirty" and ticked(shop) == ["[Engine], , ", "Oil,leaks, "]
    second.key("F10")
    second.press("Yes")
    second.expect_form("frmMain")
    assert ticked(shop) == ["[Engine], , ", "Oil,dirty, "]


def test_an_entry_that_is_ticked_in_a_category_that_the_other_unticks_keeps_both(pair, shop):
    first, second = pair
    first.click("cmdEstimateChecklist")
    tick(first, ENGINE, 0)
    save(first)
    open_checklists(pair)
    first.check("List1", False, row=ENGINE)
    second.check("List2", row=1)
    save(first)
    assert ticked(shop) == []
    save(second)
    assert ticked(shop) == ["[Engine], , ", "Belts, , "]


def test_an_entry_that_only_the_others_list_has_stays(start, shop):
    two_lines_of_each(shop)
    [first] = workstations(start, shop, 1)
    show(first).click("cmdEstimateChecklist")
    tick(first, BRAKES, 0)
    make_checklist(shop, ["[Engine]", "Oil", "Horn", "[Brakes]", "Pads"])
    second = show(start(shop, computer="BENCH1", settings=start.home / "settings1"))
    second.click("cmdEstimateChecklist")
    tick(second, ENGINE, 1, "weak")
    save(second)
    save(first)
    assert ticked(shop) == ["[Engine], , ", "Horn,weak, ", "[Brakes], , ", "Pads, , "]
    second.click("cmdEstimateChecklist")
    second.expect_form("frmWOChklst")
    assert second.control("List2")["rows"][1]["checked"]

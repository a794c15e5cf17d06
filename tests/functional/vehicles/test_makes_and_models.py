"""Makes and models: the lists on the vehicle screen, the screen that maintains them, and the file's chains."""

import pytest

from locks import denied_to_all
from screens import open_vehicles, tell
from shopfiles import MAKE, MAKE_LENGTH, NO_LINK, put

FORD, FOCUS, TAURUS, HONDA, CIVIC = range(0, 5 * MAKE_LENGTH, MAKE_LENGTH)
END = 5 * MAKE_LENGTH
BLANK = ("", NO_LINK, NO_LINK)


@pytest.fixture
def shop(shop):
    shop.add_employee(1, "Bob Wrench")
    smith = shop.add_customer(8, "Smith", "Martha")
    shop.add_vehicle(smith, "Ford", "Focus", "1999", VIN="V1")
    shop.add_make("Ford", ["Focus", "Taurus"])
    shop.add_make("Honda", ["Civic"])
    return shop


def at_vehicle(copy):
    open_vehicles(copy, 8)
    copy.click("cmdEdit")
    return copy.expect_form("frmVehEdit")


@pytest.fixture
def at_makes(lantos):
    at_vehicle(lantos)
    lantos.type("Make", "Ford")
    lantos.key("Insert")
    lantos.expect_form("frmMakeModel")
    return lantos


def records(shop):
    return [tuple(record[name] for name in ("Name", "Prev", "Next")) for record in shop.read_makes()]


def whole_file(*rows):
    return b"".join(put(bytearray(MAKE_LENGTH), MAKE, Name=name, Prev=before, Next=after)
                    for name, before, after in rows)


def makes_file(shop):
    return shop.path("TQMAKMOD.DAT").read_bytes()


def fill(copy, make, model=""):
    copy.type("txtMake", make)
    copy.type("txtModel", model)


def test_the_models_are_those_of_the_make(lantos):
    at_vehicle(lantos)
    assert lantos.rows("Make") == ["Ford", "Honda"]
    assert lantos.rows("Model") == ["Focus", "Taurus"]
    lantos.select("Make", text="Honda")
    assert lantos.rows("Model") == ["Civic"]
    lantos.type("Make", "honda")
    assert lantos.rows("Model") == [], "names are compared with regard to case"
    lantos.type("Make", "Ford")
    lantos.select("Model", row=1)
    lantos.key("F10")
    lantos.click("cmdEdit")
    assert (lantos.text("Make"), lantos.text("Model")) == ("Ford", "Taurus")


def test_blank_records_and_models_are_no_makes(start, shop):
    shop.makes += whole_file(BLANK, ("Orphan", FOCUS, NO_LINK), ("", NO_LINK, FOCUS), ("Empty", NO_LINK, NO_LINK))
    shop.write()
    copy = start(shop)
    at_vehicle(copy)
    assert copy.rows("Make") == ["Ford", "Honda", "Empty"]
    copy.type("Make", "Empty")
    assert copy.rows("Model") == []


def test_a_chain_that_runs_in_a_circle_ends(start, shop):
    at = TAURUS
    shop.makes[at:at + MAKE_LENGTH] = put(shop.makes[at:at + MAKE_LENGTH], MAKE, Next=FOCUS)
    shop.write()
    copy = start(shop)
    at_vehicle(copy)
    copy.type("Make", "Ford")
    assert copy.rows("Model") == ["Focus", "Taurus"]


def test_insert_on_make_or_model_opens_their_screen_and_brings_new_ones_back(lantos):
    at_vehicle(lantos)
    lantos.type("VIN", "X")
    lantos.key("Insert")
    lantos.expect_form("frmVehEdit")
    lantos.type("Model", "Focus")
    lantos.key("Insert")
    lantos.expect_form("frmMakeModel")
    fill(lantos, "Ford", "Escort")
    lantos.click("cmdAddModel")
    lantos.type("txtMake", "BMW")
    lantos.click("cmdAddMake")
    lantos.key("Esc")
    lantos.expect_form("frmVehEdit")
    assert lantos.rows("Make") == ["Ford", "Honda", "BMW"]
    assert set(lantos.rows("Model")) == {"Focus", "Taurus", "Escort"}


def test_a_make_is_added_at_the_end(at_makes, shop):
    before = makes_file(shop)
    assert at_makes.rows("listMakes") == ["Ford", "Honda"]
    at_makes.type("txtMake", "  Oldsmobile ")
    at_makes.click("cmdAddMake")
    at_makes.expect_form("frmMakeModel")
    assert at_makes.rows("listMakes") == ["Ford", "Honda", "Oldsmobile"]
    assert makes_file(shop) == before + whole_file(("Oldsmobile", NO_LINK, NO_LINK)), "a make without models"
    assert any(line[20:].startswith("AddMake: Opened TQMAKMOD.DAT (update,fp=") and line.endswith(")")
               for line in at_makes.log_lines())


def test_a_model_becomes_the_first_of_its_make(at_makes, shop):
    fill(at_makes, "Ford", "Escort")
    at_makes.click("cmdAddModel")
    assert makes_file(shop) == whole_file(
        ("Ford", NO_LINK, END), ("Focus", FORD, TAURUS), ("Taurus", FOCUS, NO_LINK), ("Honda", NO_LINK, CIVIC),
        ("Civic", HONDA, NO_LINK), ("Escort", FORD, FOCUS)), "the old first one still names the make"
    at_makes.type("txtMake", "Honda")
    assert at_makes.rows("listModels") == ["Civic"]
    at_makes.type("txtModel", "Accord")
    at_makes.click("cmdAddModel")
    assert records(shop)[3:] == [("Honda", NO_LINK, END + MAKE_LENGTH), ("Civic", HONDA, NO_LINK),
                                 ("Escort", FORD, FOCUS), ("Accord", HONDA, CIVIC)]
    assert sum("AddModel: Opened TQMAKMOD.DAT (update,fp=" in line for line in at_makes.log_lines()) == 2


def test_what_can_not_be_added_or_deleted_is_refused(at_makes, shop):
    before = makes_file(shop)
    refusals = [
        ("cmdAddMake", "", "", "Can not add a blank Make"),
        ("cmdAddMake", "   ", "", "Can not add a blank Make"),
        ("cmdAddMake", "Ford", "", "Ford is already a known Make - can not add again."),
        ("cmdAddModel", "", "Focus", "Can not add a Model to a blank Make."),
        ("cmdAddModel", "", "", "Can not add a Model to a blank Make."),
        ("cmdAddModel", "Ford", " ", "Can not add a blank Model."),
        ("cmdAddModel", "Fiat", "", "Can not add a blank Model."),
        ("cmdAddModel", "Fiat", "500", "Make is invalid; can not add Model."),
        ("cmdAddModel", "ford", "Escort", "Make is invalid; can not add Model."),
        ("cmdAddModel", "Ford", "Taurus", "Make and Model already exists; Can not add."),
        ("cmdDelMake", "", "", "No Make specified - can not delete."),
        ("cmdDelMake", "Fiat", "", "Invalid Make specified - can not delete."),
        ("cmdDelMake", "Ford", "", "Must delete all associated Models before deleting Make."),
        ("cmdDelModel", "", "Focus", "No Make specified - can not delete."),
        ("cmdDelModel", "Fiat", "500", "Invalid Make specified - can not delete."),
        ("cmdDelModel", "Ford", "", "No Model specified - can not delete."),
        ("cmdDelModel", "Ford", "Civic", "Invalid Model specified - can not delete."),
    ]
    for button, make, model, text in refusals:
        fill(at_makes, make, model)
        at_makes.click(button)
        tell(at_makes, text)
    assert makes_file(shop) == before


DELETE_MODEL = "Are you sure you wish to delete\nMake: Ford\nModel: {}\nThis action can not be undone."


def expect_delete_question(copy, text, title):
    copy.expect_box(text, title, buttons=["Yes", "No"])


def test_a_model_is_deleted_after_the_question_and_its_neighbours_are_joined(at_makes, shop):
    before = makes_file(shop)
    fill(at_makes, "Ford", "Focus")
    at_makes.click("cmdDelModel")
    expect_delete_question(at_makes, DELETE_MODEL.format("Focus"), "Delete Model")
    at_makes.press("No")
    assert makes_file(shop) == before
    at_makes.click("cmdDelModel")
    at_makes.press("Yes")
    assert makes_file(shop) == whole_file(("Ford", NO_LINK, TAURUS), BLANK, ("Taurus", FORD, NO_LINK),
                                          ("Honda", NO_LINK, CIVIC), ("Civic", HONDA, NO_LINK))
    at_makes.type("txtMake", "Ford")
    assert at_makes.rows("listModels") == ["Taurus"]
    fill(at_makes, "Ford", "Taurus")
    at_makes.click("cmdDelModel")
    at_makes.press("Yes")
    assert records(shop)[:3] == [("Ford", NO_LINK, NO_LINK), BLANK, BLANK]
    assert sum("DeleteModel: Opened TQMAKMOD.DAT (update,fp=" in line for line in at_makes.log_lines()) == 2


def test_a_model_behind_a_new_first_one_is_deleted_by_its_place_in_the_chain(at_makes, shop):
    """The old first model names the make as the one ahead of it, which deletion doesn't go by."""
    fill(at_makes, "Ford", "Escort")
    at_makes.click("cmdAddModel")
    fill(at_makes, "Ford", "Focus")
    at_makes.click("cmdDelModel")
    at_makes.press("Yes")
    assert records(shop) == [("Ford", NO_LINK, END), BLANK, ("Taurus", END, NO_LINK), ("Honda", NO_LINK, CIVIC),
                             ("Civic", HONDA, NO_LINK), ("Escort", FORD, TAURUS)]


def test_a_make_is_deleted_after_the_question_and_its_slot_is_never_used_again(at_makes, shop):
    at_makes.type("txtMake", "BMW")
    at_makes.click("cmdAddMake")
    held = records(shop)
    at_makes.click("cmdDelMake")
    expect_delete_question(at_makes, "Are you sure you wish to delete\nMake: BMW\nThis action can not be undone.",
                           "Delete Make")
    at_makes.press("No")
    assert records(shop) == held
    at_makes.click("cmdDelMake")
    at_makes.press("Yes")
    assert records(shop) == held[:5] + [BLANK]
    assert at_makes.rows("listMakes") == ["Ford", "Honda"]
    at_makes.type("txtMake", "BMW")
    at_makes.click("cmdAddMake")
    assert records(shop) == held[:5] + [BLANK, ("BMW", NO_LINK, NO_LINK)]
    assert sum("DeleteMake: Opened TQMAKMOD.DAT (update,fp=" in line for line in at_makes.log_lines()) == 1


def test_a_make_that_still_has_models_can_not_be_deleted(at_makes, shop):
    fill(at_makes, "Honda", "Civic")
    at_makes.click("cmdDelMake")
    tell(at_makes, "Must delete all associated Models before deleting Make.")
    at_makes.click("cmdDelModel")
    at_makes.press("Yes")
    at_makes.type("txtMake", "Honda")
    at_makes.click("cmdDelMake")
    at_makes.press("Yes")
    assert records(shop) == [("Ford", NO_LINK, FOCUS), ("Focus", FORD, TAURUS), ("Taurus", FOCUS, NO_LINK), BLANK,
                             BLANK]


def test_a_held_file_is_an_error_that_ends_the_event_alone(at_makes, shop):
    before = makes_file(shop)
    at_makes.type("txtMake", "BMW")
    with denied_to_all(shop.path("TQMAKMOD.DAT")):
        at_makes.click("cmdAddMake")
        at_makes.expect_box(buttons=["OK"])
        assert "Permission denied" in at_makes.answer["text"]
        at_makes.press("OK")
    at_makes.expect_form("frmMakeModel")
    assert makes_file(shop) == before
    at_makes.click("cmdAddMake")
    assert makes_file(shop) == before + whole_file(("BMW", NO_LINK, NO_LINK))

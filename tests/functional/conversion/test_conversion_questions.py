"""What a conversion asks and refuses: the estimate's status before and afterwards, the vehicle."""

import pytest

from boardlines import row_of
from conversionsteps import (AS_ON_FILE, CANCELLED, FIRST, PARTS, TITLE, answer_status, begin, convert, estimate,
                             expect_converted, is_untouched, question, shop, show, snapshot, to_vehicle,
                             vehicle_in_text, vehicle_shop)
from locks import denied_to_all
from screens import expect_changed_within, shared_files, tell, vehicle_span
from shopfiles import VEHICLE_LENGTH
from workorderfiles import ACTIVE_FILE, active_tags, read_workorder

# Refusals.


@pytest.mark.parametrize("status, key, word", [(0, "ScheduledToComplete", "Scheduled"),
                                               (1, "ArrivedToComplete", "Arrived")])
def test_an_option_of_error_refuses_the_conversion(start, shop, status, key, word):
    estimate(shop, status=status)
    copy = begin(start, shop, options={key: "E"})
    before = shared_files(shop)
    copy.click("cmdConvert")
    copy.expect_box(f"Can not Convert to WO if estimate status is '{word}'", TITLE, "exclamation", ["OK"])
    copy.press("OK")
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_a_status_from_completed_on_can_not_be_converted(start, shop):
    words = {3: "Completed", 4: "Departed", 5: "Continued", 6: "Cancelled", 7: "Rescheduled", 8: "No-show",
             9: "Estimate Only"}
    for status in words:
        estimate(shop, 900 + status, status=status)
    copy = begin(start, shop, number=903)
    before = shared_files(shop)
    for status, word in words.items():
        show(copy, 900 + status)
        copy.click("cmdConvert")
        copy.expect_box(f"Estimate status of '{word}' can not be converted to a workorder", TITLE, "exclamation",
                        ["OK"])
        copy.press("OK")
        copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_a_past_scheduled_estimate_is_a_no_show_and_refused(start, shop):
    estimate(shop, date="2003-09-29")
    copy = begin(start, shop, panel=1, options={"ScheduledToComplete": "Y"})
    copy.click("cmdConvert")
    tell(copy, "Estimate status of 'No-show' can not be converted to a workorder", TITLE)
    assert is_untouched(shop) and shop.estimate(900)["Status"] == 0


def test_no_at_the_confirmation_changes_nothing(start, shop):
    estimate(shop, Comments="keep")
    shop.add_part(900, "PAD-9", "BRAKE PADS", 1, 3500)
    copy = begin(start, shop, PARTS)
    before = shared_files(shop)
    copy.click("cmdConvert")
    copy.expect_box(question(), TITLE, "question", ["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_the_menu_entry_runs_the_same(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    copy.menu("mnuConvertToWO")
    copy.expect_box(question(), TITLE)
    copy.press("Yes")
    expect_converted(copy, FIRST)


def test_without_an_estimate_on_show_nothing_is_converted(start, shop):
    copy = start(shop.write())
    before = shared_files(shop)
    copy.click("cmdDetailView")
    copy.click("cmdConvert")
    copy.expect_box(title=TITLE)
    copy.press("OK")
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_an_estimate_whose_customer_is_gone_is_refused(start, shop):
    estimate(shop, customer=77)
    copy = begin(start, shop)
    before = shared_files(shop)
    copy.click("cmdConvert")
    tell(copy, "The customer of this estimate isn't on file. Choose a customer first.", TITLE)
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_past_midnight_the_program_ends_instead(start, shop):
    estimate(shop)
    copy = begin(start, shop)
    copy.set_now("2003-10-01T00:00:05")
    copy.click("cmdConvert")
    copy.expect_box(title="Restart required.", icon="information", buttons=["OK"])
    copy.press("OK")
    copy.expect_end()
    assert is_untouched(shop) and not shop.path(ACTIVE_FILE).exists()


def test_the_section_password_stands_before_everything(start, shop):
    """A wrong one and none at all say nothing; the status isn't looked at yet."""
    shop.set_password("Workorders", "Secret")
    estimate(shop, status=9)
    copy = begin(start, shop)
    before = shared_files(shop)
    for text, button in (("secret", "cmdOK"), ("Secret", "cmdCancel")):
        copy.click("cmdConvert")
        copy.expect_form("frmEnterPwd")
        assert copy.answer["caption"] == "Enter Workorders Password"
        copy.type("Pwd", text)
        copy.click(button)
        copy.expect_form("frmMain")
    copy.click("cmdConvert")
    copy.type("Pwd", "Secret")
    copy.click("cmdOK")
    tell(copy, "Estimate status of 'Estimate Only' can not be converted to a workorder", TITLE)
    assert shared_files(shop) == before


# The status afterwards.


WORDS = ["Scheduled", "Arrived", "In Progress"]
KEYS = ["ScheduledToComplete", "ArrivedToComplete", "InProgressToComplete"]


def status_board(start, shop, letter):
    for status in range(3):
        estimate(shop, 900 + status, status=status)
    return begin(start, shop, options={key: letter for key in KEYS})


def test_a_scheduled_estimate_with_option_y_becomes_completed_without_a_question(start, shop):
    copy = status_board(start, shop, "Y")
    for status in range(3):
        show(copy, 900 + status)
        convert(copy, 900 + status)
        expect_converted(copy, FIRST + status, 900 + status)
        copy.expect_form("frmMain")
        assert shop.estimate(900 + status)["Status"] == 3
        assert copy.caption("frameDetailView").endswith("  Completed")
        copy.click("cmdWeekView")
        row = row_of(copy, "List1(2)", 900 + status)
        assert copy.rows("List1(2)")[row] == f"{900 + status:06} Completed"


def test_option_a_asks_and_yes_completes(start, shop):
    copy = status_board(start, shop, "A")
    for status, answer, after in ((0, "Yes", 3), (1, "No", 1), (2, "Yes", 3)):
        show(copy, 900 + status)
        convert(copy, 900 + status)
        expect_converted(copy, FIRST + status, 900 + status)
        answer_status(copy, answer, WORDS[status])
        assert shop.estimate(900 + status)["Status"] == after


def test_option_n_leaves_the_status_and_says_so(start, shop):
    copy = status_board(start, shop, "N")
    for status in range(3):
        show(copy, 900 + status)
        convert(copy, 900 + status)
        expect_converted(copy, FIRST + status, 900 + status)
        copy.expect_box(f"Estimate status is still '{WORDS[status]}'", TITLE, "information", ["OK"])
        copy.press("OK")
        copy.expect_form("frmMain")
        assert shop.estimate(900 + status)["Status"] == status


def test_in_progress_with_option_e_does_convert(start, shop):
    estimate(shop, status=2)
    copy = begin(start, shop, options={"InProgressToComplete": "E"})
    convert(copy)
    expect_converted(copy, FIRST)
    tell(copy, "Estimate status is still 'In Progress'", TITLE)
    assert shop.estimate(900)["Status"] == 2 and len(active_tags(shop)) == 1


# The vehicle.


def test_a_saved_vehicle_as_it_was_is_not_written(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    to_vehicle(copy)
    with denied_to_all(shop.path("TQVEHICL.DAT")):
        copy.key("F10")
    expect_converted(copy, FIRST)
    assert vehicle_in_text(shop)["VIN"] == "VIN-1"


def test_a_changed_vehicle_is_written_and_kept_with_the_estimate(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    before = shop.path("TQVEHICL.DAT").read_bytes()
    to_vehicle(copy)
    for name, text in (("Mileage", "12345"), ("EngineSize", "2.0L"), ("txtDate", "09/30/2003")):
        copy.type(name, text)
    copy.key("F10")
    expect_converted(copy, FIRST)
    expect_changed_within(before, shop.path("TQVEHICL.DAT").read_bytes(), vehicle_span("Mileage"), vehicle_span("Date"),
                          vehicle_span("EngineSize"))
    assert shop.read_vehicles()[0]["Mileage"] == 12345
    assert snapshot(shop) == ["1999", "Ford", "Focus", "VIN-1", "LIC-1", "09/30/2003", "12345", "2.0L", ""]
    assert shop.estimate(900)["VehicleLink"] == 0
    assert vehicle_in_text(shop) == {
        "Year": "1999", "Make": "Ford", "Model": "Focus", "Engine": "2.0L", "VIN": "VIN-1", "LicenseNumber": "LIC-1",
        "Mileage": "12345", "Date": "09/30/2003", "OrigMileage": "50", "OrigDate": "01/03/2000"}
    answer_status(copy)
    assert (copy.caption("lblVehMileage"), copy.caption("lblEngTrans").strip()) == ("12345", "2.0L")


def test_a_cancelled_vehicle_and_no_end_it_with_nothing_written(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    before = shared_files(shop)
    to_vehicle(copy)
    copy.type("Mileage", "12345")
    copy.key("Esc")
    copy.press("Yes")  # the screen's own question, whether changes are discarded
    copy.expect_box(CANCELLED, TITLE, buttons=["Yes", "No"])
    copy.press("No")
    copy.expect_form("frmMain")
    assert shared_files(shop) == before


def test_a_cancelled_vehicle_and_yes_go_on_with_the_one_on_file(start, shop):
    copy = begin(start, vehicle_shop(shop, **AS_ON_FILE))
    before = shop.path("TQVEHICL.DAT").read_bytes()
    to_vehicle(copy)
    copy.type("Mileage", "12345")
    copy.key("Esc")
    copy.press("Yes")
    copy.expect_box(CANCELLED, TITLE)
    copy.press("Yes")
    expect_converted(copy, FIRST)
    assert vehicle_in_text(shop)["Mileage"] == "100"
    assert shop.path("TQVEHICL.DAT").read_bytes() == before


def test_a_cancelled_vehicle_that_differs_from_the_estimate_is_still_taken_over(start, shop):
    """What is on file by now goes into the estimate; the file is written with what it held."""
    copy = begin(start, vehicle_shop(shop, **{**AS_ON_FILE, "VehMileage": "90", "VehLic": "OLD"}))
    before = shop.path("TQVEHICL.DAT").read_bytes()
    to_vehicle(copy)
    copy.key("Esc")
    copy.expect_box(CANCELLED, TITLE)
    copy.press("Yes")
    expect_converted(copy, FIRST)
    assert snapshot(shop) == ["1999", "Ford", "Focus", "VIN-1", "LIC-1", "09/01/2003", "100", "", ""]
    assert shop.path("TQVEHICL.DAT").read_bytes() == before


@pytest.mark.parametrize("texts, wanted", [
    ({"VehVIN": "VIN-2", "VehLic": "LIC-1", "VehYear": "1999", "VehMake": "Ford", "VehModel": "Focus"}, "VIN-2"),
    ({"VehVIN": "OTHER", "VehLic": "LIC-1", "VehYear": "2001", "VehMake": "Audi", "VehModel": "A4"}, "VIN-1"),
    ({"VehVIN": "", "VehLic": "", "VehYear": "1999", "VehMake": "Ford", "VehModel": "Focus"}, "VIN-3"),
])
def test_the_vehicle_is_found_by_vin_then_licence_then_year_make_and_model(start, shop, texts, wanted):
    copy = begin(start, vehicle_shop(shop, **texts))
    to_vehicle(copy)
    assert copy.text("VIN") == wanted
    copy.key("F10")
    expect_converted(copy, FIRST)
    assert active_tags(shop)[0]["VIN"] == vehicle_in_text(shop)["VIN"] == snapshot(shop)[3] == wanted


def test_a_vehicle_that_is_not_on_file_is_built_from_the_estimate(start, shop):
    built = dict(VehYear="1970", VehMake="Saab", VehModel="96", VehVIN="S-96", VehLic="OLD 96", VehDate="01/02/2003",
                 VehMileage="777", VehEng="V4", VehTrans="4 speed")
    copy = begin(start, vehicle_shop(shop, **built))
    before = shop.path("TQVEHICL.DAT").read_bytes()
    to_vehicle(copy)
    assert [copy.text(name) for name in ("Year", "Make", "Model", "VIN", "LicenseNumber", "txtDate", "Mileage",
                                         "EngineSize", "Transmission")] == list(built.values())
    copy.key("Esc")
    copy.expect_box(CANCELLED)
    copy.press("Yes")
    expect_converted(copy, FIRST)
    assert shop.path("TQVEHICL.DAT").read_bytes() == before
    assert vehicle_in_text(shop) == {
        "Year": "1970", "Make": "Saab", "Model": "96", "Engine": "V4", "Transmission": "4 speed", "VIN": "S-96",
        "LicenseNumber": "OLD 96", "Mileage": "777", "Date": "01/02/2003", "OrigMileage": "", "OrigDate": ""}


def test_a_changed_vehicle_that_was_not_on_file_is_added_to_the_customers(start, shop):
    copy = begin(start, vehicle_shop(shop, VehYear="1970", VehMake="Saab", VehModel="96"))
    to_vehicle(copy)
    copy.type("VIN", "S-96")
    copy.key("F10")
    expect_converted(copy, FIRST)
    vehicles = shop.read_vehicles()
    assert (len(vehicles), vehicles[3]["VIN"], vehicles[3]["Number"], vehicles[3]["VLink"]) == (
        4, "S-96", 9, 2 * VEHICLE_LENGTH)
    owner = next(customer for customer in shop.read_customers() if customer["Number"] == 9)
    assert owner["VLink"] == shop.estimate(900)["VehicleLink"] == 3 * VEHICLE_LENGTH
    assert active_tags(shop)[0]["VIN"] == snapshot(shop)[3] == "S-96"


def test_an_estimate_without_year_make_and_model_asks_for_no_vehicle(start, shop):
    """It is looked for all the same: a VIN is enough."""
    copy = begin(start, vehicle_shop(shop, VehYear=" ", VehMake=" ", VehModel=" ", VehVIN="VIN-2"))
    convert(copy, name="Di Driver")
    expect_converted(copy, FIRST)
    assert active_tags(shop)[0]["VIN"] == "VIN-2"
    assert vehicle_in_text(shop)["Make"] == "Audi"
    assert snapshot(shop)[:5] == ["", "", "", "VIN-2", ""]


def test_a_vehicle_without_a_make_has_no_section(start, shop):
    copy = begin(start, vehicle_shop(shop, VehYear="1980", VehModel="Trailer", VehLic="T-1"))
    to_vehicle(copy)
    copy.key("F10")
    expect_converted(copy, FIRST)
    assert "Vehicle" not in read_workorder(shop, FIRST)
    assert active_tags(shop)[0]["LicenseNumber"] == "T-1"

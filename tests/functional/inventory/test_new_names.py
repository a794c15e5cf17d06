"""Departments and manufacturers, added where a part is edited."""

from inventoryfiles import DEPARTMENT_FILE, MANUFACTURER_FILE, read_names
from kitsteps import make_stock, open_part
from screens import tell


def entries(copy, combo):
    return [each["text"] for each in copy.control(combo, "frmInvEdit")["rows"]]


def ask_for_new(copy, combo):
    copy.select(combo, text="<New>")
    copy.expect_form("frmDept")


def test_a_new_department_and_a_new_manufacturer_stand_in_list_and_file(start, shop):
    make_stock(shop, {})
    copy = open_part(start(shop), "PLUG")
    ask_for_new(copy, "ComboD")
    assert copy.answer["caption"] == "Add Department" and copy.caption("lblDeptName") == "Department"
    assert copy.answer["focus"] == "DeptName"
    copy.type("DeptName", "IGNITION AND STARTING")
    copy.key("Enter")
    copy.expect_form("frmInvEdit")
    assert copy.text("ComboD") == "IGNITION AND STARTIN"
    assert entries(copy, "ComboD") == ["<New>", "KITS", "TIRES", "IGNITION AND STARTIN"]
    ask_for_new(copy, "ComboM")
    assert copy.answer["caption"] == "Add Manufacturer" and copy.caption("lblDeptName") == "Manufacturer"
    copy.type("DeptName", "BOSCH")
    copy.key("F10")
    assert copy.text("ComboM", "frmInvEdit") == "BOSCH"
    assert shop.path(DEPARTMENT_FILE).read_bytes() == b"KITS                TIRES               IGNITION AND STARTIN\r\n"
    assert shop.path(MANUFACTURER_FILE).read_bytes() == b"WAGNER              BOSCH               \r\n"


def test_a_cancelled_or_blank_name_is_none(start, shop):
    make_stock(shop, {})
    copy = open_part(start(shop), "PLUG")
    ask_for_new(copy, "ComboD")
    copy.key("F10")
    tell(copy, "Department is required.", "Add Department")
    copy.type("DeptName", "GLASS")
    copy.key("Esc")
    copy.expect_box("Discard changes?", "Add Department", "question", ["Yes", "No"])
    copy.press("Yes")
    copy.expect_form("frmInvEdit")
    assert copy.text("ComboD") == "" and entries(copy, "ComboD") == ["<New>", "KITS", "TIRES"]
    assert read_names(shop.directory, DEPARTMENT_FILE) == ["KITS", "TIRES"]


def test_names_that_two_copies_add_are_both_kept(start, shop):
    make_stock(shop, {})
    copies = [open_part(start(shop, computer=f"BENCH{i}"), "PLUG") for i in (1, 2)]
    for copy in copies:
        ask_for_new(copy, "ComboD")
    for copy, name in zip(copies, ("GLASS", "BRAKES")):
        copy.type("DeptName", name)
        copy.key("F10")
        copy.expect_form("frmInvEdit")
    assert read_names(shop.directory, DEPARTMENT_FILE) == ["KITS", "TIRES", "GLASS", "BRAKES"]
    assert entries(copies[1], "ComboD") == ["<New>", "KITS", "TIRES", "GLASS", "BRAKES"]
    assert copies[1].text("ComboD") == "BRAKES"

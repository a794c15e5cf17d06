"""A shop whose every text is meant to do harm, walked through its screens and papers on both desktops."""

import contextlib
import shutil
import sqlite3

import pytest

from boardlines import row_of
from copysteps import copies
from historyfiles import History
from inventoryfiles import make_inventory, part
from shopfiles import CUSTOMER, CUSTOMER_LENGTH, EMPLOYEE, EMPLOYEE_LENGTH, VEHICLE, VEHICLE_LENGTH, put
from vendorfiles import write_vendors
from wholeestimate import fill_whole_estimate
from workfiles import canned_line, make_canned_labor, make_canned_notes, make_checklist, make_followups, followup

HOSTILE = {
    "signs": "<b>&A</b>%s''\"\x01\x1b[*]`\\' OR '1'='1 {what} <img src=x> && &&B %n%1$n \x07\x7f",
    "lines": "one\ttwo\r\nthree\rfour\n",
    "upper": bytes(range(0x80, 0x100)).decode("latin-1"),
    "long": "W" * 400,
}
BEGINNING = {"signs": "<b>&A</b>", "lines": "one", "upper": "\u20ac", "long": "WWWW"}
MENUS = ("mnuCustomer", "mnuDisclaimer", "mnuMaintEmployees", "mnuMaintInventory", "mnuMaintVendors", "mnuPrintOptions",
         "mnuSpecialDays", "mnuStandardHours", "mnuStatusOptions", "mnuSystemCompanyInfo", "mnuSystemParameters",
         "mnuEstimateChecklist", "mnuEstimateNotes", "mnuEstimateSublets", "mnuEstimateWaste", "mnuFind", "mnuTechHours",
         "mnuReschedule", "mnuChangeStatus", "mnuPrintEstimate", "mnuPrintWorksheet", "mnuWOHistory")
OPENED = ("cmdCustEdit", "cmdVehicleEdit", "cmdVehicleChange", "cmdCustChange", "cmdLaborAdd", "cmdLaborChange",
          "cmdPartAdd", "cmdPartChange", "cmdPrintDay")


def raw(text):
    """Each character a byte, as another program may have left it."""
    return bytes(ord(each) if ord(each) < 0x100 else 0x3f for each in text)


def fill(records, length, layout, text, kept=()):
    """Every text of every record, as long as its field."""
    for start in range(0, len(records), length):
        record = records[start:start + length]
        texts = {name: raw(text) for name, (_, _, kind) in layout.items() if kind == "text" and name not in kept}
        records[start:start + length] = put(record, layout, **texts)


def fill_database(shop, text):
    with contextlib.closing(sqlite3.connect(shop.path("Lantos.mdb"))) as database, database:
        database.create_function("date", -1, lambda *_: "2003-09-30")
        for table in ("Estimates", "Labors", "Parts", "Sublets", "Waste", "Notes"):
            columns = [name for _, name, kind, *_ in database.execute(f"PRAGMA table_info({table})")
                       if kind.lower().startswith(("text", "longtext")) and name not in ("PartNumber", "Taxable")]
            if columns:
                database.execute(f"UPDATE {table} SET " + ", ".join(f"{name} = ?" for name in columns),
                                 [text.encode("latin-1", "replace").decode("cp1252", "replace")] * len(columns))


def hostile_shop(shop, text):
    fill_whole_estimate(shop)
    shop.add_employee(4, "Dan Ortiz")
    shop.add_make("Ford", ["Focus"])
    for name in ("company_name", "company_address", "company_city", "company_phone1"):
        shop.system[name] = raw(text)
    fill(shop.customers, CUSTOMER_LENGTH, CUSTOMER, text)
    fill(shop.vehicles, VEHICLE_LENGTH, VEHICLE, text, kept=("VIN",))
    fill(shop.employees, EMPLOYEE_LENGTH, EMPLOYEE, text)
    shop.write()
    make_inventory(shop.directory, [part("OIL-1", raw(text), (100, 120, 150, 165), 40)])
    write_vendors(shop, {"VendorName": raw(text), "Contact": raw(text), "Address": raw(text)})
    flat = raw(text).replace(b"\r", b" ").replace(b"\n", b" ").decode("latin-1").encode("cp1252", "replace").decode("cp1252")
    make_checklist(shop, ["[Brakes]", flat[:60], "Discs"])
    make_canned_labor(shop, [canned_line(100, 6500, 6500, flat[:60])])
    make_canned_notes(shop, [[flat[:60]]])
    make_followups(shop, [followup(8, flat[:200])])
    shop.path("disclaim.txt").write_bytes(raw(text) + b"\r\n")
    History("VIN-1").write(shop)
    fill_database(shop, text)


def look(copy, seen):
    """What is up, with all its controls; the answer itself where it is a box or a paper."""
    seen.append(copy.answer if copy.answer["waiting"] != "form" else copy.get("form"))
    assert copy.answer["waiting"] in ("form", "box", "preview", "popup", "printer"), copy.answer


def leave(copy, seen):
    """Back to the board, whatever is up, losing nothing of it."""
    for _ in range(20):
        waiting = copy.answer["waiting"]
        if waiting == "form" and copy.answer["form"] == "frmMain":
            return
        look(copy, seen)
        if waiting == "box":
            buttons = copy.answer["buttons"]
            copy.press("Yes" if "Discard" in copy.answer["text"] else "No" if "No" in buttons else buttons[-1])
        elif waiting == "popup":
            copy.choose(None)
        elif waiting == "form" and "cmdCancel" not in copy.get("form")["controls"]:
            copy.close()
        elif waiting == "form":
            copy.key("Esc")
        else:
            copy.close()
    raise AssertionError(f"no way back from {copy.answer}")


def walk(start, shop, desktop):
    """Every screen that a person comes to from the board, as it was shown."""
    seen = []
    copy = start(shop, desktop=desktop)
    copy.wait(50)
    look(copy, seen)
    copy.click("cmdDayView")
    look(copy, seen)
    copy.click("cmdWeekView")
    copy.double_click("List1(4)", row=row_of(copy, "List1(4)", 900))
    leave(copy, seen)
    look(copy, seen)
    controls = copy.get("form")["controls"]
    for name in OPENED:
        if name in controls and controls[name]["enabled"] and controls[name]["visible"]:
            copy.click(name)
            leave(copy, seen)
    for name in MENUS:
        copy.menu(name)
        leave(copy, seen)
    assert copy.get("form")["controls"] and not copy.events("failure")
    copy.close_window()
    return seen


def shown(seen):
    """What stood on the screens, without what is the same whatever the texts are."""
    return [{name: {what: control.get(what) for what in ("text", "caption", "rows")}
             for name, control in each["controls"].items() if control["visible"]} if "controls" in each
            else {name: each.get(name) for name in ("title", "text", "lines")} for each in seen]


@pytest.mark.parametrize("kind", HOSTILE)
def test_texts_are_texts_on_every_screen_and_paper(copies, shop, has_windows, kind):
    hostile_shop(shop, HOSTILE[kind])
    kept = shop.directory.with_name("kept")
    shutil.copytree(shop.directory, kept)
    plain = walk(copies, shop, "driver")
    forms = {each["form"] for each in plain if "controls" in each}
    assert len(forms) > 15, forms
    assert any(each.get("waiting") == "preview" for each in plain)
    assert BEGINNING[kind] in str(shown(plain)), "what is on file is what is on show"
    if not has_windows:
        return
    shutil.rmtree(shop.directory)
    kept.rename(shop.directory)
    windows = walk(copies, shop, "qt")
    for one, other in zip(shown(plain), shown(windows)):
        assert one == other
    assert len(plain) == len(windows)


def test_a_blank_that_holds_words_together_survives_an_edit(lantos, shop):
    shop.path("disclaim.txt").write_bytes(b"10\xa0mm\r\n")
    lantos.menu("mnuDisclaimer")
    lantos.insert("txtDisclaimer", "a ", 0)
    lantos.key("F10")
    assert b"a 10\xa0mm" in shop.path("DISC_EST.TXT").read_bytes()

"""A shop whose every text is meant to do harm, walked through its screens and papers on both desktops."""

import pathlib
import shutil

import pytest

import inventoryfiles
import shopfiles
import vendorfiles
from boardlines import row_of
from conversionsteps import FIRST
from copysteps import copies
from hostileshop import BEGINNING, HALF_DONE, HOSTILE, JOURNAL, WORKORDERS, as_shown, half_done, hostile_shop, left
from workorderfiles import USAGE_FILE, USAGE_LENGTH, file_name

MENUS = ("mnuCustomer", "mnuDisclaimer", "mnuMaintEmployees", "mnuMaintInventory", "mnuMaintVendors", "mnuPrintOptions",
         "mnuSpecialDays", "mnuStandardHours", "mnuStatusOptions", "mnuSystemCompanyInfo", "mnuSystemParameters",
         "mnuEstimateChecklist", "mnuEstimateNotes", "mnuEstimateSublets", "mnuEstimateWaste", "mnuFind", "mnuTechHours",
         "mnuReschedule", "mnuChangeStatus", "mnuPrintEstimate", "mnuPrintWorksheet", "mnuWOHistory", "mnuShowTrail")
OPENED = ("cmdCustomerEdit", "cmdVehicleEdit", "cmdLaborAdd", "cmdLaborChange", "cmdLaborFollowup", "cmdPartAdd",
          "cmdPartAddNonStock", "cmdPartChange")
# Each step is a control that is clicked or checked, a row that is selected, a key, or a text that goes into a box.
EMPLOYEE = ("mnuMaintEmployees", ("EmpList", 1))
PART = ("mnuMaintInventory", ("SearchPart", "OIL-1"), "Enter")
KIT = ("mnuMaintInventory", ("SearchPart", "TUNEUP"), "Enter")
CUSTOMER = ("mnuCustomer", ("Number", "8"), "cmdSearch", ("CustList", 0), "cmdSelect")
VEHICLE = (*CUSTOMER, "cmdVehicles", ("DataGrid1", 0), "cmdEdit")
VENDOR = ("mnuMaintVendors", ("VendorList", 0), "cmdEdit")
ROADS = (
    (*EMPLOYEE, "F7"),
    (*EMPLOYEE, "F6", "cmdPrint"),
    VENDOR,
    (*PART, "F10"),
    (*PART, "F10", "cmdUsage"),
    (*PART, "F10", "cmdRecv"),
    ("mnuMaintInventory", "cmdAdd"),
    ("mnuMaintVendors", "Insert"),
    ("mnuMaintEmployees", "Insert"),
    (*PART, "cmdView"),
    (*PART, "cmdChange"),
    (*PART, "cmdDelete"),
    (*KIT, "F10", "F4"),
    (*KIT, "F10", "F4", "F5"),
    (*PART, "F10", ("ComboD", 0)),
    (*VEHICLE, ("Make", "FORD"), "Insert"),
    ("cmdChangeStatus", "Option1(5)", "cmdOK"),
    VEHICLE,
    ("cmdPartAdd", ("SearchPart", "OIL-1"), "Enter", "F10"),
    ("cmdPartAdd", ("SearchPart", "TUNEUP"), "Enter", "F10"),
    (("listParts", 0), "cmdPartChange"),
    (("listLabor", 0), "cmdLaborChange"),
    ("cmdWOHistory", ("srchName", "PLAIN"), "F10", "cmdNext"),
    ("cmdLaborAddCanned", ("DataGrid1", 0), "cmdEdit"),
    ("cmdLaborAdd", ("lovRepairCode", 1)),
    ("mnuEstimateNotes", "cmdCanned", ("CanList", 0), "cmdEdit"),
    ("mnuEstimateNotes", "cmdAdd"),
    ("mnuEstimateSublets", "cmdAdd", ("POSubletList", 1)),
    ("mnuEstimateSublets", ("listSublets", 0), "cmdChange"),
    ("mnuEstimateWaste", ("listWaste", 0), "cmdChange"),
    (("listLabor", 0), "cmdLaborRemove"),
    ("mnuShowTrail", "cmdExport"),
)
FORMS = set("""
    frmCanLabor frmCanLaborList frmCanNoteList frmCompanyInfo frmCustEdit frmCustSearch frmDisclaimer
    frmEmpMaint frmEmpPRHist frmEmpPRInfo frmEstFollowup frmEstNotes frmEstStatus frmEstSublets frmEstWaste
    frmFind frmInvEdit frmInvKit frmInvList frmInvPartChange frmInvPartDelete frmInvView frmLabor frmMain
    frmNotes frmPrintOptions frmRepairCode frmReschedule frmSpecialDays frmStatusOptions frmStdHours
    frmSubList frmSystemParameters frmTechHours frmVehEdit frmVehList frmVendorEdit frmVendorList frmWOChklst
    frmWOExtra frmWOHist frmWOKit frmWOPart frmEmpNew frmInvAdd frmRecvList frmUsageList frmVendorAdd
    frmContinue frmDept frmInvKitAdd frmMakeModel frmTrail frmTrailExport
""".split())
# Not walked: what comes up ahead of the board, before a text of the shop is read; the question for a password, the guide and
# About, which show none; and the spell check, which shows the text that a person has just typed and comes up only where there
# is a dictionary.
WITHOUT_TEXTS = {"frmSplash", "frmEnterDir", "frmEnterPwd", "frmGuide", "frmAbout", "frmSpelling"}
SOURCES = pathlib.Path(__file__).resolve().parents[3] / "src"


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


def step(copy, seen, what):
    """One step of a road. Boxes on the way are looked at and left."""
    if isinstance(what, str) and what.startswith("mnu"):
        copy.menu(what)
    elif isinstance(what, str) and what.startswith("cmd"):
        copy.click(what)
    elif isinstance(what, str) and what.startswith("Option"):
        copy.check(what)
    elif isinstance(what, str):
        copy.key(what)
    elif isinstance(what[1], int):
        copy.select(what[0], row=what[1])
    else:
        copy.type(*what)
    while copy.answer["waiting"] == "box":
        look(copy, seen)
        copy.press(copy.answer["buttons"][0])


def go(copy, seen, road):
    for what in road:
        step(copy, seen, what)
        look(copy, seen)
    leave(copy, seen)


def convert(copy, seen):
    """The estimate becomes a work order, whatever is asked on the way."""
    copy.click("cmdConvert")
    for _ in range(20):
        look(copy, seen)
        if copy.answer["waiting"] == "box":
            copy.press(copy.answer["buttons"][0])
        elif copy.answer["form"] == "frmMain":
            return
        else:
            copy.key("F10")
    raise AssertionError(f"no end of the conversion at {copy.answer}")


def begin(start, shop, text, **how):
    """A copy with the board on show; what ended in the middle is left for later."""
    copy = start(shop, **how)
    copy.expect_box(half_done(text), "Convert to WO", "question", ["Yes", "No", "Cancel"])
    copy.press("Cancel")
    copy.wait(50)
    return copy


def walk(start, shop, text, desktop):
    """Every screen that a person comes to from the board, as it was shown."""
    seen = []
    copy = begin(start, shop, text, desktop=desktop)
    look(copy, seen)
    copy.click("cmdDayView")
    look(copy, seen)
    copy.click("cmdWeekView")
    copy.double_click("List1(4)", row=row_of(copy, "List1(4)", 900))
    leave(copy, seen)
    look(copy, seen)
    for name in OPENED:
        copy.click(name)
        leave(copy, seen)
    copy.click("cmdDayView")
    copy.click("cmdPrintDay")
    leave(copy, seen)
    copy.click("cmdDetailView")
    leave(copy, seen)
    for road in (*((menu,) for menu in MENUS), *ROADS):
        go(copy, seen, road)
    convert(copy, seen)
    assert copy.get("form")["controls"] and not copy.events("failure")
    copy.close_window()
    return seen


def shown(seen):
    """What stood on the screens, without what is the same whatever the texts are."""
    return [{name: {what: control.get(what) for what in ("text", "caption", "rows")}
             for name, control in each["controls"].items() if control["visible"]} if "controls" in each
            else {name: each.get(name) for name in ("title", "text", "lines")} for each in seen]


def all_texts(shown):
    """Every text in what was shown, below one another."""
    if isinstance(shown, dict):
        shown = list(shown.values())
    if isinstance(shown, list):
        return "\n".join(all_texts(each) for each in shown)
    return shown if isinstance(shown, str) else ""


def test_every_form_is_walked_or_named():
    """A new screen gets a road, or a reason why it has none."""
    assert not FORMS & WITHOUT_TEXTS
    assert FORMS | WITHOUT_TEXTS == {design.stem for design in SOURCES.rglob("*.ui")}


@pytest.mark.parametrize("kind", HOSTILE)
def test_texts_are_texts_on_every_screen_and_paper(copies, shop, has_windows, kind):
    hostile_shop(shop, HOSTILE[kind])
    kept = shop.directory.with_name("kept")
    shutil.copytree(shop.directory, kept)
    plain = walk(copies, shop, HOSTILE[kind], "driver")
    assert {each["form"] for each in plain if "controls" in each} == FORMS
    assert any(each.get("waiting") == "preview" for each in plain)
    assert BEGINNING[kind] in all_texts(shown(plain)), "what is on file is what is on show"
    if not has_windows:
        return
    by_plain = left(shop)
    shutil.rmtree(shop.directory)
    kept.rename(shop.directory)
    windows = walk(copies, shop, HOSTILE[kind], "qt")
    for one, other in zip(shown(plain), shown(windows)):
        assert one == other
    assert len(plain) == len(windows)
    assert left(shop) == by_plain
    orders = [name for name in by_plain if name.startswith("W") and name.endswith(".tqa")]
    assert orders == [file_name(number) for number in (*WORKORDERS, FIRST)]


@pytest.mark.parametrize("kind", HOSTILE)
def test_what_ended_in_the_middle_is_undone_by_the_names_that_it_has(start, shop, desktop, kind):
    hostile_shop(shop, HOSTILE[kind])
    usages = shop.path(USAGE_FILE).read_bytes()
    copy = start(shop)
    copy.expect_box(half_done(HOSTILE[kind]), "Convert to WO", "question")
    copy.press("No")
    copy.expect_box(f"The conversion of estimate # 000899 to work order # {HALF_DONE:06} was undone.\n"
                    f"Number {HALF_DONE:06} stays unused.")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert not shop.path(JOURNAL).exists()
    assert shop.path(USAGE_FILE).read_bytes() == usages[:-USAGE_LENGTH]
    for file, length, (offset, *_) in (
            (inventoryfiles.TAG_FILE, inventoryfiles.TAG_LENGTH, inventoryfiles.TAG["InStock"]),
            (inventoryfiles.MASTER_FILE, inventoryfiles.MASTER_LENGTH, inventoryfiles.MASTER["QtyInStock"])):
        assert shop.path(file).read_bytes()[2 * length + offset] == 4, file


def test_the_name_of_a_damaged_journal_is_a_text(start, shop, desktop):
    name = "AJ<b>&A<i> {what} %s.JNL"
    shop.write()
    shop.path(name).write_bytes(b"nothing that a conversion writes\r\n")
    copy = start(shop)
    copy.expect_box(f"{name}, the journal of a conversion that was not finished, is damaged.\nLook at the newest work "
                    "orders, and at the stock of their parts.\n\nDelete the journal?", "Convert to WO", "exclamation")
    copy.press("Yes")
    copy.expect_form("frmMain")
    assert not shop.path(name).exists()


# The road to an editor, what is typed there, and where that goes: the file, the length of its records, and the field.
SAVES = {
    "customer": (CUSTOMER, ("Ext", "7"), "TQCSTDAT.DAT", shopfiles.CUSTOMER_LENGTH, shopfiles.CUSTOMER["WorkExt"]),
    "vehicle": (VEHICLE, ("State", "OH"), "TQVEHICL.DAT", shopfiles.VEHICLE_LENGTH, shopfiles.VEHICLE["State"]),
    "vendor": (VENDOR, ("Phone1Ext", "7"), "TQVENDOR.DAT", vendorfiles.VENDOR_LENGTH, vendorfiles.VENDOR["Phone1Ext"]),
    "part": ((*PART, "F10"), ("ReorderLevel", "7"), "TQINVENT.DAT", inventoryfiles.MASTER_LENGTH,
             inventoryfiles.MASTER["ReorderLevel"]),
    "employee": (EMPLOYEE, ("EmpZip", "45402"), "TQEMPLOY.DAT", shopfiles.EMPLOYEE_LENGTH, shopfiles.EMPLOYEE["EmpZip"]),
    "company": (("mnuSystemCompanyInfo",), ("company_zip", "45402"), "TQSYSTEM.DAT", shopfiles.SYSTEM_LENGTH,
                shopfiles.SYSTEM["company_zip"]),
    "system": (("mnuSystemParameters",), ("shop_rate", "71.00"), "TQSYSTEM.DAT", shopfiles.SYSTEM_LENGTH,
               shopfiles.SYSTEM["shop_rate"]),
}
# A customer's names are stored anew, without what stands behind their ends, and its tag is made of them.
NAMES = range(shopfiles.CUSTOMER["Lastname"][0], shopfiles.CUSTOMER["Address"][0])


def expect_changed_alone(before, after, file, length, field):
    """Nothing but the field, in a record of the file."""
    offset, width, _ = field
    may = {*range(offset, offset + width), *(NAMES if file == "TQCSTDAT.DAT" else ())}
    changed = {name for name in before.keys() | after.keys() if before.get(name) != after.get(name)}
    assert changed <= {file, "TQCSTTAG.DAT"} if file == "TQCSTDAT.DAT" else changed <= {file}
    assert len(before[file]) == len(after[file])
    assert {at % length for at, (old, new) in enumerate(zip(before[file], after[file])) if old != new} <= may


# The same, whose boxes bear the names of the fields: what may stand in them.
RECORDS = {"vehicle": 1, "employee": 1}  # of the others it is the first that is opened
FIELDS = {"vendor": vendorfiles.VENDOR, "part": inventoryfiles.MASTER, "company": shopfiles.SYSTEM,
          "system": shopfiles.SYSTEM, "employee": shopfiles.EMPLOYEE, "vehicle": shopfiles.VEHICLE,
          "customer": shopfiles.CUSTOMER}


def expect_as_stored(copy, layout, record):
    """Each text field that has a box of its name is shown there as it is stored."""
    controls = copy.get("form")["controls"]
    shown = {name: controls[name]["text"] for name, (_, _, kind) in layout.items()
             if kind == "text" and name in controls and controls[name]["type"] == "TextBox"}
    assert len(shown) >= 3
    assert shown == {name: as_shown(record[layout[name][0]:sum(layout[name][:2])]) for name in shown}


@pytest.mark.parametrize("kind", HOSTILE)
def test_a_save_changes_nothing_but_what_was_typed(start, shop, desktop, kind):
    hostile_shop(shop, HOSTILE[kind])
    copy = begin(start, shop, HOSTILE[kind])
    for screen, (road, typed, file, length, field) in SAVES.items():
        for edits in ((), (typed,)):
            before, seen = left(shop), []
            for what in road:
                step(copy, seen, what)
            if not edits:
                expect_as_stored(copy, FIELDS[screen], before[file][RECORDS.get(screen, 0) * length:][:length])
            for what in edits:
                step(copy, seen, what)
            boxes = len(seen)
            step(copy, seen, "F10")
            assert screen == "company" or len(seen) == boxes, seen[boxes:]
            leave(copy, seen)
            after = left(shop)
            expect_changed_alone(before, after, file, length, field if edits else (0, 0, ""))
            if edits and len(seen) == boxes:
                assert before[file] != after[file], screen
    assert not copy.events("failure")


def test_a_blank_that_holds_words_together_survives_an_edit(lantos, shop):
    shop.path("disclaim.txt").write_bytes(b"10\xa0mm\r\n")
    lantos.menu("mnuDisclaimer")
    lantos.insert("txtDisclaimer", "a ", 0)
    lantos.key("F10")
    assert b"a 10\xa0mm" in shop.path("DISC_EST.TXT").read_bytes()

"""A part is edited: fields, recalculated prices, alternates, core, moves to other parts."""

from inventoryfiles import (MASTER, MASTER_FILE, MASTER_LENGTH, TAG, TAG_FILE, TAG_LENGTH, make_names, master_record,
                            part, tag_record)
from inventorysteps import begin_keeping, both_files, go_to_part_among_all, listed
from screens import expect_changed_within, span, tell
from shopfiles import put

PARTS = [
    part("AXLE", "REAR AXLE", (1000, 2000, 3000, 4000), 2, AltNumber1="PAD-9"),
    part("PAD-9", "BRAKE PADS", (1000, 1050, 2050, 3050), 12, AltNumber1="AXLE", Department="BRAKES",
         Manufacturer="ACME", Location="SHELF 4", Comment="left & right", MarkupPercent=(0, 250000, 500000, 1000000),
         CoreCost=1500, DisposalFee=75, ReorderLevel=3, IdealLevel=20, UsageLink=256, ReceivingLink=512),
    part("SHOE", "BRAKE SHOE", (1, 2, 3, 4), 5),
    part("ZINC", "ZINC COAT"),
]
AXLE, PAD, SHOE, ZINC = range(4)


def edit(start, shop, number="PAD-9", parts=PARTS):
    shop.directory.mkdir(exist_ok=True)
    make_names(shop.directory, ["BRAKES", "ENGINE"], ["ACME"])
    copy = begin_keeping(start, shop, parts)
    go_to_part_among_all(copy, number)
    return open_edit(copy)


def open_edit(copy):
    copy.key("F10")
    copy.expect_form("frmInvEdit")
    return copy


def put_part(files, place, **fields):
    """The files with fields of one part changed by their offsets; what its tag repeats goes there too."""
    tags, masters = (bytearray(data) for data in files)
    master = put(masters[MASTER_LENGTH * place:MASTER_LENGTH * (place + 1)], MASTER, **fields)
    masters[MASTER_LENGTH * place:MASTER_LENGTH * (place + 1)] = master
    repeated = {name: fields[name] for name in ("StockNumber", "Description", "Pricing", "IsStocked") if name in fields}
    if "QtyInStock" in fields:
        repeated["InStock"] = fields["QtyInStock"]
    tag = put(tags[TAG_LENGTH * place:TAG_LENGTH * (place + 1)], TAG, **repeated)
    tags[TAG_LENGTH * place:TAG_LENGTH * (place + 1)] = tag
    return bytes(tags), bytes(masters)


def test_every_field_is_shown_and_stored_at_its_place(start, shop):
    copy = edit(start, shop)
    before = both_files(shop)
    assert copy.answer["caption"] == "Edit Part" and copy.answer["focus"] == "Description"
    shown = {name: copy.text(name) for name in (
        "StockNumber", "Description", "ComboD", "ComboM", "Location", "Comment", "CoreCost", "DisposalFee",
        "ReorderLevel", "QtyInStock", "IdealLevel", "AltNumber(0)", "Pricing(0)", "Pricing(3)", "MarkupPercent(1)")}
    assert list(shown.values()) == ["PAD-9", "BRAKE PADS", "BRAKES", "ACME", "SHELF 4", "left & right", "15.00", "0.75",
                                    "3", "12", "20", "AXLE", "10.00", "30.50", "25.0000"]
    assert [row["text"] for row in copy.control("ComboD")["rows"]] == ["<New>", "BRAKES", "ENGINE"]
    tips = [copy.control(name)["tooltip"] for name in ("cmdSave", "cmdReset", "cmdPrev", "cmdNext", "cmdEditKit",
                                                       "cmdUsage", "cmdRecv")]
    assert tips == ["Save <F10>", "Reset <F2>", "Previous part <PgUp>", "Next part <PgDn>",
                    "Edit the parts of the kit <F4>", "Usage <Alt+U>", "Receiving <Alt+R>"]
    copy.type("Description", "PADS, FRONT")
    copy.select("ComboD", row=2)
    for name, text in (("Pricing(1)", "11.5"), ("MarkupPercent(2)", "12.34567"), ("CoreCost", "16"),
                       ("DisposalFee", "0.8"), ("Location", "BIN 7"), ("Comment", ""), ("ReorderLevel", "4"),
                       ("QtyInStock", "-2"), ("IdealLevel", "21")):
        copy.type(name, text)
    copy.key("Alt+T")
    copy.key("Alt+W")
    assert (copy.control("IsStocked")["checked"], copy.control("HasWaste")["checked"]) == (False, True)
    copy.key("F10")
    copy.expect_form("frmInvList")
    assert both_files(shop) == put_part(
        before, PAD, Description="PADS, FRONT", Department="ENGINE", Pricing=(1000, 1150, 2050, 3050),
        MarkupPercent=(0, 250000, 123457, 1000000), CoreCost=1600, DisposalFee=80, Location="BIN 7", Comment="",
        ReorderLevel=4, QtyInStock=-2, IdealLevel=21, IsStocked=0, HasWaste=1)
    assert listed(copy, "Description")[PAD] == "PADS, FRONT" and listed(copy, "Qty")[PAD] == "-2"
    assert copy.control("DataGrid1")["selected"] == PAD
    assert any(line.endswith("WriteInventory PAD-9 In stock=-2") for line in copy.log_lines())


def test_cost_and_markup_make_the_prices_and_a_missing_price_is_asked_about(start, shop):
    copy = edit(start, shop)
    before = both_files(shop)
    copy.key("Alt+L")
    assert copy.answer["focus"] == "ReorderLevel"
    assert [copy.text(f"Pricing({i})") for i in range(4)] == ["10.00", "12.50", "15.00", "20.00"]
    copy.type("Pricing(2)", "0")
    copy.key("F10")
    box = copy.expect_box("One or more of the pricing values is missing.\nClick OK to continue, or CANCEL to correct.")
    assert box["buttons"] == ["OK", "Cancel"] and box["default"] == "Cancel"
    copy.press("Cancel")
    assert copy.answer["focus"] == "Pricing(2)"
    assert both_files(shop) == before
    copy.type("Pricing(2)", "15.01")
    copy.key("F10")
    copy.expect_form("frmInvList")
    assert both_files(shop) == put_part(before, PAD, Pricing=(1000, 1250, 1501, 2000))


def test_alternates_are_kept_on_both_sides(start, shop):
    copy = edit(start, shop)
    before = both_files(shop)
    copy.type("AltNumber(1)", "NONE")
    copy.key("Tab")
    tell(copy, "Part NONE not found.", "Edit Part")
    assert copy.answer["focus"] == "AltNumber(1)"
    copy.type("AltNumber(1)", "SHOE")
    copy.type("AltNumber(0)", "ZINC")
    copy.key("F10")
    copy.expect_form("frmInvList")
    after = put_part(before, PAD, AltNumber1="ZINC", AltNumber2="SHOE")
    after = put_part(after, AXLE, AltNumber1="")
    after = put_part(put_part(after, SHOE, AltNumber1="PAD-9"), ZINC, AltNumber1="PAD-9")
    assert both_files(shop) == after
    open_edit(copy)
    copy.type("AltNumber(0)", "")
    copy.key("F10")
    copy.expect_form("frmInvList")
    assert both_files(shop) == put_part(put_part(after, PAD, AltNumber1=""), ZINC, AltNumber1="")


def test_a_core_just_turned_on_is_a_part_of_its_own(start, shop):
    shop.system["markups"] = (0, 100000, 200000, 500000)
    copy = edit(start, shop)
    tags, masters = put_part(both_files(shop), PAD, HasACore=1)
    copy.key("Alt+H")
    copy.key("F10")
    copy.expect_form("frmInvList")
    core = part("PAD-9/C", "CORE: BRAKE PADS", (1500, 1650, 1800, 2250), IsStocked=0, Department="CORES",
                Manufacturer="ACME", MarkupPercent=(0, 100000, 200000, 500000))
    assert both_files(shop) == (tags + tag_record(core, 4 * MASTER_LENGTH), masters + master_record(core))
    assert copy.caption("TotalParts") == "      5 Total Parts"


def test_neighbours_and_alternates_are_gone_to(start, shop):
    copy = edit(start, shop)
    before = both_files(shop)
    copy.key("PgDn")
    assert copy.text("StockNumber") == "SHOE" and copy.answer["focus"] == "Description"
    copy.type("Description", "X")
    copy.key("PgUp")
    copy.expect_box("Discard current changes?", "Edit Part")
    copy.press("No")
    assert (copy.text("StockNumber"), copy.text("Description")) == ("SHOE", "X")
    copy.key("PgUp")
    copy.press("Yes")
    assert copy.text("StockNumber") == "PAD-9"
    copy.key("Alt+1")
    assert copy.text("StockNumber") == "AXLE"
    copy.key("PgUp")
    assert {"beep": True} in copy.answer["events"]
    copy.type("Comment", "X")
    copy.key("F2")
    assert copy.text("Comment") == "" and copy.caption("cmdCancel") == "Close"
    copy.type("Comment", "X")
    copy.key("Esc")
    copy.expect_box("Discard changes?")
    copy.press("Yes")
    copy.expect_form("frmInvList")
    assert both_files(shop) == before


def test_a_department_that_no_list_has_and_the_windows_of_the_other_program(start, shop):
    copy = edit(start, shop)
    copy.type("ComboD", "BRAKE")
    copy.key("Tab")
    box = copy.expect_box("Unrecognized department specified!", "Ingredient - Store Location")
    assert box["buttons"] == ["Retry", "Cancel"]
    copy.press("Retry")
    assert copy.answer["focus"] == "ComboD"
    copy.key("Tab")
    copy.press("Cancel")
    assert copy.text("ComboD") == "BRAKES"
    for key, form, heading in (("Alt+U", "frmUsageList", "Korvel shows the usage of PAD-9."),
                               ("Alt+R", "frmRecvList", "Korvel shows the receiving of PAD-9.")):
        copy.key(key)
        copy.expect_form(form)
        assert copy.caption("lblHeading") == heading
        copy.key("Esc")
        copy.expect_form("frmInvEdit")


def test_stock_that_another_copy_took_meanwhile_stays_taken(start, shop):
    copy = edit(start, shop)
    sold = put_part(both_files(shop), PAD, QtyInStock=7, UsageLink=332)
    for name, data in zip((TAG_FILE, MASTER_FILE), sold):
        shop.path(name).write_bytes(data)
    copy.type("Comment", "typed meanwhile")
    assert copy.text("QtyInStock") == "12"
    copy.key("F10")
    copy.expect_form("frmInvList")
    assert both_files(shop) == put_part(sold, PAD, Comment="typed meanwhile")
    assert listed(copy, "Qty")[PAD] == "7"
    expect_changed_within(sold[1], both_files(shop)[1], span(MASTER, "Comment", MASTER_LENGTH))

"""The lines of an estimate, kind by kind: how one is added, changed and removed on the screens, and what the database
has of it. Each line is made of a word and a count, which go into all of its fields, so that half a line shows."""

from dataclasses import dataclass
from typing import Callable

import pytest

from copysteps import workstations
from workfiles import make_checklist, one_estimate, show


@dataclass(frozen=True)
class Kind:
    table: str
    number: str  # the column
    columns: dict[str, Callable]  # of the database, what of word and count each has
    fields: dict[str, Callable]  # of the editor, what is typed
    editor: str
    add: str
    change: str
    remove: str
    list: str
    noun: str  # of the titles of boxes
    opened_by: str = ""  # the board's button, where the list has a screen of its own
    screen: str = "frmMain"

    def line(self, word, count):
        return tuple(made_of(word, count) for made_of in self.columns.values())


def again(word, _):
    return f"{word} AGAIN"


def dollars(_, count):
    return f"{count}.00"


def cents(_, count):
    return count * 100


def itself(word, _):
    return word


LABOR = Kind(
    "Labors", "LaborNumber",
    {"Description": lambda word, _: f"{word}\t{word} AGAIN" + "\t" * 6, "LaborHours": cents,
     "LaborRate": cents, "LaborTotal": lambda _, count: count * count * 100},
    {"Hours": dollars, "ShopRate": dollars, "txtDesc": lambda word, _: f"{word}\n{word} AGAIN"},
    "frmLabor", "cmdLaborAdd", "cmdLaborChange", "cmdLaborRemove", "listLabor", "Labor")
PARTS = Kind(
    "Parts", "PartNumber",
    {"PartDesc": again, "Quantity": lambda _, count: count, "PartPrice": cents,
     "PartTotal": lambda _, count: count * count * 100, "PartCost": cents, "PartList": cents},
    {"PartNumber": itself, "Description": again, "QuantityUsed": lambda _, count: str(count), "CostPrice": dollars,
     "SalePrice": dollars, "ListPrice": dollars},
    "frmWOPart", "cmdPartAddNonStock", "cmdPartChange", "cmdPartRemove", "listParts", "Part")
EXTRA_COLUMNS = {"VendorName": itself, "VendorInvoice": lambda word, _: f"I-{word}", "Cost": cents, "Price": cents,
                 "Desc1": again}
EXTRA_FIELDS = {"Vendor": itself, "VendorInvoice": lambda word, _: f"I-{word}", "Cost": dollars, "Price": dollars,
                "Desc(1)": again}
SUBLETS = Kind("Sublets", "SubletNumber", EXTRA_COLUMNS, EXTRA_FIELDS, "frmWOExtra", "cmdAdd", "cmdChange", "cmdRemove",
               "listSublets", "Sublet", "cmdEstimateSublets", "frmEstSublets")
WASTE = Kind("Waste", "WasteNumber", EXTRA_COLUMNS, EXTRA_FIELDS, "frmWOExtra", "cmdAdd", "cmdChange", "cmdRemove",
             "listWaste", "Waste", "cmdEstimateWaste", "frmEstWaste")
NOTES = Kind("Notes", "NoteNumber", {"Desc1": itself, "Desc2": again},
             {"txtDesc": lambda word, _: f"{word}\n{word} AGAIN"}, "frmNotes", "cmdAdd", "cmdChange", "cmdRemove",
             "listNotes", "Note", "cmdEstimateNotes", "frmEstNotes")
KINDS = (LABOR, PARTS, SUBLETS, WASTE, NOTES)


def two_lines_of_each(shop):
    """Estimate 900 with the lines ONE and TWO of each kind, and a checklist of three points."""
    one_estimate(shop)
    for kind in KINDS:
        for count, word in ((1, "ONE"), (2, "TWO")):
            number = word if kind is PARTS else count
            shop.add_row(kind.table, EstimateNumber=900, **{kind.number: number},
                         **dict(zip(kind.columns, kind.line(word, count))))
    shop.write()
    make_checklist(shop, ["[Engine]", "Oil", "Belts", "[Brakes]", "Pads"])


def on_show(start, shop, count):
    two_lines_of_each(shop)
    return [show(copy) for copy in workstations(start, shop, count)]


@pytest.fixture
def pair(start, shop):
    """Two copies with estimate 900 on show, which has the lines ONE and TWO of each kind."""
    return on_show(start, shop, 2)


def stored(shop, kind, estimate=900):
    """The lines by their numbers."""
    columns = ", ".join([kind.number, *kind.columns])
    order = "rowid" if kind is PARTS else kind.number
    rows = [tuple(row.values()) for row in shop.query(
        f"SELECT {columns} FROM {kind.table} WHERE EstimateNumber = ? ORDER BY {order}", estimate)]
    assert len(rows) == len({row[0] for row in rows}), "no number twice"
    return {row[0]: row[1:] for row in rows}


def open_list(copy, kind):
    if kind.opened_by:
        copy.click(kind.opened_by)
    copy.expect_form(kind.screen)


def close_list(copy, kind):
    if kind.opened_by:
        copy.key("Esc")
    copy.expect_form("frmMain")


def begin_to_add(copy, kind):
    copy.click(kind.add)
    if kind is SUBLETS:
        copy.click("POSubletList", row=0)
        copy.key("F10")
    copy.expect_form(kind.editor)


def choose(copy, kind, word):
    row = next(row for row, text in enumerate(copy.rows(kind.list)) if word in text)
    copy.select(kind.list, **({"rows": [row]} if kind is PARTS else {"row": row}))


def begin_to_change(copy, kind, word):
    choose(copy, kind, word)
    copy.click(kind.change)
    copy.expect_form(kind.editor)


def fill(copy, kind, word, count, but=()):
    for control, made_of in kind.fields.items():
        if control not in but:
            copy.type(control, made_of(word, count))


def save(copy, kind):
    copy.key("F10")
    copy.expect_form(kind.screen)


def begin_to_remove(copy, kind, word):
    choose(copy, kind, word)
    copy.click(kind.remove)
    copy.press("Yes")


def remove(copy, kind, word):
    begin_to_remove(copy, kind, word)
    copy.expect_form(kind.screen)


def set_status(copy, status):
    copy.right_click("frameDetailView")
    copy.choose(status)
    copy.expect_form("frmMain")

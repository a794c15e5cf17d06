"""Texts of work orders to be printed, and the road to their papers."""

from browsesteps import look_for, open_history
from historyfiles import History
from printsteps import VIN, expect_preview
from workorderfiles import SECTIONS

COLUMNS = ["DataLine", "Num", "Qty", "Prc", "Lst", "Ext"]


def text_of_order(number, status="OPEN", totals=(), customer=(), vehicle=(), **lists):
    """A section for each name; parts, labor and so on as rows, the others as keys and values."""
    content = {
        "Workorder": [f"WorkorderNumber={number:06}", f"Status={status}", "Type=Repair", "Pricing=Retail"],
        "Totals": [f"{key}={value}" for key, value in dict(totals).items()],
        "Customer": [f"{key}={value}" for key, value in dict(customer).items()],
        "Vehicle": [f"{key}={value}" for key, value in dict(vehicle).items()],
        **{name.capitalize(): rows for name, rows in lists.items()},
    }
    return "".join(f"[{name}]\r\n" + "".join(row + "\r\n" for row in content.get(name, ())) + "\r\n"
                   for name in SECTIONS)


def open_paper(start, shop, text, number=4711, **options):
    """The preview of an active work order, from the browser of past ones."""
    shop.write()
    history = History(VIN)
    history.add_active(number, opened="2003-09-30", last="Adams", text=text)
    history.write(shop)
    copy = open_history(start(shop, **options))
    look_for(copy, "adams")
    return preview(copy)


def preview(copy):
    copy.key("Alt+F2")
    expect_preview(copy, "rptWorkorder")
    assert copy.answer["columns"] == COLUMNS
    return copy


def row(text="", number="", quantity="", price="", list_price="", amount=""):
    return [text, number, quantity, price, list_price, amount]


def balance(amount):
    return row(list_price="Balance:", amount=amount)


def across(line):
    """As it is read on the paper, where the number stands ahead of the text."""
    return [line[1], line[0], *line[2:]]

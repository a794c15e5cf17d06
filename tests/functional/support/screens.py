"""Roads to the customer and vehicle screens, and what their tests compare."""

from shopfiles import CUSTOMER, TAG, VEHICLE


def customer_row(number, key):
    return f"{number:06} {key:<38}"


def spouse_row(number, name):
    return f"{number:06} S{name:<37}"


def open_search(copy):
    """The customer search of the maintenance menu."""
    copy.menu("mnuCustomer")
    return copy.expect_form("frmCustSearch")


def search(copy, **fields):
    """What the search says in the end. The fields are emptied first."""
    copy.click("cmdClear")
    for name, text in fields.items():
        copy.type(name, text)
    copy.click("cmdSearch")
    return copy.caption("Msg")


def pick_customer(copy, number):
    """By number, in a customer search that is up."""
    copy.expect_form("frmCustSearch")
    assert search(copy, Number=str(number)) == "Found 1 matching Customer # records."
    return copy.double_click("CustList", row=0)


def edit_customer(copy, number):
    open_search(copy)
    pick_customer(copy, number)
    return copy.expect_form("frmCustEdit")


def open_vehicles(copy, number):
    edit_customer(copy, number)
    copy.click("cmdVehicles")
    return copy.expect_form("frmVehList")


def back_to_board(copy):
    """Out of every screen that holds no changes."""
    while copy.answer["form"] != "frmMain":
        copy.key("Esc")


def ask_new_estimate(copy, estimate_only=False):
    """As far as the customer search, on today or a later day."""
    copy.click("cmdNewEstimate")
    copy.expect_box('Is this an Estimate Only?\n\n(Will not be "Scheduled")', "New Estimate", "question", ["Yes", "No"])
    copy.press("Yes" if estimate_only else "No")
    return copy.expect_form("frmCustSearch")


def book(copy, customer, vehicle_row=None, estimate_only=False):
    """An estimate for a customer by number, with the vehicle of that row of the list or none."""
    ask_new_estimate(copy, estimate_only)
    pick_customer(copy, customer)
    copy.expect_form("frmVehList")
    if vehicle_row is None:
        copy.key("Esc")
    else:
        copy.double_click("DataGrid1", row=vehicle_row)
    return copy.expect_form("frmMain")


def cells(copy, column=None, grid="DataGrid1"):
    """The rows of a grid, or of one of its columns."""
    rows = [row["cells"] for row in copy.control(grid)["rows"]]
    return rows if column is None else [row[column] for row in rows]


def tell(copy, text, title=None):
    """A message that only has to be read."""
    copy.expect_box(text, title, buttons=["OK"])
    copy.press("OK")


# Bytes.


def span(layout, field, base=0):
    offset, width, _ = layout[field]
    return base + offset, base + offset + width


def tag_span(field, base=0):
    return span(TAG, field, base)


def customer_span(field, base=0):
    return span(CUSTOMER, field, base)


def vehicle_span(field, base=0):
    return span(VEHICLE, field, base)


def expect_changed_within(before, after, *spans):
    """Something changed in each span, and nothing outside."""
    assert len(after) == len(before)
    changed = [at for at, (old, new) in enumerate(zip(before, after)) if old != new]
    stray = [at for at in changed if not any(first <= at < end for first, end in spans)]
    assert not stray, f"changed outside of {spans}: {stray}"
    for first, end in spans:
        assert before[first:end] != after[first:end], f"nothing changed from {first} to {end}"


def shared_files(shop):
    """Every file but a run's own."""
    return shop.hashes(but=("LN*", "AU*"))

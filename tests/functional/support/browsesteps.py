"""Roads through the browser of past work orders."""

KEYS = {"srchName": "Workorder History by Name", "srchVIN": "Workorder History by VIN #",
        "srchLic": "Workorder history by License #"}


def open_history(copy):
    copy.click("cmdWOHistory")
    assert copy.expect_form("frmWOHist")["caption"] == "Workorder History"
    return copy


def look_for(copy, text, field="srchName"):
    """From either state of the search."""
    if copy.caption("cmdSearch") == "New &Search":
        copy.key("F10")
    copy.type(field, text)
    return copy.key("F10")


def shown(copy):
    """The number of the work order on show, None for none."""
    number = copy.caption("workorder_number", "frmWOHist")
    return int(number) if number else None


def found(copy):
    """The numbers of all hits, from the one on show to the last."""
    numbers = [shown(copy)]
    while True:
        beeps = len(copy.events("beep"))
        copy.click("cmdNext")
        if len(copy.events("beep")) > beeps:
            return numbers
        numbers.append(shown(copy))


def expect_empty(copy):
    """Nothing but the number of a work order that could not be read."""
    assert copy.rows("WoDetail", "frmWOHist") == copy.rows("WoDetailC", "frmWOHist") == []
    assert copy.caption("custname", "frmWOHist") == ""

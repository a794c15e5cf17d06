"""A shop whose every text is meant to do harm, as another program or a person with another program may have left it."""

import contextlib
import datetime
import sqlite3

from historyfiles import History, order_text
from inventoryfiles import kit_part, make_inventory, make_kits, make_names, part
from journalfiles import in_one_line, write_journal
from payfiles import EMP_PR_HIST, EMP_PR_INFO, korvel, write_chain
from shopfiles import (CUSTOMER, CUSTOMER_LENGTH, EMPLOYEE, EMPLOYEE_LENGTH, MAKE, MAKE_LENGTH, SYSTEM, VEHICLE,
                       VEHICLE_LENGTH, put)
from vendorfiles import VENDOR, write_vendors
from wholeestimate import fill_whole_estimate
from workfiles import (canned_line, followup, make_canned_labor, make_canned_notes, make_checklist, make_followups,
                       make_orders, order_tag, sublet_line)
from workorderfiles import USAGE_FILE, USAGE_LENGTH, usage_record

HOSTILE = {
    "signs": "<b>&A</b>%s''\"\x01\x1b[*]`\\' OR '1'='1 {what} <img src=x> && &&B %n%1$n \x07\x7f {0} &amp; &lt;i&gt;",
    "statement": "'); DROP TABLE Labors; --' OR ''='' \";DELETE FROM Parts; /* ` ? :a @b $1 %_* [Labors]",
    "paths": "../..\\C:\\x $(id) `id`;cat /etc/passwd|sh %PATH% ${HOME} ~ \"a b\" 'c' //server/share & con nul",
    "controls": "".join(chr(each) for each in range(1, 0x20)) * 3,
    "behind a NUL": "one\0two\0<b>three</b>" * 5,
    "lines": "one\ttwo\r\nthree\rfour\n",
    "upper": bytes(range(0x80, 0x100)).decode("latin-1"),
    "long": "W" * 400,
}
BEGINNING = {"signs": "<b>&A</b>", "statement": "'); DROP TABLE", "paths": "../..\\C:\\x", "controls": "\x01\x02\x03",
             "behind a NUL": "one", "lines": "one", "upper": "\u20ac", "long": "WWWW"}
WORKORDERS = (4001, 4002)
HALF_DONE = 4711  # a work order that ended behind the use of its part
JOURNAL = "AJ929000.JNL"


def raw(text):
    """Each character a byte, as another program may have left it."""
    return bytes(ord(each) if ord(each) < 0x100 else 0x3f for each in text)


def flat(text):
    """Without what parts the fields and lines of a text file."""
    line = raw(text.split("\0")[0]).translate(bytes.maketrans(b"\r\n\t", b"   "))
    return line.decode("cp1252", "replace").encode("cp1252", "replace").decode("cp1252")


def as_characters(data):
    """In the program's page, a line end as one character."""
    characters = "".join(bytes([byte]).decode("cp1252", "ignore") or chr(byte) for byte in data)
    return characters.replace("\r\n", "\n").replace("\r", "\n")


def as_shown(data):
    """A field of a record as the text that it is: up to its first NUL, in the program's page, a line end as one."""
    return as_characters(data.split(b"\0")[0]).strip(" ")


def fill(records, length, layout, text):
    """Every text of every record, as long as its field."""
    for start in range(0, len(records), length):
        record = records[start:start + length]
        texts = {name: raw(text) for name, (_, _, kind) in layout.items() if kind == "text"}
        records[start:start + length] = put(record, layout, **texts)


def fill_table(database, table, text, where="", kept=("Taxable",)):
    columns = [name for _, name, kind, *_ in database.execute(f"PRAGMA table_info({table})")
               if kind.lower().startswith(("text", "longtext")) and name not in kept]
    if columns:
        database.execute(f"UPDATE {table} SET " + ", ".join(f"{name} = ?" for name in columns) + where,
                         [raw(text).decode("cp1252", "replace")] * len(columns))


def fill_databases(shop, text):
    with contextlib.closing(sqlite3.connect(shop.path("Lantos.mdb"))) as database, database:
        database.create_function("date", -1, lambda *_: "2003-09-30")
        for table in ("Estimates", "Labors", "Sublets", "Waste", "Notes", "SpecialDays"):
            fill_table(database, table, text)
        fill_table(database, "Parts", text, kept=("PartNumber",))
        fill_table(database, "Parts", text, " WHERE PartNumber = 'GONE-7'")
        fill_table(database, "Checklist", text, " WHERE RecId = 1")
    for table, statement in (("EmpPRInfo", EMP_PR_INFO), ("EmpPRHist", EMP_PR_HIST)):
        korvel(shop, f"DROP TABLE {table}")
        korvel(shop, statement)
    korvel(shop, "INSERT INTO RepairCodes VALUES (?, ?)", *[raw(text).decode("cp1252", "replace")] * 2)
    korvel(shop, "INSERT INTO EmpPRHist (EmployeeNumber, PayrollDate) VALUES (4, ?)", "09/12/2003")


def make_stock(shop, text):
    others = {name: raw(text) for name in ("AltNumber1", "AltNumber2", "AltNumber3", "AltNumber4", "Comment",
                                           "Department", "Manufacturer")}
    prices = (100, 120, 150, 165)
    make_inventory(shop.directory, [part("OIL-1", raw(text), prices, 40, Location=raw(text), **others),
                                    {**kit_part("TUNEUP", raw(text), prices=prices), **others},
                                    part(raw(text)[:20], raw(text), prices, 3, UsageLink=2 * USAGE_LENGTH)])
    make_kits(shop.directory, {"TUNEUP": ["OIL-1(4)", raw(text)[:38], "OIL-1"], raw(text)[:20]: [raw(text)[:38]]})
    make_names(shop.directory, [flat(text)[:20], "KITS"], [flat(text)[:20]])


def number_of(text):
    """Of the part whose number is the text."""
    return raw(text)[:20].split(b"\0")[0]


def make_usage(shop, text):
    """Of work orders that nobody has any more, and of the one that ended in the middle."""
    shop.path(USAGE_FILE).write_bytes(b"".join((
        usage_record(b"OIL-1", 4003, "2003-09-26", raw(text), 2, 100, 165),
        usage_record(raw(text), 4004, "2003-09-26", raw(text), 2, 100, 165),
        usage_record(number_of(text), HALF_DONE, "2003-09-29", raw(text), 1, 100, 165))))


def make_journal(shop, text):
    """Of an estimate that is gone, begun on a computer whose name is the text."""
    write_journal(shop, JOURNAL, b"estimate 899 %d 2003-09-29T08:15:00 " % HALF_DONE + in_one_line(raw(text)),
                  b"number", b"part 1 4 4 -1 " + in_one_line(number_of(text)))


def half_done(text):
    """What a start asks about it."""
    return (f"The conversion of estimate # 000899 to work order # {HALF_DONE:06} was not finished.\nIt was begun on "
            f"{as_characters(raw(text))} at 2003-09-29T08:15:00. What was done:\n- the number was taken\n- the use of "
            f"{as_characters(number_of(text))} was noted\n\nClick Yes to finish it, No to undo it, or Cancel to decide "
            "later.")


def make_history(shop, text):
    """Two work orders of the vehicle: one of one-line texts, one as the texts are. They are found by "PLAIN"."""
    history = History(raw(text)[:20])
    line = flat(text)[:60]
    names = {"last": raw(text), "first": raw(text)}
    fields = history._fields
    history._fields = lambda *args, **more: {**fields(*args, **{**more, "last": "", "first": ""}),
                                             "CustomerName": b"PLAIN," + raw(text), "LicenseNumber": raw(text)}
    for number, of_order in zip(WORKORDERS, (line, raw(text).decode("cp1252", "replace").replace("\ufffd", "?"))):
        whole = order_text(number, last=of_order, first=of_order, labor=[[of_order, "HOSES"]], notes=[[of_order]])
        history.add_active(number, opened="2003-09-29", text=whole, **names)
    history.write(shop)


def make_texts(shop, text):
    line = flat(text)
    make_checklist(shop, ["[Brakes]", line[:60], "Discs"])
    make_canned_labor(shop, [canned_line(100, 6500, 6500, line[:60])])
    make_canned_notes(shop, [[line[:60]]])
    make_followups(shop, [followup(8, line[:200])])
    # The other program's own names of files may be anything.
    make_orders(shop, [(order_tag(3101, line[:32], line[:11], file="A.TQP"),
                        "[Sublets]\r\n" + sublet_line(line[:30], line[:10], "189.00", "245.70", line[:60]) + "\r\n"),
                       (order_tag(3102, line[:32], line[:11], file=line[:15]), None)])
    shop.path("disclaim.txt").write_bytes(raw(text) + b"\r\n")


def hostile_shop(shop, text):
    fill_whole_estimate(shop)
    shop.add_employee(4, "Dan Ortiz")
    shop.add_make("Ford", ["Focus"])
    shop.add_special_day("2003-10-02", 30, "short")
    for name, (_, width, kind) in SYSTEM.items():
        if kind == "text":
            shop.system[name] = raw(text)[:width]
    shop.system["surcharge_is_sublet"] = ord("N")
    fill(shop.customers, CUSTOMER_LENGTH, CUSTOMER, text)
    fill(shop.vehicles, VEHICLE_LENGTH, VEHICLE, text)
    fill(shop.employees, EMPLOYEE_LENGTH, EMPLOYEE, text)
    fill(shop.makes, MAKE_LENGTH, MAKE, text)
    shop.write()
    write_chain(shop, 4, [datetime.date(2003, 9, 12)], Hours=4000, Gross=60000)
    write_vendors(shop, {name: raw(text) for name in VENDOR}, {"VendorName": "Plain"})
    make_stock(shop, text)
    make_usage(shop, text)
    make_journal(shop, text)
    make_history(shop, text)
    make_texts(shop, text)
    fill_databases(shop, text)
    shop.write_profile({"Options": {"RepairCodeOption": "True"},
                        "Lantos Defaults": {"BackupCmdWait": "True", "Note": flat(text)[:60]}})


def left(shop):
    """What another copy of the program would find: files by name, and all rows of the databases."""
    files = {}
    for path in sorted(shop.directory.iterdir()):
        if path.suffix == ".mdb":
            with contextlib.closing(sqlite3.connect(path)) as database:
                tables = [name for (name,) in database.execute("SELECT name FROM sqlite_master WHERE type = 'table'")]
                files.update({f"{path.name}:{name}": database.execute(f"SELECT * FROM {name}").fetchall()
                              for name in tables})
        elif path.is_file() and not path.name.startswith(("LN", "AU")):
            files[path.name] = path.read_bytes()
    return files

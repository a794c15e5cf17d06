"""A Jet database of before becomes the shop's own: by the commands of mdbtools from files that jetfiles.py writes; and, so
that they can tell anything, by a script that stands in for them and tells tables as they do: mdb-export's heading without
quotes, texts and times in them, nothing where a value is null."""

import datetime
import json
import os
import sqlite3
import subprocess
import sys

import pytest

from caretakersteps import caretaker, stopped
from driver import program_path
from jetfiles import DATE, DOUBLE, INTEGER, LONG, MEMO, TEXT, write_jet
from startsteps import SHOP_LEFT, SHOP_NOT_RUN, SHOP_WRONG_USE, START_FAILED

JET = b"\0\1\0\0Standard Jet DB\0\1" + bytes(4096)
SUBLET = "EstimateNumber,{}Number,VendorName,VendorInvoice,Cost,Price,Desc1,Desc2,Desc3,Desc4,Taxable\n"
TABLES = {
    "Estimates": "EstimateNumber,CustomerNumber,VehicleLink,SchedDate,StartDate,StopDate,Status,Mechanic,TotalPrice,Comments,"
                 "CreateDate,VehYear,VehMake,VehModel,VehVIN,VehLic,VehDate,VehMileage,VehEng,VehTrans\n"
                 '900,7,-1,"2003-09-30 00:00:00",,,1,0,97.5,"Says ""it"" squeaks,\r\nca. 5 \u20ac","2003-09-29 00:00:00","1999",'
                 '"Ford","Focus"," "," "," "," "," "," "\n',
    "Labors": "EstimateNumber,LaborNumber,Description,LaborHours,LaborRate,LaborTotal,Mechanic\n"
              '900,1,"Brakes",150,6500,9750,0\n900,2,,50,6500,3250,0\n',
    "Parts": "EstimateNumber,PartNumber,PartDesc,Quantity,PartPrice,PartTotal,PartCost,PartList\n"
             '900,"0012","Pad",2,1250,2500,800,1500\n',
    "Notes": "EstimateNumber,NoteNumber,Desc1,Desc2,Desc3,Desc4,Desc5,Desc6,Desc7,Desc8\n",
    "Sublets": SUBLET.format("Sublet"),
    "Waste": SUBLET.format("Waste"),
    "Checklist": 'EstimateNumber,RecId,ChecklistData\n900,17,"Oil"\n',
    "StandardHours": "RecNum,SunHours,MonHours,TueHours,WedHours,ThuHours,FriHours,SatHours,FudgeFactor\n"
                     "1,0,16,16,16,16,16,0,10\n",
    "SpecialDays": 'SpecialDate,SpecialHours,SpecialDesc\n"2003-12-25 00:00:00",0,"Christmas"\n',
}
STAND_IN = """#!{python}
import json, pathlib, sys
told = json.loads(pathlib.Path({told!r}).read_text())
name = pathlib.Path(sys.argv[0]).name
sys.stderr.write(told["complaints"].get(name, ""))
if name in told["failing"]:
    sys.exit(3)
if name == "mdb-tables":
    assert sys.argv[1] == "-1", sys.argv
    print("\\n".join(told["tables"]))
elif name == "mdb-count":
    table = told["tables"][sys.argv[2]]
    print(told["counts"].get(sys.argv[2], table["rows"]))
else:
    assert sys.argv[1:7] == ["-D", "%Y-%m-%d", "-T", "%Y-%m-%d %H:%M:%S", "-b", "strip"], sys.argv
    sys.stdout.buffer.write(told["tables"][sys.argv[8]]["text"].encode("utf-8", "surrogateescape"))
"""


class OldShop:
    """A shop with a Jet database, and what mdbtools would tell of it."""

    def __init__(self, place):
        self.directory = place / "shop"
        self.bin = place / "bin"
        self.told = place / "told.json"
        self.tables = dict(TABLES)
        self.rows = {}  # by table, where it isn't one a line
        self.counts, self.complaints, self.failing = {}, {}, []
        assert caretaker("new", self.directory).returncode == 0
        self.database = self.directory / "Lantos.mdb"
        self.database.write_bytes(JET)
        self.bin.mkdir()
        for name in ("mdb-tables", "mdb-count", "mdb-export"):
            (self.bin / name).write_text(STAND_IN.format(python=sys.executable, told=str(self.told)))
            (self.bin / name).chmod(0o755)

    def count(self, table):
        return max(self.tables[table].replace("\r\n", "").count("\n") - 1, 0)

    def run(self, *words, path=None):
        tables = {name: {"text": text, "rows": self.count(name)} for name, text in self.tables.items()}
        self.told.write_text(json.dumps({"tables": tables, "counts": self.counts, "complaints": self.complaints,
                                         "failing": self.failing}))
        program = os.path.join(os.path.dirname(program_path()), "lantos-shop")
        return subprocess.run([program, "import", self.directory, *words], capture_output=True, text=True,
                              env={**os.environ, "PATH": str(self.bin if path is None else path)})

    def expect_refused(self, words, *arguments, **settings):
        before = {path.name: path.read_bytes() for path in self.directory.iterdir()}
        done = self.run(*arguments, **settings)
        assert done.returncode == SHOP_NOT_RUN, done.stdout
        assert words in done.stderr
        assert done.stdout == ""
        assert {path.name: path.read_bytes() for path in self.directory.iterdir()} == before

    def rows_of(self, statement):
        with sqlite3.connect(self.database) as database:
            return database.execute(statement).fetchall()


@pytest.fixture
def old(tmp_path):
    place = tmp_path / "old"
    place.mkdir()
    return OldShop(place)


def test_all_tables_come_over_and_the_shop_is_sound(old):
    done = old.run()
    assert (done.returncode, done.stderr) == (0, "")
    assert "Labors: 2 rows\n" in done.stdout
    assert "Took over 7 rows of 9 tables; all were counted and compared.\n" in done.stdout
    [kept] = old.directory.glob("Lantos-until-*.mdb")
    assert f'The old database is "{kept.name}" from here on.\n' in done.stdout
    assert kept.read_bytes() == JET
    assert old.rows_of("select SchedDate, StartDate, Comments, TotalPrice from Estimates") == [
        ("2003-09-30", None, 'Says "it" squeaks,\r\nca. 5 \u20ac', 97.5)]
    assert old.rows_of("select LaborNumber, Description from Labors order by 1") == [(1, "Brakes"), (2, None)]
    assert old.rows_of("select PartNumber from Parts") == [("0012",)]
    listed = caretaker("export", old.directory, "labor", "--csv").stdout
    assert '900,1,"Brakes",1.50,65.00,97.50,0' in listed
    checked = caretaker("check", old.directory, "--json")
    assert {found["kind"] for found in json.loads(checked.stdout)["findings"]} <= {"counters", "estimates"}


def test_it_is_told_as_json(old):
    old.tables["Mileage"] = "A\n1\n"
    old.tables["Parts"] = old.tables["Parts"].replace('"Pad"', '"' + "x" * 39 + '"')
    told = json.loads(old.run("--json").stdout)
    assert told["rows"]["Labors"] == 2 and told["upgraded"] is False and told["complaints"] == []
    assert told["left_behind"] == ["Mileage"] and told["long_texts"] == {"Parts.PartDesc": 1}
    assert (old.directory / told["kept"]).read_bytes() == JET


def test_an_older_shape_is_upgraded(old):
    del old.tables["Checklist"]
    heading, row = "EstimateNumber,PartNumber,PartDesc,Quantity,PartPrice,PartTotal\n", '900,"0012","Pad",2,1250,2500\n'
    old.tables["Parts"] = heading + row
    done = old.run()
    assert done.returncode == 0 and "An older program made the database" in done.stdout
    assert old.rows_of("select PartCost, PartList from Parts") == [(0, 0)]
    assert old.rows_of("select count(*) from Checklist") == [(0,)]


def test_what_the_tools_complain_of_is_told(old):
    old.complaints["mdb-export"] = "page 17 looks odd\n"
    done = old.run()
    assert done.returncode == SHOP_LEFT
    assert done.stdout.count("mdb-export says: page 17 looks odd\n") == 1
    assert old.rows_of("select count(*) from Labors") == [(2,)]


def test_without_mdbtools_it_says_what_to_install(old, tmp_path):
    (tmp_path / "empty").mkdir()
    old.expect_refused("There is no mdb-tables, which reads Jet databases. Nothing was changed.\n\nInstall mdbtools first",
                       path=tmp_path / "empty")


@pytest.mark.parametrize("name", ["mdb-tables", "mdb-count", "mdb-export"])
def test_it_is_stopped_while_a_tool_is_silent(old, name):
    """The tool goes with it."""
    old.run(path="/nowhere")  # what the others tell
    (old.bin / name).write_text("#!/bin/sh\nexec /usr/bin/sleep 3600.25\n")
    before = {path.name: path.read_bytes() for path in old.directory.iterdir()}
    done = stopped("import", old.directory, env={**os.environ, "PATH": str(old.bin)})
    assert done.returncode == SHOP_NOT_RUN
    assert done.stderr.startswith("lantos-shop: Stopped, as it was asked to.")
    assert {path.name: path.read_bytes() for path in old.directory.iterdir()} == before


@pytest.mark.parametrize("name", ["mdb-tables", "mdb-count", "mdb-export"])
def test_a_tool_that_fails_ends_it(old, name):
    old.failing.append(name)
    old.complaints[name] = "not a database\n"
    old.expect_refused(f"can't be read. {name} ended with 3: not a database. Nothing was changed.")


@pytest.mark.parametrize("table, text, words", [
    ("Labors", TABLES["Labors"].replace("Brakes", 'Bra"kes'), "the row 1 has something behind the quote"),
    ("Labors", TABLES["Labors"][:-20] + '"', "tells of the table \"Labors\" can't be understood: the row 2"),
    ("Labors", TABLES["Labors"].replace("900,2,", "900,2"), "the row 2 has 6 values where there are 7 columns"),
    ("Labors", "\x7fELF\n", 'has a column "\x7fELF", which isn\'t the program\'s'),
    ("Labors", "", 'Of the table "Labors" nothing was told'),
    ("Notes", TABLES["Notes"].replace("Desc8", "Desc9"), "--leave \"Notes.Desc9\""),
    ("Parts", TABLES["Parts"].replace("1250", "dear"), 'its "PartPrice" holds "dear", which isn\'t a number'),
    ("Parts", TABLES["Parts"] + TABLES["Parts"].splitlines()[1] + "\n", 'there are two rows with "EstimateNumber" 900'),
    ("SpecialDays", TABLES["SpecialDays"].replace("2003-12-25", "12/25/03"), "which is no date"),
    ("Labors", TABLES["Labors"].replace("Brakes", "Br\udce4kes"), "has bytes in it that are no text"),
    ("Labors", TABLES["Labors"].replace("Brakes", "x" * 200000), "so long that mdb-export cuts it"),
], ids=["quote", "cut", "short", "noise", "nothing", "column", "type", "twice", "date", "bytes", "long"])
def test_what_can_not_be_understood_leaves_all_as_it_is(old, table, text, words):
    old.tables[table] = text
    old.expect_refused(words)


def test_a_column_nobody_needs_is_left_when_it_is_named(old):
    lines = old.tables["Labors"].splitlines()
    old.tables["Labors"] = "".join(f"{line},{extra}\n" for line, extra in zip(lines, ("Extra", "1", "2")))
    old.expect_refused('--leave "Labors.Extra"')
    done = old.run("--leave", "Labors.Extra")
    assert done.returncode == 0 and '"Labors.Extra" isn\'t the program\'s; it stays in the old database.' in done.stdout


def test_rows_that_got_lost_are_missed(old):
    old.counts["Labors"] = 3
    old.expect_refused('The table "Labors" has 3 rows by its own count, and 2 could be read.')
    old.counts["Labors"] = "many"
    old.expect_refused('mdb-count says "many"')


def test_it_is_not_done_twice(old):
    assert old.run().returncode == 0
    old.expect_refused("it is this program's own already")


def test_nobody_may_work_meanwhile(old, start, shop):
    shop.write()
    copy = start(shop)
    copy.expect_form("frmMain")
    shop.path("Lantos.mdb").rename(shop.path("Other.mdb"))
    shop.path("Lantos.mdb").write_bytes(JET)
    old.directory = shop.directory
    old.expect_refused("Somebody works with Lantos in this directory")


def test_what_no_import_can_be_of_is_said(tmp_path):
    for words, code in (((), SHOP_WRONG_USE), ((tmp_path / "none",), SHOP_NOT_RUN)):
        assert caretaker("import", *words).returncode == code


def test_the_command_of_a_bare_machine_refuses_what_only_looks_like_a_jet_database(old):
    old.expect_refused("can't be read. mdb-tables ended with 1", path="/usr/bin")


def test_the_program_names_the_import(start, shop):
    shop.write()
    shop.path("Lantos.mdb").write_bytes(JET)
    copy = start(shop)
    assert 'brought over by "lantos-shop import"' in copy.expect_box(icon="critical", buttons=["OK"])["text"]
    copy.press("OK")
    copy.expect_end(START_FAILED)


# The commands themselves, on a Jet database.

REAL = "/usr/bin"
DAY = datetime.date(2003, 9, 30)


def longs(*names):
    return [(name, LONG, 4) for name in names]


def texts(**widths):
    return [(name, TEXT, 2 * width) for name, width in widths.items()]


def sublets(number):
    return longs("EstimateNumber", number) + texts(VendorName=32, VendorInvoice=11) + longs("Cost", "Price") + texts(
        Desc1=65, Desc2=65, Desc3=65, Desc4=65, Taxable=3)


def jet_tables(labor_lines):
    vehicle = ("1999", "Ford", "Focus", " ", "AB \u00e4", " ", " ", " ", " ")
    return {
        "Estimates": (longs("EstimateNumber", "CustomerNumber", "VehicleLink") + [
            ("SchedDate", DATE, 8), ("StartDate", DATE, 8), ("StopDate", DATE, 8), ("Status", INTEGER, 2), ("Mechanic", LONG, 4),
            ("TotalPrice", DOUBLE, 8), ("Comments", TEXT, 510), ("CreateDate", DATE, 8)] + texts(
                VehYear=5, VehMake=20, VehModel=20, VehVIN=20, VehLic=10, VehDate=10, VehMileage=7, VehEng=12, VehTrans=12), [
            (901, 0, -1, None, None, None, 9, 0, 0.0, None, DAY, *vehicle),
            (900, 7, -1, DAY, datetime.datetime(2003, 9, 30, 17, 45), datetime.date(1899, 12, 30), -1, 0, 97.1,
             'Says "it" squeaks,\r\nca. 5 \u20ac', DAY, *vehicle)]),
        "Labors": (longs("EstimateNumber", "LaborNumber") + [("Description", MEMO, 0)] + longs(
            "LaborHours", "LaborRate", "LaborTotal", "Mechanic"), [
            (900, line, f"line {line}, " + "\u00fc" * 60, 150, 6500, -2147483648 if line == 1 else 9750, 0)
            for line in range(labor_lines, 0, -1)]),
        "Parts": (longs("EstimateNumber") + texts(PartNumber=20, PartDesc=38) + longs(
            "Quantity", "PartPrice", "PartTotal", "PartCost", "PartList"), [(900, "0012", "", 2, 1250, 2500, None, 1500)]),
        "Notes": (longs("EstimateNumber", "NoteNumber") + texts(**{f"Desc{i}": 65 for i in range(1, 9)}), []),
        "Sublets": (sublets("SubletNumber"), []),
        "Waste": (sublets("WasteNumber"), []),
        "Checklist": (longs("EstimateNumber", "RecId") + texts(ChecklistData=255), [(900, 17, "Oil")]),
        "StandardHours": (longs("RecNum") + [(f"{day}Hours", DOUBLE, 8) for day in (
            "Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat")] + longs("FudgeFactor"), [(1, 0, 16, 16.5, 16, 16, 16, 0, 10)]),
        "SpecialDays": ([("SpecialDate", DATE, 8), ("SpecialHours", DOUBLE, 8)] + texts(SpecialDesc=50), [
            (datetime.date(2003, 12, 25), 0, "Christmas")]),
    }


def test_mdbtools_reads_a_jet_database_and_the_shop_is_sound(old):
    tables = jet_tables(100)
    write_jet(old.database, tables)
    jet = old.database.read_bytes()
    done = old.run(path=REAL)
    assert (done.returncode, done.stderr) == (0, "")
    assert "Labors: 100 rows\n" in done.stdout
    [kept] = old.directory.glob("Lantos-until-*.mdb")
    assert kept.read_bytes() == jet
    assert old.rows_of("select EstimateNumber, SchedDate, StartDate, StopDate, Status, TotalPrice, Comments, VehLic "
                       "from Estimates order by 1") == [
        (900, "2003-09-30", "2003-09-30", "1899-12-30", -1, 97.1, 'Says "it" squeaks,\r\nca. 5 \u20ac', "AB \u00e4"),
        (901, None, None, None, 9, 0, None, "AB \u00e4")]
    assert old.rows_of("select * from Labors order by LaborNumber") == sorted(tables["Labors"][1], key=lambda row: row[1])
    assert old.rows_of("select * from Parts") == [(900, "0012", None, 2, 1250, 2500, None, 1500)]
    assert old.rows_of("select TueHours from StandardHours") == [(16.5,)]
    assert old.rows_of("select * from SpecialDays") == [("2003-12-25", 0, "Christmas")]
    assert {found["kind"] for found in json.loads(caretaker("check", old.directory, "--json").stdout)["findings"]} <= {
        "counters", "estimates"}


def test_mdbtools_reads_an_older_shape(old):
    tables = jet_tables(2)
    for name in ("Waste", "Checklist"):
        del tables[name]
    columns, rows = tables["Parts"]
    tables["Parts"] = (columns[:-2], [row[:-2] for row in rows])
    columns, rows = tables["Labors"]
    tables["Labors"] = ([(name, TEXT if kind == MEMO else kind, size or 510) for name, kind, size in columns], rows)
    write_jet(old.database, tables)
    done = old.run(path=REAL)
    assert done.returncode == 0 and "An older program made the database" in done.stdout
    assert old.rows_of("select PartCost, PartList from Parts") == [(0, 0)]
    assert old.rows_of("select count(*) from Waste") == [(0,)]


def test_a_date_that_mdbtools_can_not_tell_is_refused(old):
    tables = jet_tables(1)
    tables["SpecialDays"][1].append((datetime.date(1899, 12, 29), 0, ""))
    write_jet(old.database, tables)
    old.expect_refused('its "SpecialDate" holds "1900-01-00 00:00:00", which is no date', path=REAL)


def test_a_jet_database_whose_pages_got_lost_is_refused(old):
    write_jet(old.database, jet_tables(100))
    jet = bytearray(old.database.read_bytes())
    lost = jet.index("line 50, ".encode("utf-16-le")) // 4096 * 4096
    jet[lost:lost + 4096] = bytes(4096)
    old.database.write_bytes(jet)
    old.expect_refused('The table "Labors" has 100 rows by its own count, and ', path=REAL)

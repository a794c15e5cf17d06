"""What the rows of a shop must be by its trail: the rows of a first look, and each change since made on them anew, by what the
trail says stood before and behind it."""

import contextlib
import json
import sqlite3

from shopfiles import TABLES

TABLE_OF = {
    "Estimates": ("NewEstimate", "AddEstimateRow", "SetCustomer", "SetVehicle", "SetVehicleNew", "SetComments", "SetStatus",
                  "CloneEstimate"),
    "Labors": ("AddLabor", "DeleteLabor", "CloneLabors"),
    "Parts": ("AddPartRow", "UpdatePartRow", "DeletePart", "CloneParts"),
    "Sublets": ("AddSublet", "DeleteSublet", "CloneSublets", "SetSubletSurcharge", "AddSubletSurcharge"),
    "Waste": ("AddWaste", "DeleteWaste", "CloneWaste", "SetWasteSurcharge", "AddWasteSurcharge"),
    "Notes": ("AddNote", "DeleteNote", "CloneNotes"),
    "Checklist": ("AddChecklistRow", "DeleteChecklist"),
    "StandardHours": ("UpdateStdHours",),
    "SpecialDays": ("SaveSpecialDay", "DeleteSpecialDay"),
}
COMMANDS = {command: table for table, commands in TABLE_OF.items() for command in commands}
OF_NO_ESTIMATE = ("StandardHours", "SpecialDays")
# Filled by the database itself.
NOT_TOLD = {"Checklist": "RecId", "Estimates": "CreateDate"}


class TrailReplay:
    """Look at a shop first, change it, and expect agreement as often as wanted."""

    def __init__(self, shop):
        self.shop = shop
        self.told = 0  # the number of the last change that was made anew
        self.commands = set()
        self.rows = sqlite3.connect(":memory:")
        self.rows.executescript(TABLES)
        for table in TABLE_OF:
            for row in shop.query(f"SELECT * FROM {table}"):
                self._add(table, row)

    def follow(self):
        """Makes what was changed since anew. Returns how many changes that were."""
        entries = self.shop.query("SELECT TrailNumber AS Number, Command AS Command, EstimateNumber AS Estimate, "
                                  "RowsBefore AS Before, RowsAfter AS After FROM Trail WHERE TrailNumber > ? "
                                  "ORDER BY TrailNumber", self.told)
        for entry in entries:
            self._make(entry)
            self.commands.add(entry["Command"])
            self.told = entry["Number"]
        return len(entries)

    def expect_agreement(self):
        """Follows, and compares all rows."""
        changes = self.follow()
        for table in TABLE_OF:
            with contextlib.closing(self.rows.cursor()) as cursor:
                cursor.row_factory = sqlite3.Row
                told = [dict(row) for row in cursor.execute(f"SELECT * FROM {table}")]
            stored = self.shop.query(f"SELECT * FROM {table}")
            assert compared(table, stored) == compared(table, told), f"{table}: what is stored, and what the trail says"
        return changes

    def _make(self, entry):
        table = COMMANDS[entry["Command"]]
        before, after = (json.loads(entry[side] or "[]") for side in ("Before", "After"))
        for row in (*before, *after):
            row.pop("CopiedFrom", None)
            if table not in OF_NO_ESTIMATE:
                row["EstimateNumber"] = entry["Estimate"]
        if before and len(before) == len(after):
            for old, new in zip(before, after):
                self._change(entry, table, old, new)
            return
        for row in before:
            self._take(entry, table, row)
        for row in after:
            self._add(table, row)

    def _add(self, table, row):
        places = ", ".join("?" * len(row))
        self.rows.execute(f"INSERT INTO {table} ({', '.join(row)}) VALUES ({places})", list(row.values()))

    def _take(self, entry, table, row):
        told = {name: value for name, value in row.items() if name != NOT_TOLD.get(table)}
        where, values = named(told)
        self._expect_one(entry, f"DELETE FROM {table} WHERE rowid = (SELECT rowid FROM {table} WHERE {where} LIMIT 1)", values)

    def _change(self, entry, table, old, new):
        columns = [*new, *(name for name in old if name not in new)]
        where, values = named({name: old.get(name) for name in columns})
        places = ", ".join(f"{name} = ?" for name in columns)
        self._expect_one(entry, f"UPDATE {table} SET {places} WHERE {where}", [new.get(name) for name in columns] + values)

    def _expect_one(self, entry, statement, values):
        changed = self.rows.execute(statement, values).rowcount
        assert changed == 1, f"the trail tells of {changed} rows that weren't so before: {entry}"


def named(row):
    """A condition that holds for rows with these values, and its values."""
    return " AND ".join(f"{name} IS ?" for name in row), list(row.values())


def compared(table, rows):
    """Without what the database fills by itself, in an order of their own."""
    told = [{name: value for name, value in row.items() if name != NOT_TOLD.get(table)} for row in rows]
    return sorted((tuple(sorted(row.items())) for row in told), key=repr)

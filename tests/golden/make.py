#!/usr/bin/env python3
"""Makes the golden files of this directory: known shop files, byte for byte.

Knows the layouts from tables of its own (goldenfiles/layouts.py), independent of the program's sources. The tables are
also left in layouts.txt (file, field, offset, width, kind), against which the unit tests hold the program's own. Run it
in this directory; the files it makes are kept under version control.
"""

from goldenfiles.canned import CANNED_NOTES, CHECKLIST, make_canned_labor
from goldenfiles.layouts import (ACTIVE_WO_TAG, ARCHIVED_WO_TAG, CUSTOMER, CUSTOMER_TAG, EMPLOYEE, FOLLOWUP, INVENTORY,
                                 INVENTORY_TAG, KIT, LABOR_KIT, LAYOUTS, MAKE_MODEL, PASSWORDS, PAYROLL, PO_TAG, SYSTEM, VEHICLE, VENDOR)
from goldenfiles.people import (make_customers, make_employees, make_followups, make_makes, make_passwords, make_payroll,
                                make_system, make_vehicles)
from goldenfiles.stock import (make_inventory, make_kits, make_names, make_orders, make_updates, make_vendors)
from goldenfiles.workorders import make_workorders


def main():
    tags, masters = make_customers()
    part_tags, part_masters = make_inventory()
    for layout, content in ((SYSTEM, make_system()), (CUSTOMER_TAG, tags), (CUSTOMER, masters),
                            (VEHICLE, make_vehicles()), (MAKE_MODEL, make_makes()), (EMPLOYEE, make_employees()),
                            (PASSWORDS, make_passwords()), (INVENTORY_TAG, part_tags), (INVENTORY, part_masters),
                            (KIT, make_kits()), (FOLLOWUP, make_followups()), (PO_TAG, make_orders()[0]),
                            (LABOR_KIT, make_canned_labor()[1]), (ACTIVE_WO_TAG, make_workorders()[0]),
                            (ARCHIVED_WO_TAG, make_workorders()[1]), (VENDOR, make_vendors()),
                            (PAYROLL, make_payroll())):
        assert len(content) % layout[1] == 0
        with open(layout[0], "wb") as out:
            out.write(content)
    for name, content in (("TQDEPART.DAT", make_names("FILTERS", "ELECTRIC", "CORES", "KITS")),
                          ("TQMANUFA.DAT", make_names("AC DELCO", "B\u00f6sch", "A NAME OF TWENTY CHR")),
                          ("AU9301.$$$", make_updates()), ("P0003101.TQP", make_orders()[1]), ("TQCANLAB.DAT", make_canned_labor()[0]),
                          ("TQCANNOT.DAT", CANNED_NOTES), ("CHECKLST.TXT", CHECKLIST),
                          ("W0004711.tqa", make_workorders()[2]), ("TQINVOIC.DAT", make_workorders()[3])):
        with open(name, "wb") as out:
            out.write(content)
    with open("layouts.txt", "w", encoding="ascii") as out:
        for name, _, fields in LAYOUTS:
            for field, (offset, width, kind) in fields.items():
                out.write("%s %s %d %d %s\n" % (name, field, offset, width, kind))


if __name__ == "__main__":
    main()

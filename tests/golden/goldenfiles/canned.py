"""Canned labor, canned notes and the check list."""

from .layouts import LABOR_KIT, record


def make_canned_labor():
    """A code of five characters, one of three, and a job of eight lines."""
    jobs = ((50, 6500, 3250, ("LOF  OIL AND FILTER", "CHECK FLUIDS")), (120, 0, 9900, ("RADIARECHARGE",)),
            (-10, 6500, -650, ("EIGHTONE", "2", "3", "4", "5", "6", "7", "8")))
    text = "".join(f"{hours:<12}{rate:<12}{total:>12}" + "\t".join(lines) + "\r\n" for hours, rate, total, lines in jobs)
    kits = record(LABOR_KIT, Code="LOF", Kit="TUNEUP") + record(LABOR_KIT, Code="RADIA", Kit="None")
    return text.encode("cp1252"), kits


CANNED_NOTES = b"Customer waits\r\nCall before work\tleave word\t3\t4\t5\t6\t7\t8\r\n\r\nK\xe4se\r\n"
CHECKLIST = b"Loose item\r\n[Engine]\r\n  Oil, the stick \r\n\r\nBelts\r\n[Brakes]\r\nPads\r\n"

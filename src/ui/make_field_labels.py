"""Writes FieldLabels.inc: the labels that the designs of the forms have for fields, by form and control.

Run it after a label of a design was changed; a test of the windows holds the table to the designs.
"""

import pathlib
import re
import xml.etree.ElementTree as xml

FOLDER = pathlib.Path(__file__).resolve().parent


def rows():
    for design in sorted((FOLDER / "qt/forms").glob("*.ui")):
        for label in xml.parse(design).getroot().iter("widget"):
            buddy = label.find("property[@name='buddy']/cstring")
            text = label.find("property[@name='text']/string")
            # What isn't only there for the eye is a control of the program.
            if buddy is None or text is None or not label.get("name").startswith("static_"):
                continue
            control = re.sub(r"_(\d+)$", r"(\1)", buddy.text)
            yield f'{{"{design.stem}", "{control}", "{text.text}"}},\n'


(FOLDER / "FieldLabels.inc").write_text("".join(rows()), encoding="utf-8")

"""Jet 4 databases of one's own making, as far as mdbtools reads them: a header, the table of objects, and for each table
its definition, the map of its pages, and pages of rows. No index, no property, no free space that anybody would look for."""

import struct
from datetime import datetime

PAGE = 4096
HEADER_KEY = bytes([0xC7, 0xDA, 0x39, 0x6B])
MASKED = (0x18, 128)  # bytes of the header that are written through a cipher with that key
BOOLEAN, INTEGER, LONG, DOUBLE, DATE, TEXT, OLE, MEMO = 0x01, 0x03, 0x04, 0x07, 0x08, 0x0A, 0x0B, 0x0C
FIXED = {BOOLEAN: 0, INTEGER: 2, LONG: 4, DOUBLE: 8, DATE: 8}  # lengths; all others have no fixed place in a row
PACKING = {INTEGER: "<h", LONG: "<i", DOUBLE: "<d", DATE: "<d"}
INLINE = 0x80000000  # a memo that lies in its row
TABLE = 1
OBJECTS = [("Id", LONG, 4), ("ParentId", LONG, 4), ("Name", TEXT, 510), ("Type", INTEGER, 2), ("Flags", LONG, 4),
           ("LvProp", OLE, 0)]
OBJECTS_PAGE = 2


def key_stream(key, count):
    state = list(range(256))
    j = 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    i = j = 0
    for _ in range(count):
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        yield state[(state[i] + state[j]) % 256]


def header():
    page = bytearray(PAGE)
    page[1] = 1
    page[4:20] = b"Standard Jet DB\0"
    page[0x14] = 1
    begin, count = MASKED
    page[begin:begin + count] = bytes(key_stream(HEADER_KEY, count))  # nothing but zeros behind it
    return bytes(page)


def bytes_of(kind, value):
    if kind == DATE:
        moment = value if isinstance(value, datetime) else datetime(value.year, value.month, value.day)
        passed = moment - datetime(1899, 12, 30)
        value = passed.days + passed.seconds / 86400
    if kind in PACKING:
        return struct.pack(PACKING[kind], value)
    text = value.encode("utf-16-le")
    return struct.pack("<Iii", len(text) | INLINE, 0, 0) + text if kind == MEMO else text


def row_bytes(columns, row):
    """The number of columns, what has a fixed place, what hasn't, where each of those begins, what is there at all."""
    fixed, places, data, mask = b"", [], b"", 0
    for number, ((_, kind, _), value) in enumerate(zip(columns, row)):
        mask |= (value is not None and value is not False) << number
        if kind in FIXED:
            fixed += b"" if kind == BOOLEAN else bytes(FIXED[kind]) if value is None else bytes_of(kind, value)
        else:
            places.append(len(data))
            data += b"" if value is None else bytes_of(kind, value)
    begin = 2 + len(fixed)
    ends = [len(data), *reversed(places)]
    return b"".join([struct.pack("<H", len(columns)), fixed, data, *(struct.pack("<H", begin + end) for end in ends),
                     struct.pack("<H", len(places)), mask.to_bytes((len(columns) + 7) // 8, "little")])


def rows_page(owner, rows):
    page = bytearray(PAGE)
    end = PAGE
    for number, row in enumerate(rows):
        end -= len(row)
        page[end:end + len(row)] = row
        struct.pack_into("<H", page, 14 + 2 * number, end)
    struct.pack_into("<BBHII", page, 0, 1, 1, end - 14 - 2 * len(rows), owner, 0)
    struct.pack_into("<H", page, 12, len(rows))
    return bytes(page)


def definition_page(columns, rows, map_page):
    page = bytearray(PAGE)
    variable = [name for name, kind, _ in columns if kind not in FIXED]
    page[0:2] = b"\2\1"
    struct.pack_into("<I", page, 16, rows)
    struct.pack_into("<BHHHII", page, 40, 0x4E, len(columns), len(variable), len(columns), 0, 0)
    struct.pack_into("<II", page, 55, map_page << 8, map_page << 8 | 1)
    fixed_at = 0
    for number, (name, kind, size) in enumerate(columns):
        at = 63 + 25 * number
        page[at] = kind
        place = variable.index(name) if name in variable else 0
        struct.pack_into("<HHH", page, at + 5, number, place, number)
        page[at + 15] = 2 | (kind in FIXED)
        struct.pack_into("<HH", page, at + 21, fixed_at, size)
        fixed_at += FIXED.get(kind, 0)
    at = 63 + 25 * len(columns)
    for name, _, _ in columns:
        text = name.encode("utf-16-le")
        page[at:at + 2 + len(text)] = struct.pack("<H", len(text)) + text
        at += 2 + len(text)
    struct.pack_into("<I", page, 8, at - 8)
    return bytes(page)


def pages_of(columns, rows, first):
    """A definition, the map of the pages behind it, and those pages."""
    parts, room = [[]], PAGE - 14
    for row in (row_bytes(columns, row) for row in rows):
        if len(row) + 2 > room:
            parts.append([])
            room = PAGE - 14
        parts[-1].append(row)
        room -= len(row) + 2
    bits = sum(1 << (first + 2 + i) for i in range(len(parts)))
    page_map = struct.pack("<BI", 0, 0) + bits.to_bytes(64, "little")
    maps = rows_page(0, [page_map, struct.pack("<BI", 0, 0) + bytes(64)])
    return [definition_page(columns, len(rows), first + 1), maps, *(rows_page(first, part) for part in parts)]


def write_jet(path, tables):
    """tables: by name, the columns (name, kind, size in bytes) and the rows, with None for a null."""
    objects = [(name, len(columns)) for name, (columns, _) in tables.items()]
    reserved = len(pages_of(OBJECTS, [(0, 0, name, TABLE, 0, None) for name, _ in objects], OBJECTS_PAGE))
    pages, listed = [], []
    for name, (columns, rows) in tables.items():
        first = OBJECTS_PAGE + reserved + len(pages)
        listed.append((first, 0, name, TABLE, 0, None))
        pages += pages_of(columns, rows, first)
    path.write_bytes(b"".join([header(), bytes(PAGE), *pages_of(OBJECTS, listed, OBJECTS_PAGE), *pages]))

"""Journals of conversions that ended in the middle, as another copy may have left them."""

HEADING = b"Lantos conversion 1"


def check_of(line):
    value = 2166136261
    for byte in line:
        value = (value ^ byte) * 16777619 & 0xffffffff
    return b"%08x" % value


def in_one_line(text):
    """A text of bytes as a line has it: what would end the line, or begins such a mark, stands as "%" and two digits."""
    return b"".join(b"%%%02x" % byte if byte < 0x20 or byte == 0x25 else bytes([byte]) for byte in text)


def write_journal(shop, name, *lines):
    content = b"".join(line + b" " + check_of(line) + b"\r\n" for line in (HEADING, *lines))
    shop.path(name).write_bytes(content)

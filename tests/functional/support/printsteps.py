"""Shops whose estimates are printed, the road to their papers, and what a printed file says."""

import re
import shutil
import subprocess
import zlib
from pathlib import Path

from boardlines import CREATED, TODAY, row_of

MONDAY = "2003-09-29"
VIN = "1FAFP34P3XW123456"
TITLE = "Print Estimate"
NOTHING_CHOSEN = "Must first select an estimate to print."
TO_ARRIVED = "Shall I change the status from\nScheduled to Arrived?"


def with_disclaimer(shop, text=b"As is."):
    shop.write()
    shop.path("DISC_EST.TXT").write_bytes(text)
    return shop


def plain_shop(shop, status=0, date=TODAY, disclaimer=b"As is."):
    """Estimate 900 with an hour of labor and nothing else."""
    shop.add_estimate(900, date, status=status, hours=1, CreateDate=CREATED)
    return with_disclaimer(shop, disclaimer)


def options(shop, status_letters=None, **print_options):
    shop.write_profile({"Print Options": print_options, "Status Options": status_letters or {}})


def choose(copy, number=900, panel=2):
    copy.click(f"List1({panel})", row=row_of(copy, f"List1({panel})", number))
    return copy


def print_estimate(copy):
    copy.click("cmdPrintEstimate")
    return copy.answer


def expect_preview(copy, report):
    assert (copy.answer.get("waiting"), copy.answer.get("report")) == ("preview", report), copy.answer
    return copy.answer


def jobs(copy):
    """Every printed job since the start."""
    return [event for answer in copy.said for event in answer.get("events", ()) if "printed" in event]


def text_of(job):
    return Path(job["text"]).read_bytes().decode("utf-8").split("\n")[:-1]


def as_text(lines):
    return ["\t".join(line).rstrip(" \t") for line in lines]


def row(text, amount1=" ", amount2=" ", amount3=" "):
    return [text, amount1, amount2, amount3]


# What a printed file says, read without any tool: each run of glyphs through the map of its font.


def pdf_pages(path):
    """The runs of text of each page."""
    data = Path(path).read_bytes()
    assert data.startswith(b"%PDF-") and data.rstrip().endswith(b"%%EOF")
    objects = {int(number): body for number, body in re.findall(rb"(\d+) 0 obj(.*?)endobj", data, re.S)}

    def stream(number):
        body = objects[number]
        content = body[body.index(b"stream") + 6:body.rindex(b"endstream")].lstrip(b"\r").removeprefix(b"\n")
        return zlib.decompressobj().decompress(content) if b"/FlateDecode" in body else content

    def glyphs(font):
        mapping = {}
        table = stream(int(re.search(rb"/ToUnicode (\d+) 0 R", objects[font])[1])).decode("ascii")
        for section in re.findall(r"beginbfrange(.*?)endbfrange", table, re.S):
            for first, last, start in re.findall(r"<(\w+)>\s*<(\w+)>\s*<(\w+)>", section):
                for i in range(int(last, 16) - int(first, 16) + 1):
                    mapping[int(first, 16) + i] = chr(int(start, 16) + i)
            for first, last, several in re.findall(r"<(\w+)>\s*<(\w+)>\s*\[(.*?)\]", section, re.S):
                for i, one in enumerate(re.findall(r"<(\w+)>", several)):
                    mapping[int(first, 16) + i] = chr(int(one, 16))
        for section in re.findall(r"beginbfchar(.*?)endbfchar", table, re.S):
            for glyph, one in re.findall(r"<(\w+)>\s*<(\w+)>", section):
                mapping[int(glyph, 16)] = chr(int(one, 16))
        return mapping

    maps = {}
    pages = []
    for body in objects.values():
        if not re.search(rb"/Type /Page\b(?!s)", body):
            continue
        runs = []
        content = stream(int(re.search(rb"/Contents (\d+) 0 R", body)[1])).decode("latin-1")
        for block in re.findall(r"BT(.*?)ET", content, re.S):
            font = int(re.search(r"/F(\d+) ", block)[1])
            mapping = maps.setdefault(font, glyphs(font))
            shown = "".join(re.findall(r"<([0-9a-fA-F]+)>", block))
            runs.append("".join(mapping[int(shown[at:at + 4], 16)] for at in range(0, len(shown), 4)))
        pages.append(runs)
    return pages


def without_blanks(text):
    return "".join(text.split())


def expect_on_paper(job, lines, labels, page="Page 1 of 1", across=list):
    """Of a report of one page. Across the paper the texts of a line may stand in another order than they are painted."""
    pages = pdf_pages(job["pdf"])
    assert len(pages) == 1
    shown = without_blanks("\n".join(pages[0]))
    at = 0
    for line in lines:
        for text in line:
            text = without_blanks(text)
            assert text in shown[at:], f"{text} is missing or out of its order in {shown}"
            at = shown.index(text, at) + len(text) if text else at
    for text in (*labels, page):
        for part in text.split("\n"):
            assert without_blanks(part) in shown, part
    if shutil.which("pdftotext"):
        told = subprocess.run(["pdftotext", "-layout", job["pdf"], "-"], capture_output=True, text=True, check=True)
        rows = [" ".join(told_row.split()) for told_row in told.stdout.splitlines()]
        at = 0
        for line in lines:
            wanted = " ".join(" ".join(across(line)).split())
            if wanted:
                at = rows.index(wanted, at) + 1
        assert page in rows


def png_size(path):
    header = path.read_bytes()[:24]
    assert header[:8] == b"\x89PNG\r\n\x1a\n"
    return int.from_bytes(header[16:20], "big"), int.from_bytes(header[20:24], "big")

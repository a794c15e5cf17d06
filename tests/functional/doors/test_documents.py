"""The guide is opened as the document that it is, and nothing that lies under its name is ever run."""

import os

import pytest

GUIDE = "Lantos Quick Start Guide.pdf"
SCRIPT = b"#!/bin/sh\ntouch ran\n"


def refused(copy, words):
    """Help says why it opens nothing, and nothing was handed to the platform."""
    copy.menu("mnuHQuickStartGuide")
    box = copy.expect_box(title="Help file")
    assert words in box["text"]
    assert not copy.events("shell")
    copy.press("OK")
    copy.expect_form("frmMain")


def test_a_program_under_the_guides_name_is_not_opened(lantos, shop):
    guide = shop.path(GUIDE)
    guide.write_bytes(SCRIPT)
    guide.chmod(0o755)
    refused(lantos, "is no PDF document")
    assert not (shop.directory / "ran").exists()


def test_a_text_under_the_guides_name_is_not_opened(lantos, shop):
    shop.path(GUIDE).write_bytes(b"Lantos in ten steps\r\n%PDF-1.4\r\n")
    refused(lantos, "is no PDF document")


def test_a_link_to_a_document_elsewhere_is_not_opened(lantos, shop, tmp_path):
    (tmp_path / "else.pdf").write_bytes(b"%PDF-1.4\n")
    shop.path(GUIDE).symlink_to(tmp_path / "else.pdf")
    refused(lantos, "is a link")


@pytest.mark.parametrize("make", [os.mkdir, os.mkfifo], ids=["folder", "pipe"])
def test_a_folder_or_pipe_under_the_guides_name_is_not_opened(lantos, shop, make):
    make(shop.path(GUIDE))
    refused(lantos, "is no file")


def test_the_guide_is_a_document_even_when_everybody_may_run_it(lantos, shop):
    """As on a mount that marks every file."""
    guide = shop.path(GUIDE)
    guide.write_bytes(b"%PDF-1.4\n")
    guide.chmod(0o777)
    assert lantos.menu("mnuHQuickStartGuide")["events"] == [{"shell": str(guide)}]


@pytest.mark.parametrize("name", ['two "shops', "the 'shop'", "$(touch ran); shop", "50% & more"])
def test_the_guide_of_a_directory_with_any_name(start, tmp_path, name):
    from shopfiles import Shop

    shop = Shop(tmp_path / name)
    shop.write()
    guide = shop.path(GUIDE)
    guide.write_bytes(b"%PDF-1.4\n")
    copy = start(shop)
    copy.expect_form("frmMain")
    assert copy.menu("mnuHQuickStartGuide")["events"] == [{"shell": str(guide)}]

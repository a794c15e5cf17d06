"""The page of all keys is the program's own."""

import pathlib
import subprocess

from driver import program_path

PAGE = pathlib.Path(__file__).resolve().parents[3] / "docs/keys.md"


def test_the_page_of_keys_is_what_the_program_prints():
    printed = subprocess.run([program_path(), "--keys"], capture_output=True, text=True, timeout=60, check=True).stdout
    assert PAGE.read_text(encoding="utf-8") == printed, "lantos-drive --keys > docs/keys.md"

"""The questions of a start, and what is stored of its answers."""

import re

from driver import Settings, program_path

START_FAILED = 1
WRONG_OPTIONS = 2
START_CANCELLED = 3
# Of lantos-shop.
SHOP_REPAIRED = 1
SHOP_LEFT = 4
SHOP_NOT_RUN = 8
SHOP_WRONG_USE = 16

MAIN_CAPTION = "Lantos: Miller's Garage ({directory}\\)"


def settings_of(tmp_path):
    return Settings(tmp_path / "settings")


def shown_version():
    """Of the built tree, whose number comes from a tag, with its years counted from 2000."""
    cache = program_path().parents[1] / "CMakeCache.txt"
    major, rest = re.search(r"^CMAKE_PROJECT_VERSION:STATIC=(\d+)(.*)$", cache.read_text(), re.M).groups()
    return f"{2000 + int(major)}{rest}"

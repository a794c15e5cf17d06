"""The questions of a start, and what is stored of its answers."""

from driver import Settings

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

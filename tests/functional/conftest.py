import pathlib
import subprocess

import pytest

# Before any of them is imported: their assertions say as much as those of the tests.
pytest.register_assert_rewrite(*(helper.stem for helper in (pathlib.Path(__file__).parent / "support").glob("*.py")))

from driver import DriverError, Lantos, data_option, program_path
from shopfiles import Shop


@pytest.fixture(scope="session")
def has_windows():
    """Whether this build has a desktop with real windows."""
    tried = subprocess.run([program_path(), "--desktop", "qt", "--now", "never"], capture_output=True, text=True)
    return "this build has no real windows" not in tried.stderr


@pytest.fixture(params=["driver", "qt"])
def desktop(request):
    if request.param == "qt" and not request.getfixturevalue("has_windows"):
        pytest.skip("this build has no real windows")
    return request.param


@pytest.fixture
def shop(tmp_path):
    """A shop's directory, not written yet: tests put their own into it first."""
    return Shop(tmp_path / "shop")


class Starter:
    """Starts copies of the program, and sees that none outlives its test or leaves something unsaid."""

    def __init__(self, home, desktop):
        self.home = home
        self.desktop = desktop
        self.running = []

    def __call__(self, shop=None, **options):
        if shop is not None:
            options.setdefault("arguments", (data_option(shop.directory),))
        options.setdefault("desktop", self.desktop)
        options.setdefault("name", f"copy{len(self.running) + 1}")
        copy = Lantos(options.pop("home", self.home), **options)
        self.running.append(copy)
        copy.first_answer()
        return copy

    def clean_up(self):
        failures = []
        for copy in reversed(self.running):
            try:
                copy.clean_up()
            except DriverError as failure:
                failures.append(str(failure))
        if failures:
            raise DriverError("\n".join(failures))


@pytest.fixture
def start(tmp_path, desktop):
    starter = Starter(tmp_path, desktop)
    yield starter
    starter.clean_up()


@pytest.fixture
def lantos(start, shop):
    """One copy at its main window, on an ordinary shop."""
    shop.write()
    copy = start(shop)
    copy.expect_form("frmMain")
    return copy

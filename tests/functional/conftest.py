import inspect
import os
import pathlib
import subprocess
import tempfile

import pytest

# Before any of them is imported: their assertions say as much as those of the tests.
pytest.register_assert_rewrite(*(helper.stem for helper in (pathlib.Path(__file__).parent / "support").glob("*.py")))

from databases import Server
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


def pytest_addoption(parser):
    parser.addoption("--database", choices=("file", "server"), default="file",
                     help="where the estimates of each shop lie")
    parser.addoption("--live", action="store_true", help="all boards follow what others change")


def pytest_configure(config):
    Starter.live = config.getoption("--live")


@pytest.fixture(scope="session")
def server():
    """A database server, of this process alone."""
    directory = pathlib.Path(tempfile.gettempdir()) / f"lantos-server-{os.getpid()}"
    running = Server(str(directory))
    yield running
    running.close()


def speaks_to_the_file(module, function):
    """Whether a test takes the database for a file, itself or through procedures of its module."""
    texts = {name: inspect.getsource(each) for name, each in vars(module).items()
             if inspect.isfunction(each) and each.__module__ == module.__name__}
    telling = {'"Lantos.mdb"', "sqlite_master"}
    found = 0
    while len(telling) > found:
        found = len(telling)
        telling |= {f"{name}(" for name, text in texts.items() if any(each in text.partition("\n")[2] for each in telling)}
    return any(each in inspect.getsource(function).partition("\n")[2] for each in telling)


@pytest.fixture
def shop(request, tmp_path):
    """A shop's directory, not written yet: tests put their own into it first."""
    if request.config.getoption("--database") == "file":
        return Shop(tmp_path / "shop")
    if speaks_to_the_file(request.module, request.function):
        pytest.skip("speaks to the file itself")
    return Shop(tmp_path / "shop", request.getfixturevalue("server"))


class Starter:
    """Starts copies of the program, and sees that none outlives its test or leaves something unsaid."""

    live = False  # whether their boards follow what others change, where a test doesn't say

    def __init__(self, home, desktop):
        self.home = home
        self.desktop = desktop
        self.running = []

    def __call__(self, shop=None, **options):
        if shop is not None:
            options.setdefault("arguments", (data_option(shop.directory),))
        options.setdefault("desktop", self.desktop)
        options.setdefault("live", self.live)
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

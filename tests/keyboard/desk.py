"""A desk with a keyboard and no mouse: the program in real windows, under a window manager, on a screen in memory.

Every key goes to the window system, as from a keyboard; nothing is asked of the program. What happened is read from the
titles of the windows and from the shop's files.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
PATIENCE = 20  # seconds that a window may take on a busy machine


class Desk:
    def __init__(self, screen="1024x768", shop_options=(), environment=None, prepare=None):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="lantos-desk-"))
        self.keys = 0
        self.binaries = pathlib.Path(os.environ.get("LANTOS_BIN_DIR", ROOT / "build/test/bin"))
        self.shop = self.folder / "shop"
        subprocess.run([self.binaries / "lantos-shop", "sample", self.shop, *shop_options], check=True, capture_output=True)
        if prepare:
            prepare(self.shop)
        self.environment = {**os.environ, "HOME": str(self.folder), "XDG_CONFIG_HOME": str(self.folder / "config"),
                            "XDG_RUNTIME_DIR": str(self.folder),
                            "LSAN_OPTIONS": f"suppressions={ROOT / 'tests/keyboard/leaks.txt'}", "QT_QPA_PLATFORM": "xcb", **(environment or {})}
        self._start_screen(screen)
        self.processes = [self._screen]
        self._start(["openbox"])
        time.sleep(0.5)
        self.program = self._start([self.binaries / "lantos", f"/D={self.shop}"])

    def _start_screen(self, screen):
        """On the first free display."""
        read, write = os.pipe()
        command = ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{screen}x24", "-nolisten", "tcp", "-noreset"]
        self._screen = subprocess.Popen(command, pass_fds=[write], stderr=open(self.folder / "screen.log", "wb"))
        os.close(write)
        with os.fdopen(read) as told:
            self.environment["DISPLAY"] = ":" + told.readline().strip()

    def _start(self, command):
        log = open(self.folder / f"{pathlib.Path(command[0]).name}.log", "wb")
        process = subprocess.Popen(command, env=self.environment, stdout=log, stderr=log)
        self.processes.append(process)
        return process

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            try:
                process.wait(timeout=5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _xdotool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.environment, capture_output=True, text=True).stdout.strip()

    def title(self):
        """Of the window that has the keyboard; empty when none has."""
        return self._xdotool("getactivewindow", "getwindowname")

    def window(self):
        """The one that has the keyboard; empty when none has."""
        return self._xdotool("getactivewindow")

    def place(self):
        """Where the window that has the keyboard stands."""
        return self._xdotool("getactivewindow", "getwindowgeometry", "--shell").split("\n")[1:3]

    def expect_other(self, window):
        """Waits until another window than this one has the keyboard, whatever it is called."""
        end = time.monotonic() + PATIENCE
        while self.window() in ("", window):
            if time.monotonic() > end:
                raise AssertionError(f"no other window than {self.title()!r} has come")
            time.sleep(0.05)
        time.sleep(0.15)

    def expect(self, title):
        """Waits until the window with the keyboard is called so."""
        end = time.monotonic() + PATIENCE
        while title not in self.title():
            if self.program.poll() is not None:
                raise AssertionError(f"the program has ended with {self.program.returncode}; {title!r} was to come")
            if time.monotonic() > end:
                raise AssertionError(f"the window is {self.title()!r} and not {title!r}")
            time.sleep(0.05)
        time.sleep(0.15)

    def pause(self):
        """Until a window that is on its way has come."""
        time.sleep(1)

    def press(self, *keys):
        """Keys by the names that xdotool has: Return, alt+n, Down."""
        for key in keys:
            self.keys += 1
            self._xdotool("key", "--clearmodifiers", key)
            time.sleep(0.04)

    def press_with(self, held, key):
        """A key while another is held down for as long as a hand holds it. What the window manager has made of the key
        comes to the program meanwhile."""
        self.keys += 1
        self._xdotool("keydown", held)
        self._xdotool("key", key)
        time.sleep(0.3)
        self._xdotool("keyup", held)

    def type(self, text):
        self.keys += len(text)
        self._xdotool("type", "--clearmodifiers", "--delay", "15", "--", text)
        time.sleep(0.1)

    def picture(self, path):
        """Of the whole screen, where ImageMagick is installed."""
        if shutil.which("import"):
            subprocess.run(["import", "-window", "root", str(path)], env=self.environment, capture_output=True)


def until(check, what):
    """Waits until a thing in the shop's files is so, and gives back what was found."""
    end = time.monotonic() + PATIENCE
    while True:
        found = check()
        if found:
            return found
        if time.monotonic() > end:
            raise AssertionError(what)
        time.sleep(0.1)


def play_day(place, work, most_keys, prepare=None):
    """Starts the program on a shop that was prepared, does the work, and closes it by key. What went wrong is told; 0 when
    all of it went well."""
    desk = Desk(prepare=prepare)
    try:
        desk.expect("Lantos: ")
        work(desk)
        desk.press("alt+F4")
        code = desk.program.wait(timeout=20)
        assert code == 0, f"the program ended with {code}"
    except AssertionError as lost:
        print(f"{lost}, after {desk.keys} keys; the window is {desk.title()!r}", file=sys.stderr)
        print((desk.folder / "lantos.log").read_text(errors="replace")[-4000:], file=sys.stderr)
        return 1
    finally:
        desk.close()
    print(f"A day at {place} in {desk.keys} keys, {most_keys} at most.")
    return 0 if desk.keys <= most_keys else 1

"""One running copy of the program, driven through its pipe by a test that stands for the person."""

import datetime
import json
import os
import queue
import subprocess
import threading
import time
from pathlib import Path

BUSY_TIMEOUT = None  # milliseconds that a database waits for another copy; None leaves it to the program
DEADLINE = 60.0  # seconds for any one answer; a test build with sanitizers on a busy machine is slow
MORNING = "2003-09-30T08:15:00"  # a Tuesday

# What a window system without a screen says about itself.
HARMLESS = (
    "This plugin does not support propagateSizeHints()",
    "This plugin does not support raise()",
    "QStandardPaths:",
)


class DriverError(AssertionError):
    """The program did not do what a person could expect of it."""


class Refused(DriverError):
    """The thing could not be done; the text says why."""


def program_path():
    folder = os.environ.get("LANTOS_BIN_DIR")
    if not folder:
        folder = Path(__file__).resolve().parents[3] / "build" / "test" / "bin"
    return Path(folder) / "lantos-drive"


def data_option(directory):
    return f"/D={directory}"


class Lantos:
    """Owns the process, its directories and the record of what was said."""

    def __init__(self, home, desktop="driver", now=MORNING, computer="BENCH1", arguments=(), cwd=None, runtime=None,
                 settings=None, name="lantos", busy_timeout=BUSY_TIMEOUT, faults=None, user="beth", live=False,
                 dictionaries=None):
        self.home = Path(home)
        self.settings = Path(settings or self.home / "settings")
        self.print_to = self.home / f"{name}-print"
        self.desktop = desktop
        self.said = []
        self.answer = None
        self.finished = False
        self._errors_path = self.home / f"{name}.stderr"
        self._record = open(self.home / f"{name}.transcript", "w", encoding="utf-8", errors="surrogateescape")
        self._errors = open(self._errors_path, "w", encoding="utf-8")
        self._answers = queue.Queue()
        command = [str(program_path()), "--desktop", desktop, "--settings", str(self.settings),
                   "--print-to", str(self.print_to)]
        if computer is not None:
            command += ["--computer", computer]
        if user is not None:
            command += ["--user", user]
        if now is not None:
            command += ["--now", now]
        if busy_timeout is not None:
            command += ["--busy-timeout", str(busy_timeout)]
        if dictionaries is not None:
            command += ["--dictionaries", str(dictionaries)]
        if live:
            command += ["--live"]
        command += ["--", *[str(argument) for argument in arguments]]
        self._record.write(" ".join(command) + "\n")
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=self._errors,
                                        cwd=cwd or self.home, env=self._environment(runtime, faults), text=True,
                                        encoding="utf-8", bufsize=1)
        threading.Thread(target=self._listen, daemon=True).start()

    def _environment(self, runtime, faults):
        runtime = Path(runtime or self.home / "runtime")
        for folder in (self.settings, runtime):
            folder.mkdir(parents=True, exist_ok=True)
        runtime.chmod(0o700)
        environment = {key: os.environ[key] for key in ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS",
                                                        "LD_LIBRARY_PATH") if key in os.environ}
        environment.update(HOME=str(self.home), XDG_RUNTIME_DIR=str(runtime), LANG="C.UTF-8", TZ="UTC",
                           XDG_CONFIG_HOME=str(self.home / "config"), QT_QPA_PLATFORM="offscreen")
        if faults is not None:
            environment.update(faults.environment())
        return environment

    # The pipe.

    def _listen(self):
        for line in self.process.stdout:
            self._answers.put(line)
        self._answers.put(None)

    def first_answer(self):
        """Starting has come to its first wait, or to its end."""
        return self._next_answer("the start")

    def _next_answer(self, after):
        try:
            line = self._answers.get(timeout=DEADLINE)
        except queue.Empty:
            raise DriverError(f"no answer to {after} within {DEADLINE:.0f} s\n{self.evidence()}") from None
        if line is None:
            code = self.process.wait(DEADLINE)
            raise DriverError(f"the process ended with {code} instead of answering {after}\n{self.evidence()}")
        self._record.write(line)
        self._record.flush()
        self.answer = json.loads(line)
        self.said.append(self.answer)
        return self.answer

    def send_text(self, text):
        """One raw line, and its answer, whatever that says."""
        self._record.write(f"> {text}\n")
        self._record.flush()
        try:
            self.process.stdin.write(text + "\n")
            self.process.stdin.flush()
        except BrokenPipeError:
            raise DriverError(f"the process is gone before {text}\n{self.evidence()}") from None
        return self._next_answer(text)

    def send(self, **line):
        """A line that must be accepted."""
        answer = self.send_text(json.dumps(line, ensure_ascii=False))
        if "error" in answer:
            raise Refused(f"{line}: {answer['error']}\n{self.evidence()}")
        return answer

    def refused(self, **line):
        """A line that must be refused: the reason."""
        answer = self.send_text(json.dumps(line, ensure_ascii=False))
        if "error" not in answer:
            raise DriverError(f"{line} was accepted: {answer}\n{self.evidence()}")
        return answer["error"]

    # What a person does.

    def click(self, control, **more):
        return self.send(do="click", control=control, **more)

    def double_click(self, control, **more):
        return self.click(control, double=True, **more)

    def right_click(self, control, **more):
        return self.click(control, button="right", **more)

    def select(self, control, **what):
        return self.send(do="select", control=control, **what)

    def check(self, control, value=True, **more):
        return self.send(do="check", control=control, value=value, **more)

    def type(self, control, text):
        return self.send(do="type", control=control, text=text)

    def insert(self, control, text, at):
        return self.send(do="insert", control=control, text=text, at=at)

    def leave(self):
        return self.send(do="leave")

    def key(self, key):
        return self.send(do="key", key=key)

    def pick(self, control, date, **more):
        return self.send(do="pick", control=control, date=str(date), **more)

    def menu(self, item):
        return self.send(do="menu", item=item)

    def choose(self, item):
        return self.send(do="choose", item=item)

    def press(self, button):
        return self.send(do="answer", button=button)

    def close(self):
        return self.send(do="close")

    def wait(self, milliseconds):
        return self.send(do="wait", ms=milliseconds)

    def set_now(self, moment):
        return self.send(do="now", at=moment)

    # What a person looks at.

    def get(self, what):
        return self.send(get=what)["result"]

    def control(self, name, form=None):
        return self.get(f"{form or self.answer['form']}.{name}")

    def text(self, name, form=None):
        return self.control(name, form)["text"]

    def caption(self, name, form=None):
        return self.control(name, form)["caption"]

    def rows(self, name, form=None):
        return [row["text"] for row in self.control(name, form)["rows"]]

    def forms(self):
        return self.get("forms")

    def log_lines(self):
        return Path(self.get("log")).read_bytes().decode("cp1252").split("\r\n")[:-1]

    # What is expected of the latest answer.

    def expect_form(self, form):
        if self.answer.get("waiting") != "form" or self.answer.get("form") != form:
            raise DriverError(f"{form} should have the user, not {self.answer}\n{self.evidence()}")
        return self.answer

    def expect_box(self, text=None, title=None, icon=None, buttons=None):
        if self.answer.get("waiting") != "box":
            raise DriverError(f"a message box should be up, not {self.answer}\n{self.evidence()}")
        for member, wanted in (("text", text), ("title", title), ("icon", icon), ("buttons", buttons)):
            if wanted is not None and self.answer[member] != wanted:
                raise DriverError(f"{member}: {self.answer[member]!r} instead of {wanted!r}\n{self.evidence()}")
        return self.answer

    def events(self, kind):
        """All events of a kind since the start."""
        return [event[kind] for answer in self.said for event in answer.get("events", ()) if kind in event]

    def until(self, condition, what, deadline=DEADLINE):
        """Looks until the condition holds: for what another process or real time must bring about."""
        end = time.monotonic() + deadline
        while not condition():
            if time.monotonic() > end:
                raise DriverError(f"{what}: not within {deadline:.0f} s\n{self.evidence()}")
            time.sleep(0.01)

    # The end.

    def expect_end(self, code=0):
        """The program has said its last word; the process must follow, with that code and nothing on stderr."""
        if self.answer.get("waiting") != "ended":
            raise DriverError(f"the program should have ended, not {self.answer}\n{self.evidence()}")
        self._wait_for(code)
        if self.answer["code"] != code:
            raise DriverError(f"the last word says code {self.answer['code']}, not {code}\n{self.evidence()}")

    def close_window(self, code=0):
        """Closing the main window, the orderly way out."""
        self.expect_form("frmMain")
        self.close()
        self.expect_end(code)

    def cut(self):
        """A power cut: the end of input."""
        self.process.stdin.close()
        self._wait_for(0)

    def kill(self):
        self.process.kill()
        self.process.wait(DEADLINE)
        self.finished = True
        self._close_files()

    def clean_up(self):
        """At the end of a test, however it went."""
        if self.finished:
            return
        if self.process.poll() is None:
            self.cut()
        else:
            self._wait_for(0)

    def _wait_for(self, code):
        try:
            ended = self.process.wait(DEADLINE)
        except subprocess.TimeoutExpired:
            self.kill()
            raise DriverError(f"the process doesn't end\n{self.evidence()}") from None
        self.finished = True
        self._close_files()
        if ended != code:
            raise DriverError(f"exit code {ended} instead of {code}\n{self.evidence()}")
        unexpected = [line for line in self.errors().splitlines() if not any(known in line for known in HARMLESS)]
        if unexpected:
            raise DriverError("unexpected on stderr:\n" + "\n".join(unexpected) + "\n" + self.evidence())

    def _close_files(self):
        self._errors.close()
        self._record.close()

    # Evidence.

    def errors(self):
        return self._errors_path.read_text(encoding="utf-8", errors="replace")

    def evidence(self):
        if not self._record.closed:
            self._record.flush()
        transcript = Path(self._record.name).read_text(encoding="utf-8", errors="replace").splitlines()[-12:]
        shown = "\n".join(line[:2000] for line in transcript)
        return f"--- transcript\n{shown}\n--- stderr\n{self.errors()[-4000:]}"


class Settings:
    """The per-user settings store, looked at and prepared from outside: one profile file an application."""

    def __init__(self, directory):
        self.directory = Path(directory)

    def read(self, application, key, section="Settings"):
        path = self.directory / f"{application}.conf"
        inside = False
        for line in path.read_text(encoding="cp1252").splitlines() if path.exists() else ():
            if line.startswith("["):
                inside = line.strip().lower() == f"[{section}]".lower()
            elif inside and line.split("=", 1)[0].strip().lower() == key.lower():
                return line.split("=", 1)[1]
        return None

    def write(self, application, values, section="Settings"):
        """Replaces the whole file."""
        self.directory.mkdir(parents=True, exist_ok=True)
        lines = [f"[{section}]"] + [f"{key}={value}" for key, value in values.items()]
        (self.directory / f"{application}.conf").write_text("\n".join(lines) + "\n", encoding="cp1252")


def day_mark(date):
    """Month character and two-digit day, as the names of a run's own files have it."""
    return "123456789abc"[date.month - 1] + f"{date.day:02}"


def today_of(moment):
    return datetime.datetime.fromisoformat(moment).date()

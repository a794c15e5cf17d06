"""What lantos-shop is asked from outside."""

import json
import os
import signal
import subprocess
import time

from driver import program_path


def caretaker(*words):
    program = os.path.join(os.path.dirname(program_path()), "lantos-shop")
    return subprocess.run([program, *map(str, words)], capture_output=True, text=True)


def caretaker_says(*words):
    """What it says as JSON when all is well."""
    done = caretaker(*words, "--json")
    assert done.returncode == 0, done.stderr + done.stdout
    return json.loads(done.stdout)


def stopped(*words, env=None):
    """What is left of it when it is interrupted as soon as it holds that back: how Ctrl+C ends long work."""
    program = os.path.join(os.path.dirname(program_path()), "lantos-shop")
    running = subprocess.Popen([program, *map(str, words)], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                               env=env)
    while not holds_back(running.pid, signal.SIGINT):
        assert running.poll() is None, running.communicate()
        time.sleep(0.002)
    running.send_signal(signal.SIGINT)
    output, errors = running.communicate(timeout=60)
    return subprocess.CompletedProcess(words, running.returncode, output, errors)


def holds_back(process, number):
    with open(f"/proc/{process}/status", encoding="ascii") as status:
        blocked = next(line.split()[1] for line in status if line.startswith("SigBlk:"))
    return bool(int(blocked, 16) >> (number - 1) & 1)

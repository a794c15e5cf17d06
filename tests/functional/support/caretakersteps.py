"""What lantos-shop is asked from outside."""

import json
import os
import subprocess

from driver import program_path


def caretaker(*words):
    program = os.path.join(os.path.dirname(program_path()), "lantos-shop")
    return subprocess.run([program, *map(str, words)], capture_output=True, text=True)


def caretaker_says(*words):
    """What it says as JSON when all is well."""
    done = caretaker(*words, "--json")
    assert done.returncode == 0, done.stderr + done.stdout
    return json.loads(done.stdout)

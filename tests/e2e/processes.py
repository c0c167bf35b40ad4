"""Processes that end with the test that started them, and waiting for what they do."""

import os
import signal
import subprocess
import time
from pathlib import Path

# How long a program may take to do what it is asked, on a slow and busy machine.
PATIENCE = 20


class Failure(Exception):
    """A program did not do what it should; the text says what."""


def wait_until(what, condition, seconds=PATIENCE):
    """Returns the first true value of condition(); raises Failure when there is none in time."""
    deadline = time.monotonic() + seconds
    while not (value := condition()):
        if time.monotonic() > deadline:
            raise Failure(f"not within {seconds} s: {what}")
        time.sleep(0.02)
    return value


def happens(condition, seconds):
    """Whether the condition becomes true in time."""
    try:
        return wait_until("", condition, seconds)
    except Failure:
        return False


def spawn(command, **options):
    """Starts a process, which the kernel kills when the calling thread ends."""
    return subprocess.Popen(["setpriv", "--pdeathsig", "KILL", *map(str, command)], **options)


def end(process, how=signal.SIGKILL):
    process.send_signal(how)
    process.wait()


def memory(process):
    """The resident memory of a process in bytes."""
    pages = int(Path(f"/proc/{process.pid}/statm").read_text().split()[1])
    return pages * os.sysconf("SC_PAGE_SIZE")

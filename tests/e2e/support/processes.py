"""Processes of this machine, looked up by what stands on their command lines."""

import os
import time
from pathlib import Path


def command_lines():
    """Process id and command line of every living process."""
    found = {}
    for entry in Path("/proc").iterdir():
        if not entry.name.isdigit():
            continue
        try:
            line = (entry / "cmdline").read_bytes().replace(b"\0", b" ").decode(errors="replace")
        except OSError:
            continue  # it has ended meanwhile
        if line:
            found[int(entry.name)] = line
    return found


def naming(text):
    return {pid: line for pid, line in command_lines().items() if text in line}


def engine_processes(folder):
    """The processes of browsers whose profile lies in `folder`."""
    return {pid: line for pid, line in naming(f"--user-data-dir={folder}").items()
            if "kzhost" not in line}


def browser_process(folder):
    """The one among them that started the others."""
    main = [pid for pid, line in engine_processes(folder).items()
            if "--type=" not in line and "headless" in line.split(" ")[0]]
    assert len(main) == 1, f"not one browser process but {len(main)}: {engine_processes(folder)}"
    return main[0]


def wait_until(condition, timeout=20, what="the condition"):
    """Asks again until it holds; answers what it answered."""
    end = time.monotonic() + timeout
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"{what} did not come to hold within {timeout} s")
        time.sleep(0.02)


def is_alive(pid):
    try:
        os.kill(pid, 0)
    except ProcessLookupError:
        return False
    return True

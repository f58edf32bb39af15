"""Processes of this machine, looked up by what stands on their command lines."""

import os
import signal
import time
from pathlib import Path

from . import wine

# What the engine runs its processes with.
_PROGRAM = "kzCefSubProc.exe"


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
    """The engine's processes beside its host whose profile lies in `folder`: each is told where."""
    profile = f"--user-data-dir={wine.windows_path(folder)}"
    return {pid: line for pid, line in naming(profile).items() if _PROGRAM in line}


def end_unbegun(folder):
    """Ends those of the engine's processes that have come to nothing. The system makes a process in
    two steps, and lets its first thread run in the second; a process whose parent is ended in between
    stays as it is, on Windows too."""
    for pid in engine_processes(folder):
        try:
            if len(os.listdir(f"/proc/{pid}/task")) == 1:
                os.kill(pid, signal.SIGKILL)
        except (FileNotFoundError, ProcessLookupError):
            pass  # it has ended meanwhile


def engine_process(folder, kind):
    """The one of them of a kind: "renderer", "gpu-process", or what a utility process is for, such as
    "network.mojom.NetworkService"."""
    kinds = (f"--type={kind} ", f"--utility-sub-type={kind} ")
    found = engine_processes(folder)
    of_kind = [pid for pid, line in found.items() if any(k in line for k in kinds)]
    assert len(of_kind) == 1, f"not one process of the kind {kind} but {len(of_kind)}: {found}"
    return of_kind[0]


def wait_until(condition, timeout=20, what="the condition"):
    """Evaluates the condition again and again until it holds; returns its value."""
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

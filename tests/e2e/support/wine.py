"""Wine, the display and the programs under test."""

import os
import shutil
import subprocess
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[3]


def bin_folder():
    return Path(os.environ.get("KZ_BIN", REPOSITORY / "build/mingw/bin"))


def windows_path(path):
    """Z: is the machine's own root in every prefix."""
    return "Z:" + str(path).replace("/", "\\")


def environment(prefix, display, extra=None):
    variables = {
        **os.environ,
        "WINEPREFIX": str(prefix),
        "WINEARCH": "win64",
        # Wine's own complaints may tell why a host ended without a word.
        "WINEDEBUG": "-all,err+all",
        "WINEDLLOVERRIDES": "mscoree,mshtml,winemenubuilder.exe=",
        # Memory of its own for every thread: see wine/README.md.
        "MALLOC_ARENA_MAX": "1024",
        "DISPLAY": display,
    }
    # What a developer has set for experiments of their own would change what is tested.
    for name in ("CefLogEnabled", "KZCefConsoleLog", "EnablePlatformRMB", "KZCEF_ENGINE_PATH"):
        variables.pop(name, None)
    variables.update(extra or {})
    return variables


def set_registry_value(variables, key, name, value, kind="REG_SZ"):
    subprocess.run([REPOSITORY / "cmake/run-wine", "reg", "add", key, "/v", name, "/t", kind, "/d",
                    value, "/f"],
                   env=variables, timeout=120, check=True, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL)


def prepare_prefix(prefix, display):
    """Creates the prefix if it is not there, and gives it what the engine needs."""
    if not (prefix / "system.reg").exists():
        prefix.mkdir(parents=True, exist_ok=True)
        variables = environment(prefix, display)
        subprocess.run(["wine", "wineboot", "-i"], env=variables, timeout=300, check=True,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        subprocess.run(["wineserver", "-w"], env=variables, timeout=300, check=True)
    # A program that crashes ends, with a back trace, and leaves no window behind that takes the
    # keyboard from the tests after it.
    set_registry_value(environment(prefix, display), r"HKCU\Software\Wine\WineDbg",
                       "ShowCrashDialog", "0", "REG_DWORD")
    layer = bin_folder().parent / "wine" / "bcryptprimitives.dll"
    subprocess.run([REPOSITORY / "wine" / "prepare_prefix.py", prefix, layer], timeout=300,
                   check=True, stdin=subprocess.DEVNULL)


class Display:
    """The display of the environment, or an Xvfb of its own where there is none or `own` is true."""

    def __init__(self, own=False):
        self._xvfb = None
        self.name = os.environ.get("DISPLAY", "")
        if own or not self.name:
            self._start()

    def _start(self):
        assert shutil.which("Xvfb"), "there is neither a display nor Xvfb"
        reader, writer = os.pipe()
        self._xvfb = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
            pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as pipe:
            self.name = ":" + pipe.readline().strip()
        assert self.name != ":", "Xvfb did not start"

    def close(self):
        if self._xvfb:
            self._xvfb.terminate()
            self._xvfb.wait()

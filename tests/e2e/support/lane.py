"""A display and a Wine prefix of its own for each of the test files that run side by side: windows of
two hosts on one display would hide each other, and take each other's keys."""

import fcntl
import itertools
import subprocess

from . import wine


class Lane:
    """The first prefix of the folder that no other process uses, for as long as the lane is open."""

    def __init__(self, folder, display):
        folder.mkdir(parents=True, exist_ok=True)
        for number in itertools.count(1):
            self._lock = open(folder / f"{number}.lock", "w")
            try:
                fcntl.flock(self._lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
            except BlockingIOError:
                self._lock.close()
                continue
            break
        self.prefix = folder / f"wineprefix-{number}"
        self._variables = wine.environment(self.prefix, display)
        wine.prepare_prefix(self.prefix, display)
        # One server for all programs of the tests, so that not each pays for its start; and windows
        # that no window manager is asked about, since there is none.
        self._server("-p")
        wine.set_registry_value(self._variables, r"HKCU\Software\Wine\X11 Driver", "Managed", "N")

    def close(self):
        self._server("-k")
        self._server("-w")
        self._lock.close()

    def _server(self, argument):
        subprocess.run(["wineserver", argument], env=self._variables, timeout=60, check=False,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)

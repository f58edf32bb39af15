"""The person at the desk: keys and mouse of the display itself, as they reach whoever has the focus."""

import os
import subprocess

from . import processes

_CLASS = "kzhost.exe"


class Desk:
    def __init__(self, display):
        self._variables = {**os.environ, "DISPLAY": display}

    def _xdotool(self, *arguments):
        """What it printed. A search that finds nothing has status 1, and is not a failure."""
        ended = subprocess.run(["xdotool", *arguments], env=self._variables, timeout=20,
                               capture_output=True, text=True)
        assert ended.returncode in (0, 1), ended.stderr
        return ended.stdout

    def click(self, x, y, button=1):
        """At a place of the screen; 1 is the left button, 3 the right one."""
        self._xdotool("mousemove", str(x), str(y), "click", str(button))

    def touch(self, x, y, site):
        """Clicks there until the page has asked the site for "/click": the engine drops what comes
        before it has heard that the page is on the screen."""
        clicks = site.paths().count("/click")

        def noticed():
            self.click(x, y)
            try:
                return site.wait_for("/click", clicks + 1, timeout=3)
            except AssertionError:
                return None
        processes.wait_until(noticed, 60, "the page's notice of a click")

    def activate(self, windows):
        """Clicks on the caption of one of the windows: without a window manager nobody else gives it
        the keyboard, and keys go to the window under the pointer."""
        self._xdotool("mousemove", "--window", next(iter(windows)), "60", "8", "click", "1")

    def key(self, *names):
        self._xdotool("key", *names)

    def type(self, text):
        self._xdotool("type", text)

    def windows(self):
        """The visible windows of all hosts, menus and dialogs included."""
        return set(self._xdotool("search", "--onlyvisible", "--class", _CLASS).split())

    def wait_for_window(self, before, timeout=20):
        """Waits for a window that is not in `before`."""
        return processes.wait_until(lambda: self.windows() - before, timeout, "another window")

    def wait_until_gone(self, windows, timeout=20):
        processes.wait_until(lambda: not self.windows() & windows, timeout,
                             f"the end of the windows {windows}")

    def wait_for_named(self, name, timeout=20):
        """Waits for a window of that name."""
        return set(processes.wait_until(
            lambda: self._xdotool("search", "--onlyvisible", "--name", name).split(), timeout,
            f"a window called {name}"))

    def wait_for_dialog(self, name, timeout=20):
        """Waits for a window of that name and for it to have the focus."""
        windows = self.wait_for_named(name, timeout)
        processes.wait_until(lambda: self._xdotool("getwindowfocus").strip() in windows, timeout,
                             f"the focus in the window called {name}")
        return windows

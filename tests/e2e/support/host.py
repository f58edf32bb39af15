"""Runs kzhost.exe and reads what it writes."""

import json
import re
import subprocess
import warnings
from pathlib import Path

from . import processes, steps as step_list, wine

# No run of the host takes longer; it is ended then, and the test fails.
RUN_TIMEOUT = 150


# Wine's own remarks: of a thread, or about a missing 32-bit half.
_WINES = re.compile(r"([0-9a-f]{4}:)?err:|.*(it looks like wine32 is missing|multiarch needs to be"
                    r" enabled first|execute \"dpkg --add-architecture|apt-get install wine32)")


class Events:
    """The lines of an events file."""

    def __init__(self, lines):
        self.all = lines

    def notifications(self, name=None, browser="b1"):
        return [e for e in self.all if "notification" in e
                and (browser is None or e["browser"] == browser)
                and (name is None or e["notification"] == name)]

    def names(self, browser="b1"):
        return [e["notification"] for e in self.notifications(browser=browser)]

    def one(self, name, browser="b1"):
        found = self.notifications(name, browser)
        assert len(found) == 1, f"{len(found)} times {name}: {self.names(browser)}"
        return found[0]

    def values(self, name, argument, browser="b1"):
        return [e[argument] for e in self.notifications(name, browser)]

    def outcomes(self, do=None):
        """What the host's own calls answered, in order."""
        return [e for e in self.all if "step" in e and (do is None or e["do"] == do)]


class Run:
    """A host that has ended."""

    def __init__(self, status, output, errors, events):
        self.status = status
        self.output = output
        self.errors = errors
        self.events = events

    def succeeded(self):
        assert self.status == 0, (f"status {self.status}\n{self.errors}\n{self.output[-2000:]}\n"
                                  f"the last events: {self.events.all[-20:]}")
        return self.events


class RunningHost:
    def __init__(self, start, events_file, output_file, errors_file):
        self._start = start
        self._may_start_again = True
        self.process = start()
        self._events_file = events_file
        self._output_file = output_file
        self._errors_file = errors_file

    def events(self):
        if not self._events_file.exists():
            return Events([])
        text = self._events_file.read_bytes().decode()
        # The last line may be on its way.
        return Events([json.loads(line) for line in text.split("\n")[:-1]])

    def _has_not_begun(self):
        """Wine 8 now and then ends a program before it begins, with status 1 and not a word (see
        cmake/run-wine). A host that has begun has made its events file; one is started again."""
        if (not self._may_start_again or self.process.poll() != 1 or self._events_file.exists()
                or self.errors() or self._output_file.read_bytes()):
            return False
        warnings.warn(f"Wine ended the host before it began: {self._errors_file.read_bytes()}")
        self._may_start_again = False
        self.process = self._start()
        return True

    def wait_for(self, name, browser="b1", timeout=40):
        def there():
            if self._has_not_begun():
                return None
            assert self.process.poll() is None, f"the host has ended: {self.errors()}"
            return self.events().notifications(name, browser)
        return processes.wait_until(there, timeout, f"the arrival of {name}")[0]

    def errors(self):
        """What the host itself has complained about."""
        lines = self._errors_file.read_text(errors="replace").splitlines(keepends=True)
        return "".join(line for line in lines if not _WINES.match(line))

    def end_by_force(self):
        self.process.kill()
        self.process.wait()

    def finish(self, timeout=RUN_TIMEOUT):
        try:
            status = self.process.wait(timeout)
            if self._has_not_begun():
                status = self.process.wait(timeout)
        except subprocess.TimeoutExpired:
            self.end_by_force()
            raise AssertionError(
                f"the host did not end in {timeout} s\n{self.errors()}\n{self.events().all[-20:]}")
        return Run(status, self._output_file.read_text(errors="replace"), self.errors(),
                   self.events())


class HostStarter:
    """Starts hosts of one test; each gets files of its own in the test's folder."""

    def __init__(self, folder, variables):
        self.folder = Path(folder)
        self.cache = self.folder / "cache"
        self.variables = variables
        self.started = []

    def start(self, steps=None, url=None, switches=(), env=None, registered=False, cache=True,
              bin_folder=None):
        """With `bin_folder` the programs of that folder instead of those of the build."""
        bin_folder = bin_folder or wine.bin_folder()
        number = len(self.started) + 1
        name = lambda suffix: self.folder / f"host{number}.{suffix}"
        command = ["wine", str(bin_folder / "kzhost.exe"),
                   "--events", wine.windows_path(name("events"))]
        if cache:
            command += ["--cache", wine.windows_path(self.cache)]
        if not registered:
            command += ["--server", wine.windows_path(bin_folder / "KZCEFComWrapper.dll")]
        if steps is not None:
            name("steps").write_text(step_list.as_text(steps))
            command += ["--run", wine.windows_path(name("steps"))]
        command += list(switches)
        if url:
            command.append(url)

        def launch():
            with open(name("output"), "wb") as output, open(name("errors"), "wb") as errors:
                return subprocess.Popen(command, cwd=self.folder, stdin=subprocess.DEVNULL,
                                        stdout=output, stderr=errors,
                                        env={**self.variables, **(env or {})})
        host = RunningHost(launch, name("events"), name("output"), name("errors"))
        self.started.append(host)
        return host

    def run(self, steps=None, **arguments):
        return self.start(steps, **arguments).finish()

    def have_ended(self):
        return bool(self.started) and all(h.process.poll() is not None for h in self.started)

    def close(self):
        for host in self.started:
            if host.process.poll() is None:
                host.end_by_force()

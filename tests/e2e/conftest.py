"""What every end-to-end test stands on: a display, a Wine prefix, a web site and the sample host.

Environment: KZ_BIN names the folder with kzhost.exe and KZCEFComWrapper.dll (build/mingw/bin without
it). KZ_LANES names a folder for prefixes, of which each run takes one that is free, with a display of
its own; so runs can go side by side. Without it WINEPREFIX is the prefix (build/wineprefix where there
is none) and DISPLAY the display (an Xvfb of its own where there is none).
"""

import os
import sys
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).parent))

from support import processes, wine  # noqa: E402
from support.desk import Desk  # noqa: E402
from support.host import HostStarter  # noqa: E402
from support.lane import Lane  # noqa: E402
from support.site import Site  # noqa: E402


def pytest_configure(config):
    config.addinivalue_line("markers",
                            "leaves_lock: the host is ended by force, so its lock stays behind")
    config.addinivalue_line("markers",
                            "ends_abruptly: the host ends while it may be starting a process")


@pytest.fixture(scope="session")
def display():
    opened = wine.Display(own="KZ_LANES" in os.environ)
    yield opened.name
    opened.close()


@pytest.fixture(scope="session")
def prefix(display):
    if "KZ_LANES" in os.environ:
        lane = Lane(Path(os.environ["KZ_LANES"]), display)
        yield lane.prefix
        lane.close()
        return
    folder = Path(os.environ.get("WINEPREFIX", wine.REPOSITORY / "build/wineprefix"))
    wine.prepare_prefix(folder, display)
    yield folder


@pytest.fixture(scope="session")
def desk(display):
    return Desk(display)


@pytest.fixture
def site():
    opened = Site()
    yield opened
    opened.close()


@pytest.fixture
def hosts(prefix, display, site, tmp_path):
    starter = HostStarter(tmp_path, wine.environment(prefix, display))
    site.is_abandoned = starter.have_ended
    yield starter
    starter.close()


@pytest.fixture(autouse=True)
def nothing_left(request, tmp_path):
    """After every test: no process of an engine whose profile is the test's, and no lock. Both take
    a moment: Wine closes a process's files once it has seen that the process is gone, and a process
    that nobody has connected to yet waits 20 s for it."""
    yield
    if request.node.get_closest_marker("ends_abruptly"):
        processes.end_unbegun(tmp_path)
    processes.wait_until(lambda: not processes.engine_processes(tmp_path), 45,
                         f"the end of {processes.engine_processes(tmp_path)}")
    if not request.node.get_closest_marker("leaves_lock"):
        processes.wait_until(lambda: not list(tmp_path.rglob("cef.lock")), 5, "the end of the lock")

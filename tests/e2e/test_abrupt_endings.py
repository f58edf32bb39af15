"""Processes that end without ExitCef, in the ways in which processes end: soon, with the status that
they chose, and leaving nothing behind but their lock.

A console that is closed is not among them: Wine has none to close without a terminal. What the
system does then is to call ExitProcess on another thread.
"""

import signal
import subprocess
import threading
import time

import pytest

from support import processes, wine

# From the moment at which a host says that it ends.
LONGEST = 10
# From its start to that moment.
TO_BE_READY = 100
STATUS = 7

SCRIPT = """
Set application = GetObject("new:{3DB0ECFC-7271-457C-9C7B-5B6D48A73A2B}")
Set settings = application.GetKzCEFComSettings(Nothing)
settings.CachePath = WScript.Arguments(0)
settings.MultiThreadedMessageLoop = True
application.InitCef Nothing, settings
WScript.Echo "ready"
WScript.Quit 7
"""

pytestmark = [pytest.mark.leaves_lock, pytest.mark.ends_abruptly]


@pytest.fixture
def launch(prefix, display, tmp_path):
    """Starts a program of Wine's; it has said "ready" when the function returns."""
    started = []

    def start(*command):
        with open(tmp_path / "errors", "wb") as errors:
            process = subprocess.Popen(["wine", *map(str, command)], cwd=tmp_path,
                                       env=wine.environment(prefix, display), stdout=subprocess.PIPE,
                                       stdin=subprocess.DEVNULL, stderr=errors)
        started.append(process)
        stuck = threading.Timer(TO_BE_READY, process.kill)
        stuck.start()
        try:
            for line in process.stdout:
                if line.strip() == b"ready":
                    return process
        finally:
            stuck.cancel()
        raise AssertionError(f"the host did not come that far: status {process.wait()}\n"
                             + (tmp_path / "errors").read_text(errors="replace"))
    yield start
    for process in started:
        if process.poll() is None:
            process.kill()
        process.wait()


@pytest.fixture
def host(launch, tmp_path):
    """Starts the host that ends the way it is told; `url` is empty for none but the engine."""
    def start(way, url=""):
        return launch(wine.bin_folder().parent / "tests/e2e/kz_abrupt_host.exe",
                      wine.windows_path(wine.bin_folder() / "KZCEFComWrapper.dll"),
                      wine.windows_path(tmp_path / "cache"), url, way)
    return start


def ends_soon(process):
    """Returns the status."""
    said = time.monotonic()
    try:
        status = process.wait(LONGEST)
    except subprocess.TimeoutExpired:
        raise AssertionError(f"the host had not ended after {LONGEST} s") from None
    print(f"ended after {time.monotonic() - said:.1f} s")
    return status


@pytest.mark.parametrize("way", ["return", "exit", "_exit", "ExitProcess",
                                 "ExitProcess on another thread", "TerminateProcess"])
def test_host_with_a_page_ends_with_its_status(host, site, way):
    assert ends_soon(host(way, site.page("/a.html"))) == STATUS


def test_host_with_the_engine_alone_ends_with_its_status(host):
    assert ends_soon(host("return")) == STATUS


def test_killed_host_takes_its_engine_along(host, site, tmp_path):
    process = host("wait", site.page("/a.html"))
    assert processes.engine_processes(tmp_path)
    process.kill()
    assert ends_soon(process) == -signal.SIGKILL


def test_server_that_is_unloaded_under_its_engine_stays(host, site):
    """As COM unloads every server when a thread gives COM up."""
    assert ends_soon(host("FreeLibrary", site.page("/a.html"))) == STATUS


@pytest.fixture
def registered(prefix, display):
    library = wine.windows_path(wine.bin_folder() / "KZCEFComWrapper.dll")

    def regsvr32(*switches):
        subprocess.run(["wine", "regsvr32", "/s", *switches, library], check=True, timeout=120,
                       env=wine.environment(prefix, display), stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
    regsvr32()
    yield
    regsvr32("/u")


def test_script_that_is_through_ends_with_its_status(registered, launch, tmp_path):
    (tmp_path / "script.vbs").write_text(SCRIPT)
    process = launch("cscript", "//nologo", wine.windows_path(tmp_path / "script.vbs"),
                     wine.windows_path(tmp_path / "cache"))
    assert ends_soon(process) == STATUS

"""No engine, or not the right one: everything answers, nothing happens, the reason is told."""

import re
import shutil

import pytest

from support import wine
from support.steps import created, do, load, loaded, script

# The lock is taken before the engine starts and given back by the shut-down of one that has.
pytestmark = pytest.mark.leaves_lock

PRODUCT = ("KZCEFComWrapper.dll", "kzCefSubProc.exe", "kzhost.exe", "pelkor.dll")


@pytest.fixture
def installation(tmp_path):
    """A folder with the product alone; `put` adds what stands for the engine."""
    folder = tmp_path / "installation"
    folder.mkdir()
    # Copies, for the engine is looked for beside the product's own file.
    for name in PRODUCT:
        shutil.copy(wine.bin_folder() / name, folder)
    return folder


def put(installation, engine):
    """One of the libraries that the tests' build has made."""
    built = wine.bin_folder().parent / "tests/support/wrong_engines"
    shutil.copy(built / engine / "libcef.dll", installation)


def pinned_hash():
    pin = (wine.REPOSITORY / "cmake/engine.pin").read_text()
    return re.search(r"^ENGINE_API_HASH=(\w+)$", pin, re.MULTILINE)[1]


def log(hosts):
    return (hosts.cache / "debug.log").read_text(errors="replace")


def start_in_vain(hosts, installation):
    """A host that starts the engine, and ends as if nothing were the matter."""
    events = hosts.run([do("init")], bin_folder=installation).succeeded()
    assert events.notifications() == []


def test_calls_answer_and_do_nothing(hosts, site, installation):
    url = site.page("/a.html")
    run = hosts.run([
        do("init", hresult=0),
        # A second start is not tried.
        do("init", hresult=0),
        do("browser", name="b1", url=url),
        load(url, hresult=1),
        script("fetch('/ran')"),
        do("call", object="b1", member="ResizeBrowser", args=[100, 100]),
        do("refresh", hresult=0),
        do("get", object="b1", property="URL", equals=""),
        do("call", object="app", member="IsProcessingNotifications", equals=False),
    ], bin_folder=installation)
    events = run.succeeded()
    assert events.notifications() == []
    assert site.paths() == []


def test_log_names_the_file_that_is_missing(hosts, installation):
    start_in_vain(hosts, installation)
    file = wine.windows_path(installation / "libcef.dll")
    assert log(hosts).splitlines() == [f"ERROR: {file} cannot be loaded: error 126"]


def test_log_of_the_settings_has_the_reason_too(hosts, installation, tmp_path):
    elsewhere = tmp_path / "elsewhere.log"
    hosts.run([do("init", settings={"LogFile": wine.windows_path(elsewhere)})],
              bin_folder=installation).succeeded()
    assert "libcef.dll cannot be loaded" in elsewhere.read_text()
    assert not (hosts.cache / "debug.log").exists()


def test_log_has_both_hashes_of_an_engine_of_another_version(hosts, installation):
    put(installation, "other_version")
    start_in_vain(hosts, installation)
    assert "libcef.dll has the API hash 0123456789abcdef0123456789abcdef01234567, " \
        f"expected was {pinned_hash()}" in log(hosts)


def test_log_names_the_function_that_an_engine_lacks(hosts, installation):
    put(installation, "incomplete")
    start_in_vain(hosts, installation)
    assert re.search(r"libcef\.dll lacks the function cef_\w+, though its API hash is "
                     + pinned_hash(), log(hosts))


def test_log_tells_a_library_that_is_no_engine(hosts, installation):
    put(installation, "foreign")
    start_in_vain(hosts, installation)
    assert "libcef.dll is not CEF's library: it lacks the function cef_api_hash" in log(hosts)


def test_log_tells_a_file_that_is_no_library(hosts, installation):
    (installation / "libcef.dll").write_text("This is no library.\n" * 100)
    start_in_vain(hosts, installation)
    assert "libcef.dll cannot be loaded: error " in log(hosts)


def test_next_host_takes_the_cache_of_a_failed_start(hosts, site, installation):
    start_in_vain(hosts, installation)
    assert (hosts.cache / "cef.lock").exists()
    hosts.run([created(), loaded()], url=site.page("/a.html")).succeeded()
    assert not (hosts.cache / "cef.lock").exists()
    assert not (hosts.cache / "kzhost_1").exists()


def test_host_says_what_is_wrong(hosts, site, installation):
    run = hosts.run(url=site.page("/a.html"), switches=["--quit"], bin_folder=installation)
    assert run.status == 1
    assert "engine did not start" in run.errors
    assert "debug.log" in run.errors


def test_host_says_what_is_wrong_when_bound_late(hosts, site, installation):
    run = hosts.run(url=site.page("/a.html"), bin_folder=installation,
                    switches=["--quit", "--late-bound", "--timeout", "3"])
    assert run.status == 1
    assert "the browser was not created in time" in run.errors
    assert "debug.log" in run.errors

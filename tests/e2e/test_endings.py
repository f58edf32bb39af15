"""However it ends: no process, no lock and no hang."""

import threading

import pytest

from support import processes, wine
from support.site import LastingConnection
from support.steps import created, do, load, loaded, script, wait


@pytest.fixture
def lasting():
    connection = LastingConnection()
    yield connection
    connection.close()


def locks(hosts):
    return list(hosts.folder.rglob("cef.lock"))


def test_lock_and_process_live_as_long_as_the_engine(hosts, site):
    host = hosts.start([created(), loaded(), do("waitFile", path="seen", timeout=40_000)],
                       url=site.page("/a.html"))
    host.wait_for("LoadEndNotify")
    assert [lock.parent for lock in locks(hosts)] == [hosts.cache]
    assert processes.engine_processes(hosts.cache)
    (hosts.folder / "seen").touch()
    host.finish().succeeded()
    # That nothing is left is what every test checks at its end.


def test_second_host_takes_a_cache_of_its_own(hosts, site):
    first = hosts.start([created(), loaded(), do("waitFile", path="seen", timeout=60_000)],
                        url=site.page("/a.html"))
    first.wait_for("LoadEndNotify")
    second = hosts.start([created(), loaded(), do("waitFile", path="seen", timeout=60_000)],
                         url=site.page("/b.html"))
    second.wait_for("LoadEndNotify")
    assert sorted(lock.parent.name for lock in locks(hosts)) == ["cache", "kzhost_1"]
    (hosts.folder / "seen").touch()
    first.finish().succeeded()
    second.finish().succeeded()


def test_window_closed_by_its_user_ends_the_host(hosts, site):
    run = hosts.run([created(), loaded(), do("close")], url=site.page("/a.html"))
    run.succeeded()


def test_window_closed_while_the_page_loads(hosts, site):
    gate = threading.Event()
    host = hosts.start([created(), wait("LoadingStateChangeNotify", IsLoading=True),
                        do("waitFile", path="asked", timeout=40_000), do("close")],
                       url=site.page("/never.html", gate=gate))
    site.wait_for("/never.html")
    (hosts.folder / "asked").touch()
    host.finish().succeeded()


def test_host_that_quits_at_once_after_the_start(hosts, site):
    hosts.run([do("quit")], url=site.page("/a.html")).succeeded()


def test_host_without_a_browser_ends(hosts):
    hosts.run([do("init")]).succeeded()


def test_window_closed_while_its_browser_is_being_made(hosts, site):
    """The engine makes a browser on a thread of its own, and the host takes the window away."""
    steps = [created(), loaded()]
    for number in range(8):
        name = f"brief{number}"
        steps += [do("browser", name=name, url=site.page(f"/{name}.html")),
                  do("close", browser=name)]
    run = hosts.run([*steps, load(site.page("/end.html")),
                     wait("LoadEndNotify", "b1", httpStatus=200)], url=site.page("/a.html"))
    run.succeeded()


def test_host_quits_while_a_file_arrives(hosts, site, tmp_path):
    site.raw("/file.bin", b"x" * 200_000, "application/octet-stream", half_way=threading.Event(),
             headers={"Content-Disposition": "attachment"})
    hosts.run([created(), loaded(),
               do("answer", notification="BeforeDownloadNotify",
                  set={"DownloadPathName": wine.windows_path(tmp_path / "file.bin"),
                       "CanBeDownloaded": True}),
               script("location.href = '/file.bin'"), wait("DownloadUpdatedNotify", "b1")],
              url=site.page("/a.html")).succeeded()
    assert not (tmp_path / "file.bin").exists()


def test_crash_of_the_page_leaves_the_host_working(hosts, site, lasting):
    url = site.page("/a.html", f"<script>new EventSource('{lasting.url}')</script>")
    good = site.page("/good.html")
    host = hosts.start([created(), loaded(), do("waitFile", path="connected", timeout=40_000),
                        load("chrome://crash"), do("waitFile", path="crashed", timeout=40_000),
                        do("mark"), load(good), wait("LoadEndNotify", httpStatus=200)], url=url)
    assert lasting.opened.wait(40)
    (hosts.folder / "connected").touch()
    assert lasting.closed.wait(40), "the page did not crash"
    (hosts.folder / "crashed").touch()
    host.finish().succeeded()


def crashes(hosts, site, lasting, before, *after):
    """Runs a host whose page keeps a connection open when it has come to it, crashes it there and
    goes on with the steps `after`."""
    host = hosts.start([created(), loaded(), *before,
                        do("waitFile", path="connected", timeout=40_000), load("chrome://crash"),
                        do("waitFile", path="crashed", timeout=40_000), *after],
                       url=site.url("/start.html"))
    assert lasting.opened.wait(40)
    (hosts.folder / "connected").touch()
    assert lasting.closed.wait(40), "the page did not crash"
    (hosts.folder / "crashed").touch()
    return host.finish().succeeded()


def test_crash_of_a_page_brings_the_first_one_back(hosts, site, lasting):
    start = site.page("/start.html")
    other = site.page("/other.html", f"<script>new EventSource('{lasting.url}')</script>")
    crashes(hosts, site, lasting, [load(other), wait("AddressChangeNotify", NewAddress=other)],
            wait("AddressChangeNotify", NewAddress=start), loaded())
    assert site.paths().count("/start.html") == 2


def test_crash_of_the_first_page_loads_nothing(hosts, site, lasting):
    site.page("/start.html", f"<script>new EventSource('{lasting.url}')</script>")
    other = site.page("/other.html")
    crashes(hosts, site, lasting, [], load(other), wait("LoadEndNotify", httpStatus=200))
    assert site.paths().count("/start.html") == 1


def test_crash_of_the_page_and_then_the_end(hosts, site, lasting):
    url = site.page("/a.html", f"<script>new EventSource('{lasting.url}')</script>")
    host = hosts.start([created(), loaded(), do("waitFile", path="connected", timeout=40_000),
                        load("chrome://crash"), do("waitFile", path="crashed", timeout=40_000)],
                       url=url)
    assert lasting.opened.wait(40)
    (hosts.folder / "connected").touch()
    assert lasting.closed.wait(40), "the page did not crash"
    (hosts.folder / "crashed").touch()
    host.finish().succeeded()


@pytest.mark.leaves_lock
def test_killed_host_leaves_no_engine_and_its_cache_can_be_taken_again(hosts, site):
    url = site.page("/a.html")
    host = hosts.start([created(), loaded(), do("waitFile", path="never", timeout=100_000)],
                       url=url)
    host.wait_for("LoadEndNotify")
    host.end_by_force()
    processes.wait_until(lambda: not processes.engine_processes(hosts.folder), 20,
                         "the end of the engine")
    assert [lock.parent for lock in locks(hosts)] == [hosts.cache]
    # The lock of a process that is gone is stale.
    hosts.run([created(), loaded()], url=url).succeeded()
    assert not locks(hosts)


def test_host_that_stops_at_a_failing_step_cleans_up(hosts, site):
    run = hosts.run([created(), loaded(),
                     do("get", object="b1", property="URL", equals="http://elsewhere/")],
                    url=site.page("/a.html"))
    assert run.status == 1

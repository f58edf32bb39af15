"""Processes of the engine that somebody ends under the host."""

import os
import signal

from support import processes
from support.steps import created, do, load, loaded, pixel, script, wait

BLUE = "<body style='background:#1030d0'></body>"


def start(hosts, url, *steps, before=()):
    """A host that carries out `steps` once the test has taken a process from it."""
    host = hosts.start([created(), loaded(), *before, do("mark"),
                        do("screenshot", file="ready.png"),
                        do("waitFile", path="taken", timeout=60_000), *steps], url=url)
    processes.wait_until((hosts.folder / "ready.png").exists, 90, "the end of the first steps")
    return host


def take(hosts, kind):
    """Ends all processes of the kind; the engine keeps a renderer in reserve."""
    taken = [pid for pid, line in processes.engine_processes(hosts.folder).items()
             if f"--type={kind} " in line or f"--utility-sub-type={kind} " in line]
    assert taken
    for pid in taken:
        os.kill(pid, signal.SIGKILL)
    (hosts.folder / "taken").touch()


def test_page_whose_renderer_is_lost_gives_way_to_the_first_page(hosts, site):
    first, second = site.page("/first.html", BLUE), site.page("/second.html")
    host = start(hosts, first, wait("AddressChangeNotify", NewAddress=first),
                 wait("LoadEndNotify", httpStatus=200), pixel(400, 300, "#1030d0"),
                 before=[load(second), wait("AddressChangeNotify", NewAddress=second), loaded()])
    take(hosts, "renderer")
    events = host.finish().succeeded()
    assert events.values("AddressChangeNotify", "NewAddress") == [first, second, first]
    assert site.paths().count("/first.html") == 2


def test_page_is_painted_by_another_graphics_process(hosts, site):
    host = start(hosts, site.page("/a.html", BLUE),
                 script("document.body.style.background = '#108040'"), pixel(400, 300, "#108040"),
                 before=[pixel(400, 300, "#1030d0")])
    take(hosts, "gpu-process")
    host.finish().succeeded()


def test_pages_are_loaded_by_another_network_process(hosts, site):
    url = site.page("/b.html")
    host = start(hosts, site.page("/a.html"), load(url),
                 wait("AddressChangeNotify", NewAddress=url),
                 wait("LoadEndNotify", httpStatus=200))
    take(hosts, "network.mojom.NetworkService")
    host.finish().succeeded()

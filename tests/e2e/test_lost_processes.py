"""Processes of the engine that somebody ends under the host."""

import os
import signal

from support import processes
from support.steps import created, do, load, loaded, pixel, script, wait

BLUE = "<body style='background:#1030d0'></body>"


def start(hosts, url, before, after):
    """A host that carries out the steps `after` once the test has taken a process from it."""
    host = hosts.start([created(), loaded(), *before, do("screenshot", file="ready.png"),
                        do("waitFile", path="taken", timeout=120_000), *after], url=url)
    processes.wait_until((hosts.folder / "ready.png").exists, 90, "the end of the first steps")
    return host


def take(hosts, kind):
    """Ends the process of the kind, and waits for the one that takes its place."""
    taken = processes.engine_process(hosts.folder, kind)
    os.kill(taken, signal.SIGKILL)
    processes.wait_until(lambda: any(f"type={kind} " in line for pid, line in
                                     processes.engine_processes(hosts.folder).items()
                                     if pid != taken), 60, f"another {kind}")
    (hosts.folder / "taken").touch()


def test_page_whose_renderer_is_killed_gives_way_to_the_first_page(hosts, site):
    first, second = site.page("/first.html", BLUE), site.page("/second.html")
    events = hosts.run([created(), loaded(), load(second),
                        wait("AddressChangeNotify", NewAddress=second), loaded(),
                        load("chrome://kill"), wait("AddressChangeNotify", NewAddress=first),
                        wait("LoadEndNotify", httpStatus=200), pixel(400, 300, "#1030d0")],
                       url=first).succeeded()
    assert events.values("AddressChangeNotify", "NewAddress") == [first, second, first]
    assert site.paths().count("/first.html") == 2


def test_page_is_painted_by_another_graphics_process(hosts, site):
    host = start(hosts, site.page("/a.html", BLUE), [pixel(400, 300, "#1030d0")],
                 [script("document.body.style.background = '#108040'"),
                  pixel(400, 300, "#108040")])
    take(hosts, "gpu-process")
    host.finish().succeeded()


def test_pages_are_loaded_by_another_network_process(hosts, site):
    url = site.page("/b.html")
    host = start(hosts, site.page("/a.html"), [],
                 [load(url), wait("AddressChangeNotify", NewAddress=url),
                  wait("LoadEndNotify", httpStatus=200)])
    take(hosts, "network.mojom.NetworkService")
    host.finish().succeeded()

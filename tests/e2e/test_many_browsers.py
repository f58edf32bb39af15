"""Browsers one after the other in one process."""

from support import processes
from support.steps import created, do, loaded

BROWSERS = 50
TIMEOUT = 600


def test_browsers_come_and_go(hosts, site):
    steps = [do("init")]
    for number in range(BROWSERS):
        name = f"b{number}"
        steps += [do("browser", name=name, url=site.page(f"/{number}.html")), created(name),
                  loaded(name), do("close", browser=name)]
    host = hosts.start(steps)
    events = host.finish(TIMEOUT).succeeded()
    assert [events.one("BrowserCreatedNotify", f"b{number}")["browser"]
            for number in range(BROWSERS)]
    assert site.paths()[-1] != "/0.html"
    assert not processes.engine_processes(hosts.folder)

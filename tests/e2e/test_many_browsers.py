"""Browsers one after the other in one process."""

from support.steps import created, do, loaded

BROWSERS = 50
TIMEOUT = 800


def test_browsers_come_and_go(hosts, site):
    names = [f"b{number}" for number in range(BROWSERS)]
    steps = [do("init")]
    for name in names:
        steps += [do("browser", name=name, url=site.page(f"/{name}.html")), created(name),
                  loaded(name), do("close", browser=name)]
    events = hosts.start(steps).finish(TIMEOUT).succeeded()
    for name in names:
        events.one("BrowserCreatedNotify", name)
    assert [path for path in site.paths() if path != "/favicon.ico"] == [
        f"/{name}.html" for name in names]

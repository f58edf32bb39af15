"""Requests on their way through a local hub."""

import pytest

from support import wine
from support.hub import Hub, installed_library
from support.steps import created, do, loaded, wait


@pytest.fixture
def hub(site):
    opened = Hub(site.url())
    yield opened
    opened.close()


@pytest.fixture
def page(site):
    """A page whose parts come from the same name, which only the hub knows."""
    site.raw("/part.js", b"fetch('/data.json')", "text/javascript")
    site.raw("/style.css", b"body { background: url(/picture.svg) }", "text/css")
    site.raw("/picture.svg", b"<svg xmlns='http://www.w3.org/2000/svg'/>", "image/svg+xml")
    site.raw("/data.json", b"{}", "application/json")
    site.page("/frame.html", "frame")
    site.page("/page.html", "<script src='/part.js'></script><iframe src='/frame.html'></iframe>",
              head="<link rel='stylesheet' href='/style.css'>")
    return {"/page.html", "/part.js", "/style.css", "/picture.svg", "/data.json", "/frame.html"}


def browse(hosts, hub, url, *, env=None):
    port = {"HubPort": hub.port} if hub else {}
    return hosts.run([do("init", settings=port), do("browser", name="b1", url=url),
                      created(), wait("BeforeResourceLoadNotify", URLStr="*/data.json"),
                      loaded()], env=env)


def test_every_request_of_a_page_goes_through_the_hub_rewritten(hosts, hub, page, site, tmp_path):
    counts = tmp_path / "counts"
    with installed_library(hosts.variables):
        run = browse(hosts, hub, "http://page.test:80/page.html", env={
            "KZ_HUB_REPLACE": "page.test>inner.test",
            "KZ_HUB_HEADERS": "X-Hub-Token:  42 \t|X-Hub-Link: http://skipped.test/|no header",
            "KZ_HUB_COUNTS": wine.windows_path(counts), "CefLogEnabled": "1"})
        events = run.succeeded()
    site.wait_for("/data.json")
    passed = hub.passed()
    assert {p.url for p in passed} >= {"http://inner.test" + path for path in page}
    assert [p.url for p in passed if not p.url.startswith("http://inner.test/")] == []
    assert {p.headers.get("X-Hub-Token") for p in passed} == {"42"}
    assert not any("X-Hub-Link" in p.headers for p in passed)
    assert "KZCEF: KZCEF Trace:  Added Header - X-Hub-Token: 42" in run.output.splitlines()
    # The host hears of the URLs that the hub gets.
    heard = events.values("BeforeResourceLoadNotify", "URLStr")
    assert {"http://inner.test" + path for path in page} <= set(heard)
    urls_given, urls_back, headers_given, headers_back = map(int, counts.read_text().split())
    assert urls_given == urls_back > 0
    assert headers_given == headers_back >= len(page)


def test_hub_without_a_library_gets_every_request_as_it_is(hosts, hub, page, site):
    events = browse(hosts, hub, "http://page.test:80/page.html").succeeded()
    site.wait_for("/data.json")
    assert {p.url for p in hub.passed()} >= {"http://page.test" + path for path in page}
    assert not any("X-Hub-Token" in p.headers for p in hub.passed())
    assert "http://page.test/page.html" in events.values("BeforeResourceLoadNotify", "URLStr")


def test_without_a_hub_no_request_arrives_there(hosts, hub, page, site):
    with installed_library(hosts.variables):
        events = browse(hosts, None, site.url("/page.html"), env={
            "KZ_HUB_HEADERS": "X-Hub-Token: 42"}).succeeded()
    assert events.values("LoadEndNotify", "httpStatus") != []
    site.wait_for("/data.json")
    assert hub.passed() == []
    assert not any("X-Hub-Token" in request.headers for request in site.requests)

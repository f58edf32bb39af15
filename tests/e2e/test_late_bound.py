"""The same road by IDispatch alone."""

from support import wine
from support.steps import created, do, load, loaded, pixel, script, wait

LATE = ["--late-bound"]


def test_first_page(hosts, site):
    url = site.page("/a.html", "<body style='background:#104080'></body>")
    events = hosts.run([created(), loaded(), pixel(700, 500, "#104080")], url=url,
                       switches=LATE).succeeded()
    assert events.values("AddressChangeNotify", "NewAddress") == [url]
    assert events.values("LoadEndNotify", "httpStatus") == [200]


def test_calls_on_a_running_browser(hosts, site):
    site.page("/ran")
    first, second = site.page("/1.html"), site.page("/2.html")
    events = hosts.run([
        created(), loaded(), load(second), wait("AddressChangeNotify", NewAddress=second), loaded(),
        do("resize", width=400, height=300),
        script("fetch('/ran?' + innerWidth).then(() => location.hash = 'x')"),
        wait("AddressChangeNotify", NewAddress=second + "#x"),
        do("mark"), do("refresh"), wait("LoadEndNotify", httpStatus=200),
    ], url=first, switches=LATE).succeeded()
    assert events.names()[0] == "BrowserCreatedNotify"
    assert any(path.startswith("/ran?") for path in site.paths())


def test_two_browsers_and_a_forbidden_popup(hosts, site):
    first, second = site.page("/1.html"), site.page("/2.html")
    site.page("/popup.html")
    events = hosts.run([
        do("init"), do("browser", name="b1", url=first), do("browser", name="b2", url=second),
        created("b1"), created("b2"), loaded("b1"), loaded("b2"),
        do("answer", browser="b2", notification="BeforePopupNotify", set={"Continue": False}),
        script("window.open('/popup.html')", "b2"), wait("BeforePopupNotify", "b2"),
        do("close", browser="b2"),
    ], switches=LATE).succeeded()
    assert events.notifications("BeforePopupNotify", "b1") == []
    assert "/popup.html" not in site.paths()


def test_screenshot_and_quit(hosts, site):
    picture = hosts.folder / "late.png"
    run = hosts.run(url=site.page("/a.html", "late"),
                    switches=LATE + ["--quit", "--screenshot", wine.windows_path(picture)])
    run.succeeded()
    assert picture.exists()

"""What the host hears of navigations, and in which order."""

import threading

from support.steps import created, do, load, loaded, script, wait

# The notifications of a navigation whose order is part of the contract.
ROAD = ("LoadingStateChangeNotify", "LoadStartNotify", "AddressChangeNotify", "LoadEndNotify")


def road_of(events):
    return [e["notification"] for e in events.notifications() if e["notification"] in ROAD]


def test_order_of_a_navigation(hosts, site):
    first, second = site.page("/1.html"), site.page("/2.html")
    events = hosts.run([created(), loaded(), load(second),
                        wait("AddressChangeNotify", NewAddress=second), loaded()],
                       url=first).succeeded()
    assert events.names()[0] == "BrowserCreatedNotify"
    road = road_of(events)
    expected = ["LoadingStateChangeNotify", "LoadStartNotify", "AddressChangeNotify",
                "LoadEndNotify", "LoadingStateChangeNotify"]
    assert road == expected * 2
    states = events.values("LoadingStateChangeNotify", "IsLoading")
    assert states == [True, False] * 2


def test_history_shows_in_the_loading_state(hosts, site):
    first, second = site.page("/1.html"), site.page("/2.html")
    events = hosts.run([created(), loaded(), load(second),
                        wait("AddressChangeNotify", NewAddress=second), loaded(),
                        script("history.back()"),
                        wait("AddressChangeNotify", NewAddress=first), loaded()],
                       url=first).succeeded()
    ends = [e for e in events.notifications("LoadingStateChangeNotify") if not e["IsLoading"]]
    assert [(e["CanGoBack"], e["CanGoForward"]) for e in ends] == \
        [(False, False), (True, False), (False, True)]


def test_fragment_changes_the_address_without_a_load(hosts, site):
    url = site.page("/page.html", "<a id='there'>there</a>")
    events = hosts.run([created(), loaded(), script("location.hash = 'there'"),
                        wait("AddressChangeNotify", NewAddress=url + "#there"),
                        script("fetch('/done')")], url=url).succeeded()
    assert events.values("AddressChangeNotify", "NewAddress") == [url, url + "#there"]
    assert len(events.notifications("LoadStartNotify")) == 1
    assert len(events.notifications("LoadEndNotify")) == 1
    assert site.paths().count("/page.html") == 1


def test_history_state_changes_the_address_without_a_load(hosts, site):
    url = site.page("/page.html")
    other = site.url("/never/asked/for")
    events = hosts.run([created(), loaded(), script("history.pushState({}, '', '/never/asked/for')"),
                        wait("AddressChangeNotify", NewAddress=other),
                        do("get", object="b1", property="URL", equals=other, timeout=5_000)],
                       url=url).succeeded()
    assert len(events.notifications("LoadStartNotify")) == 1
    assert "/never/asked/for" not in site.paths()


def test_status_of_a_missing_page(hosts, site):
    events = hosts.run([created(), loaded()],
                       url=site.page("/gone.html", "no", status=404)).succeeded()
    assert events.values("LoadEndNotify", "httpStatus") == [404]


def test_page_that_fails_before_it_comes_ends_with_status_0(hosts, site):
    good = site.page("/good.html")
    nowhere = "http://127.0.0.1:9/nobody"  # nobody listens there
    events = hosts.run([created(), loaded(), do("mark"), load(nowhere),
                        wait("LoadingStateChangeNotify", IsLoading=True), loaded(),
                        do("mark"), load(good), wait("LoadEndNotify", httpStatus=200), loaded()],
                       url=good).succeeded()
    # Nothing has begun, but the engine's own page on the error has been loaded in the end.
    assert events.values("LoadEndNotify", "httpStatus") == [200, 0, 200]
    assert len(events.notifications("LoadStartNotify")) == 2
    assert events.values("AddressChangeNotify", "NewAddress") == [good, good]


def test_blank_page_is_loaded_like_any_other(hosts, site):
    url = site.page("/a.html")
    events = hosts.run([created(), loaded(), load("about:blank"),
                        wait("AddressChangeNotify", NewAddress="about:blank"), loaded(),
                        load(url), wait("AddressChangeNotify", NewAddress=url), loaded()],
                       url="about:blank").succeeded()
    assert events.values("AddressChangeNotify", "NewAddress") == ["about:blank"] * 2 + [url]
    # It comes from no server, which would have sent a status.
    assert events.values("LoadEndNotify", "httpStatus") == [0, 0, 200]


def test_redirect_ends_at_its_target(hosts, site):
    target = site.page("/target.html")
    site.redirect("/middle", "/target.html", 301)
    start = site.redirect("/start", "/middle")
    events = hosts.run([created(), loaded()], url=start).succeeded()
    assert site.paths()[:3] == ["/start", "/middle", "/target.html"]
    assert events.values("AddressChangeNotify", "NewAddress") == [target]
    assert events.values("LoadEndNotify", "httpStatus") == [200]


def test_frame_inside_the_page_is_reported_too(hosts, site):
    site.page("/inner.html", "inner", status=200)
    url = site.page("/outer.html", "<iframe src='/inner.html'></iframe>")
    events = hosts.run([created(), loaded()], url=url).succeeded()
    assert len(events.notifications("LoadStartNotify")) == 2
    assert events.values("LoadEndNotify", "httpStatus") == [200, 200]


def test_link_clicked_with_the_mouse_is_followed(hosts, site):
    target = site.page("/target.html")
    url = site.page("/links.html", "<a href='/target.html' style='display:block;"
                                   "position:absolute;left:0;top:0;width:200px;height:100px'>go</a>")
    events = hosts.run([created(), loaded(), do("click", x=60, y=40),
                        wait("AddressChangeNotify", NewAddress=target), loaded()],
                       url=url).succeeded()
    # Link, not typed: the engine says how the page was reached (its lowest byte is the kind).
    assert events.values("LoadStartNotify", "TransitionType")[-1] & 0xFF == 0


def test_second_load_replaces_one_that_hangs(hosts, site):
    never = threading.Event()
    slow, good = site.page("/slow.html", gate=never), site.page("/good.html")
    start = site.page("/start.html")
    host = hosts.start([created(), loaded(), do("mark"), load(slow),
                        wait("LoadingStateChangeNotify", IsLoading=True),
                        do("waitFile", path="asked", timeout=40_000), load(good),
                        wait("AddressChangeNotify", NewAddress=good),
                        wait("LoadEndNotify", httpStatus=200)], url=start)
    site.wait_for("/slow.html")
    (hosts.folder / "asked").touch()
    events = host.finish().succeeded()
    assert slow not in events.values("AddressChangeNotify", "NewAddress")

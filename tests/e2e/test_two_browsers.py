"""Two browsers in two windows of one host, each with a handler of its own."""

import threading

from support.processes import wait_until
from support.steps import created, do, load, loaded, pixel, script, wait

BLUE = "<body style='background:#1030d0'></body>"
RED = "<body style='background:#d03010'></body>"


def start_both(first, second):
    return [do("init"), do("browser", name="b1", url=first), do("browser", name="b2", url=second),
            created("b1"), created("b2")]


def test_each_handler_hears_of_its_own_browser_while_both_load(hosts, site):
    gates = threading.Event(), threading.Event()
    first = site.page("/one.html", BLUE, gate=gates[0])
    second = site.page("/two.html", RED, gate=gates[1], status=404)
    host = hosts.start(start_both(first, second) + [
        loaded("b1"), loaded("b2"),
        do("call", object="b1", member="GetWindowHandle"),
        do("call", object="b2", member="GetWindowHandle"),
        pixel(700, 500, "#1030d0", "b1"), pixel(700, 500, "#d03010", "b2")])
    # Both are under way before either gets its answer.
    site.wait_for("/one.html")
    site.wait_for("/two.html")
    gates[1].set()
    gates[0].set()
    events = host.finish().succeeded()
    assert events.values("AddressChangeNotify", "NewAddress", "b1") == [first]
    assert events.values("AddressChangeNotify", "NewAddress", "b2") == [second]
    assert events.values("LoadEndNotify", "httpStatus", "b1") == [200]
    assert events.values("LoadEndNotify", "httpStatus", "b2") == [404]
    windows = [e["result"] for e in events.outcomes("call")]
    assert windows[0] != windows[1]
    assert {e["window"] for e in events.notifications(browser="b1")} == {windows[0]}
    assert {e["window"] for e in events.notifications(browser="b2")} == {windows[1]}


def test_closing_one_leaves_the_other_working(hosts, site):
    site.page("/ran")
    first, second = site.page("/one.html", BLUE), site.page("/two.html", RED)
    third = site.page("/three.html", BLUE)
    events = hosts.run(start_both(first, second) + [
        loaded("b1"), loaded("b2"),
        do("close", browser="b1"),
        load(third, "b2"), wait("AddressChangeNotify", "b2", NewAddress=third), loaded("b2"),
        pixel(700, 500, "#1030d0", "b2"),
        script("fetch('/ran?after').then(() => location.hash = 'ran')", "b2"),
        wait("AddressChangeNotify", "b2", NewAddress=third + "#ran"),
    ]).succeeded()
    assert "/ran?after" in site.paths()
    assert third not in events.values("AddressChangeNotify", "NewAddress", "b1")


def test_closing_one_while_the_other_loads(hosts, site):
    gate = threading.Event()
    first, second = site.page("/one.html"), site.page("/two.html", gate=gate)
    host = hosts.start(start_both(first, second) + [
        loaded("b1"), wait("LoadingStateChangeNotify", "b2", IsLoading=True),
        do("waitFile", path="asked", timeout=40_000), do("close", browser="b1"),
        do("screenshot", browser="b2", file="closed.png"), loaded("b2")])
    site.wait_for("/two.html")
    (hosts.folder / "asked").touch()
    wait_until((hosts.folder / "closed.png").exists, what="the closing of the first window")
    gate.set()
    events = host.finish().succeeded()
    assert events.values("LoadEndNotify", "httpStatus", "b2") == [200]


def test_handler_that_is_taken_back_hears_no_more(hosts, site):
    first, second = site.page("/one.html"), site.page("/two.html")
    events = hosts.run([
        created(), loaded(),
        do("call", object="app", member="UnRegisterKzCEFBrowserCallback",
           args=[None, 1, {"object": "b1"}, {"object": "handler:b1"}]),
        load(second),
        do("get", object="b1", property="URL", equals=second, timeout=40_000),
    ], url=first).succeeded()
    assert second not in events.values("AddressChangeNotify", "NewAddress")


def test_one_handler_for_two_browsers_serves_the_first_alone(hosts, site):
    first, second = site.page("/one.html"), site.page("/two.html")
    events = hosts.run(start_both(first, "about:blank") + [
        loaded("b1"), loaded("b2"),
        do("call", object="app", member="RegisterKzCEFBrowserCallback",
           args=[None, 1, {"object": "b2"}, {"object": "handler:b1"}]),
        load(second, "b2"), wait("AddressChangeNotify", "b2", NewAddress=second), loaded("b2"),
    ]).succeeded()
    assert events.values("AddressChangeNotify", "NewAddress", "b1") == [first]


def test_browsers_made_one_after_the_other_in_one_process(hosts, site):
    steps = [do("init"), do("browser", name="keeper", url="about:blank"), created("keeper")]
    for number in range(4):
        name = f"n{number}"
        steps += [do("browser", name=name, url=site.page(f"/{name}.html")), created(name),
                  wait("LoadEndNotify", name, httpStatus=200), do("close", browser=name)]
    hosts.run(steps).succeeded()


def test_page_that_closes_itself_closes_its_window_alone(hosts, site):
    first, second = site.page("/one.html", BLUE), site.page("/two.html", RED)
    third = site.page("/three.html", BLUE)
    # The engine asks the host's window to close, as its user would.
    hosts.run(start_both(first, second) + [
        loaded("b1"), loaded("b2"), script("window.close()", "b2"),
        do("gone", browser="b2", timeout=60_000),
        load(third), wait("AddressChangeNotify", NewAddress=third), loaded(),
        pixel(700, 500, "#1030d0")]).succeeded()

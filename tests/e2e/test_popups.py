"""Windows that a page asks for, and the host's say in them."""

import os

import pytest

from support import processes
from support.steps import created, do, loaded, script, wait


@pytest.fixture
def shell(tmp_path):
    """Stands in for the desktop: writes down what it is asked to open."""
    folder = tmp_path / "desktop"
    folder.mkdir()
    opened = folder / "opened"
    program = folder / "xdg-open"
    program.write_text(f"#!/bin/sh\nprintf '%s\\n' \"$1\" >> '{opened}'\n")
    program.chmod(0o755)

    class Shell:
        variables = {}

        @staticmethod
        def opened():
            return opened.read_text().splitlines() if opened.exists() else []

    Shell.variables = {"PATH": f"{folder}:{os.environ['PATH']}"}
    return Shell


def opener(site):
    site.page("/popup.html", "popup")
    site.page("/opened")
    return site.page("/opener.html", "opener")


# Opens a window and tells the server when it is gone or was never there.
def open_and_watch(url):
    return ("const w = window.open('%s');"
            "const watch = setInterval(() => { if (!w || w.closed) {"
            " clearInterval(watch); fetch('/opened?none'); } }, 50);" % url)


def test_popup_comes_when_the_host_says_nothing(hosts, site):
    url = opener(site)
    host = hosts.start([created(), loaded(), script("window.open('/popup.html')"),
                        wait("BeforePopupNotify"), do("waitFile", path="seen", timeout=40_000)],
                       url=url)
    site.wait_for("/popup.html")
    (hosts.folder / "seen").touch()
    popup = host.finish().succeeded().one("BeforePopupNotify")
    assert popup["URL"] == site.url("/popup.html")
    assert popup["Continue"] is True
    assert popup["Popup"] is False


def test_allowed_popup_takes_the_browser_objects_place(hosts, site):
    # The popup is created with the opener's client, and the object keeps the browser that was
    # created last: from then on it, and its handler, are about the popup.
    url = opener(site)
    events = hosts.run([created(), loaded(), do("call", object="b1", member="GetWindowHandle"),
                        script("window.open('/popup.html')"), wait("BeforePopupNotify"),
                        created(), wait("AddressChangeNotify", NewAddress="*/popup.html"), loaded(),
                        do("call", object="b1", member="GetWindowHandle")], url=url).succeeded()
    opener_window, popup_window = [e["result"] for e in events.outcomes("call")]
    assert opener_window != popup_window
    assert [e["window"] for e in events.notifications("BrowserCreatedNotify")] == \
        [opener_window, popup_window]


def test_popup_that_the_host_forbids_does_not_come(hosts, site, shell):
    url = opener(site)
    host = hosts.start([created(), loaded(),
                        do("answer", notification="BeforePopupNotify",
                           set={"Continue": False, "Popup": True}),
                        script(open_and_watch("/popup.html")), wait("BeforePopupNotify"),
                        do("waitFile", path="seen", timeout=40_000)], url=url, env=shell.variables)
    site.wait_for("/opened?none")
    (hosts.folder / "seen").touch()
    events = host.finish().succeeded()
    assert events.one("BeforePopupNotify")["answered"] == {"Popup": True, "Continue": False}
    assert "/popup.html" not in site.paths()
    assert shell.opened() == []


def test_popup_for_the_desktop_goes_to_the_shell_and_does_not_come(hosts, site, shell):
    url = opener(site)
    host = hosts.start([created(), loaded(),
                        do("answer", notification="BeforePopupNotify", set={"Popup": True}),
                        script(open_and_watch("/popup.html")), wait("BeforePopupNotify"),
                        do("waitFile", path="seen", timeout=40_000)], url=url, env=shell.variables)
    site.wait_for("/opened?none")
    processes.wait_until(shell.opened, what="the desktop's opening of the page")
    (hosts.folder / "seen").touch()
    host.finish().succeeded()
    assert shell.opened() == [site.url("/popup.html")]
    assert "/popup.html" not in site.paths()


def test_browsers_own_flag_sends_popups_to_the_desktop(hosts, site, shell):
    url = opener(site)
    host = hosts.start([do("init"), do("browser", name="b1", url=url, popup=True),
                        created(), loaded(), script(open_and_watch("/popup.html")),
                        wait("BeforePopupNotify", Popup=True),
                        do("waitFile", path="seen", timeout=40_000)], env=shell.variables)
    site.wait_for("/opened?none")
    processes.wait_until(shell.opened, what="the desktop's opening of the page")
    (hosts.folder / "seen").touch()
    host.finish().succeeded()
    assert "/popup.html" not in site.paths()


@pytest.mark.parametrize("blank", ["about:blank", "about:blank#print"])
def test_blank_popup_is_cancelled(hosts, site, blank):
    url = opener(site)
    host = hosts.start([created(), loaded(), script(open_and_watch(blank)),
                        wait("BeforePopupNotify", URL=blank),
                        do("waitFile", path="seen", timeout=40_000)], url=url)
    site.wait_for("/opened?none")
    (hosts.folder / "seen").touch()
    host.finish().succeeded()


def test_answers_can_depend_on_the_address(hosts, site):
    url = opener(site)
    site.page("/other.html", "other")
    host = hosts.start([created(), loaded(),
                        do("answer", notification="BeforePopupNotify", set={"Continue": False},
                           when={"URL": "*/popup.html"}),
                        script(open_and_watch("/popup.html")), wait("BeforePopupNotify"),
                        script("window.open('/other.html')"), wait("BeforePopupNotify"),
                        do("waitFile", path="seen", timeout=40_000)], url=url)
    site.wait_for("/opened?none")
    site.wait_for("/other.html")
    (hosts.folder / "seen").touch()
    host.finish().succeeded()
    assert "/popup.html" not in site.paths()


def test_link_into_a_window_of_its_own_is_asked_for(hosts, site):
    site.page("/popup.html", "popup")
    url = site.page("/opener.html", "<a href='/popup.html' target='_blank' style='position:absolute;"
                                    "left:0;top:0;width:200px;height:100px'>go</a>")
    host = hosts.start([created(), loaded(), do("click", x=50, y=50),
                        wait("BeforePopupNotify", URL=site.url("/popup.html")), created(),
                        wait("AddressChangeNotify", NewAddress="*/popup.html"), loaded()],
                       url=url)
    site.wait_for("/popup.html")
    host.finish().succeeded()

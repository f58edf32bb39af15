"""Menu, keys and focus of a real person at the desk."""

import pytest

from support import processes
from support.steps import created, do, loaded, pixel, wait

# The whole page is one place, and tells the server which keys and clicks it gets.
COLOUR = "#40a0a0"
TELL = (f"<style>html,body{{height:100%;margin:0}}body,textarea{{background:{COLOUR}}}</style><script>"
        "addEventListener('keydown', e => fetch('/keydown?' + e.code));"
        "addEventListener('keyup', e => fetch('/keyup?' + e.code));"
        "addEventListener('click', () => fetch('/click'));"
        "addEventListener('contextmenu', () => fetch('/contextmenu'));</script>")
# Without "autofocus": a field that has the focus without anybody's doing does not count for CEF.
FIELD = ("<textarea style='position:fixed;inset:0;width:100%;height:100%'"
         " onfocus='fetch(`/focus`)' oninput='fetch(`/input?${this.value}`)'></textarea>")
# A place in the view of the first window.
VIEW = (300, 250)


@pytest.fixture
def telling(site):
    for path in ("/keydown", "/keyup", "/click", "/contextmenu", "/input", "/focus"):
        site.raw(path, b"", "text/plain")
    return site


def browse(hosts, url, *steps, env=None, then=()):
    """A host that shows the page until the file "seen" is there, and carries out `then`."""
    host = hosts.start([created(), *steps, loaded(), pixel(300, 200, COLOUR),
                        do("screenshot", file="painted.png"),
                        do("waitFile", path="seen", timeout=120_000), *then], url=url, env=env)
    # A click at what is not to be seen yet meets nothing.
    processes.wait_until((hosts.folder / "painted.png").exists, 120, "the page")
    return host


def finish(hosts, host):
    (hosts.folder / "seen").touch()
    return host.finish().succeeded()


def test_key_comes_to_the_host_and_then_to_the_page(hosts, telling, desk):
    host = browse(hosts, telling.page("/a.html", TELL))
    desk.touch(*VIEW, telling)
    desk.key("a")
    telling.wait_for("/keydown?KeyA")
    telling.wait_for("/keyup?KeyA")
    events = finish(hosts, host)
    # Once: a key's release and its character come to the page alone.
    assert events.values("KeyStrokeNotify", "windowsKeyCode") == [65]
    assert events.one("KeyStrokeNotify")["isEventHandled"] is False
    assert events.notifications("EscapeKeyNotify") == []


@pytest.mark.parametrize("answer, stops", [(-1, True), (1, False), (2, False), (0, False)])
def test_only_minus_one_keeps_a_key_from_the_page(hosts, telling, desk, answer, stops):
    host = browse(hosts, telling.page("/a.html", TELL),
                  do("answer", notification="KeyStrokeNotify", set={"isEventHandled": answer},
                     when={"windowsKeyCode": 65}))
    desk.touch(*VIEW, telling)
    desk.key("a")
    desk.key("b")
    telling.wait_for("/keydown?KeyB")
    events = finish(hosts, host)
    assert events.values("KeyStrokeNotify", "windowsKeyCode") == [65, 66]
    assert ("/keydown?KeyA" in telling.paths()) is not stops


def test_escape_gives_both_notifications_escape_first(hosts, telling, desk):
    host = browse(hosts, telling.page("/a.html", TELL))
    desk.touch(*VIEW, telling)
    desk.key("Escape")
    telling.wait_for("/keydown?Escape")
    events = finish(hosts, host)
    names = [n for n in events.names() if n in ("EscapeKeyNotify", "KeyStrokeNotify")]
    assert names == ["EscapeKeyNotify", "KeyStrokeNotify"]
    assert events.one("KeyStrokeNotify")["windowsKeyCode"] == 27


def test_keys_for_a_text_field_go_to_the_page_alone(hosts, telling, desk):
    host = browse(hosts, telling.page("/a.html", FIELD + TELL))
    desk.touch(*VIEW, telling)
    telling.wait_for("/focus")
    desk.type("ab")
    telling.wait_for("/input?ab")
    desk.key("Escape")
    telling.wait_for("/keyup?Escape")
    events = finish(hosts, host)
    assert events.notifications("KeyStrokeNotify") == []
    assert events.notifications("EscapeKeyNotify") == []


def test_text_that_the_host_posts_arrives_at_the_view_with_the_focus(hosts, telling, desk):
    form = ("<form action='/sent'><input name=q style='position:fixed;inset:0;width:100%;height:100%;"
            f"background:{COLOUR}' onfocus='fetch(`/focus`)'></form>")
    telling.page("/sent")
    host = browse(hosts, telling.page("/a.html", form + TELL),
                  then=[do("type", text="ab 12\n"),
                        wait("AddressChangeNotify", NewAddress="*/sent?q=ab+12")])
    desk.touch(*VIEW, telling)
    telling.wait_for("/focus")
    finish(hosts, host)
    assert "/sent?q=ab+12" in telling.paths()


def test_keys_count_again_once_the_field_has_lost_the_focus(hosts, telling, desk):
    page = "<input autofocus onfocus='fetch(`/focus`)'>" + TELL
    host = browse(hosts, telling.page("/a.html", page))
    telling.wait_for("/focus")
    desk.touch(*VIEW, telling)
    desk.key("q")
    telling.wait_for("/keydown?KeyQ")
    events = finish(hosts, host)
    assert events.values("KeyStrokeNotify", "windowsKeyCode") == [81]


def right_click(desk, telling, count=1):
    """Returns the windows that were there before."""
    desk.touch(*VIEW, telling)
    before = desk.windows()
    desk.click(*VIEW, button=3)
    telling.wait_for("/contextmenu", count)
    return before


@pytest.mark.parametrize("answer", [0, -1])
def test_no_menu_without_the_switch_whatever_the_host_says(hosts, telling, desk, answer):
    host = browse(hosts, telling.page("/a.html", TELL),
                  do("answer", notification="BeforeContextMenuNotify", set={"ClearModel": answer}))
    before = right_click(desk, telling)
    host.wait_for("BeforeContextMenuNotify")
    # A menu would take this key.
    desk.key("r")
    telling.wait_for("/keydown?KeyR")
    assert desk.windows() == before
    events = finish(hosts, host)
    assert events.one("BeforeContextMenuNotify")["ClearModel"] is False
    assert telling.paths().count("/a.html") == 1


@pytest.mark.parametrize("value", ["", "0"])
def test_menu_with_the_switch_refreshes_the_page(hosts, telling, desk, value):
    host = browse(hosts, telling.page("/a.html", TELL), env={"EnablePlatformRMB": value})
    before = right_click(desk, telling)
    menu = desk.wait_for_window(before)
    desk.key("r")
    telling.wait_for("/a.html", 2)
    desk.wait_until_gone(menu)
    finish(hosts, host)
    assert "/keydown?KeyR" not in telling.paths()


def test_host_that_clears_the_menu_gets_none_even_with_the_switch(hosts, telling, desk):
    host = browse(hosts, telling.page("/a.html", TELL),
                  do("answer", notification="BeforeContextMenuNotify", set={"ClearModel": 2}),
                  env={"EnablePlatformRMB": "1"})
    before = right_click(desk, telling)
    host.wait_for("BeforeContextMenuNotify")
    desk.key("r")
    telling.wait_for("/keydown?KeyR")
    assert desk.windows() == before
    finish(hosts, host)
    assert telling.paths().count("/a.html") == 1


def test_menu_that_is_left_changes_nothing(hosts, telling, desk):
    host = browse(hosts, telling.page("/a.html", TELL), env={"EnablePlatformRMB": "1"})
    menu = desk.wait_for_window(right_click(desk, telling))
    desk.key("Escape")
    desk.wait_until_gone(menu)
    # Both buttons and keys are the page's again.
    menu = desk.wait_for_window(right_click(desk, telling, 2))
    desk.key("Escape")
    desk.wait_until_gone(menu)
    desk.key("x")
    telling.wait_for("/keydown?KeyX")
    events = finish(hosts, host)
    assert len(events.notifications("BeforeContextMenuNotify")) == 2
    assert telling.paths().count("/a.html") == 1


def test_host_that_ends_while_a_menu_is_open_ends_cleanly(hosts, telling, desk):
    host = browse(hosts, telling.page("/a.html", TELL), env={"EnablePlatformRMB": "1"})
    desk.wait_for_window(right_click(desk, telling))
    finish(hosts, host)

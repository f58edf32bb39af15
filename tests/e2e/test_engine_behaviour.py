"""What only the engine can show: that it behaves as CEF 123 did."""

import json

import pytest

from support import wine
from support.steps import created, do, load, loaded, script, wait

# Three questions one after the other; the answers are told in the address.
QUESTIONS = """<script>
addEventListener('load', () => setTimeout(() => {
  alert('first\\nsecond line');
  const agreed = confirm('Agreed?');
  const name = prompt('Name?', 'nobody');
  location.hash = agreed + '-' + name;
}, 0));
</script>"""
ALERT = "<script>addEventListener('load', () => setTimeout(() => alert('here'), 0));</script>"
# Needs a click before it asks.
ASKS_BEFORE_UNLOAD = """<style>html,body{height:100%;margin:0}</style><script>
addEventListener('beforeunload', e => { e.preventDefault(); e.returnValue = 'stay'; });
addEventListener('click', () => fetch('/click'));
</script>"""


def title_of(site):
    return site.url("").split("//")[1] + " says"


@pytest.mark.parametrize("keys, answers", [
    ((["Return"], ["Return"], ["K", "Return"]), "#true-K"),
    ((["Escape"], ["Escape"], ["Escape"]), "#false-null"),
])
def test_alert_confirm_and_prompt_show_a_dialog_each(hosts, site, desk, keys, answers):
    url = site.page("/questions.html", QUESTIONS)
    host = hosts.start([created(), wait("AddressChangeNotify", NewAddress=url + "#*")], url=url)
    host.wait_for("BrowserCreatedNotify")
    for pressed in keys:
        dialog = desk.wait_for_named(title_of(site), timeout=40)
        desk.activate(dialog)
        desk.key(*pressed)
        desk.wait_until_gone(dialog)
    events = host.finish().succeeded()
    assert events.values("AddressChangeNotify", "NewAddress")[-1] == url + answers


def test_dialog_keeps_neither_the_host_nor_another_browser_waiting(hosts, site, desk):
    alerting, other = site.page("/alert.html", ALERT), site.page("/other.html")
    host = hosts.start([created(), do("waitFile", path="seen", timeout=60_000),
                        do("browser", name="b2", url=other), created("b2"), loaded("b2")],
                       url=alerting)
    host.wait_for("BrowserCreatedNotify")
    dialog = desk.wait_for_named(title_of(site), timeout=40)
    (hosts.folder / "seen").touch()
    # The end of the host takes the dialog along.
    host.finish().succeeded()
    desk.wait_until_gone(dialog)
    assert "/other.html" in site.paths()


def test_dialog_goes_with_its_page(hosts, site, desk):
    host = hosts.start([created(), do("waitFile", path="seen", timeout=60_000),
                        load(site.page("/next.html"), hresult=0),
                        wait("AddressChangeNotify", NewAddress=site.url("/next.html")), loaded(),
                        do("waitFile", path="gone", timeout=60_000)],
                       url=site.page("/alert.html", ALERT))
    host.wait_for("BrowserCreatedNotify")
    dialog = desk.wait_for_named(title_of(site), timeout=40)
    (hosts.folder / "seen").touch()
    desk.wait_until_gone(dialog, timeout=60)
    (hosts.folder / "gone").touch()
    host.finish().succeeded()


def touch(hosts, site, desk, *steps):
    """A host that carries out the steps once the user has touched its page, which asks before it is
    left: only a page that was touched may."""
    site.raw("/click", b"", "text/plain")
    host = hosts.start([created(), loaded(), do("waitFile", path="touched", timeout=60_000),
                        do("mark"), *steps], url=site.page("/asks.html", ASKS_BEFORE_UNLOAD))
    host.wait_for("LoadEndNotify")
    desk.touch(300, 250, site)
    (hosts.folder / "touched").touch()
    return host


def ask(hosts, site, desk, *steps):
    """The same, and the dialog in which the page asks."""
    return (touch(hosts, site, desk, *steps),
            desk.wait_for_named("^(Leave|Reload) site", timeout=40))


def test_page_is_not_asked_when_its_window_is_closed(hosts, site, desk):
    touch(hosts, site, desk, do("close")).finish().succeeded()


def test_page_that_asks_is_left_when_the_user_agrees(hosts, site, desk):
    other = site.page("/other.html")
    host, dialog = ask(hosts, site, desk, load(other),
                       wait("AddressChangeNotify", NewAddress=other), loaded())
    desk.activate(dialog)
    desk.key("Return")
    desk.wait_until_gone(dialog)
    host.finish().succeeded()


def test_page_that_asks_stays_when_the_user_does_not_agree(hosts, site, desk):
    host, dialog = ask(hosts, site, desk, do("refresh"),
                       do("waitFile", path="answered", timeout=60_000),
                       script("fetch('/still-here')"), wait("ResourceResponseNotify",
                                                            URLStr="*/still-here"))
    desk.activate(dialog)
    desk.key("Escape")
    desk.wait_until_gone(dialog)
    (hosts.folder / "answered").touch()
    host.finish().succeeded()
    assert site.paths().count("/asks.html") == 1


def test_host_may_end_while_the_page_asks(hosts, site, desk):
    host, dialog = ask(hosts, site, desk, load(site.page("/other.html")),
                       do("waitFile", path="asked", timeout=60_000))
    (hosts.folder / "asked").touch()
    host.finish().succeeded()
    desk.wait_until_gone(dialog)


def test_pages_picture_is_fetched_by_those_who_ask_for_it_alone(hosts, site):
    # The server asks for the picture that a page names, and for no other.
    site.raw("/named.png", b"", "image/png")
    site.raw("/bare.html", b"<!DOCTYPE html><title>bare</title><p>no picture", "text/html")
    site.raw("/naming.html", b"<!DOCTYPE html><link rel='icon' href='/named.png'><p>one",
             "text/html")
    host = hosts.start([created(), loaded(), do("waitFile", path="asked", timeout=60_000)],
                       url=site.url("/bare.html"))
    host.wait_for("LoadEndNotify")
    (hosts.folder / "asked").touch()
    events = host.finish().succeeded()
    assert "/favicon.ico" not in site.paths()
    assert not [url for url in events.values("BeforeResourceLoadNotify", "URLStr")
                if url.endswith("favicon.ico")]


ARBITRARY = {"LocalesDirPath": "C:\\arbitrary", "ResourcesDirPath": "C:\\arbitrary",
             "Locale": "xx-arbitrary", "JavascriptFlags": "arbitrary",
             "AcceptLanguageList": "arbitrary text", "UserAgent": "arbitrary\r\ntext",
             "UserAgentProduct": "arbitrary", "LangResourceDllPath": "arbitrary"}


def test_start_survives_settings_that_name_nothing(hosts, site):
    cache = wine.windows_path(hosts.cache)
    hosts.run([do("init", settings={"CachePath": cache, **ARBITRARY}),
               do("browser", name="b1", url=site.page("/a.html")), created(), loaded()]).succeeded()
    assert "/a.html" in site.paths()
    log = (hosts.cache / "debug.log").read_text(errors="replace")
    assert "locales_dir_path is left out: C:\\arbitrary" in log
    assert "resources_dir_path is left out: C:\\arbitrary" in log


# As long as Chrome's services need to come up.
LINGERS = "<script>setTimeout(() => { location.hash = 'done'; }, 20_000);</script>"


def test_engine_looks_for_no_host_of_its_own(hosts, site):
    record = hosts.folder / "net.json"
    url = site.page("/lingers.html", LINGERS)
    hosts.run([do("init", settings={"CachePath": wine.windows_path(hosts.cache)},
                  switches={"log-net-log": wine.windows_path(record)}),
               do("browser", name="b1", url=url), created(),
               wait("AddressChangeNotify", NewAddress=url + "#done")]).succeeded()
    looked_for = {event["params"]["host"].split("//")[-1].split(":")[0]
                  for event in events_of(record) if "host" in event.get("params", {})}
    # The system wants its proxy found by the name "wpad", as with CEF 123.
    assert looked_for <= {"127.0.0.1", "wpad"}, looked_for
    assert record.stat().st_size > 0


def events_of(record):
    """The events of Chromium's own record of its network, which ends with the process."""
    lines = record.read_text(errors="replace").splitlines()
    events = []
    for line in lines:
        if line.startswith('{"params"') or line.startswith('{"phase"'):
            events.append(json.loads(line.rstrip(",]}") + "}" * (
                line.rstrip(",]}").count("{") - line.rstrip(",]}").count("}"))))
    return events

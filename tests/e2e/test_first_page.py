"""The road from the first call to the first page."""

from support import image, wine
from support.steps import created, do, load, loaded, pixel, script, wait

GREEN = "<body style='margin:0;background:#00a050'></body>"


def test_url_of_the_command_line_is_opened_and_reported(hosts, site):
    url = site.page("/first.html", "hello", title="first")
    run = hosts.run([created(), loaded()], url=url)
    events = run.succeeded()
    assert site.paths().count("/first.html") == 1
    assert url in events.values("AddressChangeNotify", "NewAddress")
    assert 200 in events.values("LoadEndNotify", "httpStatus")


def test_sample_page_runs_its_script_and_loads_its_frame(hosts, site):
    site.samples(wine.REPOSITORY / "samples")
    picture = hosts.folder / "sample.png"
    run = hosts.run(
        [created(), wait("ResourceLoadCompleteNotify", RequestURL=site.url("/federated/search"),
                         jsonStr='{"query":"windows"}'),
         # The header of the page.
         pixel(400, 6, "#17466e"),
         do("screenshot", file=wine.windows_path(picture))],
        url=site.url("/index.html"))
    events = run.succeeded()
    for path in ("/index.html", "/style.css", "/page.js", "/picture.svg", "/frame.html",
                 "/frame.js", "/arrived.txt"):
        assert path in site.paths()
    assert events.one("ResourceRedirectNotify")["NewURLStr"] == site.url("/arrived.txt")
    # The page and the frame inside it.
    assert events.values("LoadEndNotify", "httpStatus").count(200) >= 2
    assert image.colours(picture) > 100


def test_every_notification_names_the_browsers_window(hosts, site):
    events = hosts.run([created(), loaded(),
                        do("call", object="b1", member="GetWindowHandle")],
                       url=site.page("/a.html")).succeeded()
    window = events.outcomes("call")[0]["result"]
    assert window != 0
    assert {e["window"] for e in events.notifications()} == {window}


def test_notifications_come_on_the_engines_thread(hosts, site):
    events = hosts.run([created(), loaded()], url=site.page("/a.html")).succeeded()
    threads = {e["thread"] for name in ("BrowserCreatedNotify", "LoadStartNotify", "LoadEndNotify",
                                        "AddressChangeNotify")
               for e in events.notifications(name)}
    assert len(threads) == 1


def test_page_is_painted_in_the_view(hosts, site):
    picture = hosts.folder / "view.png"
    hosts.run([created(), loaded(), pixel(10, 10, "#00a050"), pixel(790, 590, "#00a050"),
               do("screenshot", file=wine.windows_path(picture), area="view")],
              url=site.page("/green.html", GREEN)).succeeded()
    assert image.size(picture) == (800, 600)
    assert image.near(image.pixel(picture, 400, 300), (0, 0xA0, 0x50))


def test_screenshot_switch_and_quit_end_by_themselves(hosts, site):
    picture = hosts.folder / "shot.png"
    run = hosts.run(url=site.page("/green.html", GREEN),
                    switches=["--quit", "--console", "--screenshot", wine.windows_path(picture)])
    run.succeeded()
    assert "b1 LoadEndNotify httpStatus=200" in run.output
    # Below the bar the view begins.
    assert image.near(image.pixel(picture, 400, 200), (0, 0xA0, 0x50))


def test_quit_complains_when_the_page_never_comes(hosts, site):
    import threading
    url = site.page("/never.html", gate=threading.Event())
    run = hosts.run(url=url, switches=["--quit", "--timeout", "3"])
    assert run.status == 1
    assert "not loaded in time" in run.errors


def test_url_put_before_the_start_answers_false_and_is_opened_at_the_start(hosts, site):
    url = site.page("/later.html")
    events = hosts.run([
        do("init"),
        do("browser", name="b1", start=False),
        load(url, hresult=1),
        do("get", object="b1", property="URL", equals=""),
        do("start"), created(), loaded(),
        do("get", object="b1", property="URL", equals=url, timeout=10_000),
    ]).succeeded()
    assert "/later.html" in site.paths()
    assert url in events.values("AddressChangeNotify", "NewAddress")


def test_url_put_after_the_start_loads(hosts, site):
    first, second = site.page("/1.html"), site.page("/2.html")
    events = hosts.run([created(), loaded(), load(second, hresult=0),
                        wait("AddressChangeNotify", NewAddress=second), loaded(),
                        do("get", object="b1", property="URL", equals=second)],
                       url=first).succeeded()
    assert events.values("AddressChangeNotify", "NewAddress") == [first, second]


def test_refresh_loads_again_and_answers_false(hosts, site):
    url = site.page("/again.html")
    events = hosts.run([created(), loaded(), do("mark"), do("refresh", hresult=1),
                        wait("LoadEndNotify", httpStatus=200), loaded(),
                        do("refresh", ignoreCache=True, hresult=1),
                        wait("LoadEndNotify", httpStatus=200), loaded()],
                       url=url).succeeded()
    assert site.paths().count("/again.html") == 3
    assert [e["hresult"] for e in events.outcomes("refresh")] == [1, 1]


def test_script_changes_the_page(hosts, site):
    site.page("/seen")
    url = site.page("/plain.html", "<p>nothing yet</p>")
    hosts.run([created(), loaded(),
               script("document.body.style.background = '#2030c0'; fetch('/seen?ran');"),
               pixel(700, 500, "#2030c0")], url=url).succeeded()
    assert "/seen?ran" in site.paths()


def test_script_that_throws_disturbs_nobody(hosts, site):
    site.page("/seen")
    url = site.page("/plain.html")
    hosts.run([created(), loaded(), script("throw new Error('on purpose')"),
               script("this is no script"), script("location.hash = 'fine'"),
               wait("AddressChangeNotify", NewAddress=url + "#fine")], url=url).succeeded()


def test_text_outside_ascii_arrives_whole(hosts, site):
    url = site.page("/plain.html")
    events = hosts.run([created(), loaded(),
                        script("history.pushState({}, '', '/?q=' + 'é€😀')"),
                        wait("AddressChangeNotify", NewAddress="*/?q=*")], url=url).succeeded()
    from urllib.parse import unquote
    assert unquote(events.values("AddressChangeNotify", "NewAddress")[-1]).endswith("/?q=é€😀")


def test_properties_of_settings_and_browser_read_back(hosts, site):
    hosts.run([
        do("put", object="settings", property="UserAgentProduct", value="MyHost/1.0"),
        do("get", object="settings", property="UserAgentProduct",
           equals="Chrome/123.0.6312.124MyHost/1.0"),
        do("get", object="settings", property="HubPort", equals=-1),
        do("put", object="b1", property="PopupUserBrowser", value=True),
        do("get", object="b1", property="PopupUserBrowser", equals=True),
        created(),
    ], url=site.page("/a.html")).succeeded()


def test_second_application_object_sees_the_same_engine(hosts, site):
    url = site.page("/second.html")
    hosts.run([
        created(), loaded(),
        do("create", **{"class": "KZCEFComApplication", "as": "other"}),
        do("call", object="other", member="GetKzCEFBrowser", args=[None, 0], **{"as": "kept"}),
        # With an engine behind it a browser object answers, even before it is started.
        do("call", object="kept", member="GetWindowHandle", equals=0),
        do("call", object="other", member="IsProcessingNotifications", equals=False),
    ], url=url).succeeded()

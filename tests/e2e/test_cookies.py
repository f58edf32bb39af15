"""Cookies of the engine's store, through the cookie manager."""

import json

import pytest

from support.steps import TIMEOUT_MS, created, do, loaded

SECURE = "https://a.test/"


def cookie(name, value, domain="a.test"):
    return {"name": name, "value": value, "domain": domain}


def text(name, value, domain="127.0.0.1"):
    """A cookie as hosts get it."""
    return f'{{"domain":"{domain}","name":"{name}","value":"{value}"}}'


def test_cookies_of_pages_are_read(hosts, site):
    url = site.page("/page.html", "<script>document.cookie = 'seen=by page'</script>",
                    headers={"Set-Cookie": 'hidden=a"b; HttpOnly; Path=/'})
    texts = [text("hidden", 'a"b'), text("seen", "by page")]
    events = hosts.run([
        created(), loaded(),
        do("getCookiesSync", url=url, has=texts, timeout=TIMEOUT_MS),
        do("getCookies", url=url, has=texts, timeout=TIMEOUT_MS),
        do("getAllCookies", has=texts),
        do("getCookiesSync", url="http://elsewhere.test/", equals=None)], url=url).succeeded()
    [read] = [e["result"] for e in events.outcomes("getAllCookies")]
    assert sorted(read) == sorted(texts)


def test_cookies_are_set_and_read_again(hosts, site):
    hosts.run([
        created(), loaded(),
        do("setCookies", url=SECURE, cookies=[cookie("lorvlang", "fr"), cookie("other", "1, 2")]),
        do("getCookiesSync", url=SECURE, timeout=TIMEOUT_MS,
           has=[text("lorvlang", "fr", ".a.test"), text("other", "1, 2", ".a.test")]),
        # They are secure.
        do("getCookiesSync", url="http://a.test/", equals=None)],
        url=site.page("/page.html")).succeeded()


def test_one_that_is_no_cookie_does_not_stop_the_others(hosts, site):
    hosts.run([
        created(), loaded(),
        do("setCookies", url=SECURE, cookies=["{}", "", "no object", cookie("a", "1"),
                                              '{"name":"b","value":"2"}', cookie("c", "3")]),
        do("getCookiesSync", url=SECURE, timeout=TIMEOUT_MS,
           has=[text("a", "1", ".a.test"), text("c", "3", ".a.test")])],
        url=site.page("/page.html")).succeeded()


def kept(hosts, site, persist):
    """What of a session cookie and of one that lasts is there after a restart on the same cache."""
    url = site.page("/page.html", headers={"Set-Cookie": "lasting=1; Max-Age=3600"})
    settings = {"PersistSessionCookies": True} if persist else {}

    def start():
        return [do("init", settings=settings), do("browser", name="b1", url="about:blank"),
                created(), loaded()]
    hosts.run(start() + [
        do("load", url=url), do("wait", notification="AddressChangeNotify",
                                where={"NewAddress": url}), loaded(),
        do("setCookies", url=SECURE, cookies=[cookie("session", "1")]),
        do("getAllCookies", timeout=TIMEOUT_MS,
           has=[text("lasting", "1"), text("session", "1", ".a.test")])]).succeeded()
    events = hosts.run(start() + [do("getAllCookies", has=[text("lasting", "1")],
                                     timeout=TIMEOUT_MS)]).succeeded()
    return {json.loads(found)["name"] for found in events.outcomes("getAllCookies")[-1]["result"]}


def test_session_cookies_outlive_a_restart_when_the_settings_say_so(hosts, site):
    assert kept(hosts, site, persist=True) == {"lasting", "session"}


def test_session_cookies_end_with_the_engine_otherwise(hosts, site):
    assert kept(hosts, site, persist=False) == {"lasting"}


@pytest.mark.parametrize("switches", [[], ["--late-bound"]], ids=["early", "late"])
def test_manager_made_before_the_start_serves_nothing_for_ever(hosts, site, switches):
    attempts = [
        do("setCookies", url=SECURE, cookies=[cookie("n", "v")], equals=False, hresult=0),
        do("getCookies", url=SECURE, equals=None, hresult=0),
        do("getCookiesSync", url=SECURE, equals=None, hresult=0),
        do("getAllCookies", equals=None, hresult=0),
    ]
    events = hosts.run([
        *attempts, do("init"), do("browser", name="b1", url=site.page("/a.html")),
        created(), loaded(), *attempts,
    ], switches=switches).succeeded()
    results = [e["result"] for e in events.all if "Cookies" in e.get("do", "")]
    assert results == [False, None, None, None] * 2


@pytest.mark.parametrize("switches", [[], ["--late-bound"]], ids=["early", "late"])
def test_setting_answers_true_whatever_is_in_the_array(hosts, site, switches):
    hosts.run([
        created(), loaded(),
        do("setCookies", url=SECURE, cookies=[], hresult=0),
        do("setCookies", url=SECURE, hresult=0,
           cookies=["{}", "", "no cookie", {"name": "n"}, cookie("n", "v")]),
        do("call", object="cookies", member="SetUrlCookies", args=[SECURE, "no array"], equals=True,
           hresult=0),
        do("call", object="cookies", member="SetUrlCookies", args=[SECURE, None], equals=True,
           hresult=0),
    ], url=site.page("/a.html"), switches=switches).succeeded()


def test_cookies_that_are_not_as_wanted_fail_the_step(hosts):
    run = hosts.run([do("init"), do("getAllCookies", has=["*"], timeout=200)])
    assert run.status == 1
    assert ":2: the cookies are null" in run.errors

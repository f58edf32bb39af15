"""The cookie manager, from a host's side."""

import pytest

from support.steps import created, do, loaded

URL = "https://a.test/"
COOKIE = {"name": "n", "value": "v", "domain": "a.test"}


@pytest.mark.parametrize("switches", [[], ["--late-bound"]], ids=["early", "late"])
def test_manager_made_before_the_start_serves_nothing_for_ever(hosts, site, switches):
    attempts = [
        do("setCookies", url=URL, cookies=[COOKIE], equals=False, hresult=0),
        do("getCookies", url=URL, equals=None, hresult=0),
        do("getCookiesSync", url=URL, equals=None, hresult=0),
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
        do("setCookies", url=URL, cookies=[], hresult=0),
        do("setCookies", url=URL, cookies=["{}", "", "no cookie", {"name": "n"}, COOKIE], hresult=0),
        do("call", object="cookies", member="SetUrlCookies", args=[URL, "no array"], equals=True,
           hresult=0),
        do("call", object="cookies", member="SetUrlCookies", args=[URL, None], equals=True,
           hresult=0),
    ], url=site.page("/a.html"), switches=switches).succeeded()


def test_cookies_that_are_not_as_wanted_fail_the_step(hosts):
    run = hosts.run([do("init"), do("getAllCookies", has=["*"], timeout=200)])
    assert run.status == 1
    assert ":2: the cookies are null" in run.errors

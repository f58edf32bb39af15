"""What the host learns of a page's posts to a federated search service."""

import pytest

from support.steps import created, loaded, script, wait


# The post by which a test's page shows that it has come to its end.
LAST = "/federated/last"


@pytest.fixture
def post(hosts, site):
    """Has a page do something and answers what the host learned of posts until then."""
    site.raw("/federated/search", b"{}", "application/json")
    site.raw("/Federated/search", b"{}", "application/json")

    last = fetch(LAST, "'{}'")

    def post(*scripts):
        events = hosts.run([
            created(), loaded(),
            script(f"(async () => {{ {'; '.join([*scripts, last])} }})()"),
            wait("ResourceLoadCompleteNotify", RequestURL=site.url(LAST))],
            url=site.page("/page.html")).succeeded()
        told = [(e["RequestURL"], e["jsonStr"]) for e in
                events.notifications("ResourceLoadCompleteNotify")]
        assert told[-1][0] == site.url(LAST)
        return told[:-1]
    return post


def fetch(path, body, type_="application/json", header="Content-Type"):
    return f"await fetch('{path}', {{method: 'POST', headers: {{'{header}': '{type_}'}}," \
           f" body: {body}}}).then(answer => answer.text())"


def xhr(method, path, body="null", type_=None):
    header = f"x.setRequestHeader('Content-Type', '{type_}');" if type_ else ""
    return f"await new Promise(done => {{ const x = new XMLHttpRequest; x.onloadend = done;" \
           f"x.open('{method}', '{path}'); {header} x.send({body}) }})"


def test_body_is_told_whatever_the_letter_case_and_the_charset(post, site):
    url = site.url("/federated/search")
    assert post(
        xhr("POST", "/federated/search", "'{\"q\": 1}'", "APPLICATION/JSON; charset=UTF-8"),
        fetch("/federated/search?x", "'{\"q\": 2}'", header="content-TYPE"),
        fetch("/federated/search", "'[]'", "application/vnd.api+Json;Charset=iso-8859-1"),
    ) == [(url, '{"q": 1}'), (url + "?x", '{"q": 2}'), (url, "[]")]


def test_nothing_is_told_of_other_requests(post):
    assert post(
        fetch("/Federated/search", "'{}'"),
        fetch("/other", "'{}'"),
        fetch("/federated/search", "'{}'", "text/plain"),
        xhr("GET", "/federated/search", "null", "application/json"),
        xhr("POST", "/federated/search", "null", "application/json"),
        xhr("POST", "/federated/search", "''", "application/json"),
        "await fetch('/federated/search', {method: 'POST', body: '{}'})",
        "await new Promise(done => { const f = document.createElement('iframe'); f.onload = done;"
        " f.src = '/federated/search?frame'; document.body.append(f) })",
    ) == []


def test_bytes_that_are_no_text_are_read_in_the_ansi_code_page(post, site):
    assert post(fetch("/federated/search", "new Uint8Array([0x7b, 0xff, 0xc3, 0xa4, 0x80, 0x7d])")
                ) == [(site.url("/federated/search"), "{\u00ff\u00c3\u00a4\u20ac}")]


def test_body_that_is_a_blob_is_not_told(post):
    """The engine keeps a blob's contents to itself: the request has no element with bytes."""
    assert post(fetch("/federated/search", "new Blob(['{\"q\":1}'])")) == []


def test_long_body_is_told_whole(post, site):
    assert post(fetch("/federated/search", "'x'.repeat(300000)")) == \
        [(site.url("/federated/search"), "x" * 300_000)]


def test_post_that_the_server_refuses_is_told_too(post, site):
    assert post(xhr("POST", "/federated/missing", "'{}'", "application/json")) == \
        [(site.url("/federated/missing"), "{}")]

"""A proxy that wants to know who is there."""

import subprocess

import pytest

from support import wine
from support.hub import Hub
from support.steps import created, do, load, loaded, wait

USER, PASSWORD = "clerk@office", 'p:a ss"wörd-7391'
# A kind of host for which the handler is asked, and those for which a provider is.
OTHER = "SomeOtherHost"
PROVIDERS = {"meadow": "{D7EBFB49-DC9B-4560-A73F-893A93575A8E}",
             "quill": "{C9E54B23-10E5-4F0C-AB9B-81181B508E3E}",
             "harbor": "{219180B0-7183-4FE2-B167-4E2BFE534004}"}


@pytest.fixture
def proxy(site):
    opened = Hub(site.url(), credentials=(USER, PASSWORD))
    yield opened
    opened.close()


@pytest.fixture
def providers(prefix, display):
    """The credential providers of an installation."""
    library = (wine.bin_folder().parent /
               "tests/support/credential_provider/kz_credential_provider.dll")
    variables = wine.environment(prefix, display)

    def registry(*arguments):
        subprocess.run(["wine", "reg", *arguments, "/f"], env=variables, check=True, timeout=60,
                       stdin=subprocess.DEVNULL, capture_output=True)
    for class_id in PROVIDERS.values():
        key = rf"HKLM\SOFTWARE\Classes\CLSID\{class_id}\InprocServer32"
        registry("add", key, "/ve", "/d", wine.windows_path(library))
        registry("add", key, "/v", "ThreadingModel", "/d", "Both")
    yield
    for class_id in PROVIDERS.values():
        registry("delete", rf"HKLM\SOFTWARE\Classes\CLSID\{class_id}")


def start(hosts, proxy, url, *steps, kind=OTHER, env=None, settings=None):
    return hosts.start(
        [do("init", settings={"ApplicationType": kind, "HubPort": proxy.port, **(settings or {})}),
         do("browser", name="b1", url="about:blank"), created(), loaded(), *steps[:-1],
         load(url), steps[-1]], env=env)


def browse(*arguments, **named):
    return start(*arguments, **named).finish()


def answer(user, password, proceed=-1):
    return do("answer", notification="GetAuthCredentialsNotify",
              set={"shouldContinue": proceed, "username": user, "password": password})


def test_host_is_asked_and_its_answer_opens_the_proxy(hosts, site, proxy):
    site.page("/a.html")
    events = browse(hosts, proxy, "http://page.test/a.html", answer(USER, PASSWORD),
                    wait("LoadEndNotify", httpStatus=200)).succeeded()
    assert [p.url for p in proxy.passed() if "page.test" in p.url] == ["http://page.test/a.html"]
    asked = events.one("GetAuthCredentialsNotify")
    assert asked["isProxy"] is True
    assert (asked["host"], asked["port"]) == ("127.0.0.1", proxy.port)
    assert asked["realm"] == Hub.REALM
    assert asked["scheme"].lower() == "basic"
    assert asked["origin_url"]
    # What the host is to fill in.
    assert (asked["shouldContinue"], asked["username"], asked["password"]) == (False, "", "")


def holds_no_secret(folder):
    written = [f for f in folder.rglob("*") if f.is_file() and not f.name.endswith(".steps")]
    assert any(f.name == "debug.log" for f in written)
    secrets = [PASSWORD.encode(), PASSWORD.encode("utf-16-le"), Hub._basic(USER, PASSWORD).encode(),
               b"rd-7391", USER.encode(), USER.encode("utf-16-le")]
    for file in written:
        content = file.read_bytes()
        assert not [s for s in secrets if s in content], file


VERBOSE = {"env": {"CefLogEnabled": "1"}, "settings": {"LogSeverity": 1}}


def test_secrets_are_written_nowhere(hosts, site, proxy):
    site.page("/a.html")
    run = browse(hosts, proxy, "http://page.test/a.html", answer(USER, PASSWORD),
                 wait("LoadEndNotify", httpStatus=200), **VERBOSE)
    run.succeeded()
    assert "KZCEF Trace" in run.output
    holds_no_secret(hosts.folder)


def test_secrets_of_a_request_that_does_not_go_on_are_written_nowhere(hosts, site, proxy):
    site.page("/a.html")
    browse(hosts, proxy, "http://page.test/a.html", answer(USER, PASSWORD, 1),
           wait("LoadEndNotify", httpStatus=407), **VERBOSE).succeeded()
    holds_no_secret(hosts.folder)


def test_secrets_of_a_provider_are_written_nowhere(hosts, site, providers):
    site.page("/a.html")
    proxy = Hub(site.url(), credentials=(USER, "wrd-7391"))
    try:
        browse(hosts, proxy, "http://page.test/a.html", wait("LoadEndNotify", httpStatus=200),
               kind="KzxHarbor", settings=VERBOSE["settings"],
               env={**VERBOSE["env"],
                    "KZ_CREDENTIALS": '{"username":"%s","password":"wrd-7391"}' % USER}).succeeded()
    finally:
        proxy.close()
    holds_no_secret(hosts.folder)


@pytest.mark.parametrize("proceed", [0, 1])
def test_host_that_does_not_go_on_sees_the_proxys_page(hosts, site, proxy, proceed):
    """Only -1 is a yes."""
    site.page("/a.html")
    events = browse(hosts, proxy, "http://page.test/a.html", answer(USER, PASSWORD, proceed),
                    wait("LoadEndNotify", httpStatus=407)).succeeded()
    assert events.one("GetAuthCredentialsNotify")
    assert proxy.passed() == []
    assert proxy.refused == []


def test_wrong_credentials_are_asked_for_again(hosts, site, proxy):
    site.page("/a.html")
    host = hosts.start(
        [do("init", settings={"ApplicationType": OTHER, "HubPort": proxy.port}),
         do("browser", name="b1", url="about:blank"), created(), loaded(),
         answer(USER, "wrong"), load("http://page.test/a.html"), wait("GetAuthCredentialsNotify"),
         answer(USER, PASSWORD), wait("LoadEndNotify", httpStatus=200)])
    events = host.finish().succeeded()
    assert f"{USER}:wrong" in proxy.refused
    assert len(events.notifications("GetAuthCredentialsNotify")) >= 2


def test_credentials_of_a_server_are_not_asked_of_the_host(hosts, site):
    site.page("/a.html", status=401, headers={"WWW-Authenticate": 'Basic realm="inner"'})
    events = hosts.run([do("init", settings={"ApplicationType": OTHER}),
                        do("browser", name="b1", url=site.url("/a.html")), created(),
                        wait("LoadEndNotify", httpStatus=401)]).succeeded()
    assert events.notifications("GetAuthCredentialsNotify") == []


@pytest.mark.parametrize("kind, name", [("KzxMeadow", "meadow"), ("kzxmeadow", "meadow"),
                                        ("KzxQuillAddinLoaded", "quill"), ("KZXHARBOR", "harbor")])
def test_provider_of_the_kind_of_host_answers(hosts, site, proxy, providers, kind, name):
    site.page("/a.html")
    proxy_for_kind = Hub(site.url(), credentials=(name, PASSWORD.replace('"', "")))
    try:
        events = browse(
            hosts, proxy_for_kind, "http://page.test/a.html",
            wait("LoadEndNotify", httpStatus=200), kind=kind,
            env={"KZ_CREDENTIALS": '{"username":"{kind}","password":"%s"}'
                                   % PASSWORD.replace('"', "")}).succeeded()
    finally:
        proxy_for_kind.close()
    assert proxy_for_kind.refused == []
    assert events.notifications("GetAuthCredentialsNotify") == []


@pytest.mark.parametrize("said", [None, "", "{}", '{"username":"clerk"}', '{"password":"p"}',
                                  "no JSON at all"])
def test_provider_that_gives_no_credentials_ends_the_request(hosts, site, proxy, providers, said):
    site.page("/a.html")
    browse(hosts, proxy, "http://page.test/a.html", wait("LoadEndNotify", httpStatus=407),
           kind="KzxHarbor", env={} if said is None else {"KZ_CREDENTIALS": said}).succeeded()
    assert proxy.refused == []
    assert proxy.passed() == []


def test_provider_that_is_not_installed_ends_the_request(hosts, site, proxy):
    site.page("/a.html")
    browse(hosts, proxy, "http://page.test/a.html", wait("LoadEndNotify", httpStatus=407),
           kind="KzxMeadow").succeeded()
    assert proxy.refused == []

"""Servers that want to see a certificate of the user's own."""

import contextlib

import pytest

from support.secure_site import NAME, AskingSite
from support.steps import created, do, load, loaded, wait
from support.user_certificates import Authority

CHOOSER = "Select a certificate"


@pytest.fixture(scope="module")
def authority(tmp_path_factory):
    return Authority(tmp_path_factory.mktemp("certificates") / "authority", "Inner Office")


@pytest.fixture(scope="module")
def people(authority):
    return [authority.issue(person) for person in ("Ada", "Berta", "Cora")]


@pytest.fixture
def asking(authority):
    opened = AskingSite(authority.file)
    opened.page("/a.html")
    opened.page("/b.html")
    yield opened
    opened.close()


@pytest.fixture
def install(hosts):
    with contextlib.ExitStack() as installed:
        yield lambda *people: [installed.enter_context(person.installed(hosts.variables))
                               for person in people]


def browse(hosts, asking, desk, *steps):
    """A host at which somebody sits, and which goes to the site then."""
    host = hosts.start([do("init", switches=asking.switches(NAME)),
                        do("browser", name="b1", url="about:blank"), created(), loaded(),
                        do("waitFile", path="here", timeout=60_000), do("mark"),
                        load(asking.url("/a.html")), *steps])
    host.wait_for("LoadEndNotify")
    desk.click(300, 250)
    (hosts.folder / "here").touch()
    return host


def choose(desk, *keys):
    dialog = desk.wait_for_named(CHOOSER, 60)
    for key in keys:
        desk.key(key)
    desk.wait_until_gone(dialog)


LOADED = wait("LoadEndNotify", httpStatus=200)
# The engine's page on the error stands in place of the site's.
FAILED = wait("LoadEndNotify", httpStatus=0)


@pytest.mark.parametrize("person", ["Ada", "Berta", "Cora"])
def test_certificate_that_the_user_chooses_is_shown_to_the_server(hosts, asking, desk, install,
                                                                  people, person):
    install(*people)
    host = browse(hosts, asking, desk, LOADED)
    # The list finds a row by the first letter of its subject.
    choose(desk, person[0].lower(), "Return")
    host.finish().succeeded()
    assert asking.shown == [person]
    assert "PEER_DID_NOT_RETURN_A_CERTIFICATE" not in asking.refusals


def test_user_who_cancels_shows_none_and_gets_no_page(hosts, asking, desk, install, people):
    install(*people)
    host = browse(hosts, asking, desk, FAILED)
    choose(desk, "Escape")
    events = host.finish().succeeded()
    assert asking.shown == []
    assert "PEER_DID_NOT_RETURN_A_CERTIFICATE" in asking.refusals
    assert 200 not in events.values("LoadEndNotify", "httpStatus")[1:]


def test_only_certificate_is_shown_without_asking(hosts, asking, desk, install, people):
    install(people[0])
    browse(hosts, asking, desk, LOADED).finish().succeeded()
    assert asking.shown == ["Ada"]


def test_user_without_a_certificate_is_told_so(hosts, asking, desk):
    host = browse(hosts, asking, desk, FAILED)
    choose(desk, "Return")
    host.finish().succeeded()
    assert asking.shown == []
    assert "PEER_DID_NOT_RETURN_A_CERTIFICATE" in asking.refusals

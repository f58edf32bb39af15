"""Sites whose certificate nobody vouches for."""

import pytest

from support.secure_site import NAME, SecureSite
from support.steps import created, do, load, loaded, wait

# Begins as the name of the one site whose own signature will do.
OTHER = NAME + ".other.test"


@pytest.fixture
def secure():
    opened = SecureSite()
    opened.page("/a.html")
    opened.page("/b.html")
    yield opened
    opened.close()


def browse(hosts, secure, *steps):
    return hosts.run([do("init", switches=secure.switches(NAME, OTHER)),
                      do("browser", name="b1", url="about:blank"), created(), loaded(),
                      do("mark"), *steps]).succeeded()


def test_self_signed_certificate_will_do_for_the_test_site(hosts, secure):
    url = secure.url("/a.html?x")
    events = browse(hosts, secure, load(url), wait("LoadEndNotify", httpStatus=200))
    assert secure.paths() == ["/a.html?x"]
    assert events.values("AddressChangeNotify", "NewAddress")[-1] == url


def test_self_signed_certificate_is_refused_everywhere_else(hosts, secure):
    refused = secure.url("/a.html", OTHER)
    events = browse(hosts, secure, load(refused),
                    wait("LoadingStateChangeNotify", IsLoading=True), loaded(),
                    # Nothing is stuck after that.
                    load(secure.url("/b.html")), wait("LoadEndNotify", httpStatus=200))
    assert secure.paths() == ["/b.html"]
    assert refused not in events.values("AddressChangeNotify", "NewAddress")

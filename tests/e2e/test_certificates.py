"""Sites whose certificate nobody vouches for."""

import pytest

from support.secure_site import SecureSite
from support.steps import created, do, load, loaded, wait

# The one site whose own signature will do, and another one like it.
TEST_SITE, OTHER = "selfsigned.test", "selfsigned.test.other.test"


@pytest.fixture
def secure(tmp_path):
    opened = SecureSite(tmp_path, [TEST_SITE, OTHER])
    yield opened
    opened.close()


def browse(hosts, secure, *steps):
    return hosts.run([do("init", switches=secure.switches([TEST_SITE, OTHER])),
                      do("browser", name="b1", url="about:blank"), created(), loaded(),
                      do("mark"), *steps]).succeeded()


def test_self_signed_certificate_will_do_for_the_test_site(hosts, secure):
    events = browse(hosts, secure, load(f"https://{TEST_SITE}/a.html?x"),
                    wait("LoadEndNotify", httpStatus=200))
    assert secure.paths == [f"{TEST_SITE}/a.html?x"]
    assert events.values("AddressChangeNotify", "NewAddress")[-1] == f"https://{TEST_SITE}/a.html?x"


def test_self_signed_certificate_is_refused_everywhere_else(hosts, secure):
    events = browse(hosts, secure, load(f"https://{OTHER}/"),
                    wait("LoadingStateChangeNotify", IsLoading=True), loaded(),
                    # Nothing is stuck after that.
                    load(f"https://{TEST_SITE}/b.html"), wait("LoadEndNotify", httpStatus=200))
    assert secure.paths == [f"{TEST_SITE}/b.html"]
    assert f"https://{OTHER}/" not in events.values("AddressChangeNotify", "NewAddress")

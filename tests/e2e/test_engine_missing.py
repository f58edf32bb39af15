"""A machine without the browser engine: everything answers, nothing happens, the reason is told."""

import pytest

from support.steps import created, do, load, loaded, script

# The lock is taken before the engine starts and given back by the shut-down of one that has.
pytestmark = pytest.mark.leaves_lock

NO_ENGINE = {"KZCEF_ENGINE_PATH": "/nonexistent/engine"}


def test_calls_answer_and_do_nothing(hosts, site):
    url = site.page("/a.html")
    run = hosts.run([
        do("init", hresult=0),
        # A second start is not tried.
        do("init", hresult=0),
        do("browser", name="b1", url=url),
        load(url, hresult=1),
        script("fetch('/ran')"),
        do("call", object="b1", member="ResizeBrowser", args=[100, 100]),
        do("refresh", hresult=0),
        do("get", object="b1", property="URL", equals=""),
        do("call", object="app", member="IsProcessingNotifications", equals=False),
    ], env=NO_ENGINE)
    events = run.succeeded()
    assert events.notifications() == []
    assert site.paths() == []


def test_reason_stands_in_the_log(hosts):
    hosts.run([do("init")], env=NO_ENGINE).succeeded()
    log = (hosts.cache / "debug.log").read_text(errors="replace")
    assert "/nonexistent/engine" in log


def test_next_host_takes_the_cache_of_a_failed_start(hosts, site):
    hosts.run([do("init")], env=NO_ENGINE).succeeded()
    assert (hosts.cache / "cef.lock").exists()
    hosts.run([created(), loaded()], url=site.page("/a.html")).succeeded()
    assert not (hosts.cache / "cef.lock").exists()
    assert not (hosts.cache / "kzhost_1").exists()


def test_host_says_what_is_wrong(hosts, site):
    run = hosts.run(url=site.page("/a.html"), switches=["--quit"], env=NO_ENGINE)
    assert run.status == 1
    assert "engine did not start" in run.errors
    assert "debug.log" in run.errors


def test_host_says_what_is_wrong_when_bound_late(hosts, site):
    run = hosts.run(url=site.page("/a.html"), env=NO_ENGINE,
                    switches=["--quit", "--late-bound", "--timeout", "3"])
    assert run.status == 1
    assert "the browser was not created in time" in run.errors
    assert "debug.log" in run.errors


def test_program_that_is_no_browser_ends_the_start_in_time(hosts):
    run = hosts.run([do("init")], env={"KZCEF_ENGINE_PATH": "/bin/true"})
    run.succeeded()
    assert (hosts.cache / "debug.log").read_text(errors="replace").strip()


def test_program_that_never_answers_ends_the_start_in_time(hosts, tmp_path):
    silent = tmp_path / "silent"
    silent.write_text("#!/bin/sh\nexec sleep 600\n")
    silent.chmod(0o755)
    run = hosts.run([do("init")], env={"KZCEF_ENGINE_PATH": str(silent)})
    run.succeeded()
    assert (hosts.cache / "debug.log").read_text(errors="replace").strip()

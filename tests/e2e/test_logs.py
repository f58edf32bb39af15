"""What the environment variables write down."""

import pytest

from support.steps import created, do, loaded


def console_page(site):
    site.page("/done")
    return site.page("/console.html", head="<script>console.log('said by the page');"
                                           "console.error('failed on purpose');</script>")


def test_console_messages_are_recorded_when_asked_for(hosts, site):
    url = console_page(site)
    hosts.run([created(), loaded()], url=url, env={"KZCefConsoleLog": "1"}).succeeded()
    # In the host's current directory; read as bytes for the line ends.
    text = (hosts.folder / "console.log").read_bytes().decode()
    records = text.split("-" * 23)
    said = next(r for r in records if "said by the page" in r)
    assert [line.strip() for line in said.strip().splitlines() if line.strip()] == [
        "Level: Info", "Message: said by the page", f"Source: {url}", "Line: 1"]
    assert any("Level: Error" in r and "failed on purpose" in r for r in records)


@pytest.mark.parametrize("value", ["", "0", "2", "yes"])
def test_console_messages_are_not_recorded_otherwise(hosts, site, value):
    hosts.run([created(), loaded()], url=console_page(site),
              env={"KZCefConsoleLog": value} if value else {}).succeeded()
    assert not (hosts.folder / "console.log").exists()


def test_trace_goes_through_the_hosts_library(hosts, site):
    run = hosts.run([created(), loaded()], url=site.page("/a.html"), env={"CefLogEnabled": "1"})
    run.succeeded()
    lines = [line for line in run.output.splitlines() if line.startswith("KZCEF: ")]
    assert "KZCEF: KZCEF Trace: Hub is Off" in lines
    assert all(line.startswith("KZCEF: KZCEF Trace: ") for line in lines)


def test_no_trace_without_the_variable(hosts, site):
    run = hosts.run([created(), loaded()], url=site.page("/a.html"))
    run.succeeded()
    assert "KZCEF" not in run.output


def test_engines_log_stands_in_the_cache_directory(hosts, site):
    hosts.run([created(), loaded()], url=site.page("/a.html")).succeeded()
    assert (hosts.cache / "debug.log").exists()


def test_log_file_of_the_settings_wins(hosts, site, tmp_path):
    from support import wine
    log = tmp_path / "elsewhere.log"
    hosts.run([do("init", settings={"LogFile": wine.windows_path(log)}),
               do("browser", name="b1", url=site.page("/a.html")), created(), loaded()]).succeeded()
    assert log.exists()
    assert not (hosts.cache / "debug.log").exists()


def test_user_agent_of_the_settings_reaches_the_server(hosts, site):
    hosts.run([do("init", settings={"UserAgent": "MyHost/2.0 (test)"}),
               do("browser", name="b1", url=site.page("/a.html")), created(), loaded()]).succeeded()
    assert site.wait_for("/a.html").headers["User-Agent"] == "MyHost/2.0 (test)"

"""The steps file of the sample host, from outside."""

import pytest

from support.steps import created, do, loaded


def steps_file(hosts):
    from support import wine
    return wine.windows_path(hosts.folder / "host1.steps")


@pytest.mark.parametrize("wrong, message", [
    ('{"do": "jump"}', 'there is no step "jump"'),
    ('{"do": "load"}', '"load" needs "url", a text'),
    ('{"do": "load", "url": "a"', "this is no JSON object"),
    ('{"do": "wait", "notification": "NoNotify"}', 'there is no notification "NoNotify"'),
])
def test_wrong_step_names_its_line_before_anything_starts(hosts, wrong, message):
    run = hosts.run(["# a comment", "", do("init"), wrong])
    assert run.status == 1
    assert f"{steps_file(hosts)}:4: {message}" in run.errors
    assert not hosts.cache.exists()


def test_failing_step_names_its_line(hosts, site):
    url = site.page("/a.html")
    run = hosts.run([created(), "# the third line is the one",
                     do("get", object="b1", property="URL", equals="http://elsewhere/")], url=url)
    assert run.status == 1
    assert f"{steps_file(hosts)}:3: the property is " in run.errors


def test_wait_that_is_in_vain_names_its_line_and_what_it_waited_for(hosts, site):
    run = hosts.run([created(), loaded(),
                     do("wait", notification="LoadEndNotify", where={"httpStatus": 418},
                        timeout=200)], url=site.page("/a.html"))
    assert run.status == 1
    assert f'{steps_file(hosts)}:3: LoadEndNotify with {{"httpStatus":418}} did not arrive' \
        in run.errors


def test_unknown_names_are_told(hosts, site):
    url = site.page("/a.html")
    for step, message in [
        (do("load", url="about:blank", browser="b9"), 'there is no browser "b9"'),
        (do("get", object="nobody", property="URL"), 'there is no object "nobody"'),
        (do("get", object="b1", property="Nonsense"), "the call answered 0x80020006"),
        (do("call", object="app", member="Nonsense"), "the call answered 0x80020006"),
        (do("create", **{"class": "KZCEFComNonsense", "as": "x"}), "the call answered 0x"),
        (do("call", object="b1", member="ResizeBrowser", args=[1]), "the call answered 0x8002000E"),
    ]:
        run = hosts.run([created(), step], url=url)
        assert run.status == 1, step
        assert message in run.errors, step


def test_class_that_is_declared_but_not_creatable(hosts, site):
    hosts.run([created()], url=site.page("/a.html")).succeeded()
    run = hosts.run([created(), do("create", **{"class": "KZCEFComApplication2", "as": "x"})],
                    url=site.page("/a.html"))
    assert run.status == 1
    assert "0x80040111" in run.errors


def test_missing_files_are_told(hosts):
    run = hosts.run(switches=["--run", "Z:\\nowhere\\steps"])
    assert run.status == 1
    assert "cannot read" in run.errors
    run = hosts.run(switches=["--events", "Z:\\nowhere\\events"])
    assert run.status == 1
    assert "cannot write" in run.errors


def test_wrong_command_line_has_a_status_of_its_own(hosts):
    run = hosts.run(switches=["--nonsense"])
    assert run.status == 2
    assert "unknown switch --nonsense" in run.errors


def test_help_tells_the_switches_and_starts_nothing(hosts):
    run = hosts.run(switches=["--help"])
    assert run.status == 0
    for switch in ("--run", "--events", "--late-bound", "--screenshot"):
        assert switch in run.output
    assert not hosts.cache.exists()


def test_missing_server_is_told(hosts):
    run = hosts.run(switches=["--server", "Z:\\nowhere\\KZCEFComWrapper.dll"])
    assert run.status == 1
    assert "the server cannot be reached" in run.errors


def test_events_file_has_every_notification_as_one_object_a_line(hosts, site):
    events = hosts.run([created(), loaded()], url=site.page("/a.html")).succeeded()
    assert [e["seq"] for e in events.all] == list(range(1, len(events.all) + 1))
    for event in events.notifications():
        assert {"browser", "notification", "window", "thread"} <= event.keys()


def test_quit_ends_the_steps(hosts, site):
    hosts.run([created(), do("quit"), do("get", object="nobody", property="URL")],
              url=site.page("/a.html")).succeeded()

"""Hosts that find the server by the registry."""

import subprocess

import pytest

from support import processes, wine
from support.steps import created, loaded

# The clients are found by class identifier; the classes have no names of their own.
SCRIPT = """
Set application = GetObject("new:{3DB0ECFC-7271-457C-9C7B-5B6D48A73A2B}")
application.GetToken "KzxMeadow", Empty
Set settings = application.GetKzCEFComSettings(Nothing)
settings.CachePath = WScript.Arguments(0)
settings.MultiThreadedMessageLoop = True
settings.UserAgentProduct = " Script/1"
WScript.Echo "agent " & settings.UserAgentProduct
WScript.Echo "hub " & settings.HubPort
settings.AddCefCommandLineArg "lang", "de"
application.InitCef Nothing, settings
Set browser = application.GetKzCEFBrowser(Nothing, 0)
browser.URL = "about:blank"
browser.PopupUserBrowser = True
WScript.Echo "popup " & browser.PopupUserBrowser
Set cookies = application.GetCookieManager(Nothing, 0)
WScript.Echo "cookies " & TypeName(cookies)
Set files = CreateObject("Scripting.FileSystemObject")
WScript.Echo "locked " & files.FileExists(WScript.Arguments(0) & "\\cef.lock")
application.HostClosing True
WScript.Echo "processing " & application.IsProcessingNotifications
Set browser = Nothing
Set cookies = Nothing
application.ExitCef Nothing
WScript.Echo "locked " & files.FileExists(WScript.Arguments(0) & "\\cef.lock")
"""


@pytest.fixture
def regsvr32(prefix, display):
    library = wine.windows_path(wine.bin_folder() / "KZCEFComWrapper.dll")

    def run(*switches):
        subprocess.run(["wine", "regsvr32", "/s", *switches, library],
                       env=wine.environment(prefix, display), check=True, timeout=60,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    return run


@pytest.fixture
def for_the_user(regsvr32):
    regsvr32("/n", "/i:user")
    yield
    regsvr32("/u", "/n", "/i:user")


@pytest.fixture
def for_the_machine(regsvr32):
    regsvr32()
    yield
    regsvr32("/u")


@pytest.mark.parametrize("switches", [[], ["--late-bound"]], ids=["early", "late"])
def test_first_page_registered_for_the_user(hosts, site, for_the_user, switches):
    url = site.page("/a.html")
    events = hosts.run([created(), loaded()], url=url, registered=True,
                       switches=switches).succeeded()
    assert events.values("AddressChangeNotify", "NewAddress") == [url]


@pytest.mark.parametrize("switches", [[], ["--late-bound"]], ids=["early", "late"])
def test_first_page_registered_for_the_machine(hosts, site, for_the_machine, switches):
    url = site.page("/a.html")
    events = hosts.run([created(), loaded()], url=url, registered=True,
                       switches=switches).succeeded()
    assert events.values("AddressChangeNotify", "NewAddress") == [url]


def test_server_that_is_not_registered_is_told(hosts):
    run = hosts.run(registered=True)
    assert run.status == 1
    assert "is it registered?" in run.errors


# Registered for the machine: Wine's COM, which cscript goes by, does not look at the user's classes.
def test_script_client(hosts, tmp_path, for_the_machine):
    script = tmp_path / "client.vbs"
    script.write_text(SCRIPT)
    process = subprocess.run(
        ["wine", "cscript", "/nologo", wine.windows_path(script), wine.windows_path(hosts.cache)],
        env=hosts.variables, timeout=120, capture_output=True, text=True, cwd=tmp_path)
    lines = [line for line in process.stdout.splitlines() if line.strip()]
    assert lines == ["agent Chrome/123.0.6312.124 Script/1", "hub -1", "popup True",
                     "cookies " + lines[3].split(" ", 1)[1], "locked True", "processing False",
                     "locked False"]
    assert lines[3] != "cookies Nothing"
    assert not processes.engine_processes(hosts.cache)

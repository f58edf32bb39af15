"""Files that pages offer, and where the host lets them go."""

import hashlib
import random
import socket
import subprocess
import threading

import pytest

from support import wine
from support.steps import TIMEOUT_MS, created, do, loaded, wait

_FOLDERS = (r"HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders")
_DOWNLOADS = "{374DE290-123F-4565-9164-39C4925E467B}"
CONTENT = b"number;name\r\n1;\xfc\r\n"


@pytest.fixture
def downloads(prefix, display, tmp_path):
    """The user's folder for downloads, which is the test's own meanwhile."""
    folder = tmp_path / "downloads"
    folder.mkdir()
    variables = wine.environment(prefix, display)

    def registry(*arguments):
        return subprocess.run(["wine", "reg", *arguments], env=variables, check=False,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=60).stdout
    before = registry("query", _FOLDERS, "/v", _DOWNLOADS).decode().split("REG_")
    registry("add", _FOLDERS, "/f", "/v", _DOWNLOADS, "/d", wine.windows_path(folder))
    yield folder
    if len(before) == 2:
        kind, value = before[1].strip().split(None, 1)
        registry("add", _FOLDERS, "/f", "/v", _DOWNLOADS, "/t", "REG_" + kind, "/d", value)
    else:
        registry("delete", _FOLDERS, "/f", "/v", _DOWNLOADS)


def offer(site, name="report.csv", body=CONTENT, **arguments):
    path = "/" + name
    site.raw(path, body, "application/octet-stream",
             headers={"Content-Disposition": f'attachment; filename="{name}"'}, **arguments)
    return site.url(path)


def fetch(url):
    """The page asks for the file as a click on a link does."""
    return do("script", code=f"location.href = '{url}'")


def browse(hosts, site, *steps):
    return hosts.run([created(), loaded(), *steps], url=site.page("/a.html")).succeeded()


def answer(**values):
    return do("answer", notification="BeforeDownloadNotify", set=values)


def names(events):
    return [n for n in events.names() if "Download" in n]


def updates(events):
    return [(e["DownloadStatus"], e["PercentComplete"])
            for e in events.notifications("DownloadUpdatedNotify")]


def test_file_goes_where_the_host_says(hosts, site, tmp_path):
    chosen = tmp_path / "my folder" / "chosen ü.dat"
    chosen.parent.mkdir()
    events = browse(hosts, site, answer(DownloadPathName=wine.windows_path(chosen)),
                    fetch(offer(site)), wait("DownloadCompletedNotify"))
    assert chosen.read_bytes() == CONTENT
    asked = events.one("BeforeDownloadNotify")
    assert asked["DownloadPathName"].endswith("\\report.csv")
    assert asked["CanBeDownloaded"] is True
    assert asked["ShowSaveAsDialog"] is False
    # CEF has news of a download before it asks where to, too; it has no path yet.
    downloads = [e for e in events.notifications() if "Download" in e["notification"]]
    earlier = downloads[:downloads.index(asked)]
    assert {(e["notification"], e["DownloadPathName"]) for e in earlier} <= {
        ("DownloadUpdatedNotify", "")}
    # The end is told twice, the update first.
    assert names(events)[-2:] == ["DownloadUpdatedNotify", "DownloadCompletedNotify"]
    assert updates(events)[-1] == (1, 100)
    assert {status for status, _ in updates(events)[:-1]} <= {0}
    assert events.one("DownloadCompletedNotify")["DownloadPathName"] == wine.windows_path(chosen)


def test_file_for_a_folder_that_is_not_there_goes_to_the_downloads(hosts, site, tmp_path,
                                                                   downloads):
    missing = tmp_path / "missing" / "chosen.dat"
    events = browse(hosts, site, answer(DownloadPathName=wine.windows_path(missing)),
                    fetch(offer(site)), wait("DownloadCompletedNotify"))
    assert (downloads / "report.csv").read_bytes() == CONTENT
    assert not missing.parent.exists()
    assert events.one("BeforeDownloadNotify")["DownloadPathName"] == (
        wine.windows_path(downloads / "report.csv"))


def test_file_goes_to_the_downloads_when_nobody_says_otherwise(hosts, site, downloads):
    browse(hosts, site, fetch(offer(site, "quiet.bin")), wait("DownloadCompletedNotify"))
    assert (downloads / "quiet.bin").read_bytes() == CONTENT


@pytest.mark.parametrize("flag", [0, 1])
def test_forbidden_file_does_not_come(hosts, site, downloads, tmp_path, flag):
    """Only -1 allows a download; any other answer cancels it, and the next one is asked about."""
    url, second = offer(site), offer(site, "second.bin")
    chosen = tmp_path / "chosen.bin"
    events = browse(hosts, site, answer(CanBeDownloaded=flag), fetch(url),
                    wait("DownloadUpdatedNotify", DownloadStatus=2),
                    answer(CanBeDownloaded=-1, DownloadPathName=wine.windows_path(chosen)),
                    fetch(second), wait("DownloadCompletedNotify"))
    assert len(events.notifications("BeforeDownloadNotify")) == 2
    assert [status for status, _ in updates(events)].count(2) == 1
    assert {e["DownloadPathName"] for e in events.notifications("DownloadUpdatedNotify")} <= {
        wine.windows_path(chosen), ""}
    assert list(downloads.iterdir()) == []
    assert chosen.read_bytes() == CONTENT


def test_forbidden_file_that_stops_half_way_keeps_no_host_from_ending(hosts, site, downloads):
    url = offer(site, body=bytes(2_000_000), half_way=threading.Event())
    browse(hosts, site, answer(CanBeDownloaded=0), fetch(url), wait("BeforeDownloadNotify"))
    assert list(downloads.iterdir()) == []


def test_save_dialogue_decides(hosts, site, desk, tmp_path, downloads):
    chosen = tmp_path / "picked.csv"
    host = hosts.start([created(), loaded(), answer(ShowSaveAsDialog=1), fetch(offer(site)),
                        wait("DownloadCompletedNotify")], url=site.page("/a.html"))
    host.wait_for("BeforeDownloadNotify")
    dialog = desk.wait_for_dialog("^Save")
    desk.key("Home", "shift+End")
    desk.type(wine.windows_path(chosen))
    desk.key("Return")
    desk.wait_until_gone(dialog)
    host.finish().succeeded()
    assert chosen.read_bytes() == CONTENT
    assert list(downloads.iterdir()) == []


def test_save_dialogue_that_is_cancelled_cancels_the_download(hosts, site, desk, downloads):
    host = hosts.start([created(), loaded(), answer(ShowSaveAsDialog=-1), fetch(offer(site)),
                        wait("DownloadUpdatedNotify", DownloadStatus=2)],
                       url=site.page("/a.html"))
    host.wait_for("BeforeDownloadNotify")
    dialog = desk.wait_for_dialog("^Save")
    desk.key("Escape")
    desk.wait_until_gone(dialog)
    events = host.finish().succeeded()
    # Told once, and nothing was completed.
    assert [status for status, _ in updates(events)].count(2) == 1
    assert updates(events)[-1][0] == 2
    assert events.notifications("DownloadCompletedNotify") == []
    assert list(downloads.iterdir()) == []


def test_two_files_at_once(hosts, site, tmp_path):
    rest = threading.Event()
    slow = offer(site, "slow.bin", b"slow" * 1000, half_way=rest)
    quick = offer(site, "quick.bin", b"quick" * 1000)
    steps = []
    for name in ("slow.bin", "quick.bin"):
        steps.append(do("answer", notification="BeforeDownloadNotify",
                        set={"DownloadPathName": wine.windows_path(tmp_path / name)},
                        when={"DownloadPathName": f"*{name}"}))
    host = hosts.start([created(), loaded(), *steps, fetch(slow),
                        wait("DownloadUpdatedNotify"), fetch(quick),
                        wait("DownloadCompletedNotify",
                             DownloadPathName=wine.windows_path(tmp_path / "quick.bin")),
                        wait("DownloadCompletedNotify",
                             DownloadPathName=wine.windows_path(tmp_path / "slow.bin"))],
                       url=site.page("/a.html"))
    host.wait_for("DownloadCompletedNotify")
    rest.set()
    host.finish().succeeded()
    assert (tmp_path / "slow.bin").read_bytes() == b"slow" * 1000
    assert (tmp_path / "quick.bin").read_bytes() == b"quick" * 1000


def test_large_file_arrives_whole(hosts, site, tmp_path):
    content = random.Random(6).randbytes(200 * 1024 * 1024)
    chosen = tmp_path / "large.bin"
    events = browse(hosts, site, answer(DownloadPathName=wine.windows_path(chosen)),
                    fetch(offer(site, "large.bin", content)),
                    do("wait", notification="DownloadCompletedNotify", timeout=2 * TIMEOUT_MS))
    with open(chosen, "rb") as file:
        assert hashlib.file_digest(file, "sha256").digest() == hashlib.sha256(content).digest()
    percents = [percent for status, percent in updates(events) if percent >= 0]
    assert percents == sorted(percents)
    assert percents[-1] == 100
    chosen.unlink()


def test_interrupted_file_counts_as_running_and_leaves_nothing(hosts, site, downloads):
    """The connection ends before the file does."""
    listener = socket.create_server(("127.0.0.1", 0))

    def serve():
        while True:
            try:
                connection, _ = listener.accept()
            except OSError:
                return
            with connection:
                connection.recv(65536)
                connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n"
                                   b"Content-Type: application/octet-stream\r\n"
                                   b"Content-Disposition: attachment\r\n\r\n" + b"x" * 5000)
    threading.Thread(target=serve, daemon=True).start()
    after = offer(site, "after.bin")
    try:
        events = browse(hosts, site, fetch(f"http://127.0.0.1:{listener.getsockname()[1]}/cut.bin"),
                        wait("BeforeDownloadNotify", DownloadPathName="*cut.bin"), fetch(after),
                        wait("DownloadCompletedNotify", DownloadPathName="*after.bin"))
    finally:
        listener.close()
    cut = [e for e in events.notifications("DownloadUpdatedNotify")
           if not e["DownloadPathName"].endswith("after.bin")]
    assert {e["DownloadStatus"] for e in cut} <= {0}
    # Where a file system has no streams, Wine keeps the mark of a file's origin as one of its own.
    names = [file.name for file in downloads.iterdir() if ":" not in file.name]
    assert names == ["after.bin"]


def test_host_that_ends_during_a_download_leaves_no_file(hosts, site, downloads):
    host = hosts.start([created(), loaded(), fetch(offer(site, half_way=threading.Event())),
                        wait("DownloadUpdatedNotify", DownloadStatus=0)],
                       url=site.page("/a.html"))
    host.finish().succeeded()
    assert list(downloads.iterdir()) == []

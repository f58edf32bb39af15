"""Hosts that end at moments which nobody has chosen: while pages load, files arrive, notifications
are under way, and menus and save dialogues are open. None crashes, hangs or leaves anything behind.

Twenty times; KZ_ENDINGS in the environment has another number. A failure names its seed, with which
KZ_ENDING_SEED brings the same moments once more.
"""

import os
import random
import threading

import pytest

from support import wine
from support.steps import created, do, pixel, script, wait

ENDINGS = int(os.environ.get("KZ_ENDINGS", "20"))
SEED = int(os.environ.get("KZ_ENDING_SEED", "0")) or random.SystemRandom().randrange(1, 1 << 32)
# How far a busy page gets before its host ends, at most, in seconds.
LONGEST = 2

# A page that never rests.
BUSY = """<iframe id=f src=/frame.html></iframe><script>
let n = 0;
setInterval(() => { f.src = `/frame.html?${++n}`; }, 170);
setInterval(() => fetch(`/data?${++n}`, {method: n % 2 ? 'GET' : 'POST',
    headers: {'Content-Type': 'application/json'}, body: n % 2 ? null : '{}'}), 50);
setInterval(() => { history.replaceState(null, '', `?${++n}`); console.log('still here', n); }, 130);
setInterval(() => window.open('/popup.html'), 900);
setInterval(() => { const a = document.createElement('a'); a.href = `/file.bin?${++n}`;
    a.download = ''; a.click(); }, 400);
</script>"""
# A popup that soon leaves.
POPUP = "<script>setTimeout(close, 500)</script>"


@pytest.mark.parametrize("number", range(ENDINGS))
def test_host_ends_cleanly_at_any_moment(hosts, site, tmp_path, number):
    chance = random.Random(SEED + number)
    print(f"KZ_ENDING_SEED={SEED + number}")
    site.page("/frame.html", "<img src=/data>")
    site.page("/popup.html", POPUP)
    site.raw("/data", b"{}", "application/json")
    site.raw("/file.bin", b"x" * 200_000, "application/octet-stream", half_way=threading.Event())
    popups = chance.choice([True, False])
    answers = [
        do("answer", notification="BeforeDownloadNotify",
           set={"DownloadPathName": wine.windows_path(tmp_path / "file.bin"),
                "CanBeDownloaded": chance.choice([True, False]),
                "ShowSaveAsDialog": chance.random() < 0.2}),
        do("answer", notification="BeforePopupNotify", set={"Continue": popups}),
        do("answer", notification=chance.choice(["BeforeResourceLoadNotify", "LoadStartNotify",
                                                 "DownloadUpdatedNotify", "BeforeBrowseNotify"]),
           set={}, delay=chance.randrange(400)),
        do("answer", notification="ResourceResponseNotify",
           set={"ModifyRequest": chance.choice([True, False])}),
    ]
    # The page comes to no rest, so that it is there is all that can be waited for.
    started = [created(), wait("AddressChangeNotify")] if chance.random() < 0.8 else []
    endings = [
        [],
        [do("close")],
        [do("browser", name="b2", url=site.url("/busy.html"))],
        [script("location.reload()")],
        [do("refresh")],
    ]
    # A popup takes the browser's place, and leaves none when it goes.
    if started and not popups:
        # The menu is open then: the engine does not survive a window that goes while it puts the
        # focus there for a click.
        endings.append([pixel(200, 300, "#ffffff"), do("click", x=200, y=300, button="right"),
                        wait("BeforeContextMenuNotify")])
    ending = chance.choice(endings)
    moment = do("waitFile", path="moment", timeout=60_000)
    host = hosts.start([do("init"), do("browser", name="b1", url=site.page("/busy.html", BUSY),
                                       start=False),
                        *answers, do("start"), *started, moment, *ending],
                       env=chance.choice([{}, {"EnablePlatformRMB": "1"}]))
    if started:
        host.wait_for("AddressChangeNotify")
    timer = threading.Timer(chance.uniform(0, LONGEST), (tmp_path / "moment").touch)
    timer.start()
    try:
        run = host.finish(90)
    finally:
        timer.cancel()
    run.succeeded()
    # Its second half never comes.
    assert not (tmp_path / "file.bin").exists()

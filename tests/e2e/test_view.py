"""The browser in the host's window: size, painting, several of them."""

import threading

from support import image, wine
from support.processes import wait_until
from support.steps import created, do, loaded, pixel, script, wait

# Red, with a blue square of 40 pixels in the lower right corner.
CORNERS = ("<style>body{margin:0;background:#c02020}div{position:fixed;right:0;bottom:0;"
           "width:40px;height:40px;background:#2020c0}</style><div></div>")
# Tells the server its size whenever that changes.
TELL_SIZE = ("<script>const tell = () => fetch(`/size?${innerWidth}x${innerHeight}`);"
             "addEventListener('resize', tell); tell();</script>")


def test_view_begins_with_the_size_asked_for(hosts, site):
    site.page("/size")
    hosts.run([created(), loaded(), pixel(639, 479, "#2020c0"), pixel(590, 430, "#c02020")],
              url=site.page("/a.html", CORNERS + TELL_SIZE),
              switches=["--size", "640x480"]).succeeded()
    assert "/size?640x480" in site.paths()


def test_page_follows_the_windows_size(hosts, site):
    site.page("/size")
    host = hosts.start([created(), loaded(), pixel(799, 599, "#2020c0"),
                        do("resize", width=500, height=300), pixel(499, 299, "#2020c0"),
                        pixel(450, 250, "#c02020"),
                        do("resize", width=900, height=650), pixel(899, 649, "#2020c0"),
                        pixel(499, 299, "#c02020"),
                        do("waitFile", path="seen", timeout=40_000)],
                       url=site.page("/a.html", CORNERS + TELL_SIZE))
    site.wait_for("/size?500x300")
    site.wait_for("/size?900x650")
    (hosts.folder / "seen").touch()
    host.finish().succeeded()


def test_page_that_comes_while_the_window_is_resized_has_its_size(hosts, site):
    gate = threading.Event()
    site.page("/size")
    host = hosts.start([created(), wait("LoadingStateChangeNotify", IsLoading=True),
                        do("waitFile", path="asked", timeout=60_000),
                        do("resize", width=500, height=300),
                        do("resize", width=900, height=650),
                        do("resize", width=640, height=480),
                        do("screenshot", file="resized.png"), loaded(),
                        pixel(639, 479, "#2020c0"), pixel(590, 430, "#c02020")],
                       url=site.page("/a.html", CORNERS + TELL_SIZE, gate=gate))
    site.wait_for("/a.html")
    (hosts.folder / "asked").touch()
    wait_until((hosts.folder / "resized.png").exists, 60, "the end of the resizing")
    gate.set()
    host.finish().succeeded()
    assert site.paths()[-1] == "/size?640x480"


def test_part_of_the_view_can_be_given_to_the_browser(hosts, site):
    site.page("/size")
    host = hosts.start([created(), loaded(), pixel(400, 300, "#c02020"),
                        do("call", object="b1", member="ResizeBrowserRect",
                           args=[100.9, 50.2, 300.7, 200.5]),
                        pixel(101, 51, "#c02020"), pixel(399, 249, "#2020c0"),
                        # Beside it the view itself shows again.
                        pixel(50, 20, "#ffffff"), pixel(450, 300, "#ffffff"),
                        do("waitFile", path="seen", timeout=40_000)],
                       url=site.page("/a.html", CORNERS + TELL_SIZE))
    site.wait_for("/size?300x200")
    (hosts.folder / "seen").touch()
    host.finish().succeeded()


def test_size_given_before_the_browser_exists_is_kept(hosts, site):
    site.page("/size")
    url = site.page("/a.html", CORNERS + TELL_SIZE)
    hosts.run([do("init"), do("browser", name="b1", url=url),
               do("call", object="b1", member="ResizeBrowser", args=[320, 240]),
               created(), loaded(), pixel(319, 239, "#2020c0")]).succeeded()
    assert "/size?320x240" in site.paths()


def test_what_script_changes_is_painted(hosts, site):
    picture = hosts.folder / "after.png"
    hosts.run([created(), loaded(), pixel(400, 300, "#c02020"),
               script("document.body.style.background = 'rgb(16, 128, 64)'"),
               pixel(400, 300, "#108040"), pixel(790, 590, "#2020c0"),
               do("screenshot", file=wine.windows_path(picture), area="view")],
              url=site.page("/a.html", CORNERS)).succeeded()
    assert image.near(image.pixel(picture, 400, 300), (16, 128, 64))
    assert image.near(image.pixel(picture, 790, 590), (0x20, 0x20, 0xC0))


def test_scrolling_moves_the_picture(hosts, site):
    url = site.page("/long.html", "<style>body{margin:0}div{height:3000px}</style>"
                                  "<div style='background:#aa00aa'></div>"
                                  "<div style='background:#00aaaa'></div>")
    hosts.run([created(), loaded(), pixel(400, 300, "#aa00aa"), script("scrollTo(0, 4000)"),
               pixel(400, 300, "#00aaaa")], url=url).succeeded()

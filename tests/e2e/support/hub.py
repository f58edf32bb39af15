"""A small hub: a forward proxy on the loopback interface, and the installation of its library."""

import base64
import contextlib
import http.client
import http.server
import subprocess
import threading
from dataclasses import dataclass
from urllib.parse import urlsplit

from . import wine

_KEY = r"HKLM\SOFTWARE\Velmora\Q9_Common\zMOD_Connectors"


@dataclass
class Passed:
    """A request as it arrived at the proxy."""
    method: str
    url: str
    headers: dict


class Hub:
    """Passes requests for any host name on to one site, and remembers them. With `credentials`, a
    user name and a password, it wants to see those first, and remembers what else it was shown."""

    REALM = 'The "inner" office'

    def __init__(self, site_url, credentials=None):
        self._target = urlsplit(site_url).netloc
        self._wanted = self._basic(*credentials) if credentials else None
        self.refused = []
        self._lock = threading.Lock()
        self._passed = []
        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self._handler_class())
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    @property
    def port(self):
        return self._server.server_port

    def passed(self):
        with self._lock:
            return list(self._passed)

    def close(self):
        self._server.shutdown()
        self._server.server_close()

    @staticmethod
    def _basic(user, password):
        return "Basic " + base64.b64encode(f"{user}:{password}".encode()).decode()

    def _admits(self, shown):
        """Whether the header that was shown will do."""
        with self._lock:
            if self._wanted in (None, shown):
                return True
            if shown:
                self.refused.append(base64.b64decode(shown.removeprefix("Basic ")).decode())
            return False

    def _handler_class(self):
        hub = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                if not hub._admits(self.headers.get("Proxy-Authorization")):
                    self._ask_for_credentials()
                    return
                with hub._lock:
                    hub._passed.append(Passed(self.command, self.path, dict(self.headers)))
                url = urlsplit(self.path)
                body = self.rfile.read(int(self.headers.get("Content-Length") or 0))
                onward = http.client.HTTPConnection(hub._target, timeout=30)
                try:
                    onward.request(self.command,
                                   (url.path or "/") + (f"?{url.query}" if url.query else ""),
                                   body, dict(self.headers))
                    answer = onward.getresponse()
                    content = answer.read()
                    self.send_response(answer.status)
                    for name, value in answer.getheaders():
                        if name.lower() not in ("content-length", "connection", "server", "date"):
                            self.send_header(name, value)
                    self.send_header("Content-Length", str(len(content)))
                    self.end_headers()
                    self.wfile.write(content)
                except OSError:
                    pass  # one of the two has gone meanwhile
                finally:
                    onward.close()

            do_POST = do_GET

            def _ask_for_credentials(self):
                self.rfile.read(int(self.headers.get("Content-Length") or 0))
                realm = hub.REALM.replace('"', '\\"')
                self.send_response(407)
                self.send_header("Proxy-Authenticate", f'Basic realm="{realm}"')
                self.send_header("Content-Type", "text/html")
                self.send_header("Content-Length", "11")
                self.end_headers()
                self.wfile.write(b"Who is it?\n")

            def log_message(self, *arguments):
                pass

        return Handler


@contextlib.contextmanager
def installed_library(variables):
    """The registry names the folder in which the build has put the tests' library."""
    folder = wine.bin_folder().parent / "tests/support/hub_utils/installation"

    def registry(*arguments):
        subprocess.run(["wine", "reg", *arguments, "/f"], env=variables, check=True,
                       stdin=subprocess.DEVNULL, capture_output=True)
    registry("add", _KEY, "/v", "Path", "/d", wine.windows_path(folder))
    try:
        yield
    finally:
        registry("delete", r"HKLM\SOFTWARE\Velmora")

"""A web site for one test: pages given by the test, and a record of what was asked for."""

import http.server
import threading
import time
from dataclasses import dataclass
from urllib.parse import urlsplit


@dataclass
class Request:
    method: str
    path: str  # with the query
    headers: dict
    body: bytes


@dataclass
class Answer:
    status: int
    headers: dict
    body: bytes
    gate: threading.Event | None = None
    half_way: threading.Event | None = None


class Site:
    """Serves on a free local port from the start; every answer is one that the test has given."""

    def __init__(self):
        self._answers = {}
        self._changed = threading.Condition()
        self.requests = []
        # Whether nobody is left who could ask for anything; the owner of the hosts knows.
        self.is_abandoned = lambda: False
        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self._handler_class())
        self._server.daemon_threads = True
        self._thread = threading.Thread(target=self._server.serve_forever, daemon=True)
        self._thread.start()

    def close(self):
        for answer in self._answers.values():
            for event in (answer.gate, answer.half_way):
                if event:
                    event.set()
        self._server.shutdown()
        self._server.server_close()

    def url(self, path="/"):
        return f"http://127.0.0.1:{self._server.server_port}{path}"

    def page(self, path, body="", *, title="", head="", status=200, headers=None, gate=None):
        """An HTML page; with `gate` (an Event) it is answered only once that is set."""
        html = (
            f"<!DOCTYPE html><html><head><meta charset='utf-8'><title>{title}</title>"
            f"<link rel='icon' href='data:,'>{head}</head><body>{body}</body></html>"
        )
        self.raw(path, html.encode(), "text/html; charset=utf-8", status, headers, gate)
        return self.url(path)

    def raw(self, path, body, content_type, status=200, headers=None, gate=None, half_way=None):
        """With `half_way` (an Event) the second half of the body comes only once that is set."""
        self._answers[path] = Answer(
            status, {"Content-Type": content_type, **(headers or {})}, body, gate, half_way
        )

    def redirect(self, path, target, status=302):
        self._answers[path] = Answer(status, {"Location": target}, b"")
        return self.url(path)

    def samples(self, folder):
        """Every file of the folder with the sample pages under its name, and what they ask for."""
        types = {".html": "text/html", ".css": "text/css", ".js": "text/javascript",
                 ".svg": "image/svg+xml", ".txt": "text/plain", ".csv": "text/csv"}
        for file in folder.iterdir():
            self.raw("/" + file.name, file.read_bytes(), types[file.suffix])
        self.redirect("/moved.txt", "/arrived.txt")
        self.raw("/federated/search", b"3 results", "text/plain")

    def paths(self):
        with self._changed:
            return [request.path for request in self.requests]

    def wait_for(self, path, count=1, timeout=40):
        """Waits until `path` has been asked for `count` times; answers the last request."""
        end = time.monotonic() + timeout
        with self._changed:
            while True:
                found = [r for r in self.requests if r.path == path]
                if len(found) >= count:
                    return found[count - 1]
                if self.is_abandoned() or time.monotonic() > end:
                    asked = [r.path for r in self.requests]
                    raise AssertionError(f"{path} was not asked for {count} times, but: {asked}")
                self._changed.wait(0.2)

    def _record(self, request):
        with self._changed:
            self.requests.append(request)
            self._changed.notify_all()

    def _handler_class(self):
        site = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                length = int(self.headers.get("Content-Length") or 0)
                body = self.rfile.read(length)
                site._record(Request(self.command, self.path, dict(self.headers), body))
                answer = site._answers.get(urlsplit(self.path).path)
                if answer is None:
                    answer = Answer(404, {"Content-Type": "text/plain"}, b"no such page")
                if answer.gate:
                    answer.gate.wait(60)
                try:
                    self.send_response(answer.status)
                    for name, value in answer.headers.items():
                        self.send_header(name, value)
                    self.send_header("Content-Length", str(len(answer.body)))
                    self.send_header("Cache-Control", "no-store")
                    self.end_headers()
                    half = len(answer.body) // 2 if answer.half_way else len(answer.body)
                    self.wfile.write(answer.body[:half])
                    if answer.half_way:
                        answer.half_way.wait(60)
                        self.wfile.write(answer.body[half:])
                except OSError:
                    pass  # the browser has gone meanwhile, which tests do to it

            do_POST = do_GET

            def log_message(self, *arguments):
                pass

        return Handler


class LastingConnection:
    """An answer without an end, which tells when the browser that reads it goes away."""

    def __init__(self):
        self.opened = threading.Event()
        self.closed = threading.Event()
        connection = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                self.send_response(200)
                self.send_header("Content-Type", "text/event-stream")
                self.send_header("Access-Control-Allow-Origin", "*")
                self.end_headers()
                connection.opened.set()
                try:
                    while not connection.closed.is_set():
                        self.wfile.write(b": still here\n\n")
                        self.wfile.flush()
                        time.sleep(0.05)
                except OSError:
                    connection.closed.set()

            def log_message(self, *arguments):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    @property
    def url(self):
        return f"http://127.0.0.1:{self._server.server_port}/"

    def close(self):
        self.closed.set()
        self._server.shutdown()
        self._server.server_close()

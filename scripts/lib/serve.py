"""Serves a folder over HTTP on a free local port and prints the address, until it is ended.

Usage: serve.py FOLDER

For the sample pages "moved.txt" redirects to "arrived.txt", and every post is answered as by a
search service.
"""

import functools
import http.server
import sys


class SampleHandler(http.server.SimpleHTTPRequestHandler):
    def do_GET(self):
        if self.path == "/moved.txt":
            self.send_response(302)
            self.send_header("Location", "/arrived.txt")
            self.send_header("Content-Length", "0")
            self.end_headers()
        else:
            super().do_GET()

    def do_POST(self):
        self.rfile.read(int(self.headers.get("Content-Length") or 0))
        answer = b"3 results"
        self.send_response(200)
        self.send_header("Content-Type", "text/plain")
        self.send_header("Content-Length", str(len(answer)))
        self.end_headers()
        self.wfile.write(answer)

    def log_message(self, *arguments):
        pass


def main():
    handler = functools.partial(SampleHandler, directory=sys.argv[1])
    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler) as server:
        print(f"http://127.0.0.1:{server.server_port}/index.html", flush=True)
        server.serve_forever()


if __name__ == "__main__":
    main()

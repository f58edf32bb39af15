"""Serves a folder over HTTP on a free local port and prints the address, until it is ended.

Usage: serve.py FOLDER
"""

import functools
import http.server
import sys


class QuietHandler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *arguments):
        pass


def main():
    handler = functools.partial(QuietHandler, directory=sys.argv[1])
    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler) as server:
        print(f"http://127.0.0.1:{server.server_port}/index.html", flush=True)
        server.serve_forever()


if __name__ == "__main__":
    main()

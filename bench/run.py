#!/usr/bin/env python3
"""Runs the benchmarks with a local web site for those that load pages.

    run.py [--short] [--bin FOLDER] [BENCHMARK...]

FOLDER holds kzbench.exe, kzbench_cookies.exe, kzbench_requests.exe and KZCEFComWrapper.dll
(build/mingw/bin without it).
Without names all benchmarks run. Under Linux the programs run under Wine; the browser windows need a DISPLAY.
"""

import argparse
import os
import subprocess
import sys
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path
from urllib.parse import urlsplit

REPOSITORY = Path(__file__).resolve().parent.parent
BENCHMARKS = ["cookies", "late-bound", "notifications", "page", "requests", "requests-hub", "start"]
SUB_RESOURCES = 200
TIME_LIMIT_SECONDS = 1800


def page() -> bytes:
    # Style sheets: the browser asks for them all at once, while it takes its time between pictures.
    sheets = "\n".join(f'<link rel="stylesheet" href="/style/{number}.css">'
                       for number in range(SUB_RESOURCES))
    return f"<!doctype html><title>{SUB_RESOURCES} style sheets</title>\n{sheets}\n".encode()


def style(path: str) -> bytes:
    number = int("0" + "".join(c for c in path if c.isdigit()))
    return f"#a{number} {{ color: #{number * 4096 % 0xffffff:06x} }}".encode()


class Site(BaseHTTPRequestHandler):
    """The site, which also answers as a forward proxy does in front of it, whatever its name."""
    protocol_version = "HTTP/1.1"
    # Head and body are two writes, of which the second must not wait for the first one to arrive.
    disable_nagle_algorithm = True

    def do_GET(self):
        path = urlsplit(self.path).path
        if path == "/":
            self.answer("text/html; charset=utf-8", page())
        elif path.startswith("/style/"):
            self.answer("text/css", style(path))
        else:
            self.send_error(404)

    def answer(self, kind: str, body: bytes):
        self.send_response(200)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(body)))
        self.send_header("Cache-Control", "no-store")
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


class Server(ThreadingHTTPServer):
    request_queue_size = 128
    daemon_threads = True


def commands(benchmarks: list[str], port: int):
    """The programs to run with their arguments; the site listens at `port`."""
    site = ["--url", f"http://127.0.0.1:{port}/"]
    together = []
    for name in benchmarks:
        if name == "cookies":
            yield ["kzbench_cookies.exe"]
        # Whether the hub is on, and the engine, are fixed once in a process.
        elif name == "requests":
            yield ["kzbench_requests.exe"]
            yield ["kzbench.exe", "requests", *site]
        elif name == "requests-hub":
            yield ["kzbench_requests.exe", "--hub"]
            yield ["kzbench.exe", "requests", "--url", "http://page.test/", "--hub", str(port)]
        else:
            together.append(name)
    if together:
        yield ["kzbench.exe", *together, *site]


def main() -> int:
    parser = argparse.ArgumentParser(description="Runs the benchmarks.")
    parser.add_argument("--short", action="store_true",
                        help="a few repetitions of everything, to see that it runs")
    parser.add_argument("--bin", type=Path, default=REPOSITORY / "build/mingw/bin")
    parser.add_argument("benchmarks", nargs="*", metavar="BENCHMARK",
                        help=f"of {', '.join(BENCHMARKS)}; all without names")
    arguments = parser.parse_args()
    unknown = set(arguments.benchmarks) - set(BENCHMARKS)
    if unknown:
        parser.error(f"unknown: {', '.join(sorted(unknown))}")

    brief = ["--short"] if arguments.short else []
    runner = [] if os.name == "nt" else [str(REPOSITORY / "cmake/run-wine")]
    with Server(("127.0.0.1", 0), Site) as site:
        threading.Thread(target=site.serve_forever, daemon=True).start()
        try:
            for program, *words in commands(arguments.benchmarks or BENCHMARKS,
                                            site.server_address[1]):
                status = subprocess.run([*runner, str(arguments.bin / program), *words, *brief],
                                        timeout=TIME_LIMIT_SECONDS).returncode
                if status:
                    return status
        finally:
            site.shutdown()
    return 0


if __name__ == "__main__":
    sys.exit(main())

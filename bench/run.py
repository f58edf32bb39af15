#!/usr/bin/env python3
"""Runs the benchmarks with a local web site for those that load pages.

    run.py [--short] [--json FILE] [--bin FOLDER] [BENCHMARK...]

FOLDER holds kzbench.exe, kzbench_requests.exe, KZCEFComWrapper.dll and the engine (build/mingw/bin
without it). Without names all benchmarks run. FILE gets the figures, for picture.py. Under Linux
the programs run under Wine; the browser windows need a DISPLAY.
"""

import argparse
import datetime
import json
import os
import re
import subprocess
import sys
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path
from urllib.parse import urlsplit

REPOSITORY = Path(__file__).resolve().parent.parent
BENCHMARKS = ["cookies", "late-bound", "memory", "notifications", "page", "page-hub", "requests",
              "requests-hub", "start"]
SUB_RESOURCES = 200
TIME_LIMIT_SECONDS = 3600
# A line of Comparison::Print (measure.cpp).
FIGURE = re.compile(r"(?P<name>\S.*?) {2,}(?P<measured>\S+ \S+) +(?P<reference>\S+ \S+)"
                    r" +(?P<ratio>\S+ +\S+ +\S+) *(?:aim (?P<aim>\S+))?")


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
        elif path == "/small":
            self.answer("text/html; charset=utf-8", b"<!doctype html><title>small</title>A page.")
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


def command(name: str, port: int) -> list[str]:
    """The program of a benchmark with its arguments; the site listens at `port`."""
    match name:
        case "requests":
            return ["kzbench_requests.exe"]
        case "requests-hub":
            return ["kzbench_requests.exe", "--hub"]
        case "page-hub":
            return ["kzbench.exe", "page", "--url", "http://page.test/", "--hub", str(port)]
        case "memory" | "page" | "start":
            return ["kzbench.exe", name, "--url", f"http://127.0.0.1:{port}/"]
    return ["kzbench.exe", name]


def run(words: list[str], lines: list[str]) -> int:
    """Passes the program's output on, adds it to `lines` and returns the exit status."""
    with subprocess.Popen(words, stdout=subprocess.PIPE, text=True) as program:
        limit = threading.Timer(TIME_LIMIT_SECONDS, program.kill)
        limit.start()
        for line in program.stdout:
            print(line, end="", flush=True)
            lines.append(line.rstrip())
        limit.cancel()
    return program.returncode


def figures(benchmark: str, lines: list[str]):
    for line in lines:
        if found := FIGURE.fullmatch(line):
            yield {"benchmark": benchmark, "name": found["name"], "measured": found["measured"],
                   "reference": found["reference"],
                   "ratio": [float(number) for number in found["ratio"].split()],
                   "aim": float(found["aim"]) if found["aim"] else None}


def main() -> int:
    parser = argparse.ArgumentParser(description="Runs the benchmarks.")
    parser.add_argument("--short", action="store_true",
                        help="a few repetitions of everything, to see that it runs")
    parser.add_argument("--json", type=Path, help="a file for the figures")
    parser.add_argument("--bin", type=Path, default=REPOSITORY / "build/mingw/bin")
    parser.add_argument("benchmarks", nargs="*", metavar="BENCHMARK",
                        help=f"of {', '.join(BENCHMARKS)}; all without names")
    arguments = parser.parse_args()
    unknown = set(arguments.benchmarks) - set(BENCHMARKS)
    if unknown:
        parser.error(f"unknown: {', '.join(sorted(unknown))}")

    brief = ["--short"] if arguments.short else []
    runner = [] if os.name == "nt" else [str(REPOSITORY / "cmake/run-wine")]
    measured = []
    with Server(("127.0.0.1", 0), Site) as site:
        threading.Thread(target=site.serve_forever, daemon=True).start()
        try:
            for name in arguments.benchmarks or BENCHMARKS:
                program, *words = command(name, site.server_address[1])
                lines = []
                if status := run([*runner, str(arguments.bin / program), *words, *brief], lines):
                    return status
                measured += figures(name, lines)
        finally:
            site.shutdown()
    if arguments.json:
        taken = {"date": datetime.date.today().isoformat(), "processors": os.cpu_count(),
                 "figures": measured}
        arguments.json.write_text(json.dumps(taken, indent=1) + "\n", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())

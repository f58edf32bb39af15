"""An HTTPS server with a certificate that no browser trusts, for a test that started it.

tls_server.py CONTROL_PORT: connects to that port of this machine, tells there the port that it
serves on, and ends when that connection does.
"""

import http.server
import pathlib
import socket
import ssl
import sys
import threading

PICTURE = b'<svg xmlns="http://www.w3.org/2000/svg" width="1" height="1"/>'


class Pages(http.server.BaseHTTPRequestHandler):
    """Each path has a page with its name as the title; what ends in ".svg" is a picture."""

    def do_GET(self):
        is_picture = self.path.endswith(".svg")
        body = PICTURE if is_picture else f"<title>Secure {self.path}</title>".encode()
        self.send_response(200)
        self.send_header("Content-Type", "image/svg+xml" if is_picture else "text/html")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def handle_error(self, *_):
        """A browser that does not like the certificate hangs up, which is what is tested."""


def main():
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(pathlib.Path(__file__).parent / "selfsigned.pem")
    server = Server(("127.0.0.1", 0), Pages)
    # The handshake is made by the connection's own thread.
    server.socket = context.wrap_socket(
        server.socket, server_side=True, do_handshake_on_connect=False
    )
    threading.Thread(target=server.serve_forever, daemon=True).start()
    with socket.create_connection(("127.0.0.1", int(sys.argv[1]))) as control:
        control.sendall(f"{server.server_port}\n".encode())
        while control.recv(1):
            pass


main()

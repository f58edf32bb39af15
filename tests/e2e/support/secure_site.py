"""A site with a certificate that nobody has signed but itself."""

import http.server
import ssl
import subprocess
import threading


class SecureSite:
    def __init__(self, folder, names):
        certificate, key = folder / "certificate.pem", folder / "key.pem"
        subprocess.run(
            ["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "30",
             "-subj", f"/CN={names[0]}", "-keyout", str(key), "-out", str(certificate),
             "-addext", "subjectAltName=" + ",".join(f"DNS:{name}" for name in names)],
            check=True, capture_output=True, timeout=60)
        self.paths = []
        site = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                site.paths.append(f"{self.headers.get('Host')}{self.path}")
                body = b"<!DOCTYPE html><title>secure</title><link rel=icon href='data:,'>"
                self.send_response(200)
                self.send_header("Content-Type", "text/html")
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *arguments):
                pass

        class Server(http.server.ThreadingHTTPServer):
            def handle_error(self, *arguments):
                pass  # browsers break off handshakes with a certificate that they refuse

        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(certificate, key)
        self._server = Server(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        self._server.socket = context.wrap_socket(self._server.socket, server_side=True,
                                                  do_handshake_on_connect=False)
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    def switches(self, names):
        """For the engine: the port of https at these names is this site."""
        rules = ",".join(f"MAP {name}:443 127.0.0.1:{self._server.server_port}" for name in names)
        return {"host-resolver-rules": rules}

    def close(self):
        self._server.shutdown()
        self._server.server_close()

"""A web site whose certificate nobody has signed but itself."""

import pathlib
import ssl
import sys

from .site import Site

CERTIFICATE = pathlib.Path(__file__).parents[2] / "support" / "tls" / "selfsigned.pem"
NAME = "selfsigned.test"


class SecureSite(Site):
    """Serves https under names that only a browser with its switches knows."""

    def __init__(self):
        super().__init__()
        # Each handshake is the affair of the connection's own thread.
        self._server.socket = self._context().wrap_socket(
            self._server.socket, server_side=True, do_handshake_on_connect=False
        )
        # A browser that does not like the certificate hangs up.
        self._server.handle_error = lambda *_: None

    def _context(self):
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(CERTIFICATE)
        return context

    def switches(self, *names):
        """For the engine: at these names stands this site."""
        port = self._server.server_port
        return {"host-resolver-rules": ",".join(f"MAP {name} 127.0.0.1:{port}" for name in names)}

    def url(self, path="/", name=NAME):
        return f"https://{name}{path}"


class AskingSite(SecureSite):
    """Wants to see a certificate of the browser's user, signed by `authority` (a file)."""

    def __init__(self, authority):
        # The certificates that have been shown, one for each request, as subjects' common names;
        # and why a handshake came to nothing, in the words of OpenSSL.
        self.shown = []
        self.refusals = []
        self._authority = authority
        super().__init__()
        self._server.handle_error = self._note_refusal

    def _context(self):
        context = super()._context()
        context.verify_mode = ssl.CERT_REQUIRED
        context.load_verify_locations(self._authority)
        # A key of Windows' older interface, which is the one that Wine has, cannot sign as TLS 1.3
        # demands it.
        context.maximum_version = ssl.TLSVersion.TLSv1_2
        return context

    def _note_refusal(self, *_):
        error = sys.exc_info()[1]
        if isinstance(error, ssl.SSLError):
            with self._changed:
                self.refusals.append(error.reason)

    def _handler_class(self):
        site = self

        class Handler(super()._handler_class()):
            def do_GET(self):
                subject = dict(part[0] for part in self.connection.getpeercert()["subject"])
                site.shown.append(subject["commonName"])
                super().do_GET()

        return Handler

"""A web site whose certificate nobody has signed but itself."""

import pathlib
import ssl

from .site import Site

CERTIFICATE = pathlib.Path(__file__).parents[2] / "support" / "tls" / "selfsigned.pem"
NAME = "selfsigned.test"


class SecureSite(Site):
    """Serves https under names that only a browser with its switches knows."""

    def __init__(self):
        super().__init__()
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(CERTIFICATE)
        # Each handshake is the affair of the connection's own thread.
        self._server.socket = context.wrap_socket(
            self._server.socket, server_side=True, do_handshake_on_connect=False
        )
        # A browser that does not like the certificate hangs up.
        self._server.handle_error = lambda *_: None

    def switches(self, *names):
        """For the engine: at these names stands this site."""
        port = self._server.server_port
        return {"host-resolver-rules": ",".join(f"MAP {name} 127.0.0.1:{port}" for name in names)}

    def url(self, path="/", name=NAME):
        return f"https://{name}{path}"

"""Certificates by which a person proves who they are, and the store in which Windows keeps them."""

import contextlib
import subprocess

from . import wine

_TOOL = "tests/support/user_certificates/kz_user_certificates.exe"


def _openssl(folder, *arguments):
    subprocess.run(["openssl", *arguments], cwd=folder, check=True, capture_output=True)


class Authority:
    """Signs certificates, with a key of its own."""

    def __init__(self, folder, name):
        folder.mkdir()
        self.folder = folder
        self.file = folder / "authority.pem"
        _openssl(folder, "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "30",
                 "-subj", f"/CN={name}", "-keyout", "authority.key", "-out", "authority.pem")

    def issue(self, person):
        """A certificate for signing in, and its key."""
        _openssl(self.folder, "req", "-newkey", "rsa:2048", "-nodes", "-subj", f"/CN={person}",
                 "-keyout", f"{person}.key", "-out", f"{person}.csr")
        (self.folder / "usage").write_text(
            "extendedKeyUsage=clientAuth\nkeyUsage=digitalSignature\n")
        _openssl(self.folder, "x509", "-req", "-in", f"{person}.csr", "-days", "30",
                 "-CA", "authority.pem", "-CAkey", "authority.key", "-extfile", "usage",
                 "-outform", "DER", "-out", f"{person}.der")
        _openssl(self.folder, "rsa", "-in", f"{person}.key", "-outform", "MSBLOB",
                 "-out", f"{person}.blob")
        return Certificate(self.folder, person)


class Certificate:
    def __init__(self, folder, person):
        self.person = person
        self._file = wine.windows_path(folder / f"{person}.der")
        self._key = wine.windows_path(folder / f"{person}.blob")

    @contextlib.contextmanager
    def installed(self, variables):
        """In the store of the prefix's user."""
        def tool(*arguments):
            ended = subprocess.run([wine.REPOSITORY / "cmake/run-wine", str(wine.bin_folder().parent / _TOOL), *arguments],
                                   env=variables, stdin=subprocess.DEVNULL, timeout=60,
                                   capture_output=True, text=True)
            assert ended.returncode == 0, ended.stderr
        tool("add", self._file, self._key, self.person)
        try:
            yield
        finally:
            tool("remove", self._file, self.person)

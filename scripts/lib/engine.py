#!/usr/bin/python3
"""Fetches the browser engine that cmake/engine.pin names, and unpacks what the build needs of it.

    engine.py [PIN_FILE FOLDER]

The package comes from the registry by pip, its sum is checked, and it is unpacked once to
FOLDER/<version>-<start of its sum>/ (FOLDER is build/engine without arguments):

    runtime/    libcef.dll and every file that it needs beside it
    header.py   CEF's C API in a form that programs can read
    licence/    what the package says about itself and its terms

That folder appears whole or not at all, however this program ends, and is reused from then on. A
package that already lies in FOLDER is unpacked without asking the registry.
"""

import contextlib
import fcntl
import hashlib
import importlib.util
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path, PurePosixPath

REPOSITORY = Path(__file__).resolve().parents[2]

RUNTIME = "cef_capi/runtime/"
HEADER = "cef_capi/win_amd64/header.py"
# A sample program and what it once logged.
LEFT_OUT = {"cefclient.exe", "debug.log"}
LICENCE = {"LICENSE", "METADATA"}
NEEDED = ("runtime/libcef.dll", "header.py")


class Failure(Exception):
    """What the person at the keyboard is told."""


def say(text):
    print(f"==> {text}", file=sys.stderr, flush=True)


def read_pin(path):
    pin = {}
    for line in Path(path).read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            key, _, value = line.partition("=")
            pin[key] = value
    return pin


def engine_folder(pin, folder):
    return folder / f"{pin['ENGINE_VERSION']}-{pin['ENGINE_SHA256'][:8]}"


@contextlib.contextmanager
def alone(folder):
    """Only one program at a time fetches into the folder; a second one waits for it."""
    with open(folder / "lock", "w") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            say("waiting for another script, which is fetching the engine")
            fcntl.flock(lock, fcntl.LOCK_EX)
        yield


@contextlib.contextmanager
def partial_folder(folder):
    """A folder for unfinished work, on the same file system as what it is renamed to."""
    path = Path(tempfile.mkdtemp(prefix="partial-", dir=folder))
    # mkdtemp makes a private folder; what comes out of it is an ordinary one.
    path.chmod(0o755)
    try:
        yield path
    finally:
        shutil.rmtree(path, ignore_errors=True)


def remove_leftovers(folder):
    """Removes what programs that were killed have left."""
    for path in folder.glob("partial-*"):
        shutil.rmtree(path)


def download(pin, folder):
    if importlib.util.find_spec("pip") is None:
        raise Failure(f"{sys.executable} has no pip, which fetches the engine: "
                      "install Debian's package python3-pip")
    name = f"{pin['ENGINE_PACKAGE']}=={pin['ENGINE_VERSION']}"
    say(f"downloading the browser engine ({name}, about 150 MB)")
    with partial_folder(folder) as partial:
        pip = subprocess.run(
            [sys.executable, "-m", "pip", "download", "--no-deps", "--only-binary=:all:",
             "--platform", pin["ENGINE_PLATFORM"], "--python-version", pin["ENGINE_PYTHON"],
             "--disable-pip-version-check", "--no-input", "--retries", "2",
             # Unpacked it is kept here, and a cached package with a wrong sum would come back.
             "--no-cache-dir", "--dest", str(partial), name],
            stdin=subprocess.DEVNULL, stdout=sys.stderr)
        if pip.returncode != 0:
            raise Failure(
                f"pip could not download {name}; its own words stand above. If the package registry "
                f"cannot be reached from here, put {pin['ENGINE_WHEEL']} into {folder} and start again")
        try:
            (partial / pin["ENGINE_WHEEL"]).rename(folder / pin["ENGINE_WHEEL"])
        except FileNotFoundError:
            got = ", ".join(sorted(path.name for path in partial.iterdir())) or "nothing"
            raise Failure(f"pip downloaded {got} instead of {pin['ENGINE_WHEEL']}") from None


def check_sum(pin, wheel):
    with open(wheel, "rb") as file:
        found = hashlib.file_digest(file, "sha256").hexdigest()
    if found != pin["ENGINE_SHA256"]:
        wheel.unlink()
        raise Failure(f"{wheel.name} is not the package that is expected, and was removed:\n"
                      f"  expected sha256 {pin['ENGINE_SHA256']}\n"
                      f"  found    sha256 {found}")


def kept_as(member):
    """The place of a member of the package below the engine's folder, or None if it is left out."""
    if member == HEADER:
        return PurePosixPath("header.py")
    path = PurePosixPath(member)
    if member.startswith(RUNTIME) and path.name not in LEFT_OUT:
        return PurePosixPath("runtime") / path.relative_to(RUNTIME)
    if path.parent.suffix == ".dist-info" and path.name in LICENCE:
        return PurePosixPath("licence") / path.name
    return None


def unpack(wheel, target):
    say(f"unpacking the browser engine to {target}")
    with partial_folder(target.parent) as partial:
        with zipfile.ZipFile(wheel) as package:
            for member in package.infolist():
                place = kept_as(member.filename)
                if place is None or member.is_dir():
                    continue
                file = partial / place
                file.parent.mkdir(parents=True, exist_ok=True)
                with package.open(member) as source, open(file, "wb") as copy:
                    shutil.copyfileobj(source, copy, 1 << 20)
        for needed in NEEDED:
            if not (partial / needed).is_file():
                raise Failure(f"{wheel.name} has nothing that would become {needed}")
        partial.rename(target)


def fetch(pin, folder):
    target = engine_folder(pin, folder)
    folder.mkdir(parents=True, exist_ok=True)
    with alone(folder):
        if target.is_dir():
            return
        remove_leftovers(folder)
        wheel = folder / pin["ENGINE_WHEEL"]
        if not wheel.is_file():
            download(pin, folder)
        check_sum(pin, wheel)
        unpack(wheel, target)
        wheel.unlink()


def main(arguments):
    if len(arguments) not in (0, 2):
        print(__doc__, file=sys.stderr)
        return 2
    pin_file, folder = arguments or (REPOSITORY / "cmake/engine.pin", REPOSITORY / "build/engine")
    # Ended by a signal, it tidies up as after Ctrl-C.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        fetch(read_pin(pin_file), Path(folder).resolve())
    except Failure as failure:
        print(f"error: {failure}", file=sys.stderr)
        return 1
    except OSError as error:
        print(f"error: the browser engine could not be stored: {error}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        print("error: interrupted while fetching the browser engine", file=sys.stderr)
        return 130
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

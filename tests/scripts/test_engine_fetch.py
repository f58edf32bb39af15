"""scripts/lib/engine.py with a package of a few bytes and a pip that does as a test tells it."""

import hashlib
import os
import resource
import subprocess
import sys
import textwrap
import zipfile
from pathlib import Path

import pytest

SCRIPT = Path(__file__).resolve().parents[2] / "scripts/lib/engine.py"
WHEEL = "cef_capi_py-9.1.2-py3-none-win_amd64.whl"
MEMBERS = {
    "cef_capi/__init__.py": b"import ctypes",
    "cef_capi/linux_x86_64/header.py": b"another system's",
    "cef_capi/win_amd64/header.py": b"the C API",
    "cef_capi/win_amd64/struct.py": b"class struct",
    "cef_capi/runtime/cefclient.exe": b"MZ sample",
    "cef_capi/runtime/debug.log": b"logged once",
    "cef_capi/runtime/libcef.dll": bytes(1 << 20),
    "cef_capi/runtime/icudtl.dat": b"units",
    "cef_capi/runtime/locales/en-US.pak": b"words",
    "cef_capi_py-9.1.2.dist-info/LICENSE": b"as is",
    "cef_capi_py-9.1.2.dist-info/METADATA": b"Name: cef-capi-py",
    "cef_capi_py-9.1.2.dist-info/RECORD": b"list",
}
KEPT = {
    "header.py", "licence/LICENSE", "licence/METADATA",
    "runtime/libcef.dll", "runtime/icudtl.dat", "runtime/locales/en-US.pak",
}

# Stands before the real pip on Python's path. Copies what the registry is to hold, once PIP_GATE
# has been closed, if there is one.
PIP = textwrap.dedent("""
    import os, shutil, sys
    with open(os.environ["PIP_CALLS"], "a") as calls:
        print(" ".join(sys.argv[1:]), file=calls)
    if gate := os.environ.get("PIP_GATE"):
        open(gate).read()
    if not (held := os.environ.get("PIP_HOLDS")):
        sys.exit("ERROR: no answer from the registry")
    shutil.copy(held, sys.argv[sys.argv.index("--dest") + 1])
""")


def sha256(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


def write_wheel(path, members):
    path.parent.mkdir(exist_ok=True)
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
        for name, content in members.items():
            package.writestr(name, content)
    return path


class Machine:
    """A machine with a registry, a pip and a folder for the engine."""

    def __init__(self, folder):
        self.folder = folder / "engine"
        self.wheel = write_wheel(folder / "registry" / WHEEL, MEMBERS)
        self.sum = sha256(self.wheel)
        self.calls_file = folder / "calls"
        (folder / "python/pip").mkdir(parents=True)
        (folder / "python/pip/__init__.py").touch()
        (folder / "python/pip/__main__.py").write_text(PIP)
        self.environment = {**os.environ, "PYTHONPATH": str(folder / "python"),
                            "PIP_CALLS": str(self.calls_file), "PIP_HOLDS": str(self.wheel)}
        self.pin = folder / "engine.pin"
        self.write_pin()

    def write_pin(self):
        self.pin.write_text(textwrap.dedent(f"""\
            # Which package.
            ENGINE_PACKAGE=cef-capi-py
            ENGINE_VERSION=9.1.2
            ENGINE_PYTHON=312
            ENGINE_PLATFORM=win_amd64
            ENGINE_WHEEL={WHEEL}
            ENGINE_SHA256={self.sum}
            """))

    def command(self, *python_options):
        return [sys.executable, *python_options, str(SCRIPT), str(self.pin), str(self.folder)]

    def fetch(self, *python_options, **options):
        return subprocess.run(self.command(*python_options), env=self.environment, text=True,
                              capture_output=True, timeout=60, **options)

    def start(self, **environment):
        return subprocess.Popen(self.command(), env={**self.environment, **environment}, text=True,
                                stderr=subprocess.PIPE)

    @property
    def calls(self):
        return self.calls_file.read_text().splitlines() if self.calls_file.exists() else []

    @property
    def unpacked(self):
        return self.folder / f"9.1.2-{self.sum[:8]}"

    def left(self):
        """Names in the engine's folder, but for the lock."""
        return sorted(path.name for path in self.folder.iterdir() if path.name != "lock")


@pytest.fixture
def machine(tmp_path):
    return Machine(tmp_path)


def files_below(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file()}


def test_unpacks_what_the_build_needs_and_nothing_else(machine):
    run = machine.fetch()
    assert run.returncode == 0, run.stderr
    assert files_below(machine.unpacked) == KEPT
    assert (machine.unpacked / "header.py").read_bytes() == b"the C API"
    assert (machine.unpacked / "runtime/libcef.dll").stat().st_size == 1 << 20
    assert machine.left() == [machine.unpacked.name]
    assert "downloading" in run.stderr and "unpacking" in run.stderr


def test_asks_pip_for_the_pinned_package_of_the_pinned_platform(machine):
    machine.fetch()
    [call] = machine.calls
    assert call.startswith("download --no-deps --only-binary=:all: "
                           "--platform win_amd64 --python-version 312 ")
    assert call.endswith(" cef-capi-py==9.1.2")


def test_others_may_read_what_is_unpacked(machine):
    machine.fetch()
    assert machine.unpacked.stat().st_mode & 0o055 == 0o055


def test_is_silent_and_does_not_call_pip_when_the_engine_is_there(machine):
    machine.fetch()
    run = machine.fetch()
    assert run.returncode == 0
    assert run.stderr == ""
    assert len(machine.calls) == 1


def test_another_sum_is_another_folder(machine):
    machine.fetch()
    first = machine.unpacked
    write_wheel(machine.wheel, {**MEMBERS, "cef_capi/runtime/icudtl.dat": b"other units"})
    machine.sum = sha256(machine.wheel)
    machine.write_pin()
    assert machine.fetch().returncode == 0
    assert machine.unpacked != first
    assert (machine.unpacked / "runtime/icudtl.dat").read_bytes() == b"other units"


def test_wrong_sum_is_refused_with_both_sums_and_the_package_removed(machine):
    write_wheel(machine.wheel, {**MEMBERS, "cef_capi/runtime/libcef.dll": b"something else"})
    run = machine.fetch()
    assert run.returncode == 1
    assert machine.sum in run.stderr
    assert sha256(machine.wheel) in run.stderr
    assert machine.left() == []


def test_registry_without_answer_is_told_with_the_way_around_it(machine):
    del machine.environment["PIP_HOLDS"]
    run = machine.fetch()
    assert run.returncode == 1
    assert "ERROR: no answer from the registry" in run.stderr
    assert f"put {WHEEL} into {machine.folder}" in run.stderr
    assert "Traceback" not in run.stderr
    assert machine.left() == []


def test_package_put_there_by_hand_needs_no_registry(machine):
    machine.folder.mkdir()
    machine.wheel.rename(machine.folder / WHEEL)
    assert machine.fetch().returncode == 0
    assert machine.calls == []
    assert machine.left() == [machine.unpacked.name]


def test_other_package_than_the_pinned_one_is_named(machine):
    other = machine.wheel.rename(machine.wheel.with_name("cef_capi_py-9.1.2-py3-none-any.whl"))
    machine.environment["PIP_HOLDS"] = str(other)
    run = machine.fetch()
    assert run.returncode == 1
    assert other.name in run.stderr and WHEEL in run.stderr
    assert machine.left() == []


def test_missing_pip_is_told_with_the_package_that_has_it(machine):
    # Without the site module Python sees no installed package; without PYTHONPATH no stand-in.
    del machine.environment["PYTHONPATH"]
    run = machine.fetch("-S")
    assert run.returncode == 1
    assert "python3-pip" in run.stderr
    assert "Traceback" not in run.stderr


@pytest.mark.parametrize("missing", ["cef_capi/runtime/libcef.dll", "cef_capi/win_amd64/header.py"])
def test_package_without_what_the_build_needs_is_refused(machine, missing):
    write_wheel(machine.wheel, {name: MEMBERS[name] for name in MEMBERS if name != missing})
    machine.sum = sha256(machine.wheel)
    machine.write_pin()
    run = machine.fetch()
    assert run.returncode == 1
    assert Path(missing).name in run.stderr
    assert not machine.unpacked.exists()


def test_unpacking_that_breaks_off_leaves_nothing_half_and_is_made_up_for(machine):
    # The library is larger than any file may become here, as on a disk that is full.
    def small_disk():
        resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 19, resource.RLIM_INFINITY))

    run = machine.fetch(preexec_fn=small_disk)
    assert run.returncode == 1
    assert "could not be stored" in run.stderr
    assert machine.left() == [WHEEL]
    assert machine.fetch().returncode == 0
    assert files_below(machine.unpacked) == KEPT
    assert len(machine.calls) == 1


def test_what_a_killed_program_left_is_removed(machine):
    left = machine.folder / "partial-abc/runtime"
    left.mkdir(parents=True)
    (left / "libcef.dll").write_bytes(b"half")
    assert machine.fetch().returncode == 0
    assert machine.left() == [machine.unpacked.name]


def started_until_pip_waits(machine, gate):
    """A program whose pip waits until the gate, a pipe, is closed; and that gate."""
    os.mkfifo(gate)
    program = machine.start(PIP_GATE=str(gate))
    return program, open(gate, "w")  # Waits until pip opens the other end.


def test_terminated_program_leaves_nothing_half(machine, tmp_path):
    program, gate = started_until_pip_waits(machine, tmp_path / "gate")
    program.terminate()
    program.wait(timeout=60)
    gate.close()
    errors = program.communicate(timeout=60)[1]
    assert program.returncode == 130
    assert "interrupted" in errors and "Traceback" not in errors
    assert machine.left() == []


def test_two_at_a_time_download_once(machine, tmp_path):
    first, gate = started_until_pip_waits(machine, tmp_path / "gate")
    second = machine.start()
    assert "waiting for another script" in second.stderr.readline()
    gate.close()
    assert "error" not in first.communicate(timeout=60)[1]
    assert "error" not in second.communicate(timeout=60)[1]
    assert (first.returncode, second.returncode) == (0, 0)
    assert len(machine.calls) == 1
    assert files_below(machine.unpacked) == KEPT

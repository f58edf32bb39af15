"""The product's rooms include downwards only, each header by its one spelling."""

import json
import os
import re
import shlex
import subprocess
from pathlib import Path

import pytest

REPOSITORY = Path(__file__).resolve().parents[2]
PRODUCT = REPOSITORY / "interfaces/kzcefcomwrapper"
BUILD = Path(os.environ.get("KZ_BUILD", REPOSITORY / "build/mingw"))

# Each room, and the rooms that it may use.
BELOW = {
    "utils": [],
    "com": ["utils"],
    "dialogs": ["utils", "com"],
    "handler": ["dialogs", "utils", "com"],
    "runtime": ["handler", "dialogs", "utils", "com"],
    "bridge": ["runtime", "handler", "dialogs", "utils", "com"],
    "automation": ["bridge", "runtime", "handler", "dialogs", "utils", "com"],
    "server": ["automation", "bridge", "runtime", "handler", "dialogs", "utils", "com"],
}
GENERATED = {"KZCEFComWrapper.h", "KZCEFComWrapper_i.c", "kz_version.h"}


def quoted_includes(source: Path) -> list[str]:
    return re.findall(r'^#include "([^"]+)"', source.read_text(encoding="utf-8"), re.MULTILINE)


def sources(room: str) -> list[Path]:
    return sorted(p for p in (PRODUCT / room).glob("*") if p.suffix in (".h", ".cpp"))


@pytest.mark.parametrize("room", BELOW)
def test_includes_lead_downwards_by_one_spelling(room):
    allowed = {room, *BELOW[room], "include"}
    wrong = [f"{source.name}: {name}" for source in sources(room)
             for name in quoted_includes(source)
             if name not in GENERATED and ("/" not in name or name.split("/")[0] not in allowed)]
    assert sources(room) and not wrong


def compiles(room: str, include: str, folder: Path) -> bool:
    """Whether a source of `room` could include `include`, by the flags of one that there is."""
    database = json.loads((BUILD / "compile_commands.json").read_text())
    entry = next(e for e in database
                 if Path(e["file"]).parent == PRODUCT / room and e["file"].endswith(".cpp"))
    words = shlex.split(entry["command"])
    flags = [word for word in words if word.startswith(("-D", "-std"))]
    for option in ("-I", "-isystem"):
        for at, word in enumerate(words):
            if word == option:
                flags += [option, words[at + 1]]
            elif word.startswith(option) and word != option:
                flags.append(word)
    source = folder / "source.cpp"
    source.write_text(f'#include "{include}"\n')
    compiler = next(word for word in words if word.endswith(("g++", "g++-posix", "clang++")))
    return subprocess.run([compiler, *flags, "-fsyntax-only", str(source)],
                          capture_output=True).returncode == 0


@pytest.mark.parametrize("room", BELOW)
def test_include_of_a_room_above_does_not_compile(room, tmp_path):
    if not (BUILD / "compile_commands.json").exists():
        pytest.skip("there is no configured build to take the compiler's flags from")
    above = [name for name in BELOW if name != room and name not in BELOW[room]]
    for name in above:
        header = next(p for p in sources(name) if p.suffix == ".h")
        assert not compiles(room, f"{name}/{header.name}", tmp_path), name
    own = next(p for p in sources(room) if p.suffix == ".h")
    assert not compiles(room, own.name, tmp_path)

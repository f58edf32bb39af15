#!/usr/bin/python3
"""Prepares an existing Wine prefix for the engine: fonts, and the DLL that supplies what Wine lacks.

Usage: prepare_prefix.py PREFIX LAYER_DLL

Quick when there is nothing to do; a newer DLL is copied again. The interpreter is the system's,
whose packages python3-fonttools and fonts-liberation are needed.
"""

import filecmp
import hashlib
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import fonts

HERE = pathlib.Path(__file__).resolve().parent
RUN_WINE = HERE.parent / "cmake" / "run-wine"
FONTS_KEY = r"HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\Fonts"


def install_layer(prefix, layer):
    """Every process of the prefix finds the DLL in system32, a script host's too."""
    target = prefix / "drive_c/windows/system32/bcryptprimitives.dll"
    if target.exists() and filecmp.cmp(layer, target, shallow=False):
        return
    # A process that is still running goes on with the file that it has.
    part = target.with_name(f"{target.name}.{os.getpid()}")
    shutil.copyfile(layer, part)
    os.replace(part, target)


def fonts_version():
    """Changes whenever other fonts would be made."""
    made_from = sorted(fonts.SOURCES.glob("*.ttf"))
    text = "\n".join(f"{font.name} {font.stat().st_size}" for font in made_from)
    return hashlib.sha256(text.encode() + (HERE / "fonts.py").read_bytes()).hexdigest()


def register(prefix, entries):
    lines = ["Windows Registry Editor Version 5.00", "", f"[{FONTS_KEY}]"]
    lines += [f'"{name}"="{file}"' for name, file in entries.items()]
    environment = dict(os.environ, WINEPREFIX=str(prefix), WINEARCH="win64", WINEDEBUG="-all",
                       WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=")
    with tempfile.NamedTemporaryFile("w", suffix=".reg", newline="\r\n") as file:
        file.write("\n".join(lines) + "\n")
        file.flush()
        path = "Z:" + file.name.replace("/", "\\")
        subprocess.run([RUN_WINE, "regedit", "/S", path], env=environment, check=True, timeout=120,
                       stdin=subprocess.DEVNULL)


def install_fonts(prefix):
    stamp = prefix / "engine_fonts"
    version = fonts_version()
    if stamp.exists() and stamp.read_text() == version:
        return
    folder = prefix / "drive_c/windows/Fonts"
    folder.mkdir(exist_ok=True)
    register(prefix, fonts.make(folder))
    stamp.write_text(version)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    prefix, layer = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    if not (prefix / "system.reg").exists():
        sys.exit(f"{prefix} is no Wine prefix")
    if not layer.exists():
        sys.exit(f"{layer} is not built (target kz_wine_layer)")
    if not fonts.SOURCES.is_dir():
        sys.exit(f"{fonts.SOURCES} is missing (package fonts-liberation)")
    install_layer(prefix, layer)
    install_fonts(prefix)


if __name__ == "__main__":
    main()

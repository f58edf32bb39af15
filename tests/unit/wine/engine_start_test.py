#!/usr/bin/python3
"""The engine's start in a prepared prefix, with the layer and without.

Usage: engine_start_test.py PROGRAM LIBCEF_DLL LAYER_DLL with|without
"""

import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[3]


def started(program, engine, layer):
    """The exit status of a program that loads the engine; the layer's DLL is one that Wine finds or
    one that it is told not to load."""
    overrides = os.environ.get("WINEDLLOVERRIDES", "mscoree,mshtml,winemenubuilder.exe=")
    if not layer:
        overrides += ";bcryptprimitives="
    environment = dict(os.environ, WINEDLLOVERRIDES=overrides)
    path = "Z:" + str(pathlib.Path(engine).resolve()).replace("/", "\\")
    return subprocess.run([ROOT / "cmake/run-wine", program, path], env=environment, timeout=120,
                          check=False).returncode


def main():
    program, engine, layer, case = sys.argv[1:]
    subprocess.run([ROOT / "wine/prepare_prefix.py", os.environ["WINEPREFIX"], layer], check=True)
    status = started(program, engine, case == "with")
    if case == "with" and status != 0:
        sys.exit(f"the engine does not start with the layer (status {status})")
    if case == "without" and status == 0:
        sys.exit("the engine starts without the layer: this Wine has a bcryptprimitives.dll of its"
                 " own. See wine/README.md for what can go, and how the rest gets in.")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""What regsvr32 makes of the DLL in a Wine prefix of its own.

Usage: registered_server.py PREFIX DLL CLIENT SCRIPT CASE

The case "prepare" makes the prefix; every other case starts from the registry as it was then,
whatever the case before it left, and compares the whole registry before and after.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys

CLASSES = {
    "{3db0ecfc-7271-457c-9c7b-5b6d48a73a2b}": "KZCEFComApplication class",
    "{2ae47a70-f337-4f47-9876-8401a5986a3c}": "KZCEFComBrowser class",
    "{4790f28d-e6c7-440f-b7ed-53f0692a5390}": "KZCEFComBrowserHandler class",
    "{671e854d-51df-44a1-a3cd-3741165c5a28}": "KZCEFComCookieManager class",
    "{5afaa550-8fd7-44dd-bc66-20ad4315aaca}": "KZCEFComToken class",
    "{a2ac9822-988b-4f96-83c8-91434cbaf892}": "KZCEFComSettings class",
}
INTERFACES = {
    "{0a84e6c1-7469-46d7-ac45-a300d435e741}": "IKZCEFComApplication",
    "{64cecc1e-c422-4421-911a-bec403cf8c31}": "IKZCEFComApplication2",
    "{db8538b4-92cc-47b0-8126-1d90904de8b1}": "IKZCEFComToken",
    "{6a350a27-2739-48aa-88da-87a87ab92b87}": "IKZCEFComBrowser",
    "{b2745c85-897b-4b63-a216-4243be8b9bc8}": "IKZCEFComBrowserHandler",
    "{0f8a7815-12e8-48e8-b14c-741b2eb272e2}": "IKZCEFComBrowserHandler2",
    "{56ce960e-f059-416e-84f3-2377293c2d02}": "IKZCEFComBrowserHandler3",
    "{7f7a2c88-d434-49fb-82bb-8af00e421960}": "IKZCEFComCookieManager",
    "{b6ce0572-9782-4d32-90a0-a2aa5c182b40}": "IKZCEFComSettings",
}
LIBRARY = "{f0673e78-faf0-4477-beb2-0ef5b0e6a7c2}"
# The platform's marshaller of dual interfaces.
PROXY = "{00020424-0000-0000-c000-000000000046}"
# Written anew whenever a desktop starts.
UNSTEADY = {"DriverDateData"}
# Where Wine's debugger keeps its settings. It appears when a service program of Wine's own is ended
# while it starts; the programs that a case runs tell by their exit status how they fared.
UNSTEADY_KEY = "hkcu\\software\\wine\\winedbg"
# Starts a program once more that Wine ended before it began.
RUN_WINE = pathlib.Path(__file__).resolve().parents[2] / "cmake" / "run-wine"
HIVES = {"system.reg": "HKLM", "user.reg": "HKCU", "userdef.reg": "HKU\\.Default"}


class Prefix:
    def __init__(self, folder, dll):
        self.folder = pathlib.Path(folder)
        self.dll = "Z:" + dll.replace("/", "\\")
        self.dll_folder = self.dll.rsplit("\\", 1)[0]
        self.environment = dict(
            os.environ,
            WINEPREFIX=folder,
            WINEARCH="win64",
            WINEDEBUG="-all",
            WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=",
        )

    def wine(self, *arguments):
        """The exit status and the output of a program under Wine."""
        done = subprocess.run(
            [RUN_WINE, *arguments], env=self.environment, timeout=120, text=True, errors="replace",
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
        return done.returncode, done.stdout

    def stop(self):
        """Ends this prefix's server, which writes the registry to its files."""
        subprocess.run(["wineserver", "-k"], env=self.environment, check=False,
                       stderr=subprocess.DEVNULL)
        subprocess.run(["wineserver", "-w"], env=self.environment, check=True, timeout=120)

    def prepare(self):
        pristine = self.folder / "pristine"
        if pristine.exists():
            return
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)
        self.wine("wineboot", "-i")
        self.stop()
        # What the first programs of a prefix leave behind is not ours to compare.
        self.wine("regsvr32", "/s", "Z:\\no\\such.dll")
        self.wine("cscript", "//nologo", "Z:\\no\\such.vbs")
        self.stop()
        pristine.mkdir()
        for name in HIVES:
            shutil.copy(self.folder / name, pristine / name)

    def restore(self):
        self.stop()
        for name in HIVES:
            shutil.copy(self.folder / "pristine" / name, self.folder / name)

    def registry(self):
        """Every value by its key and name, and every key by itself with None; keys in lower case."""
        self.stop()
        values = {}
        for name, hive in HIVES.items():
            key = None
            for line in (self.folder / name).read_text("utf-8", "replace").splitlines():
                if line.startswith("["):
                    path = re.match(r"\[(.*)\](?: \d+)?$", line).group(1).replace("\\\\", "\\")
                    key = (hive + "\\" + path).lower()
                    if key.startswith(UNSTEADY_KEY):
                        key = None
                        continue
                    # The file leaves out keys that hold nothing but other keys.
                    for end in [m.start() for m in re.finditer(r"\\", key)] + [len(key)]:
                        values[key[:end], None] = None
                elif key and (line.startswith("@=") or line.startswith('"')):
                    value_name, value = re.match(r'(@|"(?:[^"\\]|\\.)*")=(.*)$', line).groups()
                    value_name = value_name.strip('"')
                    if value_name in UNSTEADY:
                        continue
                    values[key, value_name] = value.strip('"').replace("\\\\", "\\")
        return values


def class_entries(prefix, root):
    """The six classes below a root's CLSID key."""
    entries = {}
    for clsid, text in CLASSES.items():
        key = f"{root}\\clsid\\{clsid}"
        for subkey in ("", "\\programmable", "\\inprocserver32", "\\typelib", "\\version"):
            entries[key + subkey, None] = None
        entries[key, "@"] = text
        entries[key + "\\inprocserver32", "@"] = prefix.dll
        entries[key + "\\inprocserver32", "ThreadingModel"] = "Apartment"
        entries[key + "\\typelib", "@"] = LIBRARY
        entries[key + "\\version", "@"] = "1.0"
    return entries


def library_entries(prefix, root):
    """What the platform writes for a registered type library."""
    key = f"{root}\\typelib\\{LIBRARY}"
    entries = {(key, None): None}
    # The flag 8 is the platform's own: the library has a file on the disk.
    for subkey, value in (("1.0", "KZCEFComWrapperLib"), ("1.0\\409", None),
                          ("1.0\\409\\win64", prefix.dll), ("1.0\\flags", "8"),
                          ("1.0\\helpdir", prefix.dll_folder)):
        entries[f"{key}\\{subkey}", None] = None
        if value is not None:
            entries[f"{key}\\{subkey}", "@"] = value
    # A dual interface is marshalled alike for both widths of process.
    places = [(view + "\\interface\\" + iid, name) for iid, name in INTERFACES.items()
              for view in (root, root + "\\wow6432node")]
    for key, name in places:
        entries[key, None] = None
        entries[key, "@"] = name
        for proxy in ("proxystubclsid", "proxystubclsid32"):
            entries[f"{key}\\{proxy}", None] = None
            entries[f"{key}\\{proxy}", "@"] = PROXY.upper()
        entries[f"{key}\\typelib", None] = None
        entries[f"{key}\\typelib", "@"] = LIBRARY.upper()
        entries[f"{key}\\typelib", "Version"] = "1.0"
    return entries


def difference(before, after):
    """What was added or changed, and what went, of which nothing is expected ever."""
    added = {k: v for k, v in after.items() if k not in before or before[k] != v}
    gone = {k: v for k, v in before.items() if k not in after}
    return added, gone


def show(title, entries):
    return [f"{title}: {key} {name}={value}" for (key, name), value in
            sorted(entries.items(), key=str)]


def expect_added(before, after, expected):
    added, gone = difference(before, after)
    missing = {k: v for k, v in expected.items() if k not in added}
    other = {k: v for k, v in added.items() if k not in expected}
    wrong = {k: f"{added[k]} (expected {v})" for k, v in expected.items()
             if k in added and added[k] != v}
    problems = (show("missing", missing) + show("not expected", other) + show("wrong", wrong) +
                show("gone", gone))
    if problems:
        sys.exit("\n".join(problems))


MACHINE = "hklm\\software\\classes"
USER = "hkcu\\software\\classes"


def run(prefix, what, *arguments):
    status, output = prefix.wine(*arguments)
    if status != 0:
        sys.exit(f"{what} ended with {status}:\n{output}")


def regsvr32(prefix, *options):
    run(prefix, f"regsvr32 {options}", "regsvr32", "/s", *options, prefix.dll)


def case_machine(prefix, _client, _script):
    before = prefix.registry()
    regsvr32(prefix)
    expected = class_entries(prefix, MACHINE) | library_entries(prefix, MACHINE)
    expect_added(before, prefix.registry(), expected)
    regsvr32(prefix, "/u")
    expect_added(before, prefix.registry(), {})


def per_user(prefix, install):
    before = prefix.registry()
    regsvr32(prefix, "/n", install)
    # Wine's RegisterTypeLibForUser is a stub that registers for the machine, so where the library
    # goes cannot be observed here; on Windows it goes below the user's classes too.
    expected = class_entries(prefix, USER) | library_entries(prefix, MACHINE)
    added = prefix.registry()
    for key in (USER, USER + "\\clsid"):
        if (key, None) not in before:
            expected[key, None] = None
    expect_added(before, added, expected)
    return before


def case_user(prefix, _client, _script):
    before = per_user(prefix, "/i:user")
    regsvr32(prefix, "/u", "/n", "/i:user")
    after = prefix.registry()
    # The root below which classes live is the system's and stays.
    roots = {k: None for k in ((USER, None), (USER + "\\clsid", None)) if k not in before}
    expect_added(before, after, roots)


def case_user_upper_case(prefix, _client, _script):
    per_user(prefix, "/i:USER")


def case_user_only_unregisters_the_users(prefix, _client, _script):
    before = prefix.registry()
    regsvr32(prefix)
    regsvr32(prefix, "/u", "/n", "/i:user")
    left = {k: v for k, v in difference(before, prefix.registry())[0].items()
            if k[0].startswith(MACHINE + "\\clsid")}
    if left != class_entries(prefix, MACHINE):
        sys.exit("unregistering for the user took the machine's classes")


def machine_for(prefix, install):
    before = prefix.registry()
    regsvr32(prefix, "/n", install)
    expected = class_entries(prefix, MACHINE) | library_entries(prefix, MACHINE)
    expect_added(before, prefix.registry(), expected)


def case_users_is_machine(prefix, _client, _script):
    machine_for(prefix, "/i:users")


def case_use_is_machine(prefix, _client, _script):
    machine_for(prefix, "/i:use")


def case_client(prefix, client, _script):
    regsvr32(prefix)
    run(prefix, "the client", client)


def case_script(prefix, _client, script):
    regsvr32(prefix)
    status, output = prefix.wine("cscript", "//nologo", "Z:" + script.replace("/", "\\"))
    if status != 0 or "ok processing" not in output or "FAILED" in output:
        sys.exit(f"the script ended with {status}:\n{output}")


def main():
    folder, dll, client, script, name = sys.argv[1:]
    prefix = Prefix(folder, dll)
    if name == "prepare":
        prefix.prepare()
        return
    prefix.restore()
    try:
        globals()["case_" + name](prefix, client, script)
    finally:
        prefix.stop()


if __name__ == "__main__":
    main()

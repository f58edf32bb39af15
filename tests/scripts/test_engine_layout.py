"""cmake/Engine.cmake in a project of its own: how an unpacked engine comes into the build's folder."""

import os
import subprocess
import tempfile
from pathlib import Path

import pytest

CMAKE_FOLDER = Path(__file__).resolve().parents[2] / "cmake"
PROJECT = f"""
cmake_minimum_required(VERSION 3.25)
project(Layout LANGUAGES NONE)
list(APPEND CMAKE_MODULE_PATH {CMAKE_FOLDER})
include(Engine)
foreach(name DIR HEADER_PY CEF_VERSION API_HASH)
  message(STATUS "${{name}} is ${{KZ_ENGINE_${{name}}}}.")
endforeach()
"""
FILES = {"libcef.dll": "library", "icudtl.dat": "units", "locales/en-US.pak": "words"}


class Project:
    def __init__(self, folder):
        self.folder = folder / "project"
        self.folder.mkdir()
        (self.folder / "CMakeLists.txt").write_text(PROJECT)
        self.bin = self.folder / "out/bin"

    def configure(self, *options):
        return subprocess.run(["cmake", "-G", "Ninja", "-S", self.folder, "-B", self.folder / "out",
                               *options], text=True, capture_output=True, timeout=60)

    def build(self):
        run = subprocess.run(["cmake", "--build", self.folder / "out"], text=True,
                             capture_output=True, timeout=60)
        assert run.returncode == 0, run.stdout + run.stderr
        return run.stdout

    def build_on(self, engine):
        run = self.configure(f"-DKZ_ENGINE_DIR={engine}")
        assert run.returncode == 0, run.stderr
        return self.build()

    def laid_out(self):
        return {str(path.relative_to(self.bin)): path.read_text()
                for path in self.bin.rglob("*") if path.is_file()}


@pytest.fixture
def project(tmp_path):
    return Project(tmp_path)


def engine(folder, files):
    for name, content in files.items():
        file = folder / "runtime" / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(content)
        # Unpacked long ago: older than this repository's files, and than what was laid out since.
        os.utime(file, (1, 1))
    (folder / "header.py").touch()
    return folder


def test_every_file_is_laid_out_once(project, tmp_path):
    project.build_on(engine(tmp_path / "a", FILES))
    assert project.laid_out() == FILES
    assert "no work to do" in project.build()


def test_files_are_linked_and_their_own_place_is_in_bin(project, tmp_path):
    unpacked = engine(tmp_path / "a", FILES)
    project.build_on(unpacked)
    laid_out = project.bin / "libcef.dll"
    assert laid_out.samefile(unpacked / "runtime/libcef.dll")
    assert not laid_out.is_symlink()


def test_files_of_another_file_system_are_copied(project):
    with tempfile.TemporaryDirectory(dir="/dev/shm") as elsewhere:
        if os.stat(elsewhere).st_dev == os.stat(project.folder).st_dev:
            pytest.skip("/dev/shm is not a file system of its own here")
        project.build_on(engine(Path(elsewhere), FILES))
        assert project.laid_out() == FILES


def test_removed_file_comes_back(project, tmp_path):
    project.build_on(engine(tmp_path / "a", FILES))
    (project.bin / "locales/en-US.pak").unlink()
    project.build()
    assert project.laid_out() == FILES


def test_files_of_the_build_stay(project, tmp_path):
    project.build_on(engine(tmp_path / "a", FILES))
    (project.bin / "product.dll").write_text("product")
    project.build_on(engine(tmp_path / "b", FILES))
    assert project.laid_out() == {**FILES, "product.dll": "product"}


def test_other_version_takes_the_place_of_the_first(project, tmp_path):
    project.build_on(engine(tmp_path / "a", FILES))
    other = {"libcef.dll": "other library", "locales/de.pak": "Worte", "icudtl.dat": "units"}
    project.build_on(engine(tmp_path / "b", other))
    assert project.laid_out() == other
    # What the first was unpacked to is as it was.
    assert (tmp_path / "a/runtime/libcef.dll").read_text() == "library"


def test_layout_does_not_depend_on_the_build_tool_to_forget_files(project, tmp_path):
    lay_out = ["cmake", f"-DTO={tmp_path / 'to'}", f"-DLIST={tmp_path / 'list'}"]
    for name, files in ("a", FILES), ("b", {"libcef.dll": "newer library"}):
        source = engine(tmp_path / name, files) / "runtime"
        subprocess.run([*lay_out, f"-DFROM={source}", "-P", CMAKE_FOLDER / "lay_out_engine.cmake"],
                       check=True, timeout=60)
    left = [path.name for path in (tmp_path / "to").rglob("*") if path.is_file()]
    assert left == ["libcef.dll"]
    assert (tmp_path / "to/libcef.dll").read_text() == "newer library"


def test_missing_engine_is_told_with_the_script_that_fetches_it(project):
    run = project.configure()
    assert run.returncode != 0
    assert run.stderr.startswith("CMake Error at")
    assert "scripts/lib/engine.py" in run.stderr
    assert str(project.folder / "build/engine") in run.stderr


def test_pin_names_the_folder_and_what_the_engine_is(project):
    pin = dict(line.split("=", 1) for line in (CMAKE_FOLDER / "engine.pin").read_text().splitlines()
               if line and line[0] != "#")
    unpacked = project.folder / (
        f"build/engine/{pin['ENGINE_VERSION']}-{pin['ENGINE_SHA256'][:8]}")
    engine(unpacked, FILES)
    run = project.configure()
    assert run.returncode == 0, run.stderr
    assert f"DIR is {unpacked}." in run.stdout
    assert f"HEADER_PY is {unpacked}/header.py." in run.stdout
    assert f"CEF_VERSION is {pin['ENGINE_CEF_VERSION']}." in run.stdout
    assert f"API_HASH is {pin['ENGINE_API_HASH']}." in run.stdout

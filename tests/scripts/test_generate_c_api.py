"""cef/binding/tools/generate_c_api.py: CEF's C API as C++, from descriptions made for each case.

That the header for the engine's own description compiles, and that its sizes and offsets are those
of CEF's public headers, is what every build checks.
"""

import importlib.util
import re
import subprocess
import sys
from pathlib import Path

import pytest

GENERATOR = Path(__file__).resolve().parents[2] / "cef/binding/tools/generate_c_api.py"


def load():
    spec = importlib.util.spec_from_file_location("generate_c_api", GENERATOR)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


PREAMBLE = """
import ctypes
class AsDictMixin:
    pass
class Structure(ctypes.Structure, AsDictMixin):
    pass
class Union(ctypes.Union, AsDictMixin):
    pass
size_t = ctypes.c_uint64
class struct__cef_point_t(Structure):
    pass
struct__cef_point_t._pack_ = 1 # source:False
struct__cef_point_t._fields_ = [('x', ctypes.c_int32), ('y', ctypes.c_int32)]
cef_point_t = struct__cef_point_t
class struct__cef_later_t(Structure):
    pass
class struct_HWND__(Structure):
    pass
"""


def structure(members, name="struct__cef_thing_t"):
    return f"class {name}(Structure):\n    pass\n{name}._fields_ = [{members}]\n"


def function(name, result, arguments):
    return f"{name}.restype = {result}\n{name}.argtypes = {arguments}\n"


@pytest.fixture
def generator(monkeypatch):
    module = load()
    monkeypatch.setattr(module, "SHARED", frozenset(("cef_point_t",)))
    return module


@pytest.fixture
def generate(generator):
    return lambda text: generator.generate(PREAMBLE + text)


@pytest.fixture
def refusal(generator):
    def refuse(text):
        with pytest.raises(generator.NotUnderstood) as error:
            generator.generate(PREAMBLE + text)
        return str(error.value)
    return refuse


def body(header, name="cef_thing_t"):
    """The members of a structure as they were written."""
    found = re.search(rf"^struct {name} {{\n(.*?)^}};$", header, re.MULTILINE | re.DOTALL)
    return [line.strip() for line in found[1].splitlines()]


@pytest.mark.parametrize("described, written, size", [
    ("ctypes.c_int8", "signed char m;", 1),
    ("ctypes.c_ubyte", "unsigned char m;", 1),
    ("ctypes.c_char", "char m;", 1),
    ("ctypes.c_uint16", "char16_t m;", 2),
    ("ctypes.c_int16", "int16_t m;", 2),
    ("ctypes.c_int32", "int m;", 4),
    ("ctypes.c_uint32", "uint32_t m;", 4),
    ("ctypes.c_int64", "int64_t m;", 8),
    ("ctypes.c_uint64", "uint64_t m;", 8),
    ("ctypes.c_float", "float m;", 4),
    ("ctypes.c_double", "double m;", 8),
    ("size_t", "uint64_t m;", 8),
    ("cef_point_t", "cef_point_t m;", 8),
    ("struct__cef_point_t", "cef_point_t m;", 8),
    ("ctypes.POINTER(None)", "void* m;", 8),
    ("ctypes.POINTER(ctypes.c_int32)", "int* m;", 8),
    ("ctypes.POINTER(struct__cef_later_t)", "cef_later_t* m;", 8),
    ("ctypes.POINTER(ctypes.POINTER(struct__cef_later_t))", "cef_later_t** m;", 8),
    ("ctypes.POINTER(ctypes.POINTER(ctypes.POINTER(None)))", "void*** m;", 8),
    ("ctypes.POINTER(struct_HWND__)", "::HWND__* m;", 8),
    ("ctypes.c_char * 3", "char m[3];", 3),
    ("(ctypes.c_int32 * 2) * 3", "int m[3][2];", 24),
    ("cef_point_t * 4", "cef_point_t m[4];", 32),
    ("ctypes.POINTER(ctypes.c_char) * 2", "char* m[2];", 16),
    ("ctypes.POINTER(ctypes.c_char * 4)", "char (*m)[4];", 8),
    ("ctypes.CFUNCTYPE(None)", "void(CEF_CALLBACK *m)();", 8),
    ("ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.POINTER(struct__cef_later_t), ctypes.c_double)",
     "int(CEF_CALLBACK *m)(cef_later_t*, double);", 8),
    ("ctypes.CFUNCTYPE(None, ctypes.CFUNCTYPE(ctypes.c_int32))",
     "void(CEF_CALLBACK *m)(int(CEF_CALLBACK *)());", 8),
    ("ctypes.CFUNCTYPE(None) * 2", "void(CEF_CALLBACK *m[2])();", 16),
    ("ctypes.POINTER(ctypes.CFUNCTYPE(None))", "void(CEF_CALLBACK ** m)();", 8),
])
def test_writes_a_member_of_every_type(generate, described, written, size):
    header = generate(structure(f"('m', {described}), ('after', ctypes.c_char)"))
    assert body(header) == [written, "char after;"]
    assert f"static_assert(offsetof(cef_thing_t, after) == {size});" in header
    assert f"static_assert(sizeof(cef_thing_t) == {size + 1});" in header


def test_what_is_written_is_c_plus_plus(generate, tmp_path):
    header = generate(structure("""
        ('array', ctypes.c_char * 8), ('to_array', ctypes.POINTER(ctypes.c_char * 4)),
        ('calls', ctypes.CFUNCTYPE(None, ctypes.CFUNCTYPE(ctypes.c_int32)) * 2),
        ('to_call', ctypes.POINTER(ctypes.CFUNCTYPE(None))),
        ('table', (ctypes.c_int32 * 2) * 3), ('point', cef_point_t), ('flag', ctypes.c_int32),
        ('PADDING_0', ctypes.c_ubyte * 4),
        """) + function("cef_do", "ctypes.POINTER(struct__cef_later_t)",
                        "[ctypes.CFUNCTYPE(None), ctypes.POINTER(ctypes.c_char * 4)]"))
    source = re.sub(r"#include [\"<](include/|windows).*", "", header).replace("#pragma once", "")
    (tmp_path / "header.cpp").write_text(
        "#define CEF_CALLBACK\nstruct cef_point_t { int x, y; };\n" + source)
    compiled = subprocess.run(
        ["clang++", "-std=c++20", "-Wall", "-Wextra", "-Werror", "-fsyntax-only",
         tmp_path / "header.cpp"], capture_output=True, text=True, timeout=60)
    assert compiled.returncode == 0, compiled.stderr


def test_padding_takes_room_and_has_no_name(generate):
    header = generate(structure(
        "('a', ctypes.c_int32), ('PADDING_0', ctypes.c_ubyte * 4), ('b', ctypes.c_int64),"
        "('c', ctypes.c_char), ('PADDING_1', ctypes.c_ubyte * 7)"))
    assert body(header) == ["int a;", "int64_t b;", "char c;"]
    assert "static_assert(offsetof(cef_thing_t, b) == 8);" in header
    assert "static_assert(sizeof(cef_thing_t) == 24);" in header
    assert "PADDING" not in header


def test_a_structure_inside_another_keeps_its_size(generate):
    header = generate(structure("('base', struct__cef_inner_t), ('next', ctypes.c_char)",
                                "struct__cef_outer_t")
                      + structure("('a', ctypes.c_int64), ('b', cef_point_t)",
                                  "struct__cef_inner_t"))
    assert "static_assert(offsetof(cef_outer_t, next) == 16);" in header


def test_a_shared_structure_is_taken_from_the_headers_and_checked(generate):
    header = generate("")
    assert "using ::cef_point_t;" in header
    assert "struct cef_point_t" not in header
    assert "static_assert(offsetof(cef_point_t, y) == 4);" in header
    assert "static_assert(sizeof(cef_point_t) == 8);" in header


def test_own_structures_are_declared_before_any_is_defined(generate):
    header = generate(structure("('m', ctypes.POINTER(struct__cef_later_t))"))
    assert header.index("struct cef_later_t;") < header.index("struct cef_thing_t {")
    assert header.index("struct cef_thing_t;") < header.index("struct cef_thing_t {")


def test_the_systems_structures_are_not_written(generate):
    header = generate(structure("('left', ctypes.c_int32)", "struct_tagRECT")
                      + structure("('m', struct_tagRECT), ('after', ctypes.c_char)"))
    assert body(header) == ["::tagRECT m;", "char after;"]
    assert "static_assert(offsetof(cef_thing_t, after) == 4);" in header
    assert "struct tagRECT" not in header


def test_functions_stand_in_a_table_and_their_names_in_the_same_order(generate):
    header = generate(
        function("cef_b", "None", "[]")
        + function("cef_a", "ctypes.c_int32", "[ctypes.POINTER(cef_point_t), size_t]"))
    assert body(header, "Functions") == ["int (*cef_a)(cef_point_t*, uint64_t);",
                                         "void (*cef_b)();"]
    names = header[header.index("kFunctionNames[]"):]
    assert re.findall(r'"(\w+)"', names) == ["cef_a", "cef_b"]


@pytest.mark.parametrize("members, named", [
    ("('m', ctypes.c_longdouble)", "cef_thing_t.m: ctypes.c_longdouble"),
    ("('m', unknown_t)", "cef_thing_t.m: unknown_t"),
    ("('m', struct__cef_later_t)", "cef_thing_t.m: struct__cef_later_t"),
    ("('m', ctypes.POINTER(unknown_t))", "cef_thing_t.m: unknown_t"),
    ("('m', ctypes.c_char * length)", "cef_thing_t.m: ctypes.c_char * length"),
    ("('m', ctypes.CFUNCTYPE(None, unknown_t))", "cef_thing_t.m: unknown_t"),
    ("('m', ctypes.CFUNCTYPE(unknown_t))", "cef_thing_t.m: unknown_t"),
    ("('m', ctypes.WINFUNCTYPE(None))", "cef_thing_t.m: ctypes.WINFUNCTYPE(None)"),
    ("('bits', ctypes.c_int32, 3)", "cef_thing_t: ('bits', ctypes.c_int32, 3)"),
    ("(name, ctypes.c_int32)", "cef_thing_t: (name, ctypes.c_int32)"),
    ("('ok', ctypes.c_int32), *others", "cef_thing_t: *others"),
])
def test_a_member_that_is_not_understood_is_named(refusal, members, named):
    assert refusal(structure(members)) == f"struct__{named}"


def test_a_member_inside_a_member_is_named(refusal):
    assert refusal(structure("('deep', ctypes.c_wchar)", "struct__cef_inner_t")
                   + structure("('m', struct__cef_inner_t)")).endswith(
                       "struct__cef_inner_t.deep: ctypes.c_wchar")


def test_members_that_are_no_list_are_not_understood(refusal):
    assert "struct__cef_thing_t: the members are no list" == refusal(
        "class struct__cef_thing_t(Structure):\n    pass\n"
        "struct__cef_thing_t._fields_ = other._fields_\n")


def test_a_union_is_not_taken_for_a_structure(refusal):
    assert refusal(
        "class union_u(Union):\n    pass\n"
        "union_u._fields_ = [('a', ctypes.c_int32), ('b', ctypes.c_int64)]\n"
        + structure("('m', union_u)")) == "struct__cef_thing_t.m: union_u"


@pytest.mark.parametrize("text, named", [
    (function("cef_f", "unknown_t", "[]"), "cef_f: unknown_t"),
    (function("cef_f", "None", "[unknown_t]"), "cef_f: unknown_t"),
    (function("cef_f", "None", "others"), "cef_f: no list of arguments"),
    ("cef_f.restype = None\n", "cef_f: no list of arguments"),
    ("cef_f.argtypes = []\n", "cef_f: no result"),
    (function("CoInitialize", "None", "[]"), "CoInitialize: not a function of CEF"),
])
def test_a_function_that_is_not_understood_is_named(refusal, text, named):
    assert refusal(text) == named


def test_a_shared_structure_that_is_not_described_is_named(generator, monkeypatch):
    monkeypatch.setattr(generator, "SHARED", frozenset(("cef_point_t", "cef_b_t", "cef_a_t")))
    with pytest.raises(generator.NotUnderstood, match="^cef_a_t, cef_b_t: not described$"):
        generator.generate(PREAMBLE)


def test_the_program_says_what_it_did_not_understand(tmp_path):
    description = tmp_path / "header.py"
    description.write_text(PREAMBLE)
    output = tmp_path / "out.h"
    run = subprocess.run([sys.executable, GENERATOR, description, output], capture_output=True,
                         text=True, timeout=60)
    assert run.returncode == 1
    assert run.stderr.startswith(f"{description}: not understood: cef_basetime_t, ")
    assert not output.exists()


def test_the_program_needs_both_names():
    run = subprocess.run([sys.executable, GENERATOR], capture_output=True, text=True, timeout=60)
    assert run.returncode == 1
    assert "Usage: generate_c_api.py DESCRIPTION OUTPUT" in run.stderr

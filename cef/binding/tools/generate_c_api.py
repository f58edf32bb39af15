"""Generates the layout of CEF's C API as a C++ header from the engine's own description.

The engine's package describes the whole C API for 64-bit Windows in one Python file: every
structure with its members in order, every enumeration and every exported function. This program
reads that file without running it and writes

  * each structure in the namespace `capi`, with its size and every offset checked by the compiler,
  * `capi::Functions`, a table of pointers to all exported functions, and their names.

Structures that CEF's public headers declare with the same layout are taken from there (SHARED); the
compiler checks those, too. Whatever the program does not understand ends it with the name of the
structure or function, and of its member.

Usage: generate_c_api.py DESCRIPTION OUTPUT
"""

import ast
import sys

# Declared by CEF's public headers, and the same in the engine: passed as they are.
SHARED = frozenset((
    "cef_basetime_t",
    "cef_browser_settings_t",
    "cef_cookie_t",
    "cef_cursor_info_t",
    "cef_draggable_region_t",
    "cef_key_event_t",
    "cef_main_args_t",
    "cef_mouse_event_t",
    "cef_point_t",
    "cef_popup_features_t",
    "cef_rect_t",
    "cef_size_t",
    "cef_string_utf16_t",
    "cef_string_utf8_t",
    "cef_time_t",
    "cef_urlparts_t",
))

# Each as C++ writes it, and its size in bytes.
SCALARS = {
    "c_int8": ("signed char", 1),
    "c_ubyte": ("unsigned char", 1),
    "c_char": ("char", 1),
    "c_uint16": ("char16_t", 2),
    "c_int16": ("int16_t", 2),
    "c_int32": ("int", 4),
    "c_uint32": ("uint32_t", 4),
    "c_int64": ("int64_t", 8),
    "c_uint64": ("uint64_t", 8),
    "c_float": ("float", 4),
    "c_double": ("double", 8),
}


class NotUnderstood(Exception):
    """The description has something that this program has no rule for."""


class Type:
    """A type as C++ writes it around a declared name, with its size in bytes."""

    def __init__(self, before, size, after=""):
        self.before, self.size, self.after = before, size, after

    def declare(self, name):
        separator = "" if not name or self.before.endswith(("(CEF_CALLBACK *", "(*")) else " "
        return f"{self.before}{separator}{name}{self.after}"


def is_ctypes(node, name):
    return (isinstance(node, ast.Attribute) and node.attr == name
            and isinstance(node.value, ast.Name) and node.value.id == "ctypes")


def structure_name(python_name):
    """The C++ name of a structure: CEF's own in this namespace, the system's from its headers."""
    plain = python_name.removeprefix("struct_")
    return plain.removeprefix("_") if plain.startswith("_cef_") else f"::{plain}"


class Description:
    """What the description says of structures, functions and the names of types."""

    def __init__(self, text):
        self.aliases = {}
        self.structures = set()
        self.fields = {}
        self.results = {}
        self.arguments = {}
        for statement in ast.parse(text).body:
            if isinstance(statement, ast.ClassDef):
                # Not unions, whose members do not lie one after the other.
                if any(isinstance(b, ast.Name) and b.id == "Structure" for b in statement.bases):
                    self.structures.add(statement.name)
            elif isinstance(statement, ast.Assign):
                self.take_assignment(statement.targets[0], statement.value)

    def take_assignment(self, target, value):
        if isinstance(target, ast.Name):
            if isinstance(value, (ast.Name, ast.Attribute, ast.Call)):
                self.aliases[target.id] = value
        elif isinstance(target, ast.Attribute) and isinstance(target.value, ast.Name):
            name = target.value.id
            if target.attr == "_fields_":
                self.fields[name] = value
            elif target.attr == "restype":
                self.results[name] = value
            elif target.attr == "argtypes":
                self.arguments[name] = value

    def type_of(self, node):
        if isinstance(node, ast.Name):
            if node.id in self.structures and node.id in self.fields:
                return Type(structure_name(node.id), self.size_of(node.id))
            if node.id in self.aliases:
                return self.type_of(self.aliases[node.id])
        elif isinstance(node, ast.Constant) and node.value is None:
            return Type("void", 0)
        elif isinstance(node, ast.Attribute) and is_ctypes(node, node.attr):
            if node.attr in SCALARS:
                return Type(*SCALARS[node.attr])
        elif isinstance(node, ast.Call):
            if is_ctypes(node.func, "POINTER"):
                return self.pointer_to(node.args[0])
            if is_ctypes(node.func, "CFUNCTYPE"):
                result = self.type_of(node.args[0]).declare("")
                arguments = ", ".join(self.type_of(a).declare("") for a in node.args[1:])
                return Type(f"{result}(CEF_CALLBACK *", 8, f")({arguments})")
        elif isinstance(node, ast.BinOp) and isinstance(node.op, ast.Mult):
            element = self.type_of(node.left)
            if isinstance(node.right, ast.Constant):
                return Type(element.before, element.size * node.right.value,
                            f"[{node.right.value}]{element.after}")
        raise NotUnderstood(ast.unparse(node))

    def pointer_to(self, node):
        if isinstance(node, ast.Name) and node.id in self.structures:
            return Type(f"{structure_name(node.id)}*", 8)
        target = self.type_of(node)
        if target.after.startswith("["):
            return Type(f"{target.before} (*", 8, f"){target.after}")
        return Type(f"{target.before}*", 8, target.after)

    def members(self, structure):
        """(name, type) of each member, padding included, in order."""
        value = self.fields[structure]
        if not isinstance(value, ast.List):
            raise NotUnderstood(f"{structure}: the members are no list")
        for item in value.elts:
            if not (isinstance(item, ast.Tuple) and len(item.elts) == 2
                    and isinstance(item.elts[0], ast.Constant)):
                raise NotUnderstood(f"{structure}: {ast.unparse(item)}")
            name = item.elts[0].value
            try:
                yield name, self.type_of(item.elts[1])
            except NotUnderstood as error:
                raise NotUnderstood(f"{structure}.{name}: {error}") from None

    def size_of(self, structure):
        return sum(kind.size for _, kind in self.members(structure))


def write_structure(description, python_name, out):
    name = structure_name(python_name)
    shared = name in SHARED
    out.append(f"using ::{name};" if shared else f"struct {name} {{")
    checks, offset = [], 0
    for member, kind in description.members(python_name):
        if not member.startswith("PADDING_"):
            checks.append(f"static_assert(offsetof({name}, {member}) == {offset});")
            if not shared:
                out.append(f"  {kind.declare(member)};")
        offset += kind.size
    if not shared:
        out.append("};")
    out += checks
    out.append(f"static_assert(sizeof({name}) == {offset});")
    out.append("")


def function_members(description):
    for name in sorted(description.arguments.keys() | description.results.keys()):
        if not name.startswith("cef_"):
            raise NotUnderstood(f"{name}: not a function of CEF")
        if name not in description.results:
            raise NotUnderstood(f"{name}: no result")
        if not isinstance(description.arguments.get(name), ast.List):
            raise NotUnderstood(f"{name}: no list of arguments")
        try:
            result = description.type_of(description.results[name]).declare("")
            arguments = [description.type_of(argument).declare("")
                         for argument in description.arguments[name].elts]
        except NotUnderstood as error:
            raise NotUnderstood(f"{name}: {error}") from None
        yield name, f"{result} (*{name})({', '.join(arguments)});"


def generate(text):
    """The header's text for the description |text|. Raises NotUnderstood."""
    description = Description(text)
    own = [name for name in description.structures if name.startswith("struct__cef_")]
    missing = SHARED - {structure_name(name) for name in own}
    if missing:
        raise NotUnderstood(f"{', '.join(sorted(missing))}: not described")
    out = [
        "// Generated from the engine's description of its C API. Do not edit.",
        "#pragma once",
        "",
        "#include <windows.h>",
        "",
        "#include <cstddef>",
        "#include <cstdint>",
        "",
        '#include "include/internal/cef_export.h"',
        '#include "include/internal/cef_string.h"',
        '#include "include/internal/cef_time.h"',
        '#include "include/internal/cef_types.h"',
        '#include "include/internal/cef_types_win.h"',
        "",
        "namespace capi {",
        "",
    ]
    out += sorted(f"struct {structure_name(name)};" for name in own
                  if structure_name(name) not in SHARED)
    out.append("")
    for python_name in description.fields:
        if python_name in own:
            write_structure(description, python_name, out)
    functions = list(function_members(description))
    out.append("// Every function that the engine exports.")
    out.append("struct Functions {")
    out += [f"  {member}" for _, member in functions]
    out += ["};", "", "// Their names, in the order of the members of Functions."]
    out.append("inline constexpr const char* kFunctionNames[] = {")
    out += [f'    "{name}",' for name, _ in functions]
    out += ["};", "", "}  // namespace capi", ""]
    return "\n".join(out)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    with open(sys.argv[1], encoding="utf-8") as description:
        text = description.read()
    try:
        header = generate(text)
    except NotUnderstood as error:
        sys.exit(f"{sys.argv[1]}: not understood: {error}")
    with open(sys.argv[2], "w", encoding="utf-8", newline="\n") as output:
        output.write(header)


if __name__ == "__main__":
    main()
